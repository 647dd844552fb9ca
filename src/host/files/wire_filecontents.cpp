#include "host/files/crc32.h"
#include "host/files/peversion.h"
#include "host/files/versionblock.h"
#include "host/files/wire_files.h"
#include "host/machine/machine.h"

#include <algorithm>

namespace mox::host {

namespace {

bool versionInfo(const Machine& machine, std::string_view file, std::span<char> block) {
    const std::optional<DiskPath> place = machine.files.placeOfFile(file);
    const std::string resource = place ? readVersionResource(place->text) : std::string();
    const std::string whole = versionBlock(resource, machine.codePage);
    std::copy_n(whole.begin(), std::min(whole.size(), block.size()), block.begin());
    return !whole.empty();
}

std::uint32_t versionInfoSize(const Machine& machine, std::string_view file) {
    const std::optional<DiskPath> place = machine.files.placeOfFile(file);
    const std::string resource = place ? readVersionResource(place->text) : std::string();
    return static_cast<std::uint32_t>(versionBlock(resource, machine.codePage).size());
}

} // namespace

void wireFileContents(Machine& machine) {
    platform::Version& version = machine.version;
    version.GetFileVersionInfoSizeA = [&](auto file) { return versionInfoSize(machine, file); };
    version.GetFileVersionInfoA = [&](auto file, auto block) { return versionInfo(machine, file, block); };
    version.VerQueryValueA = [](auto block, auto path, auto& value) { return queryVersion(block, path, value); };

    machine.ntdll.RtlComputeCrc32 = [](auto& crc, auto bytes) {
        crc = crc32(crc, bytes);
        return true;
    };
}

} // namespace mox::host
