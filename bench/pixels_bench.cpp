// Copies of a large picture through the operations, against memcpy of its pixels.
#include "support/ratios.h"

#include "host/machine/machine.h"

#include "platform/gdi32.h"
#include "platform/msimg32.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using namespace mox;
using namespace mox::platform;

constexpr int width = 3840;
constexpr int height = 2160;
constexpr std::size_t size = std::size_t{width} * height * 4;

/// A memory context with a bitmap.
class Surface {
public:
    Surface(int cx, int cy) : hdc_(gdi32().CreateCompatibleDC(0)), bitmap_(gdi32().CreateBitmap(cx, cy, 1, 32, {})) {
        before_ = gdi32().SelectObject(hdc_, bitmap_);
        gdi32().SetStretchBltMode(hdc_, HALFTONE);
    }
    ~Surface() {
        gdi32().SelectObject(hdc_, before_);
        gdi32().DeleteObject(bitmap_);
        gdi32().DeleteDC(hdc_);
    }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    Handle hdc() const { return hdc_; }
    std::span<std::byte> bytes() const { return host::Machine::current().graphics.bitmap(bitmap_)->bytes(); }

private:
    const Handle hdc_;
    const Handle bitmap_;
    Handle before_ = 0;
};

struct Surfaces {
    Surface from{width, height};
    Surface to{width, height};

    Surfaces() {
        // Every eighth pixel has the colour that is left out.
        std::size_t place = 0;
        for (std::byte& byte : from.bytes()) {
            byte = place / 4 % 8 == 0 ? std::byte{0} : static_cast<std::byte>(place * 2654435761U >> 24 | 1);
            ++place;
        }
        std::ranges::fill(to.bytes(), std::byte{0x55});
    }
};

const Surfaces& surfaces() {
    static const auto all = std::make_unique<Surfaces>();
    return *all;
}

void copy(benchmark::State& state) {
    for (auto _ : state) {
        std::memcpy(surfaces().to.bytes().data(), surfaces().from.bytes().data(), size);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copy);

template <class Call> void measure(const char* name, Call call) {
    benchmark::RegisterBenchmark(name, [call](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(call(surfaces().to.hdc(), surfaces().from.hdc()));
            benchmark::ClobberMemory();
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    host::Machine::configure({}); // a temporary home
    measure("BitBlt", [](Handle to, Handle from) { return gdi32().BitBlt(to, 0, 0, width, height, from, 0, 0, SRCCOPY); });
    measure("TransparentBlt", [](Handle to, Handle from) {
        return msimg32().TransparentBlt(to, 0, 0, width, height, from, 0, 0, width, height, 0);
    });
    measure("AlphaBlend", [](Handle to, Handle from) {
        return msimg32().AlphaBlend(to, 0, 0, width, height, from, 0, 0, width, height, {0, 0, 127, 0});
    });
    measure("AlphaBlendOwn", [](Handle to, Handle from) {
        return msimg32().AlphaBlend(to, 0, 0, width, height, from, 0, 0, width, height, {0, 0, 255, AC_SRC_ALPHA});
    });
    measure("StretchBltHalf", [](Handle to, Handle from) {
        return gdi32().StretchBlt(to, 0, 0, width / 2, height / 2, from, 0, 0, width, height, SRCCOPY);
    });
    measure("StretchBltThird", [](Handle to, Handle from) {
        return gdi32().StretchBlt(to, 0, 0, width / 3, height / 3, from, 0, 0, width, height, SRCCOPY);
    });
    measure("StretchBltLarger",
            [](Handle to, Handle from) { return gdi32().StretchBlt(to, 0, 0, width, height, from, 0, 0, 1400, 800, SRCCOPY); });
    measure("StretchBltNearest", [](Handle to, Handle from) {
        gdi32().SetStretchBltMode(to, COLORONCOLOR);
        const bool isDone = gdi32().StretchBlt(to, 0, 0, width, height, from, 0, 0, 1400, 800, SRCCOPY);
        gdi32().SetStretchBltMode(to, HALFTONE);
        return isDone;
    });
    return bench::runWithRatios(
        argc, argv,
        {{"BitBlt of 3840 x 2160 pixels against memcpy", "BitBlt", "copy", 1.2},
         {"TransparentBlt against memcpy", "TransparentBlt", "copy", 2},
         {"AlphaBlend with a constant alpha against memcpy", "AlphaBlend", "copy", 2.3},
         {"AlphaBlend with alpha in the pixels against memcpy", "AlphaBlendOwn", "copy", 2.5},
         {"StretchBlt to a half by means against memcpy of the source", "StretchBltHalf", "copy", 3.5},
         {"StretchBlt to a third by means against memcpy of the source", "StretchBltThird", "copy", 15},
         {"StretchBlt of an area to all of it by means against memcpy", "StretchBltLarger", "copy", 16},
         {"StretchBlt of an area to all of it by nearest pixels against memcpy", "StretchBltNearest", "copy", 4}});
}
