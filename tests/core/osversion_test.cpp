// The detection of the operating system, for every system that the library knows.
#include "support/faultsweep.h"

#include "automation/objects/apartment.h"
#include "core/osversion.h"
#include "core/osversiontables.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace mox::server::modMoxHub {

namespace {

using test::TestMachine;

struct Answer {
    SYS_OS_VERSION version = os_UNKNOWN;
    SYS_OS_VERSION_EX edition = osex_NONE;
    Integer servicePack = 0;
    Integer servicePackMinor = 0;
    String serviceText{};

    bool operator==(const Answer&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
        return out << answer.version << ", " << answer.edition << ", " << answer.servicePack << "." << answer.servicePackMinor
                   << ", \"" << answer.serviceText.utf8() << "\"";
    }
};

Answer ask() {
    Answer answer;
    answer.version = GetOSVersion(answer.edition, answer.servicePack, answer.servicePackMinor, answer.serviceText);
    return answer;
}

/// What a program on such a machine hears that has not asked before.
Answer detect(host::MachineConfig config) {
    const TestMachine machine(std::move(config));
    Apartment::endCurrent();
    return ask();
}

host::MachineConfig reporting(host::WindowsVersion windows, std::map<std::int32_t, std::int32_t> metrics = {},
                              std::optional<std::uint32_t> product = {}) {
    host::MachineConfig config;
    config.windows = std::move(windows);
    config.metrics = std::move(metrics);
    config.productInfo = product;
    return config;
}

std::string show(const host::WindowsVersion& windows) {
    return std::to_string(windows.platform) + ": " + std::to_string(windows.major) + "." + std::to_string(windows.minor) +
           ", \"" + windows.serviceText + "\", type " + std::to_string(windows.productType) + ", suite " +
           std::to_string(windows.suite);
}

constexpr std::uint32_t workstation = 1;
constexpr std::uint32_t server = 3;

TEST(OSVersion, SystemsOfTheLineOfWindows95) {
    struct Row {
        std::uint32_t minor;
        const char* text;
        SYS_OS_VERSION version;
    };
    const Row rows[] = {
        {0, "", os_95},   {0, "B", os_95}, {0, "C", os_95_OSR2}, {0, "  C ", os_95_OSR2}, {0, "c", os_95},
        {0, "xC", os_95}, {10, "", os_98}, {10, "A", os_98SE},   {10, " A ", os_98SE},    {10, "B", os_98SE},
        {10, "C", os_98}, {90, "", os_ME}, {90, "A", os_ME},     {1, "C", os_ME},
    };
    for (const Row& row : rows) {
        const host::WindowsVersion windows{4, row.minor, 0, 1, row.text, workstation, 0};
        EXPECT_EQ(detect(reporting(windows)), Answer{row.version}) << show(windows);
    }
}

TEST(OSVersion, SystemsOfTheLineOfWindowsNt) {
    struct Row {
        host::WindowsVersion windows;
        Answer answer;
        std::map<std::int32_t, std::int32_t> metrics{};
    };
    const std::map<std::int32_t, std::int32_t> mediaCenter{{87, 1}};
    const std::map<std::int32_t, std::int32_t> release2{{89, 1}};
    const Row rows[] = {
        {{3, 51, 0, 2, "Service Pack 5", workstation, 0}, {os_NT351}},
        {{3, 10, 0, 2, "", server, 2}, {os_NT351}},
        // Version 4: the product type is known from service pack 6 on.
        {{4, 0, 0, 2, "Service Pack 6", workstation, 2}, {os_NT4, osex_NT4_Workstation, 6, 0, u"Service Pack 6"}},
        {{4, 0, 0, 2, "Service Pack 6", server, 2}, {os_NT4, osex_NT4_EnterpriseServer, 6, 0, u"Service Pack 6"}},
        {{4, 0, 0, 2, "Service Pack 6", server, 128}, {os_NT4, osex_NT4_Server, 6, 0, u"Service Pack 6"}},
        {{4, 0, 0, 2, "Service Pack 3", workstation, 0}, {os_NT4, osex_NT4_Server, 3, 0, u"Service Pack 3"}},
        // 2000
        {{5, 0, 0, 2, "", workstation, 130}, {os_2K, osex_W2K_Workstation}},
        {{5, 0, 0, 2, "Service Pack 4", server, 130}, {os_2K, osex_W2K_DatacenterServer, 4, 0, u"Service Pack 4"}},
        {{5, 0, 0, 2, "", server, 2}, {os_2K, osex_W2K_AdvancedServer}},
        {{5, 0, 0, 2, "", server, 512}, {os_2K, osex_W2K_Server}},
        // XP
        {{5, 1, 0, 2, "", workstation, 512 + 64}, {os_XP, osex_XP_MediaCenter}, mediaCenter},
        {{5, 1, 0, 2, "Service Pack 3", workstation, 512 + 64}, {os_XP, osex_XP_Home, 3, 0, u"Service Pack 3"}},
        {{5, 1, 0, 2, "", workstation, 64}, {os_XP, osex_XP_Embedded}},
        {{5, 1, 0, 2, "", workstation, 256}, {os_XP, osex_XP_Professional}},
        {{5, 1, 0, 2, "", server, 0}, {os_XP, osex_XP_Professional}},
        {{5, 2, 0, 2, "Service Pack 2", workstation, 8192 + 2}, {os_XPx64, osex_XP_Professional, 2, 0, u"Service Pack 2"}},
        {{5, 2, 0, 2, "", workstation, 512}, {os_XPx64, osex_XP_Home}, release2},
        // Server 2003
        {{5, 2, 0, 2, "", server, 0}, {os_SERVER_2003, osex_SRV2003_Server}},
        {{5, 2, 0, 2, "", 2, 0}, {os_SERVER_2003R2, osex_SRV2003_Server}, release2},
        {{5, 2, 0, 2, "Service Pack 1", server, 8192 + 128 + 2 + 1024 + 16384},
         {os_SERVER_2003R2, osex_SRV2003_R2StorageServer, 1, 0, u"Service Pack 1"},
         release2},
        {{5, 2, 0, 2, "", server, 8192}, {os_SERVER_2003, osex_SRV2003_Server}},
        {{5, 2, 0, 2, "", server, 8192 + 128 + 2 + 1024 + 16384}, {os_SERVER_2003, osex_SRV2003_DatacenterServer}},
        {{5, 2, 0, 2, "", server, 2 + 1024 + 16384}, {os_SERVER_2003, osex_SRV2003_EnterpriseServer}},
        {{5, 2, 0, 2, "", server, 1024 + 16384}, {os_SERVER_2003, osex_SRV2003_WebServer}},
        {{5, 2, 0, 2, "", server, 16384}, {os_SERVER_2003, osex_SRV2003_ComputeClusterServer}},
        {{5, 3, 0, 2, "Service Pack 1", workstation, 128}, {os_SERVER_2003R2, osex_SRV2003_Server}},
        // Newer ones, and what is none
        {{6, 3, 0, 2, "Service Pack 1", workstation, 0}, {os_NewerVersion}},
        {{7, 0, 0, 2, "Service Pack 1", server, 0}, {os_NewerVersion}},
        {{10, 0, 0, 2, "", workstation, 0}, {os_NewerVersion}},
        {{1, 0, 0, 3, "Service Pack 1", workstation, 0}, {os_NewerVersion}},
        {{4, 0, 0, 0, "C", workstation, 0}, {os_UNKNOWN}},
        {{3, 0, 0, 1, "C", workstation, 0}, {os_UNKNOWN}},
        {{5, 0, 0, 1, "C", workstation, 0}, {os_UNKNOWN}},
        {{2, 0, 0, 2, "", workstation, 0}, {os_UNKNOWN}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(detect(reporting(row.windows, row.metrics)), row.answer) << show(row.windows);
    }
}

TEST(OSVersion, ServicePacksInTheText) {
    struct Row {
        std::string text;
        Integer number;
        const char16_t* result;
    };
    const Row rows[] = {
        {"sErViCe pack 3", 3, u"sErViCe pack 3"},
        {"Service Pack 12", 2, u"Service Pack 12"},
        {"Service", 0, u"Service"},
        {"service pack x", 0, u"service pack x"},
        {"Servic 3", 0, u"Servic 3"},
        {"Dodatek 3", 0, u"Dodatek 3"},
        {std::string(127, '1'), 0, nullptr},
        {std::string(128, '1'), 0, u""}, // no end within the field
        {"1", 0, u"1"},
    };
    for (const Row& row : rows) {
        const Answer answer = detect(reporting({5, 1, 2600, 2, row.text, workstation, 0}));
        const String expected = row.result ? String(row.result) : String::fromUtf8(row.text);
        EXPECT_EQ(answer, (Answer{os_XP, osex_XP_Professional, row.number, 0, expected})) << row.text;
    }
}

TEST(OSVersion, ServicePacksInTheRecord) {
    TestMachine machine;
    const auto replacement = machine->kernel32.GetVersionExA.replace([](platform::OSVERSIONINFOEXA& record) {
        record.dwMajorVersion = 6;
        record.dwPlatformId = 2;
        record.wProductType = 1;
        record.szCSDVersion = "Service Pack 3";
        record.wServicePackMajor = 2;
        record.wServicePackMinor = 1;
        return true;
    });
    Apartment::endCurrent();
    EXPECT_EQ(ask(), (Answer{os_Vista, osex_NONE, 2, 1, u"Service Pack 3"})) << "whatever the text says";
}

struct Products {
    std::vector<std::uint32_t> types;
    SYS_OS_VERSION_EX edition;
};

const Products productsOfVista[] = {
    {{0}, osex_NONE},
    {{1, 28}, osex_Vista_Ultimate},
    {{2, 5}, osex_Vista_Basic},
    {{3, 26}, osex_Vista_Premium},
    {{4, 27}, osex_Vista_Enterprise},
    {{6, 16}, osex_Vista_Business},
    {{11}, osex_Vista_Starter},
    {{7, 13}, osex_SRV2008_Server},
    {{8, 12}, osex_SRV2008_DatacenterServer},
    {{9, 24, 25}, osex_SRV2008_SmallBusinessServer},
    {{10, 14, 15}, osex_SRV2008_EnterpriseServer},
    {{17, 29}, osex_SRV2008_WebServer},
    {{18}, osex_SRV2008_ComputeClusterServer},
    {{19}, osex_SRV2008_ServerHome},
    {{20, 21, 22, 23}, osex_SRV2008_StorageServer},
    {{30, 48, 0xABCDABCC}, osex_NONE},
};

const Products productsOfWindows7[] = {
    {{0}, osex_NONE},
    {{1, 28, 71}, osex_ULTIMATE},
    {{2, 5, 67}, osex_HOME_BASIC},
    {{3, 26, 68}, osex_HOME_PREMIUM},
    {{4, 27, 70}, osex_ENTERPRISE},
    {{6, 16}, osex_BUSINESS},
    {{7, 13, 36, 40}, osex_STANDARD_SERVER},
    {{8, 12, 37, 39}, osex_DATACENTER_SERVER},
    {{9}, osex_SMALLBUSINESS_SERVER},
    {{10, 14, 15, 38, 41}, osex_ENTERPRISE_SERVER},
    {{11, 47, 66}, osex_STARTER},
    {{17, 29}, osex_WEB_SERVER},
    {{18, 64}, osex_CLUSTER_SERVER},
    {{19}, osex_HOME_SERVER},
    {{20, 43}, osex_STORAGE_EXPRESS_SERVER},
    {{21, 44}, osex_STORAGE_STANDARD_SERVER},
    {{22, 45}, osex_STORAGE_WORKGROUP_SERVER},
    {{23, 46}, osex_STORAGE_ENTERPRISE_SERVER},
    {{24, 35}, osex_SERVER_FOR_SMALLBUSINESS},
    {{25, 63}, osex_SMALLBUSINESS_SERVER_PREMIUM},
    {{30, 31, 32}, osex_MEDIUMBUSINESS_SERVER},
    {{33}, osex_SERVER_FOUNDATION},
    {{34}, osex_HOME_PREMIUM_SERVER},
    {{42}, osex_HYPERV_SERVER},
    {{48, 49, 69}, osex_PROFESSIONAL},
    {{50}, osex_SB_SOLUTION_SERVER},
    {{51, 54, 55}, osex_SERVER_FOR_SB_SOLUTIONS},
    {{52, 53}, osex_STANDARD_SERVER_SOLUTIONS},
    {{56, 76, 77}, osex_MULTIPOINT_SERVER},
    {{59, 60, 61, 62}, osex_ESSENTIALBUSINESS_SERVER},
    {{72, 84}, osex_ENTERPRISE_EVALUATION},
    {{79}, osex_STANDARD_EVALUATION_SERVER},
    {{80}, osex_DATACENTER_EVALUATION_SERVER},
    {{95}, osex_STORAGE_WORKGROUP_EVALUATION_SERVER},
    {{96}, osex_STORAGE_STANDARD_EVALUATION_SERVER},
    {{98, 99, 100, 101}, osex_CORE},
    {{103}, osex_PROFESSIONAL_WMC},
    {{0xABCDABCD}, osex_UNLICENSED},
    {{57, 65, 78, 97, 102, 104, 0xABCDABCE}, osex_NONE},
};

TEST(OSVersion, EditionsOfVistaAndServer2008) {
    for (const auto& [types, edition] : productsOfVista) {
        for (const std::uint32_t type : types) {
            const bool isHomeServer = type == 19;
            const Answer station{isHomeServer ? os_SERVER_2008 : os_Vista, edition, 2, 0, u"Service Pack 2"};
            EXPECT_EQ(detect(reporting({6, 0, 6002, 2, "Service Pack 2", workstation, 0}, {}, type)), station) << type;
            const Answer host{os_SERVER_2008, edition, 0, 0, u""};
            EXPECT_EQ(detect(reporting({6, 0, 6001, 2, "", server, 0}, {}, type)), host) << type;
        }
    }
    EXPECT_EQ(detect(reporting({6, 0, 0, 2, "", workstation, 0}, {}, 0xABCDABCD)), (Answer{os_Vista, osex_Vista_Unlicensed}));
    EXPECT_EQ(detect(reporting({6, 0, 0, 2, "", server, 0}, {}, 0xABCDABCD)), (Answer{os_SERVER_2008, osex_SRV2008_Unlicensed}));
}

TEST(OSVersion, EditionsOfWindows7And8) {
    struct Row {
        std::uint32_t minor;
        std::uint32_t productType;
        SYS_OS_VERSION version;
    };
    const Row rows[] = {
        {1, workstation, os_WINDOWS_7}, {1, server, os_SERVER_2008R2}, {2, workstation, os_WINDOWS_8}, {2, 2, os_SERVER_2012}};
    for (const auto& [minor, productType, version] : rows) {
        for (const auto& [types, edition] : productsOfWindows7) {
            for (const std::uint32_t type : types) {
                const Answer answer{version, edition, 1, 0, u"Service Pack 1"};
                EXPECT_EQ(detect(reporting({6, minor, 7601, 2, "Service Pack 1", productType, 0}, {}, type)), answer) << type;
            }
        }
    }
}

TEST(OSVersion, IsAskedOnceAnApartment) {
    TestMachine machine(reporting({5, 1, 2600, 2, "Service Pack 3", workstation, 512}));
    platform::Kernel32& kernel32 = machine->kernel32;
    Apartment::endCurrent();
    const Answer first = ask();
    EXPECT_EQ(first, (Answer{os_XP, osex_XP_Home, 3, 0, u"Service Pack 3"}));
    kernel32.GetVersionExA.reset();
    kernel32.MultiByteToWideChar.reset();
    machine->user32.GetSystemMetrics.reset();
    EXPECT_EQ(ask(), first);
    EXPECT_EQ(kernel32.GetVersionExA.calls() + kernel32.MultiByteToWideChar.calls() + machine->user32.GetSystemMetrics.calls(),
              0u);
    Apartment::endCurrent();
    EXPECT_EQ(ask(), first);
    EXPECT_EQ(kernel32.GetVersionExA.calls(), 1u);
}

TEST(OSVersion, IsAskedAgainAfterAFailure) {
    TestMachine machine(reporting({5, 1, 2600, 2, "Service Pack 3", workstation, 0}));
    Apartment::endCurrent();
    machine->kernel32.GetVersionExA.fail(2);
    EXPECT_EQ(ask(), Answer{});
    EXPECT_EQ(machine->kernel32.GetVersionExA.calls(), 2u);
    EXPECT_EQ(ask().version, os_XP);
}

TEST(OSVersion, EveryFaultLeavesAnAnswer) {
    test::sweepFaults([](test::FaultRun& run) {
        Apartment::endCurrent();
        const Answer answer = ask();
        if (!run.faulted()) {
            EXPECT_EQ(answer, (Answer{os_WINDOWS_7, osex_PROFESSIONAL, 1, 0, u"Service Pack 1"}));
        } else if (answer.version == os_UNKNOWN) {
            EXPECT_EQ(answer, Answer{});
        } else { // the short record, and no product type
            EXPECT_TRUE(answer.version == os_SERVER_2008R2 || answer.version == os_WINDOWS_7) << answer;
            EXPECT_EQ(answer.serviceText, u"Service Pack 1");
        }
    });
}

TEST(OSVersion, NamesOfVersions) {
    const std::pair<SYS_OS_VERSION, std::u16string_view> rows[] = {
        {os_UNKNOWN, u"-unknown-"},
        {os_95, u"Windows 95"},
        {os_95_OSR2, u"Windows 95 OSR2"},
        {os_98, u"Windows 98"},
        {os_98SE, u"Windows 98 SE"},
        {os_ME, u"Windows ME"},
        {os_NT351, u"Windows NT 3.51"},
        {os_NT4, u"Windows NT 4"},
        {os_2K, u"Windows 2000"},
        {os_XP, u"Windows XP"},
        {os_XPx64, u"Windows XP x64"},
        {os_SERVER_2003, u"Windows Server 2003"},
        {os_SERVER_2003R2, u"Windows Server 2003R2"},
        {os_Vista, u"Windows VISTA"},
        {os_SERVER_2008, u"Windows Server 2008"},
        {os_SERVER_2008R2, u"Windows Server 2008R2"},
        {os_WINDOWS_7, u"Windows 7"},
        {os_SERVER_2012, u"Windows Server 2012"},
        {os_WINDOWS_8, u"Windows 8"},
        {os_NewerVersion, u"-unknown new version-"},
        {static_cast<SYS_OS_VERSION>(41), u""},
        {static_cast<SYS_OS_VERSION>(256), u""},
    };
    for (const auto& [version, text] : rows) {
        EXPECT_EQ(textOf(version), text) << version;
    }
}

TEST(OSVersion, NamesOfEditions) {
    const std::pair<SYS_OS_VERSION_EX, std::u16string_view> rows[] = {
        {osex_NONE, u""},
        {osex_NT4_Workstation, u"Workstation"},
        {osex_NT4_Server, u"Server"},
        {osex_NT4_EnterpriseServer, u"EnterpriseServer"},
        {osex_W2K_Workstation, u"Workstation"},
        {osex_W2K_Server, u"Server"},
        {osex_W2K_DatacenterServer, u"DatacenterServer"},
        {osex_W2K_AdvancedServer, u"AdvancedServer"},
        {osex_XP_Home, u"Home"},
        {osex_XP_Professional, u"Professional"},
        {osex_XP_MediaCenter, u"MediaCenter"},
        {osex_XP_Embedded, u"Embedded"},
        {osex_SRV2003_Server, u""},
        {osex_SRV2003_DatacenterServer, u"DatacenterServer"},
        {osex_SRV2003_EnterpriseServer, u"EnterpriseServer"},
        {osex_SRV2003_WebServer, u"WebServer"},
        {osex_SRV2003_ComputeClusterServer, u"ComputeClusterServer"},
        {osex_SRV2003_R2StorageServer, u"StorageServer"},
        {osex_Vista_Unlicensed, u"Unlicensed"},
        {osex_Vista_Starter, u"Starter"},
        {osex_Vista_Basic, u"Basic"},
        {osex_Vista_Premium, u"Premium"},
        {osex_Vista_Business, u"Business"},
        {osex_Vista_Enterprise, u"Enterprise"},
        {osex_Vista_Ultimate, u"Ultimate"},
        {osex_SRV2008_Unlicensed, u"Unlicensed"},
        {osex_SRV2008_ServerHome, u"HomeServer"},
        {osex_SRV2008_Server, u""},
        {osex_SRV2008_SmallBusinessServer, u"SmallBusinessServer"},
        {osex_SRV2008_EnterpriseServer, u"EnterpriseServer"},
        {osex_SRV2008_DatacenterServer, u"DatacenterServer"},
        {osex_SRV2008_WebServer, u"WebServer"},
        {osex_SRV2008_StorageServer, u"StorageServer"},
        {osex_SRV2008_ComputeClusterServer, u"ComputeClusterServer"},
        {osex_UNLICENSED, u"Unlicensed"},
        {osex_STARTER, u"Starter"},
        {osex_HOME_BASIC, u"Home Basic"},
        {osex_HOME_PREMIUM, u"Home Premium"},
        {osex_HOME_SERVER, u"Home Server"},
        {osex_HOME_PREMIUM_SERVER, u"Home Premium Server"},
        {osex_BUSINESS, u"Business"},
        {osex_PROFESSIONAL, u"Professional"},
        {osex_PROFESSIONAL_WMC, u"Professional (Media Center)"},
        {osex_ULTIMATE, u"Ultimate"},
        {osex_CORE, u"Core"},
        {osex_STANDARD_EVALUATION_SERVER, u"Standard Server (Eval)"},
        {osex_STANDARD_SERVER, u"Standard Server"},
        {osex_STANDARD_SERVER_SOLUTIONS, u"Standard Server"},
        {osex_DATACENTER_EVALUATION_SERVER, u"Datacenter (Eval)"},
        {osex_DATACENTER_SERVER, u"Datacenter"},
        {osex_STORAGE_ENTERPRISE_SERVER, u"Storage Server (Enterprise)"},
        {osex_STORAGE_EXPRESS_SERVER, u"Storage Server (Express)"},
        {osex_STORAGE_STANDARD_EVALUATION_SERVER, u"Storage Server (Eval)"},
        {osex_STORAGE_STANDARD_SERVER, u"Storage Server"},
        {osex_STORAGE_WORKGROUP_EVALUATION_SERVER, u"Workgroup Server (Eval)"},
        {osex_STORAGE_WORKGROUP_SERVER, u"Workgroup Server"},
        {osex_ESSENTIALBUSINESS_SERVER, u"Essential Business Server"},
        {osex_SMALLBUSINESS_SERVER, u"Small Business Server"},
        {osex_SMALLBUSINESS_SERVER_PREMIUM, u"Small Business Server (Premium)"},
        {osex_SB_SOLUTION_SERVER, u"Windows Small Business Server 2011 Essentials"},
        {osex_SERVER_FOR_SB_SOLUTIONS, u"Server For SB Solutions"},
        {osex_SERVER_FOR_SMALLBUSINESS, u"Windows Server 2008"},
        {osex_MEDIUMBUSINESS_SERVER, u"Essential Business Server"},
        {osex_ENTERPRISE_EVALUATION, u"Server Enterprise (Eval)"},
        {osex_ENTERPRISE, u"Server Enterprise"},
        {osex_ENTERPRISE_SERVER, u"Server Enterprise"},
        {osex_WEB_SERVER, u"Web Server"},
        {osex_CLUSTER_SERVER, u"Cluster Server"},
        {osex_HYPERV_SERVER, u"Hyper-V Server"},
        {osex_MULTIPOINT_SERVER, u"MultiPoint Server"},
        {osex_SERVER_FOUNDATION, u"Server Foundation"},
        {static_cast<SYS_OS_VERSION_EX>(61), u""},
        {static_cast<SYS_OS_VERSION_EX>(301), u""},
    };
    for (const auto& [edition, text] : rows) {
        EXPECT_EQ(textOf(edition), text) << edition;
    }
}

} // namespace

} // namespace mox::server::modMoxHub
