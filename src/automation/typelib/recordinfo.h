// IRecordInfo over one record type of a library.
#pragma once

#include "automation/typelib/librarypart.h"

namespace mox::typelib {

/// Works on values of one record type by the functions of its table. Owned by its library.
class RecordInfo final : public LibraryPart<IRecordInfo> {
public:
    explicit RecordInfo(const RecordDescription& record);

    HRESULT RecordInit(PVOID place) override;
    HRESULT RecordClear(PVOID value) override;
    /// Both are values already. If the copy fails, `target` is left empty.
    HRESULT RecordCopy(PVOID source, PVOID target) override;
    HRESULT GetGuid(GUID* result) override;
    HRESULT GetName(BSTR* result) override;
    HRESULT GetSize(ULONG* result) override;
    HRESULT GetTypeInfo(ITypeInfo** result) override;
    /// `result` is a pure out place: what it held is not cleared. The caller clears what it gets.
    HRESULT GetField(PVOID data, LPCOLESTR name, VARIANT* result) override;
    /// Gives a by-reference variant onto the field, valid as long as the record is. A nested record's description in it is
    /// borrowed.
    HRESULT GetFieldNoCopy(PVOID data, LPCOLESTR name, VARIANT* result, PVOID* arrayData) override;
    HRESULT PutField(ULONG flags, PVOID data, LPCOLESTR name, VARIANT* value) override;
    /// Moves `value`, which must be of exactly the field's type and is empty afterwards; if it fails, the caller keeps it.
    HRESULT PutFieldNoCopy(ULONG flags, PVOID data, LPCOLESTR name, VARIANT* value) override;
    /// With `names` null just gives the number of fields; else gives as many names as `count` says and there are.
    HRESULT GetFieldNames(ULONG* count, BSTR* names) override;
    BOOL IsMatchingType(IRecordInfo* other) override;
    PVOID RecordCreate() override;
    HRESULT RecordCreateCopy(PVOID source, PVOID* result) override;
    HRESULT RecordDestroy(PVOID value) override;

private:
    const Field* findField(const char16_t* name) const noexcept;

    const RecordDescription& record_;
};

} // namespace mox::typelib
