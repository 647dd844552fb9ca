// The records of enhanced metafiles.
#pragma once

#include "host/fonts/textalign.h"

#include <cstdint>

namespace mox::host {

/// A record is its type, its size in bytes, a multiple of 4 that includes these two, and fields of its type.
enum class EnhancedRecord : std::uint32_t {
    header = 1,
    polyBezier = 2,
    polygon = 3,
    polyline = 4,
    polyBezierTo = 5,
    polylineTo = 6,
    polyPolyline = 7,
    polyPolygon = 8,
    setWindowExt = 9,
    setWindowOrg = 10,
    setViewportExt = 11,
    setViewportOrg = 12,
    setBrushOrg = 13,
    endOfFile = 14,
    setPixel = 15,
    setMapMode = 17,
    setBkMode = 18,
    setPolyFillMode = 19,
    setRop2 = 20,
    setStretchBltMode = 21,
    setTextAlign = 22,
    setTextColor = 24,
    setBkColor = 25,
    offsetClipRgn = 26,
    moveTo = 27,
    setMetaRgn = 28,
    excludeClipRect = 29,
    intersectClipRect = 30,
    scaleViewportExt = 31,
    scaleWindowExt = 32,
    saveDc = 33,
    restoreDc = 34,
    setWorldTransform = 35,
    modifyWorldTransform = 36,
    selectObject = 37,
    createPen = 38,
    createBrush = 39,
    deleteObject = 40,
    angleArc = 41,
    ellipse = 42,
    rectangle = 43,
    roundRect = 44,
    arc = 45,
    chord = 46,
    pie = 47,
    createPalette = 49,
    lineTo = 54,
    arcTo = 55,
    polyDraw = 56,
    setArcDirection = 57,
    setMiterLimit = 58,
    beginPath = 59,
    endPath = 60,
    closeFigure = 61,
    fillPath = 62,
    strokeAndFillPath = 63,
    strokePath = 64,
    flattenPath = 65,
    widenPath = 66,
    selectClipPath = 67,
    abortPath = 68,
    fillRgn = 71,
    frameRgn = 72,
    invertRgn = 73,
    paintRgn = 74,
    extSelectClipRgn = 75,
    bitBlt = 76,
    stretchBlt = 77,
    maskBlt = 78,
    plgBlt = 79,
    setDibitsToDevice = 80,
    stretchDibits = 81,
    createFont = 82,
    extTextOutA = 83,
    extTextOutW = 84,
    polyBezier16 = 85,
    polygon16 = 86,
    polyline16 = 87,
    polyBezierTo16 = 88,
    polylineTo16 = 89,
    polyPolyline16 = 90,
    polyPolygon16 = 91,
    polyDraw16 = 92,
    createMonoBrush = 93,
    createDibPatternBrush = 94,
    extCreatePen = 95,
    smallTextOut = 108,
    alphaBlend = 114,
    transparentBlt = 116,
    gradientFill = 118,
};

/// In the index of an object: one of the stock objects.
inline constexpr std::uint32_t stockObjectFlag = 0x80000000;

// Ways to join a region with the clipping.
inline constexpr std::uint32_t RGN_AND = 1;
inline constexpr std::uint32_t RGN_OR = 2;
inline constexpr std::uint32_t RGN_XOR = 3;
inline constexpr std::uint32_t RGN_DIFF = 4;
inline constexpr std::uint32_t RGN_COPY = 5;

inline constexpr std::int32_t MM_TEXT = 1;
inline constexpr std::int32_t MM_ISOTROPIC = 7;
inline constexpr std::int32_t MM_ANISOTROPIC = 8;

// Options of text beside those that are passed on.
inline constexpr std::uint32_t ETO_GLYPH_INDEX = 0x10;
inline constexpr std::uint32_t ETO_NO_RECT = 0x100;
inline constexpr std::uint32_t ETO_SMALL_CHARS = 0x200;
inline constexpr std::uint32_t ETO_PDY = 0x2000;

} // namespace mox::host
