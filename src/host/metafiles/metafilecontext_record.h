// The bodies that the sources of recording contexts share.
#pragma once

#include "host/metafiles/metafilecontext.h"

namespace mox::host {

template <class Draw, class Fields> bool MetafileContext::record(Draw draw, Fields fields) {
    if (isRecorded_) {
        return draw();
    }
    syncState();
    const bool isDrawn = [&] {
        const Part part(isRecorded_);
        return draw();
    }();
    const RECT bounds = takeBounds();
    if (isDrawn) {
        // Playing moves the position the same way.
        recorded_.position = state().position;
        fields(bounds);
    }
    return isDrawn;
}

} // namespace mox::host
