#include "host/shell/findexecutable.h"

#include "host/shell/association.h"

#include <algorithm>
#include <string>

namespace mox::host {

namespace {

constexpr std::int32_t fileNotFound = 2;
constexpr std::int32_t pathNotFound = 3;
constexpr std::int32_t outOfMemory = 8;
constexpr std::int32_t noAssociation = 31;
constexpr std::int32_t success = 33;

/// True if a path does not depend on a folder that it continues.
bool startsAtRoot(std::string_view path) noexcept {
    return path.starts_with('\\') || path.starts_with('/') || (path.size() >= 2 && path[1] == ':');
}

} // namespace

std::int32_t findExecutable(const Files& files, std::string_view file, std::string_view folder, std::span<char> result) {
    if (!result.empty()) {
        result.front() = '\0';
    }
    std::string path(file);
    if (!folder.empty() && !startsAtRoot(file)) {
        path = std::string(folder) + "\\" + path;
    }
    if (!files.facts(path)) {
        return files.hasFolderOf(path) ? fileNotFound : pathNotFound;
    }
    const std::optional<std::filesystem::path> program = programThatOpens(*files.resolve(path));
    const std::string drivePath = program ? files.toDrivePath(*program) : "";
    if (drivePath.empty()) {
        return noAssociation;
    }
    if (drivePath.size() >= result.size()) {
        return outOfMemory;
    }
    *std::ranges::copy(drivePath, result.begin()).out = '\0';
    return success;
}

} // namespace mox::host
