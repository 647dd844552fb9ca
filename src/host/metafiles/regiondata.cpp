#include "host/metafiles/regiondata.h"

#include "host/metafiles/recordwriter.h"

namespace mox::host {

namespace {

constexpr std::uint32_t headerSize = 32;
constexpr std::uint32_t rectanglesType = 1;
constexpr std::uint32_t rectangleSize = 16;

} // namespace

std::vector<RECT> readRegion(std::span<const std::byte> data) {
    RecordReader reader(data);
    const std::uint32_t size = reader.u32();
    const std::uint32_t type = reader.u32();
    const std::uint32_t count = reader.u32();
    if (size < headerSize || type != rectanglesType) {
        throw BrokenRecord();
    }
    reader.seek(size);
    if (count > reader.left() / rectangleSize) {
        throw BrokenRecord();
    }
    std::vector<RECT> areas(count);
    for (RECT& area : areas) {
        area = reader.rect();
    }
    return areas;
}

std::vector<std::byte> writeRegion(const Region& region) {
    const auto boxes = region.boxes();
    // The region's header begins as a record does: with two numbers.
    RecordWriter writer(headerSize);
    writer.u32(boxes.size()).u32(boxes.size() * rectangleSize).rect(region.bounds());
    for (const auto& box : boxes) {
        writer.rect({box.x1, box.y1, box.x2, box.y2});
    }
    auto bytes = writer.finish();
    std::vector<std::byte> result(bytes.begin(), bytes.end());
    const std::uint32_t type = rectanglesType;
    std::memcpy(result.data() + 4, &type, 4);
    return result;
}

Region united(std::span<const RECT> areas) {
    if (areas.size() <= 1) {
        return areas.empty() ? Region() : Region(areas.front());
    }
    const std::size_t half = areas.size() / 2;
    Region all = united(areas.first(half));
    all.unite(united(areas.subspan(half)));
    return all;
}

Region frameOf(const Region& region, std::int32_t width, std::int32_t height) {
    Region inside = region;
    for (const POINT way : {POINT{width, 0}, POINT{-width, 0}, POINT{0, height}, POINT{0, -height}}) {
        Region moved = region;
        moved.translate(way.x, way.y);
        inside.intersect(moved);
    }
    Region frame = region;
    frame.subtract(inside);
    return frame;
}

} // namespace mox::host
