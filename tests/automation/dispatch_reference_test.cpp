// Arguments by reference: what a call changes at the caller's.
#include "dispatch_support.h"

#include <gtest/gtest.h>

namespace mox {
namespace {

using namespace sample;
using test::byRef;
using test::DispatchTest;
using test::Outcome;

TEST_F(DispatchTest, changesArgumentsOfExactlyTheirType) {
    Long a = 1, b = 2;
    EXPECT_EQ(method(swapId, {byRef(a), byRef(b)}).status, S_OK);
    EXPECT_EQ(a, 2);
    EXPECT_EQ(b, 1);
    String text = u"x";
    Integer count = 4;
    EXPECT_EQ(method(appendToId, {byRef(text), byRef(count)}).status, S_OK);
    EXPECT_EQ(text, u"x+");
    EXPECT_EQ(count, 5);
    Variant inside = Long{10}, other = Long{20};
    EXPECT_EQ(method(swapId, {byRef(inside), byRef(other)}).status, S_OK);
    EXPECT_EQ(inside.as<Long>(), 20);
    EXPECT_EQ(other.as<Long>(), 10);
}

TEST_F(DispatchTest, convertsArgumentsOfOtherTypesThereAndBack) {
    Integer small = 7;
    Double real = 2.0;
    EXPECT_EQ(method(swapId, {byRef(small), byRef(real)}).status, S_OK);
    EXPECT_EQ(small, 2);
    EXPECT_EQ(real, 7.0);
    String text = u"11";
    Boolean flag = False;
    EXPECT_EQ(method(swapId, {byRef(text), byRef(flag)}).status, S_OK);
    EXPECT_EQ(text, u"0");
    EXPECT_EQ(flag, True);
    Variant word = String(u"5"), empty;
    EXPECT_EQ(method(swapId, {byRef(word), byRef(empty)}).status, S_OK);
    EXPECT_EQ(word.vt, VT_I4);
    EXPECT_EQ(word.lVal, 0);
    EXPECT_EQ(empty.as<Long>(), 5);
    Long value = 3;
    Variant wrapped = byRef(value);
    Long other = 4;
    EXPECT_EQ(method(swapId, {byRef(wrapped), byRef(other)}).status, S_OK); // a reference in a variant
    EXPECT_EQ(value, 4);
    EXPECT_EQ(other, 3);
    EXPECT_EQ(method(swapId, {Long{1}, Long{2}}).status, S_OK); // values are no places, so nothing changes

    Long large = 100000;
    Byte byte = 1;
    const Outcome overflow = method(swapId, {byRef(large), byRef(byte)});
    EXPECT_EQ(overflow.status, DISP_E_OVERFLOW);
    EXPECT_EQ(overflow.badArgument, 0u);
    EXPECT_EQ(byte, 1);
}

TEST_F(DispatchTest, changesVariants) {
    Variant value = Long{1};
    EXPECT_EQ(method(changeId, {byRef(value)}).status, S_OK);
    EXPECT_EQ(value.as<String>(), u"1 changed");
    String text = u"a";
    EXPECT_EQ(method(changeId, {byRef(text)}).status, S_OK);
    EXPECT_EQ(text, u"a changed");
    Long number = 1;
    EXPECT_EQ(method(changeId, {byRef(number)}).status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(number, 1);
    EXPECT_EQ(method(changeId, {}).status, DISP_E_PARAMNOTOPTIONAL);

    // A value passed to a by-reference argument stays as the caller has it.
    const String borrowed(u"mine");
    VARIANT argument{};
    argument.vt = VT_BSTR;
    argument.bstrVal = borrowed.get();
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    EXPECT_EQ(object->Invoke(changeId, GUID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(argument.bstrVal, borrowed.get());
    EXPECT_EQ(borrowed, u"mine");
}

TEST_F(DispatchTest, changesObjects) {
    Ref<IDispatch> place;
    EXPECT_EQ(method(replaceId, {byRef(place)}).status, S_OK);
    EXPECT_TRUE(place);
    EXPECT_EQ(method(replaceId, {byRef(place)}).status, S_OK);
    EXPECT_FALSE(place);
    Variant wrapped = Ref<IDispatch>(object);
    EXPECT_EQ(method(replaceId, {byRef(wrapped)}).status, S_OK);
    EXPECT_EQ(wrapped.vt, VT_DISPATCH);
    EXPECT_EQ(wrapped.pdispVal, nullptr);
    EXPECT_EQ(method(replaceId, {Ref<IDispatch>(object)}).status, S_OK);
    Long number = 0;
    EXPECT_EQ(method(replaceId, {byRef(number)}).status, DISP_E_TYPEMISMATCH);
}

TEST_F(DispatchTest, updatesRecordsInPlace) {
    Variant point = SamplePoint{1, 2};
    VARIANT borrowed = point;
    DISPPARAMS parameters{};
    Variant distance = Long{10};
    VARIANT arguments[]{distance, borrowed};
    parameters.rgvarg = arguments;
    parameters.cArgs = 2;
    Variant result;
    ASSERT_EQ(object->Invoke(shiftId, GUID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr), S_OK);
    EXPECT_EQ(point.as<SamplePoint>(), (SamplePoint{11, 12}));
    EXPECT_EQ(result.as<SamplePoint>(), (SamplePoint{1, 2}));

    Variant wrapped = SamplePoint{5, 5};
    EXPECT_EQ(method(shiftId, {byRef(wrapped), Long{1}}).status, S_OK);
    EXPECT_EQ(wrapped.as<SamplePoint>(), (SamplePoint{6, 6}));

    SamplePoint place{7, 7};
    const Ref<IRecordInfo> info = recordInfo<SamplePoint>();
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_RECORD;
    reference.pvRecord = &place;
    reference.pRecInfo = info.get();
    EXPECT_EQ(method(shiftId, {Variant::attach(reference), Long{1}}).status, S_OK);
    EXPECT_EQ(place, (SamplePoint{8, 8}));

    const Outcome wrong = method(shiftId, {SampleRecord{}, Long{1}});
    EXPECT_EQ(wrong.status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong.badArgument, 1u);
    EXPECT_EQ(method(shiftId, {Long{1}, Long{1}}).status, DISP_E_TYPEMISMATCH);
}

TEST_F(DispatchTest, redimensionsArraysOfTheCaller) {
    Array<Long> values{10, 11};
    EXPECT_EQ(method(extendId, {byRef(values), Long{3}}).status, S_OK);
    ASSERT_EQ(values.size(), 4);
    EXPECT_EQ(values[1], 11);
    EXPECT_EQ(values[3], 3);

    Variant wrapped = Array<Long>{1};
    EXPECT_EQ(method(extendId, {byRef(wrapped), Long{1}}).status, S_OK);
    EXPECT_EQ(wrapped.as<Array<Long>>().size(), 2);

    Variant empty; // a variable that has never been an array becomes one
    EXPECT_EQ(method(extendId, {byRef(empty), Long{2}}).status, S_OK);
    EXPECT_EQ(empty.as<Array<Long>>().size(), 3);

    EXPECT_EQ(method(extendId, {Variant(), Long{2}}).status, S_OK); // made for the call and gone with it

    Array<Integer> wrong{1};
    const Outcome outcome = method(extendId, {byRef(wrong), Long{3}});
    EXPECT_EQ(outcome.status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.badArgument, 1u);

    SafeArrayLock(values.get());
    const Outcome locked = method(extendId, {byRef(values), Long{9}});
    SafeArrayUnlock(values.get());
    EXPECT_EQ(locked.status, DISP_E_EXCEPTION);
    EXPECT_EQ(locked.scode, DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(values.size(), 4);
}

TEST_F(DispatchTest, refusesReferencesToNothing) {
    const std::pair<DISPID, VARTYPE> cases[]{
        {changeId, VT_VARIANT},     {echoVariantId, VT_VARIANT}, {echoIntegerId, VT_I2}, {echoStringId, VT_BSTR},
        {echoStringId, VT_VARIANT}, {echoObjectId, VT_VARIANT},  {cornersId, VT_RECORD}, {replaceId, VT_DISPATCH},
    };
    for (const auto& [id, type] : cases) {
        VARIANT argument{};
        argument.vt = VT_BYREF | type;
        Outcome outcome = method(id, {Variant::attach(argument)});
        if (id == replaceId) { // nothing to read means Nothing, but there is no place for the new object
            EXPECT_EQ(outcome.status, DISP_E_TYPEMISMATCH);
        } else {
            EXPECT_TRUE(outcome.status == DISP_E_TYPEMISMATCH || outcome.status == E_INVALIDARG) << id << " " << outcome.status;
        }
        EXPECT_EQ(outcome.badArgument, 0u) << id;
    }
}

} // namespace
} // namespace mox
