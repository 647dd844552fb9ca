// Reading the number at the start of a text, as the run-time layer does it.
#pragma once

#include <mox/values.h>

namespace mox::server {

/// The number that a text begins with. Blanks, tabs and line feeds are skipped, also between digits; reading stops at the first
/// character that cannot belong to a number; 0 if nothing is left. Only "." is a decimal point. Exponents follow E or D. After
/// "&H" or "&O" hexadecimal or octal digits: those that fit into 16 bits in up to four (octal: six) digits count as a signed
/// 16-bit number, longer ones as a signed 32-bit number. Error 6 if no `Double`, or for a prefix no 32 bits, can hold the number.
Double Val(std::u16string_view text);

/// The value of a hexadecimal digit, or -1.
constexpr Long hexadecimalDigit(char16_t c) {
    if (c >= u'0' && c <= u'9') {
        return c - u'0';
    }
    const auto letter = static_cast<char16_t>(c | 0x20);
    return letter >= u'a' && letter <= u'f' ? letter - u'a' + 10 : -1;
}

/// What number reading makes of "&H" and two characters: 0 to 255.
constexpr Byte readHexadecimalPair(char16_t first, char16_t second) {
    const auto skipped = [](char16_t c) { return c == u' ' || c == u'\t' || c == u'\n'; };
    const Long high = hexadecimalDigit(first);
    const Long low = hexadecimalDigit(second);
    if (high < 0) {
        return static_cast<Byte>(skipped(first) && low >= 0 ? low : 0);
    }
    return static_cast<Byte>(low >= 0 ? high * 16 + low : high);
}

} // namespace mox::server
