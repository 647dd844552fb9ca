#include "automation/typelib/dispatch.h"
#include "automation/typelib/library.h"
#include "dispatch_support.h"
#include "sample_library.h"

#include <gtest/gtest.h>

namespace mox {
namespace {

using namespace sample;

struct TypeInfoTest : testing::Test {
    ~TypeInfoTest() override {
        EXPECT_EQ(sampleState.locks, 0);
        EXPECT_EQ(otherState.locks, 0);
        typelib::removeLibrary(sampleLibrary);
        typelib::removeLibrary(otherLibrary);
    }
};

Ref<ITypeInfo> infoOf(const typelib::TypeDescription& type) {
    Ref<ITypeInfo> info;
    EXPECT_EQ(typelib::getTypeInfo(type, info.out()), S_OK);
    return info;
}

/// The same interface slot by slot.
Ref<ITypeInfo> otherViewOf(const Ref<ITypeInfo>& info) {
    HREFTYPE handle = 99;
    EXPECT_EQ(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &handle), S_OK);
    Ref<ITypeInfo> other;
    EXPECT_EQ(info->GetRefTypeInfo(handle, other.out()), S_OK);
    return other;
}

TYPEATTR attributesOf(const Ref<ITypeInfo>& info) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
    const TYPEATTR copy = *attributes;
    info->ReleaseTypeAttr(attributes);
    return copy;
}

std::string nameOf(const Ref<ITypeInfo>& info) {
    String name;
    return info && SUCCEEDED(info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr)) ? name.utf8() : "none";
}

std::string typeText(ITypeInfo& info, const TYPEDESC& type) {
    switch (type.vt) {
    case VT_PTR:
        return "ptr(" + typeText(info, *type.lptdesc) + ")";
    case VT_SAFEARRAY:
        return "array(" + typeText(info, *type.lptdesc) + ")";
    case VT_USERDEFINED: {
        Ref<ITypeInfo> target;
        EXPECT_EQ(info.GetRefTypeInfo(type.hreftype, target.out()), S_OK);
        return nameOf(target);
    }
    default:
        return std::to_string(type.vt);
    }
}

/// A function as "kind id result name(type argument flags, ...)".
std::string signature(ITypeInfo& info, UINT index) {
    FUNCDESC* function = nullptr;
    EXPECT_EQ(info.GetFuncDesc(index, &function), S_OK);
    BSTR names[10]{};
    UINT count = 0;
    EXPECT_EQ(info.GetNames(function->memid, names, 10, &count), S_OK);
    std::vector<String> owned;
    for (UINT i = 0; i < count; ++i) {
        owned.push_back(String::attach(names[i]));
    }
    std::string text = std::to_string(function->invkind) + " " + std::to_string(function->memid) + " " +
                       typeText(info, function->elemdescFunc.tdesc) + " " + owned[0].utf8() + "(";
    for (SHORT i = 0; i < function->cParams; ++i) {
        const ELEMDESC& argument = function->lprgelemdescParam[i];
        const auto position = static_cast<std::size_t>(i) + 1;
        text += (i ? ", " : "") + typeText(info, argument.tdesc) + " " + (position < count ? owned[position].utf8() : "?") + " " +
                std::to_string(argument.paramdesc.wParamFlags);
    }
    info.ReleaseFuncDesc(function);
    return text + ")";
}

TEST_F(TypeInfoTest, hasTheAttributesOfItsKind) {
    constexpr ULONG pointer = sizeof(void*);
    struct Case {
        const typelib::TypeDescription& type;
        TYPEKIND kind;
        WORD flags, functions, variables, interfaces;
        ULONG size, alignment, table;
    };
    constexpr WORD dual = TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE | TYPEFLAG_FOLEAUTOMATION;
    const Case cases[]{
        {kindType, TKIND_ENUM, 0, 0, 4, 0, 4, 4, 0},
        {pointType, TKIND_RECORD, 0, 0, 2, 0, 8, 4, 0},
        {recordType, TKIND_RECORD, 0, 0, 9, 0, sizeof(SampleRecord), alignof(SampleRecord), 0},
        {colourType, TKIND_ALIAS, 0, 0, 0, 0, 4, 4, 0},
        {sampleInterface, TKIND_DISPATCH, dual, 33, 0, 0, pointer, pointer, 7 * pointer},
        {sampleEvents, TKIND_DISPATCH, TYPEFLAG_FDISPATCHABLE, 2, 0, 0, pointer, pointer, 7 * pointer},
        {sampleClass, TKIND_COCLASS, TYPEFLAG_FCANCREATE, 0, 0, 2, pointer, pointer, 0},
        {itemsClass, TKIND_COCLASS, 0, 0, 0, 1, pointer, pointer, 0},
        {rootClass, TKIND_COCLASS, TYPEFLAG_FCANCREATE | TYPEFLAG_FAPPOBJECT | TYPEFLAG_FPREDECLID, 0, 0, 1, pointer, pointer, 0},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(utf8FromUtf16(test.type.name));
        const TYPEATTR found = attributesOf(infoOf(test.type));
        EXPECT_EQ(found.guid, test.type.id);
        EXPECT_EQ(found.lcid, 1033u);
        EXPECT_EQ(found.wMajorVerNum, 2);
        EXPECT_EQ(found.wMinorVerNum, 3);
        EXPECT_EQ(found.memidConstructor, MEMBERID_NIL);
        EXPECT_EQ(found.memidDestructor, MEMBERID_NIL);
        EXPECT_EQ(found.typekind, test.kind);
        EXPECT_EQ(found.wTypeFlags, test.flags);
        EXPECT_EQ(found.cFuncs, test.functions);
        EXPECT_EQ(found.cVars, test.variables);
        EXPECT_EQ(found.cImplTypes, test.interfaces);
        EXPECT_EQ(found.cbSizeInstance, test.size);
        EXPECT_EQ(found.cbAlignment, test.alignment);
        EXPECT_EQ(found.cbSizeVft, test.table);
    }
    const TYPEATTR slots = attributesOf(otherViewOf(infoOf(sampleInterface)));
    EXPECT_EQ(slots.guid, sampleInterface.id);
    EXPECT_EQ(slots.typekind, TKIND_INTERFACE);
    EXPECT_EQ(slots.wTypeFlags, dual);
    EXPECT_EQ(slots.cbSizeVft, 40 * pointer);
}

TEST_F(TypeInfoTest, describesFunctionsInBothViews) {
    struct Case {
        UINT index;
        const char* dispatch;
        const char* slots;
    };
    const Case cases[]{
        {0, "2 0 8 Name()", "2 0 25 Name(ptr(8) result 10)"},
        {1, "4 0 24 Name(8 ? 1)", "4 0 25 Name(8 result 1)"}, // names are those of the Get
        {4, "8 1 24 Anything(9 ? 1)", "8 1 25 Anything(9 result 1)"},
        {5, "2 2 3 Cell(3 Row 1, 3 Column 1)", "2 2 25 Cell(3 Row 1, 3 Column 1, ptr(3) result 10)"},
        {7, "2 3 ptr(_SampleItems) Items()", "2 3 25 Items(ptr(ptr(_SampleItems)) result 10)"},
        {8, "2 -4 13 _NewEnum()", "2 -4 25 _NewEnum(ptr(13) result 10)"},
        {9, "1 4 3 MinMax(3 LongValue 1, 3 MinValue 49, 3 MaxValue 49)",
         "1 4 25 MinMax(3 LongValue 1, 3 MinValue 49, 3 MaxValue 49, ptr(3) result 10)"},
        {11, "1 6 8 Describe(8 Text 1, 8 Suffix 49, 11 Upper 49, 4 Factor 49, SampleKind Kind 49, 9 Object 49, 12 Extra 17)",
         "1 6 25 Describe(8 Text 1, 8 Suffix 49, 11 Upper 49, 4 Factor 49, SampleKind Kind 49, 9 Object 49, 12 Extra 17, ptr(8) "
         "result 10)"},
        {12, "1 7 24 Swap(ptr(3) A 3, ptr(3) B 3)", "1 7 25 Swap(ptr(3) A 3, ptr(3) B 3)"},
        {16, "1 11 SamplePoint Shift(ptr(SamplePoint) Point 3, 3 Distance 1)",
         "1 11 25 Shift(ptr(SamplePoint) Point 3, 3 Distance 1, ptr(SamplePoint) result 10)"},
        {17, "1 12 24 Extend(ptr(array(3)) Values 3, 3 Upper 1)", "1 12 25 Extend(ptr(array(3)) Values 3, 3 Upper 1)"},
        {18, "1 13 8 Paint(OtherColour Colour 1)", "1 13 25 Paint(OtherColour Colour 1, ptr(8) result 10)"},
        {31, "1 26 ptr(_Sample) EchoObject(ptr(_Sample) Value 1)",
         "1 26 25 EchoObject(ptr(_Sample) Value 1, ptr(ptr(_Sample)) result 10)"},
        {32, "1 27 array(SamplePoint) Corners(ptr(SampleRecord) Of 3)",
         "1 27 25 Corners(ptr(SampleRecord) Of 3, ptr(array(SamplePoint)) result 10)"},
    };
    const Ref<ITypeInfo> dispatch = infoOf(sampleInterface);
    const Ref<ITypeInfo> slots = otherViewOf(dispatch);
    EXPECT_EQ(otherViewOf(slots), dispatch);
    for (const Case& test : cases) {
        EXPECT_EQ(signature(*dispatch, test.index), test.dispatch);
        EXPECT_EQ(signature(*slots, test.index), test.slots);
        for (const auto& [info, kind] : {std::pair(dispatch, FUNC_DISPATCH), std::pair(slots, FUNC_PUREVIRTUAL)}) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(test.index, &function), S_OK);
            EXPECT_EQ(function->funckind, kind);
            EXPECT_EQ(function->callconv, CC_STDCALL);
            EXPECT_EQ(function->oVft, static_cast<SHORT>((7 + test.index) * sizeof(void*)));
            EXPECT_EQ(function->cParamsOpt, test.index == 11 ? 1 : 0); // left-out variants
            EXPECT_EQ(function->wFuncFlags, test.index == 8 ? FUNCFLAG_FHIDDEN | FUNCFLAG_FNONBROWSABLE : 0);
        }
    }
    FUNCDESC* function = nullptr;
    ASSERT_EQ(infoOf(sampleEvents)->GetFuncDesc(1, &function), S_OK);
    EXPECT_EQ(function->funckind, FUNC_DISPATCH);
    EXPECT_EQ(function->oVft, 0);
    EXPECT_EQ(dispatch->GetFuncDesc(33, &function), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(function, nullptr);
}

TEST_F(TypeInfoTest, givesDefaultsInTheTypeOfTheirArguments) {
    const Ref<ITypeInfo> info = infoOf(sampleInterface);
    FUNCDESC* function = nullptr;
    ASSERT_EQ(info->GetFuncDesc(11, &function), S_OK);
    std::vector<VARIANT> defaults;
    for (SHORT i = 0; i < function->cParams; ++i) {
        const PARAMDESC& argument = function->lprgelemdescParam[i].paramdesc;
        ASSERT_EQ(argument.pparamdescex != nullptr, (argument.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0);
        if (argument.pparamdescex) {
            EXPECT_EQ(argument.pparamdescex->cBytes, sizeof(PARAMDESCEX));
            defaults.push_back(argument.pparamdescex->varDefaultValue);
        }
    }
    ASSERT_EQ(defaults.size(), 5u);
    EXPECT_EQ(defaults[0].vt, VT_BSTR);
    EXPECT_EQ(std::u16string_view(defaults[0].bstrVal), u"!");
    EXPECT_EQ(defaults[1].vt, VT_BOOL);
    EXPECT_EQ(defaults[1].boolVal, VARIANT_TRUE);
    EXPECT_EQ(defaults[2].vt, VT_R4);
    EXPECT_EQ(defaults[2].fltVal, 1.5f);
    EXPECT_EQ(defaults[3].vt, VT_I4);
    EXPECT_EQ(defaults[3].lVal, kindSquare);
    EXPECT_EQ(defaults[4].vt, VT_DISPATCH);
    EXPECT_EQ(defaults[4].pdispVal, nullptr);
}

TEST_F(TypeInfoTest, describesVariables) {
    struct Case {
        const typelib::TypeDescription& type;
        UINT index;
        const char* name;
        VARKIND kind;
        const char* typeName;
        ULONG value; // of an enum value, or offset of a field
    };
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
    const Case cases[]{
        {kindType, 0, "kindNone", VAR_CONST, "3", 0},
        {kindType, 3, "kindLast", VAR_CONST, "3", static_cast<ULONG>(-1)},
        {pointType, 1, "Y", VAR_PERINSTANCE, "3", 4},
        {recordType, 0, "Name", VAR_PERINSTANCE, "8", 0},
        {recordType, 1, "Values", VAR_PERINSTANCE, "array(3)", offsetof(SampleRecord, Values)},
        {recordType, 2, "Position", VAR_PERINSTANCE, "SamplePoint", offsetof(SampleRecord, Position)},
        {recordType, 3, "Visible", VAR_PERINSTANCE, "11", offsetof(SampleRecord, Visible)},
        {recordType, 4, "Kind", VAR_PERINSTANCE, "SampleKind", offsetof(SampleRecord, Kind)},
        {recordType, 7, "Corners", VAR_PERINSTANCE, "array(SamplePoint)", offsetof(SampleRecord, Corners)},
        {recordType, 8, "Colour", VAR_PERINSTANCE, "SampleColour", offsetof(SampleRecord, Colour)},
    };
#pragma GCC diagnostic pop
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        const Ref<ITypeInfo> info = infoOf(test.type);
        VARDESC* variable = nullptr;
        ASSERT_EQ(info->GetVarDesc(test.index, &variable), S_OK);
        EXPECT_EQ(variable->varkind, test.kind);
        EXPECT_EQ(typeText(*info, variable->elemdescVar.tdesc), test.typeName);
        if (test.kind == VAR_CONST) {
            EXPECT_EQ(variable->lpvarValue->vt, VT_I4);
            EXPECT_EQ(static_cast<ULONG>(variable->lpvarValue->lVal), test.value);
        } else {
            EXPECT_EQ(variable->oInst, test.value);
        }
        String name;
        EXPECT_EQ(info->GetDocumentation(variable->memid, name.out(), nullptr, nullptr, nullptr), S_OK);
        EXPECT_EQ(name.utf8(), test.name);
        BSTR names[2]{};
        UINT count = 0;
        EXPECT_EQ(info->GetNames(variable->memid, names, 2, &count), S_OK);
        EXPECT_EQ(count, 1u);
        EXPECT_EQ(String::attach(names[0]).utf8(), test.name);
        std::u16string asked = utf16FromUtf8(test.name);
        LPOLESTR askedName = asked.data();
        MEMBERID id = 0;
        EXPECT_EQ(info->GetIDsOfNames(&askedName, 1, &id), S_OK);
        EXPECT_EQ(id, variable->memid);
        info->ReleaseVarDesc(variable);
    }
    VARDESC* variable = nullptr;
    EXPECT_EQ(infoOf(kindType)->GetVarDesc(4, &variable), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(infoOf(sampleInterface)->GetVarDesc(0, &variable), TYPE_E_ELEMENTNOTFOUND);
}

TEST_F(TypeInfoTest, followsAliasesIntoTheOtherLibrary) {
    const Ref<ITypeInfo> colour = infoOf(colourType);
    const TYPEATTR alias = attributesOf(colour);
    ASSERT_EQ(alias.tdescAlias.vt, VT_USERDEFINED);
    Ref<ITypeInfo> other;
    ASSERT_EQ(colour->GetRefTypeInfo(alias.tdescAlias.hreftype, other.out()), S_OK);
    EXPECT_EQ(nameOf(other), "OtherColour");
    EXPECT_EQ(attributesOf(other).tdescAlias.vt, VT_I4);
    EXPECT_GT(otherState.locks, 0);
    Ref<ITypeLib> library;
    ASSERT_EQ(other->GetContainingTypeLib(library.out(), nullptr), S_OK);
    String name;
    ASSERT_EQ(library->GetDocumentation(-1, name.out(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(name, u"OtherLib");
}

TEST_F(TypeInfoTest, describesTheInterfacesOfClasses) {
    struct Implemented {
        const char* name;
        INT flags;
    };
    const std::pair<const typelib::TypeDescription*, std::vector<Implemented>> cases[]{
        {&sampleClass, {{"_Sample", IMPLTYPEFLAG_FDEFAULT}, {"__Sample", IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE}}},
        {&itemsClass, {{"_SampleItems", IMPLTYPEFLAG_FDEFAULT}}},
        {&sampleInterface, {}},
        {&kindType, {}},
    };
    for (const auto& [type, interfaces] : cases) {
        SCOPED_TRACE(utf8FromUtf16(type->name));
        const Ref<ITypeInfo> info = infoOf(*type);
        HREFTYPE handle = 0;
        INT flags = 0;
        for (UINT i = 0; i < interfaces.size(); ++i) {
            Ref<ITypeInfo> target;
            EXPECT_EQ(info->GetRefTypeOfImplType(i, &handle), S_OK);
            EXPECT_EQ(info->GetRefTypeInfo(handle, target.out()), S_OK);
            EXPECT_EQ(nameOf(target), interfaces[i].name);
            EXPECT_EQ(attributesOf(target).typekind, TKIND_DISPATCH);
            EXPECT_EQ(info->GetImplTypeFlags(i, &flags), S_OK);
            EXPECT_EQ(flags, interfaces[i].flags);
        }
        const auto count = static_cast<UINT>(interfaces.size());
        EXPECT_EQ(info->GetRefTypeOfImplType(count, &handle), TYPE_E_ELEMENTNOTFOUND);
        EXPECT_EQ(info->GetImplTypeFlags(count, &flags), TYPE_E_ELEMENTNOTFOUND);
    }
    HREFTYPE handle = 0;
    EXPECT_EQ(infoOf(sampleEvents)->GetRefTypeOfImplType(static_cast<UINT>(-1), &handle), TYPE_E_ELEMENTNOTFOUND);
    Ref<ITypeInfo> target;
    EXPECT_EQ(infoOf(sampleClass)->GetRefTypeInfo(1000, target.out()), TYPE_E_ELEMENTNOTFOUND);
}

TEST_F(TypeInfoTest, givesNamesAndHelp) {
    const Ref<ITypeInfo> info = infoOf(sampleInterface);
    String name, help;
    DWORD context = 1;
    EXPECT_EQ(info->GetDocumentation(minMaxId, name.out(), help.out(), &context, nullptr), S_OK);
    EXPECT_EQ(name, u"MinMax");
    EXPECT_EQ(help, u"Keeps a value between two bounds");
    EXPECT_EQ(context, 0u);
    EXPECT_EQ(info->GetDocumentation(1000, name.out(), nullptr, nullptr, nullptr), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(infoOf(kindType)->GetDocumentation(0x40000001, name.out(), help.out(), nullptr, nullptr), S_OK);
    EXPECT_EQ(help, u"Like a ball");
    EXPECT_EQ(infoOf(kindType)->GetDocumentation(0x40000004, name.out(), nullptr, nullptr, nullptr), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(infoOf(rootClass)->GetDocumentation(MEMBERID_DEFAULTINST, name.out(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(name, u"SampleRoot");
    EXPECT_EQ(infoOf(sampleClass)->GetDocumentation(MEMBERID_DEFAULTINST, name.out(), nullptr, nullptr, nullptr),
              TYPE_E_ELEMENTNOTFOUND);

    BSTR names[2]{};
    UINT count = 0;
    ASSERT_EQ(info->GetNames(minMaxId, names, 2, &count), S_OK); // fewer places than names
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(String::attach(names[0]), u"MinMax");
    EXPECT_EQ(String::attach(names[1]), u"LongValue");
    EXPECT_EQ(info->GetNames(1000, names, 2, &count), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(info->GetNames(MEMBERID_NIL, names, 2, &count), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(info->GetNames(minMaxId, names, 0, &count), E_INVALIDARG);
}

TEST_F(TypeInfoTest, callsThroughTypeInformation) {
    const Ref<ISample> object = makeSample();
    std::u16string names[]{u"MINMAX", u"MaxValue", u"longvalue"};
    LPOLESTR asked[]{names[0].data(), names[1].data(), names[2].data()};
    for (const Ref<ITypeInfo>& info : {infoOf(sampleInterface), otherViewOf(infoOf(sampleInterface)), infoOf(sampleClass)}) {
        DISPID ids[3]{};
        ASSERT_EQ(DispGetIDsOfNames(info.get(), asked, 3, ids), S_OK);
        EXPECT_EQ(ids[0], minMaxId);
        EXPECT_EQ(ids[1], 2);
        EXPECT_EQ(ids[2], 0);
        Variant arguments[]{Long{3}, Long{5}};
        DISPID named[]{2};
        DISPPARAMS parameters{arguments, named, 2, 1};
        Variant result;
        ASSERT_EQ(DispInvoke(object.get(), info.get(), ids[0], DISPATCH_METHOD, &parameters, &result, nullptr, nullptr), S_OK);
        EXPECT_EQ(result.as<Long>(), 3);
        EXPECT_EQ(info->Invoke(nullptr, ids[0], DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), E_INVALIDARG);
        EXPECT_EQ(info->Invoke(object.get(), ids[0], DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_INVALIDARG);
    }
    DISPID id = 0;
    LPOLESTR unknown = names[1].data();
    EXPECT_EQ(DispGetIDsOfNames(infoOf(sampleInterface).get(), &unknown, 1, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    EXPECT_EQ(infoOf(pointType)->GetIDsOfNames(&unknown, 1, &id), DISP_E_UNKNOWNNAME);
    DISPPARAMS nothing{};
    EXPECT_EQ(infoOf(pointType)->Invoke(object.get(), 0, DISPATCH_PROPERTYGET, &nothing, nullptr, nullptr, nullptr),
              TYPE_E_WRONGTYPEKIND);
    EXPECT_EQ(DispInvoke(object.get(), nullptr, 0, DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(DispGetIDsOfNames(nullptr, asked, 1, &id), E_INVALIDARG);
}

TEST_F(TypeInfoTest, callsSinksThroughTheirDispatch) {
    const Ref<ISample> sink = makeSample(); // any object: what counts is that the call arrives under its identifier
    Variant arguments[]{Long{2}, Long{1}};
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    Variant result;
    EXPECT_EQ(infoOf(sampleEvents)->Invoke(sink.get(), addId, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr), S_OK);
    EXPECT_EQ(result.as<Long>(), 3);
}

TEST_F(TypeInfoTest, objectsKnowTheirTypes) {
    const Ref<ISample> object = makeSample();
    UINT count = 0;
    Ref<ITypeInfo> info;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(object->GetTypeInfo(0, 0, info.out()), S_OK);
    EXPECT_EQ(info, infoOf(sampleInterface));
    EXPECT_EQ(object->GetTypeInfo(1, 0, info.out()), DISP_E_BADINDEX);
    EXPECT_EQ(Ref<ISample>(object).as<IProvideClassInfo>()->GetClassInfo(info.out()), S_OK);
    EXPECT_EQ(info, infoOf(sampleClass));
}

TEST_F(TypeInfoTest, bindsMembersByNameAndKind) {
    struct Case {
        const typelib::TypeDescription& type;
        const char16_t* name;
        WORD flags;
        HRESULT status;
        DESCKIND kind;
        INVOKEKIND invoke;
        const char* owner;
    };
    const Case cases[]{
        {sampleInterface, u"anything", 0, S_OK, DESCKIND_FUNCDESC, INVOKE_PROPERTYGET, "_Sample"},
        {sampleInterface, u"anything", INVOKE_PROPERTYPUTREF, S_OK, DESCKIND_FUNCDESC, INVOKE_PROPERTYPUTREF, "_Sample"},
        {sampleInterface, u"anything", INVOKE_FUNC, TYPE_E_TYPEMISMATCH, DESCKIND_NONE, INVOKE_FUNC, "none"},
        {sampleInterface, u"nothing", 0, S_OK, DESCKIND_NONE, INVOKE_FUNC, "none"},
        {sampleClass, u"MinMax", INVOKE_FUNC | INVOKE_PROPERTYGET, S_OK, DESCKIND_FUNCDESC, INVOKE_FUNC, "_Sample"},
        {sampleEvents, u"CLOSED", 0, S_OK, DESCKIND_FUNCDESC, INVOKE_FUNC, "__Sample"},
        {pointType, u"x", INVOKE_PROPERTYGET, S_OK, DESCKIND_VARDESC, INVOKE_FUNC, "SamplePoint"},
        {pointType, u"x", INVOKE_PROPERTYPUT, TYPE_E_TYPEMISMATCH, DESCKIND_NONE, INVOKE_FUNC, "none"},
        {colourType, u"x", 0, S_OK, DESCKIND_NONE, INVOKE_FUNC, "none"},
    };
    for (const Case& test : cases) {
        std::u16string name = test.name;
        SCOPED_TRACE(utf8FromUtf16(name));
        Ref<ITypeComp> comp;
        ASSERT_EQ(infoOf(test.type)->GetTypeComp(comp.out()), S_OK);
        Ref<ITypeInfo> owner;
        DESCKIND kind = DESCKIND_TYPECOMP;
        BINDPTR bound{};
        EXPECT_EQ(comp->Bind(name.data(), 0, test.flags, owner.out(), &kind, &bound), test.status);
        EXPECT_EQ(kind, test.kind);
        EXPECT_EQ(nameOf(owner), test.owner);
        if (kind == DESCKIND_FUNCDESC) {
            EXPECT_EQ(bound.lpfuncdesc->invkind, test.invoke);
        }
        Ref<ITypeComp> none;
        EXPECT_EQ(comp->BindType(name.data(), 0, owner.out(), none.out()), S_OK);
        EXPECT_FALSE(owner);
        EXPECT_EQ(comp->Bind(nullptr, 0, 0, owner.out(), &kind, &bound), E_INVALIDARG);
    }
}

TEST_F(TypeInfoTest, hasNoModules) {
    const Ref<ITypeInfo> info = infoOf(sampleInterface);
    String file, name;
    WORD ordinal = 1;
    void* address = &file;
    EXPECT_EQ(info->GetDllEntry(minMaxId, INVOKE_FUNC, file.out(), name.out(), &ordinal), TYPE_E_BADMODULEKIND);
    EXPECT_EQ(ordinal, 0);
    EXPECT_EQ(info->AddressOfMember(minMaxId, INVOKE_FUNC, &address), TYPE_E_BADMODULEKIND);
    EXPECT_EQ(address, nullptr);
    EXPECT_EQ(info->GetMops(minMaxId, name.out()), S_OK);
    EXPECT_TRUE(name.empty());
    EXPECT_EQ(info->GetMops(1000, name.out()), TYPE_E_ELEMENTNOTFOUND);
}

TEST_F(TypeInfoTest, createsOnlyClassesThatCanBeCreated) {
    for (const typelib::TypeDescription* type : {static_cast<const typelib::TypeDescription*>(&itemsClass),
                                                 static_cast<const typelib::TypeDescription*>(&sampleInterface),
                                                 static_cast<const typelib::TypeDescription*>(&pointType)}) {
        void* object = this;
        EXPECT_EQ(infoOf(*type)->CreateInstance(nullptr, IID_IDispatch, &object), TYPE_E_WRONGTYPEKIND);
        EXPECT_EQ(object, nullptr);
    }
    void* object = this;
    const HRESULT status = infoOf(sampleClass)->CreateInstance(nullptr, IID_IDispatch, &object); // nobody has registered it
    EXPECT_TRUE(FAILED(status) && status != TYPE_E_WRONGTYPEKIND) << status;
    EXPECT_EQ(object, nullptr);
}

TEST_F(TypeInfoTest, refusesMissingPlaces) {
    const Ref<ITypeInfo> info = infoOf(sampleInterface);
    EXPECT_EQ(info->GetTypeAttr(nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetTypeComp(nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetFuncDesc(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetVarDesc(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetNames(nameId, nullptr, 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetRefTypeOfImplType(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetImplTypeFlags(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetIDsOfNames(nullptr, 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetRefTypeInfo(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->AddressOfMember(0, INVOKE_FUNC, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->CreateInstance(nullptr, IID_IDispatch, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetMops(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(info->GetContainingTypeLib(nullptr, nullptr), S_OK);
    EXPECT_EQ(typelib::getTypeInfo(sampleInterface, nullptr), E_POINTER);
}

} // namespace
} // namespace mox
