// Text in rectangles.
#pragma once

#include "host/graphics/devicecontext.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace mox::host {

/// What was left out of a text, from one unit up to another; three dots stand in its place.
struct TextCut {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool operator==(const TextCut&) const = default;
};

struct TextSetting;

/// Draws into a rectangle by `DT_` flags, or measures into it. Gives the height; 0 for no text, or if nothing can be drawn.
/// `setting` is that of the context. What was left out for want of room is added to `cuts`, in order.
std::int32_t drawText(DeviceContext& context, const TextSetting& setting, std::u16string text, RECT& area, std::uint32_t format,
                      std::vector<TextCut>& cuts);

} // namespace mox::host
