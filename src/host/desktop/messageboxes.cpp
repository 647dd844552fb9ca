#include "host/desktop/messageboxes.h"

#include "platform/user32.h"

namespace mox::host {

std::int32_t MessageBoxes::show(platform::Handle owner, std::string_view text, std::string_view caption,
                                std::uint32_t style) const {
    if (presenter) {
        return presenter(owner, text, caption, style);
    }
    constexpr std::uint32_t buttons = 0xF;
    return (style & buttons) == platform::MB_OK ? platform::IDOK : platform::IDCANCEL;
}

} // namespace mox::host
