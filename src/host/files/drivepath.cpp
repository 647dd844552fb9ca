#include "host/files/drivepath.h"

#include "host/files/namepattern.h"
#include "host/files/names.h"

#include <algorithm>

namespace mox::host {

namespace {

constexpr std::string_view separators = "\\/";

bool isSeparator(char c) noexcept {
    return separators.find(c) != std::string_view::npos;
}

bool isLetter(char c) noexcept {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isWildcard(char c) noexcept {
    return c == '*' || c == '?';
}

} // namespace

std::optional<DrivePath> DrivePath::parse(std::string_view path, const DrivePath& current) {
    if (path.empty() || (path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1]))) {
        return std::nullopt;
    }
    DrivePath result;
    result.drive = current.drive;
    if (path.size() >= 2 && isLetter(path[0]) && path[1] == ':') {
        result.drive = static_cast<char>(path[0] & ~0x20);
        path.remove_prefix(2);
    }
    const bool fromRoot = !path.empty() && isSeparator(path[0]);
    if (!fromRoot && result.drive == current.drive) {
        result.names = current.names;
    }
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(separators), path.size());
        const std::string_view name = path.substr(0, end);
        if (std::ranges::any_of(name, [](char c) { return isReserved(c) && !isWildcard(c); })) {
            return std::nullopt;
        }
        if (name == "..") {
            if (!result.names.empty()) {
                result.names.pop_back();
            }
        } else if (!name.empty() && name != ".") {
            result.names.emplace_back(name);
        }
        result.endsWithSeparator = end < path.size();
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return result;
}

bool DrivePath::hasWildcards() const noexcept {
    return std::ranges::any_of(names, NamePattern::hasWildcards);
}

} // namespace mox::host
