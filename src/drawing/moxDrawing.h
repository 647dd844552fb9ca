#pragma once

#include "TRL_OBKR_MOX/moxDrawing.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;
using MoxRuntime::IFontDisp;
using MoxRuntime::IPictureDisp;
using MoxRuntime::OLE_COLOR;

/// Drawing on the caller's device contexts, which keep their objects, modes and colours. Negative colours are the system's.
class moxDrawing final : public Implements<moxDrawing> {
public:
    ~moxDrawing() override;

    Ref<_moxBitmapFilter> get_BitmapFilter();
    Ref<_moxColors> get_Colors();
    Ref<_moxFont> get_Font();
    Ref<_moxScreenShot> get_ScreenShot();

    // Lines, areas and brushes.
    Long CreatePatternBrush(Long& ColorA, Long& ColorB, Long szPattern);
    void FillRect(Long hDC, RECT& rcFill, Long FillColor);
    void FillRect2(Long hDC, Long X1, Long Y1, Long X2, Long Y2, Long FillColor);
    Boolean DrawLine(Long hDC, Long X1, Long Y1, Long X2, Long Y2, Long LineSize, Long LineColor);
    Boolean DrawRect(Long hDC, RECT& rcDraw, Long BorderSize, Long BorderColor, Boolean bFilled, Long FillColor);
    Boolean DrawRect2(Long hDC, Long X1, Long Y1, Long X2, Long Y2, Long BorderSize, Long BorderColor, Boolean bFilled,
                      Long FillColor);

    // Pictures, in moxDrawing_pictures.cpp.
    Boolean DrawPicture(IPictureDisp* objPicture, Long hDC, Long X, Long Y, Long CX, Long CY, Byte AlphaTransparency);
    Boolean DrawBitmap(IPictureDisp* objPicture, Long hDC, Long X, Long Y, Long CX, Long CY, Long xSrc, Long ySrc, Long cxSrc,
                       Long cySrc, Boolean bTile, Boolean DrawTransparent, Long TransparentColor, Byte AlphaTransparency);
    Boolean DrawIcon(IPictureDisp* objPicture, Long hDC, Long X, Long Y, Long CX, Long CY, Byte AlphaTransparency);
    Boolean DrawMetaFile(IPictureDisp* objPicture, Long hDC, Long X, Long Y, Long CX, Long CY, Byte AlphaTransparency);
    Boolean DrawSystemIcon(moX_DRAW_SYSICON eIcon, Long hDC, Long X, Long Y, Long CX, Long CY, Byte AlphaTransparency);

    // Pictures and bytes, in moxDrawing_conversions.cpp.
    Ref<IPictureDisp> BitmapFromByteArray(Array<Byte>& BitmapBytes);
    Boolean BitmapToByteArray(IPictureDisp* objBitmap, Array<Byte>& BitmapBytes);
    Ref<IPictureDisp> CreateOlePictureFromHIcon(Long hIcon);
    Size PictureGetSize(IPictureDisp* objPicture);
    Ref<IPictureDisp> CreateOlePictureFromDC(Long hDC, Long xSrc, Long ySrc, Long cxSrc, Long cySrc);
    Ref<IPictureDisp> CreateOlePictureFromHBitmap(Long hBitmap, Long hPal);
    Ref<_moxOffscreenBuffer> CreateOffscreenBuffer(Long CX, Long CY, OLE_COLOR BackColor);

    // Text, in moxDrawing_text.cpp.
    Long DrawTextF(Long hDC, Long X1, Long Y1, Long& X2, Long& Y2, const String& Text, Long TextColor,
                   moX_DRAW_TXT_FMT TextFormat, IFontDisp* font, Integer Degree, Boolean bUseClearType, Boolean bUseShadow,
                   Long ShadowColor, Boolean bModifyX2Y2);
    Boolean DrawText(Long hDC, Long X1, Long Y1, Long& X2, Long& Y2, const String& Text, Long TextColor,
                     moX_DRAW_TXT_FMT TextFormat, const String& FontName, Single FontSize, MOX_SCALEUNIT FontSizeUnit,
                     Boolean FontBold, Boolean FontItalic, Boolean FontUnderline, Boolean FontStrikeThrough, Integer Degree,
                     Boolean bUseClearType, Boolean bUseShadow, Long ShadowColor, Boolean bModifyX2Y2);

private:
    Ref<_moxBitmapFilter> BitmapFilter;
    Ref<_moxColors> Colors;
    Ref<_moxFont> Font;
    Ref<_moxScreenShot> ScreenShot;
};

} // namespace mox::server
