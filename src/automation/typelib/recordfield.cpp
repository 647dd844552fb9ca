#include "automation/typelib/recordfield.h"

#include "automation/typelib/arguments.h"
#include "automation/typelib/library.h"
#include "automation/typelib/librarypart.h"

namespace mox::typelib {

namespace {

const RecordDescription& recordOf(const TypeReference& type) {
    return static_cast<const RecordDescription&>(*type.type);
}

/// The interface that an object in a field of that type has.
REFIID interfaceOf(const TypeReference& type) {
    if (!type.type) {
        return IID_IDispatch;
    }
    return type.type->kind == TypeKind::Class ? static_cast<const ClassDescription&>(*type.type).defaultInterface->id
                                              : type.type->id;
}

HRESULT getDefaultProperty(IDispatch& object, VARIANT* result) {
    DISPPARAMS nothing{};
    return object.Invoke(DISPID_VALUE, GUID_NULL, 0, DISPATCH_PROPERTYGET | DISPATCH_METHOD, &nothing, result, nullptr, nullptr);
}

HRESULT putDefaultProperty(IDispatch& object, VARIANT& value) {
    DISPID valueId = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &valueId, 1, 1};
    return object.Invoke(DISPID_VALUE, GUID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr);
}

} // namespace

RecordField::RecordField(const Field& field, void* record) noexcept
    : type_(behindAliases(field.type)), variant_(static_cast<VARTYPE>(variantOf(type_) | (type_.array ? VT_ARRAY : 0))),
      place_(static_cast<std::byte*>(record) + field.offset) {}

HRESULT RecordField::view(VARIANT& result) const noexcept {
    result = VARIANT{};
    result.vt = VT_BYREF | variant_;
    result.byref = place_;
    if (variant_ != VT_RECORD) {
        return S_OK;
    }
    Ref<IRecordInfo> info;
    const HRESULT status = getRecordInfo(recordOf(type_), info.out());
    result.pRecInfo = info.get();
    return status;
}

HRESULT RecordField::assign(Variant& value) const noexcept {
    if (type_.array) {
        return assignArray(value);
    }
    switch (variant_) {
    case VT_RECORD:
        return assignRecord(value);
    case VT_DISPATCH:
        return assignObject(value);
    case VT_VARIANT:
        std::swap(*static_cast<VARIANT*>(place_), static_cast<VARIANT&>(value));
        return S_OK;
    default: {
        const HRESULT status = value.vt == variant_ ? S_OK : VariantChangeType(&value, &value, 0, variant_);
        return FAILED(status) ? status : exchange(value);
    }
    }
}

HRESULT RecordField::assignByValue(Variant& value) const noexcept {
    if (variant_ == VT_DISPATCH) {
        const Ref<IDispatch> object(*static_cast<IDispatch**>(place_));
        return object ? putDefaultProperty(*object, value) : E_INVALIDARG;
    }
    if (variant_ == VT_VARIANT && value.vt == VT_DISPATCH && value.pdispVal) {
        Variant content;
        const HRESULT status = getDefaultProperty(*value.pdispVal, &content);
        return FAILED(status) ? status : assign(content);
    }
    return assign(value);
}

HRESULT RecordField::assignArray(Variant& value) const noexcept {
    if (value.vt != variant_) {
        return DISP_E_TYPEMISMATCH;
    }
    if (variant_ == (VT_ARRAY | VT_RECORD) && value.parray) {
        Ref<IRecordInfo> info;
        GUID id{};
        if (FAILED(SafeArrayGetRecordInfo(value.parray, info.out())) || FAILED(info->GetGuid(&id)) || id != type_.type->id) {
            return DISP_E_TYPEMISMATCH;
        }
    }
    const SAFEARRAY* present = *static_cast<SAFEARRAY**>(place_);
    return present && present->cLocks != 0 ? DISP_E_ARRAYISLOCKED : exchange(value);
}

HRESULT RecordField::assignRecord(Variant& value) const noexcept {
    void* source = nullptr;
    if (const HRESULT status = recordArgument(value, recordOf(type_), &source); FAILED(status)) {
        return status;
    }
    return statusOf([&] {
        recordOf(type_).assign(place_, source);
        return S_OK;
    });
}

HRESULT RecordField::assignObject(Variant& value) const noexcept {
    Variant object;
    void* found = nullptr;
    if (const HRESULT status = objectArgument(value, interfaceOf(type_), &found); FAILED(status)) {
        return status;
    }
    object.vt = VT_DISPATCH;
    object.pdispVal = static_cast<IDispatch*>(found);
    return exchange(object);
}

HRESULT RecordField::exchange(Variant& value) const noexcept {
    VARIANT field{};
    field.vt = VT_BYREF | variant_;
    field.byref = place_;
    return writeBack(field, std::move(value));
}

} // namespace mox::typelib
