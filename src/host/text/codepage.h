// Text in the system's ANSI code page.
#pragma once

#include "automation/objects/export.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace mox::host {

struct CodePageTables;

/// A Windows code page, single or double byte. Windows' own tables: in code page 1252 the five bytes that have no character
/// (0x81, 0x8D, 0x8F, 0x90, 0x9D) stand for the control characters of the same number. Characters that the code page lacks become
/// "?", never a similar one that it has: a full-width backslash does not turn into a path separator. Each half of a surrogate
/// pair counts as one such character.
class MOX_API CodePage {
public:
    /// Throws `std::invalid_argument` for a number that is no known code page. Known are the ANSI code pages 874, 932, 936, 949,
    /// 950 and 1250 to 1258 and the OEM code pages 437, 737, 775, 850, 852, 855, 858, 860 to 863, 865 and 866. Cheap for a page
    /// that was used before.
    explicit CodePage(std::uint32_t number);
    static bool isKnown(std::uint32_t number) noexcept;

    std::uint32_t number() const noexcept { return number_; }
    std::string fromUtf16(std::u16string_view text) const;
    /// A lead byte that no valid trail byte follows becomes the code page's default character, "?", or U+30FB in code page 932;
    /// the byte behind it stands for itself.
    std::u16string toUtf16(std::string_view bytes) const;
    /// The same into a place of the caller's; gives the number of units written, or nothing if they do not fit.
    std::optional<std::size_t> fromUtf16(std::u16string_view text, std::span<char> bytes) const;
    std::optional<std::size_t> toUtf16(std::string_view bytes, std::span<char16_t> text) const;
    /// File names on disk are UTF-8.
    std::string fromUtf8(std::string_view text) const;
    std::string toUtf8(std::string_view bytes) const;
    /// True if text survives the way into the code page and back.
    bool holds(std::u16string_view text) const;
    /// True for the first byte of a character of two bytes.
    bool isLeadByte(std::uint8_t byte) const noexcept;

private:
    std::uint32_t number_;
    std::shared_ptr<const CodePageTables> tables_;
};

} // namespace mox::host
