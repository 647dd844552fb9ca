#include "host/machine/clock.h"

#include <chrono>
#include <thread>

namespace mox::host {

using Milliseconds = std::chrono::duration<std::uint64_t, std::milli>;
using std::chrono::steady_clock;

std::uint64_t Clock::now() const {
    return std::chrono::duration_cast<Milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void Clock::waitUntil(std::uint64_t time) {
    std::this_thread::sleep_until(
        steady_clock::time_point(std::chrono::duration_cast<steady_clock::duration>(Milliseconds(time))));
}

} // namespace mox::host
