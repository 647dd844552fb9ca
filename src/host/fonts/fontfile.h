// Where a font lies, and what is asked of it.
#pragma once

#include "platform/gditypes.h"

#include <string>

namespace mox::host {

/// A font of the disk with the facts by which it was chosen.
struct FontFile {
    std::string path{};
    /// The number of the font in its file; the high half tells the instance of a variable font.
    int index = 0;
    /// In UTF-8.
    std::string family{};
    std::string style{};
    /// In hundredths of the normal width of letters.
    int width = 100;
    /// 100 to 1000, 400 being normal.
    int weight = 400;
    bool isItalic = false;
    bool isFixed = false;
};

/// What a font is looked for by.
struct FontRequest {
    /// In UTF-8.
    std::string family{};
    int weight = 400;
    bool isItalic = false;
    std::uint8_t charSet = platform::DEFAULT_CHARSET;
    std::uint8_t pitchAndFamily = 0;

    auto operator<=>(const FontRequest&) const = default;
};

} // namespace mox::host
