#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"
#include "host/pixels/bitmapbits.h"
#include "host/pixels/dibformat.h"

#include <array>

namespace mox::host {

namespace {

using platform::Handle;

constexpr std::array<std::uint32_t, 6> depths{1, 4, 8, 16, 24, 32};

Handle createCompatibleBitmap(Graphics& graphics, Handle hdc, std::int32_t cx, std::int32_t cy) {
    const auto context = graphics.context(hdc);
    if (!context) {
        return 0;
    }
    const auto pixels = context->kind() == DeviceContext::Kind::memory ? context->canvas().bitmap() : nullptr;
    return graphics.add(makeBitmap(cx, cy, pixels && pixels->isMonochrome() ? 1 : 32, {}));
}

Handle createSection(Graphics& graphics, const platform::BITMAPINFO& info, std::uint32_t usage, std::byte*& bits) {
    bits = nullptr;
    auto format = usage == platform::DIB_RGB_COLORS ? formatOf(info) : std::nullopt;
    auto bitmap = format ? Bitmap::create(std::move(*format)) : nullptr;
    const Handle handle = graphics.add(bitmap);
    if (handle != 0) {
        bits = bitmap->bytes().data();
    }
    return handle;
}

std::int32_t getDIBits(Graphics& graphics, Handle hdc, Handle handle, std::uint32_t start, std::uint32_t lines,
                       std::span<std::byte> bits, platform::BITMAPINFO& info, std::uint32_t usage) {
    const auto bitmap = graphics.bitmap(handle);
    const bool isKnown = bitmap && graphics.context(hdc) && usage == platform::DIB_RGB_COLORS;
    return isKnown ? getBits(*bitmap, start, lines, bits, info) : 0;
}

void wireBitmaps(Graphics& graphics, platform::Gdi32& gdi32) {
    gdi32.CreateCompatibleBitmap = [&](auto hdc, auto cx, auto cy) { return createCompatibleBitmap(graphics, hdc, cx, cy); };
    gdi32.CreateBitmap = [&](auto cx, auto cy, auto planes, auto bitsPerPixel, auto bits) {
        const bool isKnown = planes == 1 && std::ranges::count(depths, bitsPerPixel) != 0;
        return isKnown ? graphics.add(makeBitmap(cx, cy, static_cast<int>(bitsPerPixel), bits)) : 0;
    };
    gdi32.CreateDIBSection = [&](auto, const auto& info, auto usage, auto& bits) {
        return createSection(graphics, info, usage, bits);
    };
    gdi32.GetDIBits = [&](auto hdc, auto bitmap, auto start, auto lines, auto bits, auto& info, auto usage) {
        return getDIBits(graphics, hdc, bitmap, start, lines, bits, info, usage);
    };
}

void wireRasterCopies(Graphics& graphics, platform::Gdi32& gdi32) {
    gdi32.BitBlt = [&](auto hdc, auto x, auto y, auto cx, auto cy, auto source, auto xSource, auto ySource, auto rop) {
        const auto context = graphics.context(hdc);
        return context && context->bitBlt({x, y, cx, cy}, graphics.context(source).get(), {xSource, ySource}, rop);
    };
    gdi32.StretchBlt = [&](auto hdc, auto x, auto y, auto cx, auto cy, auto source, auto xSource, auto ySource, auto cxSource,
                           auto cySource, auto rop) {
        const auto context = graphics.context(hdc);
        return context &&
               context->stretchBlt({x, y, cx, cy}, graphics.context(source).get(), {xSource, ySource, cxSource, cySource}, rop);
    };
}

void wireMixingCopies(Graphics& graphics, platform::Msimg32& msimg32) {
    msimg32.TransparentBlt = [&](auto hdc, auto x, auto y, auto cx, auto cy, auto source, auto xSource, auto ySource,
                                 auto cxSource, auto cySource, auto transparent) {
        const auto context = graphics.context(hdc);
        const auto from = graphics.context(source);
        return context && from &&
               context->transparentBlt({x, y, cx, cy}, *from, {xSource, ySource, cxSource, cySource}, transparent);
    };
    msimg32.AlphaBlend = [&](auto hdc, auto x, auto y, auto cx, auto cy, auto source, auto xSource, auto ySource, auto cxSource,
                             auto cySource, const auto& blend) {
        const auto context = graphics.context(hdc);
        const auto from = graphics.context(source);
        return context && from && context->alphaBlend({x, y, cx, cy}, *from, {xSource, ySource, cxSource, cySource}, blend);
    };
}

} // namespace

void wireCopies(Machine& machine) {
    wireBitmaps(machine.graphics, machine.gdi32);
    wireRasterCopies(machine.graphics, machine.gdi32);
    wireMixingCopies(machine.graphics, machine.msimg32);
}

} // namespace mox::host
