#include "automation/typelib/arguments.h"

#include "automation/typelib/library.h"

namespace mox::typelib {

namespace {

bool isRecordOf(IRecordInfo* info, const RecordDescription& record) {
    GUID id{};
    return info && SUCCEEDED(info->GetGuid(&id)) && id == record.id;
}

/// Follows `VT_BYREF | VT_VARIANT`, which may wrap any other value.
const VARIANT& unwrap(const VARIANT& value) {
    return value.vt == (VT_BYREF | VT_VARIANT) && value.pvarVal ? *value.pvarVal : value;
}

} // namespace

const TypeReference& behindAliases(const TypeReference& type) noexcept {
    const bool isAlias = type.variant == VT_USERDEFINED && !type.array && type.type->kind == TypeKind::Alias;
    return isAlias ? behindAliases(static_cast<const AliasDescription&>(*type.type).target) : type;
}

VARTYPE variantOf(const TypeReference& type) noexcept {
    if (type.variant != VT_USERDEFINED) {
        return type.variant;
    }
    switch (type.type->kind) {
    case TypeKind::Record:
        return VT_RECORD;
    case TypeKind::Alias:
        return variantOf(static_cast<const AliasDescription&>(*type.type).target);
    default:
        return VT_I4;
    }
}

HRESULT convertArgument(const VARIANT& value, VARTYPE variant, VARIANT& converted) noexcept {
    return VariantChangeTypeEx(&converted, &value, 0, 0, variant);
}

HRESULT defaultArgument(const Parameter& parameter, VARTYPE variant, VARIANT& converted) noexcept {
    Variant constant;
    switch (parameter.defaultValue.kind) {
    case Constant::Kind::None:
    case Constant::Kind::Nothing:
        return S_OK;
    case Constant::Kind::Integer:
        constant.vt = VT_I8;
        constant.llVal = parameter.defaultValue.integer;
        if (static_cast<LONG>(constant.llVal) == constant.llVal) {
            constant.vt = VT_I4;
        }
        break;
    case Constant::Kind::Real:
        constant.vt = VT_R8;
        constant.dblVal = parameter.defaultValue.real;
        break;
    case Constant::Kind::Text:
        constant.vt = VT_BSTR;
        constant.bstrVal = SysAllocString(parameter.defaultValue.text);
        if (!constant.bstrVal) {
            return E_OUTOFMEMORY;
        }
        break;
    }
    return VariantChangeTypeEx(&converted, &constant, 0, 0, variant == VT_VARIANT ? constant.vt : variant);
}

HRESULT variantDefault(const Parameter& parameter, Variant& result) noexcept {
    if (parameter.defaultValue.kind == Constant::Kind::None) {
        result = Variant::missing();
        return S_OK;
    }
    return defaultArgument(parameter, VT_VARIANT, result);
}

void* placeOf(VARIANT& argument, VARTYPE variant) noexcept {
    if (argument.vt == (VT_BYREF | variant)) {
        return argument.byref;
    }
    if (argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal) {
        VARIANT& inner = *argument.pvarVal;
        if (inner.vt == variant) {
            return &inner.llVal;
        }
        if (inner.vt == (VT_BYREF | variant)) {
            return inner.byref;
        }
    }
    return nullptr;
}

HRESULT writeBack(VARIANT& argument, Variant&& value) noexcept {
    if (!argument.byref) {
        return DISP_E_TYPEMISMATCH;
    }
    if (argument.vt == (VT_BYREF | VT_VARIANT)) {
        VARIANT& place = *argument.pvarVal;
        if (place.vt & VT_BYREF) {
            return writeBack(place, std::move(value));
        }
        const HRESULT status = VariantClear(&place);
        if (SUCCEEDED(status)) {
            place = value.detach();
        }
        return status;
    }
    const auto target = static_cast<VARTYPE>(argument.vt & ~VT_BYREF);
    if (value.vt != target) {
        if (const HRESULT status = VariantChangeTypeEx(&value, &value, 0, 0, target); FAILED(status)) {
            return status;
        }
    }
    // The place is exchanged with the new value, whose old content then goes with the variant.
    switch (target) {
    case VT_UI1:
    case VT_I1:
        std::swap(*argument.pbVal, value.bVal);
        break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        std::swap(*argument.piVal, value.iVal);
        break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        std::swap(*argument.plVal, value.lVal);
        break;
    case VT_DECIMAL: {
        const WORD reserved = argument.pdecVal->wReserved;
        *argument.pdecVal = value.decVal;
        argument.pdecVal->wReserved = reserved;
        break;
    }
    default:
        std::swap(*argument.pllVal, value.llVal);
        break;
    }
    return S_OK;
}

HRESULT objectArgument(const VARIANT& value, REFIID iid, void** result) noexcept {
    const VARIANT& given = unwrap(value);
    IUnknown* object = nullptr;
    switch (given.vt) {
    case VT_DISPATCH:
    case VT_UNKNOWN:
        object = given.punkVal;
        break;
    case VT_BYREF | VT_DISPATCH:
    case VT_BYREF | VT_UNKNOWN:
        object = given.ppunkVal ? *given.ppunkVal : nullptr;
        break;
    default:
        return DISP_E_TYPEMISMATCH;
    }
    *result = nullptr;
    if (!object) {
        return S_OK;
    }
    return FAILED(object->QueryInterface(iid, result)) ? DISP_E_TYPEMISMATCH : S_OK;
}

HRESULT recordArgument(const VARIANT& value, const RecordDescription& record, void** result) noexcept {
    const VARIANT& given = unwrap(value);
    if ((given.vt & ~VT_BYREF) != VT_RECORD || !given.pvRecord || !isRecordOf(given.pRecInfo, record)) {
        return DISP_E_TYPEMISMATCH;
    }
    *result = given.pvRecord;
    return S_OK;
}

HRESULT arrayArgument(VARIANT& value, const TypeReference& type, SAFEARRAY*& own, SAFEARRAY*** result) noexcept {
    VARIANT& given = const_cast<VARIANT&>(unwrap(value));
    const auto wanted = static_cast<VARTYPE>(VT_ARRAY | variantOf(type));
    if (given.vt == wanted) {
        *result = &given.parray;
    } else if (given.vt == (VT_BYREF | wanted) && given.pparray) {
        *result = given.pparray;
    } else if (given.vt == VT_EMPTY) {
        *result = &own;
    } else {
        return DISP_E_TYPEMISMATCH;
    }
    return S_OK;
}

HRESULT recordResult(const RecordDescription& record, VARIANT& result, void** place) noexcept {
    Ref<IRecordInfo> info;
    if (const HRESULT status = getRecordInfo(record, info.out()); FAILED(status)) {
        return status;
    }
    *place = info->RecordCreate();
    if (!*place) {
        return E_OUTOFMEMORY;
    }
    result.vt = VT_RECORD;
    result.pvRecord = *place;
    result.pRecInfo = info.detach();
    return S_OK;
}

} // namespace mox::typelib
