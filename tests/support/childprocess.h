// A process that a test starts.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace mox::test {

/// Runs a program whose standard input is a pipe that stays open, and whose output goes nowhere. At the end of this object the
/// pipe closes, the program is killed and waited for.
class ChildProcess {
public:
    /// Throws `std::system_error` if the program does not start.
    explicit ChildProcess(const std::filesystem::path& program, std::vector<std::string> arguments = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t id() const noexcept { return id_; }
    /// Waits until the program has ended by itself; it can still be seen until `end`.
    void awaitEnd() const;
    /// Kills it and waits until it is gone.
    void end();

private:
    pid_t id_ = 0;
    int input_ = -1;
};

} // namespace mox::test
