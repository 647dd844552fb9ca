// Making picture objects.
#pragma once

#include "host/pictures/picturecontent.h"

#include <mox/MoxRuntime.h>

namespace mox::host {

class Machine;

/// As the operation OleCreatePictureIndirect has it; null stands for an uninitialised picture.
HRESULT createPicture(Machine& machine, const platform::PICTDESC* description, REFIID iid, bool owns, void** result) noexcept;

} // namespace mox::host
