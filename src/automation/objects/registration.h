// Entering a server file into the registry, and finding what is entered.
#pragma once

#include "automation/objects/module.h"
#include "platform/types.h"

#include <mox/automation.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace mox::automation {

/// Enters all classes of a server file and its type library. `SELFREG_E_CLASS` or `SELFREG_E_TYPELIB` if something
/// cannot be entered: then all of it is taken back.
HRESULT registerModule(const ServerModule& module) noexcept;
/// Removes what `registerModule` enters, and nothing else; what is not there does not matter. It goes on after what cannot be
/// removed and says so with `SELFREG_E_CLASS` or `SELFREG_E_TYPELIB`.
HRESULT unregisterModule(const ServerModule& module) noexcept;

/// A server file that the registry names for a class, loaded while this lives.
class RegisteredServer {
public:
    explicit RegisteredServer(REFCLSID id);
    ~RegisteredServer();
    RegisteredServer(const RegisteredServer&) = delete;
    RegisteredServer& operator=(const RegisteredServer&) = delete;

    /// `REGDB_E_CLASSNOTREG` if the class is not registered, `CO_E_DLLNOTFOUND` if its file is not there, `CO_E_ERRORINDLL` if
    /// that is no server.
    HRESULT status() const noexcept { return status_; }
    /// Where the file lies on this system's disk.
    const std::filesystem::path& path() const noexcept { return path_; }

private:
    HRESULT status_ = REGDB_E_CLASSNOTREG;
    platform::Handle library_ = 0;
    std::filesystem::path path_;
};

/// The class that is registered under a ProgID.
std::optional<CLSID> registeredClass(std::u16string_view progId);
/// The ProgID that a class is registered with.
std::optional<std::u16string> registeredProgId(REFCLSID id);

} // namespace mox::automation
