// The file of the registry: made, opened, kept aside when it is damaged.
#pragma once

#include "host/registry/keytree.h"
#include "host/registry/registryfact.h"

#include "platform/advapi32.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <vector>

namespace mox::host {

/// The registry's file and the tree in it, which states the facts of the machine (`FactRecord`). Nothing is opened or made before
/// the first use.
///
/// A file with damaged content is renamed to `registry.damaged-<time>.sqlite`, never over another file, and a new one begins; any
/// other failure leaves the file alone. For one thread at a time.
class RegistryStore {
public:
    using Facts = std::function<std::vector<RegistryFact>()>;

    /// `user` is the name of the present user's branch below `HKEY_USERS`.
    RegistryStore(std::filesystem::path file, Durability durability, std::string user, Facts facts);
    ~RegistryStore();

    /// Runs an operation on the tree and gives its answer, or that of a failure. After damage it runs again on the new file; so
    /// does one whose outcome `lasts` if the file has gone from its place meanwhile.
    template <class Task> std::int32_t perform(bool lasts, Task task) {
        for (int attempt = 1;; ++attempt) {
            try {
                KeyTree& tree = refreshed();
                const std::int32_t answer = task(tree);
                if (!lasts || attempt == mostAttempts || !closeIfMoved()) {
                    return answer;
                }
            } catch (const StorageError& error) {
                const std::optional<std::int32_t> answer = recover(error);
                if (answer || attempt == mostAttempts) {
                    return answer.value_or(error.status());
                }
            } catch (const std::bad_alloc&) {
                return platform::ERROR_NOT_ENOUGH_MEMORY;
            }
        }
    }
    /// Closes a file that lies no longer at its path; the next operation opens the one that does, or makes one.
    bool closeIfMoved();

    const std::filesystem::path& file() const noexcept { return file_; }
    const std::string& user() const noexcept { return user_; }
    /// What was wrong with the file before this one, in a line for people; empty if there was none.
    std::string damage();

private:
    struct Opened;
    static constexpr int mostAttempts = 3;

    /// The tree, ready for an operation.
    KeyTree& refreshed();
    void open();
    std::unique_ptr<Opened> openFile();
    /// Deals with a failure; the answer of the operation if another attempt is of no use.
    std::optional<std::int32_t> recover(const StorageError& error);
    void putAside(const std::string& reason);

    const std::filesystem::path file_;
    const Durability durability_;
    const std::string user_;
    const Facts facts_;
    std::unique_ptr<Opened> opened_;
};

} // namespace mox::host
