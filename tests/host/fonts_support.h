// A surface to draw text on, and what can be seen of it.
#pragma once

#include "support/testmachine.h"

#include "host/fonts/textalign.h"
#include "host/graphics/bitmap.h"
#include "host/graphics/graphics.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <string_view>

namespace mox::test {

/// A font as tests ask for it.
struct FontWish {
    int height = -16;
    std::string_view face = "Arial";
    int angle = 0;
    int weight = platform::FW_NORMAL;
    bool isItalic = false;
    std::uint32_t quality = platform::ANTIALIASED_QUALITY;
    bool isUnderlined = false;
    bool isStruckOut = false;
    int width = 0;
    std::uint32_t charSet = platform::DEFAULT_CHARSET;
};

/// A white surface with black text, transparent ground.
class TextBoard {
public:
    explicit TextBoard(int width = 200, int height = 100) : TextBoard({.width = width, .height = height}) {}
    explicit TextBoard(const host::BitmapFormat& format)
        : bitmap(host::Bitmap::create(format)), handle_(machine->graphics.add(bitmap)) {
        clear();
        machine->gdi32.SelectObject(hdc, handle_);
        machine->gdi32.SetBkMode(hdc, platform::TRANSPARENT);
    }
    ~TextBoard() {
        machine->gdi32.DeleteDC(hdc);
        machine->gdi32.DeleteObject(handle_);
        if (font_ != 0) {
            machine->gdi32.DeleteObject(font_);
        }
    }
    TextBoard(const TextBoard&) = delete;
    TextBoard& operator=(const TextBoard&) = delete;

    host::DeviceContext& context() { return *machine->graphics.context(hdc); }

    void select(const FontWish& wish) {
        platform::Gdi32& gdi = machine->gdi32;
        const platform::Handle font =
            gdi.CreateFontA(wish.height, wish.width, wish.angle, 0, wish.weight, wish.isItalic, wish.isUnderlined,
                            wish.isStruckOut, wish.charSet, 0, 0, wish.quality, 0, wish.face);
        gdi.SelectObject(hdc, font);
        if (font_ != 0) {
            gdi.DeleteObject(font_);
        }
        font_ = font;
    }

    void clear() {
        const std::vector<host::Pixel> row(static_cast<std::size_t>(bitmap->width()), 0xFFFFFF);
        for (int y = 0; y < bitmap->height(); ++y) {
            bitmap->write(0, y, row);
        }
    }
    host::Pixel pixel(int x, int y) const {
        host::Pixel value = 0;
        bitmap->read(x, y, {&value, 1});
        return value & 0xFFFFFF;
    }
    template <class Look> void look(Look look) const {
        for (int y = 0; y < bitmap->height(); ++y) {
            for (int x = 0; x < bitmap->width(); ++x) {
                look(x, y, pixel(x, y));
            }
        }
    }
    /// What is not white, from the darkest third of the greys on if `isStrict`.
    platform::RECT ink(bool isStrict = false) const {
        platform::RECT area{bitmap->width(), bitmap->height(), 0, 0};
        look([&](int x, int y, host::Pixel value) {
            if (isStrict ? (value & 0xFF) < 0xAA : value != 0xFFFFFF) {
                area = {std::min(area.left, x), std::min(area.top, y), std::max(area.right, x + 1), std::max(area.bottom, y + 1)};
            }
        });
        return area.right == 0 ? platform::RECT{} : area;
    }
    std::set<host::Pixel> colors() const {
        std::set<host::Pixel> all;
        look([&](int, int, host::Pixel value) { all.insert(value); });
        return all;
    }
    /// 0 for white to 1 for black, of all together.
    double darkness() const {
        double sum = 0;
        look([&](int, int, host::Pixel value) { sum += 255 - (value >> 8 & 0xFF); });
        return sum / 255;
    }
    bool isClear() const { return ink() == platform::RECT{}; }

    int widthOf(std::string_view text) {
        platform::SIZE size;
        EXPECT_TRUE(machine->gdi32.GetTextExtentPoint32A(hdc, text, size));
        return size.cx;
    }
    platform::TEXTMETRICA metrics() {
        platform::TEXTMETRICA metrics;
        EXPECT_TRUE(machine->gdi32.GetTextMetricsA(hdc, metrics));
        return metrics;
    }
    bool textOut(int x, int y, std::string_view text) { return machine->gdi32.TextOutA(hdc, x, y, text); }

    TestMachine machine;
    const platform::Handle hdc = machine->gdi32.CreateCompatibleDC(0);
    const std::shared_ptr<host::Bitmap> bitmap;

private:
    const platform::Handle handle_;
    platform::Handle font_ = 0;
};

} // namespace mox::test
