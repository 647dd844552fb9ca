#include "values/entities.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace mox::server {

namespace {

struct Entity {
    char16_t character;
    std::u16string_view text;
};

// In the order in which the rows apply. The numbers in entities are those of the Windows code page.
constexpr Entity entities[] = {
    {0x0026, u"&amp;"},    {0x00BF, u"&iquest;"}, {0x0022, u"&quot;"},   {0x00AB, u"&laquo;"},  {0x00BB, u"&raquo;"},
    {0x00A0, u"&nbsp;"},   {0x00A1, u"&iexcl;"},  {0x00A2, u"&cent;"},   {0x00A9, u"&copy;"},   {0x00F7, u"&divide;"},
    {0x003E, u"&gt;"},     {0x003C, u"&lt;"},     {0x00B5, u"&#181;"},   {0x00B7, u"&middot;"}, {0x00B6, u"&para;"},
    {0x00B1, u"&plusmn;"}, {0x20AC, u"&euro;"},   {0x00A3, u"&pound;"},  {0x00AE, u"&reg;"},    {0x00A7, u"&sect;"},
    {0x00A5, u"&yen;"},    {0x00E1, u"&aacute;"}, {0x00C1, u"&Aacute;"}, {0x00E0, u"&agrave;"}, {0x00C0, u"&Agrave;"},
    {0x00E2, u"&acirc;"},  {0x00C2, u"&Acirc;"},  {0x00E5, u"&aring;"},  {0x00C5, u"&Aring;"},  {0x00E3, u"&atilde;"},
    {0x00C3, u"&Atilde;"}, {0x00E4, u"&auml;"},   {0x00C4, u"&Auml;"},   {0x00E6, u"&aelig;"},  {0x00C6, u"&AElig;"},
    {0x00E7, u"&ccedil;"}, {0x00C7, u"&Ccedil;"}, {0x00E9, u"&eacute;"}, {0x00C9, u"&Eacute;"}, {0x00E8, u"&egrave;"},
    {0x00C8, u"&Egrave;"}, {0x00EA, u"&ecirc;"},  {0x00CA, u"&Ecirc;"},  {0x00EB, u"&euml;"},   {0x00CB, u"&Euml;"},
    {0x00ED, u"&iacute;"}, {0x00CD, u"&Iacute;"}, {0x00EC, u"&igrave;"}, {0x00CC, u"&Igrave;"}, {0x00EE, u"&icirc;"},
    {0x00CE, u"&Icirc;"},  {0x00EF, u"&iuml;"},   {0x00CF, u"&Iuml;"},   {0x00F1, u"&ntilde;"}, {0x00D1, u"&Ntilde;"},
    {0x00F3, u"&oacute;"}, {0x00D3, u"&Oacute;"}, {0x00F2, u"&ograve;"}, {0x00D2, u"&Ograve;"}, {0x00F4, u"&ocirc;"},
    {0x00D4, u"&Ocirc;"},  {0x00F8, u"&oslash;"}, {0x00D8, u"&Oslash;"}, {0x00F5, u"&otilde;"}, {0x00D5, u"&Otilde;"},
    {0x00F6, u"&ouml;"},   {0x00D6, u"&Ouml;"},   {0x00DF, u"&szlig;"},  {0x00FA, u"&uacute;"}, {0x00DA, u"&Uacute;"},
    {0x00F9, u"&ugrave;"}, {0x00D9, u"&Ugrave;"}, {0x00FB, u"&ucirc;"},  {0x00DB, u"&Ucirc;"},  {0x00FC, u"&uuml;"},
    {0x00DC, u"&Uuml;"},   {0x00FF, u"&yuml;"},   {0x00B4, u"&#180;"},   {0x0060, u"&#96;"},    {0x005B, u"&#91;"},
    {0x005D, u"&#93;"},    {0x005C, u"&#92;"},    {0x005E, u"&#94;"},    {0x007B, u"&#123;"},   {0x007D, u"&#125;"},
    {0x007E, u"&#126;"},   {0x201E, u"&#132;"},   {0x201C, u"&#147;"},   {0x201D, u"&#148;"},   {0x2022, u"&bull;"},
    {0x2122, u"&#153;"},   {0x007C, u"&#124;"},
};
constexpr std::u16string_view lineBreak = u"<br />";

const std::unordered_map<std::u16string_view, char16_t>& characters() {
    static const auto map = [] {
        std::unordered_map<std::u16string_view, char16_t> result;
        for (const Entity& entity : entities) {
            result.emplace(entity.text, entity.character);
        }
        return result;
    }();
    return map;
}

const std::unordered_map<char16_t, std::u16string_view>& texts() {
    static const auto map = [] {
        std::unordered_map<char16_t, std::u16string_view> result;
        for (const Entity& entity : entities) {
            result.emplace(entity.character, entity.text);
        }
        return result;
    }();
    return map;
}

/// Every occurrence of `what` replaced; the text itself where there is none.
std::u16string replaced(std::u16string text, std::u16string_view what, std::u16string_view with) {
    std::u16string_view rest = text;
    std::size_t found = rest.find(what);
    if (found == std::u16string_view::npos) {
        return text;
    }
    std::u16string result;
    result.reserve(text.size());
    for (; found != std::u16string_view::npos; found = rest.find(what)) {
        result.append(rest.substr(0, found)).append(with);
        rest.remove_prefix(found + what.size());
    }
    return result.append(rest);
}

} // namespace

// The rows apply one after the other. Only the first gives characters that entities are made of, and "<" and ">" only those of
// the line break, so one walk serves for all rows between them.
std::u16string decodeEntities(std::u16string_view text) {
    if (text.find(u'&') == std::u16string_view::npos) {
        return replaced(std::u16string(text), lineBreak, u"\r\n");
    }
    constexpr std::size_t longest = 8;
    const std::u16string unescaped = replaced(std::u16string(text), entities[0].text, u"&");
    std::u16string_view rest = unescaped;
    std::u16string result;
    result.reserve(rest.size());
    for (;;) {
        const std::size_t start = rest.find(u'&');
        result += rest.substr(0, start);
        if (start == std::u16string_view::npos) {
            return replaced(std::move(result), lineBreak, u"\r\n");
        }
        rest.remove_prefix(start);
        const std::size_t length = rest.substr(0, longest).find(u';') + 1;
        const auto found = length > 0 ? characters().find(rest.substr(0, length)) : characters().end();
        if (found != characters().end() && found->second != u'&') {
            result += found->second;
            rest.remove_prefix(length);
        } else {
            result += u'&';
            rest.remove_prefix(1);
        }
    }
}

std::u16string encodeEntities(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size() + text.size() / 4);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c == u'\r' || c == u'\n') {
            result += lineBreak;
            i += c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        } else if ((c >= u'a' && c <= u'z') || c == u' ') {
            result += c; // most characters, never in the table
        } else if (const auto found = texts().find(c); found != texts().end()) {
            result += found->second;
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace mox::server
