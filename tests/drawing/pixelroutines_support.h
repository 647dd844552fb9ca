// Pixel routines against models of their rules.
#pragma once

#include "drawing/pixelroutines/pixelwork.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace mox::test {

/// Pixels by column and memory row.
struct Pixels {
    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::uint32_t> values;

    std::uint32_t at(std::size_t x, std::size_t y) const { return values.at(y * width + x); }
    /// One of the bytes of a pixel, from 0 for blue to 3.
    int byte(std::size_t x, std::size_t y, int which) const { return static_cast<int>(at(x, y) >> 8 * which & 0xFF); }
};

/// Pixels with all kinds of fourth bytes; some are grey, black or white, or have two colours that are equal.
inline Pixels randomPixels(std::size_t width, std::size_t height) {
    Pixels pixels{width, height, {}};
    std::mt19937 random(static_cast<unsigned>(width * 1000 + height));
    while (pixels.values.size() < width * height) {
        std::uint32_t pixel = random();
        switch (random() % 8) {
        case 0:
            pixel = (pixel & 0xFF0000FF) | (pixel & 0xFF) << 8 | (pixel & 0xFF) << 16;
            break;
        case 1:
            pixel = (pixel & 0xFFFF00FF) | (pixel & 0xFF) << 8;
            break;
        case 2:
            pixel = (pixel & 0xFF00FFFF) | (pixel & 0xFF) << 16;
            break;
        case 3:
            pixel = random() % 2 ? pixel | 0xFFFFFF : pixel & ~0xFFFFFFu;
            break;
        default:
            break;
        }
        pixels.values.push_back(pixel);
    }
    return pixels;
}

using Routine = std::function<void(const server::PixelWork& work, server::Vectors vectors)>;

/// The levels that this processor has.
inline std::vector<server::Vectors> levels() {
    std::vector<server::Vectors> result;
    for (const auto level : {server::Vectors::none, server::Vectors::avx2, server::Vectors::avx512}) {
        if (level <= server::bestVectors()) {
            result.push_back(level);
        }
    }
    return result;
}

/// What a routine makes of pixels; `offset` is how many pixels behind the beginning of a cache line they and the result lie.
/// Fails if it writes beside the result.
inline std::vector<std::uint32_t> runRoutine(const Routine& routine, const Pixels& pixels, server::Vectors level,
                                             std::size_t offset = 0) {
    constexpr std::uint32_t guard = 0xABCD1234;
    constexpr std::size_t line = 16;
    const std::size_t count = pixels.values.size();
    std::vector<std::uint32_t> source(count + offset + 2 * line);
    std::vector<std::uint32_t> target(count + offset + 3 * line, guard);
    const auto toLine = [](const std::vector<std::uint32_t>& buffer) {
        return (0 - reinterpret_cast<std::uintptr_t>(buffer.data()) / 4) % line;
    };
    const std::size_t from = toLine(source) + offset / 2;
    const std::size_t to = toLine(target) + offset;
    std::copy_n(pixels.values.begin(), count, source.begin() + static_cast<std::ptrdiff_t>(from));
    routine({std::span(source).subspan(from, count), std::span(target).subspan(to, count), pixels.width, pixels.height}, level);
    const auto begin = target.begin() + static_cast<std::ptrdiff_t>(to);
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    EXPECT_EQ(std::count(target.begin(), begin, guard), begin - target.begin()) << "written before the target";
    EXPECT_EQ(std::count(end, target.end(), guard), target.end() - end) << "written behind the target";
    return {begin, end};
}

/// What the model says of the pixel of a column and row.
using Model = std::function<std::uint32_t(const Pixels& pixels, std::size_t x, std::size_t y)>;

/// Fails where any level of a routine gives other pixels than the model, for pictures of many shapes.
inline void expectModel(const std::string& name, const Routine& routine, const Model& model) {
    SCOPED_TRACE(name);
    static constexpr std::pair<std::size_t, std::size_t> shapes[] = {{1, 1}, {2, 100}, {100, 2}, {3, 3},    {33, 17},
                                                                     {7, 1}, {1, 9},   {64, 5},  {300, 300}};
    for (const auto& [width, height] : shapes) {
        const Pixels pixels = randomPixels(width, height);
        std::vector<std::uint32_t> expected;
        for (std::size_t y = 0; y < height; ++y) {
            for (std::size_t x = 0; x < width; ++x) {
                expected.push_back(model(pixels, x, y));
            }
        }
        for (const auto level : levels()) {
            const auto result = runRoutine(routine, pixels, level);
            const auto [is, should] = std::ranges::mismatch(result, expected);
            const auto place = static_cast<std::size_t>(is - result.begin());
            ASSERT_TRUE(is == result.end()) << std::hex << "pixel " << pixels.values[place] << " became " << *is << " and not "
                                            << *should << std::dec << ", " << place << " of " << width << " x " << height
                                            << ", level " << static_cast<int>(level);
        }
    }
}

} // namespace mox::test
