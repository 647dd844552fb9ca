// Lines, rectangles and text through moxDrawing and moxFont, against Cairo on a surface of the same size.
#include "support/ratios.h"

#include <mox/mox.h>

#include <cairo.h>

#include <memory>

namespace {

using namespace mox;

constexpr Long side = 512;
/// Seventy letters.
constexpr const char* letters = "The quick brown fox jumps over the lazy dog and runs away from the cat";
constexpr const char16_t* wideLetters = u"The quick brown fox jumps over the lazy dog and runs away from the cat";

struct Ours {
    moxDrawing drawing = moxHub::create().Drawing();
    moxFont fonts = drawing.Font();
    moxOffscreenBuffer buffer = drawing.CreateOffscreenBuffer(side, side);
    Long hdc = buffer.hDC();
    StdFont font = fonts.CreateFont(u"Liberation Sans", 12);
};

struct Theirs {
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface{
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, side, side), &cairo_surface_destroy};
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context{cairo_create(surface.get()), &cairo_destroy};

    Theirs() {
        cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_NONE);
        cairo_set_line_width(context.get(), 1);
        cairo_select_font_face(context.get(), "Liberation Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(context.get(), 16); // 12 points at 96 dots per inch
    }
};

/// Ends of lines all over the surface.
class Places {
public:
    Long next() { return static_cast<Long>((state_ = state_ * 1664525U + 1013904223U) >> 23); }

private:
    std::uint32_t state_ = 1;
};

void line(benchmark::State& state) {
    const Ours ours;
    Places places;
    for (auto _ : state) {
        ours.drawing.DrawLine(ours.hdc, places.next(), places.next(), places.next(), places.next(), 1, 0x0000FF);
    }
}
BENCHMARK(line);

void cairoLine(benchmark::State& state) {
    const Theirs theirs;
    Places places;
    for (auto _ : state) {
        cairo_set_source_rgb(theirs.context.get(), 1, 0, 0);
        cairo_move_to(theirs.context.get(), places.next() + 0.5, places.next() + 0.5);
        cairo_line_to(theirs.context.get(), places.next() + 0.5, places.next() + 0.5);
        cairo_stroke(theirs.context.get());
    }
}
BENCHMARK(cairoLine);

void rectangle(benchmark::State& state) {
    const Ours ours;
    Places places;
    for (auto _ : state) {
        const Long x = places.next() - 25;
        const Long y = places.next() - 25;
        ours.drawing.DrawRect2(ours.hdc, x, y, x + 50, y + 50, 0, 0, True, 0x00FF00);
    }
}
BENCHMARK(rectangle);

void cairoRectangle(benchmark::State& state) {
    const Theirs theirs;
    Places places;
    for (auto _ : state) {
        cairo_set_source_rgb(theirs.context.get(), 0, 1, 0);
        cairo_rectangle(theirs.context.get(), places.next() - 25, places.next() - 25, 50, 50);
        cairo_fill(theirs.context.get());
    }
}
BENCHMARK(cairoRectangle);

void extent(benchmark::State& state) {
    const Ours ours;
    const String text = wideLetters;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ours.fonts.GetTextExtent(text, ours.font));
    }
}
BENCHMARK(extent);

void cairoExtent(benchmark::State& state) {
    const Theirs theirs;
    for (auto _ : state) {
        cairo_text_extents_t extents;
        cairo_text_extents(theirs.context.get(), letters, &extents);
        benchmark::DoNotOptimize(extents);
    }
}
BENCHMARK(cairoExtent);

void text(benchmark::State& state) {
    const Ours ours;
    const String line = wideLetters;
    Long right = side;
    Long bottom = side;
    for (auto _ : state) {
        ours.drawing.DrawText(ours.hdc, 0, 20, right, bottom, line, 0, dtf_LEFT, u"Liberation Sans", 12);
    }
}
BENCHMARK(text);

void cairoText(benchmark::State& state) {
    const Theirs theirs;
    cairo_set_antialias(theirs.context.get(), CAIRO_ANTIALIAS_DEFAULT);
    for (auto _ : state) {
        cairo_set_source_rgb(theirs.context.get(), 0, 0, 0);
        cairo_move_to(theirs.context.get(), 0, 36);
        cairo_show_text(theirs.context.get(), letters);
    }
}
BENCHMARK(cairoText);

} // namespace

int main(int argc, char** argv) {
    return mox::bench::runWithRatios(argc, argv,
                                     {{"DrawLine of one pixel against a line of Cairo", "line", "cairoLine", 2},
                                      {"DrawRect2 of 50 x 50 against a rectangle of Cairo", "rectangle", "cairoRectangle", 2},
                                      {"GetTextExtent of 70 letters against cairo_text_extents", "extent", "cairoExtent", 0.2},
                                      {"DrawText of a line against cairo_show_text", "text", "cairoText", 1}});
}
