// Text in the system's ANSI code page.
#pragma once

#include "automation/objects/export.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace mox::host {

/// A Windows code page, single or double byte. Windows' own tables: in code page 1252 the five bytes that have no character (0x81, 0x8D, 0x8F,
/// 0x90, 0x9D) stand for the control characters of the same number. Characters that the code page lacks become "?".
class MOX_API CodePage {
public:
    /// Throws `std::invalid_argument` for a number that is no known code page.
    explicit CodePage(std::uint32_t number);
    ~CodePage();

    std::uint32_t number() const noexcept { return number_; }
    std::string fromUtf16(std::u16string_view text) const;
    std::u16string toUtf16(std::string_view bytes) const;
    /// File names on disk are UTF-8.
    std::string fromUtf8(std::string_view text) const;
    std::string toUtf8(std::string_view bytes) const;
    /// True if text survives the way into the code page and back.
    bool holds(std::u16string_view text) const;
    /// True for the first byte of a character of two bytes.
    bool isLeadByte(std::uint8_t byte) const noexcept;

private:
    struct Tables;

    std::uint32_t number_;
    std::unique_ptr<Tables> tables_;
};

} // namespace mox::host
