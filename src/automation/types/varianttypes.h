// Which types a VARIANT may hold, and which of them own something.
#pragma once

#include <mox/abi/variant.h>

#include <initializer_list>

namespace mox::automation {

/// A set of the types below 64, one bit each.
class TypeSet {
public:
    constexpr TypeSet(std::initializer_list<VARTYPE> types) {
        for (const VARTYPE type : types) {
            bits_ |= std::uint64_t{1} << type;
        }
    }
    constexpr bool contains(VARTYPE type) const { return type < 64 && (bits_ >> type & 1) != 0; }

private:
    std::uint64_t bits_ = 0;
};

/// Types whose value lies whole in the VARIANT.
inline constexpr TypeSet plainTypes{VT_EMPTY,   VT_NULL, VT_I2,  VT_I4,  VT_R4,  VT_R8, VT_CY,  VT_DATE, VT_ERROR, VT_BOOL,
                                    VT_DECIMAL, VT_I1,   VT_UI1, VT_UI2, VT_UI4, VT_I8, VT_UI8, VT_INT,  VT_UINT};

/// Types that own something outside of the VARIANT.
inline constexpr TypeSet owningTypes{VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_RECORD};

/// Types that an array element or a by-reference VARIANT may have.
inline constexpr TypeSet elementTypes{VT_I2,      VT_I4,      VT_R4,  VT_R8,   VT_CY,      VT_DATE,  VT_BSTR, VT_DISPATCH,
                                      VT_ERROR,   VT_BOOL,    VT_I1,  VT_UI1,  VT_UI2,     VT_UI4,   VT_I8,   VT_UI8,
                                      VT_UNKNOWN, VT_VARIANT, VT_INT, VT_UINT, VT_DECIMAL, VT_RECORD};

/// Whether a VARIANT may have this type.
constexpr bool isVariantType(VARTYPE type) {
    const VARTYPE base = type & VT_TYPEMASK;
    const VARTYPE additions = type & ~VT_TYPEMASK;
    if ((additions & ~(VT_ARRAY | VT_BYREF)) != 0) {
        return false;
    }
    return additions != 0 ? elementTypes.contains(base) : plainTypes.contains(base) || owningTypes.contains(base);
}

} // namespace mox::automation
