// From floating to integer values, and checked arithmetic, as the run-time layer does them.
#pragma once

#include "automation/objects/runtimeerror.h"

#include <cmath>
#include <concepts>
#include <limits>

namespace mox {

namespace detail {
template <std::integral Target> Target toInteger(Double value) {
    // Rounded in the default mode of the machine: to the nearest, a tie to the even one. Not-a-number fails the comparison.
    const Double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Target>::min() && rounded <= std::numeric_limits<Target>::max())) {
        throw RuntimeError(errOverflow);
    }
    return static_cast<Target>(rounded);
}
} // namespace detail

/// The nearest integer, a tie to the even one; error 6 if the type cannot hold it.
inline Long toLong(Double value) {
    return detail::toInteger<Long>(value);
}
inline Integer toInteger(Double value) {
    return detail::toInteger<Integer>(value);
}
inline Byte toByte(Double value) {
    return detail::toInteger<Byte>(value);
}

/// A result of floating arithmetic; error 6 if it is infinite or no number.
template <std::floating_point Value> Value checked(Value value) {
    if (!std::isfinite(value)) {
        throw RuntimeError(errOverflow);
    }
    return value;
}

/// A quotient; error 11 for a divisor of 0, error 6 for an infinite result.
inline Double divided(Double dividend, Double divisor) {
    if (divisor == 0) {
        throw RuntimeError(errDivisionByZero);
    }
    return checked(dividend / divisor);
}

/// Narrowed to `Single`; error 6 if that cannot hold it.
inline Single toSingle(Double value) {
    return checked(static_cast<Single>(checked(value)));
}

} // namespace mox
