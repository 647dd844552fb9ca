#include "host/pixels/sourcepixels.h"

#include <algorithm>

namespace mox::host {

SourcePixels::SourcePixels(const ImageCopy& copy, bool areColored, Access access)
    : bitmap_(*copy.source), access_(access), isExpanded_(areColored && copy.source->isMonochrome()),
      zero_(toPixel(copy.textColor)), one_(toPixel(copy.backColor)) {}

const Pixel* SourcePixels::window(int x, int y, int count) {
    const bool isLoaded = y == windowY_ && x >= windowX_ && x - windowX_ + count <= static_cast<int>(window_.size());
    if (!isLoaded) {
        constexpr int ahead = 512;
        const int wanted = access_ == Access::dense ? std::max(count, std::min(ahead, bitmap_.width() - x)) : count;
        window_.resize(static_cast<std::size_t>(wanted));
        bitmap_.read(x, y, window_);
        if (isExpanded_) {
            std::ranges::transform(window_, window_.begin(), [this](Pixel pixel) { return pixel == 0 ? zero_ : one_; });
        }
        windowX_ = x;
        windowY_ = y;
    }
    return window_.data() + (x - windowX_);
}

} // namespace mox::host
