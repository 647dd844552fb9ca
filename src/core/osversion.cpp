#include "core/osversion.h"

#include "automation/objects/errormodes.h"
#include "core/ansi.h"
#include "core/classes.h"
#include "core/numberreading.h"
#include "core/osversiontables.h"

#include "platform/kernel32.h"
#include "platform/user32.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace mox::server::modMoxHub {

namespace {

using namespace platform;

constexpr std::uint32_t extendedRecord = 156;
constexpr std::uint32_t shortRecord = 148;

constexpr std::uint32_t platformWindows = 1;
constexpr std::uint32_t platformNt = 2;
constexpr std::uint8_t workstation = 1;

// Suites that tell editions.
constexpr std::uint16_t suiteEnterprise = 2;
constexpr std::uint16_t suiteEmbedded = 64;
constexpr std::uint16_t suiteDatacenter = 128;
constexpr std::uint16_t suitePersonal = 512;
constexpr std::uint16_t suiteBlade = 1024;
constexpr std::uint16_t suiteStorage = 8192;
constexpr std::uint16_t suiteComputeCluster = 16384;

struct VersionCache {
    SYS_OS_VERSION Version = os_UNKNOWN;
    SYS_OS_VERSION_EX VersionEx = osex_NONE;
    Integer spMajor = 0;
    Integer spMinor = 0;
    String spString;
};

std::optional<OSVERSIONINFOEXA> reportedVersion() {
    for (const std::uint32_t size : {extendedRecord, shortRecord}) {
        OSVERSIONINFOEXA record;
        record.dwOSVersionInfoSize = size;
        if (kernel32().GetVersionExA(record)) {
            return record;
        }
    }
    return std::nullopt;
}

/// A text that fills its whole field has no end and counts as none.
std::string_view serviceText(const OSVERSIONINFOEXA& record) {
    constexpr std::size_t fieldSize = 128;
    const std::string_view text = record.szCSDVersion;
    return text.size() < fieldSize ? text.substr(0, text.find('\0')) : std::string_view();
}

/// The letter that tells the releases of the line of Windows 95, '\0' if there is none.
char releaseLetter(const OSVERSIONINFOEXA& record) {
    const std::size_t place = record.szCSDVersion.find_first_not_of(' ');
    return place == std::string::npos ? '\0' : record.szCSDVersion[place];
}

/// What the text says: "Service Pack 3".
void readServicePackText(const OSVERSIONINFOEXA& record, VersionCache& result) {
    constexpr std::u16string_view start = u"service";
    result.spString = fromAnsi(serviceText(record));
    const std::u16string_view text = result.spString;
    if (std::ranges::equal(text.substr(0, start.size()), start, {}, typelib::foldCase)) {
        result.spMajor = static_cast<Integer>(Val(text.substr(text.size() - 1)));
    }
}

void readServicePackFields(const OSVERSIONINFOEXA& record, VersionCache& result) {
    result.spMajor = static_cast<Integer>(record.wServicePackMajor);
    result.spMinor = static_cast<Integer>(record.wServicePackMinor);
    result.spString = fromAnsi(serviceText(record));
}

bool hasSuite(const OSVERSIONINFOEXA& record, std::uint16_t suite) {
    return (record.wSuiteMask & suite) != 0;
}

SYS_OS_VERSION versionOfWindows95Line(const OSVERSIONINFOEXA& record) {
    const char letter = releaseLetter(record);
    switch (record.dwMinorVersion) {
    case 0:
        return letter == 'C' ? os_95_OSR2 : os_95;
    case 10:
        return letter == 'A' || letter == 'B' ? os_98SE : os_98;
    default:
        return os_ME;
    }
}

SYS_OS_VERSION_EX editionOfNt4(const OSVERSIONINFOEXA& record) {
    if (record.wProductType == workstation) {
        return osex_NT4_Workstation;
    }
    return hasSuite(record, suiteEnterprise) ? osex_NT4_EnterpriseServer : osex_NT4_Server;
}

SYS_OS_VERSION_EX editionOf2000(const OSVERSIONINFOEXA& record) {
    if (record.wProductType == workstation) {
        return osex_W2K_Workstation;
    }
    if (hasSuite(record, suiteDatacenter)) {
        return osex_W2K_DatacenterServer;
    }
    return hasSuite(record, suiteEnterprise) ? osex_W2K_AdvancedServer : osex_W2K_Server;
}

SYS_OS_VERSION_EX editionOfXp(const OSVERSIONINFOEXA& record) {
    if (user32().GetSystemMetrics(SM_MEDIACENTER) != 0) {
        return osex_XP_MediaCenter;
    }
    if (hasSuite(record, suitePersonal)) {
        return osex_XP_Home;
    }
    return hasSuite(record, suiteEmbedded) ? osex_XP_Embedded : osex_XP_Professional;
}

SYS_OS_VERSION_EX editionOf2003(const OSVERSIONINFOEXA& record, SYS_OS_VERSION version) {
    if (version == os_SERVER_2003R2 && hasSuite(record, suiteStorage)) {
        return osex_SRV2003_R2StorageServer;
    }
    if (hasSuite(record, suiteDatacenter)) {
        return osex_SRV2003_DatacenterServer;
    }
    if (hasSuite(record, suiteEnterprise)) {
        return osex_SRV2003_EnterpriseServer;
    }
    if (hasSuite(record, suiteBlade)) {
        return osex_SRV2003_WebServer;
    }
    return hasSuite(record, suiteComputeCluster) ? osex_SRV2003_ComputeClusterServer : osex_SRV2003_Server;
}

std::optional<std::uint32_t> productType(const OSVERSIONINFOEXA& record) {
    std::uint32_t type = 0;
    const bool isKnown = kernel32().GetProductInfo(record.dwMajorVersion, record.dwMinorVersion, record.wServicePackMajor,
                                                   record.wServicePackMinor, type);
    return isKnown ? std::optional(type) : std::nullopt;
}

void detect5(const OSVERSIONINFOEXA& record, VersionCache& result) {
    if (record.dwMinorVersion > 2) {
        result.Version = os_SERVER_2003R2;
        result.VersionEx = osex_SRV2003_Server;
        return;
    }
    if (record.dwMinorVersion == 0) {
        result.Version = os_2K;
        result.VersionEx = editionOf2000(record);
    } else if (record.dwMinorVersion == 1 || record.wProductType == workstation) {
        result.Version = record.dwMinorVersion == 1 ? os_XP : os_XPx64;
        result.VersionEx = editionOfXp(record);
    } else {
        result.Version = user32().GetSystemMetrics(SM_SERVERR2) != 0 ? os_SERVER_2003R2 : os_SERVER_2003;
        result.VersionEx = editionOf2003(record, result.Version);
    }
    readServicePackText(record, result);
}

void detect6(const OSVERSIONINFOEXA& record, VersionCache& result) {
    const bool isWorkstation = record.wProductType == workstation;
    switch (record.dwMinorVersion) {
    case 0:
        result.Version = isWorkstation ? os_Vista : os_SERVER_2008;
        break;
    case 1:
        result.Version = isWorkstation ? os_WINDOWS_7 : os_SERVER_2008R2;
        break;
    case 2:
        result.Version = isWorkstation ? os_WINDOWS_8 : os_SERVER_2012;
        break;
    default:
        result.Version = os_NewerVersion;
        return;
    }
    const std::optional<std::uint32_t> product = productType(record);
    if (product && record.dwMinorVersion == 0) {
        result.VersionEx = editionOfVista(*product, result.Version);
    } else if (product) {
        result.VersionEx = editionOfWindows7(*product);
    }
    // A home server reports itself as a workstation.
    if (result.VersionEx == osex_SRV2008_ServerHome) {
        result.Version = os_SERVER_2008;
    }
    readServicePackFields(record, result);
}

void detectNt(const OSVERSIONINFOEXA& record, VersionCache& result) {
    switch (record.dwMajorVersion) {
    case 0:
    case 1:
    case 2:
        break;
    case 3:
        result.Version = os_NT351;
        break;
    case 4:
        result.Version = os_NT4;
        result.VersionEx = editionOfNt4(record);
        readServicePackText(record, result);
        break;
    case 5:
        detect5(record, result);
        break;
    case 6:
        detect6(record, result);
        break;
    default:
        result.Version = os_NewerVersion;
    }
}

VersionCache detect(const OSVERSIONINFOEXA& record) {
    VersionCache result;
    if (record.dwPlatformId == platformWindows && record.dwMajorVersion == 4) {
        result.Version = versionOfWindows95Line(record);
    } else if (record.dwPlatformId == platformNt) {
        detectNt(record, result);
    } else if (record.dwPlatformId > platformNt) {
        result.Version = os_NewerVersion;
    }
    return result;
}

} // namespace

SYS_OS_VERSION GetOSVersion(SYS_OS_VERSION_EX& VersionEx, Integer& spMajor, Integer& spMinor, String& spString) noexcept {
    SYS_OS_VERSION result = os_UNKNOWN;
    trapAndLeave([&] {
        VersionCache& cache = moduleState<VersionCache>();
        if (cache.Version == os_UNKNOWN) {
            const std::optional<OSVERSIONINFOEXA> record = reportedVersion();
            cache = record ? detect(*record) : VersionCache();
        }
        VersionEx = cache.VersionEx;
        spMajor = cache.spMajor;
        spMinor = cache.spMinor;
        spString = cache.spString;
        result = cache.Version;
    });
    return result;
}

} // namespace mox::server::modMoxHub
