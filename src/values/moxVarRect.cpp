#include "values/moxVarRect.h"

#include <utility>

namespace mox::server {

Variant moxVarRect::MoveRect(RECT& rc, Long xOff, Long yOff) {
    return OffsetRect(rc, xOff, yOff, xOff, yOff, False);
}

Variant moxVarRect::OffsetRect(RECT& rc, Long X1off, Long Y1off, Long X2off, Long Y2off, Boolean Validate) {
    rc.Left += X1off;
    rc.Top += Y1off;
    rc.Right += X2off;
    rc.Bottom += Y2off;
    if (Validate == True) {
        if (rc.Left > rc.Right) {
            std::swap(rc.Left, rc.Right);
        }
        if (rc.Top > rc.Bottom) {
            std::swap(rc.Top, rc.Bottom);
        }
    }
    return {};
}

RECT moxVarRect::RectFromPoints(Long X1, Long Y1, Long X2, Long Y2) {
    return {X1, Y1, X2, Y2};
}

RECT moxVarRect::RectFromPosAndSize(Long X, Long Y, Long CX, Long CY) {
    return {X, Y, X + CX - 1, Y + CY - 1};
}

Variant moxVarRect::SizeRect(RECT& rc, Long CX, Long CY) {
    if (CX >= 0) {
        rc.Right = rc.Left + CX - 1;
    }
    if (CY >= 0) {
        rc.Bottom = rc.Top + CY - 1;
    }
    return {};
}

} // namespace mox::server
