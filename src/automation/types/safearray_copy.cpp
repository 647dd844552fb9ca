// Copying arrays, and changing the size of one.
#include "automation/types/safearray.h"

#include <mox/abi/functions.h>

#include <algorithm>
#include <cstring>
#include <span>

namespace mox::automation {

namespace {

HRESULT copyData(const SAFEARRAY& source, std::size_t count, Memory& data) {
    data.reset(static_cast<std::byte*>(std::malloc(std::max<std::size_t>(count * source.cbElements, 1))));
    return data ? copyElements(source, elementsOf(source), data.get(), count) : E_OUTOFMEMORY;
}

/// A descriptor for elements of the same type with the same bounds, without data.
SAFEARRAY* copyDescriptor(const SAFEARRAY& source) {
    SAFEARRAY* copy = newDescriptor(source.cDims);
    if (!copy) {
        return nullptr;
    }
    copy->fFeatures = source.fFeatures & static_cast<USHORT>(~(foreignStorage | FADF_FIXEDSIZE));
    copy->cbElements = source.cbElements;
    std::copy_n(source.rgsabound, source.cDims, copy->rgsabound);
    if ((copy->fFeatures & FADF_HAVEIID) != 0) {
        storeInterface(*copy, storedInterface(source));
    } else if ((copy->fFeatures & FADF_HAVEVARTYPE) != 0) {
        storeType(*copy, storedType(source));
    } else if ((copy->fFeatures & FADF_RECORD) != 0) {
        SafeArraySetRecordInfo(copy, storedRecord(source));
    }
    return copy;
}

bool haveSameShape(const SAFEARRAY& one, const SAFEARRAY& other) {
    return one.cbElements == other.cbElements && elementKind(one) == elementKind(other) &&
           std::ranges::equal(std::span(one.rgsabound, one.cDims), std::span(other.rgsabound, other.cDims), {},
                              &SAFEARRAYBOUND::cElements, &SAFEARRAYBOUND::cElements);
}

/// Makes room for more elements at the end, which are initial ones.
HRESULT grow(SAFEARRAY& array, std::size_t oldCount, std::size_t newCount) {
    const std::size_t oldSize = oldCount * array.cbElements;
    const std::size_t newSize = newCount * array.cbElements;
    auto* data = static_cast<std::byte*>(std::realloc(array.pvData, std::max<std::size_t>(newSize, 1)));
    if (!data) {
        return E_OUTOFMEMORY;
    }
    array.pvData = data;
    std::memset(data + oldSize, 0, newSize - oldSize);
    return initializeElements(array, data + oldSize, newCount - oldCount);
}

void shrink(SAFEARRAY& array, std::size_t oldCount, std::size_t newCount) {
    const std::size_t newSize = newCount * array.cbElements;
    clearElements(array, elementsOf(array) + newSize, oldCount - newCount);
    if (void* data = std::realloc(array.pvData, std::max<std::size_t>(newSize, 1))) {
        array.pvData = data;
    }
}

} // namespace

} // namespace mox::automation

using namespace mox::automation;

HRESULT SafeArrayCopy(SAFEARRAY* psa, SAFEARRAY** ppsaOut) {
    if (!ppsaOut) {
        return E_INVALIDARG;
    }
    *ppsaOut = nullptr;
    if (!psa) {
        return S_OK;
    }
    const std::optional<std::size_t> count = elementCount(*psa);
    if (!count || psa->cDims == 0) {
        return E_INVALIDARG;
    }
    Memory data;
    if (psa->pvData) {
        if (const HRESULT status = copyData(*psa, *count, data); FAILED(status)) {
            return status;
        }
    }
    SAFEARRAY* copy = copyDescriptor(*psa);
    if (!copy) {
        if (data) {
            clearElements(*psa, data.get(), *count);
        }
        return E_OUTOFMEMORY;
    }
    copy->pvData = data.release();
    *ppsaOut = copy;
    return S_OK;
}

HRESULT SafeArrayCopyData(SAFEARRAY* psaSource, SAFEARRAY* psaTarget) {
    if (!psaSource || !psaTarget || !psaSource->pvData || !psaTarget->pvData || !haveSameShape(*psaSource, *psaTarget)) {
        return E_INVALIDARG;
    }
    const std::optional<std::size_t> count = elementCount(*psaSource);
    if (!count) {
        return E_INVALIDARG;
    }
    if (psaSource == psaTarget) {
        return S_OK;
    }
    const std::size_t size = *count * psaSource->cbElements;
    if (elementKind(*psaSource) == ElementKind::plain) {
        std::memmove(psaTarget->pvData, psaSource->pvData, size);
        return S_OK;
    }
    // All elements are copied before the first old one goes, so that a failure changes nothing.
    Memory data;
    if (const HRESULT status = copyData(*psaSource, *count, data); FAILED(status)) {
        return status;
    }
    clearElements(*psaTarget, elementsOf(*psaTarget), *count);
    std::memcpy(psaTarget->pvData, data.get(), size);
    return S_OK;
}

HRESULT SafeArrayRedim(SAFEARRAY* psa, SAFEARRAYBOUND* psaboundNew) {
    if (!psa || !psaboundNew || psa->cDims == 0 || !isValid(*psaboundNew) ||
        (psa->fFeatures & (foreignStorage | FADF_FIXEDSIZE)) != 0) {
        return E_INVALIDARG;
    }
    if (psa->cLocks != 0) {
        return DISP_E_ARRAYISLOCKED;
    }
    const SAFEARRAYBOUND oldBound = psa->rgsabound[0];
    const std::size_t oldCount = psa->pvData ? elementCount(*psa).value_or(0) : 0;
    // The elements lie with the leftmost index running fastest, so this dimension only adds or drops at the end.
    psa->rgsabound[0] = *psaboundNew;
    const std::optional<std::size_t> newCount = elementCount(*psa);
    if (newCount && *newCount < oldCount) {
        shrink(*psa, oldCount, *newCount);
        return S_OK;
    }
    const HRESULT status = newCount ? grow(*psa, oldCount, *newCount) : E_OUTOFMEMORY;
    if (FAILED(status)) {
        psa->rgsabound[0] = oldBound;
    }
    return status;
}
