// What the machine says of itself in the registry.
#pragma once

#include <cstdint>
#include <string>

namespace mox::host {

struct RegistryFact {
    enum class Root { localMachine, currentUser };

    Root root = Root::localMachine;
    /// Path and name are UTF-8, text in `data` has the bytes of the code page.
    std::string path;
    std::string name;
    std::uint32_t type = 0;
    std::string data;

    bool operator==(const RegistryFact&) const = default;
};

} // namespace mox::host
