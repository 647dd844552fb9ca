// From image files to handles and back.
#pragma once

#include "host/pictures/imagefile.h"
#include "host/pictures/picturecontent.h"

namespace mox::host {

/// A new handle for an image, the caller's. Throws `ImageError` if there is no room for it.
PictureContent addImage(Graphics& graphics, Image image);
/// What a picture shows. Throws `ImageError` for one without anything, and for a handle that is no more.
Image imageOf(const Graphics& graphics, const PictureContent& content);

} // namespace mox::host
