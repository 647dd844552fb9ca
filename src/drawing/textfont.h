// The font that text is drawn or measured in, selected for one call.
#pragma once

#include "platform/gditypes.h"
#include "platform/types.h"

#include <mox/values.h>

namespace mox::server {

/// A font as CreateFontA takes it, as far as the library sets it.
struct FontRequest {
    /// In device pixels, of the characters without the room above them.
    Long characterHeight = 0;
    /// In tenths of a degree.
    Long escapement = 0;
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruckOut = false;
    std::uint32_t quality = platform::DEFAULT_QUALITY;
    String name;
};

/// ClearType where it is wanted and the system has it.
std::uint32_t textQuality(Boolean useClearType);

/// Selects the font for as long as it lives; a context for which it cannot be made keeps its own.
class TextFont {
public:
    explicit TextFont(platform::Handle hdc) : hdc_(hdc) {}
    TextFont(const TextFont&) = delete;
    TextFont& operator=(const TextFont&) = delete;
    ~TextFont();

    void select(const FontRequest& request);

private:
    const platform::Handle hdc_;
    platform::Handle font_ = 0;
    platform::Handle before_ = 0;
};

} // namespace mox::server
