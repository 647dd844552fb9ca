#include "drawing/moxFont.h"

#include "automation/objects/convert.h"
#include "automation/objects/errormodes.h"
#include "core/ansi.h"
#include "core/classes.h"
#include "core/release.h"
#include "drawing/fontproperties.h"
#include "drawing/moxFontEnumeration.h"
#include "drawing/systemfont.h"
#include "drawing/textfont.h"

#include "platform/gdi32.h"
#include "platform/runtime.h"
#include "platform/user32.h"

#include <string>

namespace mox::server {

using namespace platform;

namespace {

/// The properties that make a font, in the order in which they are set. Name and size go in twice: an object may change the one
/// to what the other allows.
constexpr DISPID madeOf[] = {fontName, fontSize, fontName, fontSize, fontBold, fontItalic, fontUnderline, fontStrikethrough};

/// In pixels of the screen.
Long zoomedHeight(Currency size, Double zoomFactor) {
    return toLong(
        checked(divided(static_cast<Double>(size.tenThousandths) / 10000 * 20, runtime().ScreenTwipsPerPixelY()) * zoomFactor));
}

/// A memory context of the screen for one measurement.
class MeasuringContext {
public:
    MeasuringContext() : handle_(gdi32().CreateCompatibleDC(0)) {}
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;
    ~MeasuringContext() { gdi32().DeleteDC(handle_); }

    Handle handle() const noexcept { return handle_; }

private:
    const Handle handle_;
};

} // namespace

moxFont::~moxFont() {
    releaseInOrder(screenFonts_, printerFonts_);
}

Ref<IFontDisp> moxFont::CreateDefaultFont(FONT_DEFAULT_TYPE Index) {
    Ref<IFontDisp> font;
    trapAndLeave([&] {
        font = newFont();
        if (const auto description = systemFont(Index)) {
            describe(font.get(), *description);
        }
    });
    return font;
}

Ref<IFontDisp> moxFont::CreateFont(const String& Name, Single Size, Boolean Bold, Boolean Italic, Boolean Underline,
                                   Boolean Strikethrough) {
    Ref<IFontDisp> font;
    carryOn([&] { font = newFont(); });
    const Variant values[] = {Name, Size, Name, Size, Bold, Italic, Underline, Strikethrough};
    for (std::size_t place = 0; place < std::size(madeOf); ++place) {
        carryOn([&] { putProperty(font.get(), madeOf[place], values[place]); });
    }
    return font;
}

TRL_OBKR_MOX::Size moxFont::GetTextExtent(const String& Text, IFontDisp* Font, Boolean bUseMnemonic, Boolean bExpandTabs,
                                          Boolean bUseClearType, Double Zoomfactor, Long Angle10) {
    const MeasuringContext context;
    TextFont selected(context.handle());
    if (Font) {
        FontRequest request;
        request.escapement = Angle10;
        carryOn([&] { request.quality = textQuality(bUseClearType); },
                [&] { request.characterHeight = zoomedHeight(property<Currency>(Font, fontSize), Zoomfactor); },
                [&] {
                    request.isBold = property<Boolean>(Font, fontBold) != False;
                    request.isItalic = property<Boolean>(Font, fontItalic) != False;
                    request.isUnderlined = property<Boolean>(Font, fontUnderline) != False;
                    request.isStruckOut = property<Boolean>(Font, fontStrikethrough) != False;
                    request.name = property<String>(Font, fontName);
                    selected.select(request);
                });
    }
    const std::uint32_t format = DT_CALCRECT | (bUseMnemonic ? 0 : DT_NOPREFIX) | (bExpandTabs ? DT_EXPANDTABS : 0);
    std::string text = Text.empty() ? " " : toAnsi(Text);
    const Long length = Text.empty() ? 1 : static_cast<Long>(Text.size());
    platform::RECT area;
    user32().DrawTextA(context.handle(), text, length, area, format);
    TRL_OBKR_MOX::Size size;
    size.CX = Text.empty() ? 0 : area.right - area.left;
    size.CY = area.bottom - area.top;
    return size;
}

Ref<IFontDisp> moxFont::Clone(IFontDisp* Font2Clone) {
    Ref<IFontDisp> font = newFont();
    CopyProperties(Font2Clone, font.get());
    return font;
}

void moxFont::CopyProperties(IFontDisp* srcFont, IFontDisp* dstFont) {
    for (const DISPID id : madeOf) {
        putProperty(dstFont, id, getProperty(srcFont, id));
    }
}

Boolean moxFont::IsEqual(IFontDisp* FontA, IFontDisp* FontB) {
    if (!FontA || !FontB) {
        return FontA == FontB;
    }
    const auto agree = [&]<class Value>(DISPID id, const Value&) {
        return property<Value>(FontA, id) == property<Value>(FontB, id);
    };
    return agree(fontName, String()) && agree(fontSize, Currency()) && agree(fontBold, Boolean()) &&
           agree(fontItalic, Boolean()) && agree(fontUnderline, Boolean()) && agree(fontStrikethrough, Boolean());
}

Ref<_moxFontEnumeration> moxFont::get_PrinterFonts(Long PrnDC) {
    const auto fonts = child(printerFonts_);
    implementationOf<moxFontEnumeration>(fonts.get())->Enumerate(PrnDC);
    return fonts;
}

Ref<_moxFontEnumeration> moxFont::get_ScreenFonts() {
    if (!screenFonts_) {
        implementationOf<moxFontEnumeration>(child(screenFonts_).get())->Enumerate(0);
    }
    return screenFonts_;
}

} // namespace mox::server
