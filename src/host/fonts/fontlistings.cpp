#include "host/fonts/fontlistings.h"

#include "host/fonts/charsets.h"
#include "host/fonts/typeface.h"

#include <mox/values/string.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <tuple>

namespace mox::host {

namespace {

using platform::LOGFONTA;
using platform::TEXTMETRICA;

constexpr std::uint32_t trueTypeFont = 4;

/// The bytes of a family's name; nothing if it cannot be asked for by them.
std::optional<std::string> faceName(const std::string& family, const CodePage& codePage) {
    if (!codePage.holds(utf16FromUtf8(family))) {
        return std::nullopt;
    }
    std::string name = codePage.fromUtf8(family);
    return name.empty() || name.size() >= std::tuple_size_v<decltype(LOGFONTA::lfFaceName)> ? std::nullopt
                                                                                            : std::optional(std::move(name));
}

/// Of each family the font that is nearest to the regular one; the files are sorted by family.
std::vector<FontFile> onePerFamily(const std::vector<FontFile>& files) {
    const auto distance = [](const FontFile& file) {
        return std::tuple(std::abs(file.width - 100), file.isItalic, std::abs(file.weight - platform::FW_NORMAL));
    };
    std::vector<FontFile> chosen;
    for (const FontFile& file : files) {
        if (chosen.empty() || chosen.back().family != file.family) {
            chosen.push_back(file);
        } else if (distance(file) < distance(chosen.back())) {
            chosen.back() = file;
        }
    }
    return chosen;
}

LOGFONTA descriptionOf(const FontFile& file, const std::string& name) {
    LOGFONTA font{.lfWeight = file.weight, .lfItalic = static_cast<std::uint8_t>(file.isItalic ? 255 : 0)};
    std::ranges::copy(name, font.lfFaceName.begin());
    return font;
}

/// What a listing tells of a font beyond what it is asked for by.
void complete(LOGFONTA& font, const TEXTMETRICA& metrics) {
    constexpr std::uint8_t strokePrecision = 3;
    constexpr std::uint8_t strokeClipping = 2;
    constexpr std::uint8_t familyBits = 0xF0;
    const bool isFixed = (metrics.tmPitchAndFamily & 1) == 0;
    font.lfHeight = metrics.tmHeight;
    font.lfWidth = metrics.tmAveCharWidth;
    font.lfOutPrecision = strokePrecision;
    font.lfClipPrecision = strokeClipping;
    font.lfQuality = platform::DRAFT_QUALITY;
    font.lfPitchAndFamily = static_cast<std::uint8_t>((metrics.tmPitchAndFamily & familyBits) |
                                                      (isFixed ? platform::FIXED_PITCH : platform::VARIABLE_PITCH));
}

} // namespace

std::int32_t listFonts(Fonts& fonts, const CodePage& codePage, const LOGFONTA& wanted,
                       const platform::FontFamilyProcedure& procedure) {
    const std::string_view field(wanted.lfFaceName.data(), wanted.lfFaceName.size());
    const std::string family = codePage.toUtf8(field.substr(0, field.find('\0')));
    std::vector<FontFile> files = fonts.list(family);
    if (family.empty()) {
        files = onePerFamily(files);
    }
    std::int32_t answer = 1;
    for (const FontFile& file : files) {
        const auto name = faceName(file.family, codePage);
        LOGFONTA font = name ? descriptionOf(file, *name) : LOGFONTA();
        const auto typeface = name ? fonts.openTypeface(file, font) : nullptr;
        if (!typeface) {
            continue;
        }
        TEXTMETRICA metrics = typeface->textMetrics();
        complete(font, metrics);
        CharacterSetMask left = typeface->coveredSets();
        for (const CharacterSet& set : characterSets()) {
            const bool isCovered = (left & 1) != 0;
            left >>= 1;
            if (!isCovered || (wanted.lfCharSet != platform::DEFAULT_CHARSET && wanted.lfCharSet != set.number)) {
                continue;
            }
            font.lfCharSet = metrics.tmCharSet = set.number;
            if ((answer = procedure(font, metrics, trueTypeFont)) == 0) {
                return 0;
            }
        }
    }
    return answer;
}

} // namespace mox::host
