#include <mox/values/string.h>

#include <gtest/gtest.h>

using namespace mox;

namespace {

TEST(Unicode, GoesBothWays) {
    const struct {
        std::u16string_view wide;
        std::string_view narrow;
    } cases[] = {
        {u"", ""},
        {u"plain", "plain"},
        {std::u16string_view(u"a\0b", 3), std::string_view("a\0b", 3)},
        {u"\u007F\u0080\u07FF\u0800\uFFFF", "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"},
        {u"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
    };
    for (const auto& [wide, narrow] : cases) {
        EXPECT_EQ(utf8FromUtf16(wide), narrow);
        EXPECT_EQ(utf16FromUtf8(narrow), wide);
    }
}

TEST(Unicode, ReplacesLoneSurrogates) {
    constexpr char16_t high = 0xD83D;
    constexpr char16_t low = 0xDE00;
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(utf8FromUtf16(std::u16string{high}), replacement);
    EXPECT_EQ(utf8FromUtf16(std::u16string{low, u'x'}), replacement + "x");
    EXPECT_EQ(utf8FromUtf16(std::u16string{high, u'x', low}), replacement + "x" + replacement);
    EXPECT_EQ(utf8FromUtf16(std::u16string{high, high, low}), replacement + "\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8FromUtf16(std::u16string{low, high}), replacement + replacement);
}

TEST(Unicode, ReplacesBrokenSequences) {
    const struct {
        std::string_view bytes;
        std::u16string_view text;
    } cases[] = {
        {"\x80", u"\uFFFD"},
        {"a\xFFz", u"a\uFFFDz"},
        {"\xC3", u"\uFFFD"},
        {"\xC3(", u"\uFFFD("},
        {"\xE2\x82", u"\uFFFD"},
        {"\xE2\x82z", u"\uFFFDz"},
        {"\xF0\x9F\x98", u"\uFFFD"},
        {"\xC0\x80", u"\uFFFD\uFFFD"},                     // NUL in two bytes
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},           // a surrogate
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond the last character
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(utf16FromUtf8(bytes), text);
    }
}

} // namespace
