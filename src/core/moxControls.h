#pragma once

#include "TRL_OBKR_MOX/moxControls.h"

#include "core/classes.h"

namespace mox::server {

/// Makes objects with events that need no form. It keeps none of them.
class moxControls final : public Implements<moxControls> {
public:
    Ref<_moxMouseEvents> CreateMouseEventsObject() { return create<_moxMouseEvents>(); }
    Ref<_moxTimer> CreateTimerObject() { return create<_moxTimer>(); }
};

} // namespace mox::server
