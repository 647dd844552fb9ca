// A library at run time: its ITypeLib, and the owner of everything behind it.
#pragma once

#include "automation/typelib/librarycomp.h"
#include "automation/typelib/librarypart.h"
#include "automation/typelib/recordinfo.h"
#include "automation/typelib/typeinfo.h"

#include <array>
#include <memory>
#include <mutex>
#include <vector>

namespace mox::typelib {

/// Serves one library from its tables. Type information is made when it is first asked for and kept from then on.
class Library final : public LibraryPart<ITypeLib> {
public:
    explicit Library(const LibraryDescription& description);

    /// The library of that description, which becomes known in this process if it is not.
    static Library& of(const LibraryDescription& description);

    const LibraryDescription& description() const noexcept { return description_; }
    TypeInfo& typeInfo(const TypeDescription& type, View view);
    RecordInfo& recordInfo(const RecordDescription& record) noexcept { return *records_[record.index]; }
    /// Null if the library has no type of that identifier or name.
    const TypeDescription* findType(REFGUID id) const noexcept;
    const TypeDescription* findType(const char16_t* name) const noexcept;

    UINT GetTypeInfoCount() override;
    HRESULT GetTypeInfo(UINT index, ITypeInfo** result) override;
    HRESULT GetTypeInfoType(UINT index, TYPEKIND* result) override;
    HRESULT GetTypeInfoOfGuid(REFGUID id, ITypeInfo** result) override;
    HRESULT GetLibAttr(TLIBATTR** result) override;
    HRESULT GetTypeComp(ITypeComp** result) override;
    HRESULT GetDocumentation(INT index, BSTR* name, BSTR* help, DWORD* helpContext, BSTR* helpFile) override;
    HRESULT IsName(LPOLESTR name, ULONG hash, BOOL* result) override;
    HRESULT FindName(LPOLESTR name, ULONG hash, ITypeInfo** types, MEMBERID* ids, USHORT* count) override;
    void ReleaseTLibAttr(TLIBATTR*) override {}

private:
    struct Views {
        std::array<std::unique_ptr<TypeInfo>, 2> infos;
    };

    const LibraryDescription& description_;
    TLIBATTR attributes_{};
    LibraryComp comp_;
    /// By the index of the type; null for other types than records.
    std::vector<std::unique_ptr<RecordInfo>> records_;
    /// Types that have an identifier, in its order.
    std::vector<const TypeDescription*> byId_;
    std::mutex guard_;
    std::vector<Views> types_;
};

} // namespace mox::typelib
