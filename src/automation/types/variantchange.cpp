// Conversions between the types that a VARIANT may hold.
#include "automation/types/bstr.h"
#include "automation/types/characters.h"
#include "automation/types/datetext.h"
#include "automation/types/numbertext.h"
#include "automation/types/variant.h"
#include "automation/types/varianttime.h"
#include "automation/types/varianttypes.h"

#include <mox/abi/functions.h>
#include <mox/values/ref.h>

#include <algorithm>

namespace mox::automation {

namespace {

/// What a conversion is asked for; `depth` counts the default values of objects that it went through.
struct Request {
    VARTYPE type;
    USHORT flags;
    LCID lcid;
    int depth = 0;
};

template <class Source> HRESULT convertToDate(const Source& source, DATE& date) {
    double value = 0;
    const HRESULT status = convert(source, value);
    if (FAILED(status)) {
        return status;
    }
    date = value;
    return isDate(value) ? S_OK : DISP_E_OVERFLOW;
}

/// From any number to any type of number.
template <class Source> HRESULT convertNumber(const Source& source, VARTYPE type, VARIANT& result) {
    switch (type) {
    case VT_I1:
        return convert(source, result.cVal);
    case VT_I2:
        return convert(source, result.iVal);
    case VT_I4:
    case VT_INT:
        return convert(source, result.lVal);
    case VT_I8:
        return convert(source, result.llVal);
    case VT_UI1:
        return convert(source, result.bVal);
    case VT_UI2:
        return convert(source, result.uiVal);
    case VT_UI4:
    case VT_UINT:
        return convert(source, result.ulVal);
    case VT_UI8:
        return convert(source, result.ullVal);
    case VT_R4:
        return convert(source, result.fltVal);
    case VT_R8:
        return convert(source, result.dblVal);
    case VT_CY:
        return convert(source, result.cyVal);
    case VT_DATE:
        return convertToDate(source, result.date);
    case VT_DECIMAL:
        return convert(source, result.decVal);
    case VT_BOOL:
        result.boolVal = isZero(source) ? VARIANT_FALSE : VARIANT_TRUE;
        return S_OK;
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

/// From any number to any type of number or to text.
template <class Source> HRESULT convertNumberOrWrite(const Source& source, VARTYPE type, VARIANT& result) {
    return type == VT_BSTR ? newText(numberText(source).view(), result.bstrVal) : convertNumber(source, type, result);
}

/// A boolean keeps its bits: True is all ones in every integer, also in those without a sign.
HRESULT convertBoolean(VARIANT_BOOL source, VARTYPE type, VARIANT& result) {
    switch (type) {
    case VT_BSTR:
        return newText(source ? "True" : "False", result.bstrVal);
    case VT_UI1:
        result.bVal = static_cast<BYTE>(source);
        return S_OK;
    case VT_UI2:
        result.uiVal = static_cast<USHORT>(source);
        return S_OK;
    case VT_UI4:
    case VT_UINT:
        result.ulVal = static_cast<ULONG>(source);
        return S_OK;
    case VT_UI8:
        result.ullVal = static_cast<ULONGLONG>(source);
        return S_OK;
    default:
        return convertNumber(fixedPoint(source), type, result);
    }
}

HRESULT convertDate(DATE source, VARTYPE type, VARIANT& result) {
    if (type != VT_BSTR) {
        return convertNumber(RealNumber{source}, type, result);
    }
    return isDate(source) ? newText(dateText(source).view(), result.bstrVal) : DISP_E_OVERFLOW;
}

bool equalsIgnoringCase(std::u16string_view text, std::u16string_view upper) {
    return std::ranges::equal(text, upper, {}, upperCase);
}

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

HRESULT convertText(BSTR source, VARTYPE type, VARIANT& result) {
    std::u16string_view text = viewOf(source);
    text = text.substr(0, text.find(u'\0')); // fixed-length texts are filled up with NUL characters
    if (type == VT_DATE && SUCCEEDED(readDate(text, result.date))) {
        return S_OK;
    }
    if (type == VT_BOOL) {
        const std::u16string_view word = trimmed(text);
        const bool isTrue = equalsIgnoringCase(word, u"TRUE") || equalsIgnoringCase(word, u"#TRUE#");
        if (isTrue || equalsIgnoringCase(word, u"FALSE") || equalsIgnoringCase(word, u"#FALSE#")) {
            result.boolVal = isTrue ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        }
    }
    ReadNumber number;
    if (const HRESULT status = readNumber(text, number); FAILED(status)) {
        return status;
    }
    return number.isPattern ? convertNumber(number.pattern, type, result) : convertNumber(number.digits, type, result);
}

HRESULT convertEmpty(VARTYPE type, VARIANT& result) {
    return type == VT_BSTR ? newText("", result.bstrVal) : convertNumber(FixedPoint{}, type, result);
}

HRESULT convertDecimal(const DECIMAL& source, VARTYPE type, VARIANT& result) {
    const std::optional<FixedPoint> number = fixedPoint(source);
    return number ? convertNumberOrWrite(*number, type, result) : E_INVALIDARG;
}

HRESULT changeType(const VARIANT& source, const Request& request, VARIANT& result);

HRESULT queryObject(IUnknown* object, REFIID iid, VARIANT& result) {
    void* other = nullptr;
    if (object && FAILED(object->QueryInterface(iid, &other))) {
        return DISP_E_TYPEMISMATCH;
    }
    result.byref = other;
    return S_OK;
}

/// By the default value of the object, which may be an object again.
HRESULT convertDefaultValue(IDispatch* object, const Request& request, VARIANT& result) {
    constexpr int deepest = 8;
    if (!object || (request.flags & VARIANT_NOVALUEPROP) != 0 || request.depth == deepest) {
        return DISP_E_TYPEMISMATCH;
    }
    const Ref<IDispatch> held = object;
    DISPPARAMS none{};
    VARIANT value{};
    VARIANT borrowed;
    HRESULT status = held->Invoke(DISPID_VALUE, GUID_NULL, request.lcid, DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none, &value,
                                  nullptr, nullptr);
    status = SUCCEEDED(status) ? borrowValue(value, borrowed) : DISP_E_TYPEMISMATCH;
    if (SUCCEEDED(status)) {
        Request inner = request;
        ++inner.depth;
        status = changeType(borrowed, inner, result);
    }
    VariantClear(&value);
    return status;
}

HRESULT convertScalar(const VARIANT& source, const Request& request, VARIANT& result) {
    const VARTYPE type = request.type;
    switch (source.vt) {
    case VT_EMPTY:
        return convertEmpty(type, result);
    case VT_I1:
        return convertNumberOrWrite(fixedPoint(source.cVal), type, result);
    case VT_I2:
        return convertNumberOrWrite(fixedPoint(source.iVal), type, result);
    case VT_I4:
    case VT_INT:
        return convertNumberOrWrite(fixedPoint(source.lVal), type, result);
    case VT_I8:
        return convertNumberOrWrite(fixedPoint(source.llVal), type, result);
    case VT_UI1:
        return convertNumberOrWrite(fixedPoint(source.bVal), type, result);
    case VT_UI2:
        return convertNumberOrWrite(fixedPoint(source.uiVal), type, result);
    case VT_UI4:
    case VT_UINT:
        return convertNumberOrWrite(fixedPoint(source.ulVal), type, result);
    case VT_UI8:
        return convertNumberOrWrite(fixedPoint(source.ullVal), type, result);
    case VT_R4:
        return convertNumberOrWrite(RealNumber{source.fltVal, 7}, type, result);
    case VT_R8:
        return convertNumberOrWrite(RealNumber{source.dblVal, 15}, type, result);
    case VT_CY:
        return convertNumberOrWrite(fixedPoint(source.cyVal), type, result);
    case VT_DECIMAL:
        return convertDecimal(source.decVal, type, result);
    case VT_BOOL:
        return convertBoolean(source.boolVal, type, result);
    case VT_DATE:
        return convertDate(source.date, type, result);
    case VT_BSTR:
        return convertText(source.bstrVal, type, result);
    case VT_DISPATCH:
        return type == VT_UNKNOWN ? queryObject(source.pdispVal, IID_IUnknown, result)
                                  : convertDefaultValue(source.pdispVal, request, result);
    case VT_UNKNOWN:
        return type == VT_DISPATCH ? queryObject(source.punkVal, IID_IDispatch, result) : DISP_E_TYPEMISMATCH;
    default: // Null, an error and a record are nothing else
        return DISP_E_TYPEMISMATCH;
    }
}

/// `result` owns what it holds, and is empty if it fails.
HRESULT changeType(const VARIANT& source, const Request& request, VARIANT& result) {
    if (source.vt == request.type) {
        return copyValue(source, result);
    }
    if (((source.vt | request.type) & VT_ARRAY) != 0) {
        return DISP_E_TYPEMISMATCH;
    }
    const HRESULT status = convertScalar(source, request, result);
    result.vt = SUCCEEDED(status) ? request.type : VARTYPE{VT_EMPTY};
    return status;
}

} // namespace

} // namespace mox::automation

using namespace mox::automation;

HRESULT VariantChangeType(VARIANTARG* pvargDest, const VARIANTARG* pvarSrc, USHORT wFlags, VARTYPE vt) {
    constexpr LCID userDefault = 0x400;
    return VariantChangeTypeEx(pvargDest, pvarSrc, userDefault, wFlags, vt);
}

HRESULT VariantChangeTypeEx(VARIANTARG* pvargDest, const VARIANTARG* pvarSrc, LCID lcid, USHORT wFlags, VARTYPE vt) {
    if (!pvargDest || !pvarSrc) {
        return E_INVALIDARG;
    }
    if (!isVariantType(vt)) {
        return DISP_E_BADVARTYPE;
    }
    if ((vt & VT_BYREF) != 0) {
        return DISP_E_TYPEMISMATCH;
    }
    VARIANT source;
    if (const HRESULT status = borrowValue(*pvarSrc, source); FAILED(status)) {
        return status;
    }
    VARIANT result{};
    const HRESULT status = changeType(source, {vt, wFlags, lcid}, result);
    return FAILED(status) ? status : replaceValue(*pvargDest, result);
}
