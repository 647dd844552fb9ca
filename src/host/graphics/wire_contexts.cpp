#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"

namespace mox::host {

namespace {

bool equalsDisplay(std::string_view driver) {
    constexpr std::string_view display = "DISPLAY";
    return std::ranges::equal(driver, display, [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

/// Sets a field of a context's state if it is one of those allowed; the value before, or `failure`.
template <class Value>
Value exchangeState(Graphics& graphics, platform::Handle hdc, Value DeviceState::*field, Value value, bool isAllowed,
                    Value failure) {
    const auto context = graphics.context(hdc);
    return context && isAllowed ? std::exchange(context->state().*field, value) : failure;
}

template <class Value> Value stateOf(Graphics& graphics, platform::Handle hdc, Value DeviceState::*field, Value failure) {
    const auto context = graphics.context(hdc);
    return context ? context->state().*field : failure;
}

} // namespace

void wireContexts(Machine& machine) {
    platform::Gdi32& gdi32 = machine.gdi32;
    Graphics& graphics = machine.graphics;
    gdi32.CreateDCA = [&](auto driver, auto, auto, auto) { return equalsDisplay(driver) ? graphics.createScreenContext() : 0; };
    gdi32.CreateCompatibleDC = [&](auto hdc) { return graphics.createCompatibleContext(hdc); };
    gdi32.DeleteDC = [&](auto hdc) { return graphics.deleteContext(hdc); };
    gdi32.SaveDC = [&](auto hdc) {
        const auto context = graphics.context(hdc);
        return context ? context->save() : 0;
    };
    gdi32.RestoreDC = [&](auto hdc, auto saved) {
        const auto context = graphics.context(hdc);
        return context && context->restore(saved);
    };
    gdi32.GetDeviceCaps = [&](auto hdc, auto index) {
        const auto context = graphics.context(hdc);
        return context ? context->device().capability(index) : 0;
    };

    gdi32.SelectObject = [&](auto hdc, auto object) { return graphics.select(hdc, object); };
    gdi32.DeleteObject = [&](auto object) { return graphics.deleteObject(object); };
    gdi32.GetObjectA = [&](auto object, auto record) { return graphics.getObject(object, record); };
    gdi32.GetStockObject = [&](auto index) { return index < 0 ? 0 : graphics.stockObject(index); };
    gdi32.CreatePen = [&](auto style, auto width, auto color) {
        // An unknown style counts as solid.
        const std::int32_t known = style >= platform::PS_SOLID && style <= platform::PS_INSIDEFRAME ? style : platform::PS_SOLID;
        const auto wide = static_cast<std::int32_t>(std::min(std::abs(std::int64_t{width}), std::int64_t{INT32_MAX}));
        return graphics.add("pen", Pen{.style = known, .width = wide, .color = color});
    };
    gdi32.CreateSolidBrush = [&](auto color) { return graphics.add("brush", Brush{platform::BS_SOLID, color, 0, nullptr, 0}); };
    gdi32.CreateBrushIndirect = [&](const auto& brush) { return graphics.createBrush(brush); };

    using State = DeviceState;
    gdi32.GetStretchBltMode = [&](auto hdc) { return stateOf(graphics, hdc, &State::stretchMode, 0); };
    gdi32.SetStretchBltMode = [&](auto hdc, auto mode) {
        return exchangeState(graphics, hdc, &State::stretchMode, mode,
                             mode >= platform::BLACKONWHITE && mode <= platform::HALFTONE, 0);
    };
    gdi32.GetROP2 = [&](auto hdc) { return stateOf(graphics, hdc, &State::rop2, 0); };
    gdi32.SetROP2 = [&](auto hdc, auto mode) {
        return exchangeState(graphics, hdc, &State::rop2, mode, mode >= platform::R2_BLACK && mode <= platform::R2_WHITE, 0);
    };
    gdi32.GetBkMode = [&](auto hdc) { return stateOf(graphics, hdc, &State::bkMode, 0); };
    gdi32.SetBkMode = [&](auto hdc, auto mode) {
        return exchangeState(graphics, hdc, &State::bkMode, mode, mode == platform::TRANSPARENT || mode == platform::OPAQUE, 0);
    };
    gdi32.GetBkColor = [&](auto hdc) { return stateOf(graphics, hdc, &State::bkColor, platform::CLR_INVALID); };
    gdi32.SetBkColor = [&](auto hdc, auto color) {
        return exchangeState(graphics, hdc, &State::bkColor, color, true, platform::CLR_INVALID);
    };
    gdi32.GetTextColor = [&](auto hdc) { return stateOf(graphics, hdc, &State::textColor, platform::CLR_INVALID); };
    gdi32.SetTextColor = [&](auto hdc, auto color) {
        return exchangeState(graphics, hdc, &State::textColor, color, true, platform::CLR_INVALID);
    };
    gdi32.SetBrushOrgEx = [&](auto hdc, auto x, auto y, auto& before) {
        const auto context = graphics.context(hdc);
        if (context) {
            before = std::exchange(context->state().brushOrigin, {x, y});
        }
        return context != nullptr;
    };
}

} // namespace mox::host
