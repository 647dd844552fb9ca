#pragma once

#include "TRL_OBKR_MOX/moxHubGlobal.h"

#include "core/classes.h"

namespace mox::server {

/// The predeclared global object: hands out one hub, made at its first use.
class moxHubGlobal final : public Implements<moxHubGlobal> {
public:
    Ref<_moxHub> get_mox() { return child(mox_); }

private:
    Ref<_moxHub> mox_;
};

} // namespace mox::server
