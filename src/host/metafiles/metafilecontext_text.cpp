#include "host/fonts/textsetting.h"
#include "host/metafiles/metafilecontext_record.h"

#include <cmath>
#include <vector>

namespace mox::host {

namespace {

/// Where the text begins: behind the fields.
constexpr std::uint32_t textOffset = 76;
constexpr std::uint32_t compatibleMode = 1;

/// From each character of a text to the next, so that it stays as wide with other fonts; empty where logical units are too coarse
/// for it.
std::vector<std::int32_t> distancesOf(const DeviceContext& context, std::u16string_view text) {
    const TextSetting setting = textSetting(context);
    std::vector<Typeface::Character> characters(text.size());
    if (setting) {
        setting.typeface->shape(text, characters);
    }
    std::vector<std::int32_t> distances;
    for (const Typeface::Character& character : characters) {
        const double exact = static_cast<double>(character.advance) * setting.unitsAlong;
        const double whole = std::round(exact);
        constexpr double exactly = 1e-3;
        if (!setting || std::abs(exact - whole) > exactly) {
            return {};
        }
        distances.push_back(static_cast<std::int32_t>(whole));
    }
    return distances;
}

} // namespace

bool MetafileContext::textOut(POINT point, std::u16string_view text) {
    if ((state().textAlign & TA_UPDATECP) != 0) {
        syncPosition();
    }
    return record([&] { return DeviceContext::textOut(point, text); },
                  [&](const RECT& bounds) { writeText(bounds, point, 0, {}, text, distancesOf(*this, text)); });
}

bool MetafileContext::extTextOut(POINT point, std::uint32_t options, const RECT& area, std::u16string_view text,
                                 std::span<const std::int32_t> distances) {
    if ((state().textAlign & TA_UPDATECP) != 0) {
        syncPosition();
    }
    return record([&] { return DeviceContext::extTextOut(point, options, area, text, distances); },
                  [&](const RECT& bounds) {
                      const auto own = distances.empty() ? distancesOf(*this, text) : std::vector<std::int32_t>();
                      writeText(bounds, point, options, area, text, distances.empty() ? own : distances);
                  });
}

void MetafileContext::writeText(const RECT& bounds, POINT point, std::uint32_t options, const RECT& area,
                                std::u16string_view text, std::span<const std::int32_t> distances) {
    const Transform transform = toDevice();
    RecordWriter record = begin(EnhancedRecord::extTextOutW);
    record.rect(bounds).u32(compatibleMode);
    record.real(header_.hundredthsX() * std::abs(transform.m11)).real(header_.hundredthsY() * std::abs(transform.m22));
    record.point(point).u32(text.size()).u32(textOffset).u32(options);
    const bool hasArea = (options & (ETO_OPAQUE | ETO_CLIPPED)) != 0;
    record.rect(hasArea ? area : RECT{0, 0, -1, -1});
    const std::size_t distancesOffset = textOffset + (text.size() * 2 + 3) / 4 * 4;
    record.u32(distances.size() == text.size() && !text.empty() ? distancesOffset : 0).text(text).align();
    if (distances.size() == text.size()) {
        record.bytes(std::as_bytes(distances));
    }
    write(record);
}

} // namespace mox::host
