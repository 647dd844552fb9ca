#include "values/values_support.h"

namespace mox::test {

namespace {

TEST_F(Values, UnitsAreConverted) {
    const auto unknown = static_cast<MOX_SCALEUNIT>(4);
    struct Row {
        Double value;
        MOX_SCALEUNIT from, to;
        Double result;
    };
    const Row rows[] = {
        {1, suINCH, suCM, 1440.0 / 567}, {1, suMM, suTWIP, 56.7},  {1, suCM, suMM, 567 / 56.7},    {3, suPOINTS, suTWIP, 60},
        {2, suPIXEL, suTWIP, 30},        {30, suTWIP, suPIXEL, 2}, {-7.5, suINCH, suPOINTS, -540}, {5, unknown, unknown, 5},
        {5, unknown, suTWIP, 0},         {5, suTWIP, unknown, 0},  {1e308, suTWIP, suTWIP, 1e308},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.value << " from " << row.from << " to " << row.to);
        EXPECT_EQ(vars.ConvertUnit(row.value, row.from, row.to), row.result);
        EXPECT_EQ(invoke(vars.get(), u"ConvertUnit", row.value, row.from, row.to).as<Double>(), row.result);
    }
    EXPECT_EQ(errorOf([&] { vars.ConvertUnit(1e308, suINCH, suTWIP); }), 6);
    EXPECT_EQ(errorOf([&] { invoke(vars.get(), u"ConvertUnit", 1e308, suINCH, suTWIP); }), 6);
}

TEST_F(Values, PixelsFollowTheScreen) {
    platform::Runtime& runtime = platform::runtime();
    const auto x = runtime.ScreenTwipsPerPixelX.replace([] { return 12.0f; });
    const auto y = runtime.ScreenTwipsPerPixelY.replace([] { return 20.0f; });
    EXPECT_EQ(vars.ConvertUnit(1, suPIXEL, suTWIP), 16);
    EXPECT_EQ(vars.ConvertUnit(32, suTWIP, suPIXEL), 2);
    runtime.ScreenTwipsPerPixelX.fail();
    runtime.ScreenTwipsPerPixelY.fail();
    EXPECT_EQ(vars.ConvertUnit(1, suPIXEL, suTWIP), 0);
    EXPECT_EQ(errorOf([&] { vars.ConvertUnit(1, suTWIP, suPIXEL); }), 11);
}

TEST_F(Values, HexadecimalTextIsRead) {
    struct Row {
        const char16_t* text;
        Long value;
    };
    const Row rows[] = {
        {u"ff", 255},
        {u"", 0},
        {u"no digits? well: xyz", 0xDE},
        {u"!?xyz", 0},
        {u"FFFF", -1},
        {u"8000", -32768},
        {u"7FFF", 32767},
        {u"10000", 65536},
        {u"0FFFF", 65535},
        {u"FFFFFFFF", -1},
        {u"80000000", -2147483647 - 1},
        {u"&H1F", 31},
        {u"#00 ff 00", 0x00FF00},
        {u"-1", 1},
    };
    for (const Row& row : rows) {
        expectBoth<&moxVars::Hex2Long>(vars, u"Hex2Long", row.value, String(row.text));
    }
    EXPECT_EQ(errorOf([&] { vars.Hex2Long(u"123456789"); }), 6);
}

TEST_F(Values, ObjectsHaveNumbersWhileTheyLive) {
    const moxVarObject object = vars.vObject();
    moxVarRect rect = vars.vRect();
    Ref<IDispatch> dispatch = rect.get();
    const Long number = object.PointerFromObject(dispatch);
    EXPECT_NE(number, 0);
    EXPECT_EQ(object.PointerFromObject(dispatch), number);
    EXPECT_EQ(invoke(object.get(), u"PointerFromObject", reference(dispatch)).as<Long>(), number);
    EXPECT_EQ(object.ObjectFromPointer(number), dispatch);
    EXPECT_EQ(invoke(object.get(), u"ObjectFromPointer", number).as<Ref<IDispatch>>(), dispatch);

    Ref<IDispatch> nothing;
    EXPECT_EQ(object.PointerFromObject(nothing), 0);
    for (const Long stranger : {0, 1, -1, number + 1, number ^ 0x10000, 12345678}) {
        EXPECT_FALSE(object.ObjectFromPointer(stranger)) << stranger;
    }

    moxVars other{server::create<TRL_OBKR_MOX::_moxVars>()};
    Ref<IDispatch> mortal = other.vMath().get();
    other = nullptr;
    const Long mortalNumber = object.PointerFromObject(mortal);
    EXPECT_NE(mortalNumber, number);
    mortal = nullptr;
    EXPECT_FALSE(object.ObjectFromPointer(mortalNumber)) << "the number held no reference, and its object is gone";
}

} // namespace
} // namespace mox::test
