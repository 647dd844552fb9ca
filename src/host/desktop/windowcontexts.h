// Contexts of windows and of the screen, which are taken and given back.
#pragma once

#include "host/graphics/graphics.h"

namespace mox::host {

/// A context of the inside of a window, or of all of it; 0 as the window stands for the screen. 0 if there is no such window.
platform::Handle takeContext(Graphics& graphics, platform::Handle window, bool isWhole);
/// Ends a context that was taken, and no other.
bool releaseContext(Graphics& graphics, platform::Handle hdc);

} // namespace mox::host
