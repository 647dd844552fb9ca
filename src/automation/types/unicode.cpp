// UTF-8 and UTF-16.
#include <mox/values/string.h>

#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace mox {

namespace {
constexpr UChar32 replacement = 0xFFFD;
}

std::string utf8FromUtf16(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        UChar32 character = 0;
        U16_NEXT(text.data(), position, text.size(), character);
        if (U_IS_SURROGATE(character)) {
            character = replacement;
        }
        char bytes[U8_MAX_LENGTH];
        std::size_t count = 0;
        U8_APPEND_UNSAFE(bytes, count, character);
        result.append(bytes, count);
    }
    return result;
}

std::u16string utf16FromUtf8(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(text.data(), position, text.size(), character);
        if (U_IS_BMP(character)) {
            result.push_back(static_cast<char16_t>(character));
        } else {
            result.push_back(static_cast<char16_t>(U16_LEAD(character)));
            result.push_back(static_cast<char16_t>(U16_TRAIL(character)));
        }
    }
    return result;
}

} // namespace mox
