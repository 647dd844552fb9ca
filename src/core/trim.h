// Blanks around texts.
#pragma once

#include <string_view>

namespace mox::server {

/// Without the blanks on both sides; other white space stays.
constexpr std::u16string_view trimmed(std::u16string_view text) {
    const std::size_t start = text.find_first_not_of(u' ');
    return start == text.npos ? std::u16string_view() : text.substr(start, text.find_last_not_of(u' ') + 1 - start);
}

} // namespace mox::server
