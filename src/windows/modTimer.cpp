#include "windows/modTimer.h"

#include "core/classes.h"
#include "windows/moxTimer.h"

#include "platform/user32.h"

#include <algorithm>
#include <vector>

namespace mox::server::modTimer {

namespace {

struct State {
    /// In the order of their start. An entry keeps its timer alive.
    std::vector<Ref<_moxTimer>> aTimers;
};

void remove(std::vector<Ref<_moxTimer>>& timers, moxTimer& Timer) {
    const auto entry =
        std::ranges::find_if(timers, [&](const auto& other) { return implementationOf<moxTimer>(other.get()) == &Timer; });
    if (entry != timers.end()) {
        const Ref<_moxTimer> last = std::move(*entry); // goes when the list is in order again
        timers.erase(entry);
    }
}

void TimerProc(std::uint32_t idEvent, std::uint32_t dwTime) {
    for (const Ref<_moxTimer>& entry : moduleState<State>().aTimers) {
        moxTimer* const timer = implementationOf<moxTimer>(entry.get());
        if (timer->nTimerID == static_cast<Long>(idEvent)) {
            // The handler may change the list.
            const Ref<_moxTimer> hold = entry;
            timer->TimerFired(static_cast<Long>(dwTime));
            return;
        }
    }
}

} // namespace

bool SetTimerObject(moxTimer& Timer, Long Interval) {
    constexpr Long shortest = 10;
    std::vector<Ref<_moxTimer>>& timers = moduleState<State>().aTimers;
    bool stopped = false;
    bool started = false;
    if (Timer.nTimerID != 0) {
        platform::user32().KillTimer(0, static_cast<std::uint32_t>(Timer.nTimerID));
        Timer.nTimerID = 0;
        remove(timers, Timer);
        stopped = true;
    }
    if (Interval > 0) {
        timers.push_back(&Timer);
        Timer.nTimerID = static_cast<Long>(
            platform::user32().SetTimer(0, 0, static_cast<std::uint32_t>(std::max(Interval, shortest)), &TimerProc));
        if (Timer.nTimerID == 0) {
            remove(timers, Timer);
        } else {
            started = true;
        }
    }
    return Interval != 0 ? started : stopped;
}

} // namespace mox::server::modTimer
