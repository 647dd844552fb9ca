#include "files_support.h"

#include <sys/stat.h>
#include <sys/xattr.h>

#include <optional>

namespace mox::test {

namespace {

using namespace platform;

constexpr char attributeName[] = "user.DOSATTRIB";

class AttributesTest : public FilesTest {
protected:
    void SetUp() override {
        makeFile("probe");
        if (!store("probe", "0x20")) {
            GTEST_SKIP() << "the temporary folder has no extended attributes";
        }
    }

    bool store(const char* name, std::string_view text) {
        return setxattr((disk() / name).c_str(), attributeName, text.data(), text.size(), 0) == 0;
    }
    std::string stored(const char* name) {
        std::string text(256, '\0');
        const ssize_t length = getxattr((disk() / name).c_str(), attributeName, text.data(), text.size());
        return length < 0 ? "-" : text.substr(0, static_cast<std::size_t>(length));
    }
    mode_t mode(const char* name) {
        struct stat facts {};
        EXPECT_EQ(stat((disk() / name).c_str(), &facts), 0);
        return facts.st_mode & 07777;
    }
    std::uint64_t created(const char* path) {
        WIN32_FIND_DATAA found;
        EXPECT_TRUE(kernel32().FindClose(kernel32().FindFirstFileA(path, found)));
        return found.ftCreationTime;
    }
};

TEST_F(AttributesTest, comeBackAsTheyWereSet) {
    makeFile("file");
    makeFile(".dot");
    makeFolder("folder");
    makeFolder(".folder");
    struct {
        const char* path;
        std::uint32_t set;
        std::uint32_t expected;
    } const cases[] = {
        {"D:\\file", FILE_ATTRIBUTE_READONLY, 0x1},
        {"D:\\file", FILE_ATTRIBUTE_HIDDEN, 0x2},
        {"D:\\file", FILE_ATTRIBUTE_SYSTEM, 0x4},
        {"D:\\file", FILE_ATTRIBUTE_ARCHIVE, 0x20},
        {"D:\\file", FILE_ATTRIBUTE_TEMPORARY, 0x100},
        {"D:\\file", 0x127, 0x127},
        {"D:\\file", FILE_ATTRIBUTE_NORMAL, FILE_ATTRIBUTE_NORMAL},
        {"D:\\file", 0, FILE_ATTRIBUTE_NORMAL},
        // What a file is cannot be set.
        {"D:\\file", 0xFFFF'FFFF, 0x127},
        {"D:\\FILE", FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_ARCHIVE, 0x20},
        // A leading dot counts as hidden.
        {"D:\\.dot", FILE_ATTRIBUTE_ARCHIVE, 0x22},
        {"D:\\.dot", FILE_ATTRIBUTE_NORMAL, 0x2},
        {"D:\\folder", FILE_ATTRIBUTE_NORMAL, 0x10},
        {"D:\\folder", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM, 0x16},
        {"D:\\folder\\", FILE_ATTRIBUTE_READONLY, 0x11},
        {"D:\\.folder", FILE_ATTRIBUTE_ARCHIVE, 0x32},
    };
    for (const auto& [path, set, expected] : cases) {
        EXPECT_TRUE(kernel32().SetFileAttributesA(path, set)) << path << ' ' << set;
        EXPECT_EQ(attributes(path), expected) << path << ' ' << set;
    }
    EXPECT_EQ(mode("folder") & 0222, 0200u | (mode("folder") & 022)) << "a read-only folder still takes files";
    EXPECT_FALSE(kernel32().SetFileAttributesA("D:\\missing", FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(attributes("D:\\missing"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(attributes("D:\\"), FILE_ATTRIBUTE_DIRECTORY);
}

TEST_F(AttributesTest, areReadFromTheDisk) {
    struct {
        const char* stored;
        mode_t mode;
        std::uint32_t expected;
    } const cases[] = {
        {"0x20", 0644, 0x20},
        {"0x22", 0644, 0x22},
        {"0x0", 0644, 0x80},
        {"0x1", 0644, 0x1},
        {"0x20", 0444, 0x21},
        {"0x20", 0466, 0x21}, // the owner counts
        {"  0x26", 0644, 0x26},
        {"0xFFFFFFFF", 0644, 0x127},
        {"0x22 0x1C0000000000000", 0644, 0x22},
        {"0x22 rest", 0644, 0x22},
        // Not ours: the file counts as one that has none.
        {"", 0644, 0x20},
        {"22", 0644, 0x20},
        {"0x", 0644, 0x20},
        {"0xG", 0644, 0x20},
        {"0x100000000", 0644, 0x20},
    };
    makeFile("file");
    for (const auto& [text, mode, expected] : cases) {
        ASSERT_EQ(chmod((disk() / "file").c_str(), 0644), 0);
        ASSERT_TRUE(store("file", text));
        ASSERT_EQ(chmod((disk() / "file").c_str(), mode), 0);
        EXPECT_EQ(attributes("D:\\file"), expected) << text << ' ' << mode;
    }
}

TEST_F(AttributesTest, areWrittenToTheDisk) {
    makeFile("file");
    ASSERT_EQ(chmod((disk() / "file").c_str(), 0664), 0);
    EXPECT_TRUE(kernel32().SetFileAttributesA("D:\\file", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(stored("file"), "0x3");
    EXPECT_EQ(mode("file"), 0444u);
    EXPECT_TRUE(kernel32().SetFileAttributesA("D:\\file", FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(stored("file"), "0x20");
    EXPECT_EQ(mode("file"), 0644u) << "the owner may write again";
}

TEST_F(AttributesTest, keepTheTimeOfCreation) {
    makeFile("file");
    EXPECT_GT(created("D:\\file"), 130'000'000'000'000'000u) << "later than 2012 in any case";
    ASSERT_TRUE(store("file", "0x20 0x1c0123456789abc"));
    EXPECT_EQ(created("D:\\file"), 0x1c0123456789abcu);
    EXPECT_TRUE(kernel32().SetFileAttributesA("D:\\file", FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(stored("file"), "0x2 0x1c0123456789abc");
    ASSERT_TRUE(store("file", "0x20 nonsense"));
    EXPECT_GT(created("D:\\file"), 130'000'000'000'000'000u);
}

TEST_F(AttributesTest, ofWhatIsNoFileBelongToTheSystem) {
    ASSERT_EQ(mkfifo((disk() / "pipe").c_str(), 0644), 0);
    EXPECT_EQ(attributes("D:\\pipe"), FILE_ATTRIBUTE_SYSTEM);
    EXPECT_EQ(attributes("Z:\\dev\\null"), FILE_ATTRIBUTE_SYSTEM);
}

TEST(AttributesWithoutDiskTest, fallBackToPermissionsAndNames) {
    // A file system without extended attributes of users.
    const std::filesystem::path folder = "/sys/kernel";
    if (!std::filesystem::exists(folder)) {
        GTEST_SKIP();
    }
    TestMachine machine;
    platform::Kernel32& kernel32 = machine->kernel32;
    EXPECT_EQ(kernel32.GetFileAttributesA("Z:\\SYS\\kernel"), FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_FALSE(kernel32.SetFileAttributesA("Z:\\sys\\kernel", FILE_ATTRIBUTE_HIDDEN)) << "it could not be kept";
    EXPECT_TRUE(kernel32.SetFileAttributesA("Z:\\sys\\kernel", FILE_ATTRIBUTE_NORMAL));
}

} // namespace

} // namespace mox::test
