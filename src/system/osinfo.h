// Everything known about the operating system, in one record.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include <mox/values.h>

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Gathers the record. What the registry does not hold has its default.
moxOSInfo readOSInfo();

} // namespace mox::server
