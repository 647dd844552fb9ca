// Finding and loading server files.
#pragma once

#include "automation/objects/export.h"

#include <mox/automation.h>

#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

namespace mox::automation {

/// The class identifier behind a ProgID, of a loaded file, of one that is loaded for it, or of one that is registered.
/// `CO_E_CLASSSTRING` if there is none.
HRESULT classOfProgId(std::u16string_view progId, CLSID& id);

/// One loaded server file.
class Server {
public:
    /// Loads the file. `CO_E_DLLNOTFOUND` or `CO_E_ERRORINDLL` in `status` where that fails.
    Server(std::filesystem::path path, HRESULT& status);
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server();

    const std::filesystem::path& path() const noexcept { return path_; }
    HRESULT getClassObject(REFCLSID id, REFIID iid, void** result) const;
    bool canUnload() const;

private:
    std::filesystem::path path_;
    void* handle_ = nullptr;
    HRESULT (*getClassObject_)(REFCLSID, REFIID, void**) = nullptr;
    HRESULT (*canUnloadNow_)() = nullptr;
};

/// The server files that this process has loaded for `CoGetClassObject`.
class Servers {
public:
    static Servers& ofProcess();

    /// The class object of `id`, of the platform's own classes, else from the first server that has it. Servers are those of the
    /// environment variable MOX_SERVER (files, separated by colons), else the library's own server beside this library. If none
    /// of them has the class, the file that is registered for it.
    HRESULT getClassObject(REFCLSID id, REFIID iid, void** result);
    /// The type library of a server file.
    HRESULT getTypeLib(const std::filesystem::path& path, ITypeLib** result);
    /// Loads every server that is known; true if that loaded one more.
    bool loadAll();
    /// Unloads the files that nothing uses.
    void freeUnused();

private:
    HRESULT getRegisteredClassObject(REFCLSID id, REFIID iid, void** result);
    std::shared_ptr<Server> load(const std::filesystem::path& path, HRESULT& status);

    std::recursive_mutex guard_;
    std::unordered_map<std::string, std::shared_ptr<Server>> loadedByName_;
};

} // namespace mox::automation
