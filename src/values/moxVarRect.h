#pragma once

#include "TRL_OBKR_MOX/moxVarRect.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Rectangles. Those made from a position and a size are inclusive: a width of 1 has `Right` equal to `Left`. The members that
/// change a rectangle in place return an empty Variant.
class moxVarRect final : public Implements<moxVarRect> {
public:
    Variant MoveRect(RECT& rc, Long xOff, Long yOff);
    Variant OffsetRect(RECT& rc, Long X1off, Long Y1off, Long X2off, Long Y2off, Boolean Validate);
    RECT RectFromPoints(Long X1, Long Y1, Long X2, Long Y2);
    RECT RectFromPosAndSize(Long X, Long Y, Long CX, Long CY);
    Variant SizeRect(RECT& rc, Long CX, Long CY);
};

} // namespace mox::server
