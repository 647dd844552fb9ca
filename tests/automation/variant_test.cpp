#include "types_support.h"

#include <gtest/gtest.h>

#include <vector>

using namespace mox;
using namespace mox::test;

namespace {

/// A VARIANT that frees nothing, as foreign code might hand it over.
VARIANT raw(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return value;
}

Variant record(const Ref<EntryInfo>& info, LONG number, const char16_t* name) {
    Variant result;
    auto* entry = static_cast<Entry*>(info->RecordCreate());
    *entry = Entry{number, SysAllocString(name)};
    result.vt = VT_RECORD;
    result.pvRecord = entry;
    result.pRecInfo = Ref<IRecordInfo>(info).detach();
    return result;
}

TEST(Variant, RefusesTypesThatNoneHas) {
    const VARTYPE types[] = {15,
                             VT_VOID,
                             VT_HRESULT,
                             VT_PTR,
                             VT_SAFEARRAY,
                             VT_CARRAY,
                             VT_USERDEFINED,
                             VT_LPSTR,
                             VT_LPWSTR,
                             VT_VARIANT,
                             VT_INT_PTR,
                             64,
                             0xFFF,
                             0x1000 | VT_I4,
                             0x8000 | VT_I4,
                             VT_BYREF | VT_EMPTY,
                             VT_BYREF | VT_NULL,
                             VT_ARRAY | VT_EMPTY,
                             VT_ARRAY | VT_NULL,
                             VT_ARRAY | 15,
                             VT_BYREF | 15,
                             0xFFFF};
    for (const VARTYPE type : types) {
        VARIANT bad = raw(type);
        Variant target = i4(5);
        EXPECT_EQ(VariantClear(&bad), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(bad.vt, type);
        EXPECT_EQ(VariantCopy(&target, &bad), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(VariantCopyInd(&target, &bad), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(VariantChangeType(&target, &bad, 0, VT_I4), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(VariantCopy(&bad, &target), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(VariantCopy(&bad, &bad), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(show(target), "I4 5");
    }
}

TEST(Variant, RefusesNullPointers) {
    Variant value;
    VariantInit(nullptr);
    EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG);
    EXPECT_EQ(VariantCopy(nullptr, &value), E_INVALIDARG);
    EXPECT_EQ(VariantCopy(&value, nullptr), E_INVALIDARG);
    EXPECT_EQ(VariantCopyInd(nullptr, &value), E_INVALIDARG);
    EXPECT_EQ(VariantCopyInd(&value, nullptr), E_INVALIDARG);
    EXPECT_EQ(VariantChangeType(nullptr, &value, 0, VT_I4), E_INVALIDARG);
    EXPECT_EQ(VariantChangeType(&value, nullptr, 0, VT_I4), E_INVALIDARG);
    for (const VARTYPE type : {VT_I4, VT_BSTR, VT_DISPATCH, VT_DECIMAL, VT_VARIANT}) {
        const VARIANT reference = raw(VT_BYREF | type);
        EXPECT_EQ(VariantCopyInd(&value, &reference), E_INVALIDARG) << type;
    }
}

TEST(Variant, InitMakesItEmpty) {
    VARIANT value;
    std::memset(static_cast<void*>(&value), 0xCC, sizeof value);
    VariantInit(&value);
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(VariantClear(&value), S_OK);
}

TEST(Variant, ObjectsAreCounted) {
    int living = 0;
    IUnknown* object = makeShared<IUnknown, Witness>(living).detach();
    for (const VARTYPE type : {VT_UNKNOWN, VT_DISPATCH}) {
        VARIANT owner = raw(type);
        owner.punkVal = object;
        Variant copy;
        EXPECT_EQ(VariantCopy(&copy, &owner), S_OK);
        EXPECT_EQ(references(object), 2u);
        EXPECT_EQ(copy.punkVal, object);
        EXPECT_EQ(VariantCopy(&copy, &owner), S_OK) << "over itself";
        EXPECT_EQ(references(object), 2u);
        EXPECT_EQ(VariantClear(&copy), S_OK);
        EXPECT_EQ(references(object), 1u);
    }
    VARIANT owner = raw(VT_UNKNOWN);
    owner.punkVal = object;
    EXPECT_EQ(VariantClear(&owner), S_OK);
    EXPECT_EQ(living, 0);
    VARIANT nothing = raw(VT_DISPATCH);
    Variant copy;
    EXPECT_EQ(VariantCopy(&copy, &nothing), S_OK);
    EXPECT_EQ(copy.vt, VT_DISPATCH);
    EXPECT_EQ(copy.pdispVal, nullptr);
}

TEST(Variant, TextIsCopiedByteForByte) {
    Variant text;
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocStringByteLen("ab\0de", 5);
    Variant copy = i4(1);
    ASSERT_EQ(VariantCopy(&copy, &text), S_OK);
    EXPECT_NE(copy.bstrVal, text.bstrVal);
    EXPECT_EQ(SysStringByteLen(copy.bstrVal), 5u);
    EXPECT_EQ(std::memcmp(copy.bstrVal, "ab\0de", 5), 0);
    BSTR before = text.bstrVal;
    EXPECT_EQ(VariantCopy(&text, &text), S_OK);
    EXPECT_EQ(text.bstrVal, before);
}

TEST(Variant, DecimalFillsItWhole) {
    const Variant source = decimal(true, 28, 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFFD);
    Variant copy(u"freed");
    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(show(copy), show(source));
}

TEST(Variant, RecordsAreCopiedAndDestroyed) {
    const Ref<EntryInfo> info = entryInfo();
    {
        const Variant source = record(info, 5, u"five");
        Variant copy(u"freed");
        ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
        EXPECT_EQ(info->living, 2);
        ASSERT_NE(copy.pvRecord, source.pvRecord);
        EXPECT_EQ(static_cast<Entry*>(copy.pvRecord)->number, 5);
        EXPECT_EQ(std::u16string_view(static_cast<Entry*>(copy.pvRecord)->name), u"five");

        // A reference to a record borrows both pointers.
        VARIANT reference = source;
        reference.vt = VT_BYREF | VT_RECORD;
        Variant kept(u"kept");
        info->copiesLeft = 0;
        EXPECT_EQ(VariantCopyInd(&kept, &reference), E_OUTOFMEMORY);
        EXPECT_EQ(show(kept), "BSTR kept");
        info->copiesLeft = -1;
        EXPECT_EQ(VariantCopyInd(&kept, &reference), S_OK);
        EXPECT_EQ(kept.vt, VT_RECORD);
        EXPECT_EQ(VariantClear(&reference), S_OK);
        EXPECT_EQ(info->living, 3);
    }
    EXPECT_EQ(info->living, 0);
    EXPECT_EQ(references(info.get()), 1u);

    VARIANT noDescription = raw(VT_RECORD);
    Variant copy;
    EXPECT_EQ(VariantCopy(&copy, &noDescription), S_OK);
    EXPECT_EQ(VariantClear(&noDescription), S_OK);
    LONG memory = 0;
    noDescription = raw(VT_RECORD);
    noDescription.pvRecord = &memory;
    EXPECT_EQ(VariantCopy(&copy, &noDescription), E_INVALIDARG);
}

TEST(Variant, ArraysAreCopiedDeep) {
    Variant source = Array<String>{u"one", u"two"};
    Variant copy;
    ASSERT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(copy.vt, VT_ARRAY | VT_BSTR);
    ASSERT_NE(copy.parray, source.parray);
    EXPECT_EQ(copy.as<Array<String>>()[1], u"two");
    VARIANT none = raw(VT_ARRAY | VT_I4);
    EXPECT_EQ(VariantCopy(&copy, &none), S_OK);
    EXPECT_EQ(copy.parray, nullptr);
    EXPECT_EQ(VariantClear(&none), S_OK);
}

TEST(Variant, ALockedArrayStays) {
    Variant locked = Array<Long>{1, 2};
    ASSERT_EQ(SafeArrayLock(locked.parray), S_OK);
    const Variant other(u"other");
    const Variant digits(u"12");
    EXPECT_EQ(VariantClear(&locked), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(VariantCopy(&locked, &other), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(VariantChangeType(&locked, &other, 0, VT_BSTR), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(VariantChangeType(&locked, &digits, 0, VT_I4), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(locked.vt, VT_ARRAY | VT_I4);
    EXPECT_EQ(static_cast<LONG*>(locked.parray->pvData)[1], 2);
    ASSERT_EQ(SafeArrayUnlock(locked.parray), S_OK);
}

TEST(Variant, ReferencesAreNotFreed) {
    BSTR text = SysAllocString(u"text");
    VARIANT reference = raw(VT_BYREF | VT_BSTR);
    reference.pbstrVal = &text;
    Variant copy;
    EXPECT_EQ(VariantCopy(&copy, &reference), S_OK);
    EXPECT_EQ(copy.vt, VT_BYREF | VT_BSTR);
    EXPECT_EQ(copy.pbstrVal, &text);
    EXPECT_EQ(VariantClear(&copy), S_OK);
    EXPECT_EQ(std::u16string_view(text), u"text");
    SysFreeString(text);
}

TEST(Variant, CopyIndReadsThroughReferences) {
    LONGLONG integer = -2;
    double real = 1.5;
    float single = 2.5;
    CY currency{.int64 = 12345};
    DECIMAL exact = decimal(-15, 1).decVal;
    BSTR text = SysAllocString(u"text");
    const struct {
        VARTYPE type;
        void* place;
        const char* expected;
    } cases[] = {
        {VT_I1, &integer, "I1 -2"},
        {VT_UI1, &integer, "UI1 254"},
        {VT_I2, &integer, "I2 -2"},
        {VT_UI2, &integer, "UI2 65534"},
        {VT_BOOL, &integer, "BOOL -2"},
        {VT_I4, &integer, "I4 -2"},
        {VT_UI4, &integer, "UI4 4294967294"},
        {VT_INT, &integer, "INT -2"},
        {VT_UINT, &integer, "UINT 4294967294"},
        {VT_ERROR, &integer, "ERROR -2"},
        {VT_I8, &integer, "I8 -2"},
        {VT_UI8, &integer, "UI8 18446744073709551614"},
        {VT_R4, &single, "R4 2.5"},
        {VT_R8, &real, "R8 1.5"},
        {VT_DATE, &real, "DATE 1.5"},
        {VT_CY, &currency, "CY 12345"},
        {VT_DECIMAL, &exact, "DECIMAL -15/1"},
        {VT_BSTR, &text, "BSTR text"},
    };
    for (const auto& [type, place, expected] : cases) {
        VARIANT reference = raw(VT_BYREF | type);
        reference.byref = place;
        Variant copy;
        EXPECT_EQ(VariantCopyInd(&copy, &reference), S_OK) << expected;
        EXPECT_EQ(show(copy), expected);
        // The same through a VARIANT that holds the reference, and onto itself.
        VARIANT outer = raw(VT_BYREF | VT_VARIANT);
        outer.pvarVal = &reference;
        EXPECT_EQ(VariantCopyInd(&outer, &outer), S_OK) << expected;
        EXPECT_EQ(show(outer), expected);
        VariantClear(&outer);
    }
    SysFreeString(text);
}

TEST(Variant, CopyIndOfObjectsArraysAndVariants) {
    int living = 0;
    Ref<IUnknown> object = makeShared<IUnknown, Witness>(living);
    IUnknown* pointer = object.get();
    for (const VARTYPE type : {VT_UNKNOWN, VT_DISPATCH}) {
        VARIANT reference = raw(VT_BYREF | type);
        reference.ppunkVal = &pointer;
        Variant copy;
        EXPECT_EQ(VariantCopyInd(&copy, &reference), S_OK);
        EXPECT_EQ(copy.vt, type);
        EXPECT_EQ(references(pointer), 2u);
    }
    Array<Long> numbers{7, 8};
    SAFEARRAY* array = numbers.get();
    VARIANT reference = raw(VT_BYREF | VT_ARRAY | VT_I4);
    reference.pparray = &array;
    Variant copy;
    EXPECT_EQ(VariantCopyInd(&copy, &reference), S_OK);
    EXPECT_EQ(copy.vt, VT_ARRAY | VT_I4);
    EXPECT_NE(copy.parray, array);
    EXPECT_EQ(static_cast<LONG*>(copy.parray->pvData)[1], 8);

    Variant inner(u"inner");
    VARIANT outer = raw(VT_BYREF | VT_VARIANT);
    outer.pvarVal = &inner;
    EXPECT_EQ(VariantCopyInd(&copy, &outer), S_OK);
    EXPECT_EQ(show(copy), "BSTR inner");
    EXPECT_EQ(VariantCopyInd(&inner, &outer), S_OK) << "onto the place itself";
    EXPECT_EQ(show(inner), "BSTR inner");
    VARIANT twice = raw(VT_BYREF | VT_VARIANT);
    twice.pvarVal = &outer;
    EXPECT_EQ(VariantCopyInd(&copy, &twice), E_INVALIDARG);
    VARIANT bad = raw(VT_VARIANT);
    outer.pvarVal = &bad;
    EXPECT_EQ(VariantCopyInd(&copy, &outer), DISP_E_BADVARTYPE);
    EXPECT_EQ(show(copy), "BSTR inner");
}

TEST(Variant, TheSourceMayLieInsideTheDestination) {
    Array<Variant> list(0, 1);
    list[1] = Variant(u"inside");
    Variant holder = std::move(list);
    const VARIANT* inside = static_cast<VARIANT*>(holder.parray->pvData) + 1;
    EXPECT_EQ(VariantCopy(&holder, inside), S_OK);
    EXPECT_EQ(show(holder), "BSTR inside");
}

/// Looks, when it ends, at the VARIANT that held it.
class Visitor final : public SharedObject<IUnknown> {
public:
    Visitor(VARIANT& holder, std::vector<VARTYPE>& seen) : holder_(holder), seen_(seen) {}
    ~Visitor() override {
        seen_.push_back(holder_.vt);
        VariantClear(&holder_);
    }

private:
    VARIANT& holder_;
    std::vector<VARTYPE>& seen_;
};

TEST(Variant, IsEmptyWhileItsObjectEnds) {
    std::vector<VARTYPE> seen;
    Variant direct;
    direct.punkVal = makeShared<IUnknown, Visitor>(direct, seen).detach();
    direct.vt = VT_UNKNOWN;
    EXPECT_EQ(VariantClear(&direct), S_OK);
    Variant list;
    Array<Ref<IUnknown>> objects(0, 0);
    objects[0] = makeShared<IUnknown, Visitor>(list, seen);
    list = std::move(objects);
    EXPECT_EQ(VariantClear(&list), S_OK);
    EXPECT_EQ(seen, (std::vector<VARTYPE>{VT_EMPTY, VT_EMPTY}));
}

} // namespace
