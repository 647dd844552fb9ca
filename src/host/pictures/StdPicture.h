#pragma once

#include "MoxRuntime/StdPicture.h"

#include "host/pictures/picturecontent.h"

namespace mox::runtime {

/// A picture, or nothing. It shows what its handle stands for, and frees it with its end if it owns it.
class StdPicture final : public Implements<StdPicture> {
public:
    StdPicture() = default;
    /// The handle stays the caller's until `own`.
    explicit StdPicture(const host::PictureContent& content) : content_(content) {}
    ~StdPicture() override;

    Long get_Handle() const { return content_.handle; }
    Long get_hPal() const { return content_.palette; }
    /// Error 380 for all but bitmaps.
    void put_hPal(Long value);
    Integer get_Type() const { return content_.type; }
    Long get_Width() const { return content_.size.cx; }
    Long get_Height() const { return content_.size.cy; }
    /// Error 380 for an empty target or source, 440 if nothing could be drawn. An empty picture draws nothing.
    void Render(Long hdc, Long x, Long y, Long cx, Long cy, Long xSrc, Long ySrc, Long cxSrc, Long cySrc, Long prcWBounds);

    // For those that keep pictures.
    const host::PictureContent& content() const noexcept { return content_; }
    /// From now on the handle goes with this object.
    void own() noexcept { owns_ = true; }

private:
    host::PictureContent content_;
    bool owns_ = false;
};

} // namespace mox::runtime
