// The values of an enum and the fields of a record, found by name and by identifier.
#pragma once

#include "automation/typelib/description.h"

namespace mox::typelib {

/// Member identifiers of enum values and record fields start here.
inline constexpr MEMBERID firstVariableId = 0x40000000;

struct NamedVariable {
    const char16_t* name = nullptr;
    const char16_t* help = nullptr;
    MEMBERID id = MEMBERID_NIL;

    explicit operator bool() const noexcept { return name != nullptr; }
    /// Its position in the type.
    std::size_t index() const noexcept { return static_cast<std::size_t>(id - firstVariableId); }
};

/// Nothing if the type has no such variable.
NamedVariable findVariable(const TypeDescription& type, const char16_t* name) noexcept;
NamedVariable findVariable(const TypeDescription& type, MEMBERID id) noexcept;

} // namespace mox::typelib
