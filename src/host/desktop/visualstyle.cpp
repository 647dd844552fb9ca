#include "host/desktop/visualstyle.h"

#include "host/desktop/systemcolors.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mox::host {

namespace {

using platform::COLORREF;

constexpr COLORREF rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red | green << 8 | blue << 16;
}

/// Where the style has colours of its own.
constexpr std::pair<std::int32_t, COLORREF> ownColors[] = {
    {0, rgb(212, 208, 200)},  {1, rgb(58, 110, 165)},   {2, rgb(0, 84, 227)},    {3, rgb(122, 150, 223)},
    {9, rgb(255, 255, 255)},  {10, rgb(212, 208, 200)}, {13, rgb(49, 106, 197)}, {15, rgb(236, 233, 216)},
    {16, rgb(172, 168, 153)}, {19, rgb(216, 228, 248)}, {27, rgb(61, 149, 255)}, {28, rgb(157, 185, 235)},
    {29, rgb(49, 106, 197)},  {30, rgb(236, 233, 216)},
};

/// How a part is filled: from one colour to another, with a border of one pixel if it has one.
struct PartLook {
    std::int32_t part;
    COLORREF from;
    COLORREF to;
    bool isVertical;
    std::optional<COLORREF> border;
    SIZE size;
};

constexpr PartLook explorerBar[] = {
    {1, rgb(122, 161, 230), rgb(99, 117, 214), true, std::nullopt, {200, 200}},       // ground of the pane
    {4, rgb(255, 255, 255), rgb(198, 211, 247), false, std::nullopt, {120, 25}},      // caption of a group
    {5, rgb(214, 223, 247), rgb(214, 223, 247), true, rgb(255, 255, 255), {120, 60}}, // body of a group
    {9, rgb(239, 243, 255), rgb(239, 243, 255), true, rgb(255, 255, 255), {120, 60}}, // body of a special group
    {10, rgb(0, 73, 181), rgb(41, 93, 206), false, std::nullopt, {120, 25}},          // caption of a special group
};

const PartLook* lookOf(const Theme& theme, std::int32_t part) noexcept {
    if (theme.kind != Theme::Kind::explorerBar) {
        return nullptr;
    }
    const auto found = std::ranges::find(explorerBar, part, &PartLook::part);
    return found == std::end(explorerBar) ? nullptr : found;
}

COLORREF between(COLORREF from, COLORREF to, std::int64_t place, std::int64_t count) {
    COLORREF result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const auto low = static_cast<std::int64_t>(from >> shift & 0xFF);
        const auto high = static_cast<std::int64_t>(to >> shift & 0xFF);
        result |= static_cast<COLORREF>(count < 2 ? low : low + (high - low) * place / (count - 1)) << shift;
    }
    return result;
}

bool fill(DeviceContext& context, const RECT& area, const RECT& clip, COLORREF color) {
    const RECT visible = intersection(area, clip);
    return isEmpty(visible) || context.fillRect(visible, {.color = color});
}

bool fillGradient(DeviceContext& context, const RECT& area, const RECT& clip, const PartLook& look) {
    if (look.from == look.to) {
        return fill(context, area, clip, look.from);
    }
    bool isDrawn = true;
    const std::int64_t start = look.isVertical ? area.top : area.left;
    const std::int64_t length = (look.isVertical ? area.bottom : area.right) - start;
    // More stripes than a channel has steps would not show.
    const std::int64_t stripes = std::min<std::int64_t>(length, 256);
    for (std::int64_t stripe = 0; stripe < stripes; ++stripe) {
        const auto from = static_cast<std::int32_t>(start + length * stripe / stripes);
        const auto to = static_cast<std::int32_t>(start + length * (stripe + 1) / stripes);
        const RECT part = look.isVertical ? RECT{area.left, from, area.right, to} : RECT{from, area.top, to, area.bottom};
        isDrawn = fill(context, part, clip, between(look.from, look.to, stripe, stripes)) && isDrawn;
    }
    return isDrawn;
}

bool equalIgnoringCase(std::u16string_view text, std::u16string_view upper) {
    return std::ranges::equal(text, upper,
                              [](char16_t a, char16_t b) { return (a >= u'a' && a <= u'z' ? a - u'a' + u'A' : a) == b; });
}

} // namespace

std::optional<Theme> themeOf(std::u16string_view classList) {
    while (!classList.empty()) {
        const std::size_t end = std::min(classList.find(u';'), classList.size());
        const std::u16string_view name = classList.substr(0, end);
        if (equalIgnoringCase(name, u"GLOBALS")) {
            return Theme{Theme::Kind::globals};
        }
        if (equalIgnoringCase(name, u"EXPLORERBAR")) {
            return Theme{Theme::Kind::explorerBar};
        }
        classList.remove_prefix(std::min(end + 1, classList.size()));
    }
    return std::nullopt;
}

COLORREF themeColor(std::int32_t index) noexcept {
    const auto found = std::ranges::find(ownColors, index, &std::pair<std::int32_t, COLORREF>::first);
    return found == std::end(ownColors) ? systemColor(index) : found->second;
}

std::optional<SIZE> themePartSize(const Theme& theme, std::int32_t part) noexcept {
    const PartLook* const look = lookOf(theme, part);
    return look ? std::optional(look->size) : std::nullopt;
}

bool drawThemePart(DeviceContext& context, const Theme& theme, std::int32_t part, const RECT& area, const RECT& clip) {
    const PartLook* const look = lookOf(theme, part);
    if (!look) {
        return false;
    }
    if (isEmpty(area)) {
        return true;
    }
    if (!look->border) {
        return fillGradient(context, area, clip, *look);
    }
    const auto [left, top, right, bottom] = area;
    const RECT edges[] = {{left, top, right, top + 1},
                          {left, bottom - 1, right, bottom},
                          {left, top + 1, left + 1, bottom - 1},
                          {right - 1, top + 1, right, bottom - 1}};
    bool isDrawn = fillGradient(context, {left + 1, top + 1, right - 1, bottom - 1}, clip, *look);
    for (const RECT& edge : edges) {
        isDrawn = fill(context, edge, clip, *look->border) && isDrawn;
    }
    return isDrawn;
}

} // namespace mox::host
