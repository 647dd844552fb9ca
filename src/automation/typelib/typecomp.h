// ITypeComp over one type of a library.
#pragma once

#include "automation/typelib/librarypart.h"

namespace mox::typelib {

class TypeInfo;

/// Binds the names of a type's members. Owned by its type.
class TypeComp final : public LibraryPart<ITypeComp> {
public:
    explicit TypeComp(TypeInfo& type);

    HRESULT Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** type, DESCKIND* kind, BINDPTR* result) override;
    /// A type has no types inside, so nothing is ever found.
    HRESULT BindType(LPOLESTR name, ULONG hash, ITypeInfo** type, ITypeComp** comp) override;

private:
    TypeInfo& type_;
};

} // namespace mox::typelib
