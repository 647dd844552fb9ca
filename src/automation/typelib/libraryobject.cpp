#include "automation/typelib/libraryobject.h"

#include "automation/typelib/dispatch.h"
#include "automation/typelib/variables.h"

#include <algorithm>

namespace mox::typelib {

namespace {

TYPEKIND kindOf(const TypeDescription& type) {
    switch (type.kind) {
    case TypeKind::Enum:
        return TKIND_ENUM;
    case TypeKind::Record:
        return TKIND_RECORD;
    case TypeKind::Alias:
        return TKIND_ALIAS;
    case TypeKind::Class:
        return TKIND_COCLASS;
    case TypeKind::Interface:
    case TypeKind::Events:
        break;
    }
    return TKIND_DISPATCH;
}

NamedVariable findMemberOf(const TypeDescription& type, const char16_t* name) {
    if (type.kind != TypeKind::Interface && type.kind != TypeKind::Events) {
        return findVariable(type, name);
    }
    const Member* member = findMember(static_cast<const InterfaceDescription&>(type), name);
    return member ? NamedVariable{member->name, member->help, member->id} : NamedVariable{};
}

/// Gives a name of the caller the capitals that it has in the library. Names that are the same have the same length.
void respell(LPOLESTR name, const char16_t* spelling) {
    std::copy_n(spelling, std::char_traits<char16_t>::length(spelling), name);
}

} // namespace

Library::Library(const LibraryDescription& description)
    : LibraryPart(description.state), description_(description), comp_(*this, description), types_(description.types.size()) {
    attributes_.guid = description.id;
    attributes_.lcid = description.lcid;
    attributes_.syskind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    attributes_.wMajorVerNum = description.major;
    attributes_.wMinorVerNum = description.minor;
    for (const TypeDescription* type : description.types) {
        const bool isRecord = type->kind == TypeKind::Record;
        records_.push_back(isRecord ? std::make_unique<RecordInfo>(static_cast<const RecordDescription&>(*type)) : nullptr);
        if (type->id != GUID_NULL) {
            byId_.push_back(type);
        }
    }
    std::ranges::sort(byId_, {}, &TypeDescription::id);
}

TypeInfo& Library::typeInfo(const TypeDescription& type, View view) {
    std::lock_guard lock(guard_);
    std::unique_ptr<TypeInfo>& info = types_[type.index].infos[static_cast<std::size_t>(view)];
    if (!info) {
        info = std::make_unique<TypeInfo>(*this, type, view);
    }
    return *info;
}

const TypeDescription* Library::findType(REFGUID id) const noexcept {
    const auto found = std::ranges::lower_bound(byId_, id, {}, &TypeDescription::id);
    return found != byId_.end() && (*found)->id == id ? *found : nullptr;
}

const TypeDescription* Library::findType(const char16_t* name) const noexcept {
    const auto found =
        std::ranges::find_if(description_.types, [&](const TypeDescription* type) { return sameName(type->name, name); });
    return found == description_.types.end() ? nullptr : *found;
}

UINT Library::GetTypeInfoCount() {
    return static_cast<UINT>(description_.types.size());
}

HRESULT Library::GetTypeInfo(UINT index, ITypeInfo** result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = nullptr;
    if (index >= description_.types.size()) {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    return statusOf([&] { return give<ITypeInfo>(typeInfo(*description_.types[index], View::Dispatch), result); });
}

HRESULT Library::GetTypeInfoType(UINT index, TYPEKIND* result) {
    if (!result) {
        return E_INVALIDARG;
    }
    if (index >= description_.types.size()) {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    *result = kindOf(*description_.types[index]);
    return S_OK;
}

HRESULT Library::GetTypeInfoOfGuid(REFGUID id, ITypeInfo** result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = nullptr;
    const TypeDescription* type = findType(id);
    return type ? GetTypeInfo(type->index, result) : TYPE_E_ELEMENTNOTFOUND;
}

HRESULT Library::GetLibAttr(TLIBATTR** result) {
    if (!result) {
        return E_INVALIDARG;
    }
    *result = &attributes_;
    return S_OK;
}

HRESULT Library::GetTypeComp(ITypeComp** result) {
    return result ? give<ITypeComp>(comp_, result) : E_INVALIDARG;
}

HRESULT Library::GetDocumentation(INT index, BSTR* name, BSTR* help, DWORD* helpContext, BSTR* helpFile) {
    if (index == -1) {
        return giveDocumentation(description_.name, description_.help, name, help, helpContext, helpFile);
    }
    if (index < 0 || static_cast<std::size_t>(index) >= description_.types.size()) {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    const TypeDescription& type = *description_.types[static_cast<std::size_t>(index)];
    return giveDocumentation(type.name, type.help, name, help, helpContext, helpFile);
}

HRESULT Library::IsName(LPOLESTR name, ULONG, BOOL* result) {
    if (!name || !result) {
        return E_INVALIDARG;
    }
    *result = 0;
    if (const TypeDescription* type = findType(name)) {
        respell(name, type->name);
        *result = 1;
        return S_OK;
    }
    for (const TypeDescription* type : description_.types) {
        if (const NamedVariable member = findMemberOf(*type, name)) {
            respell(name, member.name);
            *result = 1;
            break;
        }
    }
    return S_OK;
}

HRESULT Library::FindName(LPOLESTR name, ULONG, ITypeInfo** types, MEMBERID* ids, USHORT* count) {
    if (!name || !types || !ids || !count) {
        return E_INVALIDARG;
    }
    const USHORT most = *count;
    *count = 0;
    std::vector<Ref<ITypeInfo>> found;
    const HRESULT status = statusOf([&] {
        const auto add = [&](const TypeDescription& type, const char16_t* spelling, MEMBERID id) {
            if (found.size() < most) {
                found.emplace_back(&typeInfo(type, View::Dispatch));
                ids[found.size() - 1] = id;
                respell(name, spelling);
            }
        };
        for (const TypeDescription* type : description_.types) {
            if (sameName(type->name, name)) {
                add(*type, type->name, MEMBERID_NIL);
            }
            if (const NamedVariable member = findMemberOf(*type, name)) {
                add(*type, member.name, member.id);
            }
        }
        return S_OK;
    });
    if (SUCCEEDED(status)) {
        *count = static_cast<USHORT>(found.size());
        for (std::size_t i = 0; i < found.size(); ++i) {
            types[i] = found[i].detach();
        }
    }
    return status;
}

} // namespace mox::typelib
