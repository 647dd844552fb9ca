// What picture objects show: bitmaps, icons and metafiles by their handles.
#pragma once

#include "platform/gditypes.h"
#include "platform/oleaut32.h"

#include <optional>

namespace mox::host {

class Graphics;

// Kinds of pictures as their property Type tells them.
inline constexpr std::int16_t pictureUninitialized = -1;
inline constexpr std::int16_t pictureNone = 0;
inline constexpr std::int16_t pictureBitmap = 1;
inline constexpr std::int16_t pictureMetafile = 2;
inline constexpr std::int16_t pictureIcon = 3;
inline constexpr std::int16_t pictureEnhancedMetafile = 4;

struct PictureContent {
    std::int16_t type = pictureNone;
    platform::Handle handle = 0;
    /// In hundredths of a millimetre.
    platform::SIZE size;
    platform::Handle palette = 0;
};

/// Hundredths of a millimetre for pixels of the screen.
std::int32_t himetricOfPixels(std::int64_t pixels) noexcept;

/// None if the size of the description is wrong, or its handle is not of its kind. An old-style metafile is as large as the
/// description says.
std::optional<PictureContent> contentOf(const Graphics& graphics, const platform::PICTDESC& description);
/// Frees the handle through the present machine's operations.
void freeContent(const PictureContent& content);

} // namespace mox::host
