#include "automation/typelib/library.h"

#include "automation/typelib/dispatch.h"
#include "automation/typelib/libraryobject.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <vector>

namespace mox::typelib {

namespace {

/// The libraries of this process.
class Registry {
public:
    /// It stays to the end of the process: values of static lifetime may hold records that still need their library when they go.
    static Registry& instance() {
        static Registry& registry = *std::make_unique<Registry>().release();
        return registry;
    }

    Library& add(const LibraryDescription& description) {
        std::unique_lock lock(guard_);
        if (Library* known = description.state.library.load(std::memory_order_acquire)) {
            return *known;
        }
        Library& added = *libraries_.emplace_back(std::make_unique<Library>(description));
        description.state.library.store(&added, std::memory_order_release);
        return added;
    }

    void remove(const LibraryDescription& description) {
        std::unique_lock lock(guard_);
        Library* const library = description.state.library.exchange(nullptr);
        std::erase_if(libraries_, [&](const std::unique_ptr<Library>& candidate) { return candidate.get() == library; });
    }

    HRESULT getRecordInfo(REFGUID id, ULONG major, ULONG minor, REFGUID recordId, IRecordInfo** result) {
        std::shared_lock lock(guard_);
        HRESULT status = TYPE_E_LIBNOTREGISTERED;
        for (const std::unique_ptr<Library>& library : libraries_) {
            const LibraryDescription& description = library->description();
            if (description.id != id || description.major != major || description.minor < minor) {
                continue;
            }
            const TypeDescription* type = library->findType(recordId);
            if (type && type->kind == TypeKind::Record) {
                return give<IRecordInfo>(library->recordInfo(static_cast<const RecordDescription&>(*type)), result);
            }
            status = TYPE_E_ELEMENTNOTFOUND;
        }
        return status;
    }

private:
    std::shared_mutex guard_;
    std::vector<std::unique_ptr<Library>> libraries_;
};

} // namespace

Library& Library::of(const LibraryDescription& description) {
    Library* const known = description.state.library.load(std::memory_order_acquire);
    return known ? *known : Registry::instance().add(description);
}

void addLibrary(const LibraryDescription& library) {
    Library::of(library);
}

void removeLibrary(const LibraryDescription& library) noexcept {
    Registry::instance().remove(library);
}

HRESULT getTypeLib(const LibraryDescription& library, ITypeLib** result) noexcept {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    return statusOf([&] { return give<ITypeLib>(Library::of(library), result); });
}

HRESULT getTypeInfo(const TypeDescription& type, ITypeInfo** result) noexcept {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    return statusOf([&] { return give<ITypeInfo>(Library::of(type.library).typeInfo(type, View::Dispatch), result); });
}

HRESULT getRecordInfo(const RecordDescription& record, IRecordInfo** result) noexcept {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    return statusOf([&] { return give<IRecordInfo>(Library::of(record.library).recordInfo(record), result); });
}

} // namespace mox::typelib

using namespace mox;

HRESULT GetRecordInfoFromGuids(REFGUID rGuidTypeLib, ULONG uVerMajor, ULONG uVerMinor, LCID, REFGUID rGuidTypeInfo,
                               IRecordInfo** ppRecInfo) {
    if (!ppRecInfo) {
        return E_INVALIDARG;
    }
    *ppRecInfo = nullptr;
    return typelib::Registry::instance().getRecordInfo(rGuidTypeLib, uVerMajor, uVerMinor, rGuidTypeInfo, ppRecInfo);
}
