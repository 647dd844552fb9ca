#include "types_support.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace mox;
using namespace mox::test;

namespace {

constexpr LONG leastLong = std::numeric_limits<LONG>::min();
constexpr LONG largestLong = std::numeric_limits<LONG>::max();

TEST(SafeArray, KnowsItsElements) {
    const Ref<EntryInfo> info = entryInfo();
    const struct {
        VARTYPE type;
        UINT size;
        USHORT features;
    } cases[] = {
        {VT_I1, 1, FADF_HAVEVARTYPE},
        {VT_UI1, 1, FADF_HAVEVARTYPE},
        {VT_I2, 2, FADF_HAVEVARTYPE},
        {VT_UI2, 2, FADF_HAVEVARTYPE},
        {VT_BOOL, 2, FADF_HAVEVARTYPE},
        {VT_I4, 4, FADF_HAVEVARTYPE},
        {VT_UI4, 4, FADF_HAVEVARTYPE},
        {VT_INT, 4, FADF_HAVEVARTYPE},
        {VT_UINT, 4, FADF_HAVEVARTYPE},
        {VT_R4, 4, FADF_HAVEVARTYPE},
        {VT_ERROR, 4, FADF_HAVEVARTYPE},
        {VT_I8, 8, FADF_HAVEVARTYPE},
        {VT_UI8, 8, FADF_HAVEVARTYPE},
        {VT_R8, 8, FADF_HAVEVARTYPE},
        {VT_CY, 8, FADF_HAVEVARTYPE},
        {VT_DATE, 8, FADF_HAVEVARTYPE},
        {VT_DECIMAL, 16, FADF_HAVEVARTYPE},
        {VT_BSTR, sizeof(void*), FADF_HAVEVARTYPE | FADF_BSTR},
        {VT_VARIANT, sizeof(VARIANT), FADF_HAVEVARTYPE | FADF_VARIANT},
        {VT_DISPATCH, sizeof(void*), FADF_HAVEIID | FADF_DISPATCH},
        {VT_UNKNOWN, sizeof(void*), FADF_HAVEIID | FADF_UNKNOWN},
        {VT_RECORD, sizeof(Entry), FADF_RECORD},
    };
    for (const auto& [type, size, features] : cases) {
        const ArrayOwner array = newArray(type, {{3, -1}}, type == VT_RECORD ? static_cast<IRecordInfo*>(info.get()) : nullptr);
        ASSERT_TRUE(array) << type;
        EXPECT_EQ(SafeArrayGetElemsize(array.get()), size) << type;
        EXPECT_EQ(array->fFeatures, features) << type;
        VARTYPE stored = 0;
        EXPECT_EQ(SafeArrayGetVartype(array.get(), &stored), S_OK);
        EXPECT_EQ(stored, type);
        if (type != VT_RECORD) {
            const std::vector<char> zeros(3 * size);
            EXPECT_EQ(std::memcmp(array->pvData, zeros.data(), zeros.size()), 0) << type;
        }
    }
    EXPECT_EQ(info->living, 0);
    EXPECT_EQ(references(info.get()), 1u);
}

TEST(SafeArray, BoundsCountFromTheLeft) {
    SAFEARRAYBOUND bounds[] = {{2, 1}, {3, -5}, {4, 100}};
    const ArrayOwner array(SafeArrayCreate(VT_I2, 3, bounds));
    ASSERT_TRUE(array);
    EXPECT_EQ(SafeArrayGetDim(array.get()), 3u);
    EXPECT_EQ(array->rgsabound[0].cElements, 4u) << "the rightmost stands first";
    const LONG expected[][2] = {{1, 2}, {-5, -3}, {100, 103}};
    for (UINT dimension = 1; dimension <= 3; ++dimension) {
        LONG lower = 0;
        LONG upper = 0;
        EXPECT_EQ(SafeArrayGetLBound(array.get(), dimension, &lower), S_OK);
        EXPECT_EQ(SafeArrayGetUBound(array.get(), dimension, &upper), S_OK);
        EXPECT_EQ(lower, expected[dimension - 1][0]);
        EXPECT_EQ(upper, expected[dimension - 1][1]);
    }
    for (const UINT dimension : {0u, 4u, 0xFFFFFFFFu}) {
        LONG bound = 0;
        EXPECT_EQ(SafeArrayGetLBound(array.get(), dimension, &bound), DISP_E_BADINDEX);
        EXPECT_EQ(SafeArrayGetUBound(array.get(), dimension, &bound), DISP_E_BADINDEX);
    }
}

TEST(SafeArray, RefusesImpossibleOnes) {
    SAFEARRAYBOUND one{1, 0};
    for (const VARTYPE type : std::initializer_list<VARTYPE>{VT_EMPTY, VT_NULL, VT_VOID, VT_PTR, VT_RECORD, VT_LPSTR, 15, 64,
                                                             VT_BYREF | VT_I4, VT_ARRAY | VT_I4}) {
        EXPECT_EQ(SafeArrayCreate(type, 1, &one), nullptr) << type;
    }
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0, &one), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 1, nullptr), nullptr);

    std::vector<SAFEARRAYBOUND> many(61, one);
    EXPECT_TRUE(ArrayOwner(SafeArrayCreate(VT_I4, 60, many.data())));
    EXPECT_EQ(SafeArrayCreate(VT_I4, 61, many.data()), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0x10001, many.data()), nullptr) << "1 in 16 bits";

    // Sizes that are small again, or negative, where they are counted in too few bits.
    const struct {
        VARTYPE type;
        std::vector<SAFEARRAYBOUND> bounds;
    } large[] = {
        {VT_I8, {{0x7FFFFFFF, 0}, {0x7FFFFFFF, 0}}},
        {VT_UI1, {{0x80000000, -1}, {0x80000000, -1}, {4, 0}}},
        {VT_R8, {{0x10000, 0}, {0x10000, 0}, {0x10000, 0}, {0x2000, 0}}},
        {VT_DECIMAL, {{0x10000, 0}, {0x10000, 0}, {0x10000, 0}, {0x1000, 0}}},
        {VT_I4, {{0xFFFFFFFF, 0}}}, // an upper bound beyond 32 bits
        {VT_UI1, {{2, largestLong}}},
        {VT_UI1, {{0, leastLong}}},
    };
    for (auto [type, bounds] : large) {
        EXPECT_EQ(SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data()), nullptr) << type;
    }
    EXPECT_TRUE(newArray(VT_UI1, {{1, largestLong}}));
    EXPECT_TRUE(newArray(VT_UI1, {{1, leastLong}}));
}

TEST(SafeArray, DimensionsMayBeEmpty) {
    for (const auto& bounds :
         {std::vector<SAFEARRAYBOUND>{{0, 5}}, {{0x10000, 0}, {0x10000, 0}, {0x10000, 0}, {0x10000, 0}, {0, 5}}}) {
        std::vector<SAFEARRAYBOUND> list = bounds;
        const ArrayOwner array(SafeArrayCreate(VT_BSTR, static_cast<UINT>(list.size()), list.data()));
        ASSERT_TRUE(array);
        LONG upper = 0;
        EXPECT_EQ(SafeArrayGetUBound(array.get(), static_cast<UINT>(list.size()), &upper), S_OK);
        EXPECT_EQ(upper, 4);
        std::vector<LONG> indices(list.size(), 0);
        PVOID place = &upper;
        EXPECT_EQ(SafeArrayPtrOfIndex(array.get(), indices.data(), &place), DISP_E_BADINDEX);
        EXPECT_EQ(place, nullptr);
        SAFEARRAY* copy = nullptr;
        EXPECT_EQ(SafeArrayCopy(array.get(), &copy), S_OK);
        EXPECT_EQ(SafeArrayDestroy(copy), S_OK);
    }
}

TEST(SafeArray, Vectors) {
    const ArrayOwner array(SafeArrayCreateVector(VT_VARIANT, -2, 4));
    ASSERT_TRUE(array);
    LONG upper = 0;
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 1, &upper), S_OK);
    EXPECT_EQ(upper, 1);
    const Ref<EntryInfo> info = entryInfo();
    {
        const ArrayOwner entries(SafeArrayCreateVectorEx(VT_RECORD, 0, 2, static_cast<IRecordInfo*>(info.get())));
        ASSERT_TRUE(entries);
        EXPECT_EQ(static_cast<Entry*>(entries->pvData)[1].number, EntryInfo::initialNumber);
        EXPECT_EQ(info->living, 2);
    }
    EXPECT_EQ(info->living, 0);
    info->newLeft = 1;
    EXPECT_EQ(SafeArrayCreateVectorEx(VT_RECORD, 0, 2, static_cast<IRecordInfo*>(info.get())), nullptr);
    EXPECT_EQ(info->living, 0) << "the first one is gone again";
    EXPECT_EQ(references(info.get()), 1u);
    EXPECT_EQ(SafeArrayCreateVector(VT_RECORD, 0, 1), nullptr);
}

TEST(SafeArray, DescriptorAndDataApart) {
    SAFEARRAY* array = nullptr;
    ASSERT_EQ(SafeArrayAllocDescriptorEx(VT_BSTR, 2, &array), S_OK);
    EXPECT_EQ(array->pvData, nullptr);
    array->rgsabound[0] = {2, 0};
    array->rgsabound[1] = {3, 0};
    LONG indices[] = {0, 0};
    PVOID place = nullptr;
    EXPECT_EQ(SafeArrayPtrOfIndex(array, indices, &place), E_INVALIDARG) << "no data yet";
    EXPECT_EQ(SafeArrayAllocData(array), S_OK);
    EXPECT_EQ(SafeArrayAllocData(array), E_UNEXPECTED) << "has data";
    EXPECT_EQ(SafeArrayPutElement(array, indices, String(u"text").get()), S_OK);
    EXPECT_EQ(SafeArrayDestroyData(array), S_OK);
    EXPECT_EQ(array->pvData, nullptr);
    EXPECT_EQ(SafeArrayDestroyData(array), S_OK);
    EXPECT_EQ(SafeArrayAllocData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroyData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroyDescriptor(array), S_OK);

    // Without a type it is bytes of the size that its maker sets, in memory that its maker gives.
    ASSERT_EQ(SafeArrayAllocDescriptor(1, &array), S_OK);
    EXPECT_EQ(array->fFeatures, 0);
    VARTYPE type = 0;
    EXPECT_EQ(SafeArrayGetVartype(array, &type), E_INVALIDARG);
    LONG numbers[] = {1, 2, 3};
    array->cbElements = sizeof(LONG);
    array->rgsabound[0] = {3, 0};
    array->pvData = numbers;
    array->fFeatures = FADF_STATIC;
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(numbers[2], 0) << "cleared, not freed";
    EXPECT_EQ(SafeArrayDestroyDescriptor(array), S_OK);
    EXPECT_EQ(static_cast<LONG*>(copy->pvData)[2], 3);
    EXPECT_EQ(copy->fFeatures, 0);
    EXPECT_EQ(SafeArrayDestroy(copy), S_OK);

    EXPECT_EQ(SafeArrayAllocDescriptor(0, &array), E_INVALIDARG);
    EXPECT_EQ(SafeArrayAllocDescriptor(61, &array), E_INVALIDARG);
    EXPECT_EQ(SafeArrayAllocDescriptor(1, nullptr), E_POINTER);
    EXPECT_EQ(SafeArrayAllocDescriptorEx(VT_I4, 1, nullptr), E_POINTER);
    EXPECT_EQ(SafeArrayAllocDescriptorEx(VT_EMPTY, 1, &array), DISP_E_BADVARTYPE);
    EXPECT_EQ(array, nullptr);
}

TEST(SafeArray, TypeOfAnArrayThatOnlyHasMarks) {
    const struct {
        USHORT features;
        VARTYPE type;
    } cases[] = {{FADF_BSTR, VT_BSTR}, {FADF_VARIANT, VT_VARIANT}, {FADF_DISPATCH, VT_DISPATCH}, {FADF_UNKNOWN, VT_UNKNOWN}};
    for (const auto& [features, type] : cases) {
        SAFEARRAY array{};
        array.fFeatures = features;
        VARTYPE result = 0;
        EXPECT_EQ(SafeArrayGetVartype(&array, &result), S_OK);
        EXPECT_EQ(result, type);
    }
}

TEST(SafeArray, LocksHoldIt) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, 2);
    PVOID data = nullptr;
    EXPECT_EQ(SafeArrayUnlock(array), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayLock(array), S_OK);
    EXPECT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(data, array->pvData);
    EXPECT_EQ(array->cLocks, 2u);
    SAFEARRAYBOUND bound{5, 0};
    EXPECT_EQ(SafeArrayRedim(array, &bound), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayDestroyData(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayDestroyDescriptor(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    LONG index = 1;
    EXPECT_EQ(SafeArrayPutElement(array, &index, String(u"one").get()), S_OK) << "elements may change";
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
    EXPECT_EQ(SafeArrayDestroy(copy), S_OK) << "a copy has no locks";
    array->cLocks = std::numeric_limits<ULONG>::max();
    EXPECT_EQ(SafeArrayLock(array), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayAccessData(array, &data), E_UNEXPECTED);
    EXPECT_EQ(data, nullptr);
    array->cLocks = 0;
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, RefusesNullPointers) {
    LONG number = 0;
    PVOID data = nullptr;
    VARTYPE type = 0;
    SAFEARRAYBOUND bound{1, 0};
    SAFEARRAY* copy = reinterpret_cast<SAFEARRAY*>(&number);
    GUID id{};
    IRecordInfo* info = nullptr;
    EXPECT_EQ(SafeArrayGetDim(nullptr), 0u);
    EXPECT_EQ(SafeArrayGetElemsize(nullptr), 0u);
    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
    EXPECT_EQ(SafeArrayDestroyDescriptor(nullptr), S_OK);
    EXPECT_EQ(SafeArrayCopy(nullptr, &copy), S_OK) << "nothing copied is nothing";
    EXPECT_EQ(copy, nullptr);
    const ArrayOwner array = newArray(VT_I4, {{1, 0}});
    const HRESULT statuses[] = {
        SafeArrayDestroyData(nullptr),
        SafeArrayAllocData(nullptr),
        SafeArrayCopy(array.get(), nullptr),
        SafeArrayCopyData(nullptr, array.get()),
        SafeArrayCopyData(array.get(), nullptr),
        SafeArrayRedim(nullptr, &bound),
        SafeArrayRedim(array.get(), nullptr),
        SafeArrayGetLBound(nullptr, 1, &number),
        SafeArrayGetLBound(array.get(), 1, nullptr),
        SafeArrayGetUBound(nullptr, 1, &number),
        SafeArrayGetUBound(array.get(), 1, nullptr),
        SafeArrayGetVartype(nullptr, &type),
        SafeArrayGetVartype(array.get(), nullptr),
        SafeArrayLock(nullptr),
        SafeArrayUnlock(nullptr),
        SafeArrayAccessData(nullptr, &data),
        SafeArrayAccessData(array.get(), nullptr),
        SafeArrayUnaccessData(nullptr),
        SafeArrayGetElement(nullptr, &number, &number),
        SafeArrayGetElement(array.get(), nullptr, &number),
        SafeArrayGetElement(array.get(), &number, nullptr),
        SafeArrayPutElement(nullptr, &number, &number),
        SafeArrayPutElement(array.get(), nullptr, &number),
        SafeArrayPutElement(array.get(), &number, nullptr),
        SafeArrayPtrOfIndex(nullptr, &number, &data),
        SafeArrayPtrOfIndex(array.get(), nullptr, &data),
        SafeArrayPtrOfIndex(array.get(), &number, nullptr),
        SafeArraySetRecordInfo(nullptr, nullptr),
        SafeArraySetRecordInfo(array.get(), nullptr),
        SafeArrayGetRecordInfo(nullptr, &info),
        SafeArrayGetRecordInfo(array.get(), &info),
        SafeArraySetIID(nullptr, id),
        SafeArraySetIID(array.get(), id),
        SafeArrayGetIID(nullptr, &id),
        SafeArrayGetIID(array.get(), &id),
    };
    for (std::size_t call = 0; call < std::size(statuses); ++call) {
        EXPECT_EQ(statuses[call], E_INVALIDARG) << "call " << call;
    }
    EXPECT_EQ(array->cLocks, 0u);
}

TEST(SafeArray, InterfacesAndRecords) {
    const ArrayOwner objects = newArray(VT_DISPATCH, {{1, 0}});
    GUID id{};
    EXPECT_EQ(SafeArrayGetIID(objects.get(), &id), S_OK);
    EXPECT_EQ(id, IID_IDispatch);
    GUID wanted = IID_IErrorInfo;
    EXPECT_EQ(SafeArraySetIID(objects.get(), wanted), S_OK);
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(objects.get(), &copy), S_OK);
    EXPECT_EQ(SafeArrayGetIID(copy, &id), S_OK);
    EXPECT_EQ(id, wanted);
    SafeArrayDestroy(copy);
    const ArrayOwner named = newArray(VT_UNKNOWN, {{1, 0}}, &wanted);
    EXPECT_EQ(SafeArrayGetIID(named.get(), &id), S_OK);
    EXPECT_EQ(id, wanted);

    const Ref<EntryInfo> first = entryInfo();
    const Ref<EntryInfo> second = entryInfo();
    ArrayOwner entries = newArray(VT_RECORD, {{0, 0}}, static_cast<IRecordInfo*>(first.get()));
    Ref<IRecordInfo> info;
    EXPECT_EQ(SafeArrayGetRecordInfo(entries.get(), info.out()), S_OK);
    EXPECT_EQ(info.get(), first.get());
    EXPECT_EQ(references(first.get()), 3u);
    EXPECT_EQ(SafeArraySetRecordInfo(entries.get(), second.get()), S_OK);
    EXPECT_EQ(references(first.get()), 2u);
    EXPECT_EQ(references(second.get()), 2u);
    entries.reset();
    EXPECT_EQ(references(second.get()), 1u);
}

} // namespace
