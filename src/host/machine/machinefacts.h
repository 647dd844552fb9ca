// The configuration of a machine as JSON.
#pragma once

#include "host/machine/machineconfig.h"

#include <nlohmann/json_fwd.hpp>

namespace mox::host {

/// Changes a configuration by the facts of a JSON object, each of which may be left out:
///
///     {"home": "/folder", "memory": false, "codepage": 1252, "drives": {"D": "/folder"},
///      "trash": "/folder",
///      "windows": [major, minor, build, platform, service_text, product_type, suite],
///      "product_info": 48, "metrics": {"87": 0}, "visual_style": false}
///
/// `windows` may end early. `memory` makes a machine without a home. Throws `ControlError` that names the fact for one that is
/// unknown, of a wrong type or out of its range; the configuration is then as it was.
MOX_API void applyFacts(MachineConfig& config, const nlohmann::json& facts);

} // namespace mox::host
