#include "automation/types/variant.h"

#include "automation/types/bstr.h"
#include "automation/types/varianttypes.h"

#include <mox/abi/functions.h>

namespace mox::automation {

namespace {

template <class Object> Object* shared(Object* object) {
    if (object) {
        object->AddRef();
    }
    return object;
}

HRESULT copyRecord(const VARIANT& source, VARIANT& copy) {
    copy.pvRecord = nullptr;
    copy.pRecInfo = nullptr;
    if (!source.pRecInfo) {
        return source.pvRecord ? E_INVALIDARG : S_OK;
    }
    if (source.pvRecord) {
        if (const HRESULT status = source.pRecInfo->RecordCreateCopy(source.pvRecord, &copy.pvRecord); FAILED(status)) {
            return status;
        }
    }
    copy.pRecInfo = shared(source.pRecInfo);
    return S_OK;
}

HRESULT copyOwned(const VARIANT& source, VARIANT& copy) {
    if ((source.vt & VT_ARRAY) != 0) {
        return SafeArrayCopy(source.parray, &copy.parray);
    }
    switch (source.vt) {
    case VT_BSTR:
        return copyText(source.bstrVal, copy.bstrVal);
    case VT_DISPATCH:
        copy.pdispVal = shared(source.pdispVal);
        return S_OK;
    case VT_UNKNOWN:
        copy.punkVal = shared(source.punkVal);
        return S_OK;
    default:
        return copyRecord(source, copy);
    }
}

/// Frees what a VARIANT has owned.
void release(const VARIANT& owned) {
    switch (owned.vt) {
    case VT_BSTR:
        SysFreeString(owned.bstrVal);
        break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        if (owned.punkVal) {
            owned.punkVal->Release();
        }
        break;
    case VT_RECORD:
        if (owned.pRecInfo) {
            if (owned.pvRecord) {
                owned.pRecInfo->RecordDestroy(owned.pvRecord);
            }
            owned.pRecInfo->Release();
        }
        break;
    default:
        SafeArrayDestroy(owned.parray);
    }
}

HRESULT readReference(const VARIANT& source, VARIANT& value) {
    const VARTYPE type = source.vt & ~VT_BYREF;
    value = VARIANT{};
    if (type == VT_RECORD) {
        value.pvRecord = source.pvRecord;
        value.pRecInfo = source.pRecInfo;
        value.vt = type;
        return S_OK;
    }
    if (!source.byref) {
        return E_INVALIDARG;
    }
    if ((type & VT_ARRAY) != 0) {
        value.parray = *source.pparray;
        value.vt = type;
        return S_OK;
    }
    switch (type) {
    case VT_I1:
    case VT_UI1:
        value.bVal = *source.pbVal;
        break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        value.iVal = *source.piVal;
        break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
        value.lVal = *source.plVal;
        break;
    case VT_I8:
    case VT_UI8:
        value.llVal = *source.pllVal;
        break;
    case VT_CY:
        value.cyVal = *source.pcyVal;
        break;
    case VT_R4:
        value.fltVal = *source.pfltVal;
        break;
    case VT_R8:
    case VT_DATE:
        value.dblVal = *source.pdblVal;
        break;
    case VT_BSTR:
        value.bstrVal = *source.pbstrVal;
        break;
    case VT_DISPATCH:
        value.pdispVal = *source.ppdispVal;
        break;
    case VT_UNKNOWN:
        value.punkVal = *source.ppunkVal;
        break;
    case VT_DECIMAL:
        value.decVal = *source.pdecVal; // covers the type, which is set below
        break;
    default:
        return DISP_E_BADVARTYPE;
    }
    value.vt = type;
    return S_OK;
}

} // namespace

HRESULT borrowValue(const VARIANT& source, VARIANT& value) noexcept {
    const VARIANT* inner = &source;
    if (source.vt == (VT_BYREF | VT_VARIANT)) {
        inner = source.pvarVal;
        if (!inner || inner->vt == (VT_BYREF | VT_VARIANT)) {
            return E_INVALIDARG;
        }
    }
    if (!isVariantType(inner->vt)) {
        return DISP_E_BADVARTYPE;
    }
    if ((inner->vt & VT_BYREF) != 0) {
        return readReference(*inner, value);
    }
    value = *inner;
    return S_OK;
}

HRESULT copyValue(const VARIANT& source, VARIANT& copy) noexcept {
    if (!isVariantType(source.vt)) {
        copy = VARIANT{};
        return DISP_E_BADVARTYPE;
    }
    if (plainTypes.contains(source.vt) || (source.vt & VT_BYREF) != 0) {
        copy = source;
        return S_OK;
    }
    copy = VARIANT{};
    const HRESULT status = copyOwned(source, copy);
    if (SUCCEEDED(status)) {
        copy.vt = source.vt;
    }
    return status;
}

HRESULT replaceValue(VARIANT& place, VARIANT& value) noexcept {
    const HRESULT status = VariantClear(&place);
    if (FAILED(status)) {
        VariantClear(&value);
        return status;
    }
    place = value;
    return S_OK;
}

} // namespace mox::automation

using namespace mox::automation;

void VariantInit(VARIANTARG* pvarg) {
    if (pvarg) {
        *pvarg = VARIANT{};
    }
}

HRESULT VariantClear(VARIANTARG* pvarg) {
    if (!pvarg) {
        return E_INVALIDARG;
    }
    const VARTYPE type = pvarg->vt;
    if (plainTypes.contains(type)) {
        pvarg->vt = VT_EMPTY;
        return S_OK;
    }
    if (!isVariantType(type)) {
        return DISP_E_BADVARTYPE;
    }
    if ((type & (VT_ARRAY | VT_BYREF)) == VT_ARRAY && pvarg->parray && pvarg->parray->cLocks != 0) {
        return DISP_E_ARRAYISLOCKED;
    }
    // An object that ends here may come back to this VARIANT, and must find it empty.
    const VARIANT owned = *pvarg;
    pvarg->vt = VT_EMPTY;
    if ((type & VT_BYREF) == 0) {
        release(owned);
    }
    return S_OK;
}

HRESULT VariantCopy(VARIANTARG* pvargDest, const VARIANTARG* pvargSrc) {
    if (!pvargDest || !pvargSrc) {
        return E_INVALIDARG;
    }
    if (plainTypes.contains(pvargSrc->vt) && plainTypes.contains(pvargDest->vt)) {
        *pvargDest = *pvargSrc;
        return S_OK;
    }
    if (pvargDest == pvargSrc) {
        return isVariantType(pvargSrc->vt) ? S_OK : DISP_E_BADVARTYPE;
    }
    // The source may lie inside of what the destination owns, so it is copied before that goes.
    VARIANT copy;
    const HRESULT status = copyValue(*pvargSrc, copy);
    return FAILED(status) ? status : replaceValue(*pvargDest, copy);
}

HRESULT VariantCopyInd(VARIANT* pvarDest, const VARIANTARG* pvargSrc) {
    if (!pvarDest || !pvargSrc) {
        return E_INVALIDARG;
    }
    VARIANT value;
    if (const HRESULT status = borrowValue(*pvargSrc, value); FAILED(status)) {
        return status;
    }
    return (pvargSrc->vt & VT_BYREF) == 0 ? VariantCopy(pvarDest, pvargSrc) : VariantCopy(pvarDest, &value);
}
