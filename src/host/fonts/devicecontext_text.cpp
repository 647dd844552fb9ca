#include "host/graphics/devicecontext.h"

namespace mox::host {

bool DeviceContext::textOut(POINT, std::u16string_view) {
    return false;
}

bool DeviceContext::extTextOut(POINT, std::uint32_t, const RECT&, std::u16string_view, std::span<const std::int32_t>) {
    return false;
}

} // namespace mox::host
