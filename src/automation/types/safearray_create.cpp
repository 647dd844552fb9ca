// Making and ending arrays.
#include "automation/types/safearray.h"
#include "automation/types/varianttypes.h"

#include <mox/abi/functions.h>

#include <algorithm>
#include <cstring>

namespace mox::automation {

namespace {

USHORT featuresOf(VARTYPE type) {
    switch (type) {
    case VT_BSTR:
        return FADF_HAVEVARTYPE | FADF_BSTR;
    case VT_VARIANT:
        return FADF_HAVEVARTYPE | FADF_VARIANT;
    case VT_DISPATCH:
        return FADF_HAVEIID | FADF_DISPATCH;
    case VT_UNKNOWN:
        return FADF_HAVEIID | FADF_UNKNOWN;
    case VT_RECORD:
        return FADF_RECORD;
    default:
        return FADF_HAVEVARTYPE;
    }
}

struct Destroy {
    void operator()(SAFEARRAY* array) const noexcept { SafeArrayDestroy(array); }
};
using OwnedArray = std::unique_ptr<SAFEARRAY, Destroy>;

/// Sets what the elements are, besides their type: the interface of objects, the description of records.
bool setExtra(SAFEARRAY& array, VARTYPE type, PVOID extra) {
    if (type == VT_RECORD) {
        ULONG size = 0;
        auto* info = static_cast<IRecordInfo*>(extra);
        if (!info || FAILED(info->GetSize(&size)) || size == 0) {
            return false;
        }
        array.cbElements = size;
        return SUCCEEDED(SafeArraySetRecordInfo(&array, info));
    }
    if (extra && (type == VT_DISPATCH || type == VT_UNKNOWN)) {
        storeInterface(array, *static_cast<const IID*>(extra));
    }
    return true;
}

} // namespace

} // namespace mox::automation

using namespace mox::automation;

HRESULT SafeArrayAllocDescriptor(UINT cDims, SAFEARRAY** ppsaOut) {
    if (!ppsaOut) {
        return E_POINTER;
    }
    *ppsaOut = nullptr;
    if (cDims == 0 || cDims > mostDimensions) {
        return E_INVALIDARG;
    }
    *ppsaOut = newDescriptor(cDims);
    return *ppsaOut ? S_OK : E_OUTOFMEMORY;
}

HRESULT SafeArrayAllocDescriptorEx(VARTYPE vt, UINT cDims, SAFEARRAY** ppsaOut) {
    if (!ppsaOut) {
        return E_POINTER;
    }
    *ppsaOut = nullptr;
    if (elementSize(vt) == 0) {
        return DISP_E_BADVARTYPE;
    }
    const HRESULT status = SafeArrayAllocDescriptor(cDims, ppsaOut);
    if (FAILED(status)) {
        return status;
    }
    SAFEARRAY& array = **ppsaOut;
    array.fFeatures = featuresOf(vt);
    array.cbElements = elementSize(vt);
    if ((array.fFeatures & FADF_HAVEVARTYPE) != 0) {
        storeType(array, vt);
    } else if ((array.fFeatures & FADF_HAVEIID) != 0) {
        storeInterface(array, vt == VT_DISPATCH ? IID_IDispatch : IID_IUnknown);
    }
    return S_OK;
}

HRESULT SafeArrayAllocData(SAFEARRAY* psa) {
    if (!psa) {
        return E_INVALIDARG;
    }
    if (psa->pvData) {
        return E_UNEXPECTED;
    }
    const std::optional<std::size_t> count = elementCount(*psa);
    if (!count) {
        return E_OUTOFMEMORY;
    }
    // Also an array without elements has data, so that only a missing array has none.
    Memory data(static_cast<std::byte*>(std::calloc(std::max<std::size_t>(*count * psa->cbElements, 1), 1)));
    if (!data) {
        return E_OUTOFMEMORY;
    }
    if (const HRESULT status = initializeElements(*psa, data.get(), *count); FAILED(status)) {
        return status;
    }
    psa->pvData = data.release();
    return S_OK;
}

SAFEARRAY* SafeArrayCreateEx(VARTYPE vt, UINT cDims, SAFEARRAYBOUND* rgsabound, PVOID pvExtra) {
    if (!rgsabound || cDims == 0 || cDims > mostDimensions || !std::all_of(rgsabound, rgsabound + cDims, isValid)) {
        return nullptr;
    }
    SAFEARRAY* descriptor = nullptr;
    if (FAILED(SafeArrayAllocDescriptorEx(vt, cDims, &descriptor))) {
        return nullptr;
    }
    OwnedArray array(descriptor);
    std::reverse_copy(rgsabound, rgsabound + cDims, array->rgsabound);
    return setExtra(*array, vt, pvExtra) && SUCCEEDED(SafeArrayAllocData(array.get())) ? array.release() : nullptr;
}

SAFEARRAY* SafeArrayCreate(VARTYPE vt, UINT cDims, SAFEARRAYBOUND* rgsabound) {
    return SafeArrayCreateEx(vt, cDims, rgsabound, nullptr);
}

SAFEARRAY* SafeArrayCreateVectorEx(VARTYPE vt, LONG lLbound, ULONG cElements, PVOID pvExtra) {
    SAFEARRAYBOUND bound{cElements, lLbound};
    return SafeArrayCreateEx(vt, 1, &bound, pvExtra);
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE vt, LONG lLbound, ULONG cElements) {
    return SafeArrayCreateVectorEx(vt, lLbound, cElements, nullptr);
}

HRESULT SafeArrayDestroyData(SAFEARRAY* psa) {
    if (!psa) {
        return E_INVALIDARG;
    }
    if (psa->cLocks != 0) {
        return DISP_E_ARRAYISLOCKED;
    }
    if (!psa->pvData) {
        return S_OK;
    }
    const std::size_t count = elementCount(*psa).value_or(0);
    if ((psa->fFeatures & foreignStorage) != 0) {
        clearElements(*psa, elementsOf(*psa), count);
        return S_OK;
    }
    // An element that ends here may come back to this array, and must not find what is about to go.
    const Memory data(elementsOf(*psa));
    psa->pvData = nullptr;
    clearElements(*psa, data.get(), count);
    return S_OK;
}

HRESULT SafeArrayDestroyDescriptor(SAFEARRAY* psa) {
    if (!psa) {
        return S_OK;
    }
    if (psa->cLocks != 0) {
        return DISP_E_ARRAYISLOCKED;
    }
    if ((psa->fFeatures & FADF_RECORD) != 0) {
        SafeArraySetRecordInfo(psa, nullptr);
    }
    freeDescriptor(psa);
    return S_OK;
}

HRESULT SafeArrayDestroy(SAFEARRAY* psa) {
    if (!psa) {
        return S_OK;
    }
    const HRESULT status = SafeArrayDestroyData(psa);
    if (FAILED(status) || (psa->fFeatures & foreignStorage) != 0) {
        return status; // a descriptor in somebody else's memory goes with that
    }
    return SafeArrayDestroyDescriptor(psa);
}
