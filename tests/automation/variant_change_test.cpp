#include "types_support.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace mox;
using namespace mox::test;

namespace {

Variant objectWith(Variant value) {
    Variant result;
    result.pdispVal = makeShared<IDispatch, ValueObject>(std::move(value)).detach();
    result.vt = VT_DISPATCH;
    return result;
}

TEST(VariantChange, EmptyNullAndErrors) {
    const struct {
        Variant source;
        VARTYPE type;
        const char* expected;
    } cases[] = {
        {empty(), VT_EMPTY, "EMPTY"},
        {empty(), VT_I2, "I2 0"},
        {empty(), VT_UI8, "UI8 0"},
        {empty(), VT_R8, "R8 0"},
        {empty(), VT_CY, "CY 0"},
        {empty(), VT_DATE, "DATE 0"},
        {empty(), VT_BOOL, "BOOL 0"},
        {empty(), VT_DECIMAL, "DECIMAL 0/0"},
        {empty(), VT_BSTR, "BSTR "},
        {empty(), VT_NULL, "mismatch"},
        {empty(), VT_ERROR, "mismatch"},
        {empty(), VT_DISPATCH, "mismatch"},
        {null(), VT_NULL, "NULL"},
        {null(), VT_EMPTY, "mismatch"},
        {null(), VT_I4, "mismatch"},
        {null(), VT_BSTR, "mismatch"},
        {null(), VT_BOOL, "mismatch"},
        {make(VT_ERROR, DISP_E_PARAMNOTFOUND), VT_ERROR, "ERROR -2147352572"},
        {make(VT_ERROR, 5), VT_I4, "mismatch"},
        {make(VT_ERROR, 5), VT_BSTR, "mismatch"},
        {i4(5), VT_ERROR, "mismatch"},
        {i4(5), VT_EMPTY, "mismatch"},
        {i4(5), VT_NULL, "mismatch"},
        {i4(5), VT_UNKNOWN, "mismatch"},
        {i4(5), VT_DISPATCH, "mismatch"},
        {i4(5), VT_RECORD, "mismatch"},
        {i4(5), VT_ARRAY | VT_I4, "mismatch"},
        {i4(5), VT_BYREF | VT_I4, "mismatch"},
        {i4(5), VT_VARIANT, "bad type"},
        {i4(5), 15, "bad type"},
        {i4(5), 0x8000 | VT_I4, "bad type"},
        {i4(5), VT_I4, "I4 5"},
        {Variant(u"same"), VT_BSTR, "BSTR same"},
    };
    for (const auto& [source, type, expected] : cases) {
        EXPECT_EQ(converted(source, type), expected) << show(source) << " to " << type;
    }
}

TEST(VariantChange, AFailureLeavesTheDestination) {
    Variant target(u"kept");
    const Variant word(u"word");
    EXPECT_EQ(VariantChangeType(&target, &word, 0, VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(show(target), "BSTR kept");
    EXPECT_EQ(VariantChangeType(&target, &target, 0, VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(show(target), "BSTR kept");
    const Variant big = i4(256);
    EXPECT_EQ(VariantChangeType(&target, &big, 0, VT_UI1), DISP_E_OVERFLOW);
    EXPECT_EQ(show(target), "BSTR kept");
}

TEST(VariantChange, WorksInPlace) {
    Variant value(u"12.5");
    ASSERT_EQ(VariantChangeType(&value, &value, 0, VT_R8), S_OK);
    EXPECT_EQ(show(value), "R8 12.5");
    ASSERT_EQ(VariantChangeType(&value, &value, 0, VT_DECIMAL), S_OK);
    EXPECT_EQ(show(value), "DECIMAL 125/1");
    ASSERT_EQ(VariantChangeType(&value, &value, 0, VT_BSTR), S_OK);
    EXPECT_EQ(show(value), "BSTR 12.5");
    ASSERT_EQ(VariantChangeType(&value, &value, 0, VT_BSTR), S_OK);
    EXPECT_EQ(show(value), "BSTR 12.5");
}

TEST(VariantChange, ReadsThroughReferences) {
    LONG number = 7;
    Variant reference = make(VT_BYREF | VT_I4, &number);
    EXPECT_EQ(converted(reference, VT_BSTR), "BSTR 7");
    EXPECT_EQ(converted(reference, VT_I4), "I4 7");
    Variant outer = make(VT_BYREF | VT_VARIANT, static_cast<VARIANT*>(&reference));
    EXPECT_EQ(converted(outer, VT_R8), "R8 7");
    EXPECT_EQ(converted(make(VT_BYREF | VT_I4, static_cast<LONG*>(nullptr)), VT_I4), "bad argument");
    ASSERT_EQ(VariantChangeType(&reference, &reference, 0, VT_BSTR), S_OK);
    EXPECT_EQ(show(reference), "BSTR 7");
}

TEST(VariantChange, ArraysOnlyToTheirOwnType) {
    const Variant list = Array<Long>{1, 2};
    Variant copy;
    EXPECT_EQ(VariantChangeType(&copy, &list, 0, VT_ARRAY | VT_I4), S_OK);
    EXPECT_EQ(copy.vt, VT_ARRAY | VT_I4);
    EXPECT_NE(copy.parray, list.parray);
    EXPECT_EQ(converted(list, VT_ARRAY | VT_I2), "mismatch");
    EXPECT_EQ(converted(list, VT_I4), "mismatch");
    EXPECT_EQ(converted(list, VT_BSTR), "mismatch");
}

TEST(VariantChange, ObjectsGiveTheirDefaultValue) {
    EXPECT_EQ(converted(objectWith(i4(5)), VT_R8), "R8 5");
    EXPECT_EQ(converted(objectWith(Variant(u"text")), VT_BSTR), "BSTR text");
    EXPECT_EQ(converted(objectWith(Variant(u"text")), VT_I4), "mismatch");
    EXPECT_EQ(converted(objectWith(objectWith(i4(6))), VT_I4), "I4 6") << "through an object";
    LONG number = 8;
    EXPECT_EQ(converted(objectWith(make(VT_BYREF | VT_I4, &number)), VT_BSTR), "BSTR 8");
    EXPECT_EQ(converted(objectWith(i4(5)), VT_R8, VARIANT_NOVALUEPROP), "mismatch");
    EXPECT_EQ(converted(objectWith(Variant::missing()), VT_R8), "mismatch") << "without a default member";
    EXPECT_EQ(converted(make(VT_DISPATCH, static_cast<IDispatch*>(nullptr)), VT_R8), "mismatch");

    const Ref<ValueObject> circle = makeShared<ValueObject, ValueObject>(i4(0));
    circle->setValue(Variant(Ref<IDispatch>(circle)));
    EXPECT_EQ(converted(Variant(Ref<IDispatch>(circle)), VT_R8), "mismatch") << "its own default value";
    circle->setValue(i4(0));
    EXPECT_EQ(references(circle.get()), 1u);
}

TEST(VariantChange, ObjectsUnderTheirOtherInterface) {
    const Ref<IDispatch> object = makeShared<IDispatch, ValueObject>(i4(5));
    Variant result;
    const Variant asDispatch{Ref<IDispatch>(object)};
    EXPECT_EQ(VariantChangeType(&result, &asDispatch, 0, VT_UNKNOWN), S_OK);
    EXPECT_EQ(result.vt, VT_UNKNOWN);
    EXPECT_EQ(VariantChangeType(&result, &result, 0, VT_DISPATCH), S_OK);
    EXPECT_EQ(result.vt, VT_DISPATCH);
    EXPECT_EQ(result.pdispVal, object.get());
    EXPECT_EQ(references(object.get()), 3u);
    EXPECT_EQ(VariantChangeType(&result, &asDispatch, 0, VT_DISPATCH), S_OK);
    EXPECT_EQ(references(object.get()), 3u);

    int living = 0;
    const Variant plain{makeShared<IUnknown, Witness>(living)};
    EXPECT_EQ(converted(plain, VT_DISPATCH), "mismatch");
    EXPECT_EQ(converted(plain, VT_I4), "mismatch");
    EXPECT_EQ(converted(plain, VT_BSTR), "mismatch");
    EXPECT_EQ(references(plain.punkVal), 1u);
    const Variant nothing = make(VT_UNKNOWN, static_cast<IUnknown*>(nullptr));
    EXPECT_EQ(VariantChangeType(&result, &nothing, 0, VT_DISPATCH), S_OK);
    EXPECT_EQ(result.vt, VT_DISPATCH);
    EXPECT_EQ(result.pdispVal, nullptr);
}

TEST(VariantChange, AnObjectMayEndDuringTheConversion) {
    Variant holder = objectWith(i4(5));
    ASSERT_EQ(VariantChangeType(&holder, &holder, 0, VT_I4), S_OK);
    EXPECT_EQ(show(holder), "I4 5");
}

} // namespace
