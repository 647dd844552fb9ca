// A connection to a database file of SQLite.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace mox::host {

/// A failure of the storage, with the answer of an operation of the registry that it comes to.
class StorageError : public std::runtime_error {
public:
    StorageError(const std::string& reason, std::int32_t status, bool damaged = false)
        : std::runtime_error(reason), status_(status), isDamage_(damaged) {}
    /// What an error number of the system means.
    static StorageError fromSystem(const std::string& what, int number);
    /// What a result code of SQLite means.
    static StorageError fromSqlite(const std::string& what, int code);

    std::int32_t status() const noexcept { return status_; }
    /// True if the content of the file is to blame, not the disk, rights or other programs.
    bool isDamage() const noexcept { return isDamage_; }

private:
    std::int32_t status_;
    bool isDamage_;
};

/// What a committed change outlives: the end of the process by any means, or that of the system as well, which takes the time of
/// the disk.
enum class Durability { process, system };

/// Bytes that are stored as they are.
struct Bytes {
    std::string_view data;
};

/// The state of a database, cheap to read: it changes with every transaction of any process.
struct DatabaseStamp {
    std::array<std::uint64_t, 6> words{};
    bool operator==(const DatabaseStamp&) const = default;
    /// False if the state cannot be told: it then counts as changed.
    bool isKnown() const noexcept { return words[0] != 0; }
    /// True if exactly one transaction lies between `earlier` and this.
    bool follows(const DatabaseStamp& earlier) const noexcept;
};

/// One connection. For one thread at a time. Every failure is thrown as a `StorageError`.
class Database {
public:
    /// Opens the file or makes an empty one.
    Database(const std::filesystem::path& file, Durability durability);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void run(const char* statements);
    /// Rows that the last statement changed.
    std::int64_t changes() const noexcept;
    std::int64_t lastRow() const noexcept;
    bool isInTransaction() const noexcept;
    /// True if the file that is open no longer lies at its path.
    bool hasMoved() const noexcept;
    DatabaseStamp stamp() const noexcept;
    /// Whether the log is carried over into the file when its last connection closes. At first it is not: a file that turns out
    /// to be damaged stays as it is.
    void carryOverAtEnd(bool carry) noexcept;

    sqlite3* get() const noexcept { return connection_.get(); }

private:
    struct Close {
        void operator()(sqlite3* connection) const noexcept;
    };
    std::unique_ptr<sqlite3, Close> connection_;
    bool hasLog_ = false;
};

/// A prepared statement that is kept.
class Statement {
public:
    Statement(Database& database, const char* text);
    sqlite3_stmt* get() const noexcept { return statement_.get(); }

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// One run of a statement. The arguments have to live as long; so does the text of a row until the next one.
class Query {
public:
    template <class... Arguments>
    explicit Query(Statement& statement, const Arguments&... arguments) : statement_(statement.get()) {
        int place = 0;
        (bind(++place, arguments), ...);
    }
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    /// Runs up to the next row; false at the end.
    bool next();
    /// Runs to the end.
    void finish() {
        while (next()) {
        }
    }
    std::int64_t number(int column) const noexcept;
    std::string_view bytes(int column) const noexcept;

private:
    void bind(int place, std::int64_t number);
    void bind(int place, std::string_view text);
    void bind(int place, Bytes bytes);

    sqlite3_stmt* statement_;
};

/// A transaction that writes: taken back unless it is committed. Inside another one it is a part of that.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    Database& database_;
    bool isOpen_;
};

} // namespace mox::host
