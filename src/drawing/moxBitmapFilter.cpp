#include "drawing/moxBitmapFilter.h"

#include "automation/objects/errormodes.h"
#include "drawing/bitmappixels.h"
#include "drawing/color.h"
#include "drawing/pictureproperties.h"
#include "drawing/pixelroutines/blackandwhite.h"
#include "drawing/pixelroutines/brightness.h"
#include "drawing/pixelroutines/contrast.h"
#include "drawing/pixelroutines/emboss.h"
#include "drawing/pixelroutines/grayscale.h"
#include "drawing/pixelroutines/hsl.h"
#include "drawing/pixelroutines/invert.h"
#include "drawing/pixelroutines/neon.h"
#include "drawing/pixelroutines/rgb.h"

#include "platform/oleaut32.h"

namespace mox::server {

namespace {

/// The pixel of a colour, in which red and blue have changed places.
std::uint32_t pixelOf(MoxRuntime::OLE_COLOR color) {
    const auto value = static_cast<std::uint32_t>(resolvedColor(color));
    return colorOf(redOf(value), greenOf(value), blueOf(value));
}

std::optional<Byte> changed(Boolean isChanged, Byte value) {
    return isChanged ? std::optional(value) : std::nullopt;
}

} // namespace

moxBitmapFilter::Picture moxBitmapFilter::filtered(IPictureDisp* picture, const Routine& routine) noexcept {
    Picture result;
    trapAndLeave([&] {
        if (!picture || pictureType(picture) != platform::PICTYPE_BITMAP) {
            return;
        }
        const std::optional<BitmapPixels> source = GetBitmapPixels(picture);
        if (!source || !routine) {
            return;
        }
        // The routine writes all pixels, so it can work into the new bitmap without a buffer between.
        PixelSection target(source->width, source->height);
        if (target.pixels().empty()) {
            return;
        }
        routine(
            {source->all(), target.pixels(), static_cast<std::size_t>(source->width), static_cast<std::size_t>(source->height)});
        result = target.toPicture();
    });
    return result;
}

moxBitmapFilter::Picture moxBitmapFilter::Brightness(IPictureDisp* inPicture, Integer Factor) noexcept {
    if (Factor > mostBrightness) {
        return filtered(inPicture, nullptr);
    }
    return filtered(inPicture, [&](const PixelWork& work) { brightness(work, Factor); });
}

moxBitmapFilter::Picture moxBitmapFilter::Contrast(IPictureDisp* inPicture, Integer Factor) noexcept {
    return filtered(inPicture, [&](const PixelWork& work) { contrast(work, Factor); });
}

moxBitmapFilter::Picture moxBitmapFilter::Emboss(IPictureDisp* inPicture, Byte Factor) noexcept {
    return filtered(inPicture, [&](const PixelWork& work) { emboss(work, Factor); });
}

moxBitmapFilter::Picture moxBitmapFilter::GrayScale(IPictureDisp* inPicture, Long RedFactor, Long GreenFactor,
                                                    Long BlueFactor) noexcept {
    // In the order of the arguments they weigh the bytes in the order of memory: the first one blue.
    return filtered(inPicture, [&](const PixelWork& work) { grayScale(work, {RedFactor, GreenFactor, BlueFactor}); });
}

moxBitmapFilter::Picture moxBitmapFilter::HSL(IPictureDisp* inPicture, Boolean bChangeHue, Byte HueValue,
                                              Boolean bChangeSaturation, Byte SaturationValue, Boolean bChangeBrightness,
                                              Byte Brightness) noexcept {
    const HslChange change{changed(bChangeHue, HueValue), changed(bChangeSaturation, SaturationValue),
                           changed(bChangeBrightness, Brightness)};
    return filtered(inPicture, [&](const PixelWork& work) { hsl(work, change); });
}

moxBitmapFilter::Picture moxBitmapFilter::Invert(IPictureDisp* inPicture) noexcept {
    return filtered(inPicture, [](const PixelWork& work) { invert(work); });
}

moxBitmapFilter::Picture moxBitmapFilter::Neon(IPictureDisp* inPicture, Byte Factor, Byte Mode, Boolean bBW) noexcept {
    return filtered(inPicture, [&](const PixelWork& work) { neon(work, Factor, Mode, static_cast<bool>(bBW)); });
}

moxBitmapFilter::Picture moxBitmapFilter::BlackAndWhite(IPictureDisp* inPicture, Byte Factor, MoxRuntime::OLE_COLOR BlackColor,
                                                        MoxRuntime::OLE_COLOR WhiteColor) noexcept {
    Picture result;
    trapAndLeave([&] {
        const std::uint32_t black = pixelOf(BlackColor);
        const std::uint32_t white = pixelOf(WhiteColor);
        result = filtered(inPicture, [&](const PixelWork& work) { blackAndWhite(work, Factor, black, white); });
    });
    return result;
}

moxBitmapFilter::Picture moxBitmapFilter::RGB(IPictureDisp* inPicture, Byte RedOffset, Byte GreenOffset, Byte BlueOffset,
                                              Boolean Overlap) noexcept {
    const RgbOffsets offsets{RedOffset, GreenOffset, BlueOffset, static_cast<bool>(Overlap)};
    return filtered(inPicture, [&](const PixelWork& work) { rgb(work, offsets); });
}

} // namespace mox::server
