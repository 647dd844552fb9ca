#include "drawing/moxOffscreenBuffer.h"

#include "drawing/color.h"
#include "drawing/modDrawing.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

#include <utility>

namespace mox::server {

using namespace platform;

moxOffscreenBuffer::~moxOffscreenBuffer() {
    free();
}

void moxOffscreenBuffer::free() noexcept {
    if (hDC == 0) {
        return;
    }
    const Handle bitmap = std::exchange(hBmp, 0);
    gdi32().SelectObject(hDC, std::exchange(oldBitmap_, 0));
    const bool isDeleted = gdi32().DeleteObject(bitmap);
    gdi32().DeleteDC(std::exchange(hDC, 0));
    if (!isDeleted) {
        gdi32().DeleteObject(bitmap); // it could not be deselected before
    }
}

Boolean moxOffscreenBuffer::Init(Long newCX, Long newCY, OLE_COLOR newBackColor) {
    free();
    const Handle display = gdi32().CreateDCA("DISPLAY", "", "", {});
    if (display == 0) {
        return False;
    }
    const Handle memory = gdi32().CreateCompatibleDC(display);
    const Handle bitmap = gdi32().CreateCompatibleBitmap(display, newCX, newCY);
    const bool isMade = memory != 0 && bitmap != 0;
    if (isMade) {
        oldBitmap_ = gdi32().SelectObject(memory, bitmap);
        gdi32().SetStretchBltMode(memory, bestStretchMode());
    } else {
        gdi32().DeleteDC(memory);
        gdi32().DeleteObject(bitmap);
    }
    gdi32().DeleteDC(display);
    if (!isMade) {
        return False;
    }
    hDC = memory;
    hBmp = bitmap;
    CX = newCX;
    CY = newCY;
    BackColor = newBackColor;
    Cls();
    return True;
}

void moxOffscreenBuffer::Cls() {
    if (hDC == 0) {
        return;
    }
    const Handle brush = gdi32().CreateSolidBrush(toColorRef(BackColor));
    user32().FillRect(hDC, {0, 0, CX, CY}, brush);
    gdi32().DeleteObject(brush);
}

void moxOffscreenBuffer::Render(Long& target, Long& X, Long& Y, Long& targetCX, Long& targetCY, Long& xSrc, Long& ySrc,
                                Long& cxSrc, Long& cySrc) {
    if (cxSrc == 0) {
        cxSrc = targetCX;
    }
    if (cySrc == 0) {
        cySrc = targetCY;
    }
    if (targetCX == cxSrc && targetCY == cySrc) {
        gdi32().BitBlt(target, X, Y, targetCX, targetCY, hDC, xSrc, ySrc, SRCCOPY);
        return;
    }
    const StretchMode mode(target);
    gdi32().StretchBlt(target, X, Y, targetCX, targetCY, hDC, xSrc, ySrc, cxSrc, cySrc, SRCCOPY);
}

Ref<IPictureDisp> moxOffscreenBuffer::CreateOlePicture(Long& xSrc, Long& ySrc, Long& cxSrc, Long& cySrc) {
    if (cxSrc == 0) {
        cxSrc = CX;
    }
    if (cySrc == 0) {
        cySrc = CY;
    }
    return modDrawing::PictureFromDC(hDC, xSrc, ySrc, cxSrc, cySrc);
}

} // namespace mox::server
