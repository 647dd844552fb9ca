// The classes of characters that numbers and dates are made of.
#pragma once

namespace mox::automation {

constexpr bool isBlank(char16_t character) {
    constexpr char16_t noBreakSpace = 0xA0;
    return character == u' ' || (character >= u'\t' && character <= u'\r') || character == noBreakSpace;
}

constexpr bool isDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

/// Of an ASCII letter; all other characters stay.
constexpr char16_t upperCase(char16_t character) {
    return character >= u'a' && character <= u'z' ? static_cast<char16_t>(character - u'a' + u'A') : character;
}

/// The value of a digit of this base (up to 16), -1 for all other characters.
constexpr int digitOf(char16_t character, int base) {
    const char16_t upper = upperCase(character);
    const int value = isDigit(upper) ? upper - u'0' : upper >= u'A' && upper <= u'F' ? upper - u'A' + 10 : base;
    return value < base ? value : -1;
}

} // namespace mox::automation
