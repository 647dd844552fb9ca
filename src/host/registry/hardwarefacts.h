// Processors and firmware of this machine, as its registry states them.
#pragma once

#include "automation/objects/export.h"
#include "host/registry/factlist.h"

#include <filesystem>

namespace mox::host {

/// Where the system tells of its hardware.
struct HardwareSources {
    std::filesystem::path processors = "/proc/cpuinfo";
    /// A folder for each processor, with its frequencies.
    std::filesystem::path frequencies = "/sys/devices/system/cpu";
    std::filesystem::path firmware = "/sys/class/dmi/id";
};

/// Adds the branch `HARDWARE\DESCRIPTION\System`. What the sources do not tell is left out.
MOX_API void addHardwareFacts(FactList& facts, const HardwareSources& sources = {});

} // namespace mox::host
