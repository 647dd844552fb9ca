// The server file as a program sees it that knows nothing but its path and a class identifier.
#include <mox/automation.h>
#include <mox/values.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <elf.h>
#include <fstream>
#include <link.h>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace mox::test {

namespace {

constexpr CLSID hubClass{0x61380ADE, 0x4B65, 0x4141, {0x88, 0x8C, 0xA1, 0x04, 0x8D, 0x03, 0x77, 0x72}};
constexpr CLSID timerClass{0x5EB165FA, 0x8EFC, 0x4EBC, {0x93, 0xC1, 0x6B, 0x85, 0x0E, 0x96, 0x19, 0x3B}};
constexpr CLSID mouseEventsClass{0x73B62817, 0xB369, 0x4F5D, {0x90, 0x33, 0x08, 0x0B, 0x8C, 0x5C, 0xC2, 0x61}};

std::string serverPath() {
    return std::getenv("MOX_SERVER");
}

/// Names of the dynamic symbols that a file defines.
std::set<std::string> definedSymbols(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    const auto at = [&]<class T>(std::size_t offset, T*) { return reinterpret_cast<const T*>(bytes.data() + offset); };
    const auto* header = at(0, static_cast<Elf64_Ehdr*>(nullptr));
    const auto* sections = at(header->e_shoff, static_cast<Elf64_Shdr*>(nullptr));
    std::set<std::string> names;
    for (std::size_t i = 0; i < header->e_shnum; ++i) {
        if (sections[i].sh_type != SHT_DYNSYM) {
            continue;
        }
        const char* texts = at(sections[sections[i].sh_link].sh_offset, static_cast<char*>(nullptr));
        const auto* symbols = at(sections[i].sh_offset, static_cast<Elf64_Sym*>(nullptr));
        for (std::size_t s = 0; s < sections[i].sh_size / sizeof(Elf64_Sym); ++s) {
            if (symbols[s].st_shndx != SHN_UNDEF) {
                names.insert(texts + symbols[s].st_name);
            }
        }
    }
    return names;
}

TEST(SymbolTable, HasTheFourExportsAndNothingElse) {
    EXPECT_EQ(definedSymbols(serverPath()),
              (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"}));
}

class ServerFile : public testing::Test {
protected:
    ServerFile() : handle(dlopen(serverPath().c_str(), RTLD_NOW | RTLD_LOCAL)) {
        EXPECT_NE(handle, nullptr) << dlerror();
        getClassObject = reinterpret_cast<decltype(getClassObject)>(dlsym(handle, "DllGetClassObject"));
        canUnloadNow = reinterpret_cast<decltype(canUnloadNow)>(dlsym(handle, "DllCanUnloadNow"));
    }
    ~ServerFile() override { dlclose(handle); }

    Ref<IClassFactory> factory(REFCLSID id) {
        void* result = nullptr;
        EXPECT_EQ(getClassObject(id, IID_IClassFactory, &result), S_OK);
        return Ref<IClassFactory>::attach(static_cast<IClassFactory*>(result));
    }
    static Ref<IDispatch> instance(const Ref<IClassFactory>& factory) {
        void* result = nullptr;
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &result), S_OK);
        return Ref<IDispatch>::attach(static_cast<IDispatch*>(result));
    }

    void* handle;
    HRESULT (*getClassObject)(REFCLSID, REFIID, void**) = nullptr;
    HRESULT (*canUnloadNow)() = nullptr;
};

TEST_F(ServerFile, GivesFactoriesForCreatableClassesOnly) {
    void* result = &result;
    EXPECT_EQ(getClassObject(GUID_NULL, IID_IClassFactory, &result), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(getClassObject(mouseEventsClass, IID_IClassFactory, &result), CLASS_E_CLASSNOTAVAILABLE)
        << "creatable, but without code yet";
    EXPECT_EQ(getClassObject(hubClass, IID_IDispatch, &result), E_NOINTERFACE);
    EXPECT_EQ(getClassObject(hubClass, IID_IClassFactory, nullptr), E_POINTER);

    const Ref<IClassFactory> hubs = factory(hubClass);
    EXPECT_EQ(hubs->CreateInstance(hubs.get(), IID_IUnknown, &result), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(hubs->CreateInstance(nullptr, IID_ITypeLib, &result), E_NOINTERFACE);
    EXPECT_EQ(hubs->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_NE(instance(hubs), instance(hubs));
}

TEST_F(ServerFile, CanUnloadWhenNothingIsLeftOfIt) {
    ASSERT_EQ(canUnloadNow(), S_OK);
    {
        Ref<IClassFactory> hubs = factory(hubClass);
        EXPECT_EQ(canUnloadNow(), S_FALSE) << "a factory";
        Ref<IDispatch> hub = instance(hubs);
        hubs->LockServer(1);
        hubs = nullptr;
        EXPECT_EQ(canUnloadNow(), S_FALSE);

        Ref<ITypeInfo> type;
        ASSERT_EQ(hub->GetTypeInfo(0, 0, type.out()), S_OK);
        hub = nullptr;
        factory(hubClass)->LockServer(0);
        EXPECT_EQ(canUnloadNow(), S_FALSE) << "type information";
        Ref<ITypeLib> library;
        UINT index = 0;
        ASSERT_EQ(type->GetContainingTypeLib(library.out(), &index), S_OK);
        type = nullptr;
        EXPECT_EQ(canUnloadNow(), S_FALSE) << "the type library";
    }
    EXPECT_EQ(canUnloadNow(), S_OK);
    {
        const Ref<IDispatch> timer = instance(factory(timerClass));
        auto container = timer.as<IConnectionPointContainer>();
        Ref<IEnumConnectionPoints> points;
        ASSERT_EQ(container->EnumConnectionPoints(points.out()), S_OK);
        container = nullptr;
        IConnectionPoint* point = nullptr;
        ASSERT_EQ(points->Next(1, &point, nullptr), S_OK);
        const auto held = Ref<IConnectionPoint>::attach(point);
        points = nullptr;
        EXPECT_EQ(canUnloadNow(), S_FALSE) << "a connection point";
    }
    EXPECT_EQ(canUnloadNow(), S_OK);
    std::thread([&] { instance(factory(hubClass)); }).join();
    EXPECT_EQ(canUnloadNow(), S_OK) << "an object that came and went in another apartment";
    Ref<IDispatch> orphan;
    std::thread([&] { orphan = instance(factory(hubClass)); }).join();
    EXPECT_EQ(canUnloadNow(), S_FALSE);
    orphan = nullptr;
    EXPECT_EQ(canUnloadNow(), S_OK) << "an object that outlived its apartment";
}

TEST_F(ServerFile, IsFoundByClassAndByName) {
    ASSERT_GE(CoInitialize(nullptr), 0);
    CLSID id{};
    for (const char16_t* name : {u"TRL_OBKR_MOX.moxHub", u"trl_obkr_mox.MOXHUB"}) {
        EXPECT_EQ(CLSIDFromProgID(name, &id), S_OK);
        EXPECT_EQ(id, hubClass);
    }
    for (const char16_t* name : {u"", u"moxHub", u"TRL_OBKR_MOX.moxVars", u"TRL_OBKR_MOX.moxHub.1", u"Other.moxHub"}) {
        EXPECT_EQ(CLSIDFromProgID(name, &id), CO_E_CLASSSTRING) << utf8FromUtf16(name);
    }
    LPOLESTR name = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(hubClass, &name), S_OK);
    EXPECT_EQ(std::u16string_view(name), u"TRL_OBKR_MOX.moxHub");
    CoTaskMemFree(name);

    void* hub = nullptr;
    ASSERT_EQ(CoCreateInstance(hubClass, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &hub), S_OK);
    Ref<IDispatch>::attach(static_cast<IDispatch*>(hub));
    EXPECT_EQ(CoCreateInstance(GUID_NULL, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &hub), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(hub, nullptr);
    EXPECT_EQ(CoCreateInstance(hubClass, nullptr, 4, IID_IDispatch, &hub), REGDB_E_CLASSNOTREG) << "no server of another kind";
    CoFreeUnusedLibraries();
    CoUninitialize();
    EXPECT_EQ(CoCreateInstance(hubClass, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &hub), CO_E_NOTINITIALIZED);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
}

TEST_F(ServerFile, LendsItsTypeLibraryByPath) {
    Ref<ITypeLib> library;
    ASSERT_EQ(LoadTypeLib(utf16FromUtf8(serverPath()).c_str(), library.out()), S_OK);
    EXPECT_GT(library->GetTypeInfoCount(), 100u);
    EXPECT_EQ(LoadTypeLib(u"/no/such/file.so", library.out()), TYPE_E_CANTLOADLIBRARY);
    EXPECT_FALSE(library);
    EXPECT_EQ(LoadTypeLib(nullptr, library.out()), E_INVALIDARG);
}

} // namespace
} // namespace mox::test
