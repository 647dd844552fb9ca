// Properties of objects that are reached by their Automation identifiers alone: fonts and pictures of any maker.
#pragma once

#include <mox/values.h>

namespace mox::server {

/// Error 91 for Nothing, else the error that the object raises.
Variant getProperty(IDispatch* object, DISPID id);
void putProperty(IDispatch* object, DISPID id, const Variant& value);

/// Converted to the type asked for; error 13 if that cannot be.
template <class Value> Value property(IDispatch* object, DISPID id) {
    return getProperty(object, id).as<Value>();
}

} // namespace mox::server
