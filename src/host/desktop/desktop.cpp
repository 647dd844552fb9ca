#include "host/desktop/desktop.h"

#include "host/desktop/screendevice.h"
#include "host/graphics/rastercanvas.h"

namespace mox::host {

Desktop::Desktop()
    : device_(std::make_shared<ScreenDevice>()),
      canvas_(std::make_shared<RasterCanvas>(Bitmap::create(screenWidth, screenHeight))) {}

Desktop::~Desktop() = default;

} // namespace mox::host
