// A clock that tests move.
#pragma once

#include "host/machine/clock.h"

#include <atomic>

namespace mox::test {

/// Stands until somebody moves it, or waits: waiting takes no real time and moves it on. Starts shortly before the point at which
/// the 32 bits of a tick count wrap, as such bugs only show there.
class TestClock final : public host::Clock {
public:
    static constexpr std::uint64_t start = 0xFFFFFF00;

    std::uint64_t now() const override { return time_; }
    void waitUntil(std::uint64_t time) override {
        std::uint64_t present = time_;
        while (present < time && !time_.compare_exchange_weak(present, time)) {
        }
    }
    void advance(std::uint64_t milliseconds) { time_ += milliseconds; }

private:
    std::atomic<std::uint64_t> time_ = start;
};

} // namespace mox::test
