// Calls by name, as late-bound clients make them.
#pragma once

#include <mox/client/object.h>

#include <algorithm>
#include <string>
#include <vector>

namespace mox::test {

/// What a failing call said.
struct Failure {
    HRESULT status = S_OK;
    /// The status behind DISP_E_EXCEPTION.
    HRESULT code = S_OK;
    String description;
    String source;
    UINT badArgument = ~0u;
};

/// A member by name, with positional arguments in declared order. On failure the result is empty and `failure` says why.
inline Variant tryInvoke(IDispatch* object, const std::u16string& name, WORD flags, std::vector<Variant> arguments,
                         Failure& failure) {
    failure = {};
    DISPID id = DISPID_UNKNOWN;
    std::u16string copy = name;
    LPOLESTR names = copy.data();
    failure.status = object->GetIDsOfNames(GUID_NULL, &names, 1, 0, &id);
    if (FAILED(failure.status)) {
        return {};
    }
    std::reverse(arguments.begin(), arguments.end());
    DISPID value = DISPID_PROPERTYPUT;
    const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    DISPPARAMS parameters{arguments.data(), put ? &value : nullptr, static_cast<UINT>(arguments.size()), put ? 1u : 0u};
    Variant result;
    EXCEPINFO exception{};
    failure.status = object->Invoke(id, GUID_NULL, 0, flags, &parameters, result.out(), &exception, &failure.badArgument);
    failure.code = exception.scode;
    failure.source = String::attach(exception.bstrSource);
    failure.description = String::attach(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return result;
}

/// Like `tryInvoke`; a failure is thrown as `Error`.
template <class... Arguments> Variant invoke(IDispatch* object, const std::u16string& name, const Arguments&... arguments) {
    Failure failure;
    Variant result =
        tryInvoke(object, name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::vector<Variant>{Variant(arguments)...}, failure);
    if (FAILED(failure.status)) {
        const HRESULT status = failure.status == DISP_E_EXCEPTION ? failure.code : failure.status;
        throw Error(status, std::move(failure.description), std::move(failure.source));
    }
    return result;
}

/// A by-reference argument of exactly this variable's type.
template <class Value> Variant reference(Value& variable) {
    Variant argument;
    argument.vt = VT_BYREF | variantType<Value>;
    argument.byref = &variable;
    return argument;
}

/// The run-time error number that `body` throws; 0 if it does not.
template <class Body> Long errorOf(Body&& body) {
    try {
        body();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

} // namespace mox::test
