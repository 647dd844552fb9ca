// Random values through every conversion: nothing crashes or leaks, a failure changes nothing, a conversion in place gives
// the same as one elsewhere, and what has to come back from its text does.
#include "require.h"

#include <mox/values.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>

using namespace mox;

namespace {

/// A type with the size of its value, 0 for one that owns something or that has no value.
struct Type {
    VARTYPE type;
    std::size_t size;
};

constexpr Type types[] = {
    {VT_BSTR, 0},
    {VT_R8, 8},
    {VT_DATE, 8},
    {VT_CY, 8},
    {VT_DECIMAL, sizeof(DECIMAL)},
    {VT_R4, 4},
    {VT_I1, 1},
    {VT_UI1, 1},
    {VT_I2, 2},
    {VT_UI2, 2},
    {VT_I4, 4},
    {VT_UI4, 4},
    {VT_INT, 4},
    {VT_UINT, 4},
    {VT_I8, 8},
    {VT_UI8, 8},
    {VT_BOOL, 2},
    {VT_ERROR, 4},
    {VT_EMPTY, 0},
    {VT_NULL, 0},
    {VT_RECORD, 0},
    {VT_ARRAY | VT_I4, 0},
    {VT_DISPATCH, 0},
    {VT_UNKNOWN, 0},
};

/// The first byte chooses the type, the others are the value.
Variant readValue(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return Variant();
    }
    const Type& chosen = types[data[0] % std::size(types)];
    ++data;
    --size;
    if (chosen.type == VT_BSTR) {
        return Variant(String::fromUtf8({reinterpret_cast<const char*>(data), size}));
    }
    Variant value;
    void* place = chosen.type == VT_DECIMAL ? static_cast<void*>(&value.decVal) : static_cast<void*>(&value.llVal);
    std::memcpy(place, data, std::min(size, chosen.size));
    value.vt = chosen.type;
    return value;
}

std::optional<Variant> change(const Variant& source, VARTYPE type) {
    Variant result(u"before");
    const HRESULT status = VariantChangeType(&result, &source, 0, type);
    Variant inPlace = source;
    require(VariantChangeType(&inPlace, &inPlace, 0, type) == status);
    if (FAILED(status)) {
        require(result.vt == VT_BSTR && String::attach(result.detach().bstrVal) == u"before");
        require(inPlace.vt == source.vt);
        return std::nullopt;
    }
    require(result.vt == type && inPlace.vt == type);
    return result;
}

std::u16string_view textOf(const Variant& value) {
    return {value.bstrVal, SysStringLen(value.bstrVal)};
}

/// Integers and Currency values come back whole; from the others, the text does.
void checkText(const Variant& source, std::size_t size) {
    const std::optional<Variant> text = change(source, VT_BSTR);
    if (!text) {
        return;
    }
    const std::optional<Variant> again = change(*text, source.vt);
    const bool isReal = source.vt == VT_R8 || source.vt == VT_R4;
    if (!again) {
        // Rounded to its digits, the largest number is larger than every number; and what is no number has no text.
        require(isReal && !(std::fabs(source.vt == VT_R8 ? source.dblVal : source.fltVal) < 1e38));
        return;
    }
    if (isReal || source.vt == VT_DATE || source.vt == VT_DECIMAL || source.vt == VT_BOOL) {
        const std::optional<Variant> textAgain = change(*again, VT_BSTR);
        require(textAgain && textOf(*textAgain) == textOf(*text));
    } else {
        require(std::memcmp(&again->llVal, &source.llVal, size) == 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Variant source = readValue(data, size);
    for (const Type& target : types) {
        const std::optional<Variant> result = change(source, target.type);
        if (!result || target.size == 0 || target.type == VT_ERROR) {
            continue;
        }
        if (target.type != VT_DECIMAL || source.vt != VT_DECIMAL) { // a Decimal copies bits that mean nothing
            checkText(*result, target.size);
        }
    }
    return 0;
}
