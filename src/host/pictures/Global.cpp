#include "host/pictures/Global.h"

#include "host/pictures/Screen.h"
#include "host/pictures/StdPicture.h"

namespace mox::runtime {

namespace {

bool isMissing(const Variant& argument) {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

} // namespace

Ref<MoxRuntime::_Screen> Global::get_Screen() const {
    return makeObject<Screen>();
}

void Global::Load(IDispatch*) const {
    throw RuntimeError(errActionNotSupported);
}

void Global::Unload(IDispatch*) const {
    throw RuntimeError(errActionNotSupported);
}

Ref<MoxRuntime::IPictureDisp> Global::LoadPicture(const Variant& fileName) const {
    if (!isMissing(fileName)) {
        throw RuntimeError(errActionNotSupported);
    }
    return makeObject<StdPicture>();
}

void Global::SavePicture(MoxRuntime::IPictureDisp*, const String&) const {
    throw RuntimeError(errActionNotSupported);
}

} // namespace mox::runtime
