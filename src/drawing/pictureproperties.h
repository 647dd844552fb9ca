// What the drawing classes read of a client's picture object.
#pragma once

#include <mox/MoxRuntime.h>
#include <mox/values.h>

namespace mox::server {

// Properties of a picture object, read by their identifiers, so that any client's own object will do. Error 91 for no object;
// otherwise a failure is raised as the object tells it.

/// The kind: -1 uninitialised, 0 empty, 1 bitmap, 2 metafile, 3 icon, 4 enhanced metafile.
Integer pictureType(MoxRuntime::IPictureDisp* picture);
/// Handle of the bitmap, metafile or icon, which stays the picture's; 0 for an empty picture.
Long pictureHandle(MoxRuntime::IPictureDisp* picture);
/// In hundredths of a millimetre.
Long pictureWidth(MoxRuntime::IPictureDisp* picture);
Long pictureHeight(MoxRuntime::IPictureDisp* picture);

} // namespace mox::server
