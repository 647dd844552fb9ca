#include "types_support.h"

#include <gtest/gtest.h>

#include <vector>

using namespace mox;
using namespace mox::test;

namespace {

TEST(SafeArrayCopying, CopiesShapeAndElements) {
    const ArrayOwner array = newArray(VT_I2, {{2, 1}, {3, -1}});
    for (SHORT index = 0; index < 6; ++index) {
        static_cast<SHORT*>(array->pvData)[index] = index;
    }
    SAFEARRAY* pointer = nullptr;
    ASSERT_EQ(SafeArrayCopy(array.get(), &pointer), S_OK);
    const ArrayOwner copy(pointer);
    EXPECT_NE(copy->pvData, array->pvData);
    EXPECT_EQ(std::memcmp(copy->pvData, array->pvData, 6 * sizeof(SHORT)), 0);
    EXPECT_EQ(copy->cDims, 2);
    EXPECT_EQ(copy->rgsabound[0].lLbound, -1);
    EXPECT_EQ(copy->rgsabound[1].cElements, 2u);
    VARTYPE type = 0;
    EXPECT_EQ(SafeArrayGetVartype(copy.get(), &type), S_OK);
    EXPECT_EQ(type, VT_I2);
}

TEST(SafeArrayCopying, ElementsAreCopiedDeep) {
    int living = 0;
    Array<Variant> list(0, 2);
    list[0] = Variant(u"text");
    list[1] = Variant(makeShared<IUnknown, Witness>(living));
    list[2] = Array<String>{u"inner"};
    {
        const Array<Variant> copy = list;
        EXPECT_NE(copy[0].bstrVal, list[0].bstrVal);
        EXPECT_EQ(show(copy[0]), "BSTR text");
        EXPECT_EQ(references(copy[1].punkVal), 2u);
        EXPECT_NE(copy[2].parray, list[2].parray);
        EXPECT_EQ(copy[2].as<Array<String>>()[0], u"inner");
    }
    EXPECT_EQ(references(list[1].punkVal), 1u);
    list = Array<Variant>();
    EXPECT_EQ(living, 0);
}

TEST(SafeArrayCopying, AFailureUndoesWhatWasCopied) {
    const Ref<EntryInfo> info = entryInfo();
    {
        const ArrayOwner array = newArray(VT_RECORD, {{3, 0}}, static_cast<IRecordInfo*>(info.get()));
        const ArrayOwner target = newArray(VT_RECORD, {{3, 7}}, static_cast<IRecordInfo*>(info.get()));
        for (LONG index = 0; index < 3; ++index) {
            const String name(u"name");
            Entry entry{index, name.get()};
            ASSERT_EQ(SafeArrayPutElement(array.get(), &index, &entry), S_OK);
        }
        for (const int copies : {0, 1, 2}) {
            SAFEARRAY* copy = array.get();
            info->copiesLeft = copies;
            EXPECT_EQ(SafeArrayCopy(array.get(), &copy), E_OUTOFMEMORY);
            EXPECT_EQ(copy, nullptr);
            info->copiesLeft = copies;
            EXPECT_EQ(SafeArrayCopyData(array.get(), target.get()), E_OUTOFMEMORY);
            EXPECT_EQ(static_cast<Entry*>(target->pvData)[0].number, EntryInfo::initialNumber) << "nothing has changed";
            EXPECT_EQ(info->living, 6);
        }
        info->copiesLeft = -1;
        EXPECT_EQ(SafeArrayCopyData(array.get(), target.get()), S_OK);
        EXPECT_EQ(static_cast<Entry*>(target->pvData)[2].number, 2);
        EXPECT_EQ(std::u16string_view(static_cast<Entry*>(target->pvData)[2].name), u"name");
        EXPECT_EQ(info->living, 6);
        SAFEARRAY* copy = nullptr;
        EXPECT_EQ(SafeArrayCopy(array.get(), &copy), S_OK);
        EXPECT_EQ(info->living, 9);
        EXPECT_EQ(SafeArrayDestroy(copy), S_OK);
    }
    EXPECT_EQ(info->living, 0);
    EXPECT_EQ(references(info.get()), 1u);

    Array<Variant> list(0, 1);
    list[0] = Variant(u"text");
    list[1].vt = 15;
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(list.get(), &copy), DISP_E_BADVARTYPE);
    EXPECT_EQ(copy, nullptr);
    list[1].vt = VT_EMPTY;
}

TEST(SafeArrayCopying, DataGoesIntoAnArrayOfTheSameShape) {
    const ArrayOwner source = newArray(VT_BSTR, {{2, 0}, {2, 0}});
    const ArrayOwner target = newArray(VT_BSTR, {{2, 5}, {2, 5}});
    LONG from[] = {1, 1};
    LONG to[] = {6, 6};
    ASSERT_EQ(SafeArrayPutElement(source.get(), from, String(u"new").get()), S_OK);
    ASSERT_EQ(SafeArrayPutElement(target.get(), to, String(u"old").get()), S_OK);
    EXPECT_EQ(SafeArrayCopyData(source.get(), target.get()), S_OK);
    String text;
    EXPECT_EQ(SafeArrayGetElement(target.get(), to, text.out()), S_OK);
    EXPECT_EQ(text, u"new");
    EXPECT_EQ(SafeArrayCopyData(target.get(), target.get()), S_OK);
    EXPECT_EQ(SafeArrayGetElement(target.get(), to, text.out()), S_OK);
    EXPECT_EQ(text, u"new");

    const ArrayOwner numbers = newArray(VT_I2, {{3, 0}});
    const ArrayOwner sameSize = newArray(VT_BOOL, {{3, 9}});
    static_cast<SHORT*>(numbers->pvData)[2] = 5;
    EXPECT_EQ(SafeArrayCopyData(numbers.get(), sameSize.get()), S_OK);
    EXPECT_EQ(static_cast<SHORT*>(sameSize->pvData)[2], 5);

    const ArrayOwner others[] = {newArray(VT_BSTR, {{4, 0}}), newArray(VT_BSTR, {{2, 0}, {3, 0}}),
                                 newArray(VT_I8, {{2, 0}, {2, 0}}), newArray(VT_I4, {{2, 0}, {2, 0}}),
                                 newArray(VT_UNKNOWN, {{2, 0}, {2, 0}})};
    for (const ArrayOwner& other : others) {
        EXPECT_EQ(SafeArrayCopyData(source.get(), other.get()), E_INVALIDARG);
    }
}

TEST(SafeArrayRedim, OnlyTheRightmostDimensionChanges) {
    const ArrayOwner array = newArray(VT_I4, {{2, 0}, {2, 0}});
    for (LONG index = 0; index < 4; ++index) {
        static_cast<LONG*>(array->pvData)[index] = index + 1;
    }
    SAFEARRAYBOUND wider{3, 10};
    ASSERT_EQ(SafeArrayRedim(array.get(), &wider), S_OK);
    const std::vector<LONG> expected{1, 2, 3, 4, 0, 0};
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), static_cast<LONG*>(array->pvData)));
    LONG bound = 0;
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 2, &bound), S_OK);
    EXPECT_EQ(bound, 12);
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 1, &bound), S_OK);
    EXPECT_EQ(bound, 1);
    LONG indices[] = {1, 10};
    LONG value = 0;
    EXPECT_EQ(SafeArrayGetElement(array.get(), indices, &value), S_OK);
    EXPECT_EQ(value, 2) << "elements keep their position";
}

TEST(SafeArrayRedim, FreesWhatFallsAwayAndStartsTheNewOnes) {
    int living = 0;
    const ArrayOwner objects = newArray(VT_UNKNOWN, {{3, 0}});
    for (LONG index = 0; index < 3; ++index) {
        ASSERT_EQ(SafeArrayPutElement(objects.get(), &index, makeShared<IUnknown, Witness>(living).get()), S_OK);
    }
    SAFEARRAYBOUND bound{1, 0};
    EXPECT_EQ(SafeArrayRedim(objects.get(), &bound), S_OK);
    EXPECT_EQ(living, 1);
    bound.cElements = 0;
    EXPECT_EQ(SafeArrayRedim(objects.get(), &bound), S_OK);
    EXPECT_EQ(living, 0);
    bound.cElements = 2;
    EXPECT_EQ(SafeArrayRedim(objects.get(), &bound), S_OK);
    EXPECT_EQ(static_cast<IUnknown**>(objects->pvData)[1], nullptr);

    const Ref<EntryInfo> info = entryInfo();
    {
        const ArrayOwner entries = newArray(VT_RECORD, {{1, 0}}, static_cast<IRecordInfo*>(info.get()));
        bound.cElements = 3;
        EXPECT_EQ(SafeArrayRedim(entries.get(), &bound), S_OK);
        EXPECT_EQ(info->living, 3);
        EXPECT_EQ(static_cast<Entry*>(entries->pvData)[2].number, EntryInfo::initialNumber);
        bound.cElements = 6;
        info->newLeft = 1;
        EXPECT_EQ(SafeArrayRedim(entries.get(), &bound), E_OUTOFMEMORY);
        EXPECT_EQ(entries->rgsabound[0].cElements, 3u);
        EXPECT_EQ(info->living, 3);
        bound.cElements = 2;
        EXPECT_EQ(SafeArrayRedim(entries.get(), &bound), S_OK);
        EXPECT_EQ(info->living, 2);
    }
    EXPECT_EQ(info->living, 0);

    Array<String> texts{u"one", u"two"};
    texts.redimPreserve(3);
    EXPECT_EQ(texts[1], u"two");
    EXPECT_TRUE(texts[3].empty());
    texts.redimPreserve(-1);
    EXPECT_TRUE(texts.empty());
}

TEST(SafeArrayRedim, RefusesAndKeeps) {
    const ArrayOwner array = newArray(VT_I4, {{0x10000, 0}, {2, 0}});
    static_cast<LONG*>(array->pvData)[0x1FFFF] = 5;
    SAFEARRAYBOUND tooLarge{0xFFFFFFFF, INT32_MIN};
    const ArrayOwner wide = newArray(VT_DECIMAL, {{0x10000, 0}, {0x10000, 0}, {0, 0}});
    EXPECT_EQ(SafeArrayRedim(wide.get(), &tooLarge), E_OUTOFMEMORY) << "2^64 elements";
    EXPECT_EQ(wide->rgsabound[0].cElements, 0u);
    SAFEARRAYBOUND beyond{2, INT32_MAX};
    EXPECT_EQ(SafeArrayRedim(array.get(), &beyond), E_INVALIDARG);
    SAFEARRAYBOUND bound{3, 0};
    for (const USHORT feature : {FADF_FIXEDSIZE, FADF_STATIC, FADF_AUTO, FADF_EMBEDDED}) {
        array->fFeatures |= feature;
        EXPECT_EQ(SafeArrayRedim(array.get(), &bound), E_INVALIDARG) << feature;
        array->fFeatures &= static_cast<USHORT>(~feature);
    }
    EXPECT_EQ(array->rgsabound[0].cElements, 2u);
    EXPECT_EQ(static_cast<LONG*>(array->pvData)[0x1FFFF], 5);
}

TEST(SafeArrayStorage, ElementsInForeignMemoryAreClearedButStay) {
    for (const USHORT feature : {FADF_AUTO, FADF_STATIC, FADF_EMBEDDED}) {
        BSTR texts[] = {SysAllocString(u"one"), SysAllocString(u"two")};
        SAFEARRAY array{};
        array.cDims = 1;
        array.fFeatures = static_cast<USHORT>(FADF_BSTR | FADF_FIXEDSIZE | feature);
        array.cbElements = sizeof(BSTR);
        array.pvData = texts;
        array.rgsabound[0] = {2, 0};
        SAFEARRAY* copy = nullptr;
        ASSERT_EQ(SafeArrayCopy(&array, &copy), S_OK);
        EXPECT_EQ(copy->fFeatures, FADF_BSTR) << "a copy lies in memory of its own";
        SAFEARRAYBOUND bound{3, 0};
        EXPECT_EQ(SafeArrayRedim(copy, &bound), S_OK);
        EXPECT_EQ(SafeArrayDestroy(&array), S_OK);
        EXPECT_EQ(array.pvData, texts);
        EXPECT_EQ(texts[0], nullptr);
        EXPECT_EQ(texts[1], nullptr);
        EXPECT_EQ(std::u16string_view(static_cast<BSTR*>(copy->pvData)[1]), u"two");
        EXPECT_EQ(SafeArrayDestroy(copy), S_OK);
    }
    // The elements of an array that may not change its size still go with it.
    SAFEARRAY* fixed = SafeArrayCreateVector(VT_BSTR, 0, 1);
    fixed->fFeatures |= FADF_FIXEDSIZE;
    LONG index = 0;
    EXPECT_EQ(SafeArrayPutElement(fixed, &index, String(u"text").get()), S_OK);
    EXPECT_EQ(SafeArrayDestroy(fixed), S_OK);
}

} // namespace
