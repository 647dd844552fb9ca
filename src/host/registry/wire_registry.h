#pragma once

#include "host/registry/registrystore.h"

namespace mox::host {

class Machine;

/// The bodies of the operations on the registry, the profile and the environment.
void wireRegistry(Machine& machine);

/// What the machine states in its registry.
RegistryStore::Facts registryFacts(const Machine& machine);

} // namespace mox::host
