#include "automation/typelib/library.h"
#include "dispatch_support.h"
#include "sample_library.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace mox {
namespace {

using namespace sample;

struct RecordInfoTest : testing::Test {
    RecordInfoTest() {
        typelib::addLibrary(sampleLibrary);
        info = recordInfo<SampleRecord>();
        record.Name = u"first";
        record.Values = {1, 2, 3};
        record.Position = {4, 5};
        record.Visible = True;
        record.Kind = kindSquare;
        record.Anything = Long{9};
        record.Object = makeSample();
        record.Corners = {SamplePoint{1, 2}};
        record.Colour = 255;
    }
    ~RecordInfoTest() override {
        record = {};
        info = nullptr;
        EXPECT_EQ(sampleState.locks, 0);
        typelib::removeLibrary(sampleLibrary);
        typelib::removeLibrary(otherLibrary);
    }
    Variant get(const char16_t* field) {
        Variant value;
        EXPECT_EQ(info->GetField(&record, field, &value), S_OK);
        return value;
    }
    HRESULT put(const char16_t* field, Variant value, ULONG flags = INVOKE_PROPERTYPUTREF) {
        return info->PutField(flags, &record, field, &value);
    }

    Ref<IRecordInfo> info;
    SampleRecord record;
};

TEST_F(RecordInfoTest, describesItsType) {
    GUID id{};
    String name;
    ULONG size = 0;
    Ref<ITypeInfo> type;
    EXPECT_EQ(info->GetGuid(&id), S_OK);
    EXPECT_EQ(id, recordType.id);
    EXPECT_EQ(info->GetName(name.out()), S_OK);
    EXPECT_EQ(name, u"SampleRecord");
    EXPECT_EQ(info->GetSize(&size), S_OK);
    EXPECT_EQ(size, sizeof(SampleRecord));
    EXPECT_EQ(info->GetTypeInfo(type.out()), S_OK);
    Ref<IRecordInfo> back;
    EXPECT_EQ(GetRecordInfoFromTypeInfo(type.get(), back.out()), S_OK);
    EXPECT_EQ(back, info);
    EXPECT_EQ(info->GetGuid(nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetName(nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetSize(nullptr), E_INVALIDARG);
}

TEST_F(RecordInfoTest, namesItsFields) {
    ULONG count = 0;
    ASSERT_EQ(info->GetFieldNames(&count, nullptr), S_OK);
    ASSERT_EQ(count, 9u);
    for (const ULONG places : {9u, 2u, 20u}) {
        std::vector<String> names(places);
        count = places;
        ASSERT_EQ(info->GetFieldNames(&count, reinterpret_cast<BSTR*>(names.data())), S_OK);
        EXPECT_EQ(count, std::min(places, ULONG{9}));
        EXPECT_EQ(names[0], u"Name");
        EXPECT_EQ(names[1], u"Values");
        EXPECT_EQ(names[count - 1], count == 2 ? u"Values" : u"Colour");
    }
    EXPECT_EQ(info->GetFieldNames(nullptr, nullptr), E_INVALIDARG);
}

TEST_F(RecordInfoTest, matchesRecordsOfTheSameType) {
    EXPECT_EQ(info->IsMatchingType(recordInfo<SampleRecord>().get()), 1);
    EXPECT_EQ(info->IsMatchingType(recordInfo<SamplePoint>().get()), 0);
    EXPECT_EQ(info->IsMatchingType(nullptr), 0);
}

TEST_F(RecordInfoTest, getsFieldsAsCopies) {
    EXPECT_EQ(get(u"name").as<String>(), u"first");
    EXPECT_EQ(get(u"COLOUR").as<Long>(), 255);
    const Variant visible = get(u"Visible");
    EXPECT_EQ(visible.vt, VT_BOOL);
    EXPECT_EQ(visible.boolVal, VARIANT_TRUE);
    const Variant kind = get(u"Kind");
    EXPECT_EQ(kind.vt, VT_I4);
    EXPECT_EQ(kind.lVal, kindSquare);
    const Variant position = get(u"Position");
    ASSERT_EQ(position.vt, VT_RECORD);
    EXPECT_EQ(*static_cast<SamplePoint*>(position.pvRecord), (SamplePoint{4, 5}));
    EXPECT_NE(position.pvRecord, &record.Position);
    const Variant values = get(u"Values");
    ASSERT_EQ(values.vt, VT_ARRAY | VT_I4);
    EXPECT_EQ(values.as<Array<Long>>().size(), 3);
    EXPECT_NE(values.parray, record.Values.get());
    EXPECT_EQ(get(u"Corners").vt, VT_ARRAY | VT_RECORD);
    EXPECT_EQ(get(u"Anything").vt, VT_I4);
    EXPECT_EQ(get(u"Object").pdispVal, record.Object.get());
}

TEST_F(RecordInfoTest, givesReferencesOntoFields) {
    struct Case {
        const char16_t* field;
        VARTYPE type;
        const void* place;
    };
    const Case cases[]{
        {u"Name", VT_BSTR, &record.Name},
        {u"Values", VT_ARRAY | VT_I4, &record.Values},
        {u"Position", VT_RECORD, &record.Position},
        {u"Visible", VT_BOOL, &record.Visible},
        {u"Kind", VT_I4, &record.Kind},
        {u"Anything", VT_VARIANT, &record.Anything},
        {u"Object", VT_DISPATCH, &record.Object},
        {u"Corners", VT_ARRAY | VT_RECORD, &record.Corners},
        {u"Colour", VT_I4, &record.Colour},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(utf8FromUtf16(test.field));
        VARIANT reference{};
        void* data = this;
        ASSERT_EQ(info->GetFieldNoCopy(&record, test.field, &reference, &data), S_OK);
        EXPECT_EQ(reference.vt, VT_BYREF | test.type);
        EXPECT_EQ(reference.byref, test.place);
        EXPECT_EQ(data, nullptr);
        if (test.type == VT_RECORD) {
            EXPECT_EQ(reference.pRecInfo, recordInfo<SamplePoint>().get());
        }
        EXPECT_EQ(VariantClear(&reference), S_OK);
    }
    EXPECT_EQ(sampleState.locks,
              3); // of this description, of the object, and of the corners: references onto fields hold nothing
}

TEST_F(RecordInfoTest, putsFieldsWithConversion) {
    EXPECT_EQ(put(u"NAME", Long{12}), S_OK);
    EXPECT_EQ(record.Name, u"12");
    EXPECT_EQ(put(u"Visible", Long{0}), S_OK);
    EXPECT_EQ(record.Visible, False);
    EXPECT_EQ(put(u"Visible", Long{7}), S_OK);
    EXPECT_EQ(record.Visible, True);
    EXPECT_EQ(put(u"Kind", String(u"1")), S_OK);
    EXPECT_EQ(record.Kind, kindRound);
    EXPECT_EQ(put(u"Colour", Double{2.5}), S_OK);
    EXPECT_EQ(record.Colour, 2);
    EXPECT_EQ(put(u"Position", SamplePoint{8, 9}), S_OK);
    EXPECT_EQ(record.Position, (SamplePoint{8, 9}));
    EXPECT_EQ(put(u"Anything", String(u"text")), S_OK);
    EXPECT_EQ(record.Anything.as<String>(), u"text");
    const Array<Long> values{7};
    EXPECT_EQ(put(u"Values", values), S_OK);
    EXPECT_EQ(record.Values.size(), 1);
    EXPECT_NE(record.Values.get(), values.get());
    const Ref<IDispatch> object = makeSample();
    EXPECT_EQ(put(u"Object", object), S_OK);
    EXPECT_EQ(record.Object, object);
    EXPECT_EQ(put(u"Object", Ref<IDispatch>()), S_OK);
    EXPECT_FALSE(record.Object);
    Long source = 31;
    EXPECT_EQ(put(u"Colour", test::byRef(source)), S_OK); // a reference gives its value
    EXPECT_EQ(record.Colour, 31);
    EXPECT_EQ(put(u"Colour", Long{32}, INVOKE_PROPERTYPUT), S_OK);
    EXPECT_EQ(record.Colour, 32);
}

TEST_F(RecordInfoTest, refusesWhatDoesNotFitAndKeepsTheField) {
    struct Case {
        const char16_t* field;
        Variant value;
        ULONG flags;
        HRESULT status;
    };
    const Case cases[]{
        {u"Nowhere", Long{1}, INVOKE_PROPERTYPUT, TYPE_E_FIELDNOTFOUND},
        {u"Colour", String(u"blue"), INVOKE_PROPERTYPUT, DISP_E_TYPEMISMATCH},
        {u"Colour", Double{1e10}, INVOKE_PROPERTYPUT, DISP_E_OVERFLOW},
        {u"Colour", Long{1}, INVOKE_FUNC, E_INVALIDARG},
        {u"Position", Long{1}, INVOKE_PROPERTYPUT, DISP_E_TYPEMISMATCH},
        {u"Position", SampleRecord{}, INVOKE_PROPERTYPUT, DISP_E_TYPEMISMATCH},
        {u"Values", Array<Integer>{1}, INVOKE_PROPERTYPUT, DISP_E_TYPEMISMATCH},
        {u"Values", Long{1}, INVOKE_PROPERTYPUT, DISP_E_TYPEMISMATCH},
        {u"Corners", Array<SampleRecord>(0, 1), INVOKE_PROPERTYPUT, DISP_E_TYPEMISMATCH},
        {u"Object", Long{1}, INVOKE_PROPERTYPUTREF, DISP_E_TYPEMISMATCH},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(utf8FromUtf16(test.field));
        Variant value = test.value;
        EXPECT_EQ(info->PutField(test.flags, &record, test.field, &value), test.status);
    }
    EXPECT_EQ(record.Colour, 255);
    EXPECT_EQ(record.Position, (SamplePoint{4, 5}));
    EXPECT_EQ(record.Values.size(), 3);
    EXPECT_EQ(record.Corners.size(), 1);
    EXPECT_TRUE(record.Object);

    SafeArrayLock(record.Values.get());
    EXPECT_EQ(put(u"Values", Array<Long>{1}), DISP_E_ARRAYISLOCKED);
    SafeArrayUnlock(record.Values.get());
    EXPECT_EQ(record.Values.size(), 3);

    Variant value;
    EXPECT_EQ(info->GetField(&record, u"Nowhere", &value), TYPE_E_FIELDNOTFOUND);
    EXPECT_EQ(info->GetField(nullptr, u"Name", &value), E_INVALIDARG);
    EXPECT_EQ(info->GetField(&record, nullptr, &value), E_INVALIDARG);
    EXPECT_EQ(info->GetField(&record, u"Name", nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetFieldNoCopy(&record, u"Name", nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->PutField(INVOKE_PROPERTYPUT, &record, u"Name", nullptr), E_INVALIDARG);
    EXPECT_EQ(info->PutFieldNoCopy(INVOKE_PROPERTYPUT, nullptr, u"Name", &value), E_INVALIDARG);
}

TEST_F(RecordInfoTest, putsByValueLikeAnAssignmentWithoutSet) {
    // The value goes to the default property of the object in the field; that of Sample is its name.
    const Ref<IDispatch> present = record.Object;
    EXPECT_EQ(put(u"Object", Long{1}, INVOKE_PROPERTYPUT), S_OK);
    EXPECT_EQ(record.Object, present);
    EXPECT_EQ(test::invoke(*present, DISPID_VALUE, DISPATCH_PROPERTYGET, {}).result.as<String>(), u"1");
    record.Object = nullptr;
    EXPECT_EQ(put(u"Object", Ref<IDispatch>(makeSample()), INVOKE_PROPERTYPUT), E_INVALIDARG);
    // A variant gets the default property of the object instead of the object.
    const Ref<ISample> named = makeSample();
    ASSERT_EQ(named->put_Name(String(u"default").get()), S_OK);
    EXPECT_EQ(put(u"Anything", Ref<IDispatch>(named), INVOKE_PROPERTYPUT), S_OK);
    EXPECT_EQ(record.Anything.vt, VT_BSTR);
    EXPECT_EQ(record.Anything.as<String>(), u"default");
    EXPECT_EQ(put(u"Anything", Ref<IDispatch>(named), INVOKE_PROPERTYPUTREF), S_OK);
    EXPECT_EQ(record.Anything.vt, VT_DISPATCH);
}

TEST_F(RecordInfoTest, movesWithoutCopying) {
    Array<Long> values{5, 6};
    SAFEARRAY* const array = values.get();
    Variant given;
    given.vt = VT_ARRAY | VT_I4;
    given.parray = values.detach();
    EXPECT_EQ(info->PutFieldNoCopy(INVOKE_PROPERTYPUTREF, &record, u"Values", &given), S_OK);
    EXPECT_TRUE(given.empty());
    EXPECT_EQ(record.Values.get(), array);

    Variant text = String(u"moved");
    const BSTR characters = text.bstrVal;
    EXPECT_EQ(info->PutFieldNoCopy(INVOKE_PROPERTYPUT, &record, u"Name", &text), S_OK);
    EXPECT_EQ(record.Name.get(), characters);

    Variant point = SamplePoint{1, 1};
    EXPECT_EQ(info->PutFieldNoCopy(INVOKE_PROPERTYPUT, &record, u"Position", &point), S_OK);
    EXPECT_EQ(record.Position, (SamplePoint{1, 1}));
    EXPECT_TRUE(point.empty());

    Variant anything = String(u"any");
    EXPECT_EQ(info->PutFieldNoCopy(INVOKE_PROPERTYPUT, &record, u"Anything", &anything), S_OK);
    EXPECT_EQ(record.Anything.as<String>(), u"any");
    EXPECT_TRUE(anything.empty());

    Variant object = Ref<IDispatch>(makeSample());
    IDispatch* const moved = object.pdispVal;
    EXPECT_EQ(info->PutFieldNoCopy(INVOKE_PROPERTYPUTREF, &record, u"Object", &object), S_OK);
    EXPECT_EQ(record.Object.get(), moved);

    Variant wrong = String(u"12");
    EXPECT_EQ(info->PutFieldNoCopy(INVOKE_PROPERTYPUT, &record, u"Colour", &wrong), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong.as<String>(), u"12"); // still the caller's
    Variant otherRecord = SampleRecord{};
    EXPECT_EQ(info->PutFieldNoCopy(INVOKE_PROPERTYPUT, &record, u"Position", &otherRecord), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(otherRecord.vt, VT_RECORD);
}

TEST_F(RecordInfoTest, makesCopiesAndEndsValues) {
    void* const made = info->RecordCreate();
    ASSERT_TRUE(made);
    EXPECT_TRUE(static_cast<SampleRecord*>(made)->Name.empty());
    EXPECT_EQ(info->RecordCopy(&record, made), S_OK);
    EXPECT_EQ(static_cast<SampleRecord*>(made)->Name, u"first");
    EXPECT_NE(static_cast<SampleRecord*>(made)->Values.get(), record.Values.get());
    EXPECT_EQ(info->RecordClear(made), S_OK);
    EXPECT_TRUE(static_cast<SampleRecord*>(made)->Name.empty());
    EXPECT_FALSE(static_cast<SampleRecord*>(made)->Object);
    EXPECT_EQ(info->RecordDestroy(made), S_OK);

    void* copy = nullptr;
    ASSERT_EQ(info->RecordCreateCopy(&record, &copy), S_OK);
    EXPECT_EQ(static_cast<SampleRecord*>(copy)->Position, record.Position);
    EXPECT_EQ(static_cast<SampleRecord*>(copy)->Object, record.Object);
    EXPECT_EQ(info->RecordDestroy(copy), S_OK);

    alignas(SampleRecord) std::byte raw[sizeof(SampleRecord)];
    std::memset(raw, 0xCC, sizeof raw); // RecordInit takes memory as it comes
    ASSERT_EQ(info->RecordInit(raw), S_OK);
    auto* const value = std::launder(reinterpret_cast<SampleRecord*>(raw));
    EXPECT_TRUE(value->Name.empty());
    value->Name = u"text";
    std::destroy_at(value);

    EXPECT_EQ(info->RecordInit(nullptr), E_INVALIDARG);
    EXPECT_EQ(info->RecordClear(nullptr), E_INVALIDARG);
    EXPECT_EQ(info->RecordCopy(&record, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->RecordCreateCopy(nullptr, &copy), E_INVALIDARG);
    EXPECT_EQ(info->RecordDestroy(nullptr), E_INVALIDARG);
}

TEST_F(RecordInfoTest, servesVariantsAndArrays) {
    Variant first = record;
    const Variant second = first;
    ASSERT_EQ(second.vt, VT_RECORD);
    EXPECT_NE(second.pvRecord, first.pvRecord);
    EXPECT_EQ(first.as<SampleRecord>().Name, u"first");

    Array<SampleRecord> array{record, record};
    array[1].Name = u"second";
    const Array<SampleRecord> copy = array;
    EXPECT_EQ(copy[0].Name, u"first");
    EXPECT_EQ(copy[1].Name, u"second");
    EXPECT_NE(copy[0].Values.get(), array[0].Values.get());
    array.redimPreserve(0);
    EXPECT_EQ(array.size(), 1);
    EXPECT_EQ(array[0].Name, u"first");
}

} // namespace
} // namespace mox
