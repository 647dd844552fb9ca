#include "drawing/moxColors.h"

#include "core/numberreading.h"
#include "drawing/color.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace mox::server {

namespace {

constexpr Long most = 255;

/// The nearest integer, a tie to the even one; a value beyond `Long` gives its end.
Long rounded(Double value) {
    constexpr Double low = std::numeric_limits<Long>::min();
    constexpr Double high = std::numeric_limits<Long>::max();
    return static_cast<Long>(std::clamp(std::nearbyint(value), low, high));
}

Long combined(Long red, Long green, Long blue) {
    return red + 256 * green + 65536 * blue;
}

/// The number that up to two characters begin with.
Long channelOf(std::u16string_view digits) {
    Long value = 0;
    for (const char16_t c : digits) {
        const Long digit = hexadecimalDigit(c);
        if (digit < 0) {
            break;
        }
        value = 16 * value + digit;
    }
    return value;
}

struct Channels {
    Long red = 0;
    Long green = 0;
    Long blue = 0;
};

Channels channelsOf(OLE_COLOR color) {
    const Long resolved = resolvedColor(color);
    return {resolved & 0xFF, resolved >> 8 & 0xFF, resolved >> 16 & 0xFF};
}

} // namespace

OLE_COLOR moxColors::HTML2RGB(const String& htmlColor) {
    std::u16string_view text = htmlColor;
    if (text.size() == 7 || text.size() == 4) {
        text.remove_prefix(1);
    }
    if (text.size() == 3) {
        return combined(channelOf({std::u16string(2, text[0])}), channelOf({std::u16string(2, text[1])}),
                        channelOf({std::u16string(2, text[2])}));
    }
    if (text.size() == 6) {
        return combined(channelOf(text.substr(0, 2)), channelOf(text.substr(2, 2)), channelOf(text.substr(4, 2)));
    }
    return 0;
}

String moxColors::RGB2HTML(OLE_COLOR Color) {
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    const Channels channels = channelsOf(Color);
    std::u16string text = u"#";
    for (const Long channel : {channels.red, channels.green, channels.blue}) {
        text += digits[static_cast<std::size_t>(channel / 16)];
        text += digits[static_cast<std::size_t>(channel % 16)];
    }
    return text;
}

Long moxColors::CMY2RGB(Long Cyan, Long Magenta, Long Yellow) {
    return combined(most - (Cyan & 0xFF), most - (Magenta & 0xFF), most - (Yellow & 0xFF));
}

Long moxColors::CMY2RGB2(moX_CMY& CMY) {
    return CMY2RGB(CMY.Cyan, CMY.Magenta, CMY.Yellow);
}

Long moxColors::CMYK2RGB(Long Cyan, Long Magenta, Long Yellow, Long BlacK) {
    const auto channel = [&](Long ink) {
        const Long product = (most - BlacK) * ink;
        const Long covered = std::min(rounded(static_cast<Double>(product) / 255 + BlacK), most);
        return std::min(most - covered, most);
    };
    return combined(channel(Cyan), channel(Magenta), channel(Yellow));
}

Long moxColors::CMYK2RGB2(moX_CMYK& CMYK) {
    return CMYK2RGB(CMYK.Cyan, CMYK.Magenta, CMYK.Yellow, CMYK.BlacK);
}

Long moxColors::ConvertOleColor(OLE_COLOR Color) {
    return resolvedColor(Color);
}

Long moxColors::HSL2RGB2(moX_HSL& HSL, Boolean bValidate) {
    return HSL2RGB(HSL.Hue, HSL.Saturation, HSL.Luminance, bValidate);
}

void moxColors::HSLValidate2(moX_HSL& HSL) {
    HSLValidate(HSL.Hue, HSL.Saturation, HSL.Luminance);
}

void moxColors::RGB2CMY(OLE_COLOR Color, Long& Cyan, Long& Magenta, Long& Yellow) {
    const Channels channels = channelsOf(Color);
    Cyan = most - channels.red;
    Magenta = most - channels.green;
    Yellow = most - channels.blue;
}

moX_CMY moxColors::RGB2CMY2(OLE_COLOR Color) {
    moX_CMY result{};
    RGB2CMY(Color, result.Cyan, result.Magenta, result.Yellow);
    return result;
}

void moxColors::RGB2CMYK(OLE_COLOR Color, Long& Cyan, Long& Magenta, Long& Yellow, Long& BlacK) {
    const auto [red, green, blue] = channelsOf(Color);
    const Long black = most - std::max({red, green, blue});
    if (black == most) {
        Cyan = Magenta = Yellow = BlacK = most;
        return;
    }
    const Long rest = most - black;
    const auto ink = [&](Long channel) { return rounded(static_cast<Double>((rest - channel) * 255) / rest); };
    Cyan = ink(red);
    Magenta = ink(green);
    Yellow = ink(blue);
    BlacK = black;
}

moX_CMYK moxColors::RGB2CMYK2(OLE_COLOR Color) {
    moX_CMYK result{};
    RGB2CMYK(Color, result.Cyan, result.Magenta, result.Yellow, result.BlacK);
    return result;
}

void moxColors::fillTables() {
    for (Long i = 0; i <= most; ++i) {
        percentOf_[static_cast<std::size_t>(i)] = rounded(i * 100 / 255.0);
    }
    for (Long i = 1; i <= most; ++i) {
        degreesPer_[static_cast<std::size_t>(i)] = static_cast<Single>(60.0 / i);
    }
}

void moxColors::RGB2HSL(OLE_COLOR Color, Long& Hue, Long& Saturation, Long& Luminance) {
    if (percentOf_[most] == 0) {
        fillTables();
    }
    const auto [red, green, blue] = channelsOf(Color);
    const auto [least, largest] = std::minmax({red, green, blue});
    Luminance = percentOf_[static_cast<std::size_t>(largest)];
    const Long delta = largest - least;
    if (delta == 0) {
        return;
    }
    Saturation = rounded(delta * 100.0 / largest);
    const Double degrees = degreesPer_[static_cast<std::size_t>(delta)];
    if (largest == red) {
        Hue = rounded(degrees * (green - blue) + (blue > green ? 360 : 0));
    } else if (largest == green) {
        Hue = rounded(degrees * (blue - red) + 120);
    } else {
        Hue = rounded(degrees * (red - green) + 240);
    }
}

Long moxColors::GrayScale(OLE_COLOR Color) {
    const auto [red, green, blue] = channelsOf(Color);
    // The weights add up to 257, which brings white to 255 in spite of the remainder that is dropped.
    const Long grey = (77 * red + 152 * green + 28 * blue) / 256;
    return combined(grey, grey, grey);
}

void moxColors::HSLValidate(Long& Hue, Long& Saturation, Long& Luminance) {
    Hue = (Hue % 360 + 360) % 360;
    Saturation = std::clamp(Saturation, 0, 100);
    Luminance = std::clamp(Luminance, 0, 100);
}

moX_HSL moxColors::RGB2HSL2(OLE_COLOR Color) {
    moX_HSL result{};
    RGB2HSL(Color, result.Hue, result.Saturation, result.Luminance);
    return result;
}

void moxColors::RGBSplit(OLE_COLOR Color, Long& Red, Long& Green, Long& Blue) {
    const Channels channels = channelsOf(Color);
    Red = channels.red;
    Green = channels.green;
    Blue = channels.blue;
}

Long moxColors::HSL2RGB(Long Hue, Long Saturation, Long Luminance, Boolean bValidate) {
    if (bValidate) {
        HSLValidate(Hue, Saturation, Luminance);
    }
    const Long top = rounded(static_cast<Double>(Luminance * 255) / 100);
    if (Saturation <= 0) {
        return combined(top, top, top);
    }
    const Long bottom = rounded(static_cast<Double>((100 - Saturation) * top) / 100);
    const auto slope = static_cast<Single>((top - bottom) / 60.0);
    const auto ramp = [&](Long degrees) { return rounded(static_cast<Double>(slope) * degrees + bottom); };
    if (Hue < 0 || Hue > 360) {
        return 0;
    }
    if (Hue <= 60) {
        return combined(top, ramp(Hue), bottom);
    }
    if (Hue <= 120) {
        return combined(ramp(120 - Hue), top, bottom);
    }
    if (Hue <= 180) {
        return combined(bottom, top, ramp(Hue - 120));
    }
    if (Hue <= 240) {
        return combined(bottom, ramp(240 - Hue), top);
    }
    if (Hue <= 300) {
        return combined(ramp(Hue - 240), bottom, top);
    }
    return combined(top, bottom, ramp(360 - Hue));
}

} // namespace mox::server
