#include "system/settingskey.h"

#include "core/trim.h"

#include <string>
#include <string_view>

namespace mox::server {

namespace {

/// Without blanks, and one backslash, on both sides.
std::u16string_view bare(std::u16string_view text) {
    text = trimmed(text);
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
