#include "files_support.h"

#include <sys/stat.h>

namespace mox::test {

namespace {

using namespace platform;

class StatementsTest : public FilesTest {
protected:
    Runtime& runtime() { return machine_->runtime; }
};

TEST_F(StatementsTest, makeFolders) {
    makeFile("File");
    struct {
        const char* folder;
        int error;
    } const cases[] = {
        {"D:\\New", 0},     {"D:\\new", 75},    {"D:\\New\\Sub\\", 0},     {"D:\\new/sub/deeper", 0},
        {"D:\\file", 75},   {"D:\\file\\", 75}, {"D:\\file\\sub", 76},     {"D:\\missing\\sub", 76},
        {"D:\\", 75},       {"Q:\\new", 76},    {"\\\\server\\share", 76}, {"", 76},
        {"D:\\a*", 52},     {"D:\\a|b", 52},    {"D:\\..\\Up", 0},         {"D:\\\xC4\xD6", 0},
        {"D:\\Dotted.", 0},
    };
    for (const auto& [folder, error] : cases) {
        EXPECT_EQ(runtime().MkDir(folder), error) << folder;
    }
    for (const char* folder : {"New/Sub/deeper", "Up", "\xC3\x84\xC3\x96", "Dotted"}) {
        EXPECT_TRUE(std::filesystem::is_directory(disk() / folder)) << folder;
    }
    EXPECT_TRUE(std::filesystem::is_regular_file(disk() / "File"));
}

TEST_F(StatementsTest, deleteFiles) {
    struct {
        const char* pattern;
        int error;
        Names left;
    } const cases[] = {
        {"D:\\f\\A.TXT", 0, {"b.txt", "c.doc", "folder", "hidden.txt"}},
        {"D:\\f\\*.txt", 0, {"c.doc", "folder", "hidden.txt"}},
        {"D:\\f\\*.*", 0, {"folder", "hidden.txt"}},
        {"D:\\f\\?.*", 0, {"folder", "hidden.txt"}},
        {"D:\\f\\x.txt", 53, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"D:\\f\\*.x", 53, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"D:\\f\\folder", 53, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"D:\\f\\fold*", 53, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"D:\\f\\hidden.txt", 53, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"D:\\f\\", 53, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"D:\\g\\a.txt", 76, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"D:\\g\\*", 76, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"Q:\\*", 76, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
        {"", 76, {"a.txt", "b.txt", "c.doc", "folder", "hidden.txt"}},
    };
    for (const auto& [pattern, error, left] : cases) {
        std::filesystem::remove_all(disk() / "f");
        for (const char* name : {"f/a.txt", "f/b.txt", "f/c.doc", "f/hidden.txt"}) {
            makeFile(name);
        }
        makeFolder("f/folder");
        kernel32().SetFileAttributesA("D:\\f\\hidden.txt", FILE_ATTRIBUTE_HIDDEN);
        EXPECT_EQ(runtime().Kill(pattern), error) << pattern;
        Names names = list("D:\\f\\*");
        names.erase(names.begin(), names.begin() + 2);
        EXPECT_EQ(names, left) << pattern;
    }
}

TEST_F(StatementsTest, doNotDeleteWriteProtectedFiles) {
    makeFile("a");
    makeFile("b");
    ASSERT_EQ(chmod((disk() / "a").c_str(), 0444), 0);
    EXPECT_EQ(runtime().Kill("D:\\a"), 75);
    EXPECT_EQ(runtime().Kill("D:\\*"), 75) << "ends at the first that cannot be deleted";
    EXPECT_EQ(list("D:\\*"), (Names{"a", "b"}));
}

TEST_F(StatementsTest, touchFiles) {
    makeFile("full", "contents");
    makeFolder("Folder");
    ASSERT_EQ(mkfifo((disk() / "pipe").c_str(), 0644), 0);
    struct {
        const char* file;
        int error;
    } const cases[] = {
        {"D:\\new", 0},     {"D:\\NEW", 0},   {"D:\\FULL", 0}, {"D:\\folder", 75}, {"D:\\folder\\", 75}, {"D:\\folder\\new", 0},
        {"D:\\none\\", 75}, {"D:\\a\\b", 76}, {"Q:\\new", 76}, {"D:\\a?", 52},     {"D:\\pipe", 0},      {"", 76},
    };
    for (const auto& [file, error] : cases) {
        EXPECT_EQ(runtime().TouchBinary(file), error) << file;
    }
    EXPECT_EQ(list("D:\\*"), (Names{"Folder", "full", "new", "pipe"}));
    EXPECT_EQ(std::filesystem::file_size(disk() / "full"), 8u);
    EXPECT_EQ(std::filesystem::file_size(disk() / "Folder/new"), 0u);
}

} // namespace

} // namespace mox::test
