// Endings of file names.
#pragma once

#include <algorithm>
#include <string_view>

namespace mox::host {

/// True if a name ends so, without regard to case.
inline bool hasEnding(std::string_view name, std::string_view ending) {
    constexpr auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    return name.size() >= ending.size() && std::ranges::equal(name.substr(name.size() - ending.size()), ending, {}, lower, lower);
}

} // namespace mox::host
