// Pictures from handles, contexts and bytes, and back.
#include "drawing/moxDrawing.h"

#include "automation/objects/errormodes.h"
#include "core/statement.h"
#include "drawing/buffers.h"
#include "drawing/modDrawing.h"

#include "platform/runtime.h"

#include <utility>

namespace mox::server {

namespace {

constexpr std::u16string_view pictureBytes = u"PictureBytes";
/// The highest upper bound of an array that holds no picture yet.
constexpr Long tooShort = 12;

Ref<MoxRuntime::_PropertyBag> newPropertyBag() {
    Ref<IDispatch> object;
    statement(platform::runtime().New(MoxRuntime::CLSID_PropertyBag, object));
    return object.as<MoxRuntime::_PropertyBag>();
}

/// The upper bound; error 9 for an array that was never dimensioned.
Long upperBound(const Array<Byte>& bytes) {
    if (!bytes.get()) {
        throw RuntimeError(errSubscript);
    }
    return bytes.upper();
}

} // namespace

Ref<IPictureDisp> moxDrawing::BitmapFromByteArray(Array<Byte>& BitmapBytes) {
    Ref<IPictureDisp> result;
    trapAndLeave([&] {
        if (upperBound(BitmapBytes) <= tooShort) {
            return;
        }
        const auto bag = newPropertyBag();
        succeed(bag->raw_put_Contents(Variant(BitmapBytes)));
        Variant picture;
        succeed(bag->raw_ReadProperty(String(pictureBytes).get(), Variant::missing(), picture.out()));
        result = picture.as<Ref<IDispatch>>().as<IPictureDisp>();
    });
    return result;
}

Boolean moxDrawing::BitmapToByteArray(IPictureDisp* objBitmap, Array<Byte>& BitmapBytes) {
    Boolean result = False;
    trapAndLeave([&] {
        BitmapBytes.redim(0, 0);
        const auto bag = newPropertyBag();
        succeed(bag->raw_WriteProperty(String(pictureBytes).get(), Variant(Ref<IDispatch>(objBitmap)), Variant::missing()));
        Variant contents;
        succeed(bag->raw_get_Contents(contents.out()));
        BitmapBytes = contents.as<Array<Byte>>();
        result = upperBound(BitmapBytes) > tooShort;
    });
    return result;
}

Ref<IPictureDisp> moxDrawing::CreateOlePictureFromHIcon(Long hIcon) {
    return modDrawing::PictureFromHandle(hIcon, 0, true);
}

Ref<IPictureDisp> moxDrawing::CreateOlePictureFromHBitmap(Long hBitmap, Long hPal) {
    return modDrawing::PictureFromHandle(hBitmap, hPal, false);
}

Ref<IPictureDisp> moxDrawing::CreateOlePictureFromDC(Long hDC, Long xSrc, Long ySrc, Long cxSrc, Long cySrc) {
    return modDrawing::PictureFromDC(hDC, xSrc, ySrc, cxSrc, cySrc);
}

Size moxDrawing::PictureGetSize(IPictureDisp* objPicture) {
    return naturalSize(objPicture);
}

Ref<_moxOffscreenBuffer> moxDrawing::CreateOffscreenBuffer(Long CX, Long CY, OLE_COLOR BackColor) {
    return newBuffer(CX, CY, BackColor);
}

} // namespace mox::server
