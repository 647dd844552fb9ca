// Keys as programs name them: below the predefined keys.
#pragma once

#include "host/registry/keytree.h"

#include "platform/advapi32.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

/// What a handle of the registry stands for.
struct RegistryKey {
    /// A predefined key; a key below `HKEY_CLASSES_ROOT` has this as its root, others have none.
    platform::HKEY root = 0;
    /// The path below the classes, in UTF-8.
    std::string path;
    /// The number of a key that has no root.
    std::int64_t number = 0;
    std::uint32_t access = platform::KEY_ALL_ACCESS;

    // The names that were enumerated last, in bytes of the code page, and the state that they belong to.
    DatabaseStamp listed;
    std::vector<std::string> names;

    bool isPredefined() const noexcept { return root != 0 && path.empty(); }
};

/// The predefined keys on the tree. `HKEY_CURRENT_USER` is the user's branch of `HKEY_USERS`, `HKEY_CURRENT_CONFIG` the present
/// hardware profile of `HKEY_LOCAL_MACHINE`. `HKEY_CLASSES_ROOT` shows what is in `Software\Classes` of the machine and of the
/// user together, the user's in front; writing goes to the user's key if there is one, a new key to the machine's. The keys of
/// performance and dynamic data are empty and stay so.
class KeyView {
public:
    /// `user` is the name of the user's branch.
    KeyView(KeyTree& tree, const std::string& user) : tree_(tree), user_(user) {}

    /// The stored keys that one key shows, the one in front first; 0 for none.
    struct Stored {
        std::int64_t first = 0;
        std::int64_t second = 0;
        explicit operator bool() const noexcept { return first != 0 || second != 0; }
        /// Where changes go.
        std::int64_t front() const noexcept { return first != 0 ? first : second; }
    };

    Stored find(const RegistryKey& key, std::string_view path);
    /// Finds a key or makes it.
    Stored make(const RegistryKey& key, std::string_view path);
    /// True for a key that was there when it was opened.
    bool isDeleted(const RegistryKey& key);
    /// True for the keys in which nothing can be made.
    static bool isForReading(const RegistryKey& key) noexcept;
    /// True for a stored key that a predefined one stands for.
    bool isPredefined(std::int64_t stored);

    const RegistryValue* value(const Stored& stored, std::string_view name);
    /// Names without regard to case in order, each once.
    std::vector<std::string> keys(const Stored& stored);
    std::vector<std::string> valueNames(const Stored& stored);

private:
    struct Branch {
        std::int64_t key;
        std::string path;
    };
    /// Where a predefined key lies.
    Branch branchOf(platform::HKEY root) const;
    Branch userClasses() const;
    std::int64_t find(const Branch& branch, std::string_view path);

    KeyTree& tree_;
    const std::string& user_;
};

/// A path continued.
std::string continuedPath(std::string_view path, std::string_view rest);

} // namespace mox::host
