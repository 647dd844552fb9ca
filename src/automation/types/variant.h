// Steps that the operations on a VARIANT share.
#pragma once

#include <mox/abi/interfaces.h>

namespace mox::automation {

/// The value itself, without the by-reference layers around it. It borrows what `source` owns. Fails with
/// `DISP_E_BADVARTYPE` for a type that a VARIANT cannot have and `E_INVALIDARG` for a reference to nothing.
HRESULT borrowValue(const VARIANT& source, VARIANT& value) noexcept;

/// A copy of `source` that owns what it holds; by-reference values stay references. `copy` is empty if it fails.
HRESULT copyValue(const VARIANT& source, VARIANT& copy) noexcept;

/// Clears `place` and moves `value` into it; if `place` cannot be cleared, it stays and `value` is freed.
HRESULT replaceValue(VARIANT& place, VARIANT& value) noexcept;

} // namespace mox::automation
