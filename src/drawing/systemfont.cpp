#include "drawing/systemfont.h"

#include "automation/objects/convert.h"
#include "core/ansi.h"
#include "drawing/fontproperties.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

#include <cmath>
#include <string_view>

namespace mox::server {

using namespace platform;

namespace {

std::optional<LOGFONTA> stockFont() {
    LOGFONTA font;
    const Handle stock = gdi32().GetStockObject(SYSTEM_FONT);
    const bool isRead = gdi32().GetObjectA(stock, bytesOf(font)) != 0;
    gdi32().DeleteObject(stock);
    return isRead ? std::optional(font) : std::nullopt;
}

std::optional<LOGFONTA> iconTitleFont() {
    LOGFONTA font;
    const bool isRead = user32().SystemParametersInfoA(SPI_GETICONTITLELOGFONT, sizeof font, bytesOf(font), 0);
    return isRead ? std::optional(font) : std::nullopt;
}

LOGFONTA fontOf(const NONCLIENTMETRICSA& metrics, TRL_OBKR_MOX::FONT_DEFAULT_TYPE place) {
    switch (place) {
    case TRL_OBKR_MOX::FDT_CAPTION:
        return metrics.lfCaptionFont;
    case TRL_OBKR_MOX::FDT_SMALLCAPTION:
        return metrics.lfSmCaptionFont;
    case TRL_OBKR_MOX::FDT_MENU:
        return metrics.lfMenuFont;
    case TRL_OBKR_MOX::FDT_STATUS:
        return metrics.lfStatusFont;
    case TRL_OBKR_MOX::FDT_DIALOG:
        return metrics.lfMessageFont;
    default:
        return {};
    }
}

/// Heights above 0 count as points.
Double pointsOf(Long height) {
    if (height >= 1) {
        return height;
    }
    const Handle display = gdi32().CreateDCA("DISPLAY", "", "", {});
    const Long resolution = gdi32().GetDeviceCaps(display, LOGPIXELSY);
    gdi32().DeleteDC(display);
    return std::abs(divided(72, resolution) * height);
}

} // namespace

std::optional<LOGFONTA> systemFont(TRL_OBKR_MOX::FONT_DEFAULT_TYPE place) {
    switch (place) {
    case TRL_OBKR_MOX::FDT_SYSTEMDEFAULT:
        return stockFont();
    case TRL_OBKR_MOX::FDT_ICONTITLE:
        return iconTitleFont();
    default: {
        NONCLIENTMETRICSA metrics;
        const bool isRead = user32().SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, bytesOf(metrics), 0);
        return isRead ? std::optional(fontOf(metrics, place)) : std::nullopt;
    }
    }
}

void describe(IFontDisp* font, const LOGFONTA& description) {
    putProperty(font, fontName, fromAnsiToNul({description.lfFaceName.data(), description.lfFaceName.size()}));
    putProperty(font, fontSize, pointsOf(description.lfHeight));
    putProperty(font, fontCharset, static_cast<Integer>(description.lfCharSet));
    putProperty(font, fontItalic, Boolean(description.lfItalic != 0));
    putProperty(font, fontUnderline, Boolean(description.lfUnderline != 0));
    putProperty(font, fontStrikethrough, Boolean(description.lfStrikeOut != 0));
    putProperty(font, fontBold, Boolean(description.lfWeight >= 401));
}

} // namespace mox::server
