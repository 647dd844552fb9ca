#include "values/values_support.h"

#include "values/entities.h"

#include <random>

namespace mox::test {

namespace {

struct Row {
    std::u16string_view text;
    std::u16string_view decoded;
    std::u16string_view encoded;
};

TEST_F(Values, EntitiesAreDecodedAndEncoded) {
    const moxVarString object = vars.vString();
    const Row rows[] = {
        {u"", u"", u""},
        {u"plain", u"plain", u"plain"},
        {u"<br />", u"\r\n", u"<br />"},
        {u"&lt;br /&gt;", u"\r\n", u"<br />"},
        {u"a\rb\nc\r\nd", u"a\rb\nc\r\nd", u"a<br />b<br />c<br />d"},
        {u"\n\r", u"\n\r", u"<br /><br />"},
        {u"&amp;", u"&", u"&amp;"},
        {u"&", u"&", u"&amp;"},
        {u"&amp;lt;", u"<", u"&lt;"},
        {u"&amp;amp;", u"&amp;", u"&amp;amp;"},
        {u"&AMP;&Lt;", u"&AMP;&Lt;", u"&amp;AMP;&amp;Lt;"},
        {u"&auml&auml;", u"&auml\u00E4", u"&amp;auml&auml;"},
        {u"&nosuch;&;;&", u"&nosuch;&;;&", u"&amp;nosuch;&amp;;;&amp;"},
        {u"\"<>[]{}|~^`\\", u"\"<>[]{}|~^`\\", u"&quot;&lt;&gt;&#91;&#93;&#123;&#125;&#124;&#126;&#94;&#96;&#92;"},
        {u"\u20AC\u2122\u201E\u201C\u201D\u2022\u00FF", u"\u20AC\u2122\u201E\u201C\u201D\u2022\u00FF",
         u"&euro;&#153;&#132;&#147;&#148;&bull;&yuml;"},
        {u"\u0152\u4E2D", u"\u0152\u4E2D", u"\u0152\u4E2D"},
    };
    for (const Row& row : rows) {
        expectBoth<&moxVarString::StringEntities>(object, u"StringEntities", String(row.decoded), String(row.text), False);
        expectBoth<&moxVarString::StringEntities>(object, u"StringEntities", String(row.encoded), String(row.text), True);
    }
}

std::u16string replaceAll(std::u16string text, std::u16string_view what, std::u16string_view with) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::u16string::npos; at += with.size()) {
        text.replace(at, what.size(), with);
    }
    return text;
}

TEST_F(Values, OneWalkDoesWhatTheRowsDoOneAfterTheOther) {
    // The definition, on the rows whose order matters and a few others.
    const std::pair<std::u16string_view, std::u16string_view> table[] = {
        {u"&", u"&amp;"}, {u"\"", u"&quot;"}, {u"\u00A0", u"&nbsp;"}, {u">", u"&gt;"},    {u"<", u"&lt;"},
        {u"[", u"&#91;"}, {u"|", u"&#124;"},  {u"\r\n", u"<br />"},   {u"\r", u"<br />"}, {u"\n", u"<br />"},
    };
    const std::u16string_view pieces[] = {u"&",    u"amp;",   u"&amp;", u"lt;",    u"gt;",  u"<",      u">",
                                          u"br /", u"<br />", u"\r",    u"\n",     u"#91;", u"&#124;", u"nbsp;",
                                          u";",    u" ",      u"quot;", u"\u00A0", u"x"};
    std::mt19937 random(11);
    for (int i = 0; i < 20000; ++i) {
        std::u16string text;
        for (unsigned count = random() % 9; count > 0; --count) {
            text += pieces[random() % std::size(pieces)];
        }
        std::u16string decoded = text;
        for (const auto& [character, entity] : table) {
            decoded = replaceAll(decoded, entity, character);
        }
        ASSERT_EQ(server::decodeEntities(text), decoded) << String(text).utf8();
        std::u16string encoded = decoded;
        for (const auto& [character, entity] : table) {
            encoded = replaceAll(encoded, character, entity);
        }
        ASSERT_EQ(server::encodeEntities(decoded), encoded) << String(decoded).utf8();
    }
}

} // namespace
} // namespace mox::test
