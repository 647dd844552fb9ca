#include "host/fonts/drawglyphs.h"

namespace mox::host {

bool drawGlyphs(Bitmap&, const TextRun&, const Region&) {
    return false;
}

} // namespace mox::host
