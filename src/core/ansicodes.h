// ANSI codes of single characters.
#pragma once

#include <mox/values.h>

#include <array>
#include <vector>

namespace mox::server {

/// The code of each character of a text in the system's code page: its byte, or for a character of two bytes the first one in the high half.
/// A character that the code page lacks has the code of its replacement.
std::vector<std::uint16_t> ansiCodes(std::u16string_view text);

/// The characters of single bytes in the system's code page, looked up when they are first asked for.
class AnsiCharacters {
public:
    char16_t operator[](Byte code) {
        if (code < 0x80) {
            return code;
        }
        char16_t& character = upperHalf_[code - 0x80u];
        return character ? character : character = lookUp(code);
    }

private:
    static char16_t lookUp(Byte code);

    std::array<char16_t, 128> upperHalf_{};
};

} // namespace mox::server
