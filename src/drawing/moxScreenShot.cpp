#include "drawing/moxScreenShot.h"

#include "drawing/buffers.h"
#include "drawing/modDrawing.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

namespace mox::server {

using namespace platform;

Ref<_moxOffscreenBuffer> moxScreenShot::OffscreenBufferFromDesktop(Long X, Long Y, Long CX, Long CY) {
    const auto buffer = newBuffer(CX, CY);
    const Handle screen = user32().GetDC(0);
    gdi32().BitBlt(contextOf(*buffer), 0, 0, CX, CY, screen, X, Y, SRCCOPY);
    user32().ReleaseDC(0, screen);
    return buffer;
}

Ref<_moxOffscreenBuffer> moxScreenShot::OffscreenBufferFromWindow(Long hWnd) {
    RECT area;
    user32().GetWindowRect(hWnd, area);
    const Long cx = area.right - area.left;
    const Long cy = area.bottom - area.top;
    const auto buffer = newBuffer(cx, cy);
    const Handle window = user32().GetDCEx(hWnd, 0, DCX_WINDOW);
    gdi32().BitBlt(contextOf(*buffer), 0, 0, cx, cy, window, 0, 0, SRCCOPY);
    user32().ReleaseDC(hWnd, window);
    return buffer;
}

Ref<IPictureDisp> moxScreenShot::PictureFromWindow(Long hWnd) {
    const auto buffer = OffscreenBufferFromWindow(hWnd);
    Long cx = 0;
    Long cy = 0;
    succeed(buffer->raw_get_CX(&cx));
    succeed(buffer->raw_get_CY(&cy));
    return modDrawing::PictureFromDC(contextOf(*buffer), 0, 0, cx, cy);
}

Ref<IPictureDisp> moxScreenShot::PictureFromDesktop(Long X, Long Y, Long CX, Long CY) {
    const Handle screen = user32().GetDC(0);
    const auto picture = modDrawing::PictureFromDC(screen, X, Y, CX, CY);
    user32().ReleaseDC(0, screen);
    return picture;
}

} // namespace mox::server
