#include "shell_support.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace mox::test {

namespace {

using namespace platform;

using ShellMoveTest = ShellTest;

TEST_F(ShellMoveTest, movesWithinADisk) {
    struct {
        const char* from;
        const char* to;
        std::int32_t result;
        Names after;
    } const cases[] = {
        {"D:\\a", "D:\\f", 0, {"b b", "f/", "f/a a", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\A", "D:\\f\\new", 0, {"b b", "f/", "f/new a", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\f", "D:\\x\\y", 0, {"a a", "b b", "x/", "x/y/", "x/y/sub/", "x/y/sub/x f/sub/x"}},
        {"D:\\a", "D:\\b", 0, {"b a", "f/", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\?", "D:\\g", 0x76, {"a a", "b b", "f/", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\a|D:\\b", "D:\\g", 0, {"f/", "f/sub/", "f/sub/x f/sub/x", "g/", "g/a a", "g/b b"}},
        // Another case of the same name.
        {"D:\\a", "D:\\A", 0, {"A a", "b b", "f/", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\a", "D:\\a", 0x71, {"a a", "b b", "f/", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\a", "D:\\", 0x71, {"a a", "b b", "f/", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\f", "D:\\f\\sub", 0x76, {"a a", "b b", "f/", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\", "C:\\Temp", 0x74, {"a a", "b b", "f/", "f/sub/", "f/sub/x f/sub/x"}},
        {"D:\\none|D:\\a", "D:\\f", 2, {"a a", "b b", "f/", "f/sub/", "f/sub/x f/sub/x"}},
    };
    for (const auto& [from, to, result, after] : cases) {
        fill({"a", "b", "f/sub/x"});
        if (result == 0x76 && std::string_view(from) == "D:\\?") {
            std::filesystem::create_directories(disk() / "g");
        }
        EXPECT_EQ(move(from, to), result) << from << " to " << to;
        std::error_code error;
        std::filesystem::remove(disk() / "g", error); // only if it is empty
        EXPECT_EQ(tree(), after) << from << " to " << to;
    }
}

TEST_F(ShellMoveTest, mergesFolders) {
    fill({"s/f/One", "s/f/sub/x", "t/f/one", "t/f/sub/y"});
    EXPECT_EQ(move("D:\\s\\f", "D:\\t"), 0);
    EXPECT_EQ(tree(), (Names{"s/", "t/", "t/f/", "t/f/one s/f/One", "t/f/sub/", "t/f/sub/x s/f/sub/x", "t/f/sub/y t/f/sub/y"}));
    // The target is the source by way of a link.
    fill({"s/f/x", "t/"});
    std::filesystem::create_directory_symlink("../s/f", disk() / "t/f");
    EXPECT_EQ(move("D:\\s\\f", "D:\\t"), 0x76);
    EXPECT_EQ(tree(), (Names{"s/", "s/f/", "s/f/x s/f/x", "t/", "t/f -> ../s/f"}));
}

TEST_F(ShellMoveTest, leavesOneOfTwoHardLinks) {
    fill({"a"});
    std::filesystem::create_hard_link(disk() / "a", disk() / "b");
    EXPECT_EQ(move("D:\\a", "D:\\b"), 0);
    EXPECT_EQ(tree(), Names{"b a"});
}

TEST_F(ShellMoveTest, renames) {
    struct {
        const char* from;
        const char* to;
        std::int32_t result;
        Names after;
    } const cases[] = {
        {"D:\\f", "D:\\g", 0, {"a a", "g/", "g/x f/x"}},       {"D:\\f\\", "D:\\g\\", 0, {"a a", "g/", "g/x f/x"}},
        {"D:\\f\\x", "D:\\f\\y", 0, {"a a", "f/", "f/y f/x"}}, {"D:\\f", "D:\\F", 0, {"F/", "F/x f/x", "a a"}},
        {"D:\\f", "D:\\A", 183, {"a a", "f/", "f/x f/x"}},     {"D:\\a", "D:\\f", 183, {"a a", "f/", "f/x f/x"}},
        {"D:\\a", "D:\\f\\a", 0x73, {"a a", "f/", "f/x f/x"}}, {"D:\\a", "D:\\new\\a", 0x73, {"a a", "f/", "f/x f/x"}},
        {"D:\\a", "D:\\a", 0x71, {"a a", "f/", "f/x f/x"}},    {"D:\\a|D:\\f", "D:\\g", 0x72, {"a a", "f/", "f/x f/x"}},
        {"D:\\a*", "D:\\g", 0x72, {"a a", "f/", "f/x f/x"}},   {"D:\\none", "D:\\g", 2, {"a a", "f/", "f/x f/x"}},
        {"D:\\", "D:\\g", 0x74, {"a a", "f/", "f/x f/x"}},     {"D:\\a", "D:\\b*", 0x7C, {"a a", "f/", "f/x f/x"}},
        {"D:\\a", "", 0x7C, {"a a", "f/", "f/x f/x"}},
    };
    for (const auto& [from, to, result, after] : cases) {
        fill({"a", "f/x"});
        EXPECT_EQ(rename(from, to), result) << from << " to " << to;
        EXPECT_EQ(tree(), after) << from << " to " << to;
    }
}

using ShellOtherDiskTest = OtherDiskTest;

TEST_F(ShellOtherDiskTest, movesByCopyingAndDeleting) {
    fill({"f/x", "f/sub/y", "a"});
    std::filesystem::create_symlink("x", disk() / "f/link");
    const timespec times[] = {{1'000'000'000, 0}, {1'100'000'000, 987'654'321}};
    ASSERT_EQ(utimensat(AT_FDCWD, (disk() / "f").c_str(), times, 0), 0);
    EXPECT_EQ(move("D:\\f|D:\\a", otherPath("")), 0);
    EXPECT_EQ(tree(), Names{});
    EXPECT_EQ(treeOf(other()), (Names{"a a", "f/", "f/link -> x", "f/sub/", "f/sub/y f/sub/y", "f/x f/x"}));
    struct stat moved {};
    ASSERT_EQ(stat((other() / "f").c_str(), &moved), 0);
    EXPECT_EQ(moved.st_mtim.tv_nsec, times[1].tv_nsec);
    // And back into what is there.
    fill({"F/X", "F/keep"});
    EXPECT_EQ(move(otherPath("/f"), "D:\\"), 0);
    EXPECT_EQ(treeOf(other()), Names{"a a"});
    EXPECT_EQ(tree(), (Names{"F/", "F/X f/x", "F/keep F/keep", "F/link -> x", "F/sub/", "F/sub/y f/sub/y"}));
}

TEST_F(ShellOtherDiskTest, leavesTheSourceWhereCopyingFails) {
    fill({"f/a"});
    ASSERT_EQ(mkfifo((disk() / "f/pipe").c_str(), 0600), 0);
    EXPECT_EQ(move("D:\\f", otherPath("")), 50);
    EXPECT_EQ(contentsOf(disk() / "f/a"), "f/a");
    EXPECT_TRUE(std::filesystem::is_fifo(disk() / "f/pipe"));
}

/// Adds a file to the source while it is copied.
class MeddlingPresenter final : public host::DialogPresenter {
public:
    explicit MeddlingPresenter(std::filesystem::path file) : file_(std::move(file)) {}
    bool confirm(Handle, std::string_view, std::string_view) override { return true; }
    std::int32_t messageBox(Handle, std::string_view, std::string_view, std::uint32_t) override { return IDOK; }
    void begin(Handle, std::string_view, std::uint64_t) override {}
    bool step(std::uint64_t, std::string_view text) override {
        if (text.ends_with("/x")) {
            std::ofstream(file_) << "new";
        }
        return true;
    }
    void end() override {}

private:
    std::filesystem::path file_;
};

TEST_F(ShellOtherDiskTest, deletesOnlyWhatWasCopied) {
    fill({"f/x"});
    machine_->dialogs.setPresenter(std::make_shared<MeddlingPresenter>(disk() / "f/late"));
    EXPECT_EQ(move("D:\\f", otherPath(""), FOF_NOCONFIRMATION | FOF_NOERRORUI), 145);
    EXPECT_EQ(tree(), (Names{"f/", "f/late new"}));
    EXPECT_EQ(treeOf(other()), (Names{"f/", "f/x f/x"}));
}

} // namespace

} // namespace mox::test
