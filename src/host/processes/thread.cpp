#include "host/processes/thread.h"

#include "host/processes/library.h"

#include <chrono>
#include <system_error>
#include <thread>

namespace mox::host {

namespace {

constexpr std::uint32_t endOfForeignException = 0xE0000001;
constexpr std::uint32_t withoutEnd = 0xFFFFFFFF;

std::uint32_t run(platform::Procedure routine) noexcept {
    try {
        return static_cast<std::uint32_t>(routine());
    } catch (...) {
        return endOfForeignException;
    }
}

} // namespace

std::shared_ptr<Thread> Thread::start(platform::Procedure routine) {
    if (!routine) {
        return nullptr;
    }
    auto result = std::make_shared<Thread>();
    try {
        std::thread([state = result->state_, library = Library::holding(routine), routine]() mutable {
            const std::uint32_t code = run(routine);
            library.reset(); // before anybody hears of the end
            const std::lock_guard lock(state->guard);
            state->exitCode = code;
            state->changed.notify_all();
        }).detach();
    } catch (const std::system_error&) {
        return nullptr;
    }
    return result;
}

bool Thread::waitForEnd(std::uint32_t milliseconds) const {
    std::unique_lock lock(state_->guard);
    const auto hasEnded = [this] { return state_->exitCode.has_value(); };
    if (milliseconds == withoutEnd) {
        state_->changed.wait(lock, hasEnded);
        return true;
    }
    return state_->changed.wait_for(lock, std::chrono::milliseconds(milliseconds), hasEnded);
}

std::optional<std::uint32_t> Thread::exitCode() const {
    const std::lock_guard lock(state_->guard);
    return state_->exitCode;
}

} // namespace mox::host
