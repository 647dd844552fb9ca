#include "automation/typelib/dispatch.h"
#include "automation/typelib/library.h"
#include "sample_library.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace mox {
namespace {

using namespace sample;

struct TypeLibTest : testing::Test {
    TypeLibTest() {
        typelib::addLibrary(sampleLibrary);
        EXPECT_EQ(typelib::getTypeLib(sampleLibrary, library.out()), S_OK);
    }
    ~TypeLibTest() override {
        library = nullptr;
        EXPECT_EQ(sampleState.locks, 0);
        EXPECT_EQ(otherState.locks, 0);
        typelib::removeLibrary(sampleLibrary);
        typelib::removeLibrary(otherLibrary);
    }
    Ref<ITypeInfo> type(UINT index) {
        Ref<ITypeInfo> info;
        EXPECT_EQ(library->GetTypeInfo(index, info.out()), S_OK);
        return info;
    }
    Ref<ITypeLib> library;
};

std::string nameOf(const Ref<ITypeInfo>& info) {
    String name;
    return info && SUCCEEDED(info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr)) ? name.utf8() : "none";
}

TEST_F(TypeLibTest, describesItself) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, sampleLibrary.id);
    EXPECT_EQ(attributes->lcid, 1033u);
    EXPECT_EQ(attributes->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    EXPECT_EQ(attributes->wMajorVerNum, 2);
    EXPECT_EQ(attributes->wMinorVerNum, 3);
    library->ReleaseTLibAttr(attributes);

    String name, help, file;
    DWORD context = 1;
    ASSERT_EQ(library->GetDocumentation(-1, name.out(), help.out(), &context, file.out()), S_OK);
    EXPECT_EQ(name, u"SampleLib");
    EXPECT_EQ(help, u"One of everything");
    EXPECT_EQ(context, 0u);
    EXPECT_TRUE(file.empty());
    EXPECT_EQ(library->GetDocumentation(-1, nullptr, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(TypeLibTest, hasOneEntryATypeInOrder) {
    struct Entry {
        const char* name;
        TYPEKIND kind;
        const char16_t* help;
    };
    const Entry entries[]{
        {"SampleKind", TKIND_ENUM, u"How it looks"}, {"SampleShape", TKIND_ENUM, u""},
        {"SamplePoint", TKIND_RECORD, u""},          {"SampleRecord", TKIND_RECORD, u""},
        {"SampleColour", TKIND_ALIAS, u""},          {"_Sample", TKIND_DISPATCH, u"Does samples"},
        {"__Sample", TKIND_DISPATCH, u""},           {"_SampleItems", TKIND_DISPATCH, u""},
        {"Sample", TKIND_COCLASS, u"A sample"},      {"SampleItems", TKIND_COCLASS, u""},
        {"SampleRoot", TKIND_COCLASS, u""},
    };
    ASSERT_EQ(library->GetTypeInfoCount(), std::size(entries));
    for (UINT i = 0; i < std::size(entries); ++i) {
        SCOPED_TRACE(entries[i].name);
        TYPEKIND kind{};
        EXPECT_EQ(library->GetTypeInfoType(i, &kind), S_OK);
        EXPECT_EQ(kind, entries[i].kind);
        String name, help;
        EXPECT_EQ(library->GetDocumentation(static_cast<INT>(i), name.out(), help.out(), nullptr, nullptr), S_OK);
        EXPECT_EQ(name.utf8(), entries[i].name);
        EXPECT_EQ(help, entries[i].help);

        const Ref<ITypeInfo> info = type(i);
        EXPECT_EQ(nameOf(info), entries[i].name);
        Ref<ITypeLib> container;
        UINT index = 99;
        EXPECT_EQ(info->GetContainingTypeLib(container.out(), &index), S_OK);
        EXPECT_EQ(container, library);
        EXPECT_EQ(index, i);
    }
}

TEST_F(TypeLibTest, refusesWhatIsNotThere) {
    Ref<ITypeInfo> info;
    TYPEKIND kind{};
    EXPECT_EQ(library->GetTypeInfo(typeCount, info.out()), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(library->GetTypeInfoType(typeCount, &kind), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(library->GetDocumentation(typeCount, nullptr, nullptr, nullptr, nullptr), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(library->GetDocumentation(-2, nullptr, nullptr, nullptr, nullptr), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(library->GetTypeInfoOfGuid(IID_IUnknown, info.out()), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(library->GetTypeInfoOfGuid(GUID_NULL, info.out()), TYPE_E_ELEMENTNOTFOUND); // enums have none
    EXPECT_FALSE(info);
    EXPECT_EQ(library->GetTypeInfo(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(library->GetTypeInfoType(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(library->GetTypeInfoOfGuid(pointType.id, nullptr), E_INVALIDARG);
    EXPECT_EQ(library->GetLibAttr(nullptr), E_INVALIDARG);
    EXPECT_EQ(library->GetTypeComp(nullptr), E_INVALIDARG);
    void* other = &info;
    EXPECT_EQ(library->QueryInterface(IID_IDispatch, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
}

TEST_F(TypeLibTest, findsTypesByIdentifier) {
    const std::pair<GUID, const char*> types[]{
        {pointType.id, "SamplePoint"},       {recordType.id, "SampleRecord"}, {sampleInterface.id, "_Sample"},
        {sampleEvents.id, "__Sample"},       {sampleClass.id, "Sample"},      {rootClass.id, "SampleRoot"},
        {itemsInterface.id, "_SampleItems"},
    };
    for (const auto& [id, name] : types) {
        Ref<ITypeInfo> info;
        EXPECT_EQ(library->GetTypeInfoOfGuid(id, info.out()), S_OK) << name;
        EXPECT_EQ(nameOf(info), name);
    }
}

TEST_F(TypeLibTest, findsNamesWithoutRegardToCaseAndRespellsThem) {
    struct Case {
        const char16_t* given;
        const char16_t* spelled;
        std::vector<std::pair<const char*, MEMBERID>> found;
    };
    const Case cases[]{
        {u"SAMPLEPOINT", u"SamplePoint", {{"SamplePoint", MEMBERID_NIL}}},
        {u"minmax", u"MinMax", {{"_Sample", minMaxId}}},
        {u"name", u"Name", {{"SampleRecord", 0x40000000}, {"_Sample", nameId}}},
        {u"KINDROUND", u"kindRound", {{"SampleKind", 0x40000001}, {"SampleShape", 0x40000001}}},
        {u"_newenum", u"_NewEnum", {{"_Sample", DISPID_NEWENUM}}},
        {u"LongValue", u"LongValue", {}}, // the name of an argument only
        {u"Nowhere", u"Nowhere", {}},
        {u"", u"", {}},
    };
    for (const Case& test : cases) {
        std::u16string buffer = test.given;
        SCOPED_TRACE(utf8FromUtf16(buffer));
        BOOL isName = -1;
        ASSERT_EQ(library->IsName(buffer.data(), 0, &isName), S_OK);
        EXPECT_EQ(isName, test.found.empty() ? 0 : 1);
        EXPECT_EQ(buffer, test.spelled);

        buffer = test.given;
        ITypeInfo* types[4]{};
        MEMBERID ids[4]{};
        USHORT count = 4;
        ASSERT_EQ(library->FindName(buffer.data(), 0, types, ids, &count), S_OK);
        std::vector<std::pair<std::string, MEMBERID>> found;
        for (USHORT i = 0; i < count; ++i) {
            found.emplace_back(nameOf(Ref<ITypeInfo>::attach(types[i])), ids[i]);
        }
        EXPECT_EQ(found, (std::vector<std::pair<std::string, MEMBERID>>(test.found.begin(), test.found.end())));
        EXPECT_EQ(buffer, test.spelled);
    }
}

TEST_F(TypeLibTest, findsNoMoreNamesThanAsked) {
    std::u16string name = u"kindRound";
    ITypeInfo* found = nullptr;
    MEMBERID id = 0;
    USHORT count = 1;
    ASSERT_EQ(library->FindName(name.data(), 0, &found, &id, &count), S_OK);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(nameOf(Ref<ITypeInfo>::attach(found)), "SampleKind");
    EXPECT_EQ(library->FindName(name.data(), 0, &found, &id, nullptr), E_INVALIDARG);
}

TEST_F(TypeLibTest, bindsWhatNeedsNoQualifier) {
    struct Case {
        const char16_t* name;
        WORD flags;
        HRESULT status;
        DESCKIND kind;
        const char* owner;
    };
    const Case cases[]{
        {u"samplekind", 0, S_OK, DESCKIND_TYPECOMP, "none"},
        {u"KindSquare", 0, S_OK, DESCKIND_VARDESC, "SampleKind"},
        {u"kindSquare", INVOKE_PROPERTYGET, S_OK, DESCKIND_VARDESC, "SampleKind"},
        {u"kindSquare", INVOKE_FUNC, TYPE_E_TYPEMISMATCH, DESCKIND_NONE, "none"},
        {u"kindRound", 0, TYPE_E_AMBIGUOUSNAME, DESCKIND_NONE, "none"},
        {u"SampleRoot", 0, S_OK, DESCKIND_IMPLICITAPPOBJ, "SampleRoot"},
        {u"minmax", INVOKE_FUNC, S_OK, DESCKIND_IMPLICITAPPOBJ, "SampleRoot"}, // a member of the application object
        {u"minmax", INVOKE_PROPERTYPUT, TYPE_E_TYPEMISMATCH, DESCKIND_NONE, "none"},
        {u"Item", 0, S_OK, DESCKIND_NONE, "none"},   // of a class that is none
        {u"Sample", 0, S_OK, DESCKIND_NONE, "none"}, // has to be created
        {u"X", 0, S_OK, DESCKIND_NONE, "none"},
    };
    Ref<ITypeComp> comp;
    ASSERT_EQ(library->GetTypeComp(comp.out()), S_OK);
    for (const Case& test : cases) {
        std::u16string name = test.name;
        SCOPED_TRACE(utf8FromUtf16(name));
        Ref<ITypeInfo> owner;
        DESCKIND kind = DESCKIND_FUNCDESC;
        BINDPTR bound{};
        EXPECT_EQ(comp->Bind(name.data(), 0, test.flags, owner.out(), &kind, &bound), test.status);
        EXPECT_EQ(kind, test.kind);
        EXPECT_EQ(nameOf(owner), test.owner);
        EXPECT_EQ(bound.lpvardesc != nullptr, test.kind != DESCKIND_NONE);
        if (kind == DESCKIND_TYPECOMP) {
            const Ref<ITypeComp> inner = Ref<ITypeComp>::attach(bound.lptcomp);
            std::u16string value = u"kindlast";
            EXPECT_EQ(inner->Bind(value.data(), 0, 0, owner.out(), &kind, &bound), S_OK);
            ASSERT_EQ(kind, DESCKIND_VARDESC);
            EXPECT_EQ(bound.lpvardesc->lpvarValue->lVal, kindLast);
        } else if (kind == DESCKIND_IMPLICITAPPOBJ) {
            EXPECT_EQ(bound.lpvardesc->memid, MEMBERID_DEFAULTINST);
            EXPECT_EQ(bound.lpvardesc->varkind, VAR_STATIC);
            ASSERT_EQ(bound.lpvardesc->elemdescVar.tdesc.vt, VT_PTR);
            Ref<ITypeInfo> instanceType;
            EXPECT_EQ(owner->GetRefTypeInfo(bound.lpvardesc->elemdescVar.tdesc.lptdesc->hreftype, instanceType.out()), S_OK);
            EXPECT_EQ(nameOf(instanceType), "SampleRoot");
        }
    }

    std::u16string typeName = u"SAMPLECOLOUR";
    Ref<ITypeInfo> found;
    Ref<ITypeComp> none;
    EXPECT_EQ(comp->BindType(typeName.data(), 0, found.out(), none.out()), S_OK);
    EXPECT_EQ(nameOf(found), "SampleColour");
    EXPECT_FALSE(none);
    typeName = u"MinMax";
    EXPECT_EQ(comp->BindType(typeName.data(), 0, found.out(), none.out()), S_OK);
    EXPECT_FALSE(found);
}

TEST_F(TypeLibTest, givesOneObjectAPartAndCountsItsReferences) {
    EXPECT_EQ(sampleState.locks, 1); // the library itself
    Ref<ITypeInfo> first = type(sampleInterfaceIndex);
    Ref<ITypeInfo> second;
    ASSERT_EQ(typelib::getTypeInfo(sampleInterface, second.out()), S_OK);
    EXPECT_EQ(first, second);
    EXPECT_EQ(first.as<IUnknown>().get(), static_cast<IUnknown*>(second.get()));
    EXPECT_EQ(sampleState.locks, 3);

    Ref<ITypeComp> comp, libraryComp;
    Ref<IRecordInfo> record;
    ASSERT_EQ(first->GetTypeComp(comp.out()), S_OK);
    ASSERT_EQ(library->GetTypeComp(libraryComp.out()), S_OK);
    ASSERT_EQ(typelib::getRecordInfo(pointType, record.out()), S_OK);
    EXPECT_EQ(record, recordInfo<SamplePoint>());
    EXPECT_EQ(sampleState.locks, 6);

    // A part alone keeps the file and can be used.
    first = second = nullptr;
    library = nullptr;
    libraryComp = nullptr;
    record = nullptr;
    EXPECT_EQ(sampleState.locks, 1);
    std::u16string name = u"Add";
    DESCKIND kind{};
    BINDPTR bound{};
    EXPECT_EQ(comp->Bind(name.data(), 0, 0, first.out(), &kind, &bound), S_OK);
    EXPECT_EQ(bound.lpfuncdesc->memid, addId);
    first->ReleaseFuncDesc(bound.lpfuncdesc);
}

TEST_F(TypeLibTest, beginsAnewAfterItsRemoval) {
    type(sampleInterfaceIndex);
    library = nullptr;
    typelib::removeLibrary(sampleLibrary);
    Ref<IRecordInfo> record;
    EXPECT_EQ(GetRecordInfoFromGuids(sampleLibrary.id, 2, 3, 0, pointType.id, record.out()), TYPE_E_LIBNOTREGISTERED);
    typelib::removeLibrary(sampleLibrary); // once is enough, twice is no fault
    typelib::addLibrary(sampleLibrary);
    typelib::addLibrary(sampleLibrary);
    EXPECT_EQ(GetRecordInfoFromGuids(sampleLibrary.id, 2, 3, 0, pointType.id, record.out()), S_OK);
    ASSERT_EQ(typelib::getTypeLib(sampleLibrary, library.out()), S_OK);
    EXPECT_EQ(nameOf(type(sampleInterfaceIndex)), "_Sample");
}

TEST_F(TypeLibTest, findsRecordsByTheirIdentifiers) {
    struct Case {
        GUID library;
        ULONG major, minor;
        GUID record;
        HRESULT status;
    };
    const Case cases[]{
        {sampleLibrary.id, 2, 3, pointType.id, S_OK},
        {sampleLibrary.id, 2, 0, recordType.id, S_OK}, // made for an earlier version
        {sampleLibrary.id, 2, 4, pointType.id, TYPE_E_LIBNOTREGISTERED},
        {sampleLibrary.id, 1, 0, pointType.id, TYPE_E_LIBNOTREGISTERED},
        {pointType.id, 2, 3, pointType.id, TYPE_E_LIBNOTREGISTERED},
        {sampleLibrary.id, 2, 3, sampleClass.id, TYPE_E_ELEMENTNOTFOUND},
        {sampleLibrary.id, 2, 3, GUID_NULL, TYPE_E_ELEMENTNOTFOUND},
    };
    for (const Case& test : cases) {
        Ref<IRecordInfo> info;
        EXPECT_EQ(GetRecordInfoFromGuids(test.library, test.major, test.minor, 0, test.record, info.out()), test.status);
        EXPECT_EQ(static_cast<bool>(info), test.status == S_OK);
    }
    EXPECT_EQ(GetRecordInfoFromGuids(sampleLibrary.id, 2, 3, 0, pointType.id, nullptr), E_INVALIDARG);
}

TEST_F(TypeLibTest, findsRecordsByTheirTypeInformation) {
    const std::pair<UINT, HRESULT> cases[]{
        {pointIndex, S_OK},
        {kindIndex, TYPE_E_UNSUPFORMAT},
        {colourIndex, TYPE_E_UNSUPFORMAT}, // an alias, but of no record
        {sampleInterfaceIndex, TYPE_E_UNSUPFORMAT},
    };
    for (const auto& [index, status] : cases) {
        Ref<IRecordInfo> info;
        EXPECT_EQ(GetRecordInfoFromTypeInfo(type(index).get(), info.out()), status) << index;
        EXPECT_EQ(static_cast<bool>(info), status == S_OK);
    }
    EXPECT_EQ(GetRecordInfoFromTypeInfo(nullptr, nullptr), E_INVALIDARG);
}

TEST_F(TypeLibTest, servesManyThreadsAtOnce) {
    library = nullptr;
    typelib::removeLibrary(sampleLibrary);
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 200; ++round) {
                Ref<ITypeLib> shared;
                ASSERT_EQ(typelib::getTypeLib(sampleLibrary, shared.out()), S_OK);
                for (UINT index = 0; index < typeCount; ++index) {
                    Ref<ITypeInfo> info, again;
                    ASSERT_EQ(shared->GetTypeInfo(index, info.out()), S_OK);
                    ASSERT_EQ(shared->GetTypeInfo(index, again.out()), S_OK);
                    ASSERT_EQ(info, again);
                }
                ASSERT_TRUE(recordInfo<SamplePoint>());
            }
        });
    }
    threads.clear();
    EXPECT_EQ(sampleState.locks, 0);
}

} // namespace
} // namespace mox
