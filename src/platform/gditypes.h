// Records and numbers that the operations for drawing share.
#pragma once

#include "platform/types.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace mox::platform {

/// A colour: red in bits 0 to 7, green in 8 to 15, blue in 16 to 23.
using COLORREF = std::uint32_t;
inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

struct POINT {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const POINT&) const = default;
};

struct SIZE {
    std::int32_t cx = 0;
    std::int32_t cy = 0;
    bool operator==(const SIZE&) const = default;
};

/// The right and the lower edge do not belong to it.
struct RECT {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    bool operator==(const RECT&) const = default;
};

struct BITMAP {
    std::int32_t bmType = 0;
    std::int32_t bmWidth = 0;
    std::int32_t bmHeight = 0;
    std::int32_t bmWidthBytes = 0;
    std::uint16_t bmPlanes = 0;
    std::uint16_t bmBitsPixel = 0;
    /// The pixels of a device-independent section, which the caller may write to; null for other bitmaps.
    std::byte* bmBits = nullptr;
};

inline constexpr std::uint32_t BI_RGB = 0;
inline constexpr std::uint32_t BI_RLE8 = 1;
inline constexpr std::uint32_t BI_RLE4 = 2;
inline constexpr std::uint32_t BI_BITFIELDS = 3;

/// Describes device-independent pixels; a negative height stands for rows from the top down.
struct BITMAPINFOHEADER {
    std::uint32_t biSize = 40;
    std::int32_t biWidth = 0;
    std::int32_t biHeight = 0;
    std::uint16_t biPlanes = 1;
    std::uint16_t biBitCount = 0;
    std::uint32_t biCompression = BI_RGB;
    std::uint32_t biSizeImage = 0;
    std::int32_t biXPelsPerMeter = 0;
    std::int32_t biYPelsPerMeter = 0;
    std::uint32_t biClrUsed = 0;
    std::uint32_t biClrImportant = 0;
};

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    /// Colours as 0x00RRGGBB for up to 8 bits a pixel, or the three masks of `BI_BITFIELDS`.
    std::array<std::uint32_t, 256> bmiColors{};
};

inline constexpr std::uint32_t DIB_RGB_COLORS = 0;

// Raster operations with three operands.
inline constexpr std::uint32_t BLACKNESS = 0x000042;
inline constexpr std::uint32_t NOTSRCERASE = 0x1100A6;
inline constexpr std::uint32_t NOTSRCCOPY = 0x330008;
inline constexpr std::uint32_t SRCERASE = 0x440328;
inline constexpr std::uint32_t DSTINVERT = 0x550009;
inline constexpr std::uint32_t PATINVERT = 0x5A0049;
inline constexpr std::uint32_t SRCINVERT = 0x660046;
inline constexpr std::uint32_t SRCAND = 0x8800C6;
inline constexpr std::uint32_t MERGEPAINT = 0xBB0226;
inline constexpr std::uint32_t MERGECOPY = 0xC000CA;
inline constexpr std::uint32_t SRCCOPY = 0xCC0020;
inline constexpr std::uint32_t SRCPAINT = 0xEE0086;
inline constexpr std::uint32_t PATCOPY = 0xF00021;
inline constexpr std::uint32_t PATPAINT = 0xFB0A09;
inline constexpr std::uint32_t WHITENESS = 0xFF0062;

// Mixing of pens and brushes with what is there.
inline constexpr std::int32_t R2_BLACK = 1;
inline constexpr std::int32_t R2_NOTMERGEPEN = 2;
inline constexpr std::int32_t R2_MASKNOTPEN = 3;
inline constexpr std::int32_t R2_NOTCOPYPEN = 4;
inline constexpr std::int32_t R2_MASKPENNOT = 5;
inline constexpr std::int32_t R2_NOT = 6;
inline constexpr std::int32_t R2_XORPEN = 7;
inline constexpr std::int32_t R2_NOTMASKPEN = 8;
inline constexpr std::int32_t R2_MASKPEN = 9;
inline constexpr std::int32_t R2_NOTXORPEN = 10;
inline constexpr std::int32_t R2_NOP = 11;
inline constexpr std::int32_t R2_MERGENOTPEN = 12;
inline constexpr std::int32_t R2_COPYPEN = 13;
inline constexpr std::int32_t R2_MERGEPENNOT = 14;
inline constexpr std::int32_t R2_MERGEPEN = 15;
inline constexpr std::int32_t R2_WHITE = 16;

inline constexpr std::int32_t BLACKONWHITE = 1;
inline constexpr std::int32_t WHITEONBLACK = 2;
inline constexpr std::int32_t COLORONCOLOR = 3;
inline constexpr std::int32_t HALFTONE = 4;

inline constexpr std::int32_t TRANSPARENT = 1;
inline constexpr std::int32_t OPAQUE = 2;

inline constexpr std::int32_t PS_SOLID = 0;
inline constexpr std::int32_t PS_DASH = 1;
inline constexpr std::int32_t PS_DOT = 2;
inline constexpr std::int32_t PS_DASHDOT = 3;
inline constexpr std::int32_t PS_DASHDOTDOT = 4;
inline constexpr std::int32_t PS_NULL = 5;
inline constexpr std::int32_t PS_INSIDEFRAME = 6;

inline constexpr std::uint32_t BS_SOLID = 0;
inline constexpr std::uint32_t BS_NULL = 1;
inline constexpr std::uint32_t BS_HATCHED = 2;
inline constexpr std::uint32_t BS_PATTERN = 3;

struct LOGPEN {
    std::uint32_t lopnStyle = 0;
    POINT lopnWidth;
    COLORREF lopnColor = 0;
};

struct LOGBRUSH {
    std::uint32_t lbStyle = 0;
    COLORREF lbColor = 0;
    /// The hatch, or the bitmap of a pattern.
    std::int32_t lbHatch = 0;
};

// Stock objects.
inline constexpr std::int32_t WHITE_BRUSH = 0;
inline constexpr std::int32_t LTGRAY_BRUSH = 1;
inline constexpr std::int32_t GRAY_BRUSH = 2;
inline constexpr std::int32_t DKGRAY_BRUSH = 3;
inline constexpr std::int32_t BLACK_BRUSH = 4;
inline constexpr std::int32_t NULL_BRUSH = 5;
inline constexpr std::int32_t WHITE_PEN = 6;
inline constexpr std::int32_t BLACK_PEN = 7;
inline constexpr std::int32_t NULL_PEN = 8;
inline constexpr std::int32_t OEM_FIXED_FONT = 10;
inline constexpr std::int32_t ANSI_FIXED_FONT = 11;
inline constexpr std::int32_t ANSI_VAR_FONT = 12;
inline constexpr std::int32_t SYSTEM_FONT = 13;
inline constexpr std::int32_t DEVICE_DEFAULT_FONT = 14;
inline constexpr std::int32_t DEFAULT_PALETTE = 15;
inline constexpr std::int32_t SYSTEM_FIXED_FONT = 16;
inline constexpr std::int32_t DEFAULT_GUI_FONT = 17;

// Facts of a device, for GetDeviceCaps.
inline constexpr std::int32_t TECHNOLOGY = 2;
inline constexpr std::int32_t HORZSIZE = 4;
inline constexpr std::int32_t VERTSIZE = 6;
inline constexpr std::int32_t HORZRES = 8;
inline constexpr std::int32_t VERTRES = 10;
inline constexpr std::int32_t BITSPIXEL = 12;
inline constexpr std::int32_t PLANES = 14;
inline constexpr std::int32_t NUMCOLORS = 24;
inline constexpr std::int32_t RASTERCAPS = 38;
inline constexpr std::int32_t LOGPIXELSX = 88;
inline constexpr std::int32_t LOGPIXELSY = 90;
inline constexpr std::int32_t PHYSICALWIDTH = 110;
inline constexpr std::int32_t PHYSICALHEIGHT = 111;
inline constexpr std::int32_t PHYSICALOFFSETX = 112;
inline constexpr std::int32_t PHYSICALOFFSETY = 113;

/// How AlphaBlend mixes.
struct BLENDFUNCTION {
    std::uint8_t BlendOp = 0;
    std::uint8_t BlendFlags = 0;
    std::uint8_t SourceConstantAlpha = 255;
    /// 0, or `AC_SRC_ALPHA` for pixels that carry their own alpha, by which their colours are multiplied already.
    std::uint8_t AlphaFormat = 0;
};
inline constexpr std::uint8_t AC_SRC_ALPHA = 1;

// ---- fonts

inline constexpr std::int32_t FW_NORMAL = 400;
inline constexpr std::int32_t FW_BOLD = 700;

inline constexpr std::uint8_t ANSI_CHARSET = 0;
inline constexpr std::uint8_t DEFAULT_CHARSET = 1;
inline constexpr std::uint8_t SYMBOL_CHARSET = 2;

inline constexpr std::uint8_t DEFAULT_QUALITY = 0;
inline constexpr std::uint8_t DRAFT_QUALITY = 1;
inline constexpr std::uint8_t PROOF_QUALITY = 2;
inline constexpr std::uint8_t NONANTIALIASED_QUALITY = 3;
inline constexpr std::uint8_t ANTIALIASED_QUALITY = 4;
inline constexpr std::uint8_t CLEARTYPE_QUALITY = 5;

inline constexpr std::uint8_t FIXED_PITCH = 1;
inline constexpr std::uint8_t VARIABLE_PITCH = 2;
inline constexpr std::uint8_t FF_ROMAN = 0x10;
inline constexpr std::uint8_t FF_SWISS = 0x20;
inline constexpr std::uint8_t FF_MODERN = 0x30;
inline constexpr std::uint8_t FF_SCRIPT = 0x40;
inline constexpr std::uint8_t FF_DECORATIVE = 0x50;

struct LOGFONTA {
    /// Above 0 the height of a cell, below 0 that of the characters, in logical units; 0 is the default height.
    std::int32_t lfHeight = 0;
    std::int32_t lfWidth = 0;
    /// Of the line of text, in tenths of a degree, counterclockwise.
    std::int32_t lfEscapement = 0;
    std::int32_t lfOrientation = 0;
    std::int32_t lfWeight = 0;
    std::uint8_t lfItalic = 0;
    std::uint8_t lfUnderline = 0;
    std::uint8_t lfStrikeOut = 0;
    std::uint8_t lfCharSet = 0;
    std::uint8_t lfOutPrecision = 0;
    std::uint8_t lfClipPrecision = 0;
    std::uint8_t lfQuality = 0;
    std::uint8_t lfPitchAndFamily = 0;
    /// Ends at the first NUL, if it has one.
    std::array<char, 32> lfFaceName{};
};
static_assert(sizeof(LOGFONTA) == 60);

struct TEXTMETRICA {
    std::int32_t tmHeight = 0;
    std::int32_t tmAscent = 0;
    std::int32_t tmDescent = 0;
    std::int32_t tmInternalLeading = 0;
    std::int32_t tmExternalLeading = 0;
    std::int32_t tmAveCharWidth = 0;
    std::int32_t tmMaxCharWidth = 0;
    std::int32_t tmWeight = 0;
    std::int32_t tmOverhang = 0;
    std::int32_t tmDigitizedAspectX = 0;
    std::int32_t tmDigitizedAspectY = 0;
    std::uint8_t tmFirstChar = 0;
    std::uint8_t tmLastChar = 0;
    std::uint8_t tmDefaultChar = 0;
    std::uint8_t tmBreakChar = 0;
    std::uint8_t tmItalic = 0;
    std::uint8_t tmUnderlined = 0;
    std::uint8_t tmStruckOut = 0;
    /// Bit 0 is set for fonts whose characters are not equally wide.
    std::uint8_t tmPitchAndFamily = 0;
    std::uint8_t tmCharSet = 0;
};

/// The bytes of a record, for operations that fill one of several kinds.
template <class Record> std::span<std::byte> bytesOf(Record& record) noexcept {
    return std::as_writable_bytes(std::span(&record, 1));
}

} // namespace mox::platform
