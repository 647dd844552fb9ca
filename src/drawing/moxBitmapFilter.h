#pragma once

#include "TRL_OBKR_MOX/moxBitmapFilter.h"

#include "drawing/pixelroutines/pixelwork.h"

#include <functional>

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Makes new pictures of bitmap pictures. Each filter gives Nothing for Nothing, for pictures of other kinds, and when an
/// operation fails; no error reaches the caller. The new picture is a bitmap of 32 bits a pixel, which it owns.
class moxBitmapFilter final : public Implements<moxBitmapFilter> {
public:
    using Picture = Ref<MoxRuntime::IPictureDisp>;

    Picture Brightness(MoxRuntime::IPictureDisp* inPicture, Integer Factor) noexcept;
    Picture Contrast(MoxRuntime::IPictureDisp* inPicture, Integer Factor) noexcept;
    Picture Emboss(MoxRuntime::IPictureDisp* inPicture, Byte Factor) noexcept;
    Picture GrayScale(MoxRuntime::IPictureDisp* inPicture, Long RedFactor, Long GreenFactor, Long BlueFactor) noexcept;
    Picture HSL(MoxRuntime::IPictureDisp* inPicture, Boolean bChangeHue, Byte HueValue, Boolean bChangeSaturation,
                Byte SaturationValue, Boolean bChangeBrightness, Byte Brightness) noexcept;
    Picture Invert(MoxRuntime::IPictureDisp* inPicture) noexcept;
    Picture Neon(MoxRuntime::IPictureDisp* inPicture, Byte Factor, Byte Mode, Boolean bBW) noexcept;
    Picture BlackAndWhite(MoxRuntime::IPictureDisp* inPicture, Byte Factor, MoxRuntime::OLE_COLOR BlackColor,
                          MoxRuntime::OLE_COLOR WhiteColor) noexcept;
    Picture RGB(MoxRuntime::IPictureDisp* inPicture, Byte RedOffset, Byte GreenOffset, Byte BlueOffset, Boolean Overlap) noexcept;

private:
    using Routine = std::function<void(const PixelWork&)>;

    /// The road of every filter: reads the pixels, lets `routine` write those of the new picture. Nothing without a routine.
    Picture filtered(MoxRuntime::IPictureDisp* picture, const Routine& routine) noexcept;
};

} // namespace mox::server
