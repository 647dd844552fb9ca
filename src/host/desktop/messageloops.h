// Message loops: what runs on a thread while it waits.
#pragma once

#include "automation/objects/export.h"
#include "host/machine/clock.h"

#include "platform/user32.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>

namespace mox::host {

/// The timers of every thread of the machine, and the loop that runs them. Each thread sees its own timers only; they go with its
/// apartment.
class MOX_API MessageLoops {
public:
    explicit MessageLoops(std::shared_ptr<Clock> clock) : clock_(std::move(clock)) {}
    /// No thread may be pumping. All timers go.
    ~MessageLoops();
    MessageLoops(const MessageLoops&) = delete;
    MessageLoops& operator=(const MessageLoops&) = delete;

    /// A new timer of the calling thread, or its running one of number `id` from now on with this period and procedure. Gives the
    /// number, which is unique among the running timers of the thread; 0 if there is no procedure. Periods below 10 ms count as
    /// 10, above 0x7FFFFFFF as that.
    std::uint32_t setTimer(std::uint32_t milliseconds, platform::TimerProcedure procedure, std::uint32_t id = 0);
    /// Ends a timer of the calling thread; it does not run any more, even if it was due. False if there is none of that number.
    bool killTimer(std::uint32_t timer);

    /// Runs what is due on the calling thread, and what becomes due within `duration`, for as long as that; a procedure that
    /// takes longer delays the end. References that other threads handed over are released. A timer that is late runs once for
    /// all the times that it missed, and keeps its beat. Procedures may set and end timers and pump in turn.
    void pump(std::chrono::milliseconds duration);

private:
    std::shared_ptr<Clock> clock_;
};

} // namespace mox::host
