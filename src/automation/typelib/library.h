// Libraries of types at run time.
#pragma once

#include "automation/objects/export.h"
#include "automation/typelib/description.h"

namespace mox::typelib {

/// Makes a library known in this process, so that its records are found by their identifiers. Called when its file is loaded.
MOX_API void addLibrary(const LibraryDescription& library);
/// The opposite, before the file goes: ends the library's type information, to which no reference is left.
MOX_API void removeLibrary(const LibraryDescription& library) noexcept;

/// The library as `ITypeLib`, with a reference for the caller. References on it or on any of its types count as locks of the
/// library's file.
MOX_API HRESULT getTypeLib(const LibraryDescription& library, ITypeLib** result) noexcept;
/// A record's `IRecordInfo`, with a reference for the caller.
MOX_API HRESULT getRecordInfo(const RecordDescription& record, IRecordInfo** result) noexcept;

} // namespace mox::typelib
