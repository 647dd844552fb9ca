// Statements of the run-time layer.
#pragma once

#include "automation/objects/runtimeerror.h"

namespace mox::server {

/// Takes the answer of a statement: 0, or the number of the run-time error that it raises.
inline void statement(Long answer) {
    if (answer != 0) {
        throw RuntimeError(answer);
    }
}

} // namespace mox::server
