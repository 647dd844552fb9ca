// The icons that the system has of its own.
#pragma once

#include "host/graphics/objects.h"

#include <optional>

namespace mox::host {

/// The one with a resource number (`IDI_`); nothing if there is none in a system whose version begins with `major`.
std::optional<Icon> systemIcon(std::uint32_t resource, std::uint32_t major, platform::SIZE size);

} // namespace mox::host
