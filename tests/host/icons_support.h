// Icons from pixels written down.
#pragma once

#include "support/testmachine.h"

#include <gtest/gtest.h>

#include <vector>

namespace mox::test {

using Pixels = std::vector<host::Pixel>;

inline platform::Handle addBitmap(TestMachine& machine, host::BitmapFormat format, const Pixels& pixels) {
    format.masks = format.bitsPerPixel == 16 ? host::masks555 : host::ChannelMasks();
    const auto bitmap = host::Bitmap::create(std::move(format));
    for (int y = 0; y < bitmap->height(); ++y) {
        const auto width = static_cast<std::size_t>(bitmap->width());
        bitmap->write(0, y, std::span(pixels).subspan(static_cast<std::size_t>(y) * width, width));
    }
    return machine->graphics.add(bitmap);
}

inline Pixels pixelsOf(const host::Bitmap& bitmap) {
    const auto width = static_cast<std::size_t>(bitmap.width());
    Pixels pixels(width * static_cast<std::size_t>(bitmap.height()));
    for (int y = 0; y < bitmap.height(); ++y) {
        bitmap.read(0, y, std::span(pixels).subspan(static_cast<std::size_t>(y) * width, width));
    }
    return pixels;
}

/// An icon of bitmaps that are gone again: `mask` as pixels of a monochrome bitmap, `color` none for an icon without colours.
inline platform::Handle makeIcon(TestMachine& machine, int width, const Pixels& mask, const Pixels& color,
                                 int bitsPerPixel = 32) {
    const auto heightOf = [&](const Pixels& pixels) { return static_cast<int>(pixels.size()) / width; };
    platform::ICONINFO info;
    info.hbmMask = addBitmap(machine, {.width = width, .height = heightOf(mask), .bitsPerPixel = 1}, mask);
    if (!color.empty()) {
        info.hbmColor = addBitmap(machine, {.width = width, .height = heightOf(color), .bitsPerPixel = bitsPerPixel}, color);
    }
    const platform::Handle icon = machine->user32.CreateIconIndirect(info);
    EXPECT_TRUE(machine->gdi32.DeleteObject(info.hbmMask));
    EXPECT_EQ(machine->gdi32.DeleteObject(info.hbmColor), !color.empty());
    return icon;
}

} // namespace mox::test
