#include "host/machine/systemversion.h"

#include "host/desktop/screen.h"

#include "platform/user32.h"

#include <algorithm>
#include <charconv>

namespace mox::host {

namespace {

constexpr std::uint32_t shortRecord = 148;
constexpr std::uint32_t extendedRecord = 156;
constexpr std::uint32_t platformNt = 2;
constexpr std::uint32_t workstation = 1;
constexpr std::size_t serviceTextSize = 128;

// Product types of an edition.
constexpr std::uint32_t business = 6;
constexpr std::uint32_t standardServer = 7;
constexpr std::uint32_t professional = 48;

// Metrics of the screen.
constexpr std::int32_t screenWidthMetric = 0;
constexpr std::int32_t screenHeightMetric = 1;

bool knowsExtendedRecord(const WindowsVersion& windows) {
    constexpr std::uint16_t firstServicePack = 6;
    return windows.platform >= platformNt &&
           (windows.major > 4 || (windows.major == 4 && servicePackOf(windows) >= firstServicePack));
}

std::uint32_t usualProduct(const WindowsVersion& windows) {
    if (windows.productType != workstation) {
        return standardServer;
    }
    return windows.major == 6 && windows.minor == 0 ? business : professional;
}

} // namespace

std::uint16_t servicePackOf(const WindowsVersion& windows) {
    const std::string& text = windows.serviceText;
    constexpr std::string_view digits = "0123456789";
    const std::size_t last = text.find_last_of(digits);
    if (last == text.npos) {
        return 0;
    }
    const std::size_t before = text.find_last_not_of(digits, last);
    std::uint16_t number = 0;
    std::from_chars(text.data() + (before == text.npos ? 0 : before + 1), text.data() + last + 1, number);
    return number;
}

bool describeVersion(const WindowsVersion& windows, const CodePage& codePage, platform::OSVERSIONINFOEXA& record) {
    const bool isExtended = record.dwOSVersionInfoSize == extendedRecord;
    if (isExtended ? !knowsExtendedRecord(windows) : record.dwOSVersionInfoSize != shortRecord) {
        return false;
    }
    record.dwMajorVersion = windows.major;
    record.dwMinorVersion = windows.minor;
    record.dwBuildNumber = windows.build;
    record.dwPlatformId = windows.platform;
    record.szCSDVersion = codePage.fromUtf8(windows.serviceText).substr(0, serviceTextSize);
    if (isExtended) {
        record.wServicePackMajor = servicePackOf(windows);
        record.wServicePackMinor = 0;
        record.wSuiteMask = static_cast<std::uint16_t>(windows.suite);
        record.wProductType = static_cast<std::uint8_t>(windows.productType);
    }
    return true;
}

bool describeProduct(const MachineConfig& config, std::uint32_t major, std::uint32_t& type) {
    constexpr std::uint32_t firstMajor = 6;
    type = 0;
    if (config.windows.major < firstMajor || major < firstMajor) {
        return false;
    }
    type = config.productInfo.value_or(usualProduct(config.windows));
    return true;
}

std::int32_t systemMetric(const MachineConfig& config, std::int32_t index) {
    if (const auto metric = config.metrics.find(index); metric != config.metrics.end()) {
        return metric->second;
    }
    switch (index) {
    case screenWidthMetric:
        return screenWidth;
    case screenHeightMetric:
        return screenHeight;
    case platform::SM_CXICON:
    case platform::SM_CYICON:
        return 32;
    case platform::SM_CXSMICON:
    case platform::SM_CYSMICON:
        return 16;
    default:
        return 0;
    }
}

} // namespace mox::host
