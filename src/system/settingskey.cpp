#include "system/settingskey.h"

#include <string>
#include <string_view>

namespace mox::server {

namespace {

std::u16string_view bare(std::u16string_view text) {
    const std::size_t begin = text.find_first_not_of(u' ');
    if (begin == text.npos) {
        return {};
    }
    text = text.substr(begin, text.find_last_not_of(u' ') - begin + 1);
    if (text.starts_with(u'\\')) {
        text.remove_prefix(1);
    }
    if (text.ends_with(u'\\')) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace

String settingsKey(const String& publisher, const String& application, const String& section) {
    std::u16string key = u"Software\\";
    for (const std::u16string_view part : {bare(publisher), bare(application)}) {
        key += part;
        key += part.empty() ? u"" : u"\\";
    }
    key += bare(section);
    if (key.ends_with(u'\\')) {
        key.pop_back();
    }
    return key;
}

} // namespace mox::server
