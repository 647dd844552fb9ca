// The objects that every machine has.
#pragma once

#include "host/machine/handles.h"

#include <map>

namespace mox::host {

/// The place of the bitmap of one monochrome pixel that every memory context begins with, beyond the numbers of `GetStockObject`.
inline constexpr std::int32_t firstBitmapIndex = -1;

/// Their handles, by number.
std::map<std::int32_t, platform::Handle> openStockObjects(Handles& handles);

} // namespace mox::host
