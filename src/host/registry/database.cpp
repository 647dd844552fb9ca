#include "host/registry/database.h"

#include "platform/advapi32.h"

#include <sqlite3.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <system_error>
#include <thread>

namespace mox::host {

namespace {

// The head of the index that all connections to a file share in memory: two copies, written one after the other. The file format
// of SQLite's log describes it.
constexpr int indexBlock = 32768;
constexpr std::size_t headSize = sizeof(DatabaseStamp);
constexpr std::size_t counterPlace = 8;

constexpr std::chrono::seconds longestWait{30};

/// Waits for the writers of other processes: first hardly at all, as most transactions are short.
int waitForOthers(void*, int attempt) {
    const auto pause = std::chrono::microseconds(std::min(50 * (attempt + 1), 2000));
    if (attempt * std::chrono::microseconds(2000) > longestWait) {
        return 0;
    }
    std::this_thread::sleep_for(pause);
    return 1;
}

void check(sqlite3* connection, int code) {
    if (code != SQLITE_OK) {
        throw StorageError::fromSqlite(connection ? sqlite3_errmsg(connection) : sqlite3_errstr(code), code);
    }
}

std::uint32_t counterOf(const DatabaseStamp& stamp) noexcept {
    std::uint32_t counter = 0;
    std::memcpy(&counter, reinterpret_cast<const char*>(stamp.words.data()) + counterPlace, sizeof counter);
    return counter;
}

} // namespace

StorageError StorageError::fromSystem(const std::string& what, int number) {
    const std::string reason = what + ": " + std::generic_category().message(number);
    switch (number) {
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENOTDIR:
    case ENOENT:
        return {reason, platform::ERROR_ACCESS_DENIED};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {reason, platform::ERROR_DISK_FULL};
    default:
        return {reason, platform::ERROR_WRITE_FAULT};
    }
}

StorageError StorageError::fromSqlite(const std::string& what, int code) {
    switch (code & 0xFF) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return {what, platform::ERROR_BADDB, true};
    case SQLITE_FULL:
        return {what, platform::ERROR_DISK_FULL};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {what, platform::ERROR_BUSY};
    case SQLITE_NOMEM:
        return {what, platform::ERROR_NOT_ENOUGH_MEMORY};
    case SQLITE_TOOBIG:
        return {what, platform::ERROR_INVALID_PARAMETER};
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
        return {what, platform::ERROR_ACCESS_DENIED};
    default:
        return {what, platform::ERROR_WRITE_FAULT};
    }
}

bool DatabaseStamp::follows(const DatabaseStamp& earlier) const noexcept {
    return counterOf(*this) == counterOf(earlier) + 1;
}

void Database::Close::operator()(sqlite3* connection) const noexcept {
    sqlite3_close_v2(connection);
}

Database::Database(const std::filesystem::path& file, Durability durability) {
    sqlite3* connection = nullptr;
    // Our own lock guards the connection.
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int code = sqlite3_open_v2(file.c_str(), &connection, flags, nullptr);
    connection_.reset(connection);
    check(connection, code);
    sqlite3_busy_handler(connection, &waitForOthers, nullptr);
    carryOverAtEnd(false);
    // The file may hold anything: nothing that its tables define is run unasked.
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    run("PRAGMA mmap_size=0; PRAGMA cell_size_check=ON;");
    // With a log, what a transaction wrote survives the end of the process once it is committed; `FULL` waits for the disk as
    // well.
    run(durability == Durability::system ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=OFF");
    Statement useLog(*this, "PRAGMA journal_mode=WAL");
    Query mode(useLog);
    hasLog_ = mode.next() && mode.bytes(0) == "wal"; // not on every file system
}

Database::~Database() = default;

void Database::run(const char* statements) {
    check(get(), sqlite3_exec(get(), statements, nullptr, nullptr, nullptr));
}

std::int64_t Database::changes() const noexcept {
    return sqlite3_changes64(get());
}

std::int64_t Database::lastRow() const noexcept {
    return sqlite3_last_insert_rowid(get());
}

bool Database::isInTransaction() const noexcept {
    return sqlite3_get_autocommit(get()) == 0;
}

bool Database::hasMoved() const noexcept {
    int moved = 0;
    return sqlite3_file_control(get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0;
}

DatabaseStamp Database::stamp() const noexcept {
    DatabaseStamp first;
    if (!hasLog_) {
        return first;
    }
    sqlite3_file* file = nullptr;
    volatile void* block = nullptr;
    sqlite3_file_control(get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (!file || !file->pMethods || file->pMethods->iVersion < 2 ||
        file->pMethods->xShmMap(file, 0, indexBlock, 0, &block) != SQLITE_OK || !block) {
        return first;
    }
    DatabaseStamp second;
    const char* const head = const_cast<const char*>(static_cast<const volatile char*>(block));
    std::memcpy(first.words.data(), head, headSize);
    std::atomic_thread_fence(std::memory_order_seq_cst);
    std::memcpy(second.words.data(), head + headSize, headSize);
    return first == second ? first : DatabaseStamp{};
}

void Database::carryOverAtEnd(bool carry) noexcept {
    sqlite3_db_config(get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, carry ? 0 : 1, nullptr);
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

Statement::Statement(Database& database, const char* text) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database.get(), text, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    if (code == SQLITE_ERROR) { // the tables are not the ones that we made
        throw StorageError(sqlite3_errmsg(database.get()), platform::ERROR_BADDB, true);
    }
    check(database.get(), code);
}

Query::~Query() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

bool Query::next() {
    const int code = sqlite3_step(statement_);
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        throw StorageError::fromSqlite(sqlite3_errmsg(sqlite3_db_handle(statement_)), code);
    }
    return code == SQLITE_ROW;
}

std::int64_t Query::number(int column) const noexcept {
    return sqlite3_column_int64(statement_, column);
}

std::string_view Query::bytes(int column) const noexcept {
    const void* const data = sqlite3_column_blob(statement_, column);
    return {static_cast<const char*>(data), static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

void Query::bind(int place, std::int64_t number) {
    check(nullptr, sqlite3_bind_int64(statement_, place, number));
}

void Query::bind(int place, std::string_view text) {
    check(nullptr,
          sqlite3_bind_text64(statement_, place, text.empty() ? "" : text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Query::bind(int place, Bytes bytes) {
    const std::string_view data = bytes.data;
    check(nullptr, sqlite3_bind_blob64(statement_, place, data.empty() ? "" : data.data(), data.size(), SQLITE_STATIC));
}

Transaction::Transaction(Database& database) : database_(database), isOpen_(!database.isInTransaction()) {
    if (isOpen_) {
        database_.run("BEGIN IMMEDIATE");
    }
}

Transaction::~Transaction() {
    if (isOpen_ && database_.isInTransaction()) { // some failures end it themselves
        sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::commit() {
    if (isOpen_) {
        database_.run("COMMIT");
        isOpen_ = false;
    }
}

} // namespace mox::host
