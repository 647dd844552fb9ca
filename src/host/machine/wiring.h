// The bodies of the operations, one source a library. Those on files and on processes are
// with these: `wireFiles`, `wireProcesses`.
#pragma once

#include "host/machine/machine.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace mox::host {

void wireKernel32(Machine& machine);
void wirePsapi(Machine& machine);
void wireRuntime(Machine& machine);
void wireUser32(Machine& machine);

/// Copies what fits.
template <class Unit> void copyInto(std::span<Unit> buffer, std::basic_string_view<Unit> text) {
    std::copy_n(text.data(), std::min(text.size(), buffer.size()), buffer.data());
}

} // namespace mox::host
