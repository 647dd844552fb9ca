#include "core/dispatchproperty.h"

#include "automation/objects/runtimeerror.h"

namespace mox::server {

namespace {

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

Variant invoke(IDispatch* object, DISPID id, WORD flags, DISPPARAMS parameters) {
    if (!object) {
        throw RuntimeError(errObjectNotSet);
    }
    Variant result;
    EXCEPINFO exception{};
    const auto status = object->Invoke(id, GUID_NULL, 0, flags, &parameters,
                                       flags == DISPATCH_PROPERTYGET ? result.out() : nullptr, &exception, nullptr);
    if (status == DISP_E_EXCEPTION) {
        raise(exception);
    }
    succeed(status);
    return result;
}

} // namespace

Variant getProperty(IDispatch* object, DISPID id) {
    return invoke(object, id, DISPATCH_PROPERTYGET, {});
}

void putProperty(IDispatch* object, DISPID id, const Variant& value) {
    Variant given = value;
    DISPID name = DISPID_PROPERTYPUT;
    invoke(object, id, DISPATCH_PROPERTYPUT, {&given, &name, 1, 1});
}

} // namespace mox::server
