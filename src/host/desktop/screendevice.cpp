#include "host/desktop/screendevice.h"

#include "host/desktop/screen.h"

#include "platform/gditypes.h"

#include <cmath>

namespace mox::host {

namespace {

std::int32_t millimetres(int pixels) {
    return static_cast<std::int32_t>(std::lround(pixels * 25.4 / screenDotsPerInch));
}

} // namespace

std::int32_t ScreenDevice::capability(std::int32_t index) const {
    switch (index) {
    case platform::TECHNOLOGY:
        return 1; // raster display
    case platform::HORZSIZE:
        return millimetres(screenWidth);
    case platform::VERTSIZE:
        return millimetres(screenHeight);
    case platform::HORZRES:
        return screenWidth;
    case platform::VERTRES:
        return screenHeight;
    case platform::BITSPIXEL:
        return 32;
    case platform::PLANES:
        return 1;
    case platform::NUMCOLORS:
        return -1; // more than 8 bits a pixel
    case platform::RASTERCAPS:
        return 0x7E99; // copies, stretches, device-independent bitmaps, flood fills, bitmaps beyond 64 KiB
    case platform::LOGPIXELSX:
    case platform::LOGPIXELSY:
        return screenDotsPerInch;
    default:
        return 0;
    }
}

} // namespace mox::host
