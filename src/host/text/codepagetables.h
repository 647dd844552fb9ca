// The tables behind the code pages.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace mox::host {

/// What every byte and every character of one code page stands for. Bytes below 0x80 are ASCII in every code page. Immutable.
struct CodePageTables {
    /// The tables of a code page, made once in a process; null for an unknown number. Throws `std::runtime_error` if ICU cannot
    /// serve it.
    static std::shared_ptr<const CodePageTables> find(std::uint32_t number);

    static bool isKnown(std::uint32_t number) noexcept;

    bool hasPairs() const noexcept { return !pairs.empty(); }

    /// The character of each byte that stands alone.
    std::array<char16_t, 256> single{};
    std::array<bool, 256> isLead{};
    /// The character of each pair of bytes by lead byte * 256 + trail byte, 0 for none. Empty in a single-byte code page.
    std::vector<char16_t> pairs;
    /// The byte, or the pair of bytes, of each character; "?" for those that the code page lacks.
    std::vector<std::uint16_t> codes;
    /// The character of a broken pair.
    char16_t defaultCharacter = u'?';
};

} // namespace mox::host
