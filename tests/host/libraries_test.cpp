// Library files, threads and programs of others.
#include "support/childprocess.h"
#include "support/testmachine.h"
#include "support/testservers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <fstream>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace mox::test {

namespace {

using namespace platform;

constexpr std::uint32_t long_ = 20000; // milliseconds, more than any of this takes

struct LibrariesTest : testing::Test {
    TestMachine machine;
    Kernel32& kernel32 = machine->kernel32;

    std::string drivePath(const std::filesystem::path& path) { return machine->files.toDrivePath(path); }

    /// Loads a library, calls a routine, gives it back: what the routine says, or why there is no answer.
    std::string answerOf(const std::string& file, std::string_view routine) {
        const Handle library = kernel32.LoadLibraryA(file);
        if (library == 0) {
            return "no library";
        }
        const Procedure procedure = kernel32.GetProcAddress(library, routine);
        const std::string answer = procedure ? std::to_string(procedure()) : "no routine";
        EXPECT_TRUE(kernel32.FreeLibrary(library));
        EXPECT_FALSE(kernel32.FreeLibrary(library));
        EXPECT_EQ(kernel32.GetProcAddress(library, routine), nullptr);
        return answer;
    }
};

TEST_F(LibrariesTest, areFoundByPathAndName) {
    const std::filesystem::path system = machine.home() / "drives/C/Windows/System32";
    std::filesystem::create_directories(system);
    std::filesystem::copy_file(plainServer, system / "Plain.so");
    std::filesystem::copy_file(plainServer, machine.folder() / "other.DLL");
    std::ofstream(machine.folder() / "broken.dll") << "no library";
    const std::string folder = drivePath(machine.folder());
    const std::string path = drivePath(plainServer);
    const std::string stem = path.substr(0, path.size() - 3);
    const std::pair<std::string, const char*> rows[] = {
        {path, "42"},
        {stem, "42"},
        {stem + ".dll", "42"},
        {stem + ".DLL", "42"},
        {folder + "\\OTHER.dll", "42"},
        {"plain", "42"},
        {"plain.dll", "42"},
        {"PLAIN.so", "42"},
        {path + std::string("\0x", 2), "42"},
        {folder + "\\missing.dll", "no library"},
        {folder + "\\broken.dll", "no library"},
        {folder, "no library"},
        {"nosuchlibraryanywhere", "no library"},
        {"", "no library"},
        {std::string("\0", 1), "no library"},
        {"icuuc", "no routine"}, // libicuuc.so, of the system
        {"libm.so.6", "no routine"},
    };
    for (const auto& [file, answer] : rows) {
        EXPECT_EQ(answerOf(file, "plainNumber"), answer) << file;
    }
    EXPECT_EQ(answerOf(path, "PlainNumber"), "no routine") << "names of routines have their case";
    EXPECT_EQ(answerOf(path, ""), "no routine");
    EXPECT_EQ(answerOf(path, "getpid"), "no routine") << "of a library that it needs";
}

TEST_F(LibrariesTest, threadsHaveExitCodes) {
    static std::atomic<pid_t> thread = 0;
    const std::pair<Procedure, std::uint32_t> rows[] = {
        {[] { return 0; }, 0u},
        {[] { return -1; }, 0xFFFFFFFFu},
        {[]() -> std::int32_t { throw 1; }, 0xE0000001u},
        {[] {
             thread = gettid();
             return 5;
         },
         5u},
    };
    for (const auto& [routine, expected] : rows) {
        const Handle handle = kernel32.CreateThread(routine);
        EXPECT_EQ(kernel32.WaitForSingleObject(handle, long_), WAIT_OBJECT_0);
        std::uint32_t code = 99;
        EXPECT_TRUE(kernel32.GetExitCodeThread(handle, code));
        EXPECT_EQ(code, expected);
        EXPECT_EQ(kernel32.WaitForSingleObject(handle, 0), WAIT_OBJECT_0) << "still";
        EXPECT_TRUE(kernel32.CloseHandle(handle));
        EXPECT_FALSE(kernel32.CloseHandle(handle));
        EXPECT_FALSE(kernel32.GetExitCodeThread(handle, code));
        EXPECT_EQ(kernel32.WaitForSingleObject(handle, 0), WAIT_FAILED);
    }
    EXPECT_NE(thread, gettid());
    EXPECT_EQ(kernel32.CreateThread(nullptr), 0);
    EXPECT_EQ(kernel32.WaitForSingleObject(0, 0), WAIT_FAILED);
}

TEST_F(LibrariesTest, aRunningThreadKeepsItsLibrary) {
    HangingServer server;
    const Handle library = kernel32.LoadLibraryA(drivePath(hangingServer));
    const Handle thread = kernel32.CreateThread(kernel32.GetProcAddress(library, "DllRegisterServer"));
    EXPECT_EQ(kernel32.WaitForSingleObject(thread, 0), WAIT_TIMEOUT);
    std::uint32_t code = 0;
    EXPECT_TRUE(kernel32.GetExitCodeThread(thread, code));
    EXPECT_EQ(code, STILL_ACTIVE);
    EXPECT_TRUE(kernel32.FreeLibrary(library));
    EXPECT_TRUE(server.isLoaded());
    server.letGo();
    EXPECT_EQ(kernel32.WaitForSingleObject(thread, long_), WAIT_OBJECT_0);
    EXPECT_FALSE(server.isLoaded());
    EXPECT_TRUE(kernel32.GetExitCodeThread(thread, code));
    EXPECT_EQ(code, 1u);
    EXPECT_TRUE(kernel32.CloseHandle(thread));
}

TEST_F(LibrariesTest, aThreadOutlivesItsMachine) {
    HangingServer server;
    {
        TestMachine other;
        const Handle library = other->kernel32.LoadLibraryA(drivePath(hangingServer));
        const Handle thread = other->kernel32.CreateThread(other->kernel32.GetProcAddress(library, "DllRegisterServer"));
        EXPECT_TRUE(other->kernel32.FreeLibrary(library));
        EXPECT_TRUE(other->kernel32.CloseHandle(thread));
    }
    EXPECT_TRUE(server.isLoaded());
    server.letGo();
}

TEST_F(LibrariesTest, processesAreWaitedFor) {
    ChildProcess child("/bin/cat");
    const Handle process = kernel32.OpenProcess(PROCESS_QUERY_INFORMATION, false, static_cast<std::uint32_t>(child.id()));
    EXPECT_EQ(kernel32.WaitForSingleObject(process, 0), WAIT_TIMEOUT);
    EXPECT_EQ(kernel32.WaitForSingleObject(process, 1), WAIT_TIMEOUT);
    kill(child.id(), SIGKILL);
    EXPECT_EQ(kernel32.WaitForSingleObject(process, 0xFFFFFFFF), WAIT_OBJECT_0);
    child.end();
    EXPECT_EQ(kernel32.WaitForSingleObject(process, 0xFFFFFFFF), WAIT_OBJECT_0) << "nothing is left of it";
    EXPECT_TRUE(kernel32.CloseHandle(process));
}

struct ProgramsTest : LibrariesTest {
    Report report{machine.folder()};

    std::int32_t shell(const std::string& commandLine) {
        task = -1;
        return machine->runtime.Shell(commandLine, 2, task);
    }
    /// The line in which the reporter says what it is, as it has to be.
    std::string ownLine() const {
        const std::string id = std::to_string(static_cast<long>(task));
        return "process " + id + ", group " + id + ", descriptors 3\n";
    }

    double task = 0;
};

TEST_F(ProgramsTest, areStartedWithTheirArguments) {
    std::filesystem::copy_file(reporterProgram, machine.folder() / "My Program.exe");
    const std::string path = drivePath(reporterProgram);
    const std::string folder = drivePath(machine.folder());
    const std::pair<std::string, const char*> rows[] = {
        {"\"" + path + "\" /regserver", "/regserver\n"},
        {path, ""},
        {path + ".exe /a \"b c\"", "/a\nb c\n"},
        {folder + "\\MY program /x", "/x\n"},
        {"\"" + folder + "\\my program.EXE\" $HOME *;`id`", "$HOME\n*;`id`\n"},
        {"\"" + path + "\" \xE4\x80", "\u00E4\u20AC\n"},
    };
    for (const auto& [commandLine, arguments] : rows) {
        ASSERT_EQ(shell(commandLine), 0) << commandLine;
        EXPECT_EQ(report.read(), arguments + ownLine()) << commandLine;
    }
}

TEST_F(ProgramsTest, areFoundByName) {
    const Variable path("PATH", std::string("relative:/nowhere:") + reporterProgram.parent_path().string() + ":/bin");
    const std::string name = reporterProgram.filename();
    for (const std::string& commandLine : {name + " /x", "\"" + name + ".exe\" /x"}) {
        ASSERT_EQ(shell(commandLine), 0) << commandLine;
        EXPECT_EQ(report.read(), "/x\n" + ownLine());
    }
}

TEST_F(ProgramsTest, sayWhyTheyDoNotStart) {
    std::ofstream(machine.folder() / "text.exe") << "no program";
    const std::string folder = drivePath(machine.folder());
    const std::pair<std::string, std::int32_t> rows[] = {
        {"", 53},
        {"\"\"", 53},
        {"nosuchprogramanywhere", 53},
        {folder + "\\missing.exe", 53},
        {folder, 53},
        {"\"" + folder + "\\\"", 53},
        {"Q:\\a.exe", 53},
        {folder + "\\text.exe", 5},
    };
    for (const auto& [commandLine, error] : rows) {
        EXPECT_EQ(shell(commandLine), error) << commandLine;
        EXPECT_EQ(task, -1);
    }
}

TEST_F(ProgramsTest, leaveNothingBehind) {
    ASSERT_EQ(shell("\"" + drivePath(reporterProgram) + "\""), 0);
    report.read();
    const auto id = static_cast<id_t>(task);
    // The one who takes note of its end is another thread; once it has, the process is no child any more.
    siginfo_t information{};
    while (waitid(P_PID, id, &information, WEXITED | WNOWAIT) == 0 || errno == EINTR) {
        std::this_thread::yield();
    }
    EXPECT_EQ(errno, ECHILD);
}

} // namespace

} // namespace mox::test
