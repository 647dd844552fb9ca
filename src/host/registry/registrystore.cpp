#include "host/registry/registrystore.h"

#include "host/registry/damagedfile.h"
#include "host/registry/factrecord.h"
#include "host/registry/filelock.h"

#include <iostream>
#include <utility>

namespace mox::host {

namespace {

bool hasTables(Database& database) {
    Statement count(database, "SELECT count(*) FROM sqlite_schema");
    Query query(count);
    return query.next() && query.number(0) != 0;
}

/// Makes the tables in an empty file. The lock that guards the opening is held.
Database& prepared(Database& database) {
    if (!hasTables(database)) {
        Transaction transaction(database);
        KeyTree::lay(database);
        FactRecord::lay(database);
        database.run("CREATE TABLE damages(number INTEGER PRIMARY KEY, kept TEXT NOT NULL, reason TEXT NOT NULL)");
        transaction.commit();
    }
    return database;
}

/// Looks through the whole file, some milliseconds for ten thousand values: damage in the order of the entries would otherwise
/// hide them without a word.
void examine(Database& database) {
    Statement check(database, "PRAGMA integrity_check(1)");
    Query query(check);
    if (query.next() && query.bytes(0) != "ok") {
        throw StorageError(std::string(query.bytes(0)), platform::ERROR_BADDB, true);
    }
}

bool isEmpty(const std::filesystem::path& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return error || size == 0;
}

} // namespace

struct RegistryStore::Opened {
    Opened(const std::filesystem::path& file, Durability durability) : database(file, durability), tree(prepared(database)) {}
    Database database;
    KeyTree tree;
};

RegistryStore::RegistryStore(std::filesystem::path file, Durability durability, std::string user, Facts facts)
    : file_(std::move(file)), durability_(durability), user_(std::move(user)), facts_(std::move(facts)) {}

RegistryStore::~RegistryStore() = default;

std::unique_ptr<RegistryStore::Opened> RegistryStore::openFile() {
    const bool isNew = isEmpty(file_);
    auto opened = std::make_unique<Opened>(file_, durability_);
    examine(opened->database);
    try {
        FactRecord(opened->database, opened->tree, user_).update(facts_());
    } catch (const StorageError& error) {
        if (error.isDamage() || isNew) {
            throw;
        } // else what is there can be read, even if nothing can be written
    }
    opened->tree.forget();
    opened->database.carryOverAtEnd(true);
    return opened;
}

void RegistryStore::open() {
    std::error_code error;
    std::filesystem::create_directories(file_.parent_path(), error);
    if (error) {
        throw StorageError::fromSystem(file_.parent_path().string(), error.value());
    }
    // One process at a time makes, examines or puts aside the file.
    const FileLock lock(file_.parent_path() / (file_.stem().string() + ".lock"));
    try {
        opened_ = openFile();
    } catch (const StorageError& damage) {
        if (!damage.isDamage()) {
            throw;
        }
        putAside(damage.what());
        opened_ = openFile();
    }
}

KeyTree& RegistryStore::refreshed() {
    if (!opened_) [[unlikely]] {
        open();
    }
    opened_->tree.refresh();
    return opened_->tree;
}

bool RegistryStore::closeIfMoved() {
    if (!opened_ || !opened_->database.hasMoved()) {
        return false;
    }
    opened_.reset();
    return true;
}

void RegistryStore::putAside(const std::string& reason) {
    const std::filesystem::path kept = keepDamagedFile(file_);
    std::cerr << "mox: the registry " << file_.string() << " is damaged (" << reason << "); it is kept as "
              << kept.filename().string() << ", and the registry begins anew\n";
    Opened fresh(file_, durability_);
    Statement note(fresh.database, "INSERT INTO damages(kept, reason) VALUES (?1, ?2)");
    Query(note, std::string_view(kept.filename().native()), std::string_view(reason)).finish();
}

std::optional<std::int32_t> RegistryStore::recover(const StorageError& error) {
    if (opened_) {
        opened_->tree.forget(); // it may hold what was taken back
    }
    if (!error.isDamage() || !opened_) {
        return error.status();
    }
    try {
        const FileLock lock(file_.parent_path() / (file_.stem().string() + ".lock"));
        if (!closeIfMoved()) { // else another process has put it aside
            opened_->database.carryOverAtEnd(false);
            opened_.reset();
            putAside(error.what());
        }
        return std::nullopt;
    } catch (const StorageError& failure) {
        return failure.status();
    }
}

std::string RegistryStore::damage() {
    refreshed();
    Statement last(opened_->database, "SELECT kept, reason FROM damages ORDER BY number DESC LIMIT 1");
    Query query(last);
    return query.next()
               ? "the one before was damaged (" + std::string(query.bytes(1)) + ") and is kept as " + std::string(query.bytes(0))
               : "";
}

} // namespace mox::host
