// Members that are described but have no code yet.
#pragma once

#include "automation/objects/runtimeerror.h"

namespace mox::server {

/// Raises error 445, "Object doesn't support this action".
[[noreturn]] inline void notYet() {
    throw RuntimeError(errActionNotSupported);
}

} // namespace mox::server
