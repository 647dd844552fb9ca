// What an array says of itself, locks, and single elements.
#include "automation/types/safearray.h"

#include "automation/types/varianttypes.h"

#include <mox/abi/functions.h>

#include <cstring>
#include <limits>

namespace mox::automation {

namespace {

/// The bounds of a dimension that is counted from 1 at the left; null if there is none.
const SAFEARRAYBOUND* boundOf(const SAFEARRAY& array, UINT dimension) {
    return dimension >= 1 && dimension <= array.cDims ? &array.rgsabound[array.cDims - dimension] : nullptr;
}

HRESULT findElement(const SAFEARRAY* array, const LONG* indices, std::byte*& element) {
    if (!array || !indices || !array->pvData) {
        return E_INVALIDARG;
    }
    std::size_t position = 0;
    for (USHORT dimension = 0; dimension < array->cDims; ++dimension) {
        // From the rightmost dimension, which changes slowest, to the leftmost, whose index comes first.
        const SAFEARRAYBOUND& bound = array->rgsabound[dimension];
        const std::int64_t index = std::int64_t{indices[array->cDims - 1 - dimension]} - bound.lLbound;
        if (index < 0 || index >= bound.cElements) {
            return DISP_E_BADINDEX;
        }
        position = position * bound.cElements + static_cast<std::size_t>(index);
    }
    element = elementsOf(*array) + position * array->cbElements;
    return S_OK;
}

/// The place where the caller's value of an element lies: a text or an object is handed over as the pointer itself.
const std::byte* valueOf(ElementKind kind, PVOID& value) {
    const bool isPointer = kind == ElementKind::text || kind == ElementKind::object;
    return isPointer ? reinterpret_cast<const std::byte*>(&value) : static_cast<const std::byte*>(value);
}

} // namespace

} // namespace mox::automation

using namespace mox::automation;

UINT SafeArrayGetDim(SAFEARRAY* psa) {
    return psa ? psa->cDims : 0;
}

UINT SafeArrayGetElemsize(SAFEARRAY* psa) {
    return psa ? psa->cbElements : 0;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* psa, UINT nDim, LONG* plUbound) {
    if (!psa || !plUbound) {
        return E_INVALIDARG;
    }
    const SAFEARRAYBOUND* bound = boundOf(*psa, nDim);
    if (!bound) {
        return DISP_E_BADINDEX;
    }
    *plUbound = static_cast<LONG>(std::int64_t{bound->lLbound} + bound->cElements - 1);
    return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* psa, UINT nDim, LONG* plLbound) {
    if (!psa || !plLbound) {
        return E_INVALIDARG;
    }
    const SAFEARRAYBOUND* bound = boundOf(*psa, nDim);
    if (!bound) {
        return DISP_E_BADINDEX;
    }
    *plLbound = bound->lLbound;
    return S_OK;
}

HRESULT SafeArrayGetVartype(SAFEARRAY* psa, VARTYPE* pvt) {
    if (!psa || !pvt) {
        return E_INVALIDARG;
    }
    if ((psa->fFeatures & FADF_HAVEVARTYPE) != 0) {
        *pvt = storedType(*psa);
        return S_OK;
    }
    switch (elementKind(*psa)) {
    case ElementKind::text:
        *pvt = VT_BSTR;
        return S_OK;
    case ElementKind::object:
        *pvt = (psa->fFeatures & FADF_DISPATCH) != 0 ? VT_DISPATCH : VT_UNKNOWN;
        return S_OK;
    case ElementKind::variant:
        *pvt = VT_VARIANT;
        return S_OK;
    case ElementKind::record:
        *pvt = VT_RECORD;
        return S_OK;
    case ElementKind::plain:
        break;
    }
    return E_INVALIDARG;
}

HRESULT SafeArrayLock(SAFEARRAY* psa) {
    if (!psa) {
        return E_INVALIDARG;
    }
    if (psa->cLocks == std::numeric_limits<ULONG>::max()) {
        return E_UNEXPECTED;
    }
    ++psa->cLocks;
    return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY* psa) {
    if (!psa) {
        return E_INVALIDARG;
    }
    if (psa->cLocks == 0) {
        return E_UNEXPECTED;
    }
    --psa->cLocks;
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* psa, PVOID* ppvData) {
    if (!psa || !ppvData) {
        return E_INVALIDARG;
    }
    const HRESULT status = SafeArrayLock(psa);
    *ppvData = SUCCEEDED(status) ? psa->pvData : nullptr;
    return status;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* psa) {
    return SafeArrayUnlock(psa);
}

HRESULT SafeArrayPtrOfIndex(SAFEARRAY* psa, LONG* rgIndices, PVOID* ppvData) {
    if (!ppvData) {
        return E_INVALIDARG;
    }
    std::byte* element = nullptr;
    const HRESULT status = findElement(psa, rgIndices, element);
    *ppvData = element;
    return status;
}

HRESULT SafeArrayGetElement(SAFEARRAY* psa, LONG* rgIndices, PVOID pv) {
    if (!pv) {
        return E_INVALIDARG;
    }
    std::byte* element = nullptr;
    if (const HRESULT status = findElement(psa, rgIndices, element); FAILED(status)) {
        return status;
    }
    if (elementKind(*psa) == ElementKind::record) {
        // The place has to be a record already: its owner alone can make one out of raw memory.
        IRecordInfo* info = storedRecord(*psa);
        return info ? info->RecordCopy(element, pv) : E_UNEXPECTED;
    }
    // The place is an out place: what it holds before is not looked at.
    return copyElements(*psa, element, static_cast<std::byte*>(pv), 1);
}

HRESULT SafeArrayPutElement(SAFEARRAY* psa, LONG* rgIndices, PVOID pv) {
    std::byte* element = nullptr;
    if (const HRESULT status = findElement(psa, rgIndices, element); FAILED(status)) {
        return status;
    }
    const ElementKind kind = elementKind(*psa);
    const std::byte* value = valueOf(kind, pv);
    if (!value) {
        return E_INVALIDARG;
    }
    switch (kind) {
    case ElementKind::plain:
        std::memmove(element, value, psa->cbElements);
        return S_OK;
    case ElementKind::variant:
        return VariantCopy(reinterpret_cast<VARIANT*>(element), reinterpret_cast<const VARIANT*>(value));
    case ElementKind::record: {
        IRecordInfo* info = storedRecord(*psa);
        return info ? info->RecordCopy(pv, element) : E_UNEXPECTED;
    }
    case ElementKind::text:
    case ElementKind::object:
        break;
    }
    PVOID copy = nullptr;
    if (const HRESULT status = copyElements(*psa, value, reinterpret_cast<std::byte*>(&copy), 1); FAILED(status)) {
        return status;
    }
    PVOID old = nullptr;
    std::memcpy(&old, element, sizeof old);
    std::memcpy(element, &copy, sizeof copy);
    clearElements(*psa, reinterpret_cast<std::byte*>(&old), 1);
    return S_OK;
}

HRESULT SafeArraySetRecordInfo(SAFEARRAY* psa, IRecordInfo* prinfo) {
    if (!psa || (psa->fFeatures & FADF_RECORD) == 0) {
        return E_INVALIDARG;
    }
    if (prinfo) {
        prinfo->AddRef();
    }
    IRecordInfo* old = storedRecord(*psa);
    storeRecord(*psa, prinfo);
    if (old) {
        old->Release();
    }
    return S_OK;
}

HRESULT SafeArrayGetRecordInfo(SAFEARRAY* psa, IRecordInfo** prinfo) {
    if (!psa || !prinfo || (psa->fFeatures & FADF_RECORD) == 0) {
        return E_INVALIDARG;
    }
    *prinfo = storedRecord(*psa);
    if (*prinfo) {
        (*prinfo)->AddRef();
    }
    return S_OK;
}

HRESULT SafeArraySetIID(SAFEARRAY* psa, REFGUID guid) {
    if (!psa || (psa->fFeatures & FADF_HAVEIID) == 0) {
        return E_INVALIDARG;
    }
    storeInterface(*psa, guid);
    return S_OK;
}

HRESULT SafeArrayGetIID(SAFEARRAY* psa, GUID* pguid) {
    if (!psa || !pguid || (psa->fFeatures & FADF_HAVEIID) == 0) {
        return E_INVALIDARG;
    }
    *pguid = storedInterface(*psa);
    return S_OK;
}
