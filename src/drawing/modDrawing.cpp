#include "drawing/modDrawing.h"

#include "automation/objects/convert.h"
#include "automation/objects/errormodes.h"
#include "core/systemage.h"
#include "drawing/color.h"
#include "drawing/pictureproperties.h"

#include "platform/gdi32.h"
#include "platform/msimg32.h"
#include "platform/oleaut32.h"
#include "platform/runtime.h"

#include <utility>

namespace mox::server {

using namespace platform;

MemoryContext::MemoryContext(Handle compatibleWith, Handle object)
    : handle_(gdi32().CreateCompatibleDC(compatibleWith)), before_(gdi32().SelectObject(handle_, object)) {}

MemoryContext::~MemoryContext() {
    gdi32().SelectObject(handle_, before_);
    gdi32().DeleteDC(handle_);
}

MemoryBitmap::MemoryBitmap(Made made)
    : context_(made.context), bitmap_(made.bitmap), before_(gdi32().SelectObject(context_, bitmap_)) {}

MemoryBitmap::MemoryBitmap(Handle compatibleWith, Long cx, Long cy)
    : MemoryBitmap(Made{gdi32().CreateCompatibleDC(compatibleWith), gdi32().CreateCompatibleBitmap(compatibleWith, cx, cy)}) {}

MemoryBitmap MemoryBitmap::monochrome(Handle compatibleWith, Long cx, Long cy) {
    return MemoryBitmap(Made{gdi32().CreateCompatibleDC(compatibleWith), gdi32().CreateBitmap(cx, cy, 1, 1, {})});
}

MemoryBitmap::~MemoryBitmap() {
    endContext();
    if (bitmap_ != 0) {
        gdi32().DeleteObject(bitmap_);
    }
}

void MemoryBitmap::endContext() noexcept {
    if (context_ != 0) {
        gdi32().SelectObject(context_, before_);
        gdi32().DeleteDC(std::exchange(context_, 0));
    }
}

Handle MemoryBitmap::take() {
    endContext();
    return std::exchange(bitmap_, 0);
}

Long bestStretchMode() {
    return isSystemAtLeast(os_XP) ? HALFTONE : COLORONCOLOR;
}

StretchMode::StretchMode(Handle hdc) : StretchMode(hdc, bestStretchMode()) {}

StretchMode::StretchMode(Handle hdc, Long mode) : hdc_(hdc), before_(gdi32().GetStretchBltMode(hdc)) {
    gdi32().SetStretchBltMode(hdc, mode);
}

StretchMode::~StretchMode() {
    gdi32().SetStretchBltMode(hdc_, before_);
}

Size naturalSize(IPictureDisp* picture) {
    const Long type = picture ? pictureType(picture) : 0;
    if (type < 1 || type > 4) {
        return {};
    }
    const auto pixels = [](Long hundredths, Single twipsPerPixel) {
        const Long scaled = hundredths * 144;
        return toLong(divided(scaled, static_cast<Double>(twipsPerPixel) * 254));
    };
    Size size;
    size.CX = pixels(pictureWidth(picture), runtime().ScreenTwipsPerPixelX());
    size.CY = pixels(pictureHeight(picture), runtime().ScreenTwipsPerPixelY());
    return size;
}

namespace modDrawing {

namespace {

/// The copy of a source that a mask needs: the pixels as they are, or without any mixing of rows.
void copyPlain(Handle target, Long cx, Long cy, Handle source, Long xSrc, Long ySrc, Long cxSrc, Long cySrc) {
    if (cx == cxSrc && cy == cySrc) {
        gdi32().BitBlt(target, 0, 0, cx, cy, source, xSrc, ySrc, SRCCOPY);
        return;
    }
    const StretchMode mode(target, COLORONCOLOR);
    gdi32().StretchBlt(target, 0, 0, cx, cy, source, xSrc, ySrc, cxSrc, cySrc, SRCCOPY);
}

/// What TransparentBlt does, for systems that do not have it.
bool blitMasked(Handle hDC, Long X, Long Y, Long CX, Long CY, Handle memory, Long xSrc, Long ySrc, Long cxSrc, Long cySrc,
                COLORREF transparent) {
    const MemoryBitmap result(hDC, CX, CY);
    const MemoryBitmap back(hDC, CX, CY);
    gdi32().BitBlt(back.handle(), 0, 0, CX, CY, hDC, X, Y, SRCCOPY);

    // Set where the ground shows.
    const MemoryBitmap mask = MemoryBitmap::monochrome(hDC, CX, CY);
    const COLORREF before = gdi32().SetBkColor(memory, transparent);
    copyPlain(mask.handle(), CX, CY, memory, xSrc, ySrc, cxSrc, cySrc);
    gdi32().SetBkColor(memory, before);

    const MemoryBitmap inverse = MemoryBitmap::monochrome(hDC, CX, CY);
    gdi32().BitBlt(inverse.handle(), 0, 0, CX, CY, mask.handle(), 0, 0, NOTSRCCOPY);
    gdi32().BitBlt(back.handle(), 0, 0, CX, CY, mask.handle(), 0, 0, SRCAND);
    copyPlain(result.handle(), CX, CY, memory, xSrc, ySrc, cxSrc, cySrc);
    gdi32().BitBlt(result.handle(), 0, 0, CX, CY, inverse.handle(), 0, 0, SRCAND);
    gdi32().BitBlt(result.handle(), 0, 0, CX, CY, back.handle(), 0, 0, SRCINVERT);
    return gdi32().BitBlt(hDC, X, Y, CX, CY, result.handle(), 0, 0, SRCCOPY);
}

bool blitPlain(Handle hDC, Long X, Long Y, Long CX, Long CY, Handle memory, Long xSrc, Long ySrc, Long cxSrc, Long cySrc) {
    if (CX == cxSrc && CY == cySrc) {
        return gdi32().BitBlt(hDC, X, Y, CX, CY, memory, xSrc, ySrc, SRCCOPY);
    }
    const StretchMode mode(hDC);
    return gdi32().StretchBlt(hDC, X, Y, CX, CY, memory, xSrc, ySrc, cxSrc, cySrc, SRCCOPY);
}

} // namespace

Ref<IPictureDisp> PictureFromHandle(Handle hHandle, Long hPal, bool bIcon) {
    Ref<IPictureDisp> result;
    trapAndLeave([&] {
        if (hHandle == 0) {
            return;
        }
        PICTDESC description;
        description.picType = bIcon ? PICTYPE_ICON : PICTYPE_BITMAP;
        description.handle = hHandle;
        description.hpal = hPal;
        void* object = nullptr;
        if (oleaut32().OleCreatePictureIndirect(description, IID_IDispatch, true, &object) == S_OK) {
            // Its members are called by their identifiers alone, so every dispatch interface of it will do.
            result = Ref<IPictureDisp>::attach(static_cast<IPictureDisp*>(static_cast<IDispatch*>(object)));
        }
    });
    return result;
}

Ref<IPictureDisp> PictureFromDC(Handle hDC, Long X, Long Y, Long CX, Long CY) {
    MemoryBitmap memory(hDC, CX, CY);
    gdi32().BitBlt(memory.handle(), 0, 0, CX, CY, hDC, X, Y, SRCCOPY);
    const Handle copy = memory.take();
    Ref<IPictureDisp> picture = PictureFromHandle(copy, 0, false);
    if (!picture && copy != 0) {
        gdi32().DeleteObject(copy);
    }
    return picture;
}

Boolean BlitBitmap(IPictureDisp* objPicture, Handle hDC, Long X, Long Y, Long CX, Long CY, Long xSrc, Long ySrc, Long cxSrc,
                   Long cySrc, Boolean bTransparent, Long TransparentColor) {
    bool result = false;
    trapAndLeave([&] {
        if (!objPicture || pictureType(objPicture) != PICTYPE_BITMAP) {
            return;
        }
        const MemoryContext memory(hDC, pictureHandle(objPicture));
        if (!bTransparent) {
            result = blitPlain(hDC, X, Y, CX, CY, memory.handle(), xSrc, ySrc, cxSrc, cySrc);
        } else if (isSystemAtLeast(os_2K)) {
            result = msimg32().TransparentBlt(hDC, X, Y, CX, CY, memory.handle(), xSrc, ySrc, cxSrc, cySrc,
                                              toColorRef(TransparentColor));
        } else {
            result = blitMasked(hDC, X, Y, CX, CY, memory.handle(), xSrc, ySrc, cxSrc, cySrc, toColorRef(TransparentColor));
        }
    });
    return result;
}

void AlphaBlit(Handle hDC, Long X, Long Y, Long CX, Long CY, Handle hDCSrc, Long xSrc, Long ySrc, Long cxSrc, Long cySrc,
               Byte AlphaTransparency, Boolean bTransparent, Long TransparentColor) {
    trapAndLeave([&] {
        BLENDFUNCTION blend;
        blend.SourceConstantAlpha = static_cast<Byte>(255 - AlphaTransparency);
        if (!bTransparent || !isSystemAtLeast(os_2K)) {
            msimg32().AlphaBlend(hDC, X, Y, CX, CY, hDCSrc, xSrc, ySrc, cxSrc, cySrc, blend);
            return;
        }
        // The picture is laid over the ground at full strength first.
        const MemoryBitmap laid(hDC, CX, CY);
        gdi32().BitBlt(laid.handle(), 0, 0, CX, CY, hDC, X, Y, SRCCOPY);
        msimg32().TransparentBlt(laid.handle(), 0, 0, CX, CY, hDCSrc, xSrc, ySrc, cxSrc, cySrc, toColorRef(TransparentColor));
        msimg32().AlphaBlend(hDC, X, Y, CX, CY, laid.handle(), 0, 0, CX, CY, blend);
    });
}

} // namespace modDrawing

} // namespace mox::server
