#include "values/values_support.h"

#include <bit>
#include <limits>
#include <tuple>

namespace mox::test {

namespace {

constexpr Long lowest = std::numeric_limits<Long>::min();

TEST_F(Values, LongWords) {
    const moxVarLong object = vars.vLong();
    struct Row {
        Long value;
        Integer low, high;
        Long swapped;
    };
    for (const Row& row : {Row{0, 0, 0, 0},
                           {-1, -1, -1, -1},
                           {65535, -1, 0, static_cast<Long>(0xFFFF0000)},
                           {lowest, 0, -32768, 0x00000080},
                           {0x12345678, 0x5678, 0x1234, 0x78563412},
                           {0xFF, 0xFF, 0, -16777216}}) {
        expectBoth<&moxVarLong::GetLoWord>(object, u"GetLoWord", row.low, row.value);
        expectBoth<&moxVarLong::GetHiWord>(object, u"GetHiWord", row.high, row.value);
        expectBoth<&moxVarLong::SwapEndian>(object, u"SwapEndian", row.swapped, row.value);
        expectBoth<&moxVarLong::MakeDWord>(object, u"MakeDWord", row.value, row.low, row.high);
    }
    expectBoth<&moxVarLong::MakeDWord>(object, u"MakeDWord", Long{65535}, Integer{-1}, Integer{0});
    expectBoth<&moxVarLong::MakeDWord>(object, u"MakeDWord", Long{-65536}, Integer{0}, Integer{-1});
}

TEST_F(Values, IntegerBytes) {
    const moxVarInteger object = vars.vInteger();
    struct Row {
        Byte low, high;
        Integer value;
    };
    for (const Row& row : {Row{0, 0, 0}, {255, 0, 255}, {0, 255, -256}, {0, 128, -32768}, {255, 127, 32767}, {255, 255, -1}}) {
        expectBoth<&moxVarInteger::MakeWord>(object, u"MakeWord", row.value, row.low, row.high);
        expectBoth<&moxVarInteger::GetLoByte>(object, u"GetLoByte", row.low, row.value);
        expectBoth<&moxVarInteger::GetHiByte>(object, u"GetHiByte", row.high, row.value);
    }
}

TEST_F(Values, BitsAreReadUpToTheSignAndNoFurther) {
    for (const auto& [value, bit, set] :
         {std::tuple{lowest, 31, true}, {lowest, 30, false}, {1, 0, true}, {1, 32, false}, {-1, 255, false}}) {
        expectBoth<&moxVarLong::GetBit>(vars.vLong(), u"GetBit", Boolean(set), Long{value}, static_cast<Byte>(bit));
    }
    for (const auto& [value, bit, set] : {std::tuple{-32768, 15, true}, {32767, 15, false}, {1, 16, false}, {-1, 14, true}}) {
        expectBoth<&moxVarInteger::GetBit>(vars.vInteger(), u"GetBit", Boolean(set), static_cast<Integer>(value),
                                           static_cast<Byte>(bit));
    }
    for (const auto& [value, bit, set] : {std::tuple{128, 7, true}, {127, 7, false}, {255, 8, false}}) {
        expectBoth<&moxVarByte::GetBit>(vars.vByte(), u"GetBit", Boolean(set), static_cast<Byte>(value), static_cast<Byte>(bit));
    }
}

template <class Client, class Value> void expectSetBit(const Client& object, Value before, Byte bit, Boolean set, Value after) {
    Value direct = before;
    object.SetBit(direct, bit, set);
    EXPECT_EQ(direct, after) << +before << " bit " << +bit;
    Value dispatched = before;
    Variant flag(set);
    flag.boolVal = set.value; // other bits than True and False stay
    invoke(object.get(), u"SetBit", reference(dispatched), bit, flag);
    EXPECT_EQ(dispatched, after) << +before << " bit " << +bit;
}

TEST_F(Values, BitsAreSetInTheCallersVariable) {
    const moxVarLong longs = vars.vLong();
    expectSetBit(longs, Long{0}, 31, True, lowest);
    expectSetBit(longs, lowest, 31, False, Long{0});
    expectSetBit(longs, Long{5}, 1, True, Long{7});
    expectSetBit(longs, Long{5}, 2, False, Long{1});
    expectSetBit(longs, Long{5}, 1, False, Long{5});
    expectSetBit(longs, Long{5}, 32, True, Long{5});
    expectSetBit(longs, Long{7}, 0, Boolean::ofBits(1), Long{6}); // 1 is not True

    const moxVarInteger integers = vars.vInteger();
    expectSetBit(integers, Integer{0}, 15, True, Integer{-32768});
    expectSetBit(integers, Integer{-1}, 15, False, Integer{32767});
    expectSetBit(integers, Integer{3}, 16, True, Integer{3});

    Byte byte = 0;
    invoke(vars.vByte().get(), u"SetBit", reference(byte), Byte{3}, True);
    EXPECT_EQ(byte, 0) << "the value of a Byte comes by value, so nothing can change";
}

TEST_F(Values, ValuesAreClampedLowerBoundFirst) {
    const moxVarLong longs = vars.vLong();
    for (const auto& [value, minimum, maximum, result] :
         {std::tuple{5, 1, 10, 5}, {0, 1, 10, 1}, {11, 1, 10, 10}, {5, 10, 1, 10}, {20, 10, 1, 1}, {10, 10, 1, 1}}) {
        expectBoth<&moxVarLong::MinMax>(longs, u"MinMax", Long{result}, Long{value}, Long{minimum}, Long{maximum});
        expectBoth<&moxVarInteger::MinMax>(vars.vInteger(), u"MinMax", static_cast<Integer>(result), static_cast<Integer>(value),
                                           static_cast<Integer>(minimum), static_cast<Integer>(maximum));
        expectBoth<&moxVarByte::MinMax>(vars.vByte(), u"MinMax", static_cast<Byte>(result), static_cast<Byte>(value),
                                        static_cast<Byte>(minimum), static_cast<Byte>(maximum));
        expectBoth<&moxVarSingle::MinMax>(vars.vSingle(), u"MinMax", static_cast<Single>(result), static_cast<Single>(value),
                                          static_cast<Single>(minimum), static_cast<Single>(maximum));
    }
    EXPECT_EQ(longs.MinMax(lowest), -2147483647) << "the default minimum is not the lowest Long";
    EXPECT_EQ(invoke(longs.get(), u"MinMax", lowest).as<Long>(), -2147483647);
    EXPECT_EQ(invoke(vars.vInteger().get(), u"MinMax", Integer{-32768}).as<Integer>(), -32768);
    const Single largest = std::numeric_limits<Single>::max();
    const Single limit = invoke(vars.vSingle().get(), u"MinMax", largest).as<Single>();
    EXPECT_EQ(std::bit_cast<std::uint32_t>(limit), 0x7F7FFFFDu);
    EXPECT_EQ(vars.vSingle().MinMax(largest), limit);
    EXPECT_EQ(vars.vSingle().MinMax(-largest), -limit);
}

template <class Client, class Value> void expectSwap(const Client& object, Value a, Value b) {
    const Value wasA = a;
    const Value wasB = b;
    object.SwapValues(a, b);
    EXPECT_EQ(a, wasB);
    EXPECT_EQ(b, wasA);
    invoke(object.get(), u"SwapValues", reference(a), reference(b));
    EXPECT_EQ(a, wasA);
    EXPECT_EQ(b, wasB);
    invoke(object.get(), u"SwapValues", reference(a), reference(a));
    EXPECT_EQ(a, wasA);
}

TEST_F(Values, ValuesAreSwapped) {
    expectSwap(vars.vLong(), lowest, Long{7});
    expectSwap(vars.vInteger(), Integer{-1}, Integer{32767});
    expectSwap(vars.vByte(), Byte{0}, Byte{255});
    expectSwap(vars.vSingle(), 1.5f, -0.0f);
}

TEST_F(Values, BytesBecomeTextOfTheCodePage) {
    Array<Byte> bytes{0x41, 0x00, 0xE4, 0x80};
    const String text(std::u16string_view(u"A\0\u00E4\u20AC", 4));
    EXPECT_EQ(vars.vByte().ConvByteArr2String(bytes), text);
    EXPECT_EQ(invoke(vars.vByte().get(), u"ConvByteArr2String", bytes).as<String>(), text);
    Array<Byte> none;
    EXPECT_EQ(vars.vByte().ConvByteArr2String(none), u"");

    Array<Long> longs{1};
    EXPECT_EQ(errorOf([&] { invoke(vars.vByte().get(), u"ConvByteArr2String", longs); }), 13);
    EXPECT_EQ(errorOf([&] { invoke(vars.vByte().get(), u"ConvByteArr2String", Long{5}); }), 13);
    auto& wrong = reinterpret_cast<Array<Byte>&>(longs);
    EXPECT_EQ(errorOf([&] { vars.vByte().ConvByteArr2String(wrong); }), 13);
    SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
    auto square = Array<Byte>::attach(SafeArrayCreate(VT_UI1, 2, bounds));
    EXPECT_EQ(errorOf([&] { vars.vByte().ConvByteArr2String(square); }), 9);
}

} // namespace
} // namespace mox::test
