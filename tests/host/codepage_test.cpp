#include "host/codepagesamples.h"

#include "host/text/codepage.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace mox::test {

namespace {

using host::CodePage;

std::string allBytes(unsigned first, unsigned last) {
    std::string bytes;
    for (unsigned byte = first; byte <= last; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

TEST(CodePageTest, hasThePublishedTablesOfSingleBytePages) {
    for (const auto& [number, characters] : upperHalves) {
        SCOPED_TRACE(number);
        const CodePage page(number);
        EXPECT_EQ(page.number(), number);
        const std::string upper = allBytes(0x80, 0xFF);
        EXPECT_EQ(page.toUtf16(upper), characters);
        EXPECT_EQ(page.fromUtf16(characters), upper);
    }
}

TEST(CodePageTest, losesNoByteOfASingleBytePage) {
    const std::string bytes = allBytes(0, 0xFF);
    for (const std::uint32_t number : {437, 737, 775,  850,  852,  855,  858,  860,  861,  862,  863, 865,
                                       866, 874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
        SCOPED_TRACE(number);
        const CodePage page(number);
        const std::u16string text = page.toUtf16(bytes);
        EXPECT_EQ(page.fromUtf16(text), bytes);
        EXPECT_TRUE(page.holds(text));
        for (char16_t ascii = 0; ascii < 0x80; ++ascii) {
            EXPECT_EQ(text[ascii], ascii);
        }
        for (unsigned byte = 0; byte <= 0xFF; ++byte) {
            EXPECT_FALSE(page.isLeadByte(static_cast<std::uint8_t>(byte)));
        }
    }
}

TEST(CodePageTest, hasTheOemPagesThatDifferInFewPlaces) {
    constexpr struct {
        std::uint32_t codePage;
        unsigned byte;
        char16_t character;
    } samples[] = {
        {737, 0x80, u'Α'}, {737, 0xFF, u'\u00A0'}, {775, 0x80, u'Ć'},    {775, 0xE6, u'µ'}, {855, 0xEF, u'№'}, {858, 0xD5, u'€'},
        {860, 0x84, u'ã'}, {860, 0xE6, u'µ'},      {861, 0x8B, u'Ð'},    {862, 0x80, u'א'}, {863, 0x8D, u'‗'}, {865, 0xAF, u'¤'},
        {865, 0x9B, u'ø'}, {437, 0x1A, u'\x1A'},   {437, 0x7F, u'\x7F'}, {850, 0xD5, u'ı'},
    };
    for (const auto& [number, byte, character] : samples) {
        EXPECT_EQ(CodePage(number).toUtf16(std::string(1, static_cast<char>(byte))), std::u16string(1, character))
            << number << " " << byte;
    }
}

TEST(CodePageTest, putsAQuestionMarkForWhatItLacks) {
    constexpr struct {
        std::uint32_t codePage;
        std::u16string_view text;
        std::string_view bytes;
    } samples[] = {
        {1252, u"a\u0100b", "a?b"},            // A with macron: no similar letter
        {1252, u"\u221E", "?"},                // infinity: no 8
        {1252, u"C:\uFF3Cx\uFF0Fy", "C:?x?y"}, // full-width separators: none of a path
        {1252, u"\u03BC", "?"},                // the Greek letter is not the micro sign
        {1252, u"a\u200Bb", "a?b"},            // zero width: does not vanish
        {1252, u"\U0001F600", "??"},           // one for each half of a pair
        {1252, u"\xD800", "?"},                // and for a half alone
        {1252, u"\x0080", "?"},                // 0x80 is the euro sign
        {1251, u"é", "?"},
        {437, u"\u263A", "?"},
        {874, u"é", "?"},
        {932, u"é\U0001F600", "???"},
        {932, u"\uF86F", "?"}, // some write it as 0x8782, which reads as another character
        {950, u"\uFF5E\u20AC?", "\xA1\xE3\xA3\xE1?"},
    };
    for (const auto& [number, text, bytes] : samples) {
        const CodePage page(number);
        EXPECT_EQ(page.fromUtf16(text), bytes);
        EXPECT_EQ(page.holds(text), number == 950);
    }
    EXPECT_TRUE(CodePage(1252).holds(u"what? \u20AC\u0081"));
    EXPECT_TRUE(CodePage(1252).holds(u""));
}

TEST(CodePageTest, knowsTheCharactersOfTwoBytes) {
    constexpr struct {
        std::uint32_t codePage;
        std::u16string_view text;
        std::string_view bytes;
    } samples[] = {
        {932, u"日本語\\~", "\x93\xFA\x96{\x8C\xEA\\~"},
        {932, u"ｱｶﾞ", "\xB1\xB6\xDE"},  // half width: one byte each
        {932, u"ソ表", "\x83\\\x95\\"}, // trail bytes that look like a backslash
        {932, u"①Ⅷ㈱", "\x87\x40\x87\x5B\x87\x8A"},
        {932, u"～－∥￢", "\x81\x60\x81\x7C\x81\x61\x81\xCA"},
        {932, u"ⅰ纊髙", "\xFA\x40\xFA\x5C\xFB\xFC"}, // the IBM extensions, not their copies
        {932, u"\uE000\uE757", "\xF0\x40\xF9\xFC"},  // user-defined
        {932, u"\u0080\uF8F0\uF8F1\uF8F2\uF8F3", "\x80\xA0\xFD\xFE\xFF"},
        {936, u"中文€", "\xD6\xD0\xCE\xC4\x80"},
        {936, u"丂\uF8F5", "\x81\x40\xFF"},
        {949, u"한국어", "\xC7\xD1\xB1\xB9\xBE\xEE"},
        {949, u"갂똠", "\x81\x41\x8C\x63"}, // syllables of the extension
        {949, u"\u0080\uF8F7", "\x80\xFF"},
        {950, u"中文功", "\xA4\xA4\xA4\xE5\xA5\x5C"},
        {950, u"\u0080\uF8F8碁", "\x80\xFF\xF9\xD6"},
    };
    for (const auto& [number, text, bytes] : samples) {
        const CodePage page(number);
        EXPECT_EQ(page.toUtf16(bytes), text) << number;
        EXPECT_EQ(page.fromUtf16(text), bytes) << number;
        EXPECT_TRUE(page.holds(text)) << number;
    }
}

TEST(CodePageTest, readsCopiesOfCharactersAndWritesTheOneThatCounts) {
    const CodePage page(932);
    EXPECT_EQ(page.toUtf16("\x87\x90\xED\x40\xEE\xFC"), u"≒纊＂");
    EXPECT_EQ(page.fromUtf16(u"≒纊＂"), "\x81\xE0\xFA\x5C\xFA\x57");
}

TEST(CodePageTest, replacesBrokenPairsAndKeepsTheByteBehind) {
    constexpr struct {
        std::uint32_t codePage;
        std::string_view bytes;
        std::u16string_view text;
    } samples[] = {
        {932, "a\x81", u"a\u30FB"},   {932, std::string_view("\x81\0b", 3), std::u16string_view(u"\u30FB\0b", 3)},
        {932, "\x81 x", u"\u30FB x"}, {936, "\x81\xFF", u"?\uF8F5"},
        {949, "\xC7", u"?"},          {950, "\xA4\xA4\xA4", u"中?"},
    };
    for (const auto& [number, bytes, text] : samples) {
        EXPECT_EQ(CodePage(number).toUtf16(bytes), text) << number;
    }
}

TEST(CodePageTest, tellsLeadBytes) {
    constexpr struct {
        std::uint32_t codePage;
        std::string_view ranges; // first and last of each
    } samples[] = {{932, "\x81\x9F\xE0\xFC"}, {936, "\x81\xFE"}, {949, "\x81\xFE"}, {950, "\x81\xFE"}};
    for (const auto& [number, ranges] : samples) {
        const CodePage page(number);
        for (unsigned byte = 0; byte <= 0xFF; ++byte) {
            bool expected = false;
            for (std::size_t i = 0; i < ranges.size(); i += 2) {
                expected = expected ||
                           (byte >= static_cast<std::uint8_t>(ranges[i]) && byte <= static_cast<std::uint8_t>(ranges[i + 1]));
            }
            EXPECT_EQ(page.isLeadByte(static_cast<std::uint8_t>(byte)), expected) << number << " " << byte;
        }
    }
}

TEST(CodePageTest, convertsTextsOfEveryLengthAlike) {
    // Around the length of the blocks, and with the one character that is no ASCII at every place in them.
    const CodePage page(1252);
    EXPECT_EQ(page.toUtf16(std::string(32, '\x80')), std::u16string(32, u'€'));
    EXPECT_EQ(page.fromUtf16(std::u16string(32, u'\u0080')), std::string(32, '?'));
    for (std::size_t length = 0; length <= 40; ++length) {
        for (std::size_t place = 0; place <= length; ++place) {
            std::u16string text(length, u'x');
            std::string bytes(length, 'x');
            if (place < length) {
                text[place] = u'€';
                bytes[place] = '\x80';
            }
            ASSERT_EQ(page.fromUtf16(text), bytes);
            ASSERT_EQ(page.toUtf16(bytes), text);
        }
    }
}

TEST(CodePageTest, convertsFileNames) {
    const CodePage page(1252);
    EXPECT_EQ(page.fromUtf8("Größe €.txt"), "Gr\xF6\xDF"
                                            "e \x80.txt");
    EXPECT_EQ(page.toUtf8("\xC4\x81\x9F"), "Ä\u0081Ÿ");
    EXPECT_EQ(page.fromUtf8("a\xFFz Ł"), "a?z ?");
}

TEST(CodePageTest, refusesUnknownNumbers) {
    for (const std::uint32_t number : {0u, 1u, 37u, 1200u, 1259u, 65000u, 65001u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(CodePage::isKnown(number));
        EXPECT_THROW(CodePage{number}, std::invalid_argument) << number;
    }
    EXPECT_TRUE(CodePage::isKnown(1252));
}

} // namespace

} // namespace mox::test
