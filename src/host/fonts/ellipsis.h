// Lines that are made to fit by leaving a part out.
#pragma once

#include "automation/objects/export.h"
#include "host/fonts/textlines.h"

namespace mox::host {

enum class EllipsisPlace {
    end,
    /// Keeps what comes behind the last backslash as long as there is room for it.
    path,
};

/// A line without its characters from `cutBegin` to `cutEnd`; three dots stand in their place.
struct Shortened {
    std::size_t cutBegin = 0;
    std::size_t cutEnd = 0;
    bool operator==(const Shortened&) const = default;
};

/// As much of a line as `width` has room for beside the dots, of which each is `dots / 3` wide.
MOX_API Shortened shorten(const MeasuredText& text, const TextLine& line, EllipsisPlace place, double dots, double width);

} // namespace mox::host
