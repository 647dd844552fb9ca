#include "drawing/pictureproperties.h"

#include "automation/objects/runtimeerror.h"

namespace mox::server {

namespace {

constexpr DISPID idHandle = 0;
constexpr DISPID idType = 3;
constexpr DISPID idWidth = 4;
constexpr DISPID idHeight = 5;

/// Raises what an object reported with `DISP_E_EXCEPTION`.
[[noreturn]] void raise(EXCEPINFO& exception) {
    if (exception.pfnDeferredFillIn) {
        exception.pfnDeferredFillIn(&exception);
    }
    String description = String::attach(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    if (exception.wCode != 0) {
        throw RuntimeError(exception.wCode, std::move(description));
    }
    const Long number = exception.scode & 0xFFFF;
    if (exception.scode == statusOfRuntimeError(number)) {
        throw RuntimeError(number, std::move(description));
    }
    throw StatusError(FAILED(exception.scode) ? exception.scode : E_FAIL);
}

template <class Value> Value property(MoxRuntime::IPictureDisp* picture, DISPID id) {
    if (!picture) {
        throw RuntimeError(errObjectNotSet);
    }
    DISPPARAMS none{};
    EXCEPINFO exception{};
    Variant value;
    const auto status = picture->Invoke(id, GUID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.out(), &exception, nullptr);
    if (status == DISP_E_EXCEPTION) {
        raise(exception);
    }
    succeed(status);
    return value.as<Value>();
}

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
