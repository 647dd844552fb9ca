// Listings of fonts and their character sets.
#pragma once

#include "host/fonts/fonts.h"

#include "platform/gdi32.h"

namespace mox::host {

/// Calls `procedure` for fonts by face name and character set, as `EnumFontFamiliesExA` does, until it answers 0. Its last
/// answer; 1 if there was nothing to list. Fonts whose names the code page cannot hold, or which are longer than a description
/// has room for, are left out, as they could not be asked for.
std::int32_t listFonts(Fonts& fonts, const CodePage& codePage, const platform::LOGFONTA& wanted,
                       const platform::FontFamilyProcedure& procedure);

} // namespace mox::host
