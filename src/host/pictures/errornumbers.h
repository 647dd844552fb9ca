// Run-time errors that the run-time objects raise, beyond those that the automation layer and the statements on files have.
#pragma once

#include "automation/objects/runtimeerror.h"

namespace mox::runtime {

inline constexpr Long errInvalidFileFormat = 321;
inline constexpr Long errNotFoundInBag = 327;
inline constexpr Long errCannotSaveArray = 328;
inline constexpr Long errCannotSaveObject = 330;
inline constexpr Long errInvalidProperty = 380;
inline constexpr Long errInvalidPicture = 481;

} // namespace mox::runtime
