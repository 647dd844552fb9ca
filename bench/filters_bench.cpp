// The bitmap filters on a picture of 3840 by 2160 pixels, with one thread: the pixel routines and the calls from picture to
// picture against memcpy of the pixels, the routines also against OpenCV's.
#include "filters_opencv.h"
#include "support/ratios.h"

#include "core/classes.h"
#include "drawing/pixelroutines/blackandwhite.h"
#include "drawing/pixelroutines/brightness.h"
#include "drawing/pixelroutines/contrast.h"
#include "drawing/pixelroutines/emboss.h"
#include "drawing/pixelroutines/grayscale.h"
#include "drawing/pixelroutines/hsl.h"
#include "drawing/pixelroutines/invert.h"
#include "drawing/pixelroutines/neon.h"
#include "drawing/pixelroutines/rgb.h"
#include "host/machine/machine.h"
#include "host/machine/temporaryfolder.h"

#include <mox/mox.h>

#include <cstring>
#include <malloc.h>
#include <random>

namespace {

using namespace mox;
using server::PixelWork;

constexpr int width = 3840;
constexpr int height = 2160;
constexpr std::size_t pixels = std::size_t{width} * height;

/// What a call may cost above its routine, in times of memcpy: reading the pixels and making the picture.
constexpr double mostAround = 2.5;

struct Filter {
    std::string name;
    double limit;
    std::function<void(const PixelWork& work)> routine;
    std::function<StdPicture(const moxBitmapFilter& filter, const StdPicture& picture)> call;
};

const std::vector<Filter>& filters() {
    static const std::vector<Filter> list{
        {"Invert", 1.1, [](auto& work) { server::invert(work); },
         [](auto& filter, auto& picture) { return filter.Invert(picture); }},
        {"RGB", 1.1,
         [](auto& work) {
             server::rgb(work, {10, 20, 30});
         },
         [](auto& filter, auto& picture) { return filter.RGB(picture, 10, 20, 30); }},
        {"GrayScale", 1.1, [](auto& work) { server::grayScale(work, {}); },
         [](auto& filter, auto& picture) { return filter.GrayScale(picture); }},
        {"BlackAndWhite", 1.1, [](auto& work) { server::blackAndWhite(work, 128, 0, 0xFFFFFF); },
         [](auto& filter, auto& picture) { return filter.BlackAndWhite(picture); }},
        {"Emboss", 1.7, [](auto& work) { server::emboss(work, 1); },
         [](auto& filter, auto& picture) { return filter.Emboss(picture); }},
        {"Brightness", 1.8, [](auto& work) { server::brightness(work, 50); },
         [](auto& filter, auto& picture) { return filter.Brightness(picture, 50); }},
        {"Contrast", 1.8, [](auto& work) { server::contrast(work, 20); },
         [](auto& filter, auto& picture) { return filter.Contrast(picture, 20); }},
        {"Neon", 2.5, [](auto& work) { server::neon(work, 10, 0, false); },
         [](auto& filter, auto& picture) { return filter.Neon(picture); }},
        {"HSL", 6,
         [](auto& work) {
             server::hsl(work, {{}, {}, 200});
         },
         [](auto& filter, auto& picture) { return filter.HSL(picture, False, 0, False, 128, True, 200); }},
    };
    return list;
}

/// Colours as in a photograph of leaves: many, and near those around them.
void fill(std::span<std::uint32_t> places) {
    std::mt19937 random(1);
    std::uint32_t pixel = 0x406080;
    for (std::uint32_t& place : places) {
        const std::uint32_t change = random();
        pixel = (pixel + (change & 0x070707)) & 0xFFFFFF;
        place = change >> 28 == 0 ? change & 0xFFFFFF : pixel;
    }
}

StdPicture makePicture() {
    platform::BITMAPINFO info;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biBitCount = 32;
    std::byte* bits = nullptr;
    platform::PICTDESC description;
    description.picType = platform::PICTYPE_BITMAP;
    description.handle = platform::gdi32().CreateDIBSection(0, info, platform::DIB_RGB_COLORS, bits);
    fill({reinterpret_cast<std::uint32_t*>(bits), pixels});
    void* object = nullptr;
    platform::oleaut32().OleCreatePictureIndirect(description, IID_IDispatch, true, &object);
    return StdPicture(
        Ref<MoxRuntime::IPictureDisp>::attach(static_cast<MoxRuntime::IPictureDisp*>(static_cast<IDispatch*>(object))));
}

template <class Work> void registerWork(const std::string& name, Work work) {
    benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
        for (auto _ : state) {
            if (!work()) {
                state.SkipWithError("the call failed");
                return;
            }
            benchmark::ClobberMemory();
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    // The allocator keeps its memory, as in a program that has run for a while; else the system's zeroing of new pages is what is
    // measured.
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    const host::TemporaryFolder home("mox-bench-");
    host::MachineConfig config;
    config.home = home.path();
    host::Machine::configure(config);

    std::vector<std::uint32_t> source(pixels);
    std::vector<std::uint32_t> target(pixels, 1);
    fill(source);
    const PixelWork work{source, target, width, height};
    const StdPicture picture = makePicture();
    const moxBitmapFilter filter{server::create<TRL_OBKR_MOX::_moxBitmapFilter>()};

    registerWork("memcpy", [&] { return std::memcpy(target.data(), source.data(), pixels * 4) != nullptr; });
    std::vector<bench::Ratio> ratios;
    for (const Filter& one : filters()) {
        registerWork(one.name, [&] { return one.routine(work), true; });
        registerWork(one.name + "Call", [&] { return static_cast<bool>(one.call(filter, picture)); });
        ratios.push_back({one.name + ": routine against memcpy", one.name, "memcpy", one.limit});
        ratios.push_back({one.name + ": call against memcpy", one.name + "Call", "memcpy", one.limit + mostAround});
    }
    for (const auto& [name, run] : bench::opencvWork(source.data(), target.data(), width, height)) {
        registerWork(name + "OpenCv", [run = run] { return run(), true; });
        ratios.push_back({name + ": routine against OpenCV", name, name + "OpenCv", 1});
    }
    return bench::runWithRatios(argc, argv, ratios);
}
