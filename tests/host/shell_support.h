// Operations of the shell on a drive of the test's own.
#pragma once

#include "dialogs_support.h"
#include "files_support.h"

#include "platform/shell32.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <iterator>
#include <map>
#include <set>

namespace mox::test {

/// Without dialogs of any kind.
inline constexpr std::uint16_t quiet = platform::FOF_NOCONFIRMATION | platform::FOF_SILENT | platform::FOF_NOERRORUI;

/// `D:` is an empty folder, with nobody to ask.
class ShellTest : public FilesTest {
protected:
    using FilesTest::FilesTest;
    ShellTest() = default;

    /// The paths of lists are separated by "|".
    static std::string listOf(std::string_view paths) {
        std::string list(paths);
        std::ranges::replace(list, '|', '\0');
        return list + '\0';
    }

    std::int32_t operate(std::uint32_t function, std::string_view from, std::string_view to, std::uint16_t flags = quiet) {
        platform::SHFILEOPSTRUCTA operation;
        operation.hwnd = 5;
        operation.wFunc = function;
        operation.pFrom = listOf(from);
        operation.pTo = to.empty() ? "" : listOf(to);
        operation.fFlags = flags;
        operation.fAnyOperationsAborted = true;
        const std::int32_t result = machine_->shell32.SHFileOperationA(operation);
        EXPECT_EQ(operation.fAnyOperationsAborted, result == 1223);
        return result;
    }
    std::int32_t copy(std::string_view from, std::string_view to, std::uint16_t flags = quiet) {
        return operate(platform::FO_COPY, from, to, flags);
    }
    std::int32_t move(std::string_view from, std::string_view to, std::uint16_t flags = quiet) {
        return operate(platform::FO_MOVE, from, to, flags);
    }
    std::int32_t rename(std::string_view from, std::string_view to, std::uint16_t flags = quiet) {
        return operate(platform::FO_RENAME, from, to, flags);
    }
    std::int32_t erase(std::string_view from, std::uint16_t flags = quiet) {
        return operate(platform::FO_DELETE, from, "", flags);
    }

    /// All that lies in a folder: folders with a slash behind them, files with their contents, links with their targets.
    static Names treeOf(const std::filesystem::path& folder) {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            const std::string name = entry.path().lexically_relative(folder).string();
            if (entry.is_symlink()) {
                names.insert(name + " -> " + std::filesystem::read_symlink(entry).string());
            } else if (entry.is_directory()) {
                names.insert(name + "/");
            } else {
                names.insert(name + " " + contentsOf(entry.path()));
            }
        }
        return {names.begin(), names.end()};
    }
    Names tree() const { return treeOf(disk()); }
    static std::string contentsOf(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// Empties the drive, then makes files of their own names as contents; a slash at the end makes a folder.
    void fill(const Names& names) {
        for (const auto& entry : std::filesystem::directory_iterator(disk())) {
            std::filesystem::remove_all(entry);
        }
        for (const std::string& name : names) {
            name.ends_with('/') ? makeFolder(name) : makeFile(name, name);
        }
    }

    Names questions() {
        Names texts;
        for (const host::AskedDialog& dialog : machine_->dialogs.asked()) {
            texts.push_back(dialog.text);
        }
        return texts;
    }
    void answer(bool yes) { machine_->dialogs.answer("confirm", {{"yes", yes}}); }

    /// Runs a disabled test of this program in a process of its own, as GIO reads the environment once; gives what it answers.
    static std::string answerInOwnProcess(const std::string& test, const std::map<std::string, std::string>& environment) {
        const host::TemporaryFolder folder(std::filesystem::temp_directory_path(), "mox-answer-");
        const std::string answer = folder.path() / "answer";
        const int result = inChild([&] {
            for (const auto& [name, value] : environment) {
                setenv(name.c_str(), value.c_str(), 1);
            }
            setenv("MOX_TEST_ANSWER", answer.c_str(), 1);
            const std::string filter = "--gtest_filter=" + test;
            execl("/proc/self/exe", "host_test", filter.c_str(), "--gtest_also_run_disabled_tests", "--gtest_brief=1", nullptr);
            return 99;
        });
        EXPECT_EQ(result, 0) << test;
        EXPECT_TRUE(std::filesystem::exists(answer)) << test << " has no answer";
        return contentsOf(answer);
    }
    static void answerFromOwnProcess(const std::string& text) {
        const char* const answer = std::getenv("MOX_TEST_ANSWER");
        ASSERT_TRUE(answer) << "this runs as a part of another test";
        std::ofstream(answer) << text;
    }

    /// Runs `body` in a child process; gives its result there, below 256 for what it has to hand out.
    static int inChild(const std::function<int()>& body) {
        const pid_t child = fork();
        if (child == 0) {
            _exit(body());
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

/// With a folder on another disk; there is one in memory on most systems.
class OtherDiskTest : public ShellTest {
protected:
    OtherDiskTest() = default;
    static bool hasOtherDisk() {
        struct stat here {};
        struct stat there {};
        return stat(testing::TempDir().c_str(), &here) == 0 && stat("/dev/shm", &there) == 0 && here.st_dev != there.st_dev &&
               access("/dev/shm", W_OK) == 0;
    }
    void SetUp() override {
        if (!hasOtherDisk()) {
            GTEST_SKIP() << "there is no second disk to write to";
        }
        other_ = std::make_unique<host::TemporaryFolder>("/dev/shm", "mox-other-");
    }
    const std::filesystem::path& other() const { return other_->path(); }
    /// As a path on `Z:`.
    std::string otherPath(std::string_view rest) const {
        std::string path = "Z:" + other_->path().string() + std::string(rest);
        std::ranges::replace(path, '/', '\\');
        return path;
    }

    std::unique_ptr<host::TemporaryFolder> other_;
};

} // namespace mox::test
