// Keys and values as they are stored.
#pragma once

#include "host/registry/database.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mox::host {

struct RegistryValue {
    std::uint32_t type = 0;
    std::string data;
    bool operator==(const RegistryValue&) const = default;
};

/// How the removal of a key ended.
enum class KeyRemoval { done, missing, hasKeys };

/// The tree of keys in a database. Keys are numbers that are never used again, not even by another file; 0 is none. Paths and
/// names are UTF-8, and found without regard to case; of a path the empty parts fall away. What was read once is kept as long as
/// no process changes the database. For one thread at a time; failures are thrown as `StorageError`.
class KeyTree {
public:
    static constexpr std::int64_t localMachine = 1;
    static constexpr std::int64_t users = 2;

    /// Makes the tables and the two keys at the top in an empty database, inside a transaction of the caller's.
    static void lay(Database& database);
    explicit KeyTree(Database& database);

    /// Forgets what others have changed since. To be called before a group of look-ups that belong together.
    void refresh();

    bool exists(std::int64_t key);
    std::int64_t find(std::int64_t key, std::string_view path);
    /// Finds a key or makes it and all that lead to it; 0 if there is no `key`.
    std::int64_t make(std::int64_t key, std::string_view path);
    /// Removes a key with its values, and those below it if `withKeys`.
    KeyRemoval remove(std::int64_t key, bool withKeys);
    /// Names of the subkeys, ordered without regard to case.
    std::vector<std::string> keys(std::int64_t key);

    /// A value, null if there is none. It stays until the next call.
    const RegistryValue* value(std::int64_t key, std::string_view name);
    /// False if the key does not exist.
    bool setValue(std::int64_t key, std::string_view name, std::uint32_t type, std::string_view data);
    /// False if there is no such value.
    bool removeValue(std::int64_t key, std::string_view name);
    /// Names of the values, ordered without regard to case.
    std::vector<std::string> valueNames(std::int64_t key);

    const DatabaseStamp& stamp() const noexcept { return stamp_; }
    /// Forgets everything that was read.
    void forget();

private:
    struct PlaceView {
        std::int64_t key;
        std::string_view name;
        bool operator==(const PlaceView&) const = default;
    };
    struct Place {
        std::int64_t key;
        std::string name;
        operator PlaceView() const noexcept { return {key, name}; }
    };
    struct PlaceHash {
        using is_transparent = void;
        std::size_t operator()(PlaceView place) const noexcept;
    };
    struct PlaceEqual {
        using is_transparent = void;
        bool operator()(PlaceView a, PlaceView b) const noexcept { return a == b; }
    };
    template <class Thing> using Cache = std::unordered_map<Place, Thing, PlaceHash, PlaceEqual>;

    std::int64_t readChild(std::int64_t parent, std::string_view folded);
    bool readExists(std::int64_t key);
    std::optional<RegistryValue> readValue(std::int64_t key, std::string_view folded);
    void insert(std::int64_t parent, std::string_view name, std::string_view folded);
    /// To be called after a transaction of our own; `keep` brings what is kept up to date if nobody else has written.
    template <class Keep> void follow(Keep keep);
    std::vector<std::string> readNames(Statement& statement, std::int64_t key);

    Database& database_;
    Statement findKey_;
    Statement findChild_;
    Statement insertKey_;
    Statement removeKeys_;
    Statement removeValuesBelow_;
    Statement listKeys_;
    Statement findValue_;
    Statement setValue_;
    Statement removeValue_;
    Statement listValues_;

    DatabaseStamp stamp_;
    std::unordered_map<std::int64_t, bool> known_;
    Cache<std::int64_t> paths_;
    Cache<std::optional<RegistryValue>> values_;
    std::size_t valueBytes_ = 0;
    RegistryValue large_;
};

} // namespace mox::host
