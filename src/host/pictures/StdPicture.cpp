#include "host/pictures/StdPicture.h"

#include "host/machine/machine.h"
#include "host/pictures/errornumbers.h"
#include "host/pictures/renderpicture.h"

namespace mox::runtime {

StdPicture::~StdPicture() {
    if (owns_) {
        host::freeContent(content_);
    }
}

void StdPicture::put_hPal(Long value) {
    if (content_.type != host::pictureBitmap) {
        throw RuntimeError(errInvalidProperty);
    }
    content_.palette = value;
}

void StdPicture::Render(Long hdc, Long x, Long y, Long cx, Long cy, Long xSrc, Long ySrc, Long cxSrc, Long cySrc, Long) {
    if (cx == 0 || cy == 0 || cxSrc == 0 || cySrc == 0) {
        throw RuntimeError(errInvalidProperty);
    }
    if (!host::renderPicture(host::Machine::current(), content_, hdc, {x, y, cx, cy}, {xSrc, ySrc, cxSrc, cySrc})) {
        throw StatusError(E_FAIL);
    }
}

} // namespace mox::runtime
