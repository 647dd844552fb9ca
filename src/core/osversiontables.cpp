#include "core/osversiontables.h"

#include <algorithm>
#include <iterator>

namespace mox::server::modMoxHub {

namespace {

struct Product {
    std::uint32_t type;
    SYS_OS_VERSION_EX edition;
};

struct VersionText {
    SYS_OS_VERSION version;
    std::u16string_view text;
};

struct EditionText {
    SYS_OS_VERSION_EX edition;
    std::u16string_view text;
};

constexpr std::uint32_t unlicensed = 0xABCDABCD;

// Sorted by their first fields.
constexpr Product productsOfVista[] = {
    {1, osex_Vista_Ultimate},
    {2, osex_Vista_Basic},
    {3, osex_Vista_Premium},
    {4, osex_Vista_Enterprise},
    {5, osex_Vista_Basic},
    {6, osex_Vista_Business},
    {7, osex_SRV2008_Server},
    {8, osex_SRV2008_DatacenterServer},
    {9, osex_SRV2008_SmallBusinessServer},
    {10, osex_SRV2008_EnterpriseServer},
    {11, osex_Vista_Starter},
    {12, osex_SRV2008_DatacenterServer},
    {13, osex_SRV2008_Server},
    {14, osex_SRV2008_EnterpriseServer},
    {15, osex_SRV2008_EnterpriseServer},
    {16, osex_Vista_Business},
    {17, osex_SRV2008_WebServer},
    {18, osex_SRV2008_ComputeClusterServer},
    {19, osex_SRV2008_ServerHome},
    {20, osex_SRV2008_StorageServer},
    {21, osex_SRV2008_StorageServer},
    {22, osex_SRV2008_StorageServer},
    {23, osex_SRV2008_StorageServer},
    {24, osex_SRV2008_SmallBusinessServer},
    {25, osex_SRV2008_SmallBusinessServer},
    {26, osex_Vista_Premium},
    {27, osex_Vista_Enterprise},
    {28, osex_Vista_Ultimate},
    {29, osex_SRV2008_WebServer},
};

constexpr Product productsOfWindows7[] = {
    {1, osex_ULTIMATE},
    {2, osex_HOME_BASIC},
    {3, osex_HOME_PREMIUM},
    {4, osex_ENTERPRISE},
    {5, osex_HOME_BASIC},
    {6, osex_BUSINESS},
    {7, osex_STANDARD_SERVER},
    {8, osex_DATACENTER_SERVER},
    {9, osex_SMALLBUSINESS_SERVER},
    {10, osex_ENTERPRISE_SERVER},
    {11, osex_STARTER},
    {12, osex_DATACENTER_SERVER},
    {13, osex_STANDARD_SERVER},
    {14, osex_ENTERPRISE_SERVER},
    {15, osex_ENTERPRISE_SERVER},
    {16, osex_BUSINESS},
    {17, osex_WEB_SERVER},
    {18, osex_CLUSTER_SERVER},
    {19, osex_HOME_SERVER},
    {20, osex_STORAGE_EXPRESS_SERVER},
    {21, osex_STORAGE_STANDARD_SERVER},
    {22, osex_STORAGE_WORKGROUP_SERVER},
    {23, osex_STORAGE_ENTERPRISE_SERVER},
    {24, osex_SERVER_FOR_SMALLBUSINESS},
    {25, osex_SMALLBUSINESS_SERVER_PREMIUM},
    {26, osex_HOME_PREMIUM},
    {27, osex_ENTERPRISE},
    {28, osex_ULTIMATE},
    {29, osex_WEB_SERVER},
    {30, osex_MEDIUMBUSINESS_SERVER},
    {31, osex_MEDIUMBUSINESS_SERVER},
    {32, osex_MEDIUMBUSINESS_SERVER},
    {33, osex_SERVER_FOUNDATION},
    {34, osex_HOME_PREMIUM_SERVER},
    {35, osex_SERVER_FOR_SMALLBUSINESS},
    {36, osex_STANDARD_SERVER},
    {37, osex_DATACENTER_SERVER},
    {38, osex_ENTERPRISE_SERVER},
    {39, osex_DATACENTER_SERVER},
    {40, osex_STANDARD_SERVER},
    {41, osex_ENTERPRISE_SERVER},
    {42, osex_HYPERV_SERVER},
    {43, osex_STORAGE_EXPRESS_SERVER},
    {44, osex_STORAGE_STANDARD_SERVER},
    {45, osex_STORAGE_WORKGROUP_SERVER},
    {46, osex_STORAGE_ENTERPRISE_SERVER},
    {47, osex_STARTER},
    {48, osex_PROFESSIONAL},
    {49, osex_PROFESSIONAL},
    {50, osex_SB_SOLUTION_SERVER},
    {51, osex_SERVER_FOR_SB_SOLUTIONS},
    {52, osex_STANDARD_SERVER_SOLUTIONS},
    {53, osex_STANDARD_SERVER_SOLUTIONS},
    {54, osex_SERVER_FOR_SB_SOLUTIONS},
    {55, osex_SERVER_FOR_SB_SOLUTIONS},
    {56, osex_MULTIPOINT_SERVER},
    {59, osex_ESSENTIALBUSINESS_SERVER},
    {60, osex_ESSENTIALBUSINESS_SERVER},
    {61, osex_ESSENTIALBUSINESS_SERVER},
    {62, osex_ESSENTIALBUSINESS_SERVER},
    {63, osex_SMALLBUSINESS_SERVER_PREMIUM},
    {64, osex_CLUSTER_SERVER},
    {66, osex_STARTER},
    {67, osex_HOME_BASIC},
    {68, osex_HOME_PREMIUM},
    {69, osex_PROFESSIONAL},
    {70, osex_ENTERPRISE},
    {71, osex_ULTIMATE},
    {72, osex_ENTERPRISE_EVALUATION},
    {76, osex_MULTIPOINT_SERVER},
    {77, osex_MULTIPOINT_SERVER},
    {79, osex_STANDARD_EVALUATION_SERVER},
    {80, osex_DATACENTER_EVALUATION_SERVER},
    {84, osex_ENTERPRISE_EVALUATION},
    {95, osex_STORAGE_WORKGROUP_EVALUATION_SERVER},
    {96, osex_STORAGE_STANDARD_EVALUATION_SERVER},
    {98, osex_CORE},
    {99, osex_CORE},
    {100, osex_CORE},
    {101, osex_CORE},
    {103, osex_PROFESSIONAL_WMC},
    {unlicensed, osex_UNLICENSED},
};

constexpr VersionText versionTexts[] = {
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
};

constexpr EditionText editionTexts[] = {
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
};

static_assert(std::ranges::is_sorted(productsOfVista, {}, &Product::type));
static_assert(std::ranges::is_sorted(productsOfWindows7, {}, &Product::type));
static_assert(std::ranges::is_sorted(versionTexts, {}, &VersionText::version));
static_assert(std::ranges::is_sorted(editionTexts, {}, &EditionText::edition));

/// The row of a sorted table whose `key` is `value`; null if there is none.
template <class Row, std::size_t size, class Value, class Key>
const Row* findRow(const Row (&table)[size], Value value, Key key) noexcept {
    const Row* const row = std::ranges::lower_bound(table, value, {}, key);
    return row != std::end(table) && row->*key == value ? row : nullptr;
}

} // namespace

SYS_OS_VERSION_EX editionOfVista(std::uint32_t product, SYS_OS_VERSION version) noexcept {
    if (product == unlicensed) {
        return version == os_Vista ? osex_Vista_Unlicensed : osex_SRV2008_Unlicensed;
    }
    const Product* const row = findRow(productsOfVista, product, &Product::type);
    return row ? row->edition : osex_NONE;
}

SYS_OS_VERSION_EX editionOfWindows7(std::uint32_t product) noexcept {
    const Product* const row = findRow(productsOfWindows7, product, &Product::type);
    return row ? row->edition : osex_NONE;
}

std::u16string_view textOf(SYS_OS_VERSION version) noexcept {
    const VersionText* const row = findRow(versionTexts, version, &VersionText::version);
    return row ? row->text : std::u16string_view();
}

std::u16string_view textOf(SYS_OS_VERSION_EX edition) noexcept {
    const EditionText* const row = findRow(editionTexts, edition, &EditionText::edition);
    return row ? row->text : std::u16string_view();
}

} // namespace mox::server::modMoxHub
