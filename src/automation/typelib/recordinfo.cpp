#include "automation/typelib/recordinfo.h"

#include "automation/typelib/dispatch.h"
#include "automation/typelib/recordfield.h"

#include <algorithm>
#include <vector>

namespace mox::typelib {

namespace {

bool isPutFlag(ULONG flags) {
    return flags == INVOKE_PROPERTYPUT || flags == INVOKE_PROPERTYPUTREF;
}

} // namespace

RecordInfo::RecordInfo(const RecordDescription& record) : LibraryPart(record.library.state), record_(record) {}

const Field* RecordInfo::findField(const char16_t* name) const noexcept {
    const auto found = std::ranges::find_if(record_.fields, [&](const Field& field) { return sameName(field.name, name); });
    return found == record_.fields.end() ? nullptr : &*found;
}

HRESULT RecordInfo::RecordInit(PVOID place) {
    if (!place) {
        return E_INVALIDARG;
    }
    return statusOf([&] {
        record_.construct(place);
        return S_OK;
    });
}

HRESULT RecordInfo::RecordClear(PVOID value) {
    if (!value) {
        return E_INVALIDARG;
    }
    record_.destroy(value);
    return RecordInit(value);
}

HRESULT RecordInfo::RecordCopy(PVOID source, PVOID target) {
    if (!source || !target) {
        return E_INVALIDARG;
    }
    const HRESULT status = statusOf([&] {
        record_.assign(target, source);
        return S_OK;
    });
    if (FAILED(status)) {
        RecordClear(target);
    }
    return status;
}

HRESULT RecordInfo::GetGuid(GUID* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = record_.id;
    return S_OK;
}

HRESULT RecordInfo::GetName(BSTR* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = SysAllocString(record_.name);
    return *result ? S_OK : E_OUTOFMEMORY;
}

HRESULT RecordInfo::GetSize(ULONG* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = record_.size;
    return S_OK;
}

HRESULT RecordInfo::GetTypeInfo(ITypeInfo** result) {
    return typelib::getTypeInfo(record_, result);
}

HRESULT RecordInfo::GetField(PVOID data, LPCOLESTR name, VARIANT* result) {
    VARIANT view;
    if (const HRESULT status = GetFieldNoCopy(data, name, result ? &view : nullptr, nullptr); FAILED(status)) {
        return status;
    }
    *result = VARIANT{};
    return VariantCopyInd(result, &view);
}

HRESULT RecordInfo::GetFieldNoCopy(PVOID data, LPCOLESTR name, VARIANT* result, PVOID* arrayData) {
    if (!data || !name || !result) {
        return E_INVALIDARG;
    }
    if (arrayData) {
        *arrayData = nullptr; // records have no arrays of fixed size
    }
    const Field* field = findField(name);
    return field ? RecordField(*field, data).view(*result) : TYPE_E_FIELDNOTFOUND;
}

HRESULT RecordInfo::PutField(ULONG flags, PVOID data, LPCOLESTR name, VARIANT* value) {
    if (!data || !name || !value || !isPutFlag(flags)) {
        return E_INVALIDARG;
    }
    const Field* field = findField(name);
    if (!field) {
        return TYPE_E_FIELDNOTFOUND;
    }
    Variant copy;
    if (const HRESULT status = VariantCopyInd(&copy, value); FAILED(status)) {
        return status;
    }
    const RecordField place(*field, data);
    return flags == INVOKE_PROPERTYPUT ? place.assignByValue(copy) : place.assign(copy);
}

HRESULT RecordInfo::PutFieldNoCopy(ULONG flags, PVOID data, LPCOLESTR name, VARIANT* value) {
    if (!data || !name || !value || !isPutFlag(flags)) {
        return E_INVALIDARG;
    }
    const Field* field = findField(name);
    if (!field) {
        return TYPE_E_FIELDNOTFOUND;
    }
    const RecordField place(*field, data);
    if (place.variant() == VT_VARIANT ? (value->vt & VT_BYREF) != 0 : value->vt != place.variant()) {
        return DISP_E_TYPEMISMATCH;
    }
    Variant moved = Variant::attach(*value);
    const HRESULT status = place.assign(moved);
    if (FAILED(status)) {
        moved.detach();
    } else {
        value->vt = VT_EMPTY;
    }
    return status;
}

HRESULT RecordInfo::GetFieldNames(ULONG* count, BSTR* names) {
    if (!count) {
        return E_INVALIDARG;
    }
    const auto fields = static_cast<ULONG>(record_.fields.size());
    if (!names) {
        *count = fields;
        return S_OK;
    }
    return statusOf([&] {
        std::vector<String> found;
        for (const Field& field : record_.fields.first(std::min(*count, fields))) {
            found.emplace_back(field.name);
        }
        *count = static_cast<ULONG>(found.size());
        for (std::size_t i = 0; i < found.size(); ++i) {
            names[i] = found[i].detach();
        }
        return S_OK;
    });
}

BOOL RecordInfo::IsMatchingType(IRecordInfo* other) {
    GUID id{};
    return other && SUCCEEDED(other->GetGuid(&id)) && id == record_.id;
}

PVOID RecordInfo::RecordCreate() {
    PVOID value = CoTaskMemAlloc(record_.size);
    if (value && FAILED(RecordInit(value))) {
        CoTaskMemFree(std::exchange(value, nullptr));
    }
    return value;
}

HRESULT RecordInfo::RecordCreateCopy(PVOID source, PVOID* result) {
    if (!source || !result) {
        return E_INVALIDARG;
    }
    *result = RecordCreate();
    if (!*result) {
        return E_OUTOFMEMORY;
    }
    const HRESULT status = RecordCopy(source, *result);
    if (FAILED(status)) {
        RecordDestroy(std::exchange(*result, nullptr));
    }
    return status;
}

HRESULT RecordInfo::RecordDestroy(PVOID value) {
    if (!value) {
        return E_INVALIDARG;
    }
    record_.destroy(value);
    CoTaskMemFree(value);
    return S_OK;
}

} // namespace mox::typelib
