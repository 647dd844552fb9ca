#include "host/desktop/windowcontexts.h"

#include "host/desktop/desktop.h"

#include <utility>

namespace mox::host {

namespace {

class TakenContext final : public DeviceContext {
public:
    using DeviceContext::DeviceContext;
};

} // namespace

platform::Handle takeContext(Graphics& graphics, platform::Handle window, bool isWhole) {
    Desktop& desktop = graphics.desktop();
    const platform::Handle of = window == 0 ? desktop.desktopWindow() : window;
    auto canvas = desktop.windowCanvas(of, isWhole);
    if (!canvas) {
        return 0;
    }
    const auto kind = of == desktop.desktopWindow() ? DeviceContext::Kind::screen : DeviceContext::Kind::window;
    return graphics.open(std::make_shared<TakenContext>(graphics, kind, desktop.device(), std::move(canvas)));
}

bool releaseContext(Graphics& graphics, platform::Handle hdc) {
    return std::dynamic_pointer_cast<TakenContext>(graphics.context(hdc)) && graphics.deleteContext(hdc);
}

} // namespace mox::host
