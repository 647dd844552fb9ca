#include "host/processes/programs.h"

#include "host/processes/commandline.h"
#include "host/processes/ending.h"

#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mox::host {

namespace {

constexpr std::int32_t errInvalidCall = 5;
constexpr std::int32_t errFileNotFound = 53;

bool isFile(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

std::vector<std::string> namesOf(const std::string& program) {
    constexpr std::string_view ending = ".exe";
    const bool has = hasEnding(program, ending);
    return {program, has ? program.substr(0, program.size() - ending.size()) : program + std::string(ending)};
}

std::optional<std::filesystem::path> findInPath(const std::string& name) {
    const char* const list = std::getenv("PATH");
    std::string_view rest = list ? list : "/usr/local/bin:/usr/bin:/bin";
    while (!rest.empty()) {
        const std::string_view folder = rest.substr(0, rest.find(':'));
        const std::filesystem::path file = std::filesystem::path(folder) / name;
        // A relative folder would mean another program in each place.
        if (file.is_absolute() && isFile(file)) {
            return file;
        }
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    }
    return std::nullopt;
}

std::optional<std::filesystem::path> findProgram(const Files& files, const CodePage& codePage, const std::string& program) {
    const bool isPath = program.find_first_of("\\/:") != std::string::npos;
    for (const std::string& name : namesOf(program)) {
        const auto file = isPath ? files.resolveFile(name) : findInPath(codePage.toUtf8(name));
        if (file && isFile(*file)) {
            return std::filesystem::path(*file);
        }
    }
    return std::nullopt;
}

/// What a new process begins with.
class SpawnSettings {
public:
    SpawnSettings() {
        posix_spawnattr_init(&attributes);
        posix_spawn_file_actions_init(&actions);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setpgroup(&attributes, 0);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    }
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawnattr_t attributes{};
    posix_spawn_file_actions_t actions{};
};

/// Takes note of the end of a child, which would stay in the list of processes otherwise.
void reap(pid_t child) {
    const auto wait = [child] {
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    };
    try {
        std::thread(wait).detach();
    } catch (const std::system_error&) { // it stays in the list until this process ends
    }
}

} // namespace

std::int32_t startProgram(const Files& files, const CodePage& codePage, std::string_view commandLine, double& task) {
    for (const auto& [program, rest] : readingsOf(commandLine)) {
        const auto file = findProgram(files, codePage, program);
        if (!file) {
            continue;
        }
        std::vector<std::string> texts = splitArguments(rest);
        texts.insert(texts.begin(), program);
        std::vector<char*> arguments;
        for (std::string& text : texts) {
            text = codePage.toUtf8(text);
            arguments.push_back(text.data());
        }
        arguments.push_back(nullptr);
        const SpawnSettings settings;
        pid_t child = 0;
        if (posix_spawn(&child, file->c_str(), &settings.actions, &settings.attributes, arguments.data(), environ) != 0) {
            return errInvalidCall;
        }
        reap(child);
        task = child;
        return 0;
    }
    return errFileNotFound;
}

} // namespace mox::host
