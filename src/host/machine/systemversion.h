// Which Windows the machine says it is.
#pragma once

#include "automation/objects/export.h"
#include "host/machine/machineconfig.h"
#include "host/text/codepage.h"
#include "platform/kernel32.h"

#include <cstdint>

namespace mox::host {

/// The number of the service pack: the last number in the service text, 0 if it has none.
MOX_API std::uint16_t servicePackOf(const WindowsVersion& windows);

/// Fills in the record whose size `record.dwOSVersionInfoSize` names. False for another size, and for the extended record on
/// systems that do not know it: the line of Windows 95, and Windows NT before version 4 with service pack 6.
MOX_API bool describeVersion(const WindowsVersion& windows, const CodePage& codePage, platform::OSVERSIONINFOEXA& record);

/// The product type of the edition. False, with 0, on systems before version 6.0, and when asked in the name of one.
MOX_API bool describeProduct(const MachineConfig& config, std::uint32_t major, std::uint32_t& type);

/// A size or setting of the system by its number: as configured, else the size of the screen; 0 for all others.
MOX_API std::int32_t systemMetric(const MachineConfig& config, std::int32_t index);

} // namespace mox::host
