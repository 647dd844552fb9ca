// Numbers to text and back, with the conventions of US English.
#pragma once

#include "automation/types/realnumber.h"
#include "automation/types/shorttext.h"

namespace mox::automation {

/// All digits, without an exponent and without zeros at the end of the fraction: "-1234.5".
ShortText numberText(const FixedPoint& number) noexcept;

/// The significant digits without zeros at the end: "0.0001", "1E-05", "123456789012345", "1E+15".
ShortText numberText(const RealNumber& number) noexcept;

/// What "&H" and "&O" texts hold: not a number but the bits of one.
struct BitPattern {
    std::uint64_t bits = 0;
};

/// The bits as those of the target; `DISP_E_OVERFLOW` if it has fewer.
template <std::integral Integer> HRESULT convert(const BitPattern& source, Integer& target) noexcept {
    using Bits = std::make_unsigned_t<Integer>;
    if (source.bits > std::numeric_limits<Bits>::max()) {
        return DISP_E_OVERFLOW;
    }
    target = static_cast<Integer>(static_cast<Bits>(source.bits));
    return S_OK;
}
/// The value that the shorter of a `Long` and a 64-bit integer gives.
inline FixedPoint fixedPoint(const BitPattern& pattern) noexcept {
    std::int32_t narrow = 0;
    return SUCCEEDED(convert(pattern, narrow)) ? fixedPoint(narrow) : fixedPoint(static_cast<std::int64_t>(pattern.bits));
}
inline HRESULT convert(const BitPattern& source, auto& target) noexcept {
    return convert(fixedPoint(source), target);
}
inline bool isZero(const BitPattern& source) noexcept {
    return source.bits == 0;
}

/// A number that was read: digits, or bits.
struct ReadNumber {
    bool isPattern = false;
    BitPattern pattern;
    DecimalDigits digits;
};

/// Reads a whole text as one number: blanks around it, a sign or a currency sign before or behind it, parentheses for a
/// negative amount, thousands separators between digits, a decimal point, an exponent after E or D; or "&H" or "&O" and
/// digits. Fails with `DISP_E_TYPEMISMATCH` for any other text and `DISP_E_OVERFLOW` for a pattern of more than 64 bits.
HRESULT readNumber(std::u16string_view text, ReadNumber& number) noexcept;

} // namespace mox::automation
