#pragma once

#include "TRL_OBKR_MOX/moxFont.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;
using MoxRuntime::IFontDisp;

/// Font objects, sizes of text, lists of fonts. Every font that it makes is a font object of the run-time layer.
class moxFont final : public Implements<moxFont> {
public:
    ~moxFont() override;

    /// A plain font object if the system does not tell.
    Ref<IFontDisp> CreateDefaultFont(FONT_DEFAULT_TYPE Index);
    /// What a font object refuses stays as it was made.
    Ref<IFontDisp> CreateFont(const String& Name, Single Size, Boolean Bold, Boolean Italic, Boolean Underline,
                              Boolean Strikethrough);
    TRL_OBKR_MOX::Size GetTextExtent(const String& Text, IFontDisp* Font, Boolean bUseMnemonic, Boolean bExpandTabs,
                                     Boolean bUseClearType, Double Zoomfactor, Long Angle10);
    Ref<IFontDisp> Clone(IFontDisp* Font2Clone);
    void CopyProperties(IFontDisp* srcFont, IFontDisp* dstFont);
    Boolean IsEqual(IFontDisp* FontA, IFontDisp* FontB);
    /// Listed again for another context only.
    Ref<_moxFontEnumeration> get_PrinterFonts(Long PrnDC);
    /// Listed once.
    Ref<_moxFontEnumeration> get_ScreenFonts();

private:
    Ref<_moxFontEnumeration> screenFonts_;
    Ref<_moxFontEnumeration> printerFonts_;
};

} // namespace mox::server
