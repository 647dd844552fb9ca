#include "host/metafiles/enhancedheader.h"

#include "host/metafiles/enhancedrecords.h"
#include "host/metafiles/recordreader.h"
#include "host/metafiles/recordwriter.h"

#include <cmath>

namespace mox::host {

namespace {

constexpr std::uint32_t signature = 0x464D4520; // " EMF"
constexpr std::uint32_t version = 0x10000;
/// The header grew twice; each part is behind the one before.
constexpr std::size_t firstSize = 88;
constexpr std::size_t secondSize = 100;
constexpr std::size_t thirdSize = 108;
/// The least record at the end.
constexpr std::size_t endSize = 20;

EnhancedHeader readFields(RecordReader& reader, std::size_t size) {
    EnhancedHeader header;
    header.bounds = reader.rect();
    header.frame = reader.rect();
    if (reader.u32() != signature || reader.u32() >> 16 != version >> 16) {
        throw BrokenRecord();
    }
    header.bytes = reader.u32();
    header.records = reader.u32();
    header.handles = reader.u16();
    reader.skip(2);
    const std::uint32_t length = reader.u32();
    const std::uint32_t offset = reader.u32();
    reader.skip(4);
    header.device = reader.size32();
    const SIZE millimeters = reader.size32();
    if (millimeters.cx <= 0 || millimeters.cy <= 0 || millimeters.cx > 1000000 || millimeters.cy > 1000000) {
        throw BrokenRecord();
    }
    header.micrometers = {millimeters.cx * 1000, millimeters.cy * 1000};
    if (size >= thirdSize) {
        reader.seek(secondSize);
        const SIZE micrometers = reader.size32();
        if (micrometers.cx > 0 && micrometers.cy > 0) {
            header.micrometers = micrometers;
        }
    }
    if (length != 0 && offset >= firstSize) {
        RecordReader text(reader.part(offset, std::size_t{2} * length));
        header.description = text.wideText(length);
    }
    return header;
}

/// An edge of a frame in device units. It comes rounded to hundredths of a millimetre: what a whole pixel could have given is
/// that pixel.
double edge(std::int32_t place, double hundredths) {
    const double exact = place / hundredths;
    const double whole = std::round(exact);
    return std::lround(whole * hundredths) == place ? whole : exact;
}

} // namespace

std::optional<EnhancedHeader> EnhancedHeader::read(std::span<const std::byte> metafile) {
    try {
        RecordReader start(metafile);
        const std::uint32_t type = start.u32();
        const std::uint32_t size = start.u32();
        if (type != static_cast<std::uint32_t>(EnhancedRecord::header) || size % 4 != 0 || size < firstSize) {
            return std::nullopt;
        }
        RecordReader reader(start.part(0, size));
        reader.skip(8);
        const EnhancedHeader header = readFields(reader, size);
        if (header.bytes % 4 != 0 || header.bytes < size + endSize || header.bytes > metafile.size() || header.device.cx <= 0 ||
            header.device.cy <= 0 || header.handles == 0) {
            return std::nullopt;
        }
        return header;
    } catch (const BrokenRecord&) {
        return std::nullopt;
    }
}

std::vector<std::byte> EnhancedHeader::write() const {
    RecordWriter record(static_cast<std::uint32_t>(EnhancedRecord::header));
    record.rect(bounds).rect(frame).u32(signature).u32(version).u32(bytes).u32(records).u16(handles).u16(0);
    record.u32(description.size()).u32(description.empty() ? 0 : thirdSize).u32(0U);
    record.size(device).size({(micrometers.cx + 500) / 1000, (micrometers.cy + 500) / 1000});
    record.zeros(12).size(micrometers).text(description);
    const auto whole = record.finish();
    return {whole.begin(), whole.end()};
}

void EnhancedHeader::setDevice(const Device& reference) {
    device = {reference.capability(platform::HORZRES), reference.capability(platform::VERTRES)};
    micrometers = {reference.capability(platform::HORZSIZE) * 1000, reference.capability(platform::VERTSIZE) * 1000};
}

platform::RECT EnhancedHeader::frameOfBounds() const {
    const auto place = [](std::int64_t pixel, double hundredths) {
        return static_cast<std::int32_t>(std::lround(static_cast<double>(pixel) * hundredths));
    };
    return {place(bounds.left, hundredthsX()), place(bounds.top, hundredthsY()),
            place(std::int64_t{bounds.right} + 1, hundredthsX()), place(std::int64_t{bounds.bottom} + 1, hundredthsY())};
}

Transform EnhancedHeader::toFill(const platform::RECT& area) const {
    const double left = edge(frame.left, hundredthsX());
    const double top = edge(frame.top, hundredthsY());
    const double width = edge(frame.right, hundredthsX()) - left;
    const double height = edge(frame.bottom, hundredthsY()) - top;
    // A picture without an extent keeps its size.
    const double sx = width == 0 ? 1 : (static_cast<double>(area.right) - area.left) / width;
    const double sy = height == 0 ? 1 : (static_cast<double>(area.bottom) - area.top) / height;
    return {sx, 0, 0, sy, area.left - left * sx, area.top - top * sy};
}

} // namespace mox::host
