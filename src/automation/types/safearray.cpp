#include "automation/types/safearray.h"

#include "automation/types/bstr.h"
#include "automation/types/variant.h"
#include "automation/types/varianttypes.h"

#include <mox/abi/functions.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <span>
#include <utility>

namespace mox::automation {

namespace {

constexpr std::size_t hiddenSize = 16;

template <class Value> Value load(const SAFEARRAY& array) {
    Value value;
    std::memcpy(&value, reinterpret_cast<const std::byte*>(&array) - sizeof value, sizeof value);
    return value;
}

template <class Value> void store(SAFEARRAY& array, const Value& value) {
    std::memcpy(reinterpret_cast<std::byte*>(&array) - sizeof value, &value, sizeof value);
}

/// Takes the value of an element out, so that whoever is called while it is freed finds nothing there.
template <class Value> Value takeOut(std::byte* element) {
    return std::exchange(*reinterpret_cast<Value*>(element), Value{});
}

void clearElement(const SAFEARRAY& array, ElementKind kind, std::byte* element) {
    switch (kind) {
    case ElementKind::text:
        SysFreeString(takeOut<BSTR>(element));
        break;
    case ElementKind::object:
        if (IUnknown* object = takeOut<IUnknown*>(element)) {
            object->Release();
        }
        break;
    case ElementKind::variant:
        VariantClear(reinterpret_cast<VARIANT*>(element));
        break;
    case ElementKind::record:
        if (IRecordInfo* info = storedRecord(array)) {
            info->RecordClear(element);
        }
        break;
    case ElementKind::plain:
        break;
    }
}

HRESULT copyRecord(const SAFEARRAY& array, const std::byte* source, std::byte* target) {
    IRecordInfo* info = storedRecord(array);
    if (!info) {
        return E_UNEXPECTED;
    }
    std::memset(target, 0, array.cbElements);
    if (const HRESULT status = info->RecordInit(target); FAILED(status)) {
        return status;
    }
    const HRESULT status = info->RecordCopy(const_cast<std::byte*>(source), target);
    if (FAILED(status)) {
        info->RecordClear(target);
    }
    return status;
}

HRESULT copyElement(const SAFEARRAY& array, ElementKind kind, const std::byte* source, std::byte* target) {
    switch (kind) {
    case ElementKind::text:
        return copyText(*reinterpret_cast<const BSTR*>(source), *reinterpret_cast<BSTR*>(target));
    case ElementKind::object: {
        IUnknown* object = *reinterpret_cast<IUnknown* const*>(source);
        if (object) {
            object->AddRef();
        }
        *reinterpret_cast<IUnknown**>(target) = object;
        return S_OK;
    }
    case ElementKind::variant:
        return copyValue(*reinterpret_cast<const VARIANT*>(source), *reinterpret_cast<VARIANT*>(target));
    case ElementKind::record:
        return copyRecord(array, source, target);
    case ElementKind::plain:
        break;
    }
    std::memcpy(target, source, array.cbElements);
    return S_OK;
}

} // namespace

VARTYPE storedType(const SAFEARRAY& array) noexcept {
    return static_cast<VARTYPE>(load<DWORD>(array));
}

void storeType(SAFEARRAY& array, VARTYPE type) noexcept {
    store(array, DWORD{type});
}

IID storedInterface(const SAFEARRAY& array) noexcept {
    return load<IID>(array);
}

void storeInterface(SAFEARRAY& array, const IID& id) noexcept {
    store(array, id);
}

IRecordInfo* storedRecord(const SAFEARRAY& array) noexcept {
    return load<IRecordInfo*>(array);
}

void storeRecord(SAFEARRAY& array, IRecordInfo* info) noexcept {
    store(array, info);
}

SAFEARRAY* newDescriptor(UINT dimensions) noexcept {
    const std::size_t size = offsetof(SAFEARRAY, rgsabound) + dimensions * sizeof(SAFEARRAYBOUND);
    // A whole structure at least, as callers may copy it.
    Memory memory(static_cast<std::byte*>(std::calloc(1, hiddenSize + std::max(size, sizeof(SAFEARRAY)))));
    if (!memory) {
        return nullptr;
    }
    auto* array = reinterpret_cast<SAFEARRAY*>(memory.release() + hiddenSize);
    array->cDims = static_cast<USHORT>(dimensions);
    return array;
}

void freeDescriptor(SAFEARRAY* array) noexcept {
    std::free(reinterpret_cast<std::byte*>(array) - hiddenSize);
}

ULONG elementSize(VARTYPE type) noexcept {
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return 8;
    case VT_DECIMAL:
        return sizeof(DECIMAL);
    case VT_VARIANT:
        return sizeof(VARIANT);
    default:
        return elementTypes.contains(type) ? sizeof(void*) : 0;
    }
}

bool isValid(const SAFEARRAYBOUND& bound) noexcept {
    const std::int64_t upper = std::int64_t{bound.lLbound} + bound.cElements - 1;
    return upper >= std::numeric_limits<LONG>::min() && upper <= std::numeric_limits<LONG>::max();
}

std::optional<std::size_t> elementCount(const SAFEARRAY& array) noexcept {
    const std::span bounds(array.rgsabound, array.cDims);
    if (std::ranges::any_of(bounds, [](const SAFEARRAYBOUND& bound) { return bound.cElements == 0; })) {
        return 0;
    }
    std::size_t count = 1;
    for (const SAFEARRAYBOUND& bound : bounds) {
        if (__builtin_mul_overflow(count, std::size_t{bound.cElements}, &count)) {
            return std::nullopt;
        }
    }
    std::ptrdiff_t size = 0;
    return __builtin_mul_overflow(count, array.cbElements, &size) ? std::nullopt : std::optional(count);
}

ElementKind elementKind(const SAFEARRAY& array) noexcept {
    if ((array.fFeatures & FADF_BSTR) != 0) {
        return ElementKind::text;
    }
    if ((array.fFeatures & (FADF_DISPATCH | FADF_UNKNOWN)) != 0) {
        return ElementKind::object;
    }
    if ((array.fFeatures & FADF_VARIANT) != 0) {
        return ElementKind::variant;
    }
    return (array.fFeatures & FADF_RECORD) != 0 ? ElementKind::record : ElementKind::plain;
}

void clearElements(const SAFEARRAY& array, std::byte* elements, std::size_t count) noexcept {
    const ElementKind kind = elementKind(array);
    if (kind != ElementKind::plain) {
        for (std::size_t index = 0; index < count; ++index) {
            clearElement(array, kind, elements + index * array.cbElements);
        }
    }
    std::memset(elements, 0, count * array.cbElements);
}

HRESULT initializeElements(const SAFEARRAY& array, std::byte* elements, std::size_t count) noexcept {
    IRecordInfo* info = elementKind(array) == ElementKind::record ? storedRecord(array) : nullptr;
    for (std::size_t index = 0; info && index < count; ++index) {
        if (const HRESULT status = info->RecordInit(elements + index * array.cbElements); FAILED(status)) {
            clearElements(array, elements, index);
            return status;
        }
    }
    return S_OK;
}

HRESULT copyElements(const SAFEARRAY& array, const std::byte* source, std::byte* target, std::size_t count) noexcept {
    const ElementKind kind = elementKind(array);
    if (kind == ElementKind::plain) {
        std::memcpy(target, source, count * array.cbElements);
        return S_OK;
    }
    for (std::size_t index = 0; index < count; ++index) {
        const std::size_t offset = index * array.cbElements;
        if (const HRESULT status = copyElement(array, kind, source + offset, target + offset); FAILED(status)) {
            clearElements(array, target, index);
            return status;
        }
    }
    return S_OK;
}

} // namespace mox::automation
