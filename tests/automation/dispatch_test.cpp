#include "automation/objects/runtimeerror.h"
#include "dispatch_support.h"
#include "sample_library.h"

#include <gtest/gtest.h>

#include <cstring>

namespace mox {
namespace {

using namespace sample;
using test::byRef;
using test::DispatchTest;
using test::invoke;
using test::Named;
using test::Outcome;

Variant changedType(Variant value, VARTYPE type) {
    EXPECT_EQ(VariantChangeType(&value, &value, 0, type), S_OK);
    return value;
}

TEST_F(DispatchTest, findsIdentifiersWithoutRegardToCase) {
    struct Case {
        std::vector<std::u16string> names;
        HRESULT status;
        std::vector<DISPID> ids;
    };
    const Case cases[]{
        {{u"MinMax"}, S_OK, {minMaxId}},
        {{u"MINMAX", u"maxvalue", u"LONGVALUE"}, S_OK, {minMaxId, 2, 0}},
        {{u"Cell", u"Column", u"Value"}, S_OK, {cellId, 1, 2}}, // the value is an argument of the Let only
        {{u"_NewEnum"}, S_OK, {DISPID_NEWENUM}},
        {{u"MinMa"}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}},
        {{u"MinMaxi"}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}},
        {{u""}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}},
        {{u"Nowhere", u"LongValue"}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN, DISPID_UNKNOWN}},
        {{u"MinMax", u"Nowhere", u"MinValue"}, DISP_E_UNKNOWNNAME, {minMaxId, DISPID_UNKNOWN, 1}},
    };
    for (const Case& test : cases) {
        std::vector<std::u16string> names = test.names;
        std::vector<LPOLESTR> pointers;
        for (std::u16string& name : names) {
            pointers.push_back(name.data());
        }
        std::vector<DISPID> ids(names.size(), 77);
        EXPECT_EQ(object->GetIDsOfNames(GUID_NULL, pointers.data(), static_cast<UINT>(names.size()), 0, ids.data()), test.status);
        EXPECT_EQ(ids, test.ids) << utf8FromUtf16(names[0]);
    }
    std::u16string name = u"MinMax";
    LPOLESTR pointer = name.data();
    DISPID id = 0;
    EXPECT_EQ(object->GetIDsOfNames(IID_IDispatch, &pointer, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->GetIDsOfNames(GUID_NULL, nullptr, 1, 0, &id), E_INVALIDARG);
}

TEST_F(DispatchTest, putsArgumentsInTheirPlaces) {
    const Variant missing = Variant::missing();
    struct Case {
        const char* what;
        std::vector<Variant> arguments;
        std::vector<Named> named;
        HRESULT status;
        Long result;
        UINT badArgument;
    };
    const Case cases[]{
        {"all by position", {Long{50}, Long{10}, Long{20}}, {}, S_OK, 20, 99},
        {"defaults", {Long{500}}, {}, S_OK, 100, 99},
        {"a default for one left out", {Long{-5}, missing, Long{20}}, {}, S_OK, 0, 99},
        {"named over a gap", {Long{500}}, {{2, Long{60}}}, S_OK, 60, 99},
        {"all named, out of order", {}, {{2, Long{9}}, {0, Long{50}}, {1, Long{1}}}, S_OK, 9, 99},
        {"a named one left out", {Long{500}}, {{2, missing}}, S_OK, 100, 99},
        {"nothing for a required one", {}, {}, DISP_E_PARAMNOTOPTIONAL, 0, 0},
        {"left out though required", {missing, Long{1}}, {}, DISP_E_PARAMNOTOPTIONAL, 0, 0},
        {"required one not among the named", {}, {{1, Long{1}}}, DISP_E_PARAMNOTOPTIONAL, 0, 0},
        {"too many", {Long{1}, Long{2}, Long{3}, Long{4}}, {}, DISP_E_BADPARAMCOUNT, 0, 99},
        {"the same by name and by position", {Long{1}}, {{0, Long{1}}}, DISP_E_PARAMNOTFOUND, 0, 0},
        {"the same name twice", {Long{1}}, {{2, Long{1}}, {2, Long{2}}}, DISP_E_PARAMNOTFOUND, 0, 1},
        {"a name that is none", {Long{1}}, {{3, Long{1}}}, DISP_E_PARAMNOTFOUND, 0, 0},
        {"a negative name", {Long{1}}, {{-7, Long{1}}}, DISP_E_PARAMNOTFOUND, 0, 0},
        {"a method marked as a put", {}, {{DISPID_PROPERTYPUT, Long{1}}}, DISP_E_PARAMNOTFOUND, 0, 0},
        {"wrong type by position", {Long{1}, String(u"x"), Long{2}}, {}, DISP_E_TYPEMISMATCH, 0, 1},
        {"wrong type first", {String(u"x"), Long{1}, Long{2}}, {}, DISP_E_TYPEMISMATCH, 0, 2},
        {"wrong type by name", {Long{1}}, {{2, String(u"x")}}, DISP_E_TYPEMISMATCH, 0, 0},
        {"too large", {Double{3e9}}, {}, DISP_E_OVERFLOW, 0, 0},
        {"converted", {String(u"7"), Double{2.5}, Boolean(true)}, {}, S_OK, 2, 99}, // ties go to the even one
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.what);
        Outcome outcome = method(minMaxId, test.arguments, test.named);
        EXPECT_EQ(outcome.status, test.status);
        if (SUCCEEDED(test.status)) {
            EXPECT_EQ(outcome.result.vt, VT_I4);
            EXPECT_EQ(outcome.result.lVal, test.result);
        } else {
            EXPECT_TRUE(outcome.result.empty());
        }
        // A count says nothing of a single argument.
        EXPECT_EQ(outcome.badArgument, test.status == DISP_E_BADPARAMCOUNT ? 0 : test.badArgument);
    }
}

TEST_F(DispatchTest, suppliesDefaultsOfEveryType) {
    const std::pair<std::vector<Variant>, const char16_t*> cases[]{
        {{String(u"t")}, u"t! upper 1.50 2 nothing missing"},
        {{String(u"t"), String(u"?"), Boolean(false), Single{2}, Long{1}, Ref<IDispatch>(object), Long{7}},
         u"t? lower 2.00 1 object 7"},
        {{String(u"t"), Variant::missing(), Variant::missing(), Variant::missing(), Variant::missing(), Variant::missing(),
          String(u"x")},
         u"t! upper 1.50 2 nothing x"},
    };
    for (const auto& [arguments, result] : cases) {
        EXPECT_EQ(method(describeId, arguments).result.as<String>(), result);
    }
    EXPECT_EQ(method(describeId, {String(u"t")}, {{4, Long{kindRound}}}).result.as<String>(), u"t! upper 1.50 1 nothing missing");
}

TEST_F(DispatchTest, givesResultsOfAllKinds) {
    struct Case {
        DISPID id;
        Variant given;
        VARTYPE type;
        const char16_t* text;
    };
    const Case cases[]{
        {echoByteId, Byte{200}, VT_UI1, u"200"},
        {echoIntegerId, Integer{-7}, VT_I2, u"-7"},
        {echoSingleId, Single{0.5f}, VT_R4, u"0.5"},
        {echoDoubleId, Double{0.25}, VT_R8, u"0.25"},
        {echoCurrencyId, Currency{12500}, VT_CY, u"1.25"},
        {echoStringId, String(u"text"), VT_BSTR, u"text"},
        {echoStringId, String(), VT_BSTR, u""},
        {echoStringId, Long{12}, VT_BSTR, u"12"},
        {echoKindId, Long{2}, VT_I4, u"2"},
        {echoVariantId, Integer{3}, VT_I2, u"3"},
        {echoVariantId, String(u"x"), VT_BSTR, u"x"},
        {echoIntegerId, String(u"12"), VT_I2, u"12"},
        {echoSingleId, Long{3}, VT_R4, u"3"},
    };
    for (const Case& test : cases) {
        const Outcome outcome = method(test.id, {test.given});
        EXPECT_EQ(outcome.status, S_OK);
        EXPECT_EQ(outcome.result.vt, test.type);
        EXPECT_EQ(changedType(outcome.result, VT_BSTR).as<String>(), test.text);
        EXPECT_EQ(invoke(*object, test.id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {test.given}).status, S_OK);
    }
    EXPECT_EQ(method(echoBooleanId, {Long{5}}).result.boolVal, VARIANT_TRUE);
    EXPECT_EQ(method(echoDateId, {Date{2.5}}).result.date, 2.5);
    EXPECT_EQ(method(echoVariantId, {}).status, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(method(echoByteId, {Long{256}}).status, DISP_E_OVERFLOW);

    const Outcome echoed = method(echoObjectId, {Ref<IDispatch>(object)});
    EXPECT_EQ(echoed.result.vt, VT_DISPATCH);
    EXPECT_EQ(echoed.result.pdispVal, object.get());
    EXPECT_EQ(method(echoObjectId, {Ref<IDispatch>()}).result.pdispVal, nullptr);
    EXPECT_EQ(method(echoObjectId, {Variant(Ref<IUnknown>(object.get()))}).status, S_OK);
    EXPECT_EQ(method(echoObjectId, {get(itemsId).result}).status, DISP_E_TYPEMISMATCH); // an object, but of another class
    EXPECT_EQ(method(echoObjectId, {Long{1}}).status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(get(DISPID_NEWENUM).result.vt, VT_UNKNOWN);

    SampleRecord record;
    record.Corners = {SamplePoint{1, 2}, SamplePoint{3, 4}};
    const Outcome corners = method(cornersId, {record});
    ASSERT_EQ(corners.result.vt, VT_ARRAY | VT_RECORD);
    EXPECT_EQ(corners.result.as<Array<SamplePoint>>()[1], (SamplePoint{3, 4}));
    EXPECT_EQ(method(cornersId, {SamplePoint{}}).status, DISP_E_TYPEMISMATCH);

    // Nobody has to want the result.
    Variant text = String(u"unwanted");
    DISPPARAMS parameters{&text, nullptr, 1, 0};
    EXPECT_EQ(object->Invoke(echoStringId, GUID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(DispatchTest, getsAndPutsProperties) {
    EXPECT_EQ(put(nameId, String(u"new")).status, S_OK);
    EXPECT_EQ(get(nameId).result.as<String>(), u"new");
    EXPECT_EQ(put(nameId, Long{5}).status, S_OK);
    EXPECT_EQ(get(nameId).result.as<String>(), u"5");
    EXPECT_EQ(put(cellId, Long{42}, DISPATCH_PROPERTYPUT, {Long{1}, Long{2}}).status, S_OK);
    EXPECT_EQ(get(cellId, {Long{1}, Long{2}}).result.as<Long>(), 42);
    EXPECT_EQ(get(cellId, {Long{2}, Long{1}}).result.as<Long>(), 0);
    EXPECT_EQ(invoke(*object, cellId, DISPATCH_PROPERTYPUT, {Long{1}}, {{DISPID_PROPERTYPUT, Long{8}}, {1, Long{3}}}).status,
              S_OK);
    EXPECT_EQ(get(cellId, {Long{1}, Long{3}}).result.as<Long>(), 8);

    // Let keeps a value, Set marks a reference.
    EXPECT_EQ(put(anythingId, Long{1}).status, S_OK);
    EXPECT_EQ(get(anythingId).result.vt, VT_I4);
    EXPECT_EQ(put(anythingId, Ref<IDispatch>(get(itemsId).result.pdispVal), DISPATCH_PROPERTYPUTREF).status, S_OK);
    EXPECT_EQ(get(anythingId).result.vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(put(anythingId, Ref<IDispatch>(get(itemsId).result.pdispVal)).status, S_OK);
    EXPECT_EQ(get(anythingId).result.vt, VT_DISPATCH);
    // With both flags the value decides.
    const WORD both = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
    EXPECT_EQ(put(anythingId, Long{1}, both).status, S_OK);
    EXPECT_EQ(get(anythingId).result.vt, VT_I4);
    EXPECT_EQ(put(anythingId, Ref<IDispatch>(), both).status, S_OK);
    EXPECT_EQ(get(anythingId).result.vt, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(put(anythingId, Variant()).status, S_OK);
}

TEST_F(DispatchTest, refusesCallsThatDoNotFit) {
    struct Case {
        const char* what;
        DISPID id;
        WORD flags;
        std::vector<Variant> arguments;
        std::vector<Named> named;
        HRESULT status;
    };
    const Case cases[]{
        {"no such member", 1000, DISPATCH_METHOD, {}, {}, DISP_E_MEMBERNOTFOUND},
        {"no such negative member", -5, DISPATCH_METHOD, {}, {}, DISP_E_MEMBERNOTFOUND},
        {"a method as a property", addId, DISPATCH_PROPERTYGET, {Long{1}, Long{2}}, {}, DISP_E_MEMBERNOTFOUND},
        {"a property as a method", nameId, DISPATCH_METHOD, {}, {}, DISP_E_MEMBERNOTFOUND},
        {"no flags", addId, 0, {Long{1}, Long{2}}, {}, DISP_E_MEMBERNOTFOUND},
        {"a put of what can only be got",
         itemsId,
         DISPATCH_PROPERTYPUT,
         {},
         {{DISPID_PROPERTYPUT, Long{1}}},
         DISP_E_MEMBERNOTFOUND},
        {"a put whose value is not marked", nameId, DISPATCH_PROPERTYPUT, {String(u"x")}, {}, DISP_E_PARAMNOTFOUND},
        {"a put without a value", nameId, DISPATCH_PROPERTYPUT, {}, {}, DISP_E_PARAMNOTFOUND},
        {"a put with too many arguments",
         nameId,
         DISPATCH_PROPERTYPUT,
         {Long{1}},
         {{DISPID_PROPERTYPUT, Long{1}}},
         DISP_E_BADPARAMCOUNT},
        {"a put with too few arguments",
         cellId,
         DISPATCH_PROPERTYPUT,
         {Long{1}},
         {{DISPID_PROPERTYPUT, Long{1}}},
         DISP_E_PARAMNOTOPTIONAL},
        {"a get with too many arguments", nameId, DISPATCH_PROPERTYGET, {Long{1}}, {}, DISP_E_BADPARAMCOUNT},
        {"a Set of a number", anythingId, DISPATCH_PROPERTYPUTREF, {}, {{DISPID_PROPERTYPUT, Long{1}}}, DISP_E_TYPEMISMATCH},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(invoke(*object, test.id, test.flags, test.arguments, test.named).status, test.status) << test.what;
    }
    DISPPARAMS nothing{};
    Variant argument = Long{1};
    DISPID name = 0;
    DISPPARAMS noArguments{nullptr, nullptr, 1, 0}, noNames{&argument, nullptr, 1, 1}, moreNames{&argument, &name, 0, 1};
    const auto call = [&](REFIID iid, DISPPARAMS* parameters) {
        return object->Invoke(addId, iid, 0, DISPATCH_METHOD, parameters, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(call(IID_IDispatch, &nothing), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(call(GUID_NULL, nullptr), E_INVALIDARG);
    EXPECT_EQ(call(GUID_NULL, &noArguments), E_INVALIDARG);
    EXPECT_EQ(call(GUID_NULL, &noNames), E_INVALIDARG);
    EXPECT_EQ(call(GUID_NULL, &moreNames), E_INVALIDARG);
}

TEST_F(DispatchTest, passesArgumentsOnToTheDefaultMemberOfAnObject) {
    EXPECT_EQ(get(itemsId, {Long{1}}).result.as<String>(), u"beta");
    EXPECT_EQ(invoke(*object, itemsId, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {Long{2}}).result.as<String>(), u"gamma");
    EXPECT_EQ(get(itemsId).result.vt, VT_DISPATCH);
    const Outcome outside = get(itemsId, {Long{3}});
    EXPECT_EQ(outside.status, DISP_E_EXCEPTION);
    EXPECT_EQ(outside.scode, statusOfRuntimeError(errSubscript));
    EXPECT_EQ(outside.source, u"SampleLib.SampleItems");
    EXPECT_EQ(get(itemsId, {Long{1}, Long{2}}).status, DISP_E_BADPARAMCOUNT);
    const Outcome wrong = get(itemsId, {String(u"x")});
    EXPECT_EQ(wrong.status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong.badArgument, 0u);
}

TEST_F(DispatchTest, tellsWhatWentWrongInside) {
    const Outcome failed = method(failId, {Long{6}});
    EXPECT_EQ(failed.status, DISP_E_EXCEPTION);
    EXPECT_EQ(failed.scode, statusOfRuntimeError(6));
    EXPECT_EQ(failed.description, u"Overflow");
    EXPECT_EQ(failed.source, u"SampleLib.Sample");
    EXPECT_TRUE(failed.result.empty());
    Ref<IErrorInfo> pending;
    EXPECT_EQ(GetErrorInfo(0, pending.out()), S_FALSE); // it went into the answer

    // A failure without an error object must not take one over that lay about, and dirty answers are overwritten.
    Ref<ICreateErrorInfo> stale;
    ASSERT_EQ(CreateErrorInfo(stale.out()), S_OK);
    SetErrorInfo(0, stale.as<IErrorInfo>().get());
    Long place = 1;
    VARIANT arguments[2]{};
    arguments[1] = byRef(place);
    arguments[0].vt = VT_I4;
    arguments[0].lVal = E_ABORT;
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    EXCEPINFO exception;
    std::memset(static_cast<void*>(&exception), 0xCC, sizeof exception);
    VARIANT result;
    std::memset(static_cast<void*>(&result), 0xCC, sizeof result);
    EXPECT_EQ(object->Invoke(refuseId, GUID_NULL, 0, DISPATCH_METHOD, &parameters, &result, &exception, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, E_ABORT);
    EXPECT_EQ(exception.wCode, 0);
    EXPECT_EQ(exception.bstrSource, nullptr);
    EXPECT_EQ(exception.bstrDescription, nullptr);
    EXPECT_EQ(exception.bstrHelpFile, nullptr);
    EXPECT_EQ(exception.pfnDeferredFillIn, nullptr);
    EXPECT_EQ(result.vt, VT_EMPTY);
    EXPECT_EQ(place, 77); // what the member did before it failed stays

    arguments[0].lVal = 5;
    DISPPARAMS number{arguments, nullptr, 1, 0};
    EXPECT_EQ(object->Invoke(failId, GUID_NULL, 0, DISPATCH_METHOD, &number, nullptr, nullptr, nullptr), DISP_E_EXCEPTION);
    EXPECT_EQ(GetErrorInfo(0, pending.out()), S_FALSE);
}

TEST_F(DispatchTest, leavesNothingInADirtyResult) {
    VARIANT result;
    std::memset(static_cast<void*>(&result), 0xCC, sizeof result);
    VARIANT argument{};
    argument.vt = VT_BSTR;
    DISPPARAMS wrongCount{&argument, nullptr, 1, 0};
    EXPECT_TRUE(FAILED(object->Invoke(addId, GUID_NULL, 0, DISPATCH_METHOD, &wrongCount, &result, nullptr, nullptr)));
    EXPECT_EQ(result.vt, VT_EMPTY);
    std::memset(static_cast<void*>(&result), 0xCC, sizeof result);
    EXPECT_EQ(object->Invoke(echoStringId, GUID_NULL, 0, DISPATCH_METHOD, &wrongCount, &result, nullptr, nullptr), S_OK);
    EXPECT_EQ(result.vt, VT_BSTR);
    VariantClear(&result);
    std::memset(static_cast<void*>(&result), 0xCC, sizeof result);
    EXPECT_EQ(object->Invoke(1000, GUID_NULL, 0, DISPATCH_METHOD, &wrongCount, &result, nullptr, nullptr), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(result.vt, VT_EMPTY);
}

} // namespace
} // namespace mox
