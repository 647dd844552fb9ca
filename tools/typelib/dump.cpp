#include "dump.h"

#include <mox/client/error.h>

#include <memory>

namespace mox::tools {

namespace {

using nlohmann::ordered_json;

// The structures that type information lends.
class Attributes {
public:
    explicit Attributes(ITypeInfo& type) : type_(type) { client::succeed(type.GetTypeAttr(&value_)); }
    ~Attributes() { type_.ReleaseTypeAttr(value_); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    const TYPEATTR* operator->() const { return value_; }

private:
    ITypeInfo& type_;
    TYPEATTR* value_ = nullptr;
};

class Function {
public:
    Function(ITypeInfo& type, UINT index) : type_(type) { client::succeed(type.GetFuncDesc(index, &value_)); }
    ~Function() { type_.ReleaseFuncDesc(value_); }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    const FUNCDESC* operator->() const { return value_; }

private:
    ITypeInfo& type_;
    FUNCDESC* value_ = nullptr;
};

class Variable {
public:
    Variable(ITypeInfo& type, UINT index) : type_(type) { client::succeed(type.GetVarDesc(index, &value_)); }
    ~Variable() { type_.ReleaseVarDesc(value_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    const VARDESC* operator->() const { return value_; }

private:
    ITypeInfo& type_;
    VARDESC* value_ = nullptr;
};

std::string documentation(ITypeInfo& type, MEMBERID member, bool help = false) {
    String name;
    String text;
    client::succeed(type.GetDocumentation(member, name.out(), text.out(), nullptr, nullptr));
    return help ? text.utf8() : name.utf8();
}

Ref<ITypeInfo> referenced(ITypeInfo& type, HREFTYPE reference) {
    Ref<ITypeInfo> result;
    client::succeed(type.GetRefTypeInfo(reference, result.out()));
    return result;
}

ordered_json identifier(const GUID& id) {
    char16_t text[40];
    if (id == GUID_NULL || StringFromGUID2(id, text, 40) == 0) {
        return nullptr;
    }
    return utf8FromUtf16(std::u16string_view(text).substr(1, 36));
}

const char* plainName(VARTYPE type) {
    switch (type) {
    case VT_I4:
    case VT_INT:
        return "Long";
    case VT_I2:
        return "Integer";
    case VT_UI1:
        return "Byte";
    case VT_R4:
        return "Single";
    case VT_R8:
        return "Double";
    case VT_BOOL:
        return "Boolean";
    case VT_BSTR:
        return "String";
    case VT_DATE:
        return "Date";
    case VT_CY:
        return "Currency";
    case VT_VARIANT:
        return "Variant";
    case VT_DISPATCH:
        return "IDispatch";
    case VT_UNKNOWN:
        return "IUnknown";
    default:
        return "?";
    }
}

/// A type's name; pointers are seen through and told by `pointers`.
std::string typeName(ITypeInfo& owner, const TYPEDESC& type, int& pointers) {
    switch (type.vt) {
    case VT_PTR:
        ++pointers;
        return typeName(owner, *type.lptdesc, pointers);
    case VT_SAFEARRAY: {
        int ofElements = 0;
        return "array of " + typeName(owner, *type.lptdesc, ofElements);
    }
    case VT_USERDEFINED:
        return documentation(*referenced(owner, type.hreftype), -1);
    default:
        return plainName(type.vt);
    }
}

/// Objects are pointers by nature.
bool isObject(ITypeInfo& owner, const TYPEDESC& type) {
    if (type.vt == VT_PTR) {
        return isObject(owner, *type.lptdesc);
    }
    if (type.vt != VT_USERDEFINED) {
        return false;
    }
    const Ref<ITypeInfo> named = referenced(owner, type.hreftype);
    const Attributes attributes(*named);
    return attributes->typekind == TKIND_DISPATCH || attributes->typekind == TKIND_INTERFACE;
}

ordered_json constant(const VARIANT& value) {
    switch (value.vt) {
    case VT_BOOL:
        return value.boolVal != VARIANT_FALSE;
    case VT_BSTR:
        return utf8FromUtf16({value.bstrVal ? value.bstrVal : u"", SysStringLen(value.bstrVal)});
    case VT_R4:
        return value.fltVal;
    case VT_R8:
        return value.dblVal;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return "Nothing";
    default:
        return Variant(value).as<Long>();
    }
}

ordered_json argument(ITypeInfo& type, const ELEMDESC& element, const std::string& name) {
    int pointers = 0;
    ordered_json result{{"name", name}, {"type", typeName(type, element.tdesc, pointers)}};
    result["byref"] = pointers > (isObject(type, element.tdesc) ? 1 : 0);
    const USHORT flags = element.paramdesc.wParamFlags;
    result["optional"] = (flags & PARAMFLAG_FOPT) != 0;
    result["default"] = nullptr;
    if (flags & PARAMFLAG_FHASDEFAULT) {
        result["default"] = constant(element.paramdesc.pparamdescex->varDefaultValue);
    }
    return result;
}

ordered_json arguments(ITypeInfo& type, const Function& function) {
    std::vector<BSTR> names(static_cast<std::size_t>(function->cParams) + 1);
    UINT count = 0;
    client::succeed(type.GetNames(function->memid, names.data(), static_cast<UINT>(names.size()), &count));
    ordered_json result = ordered_json::array();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const String name = String::attach(names[i]);
        if (i > 0) {
            // A property's value has a name only where the names of a Let are asked for by themselves.
            result.push_back(argument(type, function->lprgelemdescParam[i - 1], i < count ? name.utf8() : "value"));
        }
    }
    return result;
}

ordered_json member(ITypeInfo& type, const Function& function) {
    const char* kind = function->invkind == INVOKE_PROPERTYGET      ? "get"
                       : function->invkind == INVOKE_PROPERTYPUT    ? "let"
                       : function->invkind == INVOKE_PROPERTYPUTREF ? "set"
                                                                    : "method";
    int pointers = 0;
    const TYPEDESC& result = function->elemdescFunc.tdesc;
    ordered_json entry{{"name", documentation(type, function->memid)}, {"kind", kind}, {"args", arguments(type, function)}};
    entry["result"] = result.vt == VT_VOID ? ordered_json(nullptr) : ordered_json(typeName(type, result, pointers));
    entry["dispid"] = function->memid;
    entry["hidden"] = (function->wFuncFlags & FUNCFLAG_FHIDDEN) != 0;
    entry["nonbrowsable"] = (function->wFuncFlags & FUNCFLAG_FNONBROWSABLE) != 0;
    entry["help"] = documentation(type, function->memid, true);
    return entry;
}

ordered_json members(ITypeInfo& type, WORD count) {
    ordered_json result = ordered_json::array();
    for (WORD i = 0; i < count; ++i) {
        result.push_back(member(type, Function(type, i)));
    }
    return result;
}

ordered_json coclass(ITypeInfo& type, const Attributes& attributes) {
    ordered_json result{
        {"clsid", identifier(attributes->guid)}, {"creatable", (attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0},
        {"default_interface", nullptr},          {"iid", nullptr},
        {"source_interface", nullptr},           {"appobject", (attributes->wTypeFlags & TYPEFLAG_FAPPOBJECT) != 0},
        {"help", documentation(type, -1, true)}};
    for (UINT i = 0; i < attributes->cImplTypes; ++i) {
        INT flags = 0;
        HREFTYPE reference = 0;
        client::succeed(type.GetImplTypeFlags(i, &flags));
        client::succeed(type.GetRefTypeOfImplType(i, &reference));
        const Ref<ITypeInfo> implemented = referenced(type, reference);
        if (flags & IMPLTYPEFLAG_FSOURCE) {
            result["source_interface"] = documentation(*implemented, -1);
        } else {
            result["default_interface"] = documentation(*implemented, -1);
            result["iid"] = identifier(Attributes(*implemented)->guid);
        }
    }
    return result;
}

ordered_json enumeration(ITypeInfo& type, WORD count) {
    ordered_json result = ordered_json::object();
    for (WORD i = 0; i < count; ++i) {
        const Variable value(type, i);
        result[documentation(type, value->memid)] = Variant(*value->lpvarValue).as<Long>();
    }
    return result;
}

ordered_json record(ITypeInfo& type, WORD count) {
    ordered_json result = ordered_json::array();
    for (WORD i = 0; i < count; ++i) {
        const Variable field(type, i);
        int pointers = 0;
        result.push_back({documentation(type, field->memid), typeName(type, field->elemdescVar.tdesc, pointers)});
    }
    return result;
}

ordered_json libraryItself(ITypeLib& library) {
    TLIBATTR* attributes = nullptr;
    client::succeed(library.GetLibAttr(&attributes));
    String name;
    String help;
    client::succeed(library.GetDocumentation(-1, name.out(), help.out(), nullptr, nullptr));
    ordered_json result{{"name", name.utf8()},
                        {"version", std::to_string(attributes->wMajorVerNum) + "." + std::to_string(attributes->wMinorVerNum)},
                        {"libid", identifier(attributes->guid)},
                        {"lcid", attributes->lcid},
                        {"help", help.utf8()}};
    library.ReleaseTLibAttr(attributes);
    return result;
}

} // namespace

ordered_json dumpLibrary(ITypeLib& library) {
    ordered_json dump{{"library", libraryItself(library)},    {"coclasses", ordered_json::object()},
                      {"interfaces", ordered_json::object()}, {"events", ordered_json::object()},
                      {"enums", ordered_json::object()},      {"records", ordered_json::object()}};
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        Ref<ITypeInfo> type;
        client::succeed(library.GetTypeInfo(i, type.out()));
        const Attributes attributes(*type);
        const std::string name = documentation(*type, -1);
        switch (attributes->typekind) {
        case TKIND_COCLASS:
            dump["coclasses"][name] = coclass(*type, attributes);
            break;
        case TKIND_DISPATCH: {
            const bool dual = attributes->wTypeFlags & TYPEFLAG_FDUAL;
            dump[dual ? "interfaces" : "events"][name] = members(*type, attributes->cFuncs);
            break;
        }
        case TKIND_ENUM:
            dump["enums"][name] = enumeration(*type, attributes->cVars);
            break;
        case TKIND_RECORD:
            dump["records"][name] = record(*type, attributes->cVars);
            break;
        default:
            break;
        }
    }
    return dump;
}

std::string outline(const ordered_json& dump) {
    std::string text = dump["library"]["name"].get<std::string>() + " " + dump["library"]["version"].get<std::string>() + " - " +
                       dump["library"]["help"].get<std::string>() + "\n";
    for (const auto& [name, type] : dump["coclasses"].items()) {
        text += "\n" + name + " - " + type["help"].get<std::string>() + "\n";
        const std::string interface = type["default_interface"];
        for (const auto& member : dump["interfaces"].value(interface, ordered_json::array())) {
            text += "    " + member["name"].get<std::string>() + " (" + member["kind"].get<std::string>() + ") - " +
                    member["help"].get<std::string>() + "\n";
        }
    }
    return text;
}

} // namespace mox::tools
