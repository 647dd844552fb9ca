// The registry of a machine.
#pragma once

#include "automation/objects/export.h"
#include "host/machine/handles.h"
#include "host/registry/keyview.h"
#include "host/registry/registrystore.h"
#include "host/text/codepage.h"

#include "platform/advapi32.h"

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

/// Keys and values of all programs of this user, in a file of the machine's home, which several processes may use at once.
/// Operations are named after those of advapi32 that forward to them, and take and give bytes of the code page. Any thread may
/// use it.
class MOX_API Registry {
public:
    Registry(RegistryStore::Facts facts, std::filesystem::path file, Durability durability, const CodePage& codePage,
             Handles& handles);
    ~Registry();

    std::int32_t openKey(platform::HKEY key, std::string_view path, std::uint32_t access, platform::HKEY& opened);
    std::int32_t createKey(platform::HKEY key, std::string_view path, platform::HKEY& opened);
    std::int32_t closeKey(platform::HKEY key);
    std::int32_t deleteKey(platform::HKEY key, std::string_view path, bool withKeys);
    std::int32_t enumKey(platform::HKEY key, std::uint32_t index, std::span<char> name, std::uint32_t& length);

    std::int32_t queryValue(platform::HKEY key, std::string_view name, std::uint32_t& type, std::span<char> data,
                            std::uint32_t& size);
    std::int32_t setValue(platform::HKEY key, std::string_view name, std::uint32_t type, std::string_view data);
    std::int32_t deleteValue(platform::HKEY key, std::string_view name);

    /// A value of a key by its path. `ERROR_FILE_NOT_FOUND` if there is no such key or value.
    std::int32_t value(platform::HKEY root, std::string_view path, std::string_view name, std::optional<RegistryValue>& value);
    /// The names of the values of a key, in an order that stays; none if the key cannot be read.
    std::vector<std::string> valueNames(platform::HKEY root, std::string_view path);

    /// The state of the file, in a line for people. Does not make one.
    std::string report();

private:
    using Key = std::shared_ptr<RegistryKey>;

    Key keyOf(platform::HKEY handle) const;
    /// A name or path as it is stored, up to its first NUL.
    std::string stored(std::string_view name) const;
    /// Runs `task` with the view, the key behind a handle, which has to be open for `access`, and the tree. If the outcome
    /// `lasts` it holds for the file that lies in the home now.
    template <class Task> std::int32_t perform(platform::HKEY handle, std::uint32_t access, bool lasts, Task task);
    /// A handle for the key that `find` finds or makes.
    template <class Find>
    std::int32_t findKey(platform::HKEY handle, const std::string& path, std::uint32_t access, platform::HKEY& opened, Find find);

    const CodePage& codePage_;
    Handles& handles_;
    std::array<Key, 7> predefined_;
    std::mutex guard_;
    RegistryStore store_;
};

} // namespace mox::host
