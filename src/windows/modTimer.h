// The running timers of the apartment.
#pragma once

#include <mox/values.h>

namespace mox::server {

class moxTimer;

namespace modTimer {

/// Stops `Timer`'s platform timer, if it has one, and with `Interval` above 0 starts a new one of at least 10 milliseconds. True
/// if the platform gave a timer; with `Interval` 0 true if one ran.
bool SetTimerObject(moxTimer& Timer, Long Interval);

} // namespace modTimer
} // namespace mox::server
