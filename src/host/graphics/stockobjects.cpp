#include "host/graphics/stockobjects.h"

#include "host/graphics/objects.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace mox::host {

namespace {

Font stockFont(std::int32_t height, std::int32_t weight, std::uint8_t pitchAndFamily, std::string_view face) {
    Font font{{.lfHeight = height, .lfWeight = weight, .lfPitchAndFamily = pitchAndFamily}};
    std::ranges::copy(face, font.description.lfFaceName.begin());
    return font;
}

} // namespace

std::map<std::int32_t, platform::Handle> openStockObjects(Handles& handles) {
    using namespace platform;
    std::map<std::int32_t, Handle> stock;
    const auto add = [&]<class Object>(std::int32_t index, Object object) {
        stock[index] = handles.open<Object>("", std::make_shared<Object>(std::move(object)));
    };
    add(WHITE_BRUSH, Brush{BS_SOLID, 0xFFFFFF, 0, nullptr, 0});
    add(LTGRAY_BRUSH, Brush{BS_SOLID, 0xC0C0C0, 0, nullptr, 0});
    add(GRAY_BRUSH, Brush{BS_SOLID, 0x808080, 0, nullptr, 0});
    add(DKGRAY_BRUSH, Brush{BS_SOLID, 0x404040, 0, nullptr, 0});
    add(BLACK_BRUSH, Brush{BS_SOLID, 0, 0, nullptr, 0});
    add(NULL_BRUSH, Brush{BS_NULL, 0, 0, nullptr, 0});
    add(WHITE_PEN, Pen{PS_SOLID, 0, 0xFFFFFF});
    add(BLACK_PEN, Pen{PS_SOLID, 0, 0});
    add(NULL_PEN, Pen{PS_NULL, 0, 0});
    // Heights of the usual screen at 96 dots per inch.
    constexpr std::uint8_t fixed = FIXED_PITCH | FF_MODERN;
    constexpr std::uint8_t variable = VARIABLE_PITCH | FF_SWISS;
    add(OEM_FIXED_FONT, stockFont(12, FW_NORMAL, fixed, "Terminal"));
    add(ANSI_FIXED_FONT, stockFont(12, FW_NORMAL, fixed, "Courier"));
    add(ANSI_VAR_FONT, stockFont(12, FW_NORMAL, variable, "MS Sans Serif"));
    add(SYSTEM_FONT, stockFont(16, FW_BOLD, variable, "System"));
    add(DEVICE_DEFAULT_FONT, stockFont(16, FW_BOLD, variable, "System"));
    add(SYSTEM_FIXED_FONT, stockFont(15, FW_NORMAL, fixed, "Fixedsys"));
    add(DEFAULT_GUI_FONT, stockFont(-11, FW_NORMAL, variable, "MS Shell Dlg"));
    stock[firstBitmapIndex] = handles.open<Bitmap>("", Bitmap::create({.width = 1, .height = 1, .bitsPerPixel = 1}));
    return stock;
}

} // namespace mox::host
