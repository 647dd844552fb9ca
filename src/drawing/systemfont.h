// The fonts that the system uses.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include "platform/gditypes.h"

#include <mox/values.h>

#include <optional>

namespace mox::server {

using MoxRuntime::IFontDisp;

/// The font of a place of the system, nothing if the system does not tell. A place that does not exist has an empty description.
std::optional<platform::LOGFONTA> systemFont(TRL_OBKR_MOX::FONT_DEFAULT_TYPE place);

/// Gives a font object what a description says.
void describe(IFontDisp* font, const platform::LOGFONTA& description);

} // namespace mox::server
