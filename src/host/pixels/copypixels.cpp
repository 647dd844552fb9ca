#include "host/pixels/copypixels.h"

namespace mox::host {

bool copyPixels(Bitmap&, const ImageCopy&, const Region&) {
    return false;
}

} // namespace mox::host
