#include "automation/objects/module.h"

#include "automation/objects/apartment.h"
#include "automation/objects/registration.h"
#include "automation/objects/runtimeerror.h"
#include "automation/typelib/library.h"

#include <mox/sharedobject.h>

#include <algorithm>
#include <mutex>
#include <string>
#include <vector>

namespace mox {

namespace {

std::mutex listGuard;
std::vector<const ServerModule*>& loadedModules() {
    static std::vector<const ServerModule*> list;
    return list;
}

/// Makes objects of one class. Counts as a lock of the file while it lives.
class ClassFactory final : public SharedObject<IClassFactory> {
public:
    ClassFactory(typelib::LibraryState& state, const ClassEntry& entry) : state_(state), entry_(entry) {
        state_.locks.fetch_add(1);
    }
    ~ClassFactory() override { state_.locks.fetch_sub(1); }

    HRESULT CreateInstance(IUnknown* outer, REFIID iid, void** result) override {
        if (!result) {
            return reportPlainStatus(E_POINTER);
        }
        *result = nullptr;
        if (outer) {
            return reportPlainStatus(CLASS_E_NOAGGREGATION);
        }
        try {
            return entry_.create()->QueryInterface(iid, result);
        } catch (...) {
            return reportCurrentException(entry_.description);
        }
    }
    HRESULT LockServer(BOOL lock) override {
        state_.locks.fetch_add(lock ? 1 : -1);
        return S_OK;
    }

private:
    typelib::LibraryState& state_;
    const ClassEntry& entry_;
};

bool hasProgId(const typelib::ClassDescription& type, std::u16string_view progId) {
    const std::u16string own = std::u16string(type.library.name) + u"." + type.name;
    return std::ranges::equal(own, progId, {}, typelib::foldCase, typelib::foldCase);
}

template <class Condition> const typelib::ClassDescription* findAmongLoaded(Condition&& condition) {
    std::lock_guard lock(listGuard);
    for (const ServerModule* module : loadedModules()) {
        for (const ClassEntry& entry : module->classes()) {
            if (condition(entry.description)) {
                return &entry.description;
            }
        }
    }
    return nullptr;
}

} // namespace

ServerModule::ServerModule(const typelib::LibraryDescription& library, std::span<const ClassEntry> classes)
    : library_(library), classes_(classes) {
    typelib::addLibrary(library_);
    std::lock_guard lock(listGuard);
    loadedModules().push_back(this);
}

ServerModule::~ServerModule() {
    {
        std::lock_guard lock(listGuard);
        std::erase(loadedModules(), this);
    }
    Apartment::dropStates(this);
    typelib::removeLibrary(library_);
}

HRESULT ServerModule::getClassObject(REFCLSID id, REFIID iid, void** result) const noexcept {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    if (id == CLSID_ServerTypeLibrary) {
        Ref<ITypeLib> library;
        const HRESULT status = typelib::getTypeLib(library_, library.out());
        return FAILED(status) ? status : library->QueryInterface(iid, result);
    }
    for (const ClassEntry& entry : classes_) {
        if (entry.description.id == id && entry.description.creatable && entry.create) {
            return makeShared<IClassFactory, ClassFactory>(library_.state, entry)->QueryInterface(iid, result);
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT ServerModule::canUnloadNow() const noexcept {
    return library_.state.locks.load(std::memory_order_acquire) == 0 ? S_OK : S_FALSE;
}

HRESULT ServerModule::registerServer() const noexcept {
    return automation::registerModule(*this);
}

HRESULT ServerModule::unregisterServer() const noexcept {
    return automation::unregisterModule(*this);
}

bool ServerModule::has(REFCLSID id) const noexcept {
    return std::ranges::any_of(classes_, [&](const ClassEntry& entry) { return entry.description.id == id; });
}

const ClassEntry* ServerModule::find(const typelib::ClassDescription& type) const noexcept {
    const auto found = std::ranges::find(classes_, &type, [](const ClassEntry& entry) { return &entry.description; });
    return found == classes_.end() ? nullptr : &*found;
}

Ref<IDispatch> ServerModule::create(const typelib::ClassDescription& type) const {
    const ClassEntry* entry = find(type);
    if (!entry || !entry->create) {
        throw RuntimeError(errActionNotSupported);
    }
    return entry->create();
}

const typelib::ClassDescription* ServerModule::findProgId(std::u16string_view progId) {
    return findAmongLoaded([&](const typelib::ClassDescription& type) { return type.creatable && hasProgId(type, progId); });
}

const typelib::ClassDescription* ServerModule::findClass(REFCLSID id) {
    return findAmongLoaded([&](const typelib::ClassDescription& type) { return type.id == id; });
}

} // namespace mox
