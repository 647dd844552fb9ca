// Pictures on device contexts.
#include "drawing/moxDrawing.h"

#include "automation/objects/errormodes.h"
#include "drawing/color.h"
#include "drawing/modDrawing.h"
#include "drawing/pictureproperties.h"

#include "platform/gdi32.h"
#include "platform/msimg32.h"
#include "platform/oleaut32.h"
#include "platform/user32.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <limits>
#include <vector>

namespace mox::server {

using namespace platform;

namespace {

constexpr Long magenta = 0xFF00FF;

/// True for a picture object of another kind than the wanted ones; Nothing is left for later.
bool isOfOtherKind(IPictureDisp* picture, std::initializer_list<std::uint32_t> kinds) {
    return picture && std::ranges::find(kinds, static_cast<std::uint32_t>(pictureType(picture))) == kinds.end();
}

/// Puts the natural size in the place of extents of 0. Error 91 for Nothing where it is needed.
void completeSize(IPictureDisp* picture, Long& cx, Long& cy) {
    if (cx != 0 && cy != 0) {
        return;
    }
    if (!picture) {
        throw RuntimeError(errObjectNotSet);
    }
    const Size natural = naturalSize(picture);
    cx = cx == 0 ? natural.CX : cx;
    cy = cy == 0 ? natural.CY : cy;
}

/// Draws over a copy of the ground, and mixes that into the target.
void drawMixed(Handle hDC, Long X, Long Y, Long CX, Long CY, Byte transparency, const std::function<void(Handle memory)>& draw) {
    const MemoryBitmap memory(hDC, CX, CY);
    gdi32().BitBlt(memory.handle(), 0, 0, CX, CY, hDC, X, Y, SRCCOPY);
    draw(memory.handle());
    modDrawing::AlphaBlit(hDC, X, Y, CX, CY, memory.handle(), 0, 0, CX, CY, transparency, False, 0);
}

/// Tiles that a length needs. Error 11 for a tile without extent, error 6 for the one quotient that has no place in a `Long`.
Long tilesOf(Long length, Long tile) {
    if (tile == 0) {
        throw RuntimeError(errDivisionByZero);
    }
    const std::int64_t whole = std::int64_t{length} / tile;
    if (whole > std::numeric_limits<Long>::max()) {
        throw RuntimeError(errOverflow);
    }
    return static_cast<Long>(std::abs(whole)) + (std::int64_t{length} % tile != 0 ? 1 : 0);
}

/// The enhanced form of an old-style metafile for one call; 0 if it has no bytes.
class ConvertedMetafile {
public:
    /// `old` 0 stands for none.
    ConvertedMetafile(Handle old, Handle hDC) {
        if (old == 0) {
            return;
        }
        const std::uint32_t size = gdi32().GetMetaFileBitsEx(old, {});
        if (size >= 1) {
            std::vector<std::byte> bits(size);
            gdi32().GetMetaFileBitsEx(old, bits);
            handle_ = gdi32().SetWinMetaFileBits(bits, hDC);
        }
    }
    ConvertedMetafile(const ConvertedMetafile&) = delete;
    ConvertedMetafile& operator=(const ConvertedMetafile&) = delete;
    ~ConvertedMetafile() {
        if (handle_ != 0) {
            gdi32().DeleteEnhMetaFile(handle_);
        }
    }

    Handle handle() const noexcept { return handle_; }

private:
    Handle handle_ = 0;
};

} // namespace

Boolean moxDrawing::DrawPicture(IPictureDisp* objPicture, Long hDC, Long X, Long Y, Long CX, Long CY, Byte AlphaTransparency) {
    switch (pictureType(objPicture)) {
    case PICTYPE_BITMAP:
        return DrawBitmap(objPicture, hDC, X, Y, CX, CY, 0, 0, 0, 0, False, False, magenta, AlphaTransparency);
    case PICTYPE_ICON:
        return DrawIcon(objPicture, hDC, X, Y, CX, CY, AlphaTransparency);
    case PICTYPE_METAFILE:
    case PICTYPE_ENHMETAFILE:
        return DrawMetaFile(objPicture, hDC, X, Y, CX, CY, AlphaTransparency);
    default:
        return False;
    }
}

Boolean moxDrawing::DrawBitmap(IPictureDisp* objPicture, Long hDC, Long X, Long Y, Long CX, Long CY, Long xSrc, Long ySrc,
                               Long cxSrc, Long cySrc, Boolean bTile, Boolean DrawTransparent, Long TransparentColor,
                               Byte AlphaTransparency) {
    Boolean result = False;
    trapAndLeave([&] {
        if (isOfOtherKind(objPicture, {PICTYPE_BITMAP})) {
            return;
        }
        completeSize(objPicture, CX, CY);
        completeSize(objPicture, cxSrc, cySrc);
        const Long transparent = resolvedColor(TransparentColor);
        if (!bTile && AlphaTransparency == 0) {
            result =
                modDrawing::BlitBitmap(objPicture, hDC, X, Y, CX, CY, xSrc, ySrc, cxSrc, cySrc, DrawTransparent, transparent);
            return;
        }
        if (!bTile) {
            const MemoryContext memory(hDC, pictureHandle(objPicture));
            modDrawing::AlphaBlit(hDC, X, Y, CX, CY, memory.handle(), xSrc, ySrc, cxSrc, cySrc, AlphaTransparency,
                                  DrawTransparent, transparent);
            result = True;
            return;
        }
        const Long columns = tilesOf(CX, cxSrc);
        const Long rows = tilesOf(CY, cySrc);
        const MemoryContext memory(hDC, pictureHandle(objPicture));
        for (Long r = 0; r < rows; ++r) {
            for (Long c = 0; c < columns; ++c) {
                const Long left = X + c * cxSrc;
                const Long top = Y + r * cySrc;
                if (AlphaTransparency != 0) {
                    modDrawing::AlphaBlit(hDC, left, top, cxSrc, cySrc, memory.handle(), xSrc, ySrc, cxSrc, cySrc,
                                          AlphaTransparency, DrawTransparent, transparent);
                } else if (DrawTransparent) {
                    msimg32().TransparentBlt(hDC, left, top, cxSrc, cySrc, memory.handle(), xSrc, ySrc, cxSrc, cySrc,
                                             static_cast<COLORREF>(transparent));
                } else {
                    gdi32().StretchBlt(hDC, left, top, cxSrc, cySrc, memory.handle(), xSrc, ySrc, cxSrc, cySrc, SRCCOPY);
                }
            }
        }
        result = True;
    });
    return result;
}

Boolean moxDrawing::DrawIcon(IPictureDisp* objPicture, Long hDC, Long X, Long Y, Long CX, Long CY, Byte AlphaTransparency) {
    Boolean result = False;
    trapAndLeave([&] {
        if (isOfOtherKind(objPicture, {PICTYPE_ICON})) {
            return;
        }
        completeSize(objPicture, CX, CY);
        const Handle icon = pictureHandle(objPicture);
        if (AlphaTransparency != 0) {
            drawMixed(hDC, X, Y, CX, CY, AlphaTransparency,
                      [&](Handle memory) { user32().DrawIconEx(memory, 0, 0, icon, CX, CY, 0, 0, DI_NORMAL); });
        } else {
            user32().DrawIconEx(hDC, X, Y, icon, CX, CY, 0, 0, DI_NORMAL);
        }
        result = True;
    });
    return result;
}

Boolean moxDrawing::DrawSystemIcon(moX_DRAW_SYSICON eIcon, Long hDC, Long X, Long Y, Long CX, Long CY, Byte AlphaTransparency) {
    Boolean result = False;
    const Handle icon = user32().LoadIconA(0, static_cast<std::uint32_t>(eIcon));
    if (icon == 0) {
        return False;
    }
    trapAndLeave([&] {
        if (CX == 0 || CY == 0) {
            const auto picture = modDrawing::PictureFromHandle(icon, 0, true);
            completeSize(picture.get(), CX, CY);
        }
        if (AlphaTransparency != 0) {
            drawMixed(hDC, X, Y, CX, CY, AlphaTransparency,
                      [&](Handle memory) { user32().DrawIconEx(memory, 0, 0, icon, CX, CY, 0, 0, DI_NORMAL); });
            result = True;
        } else {
            result = user32().DrawIconEx(hDC, X, Y, icon, CX, CY, 0, 0, DI_NORMAL);
        }
    });
    user32().DestroyIcon(icon);
    return result;
}

Boolean moxDrawing::DrawMetaFile(IPictureDisp* objPicture, Long hDC, Long X, Long Y, Long CX, Long CY, Byte AlphaTransparency) {
    Boolean result = False;
    trapAndLeave([&] {
        if (isOfOtherKind(objPicture, {PICTYPE_METAFILE, PICTYPE_ENHMETAFILE})) {
            return;
        }
        completeSize(objPicture, CX, CY);
        const Handle own = pictureHandle(objPicture);
        const ConvertedMetafile converted(pictureType(objPicture) == PICTYPE_METAFILE ? own : 0, hDC);
        const Handle metafile = converted.handle() != 0 ? converted.handle() : own;
        if (AlphaTransparency != 0) {
            drawMixed(hDC, X, Y, CX, CY, AlphaTransparency, [&](Handle memory) {
                gdi32().PlayEnhMetaFile(memory, metafile, {0, 0, CX, CY});
            });
            result = True;
        } else {
            result = gdi32().PlayEnhMetaFile(hDC, metafile, {X, Y, X + CX, Y + CY});
        }
    });
    return result;
}

} // namespace mox::server
