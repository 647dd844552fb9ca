// Colours as clients give them.
#pragma once

#include <mox/values.h>

#include "platform/gditypes.h"
#include "platform/user32.h"

namespace mox::server {

/// The colour itself, or for a negative value the colour of the system that its low 31 bits number.
inline Long resolvedColor(Long color) {
    return color < 0 ? static_cast<Long>(platform::user32().GetSysColor(color & 0x7FFFFFFF)) : color;
}

/// The same for the platform.
inline platform::COLORREF toColorRef(Long color) {
    return static_cast<platform::COLORREF>(resolvedColor(color));
}

} // namespace mox::server
