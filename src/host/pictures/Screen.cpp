#include "host/pictures/Screen.h"

#include "platform/runtime.h"
#include "platform/user32.h"

namespace mox::runtime {

namespace {

constexpr std::int32_t widthOfScreen = 0;
constexpr std::int32_t heightOfScreen = 1;

} // namespace

Single Screen::get_Width() const {
    return static_cast<Single>(platform::user32().GetSystemMetrics(widthOfScreen)) * get_TwipsPerPixelX();
}

Single Screen::get_Height() const {
    return static_cast<Single>(platform::user32().GetSystemMetrics(heightOfScreen)) * get_TwipsPerPixelY();
}

Single Screen::get_TwipsPerPixelX() const {
    return platform::runtime().ScreenTwipsPerPixelX();
}

Single Screen::get_TwipsPerPixelY() const {
    return platform::runtime().ScreenTwipsPerPixelY();
}

} // namespace mox::runtime
