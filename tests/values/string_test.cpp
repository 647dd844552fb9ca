#include "values/values_support.h"

#include <random>

namespace mox::test {

namespace {

class Strings : public Values {
protected:
    moxVarString object = vars.vString();
};

TEST_F(Strings, AreEscapedForUrls) {
    struct Row {
        std::u16string_view text;
        bool plus;
        const char16_t* result;
    };
    const Row rows[] = {
        {u"", false, u""},
        {u" ", false, u"%20"},
        {u" ", true, u"+"},
        {u"\n", false, u"%0A"},
        {u"azAZ09", false, u"azAZ09"},
        {u"-_.~/:@[`{", false, u"%2D%5F%2E%7E%2F%3A%40%5B%60%7B"},
        {u"\u00E4\u20AC", false, u"%E4%80"},
        {std::u16string_view(u"a\0b", 3), false, u"a%00b"},
        {u"\u4E2D+", true, u"%3F%2B"}, // what the code page lacks is a question mark
    };
    for (const Row& row : rows) {
        expectBoth<&moxVarString::URLEncode>(object, u"URLEncode", String(row.result), String(row.text), Boolean(row.plus));
    }
    EXPECT_EQ(invoke(object.get(), u"URLEncode", u"a b").as<String>(), u"a%20b");
    EXPECT_EQ(object.URLEncode(u"a b"), u"a%20b");
}

TEST_F(Strings, UrlEscapesAreUndone) {
    struct Row {
        std::u16string_view text;
        std::u16string_view result;
    };
    const Row rows[] = {
        {u"", u""},
        {u"a+b", u"a b"},
        {u"%2B%2b", u"++"},
        {u"%E4%80", u"\u00E4\u20AC"},
        {u"%zz", std::u16string_view(u"\0", 1)},
        {u"%1g!", u"\u0001!"},
        {u"% 4x", u"\u0004x"},
        {u"%g1", std::u16string_view(u"\0", 1)},
        {u"abc%", u"abc%"},
        {u"a+c%4", u"a+c%4"},
        {u"%41%", u"%41%"},
        {u"100%25", u"100%"},
    };
    for (const Row& row : rows) {
        expectBoth<&moxVarString::URLDecode>(object, u"URLDecode", String(row.result), String(row.text));
    }
}

TEST_F(Strings, UrlEscapesAreFoundAtEveryPlace) {
    // Neighbours of "%" and "+" in either byte are neither.
    const std::u16string plain = u"\u0024\u0026\u002A\u002C\u0125\u2500\u012B\u2B00\uFFFF";
    for (std::size_t place = 0; place <= plain.size(); ++place) {
        const auto with = [&](const char16_t* middle) { return String(plain.substr(0, place) + middle + plain.substr(place)); };
        EXPECT_EQ(object.URLDecode(with(u"+")), with(u" ")) << place;
        EXPECT_EQ(object.URLDecode(with(u"%41")), with(u"A")) << place;
        EXPECT_EQ(object.URLDecode(with(u"%2B+%25%20")), with(u"+ % ")) << place;
    }
}

TEST_F(Strings, LongTextsForUrlsComeBackUnchanged) {
    const String longest(std::u16string(32767, u' '));
    const String tooLong(std::u16string(32768, u' '));
    EXPECT_EQ(object.URLEncode(longest).size(), 3u * 32767);
    EXPECT_EQ(object.URLEncode(tooLong), tooLong);
    const String escapes(std::u16string(32767, u'+'));
    EXPECT_EQ(object.URLDecode(escapes), longest);
    const String tooManyEscapes(std::u16string(32768, u'+'));
    EXPECT_EQ(object.URLDecode(tooManyEscapes), tooManyEscapes);
}

TEST_F(Strings, UrlMembersReturnTheInputWhenTheSystemFails) {
    const auto failing =
        platform::kernel32().WideCharToMultiByte.replace([](auto, auto, auto) -> std::int32_t { throw std::bad_alloc(); });
    EXPECT_EQ(object.URLEncode(u"a b"), u"a b");
    EXPECT_EQ(object.StringChecksum(u"a b"), 0);
}

TEST_F(Strings, ChecksumIsNotTheCommonOne) {
    // A bit by bit model of the definition.
    const auto model = [](std::u16string_view text) {
        std::uint32_t crc = 0;
        for (const char16_t c : text) {
            crc ^= c; // below 128, a character is its own code
            for (int bit = 0; bit < 8; ++bit) {
                crc = crc & 1 ? crc >> 1 ^ 0xEDB88320u : crc >> 1;
            }
        }
        return static_cast<Long>(~crc);
    };
    expectBoth<&moxVarString::StringChecksum>(object, u"StringChecksum", Long{-1}, String());
    std::u16string text;
    for (int length = 1; length <= 40; ++length) {
        text += static_cast<char16_t>(u'!' + length * 7 % 90);
        expectBoth<&moxVarString::StringChecksum>(object, u"StringChecksum", model(text), String(text));
    }
    EXPECT_EQ(object.StringChecksum(u"123456789"), static_cast<Long>(~0x2DFD2D88u));
    EXPECT_NE(object.StringChecksum(u"\u00E4"), object.StringChecksum(u"\u00F6"));
    EXPECT_EQ(object.StringChecksum(std::u16string(9000, u'x')), model(std::u16string(9000, u'x')));
}

TEST_F(Strings, BecomeHexadecimalAndBack) {
    expectBoth<&moxVarString::Conv2HexString>(object, u"Conv2HexString", String(u"41000AE480"),
                                              String(std::u16string_view(u"A\0\n\u00E4\u20AC", 5)), False);
    const std::pair<std::u16string_view, std::u16string_view> rows[] = {
        {u"41000AE480", std::u16string_view(u"A\0\n\u00E4\u20AC", 5)},
        {u"414", u"A"},
        {u"1G", u"\u0001"},
        {u"G1", std::u16string_view(u"\0", 1)},
        {u"", u""},
        {u"4", u""},
        {u"6a6B", u"jk"},
    };
    for (const auto& [text, result] : rows) {
        expectBoth<&moxVarString::Conv2HexString>(object, u"Conv2HexString", String(result), String(text), True);
    }
}

TEST_F(Strings, LoseWhatIsToTrimAtTheirEnd) {
    const String text(std::u16string_view(u" a \r\n\t\0 ", 8));
    EXPECT_EQ(object.StringTrimRight(text), u" a");
    EXPECT_EQ(invoke(object.get(), u"StringTrimRight", text).as<String>(), u" a");
    struct Row {
        bool space, cr, lf, nul, tab;
        std::size_t left;
    };
    for (const Row& row : {Row{false, true, true, true, true, 8},
                           {true, true, true, false, true, 7},
                           {true, true, true, true, false, 6},
                           {true, true, false, true, true, 5},
                           {true, false, true, true, true, 4}}) {
        EXPECT_EQ(object.StringTrimRight(text, row.space, row.cr, row.lf, row.nul, row.tab).size(), row.left);
    }
    EXPECT_EQ(object.StringTrimRight(u"     "), u"");
    EXPECT_EQ(object.StringTrimRight(u""), u"");
}

TEST_F(Strings, AreFilledWithZerosAndSwapped) {
    expectBoth<&moxVarString::StringLeftZeroFill>(object, u"StringLeftZeroFill", String(u"007"), String(u"7"), Byte{3});
    expectBoth<&moxVarString::StringLeftZeroFill>(object, u"StringLeftZeroFill", String(u"1234"), String(u"1234"), Byte{3});
    expectBoth<&moxVarString::StringLeftZeroFill>(object, u"StringLeftZeroFill", String(u"7"), String(u"7"), Byte{0});
    EXPECT_EQ(object.StringLeftZeroFill(u"", 255).size(), 255u);
    String a = u"one";
    String b;
    object.StringSwap(a, b);
    EXPECT_EQ(a, u"");
    EXPECT_EQ(b, u"one");
    invoke(object.get(), u"StringSwap", reference(a), reference(b));
    EXPECT_EQ(a, u"one");
}

TEST_F(Strings, BecomeNumbersWithinLimits) {
    for (const auto& [text, result] : {std::pair{u"", 0},
                                       {u" 12", 12},
                                       {u"2.5", 2},
                                       {u"3.5", 4},
                                       {u"-2.5", -2},
                                       {u"12,9", 12},
                                       {u"99999999999", 2147483647},
                                       {u"-99999999999", -2147483647},
                                       {u"1e3x", 1000},
                                       {u"&HFFFF", -1}}) {
        expectBoth<&moxVarString::Conv2Long>(object, u"Conv2Long", Long{result}, String(text), Long{-2147483647},
                                             Long{2147483647});
    }
    EXPECT_EQ(object.Conv2Long(u""), 0);
    EXPECT_EQ(object.Conv2Long(u"", 1), 1);
    EXPECT_EQ(object.Conv2Long(u"5", 10, 1), 10);
    EXPECT_EQ(object.Conv2Long(u"1e400"), -2147483647) << "a number that cannot be read gives the minimum";
    EXPECT_EQ(object.Conv2Long(u"1e400", 7, 9), 7);
    EXPECT_EQ(object.Conv2Byte(u"-1"), 0);
    EXPECT_EQ(object.Conv2Byte(u"300"), 255);
    EXPECT_EQ(object.Conv2Byte(u"254.5"), 254);
    EXPECT_EQ(object.Conv2Integer(u"2.5"), 2);
    EXPECT_EQ(object.Conv2Integer(u"40000"), 32767);
    EXPECT_EQ(invoke(object.get(), u"Conv2Integer", u"-40000").as<Integer>(), -32768);
    EXPECT_EQ(object.Conv2Single(u"1,5"), 1.5f);
    EXPECT_EQ(object.Conv2Single(u"1.234,5"), 1.234f);
    EXPECT_EQ(object.Conv2Single(u"1e39", -7, 7), -7.0f);
    EXPECT_EQ(object.Conv2Single(u"8", -7, 7), 7.0f);
}

TEST_F(Strings, TwoByteCharactersHaveCodesOfFourDigits) {
    host::MachineConfig config;
    config.codePage = 932;
    const TestMachine japanese(config);
    EXPECT_EQ(object.URLEncode(u"a\u3042"), u"a%82A0");
    EXPECT_EQ(object.Conv2HexString(u"\u3042!"), u"82A021");
    EXPECT_EQ(object.StringChecksum(u"\u3042"), object.StringChecksum(u"\u0392"))
        << "82A0 and 83A0: only the low byte reaches the table";
}

} // namespace
} // namespace mox::test
