// Values as text that a programmer reads: for traces, tools and test messages.
#pragma once

#include "automation/objects/export.h"

#include <mox/abi/interfaces.h>

#include <string>
#include <string_view>

namespace mox::typelib {

/// A value as literal text in UTF-8. By-reference values show what they refer to, strings are quoted and cut after 60 characters,
/// arrays show how many elements they have and the first of them, records their fields, objects the name of their class. Never
/// throws but `std::bad_alloc`.
MOX_API std::string literalOf(const VARIANT& value);

/// A quoted string, cut after 60 characters.
MOX_API std::string quoted(std::u16string_view text);

/// The name of an object's class, or of its interface without the leading underscore; "object" if it does not tell.
MOX_API std::string nameOfObject(IUnknown& object);

} // namespace mox::typelib
