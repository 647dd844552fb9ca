#include "drawing/pictureproperties.h"

#include "core/dispatchproperty.h"

namespace mox::server {

namespace {

constexpr DISPID idHandle = 0;
constexpr DISPID idType = 3;
constexpr DISPID idWidth = 4;
constexpr DISPID idHeight = 5;

} // namespace

Integer pictureType(MoxRuntime::IPictureDisp* picture) {
    return property<Integer>(picture, idType);
}

Long pictureHandle(MoxRuntime::IPictureDisp* picture) {
    return property<Long>(picture, idHandle);
}

Long pictureWidth(MoxRuntime::IPictureDisp* picture) {
    return property<Long>(picture, idWidth);
}

Long pictureHeight(MoxRuntime::IPictureDisp* picture) {
    return property<Long>(picture, idHeight);
}

} // namespace mox::server
