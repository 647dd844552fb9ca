#include "host/desktop/messageloops.h"

#include "automation/objects/apartment.h"

#include <algorithm>
#include <map>
#include <utility>

namespace mox::host {

namespace {

constexpr std::uint32_t shortestPeriod = 10;
constexpr std::uint32_t longestPeriod = 0x7FFFFFFF;

// Nothing wakes a waiting thread when another one hands it a reference, so it looks up this often.
constexpr std::uint64_t longestWait = 10;

struct Timer {
    std::uint64_t due = 0;
    std::uint64_t period = 0;
    std::shared_ptr<const platform::TimerProcedure> procedure;
};

/// The timers of one thread by number.
struct ThreadTimers {
    std::map<std::uint32_t, Timer> running;
    std::uint32_t lastNumber = 0;

    std::uint32_t unusedNumber() {
        do {
            ++lastNumber;
        } while (lastNumber == 0 || running.contains(lastNumber));
        return lastNumber;
    }
    std::map<std::uint32_t, Timer>::iterator earliest() {
        return std::min_element(running.begin(), running.end(),
                                [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
    }
};

/// Every use asks anew: a procedure may end the thread's apartment, and its timers with it.
ThreadTimers& timersOf(const MessageLoops& loops) {
    return Apartment::state<ThreadTimers>(&loops);
}

} // namespace

MessageLoops::~MessageLoops() {
    const auto own = std::exchange(timersOf(*this).running, {});
    Apartment::dropStates(this);
}

std::uint32_t MessageLoops::setTimer(std::uint32_t milliseconds, platform::TimerProcedure procedure, std::uint32_t id) {
    if (!procedure) {
        return 0;
    }
    ThreadTimers& timers = timersOf(*this);
    const std::uint32_t number = timers.running.contains(id) ? id : timers.unusedNumber();
    const std::uint64_t period = std::clamp(milliseconds, shortestPeriod, longestPeriod);
    Timer timer{clock_->now() + period, period, std::make_shared<platform::TimerProcedure>(std::move(procedure))};
    std::swap(timers.running[number], timer); // what was there goes last, as its end may come back here
    return number;
}

bool MessageLoops::killTimer(std::uint32_t timer) {
    // The timer leaves the list before its procedure goes, as the end of what that holds may come back here.
    return !timersOf(*this).running.extract(timer).empty();
}

void MessageLoops::pump(std::chrono::milliseconds duration) {
    const std::uint64_t end =
        clock_->now() + static_cast<std::uint64_t>(std::max<std::chrono::milliseconds::rep>(duration.count(), 0));
    while (true) {
        const std::shared_ptr<Apartment> apartment = Apartment::current(); // a released object may end it
        apartment->releaseHandedOver();
        const std::uint64_t now = clock_->now();
        ThreadTimers& timers = timersOf(*this);
        const auto next = timers.earliest();
        const bool hasTimer = next != timers.running.end();
        if (hasTimer && next->second.due <= std::min(now, end)) {
            Timer& timer = next->second;
            timer.due += ((now - timer.due) / timer.period + 1) * timer.period;
            const auto procedure = timer.procedure; // outlives a timer that its procedure ends
            (*procedure)(next->first, static_cast<std::uint32_t>(now));
        } else if (now >= end) {
            return;
        } else {
            clock_->waitUntil(std::min({end, now + longestWait, hasTimer ? next->second.due : end}));
        }
    }
}

} // namespace mox::host
