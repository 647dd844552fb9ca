// Threads that programs of the library start.
#pragma once

#include "automation/objects/export.h"
#include "platform/kernel32.h"

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>

namespace mox::host {

/// A routine on a thread of its own. The thread goes its own way: it needs neither this object nor its machine, nobody waits for
/// it at the end of the process, and the library file of the routine stays loaded while it runs.
class MOX_API Thread {
public:
    /// Null without a routine, or if the system has no thread left.
    static std::shared_ptr<Thread> start(platform::Procedure routine);

    /// False if it still runs after so many milliseconds of real time; 0xFFFFFFFF waits without an end.
    bool waitForEnd(std::uint32_t milliseconds) const;
    /// The result of the routine, once it has come to its end; 0xE0000001 if it threw.
    std::optional<std::uint32_t> exitCode() const;

private:
    /// What the thread and those who watch it share.
    struct State {
        mutable std::mutex guard;
        mutable std::condition_variable changed;
        std::optional<std::uint32_t> exitCode;
    };

    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace mox::host
