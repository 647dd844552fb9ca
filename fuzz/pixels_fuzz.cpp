// Random headers of pixels, and random copies between what they describe: no header, place or extent leads out of the pixels.
#include "require.h"

#include "host/machine/machine.h"

#include <algorithm>
#include <array>
#include <cstring>

using namespace mox::host;
using namespace mox::platform;

namespace {

/// Numbers from the input, 0 behind its end.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : left_(data, size) {}

    bool isEmpty() const { return left_.empty(); }
    template <class Value> Value take() {
        Value value{};
        const std::size_t size = std::min(sizeof value, left_.size());
        std::memcpy(&value, left_.data(), size);
        left_ = left_.subspan(size);
        return value;
    }
    /// Mostly small, as most large ones miss every pixel.
    std::int32_t place() {
        const auto kind = take<std::uint8_t>();
        return kind % 4 == 0 ? take<std::int32_t>() : take<std::int8_t>();
    }

private:
    std::span<const std::uint8_t> left_;
};

struct World {
    Machine machine{MachineConfig()};
    Gdi32& gdi = machine.gdi32;
    Msimg32& msimg = machine.msimg32;
    Handle contexts[2] = {gdi.CreateCompatibleDC(0), gdi.CreateCompatibleDC(0)};
};

BITMAPINFO takeInfo(Input& input) {
    BITMAPINFO info;
    info.bmiHeader = input.take<BITMAPINFOHEADER>();
    if (input.take<std::uint8_t>() % 8 != 0) { // a sound one, for the copies
        constexpr std::array<std::uint16_t, 6> depths{1, 4, 8, 16, 24, 32};
        info.bmiHeader.biSize = 40;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biWidth = info.bmiHeader.biWidth & 0x7F;
        info.bmiHeader.biHeight = static_cast<std::int8_t>(info.bmiHeader.biHeight);
        info.bmiHeader.biBitCount = depths[info.bmiHeader.biBitCount % depths.size()];
        info.bmiHeader.biCompression = info.bmiHeader.biCompression % 2 == 0 ? BI_RGB : BI_BITFIELDS;
    }
    for (std::size_t i = 0; i < 3; ++i) {
        info.bmiColors[i] = input.take<std::uint32_t>();
    }
    return info;
}

/// One that is small enough to be drawn on in no time.
Handle makeSection(World& world, Input& input) {
    const BITMAPINFO info = takeInfo(input);
    std::byte* bits = nullptr;
    const Handle section = world.gdi.CreateDIBSection(0, info, DIB_RGB_COLORS, bits);
    require((section != 0) == (bits != nullptr));
    const auto bitmap = world.machine.graphics.bitmap(section);
    if (bitmap && bitmap->bytes().size() > std::size_t{1} << 20) {
        require(world.gdi.DeleteObject(section));
        return 0;
    }
    if (bitmap) {
        std::uint32_t number = input.take<std::uint32_t>();
        for (std::byte& byte : bitmap->bytes()) {
            number = number * 1664525 + 1013904223;
            byte = static_cast<std::byte>(number >> 24);
        }
    }
    return section;
}

void readBits(World& world, Input& input, Handle section) {
    BITMAPINFO info = takeInfo(input);
    std::vector<std::byte> bits(input.take<std::uint16_t>());
    const auto start = input.take<std::uint8_t>();
    const auto lines = static_cast<std::uint32_t>(input.place());
    const std::int32_t rows = world.gdi.GetDIBits(world.contexts[0], section, start, lines, bits, info, DIB_RGB_COLORS);
    require(rows >= 0 && (bits.empty() || static_cast<std::uint32_t>(rows) <= lines));
}

void copy(World& world, Input& input) {
    const Handle to = world.contexts[0];
    const Handle from = world.contexts[input.take<std::uint8_t>() % 2];
    std::array<std::int32_t, 8> places{};
    std::ranges::generate(places, [&] { return input.place(); });
    const auto [x, y, cx, cy, xSource, ySource, cxSource, cySource] = places;
    world.gdi.SetStretchBltMode(to, 1 + input.take<std::uint8_t>() % 4);
    switch (input.take<std::uint8_t>() % 4) {
    case 0:
        world.gdi.BitBlt(to, x, y, cx, cy, from, xSource, ySource, input.take<std::uint32_t>());
        break;
    case 1:
        world.gdi.StretchBlt(to, x, y, cx, cy, from, xSource, ySource, cxSource, cySource, input.take<std::uint32_t>());
        break;
    case 2:
        world.msimg.TransparentBlt(to, x, y, cx, cy, from, xSource, ySource, cxSource, cySource, input.take<std::uint32_t>());
        break;
    default:
        world.msimg.AlphaBlend(to, x, y, cx, cy, from, xSource, ySource, cxSource, cySource, input.take<BLENDFUNCTION>());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static World world;
    Input input(data, size);
    const std::array<Handle, 2> sections{makeSection(world, input), makeSection(world, input)};
    std::array<Handle, 2> before{};
    for (std::size_t i = 0; i < 2; ++i) {
        before[i] = world.gdi.SelectObject(world.contexts[i], sections[i]);
    }
    readBits(world, input, sections[0]);
    for (int turn = 0; turn < 8 && !input.isEmpty(); ++turn) {
        copy(world, input);
    }
    for (std::size_t i = 0; i < 2; ++i) {
        if (sections[i] != 0) {
            require(world.gdi.SelectObject(world.contexts[i], before[i]) == sections[i]);
            require(world.gdi.DeleteObject(sections[i]));
        }
    }
    return 0;
}
