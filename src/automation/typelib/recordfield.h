// One field of a record value, read and written as a variant.
#pragma once

#include "automation/typelib/description.h"

#include <mox/values.h>

namespace mox::typelib {

/// A field of a certain record value, which has to outlive it.
class RecordField {
public:
    RecordField(const Field& field, void* record) noexcept;

    /// The field's variant type.
    VARTYPE variant() const noexcept { return variant_; }
    /// A by-reference variant onto the field. It owns nothing.
    HRESULT view(VARIANT& result) const noexcept;
    /// Assigns `value`, converted to the field's type. Takes `value` over if it succeeds.
    HRESULT assign(Variant& value) const noexcept;
    /// Assigns the way that `object.Field = value` does without Set: an object in the field gets the value for its default
    /// property, and a variant field gets the default property of an object rather than the object.
    HRESULT assignByValue(Variant& value) const noexcept;

private:
    HRESULT assignArray(Variant& value) const noexcept;
    HRESULT assignRecord(Variant& value) const noexcept;
    HRESULT assignObject(Variant& value) const noexcept;
    HRESULT exchange(Variant& value) const noexcept;

    /// The declared type, behind all aliases.
    const TypeReference& type_;
    VARTYPE variant_;
    void* place_;
};

} // namespace mox::typelib
