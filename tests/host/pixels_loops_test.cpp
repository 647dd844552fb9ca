#include "host/pixels/pixelloops.h"

#include <gtest/gtest.h>

#include <random>

namespace mox::test {

namespace {

using namespace host;

/// Two operands at odd places, and room behind that has to stay.
struct Operands {
    explicit Operands(unsigned seed) {
        std::mt19937 random(seed);
        for (std::vector<Pixel>* row : {&target, &source, &pattern, &lower}) {
            row->resize(400);
            for (Pixel& pixel : *row) {
                pixel = random() % 8 == 0 ? 0x55123456 : static_cast<Pixel>(random());
            }
        }
    }
    std::vector<Pixel> target, source, pattern, lower;
};

/// Runs a loop over every short count and some long ones, from several places, and compares with the arithmetic of one pixel.
template <class Loop, class One> void expectSame(const char* what, Loop loop, One one) {
    for (unsigned count = 0; count <= 150; count += count < 70 ? 1 : 13) {
        const unsigned offset = count % 7;
        Operands operands(count);
        std::vector<Pixel> expected = operands.target;
        for (unsigned i = offset; i < offset + count; ++i) {
            expected[i] = one(operands, i);
        }
        loop(operands, offset, count);
        ASSERT_EQ(operands.target, expected) << what << ", " << count << " pixels";
    }
}

TEST(PixelsLoopsTest, combineAsBitByBit) {
    for (unsigned table = 0; table < 256; ++table) {
        const auto operation = static_cast<std::uint8_t>(table);
        expectSame(
            "combine",
            [&](Operands& o, unsigned from, unsigned count) {
                const std::uint32_t rop = table << 16;
                combine(operation, &o.target[from], usesSource(rop) ? &o.source[from] : nullptr,
                        usesPattern(rop) ? &o.pattern[from] : nullptr, count);
            },
            [&](const Operands& o, unsigned i) { return combined(operation, o.pattern[i], o.source[i], o.target[i]); });
    }
}

TEST(PixelsLoopsTest, paintOverTheColours) {
    for (unsigned table = 0; table < 256; ++table) {
        const auto operation = static_cast<std::uint8_t>(table);
        if (usesSource(table << 16)) {
            continue;
        }
        expectSame(
            "paintOver",
            [&](Operands& o, unsigned from, unsigned count) {
                paintOver(operation, &o.target[from], usesPattern(table << 16) ? &o.pattern[from] : nullptr, count);
            },
            [&](const Operands& o, unsigned i) {
                return (combined(operation, o.pattern[i], 0, o.target[i]) & 0xFFFFFF) | (o.target[i] & 0xFF000000);
            });
    }
}

TEST(PixelsLoopsTest, takeMeansToTheNearest) {
    for (const std::uint32_t whole : {1U, 2U, 3U, 7U, 255U, 4096U, 65537U, 8000000U}) {
        std::mt19937 random(whole);
        std::vector<std::uint32_t> totals{0, whole / 2, whole, 255 * whole};
        for (std::uint32_t i = 0; i < 255; ++i) {
            totals.push_back(i * whole + whole / 2);
            totals.push_back(i * whole + (whole - 1) / 2);
            totals.push_back(static_cast<std::uint32_t>(random() % (255ULL * whole + 1)));
        }
        std::vector<std::uint8_t> bytes(totals.size());
        toMeans(whole, bytes.data(), totals.data(), totals.size());
        for (std::size_t i = 0; i < totals.size(); ++i) {
            ASSERT_EQ(bytes[i], (2ULL * totals[i] + whole) / (2ULL * whole)) << totals[i] << " / " << whole;
        }
    }
}

TEST(PixelsLoopsTest, copyAllButOneColour) {
    expectSame(
        "copyKeyed",
        [](Operands& o, unsigned from, unsigned count) { copyKeyed(0x123456, &o.target[from], &o.source[from], count); },
        [](const Operands& o, unsigned i) { return keyed(0x123456, o.source[i], o.target[i]); });
}

TEST(PixelsLoopsTest, mixByAlpha) {
    for (const int alpha : {0, 1, 2, 63, 127, 128, 129, 200, 254, 255}) {
        const auto share = static_cast<std::uint8_t>(alpha);
        expectSame(
            "mix", [&](Operands& o, unsigned from, unsigned count) { mix(share, &o.target[from], &o.source[from], count); },
            [&](const Operands& o, unsigned i) { return mixed(share, o.source[i], o.target[i]); });
        expectSame(
            "layOver",
            [&](Operands& o, unsigned from, unsigned count) { layOver(share, &o.target[from], &o.source[from], count); },
            [&](const Operands& o, unsigned i) { return laidOver(share, o.source[i], o.target[i]); });
    }
}

TEST(PixelsLoopsTest, halveByTheMean) {
    for (std::size_t count = 0; count <= 150; ++count) {
        Operands operands(static_cast<unsigned>(count));
        std::vector<Pixel> expected = operands.target;
        const Pixel* const upper = &operands.source[count % 7];
        const Pixel* const lower = &operands.lower[count % 5];
        for (std::size_t i = 0; i < count; ++i) {
            expected[i + 1] = meanOfFour(upper[2 * i], upper[2 * i + 1], lower[2 * i], lower[2 * i + 1]);
        }
        halve(&operands.target[1], upper, lower, count);
        ASSERT_EQ(operands.target, expected) << count;
    }
}

TEST(PixelsLoopsTest, divideBy255ToTheNearest) {
    for (std::uint32_t value = 0; value <= 255 * 255; ++value) {
        ASSERT_EQ(divided255(value), (2 * value + 255) / 510) << value;
    }
}

} // namespace

} // namespace mox::test
