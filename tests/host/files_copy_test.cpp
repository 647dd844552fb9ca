#include "files_support.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mox::test {

namespace {

using namespace platform;

/// `M:` is a folder of the disk in memory, another disk than that of `D:` mostly.
class CopyTest : public FilesTest {
protected:
    std::string contents(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void prepare() {
        for (const auto& entry : std::filesystem::directory_iterator(disk())) {
            std::filesystem::remove_all(entry);
        }
        makeFile("a.txt", "aaa");
        makeFile("b.txt", "b");
        makeFile("sub/c.txt", "c");
        makeFile("hidden", "h");
        makeFile("protected", "p");
        kernel32().SetFileAttributesA("D:\\hidden", FILE_ATTRIBUTE_HIDDEN);
        kernel32().SetFileAttributesA("D:\\protected", FILE_ATTRIBUTE_READONLY);
        std::filesystem::create_symlink("a.txt", disk() / "link");
        std::filesystem::create_hard_link(disk() / "a.txt", disk() / "twin");
    }
    /// All names below the drive's folder with the size of the files.
    std::string tree() {
        Names names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(disk())) {
            const std::string size = entry.is_regular_file() ? ":" + std::to_string(entry.file_size()) : "";
            names.push_back(entry.path().lexically_relative(disk()).string() + size);
        }
        std::ranges::sort(names);
        std::string all;
        for (const std::string& name : names) {
            all += name + " ";
        }
        return all;
    }
};

TEST_F(CopyTest, copiesFilesOnly) {
    using namespace std::string_view_literals;
    const std::string longName = "D:\\" + std::string(300, 'n');
    struct {
        std::string_view from;
        std::string_view to;
        bool failIfExists;
        bool copies;
        const char* place; // where the copy is
    } const cases[] = {
        {"D:\\A.TXT", "D:\\New.txt", true, true, "New.txt"},
        {"D:\\a.txt", "D:\\SUB\\New.txt", false, true, "sub/New.txt"},
        {"D:\\a.txt\0x"sv, "D:\\new\0x"sv, false, true, "new"},
        {"D:\\a.txt", "D:\\New. .", true, true, "New"},
        {"D:\\a.txt", "D:\\B.TXT", false, true, "b.txt"},
        {"D:\\a.txt", "D:\\B.TXT", true, false, ""},
        {"D:\\link", "D:\\new", true, true, "new"},
        {"D:\\a.txt", "D:\\a.txt", false, false, ""},
        {"D:\\a.txt", "D:\\A.TXT", false, false, ""},
        {"D:\\a.txt", "D:\\link", false, false, ""},
        {"D:\\a.txt", "D:\\twin", false, false, ""},
        {"D:\\a.txt", "D:\\sub", false, false, ""},
        {"D:\\a.txt", "D:\\sub\\", false, false, ""},
        {"D:\\sub", "D:\\new", false, false, ""},
        {"D:\\a.txt", "D:\\hidden", false, false, ""},
        {"D:\\a.txt", "D:\\protected", false, false, ""},
        {"D:\\a.txt", "D:\\none\\new", false, false, ""},
        {"D:\\none", "D:\\new", false, false, ""},
        {"D:\\*.txt", "D:\\new", false, false, ""},
        {"D:\\a.txt", "D:\\a|b", false, false, ""},
        {"D:\\a.txt", longName, false, false, ""},
        {"D:\\a.txt", "", false, false, ""},
    };
    for (const auto& [from, to, failIfExists, copies, place] : cases) {
        prepare();
        const std::string before = tree();
        EXPECT_EQ(kernel32().CopyFileA(from, to, failIfExists), copies) << from << " to " << to;
        if (copies) {
            EXPECT_EQ(contents(disk() / place), "aaa") << from << " to " << to;
        } else {
            EXPECT_EQ(tree(), before) << from << " to " << to;
        }
    }
    prepare();
    EXPECT_TRUE(kernel32().CopyFileA("D:\\b.txt", "D:\\link", false));
    EXPECT_TRUE(std::filesystem::is_symlink(disk() / "link")) << "what a link leads to is replaced";
    EXPECT_EQ(contents(disk() / "a.txt"), "b");
}

TEST_F(CopyTest, keepsAttributesAndTheTimeOfTheChange) {
    prepare();
    const timespec times[] = {{981173106, 700'000'000}, {881173106, 123'456'700}};
    ASSERT_EQ(utimensat(AT_FDCWD, (disk() / "a.txt").c_str(), times, 0), 0);
    for (const std::uint32_t attributes : {0x20u, 0x22u, 0x21u, 0x123u, 0x80u}) {
        ASSERT_TRUE(kernel32().SetFileAttributesA("D:\\a.txt", attributes));
        EXPECT_TRUE(kernel32().CopyFileA("D:\\a.txt", "D:\\copy", true)) << attributes;
        WIN32_FIND_DATAA found;
        ASSERT_TRUE(kernel32().FindClose(kernel32().FindFirstFileA("D:\\copy", found)));
        EXPECT_EQ(found.dwFileAttributes, attributes);
        EXPECT_EQ(found.ftLastWriteTime, 125256467061234567u);
        ASSERT_TRUE(std::filesystem::remove(disk() / "copy"));
    }
}

TEST_F(CopyTest, keepsHolesAndAllBytes) {
    std::string pattern(3'000'001, '\0');
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        pattern[i] = static_cast<char>(i * 2654435761u >> 24);
    }
    std::ranges::fill(std::span(pattern).subspan(1 << 20, 1 << 20), '\0');
    makeFile("file", pattern);
    makeFile("empty");
    makeFile("hole");
    std::filesystem::resize_file(disk() / "hole", std::uintmax_t{1} << 32);
    for (const char* name : {"file", "empty"}) {
        EXPECT_TRUE(kernel32().CopyFileA(std::string("D:\\") + name, "D:\\copy", false));
        EXPECT_TRUE(contents(disk() / "copy") == contents(disk() / name)) << name;
    }
    EXPECT_TRUE(kernel32().CopyFileA("D:\\hole", "D:\\copy", false));
    struct stat facts {};
    ASSERT_EQ(stat((disk() / "copy").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_size, std::int64_t{1} << 32);
    EXPECT_LT(facts.st_blocks, 1000);
    EXPECT_TRUE(kernel32().CopyFileA("Z:\\proc\\self\\status", "D:\\copy", false));
    EXPECT_NE(contents(disk() / "copy").find("Pid:"), std::string::npos) << "a file that states no size";
}

TEST_F(CopyTest, movesWithoutReplacing) {
    const std::string longName = "D:\\" + std::string(300, 'n');
    struct {
        std::string_view from;
        std::string_view to;
        bool moves;
        const char* after; // what the drive holds then, nothing if all is as before
    } const cases[] = {
        {"D:\\A.TXT", "D:\\New.txt", true, "New.txt:3 b.txt:1 hidden:1 link protected:1 sub sub/c.txt:1 twin:3 "},
        {"D:\\a.txt", "D:\\A.txt", true, "A.txt:3 b.txt:1 hidden:1 link protected:1 sub sub/c.txt:1 twin:3 "},
        {"D:\\sub", "D:\\SUB", true, "SUB SUB/c.txt:1 a.txt:3 b.txt:1 hidden:1 link:3 protected:1 twin:3 "},
        {"D:\\sub\\", "D:\\new", true, "a.txt:3 b.txt:1 hidden:1 link:3 new new/c.txt:1 protected:1 twin:3 "},
        {"D:\\protected", "D:\\Sub\\p", true, "a.txt:3 b.txt:1 hidden:1 link:3 sub sub/c.txt:1 sub/p:1 twin:3 "},
        {"D:\\link", "D:\\other", true, "a.txt:3 b.txt:1 hidden:1 other:3 protected:1 sub sub/c.txt:1 twin:3 "},
        {"D:\\a.txt", "D:\\a.txt", true, ""},
        {"D:\\a.txt", "D:\\B.txt", false, ""},
        {"D:\\a.txt", "D:\\twin", false, ""},
        {"D:\\a.txt", "D:\\sub", false, ""},
        {"D:\\sub", "D:\\sub\\below", false, ""},
        {"D:\\none", "D:\\new", false, ""},
        {"D:\\a.txt", "D:\\none\\new", false, ""},
        {"D:\\a.txt", "D:\\n:w", false, ""},
        {"D:\\a.txt", longName, false, ""},
        {"D:\\", "D:\\new", false, ""},
        {"", "D:\\new", false, ""},
    };
    for (const auto& [from, to, moves, after] : cases) {
        prepare();
        const std::string before = tree();
        EXPECT_EQ(kernel32().MoveFileA(from, to), moves) << from << " to " << to;
        EXPECT_EQ(tree(), *after ? after : before) << from << " to " << to;
    }
}

TEST_F(CopyTest, movesFilesToAnotherDisk) {
    host::TemporaryFolder other("/dev/shm", "mox-disk-");
    struct stat here {};
    struct stat there {};
    ASSERT_EQ(stat(disk().c_str(), &here), 0);
    if (stat(other.path().c_str(), &there) != 0 || here.st_dev == there.st_dev) {
        GTEST_SKIP() << "no second disk";
    }
    prepare();
    std::string target = "Z:" + other.path().string();
    std::ranges::replace(target, '/', '\\');
    const timespec times[] = {{981173106, 0}, {881173106, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, (disk() / "protected").c_str(), times, 0), 0);
    EXPECT_TRUE(kernel32().MoveFileA("D:\\protected", target + "\\moved"));
    EXPECT_FALSE(std::filesystem::exists(disk() / "protected"));
    EXPECT_EQ(contents(other.path() / "moved"), "p");
    EXPECT_EQ(attributes(target + "\\moved") & FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_READONLY);
    ASSERT_EQ(stat((other.path() / "moved").c_str(), &there), 0);
    EXPECT_EQ(there.st_mtime, 881173106);
    EXPECT_FALSE(kernel32().MoveFileA("D:\\a.txt", target + "\\MOVED")) << "there is one";
    EXPECT_FALSE(kernel32().MoveFileA("D:\\sub", target + "\\sub")) << "a folder stays on its disk";
    EXPECT_EQ(contents(disk() / "a.txt"), "aaa");
    EXPECT_TRUE(std::filesystem::exists(disk() / "sub/c.txt"));
}

} // namespace

} // namespace mox::test
