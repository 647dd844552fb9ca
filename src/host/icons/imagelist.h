// Lists of icons.
#pragma once

#include "host/graphics/devicecontext.h"

#include <memory>
#include <mutex>
#include <vector>

namespace mox::host {

/// Icons of one size by their places.
class ImageList {
public:
    /// The place that it got.
    std::int32_t add(std::shared_ptr<const Icon> icon);
    /// Null for a place that there is not.
    std::shared_ptr<const Icon> at(std::int32_t index) const;

private:
    mutable std::mutex guard_;
    std::vector<std::shared_ptr<const Icon>> icons_;
};

/// Draws an icon of a list at a place in logical coordinates, by an `ILD_` style: its ground shows through, as lists of the
/// system have no colour for it. `highlight` is what it is blended with.
bool drawListed(DeviceContext& context, const Icon& icon, POINT place, std::uint32_t style, platform::COLORREF highlight);

} // namespace mox::host
