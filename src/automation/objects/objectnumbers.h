// Numbers that name living objects.
#pragma once

#include "automation/objects/export.h"

#include <mox/values.h>

namespace mox {

/// Names the objects of the calling apartment by 32-bit numbers, for clients that keep an object's address in a `Long`. A number
/// holds no reference, belongs to one object for good, and names nothing once that object is gone.
class MOX_API ObjectNumbers {
public:
    /// The number of an object, the same as long as it lives. Never 0.
    static Long numberOf(IUnknown& object);
    /// The living object of that number in this apartment, or Nothing.
    static Ref<IDispatch> objectOf(Long number);
    /// Takes the number away from an object that ends.
    static void forget(IUnknown* identity) noexcept;
};

} // namespace mox
