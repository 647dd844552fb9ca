#pragma once

#include "TRL_OBKR_MOX/moxColors.h"

#include <array>

namespace mox::server {

using namespace TRL_OBKR_MOX;
using MoxRuntime::OLE_COLOR;

/// Colour conversions. A negative colour is one of the system's and is looked up first. No member raises an error.
class moxColors final : public Implements<moxColors> {
public:
    OLE_COLOR HTML2RGB(const String& htmlColor);
    String RGB2HTML(OLE_COLOR Color);
    Long CMY2RGB(Long Cyan, Long Magenta, Long Yellow);
    Long CMY2RGB2(moX_CMY& CMY);
    Long CMYK2RGB(Long Cyan, Long Magenta, Long Yellow, Long BlacK);
    Long CMYK2RGB2(moX_CMYK& CMYK);
    Long ConvertOleColor(OLE_COLOR Color);
    Long HSL2RGB2(moX_HSL& HSL, Boolean bValidate);
    void HSLValidate2(moX_HSL& HSL);
    void RGB2CMY(OLE_COLOR Color, Long& Cyan, Long& Magenta, Long& Yellow);
    moX_CMY RGB2CMY2(OLE_COLOR Color);
    void RGB2CMYK(OLE_COLOR Color, Long& Cyan, Long& Magenta, Long& Yellow, Long& BlacK);
    moX_CMYK RGB2CMYK2(OLE_COLOR Color);
    /// `Hue` and `Saturation` stay as they are for a grey.
    void RGB2HSL(OLE_COLOR Color, Long& Hue, Long& Saturation, Long& Luminance);
    /// In moxColors_system.cpp.
    Long get_SystemColor(moX_DRAW_SYSCOLOR eColor);
    Long GrayScale(OLE_COLOR Color);
    void HSLValidate(Long& Hue, Long& Saturation, Long& Luminance);
    moX_HSL RGB2HSL2(OLE_COLOR Color);
    void RGBSplit(OLE_COLOR Color, Long& Red, Long& Green, Long& Blue);
    Long HSL2RGB(Long Hue, Long Saturation, Long Luminance, Boolean bValidate);

private:
    void fillTables();

    // For speed only; filled when they are first needed. `percentOf_[255]` is 0 before.
    std::array<Long, 256> percentOf_{};
    std::array<Single, 256> degreesPer_{};
};

} // namespace mox::server
