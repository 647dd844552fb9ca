#include "host/metafiles/fontrecord.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mox::host {

namespace {

constexpr std::size_t faceLength = 32;
/// Names and classification, which nothing is chosen by.
constexpr std::size_t restOfDescription = 228;

} // namespace

Font readFont(RecordReader& record, const CodePage& codePage) {
    Font font;
    platform::LOGFONTA& description = font.description;
    const POINT size = record.point();
    const POINT angles = record.point();
    description.lfHeight = size.x;
    description.lfWidth = size.y;
    description.lfEscapement = angles.x;
    description.lfOrientation = angles.y;
    description.lfWeight = record.i32();
    for (std::uint8_t* const field :
         {&description.lfItalic, &description.lfUnderline, &description.lfStrikeOut, &description.lfCharSet,
          &description.lfOutPrecision, &description.lfClipPrecision, &description.lfQuality, &description.lfPitchAndFamily}) {
        *field = record.u8();
    }
    // Short records end with the name.
    std::u16string face = record.wideText(std::min(faceLength, record.left() / 2));
    face.resize(std::min(face.find(u'\0'), face.size()));
    const std::string name = codePage.fromUtf16(face);
    std::ranges::copy_n(name.begin(), static_cast<std::ptrdiff_t>(std::min(name.size(), description.lfFaceName.size() - 1)),
                        description.lfFaceName.begin());
    return font;
}

void writeFont(RecordWriter& record, const Font& font, const CodePage& codePage) {
    const platform::LOGFONTA& description = font.description;
    record.i32(description.lfHeight).i32(description.lfWidth).i32(description.lfEscapement);
    record.i32(description.lfOrientation).i32(description.lfWeight);
    for (const std::uint8_t field :
         {description.lfItalic, description.lfUnderline, description.lfStrikeOut, description.lfCharSet,
          description.lfOutPrecision, description.lfClipPrecision, description.lfQuality, description.lfPitchAndFamily}) {
        record.u8(field);
    }
    std::string_view name(description.lfFaceName.data(), description.lfFaceName.size());
    name = name.substr(0, name.find('\0'));
    std::u16string face = codePage.toUtf16(name);
    face.resize(faceLength);
    record.text(face).zeros(restOfDescription);
}

} // namespace mox::host
