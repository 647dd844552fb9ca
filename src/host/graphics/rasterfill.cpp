#include "host/graphics/rasterfill.h"

namespace mox::host {

bool fillRegion(Bitmap&, const Region&, const Paint&, const Region&) {
    return false;
}

bool fillPath(Bitmap&, const Path&, FillRule, const Paint&, const Region&) {
    return false;
}

} // namespace mox::host
