#include "automation/objects/activation.h"

#include "automation/objects/apartment.h"
#include "automation/objects/module.h"
#include "automation/objects/registration.h"

#include <mox/values.h>

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <memory>
#include <optional>
#include <vector>

namespace mox::automation {

namespace {

/// Any address of this library, to ask where it was loaded from.
const char here = 0;

/// The library's own server beside this library; empty if it is not known where this library is.
const std::filesystem::path& ownServer() {
    static const std::filesystem::path path = [] {
        Dl_info info{};
        const bool known = dladdr(&here, &info) && info.dli_fname;
        return known ? std::filesystem::path(info.dli_fname).parent_path() / "trl.obkr.mox.so" : std::filesystem::path();
    }();
    return path;
}

std::vector<std::filesystem::path> knownServers() {
    std::vector<std::filesystem::path> paths;
    if (const char* list = std::getenv("MOX_SERVER"); list && *list) {
        std::string_view rest = list;
        while (!rest.empty()) {
            const std::size_t colon = std::min(rest.find(':'), rest.size());
            if (colon > 0) {
                paths.emplace_back(rest.substr(0, colon));
            }
            rest.remove_prefix(std::min(colon + 1, rest.size()));
        }
        return paths;
    }
    if (!ownServer().empty()) {
        paths.push_back(ownServer());
    }
    return paths;
}

} // namespace

Server::Server(std::filesystem::path path, HRESULT& status) : path_(std::move(path)) {
    handle_ = dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle_) {
        std::error_code ignored;
        status = std::filesystem::exists(path_, ignored) ? CO_E_ERRORINDLL : CO_E_DLLNOTFOUND;
        return;
    }
    getClassObject_ = reinterpret_cast<decltype(getClassObject_)>(dlsym(handle_, "DllGetClassObject"));
    canUnloadNow_ = reinterpret_cast<decltype(canUnloadNow_)>(dlsym(handle_, "DllCanUnloadNow"));
    status = getClassObject_ ? S_OK : CO_E_ERRORINDLL;
}

Server::~Server() {
    if (handle_) {
        dlclose(handle_);
    }
}

HRESULT Server::getClassObject(REFCLSID id, REFIID iid, void** result) const {
    return getClassObject_(id, iid, result);
}

bool Server::canUnload() const {
    return canUnloadNow_ && canUnloadNow_() == S_OK;
}

Servers& Servers::ofProcess() {
    // Never destroyed: at the end of the process objects may outlive every order of destruction.
    static Servers& servers = *std::make_unique<Servers>().release();
    return servers;
}

std::shared_ptr<Server> Servers::load(const std::filesystem::path& path, HRESULT& status) {
    // Nearly always the file is loaded and is asked for by the same name: no look at the disk then.
    if (const auto known = loadedByName_.find(path.native()); known != loadedByName_.end()) {
        status = S_OK;
        return known->second;
    }
    std::error_code ignored;
    const std::filesystem::path name = std::filesystem::weakly_canonical(path, ignored);
    std::shared_ptr<Server> server;
    for (const auto& [other, loaded] : loadedByName_) {
        if (loaded->path() == name) {
            server = loaded;
        }
    }
    if (!server) {
        server = std::make_shared<Server>(name, status);
        if (FAILED(status)) {
            return nullptr;
        }
    }
    status = S_OK;
    return loadedByName_.emplace(path.native(), std::move(server)).first->second;
}

HRESULT Servers::getClassObject(REFCLSID id, REFIID iid, void** result) {
    if (platformModule().has(id)) {
        return platformModule().getClassObject(id, iid, result);
    }
    std::lock_guard lock(guard_);
    HRESULT answer = REGDB_E_CLASSNOTREG;
    for (const std::filesystem::path& path : knownServers()) {
        HRESULT status = S_OK;
        const std::shared_ptr<Server> server = load(path, status);
        if (server) {
            status = server->getClassObject(id, iid, result);
        }
        if (SUCCEEDED(status)) {
            return status;
        }
        if (status != CLASS_E_CLASSNOTAVAILABLE) {
            answer = status;
        }
    }
    const HRESULT status = getRegisteredClassObject(id, iid, result);
    return status == REGDB_E_CLASSNOTREG ? answer : status;
}

HRESULT Servers::getRegisteredClassObject(REFCLSID id, REFIID iid, void** result) {
    const RegisteredServer registered(id);
    if (FAILED(registered.status())) {
        return registered.status();
    }
    HRESULT status = S_OK;
    const std::shared_ptr<Server> server = load(registered.path(), status);
    return server ? server->getClassObject(id, iid, result) : status;
}

HRESULT Servers::getTypeLib(const std::filesystem::path& path, ITypeLib** result) {
    std::lock_guard lock(guard_);
    HRESULT status = S_OK;
    const std::shared_ptr<Server> server = load(path, status);
    if (!server) {
        return TYPE_E_CANTLOADLIBRARY;
    }
    void* library = nullptr;
    status = server->getClassObject(CLSID_ServerTypeLibrary, IID_ITypeLib, &library);
    *result = static_cast<ITypeLib*>(library);
    return FAILED(status) ? TYPE_E_CANTLOADLIBRARY : status;
}

bool Servers::loadAll() {
    std::lock_guard lock(guard_);
    const std::size_t before = loadedByName_.size();
    for (const std::filesystem::path& path : knownServers()) {
        HRESULT status = S_OK;
        load(path, status);
    }
    return loadedByName_.size() > before;
}

void Servers::freeUnused() {
    std::lock_guard lock(guard_);
    std::erase_if(loadedByName_, [](const auto& named) { return named.second->canUnload(); });
}

HRESULT classOfProgId(std::u16string_view progId, CLSID& id) {
    const typelib::ClassDescription* found = ServerModule::findProgId(progId);
    if (!found && Servers::ofProcess().loadAll()) {
        found = ServerModule::findProgId(progId);
    }
    const std::optional<CLSID> result = found ? std::optional(found->id) : registeredClass(progId);
    id = result.value_or(GUID_NULL);
    return result ? S_OK : CO_E_CLASSSTRING;
}

} // namespace mox::automation

using mox::automation::Servers;

namespace {

/// A text in task memory, for the caller to free.
HRESULT giveText(const std::u16string& text, LPOLESTR* place) {
    *place = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(OLECHAR)));
    if (!*place) {
        return E_OUTOFMEMORY;
    }
    std::copy_n(text.c_str(), text.size() + 1, *place);
    return S_OK;
}

} // namespace

HRESULT CoGetClassObject(REFCLSID rclsid, DWORD dwClsContext, PVOID, REFIID riid, PVOID* ppv) {
    if (!ppv) {
        return E_POINTER;
    }
    *ppv = nullptr;
    if (!(dwClsContext & CLSCTX_INPROC_SERVER)) {
        return REGDB_E_CLASSNOTREG;
    }
    if (!mox::isInitialized()) {
        return CO_E_NOTINITIALIZED;
    }
    return Servers::ofProcess().getClassObject(rclsid, riid, ppv);
}

HRESULT CoCreateInstance(REFCLSID rclsid, IUnknown* pUnkOuter, DWORD dwClsContext, REFIID riid, PVOID* ppv) {
    if (!ppv) {
        return E_POINTER;
    }
    *ppv = nullptr;
    mox::Ref<IClassFactory> factory;
    const HRESULT status =
        CoGetClassObject(rclsid, dwClsContext, nullptr, IID_IClassFactory, reinterpret_cast<void**>(factory.out()));
    return FAILED(status) ? status : factory->CreateInstance(pUnkOuter, riid, ppv);
}

HRESULT CLSIDFromProgID(LPCOLESTR lpszProgID, CLSID* lpclsid) {
    if (!lpszProgID || !lpclsid) {
        return E_INVALIDARG;
    }
    return mox::automation::classOfProgId(lpszProgID, *lpclsid);
}

HRESULT ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* lplpszProgID) {
    if (!lplpszProgID) {
        return E_INVALIDARG;
    }
    *lplpszProgID = nullptr;
    const mox::typelib::ClassDescription* found = mox::ServerModule::findClass(clsid);
    if (!found && Servers::ofProcess().loadAll()) {
        found = mox::ServerModule::findClass(clsid);
    }
    if (found && found->creatable) {
        return giveText(std::u16string(found->library.name) + u"." + found->name, lplpszProgID);
    }
    const std::optional<std::u16string> registered = mox::automation::registeredProgId(clsid);
    return registered ? giveText(*registered, lplpszProgID) : REGDB_E_CLASSNOTREG;
}

void CoFreeUnusedLibraries() {
    Servers::ofProcess().freeUnused();
}

HRESULT LoadTypeLib(LPCOLESTR szFile, ITypeLib** pptlib) {
    if (!szFile || !pptlib) {
        return E_INVALIDARG;
    }
    *pptlib = nullptr;
    return Servers::ofProcess().getTypeLib(std::u16string_view(szFile), pptlib);
}
