// The processes of the system at one moment.
#pragma once

#include "automation/objects/export.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mox::host {

/// One running process.
struct ProcessFacts {
    std::uint32_t id = 0;
    std::uint32_t parent = 0;
    /// File name of the executable, in UTF-8; what the kernel calls the process where the executable may not be seen, at most 15
    /// bytes then.
    std::string name;
    /// When it started, in the kernel's clock ticks since the system did: with `id` it tells processes of one number apart.
    std::uint64_t start = 0;
};

/// What is known of a process; empty if there is none of that number.
MOX_API std::optional<ProcessFacts> factsOfProcess(std::uint32_t id);

/// All processes, in the order of their numbers, and a place in the list.
class MOX_API ProcessSnapshot {
public:
    ProcessSnapshot();

    /// The first process, or the next one; null at the end.
    const ProcessFacts* first();
    const ProcessFacts* next();

private:
    std::vector<ProcessFacts> processes_;
    std::size_t place_ = 0;
};

} // namespace mox::host
