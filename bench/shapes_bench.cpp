// Lines and rectangles in a memory context, as the drawing members use the operations, against Cairo on pixels of its own.
#include "support/ratios.h"

#include "host/graphics/graphics.h"
#include "host/graphics/rastercanvas.h"
#include "host/machine/machine.h"

#include <cairo.h>

namespace {

using namespace mox;
using namespace mox::platform;

constexpr int side = 400;

/// A memory context on a bitmap of 32 bits.
Handle surface() {
    static const Handle hdc = [] {
        host::MachineConfig config; // in memory
        host::Machine::configure(config);
        host::Graphics& graphics = host::Machine::current().graphics;
        const Handle made = graphics.createCompatibleContext(0);
        graphics.context(made)->setCanvas(std::make_shared<host::RasterCanvas>(host::Bitmap::create(side, side)));
        return made;
    }();
    return hdc;
}

struct Cairo {
    Cairo() : surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, side, side)), context(cairo_create(surface)) {
        cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE);
        cairo_set_line_width(context, 1);
    }
    ~Cairo() {
        cairo_destroy(context);
        cairo_surface_destroy(surface);
    }
    Cairo(const Cairo&) = delete;
    Cairo& operator=(const Cairo&) = delete;

    void color(std::uint32_t number) const {
        cairo_set_source_rgb(context, (number & 0xFF) / 255.0, (number >> 8 & 0xFF) / 255.0, 0.5);
    }

    cairo_surface_t* surface;
    cairo_t* context;
};

struct Line {
    int x1, y1, x2, y2;
};
/// In all directions.
Line lineOf(std::uint32_t number) {
    const auto place = [&](std::uint32_t factor) { return static_cast<int>(number * factor % side); };
    return {place(37), place(61), place(101), place(17)};
}

void lines(benchmark::State& state) {
    const Handle hdc = surface();
    std::uint32_t number = 0;
    for (auto _ : state) {
        const Line line = lineOf(++number);
        const Handle pen = gdi32().CreatePen(PS_SOLID, 1, number & 0xFFFF);
        const Handle before = gdi32().SelectObject(hdc, pen);
        POINT position;
        gdi32().MoveToEx(hdc, line.x1, line.y1, position);
        gdi32().LineTo(hdc, line.x2, line.y2);
        gdi32().SelectObject(hdc, before);
        gdi32().DeleteObject(pen);
    }
}
BENCHMARK(lines);

void cairoLines(benchmark::State& state) {
    const Cairo cairo;
    std::uint32_t number = 0;
    for (auto _ : state) {
        const Line line = lineOf(++number);
        cairo.color(number);
        cairo_move_to(cairo.context, line.x1 + 0.5, line.y1 + 0.5);
        cairo_line_to(cairo.context, line.x2 + 0.5, line.y2 + 0.5);
        cairo_stroke(cairo.context);
    }
}
BENCHMARK(cairoLines);

constexpr int boxSide = 50;

void filledRectangles(benchmark::State& state) {
    const Handle hdc = surface();
    std::uint32_t number = 0;
    for (auto _ : state) {
        ++number;
        const auto x = static_cast<int>(number * 37 % (side - boxSide));
        const auto y = static_cast<int>(number * 61 % (side - boxSide));
        const Handle pen = gdi32().CreatePen(PS_NULL, 0, 0);
        const Handle penBefore = gdi32().SelectObject(hdc, pen);
        const Handle brush = gdi32().CreateSolidBrush(number & 0xFFFF);
        const Handle brushBefore = gdi32().SelectObject(hdc, brush);
        gdi32().Rectangle(hdc, x, y, x + boxSide + 1, y + boxSide + 1);
        gdi32().SelectObject(hdc, brushBefore);
        gdi32().DeleteObject(brush);
        gdi32().SelectObject(hdc, penBefore);
        gdi32().DeleteObject(pen);
    }
}
BENCHMARK(filledRectangles);

void cairoRectangles(benchmark::State& state) {
    const Cairo cairo;
    std::uint32_t number = 0;
    for (auto _ : state) {
        ++number;
        cairo.color(number);
        cairo_rectangle(cairo.context, number * 37 % (side - boxSide), number * 61 % (side - boxSide), boxSide, boxSide);
        cairo_fill(cairo.context);
    }
}
BENCHMARK(cairoRectangles);

} // namespace

int main(int argc, char** argv) {
    return bench::runWithRatios(argc, argv,
                                {{"lines of one pixel, by Cairo", "lines", "cairoLines", 2},
                                 {"rectangles of 50 by 50 pixels, by Cairo", "filledRectangles", "cairoRectangles", 2}});
}
