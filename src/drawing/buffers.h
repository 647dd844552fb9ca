// Off-screen buffers that the drawing classes make for themselves or for clients.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include "platform/types.h"

#include <mox/values.h>

namespace mox::server {

inline constexpr Long white = 0xFFFFFF;

/// A new buffer on which `Init` was called, whatever it answered: on failure it has no context.
Ref<TRL_OBKR_MOX::_moxOffscreenBuffer> newBuffer(Long cx, Long cy, MoxRuntime::OLE_COLOR backColor = white);
/// Stays the buffer's; 0 if it has none.
platform::Handle contextOf(TRL_OBKR_MOX::_moxOffscreenBuffer& buffer);

} // namespace mox::server
