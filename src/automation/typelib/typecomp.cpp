#include "automation/typelib/typecomp.h"

#include "automation/typelib/dispatch.h"
#include "automation/typelib/libraryobject.h"

namespace mox::typelib {

TypeComp::TypeComp(TypeInfo& type) : LibraryPart(type.type().library.state), type_(type) {}

HRESULT TypeComp::Bind(LPOLESTR name, ULONG, WORD flags, ITypeInfo** type, DESCKIND* kind, BINDPTR* result) {
    if (!name || !type || !kind || !result) {
        return E_INVALIDARG;
    }
    *type = nullptr;
    *kind = DESCKIND_NONE;
    *result = {};
    if (VARDESC* variable = type_.findVariable(name)) {
        if (flags != 0 && !(flags & INVOKE_PROPERTYGET)) {
            return TYPE_E_TYPEMISMATCH;
        }
        *kind = DESCKIND_VARDESC;
        result->lpvardesc = variable;
        return give<ITypeInfo>(type_, type);
    }
    const InterfaceDescription* members = type_.callable();
    const Member* const first = members ? findMember(*members, name) : nullptr;
    for (const Member* member = first; member; member = nextMember(*members, *member)) {
        if (flags != 0 && !(flags & member->kind)) {
            continue;
        }
        return statusOf([&] {
            // The members of a class are those of its default interface.
            TypeInfo& owner =
                type_.type().kind == TypeKind::Class ? Library::of(members->library).typeInfo(*members, View::Dispatch) : type_;
            *kind = DESCKIND_FUNCDESC;
            result->lpfuncdesc = &owner.contents().functions()[static_cast<std::size_t>(member - members->members.data())];
            return give<ITypeInfo>(owner, type);
        });
    }
    return first ? TYPE_E_TYPEMISMATCH : S_OK;
}

HRESULT TypeComp::BindType(LPOLESTR name, ULONG, ITypeInfo** type, ITypeComp** comp) {
    if (!name || !type || !comp) {
        return E_INVALIDARG;
    }
    *type = nullptr;
    *comp = nullptr;
    return S_OK;
}

} // namespace mox::typelib
