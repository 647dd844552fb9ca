// Letting go of children.
#pragma once

#include <mox/values.h>

namespace mox::server {

/// Releases fields one after the other in the order given. Members of a C++ object would go in the opposite order of their
/// declaration.
template <class... Interfaces> void releaseInOrder(Ref<Interfaces>&... fields) noexcept {
    (static_cast<void>(fields = nullptr), ...);
}

} // namespace mox::server
