// Measuring and drawing a line of text by the operations of the system, against Cairo with the same font and size.
#include "support/ratios.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

#include <mox/mox.h>

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>

namespace {

using namespace mox::platform;

constexpr int side = 512;
/// Seventy letters.
const std::string letters = "The quick brown fox jumps over the lazy dog and runs away from the cat";

struct Ours {
    Gdi32& gdi = gdi32();
    Handle hdc = gdi.CreateCompatibleDC(0);
    Handle bitmap = gdi.CreateBitmap(side, side, 1, 32, {});
    Handle font =
        gdi.CreateFontA(-16, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, ANTIALIASED_QUALITY, 0, "Liberation Sans");
    Handle firstBitmap = gdi.SelectObject(hdc, bitmap);
    Handle firstFont = gdi.SelectObject(hdc, font);

    Ours() {
        gdi.SetBkMode(hdc, TRANSPARENT);
        gdi.SetTextColor(hdc, 0xFFFFFF);
    }
    Ours(const Ours&) = delete;
    Ours& operator=(const Ours&) = delete;
    ~Ours() {
        gdi.DeleteDC(hdc);
        gdi.DeleteObject(bitmap);
        gdi.DeleteObject(font);
    }
};

struct Theirs {
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface{
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, side, side), &cairo_surface_destroy};
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context{cairo_create(surface.get()), &cairo_destroy};

    Theirs() {
        cairo_select_font_face(context.get(), "Liberation Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(context.get(), 16);
        cairo_set_source_rgb(context.get(), 1, 1, 1);
    }
};

/// From row to row, so that no line falls on the one before.
class Rows {
public:
    int next() { return row_ = (row_ + 20) % (side - 20); }

private:
    int row_ = 0;
};

void extent(benchmark::State& state) {
    const Ours ours;
    SIZE size;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ours.gdi.GetTextExtentPoint32A(ours.hdc, letters, size));
    }
}
BENCHMARK(extent);

void measure(benchmark::State& state) {
    const Ours ours;
    std::string text = letters;
    for (auto _ : state) {
        RECT area;
        benchmark::DoNotOptimize(
            user32().DrawTextA(ours.hdc, text, static_cast<std::int32_t>(text.size()), area, DT_CALCRECT | DT_NOPREFIX));
    }
}
BENCHMARK(measure);

void cairoExtents(benchmark::State& state) {
    const Theirs theirs;
    cairo_text_extents_t extents;
    for (auto _ : state) {
        cairo_text_extents(theirs.context.get(), letters.c_str(), &extents);
        benchmark::DoNotOptimize(extents);
    }
}
BENCHMARK(cairoExtents);

void textOut(benchmark::State& state) {
    const Ours ours;
    Rows rows;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ours.gdi.TextOutA(ours.hdc, 2, rows.next(), letters));
    }
}
BENCHMARK(textOut);

void drawText(benchmark::State& state) {
    const Ours ours;
    Rows rows;
    std::string text = letters;
    for (auto _ : state) {
        const int y = rows.next();
        RECT area{2, y, side, y + 20};
        benchmark::DoNotOptimize(user32().DrawTextA(ours.hdc, text, static_cast<std::int32_t>(text.size()), area, DT_NOPREFIX));
    }
}
BENCHMARK(drawText);

void cairoText(benchmark::State& state) {
    const Theirs theirs;
    Rows rows;
    for (auto _ : state) {
        cairo_move_to(theirs.context.get(), 2, rows.next() + 15);
        cairo_show_text(theirs.context.get(), letters.c_str());
    }
}
BENCHMARK(cairoText);

} // namespace

int main(int argc, char** argv) {
    return mox::bench::runWithRatios(argc, argv,
                                     {
                                         {"GetTextExtentPoint32A / cairo_text_extents", "extent", "cairoExtents", 0.2},
                                         {"DrawTextA that measures / cairo_text_extents", "measure", "cairoExtents", 0.2},
                                         {"TextOutA / cairo_show_text", "textOut", "cairoText", 1},
                                         {"DrawTextA / cairo_show_text", "drawText", "cairoText", 1},
                                     });
}
