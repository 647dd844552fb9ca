// What stands behind the services of a machine.
#pragma once

#include "automation/objects/export.h"

#include <string>
#include <vector>

namespace mox::host {

class Machine;

/// One service in one line of text for people, in UTF-8.
struct ServiceReport {
    std::string service;
    std::string text;
};

/// Opens the registry, if there is one.
MOX_API std::vector<ServiceReport> examine(Machine& machine);

} // namespace mox::host
