#include "host/files/names.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <array>

namespace mox::host {

namespace {

/// The next character of UTF-8; bytes that are none come one by one, as surrogates.
char32_t takeCharacter(std::string_view text, std::size_t& position) noexcept {
    const auto first = static_cast<unsigned char>(text[position]);
    if (first < 0x80) {
        ++position;
        return first;
    }
    std::size_t end = position;
    UChar32 character = -1;
    U8_NEXT(text.data(), end, text.size(), character);
    if (character < 0) {
        ++position;
        return 0xDC00u + first;
    }
    position = end;
    return static_cast<char32_t>(character);
}

char32_t folded(char32_t c) noexcept {
    if (c < 0x80) {
        return c >= U'A' && c <= U'Z' ? c + 0x20 : c;
    }
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

} // namespace

bool equalWithoutCase(std::string_view first, std::string_view second) noexcept {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < first.size() && j < second.size()) {
        if (folded(takeCharacter(first, i)) != folded(takeCharacter(second, j))) {
            return false;
        }
    }
    return i == first.size() && j == second.size();
}

std::string foldCase(std::string_view name) {
    std::string result;
    result.reserve(name.size());
    for (std::size_t i = 0; i < name.size();) {
        const std::size_t start = i;
        const char32_t c = folded(takeCharacter(name, i));
        if (c < 0x80) {
            result += static_cast<char>(c);
        } else if (U_IS_SURROGATE(c)) {
            result += name[start];
        } else {
            std::array<char, U8_MAX_LENGTH> bytes{};
            std::size_t length = 0;
            U8_APPEND_UNSAFE(bytes.data(), length, c);
            result.append(bytes.data(), length);
        }
    }
    return result;
}

std::u32string upperCase(std::string_view name) {
    std::u32string upper;
    upper.reserve(name.size());
    for (std::size_t i = 0; i < name.size();) {
        const char32_t c = takeCharacter(name, i);
        if (c < 0x80) {
            upper += c >= U'a' && c <= U'z' ? c - 0x20 : c;
        } else {
            upper += static_cast<char32_t>(u_toupper(static_cast<UChar32>(c)));
        }
    }
    return upper;
}

std::string_view withoutTrailingDots(std::string_view name) noexcept {
    return name.substr(0, name.find_last_not_of(". ") + 1);
}

} // namespace mox::host
