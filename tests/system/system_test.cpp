// moxSystem: the facts about the operating system, and its children.
#include "support/faultsweep.h"
#include "system/system_support.h"

#include "automation/objects/apartment.h"
#include "system/productkey.h"

namespace mox::test {

namespace {

using namespace std::string_literals;

constexpr const char* branchOfNt = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
constexpr const char* branchOf95 = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion";

struct SystemOn {
    explicit SystemOn(host::WindowsVersion windows, std::map<std::int32_t, std::int32_t> metrics = {})
        : machine([&] {
              host::MachineConfig config;
              config.windows = std::move(windows);
              config.metrics = std::move(metrics);
              Apartment::endCurrent(); // it may have heard of another machine
              return config;
          }()) {}

    void store(std::string_view path, std::string_view name, std::uint32_t type, std::string_view data) {
        platform::HKEY key = 0;
        ASSERT_EQ(machine->advapi32.RegCreateKeyA(platform::HKEY_LOCAL_MACHINE, path, key), 0);
        EXPECT_EQ(machine->advapi32.RegSetValueExA(key, name, type, data), 0);
        machine->advapi32.RegCloseKey(key);
    }
    void remove(std::string_view path, std::string_view name) {
        platform::HKEY key = 0;
        ASSERT_EQ(machine->advapi32.RegCreateKeyA(platform::HKEY_LOCAL_MACHINE, path, key), 0);
        machine->advapi32.RegDeleteValueA(key, name);
        machine->advapi32.RegCloseKey(key);
    }

    TestMachine machine;
    moxSystem system{server::create<TRL_OBKR_MOX::_moxSystem>()};
};

TEST(OSInfo, VersionStrings) {
    struct Row {
        host::WindowsVersion windows;
        const char16_t* text;
    };
    const Row rows[] = {
        {{5, 1, 2600, 2, "Service Pack 3", 1, 0}, u"Windows XP - Professional (Service Pack 3)"},
        {{5, 1, 2600, 2, "", 1, 512}, u"Windows XP - Home"},
        {{5, 2, 3790, 2, "", 3, 0}, u"Windows Server 2003"},
        {{5, 2, 3790, 2, "Service Pack 2", 3, 0}, u"Windows Server 2003 (Service Pack 2)"},
        {{6, 0, 6002, 2, "Service Pack 2", 3, 0}, u"Windows Server 2008 (Service Pack 2)"},
        {{6, 1, 7601, 2, "Service Pack 1", 1, 0}, u"Windows 7 - Professional (Service Pack 1)"},
        {{10, 0, 19045, 2, "", 1, 0}, u"-unknown new version-"},
        {{4, 10, 2222, 1, " A ", 1, 0}, u"Windows 98 SE"},
        {{1, 0, 0, 0, "", 1, 0}, u"-unknown-"},
    };
    for (const auto& [windows, text] : rows) {
        SystemOn test(windows);
        const moxOSInfo info = test.system.OS();
        EXPECT_EQ(info.VersionString, text);
    }
}

TEST(OSInfo, BootModes) {
    const std::pair<std::int32_t, SYS_OS_BOOTMODE> rows[] = {
        {0, osbm_Normal}, {1, osbm_Save}, {2, osbm_SaveNetwork}, {3, osbm_Normal}, {-1, osbm_Normal}};
    for (const auto& [metric, mode] : rows) {
        SystemOn test({}, {{67, metric}});
        EXPECT_EQ(test.system.OS().Bootmode, mode) << metric;
    }
}

TEST(OSInfo, FactsOfTheRegistry) {
    struct Row {
        host::WindowsVersion windows;
        const char* branch;
        const char* other;
    };
    const Row rows[] = {
        {{6, 1, 7601, 2, "", 1, 0}, branchOfNt, branchOf95},
        {{3, 51, 1057, 2, "", 1, 0}, branchOfNt, branchOf95},
        {{4, 90, 3000, 1, "", 1, 0}, branchOf95, branchOfNt},
        {{1, 0, 0, 0, "", 1, 0}, branchOf95, branchOfNt},
    };
    for (const auto& [windows, branch, other] : rows) {
        SystemOn test(windows);
        for (const char* name : {"ProductId", "ProductName", "RegDone", "RegisteredOrganization", "RegisteredOwner"}) {
            test.store(branch, name, platform::REG_SZ, "<"s + name + ">");
            test.store(other, name, platform::REG_SZ, "1");
        }
        test.store("SOFTWARE\\Microsoft\\MSLicensing\\HardwareID", "ClientHWID", platform::REG_BINARY, "\x12\xAB");
        const moxOSInfo info = test.system.OS();
        EXPECT_EQ(info.ProductId, u"<ProductId>");
        EXPECT_EQ(info.ProductName, u"<ProductName>");
        EXPECT_EQ(info.Registered, False) << "no number";
        EXPECT_EQ(info.RegisteredOrganization, u"<RegisteredOrganization>");
        EXPECT_EQ(info.RegisteredOwner, u"<RegisteredOwner>");
        EXPECT_EQ(info.ClientHardwareID_MS, u"12AB");
    }
}

TEST(OSInfo, DefaultsOfWhatTheRegistryLacks) {
    SystemOn test({});
    for (const char* name :
         {"ProductId", "DigitalProductId", "ProductName", "RegDone", "RegisteredOrganization", "RegisteredOwner"}) {
        test.remove(branchOfNt, name);
    }
    test.remove("SOFTWARE\\Microsoft\\MSLicensing\\HardwareID", "ClientHWID");
    const moxOSInfo info = test.system.OS();
    EXPECT_EQ(info.ProductId, u"00000-000-0000000-00000");
    EXPECT_EQ(info.ProductKey, u"");
    EXPECT_EQ(info.ProductName, u"Microsoft Windows 31");
    EXPECT_EQ(info.Registered, True);
    EXPECT_EQ(info.RegisteredOrganization, u"");
    EXPECT_EQ(info.RegisteredOwner, u"");
    EXPECT_EQ(info.ClientHardwareID_MS, u"");
}

TEST(OSInfo, RegisteredIsANumber) {
    const std::pair<const char*, Boolean> rows[] = {{"0", False},   {"", False},   {" 1", True},  {"-2", True},
                                                    {"yes", False}, {"0.5", True}, {"&H0", False}};
    for (const auto& [text, expected] : rows) {
        SystemOn test({});
        test.store(branchOfNt, "RegDone", platform::REG_SZ, text);
        EXPECT_EQ(test.system.OS().Registered, expected) << text;
    }
}

TEST(OSInfo, IsReadOnceForEachObject) {
    SystemOn test({});
    test.store(branchOfNt, "ProductName", platform::REG_SZ, "before");
    EXPECT_EQ(test.system.OS().ProductName, u"before");
    test.store(branchOfNt, "ProductName", platform::REG_SZ, "after");
    test.machine->advapi32.RegOpenKeyExA.reset();
    EXPECT_EQ(test.system.OS().ProductName, u"before");
    EXPECT_EQ(test.machine->advapi32.RegOpenKeyExA.calls(), 0u);
    const moxSystem other{server::create<TRL_OBKR_MOX::_moxSystem>()};
    EXPECT_EQ(other.OS().ProductName, u"after");
    EXPECT_EQ(invoke(test.system.get(), u"OS").vt, VT_RECORD);
}

TEST(OSInfo, IsReadAgainWhileTheVersionIsUnknown) {
    SystemOn test({});
    test.store(branchOf95, "ProductName", platform::REG_SZ, "unknown one");
    test.store(branchOfNt, "ProductName", platform::REG_SZ, "known one");
    test.machine->kernel32.GetVersionExA.fail(2);
    const moxOSInfo first = test.system.OS();
    EXPECT_EQ(first.Version, os_UNKNOWN);
    EXPECT_EQ(first.ProductName, u"unknown one");
    const moxOSInfo second = test.system.OS();
    EXPECT_EQ(second.Version, os_WINDOWS_7);
    EXPECT_EQ(second.VersionEx, osex_PROFESSIONAL);
    EXPECT_EQ(second.VersionSP.spMajor, 1);
    EXPECT_EQ(second.VersionSP.spString, u"Service Pack 1");
    EXPECT_EQ(second.ProductName, u"known one");
}

TEST(OSInfo, EveryFaultEndsInADefault) {
    sweepFaults([](FaultRun& run) {
        Apartment::endCurrent();
        const moxSystem system{server::create<TRL_OBKR_MOX::_moxSystem>()};
        const moxOSInfo info = system.OS();
        if (!run.faulted()) {
            EXPECT_EQ(info.VersionString, u"Windows 7 - Professional (Service Pack 1)");
        }
        EXPECT_FALSE(info.ProductId.empty());
        EXPECT_FALSE(info.VersionString.empty());
    });
}

TEST(ProductKey, IsANumberToTheBase24) {
    const auto id = [](std::string_view number) {
        std::string bytes(52, '\xEE');
        bytes += number;
        bytes.resize(52 + 15);
        return bytes + "more";
    };
    const std::pair<std::string, const char16_t*> rows[] = {
        {id(""), u"BBBBB-BBBBB-BBBBB-BBBBB-BBBBB"},
        {id("\x01"), u"BBBBB-BBBBB-BBBBB-BBBBB-BBBBC"},
        {id("\x17"), u"BBBBB-BBBBB-BBBBB-BBBBB-BBBB9"},
        {id("\x18"), u"BBBBB-BBBBB-BBBBB-BBBBB-BBBCB"},
        {id("\0\x01"s), u"BBBBB-BBBBB-BBBBB-BBBBB-BBBQY"}, // 256 = 10 * 24 + 16
        {std::string(66, 'x'), u""},
        {"", u""},
    };
    for (const auto& [bytes, key] : rows) {
        EXPECT_EQ(server::productKey(bytes), key);
    }
    // 24 to the power 25 is more than 15 bytes hold: the first character is never one of the last.
    EXPECT_EQ(server::productKey(std::string(67, '\xFF')).size(), 29u);
    SystemOn test({});
    test.store(branchOfNt, "DigitalProductId", platform::REG_BINARY, id("\x18"));
    EXPECT_EQ(test.system.OS().ProductKey, u"BBBBB-BBBBB-BBBBB-BBBBB-BBBCB");
}

TEST(System, HandsOutOneRegistry) {
    TestMachine machine;
    const moxHub hub{server::create<TRL_OBKR_MOX::_moxHub>()};
    EXPECT_EQ(hub.System().Registry().get(), hub.System().Registry().get());
}

TEST(System, RaisesAnErrorForWhatHasNoCode) {
    TestMachine machine;
    const moxSystem system{server::create<TRL_OBKR_MOX::_moxSystem>()};
    EXPECT_EQ(errorOf([&] { system.User(); }), 445);
    EXPECT_EQ(errorOf([&] { system.Printers(); }), 445);
}

} // namespace

} // namespace mox::test
