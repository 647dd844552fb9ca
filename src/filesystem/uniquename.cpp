#include "filesystem/uniquename.h"

namespace mox::server {

namespace {

std::u16string decimal(std::uint64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

} // namespace

String freeName(const NameParts& parts, const String& separator, Boolean brackets, Boolean (*exists)(const String& path)) {
    const std::u16string start = parts.base + std::u16string(separator) + (brackets ? u"(" : u"");
    const std::u16string end = (brackets ? u")" : u"") + parts.extension;
    for (std::uint64_t counter = 2;; ++counter) {
        String name = start + decimal(counter) + end;
        if (!exists(name)) {
            return name;
        }
    }
}

} // namespace mox::server
