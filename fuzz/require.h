// What a fuzz target holds its input to.
#pragma once

#include <cstdlib>

/// Ends the process, as a finding, if a condition does not hold.
inline void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}
