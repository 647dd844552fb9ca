#include "files_support.h"

#include <functional>

namespace mox::test {

namespace {

using namespace platform;

class LinksTest : public FilesTest {
protected:
    void link(const char* target, const char* name) { std::filesystem::create_symlink(target, disk() / name); }

    /// Walks through all folders as a program does that knows nothing of links. Gives the paths below `folder`.
    Names walk(const std::string& folder) {
        Names paths;
        const std::function<void(const std::string&)> visit = [&](const std::string& path) {
            for (const std::string& name : list(path + "\\*.*")) {
                if (name == "." || name == ".." || paths.size() > 1000) {
                    continue;
                }
                paths.push_back(path.substr(folder.size()) + "\\" + name);
                if ((attributes(path + "\\" + name) & FILE_ATTRIBUTE_DIRECTORY) != 0) {
                    visit(path + "\\" + name);
                }
            }
        };
        visit(folder);
        return paths;
    }
};

TEST_F(LinksTest, showWhatTheyLeadTo) {
    makeFile("target/file", "12345");
    link("target/file", "to file");
    link("target", "to folder");
    link("nowhere", "broken");
    WIN32_FIND_DATAA found;
    ASSERT_TRUE(kernel32().FindClose(kernel32().FindFirstFileA("D:\\to file", found)));
    EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_EQ(found.nFileSize, 5u);
    EXPECT_EQ(attributes("D:\\to folder"), FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_EQ(list("D:\\TO folder\\*"), (Names{".", "..", "file"}));
    EXPECT_EQ(resolved("D:\\to folder\\FILE"), "to folder/file");
    EXPECT_EQ(resolved("D:\\to folder\\..\\target"), "target") << "\"..\" goes back on the path, not on the disk";
    // A link that leads nowhere is still something that has a name and can be deleted.
    EXPECT_EQ(attributes("D:\\broken"), FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_EQ(list("D:\\bro*"), (Names{"broken"}));
    EXPECT_FALSE(kernel32().SetFileAttributesA("D:\\broken", FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(machine_->runtime.Kill("D:\\broken"), 0);
    EXPECT_EQ(list("D:\\bro*"), Names());
}

TEST_F(LinksTest, toAParentDoNotTrapAWalk) {
    struct {
        const char* name;
        std::vector<std::pair<const char*, const char*>> links;
        Names paths;
    } const cases[] = {
        {"itself", {{".", "a/self"}}, {"\\file", "\\self"}},
        {"parent", {{"..", "a/b/up"}}, {"\\b", "\\b\\up", "\\file"}},
        {"root of the drive", {{"..", "a/root"}}, {"\\file", "\\root"}},
        {"each other",
         {{"../c", "a/b/x"}, {"../b", "a/c/y"}},
         {"\\b", "\\b\\x", "\\b\\x\\y", "\\c", "\\c\\y", "\\c\\y\\x", "\\file"}},
        {"a link to itself", {{"loop", "a/loop"}}, {"\\file", "\\loop"}},
        {"links in a circle", {{"two", "a/one"}, {"one", "a/two"}}, {"\\file", "\\one", "\\two"}},
    };
    for (const auto& [name, links, paths] : cases) {
        std::filesystem::remove_all(disk() / "a");
        makeFile("a/file");
        for (const auto& [target, place] : links) {
            std::filesystem::create_directories((disk() / place).parent_path());
        }
        for (const auto& [target, place] : links) {
            link(target, place);
        }
        EXPECT_EQ(walk("D:\\a"), paths) << name;
    }
}

TEST_F(LinksTest, toAParentStillLeadThere) {
    makeFile("a/file");
    link(".", "a/self");
    EXPECT_EQ(attributes("D:\\a\\self"), FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_FALSE(kernel32().SetFileAttributesA("D:\\a\\self", FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(attributes("D:\\a"), FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(resolved("D:\\a\\self\\self\\FILE"), "a/self/self/file");
    EXPECT_EQ(list("D:\\a\\self\\f*"), (Names{"file"}));
    EXPECT_EQ(machine_->runtime.Kill("D:\\a\\*"), 0);
    EXPECT_EQ(list("D:\\a\\*.*"), (Names{".", "..", "self"})) << "what leads to a folder is no file";
}

} // namespace

} // namespace mox::test
