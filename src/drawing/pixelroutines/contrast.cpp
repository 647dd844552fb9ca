#include "drawing/pixelroutines/contrast.h"

#include "drawing/pixelroutines/tablepass.h"

#include <cmath>

namespace mox::server {

namespace {

ByteTable contrastTable(Integer factor) {
    constexpr Integer least = -50;
    const auto power = static_cast<Integer>(std::max(factor, least) + 91); // of 16 bits, as it is kept
    const double gain = std::exp(power / 30.0) / 20 - static_cast<double>(0.05f);
    ByteTable table;
    // Added up and not multiplied: the roundings of the additions are part of the result.
    double sum = -128 * gain;
    for (Byte& entry : table) {
        sum += gain;
        const double value = std::nearbyint(sum) + 127;
        // Beyond the range of a number the sum is none, which is not above 0 either.
        entry = !(value > 0) ? 0 : value > 255 ? 255 : static_cast<Byte>(value);
    }
    return table;
}

} // namespace

void contrast(const PixelWork& work, Integer factor, Vectors vectors) {
    applyTable(work, contrastTable(factor), vectors);
}

} // namespace mox::server
