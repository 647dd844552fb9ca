#include "drawing/buffers.h"

#include "core/classes.h"

namespace mox::server {

Ref<TRL_OBKR_MOX::_moxOffscreenBuffer> newBuffer(Long cx, Long cy, MoxRuntime::OLE_COLOR backColor) {
    auto buffer = create<_moxOffscreenBuffer>();
    Boolean isReady = False;
    succeed(buffer->raw_Init(cx, cy, backColor, &isReady));
    return buffer;
}

platform::Handle contextOf(TRL_OBKR_MOX::_moxOffscreenBuffer& buffer) {
    Long hdc = 0;
    succeed(buffer.raw_get_hDC(&hdc));
    return hdc;
}

} // namespace mox::server
