// Making picture objects, and looking into them.
#pragma once

#include "host/pictures/picturecontent.h"

#include <mox/MoxRuntime.h>

namespace mox::host {

class Machine;

/// As the operation OleCreatePictureIndirect has it; null stands for an uninitialised picture.
HRESULT createPicture(Machine& machine, const platform::PICTDESC* description, REFIID iid, bool owns, void** result) noexcept;

/// A picture that owns the handle of its content, which is freed also if there is no memory.
Ref<MoxRuntime::IPictureDisp> ownedPicture(const PictureContent& content);

/// What a picture object shows: one of ours, or another one by its properties. Nothing if it is no picture.
std::optional<PictureContent> contentOfObject(const Graphics& graphics, IUnknown* object);

} // namespace mox::host
