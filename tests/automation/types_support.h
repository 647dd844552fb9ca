// Values, objects and records that the tests of the value operations share.
#pragma once

#include <mox/sharedobject.h>
#include <mox/values.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace mox::test {

/// A VARIANT of any type whose value is copied in as it is.
template <class Value> Variant make(VARTYPE type, Value value) {
    static_assert(sizeof(Value) <= sizeof(LONGLONG));
    Variant result;
    result.vt = type;
    std::memcpy(static_cast<void*>(&result.llVal), &value, sizeof value);
    return result;
}
inline Variant empty() {
    return Variant();
}
inline Variant null() {
    return make(VT_NULL, 0);
}
inline Variant i4(LONG value) {
    return make(VT_I4, value);
}
inline Variant i8(LONGLONG value) {
    return make(VT_I8, value);
}
inline Variant ui8(ULONGLONG value) {
    return make(VT_UI8, value);
}
inline Variant r4(float value) {
    return make(VT_R4, value);
}
inline Variant r8(double value) {
    return make(VT_R8, value);
}
inline Variant date(double value) {
    return make(VT_DATE, value);
}
inline Variant cy(LONGLONG tenThousandths) {
    return make(VT_CY, tenThousandths);
}
inline Variant boolean(VARIANT_BOOL value) {
    return make(VT_BOOL, value);
}
inline Variant decimal(bool negative, int scale, ULONG high, ULONG middle, ULONG low) {
    Variant result;
    result.decVal = DECIMAL{0, static_cast<BYTE>(scale), static_cast<BYTE>(negative ? 0x80 : 0), high, low, middle};
    result.vt = VT_DECIMAL;
    return result;
}
inline Variant decimal(LONGLONG value, int scale = 0) {
    const auto size = value < 0 ? 0 - static_cast<ULONGLONG>(value) : static_cast<ULONGLONG>(value);
    return decimal(value < 0, scale, 0, static_cast<ULONG>(size >> 32), static_cast<ULONG>(size));
}

inline std::string number(unsigned __int128 value) {
    std::string digits;
    do {
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(value % 10)));
        value /= 10;
    } while (value != 0);
    return digits;
}

/// The type and the value, exactly: "I4 5", "R8 0.5", "CY 15000" (ten-thousandths), "DECIMAL -15/1", "BSTR abc".
inline std::string show(const VARIANT& value) {
    std::ostringstream text;
    text.precision(17);
    switch (value.vt) {
    case VT_EMPTY:
        text << "EMPTY";
        break;
    case VT_NULL:
        text << "NULL";
        break;
    case VT_I1:
        text << "I1 " << int{value.cVal};
        break;
    case VT_I2:
        text << "I2 " << value.iVal;
        break;
    case VT_I4:
        text << "I4 " << value.lVal;
        break;
    case VT_INT:
        text << "INT " << value.intVal;
        break;
    case VT_I8:
        text << "I8 " << value.llVal;
        break;
    case VT_UI1:
        text << "UI1 " << int{value.bVal};
        break;
    case VT_UI2:
        text << "UI2 " << value.uiVal;
        break;
    case VT_UI4:
        text << "UI4 " << value.ulVal;
        break;
    case VT_UINT:
        text << "UINT " << value.uintVal;
        break;
    case VT_UI8:
        text << "UI8 " << value.ullVal;
        break;
    case VT_R4:
        text.precision(9);
        text << "R4 " << value.fltVal;
        break;
    case VT_R8:
        text << "R8 " << value.dblVal;
        break;
    case VT_DATE:
        text << "DATE " << value.date;
        break;
    case VT_CY:
        text << "CY " << value.cyVal.int64;
        break;
    case VT_BOOL:
        text << "BOOL " << value.boolVal;
        break;
    case VT_ERROR:
        text << "ERROR " << value.scode;
        break;
    case VT_BSTR:
        text << "BSTR "
             << utf8FromUtf16(value.bstrVal ? std::u16string_view(value.bstrVal, SysStringLen(value.bstrVal)) : u"(null)");
        break;
    case VT_DECIMAL: {
        const DECIMAL& part = value.decVal;
        using Wide = unsigned __int128;
        text << "DECIMAL " << (part.sign ? "-" : "") << number(Wide{part.Hi32} << 64 | Wide{part.Mid32} << 32 | part.Lo32) << "/"
             << int{part.scale};
        break;
    }
    default:
        text << "type " << value.vt;
    }
    return text.str();
}

/// What a conversion gives: the value as `show` has it, or the name of the failure.
inline std::string converted(const VARIANT& source, VARTYPE type, USHORT flags = 0) {
    Variant result;
    switch (const HRESULT status = VariantChangeType(&result, &source, flags, type)) {
    case S_OK:
        return show(result);
    case DISP_E_OVERFLOW:
        return "overflow";
    case DISP_E_TYPEMISMATCH:
        return "mismatch";
    case DISP_E_BADVARTYPE:
        return "bad type";
    case E_INVALIDARG:
        return "bad argument";
    default:
        return "status " + std::to_string(status);
    }
}

/// An object whose end can be seen.
class Witness final : public SharedObject<IUnknown> {
public:
    explicit Witness(int& living) : living_(living) { ++living_; }
    ~Witness() override { --living_; }

private:
    int& living_;
};

/// An object with a default value.
class ValueObject final : public SharedObject<IDispatch> {
public:
    explicit ValueObject(Variant value) : value_(std::move(value)) {}
    HRESULT GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    HRESULT Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*, UINT*) override {
        if (id != DISPID_VALUE || (flags & DISPATCH_PROPERTYGET) == 0 || parameters->cArgs != 0 || value_.vt == VT_ERROR) {
            return DISP_E_MEMBERNOTFOUND;
        }
        return VariantCopy(result, &value_);
    }
    void setValue(Variant value) { value_ = std::move(value); }

private:
    Variant value_;
};

/// The number of references to an object.
inline ULONG references(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

/// A record as a compiler would lay it out.
struct Entry {
    LONG number;
    BSTR name;
};

/// Describes `Entry`; counts the entries that live, and can be made to fail.
class EntryInfo final : public SharedObject<IRecordInfo> {
public:
    static constexpr LONG initialNumber = 77;
    int living = 0;
    /// Copies that still succeed; below 0 all of them do.
    int copiesLeft = -1;
    /// The same for new entries.
    int newLeft = -1;

    HRESULT RecordInit(PVOID place) override {
        if (newLeft == 0) {
            return E_OUTOFMEMORY;
        }
        --newLeft;
        *static_cast<Entry*>(place) = Entry{initialNumber, nullptr};
        ++living;
        return S_OK;
    }
    HRESULT RecordClear(PVOID place) override {
        SysFreeString(std::exchange(static_cast<Entry*>(place)->name, nullptr));
        --living;
        return S_OK;
    }
    HRESULT RecordCopy(PVOID source, PVOID target) override {
        if (copiesLeft == 0) {
            return E_OUTOFMEMORY;
        }
        --copiesLeft;
        const auto* from = static_cast<Entry*>(source);
        auto* to = static_cast<Entry*>(target);
        to->number = from->number;
        SysFreeString(std::exchange(to->name, SysAllocStringLen(from->name, SysStringLen(from->name))));
        return S_OK;
    }
    HRESULT GetGuid(GUID* id) override {
        *id = GUID_NULL;
        return S_OK;
    }
    HRESULT GetName(BSTR* name) override {
        *name = SysAllocString(u"Entry");
        return S_OK;
    }
    HRESULT GetSize(ULONG* size) override {
        *size = sizeof(Entry);
        return S_OK;
    }
    HRESULT GetTypeInfo(ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT GetField(PVOID, LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT GetFieldNoCopy(PVOID, LPCOLESTR, VARIANT*, PVOID*) override { return E_NOTIMPL; }
    HRESULT PutField(ULONG, PVOID, LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT PutFieldNoCopy(ULONG, PVOID, LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT GetFieldNames(ULONG*, BSTR*) override { return E_NOTIMPL; }
    BOOL IsMatchingType(IRecordInfo* other) override { return other == this; }
    PVOID RecordCreate() override {
        PVOID place = std::malloc(sizeof(Entry));
        RecordInit(place);
        return place;
    }
    HRESULT RecordCreateCopy(PVOID source, PVOID* copy) override {
        PVOID place = RecordCreate();
        const HRESULT status = RecordCopy(source, place);
        if (FAILED(status)) {
            RecordDestroy(place);
            return status;
        }
        *copy = place;
        return S_OK;
    }
    HRESULT RecordDestroy(PVOID record) override {
        RecordClear(record);
        std::free(record);
        return S_OK;
    }
};

inline Ref<EntryInfo> entryInfo() {
    return makeShared<EntryInfo, EntryInfo>();
}

/// Owns an array of any number of dimensions.
struct DestroyArray {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};
using ArrayOwner = std::unique_ptr<SAFEARRAY, DestroyArray>;

inline ArrayOwner newArray(VARTYPE type, std::initializer_list<SAFEARRAYBOUND> bounds, PVOID extra = nullptr) {
    std::vector<SAFEARRAYBOUND> list(bounds);
    return ArrayOwner(SafeArrayCreateEx(type, static_cast<UINT>(list.size()), list.data(), extra));
}

} // namespace mox::test
