#include "windows/moxTimer.h"

#include "windows/modTimer.h"

#include "platform/kernel32.h"

#include <algorithm>

namespace mox::server {

Boolean moxTimer::StartTimer(Long Interval) {
    nStartTicks = static_cast<Long>(platform::kernel32().GetTickCount());
    nEvents = 0;
    return modTimer::SetTimerObject(*this, std::max<Long>(Interval, 10));
}

Boolean moxTimer::StopTimer() {
    return nTimerID != 0 && modTimer::SetTimerObject(*this, 0);
}

void moxTimer::TimerFired(Long Ticks) {
    ++nEvents;
    raise_Timer(nEvents, Ticks - nStartTicks);
}

} // namespace mox::server
