#include "host/fonts/textsetting.h"

#include "host/fonts/fonts.h"
#include "host/graphics/graphics.h"

#include <algorithm>
#include <numbers>

namespace mox::host {

namespace {

double ratio(std::int32_t extent, std::int32_t of) {
    return of == 0 || extent == 0 ? 1 : std::abs(static_cast<double>(extent) / of);
}

double nonZero(double length) {
    return length > 0 ? length : 1;
}

} // namespace

TextSetting textSetting(const DeviceContext& context) {
    return textSetting(context, context.state().font.object->description);
}

TextSetting textSetting(const DeviceContext& context, const platform::LOGFONTA& font) {
    Fonts& fonts = context.graphics().fonts();
    const DeviceState& state = context.state();
    if (state.world.isIdentity() && state.viewportExtent == state.windowExtent) {
        return {fonts.typeface(font), 1, 1};
    }
    // Mirrored axes leave text readable, and the mapping of the page does not stretch it; the world transformation does, and
    // turns.
    const Transform& world = state.world;
    const double pageX = ratio(state.viewportExtent.cx, state.windowExtent.cx);
    const double pageY = ratio(state.viewportExtent.cy, state.windowExtent.cy);
    const double worldX = nonZero(std::hypot(world.m11, world.m12));
    const double worldY = nonZero(std::hypot(world.m21, world.m22));
    TextScale scale{pageY * worldY, worldX / worldY, 0};
    if (!world.keepsAxes()) {
        const double radians = std::atan2(-world.m12 * pageY, world.m11 * pageX);
        scale.turn = static_cast<int>(std::lround(radians * 1800 / std::numbers::pi));
    }
    return {fonts.typeface(font, scale), 1 / (pageX * worldX), 1 / (pageY * worldY)};
}

SIZE textExtent(const TextSetting& setting, std::u16string_view text) {
    return {setting.toUnitsAlong(setting.typeface->width(text)), setting.toUnitsAcross(setting.typeface->height())};
}

platform::TEXTMETRICA textMetrics(const TextSetting& setting) {
    platform::TEXTMETRICA metrics = setting.typeface->textMetrics();
    for (std::int32_t* const across :
         {&metrics.tmHeight, &metrics.tmAscent, &metrics.tmDescent, &metrics.tmInternalLeading, &metrics.tmExternalLeading}) {
        *across = setting.toUnitsAcross(*across);
    }
    for (std::int32_t* const along : {&metrics.tmAveCharWidth, &metrics.tmMaxCharWidth}) {
        *along = setting.toUnitsAlong(*along);
    }
    return metrics;
}

} // namespace mox::host
