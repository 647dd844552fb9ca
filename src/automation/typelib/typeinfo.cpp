#include "automation/typelib/typeinfo.h"

#include "automation/typelib/dispatch.h"
#include "automation/typelib/libraryobject.h"
#include "automation/typelib/variables.h"

#include <algorithm>

namespace mox::typelib {

namespace {

/// The name under which the slots of an interface take the place of their result.
constexpr const char16_t* resultName = u"result";

} // namespace

TypeInfo::TypeInfo(Library& library, const TypeDescription& type, View view)
    : LibraryPart(type.library.state), library_(library), type_(type), view_(view), contents_(type, view), comp_(*this) {}

VARDESC* TypeInfo::findVariable(const char16_t* name) noexcept {
    const NamedVariable found = typelib::findVariable(type_, name);
    return found ? &contents_.variables()[found.index()] : nullptr;
}

const InterfaceDescription* TypeInfo::callable() const noexcept {
    switch (type_.kind) {
    case TypeKind::Interface:
    case TypeKind::Events:
        return &static_cast<const InterfaceDescription&>(type_);
    case TypeKind::Class:
        return static_cast<const ClassDescription&>(type_).defaultInterface;
    default:
        return nullptr;
    }
}

const Member* TypeInfo::findMember(MEMBERID id) const noexcept {
    const InterfaceDescription* own = type_.kind == TypeKind::Class ? nullptr : callable();
    const Member* const first = own ? typelib::findMember(*own, id) : nullptr;
    for (const Member* member = first; member; member = nextMember(*own, *member)) {
        if (member->kind == INVOKE_PROPERTYGET) {
            return member;
        }
    }
    return first;
}

TypeInfo::Documented TypeInfo::find(MEMBERID id) noexcept {
    if (id == MEMBERID_NIL) {
        return {type_.name, type_.help};
    }
    if (const Member* member = findMember(id)) {
        return {member->name, member->help};
    }
    if (const NamedVariable variable = typelib::findVariable(type_, id)) {
        return {variable.name, variable.help};
    }
    if (id == MEMBERID_DEFAULTINST && contents_.instance()) {
        return {type_.name, type_.help};
    }
    return {nullptr, nullptr};
}

HRESULT TypeInfo::GetTypeAttr(TYPEATTR** result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = &contents_.attributes();
    return S_OK;
}

HRESULT TypeInfo::GetTypeComp(ITypeComp** result) {
    return result ? give<ITypeComp>(comp_, result) : E_INVALIDARG;
}

HRESULT TypeInfo::GetFuncDesc(UINT index, FUNCDESC** result) {
    if (!result) {
        return E_INVALIDARG;
    }
    const bool known = index < contents_.functions().size();
    *result = known ? &contents_.functions()[index] : nullptr;
    return known ? S_OK : TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInfo::GetVarDesc(UINT index, VARDESC** result) {
    if (!result) {
        return E_INVALIDARG;
    }
    const bool known = index < contents_.variables().size();
    *result = known ? &contents_.variables()[index] : nullptr;
    return known ? S_OK : TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInfo::GetNames(MEMBERID id, BSTR* names, UINT most, UINT* count) {
    if (!names || !count || most == 0) {
        return E_INVALIDARG;
    }
    *count = 0;
    const Documented named = id == MEMBERID_NIL ? Documented{} : find(id);
    if (!named.name) {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    return statusOf([&] {
        std::vector<String> found{String(named.name)};
        if (const Member* member = findMember(id)) {
            for (const Parameter& parameter : member->parameters) {
                found.emplace_back(parameter.name);
            }
            if (view_ == View::Slots && member->result.variant != VT_VOID) {
                found.emplace_back(resultName);
            }
        }
        *count = std::min(most, static_cast<UINT>(found.size()));
        for (UINT i = 0; i < *count; ++i) {
            names[i] = found[i].detach();
        }
        return S_OK;
    });
}

HRESULT TypeInfo::GetRefTypeOfImplType(UINT index, HREFTYPE* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = 0;
    if (index == static_cast<UINT>(-1) && contents_.otherView()) {
        *result = *contents_.otherView();
        return S_OK;
    }
    if (index >= contents_.implemented().size()) {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    *result = contents_.implemented()[index].handle;
    return S_OK;
}

HRESULT TypeInfo::GetImplTypeFlags(UINT index, INT* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = 0;
    if (index >= contents_.implemented().size()) {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    *result = contents_.implemented()[index].flags;
    return S_OK;
}

HRESULT TypeInfo::GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) {
    if (!names || !ids || count == 0) {
        return E_INVALIDARG;
    }
    if (const InterfaceDescription* members = callable()) {
        return getIdsOfNames(*members, GUID_NULL, names, count, ids);
    }
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const VARDESC* variable = names[0] ? findVariable(names[0]) : nullptr;
    if (variable) {
        ids[0] = variable->memid;
    }
    return variable && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT TypeInfo::Invoke(PVOID instance, MEMBERID id, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                         UINT* badArgument) {
    if (!instance || !parameters) {
        return E_INVALIDARG;
    }
    if (type_.kind == TypeKind::Events) { // a sink is called through its IDispatch, the only interface that it has
        return static_cast<IDispatch*>(instance)->Invoke(id, GUID_NULL, 0, flags, parameters, result, exception, badArgument);
    }
    const InterfaceDescription* members = callable();
    return members ? invoke(*members, instance, id, GUID_NULL, flags, parameters, result, exception, badArgument)
                   : TYPE_E_WRONGTYPEKIND;
}

HRESULT TypeInfo::GetDocumentation(MEMBERID id, BSTR* name, BSTR* help, DWORD* helpContext, BSTR* helpFile) {
    const Documented found = find(id);
    return found.name ? giveDocumentation(found.name, found.help, name, help, helpContext, helpFile) : TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInfo::GetDllEntry(MEMBERID, INVOKEKIND, BSTR* file, BSTR* name, WORD* ordinal) {
    if (file) {
        *file = nullptr;
    }
    if (name) {
        *name = nullptr;
    }
    if (ordinal) {
        *ordinal = 0;
    }
    return TYPE_E_BADMODULEKIND;
}

HRESULT TypeInfo::GetRefTypeInfo(HREFTYPE handle, ITypeInfo** result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = nullptr;
    const TypeContents::Target* target = contents_.target(handle);
    if (!target) {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    return statusOf(
        [&] { return give<ITypeInfo>(Library::of(target->type->library).typeInfo(*target->type, target->view), result); });
}

HRESULT TypeInfo::AddressOfMember(MEMBERID, INVOKEKIND, PVOID* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = nullptr;
    return TYPE_E_BADMODULEKIND;
}

HRESULT TypeInfo::CreateInstance(IUnknown* outer, REFIID iid, PVOID* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = nullptr;
    if (type_.kind != TypeKind::Class || !static_cast<const ClassDescription&>(type_).creatable) {
        return TYPE_E_WRONGTYPEKIND;
    }
    return CoCreateInstance(type_.id, outer, CLSCTX_INPROC_SERVER, iid, result);
}

HRESULT TypeInfo::GetMops(MEMBERID id, BSTR* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = nullptr; // nothing is marshalled
    return find(id).name ? S_OK : TYPE_E_ELEMENTNOTFOUND;
}

HRESULT TypeInfo::GetContainingTypeLib(ITypeLib** library, UINT* index) {
    if (index) {
        *index = type_.index;
    }
    return library ? give<ITypeLib>(library_, library) : S_OK;
}

} // namespace mox::typelib
