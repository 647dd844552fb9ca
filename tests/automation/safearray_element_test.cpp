#include "types_support.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

using namespace mox;
using namespace mox::test;

namespace {

TEST(SafeArrayElement, TheLeftmostIndexComesFirstAndRunsFastest) {
    const ArrayOwner array = newArray(VT_I4, {{2, 1}, {3, -1}, {2, 0}});
    LONG expected = 0;
    for (LONG right = 0; right < 2; ++right) {
        for (LONG middle = -1; middle <= 1; ++middle) {
            for (LONG left = 1; left <= 2; ++left) {
                LONG indices[] = {left, middle, right};
                PVOID place = nullptr;
                ASSERT_EQ(SafeArrayPtrOfIndex(array.get(), indices, &place), S_OK);
                EXPECT_EQ(place, static_cast<LONG*>(array->pvData) + expected);
                EXPECT_EQ(SafeArrayPutElement(array.get(), indices, &expected), S_OK);
                LONG value = -1;
                EXPECT_EQ(SafeArrayGetElement(array.get(), indices, &value), S_OK);
                EXPECT_EQ(value, expected);
                ++expected;
            }
        }
    }
    LONG bad[][3] = {{0, 0, 0}, {3, 0, 0}, {1, -2, 0}, {1, 2, 0}, {1, 0, -1}, {1, 0, 2}, {INT32_MIN, 0, 0}, {INT32_MAX, 0, 0}};
    for (auto& indices : bad) {
        PVOID place = array.get();
        LONG value = -1;
        EXPECT_EQ(SafeArrayPtrOfIndex(array.get(), indices, &place), DISP_E_BADINDEX);
        EXPECT_EQ(place, nullptr);
        EXPECT_EQ(SafeArrayGetElement(array.get(), indices, &value), DISP_E_BADINDEX);
        EXPECT_EQ(SafeArrayPutElement(array.get(), indices, &value), DISP_E_BADINDEX);
        EXPECT_EQ(value, -1);
    }
}

TEST(SafeArrayElement, PlainOnesOfEverySize) {
    for (const VARTYPE type : {VT_I1, VT_I2, VT_BOOL, VT_R4, VT_ERROR, VT_CY, VT_DATE, VT_UI8, VT_DECIMAL}) {
        const ArrayOwner array = newArray(type, {{3, 5}});
        const UINT size = SafeArrayGetElemsize(array.get());
        std::vector<unsigned char> bytes(size);
        std::iota(bytes.begin(), bytes.end(), 1);
        LONG index = 6;
        ASSERT_EQ(SafeArrayPutElement(array.get(), &index, bytes.data()), S_OK);
        std::vector<unsigned char> result(size + 1, 0xEE);
        ASSERT_EQ(SafeArrayGetElement(array.get(), &index, result.data()), S_OK);
        EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), result.begin())) << type;
        EXPECT_EQ(result[size], 0xEE) << "nothing behind the element is written";
        const auto* data = static_cast<unsigned char*>(array->pvData);
        EXPECT_TRUE(std::all_of(data, data + size, [](unsigned char byte) { return byte == 0; })) << "the neighbour stays";
    }
}

TEST(SafeArrayElement, TextsAreCopied) {
    const ArrayOwner array = newArray(VT_BSTR, {{2, 0}});
    LONG index = 0;
    String text(u"first");
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, text.get()), S_OK);
    EXPECT_NE(static_cast<BSTR*>(array->pvData)[0], text.get());
    String got;
    EXPECT_EQ(SafeArrayGetElement(array.get(), &index, got.out()), S_OK);
    EXPECT_EQ(got, u"first");
    // The element itself may be what is put.
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, static_cast<BSTR*>(array->pvData)[0]), S_OK);
    EXPECT_EQ(SafeArrayGetElement(array.get(), &index, got.out()), S_OK);
    EXPECT_EQ(got, u"first");
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, nullptr), S_OK) << "no text is a text";
    EXPECT_EQ(static_cast<BSTR*>(array->pvData)[0], nullptr);
}

TEST(SafeArrayElement, ObjectsAreCounted) {
    int living = 0;
    for (const VARTYPE type : {VT_UNKNOWN, VT_DISPATCH}) {
        ArrayOwner array = newArray(type, {{1, 0}});
        LONG index = 0;
        Ref<IUnknown> first = makeShared<IUnknown, Witness>(living);
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, first.get()), S_OK);
        EXPECT_EQ(references(first.get()), 2u);
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, first.get()), S_OK) << "over itself";
        EXPECT_EQ(references(first.get()), 2u);
        Ref<IUnknown> got;
        EXPECT_EQ(SafeArrayGetElement(array.get(), &index, got.out()), S_OK);
        EXPECT_EQ(got, first);
        EXPECT_EQ(references(first.get()), 3u);
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, makeShared<IUnknown, Witness>(living).get()), S_OK);
        EXPECT_EQ(references(first.get()), 2u);
        EXPECT_EQ(living, 2);
        array.reset();
        EXPECT_EQ(living, 1);
        first = got = nullptr;
        EXPECT_EQ(living, 0);
    }
}

TEST(SafeArrayElement, VariantsAreCopied) {
    const ArrayOwner array = newArray(VT_VARIANT, {{1, 0}});
    LONG index = 0;
    Variant text(u"text");
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &text), S_OK);
    EXPECT_NE(static_cast<VARIANT*>(array->pvData)->bstrVal, text.bstrVal);
    VARIANT place;
    std::memset(static_cast<void*>(&place), 0xCC, sizeof place); // an out place may hold anything
    EXPECT_EQ(SafeArrayGetElement(array.get(), &index, &place), S_OK);
    EXPECT_EQ(show(place), "BSTR text");
    VariantClear(&place);
    VARIANT bad{};
    bad.vt = 15;
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &bad), DISP_E_BADVARTYPE);
    EXPECT_EQ(show(*static_cast<VARIANT*>(array->pvData)), "BSTR text");
    Variant inner = Array<Long>{1};
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &inner), S_OK);
    SafeArrayLock(static_cast<VARIANT*>(array->pvData)->parray);
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &text), DISP_E_ARRAYISLOCKED);
    SafeArrayUnlock(static_cast<VARIANT*>(array->pvData)->parray);
}

TEST(SafeArrayElement, RecordsAreCopied) {
    const Ref<EntryInfo> info = entryInfo();
    {
        const ArrayOwner array = newArray(VT_RECORD, {{2, 0}}, static_cast<IRecordInfo*>(info.get()));
        LONG index = 1;
        String name(u"name");
        Entry entry{5, name.get()};
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &entry), S_OK);
        EXPECT_NE(static_cast<Entry*>(array->pvData)[1].name, name.get());
        Entry got{};
        EXPECT_EQ(SafeArrayGetElement(array.get(), &index, &got), S_OK);
        EXPECT_EQ(got.number, 5);
        EXPECT_EQ(std::u16string_view(got.name), u"name");
        SysFreeString(got.name);
        info->copiesLeft = 0;
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &entry), E_OUTOFMEMORY);
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, nullptr), E_INVALIDARG);
        info->copiesLeft = -1;
        EXPECT_EQ(SafeArraySetRecordInfo(array.get(), nullptr), S_OK);
        EXPECT_EQ(SafeArrayGetElement(array.get(), &index, &got), E_UNEXPECTED) << "nobody knows how to copy";
        EXPECT_EQ(SafeArrayPutElement(array.get(), &index, &entry), E_UNEXPECTED);
        EXPECT_EQ(SafeArraySetRecordInfo(array.get(), info.get()), S_OK);
    }
    EXPECT_EQ(info->living, 0);
}

} // namespace
