#include "automation/types/realnumber.h"

namespace mox::automation {

HRESULT convert(const RealNumber& source, float& target) noexcept {
    const auto value = static_cast<float>(source.value);
    if (std::isinf(value)) {
        return DISP_E_OVERFLOW;
    }
    target = value;
    return S_OK;
}

HRESULT convert(const RealNumber& source, double& target) noexcept {
    target = source.value;
    return S_OK;
}

HRESULT convert(const RealNumber& source, CY& target) noexcept {
    constexpr double exact = 1LL << std::numeric_limits<double>::digits;
    const double product = source.value * 10000;
    if (std::fabs(product) < exact) {
        return convert(RealNumber{product}, target.int64);
    }
    // The product has lost digits of the number. Its fraction has at most 13 binary places left, so that with this many
    // digits it stays on its side of every tie.
    constexpr int enough = 19;
    return std::isfinite(product) ? convert(decimalDigits(source.value, enough), target) : DISP_E_OVERFLOW;
}

HRESULT convert(const RealNumber& source, DECIMAL& target) noexcept {
    return std::isfinite(source.value) ? convert(decimalDigits(source.value, source.significant), target) : DISP_E_OVERFLOW;
}

} // namespace mox::automation
