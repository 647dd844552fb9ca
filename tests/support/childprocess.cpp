#include "support/childprocess.h"

#include <array>
#include <csignal>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mox::test {

ChildProcess::ChildProcess(const std::filesystem::path& program, std::vector<std::string> arguments) {
    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    input_ = pipe[1];
    arguments.insert(arguments.begin(), program.string());
    std::vector<char*> list;
    for (std::string& argument : arguments) {
        list.push_back(argument.data());
    }
    list.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[0], STDIN_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    const int status = posix_spawn(&id_, program.c_str(), &actions, nullptr, list.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipe[0]);
    if (status != 0) {
        close(input_);
        throw std::system_error(status, std::generic_category(), program.string());
    }
}

ChildProcess::~ChildProcess() {
    end();
    close(input_);
}

void ChildProcess::awaitEnd() const {
    siginfo_t information{};
    waitid(P_PID, static_cast<id_t>(id_), &information, WEXITED | WNOWAIT);
}

void ChildProcess::end() {
    if (id_ > 0) {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
        id_ = 0;
    }
}

} // namespace mox::test
