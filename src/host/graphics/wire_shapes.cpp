#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"

namespace mox::host {

namespace {

/// A brush by its handle, or one more than the index of a colour of the system.
bool fillRect(Machine& machine, platform::Handle hdc, const RECT& area, platform::Handle brush) {
    constexpr platform::Handle colors = 31;
    const auto context = machine.graphics.context(hdc);
    if (!context) {
        return false;
    }
    if (brush > 0 && brush <= colors) {
        return context->fillRect(area, {.color = machine.user32.GetSysColor(brush - 1)});
    }
    const auto found = machine.graphics.object<Brush>(brush);
    return found && context->fillRect(area, *found);
}

} // namespace

void wireShapes(Machine& machine) {
    platform::Gdi32& gdi32 = machine.gdi32;
    Graphics& graphics = machine.graphics;
    gdi32.MoveToEx = [&](auto hdc, auto x, auto y, auto& before) {
        const auto context = graphics.context(hdc);
        return context && context->moveTo({x, y}, before);
    };
    gdi32.GetCurrentPositionEx = [&](auto hdc, auto& position) {
        const auto context = graphics.context(hdc);
        if (context) {
            position = context->state().position;
        }
        return context != nullptr;
    };
    gdi32.LineTo = [&](auto hdc, auto x, auto y) {
        const auto context = graphics.context(hdc);
        return context && context->lineTo({x, y});
    };
    gdi32.Rectangle = [&](auto hdc, auto left, auto top, auto right, auto bottom) {
        const auto context = graphics.context(hdc);
        return context && context->rectangle({left, top, right, bottom});
    };
    gdi32.GetPixel = [&](auto hdc, auto x, auto y) {
        const auto context = graphics.context(hdc);
        return context ? context->pixel({x, y}) : platform::CLR_INVALID;
    };
    gdi32.SetPixel = [&](auto hdc, auto x, auto y, auto color) {
        const auto context = graphics.context(hdc);
        return context ? context->setPixel({x, y}, color) : platform::CLR_INVALID;
    };
    machine.user32.FillRect = [&](auto hdc, const auto& area, auto brush) { return fillRect(machine, hdc, area, brush); };
}

} // namespace mox::host
