// Text in rectangles.
#include "drawing/moxDrawing.h"

#include "automation/objects/convert.h"
#include "automation/objects/errormodes.h"
#include "core/ansi.h"
#include "core/systemage.h"
#include "drawing/color.h"
#include "drawing/fontproperties.h"
#include "drawing/textfont.h"

#include "platform/gdi32.h"
#include "platform/user32.h"

#include <span>
#include <string>
#include <string_view>

namespace mox::server {

using namespace platform;

namespace {

/// All bits from 15 on: what makes the end-ellipsis flag of the library, but not the bare bit 15.
constexpr std::uint32_t endEllipsis = 0xFFFF8000;

/// What DrawTextA can put behind a text that it shortens.
constexpr std::size_t ellipsisRoom = 4;

/// A text as DrawTextA takes it: bytes with room behind them, and its number of characters.
class WorkingText {
public:
    explicit WorkingText(const String& text) : bytes_(toAnsi(text)), length_(static_cast<Long>(text.size())) {
        bytes_.append(ellipsisRoom, '\0');
    }

    /// The answer of DrawTextA.
    Long draw(Handle hdc, platform::RECT& area, std::uint32_t format) {
        return user32().DrawTextA(hdc, bytes_, length_, area, format);
    }
    /// Cuts the text at the NUL that a shortening put there.
    void cutAtNul() {
        const std::string_view text = std::string_view(bytes_).substr(0, bytes_.find('\0'));
        *this = WorkingText(fromAnsi(text));
    }

private:
    std::string bytes_;
    Long length_;
};

/// The context's text colour while it is another one.
class TextColor {
public:
    TextColor(Handle hdc, Long color) : hdc_(hdc), before_(gdi32().SetTextColor(hdc, toColorRef(color))) {}
    TextColor(const TextColor&) = delete;
    TextColor& operator=(const TextColor&) = delete;
    ~TextColor() { gdi32().SetTextColor(hdc_, before_); }

private:
    const Handle hdc_;
    const COLORREF before_;
};

/// The context without a ground behind its text.
class TransparentGround {
public:
    explicit TransparentGround(Handle hdc) : hdc_(hdc), before_(gdi32().SetBkMode(hdc, TRANSPARENT)) {}
    TransparentGround(const TransparentGround&) = delete;
    TransparentGround& operator=(const TransparentGround&) = delete;
    ~TransparentGround() { gdi32().SetBkMode(hdc_, before_); }

private:
    const Handle hdc_;
    const Long before_;
};

/// Dots per inch along a text of that angle.
Long resolutionAt(Handle hdc, Integer degree) {
    const Long horizontal = gdi32().GetDeviceCaps(hdc, LOGPIXELSX);
    const Long vertical = gdi32().GetDeviceCaps(hdc, LOGPIXELSY);
    switch (degree) {
    case 0:
    case 180:
        return horizontal;
    case 90:
    case 270:
        return vertical;
    default:
        return toLong((static_cast<Double>(horizontal) + vertical) / 2);
    }
}

/// In device pixels; 0, the default height, for a unit that does not exist.
Long pixelHeight(Single size, MOX_SCALEUNIT unit, Long resolution) {
    const Double height = static_cast<Double>(size);
    switch (unit) {
    case suTWIP:
        return toLong(height * resolution / 1440);
    case suPOINTS:
        return toLong(height * resolution / 72);
    case suPIXEL:
        return toLong(height);
    case suINCH:
        return toLong(height * resolution);
    case suMM:
        return toLong(height * resolution / 25.4);
    case suCM:
        return toLong(height * resolution / 2.54);
    }
    return 0;
}

/// The text as it stands in the rectangle with dots at its end. Drawn where nobody sees it, as only drawing shortens it.
void shortenAtEnd(Handle hdc, WorkingText& text, platform::RECT& area, std::uint32_t format) {
    constexpr Long outOfSight = 5000;
    user32().OffsetRect(area, outOfSight, 0);
    text.draw(hdc, area, format | DT_MODIFYSTRING);
    user32().OffsetRect(area, -outOfSight, 0);
    text.cutAtNul();
}

} // namespace

Long moxDrawing::DrawTextF(Long hDC, Long X1, Long Y1, Long& X2, Long& Y2, const String& Text, Long TextColor,
                           moX_DRAW_TXT_FMT TextFormat, IFontDisp* font, Integer Degree, Boolean bUseClearType,
                           Boolean bUseShadow, Long ShadowColor, Boolean bModifyX2Y2) {
    String name;
    Single size = 0;
    Boolean bold = False;
    Boolean italic = False;
    Boolean underline = False;
    Boolean strikethrough = False;
    if (font) {
        name = property<String>(font, fontName);
        size = property<Single>(font, fontSize);
        bold = property<Boolean>(font, fontBold);
        italic = property<Boolean>(font, fontItalic);
        underline = property<Boolean>(font, fontUnderline);
        strikethrough = property<Boolean>(font, fontStrikethrough);
    }
    return DrawText(hDC, X1, Y1, X2, Y2, Text, TextColor, TextFormat, name, size, suPOINTS, bold, italic, underline,
                    strikethrough, Degree, bUseClearType, bUseShadow, ShadowColor, bModifyX2Y2)
               ? -1
               : 0;
}

Boolean moxDrawing::DrawText(Long hDC, Long X1, Long Y1, Long& X2, Long& Y2, const String& Text, Long textColor,
                             moX_DRAW_TXT_FMT TextFormat, const String& FontName, Single FontSize, MOX_SCALEUNIT FontSizeUnit,
                             Boolean FontBold, Boolean FontItalic, Boolean FontUnderline, Boolean FontStrikeThrough,
                             Integer Degree, Boolean bUseClearType, Boolean bUseShadow, Long ShadowColor, Boolean bModifyX2Y2) {
    TextFont font(hDC);
    if (!FontName.empty() && FontSize > 0) {
        FontRequest request;
        Long resolution = 0;
        request.escapement = Degree * 10;
        request.isBold = FontBold != False;
        request.isItalic = FontItalic != False;
        request.isUnderlined = FontUnderline != False;
        request.isStruckOut = FontStrikeThrough != False;
        carryOn([&] { request.quality = textQuality(bUseClearType); }, [&] { resolution = resolutionAt(hDC, Degree); },
                [&] { request.characterHeight = pixelHeight(FontSize, FontSizeUnit, resolution); },
                [&] {
                    request.name = FontName;
                    font.select(request);
                });
    }
    const TransparentGround ground(hDC);
    platform::RECT area{X1, Y1, X2, Y2};
    WorkingText text(Text);
    auto format = static_cast<std::uint32_t>(TextFormat);
    if ((format & endEllipsis) == endEllipsis && isSystemAtLeast(os_XP)) {
        shortenAtEnd(hDC, text, area, format);
        format &= 0x7FFF;
    }
    if (bUseShadow) {
        const TextColor shadow(hDC, ShadowColor);
        user32().OffsetRect(area, 1, 1);
        text.draw(hDC, area, format);
        user32().OffsetRect(area, -1, -1);
    }
    bool isDrawn = false;
    {
        const TextColor color(hDC, textColor);
        isDrawn = text.draw(hDC, area, format) != 0;
    }
    if (bModifyX2Y2) {
        platform::RECT measured = area;
        text.draw(hDC, measured, format | DT_CALCRECT);
        X2 = measured.right;
        Y2 = measured.bottom;
    }
    return isDrawn;
}

} // namespace mox::server
