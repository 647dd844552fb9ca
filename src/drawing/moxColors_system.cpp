// The colours of the system, of its visual style, and of the task pane that the style draws.
#include "drawing/moxColors.h"

#include "core/systemage.h"
#include "drawing/buffers.h"

#include "platform/gdi32.h"
#include "platform/user32.h"
#include "platform/uxtheme.h"

#include <cmath>

namespace mox::server {

namespace {

using namespace platform;

constexpr Long rgb(Long red, Long green, Long blue) {
    return red + 256 * green + 65536 * blue;
}

/// Where a colour of the task pane is measured, of captions from the middle, and what it is without a style.
struct TaskPaneColor {
    Long part;
    Long state;
    Long x;
    Long y;
    Long fixed;
};

constexpr Long firstTaskPaneColor = dsc_ExplBarNormGroup;
constexpr Long side = 160;
constexpr TaskPaneColor taskPaneColors[] = {
    {5, 0, 80, 80, rgb(214, 223, 247)},   // dsc_ExplBarNormGroup
    {5, 0, 0, 80, rgb(255, 255, 255)},    // dsc_ExplBarNormGroupBrdL
    {5, 0, 80, 0, rgb(197, 210, 240)},    // dsc_ExplBarNormGroupBrdT
    {5, 0, 159, 80, rgb(255, 255, 255)},  // dsc_ExplBarNormGroupBrdR
    {5, 0, 80, 159, rgb(255, 255, 255)},  // dsc_ExplBarNormGroupBrdB
    {4, 1, -2, -1, rgb(0, 60, 165)},      // dsc_ExplBarNormGroupCaption
    {9, 0, 80, 80, rgb(239, 243, 255)},   // dsc_ExplBarSpecGroup
    {9, 0, 0, 80, rgb(255, 255, 255)},    // dsc_ExplBarSpecGroupBrdL
    {9, 0, 80, 0, rgb(18, 80, 186)},      // dsc_ExplBarSpecGroupBrdT
    {9, 0, 159, 80, rgb(255, 255, 255)},  // dsc_ExplBarSpecGroupBrdR
    {9, 0, 80, 159, rgb(255, 255, 255)},  // dsc_ExplBarSpecGroupBrdB
    {10, 1, -1, 1, rgb(255, 255, 255)},   // dsc_ExplBarSpecGroupCaption
    {1, 0, 80, 80, rgb(94, 135, 217)},    // dsc_ExplBarBG_Center
    {1, 0, 0, 0, rgb(51, 102, 204)},      // dsc_ExplBarBG_LeftTop
    {1, 0, 80, 0, rgb(94, 135, 217)},     // dsc_ExplBarBG_Top
    {1, 0, 159, 0, rgb(140, 170, 230)},   // dsc_ExplBarBG_RightTop
    {1, 0, 159, 80, rgb(140, 170, 230)},  // dsc_ExplBarBG_Right
    {1, 0, 159, 159, rgb(140, 170, 230)}, // dsc_ExplBarBG_RightBottom
    {1, 0, 80, 159, rgb(94, 135, 217)},   // dsc_ExplBarBG_Bottom
    {1, 0, 0, 159, rgb(51, 102, 204)},    // dsc_ExplBarBG_LeftBottom
    {1, 0, 0, 80, rgb(51, 102, 204)},     // dsc_ExplBarBG_Left
};
static_assert(firstTaskPaneColor + std::size(taskPaneColors) - 1 == dsc_ExplBarBG_Left);

bool isCaption(Long id) {
    return id == dsc_ExplBarNormGroupCaption || id == dsc_ExplBarSpecGroupCaption;
}

bool isStyled() {
    return isSystemAtLeast(os_XP) && uxtheme().IsThemeActive() && uxtheme().IsAppThemed();
}

Handle openTheme(std::u16string_view classes) {
    return uxtheme().OpenThemeData(user32().GetDesktopWindow(), classes);
}

Long styleColor(Long index) {
    const Handle theme = openTheme(u"GLOBALS");
    const COLORREF color = uxtheme().GetThemeSysColor(theme, index);
    uxtheme().CloseThemeData(theme);
    return static_cast<Long>(color);
}

/// The index that an older system has in the place of one that it does not know.
Long knownIndex(Long id) {
    const bool is2000 = id < dsc_BtnAlternateFace || isSystemAtLeast(os_2K);
    const bool isXP = id < dsc_MenuHilight || isSystemAtLeast(os_XP);
    switch (id) {
    case dsc_BtnAlternateFace:
        return is2000 ? id - dsc_Scrollbar : dsc_BtnFace - dsc_Scrollbar;
    case dsc_HotTracking:
        return is2000 ? id - dsc_Scrollbar : dsc_Highlight - dsc_Scrollbar;
    case dsc_GradientActiveCaption:
        return is2000 ? id - dsc_Scrollbar : dsc_ActiveCaption - dsc_Scrollbar;
    case dsc_GradientInActiveCaption:
        return is2000 ? id - dsc_Scrollbar : dsc_InActiveCaption - dsc_Scrollbar;
    case dsc_MenuHilight:
        return isXP ? id - dsc_Scrollbar : dsc_Highlight - dsc_Scrollbar;
    case dsc_Menubar:
        return isXP ? id - dsc_Scrollbar : dsc_Menu - dsc_Scrollbar;
    default:
        return id - dsc_Scrollbar;
    }
}

/// A white buffer in which a part of the style is measured.
class Sample {
public:
    explicit Sample(SIZE size) : size_(size), buffer_(newBuffer(size.cx, size.cy)), hdc_(contextOf(*buffer_)) {}

    /// Draws the part, ends the theme, and reads a pixel.
    Long drawn(Handle theme, const TaskPaneColor& color, POINT point) const {
        const RECT area{0, 0, size_.cx, size_.cy};
        uxtheme().DrawThemeBackground(theme, hdc_, color.part, color.state, area, area);
        uxtheme().CloseThemeData(theme);
        return static_cast<Long>(gdi32().GetPixel(hdc_, point.x, point.y));
    }

private:
    const SIZE size_;
    const Ref<_moxOffscreenBuffer> buffer_;
    const Handle hdc_;
};

Long measuredColor(Long id) {
    const TaskPaneColor& color = taskPaneColors[id - firstTaskPaneColor];
    if (!isCaption(id)) {
        const Sample sample({side, side});
        return sample.drawn(openTheme(u"EXPLORERBAR"), color, {color.x, color.y});
    }
    // The size is that of the usual caption for both kinds.
    constexpr Long normalCaption = 4;
    const Handle theme = openTheme(u"EXPLORERBAR");
    SIZE size;
    uxtheme().GetThemePartSize(theme, 0, normalCaption, 1, RECT(), TS_TRUE, size);
    const auto half = [](Long extent) { return static_cast<Long>(std::nearbyint(extent / 2.0)); };
    return Sample(size).drawn(theme, color, {half(size.cx) + color.x, half(size.cy) + color.y});
}

} // namespace

Long moxColors::get_SystemColor(moX_DRAW_SYSCOLOR eColor) {
    const Long id = eColor;
    const bool styled = isStyled();
    if (id >= dsc_Scrollbar && id <= dsc_Menubar) {
        return styled ? styleColor(id - dsc_Scrollbar) : static_cast<Long>(user32().GetSysColor(knownIndex(id)));
    }
    if (id >= firstTaskPaneColor && id <= dsc_ExplBarBG_Left) {
        return styled ? measuredColor(id) : taskPaneColors[id - firstTaskPaneColor].fixed;
    }
    return 0;
}

} // namespace mox::server
