// The proportions of a font.
#pragma once

#include "host/fonts/fontlibrary.h"

#include <cstdint>

namespace mox::host {

/// Parts of the em, which is 1.
struct FaceMetrics {
    /// Of the cell of a line, above and below the baseline.
    double ascent = 0.8;
    double descent = 0.2;
    double externalLeading = 0;
    double averageWidth = 0.5;
    double maximumWidth = 1;
    /// The middle of the line, above 0 below the baseline.
    double underlinePosition = 0.1;
    double underlineThickness = 0.05;
    double strikeOutPosition = -0.25;
    double strikeOutThickness = 0.05;
    /// One of the `FF_` families; 0 if the font does not tell.
    std::uint8_t family = 0;
    bool isFixed = false;
    std::uint16_t firstCharacter = 0x20;
    std::uint16_t lastCharacter = 0xFF;
};

FaceMetrics measureFace(const FontFace& face);

} // namespace mox::host
