// What reading and saving a setting cost, against the plain statements of SQLite that do the same, with the same durability.
#include "support/ratios.h"

#include "host/machine/machine.h"

#include <mox/mox.h>

#include <sqlite3.h>

#include <memory>
#include <string>

namespace {

using namespace mox;
constexpr int settingCount = 1000;
const String publisher = u"Publisher";
const String application = u"Application";
const String section = u"Section";

std::string nameOf(int number) {
    return "Setting number " + std::to_string(number);
}

String textOf(const std::string& ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

struct CloseDatabase {
    void operator()(sqlite3* database) const noexcept { sqlite3_close(database); }
};
struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using PreparedStatement = std::unique_ptr<sqlite3_stmt, Finalize>;

/// A table with the same settings, by key and name.
class PlainTable {
public:
    PlainTable() : folder_("mox-bench-") {
        sqlite3* database = nullptr;
        sqlite3_open((folder_.path() / "plain.sqlite").c_str(), &database);
        database_.reset(database);
        sqlite3_exec(
            database,
            "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; CREATE TABLE settings(key INTEGER, name TEXT, type INTEGER, "
            "data BLOB, PRIMARY KEY(key, name)) WITHOUT ROWID; BEGIN",
            nullptr, nullptr, nullptr);
        select_ = prepare("SELECT type, data FROM settings WHERE key = ?1 AND name = ?2");
        upsert_ =
            prepare("INSERT INTO settings VALUES (?1, ?2, 1, ?3) ON CONFLICT(key, name) DO UPDATE SET data = excluded.data");
        for (int i = 0; i < settingCount; ++i) {
            save(nameOf(i), "text of this setting");
        }
        sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
    }

    bool read(const std::string& name) { return run(select_.get(), name, nullptr) == SQLITE_ROW; }
    bool save(const std::string& name, const std::string& text) { return run(upsert_.get(), name, &text) == SQLITE_DONE; }

private:
    PreparedStatement prepare(const char* text) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v3(database_.get(), text, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
        return PreparedStatement(statement);
    }
    static int run(sqlite3_stmt* statement, const std::string& name, const std::string* text) {
        sqlite3_bind_int64(statement, 1, 1);
        sqlite3_bind_text(statement, 2, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
        if (text) {
            sqlite3_bind_blob(statement, 3, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
        }
        const int result = sqlite3_step(statement);
        benchmark::DoNotOptimize(sqlite3_column_blob(statement, 1));
        sqlite3_reset(statement);
        return result;
    }

    host::TemporaryFolder folder_;
    std::unique_ptr<sqlite3, CloseDatabase> database_;
    PreparedStatement select_;
    PreparedStatement upsert_;
};

PlainTable& plain() {
    static PlainTable table;
    return table;
}

/// The registry of a machine on disk, with the same settings.
const moxRegistry& registry() {
    static const host::TemporaryFolder home("mox-bench-");
    static const moxRegistry registry = [] {
        host::MachineConfig config;
        config.home = home.path();
        host::Machine::configure(config);
        moxRegistry made = moxHub::create().System().Registry();
        for (int i = 0; i < settingCount; ++i) {
            made.SaveSetting(publisher, application, section, textOf(nameOf(i)), u"text of this setting");
        }
        return made;
    }();
    return registry;
}

void plainSelect(benchmark::State& state) {
    PlainTable& table = plain();
    int i = 0;
    for (auto _ : state) {
        if (!table.read(nameOf(i++ % settingCount))) {
            state.SkipWithError("a setting is missing");
        }
    }
}
BENCHMARK(plainSelect);

void getSetting(benchmark::State& state) {
    const moxRegistry& settings = registry();
    int i = 0;
    for (auto _ : state) {
        if (settings.GetSetting(publisher, application, section, textOf(nameOf(i++ % settingCount))).empty()) {
            state.SkipWithError("a setting is missing");
        }
    }
}
BENCHMARK(getSetting);

void plainUpsert(benchmark::State& state) {
    PlainTable& table = plain();
    static int i = 0; // every text is new: one that is there already is not written
    for (auto _ : state) {
        if (!table.save(nameOf(i % settingCount), "text number " + std::to_string(i))) {
            state.SkipWithError("a setting is not saved");
        }
        ++i;
    }
}
BENCHMARK(plainUpsert);

void saveSetting(benchmark::State& state) {
    const moxRegistry& settings = registry();
    static int i = 0;
    for (auto _ : state) {
        const String text = textOf("text number " + std::to_string(i));
        if (settings.SaveSetting(publisher, application, section, textOf(nameOf(i % settingCount)), text) != True) {
            state.SkipWithError("a setting is not saved");
        }
        ++i;
    }
}
BENCHMARK(saveSetting);

} // namespace

int main(int argc, char** argv) {
    return mox::bench::runWithRatios(
        argc, argv,
        {
            {"GetSetting / a prepared SELECT of SQLite", "getSetting", "plainSelect", 2},
            {"SaveSetting / an upsert of SQLite of the same durability", "saveSetting", "plainUpsert", 1.3},
        });
}
