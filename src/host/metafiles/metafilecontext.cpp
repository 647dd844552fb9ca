#include "host/metafiles/metafilecontext.h"

#include <algorithm>
#include <utility>

namespace mox::host {

namespace {

/// What fits into the header's number with room to spare.
constexpr std::size_t mostBytes = std::size_t{1} << 30;

/// Every part of it ends with a NUL, and the whole with another one.
std::u16string ended(std::u16string_view description) {
    while (!description.empty() && description.back() == u'\0') {
        description.remove_suffix(1);
    }
    std::u16string result(description);
    if (!result.empty()) {
        result.append(2, u'\0');
    }
    return result;
}

} // namespace

MetafileContext::MetafileContext(Graphics& graphics, const std::shared_ptr<const Device>& reference, const CodePage& codePage,
                                 const RECT& frame, std::u16string_view description)
    : MetafileContext(graphics, reference, codePage, std::make_shared<BoundsCanvas>()) {
    header_.setDevice(*reference);
    header_.frame = frame;
    header_.description = ended(description);
}

MetafileContext::MetafileContext(Graphics& graphics, const std::shared_ptr<const Device>& reference, const CodePage& codePage,
                                 std::shared_ptr<BoundsCanvas> canvas)
    : DeviceContext(graphics, Kind::metafile, reference, canvas), drawn_(std::move(canvas)), recorded_(graphics.initialState()),
      objects_(graphics, codePage, [this](std::span<const std::byte> record) { write(record); }) {}

void MetafileContext::write(std::span<const std::byte> record) {
    if (isTooLarge_ || record.size() > mostBytes - records_.size()) {
        isTooLarge_ = true;
        return;
    }
    records_.insert(records_.end(), record.begin(), record.end());
    ++count_;
}

RECT MetafileContext::takeBounds() {
    const RECT drawn = drawn_->take();
    bounds_ = unitedBounds(bounds_, drawn);
    return isEmpty(drawn) ? RECT{0, 0, -1, -1} : RECT{drawn.left, drawn.top, drawn.right - 1, drawn.bottom - 1};
}

std::vector<std::byte> MetafileContext::finish() {
    objects_.removeAll();
    constexpr std::uint32_t endSize = 20;
    RecordWriter end = begin(EnhancedRecord::endOfFile);
    write(end.u32(0U).u32(endSize - 4).u32(endSize));
    if (isTooLarge_) {
        return {};
    }
    if (!isEmpty(bounds_)) {
        header_.bounds = {bounds_.left, bounds_.top, bounds_.right - 1, bounds_.bottom - 1};
    }
    if (isEmpty(header_.frame)) {
        header_.frame = header_.frameOfBounds();
    }
    header_.handles = objects_.places();
    header_.records = count_ + 1;
    header_.bytes = static_cast<std::uint32_t>(header_.write().size() + records_.size());
    std::vector<std::byte> metafile = header_.write();
    metafile.insert(metafile.end(), records_.begin(), records_.end());
    return metafile;
}

} // namespace mox::host
