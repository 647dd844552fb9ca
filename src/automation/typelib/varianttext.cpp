#include "automation/typelib/varianttext.h"

#include "automation/types/variant.h"

#include <mox/values.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <vector>

namespace mox::typelib {

namespace {

constexpr std::size_t longestString = 60;
constexpr ULONG mostElements = 4;
/// Arrays in variants in arrays: what lies deeper is not shown.
constexpr int deepest = 4;

std::string literal(const VARIANT& value, int depth);

template <class Number> std::string number(Number value) {
    std::array<char, 64> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return {buffer.data(), end};
}

template <class... Values> std::string formatted(const char* format, Values... values) {
    std::array<char, 64> buffer;
    const int length = std::snprintf(buffer.data(), buffer.size(), format, values...);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

std::string currency(const CY& value) {
    const bool negative = value.int64 < 0;
    const ULONGLONG amount = negative ? 0 - static_cast<ULONGLONG>(value.int64) : static_cast<ULONGLONG>(value.int64);
    std::string text = (negative ? "-" : "") + number(amount / 10000);
    if (const auto fraction = static_cast<unsigned>(amount % 10000); fraction != 0) {
        text += formatted(".%04u", fraction);
        text.erase(text.find_last_not_of('0') + 1);
    }
    return text;
}

std::string date(DATE value) {
    SYSTEMTIME time{};
    if (!VariantTimeToSystemTime(value, &time)) {
        return "#" + number(value) + "#";
    }
    std::string text = formatted("#%04u-%02u-%02u", unsigned{time.wYear}, unsigned{time.wMonth}, unsigned{time.wDay});
    if (time.wHour != 0 || time.wMinute != 0 || time.wSecond != 0) {
        text += formatted(" %02u:%02u:%02u", unsigned{time.wHour}, unsigned{time.wMinute}, unsigned{time.wSecond});
    }
    return text + "#";
}

std::string decimal(const VARIANT& value) {
    Variant text;
    return SUCCEEDED(VariantChangeType(&text, &value, 0, VT_BSTR)) ? utf8FromUtf16({text.bstrVal, SysStringLen(text.bstrVal)})
                                                                   : "?";
}

std::string record(const VARIANT& value, int depth) {
    IRecordInfo* const info = value.pRecInfo;
    String name;
    ULONG count = 0;
    if (!info || FAILED(info->GetName(name.out())) || FAILED(info->GetFieldNames(&count, nullptr))) {
        return "record";
    }
    std::vector<String> fields(count);
    if (!value.pvRecord || FAILED(info->GetFieldNames(&count, reinterpret_cast<BSTR*>(fields.data())))) {
        return name.utf8() + "{}";
    }
    std::string text = name.utf8() + "{";
    for (ULONG i = 0; i < count; ++i) {
        VARIANT field{};
        const HRESULT status = info->GetFieldNoCopy(value.pvRecord, fields[i].get(), &field, nullptr);
        text += (i == 0 ? "" : ", ") + fields[i].utf8() + ": " + (SUCCEEDED(status) ? literal(field, depth + 1) : "?");
    }
    return text + "}";
}

/// An element of an array as a by-reference variant.
VARIANT elementOf(const SAFEARRAY& array, VARTYPE type, IRecordInfo* info, ULONG index) {
    VARIANT element{};
    element.vt = VT_BYREF | type;
    element.byref = static_cast<std::byte*>(array.pvData) + std::size_t{index} * array.cbElements;
    if (type == VT_RECORD) {
        element.pRecInfo = info;
    }
    return element;
}

std::string array(SAFEARRAY* array, int depth) {
    VARTYPE type = VT_EMPTY;
    if (!array || FAILED(SafeArrayGetVartype(array, &type))) {
        return "[0]";
    }
    std::string text = "[";
    ULONGLONG count = 1;
    for (USHORT i = array->cDims; i > 0; --i) {
        const ULONG elements = array->rgsabound[i - 1].cElements;
        text += (i == array->cDims ? "" : "x") + number(elements);
        count *= elements;
    }
    Ref<IRecordInfo> info;
    if (type == VT_RECORD) {
        SafeArrayGetRecordInfo(array, info.out());
    }
    for (ULONG i = 0; array->pvData && i < count; ++i) {
        text += i == 0 ? ": " : ", ";
        if (i == mostElements) {
            text += "...";
            break;
        }
        text += literal(elementOf(*array, type, info.get(), i), depth + 1);
    }
    return text + "]";
}

std::string literal(const VARIANT& value, int depth) {
    if (depth > deepest) {
        return "...";
    }
    if (value.vt & VT_BYREF) {
        VARIANT target{};
        return SUCCEEDED(automation::borrowValue(value, target)) ? literal(target, depth) : "?";
    }
    if (value.vt & VT_ARRAY) {
        return array(value.parray, depth);
    }
    switch (value.vt) {
    case VT_EMPTY:
        return "Empty";
    case VT_NULL:
        return "Null";
    case VT_I1:
        return number(int{value.cVal});
    case VT_UI1:
        return number(int{value.bVal});
    case VT_I2:
        return number(value.iVal);
    case VT_UI2:
        return number(value.uiVal);
    case VT_I4:
    case VT_INT:
        return number(value.lVal);
    case VT_UI4:
    case VT_UINT:
        return number(value.ulVal);
    case VT_I8:
        return number(value.llVal);
    case VT_UI8:
        return number(value.ullVal);
    case VT_R4:
        return number(value.fltVal);
    case VT_R8:
        return number(value.dblVal);
    case VT_CY:
        return currency(value.cyVal);
    case VT_DATE:
        return date(value.date);
    case VT_DECIMAL:
        return decimal(value);
    case VT_BOOL:
        return value.boolVal ? "True" : "False";
    case VT_ERROR:
        return formatted("Error 0x%08X", static_cast<unsigned>(value.scode));
    case VT_BSTR:
        return quoted(value.bstrVal ? std::u16string_view(value.bstrVal, SysStringLen(value.bstrVal)) : std::u16string_view());
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return value.punkVal ? nameOfObject(*value.punkVal) : "Nothing";
    case VT_RECORD:
        return record(value, depth);
    default:
        return formatted("type %u", unsigned{value.vt});
    }
}

} // namespace

std::string literalOf(const VARIANT& value) {
    return literal(value, 0);
}

std::string quoted(std::u16string_view text) {
    const bool cut = text.size() > longestString;
    if (cut) {
        const bool splitsPair = (text[longestString - 1] & 0xFC00) == 0xD800;
        text = text.substr(0, splitsPair ? longestString - 1 : longestString);
    }
    std::string result = "\"";
    for (const char c : utf8FromUtf16(text)) {
        switch (c) {
        case '"':
        case '\\':
            result += {'\\', c};
            break;
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        case '\t':
            result += "\\t";
            break;
        default:
            result += static_cast<unsigned char>(c) < ' ' || c == '\x7F' ? formatted("\\x%02X", static_cast<unsigned>(c))
                                                                         : std::string(1, c);
            break;
        }
    }
    return result + (cut ? "\"..." : "\"");
}

std::string nameOfObject(IUnknown& object) {
    const Ref<IUnknown> held(&object);
    Ref<ITypeInfo> info;
    if (const Ref<IProvideClassInfo> provider = held.as<IProvideClassInfo>()) {
        provider->GetClassInfo(info.out());
    }
    if (!info) {
        if (const Ref<IDispatch> dispatch = held.as<IDispatch>()) {
            dispatch->GetTypeInfo(0, 0, info.out());
        }
    }
    String name;
    if (!info || FAILED(info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr)) || name.empty()) {
        return "object";
    }
    std::string text = name.utf8();
    return text.size() > 1 && text.front() == '_' ? text.substr(1) : text;
}

} // namespace mox::typelib
