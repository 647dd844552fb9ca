#include "host/graphics/rasterstroke.h"

namespace mox::host {

bool strokePath(Bitmap&, const Path&, const Stroke&, const Region&) {
    return false;
}

} // namespace mox::host
