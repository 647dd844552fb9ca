// A process that somebody looks into.
#pragma once

#include "automation/objects/export.h"
#include "platform/types.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace mox::host {

/// A running process and the files that it has loaded. If it ends, it has no modules any more, also when its number comes back.
class MOX_API Process {
public:
    /// Null if there is no such process, or if its executable may not be seen.
    static std::shared_ptr<Process> open(std::uint32_t id);

    Process(std::uint32_t id, std::uint64_t start) : id_(id), start_(start) {}

    std::uint32_t id() const noexcept { return id_; }
    /// The executable first, then the loaded libraries in the order of their addresses. A module keeps its number as long as this
    /// object lives; the numbers are those of this object alone and need no closing. Empty if the process has ended.
    std::vector<platform::Handle> modules();
    /// The file of a module that `modules` named; 0 stands for the executable. Empty for anything else.
    std::optional<std::filesystem::path> moduleFile(platform::Handle module);
    /// False if it still runs after so many milliseconds; 0xFFFFFFFF waits without an end. Empty if it cannot be waited for.
    std::optional<bool> waitForEnd(std::uint32_t milliseconds) const;

private:
    std::optional<std::filesystem::path> executable() const;
    platform::Handle numberOf(const std::string& file);

    const std::uint32_t id_;
    const std::uint64_t start_;
    std::mutex guard_;
    /// All modules that were ever seen.
    std::vector<std::string> known_;
};

} // namespace mox::host
