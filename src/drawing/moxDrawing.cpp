#include "drawing/moxDrawing.h"

#include "automation/objects/errormodes.h"
#include "core/classes.h"
#include "core/release.h"
#include "drawing/buffers.h"
#include "drawing/color.h"
#include "drawing/modDrawing.h"
#include "drawing/pictureproperties.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

#include <algorithm>

namespace mox::server {

using namespace platform;

namespace {

/// A pen or brush that is selected for one drawing call and deleted after it.
class SelectedTool {
public:
    SelectedTool(Handle hdc, Handle tool) : hdc_(hdc), tool_(tool), before_(gdi32().SelectObject(hdc, tool)) {}
    SelectedTool(const SelectedTool&) = delete;
    SelectedTool& operator=(const SelectedTool&) = delete;
    ~SelectedTool() {
        gdi32().SelectObject(hdc_, before_);
        gdi32().DeleteObject(tool_);
    }

private:
    const Handle hdc_;
    const Handle tool_;
    const Handle before_;
};

/// Squares of a pattern along one side of its buffer.
constexpr Long squaresOf(Long square) {
    return square <= 16 ? 16 : square <= 32 ? 8 : square <= 64 ? 4 : 2;
}

} // namespace

moxDrawing::~moxDrawing() {
    releaseInOrder(BitmapFilter, Colors, Font, ScreenShot);
}

Ref<_moxBitmapFilter> moxDrawing::get_BitmapFilter() {
    return child(BitmapFilter);
}

Ref<_moxColors> moxDrawing::get_Colors() {
    return child(Colors);
}

Ref<_moxFont> moxDrawing::get_Font() {
    return child(Font);
}

Ref<_moxScreenShot> moxDrawing::get_ScreenShot() {
    return child(ScreenShot);
}

Long moxDrawing::CreatePatternBrush(Long& ColorA, Long& ColorB, Long szPattern) {
    Handle result = 0;
    trapAndLeave([&] {
        const Long square = std::clamp(szPattern, 1, 256);
        const Long squares = squaresOf(square);
        const Long side = square * squares;
        Ref<IPictureDisp> picture;
        {
            const auto buffer = newBuffer(side, side, ColorA);
            const Handle hdc = contextOf(*buffer);
            for (Long r = 0; r < squares; ++r) {
                for (Long c = 0; c < squares; ++c) {
                    if (r % 2 != c % 2) {
                        DrawRect2(hdc, c * square, r * square, (c + 1) * square, (r + 1) * square, 0, 0, True, ColorB);
                    }
                }
            }
            picture = modDrawing::PictureFromDC(hdc, 0, 0, side, side);
        }
        if (picture) {
            result = gdi32().CreateBrushIndirect({BS_PATTERN, 0, pictureHandle(picture.get())});
        }
    });
    return result;
}

void moxDrawing::FillRect(Long hDC, TRL_OBKR_MOX::RECT& rcFill, Long FillColor) {
    const Handle brush = gdi32().CreateSolidBrush(toColorRef(FillColor));
    user32().FillRect(hDC, {rcFill.Left, rcFill.Top, rcFill.Right, rcFill.Bottom}, brush);
    gdi32().DeleteObject(brush);
}

void moxDrawing::FillRect2(Long hDC, Long X1, Long Y1, Long X2, Long Y2, Long FillColor) {
    TRL_OBKR_MOX::RECT area{X1, Y1, X2, Y2};
    FillRect(hDC, area, FillColor);
}

Boolean moxDrawing::DrawLine(Long hDC, Long X1, Long Y1, Long X2, Long Y2, Long LineSize, Long LineColor) {
    const SelectedTool pen(hDC, gdi32().CreatePen(PS_SOLID, LineSize, toColorRef(LineColor)));
    POINT before;
    gdi32().MoveToEx(hDC, X1, Y1, before);
    return gdi32().LineTo(hDC, X2, Y2);
}

Boolean moxDrawing::DrawRect(Long hDC, TRL_OBKR_MOX::RECT& rcDraw, Long BorderSize, Long BorderColor, Boolean bFilled,
                             Long FillColor) {
    return DrawRect2(hDC, rcDraw.Left, rcDraw.Top, rcDraw.Right, rcDraw.Bottom, BorderSize, BorderColor, bFilled, FillColor);
}

Boolean moxDrawing::DrawRect2(Long hDC, Long X1, Long Y1, Long X2, Long Y2, Long BorderSize, Long BorderColor, Boolean bFilled,
                              Long FillColor) {
    const bool hasBorder = BorderSize >= 1;
    if (!hasBorder && !bFilled) {
        return False;
    }
    const SelectedTool pen(hDC, hasBorder ? gdi32().CreatePen(PS_INSIDEFRAME, BorderSize, toColorRef(BorderColor))
                                          : gdi32().CreatePen(PS_NULL, 0, 0));
    const SelectedTool brush(hDC, bFilled ? gdi32().CreateSolidBrush(toColorRef(FillColor))
                                          : gdi32().CreateBrushIndirect({BS_NULL, 0, 0}));
    // A null pen draws one pixel less.
    const Long more = hasBorder ? 0 : 1;
    return gdi32().Rectangle(hDC, X1, Y1, X2 + more, Y2 + more);
}

} // namespace mox::server
