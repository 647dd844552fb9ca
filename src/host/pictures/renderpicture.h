// Drawing of picture objects.
#pragma once

#include "host/graphics/canvas.h"
#include "host/pictures/picturecontent.h"

namespace mox::host {

class Machine;

/// Draws a part of a picture. `target` in logical units of the context; `source` in hundredths of a millimetre from the lower
/// left corner upwards, so that the usual height is negative and begins at the height of the picture. No extent may be 0. Icons
/// are always drawn whole.
bool renderPicture(Machine& machine, const PictureContent& picture, platform::Handle hdc, const SignedRect& target,
                   const SignedRect& source);

} // namespace mox::host
