// ITypeInfo over one type of a library.
#pragma once

#include "automation/typelib/librarypart.h"
#include "automation/typelib/typecomp.h"
#include "automation/typelib/typecontents.h"

namespace mox::typelib {

class Library;

/// One type in one view. Owned by its library. The structures that it hands out stay as long as it does, so giving them back does
/// nothing.
class TypeInfo final : public LibraryPart<ITypeInfo> {
public:
    TypeInfo(Library& library, const TypeDescription& type, View view);

    const TypeDescription& type() const noexcept { return type_; }
    TypeContents& contents() noexcept { return contents_; }
    /// The variable of that name; null if there is none.
    VARDESC* findVariable(const char16_t* name) noexcept;
    /// The interface whose members this type has: itself or, of a class, the default interface; null for all others.
    const InterfaceDescription* callable() const noexcept;

    HRESULT GetTypeAttr(TYPEATTR** result) override;
    HRESULT GetTypeComp(ITypeComp** result) override;
    HRESULT GetFuncDesc(UINT index, FUNCDESC** result) override;
    HRESULT GetVarDesc(UINT index, VARDESC** result) override;
    HRESULT GetNames(MEMBERID id, BSTR* names, UINT most, UINT* count) override;
    HRESULT GetRefTypeOfImplType(UINT index, HREFTYPE* result) override;
    HRESULT GetImplTypeFlags(UINT index, INT* result) override;
    HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override;
    HRESULT Invoke(PVOID instance, MEMBERID id, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                   UINT* badArgument) override;
    HRESULT GetDocumentation(MEMBERID id, BSTR* name, BSTR* help, DWORD* helpContext, BSTR* helpFile) override;
    HRESULT GetDllEntry(MEMBERID id, INVOKEKIND kind, BSTR* file, BSTR* name, WORD* ordinal) override;
    HRESULT GetRefTypeInfo(HREFTYPE handle, ITypeInfo** result) override;
    HRESULT AddressOfMember(MEMBERID id, INVOKEKIND kind, PVOID* result) override;
    HRESULT CreateInstance(IUnknown* outer, REFIID iid, PVOID* result) override;
    HRESULT GetMops(MEMBERID id, BSTR* result) override;
    HRESULT GetContainingTypeLib(ITypeLib** library, UINT* index) override;
    void ReleaseTypeAttr(TYPEATTR*) override {}
    void ReleaseFuncDesc(FUNCDESC*) override {}
    void ReleaseVarDesc(VARDESC*) override {}

private:
    struct Documented {
        const char16_t* name;
        const char16_t* help;
    };

    /// The member of that identifier; of a property the one that gives its value, if there is one.
    const Member* findMember(MEMBERID id) const noexcept;
    Documented find(MEMBERID id) noexcept;

    Library& library_;
    const TypeDescription& type_;
    const View view_;
    TypeContents contents_;
    TypeComp comp_;
};

} // namespace mox::typelib
