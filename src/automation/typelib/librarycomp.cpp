#include "automation/typelib/librarycomp.h"

#include "automation/typelib/dispatch.h"
#include "automation/typelib/libraryobject.h"

#include <algorithm>

namespace mox::typelib {

namespace {

const ClassDescription* asApplication(const TypeDescription& type) {
    const auto* application = type.kind == TypeKind::Class ? static_cast<const ClassDescription*>(&type) : nullptr;
    return application && application->appObject ? application : nullptr;
}

} // namespace

LibraryComp::LibraryComp(Library& library, const LibraryDescription& description)
    : LibraryPart(description.state), library_(library), description_(description) {}

HRESULT LibraryComp::Bind(LPOLESTR name, ULONG, WORD flags, ITypeInfo** type, DESCKIND* kind, BINDPTR* result) {
    if (!name || !type || !kind || !result) {
        return E_INVALIDARG;
    }
    *type = nullptr;
    *kind = DESCKIND_NONE;
    *result = {};
    return statusOf([&]() -> HRESULT {
        const TypeDescription* named = library_.findType(name);
        if (named && named->kind == TypeKind::Enum) {
            *kind = DESCKIND_TYPECOMP;
            return library_.typeInfo(*named, View::Dispatch).GetTypeComp(&result->lptcomp);
        }
        if (named && asApplication(*named)) {
            return bindInstance(*named, type, kind, result);
        }
        const HRESULT status = bindEnumValue(name, flags, type, kind, result);
        return FAILED(status) || *kind != DESCKIND_NONE ? status : bindApplicationMember(name, flags, type, kind, result);
    });
}

HRESULT LibraryComp::bindEnumValue(LPOLESTR name, WORD flags, ITypeInfo** type, DESCKIND* kind, BINDPTR* result) {
    const EnumDescription* owner = nullptr;
    for (const TypeDescription* candidate : description_.types) {
        if (candidate->kind != TypeKind::Enum) {
            continue;
        }
        const auto& values = static_cast<const EnumDescription*>(candidate)->values;
        if (std::ranges::any_of(values, [&](const EnumValue& value) { return sameName(value.name, name); })) {
            if (owner) {
                return TYPE_E_AMBIGUOUSNAME;
            }
            owner = static_cast<const EnumDescription*>(candidate);
        }
    }
    ITypeComp* comp = nullptr;
    if (!owner || FAILED(library_.typeInfo(*owner, View::Dispatch).GetTypeComp(&comp))) {
        return S_OK;
    }
    return Ref<ITypeComp>::attach(comp)->Bind(name, 0, flags, type, kind, result);
}

HRESULT LibraryComp::bindApplicationMember(LPOLESTR name, WORD flags, ITypeInfo** type, DESCKIND* kind, BINDPTR* result) {
    bool foundOther = false;
    for (const TypeDescription* candidate : description_.types) {
        const ClassDescription* application = asApplication(*candidate);
        if (!application || !application->defaultInterface) {
            continue;
        }
        const InterfaceDescription& members = *application->defaultInterface;
        for (const Member* member = findMember(members, name); member; member = nextMember(members, *member)) {
            if (flags == 0 || (flags & member->kind)) {
                return bindInstance(*application, type, kind, result);
            }
            foundOther = true;
        }
    }
    return foundOther ? TYPE_E_TYPEMISMATCH : S_OK;
}

HRESULT LibraryComp::bindInstance(const TypeDescription& application, ITypeInfo** type, DESCKIND* kind, BINDPTR* result) {
    TypeInfo& info = library_.typeInfo(application, View::Dispatch);
    *kind = DESCKIND_IMPLICITAPPOBJ;
    result->lpvardesc = info.contents().instance();
    return give<ITypeInfo>(info, type);
}

HRESULT LibraryComp::BindType(LPOLESTR name, ULONG, ITypeInfo** type, ITypeComp** comp) {
    if (!name || !type || !comp) {
        return E_INVALIDARG;
    }
    *type = nullptr;
    *comp = nullptr;
    const TypeDescription* found = library_.findType(name);
    return found ? statusOf([&] { return give<ITypeInfo>(library_.typeInfo(*found, View::Dispatch), type); }) : S_OK;
}

} // namespace mox::typelib
