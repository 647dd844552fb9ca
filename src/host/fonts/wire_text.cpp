#include "host/fonts/drawtext.h"
#include "host/fonts/fontlistings.h"
#include "host/fonts/systemfonts.h"
#include "host/fonts/textsetting.h"
#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace mox::host {

namespace {

/// Text for a font: characters of the code page, or the codes of a font of symbols.
std::u16string textFor(const TextSetting& setting, const CodePage& codePage, std::string_view bytes) {
    if (!setting || !setting.typeface->hasSymbolCodes()) {
        return codePage.toUtf16(bytes);
    }
    std::u16string text(bytes.size(), u'\0');
    std::ranges::transform(bytes, text.begin(), [](char byte) {
        const auto code = static_cast<std::uint8_t>(byte);
        return static_cast<char16_t>(code < 0x20 ? code : 0xF000 + code);
    });
    return text;
}

/// The number of bytes that the first `units` units of a text stand for.
std::size_t bytesOfUnits(const CodePage& codePage, std::string_view bytes, std::size_t units) {
    std::size_t place = 0;
    for (; units > 0 && place < bytes.size(); --units) {
        const bool isPair = codePage.isLeadByte(static_cast<std::uint8_t>(bytes[place])) && place + 1 < bytes.size() &&
                            codePage.toUtf16(bytes.substr(place, 2)).size() == 1;
        place += isPair ? 2 : 1;
    }
    return place;
}

/// Writes the text without what was cut out back into its buffer, with a NUL behind it if there is room.
void writeShortened(const CodePage& codePage, std::span<char> buffer, std::string_view bytes, std::span<const TextCut> cuts) {
    std::string shortened;
    std::size_t done = 0;
    for (const TextCut& cut : cuts) {
        const std::size_t begin = bytesOfUnits(codePage, bytes, cut.begin);
        shortened += bytes.substr(done, begin - done);
        shortened += "...";
        done = bytesOfUnits(codePage, bytes, cut.end);
    }
    shortened += bytes.substr(done);
    copyInto<char>(buffer, shortened);
    if (shortened.size() < buffer.size()) {
        buffer[shortened.size()] = '\0';
    }
}

/// The text of a buffer by its length in bytes, or up to its NUL.
std::optional<std::string_view> textOf(std::span<const char> buffer, std::int32_t length) {
    const std::string_view all(buffer.data(), buffer.size());
    if (length < -1) {
        return std::nullopt;
    }
    return length < 0 ? all.substr(0, all.find('\0')) : all.substr(0, static_cast<std::size_t>(length));
}

std::int32_t drawTextBytes(Machine& machine, platform::Handle hdc, std::span<char> buffer, std::int32_t length, RECT& area,
                           std::uint32_t format) {
    const auto context = machine.graphics.context(hdc);
    const auto bytes = textOf(buffer, length);
    if (!context || !bytes) {
        return 0;
    }
    std::vector<TextCut> cuts;
    const TextSetting setting = textSetting(*context);
    const std::int32_t height = drawText(*context, setting, textFor(setting, machine.codePage, *bytes), area, format, cuts);
    if ((format & platform::DT_MODIFYSTRING) != 0 && !cuts.empty()) {
        writeShortened(machine.codePage, buffer, std::string(*bytes), cuts);
    }
    return height;
}

template <class Record> bool give(const Record& record, std::span<std::byte> place) {
    if (place.size() < sizeof record) {
        return false;
    }
    std::memcpy(place.data(), &record, sizeof record);
    return true;
}

bool systemParameter(const WindowsVersion& version, std::uint32_t action, std::uint32_t parameter, std::span<std::byte> place) {
    switch (action) {
    case platform::SPI_GETICONTITLELOGFONT:
        return parameter == sizeof(platform::LOGFONTA) && give(iconTitleFont(version), place);
    case platform::SPI_GETNONCLIENTMETRICS: {
        std::uint32_t size = 0;
        const platform::NONCLIENTMETRICSA metrics = nonClientMetrics(version);
        if (place.size() < sizeof size) {
            return false;
        }
        std::memcpy(&size, place.data(), sizeof size);
        return size == metrics.cbSize && give(metrics, place);
    }
    default:
        return false;
    }
}

} // namespace

void wireText(Machine& machine) {
    platform::Gdi32& gdi32 = machine.gdi32;
    Graphics& graphics = machine.graphics;
    gdi32.CreateFontA = [&](auto height, auto width, auto escapement, auto orientation, auto weight, auto italic, auto underline,
                            auto strikeOut, auto charSet, auto outPrecision, auto clipPrecision, auto quality,
                            auto pitchAndFamily, auto faceName) {
        const auto byte = [](std::uint32_t value) { return static_cast<std::uint8_t>(value); };
        platform::LOGFONTA font{height,
                                width,
                                escapement,
                                orientation,
                                weight,
                                italic != 0,
                                underline != 0,
                                strikeOut != 0,
                                byte(charSet),
                                byte(outPrecision),
                                byte(clipPrecision),
                                byte(quality),
                                byte(pitchAndFamily),
                                {}};
        const std::string_view name = faceName.substr(0, faceName.find('\0'));
        // A name that is too long would be cut to that of another font.
        if (name.size() >= font.lfFaceName.size()) {
            return platform::Handle{0};
        }
        std::ranges::copy(name, font.lfFaceName.begin());
        return graphics.add("font", Font{font});
    };
    gdi32.TextOutA = [&](auto hdc, auto x, auto y, auto text) {
        const auto context = graphics.context(hdc);
        return context && context->textOut({x, y}, textFor(textSetting(*context), machine.codePage, text));
    };
    gdi32.GetTextExtentPoint32A = [&](auto hdc, auto text, auto& size) {
        const auto context = graphics.context(hdc);
        const TextSetting setting = context ? textSetting(*context) : TextSetting();
        if (setting) {
            size = textExtent(setting, textFor(setting, machine.codePage, text));
        }
        return static_cast<bool>(setting);
    };
    gdi32.GetTextMetricsA = [&](auto hdc, auto& metrics) {
        const auto context = graphics.context(hdc);
        const TextSetting setting = context ? textSetting(*context) : TextSetting();
        if (setting) {
            metrics = textMetrics(setting);
        }
        return static_cast<bool>(setting);
    };
    gdi32.EnumFontFamiliesExA = [&](auto hdc, const auto& font, auto procedure) {
        return graphics.context(hdc) && procedure ? listFonts(machine.fonts, machine.codePage, font, procedure) : 0;
    };

    platform::User32& user32 = machine.user32;
    user32.DrawTextA = [&](auto hdc, auto buffer, auto length, auto& area, auto format) {
        return drawTextBytes(machine, hdc, buffer, length, area, format);
    };
    user32.SystemParametersInfoA = [&](auto action, auto parameter, auto record, auto) {
        return systemParameter(machine.config().windows, action, parameter, record);
    };
}

} // namespace mox::host
