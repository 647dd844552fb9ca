#pragma once

#include "TRL_OBKR_MOX/moxTimer.h"

#include <utility>

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// A timer without a form. It fires from the message loop of the thread that started it.
class moxTimer final : public Implements<moxTimer> {
public:
    ~moxTimer() override { StopTimer(); }

    Long get_MaxInterval() const { return 2147483647; }
    Long get_MinInterval() const { return 10; }
    Boolean get_Running() const { return nTimerID != 0; }
    Boolean StartTimer(Long Interval);
    Boolean StopTimer();
    void put_Tag(const String& value) { sTag = value; }
    String get_Tag() const { return sTag; }

    // For modTimer.
    /// A message of the platform's timer, with its time stamp.
    void TimerFired(Long Ticks);
    /// The platform's number of the timer; 0 when it is not running.
    Long nTimerID = 0;

private:
    String sTag;
    Long nEvents = 0;
    Long nStartTicks = 0;
};

} // namespace mox::server
