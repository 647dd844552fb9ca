// Registering the server file by the command, and creating its classes from processes that know their names only.
#include "support/testservers.h"

#include "host/machine/temporaryfolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <sys/wait.h>

namespace mox::test {

namespace {

const std::string command = MOX_TEST_REGSVR;
const std::string creator = MOX_TEST_CREATOR;

class RegisteringCommand : public testing::Test {
protected:
    struct Outcome {
        int exitCode = -1;
        /// Of both standard outputs.
        std::string text;

        bool operator==(const Outcome&) const = default;
        friend void PrintTo(const Outcome& outcome, std::ostream* stream) { *stream << outcome.exitCode << ": " << outcome.text; }
    };

    /// Runs a command line of the shell with a home of its own, and without any server that would be known otherwise.
    Outcome run(const std::string& commandLine) const {
        const std::string line = "MOX_SERVER=/none.so MOX_HOME='" + folder.path().string() + "/home' " + commandLine + " 2>&1";
        const auto close = [](FILE* pipe) { pclose(pipe); };
        std::unique_ptr<FILE, decltype(close)> pipe(popen(line.c_str(), "r"), close);
        Outcome outcome;
        std::array<char, 1024> buffer{};
        while (std::fgets(buffer.data(), buffer.size(), pipe.get())) {
            outcome.text += buffer.data();
        }
        const int status = pclose(pipe.release());
        outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return outcome;
    }

    host::TemporaryFolder folder{testing::TempDir(), "mox-regsvr-"};
    const std::string server = std::getenv("MOX_SERVER");
};

TEST_F(RegisteringCommand, LetsOthersCreateClassesByName) {
    const Outcome unknown{1, "no class: 800401F3\n"};
    const Outcome known{0, "version 8.10.0100\n"};
    EXPECT_EQ(run(creator + " TRL_OBKR_MOX.moxHub"), unknown);
    EXPECT_EQ(run(command + " " + server), (Outcome{0, server + ": registered\n"}));
    EXPECT_EQ(run(creator + " TRL_OBKR_MOX.moxHub"), known);
    EXPECT_EQ(run(creator + " trl_obkr_mox.moxhub"), known);
    EXPECT_EQ(run(creator + " TRL_OBKR_MOX.moxVars"), unknown) << "not creatable";
    EXPECT_EQ(run(command + " -u " + server), (Outcome{0, server + ": removed\n"}));
    EXPECT_EQ(run(creator + " TRL_OBKR_MOX.moxHub"), unknown);
    EXPECT_EQ(run(command + " -u " + server), (Outcome{0, server + ": removed\n"}));
}

TEST_F(RegisteringCommand, TakesAPathFromWhereItIs) {
    const std::filesystem::path path = server;
    const std::string name = path.filename();
    EXPECT_EQ(run("sh -c 'cd " + path.parent_path().string() + " && " + command + " " + name + "'"),
              (Outcome{0, name + ": registered\n"}));
    EXPECT_EQ(run(creator + " TRL_OBKR_MOX.moxHub").exitCode, 0);
}

TEST_F(RegisteringCommand, SaysWhatIsWrong) {
    const std::filesystem::path text = folder.path() / "text.so";
    std::ofstream(text) << "no library";
    struct Row {
        std::string arguments;
        int exitCode;
        std::string part;
    };
    const Row rows[] = {
        {"", 2, "usage: mox-regsvr [-u] FILE"},
        {"-u", 2, "usage: "},
        {"-x " + server, 2, "usage: "},
        {server + " " + server, 2, "usage: "},
        {"/no/such/file.so", 3, "mox-regsvr: /no/such/file.so: cannot be loaded: "},
        {text.string(), 3, "cannot be loaded: "},
        {plainServer.string(), 4, "is no server: it has no routine DllRegisterServer"},
        {"-u " + plainServer.string(), 4, "is no server: it has no routine DllUnregisterServer"},
        {registeringServer.string(), 5, "not registered: 0xFFFFFFFF"},
        {"-u " + registeringServer.string(), 0, "removed"}, // its answer is 7, which is no failure
    };
    for (const auto& [arguments, exitCode, part] : rows) {
        const Outcome outcome = run(command + " " + arguments);
        EXPECT_EQ(outcome.exitCode, exitCode) << arguments;
        EXPECT_NE(outcome.text.find(part), std::string::npos) << outcome.text;
    }
}

TEST_F(RegisteringCommand, SaysThatItCannotRegister) {
    std::ofstream(folder.path() / "home") << "a file where the machine's home would be";
    EXPECT_EQ(run(command + " " + server),
              (Outcome{5, "mox-regsvr: " + server + ": not registered: a class cannot be entered or removed\n"}));
}

} // namespace

} // namespace mox::test
