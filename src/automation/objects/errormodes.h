// The three ways in which a member meets a run-time error, one spelling each. Without any of these a member lets the error
// through to the client.
#pragma once

#include <utility>

namespace mox {

/// Trap and leave: an error inside `body` ends it at once, silently.
template <class Body> void trapAndLeave(Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (...) {
    }
}

/// Carry on: each of the steps runs, whatever errors the others meet.
template <class... Steps> void carryOn(Steps&&... steps) noexcept {
    (trapAndLeave(std::forward<Steps>(steps)), ...);
}

} // namespace mox
