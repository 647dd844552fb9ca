#include "registry_support.h"
#include "support/testmachine.h"

#include "host/registry/hardwarefacts.h"
#include "host/registry/systemfacts.h"

#include <filesystem>
#include <fstream>
#include <map>

namespace mox::test {

namespace {

using namespace platform;
using host::RegistryFact;

constexpr HKEY machineKey = HKEY_LOCAL_MACHINE;
constexpr const char* windows = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion";
constexpr const char* windowsNt = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
constexpr const char* shellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

void write(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

/// The data of all facts by path and name, final NULs left out.
std::map<std::string, std::string> byName(const host::FactList& list) {
    std::map<std::string, std::string> result;
    for (const RegistryFact& fact : list.facts()) {
        const bool isText = fact.type == REG_SZ;
        result[fact.path + "\\" + fact.name] = isText ? fact.data.substr(0, fact.data.size() - 1) : fact.data;
    }
    return result;
}

TEST(RegistryFactsTest, processorsAndFirmware) {
    const host::TemporaryFolder folder("mox-test-");
    const host::HardwareSources sources{folder.path() / "cpuinfo", folder.path() / "cpu", folder.path() / "id"};
    write(sources.processors,
          "processor\t: 0\nvendor_id\t: GenuineIntel\ncpu family\t: 6\nmodel\t\t: 85\nmodel name\t: Some CPU @ 2.40GHz\n"
          "stepping\t: 7\ncpu MHz\t\t: 2394.454\nflags\t\t: a b\n\n"
          "processor\t: 1\nvendor_id\t: AuthenticAMD\ncpu family\t: 25\nmodel\t\t: 1\ncpu MHz\t\t: 1.5\n\n"
          "processor\t: 2\nBogoMIPS\t: 50.00\n\nHardware\t: a board\n");
    write(sources.frequencies / "cpu1/cpufreq/base_frequency", "3100000\n");
    write(sources.firmware / "bios_version", "1.15.0-1\n");
    write(sources.firmware / "bios_date", "04/01/2014\n");
    write(sources.firmware / "sys_vendor", "  Maker  \n");
    write(sources.firmware / "product_name", "\n");
    const host::CodePage codePage(1252);
    host::FactList list(codePage);
    host::addHardwareFacts(list, sources);
    const std::string system = "HARDWARE\\DESCRIPTION\\System\\";
    const std::map<std::string, std::string> expected = {
        {system + "CentralProcessor\\0\\ProcessorNameString", "Some CPU @ 2.40GHz"},
        {system + "CentralProcessor\\0\\VendorIdentifier", "GenuineIntel"},
        {system + "CentralProcessor\\0\\Identifier", "Intel64 Family 6 Model 85 Stepping 7"},
        {system + "CentralProcessor\\0\\~MHz", std::string("\x5A\x09\0\0", 4)},
        {system + "CentralProcessor\\1\\VendorIdentifier", "AuthenticAMD"},
        {system + "CentralProcessor\\1\\~MHz", std::string("\x1C\x0C\0\0", 4)},
        {system + "SystemBiosVersion", std::string("1.15.0-1\0\0", 10)},
        {system + "SystemBiosDate", "04/01/14"},
        {system + "BIOS\\BIOSVersion", "1.15.0-1"},
        {system + "BIOS\\BIOSReleaseDate", "04/01/2014"},
        {system + "BIOS\\SystemManufacturer", "Maker"},
    };
    EXPECT_EQ(byName(list), expected);
}

TEST(RegistryFactsTest, noSourcesNoFacts) {
    const host::CodePage codePage(1252);
    host::FactList list(codePage);
    host::addHardwareFacts(list, {"/none", "/none", "/none"});
    EXPECT_TRUE(list.facts().empty());
}

TEST(RegistryFactsTest, productFitsTheVersion) {
    for (const auto& [version, name] : std::initializer_list<std::pair<host::WindowsVersion, const char*>>{
             {{4, 0, 950, 1, "", 1, 0}, "Microsoft Windows 95"},
             {{4, 90, 3000, 1, "", 1, 0}, "Microsoft Windows ME"},
             {{4, 0, 1381, 2, "", 1, 0}, "Microsoft Windows NT"},
             {{5, 1, 2600, 2, "", 1, 0}, "Microsoft Windows XP"},
             {{5, 2, 3790, 2, "", 3, 0}, "Microsoft Windows Server 2003"},
             {{6, 1, 7601, 2, "", 1, 0}, "Windows 7"},
             {{6, 1, 7601, 2, "", 2, 0}, "Windows Server 2008 R2"},
             {{10, 0, 19045, 2, "", 1, 0}, "Windows 10"},
             {{12, 7, 1, 2, "", 1, 0}, ""},
         }) {
        EXPECT_STREQ(host::productName(version).c_str(), name);
    }
}

TEST(RegistryFactsTest, foldersExist) {
    TestMachine machine;
    for (const auto& [root, name] : std::initializer_list<std::pair<HKEY, const char*>>{
             {HKEY_CURRENT_USER, "Fonts"},
             {HKEY_CURRENT_USER, "AppData"},
             {HKEY_CURRENT_USER, "Templates"},
             {HKEY_CURRENT_USER, "Personal"},
             {HKEY_CURRENT_USER, "My Pictures"},
             {HKEY_CURRENT_USER, "My Music"},
             {HKEY_CURRENT_USER, "My Video"},
             {machineKey, "Common AppData"},
             {machineKey, "Common Templates"},
             {machineKey, "Common Documents"},
             {machineKey, "CommonPictures"},
             {machineKey, "CommonMusic"},
             {machineKey, "CommonVideo"},
         }) {
        const std::string path = textOf(root, shellFolders, name);
        EXPECT_EQ(path.substr(0, 3), "C:\\") << name;
        const std::uint32_t attributes = kernel32().GetFileAttributesA(path);
        EXPECT_TRUE(attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) << name << " " << path;
    }
}

/// One machine after the other on the same home.
class RegistryRestartTest : public testing::Test {
protected:
    void start(host::WindowsVersion version = {}) {
        machine_.reset();
        host::MachineConfig config;
        config.home = folder_.path() / "home";
        config.windows = std::move(version);
        machine_ = std::make_unique<TestMachine>(config);
    }

    const host::TemporaryFolder folder_{"mox-test-"};
    std::unique_ptr<TestMachine> machine_;
};

TEST_F(RegistryRestartTest, factsFollowTheMachineUntilTheyAreChanged) {
    start();
    for (const char* path : {windows, windowsNt}) {
        EXPECT_EQ(textOf(machineKey, path, "ProductName"), "Windows 7");
        EXPECT_EQ(textOf(machineKey, path, "CurrentVersion"), "6.1");
        EXPECT_EQ(textOf(machineKey, path, "CSDVersion"), "Service Pack 1");
        EXPECT_EQ(textOf(machineKey, path, "SystemRoot"), "C:\\Windows");
        EXPECT_NE(textOf(machineKey, path, "RegisteredOwner"), "");
        EXPECT_EQ(valueOf(machineKey, path, "RegisteredOrganization"), TypedBytes(REG_SZ, std::string(1, '\0')));
    }
    setValue(machineKey, windowsNt, "ProductName", REG_SZ, "My own");
    setValue(machineKey, windowsNt, "Other", REG_SZ, "kept");
    {
        const OpenKey key(machineKey, windowsNt, KEY_ALL_ACCESS);
        ASSERT_EQ(advapi32().RegDeleteValueA(key, "SystemRoot"), ERROR_SUCCESS);
    }
    start({5, 1, 2600, 2, "", 1, 0});
    EXPECT_EQ(textOf(machineKey, windows, "ProductName"), "Microsoft Windows XP");
    EXPECT_EQ(textOf(machineKey, windowsNt, "ProductName"), "My own");
    EXPECT_EQ(textOf(machineKey, windowsNt, "CurrentVersion"), "5.1");
    EXPECT_EQ(valueOf(machineKey, windowsNt, "CSDVersion"), std::nullopt);
    EXPECT_EQ(valueOf(machineKey, windowsNt, "SystemRoot"), std::nullopt);
    EXPECT_EQ(textOf(machineKey, windowsNt, "Other"), "kept");
}

TEST_F(RegistryRestartTest, hardwareIsThatOfThisStart) {
    constexpr const char* processors = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor";
    start();
    const std::vector<std::string> numbers = keysOf(machineKey, processors);
    ASSERT_FALSE(numbers.empty());
    const std::string first = std::string(processors) + "\\" + numbers.front();
    const std::optional<TypedBytes> speed = valueOf(machineKey, first, "~MHz");
    setValue(machineKey, first, "~MHz", REG_DWORD, "none");
    EXPECT_NE(valueOf(machineKey, first, "~MHz"), speed);
    start();
    const std::optional<TypedBytes> again = valueOf(machineKey, first, "~MHz");
    EXPECT_NE(again, (TypedBytes{REG_DWORD, "none"}));
    EXPECT_EQ(again.has_value(), speed.has_value());
    EXPECT_EQ(keysOf(machineKey, processors), numbers);
}

} // namespace

} // namespace mox::test
