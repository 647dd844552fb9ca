#include "host/machine/wiring.h"
#include "host/processes/process.h"

namespace mox::host {

namespace {

bool enumModules(Handles& handles, platform::Handle process, std::span<platform::Handle> modules, std::uint32_t& needed) {
    const std::shared_ptr<Process> opened = handles.get<Process>(process);
    const std::vector<platform::Handle> loaded = opened ? opened->modules() : std::vector<platform::Handle>();
    if (loaded.empty()) {
        return false;
    }
    std::copy_n(loaded.begin(), std::min(loaded.size(), modules.size()), modules.begin());
    needed = static_cast<std::uint32_t>(loaded.size() * sizeof(platform::Handle));
    return true;
}

/// The path is cut to what fits in front of a final NUL.
std::uint32_t moduleFileName(Machine& machine, platform::Handle process, platform::Handle module, std::span<char> buffer) {
    const std::shared_ptr<Process> opened = machine.handles.get<Process>(process);
    const auto file = opened ? opened->moduleFile(module) : std::nullopt;
    if (!file || buffer.empty()) {
        return 0;
    }
    std::string path = machine.files.toDrivePath(*file);
    path.resize(std::min(path.size(), buffer.size() - 1));
    copyInto(buffer, std::string_view(path.c_str(), path.size() + 1));
    return static_cast<std::uint32_t>(path.size());
}

} // namespace

void wirePsapi(Machine& machine) {
    platform::Psapi& psapi = machine.psapi;
    psapi.EnumProcessModules = [&](auto process, auto modules, auto& needed) {
        return enumModules(machine.handles, process, modules, needed);
    };
    psapi.GetModuleFileNameExA = [&](auto process, auto module, auto path) {
        return moduleFileName(machine, process, module, path);
    };
}

} // namespace mox::host
