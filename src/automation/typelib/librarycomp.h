// ITypeComp over a whole library.
#pragma once

#include "automation/typelib/librarypart.h"

namespace mox::typelib {

class Library;

/// Binds the names that a library offers without a qualifier: its types, the values of its enums, its application objects and
/// their members. Owned by its library.
class LibraryComp final : public LibraryPart<ITypeComp> {
public:
    LibraryComp(Library& library, const LibraryDescription& description);

    /// `TYPE_E_AMBIGUOUSNAME` if two enums have a value of that name.
    HRESULT Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** type, DESCKIND* kind, BINDPTR* result) override;
    HRESULT BindType(LPOLESTR name, ULONG hash, ITypeInfo** type, ITypeComp** comp) override;

private:
    HRESULT bindEnumValue(LPOLESTR name, WORD flags, ITypeInfo** type, DESCKIND* kind, BINDPTR* result);
    HRESULT bindApplicationMember(LPOLESTR name, WORD flags, ITypeInfo** type, DESCKIND* kind, BINDPTR* result);
    HRESULT bindInstance(const TypeDescription& application, ITypeInfo** type, DESCKIND* kind, BINDPTR* result);

    Library& library_;
    const LibraryDescription& description_;
};

} // namespace mox::typelib
