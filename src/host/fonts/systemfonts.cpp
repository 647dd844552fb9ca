#include "host/fonts/systemfonts.h"

#include <algorithm>
#include <string_view>

namespace mox::host {

namespace {

platform::LOGFONTA systemFont(const WindowsVersion& version, std::int32_t weight = platform::FW_NORMAL) {
    const bool isNew = version.major >= 6;
    platform::LOGFONTA font{.lfHeight = isNew ? -12 : -11, .lfWeight = weight, .lfCharSet = platform::DEFAULT_CHARSET};
    std::ranges::copy(isNew ? std::string_view("Segoe UI") : std::string_view("Tahoma"), font.lfFaceName.begin());
    return font;
}

} // namespace

platform::LOGFONTA iconTitleFont(const WindowsVersion& version) {
    return systemFont(version);
}

platform::NONCLIENTMETRICSA nonClientMetrics(const WindowsVersion& version) {
    const bool isNew = version.major >= 6;
    platform::NONCLIENTMETRICSA metrics;
    metrics.iBorderWidth = 1;
    metrics.iScrollWidth = 17;
    metrics.iScrollHeight = 17;
    metrics.iCaptionWidth = isNew ? 35 : 25;
    metrics.iCaptionHeight = isNew ? 21 : 25;
    metrics.lfCaptionFont = systemFont(version, isNew ? platform::FW_NORMAL : platform::FW_BOLD);
    metrics.iSmCaptionWidth = 17;
    metrics.iSmCaptionHeight = 17;
    metrics.lfSmCaptionFont = systemFont(version);
    metrics.iMenuWidth = 19;
    metrics.iMenuHeight = 19;
    metrics.lfMenuFont = systemFont(version);
    metrics.lfStatusFont = systemFont(version);
    metrics.lfMessageFont = systemFont(version);
    return metrics;
}

} // namespace mox::host
