#include "types_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace mox;
using namespace mox::test;

namespace {

struct ReadingCase {
    const char16_t* text;
    VARTYPE type;
    const char* expected;
};

template <std::size_t Count> void expectReading(const ReadingCase (&cases)[Count]) {
    for (const auto& [text, type, expected] : cases) {
        EXPECT_EQ(converted(Variant(text), type), expected) << '"' << utf8FromUtf16(text) << "\" to type " << type;
    }
}

TEST(NumberText, IsTheShortestWithTheSignificantDigits) {
    const double infinity = std::numeric_limits<double>::infinity();
    const struct {
        Variant source;
        const char* text;
    } cases[] = {
        {r8(0), "0"},
        {r8(-0.0), "0"},
        {r8(5), "5"},
        {r8(-1.5), "-1.5"},
        {r8(0.1), "0.1"},
        {r8(0.1 + 0.2), "0.3"},
        {r8(1.0 / 3), "0.333333333333333"},
        {r8(2.0 / 3), "0.666666666666667"},
        {r8(100), "100"},
        {r8(123456789.125), "123456789.125"},
        {r8(0.0001), "0.0001"},
        {r8(0.00012345), "0.00012345"},
        {r8(0.00001), "1E-05"},
        {r8(1.5e-7), "1.5E-07"},
        {r8(999999999999999), "999999999999999"},
        {r8(1e14), "100000000000000"},
        {r8(1e15), "1E+15"},
        {r8(1234567890123456), "1.23456789012346E+15"},
        {r8(999999999999999.9), "1E+15"},
        {r8(-1e100), "-1E+100"},
        {r8(1.7976931348623157e308), "1.79769313486232E+308"},
        {r8(5e-324), "4.94065645841247E-324"},
        {r8(infinity), "1.#INF"},
        {r8(-infinity), "-1.#INF"},
        {r8(std::nan("")), "1.#QNAN"},
        {r8(-std::nan("")), "-1.#IND"},
        {r4(0.1f), "0.1"},
        {r4(1.0f / 3), "0.3333333"},
        {r4(9999999), "9999999"},
        {r4(10000000), "1E+07"},
        {r4(16777216), "1.677722E+07"},
        {r4(3.40282347e38f), "3.402823E+38"},
        {r4(1e-5f), "1E-05"},
        {make<BYTE>(VT_UI1, 255), "255"},
        {make<CHAR>(VT_I1, -128), "-128"},
        {i8(std::numeric_limits<LONGLONG>::min()), "-9223372036854775808"},
        {ui8(18446744073709551615ULL), "18446744073709551615"},
        {cy(0), "0"},
        {cy(15000), "1.5"},
        {cy(-1), "-0.0001"},
        {cy(1000000), "100"},
        {cy(std::numeric_limits<LONGLONG>::min()), "-922337203685477.5808"},
        {decimal(1500, 3), "1.5"},
        {decimal(-5, 28), "-0.0000000000000000000000000005"},
        {decimal(true, 0, 0, 0, 0), "0"},
        {decimal(true, 0, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF), "-79228162514264337593543950335"},
        {decimal(true, 14, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF), "-792281625142643.37593543950335"},
        {decimal(1000000), "1000000"},
        {boolean(-1), "True"},
        {boolean(0), "False"},
        {boolean(7), "True"},
        {empty(), ""},
    };
    for (const auto& [source, text] : cases) {
        EXPECT_EQ(converted(source, VT_BSTR), std::string("BSTR ") + text);
    }
}

TEST(NumberText, IsReadAsPeopleWriteIt) {
    expectReading({
        {u"12", VT_I4, "I4 12"},
        {u"  12  ", VT_I4, "I4 12"},
        {u"\t-12\r\n", VT_I4, "I4 -12"},
        {u"+12", VT_I4, "I4 12"},
        {u"- 12", VT_I4, "I4 -12"},
        {u"12-", VT_I4, "I4 -12"},
        {u"12 -", VT_I4, "I4 -12"},
        {u"(12)", VT_I4, "I4 -12"},
        {u"1,234,567", VT_I4, "I4 1234567"},
        {u"1,2,3", VT_I4, "I4 123"},
        {u"$1,234.56", VT_CY, "CY 12345600"},
        {u"-$5", VT_CY, "CY -50000"},
        {u"$-5", VT_CY, "CY -50000"},
        {u"$ 5", VT_CY, "CY 50000"},
        {u"5$", VT_CY, "CY 50000"},
        {u"($5.25)", VT_CY, "CY -52500"},
        {u".5", VT_R8, "R8 0.5"},
        {u"5.", VT_R8, "R8 5"},
        {u"1e3", VT_I4, "I4 1000"},
        {u"1.5E+03", VT_I4, "I4 1500"},
        {u"15d-1", VT_R8, "R8 1.5"},
        {u"0000000000000000000000000000000000000000005", VT_UI1, "UI1 5"},
        {u"2.5", VT_I4, "I4 2"},
        {u"3.5", VT_I4, "I4 4"},
        {u"2.50000000000000000000000000000000000000000000000001", VT_I4, "I4 3"},
        {u"-0.4", VT_UI1, "UI1 0"},
        {u"-0", VT_I4, "I4 0"},
        {u"1E400", VT_R8, "overflow"},
        {u"-1E400", VT_R8, "overflow"},
        {u"1E-400", VT_R8, "R8 0"},
        {u"0E999999999999", VT_R8, "R8 0"},
        {u"1E999999999999", VT_I4, "overflow"},
        {u"1E-999999999999", VT_I4, "I4 0"},
        {u"3.5e38", VT_R4, "overflow"},
        {u"16777217", VT_R4, "R4 16777216"},
        {u"0.1", VT_R4, "R4 0.100000001"},
        {u"9007199254740993", VT_R8, "R8 9007199254740992"},
        {u"9007199254740993.0000000000000000000000000000000000000001", VT_R8, "R8 9007199254740994"},
        {u"4.9406564584124654e-324", VT_R8, "R8 4.9406564584124654e-324"},
        {u"1.7976931348623157e308", VT_R8, "R8 1.7976931348623157e+308"},
        {u"1.00005", VT_CY, "CY 10000"},
        {u"1.00015", VT_CY, "CY 10002"},
        {u"1.000150000000000000000000000000000000001", VT_CY, "CY 10002"},
        {u"922337203685477.5807", VT_CY, "CY 9223372036854775807"},
        {u"922337203685477.5808", VT_CY, "overflow"},
        {u"-922337203685477.5808", VT_CY, "CY -9223372036854775808"},
        {u"1.50", VT_DECIMAL, "DECIMAL 150/2"},
        {u"-79228162514264337593543950335", VT_DECIMAL, "DECIMAL -79228162514264337593543950335/0"},
        {u"79228162514264337593543950336", VT_DECIMAL, "overflow"},
        {u"79228162514264337593543950335.4", VT_DECIMAL, "DECIMAL 79228162514264337593543950335/0"},
        {u"7.92281625142643375935439503354", VT_DECIMAL, "DECIMAL 79228162514264337593543950335/28"},
        {u"7.92281625142643375935439503356", VT_DECIMAL, "DECIMAL 7922816251426433759354395034/27"},
        {u"0.00000000000000000000000000005", VT_DECIMAL, "DECIMAL 0/28"},
        {u"0.00000000000000000000000000015", VT_DECIMAL, "DECIMAL 2/28"},
        {u"1E28", VT_DECIMAL, "DECIMAL 10000000000000000000000000000/0"},
        {u"1E29", VT_DECIMAL, "overflow"},
        {u"\u00A012\u00A0", VT_I4, "I4 12"},
        {u"256", VT_UI1, "overflow"},
    });
}

TEST(NumberText, EveryDigitCounts) {
    // Halfway between two numbers a tie goes to the even one, and any digit behind, however far, decides.
    std::u16string halfway = u"9007199254740993." + std::u16string(2000, u'0');
    EXPECT_EQ(converted(Variant(String(halfway)), VT_R8), "R8 9007199254740992");
    EXPECT_EQ(converted(Variant(String(halfway + u'1')), VT_R8), "R8 9007199254740994");
    std::u16string half = u"2.5" + std::u16string(2000, u'0');
    EXPECT_EQ(converted(Variant(String(half)), VT_I4), "I4 2");
    EXPECT_EQ(converted(Variant(String(half + u'1')), VT_I4), "I4 3");
    EXPECT_EQ(converted(Variant(String(u"0." + std::u16string(2000, u'0') + u"5E2000")), VT_R8), "R8 0.5");
    EXPECT_EQ(converted(Variant(String(u"5" + std::u16string(2000, u'0') + u"E-2000")), VT_R8), "R8 5");
}

TEST(NumberText, HexadecimalAndOctalAreTheBitsOfTheTarget) {
    expectReading({
        {u"&HFF", VT_I4, "I4 255"},
        {u"&hff", VT_UI1, "UI1 255"},
        {u"&HFF", VT_I1, "I1 -1"},
        {u"&H100", VT_UI1, "overflow"},
        {u"&HFFFF", VT_I2, "I2 -1"},
        {u"&HFFFF", VT_I4, "I4 65535"},
        {u"&HFFFFFFFF", VT_I4, "I4 -1"},
        {u"&HFFFFFFFF", VT_UI4, "UI4 4294967295"},
        {u"&H100000000", VT_I4, "overflow"},
        {u"&HFFFFFFFFFFFFFFFF", VT_I8, "I8 -1"},
        {u"&HFFFFFFFFFFFFFFFF", VT_UI8, "UI8 18446744073709551615"},
        {u"&H10000000000000000", VT_UI8, "overflow"},
        {u"&H00000000000000000000001", VT_UI1, "UI1 1"},
        {u"&HFFFF", VT_R8, "R8 65535"},
        {u"&HFFFFFFFF", VT_R8, "R8 -1"},
        {u"&H10", VT_CY, "CY 160000"},
        {u"&H10", VT_DECIMAL, "DECIMAL 16/0"},
        {u"&H0", VT_BOOL, "BOOL 0"},
        {u"&H1", VT_BOOL, "BOOL -1"},
        {u" &O17 ", VT_I4, "I4 15"},
        {u"&o777", VT_I2, "I2 511"},
        {u"&O8", VT_I4, "mismatch"},
        {u"&H", VT_I4, "mismatch"},
        {u"&HG", VT_I4, "mismatch"},
        {u"&", VT_I4, "mismatch"},
        {u"-&H1", VT_I4, "mismatch"},
        {u"&H1.5", VT_I4, "mismatch"},
        {u"&H 1", VT_I4, "mismatch"},
    });
}

TEST(NumberText, RefusesWhatIsNoNumber) {
    const char16_t* cases[] = {
        u"",    u"   ", u"abc",   u"12abc",  u"1 2", u"--1",    u"+-1",   u"-1-", u"(-1)",  u"(1",    u"1)",      u"((1))",
        u"$$1", u"$1$", u".",     u"-",      u"$",   u"1..2",   u"1.2.3", u"1,",  u",1",    u"1,,2",  u"1.5,000", u"1e",
        u"1e+", u"e5",  u"1e5.5", u"1.#INF", u"NaN", u"\u0661", u"1_000", u"1/2", u"12:00", u"True1", u"£5",      u"1e5e5",
    };
    for (const char16_t* text : cases) {
        for (const VARTYPE type : {VT_I4, VT_R8, VT_CY, VT_DECIMAL, VT_BOOL}) {
            EXPECT_EQ(converted(Variant(text), type), "mismatch") << utf8FromUtf16(text) << " to " << type;
        }
    }
    EXPECT_EQ(converted(make(VT_BSTR, static_cast<BSTR>(nullptr)), VT_I4), "mismatch") << "no text at all";
    EXPECT_EQ(converted(Variant(String(std::u16string_view(u"12\0\0", 4))), VT_I4), "I4 12") << "filled up with NUL";
    EXPECT_EQ(converted(Variant(u"5"), VT_ERROR), "mismatch");
    EXPECT_EQ(converted(Variant(u"5"), VT_DISPATCH), "mismatch");
    EXPECT_EQ(converted(Variant(u""), VT_EMPTY), "mismatch");
}

TEST(BooleanText, IsAWordOrANumber) {
    expectReading({
        {u"True", VT_BOOL, "BOOL -1"},
        {u"tRUE", VT_BOOL, "BOOL -1"},
        {u"#TRUE#", VT_BOOL, "BOOL -1"},
        {u"#true#", VT_BOOL, "BOOL -1"},
        {u"False", VT_BOOL, "BOOL 0"},
        {u"FALSE", VT_BOOL, "BOOL 0"},
        {u"#FALSE#", VT_BOOL, "BOOL 0"},
        {u" True ", VT_BOOL, "BOOL -1"},
        {u"0", VT_BOOL, "BOOL 0"},
        {u"0.0", VT_BOOL, "BOOL 0"},
        {u"-3", VT_BOOL, "BOOL -1"},
        {u"0.001", VT_BOOL, "BOOL -1"},
        {u"1E400", VT_BOOL, "BOOL -1"},
        {u"#TRUE", VT_BOOL, "mismatch"},
        {u"TRUEE", VT_BOOL, "mismatch"},
        {u"yes", VT_BOOL, "mismatch"},
        {u"", VT_BOOL, "mismatch"},
        {u"True", VT_I4, "mismatch"},
    });
}

TEST(NumberText, RandomNumbersComeBack) {
    std::mt19937_64 random(20240229);
    for (int count = 0; count < 20000; ++count) {
        const std::uint64_t bits = random();
        Variant text;
        Variant again;
        const Variant currency = cy(static_cast<LONGLONG>(bits));
        ASSERT_EQ(VariantChangeType(&text, &currency, 0, VT_BSTR), S_OK);
        ASSERT_EQ(converted(text, VT_CY), show(currency));

        // A number of 15 digits survives the way through a Double.
        const Variant digits = decimal(static_cast<LONGLONG>(bits % 1'000'000'000'000'000), static_cast<int>(bits >> 60));
        Variant real;
        ASSERT_EQ(VariantChangeType(&real, &digits, 0, VT_R8), S_OK);
        ASSERT_EQ(VariantChangeType(&again, &real, 0, VT_DECIMAL), S_OK);
        ASSERT_EQ(converted(again, VT_BSTR), converted(digits, VT_BSTR));

        const auto part = [&random] { return static_cast<ULONG>(random()); };
        const Variant wide = decimal((bits & 1) != 0, static_cast<int>(bits >> 8 & 0xFFFF) % 29, part(), part(), part());
        ASSERT_EQ(VariantChangeType(&text, &wide, 0, VT_BSTR), S_OK);
        ASSERT_EQ(VariantChangeType(&again, &text, 0, VT_DECIMAL), S_OK);
        ASSERT_EQ(converted(again, VT_BSTR), show(text));
    }
}

} // namespace
