// Dispatch calls in short.
#pragma once

#include "automation/typelib/library.h"
#include "sample_library.h"

#include <mox/values.h>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace mox::test {

/// A by-reference argument onto a place of the test. An object is given as plain IDispatch, as clients have it.
template <class Value> Variant byRef(Value& place) {
    VARIANT argument{};
    argument.vt = VT_BYREF | variantType<Value>;
    argument.byref = &place;
    return Variant::attach(argument);
}
inline Variant byRef(Variant& place) {
    VARIANT argument{};
    argument.vt = VT_BYREF | VT_VARIANT;
    argument.pvarVal = &place;
    return Variant::attach(argument);
}

struct Named {
    DISPID id;
    Variant value;
};

/// What came out of a call.
struct Outcome {
    HRESULT status = S_OK;
    Variant result;
    SCODE scode = S_OK;
    String source;
    String description;
    /// 99 if the call did not say.
    UINT badArgument = 99;
};

/// Arguments in the order of the declaration, then the named ones as they are to stand in the call.
inline Outcome invoke(IDispatch& object, DISPID id, WORD flags, std::vector<Variant> arguments, std::vector<Named> named = {}) {
    std::vector<VARIANT> given;
    std::vector<DISPID> ids;
    for (const Named& argument : named) {
        given.push_back(argument.value);
        ids.push_back(argument.id);
    }
    given.insert(given.end(), arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters{given.data(), ids.data(), static_cast<UINT>(given.size()), static_cast<UINT>(ids.size())};
    Outcome outcome;
    EXCEPINFO exception{};
    outcome.status = object.Invoke(id, GUID_NULL, 0, flags, &parameters, &outcome.result, &exception, &outcome.badArgument);
    outcome.scode = exception.scode;
    outcome.source = String::attach(exception.bstrSource);
    outcome.description = String::attach(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return outcome;
}

/// A sample object and calls of it. Nothing of the library may be left at the end.
struct DispatchTest : testing::Test {
    DispatchTest() { typelib::addLibrary(sample::sampleLibrary); }
    ~DispatchTest() override {
        object = nullptr;
        EXPECT_EQ(sample::sampleState.locks, 0);
        typelib::removeLibrary(sample::sampleLibrary);
    }
    Outcome method(DISPID id, std::vector<Variant> arguments, std::vector<Named> named = {}) {
        return invoke(*object, id, DISPATCH_METHOD, std::move(arguments), std::move(named));
    }
    Outcome get(DISPID id, std::vector<Variant> arguments = {}) {
        return invoke(*object, id, DISPATCH_PROPERTYGET, std::move(arguments));
    }
    Outcome put(DISPID id, Variant value, WORD flags = DISPATCH_PROPERTYPUT, std::vector<Variant> arguments = {}) {
        return invoke(*object, id, flags, std::move(arguments), {{DISPID_PROPERTYPUT, std::move(value)}});
    }

    Ref<sample::ISample> object = sample::makeSample();
};

} // namespace mox::test
