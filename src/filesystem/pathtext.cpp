#include "filesystem/pathtext.h"

#include <algorithm>

namespace mox::server {

std::u16string withBackslash(std::u16string_view path) {
    std::u16string result(path);
    if (!result.empty() && !result.ends_with(u'\\')) {
        result += u'\\';
    }
    return result;
}

std::u16string_view withoutBackslash(std::u16string_view path) {
    return path.substr(0, path.size() - (path.ends_with(u'\\') ? 1 : 0));
}

std::u16string_view behindLastPoint(std::u16string_view text) {
    const std::size_t point = text.rfind(u'.');
    return point == text.npos ? std::u16string_view() : text.substr(point + 1);
}

std::u16string_view behindLastBackslash(std::u16string_view text) {
    return text.substr(text.rfind(u'\\') + 1);
}

std::u16string cleanedName(std::u16string_view text) {
    constexpr std::u16string_view never = u"*?<>|\"";
    std::u16string name;
    std::ranges::copy_if(text, std::back_inserter(name), [&](char16_t c) { return never.find(c) == never.npos; });
    return name.erase(0, std::min(name.find_first_not_of(u'.'), name.size()));
}

bool isNumber(std::u16string_view text) {
    return !text.empty() && text.find_first_not_of(u"1234567890") == text.npos;
}

} // namespace mox::server
