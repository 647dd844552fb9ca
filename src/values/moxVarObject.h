#pragma once

#include "TRL_OBKR_MOX/moxVarObject.h"

#include "core/modMoxHub.h"

namespace mox::server {

/// Objects to numbers and back.
class moxVarObject final : public Implements<moxVarObject> {
public:
    Ref<IDispatch> ObjectFromPointer(Long lPointer) { return modMoxHub::ObjectFromPtr(lPointer); }
    Long PointerFromObject(const Ref<IDispatch>& cObject) { return modMoxHub::PtrFromObject(cObject); }
};

} // namespace mox::server
