// Icons that the machine draws itself.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/objects.h"

#include <optional>

namespace mox::host {

enum class Artwork {
    application,
    stop,
    question,
    exclamation,
    information,
    logo,
    shield,
    // what the shell shows
    document,
    text,
    image,
    audio,
    video,
    archive,
    folder,
    openFolder,
    drive,
    removableDrive,
    opticalDrive,
    networkDrive,
    trash,
};
inline constexpr int artworks = static_cast<int>(Artwork::trash) + 1;

/// The drawing in a size, with alpha. Nothing if there is no memory.
MOX_API std::optional<Icon> drawnIcon(Artwork artwork, platform::SIZE size);

} // namespace mox::host
