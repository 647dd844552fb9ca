// ANSI codes of single characters.
#pragma once

#include <mox/values.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <vector>

namespace mox::server {

/// The codes of a text's characters in the system's code page. A character that the code page lacks has the code of its
/// replacement.
class AnsiCodes {
public:
    explicit AnsiCodes(std::u16string_view text);

    /// True if every character has one byte; then `bytes()` has them all.
    bool areBytes() const noexcept { return wide_.empty(); }
    std::span<const Byte> bytes() const noexcept { return {bytes_.get(), count_}; }
    /// Otherwise the codes: the byte of a character, or for one of two bytes the first in the high half.
    std::span<const std::uint16_t> wide() const noexcept { return wide_; }

private:
    std::size_t count_;
    std::unique_ptr<Byte[]> bytes_;
    std::vector<std::uint16_t> wide_;
};

/// The characters of single bytes in the system's code page, looked up when they are first asked for.
class AnsiCharacters {
public:
    AnsiCharacters() {
        for (unsigned code = 0; code < 0x80; ++code) {
            characters_[code] = static_cast<char16_t>(code);
        }
    }
    char16_t operator[](Byte code) {
        const char16_t character = characters_[code];
        return character || code == 0 ? character : lookUp(code);
    }

    /// The characters of all codes.
    void convert(std::span<const Byte> codes, char16_t* result) {
        Byte all = 0;
        for (const Byte code : codes) {
            all |= code;
        }
        if (all < 0x80) {
            std::copy(codes.begin(), codes.end(), result);
            return;
        }
        for (const Byte code : codes) {
            *result++ = (*this)[code];
        }
    }

private:
    char16_t lookUp(Byte code);

    std::array<char16_t, 256> characters_{};
};

} // namespace mox::server
