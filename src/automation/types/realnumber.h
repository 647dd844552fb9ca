// Floating numbers as a source of conversions.
#pragma once

#include "automation/types/decimaldigits.h"

#include <cmath>

namespace mox::automation {

/// A floating number with the count of decimal digits that it is good for: 7 of a `Single`, 15 of a `Double`.
struct RealNumber {
    double value = 0;
    int significant = 15;
};

/// The nearest integer, a tie to the even one.
template <std::integral Integer> HRESULT convert(const RealNumber& source, Integer& target) noexcept {
    constexpr double least = static_cast<double>(std::numeric_limits<Integer>::min());
    // One above the largest integer, which is exact also where the largest itself is not.
    constexpr double end = 2.0 * static_cast<double>(std::numeric_limits<Integer>::max() / 2 + 1);
    const double rounded = std::nearbyint(source.value);
    if (!(rounded >= least && rounded < end)) {
        return DISP_E_OVERFLOW;
    }
    target = static_cast<Integer>(rounded);
    return S_OK;
}
HRESULT convert(const RealNumber& source, float& target) noexcept;
HRESULT convert(const RealNumber& source, double& target) noexcept;
HRESULT convert(const RealNumber& source, CY& target) noexcept;
/// Takes the significant digits only, so that 0.1 is a tenth.
HRESULT convert(const RealNumber& source, DECIMAL& target) noexcept;
inline bool isZero(const RealNumber& source) noexcept {
    return source.value == 0;
}

} // namespace mox::automation
