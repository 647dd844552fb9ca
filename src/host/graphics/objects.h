// What is selected into a device context beside its surface. All are made once and never change.
#pragma once

#include "host/graphics/bitmap.h"

#include "platform/gditypes.h"

#include <memory>
#include <vector>

namespace mox::host {

struct Pen {
    /// One of the `PS_` styles.
    std::int32_t style = platform::PS_SOLID;
    /// In logical units. A pen of width 0 is one pixel wide whatever the mapping is.
    std::int32_t width = 0;
    platform::COLORREF color = 0;
    // Only for pens of metafiles, which have more than the plain ones.
    std::uint32_t endCap = 0;
    std::uint32_t join = 0;
};

struct Brush {
    /// One of the `BS_` styles.
    std::uint32_t style = platform::BS_SOLID;
    platform::COLORREF color = 0;
    /// 0 horizontal, 1 vertical, 2 down to the right, 3 up to the right, 4 cross, 5 diagonal cross.
    std::int32_t hatch = 0;
    /// Of a pattern; the brush's own copy.
    std::shared_ptr<const Bitmap> pattern{};
    /// The handle by which it was made, for those who ask.
    platform::Handle patternHandle = 0;
};

/// A font as it was asked for; which one is drawn is found when it is used on a device.
struct Font {
    platform::LOGFONTA description{};
};

/// A small picture with holes.
struct Icon {
    /// 32 bits with alpha in the fourth byte, not multiplied into the colours, if `hasAlpha`; else without.
    std::shared_ptr<const Bitmap> image{};
    /// Monochrome, as large as the image; 1 lets the ground through, mixed with the image by exclusive or. May be null with
    /// alpha.
    std::shared_ptr<const Bitmap> mask{};
    bool hasAlpha = false;
    bool isCursor = false;
    platform::POINT hotspot{};
    /// One of the system's own, which nobody destroys.
    bool isShared = false;
};

/// Drawing that was recorded: the bytes of an enhanced metafile.
struct EnhancedMetafile {
    std::vector<std::byte> bits{};
};

/// The bytes of an old-style metafile, without a placeable header.
struct OldMetafile {
    std::vector<std::byte> bits{};
};

} // namespace mox::host
