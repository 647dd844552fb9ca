#include "host/metafiles/metafilecontext_record.h"
#include "host/metafiles/packeddib.h"
#include "host/pixels/rasteroperation.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace mox::host {

struct MetafileContext::Pixels {
    PackedDib dib;
    /// In the stored part, counted from its top.
    SignedRect area;
};

namespace {

/// Where the description of a bitmap begins: behind the fields of its record.
constexpr std::uint32_t bitBltSize = 100;
constexpr std::uint32_t stretchBltSize = 108;
constexpr std::uint32_t stretchDibitsSize = 80;

RECT inOrder(const SignedRect& area) {
    const std::int64_t right = std::int64_t{area.x} + area.cx;
    const std::int64_t bottom = std::int64_t{area.y} + area.cy;
    const auto place = [](std::int64_t value) {
        constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
        return static_cast<std::int32_t>(std::clamp(value, -most, most));
    };
    return {place(std::min<std::int64_t>(area.x, right)), place(std::min<std::int64_t>(area.y, bottom)),
            place(std::max<std::int64_t>(area.x, right)), place(std::max<std::int64_t>(area.y, bottom))};
}

void addDib(RecordWriter& record, const PackedDib& dib, std::uint32_t offset) {
    record.u32(offset).u32(dib.info.size()).u32(offset + dib.info.size()).u32(dib.bits.size());
}

std::uint32_t bytesOf(const platform::BLENDFUNCTION& blend) {
    std::uint32_t bytes = 0;
    static_assert(sizeof blend == sizeof bytes);
    std::memcpy(&bytes, &blend, sizeof bytes);
    return bytes;
}

} // namespace

MetafileContext::Pixels MetafileContext::pixelsOf(const Bitmap& bitmap, const SignedRect& area) const {
    // Only what is copied; of an area beside the bitmap one pixel, so that there is one.
    RECT part = intersection(inOrder(area), bitmap.bounds());
    if (isEmpty(part)) {
        part = {0, 0, 1, 1};
    }
    Pixels pixels{writeDib(bitmap, part, state().textColor, state().bkColor), area};
    pixels.area.x -= pixels.dib.area.left;
    pixels.area.y -= pixels.dib.area.top;
    return pixels;
}

std::optional<MetafileContext::Pixels> MetafileContext::pixelsOf(const DeviceContext& source, const SignedRect& from) const {
    const auto bitmap = source.canvas().bitmap();
    return bitmap ? std::optional(pixelsOf(*bitmap, source.toDevice(from))) : std::nullopt;
}

void MetafileContext::writeCopyTarget(RecordWriter& record, const RECT& bounds, const SignedRect& target) {
    record.rect(bounds).i32(target.x).i32(target.y).i32(target.cx).i32(target.cy);
}

void MetafileContext::writePatternCopy(const RECT& bounds, const SignedRect& target, std::uint32_t rop) {
    RecordWriter record = begin(EnhancedRecord::bitBlt);
    writeCopyTarget(record, bounds, target);
    record.u32(rop).point({}).transform({}).u32(0xFFFFFFU).u32(platform::DIB_RGB_COLORS).zeros(16);
    write(record);
}

void MetafileContext::writeCopy(EnhancedRecord type, const RECT& bounds, const SignedRect& target, std::uint32_t operation,
                                const Pixels& pixels, platform::COLORREF backColor) {
    const bool isPlain = type == EnhancedRecord::stretchBlt && pixels.area.cx == target.cx && pixels.area.cy == target.cy;
    RecordWriter record = begin(isPlain ? EnhancedRecord::bitBlt : type);
    writeCopyTarget(record, bounds, target);
    record.u32(operation).i32(pixels.area.x).i32(pixels.area.y).transform({}).u32(backColor).u32(platform::DIB_RGB_COLORS);
    addDib(record, pixels.dib, isPlain ? bitBltSize : stretchBltSize);
    if (!isPlain) {
        record.i32(pixels.area.cx).i32(pixels.area.cy);
    }
    write(record.bytes(pixels.dib.info).bytes(pixels.dib.bits));
}

bool MetafileContext::bitBlt(const SignedRect& target, const DeviceContext* source, POINT from, std::uint32_t rop) {
    return stretchBlt(target, source, {from.x, from.y, target.cx, target.cy}, rop);
}

bool MetafileContext::stretchBlt(const SignedRect& target, const DeviceContext* source, const SignedRect& from,
                                 std::uint32_t rop) {
    return record([&] { return DeviceContext::stretchBlt(target, source, from, rop); },
                  [&](const RECT& bounds) {
                      const auto pixels = source != nullptr && usesSource(rop) ? pixelsOf(*source, from) : std::nullopt;
                      if (pixels) {
                          writeCopy(EnhancedRecord::stretchBlt, bounds, target, rop, *pixels, source->state().bkColor);
                      } else {
                          writePatternCopy(bounds, target, rop);
                      }
                  });
}

bool MetafileContext::transparentBlt(const SignedRect& target, const DeviceContext& source, const SignedRect& from,
                                     platform::COLORREF transparent) {
    return record([&] { return DeviceContext::transparentBlt(target, source, from, transparent); },
                  [&](const RECT& bounds) {
                      if (const auto pixels = pixelsOf(source, from)) {
                          writeCopy(EnhancedRecord::transparentBlt, bounds, target, transparent, *pixels, source.state().bkColor);
                      }
                  });
}

bool MetafileContext::alphaBlend(const SignedRect& target, const DeviceContext& source, const SignedRect& from,
                                 const platform::BLENDFUNCTION& blend) {
    return record([&] { return DeviceContext::alphaBlend(target, source, from, blend); },
                  [&](const RECT& bounds) {
                      if (const auto pixels = pixelsOf(source, from)) {
                          writeCopy(EnhancedRecord::alphaBlend, bounds, target, bytesOf(blend), *pixels, source.state().bkColor);
                      }
                  });
}

bool MetafileContext::drawBitmap(const SignedRect& target, std::shared_ptr<const Bitmap> source, const SignedRect& from,
                                 std::uint32_t rop) {
    return record([&] { return DeviceContext::drawBitmap(target, source, from, rop); },
                  [&](const RECT& bounds) {
                      if (!source || !usesSource(rop)) {
                          writePatternCopy(bounds, target, rop);
                          return;
                      }
                      // What is mirrored in the source is mirrored in the target instead: rows are counted from the bottom.
                      SignedRect to = target;
                      SignedRect area = from;
                      if (area.cx < 0) {
                          area = {area.x + area.cx, area.y, -area.cx, area.cy};
                          to = {to.x + to.cx, to.y, -to.cx, to.cy};
                      }
                      if (area.cy < 0) {
                          area = {area.x, area.y + area.cy, area.cx, -area.cy};
                          to = {to.x, to.y + to.cy, to.cx, -to.cy};
                      }
                      const Pixels pixels = pixelsOf(*source, area);
                      const std::int32_t height = pixels.dib.area.bottom - pixels.dib.area.top;
                      RecordWriter record = begin(EnhancedRecord::stretchDibits);
                      record.rect(bounds).point({to.x, to.y}).point({pixels.area.x, height - pixels.area.y - pixels.area.cy});
                      record.size({pixels.area.cx, pixels.area.cy});
                      addDib(record, pixels.dib, stretchDibitsSize);
                      record.u32(platform::DIB_RGB_COLORS).u32(rop).size({to.cx, to.cy});
                      write(record.bytes(pixels.dib.info).bytes(pixels.dib.bits));
                  });
}

} // namespace mox::host
