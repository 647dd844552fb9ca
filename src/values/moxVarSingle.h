#pragma once

#include "TRL_OBKR_MOX/moxVarSingle.h"

#include "values/bits.h"

#include <utility>

namespace mox::server {

/// Ranges of 32-bit floating values.
class moxVarSingle final : public Implements<moxVarSingle> {
public:
    Single MinMax(Single SngValue, Single MinValue, Single MaxValue) { return clamped(SngValue, MinValue, MaxValue); }
    void SwapValues(Single& SngA, Single& SngB) { std::swap(SngA, SngB); }
};

} // namespace mox::server
