// Small surfaces as text: what is drawn stands beside what is expected.
#pragma once

#include "host/graphics/graphics.h"
#include "host/graphics/rastercanvas.h"
#include "support/testmachine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace mox::test {

/// The colours of the letters in pictures. Others are `?`.
inline const std::map<char, platform::COLORREF> pictureColors{{'.', 0xFFFFFF}, {'#', 0x000000}, {'r', 0x0000FF},
                                                              {'g', 0x00FF00}, {'b', 0xFF0000}, {'y', 0x00FFFF}};

inline std::string pictureOf(const host::Bitmap& bitmap) {
    std::string text;
    for (int y = 0; y < bitmap.height(); ++y) {
        std::vector<host::Pixel> row(static_cast<std::size_t>(bitmap.width()));
        bitmap.read(0, y, row);
        for (const host::Pixel pixel : row) {
            const auto found = std::ranges::find(pictureColors, host::toColor(pixel & 0xFFFFFF),
                                                 &std::pair<const char, platform::COLORREF>::second);
            text += found == pictureColors.end() ? '?' : found->first;
        }
        text += '\n';
    }
    return text;
}

/// Rows without the spaces that code indents them by.
inline std::string picture(std::string_view rows) {
    std::string text;
    for (const char letter : rows) {
        if (letter != ' ' && !(letter == '\n' && text.empty())) {
            text += letter;
        }
    }
    if (!text.empty() && text.back() != '\n') {
        text += '\n';
    }
    return text;
}

/// A memory context on a white surface of any format.
class Surface {
public:
    Surface(host::Machine& machine, host::BitmapFormat format)
        : graphics_(machine.graphics), hdc_(graphics_.createCompatibleContext(0)),
          bitmap_(host::Bitmap::create(std::move(format))) {
        context().setCanvas(std::make_shared<host::RasterCanvas>(bitmap_));
        clear();
    }
    Surface(host::Machine& machine, int width, int height) : Surface(machine, {.width = width, .height = height}) {}
    ~Surface() { EXPECT_TRUE(graphics_.deleteContext(hdc_)); }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    platform::Handle hdc() const { return hdc_; }
    host::DeviceContext& context() const { return *graphics_.context(hdc_); }
    host::DeviceState& state() const { return context().state(); }
    host::Bitmap& bitmap() const { return *bitmap_; }
    std::string picture() const { return pictureOf(*bitmap_); }

    void clear(platform::COLORREF color = 0xFFFFFF) {
        const std::vector<host::Pixel> row(static_cast<std::size_t>(bitmap_->width()), host::toPixel(color));
        for (int y = 0; y < bitmap_->height(); ++y) {
            bitmap_->write(0, y, row);
        }
    }
    void setPen(host::Pen pen) { state().pen.object = std::make_shared<const host::Pen>(pen); }
    void setBrush(host::Brush brush) { state().brush.object = std::make_shared<const host::Brush>(std::move(brush)); }
    void setNoBrush() { setBrush({.style = platform::BS_NULL}); }

private:
    host::Graphics& graphics_;
    platform::Handle hdc_;
    std::shared_ptr<host::Bitmap> bitmap_;
};

} // namespace mox::test
