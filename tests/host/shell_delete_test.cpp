#include "shell_support.h"

#include <algorithm>
#include <sys/mount.h>
#include <sys/stat.h>

namespace mox::test {

namespace {

using namespace platform;

class ShellDeleteTest : public OtherDiskTest {
protected:
    void SetUp() override {
        if (hasOtherDisk()) {
            OtherDiskTest::SetUp();
        }
    }
    std::filesystem::path trash() { return machine_->config().trash; }
    Names trashed() { return std::filesystem::exists(trash() / "files") ? treeOf(trash() / "files") : Names{}; }
};

constexpr std::uint16_t undo = quiet | FOF_ALLOWUNDO;

TEST_F(ShellDeleteTest, deletesFilesAndTrees) {
    const Names before{"a.txt", "b.txt", ".hidden", "f/in", "f/.dot", "f/sub/deep", "g/"};
    struct {
        const char* from;
        std::int32_t result;
        Names after;
    } const cases[] = {
        {"D:\\a.txt",
         0,
         {".hidden .hidden", "b.txt b.txt", "f/", "f/.dot f/.dot", "f/in f/in", "f/sub/", "f/sub/deep f/sub/deep", "g/"}},
        {"d:/A.TXT",
         0,
         {".hidden .hidden", "b.txt b.txt", "f/", "f/.dot f/.dot", "f/in f/in", "f/sub/", "f/sub/deep f/sub/deep", "g/"}},
        {"D:\\f", 0, {".hidden .hidden", "a.txt a.txt", "b.txt b.txt", "g/"}},
        {"D:\\f\\", 0, {".hidden .hidden", "a.txt a.txt", "b.txt b.txt", "g/"}},
        {"D:\\f\\*", 0, {".hidden .hidden", "a.txt a.txt", "b.txt b.txt", "f/", "g/"}},
        {"D:\\*.*", 0, {}},
        {"D:\\g\\*",
         0,
         {".hidden .hidden", "a.txt a.txt", "b.txt b.txt", "f/", "f/.dot f/.dot", "f/in f/in", "f/sub/", "f/sub/deep f/sub/deep",
          "g/"}},
        {"D:\\*.txt|D:\\g|D:\\.hidden", 0, {"f/", "f/.dot f/.dot", "f/in f/in", "f/sub/", "f/sub/deep f/sub/deep"}},
        // Nothing changes.
        {"D:\\a.txt|D:\\none", 2, {"all"}},
        {"D:\\a.txt|D:\\none\\x", 3, {"all"}},
        {"D:\\g\\x*", 2, {"all"}},
        {"D:\\a.txt\\", 2, {"all"}},
        {"D:\\a.txt\\*", 3, {"all"}},
        {"D:\\", 0x74, {"all"}},
        {"D:\\a.txt|Z:\\", 0x74, {"all"}},
        {"D:\\f\\..\\..\\..", 0x74, {"all"}},
        {"\\\\server\\share\\x", 0x7C, {"all"}},
        {"", 0x7C, {"all"}},
    };
    for (const std::uint16_t flags : {quiet, undo}) {
        for (const auto& [from, result, after] : cases) {
            fill(before);
            const Names all = tree();
            EXPECT_EQ(erase(from, flags), result) << from;
            EXPECT_EQ(tree(), after == Names{"all"} ? all : after) << from;
        }
    }
    EXPECT_EQ(questions(), Names{});
}

TEST_F(ShellDeleteTest, followsNoLink) {
    for (const char* from : {"D:\\f", "D:\\f\\*", "D:\\f\\link|D:\\f\\loop\\"}) {
        fill({"outside/x", "f/"});
        std::filesystem::create_directory_symlink("../outside", disk() / "f/link");
        std::filesystem::create_directory_symlink("..", disk() / "f/loop");
        EXPECT_EQ(erase(from), 0) << from;
        std::filesystem::remove(disk() / "f");
        EXPECT_EQ(tree(), (Names{"outside/", "outside/x outside/x"})) << from;
    }
}

TEST_F(ShellDeleteTest, movesToTheTrash) {
    fill({"a b%\xC3\xA4", "f/x", "f/sub/y"});
    EXPECT_EQ(erase("D:\\a b%\xE4|D:\\f", undo), 0);
    makeFile("f", "second");
    EXPECT_EQ(erase("D:\\f", undo), 0);
    EXPECT_EQ(tree(), Names{});
    EXPECT_EQ(trashed(), (Names{"a b%\xC3\xA4 a b%\xC3\xA4", "f.2 second", "f/", "f/sub/", "f/sub/y f/sub/y", "f/x f/x"}));
    struct {
        const char* name;
        const char* path;
    } const infos[] = {{"a b%\xC3\xA4", "/a%20b%25%C3%A4"}, {"f", "/f"}, {"f.2", "/f"}};
    for (const auto& [name, path] : infos) {
        const std::string info = contentsOf(trash() / "info" / (std::string(name) + ".trashinfo"));
        const std::string start = "[Trash Info]\nPath=" + disk().string() + path + "\nDeletionDate=";
        EXPECT_TRUE(info.starts_with(start)) << info;
        std::string date = info.substr(start.size());
        std::ranges::replace_if(
            date, [](char c) { return c >= '0' && c <= '9'; }, '0');
        EXPECT_EQ(date, "0000-00-00T00:00:00\n") << info;
    }
    struct stat facts {};
    ASSERT_EQ(stat(trash().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777u, 0700u);
}

TEST_F(ShellDeleteTest, asksBeforeItDeletesForGoodWhatTheTrashDoesNotTake) {
    if (!other_) {
        GTEST_SKIP() << "there is no second disk to write to";
    }
    const auto refill = [&] { std::ofstream(other() / "x") << "x"; };
    constexpr std::uint16_t asking = undo & ~FOF_NOCONFIRMATION;
    refill();
    EXPECT_EQ(erase(otherPath("/x"), undo), 0);
    EXPECT_EQ(questions(), Names{}) << "no confirmation is wanted";
    EXPECT_EQ(treeOf(other()), Names{});

    refill();
    answer(true);
    EXPECT_EQ(erase(otherPath("/x"), asking), 1223);
    EXPECT_EQ(treeOf(other()), Names{"x x"});
    answer(true);
    answer(true);
    EXPECT_EQ(erase(otherPath("/x"), asking), 0);
    EXPECT_EQ(treeOf(other()), Names{});
    const std::string move = "Are you sure you want to move \"x\" to the trash?";
    const std::string good = "The trash does not take \"x\". Are you sure you want to delete it for good?";
    EXPECT_EQ(questions(), (Names{move, good, move, good}));
    EXPECT_EQ(trashed(), Names{});
    EXPECT_TRUE(std::filesystem::is_empty(trash() / "info"));
}

TEST_F(ShellDeleteTest, usesTheTrashOfTheDesktop) {
    const host::TemporaryFolder desktop(std::filesystem::temp_directory_path(), "mox-desktop-");
    const std::string answer = answerInOwnProcess(
        "ShellDeleteTest.DISABLED_moveToTheTrashOfTheDesktop",
        {{"XDG_DATA_HOME", desktop.path()}, {"HOME", desktop.path()}, {"DBUS_SESSION_BUS_ADDRESS", "disabled:"}});
    EXPECT_EQ(answer.substr(0, 2), "0 ");
    EXPECT_EQ(treeOf(desktop.path() / "Trash/files"), (Names{"a a", "f/", "f/x f/x"}));
    const std::string info = contentsOf(desktop.path() / "Trash/info/a.trashinfo");
    EXPECT_TRUE(info.starts_with("[Trash Info]\nPath=" + answer.substr(2) + "/a\n")) << info;
}

TEST_F(ShellDeleteTest, DISABLED_moveToTheTrashOfTheDesktop) {
    fill({"a", "f/x"});
    host::MachineConfig config;
    config.home = disk() / "home";
    config.drives = {{'D', disk()}};
    host::Machine machine(config);
    SHFILEOPSTRUCTA operation{0, FO_DELETE, listOf("D:\\a|D:\\f"), "", undo, false};
    answerFromOwnProcess(std::to_string(machine.shell32.SHFileOperationA(operation)) + " " + disk().string());
    EXPECT_EQ(tree(), Names{});
}

TEST_F(ShellDeleteTest, leavesOtherDisksAlone) {
    fill({"f/mounted/", "f/x", "source/keep"});
    const std::filesystem::path place = disk() / "f/mounted";
    if (mount("none", place.c_str(), "tmpfs", 0, nullptr) != 0) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    std::ofstream(place / "keep") << "keep";
    EXPECT_EQ(erase("D:\\f"), 32);
    EXPECT_EQ(contentsOf(place / "keep"), "keep");
    EXPECT_EQ(erase("D:\\f\\mounted"), 32);
    EXPECT_EQ(contentsOf(place / "keep"), "keep");
    umount(place.c_str());
}

} // namespace

} // namespace mox::test
