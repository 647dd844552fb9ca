#include "types_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace mox;
using namespace mox::test;

namespace {

struct Case {
    Variant source;
    VARTYPE type;
    const char* expected;
};

template <std::size_t Count> void expectConversions(const Case (&cases)[Count]) {
    for (const auto& [source, type, expected] : cases) {
        EXPECT_EQ(converted(source, type), expected) << show(source) << " to type " << type;
    }
}

TEST(VariantChangeNumber, FloatingToIntegerRoundsHalfToEven) {
    expectConversions({
        {r8(0.5), VT_I4, "I4 0"},
        {r8(1.5), VT_I4, "I4 2"},
        {r8(2.5), VT_I2, "I2 2"},
        {r8(-0.5), VT_I4, "I4 0"},
        {r8(-1.5), VT_I4, "I4 -2"},
        {r8(-2.5), VT_I8, "I8 -2"},
        {r8(2.5000000001), VT_UI1, "UI1 3"},
        {r4(3.5f), VT_UI4, "UI4 4"},
        {r8(-0.4), VT_UI1, "UI1 0"},
        {r8(-0.6), VT_UI1, "overflow"},
        {date(2.5), VT_I4, "I4 2"},
        {cy(25000), VT_I4, "I4 2"},
        {cy(25001), VT_I4, "I4 3"},
        {cy(-35000), VT_I4, "I4 -4"},
        {decimal(15, 1), VT_I4, "I4 2"},
        {decimal(-25, 1), VT_I4, "I4 -2"},
        {decimal(false, 28, 0x1027E72F, 0x1F128130, 0x88000000), VT_I4, "I4 0"}, // exactly a half
        {decimal(false, 28, 0x1027E72F, 0x1F128130, 0x88000001), VT_I4, "I4 1"},
        {r8(255.49), VT_UI1, "UI1 255"},
        {r8(255.5), VT_UI1, "overflow"},
        {r8(-128.5), VT_I1, "I1 -128"},
        {r8(-128.51), VT_I1, "overflow"},
        {r8(2147483647.49), VT_I4, "I4 2147483647"},
        {r8(2147483647.5), VT_I4, "overflow"},
        {r8(-2147483648.5), VT_I4, "I4 -2147483648"},
        {r8(9223372036854774784.0), VT_I8, "I8 9223372036854774784"},
        {r8(9223372036854775808.0), VT_I8, "overflow"},
        {r8(-9223372036854775808.0), VT_I8, "I8 -9223372036854775808"},
        {r8(18446744073709549568.0), VT_UI8, "UI8 18446744073709549568"},
        {r8(18446744073709551616.0), VT_UI8, "overflow"},
    });
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {infinity, -infinity, std::nan(""), 1e300}) {
        for (const VARTYPE type :
             {VT_I1, VT_I2, VT_I4, VT_I8, VT_UI1, VT_UI2, VT_UI4, VT_UI8, VT_INT, VT_UINT, VT_CY, VT_DATE, VT_DECIMAL}) {
            EXPECT_EQ(converted(r8(value), type), "overflow") << value << " to " << type;
        }
    }
}

TEST(VariantChangeNumber, EveryIntegerTypeHasItsRange) {
    using Wide = __int128;
    const struct {
        VARTYPE type;
        const char* name;
        Wide least;
        Wide largest;
    } types[] = {
        {VT_I1, "I1 ", -128, 127},
        {VT_UI1, "UI1 ", 0, 255},
        {VT_I2, "I2 ", -32768, 32767},
        {VT_UI2, "UI2 ", 0, 65535},
        {VT_I4, "I4 ", -2147483648LL, 2147483647},
        {VT_INT, "INT ", -2147483648LL, 2147483647},
        {VT_UI4, "UI4 ", 0, 4294967295},
        {VT_UINT, "UINT ", 0, 4294967295},
        {VT_I8, "I8 ", std::numeric_limits<LONGLONG>::min(), std::numeric_limits<LONGLONG>::max()},
        {VT_UI8, "UI8 ", 0, std::numeric_limits<ULONGLONG>::max()},
    };
    for (const auto& [type, name, least, largest] : types) {
        for (const Wide value : {least - 1, least, Wide{-1}, Wide{0}, largest, largest + 1}) {
            const bool negative = value < 0;
            const std::string text = (negative ? "-" : "") + number(static_cast<unsigned __int128>(negative ? -value : value));
            const std::string expected = value >= least && value <= largest ? name + text : "overflow";
            const auto size = static_cast<unsigned __int128>(negative ? -value : value);
            EXPECT_EQ(converted(decimal(negative, 0, static_cast<ULONG>(size >> 64), static_cast<ULONG>(size >> 32),
                                        static_cast<ULONG>(size)),
                                type),
                      expected);
            EXPECT_EQ(converted(Variant(utf16FromUtf8(text).c_str()), type), expected);
            if (type == VT_I8 || type == VT_UI8) {
                continue; // the sources below hold no more than these
            }
            EXPECT_EQ(converted(i8(static_cast<LONGLONG>(value)), type), expected);
            EXPECT_EQ(converted(cy(static_cast<LONGLONG>(value) * 10000), type), expected);
            EXPECT_EQ(converted(r8(static_cast<double>(value)), type), expected);
            if (!negative) {
                EXPECT_EQ(converted(ui8(static_cast<ULONGLONG>(value)), type), expected);
            }
        }
    }
    expectConversions({
        {ui8(9223372036854775808ULL), VT_I8, "overflow"},
        {i8(-1), VT_UI8, "overflow"},
        {make<BYTE>(VT_UI1, 200), VT_I1, "overflow"},
        {make<USHORT>(VT_UI2, 40000), VT_I2, "overflow"},
        {make<USHORT>(VT_UI2, 40000), VT_I4, "I4 40000"},
        {make<CHAR>(VT_I1, -1), VT_UI1, "overflow"},
        {make<CHAR>(VT_I1, -5), VT_I8, "I8 -5"},
        {make<UINT>(VT_UINT, 0xFFFFFFFF), VT_INT, "overflow"},
        {make<INT>(VT_INT, -7), VT_I2, "I2 -7"},
        {make<SHORT>(VT_I2, -7), VT_INT, "INT -7"},
    });
}

TEST(VariantChangeNumber, BooleansKeepTheirBits) {
    expectConversions({
        {boolean(-1), VT_I1, "I1 -1"},        {boolean(-1), VT_UI1, "UI1 255"},
        {boolean(-1), VT_I2, "I2 -1"},        {boolean(-1), VT_UI2, "UI2 65535"},
        {boolean(-1), VT_I4, "I4 -1"},        {boolean(-1), VT_UI4, "UI4 4294967295"},
        {boolean(-1), VT_I8, "I8 -1"},        {boolean(-1), VT_UI8, "UI8 18446744073709551615"},
        {boolean(-1), VT_INT, "INT -1"},      {boolean(-1), VT_UINT, "UINT 4294967295"},
        {boolean(-1), VT_R4, "R4 -1"},        {boolean(-1), VT_R8, "R8 -1"},
        {boolean(-1), VT_CY, "CY -10000"},    {boolean(-1), VT_DECIMAL, "DECIMAL -1/0"},
        {boolean(-1), VT_DATE, "DATE -1"},    {boolean(0), VT_UI1, "UI1 0"},
        {boolean(1), VT_I4, "I4 1"},          {i4(2), VT_BOOL, "BOOL -1"},
        {i4(0), VT_BOOL, "BOOL 0"},           {r8(0.1), VT_BOOL, "BOOL -1"},
        {r8(-0.0), VT_BOOL, "BOOL 0"},        {cy(1), VT_BOOL, "BOOL -1"},
        {cy(0), VT_BOOL, "BOOL 0"},           {decimal(0, 5), VT_BOOL, "BOOL 0"},
        {decimal(1, 28), VT_BOOL, "BOOL -1"}, {ui8(1ULL << 63), VT_BOOL, "BOOL -1"},
        {date(0), VT_BOOL, "BOOL 0"},         {date(0.25), VT_BOOL, "BOOL -1"},
    });
}

TEST(VariantChangeNumber, ToFloating) {
    expectConversions({
        {i4(-5), VT_R4, "R4 -5"},
        {i4(16777217), VT_R4, "R4 16777216"},
        {i8(9007199254740993), VT_R8, "R8 9007199254740992"},
        {ui8(18446744073709551615ULL), VT_R8, "R8 1.8446744073709552e+19"},
        {r4(0.1f), VT_R8, "R8 0.10000000149011612"},
        {r8(0.1), VT_R4, "R4 0.100000001"},
        {r8(3.4028234e38), VT_R4, "R4 3.40282347e+38"},
        {r8(3.5e38), VT_R4, "overflow"},
        {r8(-3.5e38), VT_R4, "overflow"},
        {r8(1e-60), VT_R4, "R4 0"},
        {cy(1), VT_R8, "R8 0.0001"},
        {cy(9223372036854775807LL), VT_R8, "R8 922337203685477.62"},
        {cy(-12345), VT_R4, "R4 -1.23450005"},
        {decimal(1, 28), VT_R8, "R8 9.9999999999999997e-29"},
        {decimal(false, 28, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF), VT_R8, "R8 7.9228162514264335"},
        {decimal(true, 0, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF), VT_R8, "R8 -7.9228162514264338e+28"},
        {decimal(false, 0, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF), VT_R4, "R4 7.92281625e+28"},
        {decimal(123456789012345678, 10), VT_R8, "R8 12345678.901234567"},
        {decimal(0, 10), VT_R8, "R8 0"},
        {date(-1.5), VT_R8, "R8 -1.5"},
    });
}

TEST(VariantChangeNumber, ToCurrency) {
    expectConversions({
        {i4(-5), VT_CY, "CY -50000"},
        {i8(922337203685477), VT_CY, "CY 9223372036854770000"},
        {i8(922337203685478), VT_CY, "overflow"},
        {i8(-922337203685478), VT_CY, "overflow"},
        {ui8(18446744073709551615ULL), VT_CY, "overflow"},
        {r8(1.00004), VT_CY, "CY 10000"},
        {r8(1.00006), VT_CY, "CY 10001"},
        {r8(123456789012.3456), VT_CY, "CY 1234567890123456"},
        {r8(0.03125), VT_CY, "CY 312"}, // 312.5 exactly
        {r8(0.09375), VT_CY, "CY 938"}, // 937.5 exactly
        {r4(1.5f), VT_CY, "CY 15000"},
        {r8(922337203685477.5), VT_CY, "CY 9223372036854775000"},
        {r8(922337203685477.6), VT_CY, "overflow"},
        {r8(-922337203685477.5), VT_CY, "CY -9223372036854775000"},
        {r8(-922337203685477.6), VT_CY, "overflow"},
        {r8(1e12 + 0.03125), VT_CY, "CY 10000000000000312"}, // a tie that the product alone would lose
        {r8(1e12 + 0.09375), VT_CY, "CY 10000000000000938"},
        {r8(562949953421312.125), VT_CY, "CY 5629499534213121250"},
        {decimal(5, 5), VT_CY, "CY 0"},
        {decimal(15, 5), VT_CY, "CY 2"},
        {decimal(-25, 5), VT_CY, "CY -2"},
        {decimal(250001, 9), VT_CY, "CY 3"},
        {decimal(9223372036854775807LL, 4), VT_CY, "CY 9223372036854775807"},
        {decimal(true, 4, 0, 0x80000000, 0), VT_CY, "CY -9223372036854775808"},
        {decimal(false, 4, 0, 0x80000000, 0), VT_CY, "overflow"},
        {decimal(false, 0, 0xFFFFFFFF, 0, 0), VT_CY, "overflow"},
    });
}

TEST(VariantChangeNumber, ToDecimal) {
    expectConversions({
        {i8(std::numeric_limits<LONGLONG>::min()), VT_DECIMAL, "DECIMAL -9223372036854775808/0"},
        {ui8(18446744073709551615ULL), VT_DECIMAL, "DECIMAL 18446744073709551615/0"},
        {cy(-12345), VT_DECIMAL, "DECIMAL -12345/4"},
        {r8(0.1), VT_DECIMAL, "DECIMAL 1/1"},
        {r8(-1.5), VT_DECIMAL, "DECIMAL -15/1"},
        {r8(0), VT_DECIMAL, "DECIMAL 0/0"},
        {r8(-0.0), VT_DECIMAL, "DECIMAL 0/0"},
        {r4(0.1f), VT_DECIMAL, "DECIMAL 1/1"},
        {r8(1.0 / 3), VT_DECIMAL, "DECIMAL 333333333333333/15"},
        {r4(1.0f / 3), VT_DECIMAL, "DECIMAL 3333333/7"},
        {r8(123456789012345678.0), VT_DECIMAL, "DECIMAL 123456789012346000/0"},
        {r8(7.9e28), VT_DECIMAL, "DECIMAL 79000000000000000000000000000/0"},
        {r8(8e28), VT_DECIMAL, "overflow"},
        {r8(-8e28), VT_DECIMAL, "overflow"},
        {r8(1.5e-28), VT_DECIMAL, "DECIMAL 2/28"}, // the tie goes to the even one
        {r8(2.5e-28), VT_DECIMAL, "DECIMAL 2/28"},
        {r8(1e-40), VT_DECIMAL, "DECIMAL 0/28"},
        {date(2.5), VT_DECIMAL, "DECIMAL 25/1"},
        {decimal(false, 29, 0, 0, 1), VT_I4, "bad argument"},
        {make(VT_DECIMAL, 0), VT_BSTR, "BSTR 0"},
    });
    Variant odd = decimal(1);
    odd.decVal.sign = 1;
    EXPECT_EQ(converted(odd, VT_R8), "bad argument");
}

TEST(VariantChangeNumber, ToDate) {
    expectConversions({
        {i4(36922), VT_DATE, "DATE 36922"},
        {i4(-657434), VT_DATE, "DATE -657434"},
        {i4(-657435), VT_DATE, "overflow"},
        {i4(2958465), VT_DATE, "DATE 2958465"},
        {i4(2958466), VT_DATE, "overflow"},
        {r8(2958465.75), VT_DATE, "DATE 2958465.75"},
        {r8(-657434.75), VT_DATE, "DATE -657434.75"},
        {r4(0.5f), VT_DATE, "DATE 0.5"},
        {cy(25000), VT_DATE, "DATE 2.5"},
        {decimal(-15, 1), VT_DATE, "DATE -1.5"},
        {ui8(18446744073709551615ULL), VT_DATE, "overflow"},
    });
}

} // namespace
