#include "host/registry/keytree.h"

#include "host/files/names.h"

#include <functional>
#include <utility>

namespace mox::host {

namespace {

// What is kept in memory at most; beyond that all of it is read anew.
constexpr std::size_t mostKept = 20'000;
constexpr std::size_t largestKept = 4096;
constexpr std::size_t mostKeptBytes = std::size_t{8} << 20;

/// Calls `visit` with each part of a path until it gives false.
template <class Visit> void forEachPart(std::string_view path, Visit visit) {
    while (!path.empty()) {
        const std::size_t end = path.find('\\');
        const std::string_view part = path.substr(0, end);
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
        if (!part.empty() && !visit(part)) {
            return;
        }
    }
}

} // namespace

std::size_t KeyTree::PlaceHash::operator()(PlaceView place) const noexcept {
    return std::hash<std::string_view>{}(place.name) ^ (static_cast<std::size_t>(place.key) * 0x9E3779B97F4A7C15u);
}

void KeyTree::lay(Database& database) {
    // The numbers begin at random, so that a key that is open in another file does not mean one of this.
    database.run(R"(
        CREATE TABLE keys(id INTEGER PRIMARY KEY AUTOINCREMENT, parent INTEGER NOT NULL, folded TEXT NOT NULL, name TEXT NOT NULL,
                          UNIQUE(parent, folded));
        CREATE TABLE vals(key INTEGER NOT NULL, folded TEXT NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL,
                          data BLOB NOT NULL, PRIMARY KEY(key, folded)) WITHOUT ROWID;
        INSERT INTO keys VALUES (1, 0, 'hkey_local_machine', 'HKEY_LOCAL_MACHINE'), (2, 0, 'hkey_users', 'HKEY_USERS'),
                                (abs(random() % 70368744177664) + 1000, 0, '', '');
        DELETE FROM keys WHERE folded = '';
    )");
}

KeyTree::KeyTree(Database& database)
    : database_(database), findKey_(database, "SELECT 1 FROM keys WHERE id = ?1"),
      findChild_(database, "SELECT id FROM keys WHERE parent = ?1 AND folded = ?2"),
      insertKey_(database, "INSERT INTO keys(parent, name, folded) VALUES (?1, ?2, ?3)"),
      // UNION ends where a damaged file goes round in circles.
      removeKeys_(database,
                  "WITH RECURSIVE below(id) AS (SELECT ?1 UNION SELECT keys.id FROM keys JOIN below ON parent = below.id) "
                  "DELETE FROM keys WHERE id IN below"),
      removeValuesBelow_(database,
                         "WITH RECURSIVE below(id) AS (SELECT ?1 UNION SELECT keys.id FROM keys JOIN below ON parent = below.id) "
                         "DELETE FROM vals WHERE key IN below"),
      listKeys_(database, "SELECT name FROM keys WHERE parent = ?1 ORDER BY folded"),
      findValue_(database, "SELECT type, data FROM vals WHERE key = ?1 AND folded = ?2"),
      setValue_(database, "INSERT INTO vals(key, folded, name, type, data) SELECT ?1, ?2, ?3, ?4, ?5 FROM keys WHERE id = ?1 "
                          "ON CONFLICT(key, folded) DO UPDATE SET type = excluded.type, data = excluded.data"),
      removeValue_(database, "DELETE FROM vals WHERE key = ?1 AND folded = ?2"),
      listValues_(database, "SELECT name FROM vals WHERE key = ?1 ORDER BY folded") {}

void KeyTree::forget() {
    known_.clear();
    paths_.clear();
    values_.clear();
    valueBytes_ = 0;
}

void KeyTree::refresh() {
    const DatabaseStamp now = database_.stamp();
    const std::size_t kept = known_.size() + paths_.size() + values_.size();
    if (now != stamp_ || !now.isKnown() || kept > mostKept || valueBytes_ > mostKeptBytes) [[unlikely]] {
        forget();
        stamp_ = now;
    }
}

template <class Keep> void KeyTree::follow(Keep keep) {
    const DatabaseStamp now = database_.stamp();
    // A value that was set to what it is changes nothing.
    if (now.isKnown() && (now == stamp_ || now.follows(stamp_))) {
        keep();
    } else {
        forget();
    }
    stamp_ = now;
}

bool KeyTree::readExists(std::int64_t key) {
    Query query(findKey_, key);
    return query.next();
}

bool KeyTree::exists(std::int64_t key) {
    const auto found = known_.find(key);
    if (found != known_.end()) {
        return found->second;
    }
    return known_[key] = readExists(key);
}

std::int64_t KeyTree::readChild(std::int64_t parent, std::string_view folded) {
    Query query(findChild_, parent, folded);
    return query.next() ? query.number(0) : 0;
}

std::int64_t KeyTree::find(std::int64_t key, std::string_view path) {
    if (key == 0) {
        return 0;
    }
    if (const auto found = paths_.find(PlaceView{key, path}); found != paths_.end()) {
        return found->second;
    }
    std::int64_t place = exists(key) ? key : 0;
    forEachPart(path, [&](std::string_view part) {
        place = place != 0 ? readChild(place, foldCase(part)) : 0;
        return place != 0;
    });
    paths_.emplace(Place{key, std::string(path)}, place);
    return place;
}

void KeyTree::insert(std::int64_t parent, std::string_view name, std::string_view folded) {
    Query(insertKey_, parent, name, folded).finish();
}

std::int64_t KeyTree::make(std::int64_t key, std::string_view path) {
    if (const std::int64_t place = find(key, path); place != 0) {
        return place;
    }
    Transaction transaction(database_);
    std::int64_t place = readExists(key) ? key : 0;
    forEachPart(path, [&](std::string_view part) {
        const std::string folded = foldCase(part);
        const std::int64_t parent = place;
        place = parent != 0 ? readChild(parent, folded) : 0;
        if (parent != 0 && place == 0) {
            insert(parent, part, folded);
            place = database_.lastRow();
        }
        return place != 0;
    });
    transaction.commit();
    forget();
    refresh();
    return place;
}

KeyRemoval KeyTree::remove(std::int64_t key, bool withKeys) {
    Transaction transaction(database_);
    if (!readExists(key)) {
        return KeyRemoval::missing;
    }
    if (!withKeys && Query(listKeys_, key).next()) {
        return KeyRemoval::hasKeys;
    }
    Query(removeValuesBelow_, key).finish();
    Query(removeKeys_, key).finish();
    transaction.commit();
    forget();
    refresh();
    return KeyRemoval::done;
}

std::vector<std::string> KeyTree::readNames(Statement& statement, std::int64_t key) {
    std::vector<std::string> names;
    Query query(statement, key);
    while (query.next()) {
        names.emplace_back(query.bytes(0));
    }
    return names;
}

std::vector<std::string> KeyTree::keys(std::int64_t key) {
    return readNames(listKeys_, key);
}

std::vector<std::string> KeyTree::valueNames(std::int64_t key) {
    return readNames(listValues_, key);
}

std::optional<RegistryValue> KeyTree::readValue(std::int64_t key, std::string_view folded) {
    Query query(findValue_, key, folded);
    if (!query.next()) {
        return std::nullopt;
    }
    return RegistryValue{static_cast<std::uint32_t>(query.number(0)), std::string(query.bytes(1))};
}

const RegistryValue* KeyTree::value(std::int64_t key, std::string_view name) {
    std::string folded = foldCase(name);
    if (const auto found = values_.find(PlaceView{key, folded}); found != values_.end()) {
        return found->second ? &*found->second : nullptr;
    }
    std::optional<RegistryValue> value = readValue(key, folded);
    if (value && value->data.size() > largestKept) {
        large_ = std::move(*value);
        return &large_;
    }
    valueBytes_ += value ? value->data.size() : 0;
    const auto kept = values_.emplace(Place{key, std::move(folded)}, std::move(value)).first;
    return kept->second ? &*kept->second : nullptr;
}

bool KeyTree::setValue(std::int64_t key, std::string_view name, std::uint32_t type, std::string_view data) {
    std::string folded = foldCase(name);
    Query(setValue_, key, std::string_view(folded), name, static_cast<std::int64_t>(type), Bytes{data}).finish();
    if (database_.changes() == 0) {
        forget();
        return false;
    }
    follow([&] {
        if (data.size() <= largestKept) {
            values_.insert_or_assign(Place{key, std::move(folded)}, RegistryValue{type, std::string(data)});
            valueBytes_ += data.size();
        } else if (const auto kept = values_.find(PlaceView{key, folded}); kept != values_.end()) {
            values_.erase(kept);
        }
    });
    return true;
}

bool KeyTree::removeValue(std::int64_t key, std::string_view name) {
    const std::string folded = foldCase(name);
    Query(removeValue_, key, std::string_view(folded)).finish();
    const bool removed = database_.changes() != 0;
    forget();
    return removed;
}

} // namespace mox::host
