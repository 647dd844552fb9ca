#include "shell_support.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace mox::test {

namespace {

using namespace platform;

using ShellCopyTest = ShellTest;

TEST_F(ShellCopyTest, bringsSourcesToTheirPlaces) {
    constexpr std::uint16_t exact = quiet | FOF_MULTIDESTFILES;
    const Names before{"a.txt", "b.txt", "c.doc", "f/in", "f/sub/deep", "g/"};
    struct {
        const char* from;
        const char* to;
        std::uint16_t flags;
        std::int32_t result;
        Names added;
    } const cases[] = {
        // Into a folder that exists, under the own names.
        {"D:\\a.txt", "D:\\g", quiet, 0, {"g/a.txt a.txt"}},
        {"D:\\A.TXT", "d:/G/", quiet, 0, {"g/a.txt a.txt"}},
        {"D:\\a.txt|D:\\f", "D:\\g", quiet, 0, {"g/a.txt a.txt", "g/f/", "g/f/in f/in", "g/f/sub/", "g/f/sub/deep f/sub/deep"}},
        {"D:\\*.txt", "D:\\g", quiet, 0, {"g/a.txt a.txt", "g/b.txt b.txt"}},
        {"D:\\f\\*.*", "D:\\g", quiet, 0, {"g/in f/in", "g/sub/", "g/sub/deep f/sub/deep"}},
        // A single source to a place that is free: there.
        {"D:\\a.txt", "D:\\new.txt", quiet, 0, {"new.txt a.txt"}},
        {"D:\\f", "D:\\h", quiet, 0, {"h/", "h/in f/in", "h/sub/", "h/sub/deep f/sub/deep"}},
        {"D:\\f\\sub\\", "D:\\x\\y\\", quiet, 0, {"x/", "x/y/", "x/y/deep f/sub/deep"}},
        {"D:\\a.txt", "D:\\x\\..\\y\\z.txt", quiet, 0, {"y/", "y/z.txt a.txt"}},
        // Several: the folder is made.
        {"D:\\a.txt|D:\\b.txt", "D:\\new", quiet, 0, {"new/", "new/a.txt a.txt", "new/b.txt b.txt"}},
        {"D:\\c.*", "D:\\new", quiet, 0, {"new/", "new/c.doc c.doc"}},
        // Each to a place of its own.
        {"D:\\a.txt|D:\\f\\sub", "D:\\g\\x|D:\\g\\y", exact, 0, {"g/x a.txt", "g/y/", "g/y/deep f/sub/deep"}},
        {"D:\\f\\sub", "D:\\g", exact, 0, {"g/deep f/sub/deep"}},
        {"D:\\a.txt|D:\\b.txt", "D:\\g\\x", exact, 0x72, {}},
        {"D:\\a.txt", "D:\\g\\x|D:\\g\\y", exact, 0x7A, {}},
        {"D:\\a.txt", "D:\\g", exact, 0x80, {}},
        // What is refused before anything changes.
        {"D:\\a.txt", "D:\\x|D:\\y", quiet, 0x7A, {}},
        {"D:\\a.txt|D:\\none", "D:\\g", quiet, 2, {}},
        {"D:\\a.txt|D:\\none\\x", "D:\\g", quiet, 3, {}},
        {"D:\\a.txt|D:\\none\\*", "D:\\g", quiet, 3, {}},
        {"D:\\a.txt|D:\\x*", "D:\\g", quiet, 2, {}},
        {"D:\\a.txt|Q:\\x", "D:\\g", quiet, 3, {}},
        {"D:\\a.txt|D:\\a|<x>", "D:\\g", quiet, 2, {}},
        {"", "D:\\g", quiet, 0x7C, {}},
        {"D:\\a.txt", "", quiet, 0x7C, {}},
        {"D:\\a.txt", "D:\\x*", quiet, 0x7C, {}},
        {"D:\\a.txt", "D:\\x\\y?\\z", quiet, 0x7C, {}},
        {"D:\\a.txt", "Q:\\x", quiet, 3, {}},
        {"D:\\a.txt", "D:\\b.txt\\x\\y", quiet, 3, {}},
        {"D:\\a.txt", "D:\\", quiet, 0x71, {}},
        {"D:\\a.txt", "D:\\A.txt", quiet, 0x71, {}},
        {"D:\\f", "D:\\f", quiet, 0x76, {}},
        {"D:\\a.txt|D:\\f", "D:\\f\\sub", quiet, 0x76, {}},
        {"D:\\f", "D:\\f\\new\\x", exact, 0x76, {}},
        {"D:\\", "D:\\g", exact, 0x76, {}},
        {"D:\\f", "D:\\b.txt", quiet, 0x7E, {}},
        {"D:\\a.txt|D:\\c.doc", "D:\\b.txt", quiet, 0x7E, {}},
    };
    for (const auto& [from, to, flags, result, added] : cases) {
        fill(before);
        Names expected = tree();
        expected.insert(expected.end(), added.begin(), added.end());
        std::ranges::sort(expected);
        EXPECT_EQ(copy(from, to, flags), result) << from << " to " << to;
        EXPECT_EQ(tree(), expected) << from << " to " << to;
    }
    EXPECT_EQ(questions(), Names{});
    EXPECT_EQ(operate(0, "D:\\a.txt", "D:\\x"), 87);
    EXPECT_EQ(operate(5, "D:\\a.txt", "D:\\x"), 87);
}

TEST_F(ShellCopyTest, mergesFoldersWithoutRegardToCase) {
    fill({"s/F/One.txt", "s/F/sub/x", "s/F/new", "s/F/A", "s/F/a", "t/f/one.TXT", "t/f/other", "t/f/Sub/y"});
    EXPECT_EQ(copy("D:\\s\\f", "D:\\t"), 0);
    EXPECT_EQ(treeOf(disk() / "t"), (Names{"f/", "f/A s/F/A", "f/Sub/", "f/Sub/x s/F/sub/x", "f/Sub/y t/f/Sub/y", "f/a s/F/a",
                                           "f/new s/F/new", "f/one.TXT s/F/One.txt", "f/other t/f/other"}));
    // A file does not take the place of a folder, nor the other way round; what came before stays.
    fill({"s/f/x/", "t/f/x"});
    EXPECT_EQ(copy("D:\\s\\f", "D:\\t"), 0x7E);
    fill({"s/f/x", "t/f/x/y"});
    EXPECT_EQ(copy("D:\\s\\f", "D:\\t"), 0x80);
    EXPECT_EQ(treeOf(disk() / "t"), (Names{"f/", "f/x/", "f/x/y t/f/x/y"}));
}

TEST_F(ShellCopyTest, keepsTimesModeAndAttributes) {
    fill({"f/file", "f/empty/"});
    EXPECT_TRUE(kernel32().SetFileAttributesA("D:\\f", FILE_ATTRIBUTE_HIDDEN));
    EXPECT_TRUE(kernel32().SetFileAttributesA("D:\\f\\file", FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY));
    setxattr((disk() / "f/file").c_str(), "user.note", "abc", 3, 0);
    const timespec times[] = {{1'000'000'000, 123'456'789}, {1'100'000'000, 987'654'321}};
    for (const char* name : {"f/file", "f/empty", "f"}) {
        ASSERT_EQ(utimensat(AT_FDCWD, (disk() / name).c_str(), times, 0), 0);
    }
    ASSERT_EQ(chmod((disk() / "f/empty").c_str(), 0751), 0);
    EXPECT_EQ(copy("D:\\f", "D:\\g"), 0);
    for (const char* name : {"/file", "/empty", ""}) {
        struct stat from {};
        struct stat to {};
        ASSERT_EQ(stat((disk() / ("f" + std::string(name))).c_str(), &from), 0);
        ASSERT_EQ(stat((disk() / ("g" + std::string(name))).c_str(), &to), 0);
        EXPECT_EQ(from.st_mode, to.st_mode) << name;
        EXPECT_EQ(to.st_mtim.tv_sec, times[1].tv_sec) << name;
        EXPECT_EQ(to.st_mtim.tv_nsec, times[1].tv_nsec) << name;
    }
    struct stat copied {};
    ASSERT_EQ(stat((disk() / "g/file").c_str(), &copied), 0);
    EXPECT_EQ(copied.st_atim.tv_nsec, times[0].tv_nsec);
    EXPECT_EQ(attributes("D:\\g"), FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(attributes("D:\\g\\file"), FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY);
    char note[3];
    EXPECT_EQ(getxattr((disk() / "g/file").c_str(), "user.note", note, 3), 3);
}

TEST_F(ShellCopyTest, copiesLinksAsLinks) {
    fill({"f/file", "outside/x", "g/"});
    std::filesystem::create_symlink("file", disk() / "f/link");
    std::filesystem::create_symlink("nowhere", disk() / "f/broken");
    std::filesystem::create_directory_symlink("../outside", disk() / "f/folder");
    std::filesystem::create_directory_symlink("..", disk() / "f/loop");
    EXPECT_EQ(copy("D:\\f", "D:\\g"), 0);
    EXPECT_EQ(treeOf(disk() / "g"),
              (Names{"f/", "f/broken -> nowhere", "f/file f/file", "f/folder -> ../outside", "f/link -> file", "f/loop -> .."}));
    // Nothing is written through a link that lies in the target.
    fill({"s/f/x", "t/", "outside/"});
    std::filesystem::create_directory_symlink(disk() / "outside", disk() / "t/f");
    EXPECT_EQ(copy("D:\\s", "D:\\u"), 0);
    std::filesystem::rename(disk() / "t", disk() / "u/t");
    EXPECT_EQ(copy("D:\\s\\f", "D:\\u\\t"), 0) << "but the target itself may be one";
    makeFolder("w/s");
    std::filesystem::create_directory_symlink("../../outside", disk() / "w/s/f");
    std::filesystem::remove(disk() / "outside/x");
    EXPECT_EQ(copy("D:\\s", "D:\\w"), 0x7E);
    EXPECT_EQ(treeOf(disk() / "outside"), Names{});
}

TEST_F(ShellCopyTest, copiesLargeFilesAndThoseTheSystemMakesUp) {
    std::string contents(3'000'001, '\0');
    for (std::size_t i = 0; i < contents.size(); ++i) {
        contents[i] = static_cast<char>(i * 7919 >> 5);
    }
    makeFile("big", contents);
    EXPECT_EQ(copy("D:\\big", "D:\\copy"), 0);
    EXPECT_TRUE(contentsOf(disk() / "copy") == contents);
    EXPECT_EQ(copy("Z:\\proc\\sys\\kernel\\ostype", "D:\\system"), 0);
    EXPECT_EQ(contentsOf(disk() / "system"), "Linux\n");
}

TEST_F(ShellCopyTest, replacesAFileInOnePiece) {
    fill({"a", "b"});
    std::filesystem::create_hard_link(disk() / "b", disk() / "other");
    ASSERT_EQ(chmod((disk() / "b").c_str(), 0444), 0);
    EXPECT_EQ(copy("D:\\a", "D:\\B"), 0);
    EXPECT_EQ(tree(), (Names{"a a", "b a", "other b"}));
}

} // namespace

} // namespace mox::test
