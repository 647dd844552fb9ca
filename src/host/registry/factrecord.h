// The facts of the machine that its registry states.
#pragma once

#include "host/registry/keytree.h"
#include "host/registry/registryfact.h"

#include <string>
#include <vector>

namespace mox::host {

/// Brings the values that state facts up to date, and remembers what it wrote. A value follows the machine until somebody changes
/// or removes it; those below `HARDWARE` follow always. What is a fact no longer goes, unless it was changed, and its key with it
/// when nothing else is in there.
class FactRecord {
public:
    /// Makes the table in an empty database.
    static void lay(Database& database);
    /// `user` is the name of the present user's branch below `HKEY_USERS`.
    FactRecord(Database& database, KeyTree& tree, std::string user);

    /// Writes nothing, and waits for nobody, if all is as it should be.
    void update(const std::vector<RegistryFact>& facts);

private:
    std::vector<RegistryFact> stated();
    bool isUpToDate(const std::vector<RegistryFact>& facts, const std::vector<RegistryFact>& before);
    std::int64_t keyOf(const RegistryFact& fact);
    std::int64_t makeKeyOf(const RegistryFact& fact);
    bool holds(const RegistryFact& fact);
    void state(const RegistryFact& fact, const RegistryFact* before);
    void withdraw(const RegistryFact& before);

    Database& database_;
    KeyTree& tree_;
    const std::string user_;
    Statement list_;
    Statement record_;
    Statement forget_;
};

} // namespace mox::host
