#include "host/registry/wire_registry.h"

#include "host/machine/machine.h"
#include "host/registry/environment.h"
#include "host/registry/hardwarefacts.h"
#include "host/registry/profile.h"
#include "host/registry/systemfacts.h"

#include <algorithm>

namespace mox::host {

namespace {

std::uint32_t expandEnvironment(const Machine& machine, std::string_view text, std::span<char> buffer) {
    const std::string expanded = expandVariables(text, [&](std::string_view name) {
        return environmentVariable(machine.files, machine.codePage, machine.config().windows, name);
    });
    if (expanded.size() < buffer.size()) {
        *std::ranges::copy(expanded, buffer.begin()).out = '\0';
    }
    return static_cast<std::uint32_t>(expanded.size() + 1);
}

} // namespace

RegistryStore::Facts registryFacts(const Machine& machine) {
    return [&machine] {
        FactList facts(machine.codePage);
        addHardwareFacts(facts);
        addSystemFacts(facts, machine.config().windows, machine.files);
        addShellFolders(facts, machine.files);
        return facts.facts();
    };
}

void wireRegistry(Machine& machine) {
    Registry& registry = machine.registry;

    platform::Advapi32& advapi32 = machine.advapi32;
    advapi32.RegOpenKeyExA = [&](auto key, auto path, auto access, auto& opened) {
        return registry.openKey(key, path, access, opened);
    };
    advapi32.RegCreateKeyA = [&](auto key, auto path, auto& opened) { return registry.createKey(key, path, opened); };
    advapi32.RegCloseKey = [&](auto key) { return registry.closeKey(key); };
    advapi32.RegQueryValueExA = [&](auto key, auto name, auto& type, auto data, auto& size) {
        return registry.queryValue(key, name, type, data, size);
    };
    advapi32.RegSetValueExA = [&](auto key, auto name, auto type, auto data) { return registry.setValue(key, name, type, data); };
    advapi32.RegDeleteValueA = [&](auto key, auto name) { return registry.deleteValue(key, name); };
    advapi32.RegEnumKeyExA = [&](auto key, auto index, auto name, auto& length) {
        return registry.enumKey(key, index, name, length);
    };
    advapi32.RegDeleteKeyA = [&](auto key, auto path) {
        constexpr std::uint32_t lineOfNt = 2;
        return registry.deleteKey(key, path, machine.config().windows.platform != lineOfNt);
    };

    platform::Kernel32& kernel32 = machine.kernel32;
    kernel32.ExpandEnvironmentStringsA = [&](auto text, auto buffer) { return expandEnvironment(machine, text, buffer); };
    kernel32.GetProfileStringA = [&](auto section, auto key, auto otherwise, auto buffer) {
        return profileString(registry, section, key, otherwise, buffer);
    };
}

} // namespace mox::host
