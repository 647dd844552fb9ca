#include "host/icons/systemicons.h"

#include "host/icons/artwork.h"

#include "platform/user32.h"

namespace mox::host {

std::optional<Icon> systemIcon(std::uint32_t resource, std::uint32_t major, platform::SIZE size) {
    using namespace platform;
    constexpr std::uint32_t firstWithShield = 6;
    switch (resource) {
    case IDI_APPLICATION:
        return drawnIcon(Artwork::application, size);
    case IDI_HAND:
        return drawnIcon(Artwork::stop, size);
    case IDI_QUESTION:
        return drawnIcon(Artwork::question, size);
    case IDI_EXCLAMATION:
        return drawnIcon(Artwork::exclamation, size);
    case IDI_ASTERISK:
        return drawnIcon(Artwork::information, size);
    case IDI_WINLOGO:
        return drawnIcon(Artwork::logo, size);
    case IDI_SHIELD:
        return major >= firstWithShield ? drawnIcon(Artwork::shield, size) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace mox::host
