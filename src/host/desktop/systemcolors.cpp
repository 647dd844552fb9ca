#include "host/desktop/systemcolors.h"

#include <array>

namespace mox::host {

namespace {

constexpr platform::COLORREF rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red | green << 8 | blue << 16;
}

constexpr std::array<platform::COLORREF, 31> colors{
    rgb(200, 200, 200), // scroll bar
    rgb(0, 0, 0),       // desktop
    rgb(153, 180, 209), // active caption
    rgb(191, 205, 219), // inactive caption
    rgb(240, 240, 240), // menu
    rgb(255, 255, 255), // window
    rgb(100, 100, 100), // window frame
    rgb(0, 0, 0),       // menu text
    rgb(0, 0, 0),       // window text
    rgb(0, 0, 0),       // caption text
    rgb(180, 180, 180), // active border
    rgb(244, 247, 252), // inactive border
    rgb(171, 171, 171), // workspace of an application
    rgb(51, 153, 255),  // highlight
    rgb(255, 255, 255), // highlighted text
    rgb(240, 240, 240), // face of buttons
    rgb(160, 160, 160), // shadow of buttons
    rgb(109, 109, 109), // grey text
    rgb(0, 0, 0),       // text of buttons
    rgb(67, 78, 84),    // text of inactive captions
    rgb(255, 255, 255), // highlight of buttons
    rgb(105, 105, 105), // dark shadow
    rgb(227, 227, 227), // light
    rgb(0, 0, 0),       // text of tool tips
    rgb(255, 255, 225), // tool tips
    rgb(0, 0, 0),       // other face of buttons
    rgb(0, 102, 204),   // hot tracking
    rgb(185, 209, 234), // end of an active caption
    rgb(215, 228, 242), // end of an inactive caption
    rgb(51, 153, 255),  // highlight of menus
    rgb(240, 240, 240), // menu bar
};

} // namespace

platform::COLORREF systemColor(std::int32_t index) noexcept {
    return index >= 0 && static_cast<std::size_t>(index) < colors.size() ? colors[static_cast<std::size_t>(index)] : 0;
}

} // namespace mox::host
