// What a server file enters into the registry, and how classes are found through it.
#include "support/testmachine.h"
#include "support/testservers.h"

#include "core/classes.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace mox::test {

namespace {

using namespace platform;

constexpr const char* hubKey = "CLSID\\{61380ADE-4B65-4141-888C-A1048D037772}";
constexpr const char* libraryKey = "TypeLib\\{D3992F4E-D019-4DF4-9C76-A3D1A8C2BF07}";
constexpr CLSID foreignClass{0x0BADC0DE, 0x1234, 0x5678, {1, 2, 3, 4, 5, 6, 7, 8}};
constexpr const char* foreignKey = "CLSID\\{0BADC0DE-1234-5678-0102-030405060708}";

class Registration : public testing::Test {
protected:
    void store(const std::string& path, std::string_view name, std::string_view text) {
        HKEY key = 0;
        ASSERT_EQ(api.RegCreateKeyA(HKEY_CLASSES_ROOT, path, key), ERROR_SUCCESS) << path;
        EXPECT_EQ(api.RegSetValueExA(key, name, REG_SZ, text), ERROR_SUCCESS);
        EXPECT_EQ(api.RegCloseKey(key), ERROR_SUCCESS);
    }
    /// "-" if there is no such value.
    std::string value(const std::string& path, std::string_view name = "") {
        HKEY key = 0;
        if (api.RegOpenKeyExA(HKEY_CLASSES_ROOT, path, KEY_READ, key) != ERROR_SUCCESS) {
            return "-";
        }
        std::string text(1000, '\0');
        std::uint32_t type = REG_NONE;
        std::uint32_t size = 0;
        const bool has = api.RegQueryValueExA(key, name, type, text, size) == ERROR_SUCCESS && type == REG_SZ;
        EXPECT_EQ(api.RegCloseKey(key), ERROR_SUCCESS);
        return has ? text.c_str() : "-";
    }
    /// The paths of all keys below one.
    std::set<std::string> keysBelow(const std::string& path) {
        HKEY key = 0;
        if (api.RegOpenKeyExA(HKEY_CLASSES_ROOT, path, KEY_READ, key) != ERROR_SUCCESS) {
            return {};
        }
        std::set<std::string> keys;
        for (std::uint32_t index = 0;; ++index) {
            std::array<char, 512> name{};
            auto length = static_cast<std::uint32_t>(name.size());
            if (api.RegEnumKeyExA(key, index, name, length) != ERROR_SUCCESS) {
                break;
            }
            const std::string below = (path.empty() ? "" : path + "\\") + name.data();
            keys.insert(below);
            keys.merge(keysBelow(below));
        }
        EXPECT_EQ(api.RegCloseKey(key), ERROR_SUCCESS);
        return keys;
    }
    std::set<std::string> ownKeys() {
        std::set<std::string> keys = keysBelow("");
        std::erase_if(keys, [&](const std::string& key) { return before.contains(key) || key == "CLSID" || key == "TypeLib"; });
        return keys;
    }

    TestMachine machine;
    Advapi32& api = machine->advapi32;
    const ServerModule& module = server::serverModule();
    const std::set<std::string> before = keysBelow("");
};

TEST_F(Registration, EntersClassesAndLibrary) {
    ASSERT_EQ(module.registerServer(), S_OK);
    const std::string hub = hubKey;
    const std::string varsKey = "CLSID\\{67CDE959-DF7F-4C48-B760-1751054C4D6D}";
    const std::string library = libraryKey;
    const std::string file = value(hub + "\\InprocServer32");
    EXPECT_TRUE(file.ends_with("\\core_test") && machine->files.resolve(file)) << file;
    const std::vector<std::array<std::string, 3>> rows = {
        {hub, "", utf8FromUtf16(TRL_OBKR_MOX::description::moxHub.help)},
        {hub + "\\InprocServer32", "ThreadingModel", "Apartment"},
        {hub + "\\ProgID", "", "TRL_OBKR_MOX.moxHub"},
        {hub + "\\TypeLib", "", "{D3992F4E-D019-4DF4-9C76-A3D1A8C2BF07}"},
        {hub + "\\VERSION", "", "1.0"},
        {"TRL_OBKR_MOX.moxHub\\CLSID", "", "{61380ADE-4B65-4141-888C-A1048D037772}"},
        {"TRL_OBKR_MOX.moxFSWatcher\\CLSID", "", "{8BC13B79-0E0E-4E1B-AFD4-5FE1E08AE1C3}"},
        {"CLSID\\{7447F4AC-D0EE-4D9B-9C49-A9EA5D66E1C0}\\InprocServer32", "", file},
        {"CLSID\\{5EB165FA-8EFC-4EBC-93C1-6B850E96193B}\\InprocServer32", "", file},
        {"CLSID\\{73B62817-B369-4F5D-9033-080B8C5CC261}\\InprocServer32", "", file},
        {"CLSID\\{07EE25AC-5898-4CB4-A8B7-C588D6C37A3F}\\InprocServer32", "", file},
        {"CLSID\\{8BC13B79-0E0E-4E1B-AFD4-5FE1E08AE1C3}\\InprocServer32", "", file},
        {library + "\\1.0\\0\\win32", "", file},
        {library + "\\1.0\\FLAGS", "", "0"},
        {library + "\\1.0\\HELPDIR", "", file.substr(0, file.rfind('\\'))},
        // One that clients do not create.
        {varsKey, "", utf8FromUtf16(TRL_OBKR_MOX::description::moxVars.help)},
        {varsKey + "\\TypeLib", "", "{D3992F4E-D019-4DF4-9C76-A3D1A8C2BF07}"},
        {varsKey + "\\InprocServer32", "", "-"},
        {"TRL_OBKR_MOX.moxVars", "", "-"},
    };
    for (const auto& [path, name, text] : rows) {
        EXPECT_EQ(value(path, name), text) << path;
    }
    EXPECT_EQ(ownKeys().size(), 6u * 7 + 38 * 2 + 6);

    EXPECT_EQ(module.registerServer(), S_OK) << "again";
    EXPECT_EQ(ownKeys().size(), 6u * 7 + 38 * 2 + 6);
    EXPECT_EQ(module.unregisterServer(), S_OK);
    EXPECT_EQ(ownKeys(), std::set<std::string>());
    EXPECT_EQ(module.unregisterServer(), S_OK) << "nothing is there";
}

TEST_F(Registration, LeavesToOthersWhatIsTheirs) {
    ASSERT_EQ(module.registerServer(), S_OK);
    store(std::string(hubKey) + "\\Notes", "", "of somebody else");
    store(std::string(libraryKey) + "\\2.0\\0\\win32", "", "another version");
    EXPECT_EQ(module.unregisterServer(), S_OK);
    EXPECT_EQ(ownKeys(),
              (std::set<std::string>{hubKey, std::string(hubKey) + "\\Notes", libraryKey, std::string(libraryKey) + "\\2.0",
                                     std::string(libraryKey) + "\\2.0\\0", std::string(libraryKey) + "\\2.0\\0\\win32"}));
    EXPECT_EQ(value(hubKey), "-") << "the key stays for the sake of what is below it, its value does not";
    EXPECT_EQ(value(std::string(hubKey) + "\\Notes"), "of somebody else");
}

TEST_F(Registration, LeavesNothingHalfEntered) {
    std::set<HRESULT> answers;
    for (std::uint64_t call = 0;; call += 13) { // each reaches the disk
        HRESULT status = S_OK;
        std::string operation;
        {
            const FaultPlan plan(call, false);
            status = module.registerServer();
            if (!plan.hit()) {
                break;
            }
            operation = plan.operation()->fullName() + " at call " + std::to_string(call);
        }
        answers.insert(status);
        if (SUCCEEDED(status)) { // closing a key
            EXPECT_FALSE(ownKeys().empty()) << operation;
            ASSERT_EQ(module.unregisterServer(), S_OK);
        }
        EXPECT_EQ(ownKeys(), std::set<std::string>()) << operation;
    }
    EXPECT_EQ(answers, (std::set<HRESULT>{S_OK, SELFREG_E_CLASS, SELFREG_E_TYPELIB}));
    EXPECT_EQ(module.unregisterServer(), S_OK);
}

TEST_F(Registration, RemovesAllItCan) {
    for (std::uint64_t call = 0;; call += 17) {
        ASSERT_EQ(module.registerServer(), S_OK);
        HRESULT status = S_OK;
        {
            const FaultPlan plan(call, false);
            status = module.unregisterServer();
            if (!plan.hit()) {
                break;
            }
        }
        if (SUCCEEDED(status)) {
            EXPECT_EQ(ownKeys(), std::set<std::string>()) << call;
        } else {
            EXPECT_TRUE(status == SELFREG_E_CLASS || status == SELFREG_E_TYPELIB);
            EXPECT_LE(ownKeys().size(), 4u) << "what cannot be removed, and what it lies in";
            EXPECT_EQ(module.unregisterServer(), S_OK);
        }
    }
}

TEST_F(Registration, ClassesAreFoundThroughIt) {
    ASSERT_GE(CoInitialize(nullptr), 0);
    const std::filesystem::path broken = machine.folder() / "broken.dll";
    std::ofstream(broken) << "no library";
    const std::string entry = std::string(foreignKey) + "\\InprocServer32";
    const std::pair<std::string, HRESULT> rows[] = {
        {"C:\\missing.dll", CO_E_DLLNOTFOUND},
        {"", CO_E_DLLNOTFOUND},
        {machine->files.toDrivePath(broken), CO_E_ERRORINDLL},
        {machine->files.toDrivePath(plainServer), CO_E_ERRORINDLL},
    };
    void* result = &result;
    EXPECT_EQ(CoCreateInstance(foreignClass, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &result), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(result, nullptr);
    for (const auto& [file, status] : rows) {
        store(entry, "", file);
        EXPECT_EQ(CoCreateInstance(foreignClass, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &result), status) << file;
    }
    CoUninitialize();
}

TEST_F(Registration, NamesAreFoundThroughIt) {
    store(std::string(foreignKey) + "\\ProgID", "", "Foreign.Thing");
    store("Foreign.Thing\\CLSID", "", "{0BADC0DE-1234-5678-0102-030405060708}");
    store("Foreign.Broken\\CLSID", "", "no identifier");
    store("Foreign.Empty", "", "");
    const std::pair<const char16_t*, HRESULT> rows[] = {
        {u"Foreign.Thing", S_OK},
        {u"foreign.THING", S_OK},
        {u"Foreign.Broken", CO_E_CLASSSTRING},
        {u"Foreign.Empty", CO_E_CLASSSTRING},
        {u"Foreign.None", CO_E_CLASSSTRING},
        {u"", CO_E_CLASSSTRING},
        {u"CLSID\\Foreign.Thing", CO_E_CLASSSTRING},
    };
    for (const auto& [name, status] : rows) {
        CLSID id{};
        EXPECT_EQ(CLSIDFromProgID(name, &id), status) << utf8FromUtf16(name);
        EXPECT_EQ(id, status == S_OK ? foreignClass : GUID_NULL);
    }
    LPOLESTR name = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(foreignClass, &name), S_OK);
    EXPECT_EQ(std::u16string_view(name), u"Foreign.Thing");
    CoTaskMemFree(name);
    EXPECT_EQ(ProgIDFromCLSID(GUID_NULL, &name), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(name, nullptr);
}

} // namespace

} // namespace mox::test
