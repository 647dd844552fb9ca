#include "host/registry/factrecord.h"

#include <algorithm>
#include <utility>

namespace mox::host {

namespace {

using Root = RegistryFact::Root;

bool isVolatile(const RegistryFact& fact) {
    return fact.root == Root::localMachine && fact.path.starts_with("HARDWARE\\");
}

bool haveSamePlace(const RegistryFact& a, const RegistryFact& b) {
    return a.root == b.root && a.path == b.path && a.name == b.name;
}

const RegistryFact* findPlace(const std::vector<RegistryFact>& facts, const RegistryFact& fact) {
    const auto found = std::ranges::find_if(facts, [&](const RegistryFact& other) { return haveSamePlace(fact, other); });
    return found != facts.end() ? &*found : nullptr;
}

} // namespace

void FactRecord::lay(Database& database) {
    database.run("CREATE TABLE facts(root INTEGER NOT NULL, path TEXT NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL, "
                 "data BLOB NOT NULL, PRIMARY KEY(root, path, name)) WITHOUT ROWID");
}

FactRecord::FactRecord(Database& database, KeyTree& tree, std::string user)
    : database_(database), tree_(tree), user_(std::move(user)), list_(database, "SELECT root, path, name, type, data FROM facts"),
      record_(database, "INSERT OR REPLACE INTO facts VALUES (?1, ?2, ?3, ?4, ?5)"),
      forget_(database, "DELETE FROM facts WHERE root = ?1 AND path = ?2 AND name = ?3") {}

std::vector<RegistryFact> FactRecord::stated() {
    std::vector<RegistryFact> facts;
    Query query(list_);
    while (query.next()) {
        facts.push_back({query.number(0) == 0 ? Root::localMachine : Root::currentUser, std::string(query.bytes(1)),
                         std::string(query.bytes(2)), static_cast<std::uint32_t>(query.number(3)), std::string(query.bytes(4))});
    }
    return facts;
}

std::int64_t FactRecord::keyOf(const RegistryFact& fact) {
    const std::int64_t root = fact.root == Root::localMachine ? KeyTree::localMachine : tree_.find(KeyTree::users, user_);
    return tree_.find(root, fact.path);
}

std::int64_t FactRecord::makeKeyOf(const RegistryFact& fact) {
    const std::int64_t root = fact.root == Root::localMachine ? KeyTree::localMachine : tree_.make(KeyTree::users, user_);
    return tree_.make(root, fact.path);
}

bool FactRecord::holds(const RegistryFact& fact) {
    const RegistryValue* const value = tree_.value(keyOf(fact), fact.name);
    return value && value->type == fact.type && value->data == fact.data;
}

bool FactRecord::isUpToDate(const std::vector<RegistryFact>& facts, const std::vector<RegistryFact>& before) {
    return facts.size() == before.size() && std::ranges::all_of(facts, [&](const RegistryFact& fact) {
               const RegistryFact* const old = findPlace(before, fact);
               return old && *old == fact && (!isVolatile(fact) || holds(fact));
           });
}

void FactRecord::state(const RegistryFact& fact, const RegistryFact* before) {
    const bool isOurs = before ? holds(*before) : !tree_.value(keyOf(fact), fact.name);
    if ((isOurs || isVolatile(fact)) && !holds(fact)) {
        tree_.setValue(makeKeyOf(fact), fact.name, fact.type, fact.data);
    }
    if (!before || *before != fact) {
        Query(record_, static_cast<std::int64_t>(fact.root), std::string_view(fact.path), std::string_view(fact.name),
              static_cast<std::int64_t>(fact.type), Bytes{fact.data})
            .finish();
    }
}

void FactRecord::withdraw(const RegistryFact& before) {
    if (const std::int64_t key = keyOf(before); key != 0 && holds(before)) {
        tree_.removeValue(key, before.name);
        if (tree_.valueNames(key).empty()) {
            tree_.remove(key, false);
        }
    }
    Query(forget_, static_cast<std::int64_t>(before.root), std::string_view(before.path), std::string_view(before.name)).finish();
}

void FactRecord::update(const std::vector<RegistryFact>& facts) {
    if (isUpToDate(facts, stated())) {
        return;
    }
    Transaction transaction(database_);
    const std::vector<RegistryFact> before = stated();
    for (const RegistryFact& fact : before) {
        if (!findPlace(facts, fact)) {
            withdraw(fact);
        }
    }
    for (const RegistryFact& fact : facts) {
        state(fact, findPlace(before, fact));
    }
    transaction.commit();
}

} // namespace mox::host
