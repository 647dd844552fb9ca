// Search in trees of folders, listings, and the joining of files.
#include "filesystem_support.h"

#include "support/faultsweep.h"

#include "automation/objects/runtimeerror.h"
#include "host/files/filesearch.h"

#include "platform/kernel32.h"

namespace mox::test {

namespace {

using namespace platform;

/// The rows of a listing, one a line: depth, a mark for folders, path or name, extension in brackets.
std::string textOf(const MOX_FS_FINDFF& listing) {
    std::string text;
    for (Long i = 0; i < listing.Count; ++i) {
        text += std::to_string(listing.Depth[i]) + (listing.IsDirectory[i] ? " + " : "   ") + listing.PathFileName[i].utf8();
        text += listing.Extension[i].empty() ? "\n" : " [" + listing.Extension[i].utf8() + "]\n";
    }
    return text;
}

class TreeTest : public FileSystemTest {
protected:
    void SetUp() override {
        for (const char* name :
             {"tree/root.txt", "tree/a/one.txt", "tree/a/deep.er/two.txt", "tree/b/one.txt", "tree/.dot/one.txt",
              "tree/$bin/lost.txt", "tree/secret/inner/hidden.txt", "tree/a/.config", "tree/.profile", "tree/name."}) {
            makeFile(name);
        }
        ASSERT_EQ(folder.SetAttributes(u"D:\\tree\\secret", FA_HIDDEN), True);
    }
};

TEST_F(TreeTest, FindFileGoesDepthFirst) {
    struct {
        String name;
        String root;
        Boolean sub;
        Long depth;
        Boolean ignoreHidden;
        String result;
    } const cases[] = {
        {u"root.txt", u"D:\\tree", False, -1, True, u"D:\\tree\\root.txt"},
        {u"ROOT.TXT", u"D:\\tree\\", False, -1, True, u"D:\\tree\\root.txt"},
        {u"C:\\elsewhere\\root.txt", u"D:\\tree", False, -1, True, u"D:\\tree\\root.txt"},
        {u"root.txt\\", u"D:\\tree", True, -1, True, u""},
        {u"  ", u"D:\\tree", True, -1, True, u""},
        {u"one.txt", u"D:\\tree", False, -1, True, u""},
        {u"one.txt", u"D:\\tree", True, -1, True, u"D:\\tree\\a\\one.txt"},
        {u"two.txt", u"D:\\tree", True, -1, True, u"D:\\tree\\a\\deep.er\\two.txt"},
        {u"two.txt", u"D:\\tree", True, 1, True, u""},
        {u"two.txt", u"D:\\tree", True, 2, True, u"D:\\tree\\a\\deep.er\\two.txt"},
        {u"one.txt", u"D:\\tree", True, 0, True, u""},
        {u"a", u"D:\\tree", True, -1, True, u"D:\\tree\\a"}, // a folder is a hit as well
        {u"o*.txt", u"D:\\tree", True, -1, True, u"D:\\tree\\a\\one.txt"},
        {u"*.*", u"D:\\tree", True, -1, True, u"D:\\tree\\."}, // the first entry of the system
        // Hidden ones, and the folders that are never entered.
        {u".profile", u"D:\\tree", True, -1, True, u""},
        {u".profile", u"D:\\tree", True, -1, False, u"D:\\tree\\.profile"},
        {u"hidden.txt", u"D:\\tree", True, -1, True, u""},
        {u"hidden.txt", u"D:\\tree", True, -1, False, u"D:\\tree\\secret\\inner\\hidden.txt"},
        {u"lost.txt", u"D:\\tree", True, -1, False, u""},
        {u"lost.txt", u"D:\\tree\\$bin", True, -1, False, u"D:\\tree\\$bin\\lost.txt"},
        {u"one.txt", u"D:\\tree\\.dot", True, -1, True, u"D:\\tree\\.dot\\one.txt"},
        {u"one.txt", u"D:\\missing", True, -1, True, u""},
        {u"one.txt", u"", True, -1, True, u""},
    };
    for (const auto& [name, root, sub, depth, ignoreHidden, result] : cases) {
        SCOPED_TRACE(name.utf8() + " in " + root.utf8());
        EXPECT_EQ(fs.FindFile(name, root, sub, depth, ignoreHidden), result);
        EXPECT_EQ(invoke(fs.get(), u"FindFile", name, root, sub, depth, ignoreHidden).as<String>(), result);
    }
    machine->kernel32.FindFirstFileA.reset();
    fs.FindFile(u"x\\", u"D:\\tree", True);
    EXPECT_EQ(machine->kernel32.FindFirstFileA.calls(), 0u);
}

TEST_F(TreeTest, FindFolderTakesSeparatorsOffTheName) {
    struct {
        String name;
        String result;
    } const cases[] = {
        {u"deep.er", u"D:\\tree\\a\\deep.er"},
        {u"x\\deep.er\\/\\", u"D:\\tree\\a\\deep.er"},
        {u"\\", u""},
        {u"", u""},
        {u"one.txt", u"D:\\tree\\a\\one.txt"}, // files are not told apart
        {u"inner", u""},
    };
    for (const auto& [name, result] : cases) {
        EXPECT_EQ(fs.FindFolder(name, u"D:\\tree", True), result) << name.utf8();
    }
    EXPECT_EQ(fs.FindFolder(u"inner", u"D:\\tree", True, -1, False), u"D:\\tree\\secret\\inner");
}

TEST_F(TreeTest, ListingsHaveAFolderBeforeWhatIsInIt) {
    EXPECT_EQ(textOf(fs.GetFolderAndFiles(u"D:\\tree", True)), "0 + D:\\tree\\\n"
                                                               "0   name.\n"
                                                               "0   root.txt [txt]\n"
                                                               "1 + D:\\tree\\a\\\n"
                                                               "1   one.txt [txt]\n"
                                                               "2 + D:\\tree\\a\\deep.er\\ [er]\n"
                                                               "2   two.txt [txt]\n"
                                                               "1 + D:\\tree\\b\\\n"
                                                               "1   one.txt [txt]\n");
    EXPECT_EQ(textOf(fs.GetFolderAndFiles(u"D:\\tree\\", True, 1)), "0 + D:\\tree\\\n"
                                                                    "0   name.\n"
                                                                    "0   root.txt [txt]\n"
                                                                    "1 + D:\\tree\\a\\\n"
                                                                    "1   one.txt [txt]\n"
                                                                    "1 + D:\\tree\\b\\\n"
                                                                    "1   one.txt [txt]\n");
    // Hidden entries of the root alone.
    EXPECT_EQ(textOf(fs.GetFolderAndFiles(u"D:\\tree", True, 1, False)), "0 + D:\\tree\\\n"
                                                                         "0   .profile [profile]\n"
                                                                         "0   name.\n"
                                                                         "0   root.txt [txt]\n"
                                                                         "1 + D:\\tree\\a\\\n"
                                                                         "1   one.txt [txt]\n"
                                                                         "1 + D:\\tree\\b\\\n"
                                                                         "1   one.txt [txt]\n"
                                                                         "1 + D:\\tree\\secret\\\n");
    EXPECT_EQ(textOf(fs.FindFolderAndFiles(u"D:\\tree\\a\\deep.er")), "0 + D:\\tree\\a\\deep.er\\ [er]\n"
                                                                      "0   two.txt [txt]\n");
    // A point in a folder in front counts.
    makeFolder("tree/a/deep.er/x");
    EXPECT_EQ(textOf(fs.GetFolderAndFiles(u"D:\\tree\\a\\deep.er\\x")), "0 + D:\\tree\\a\\deep.er\\x\\ [er\\x]\n");
}

TEST_F(TreeTest, ListingsOfHiddenRootsAndOfNothing) {
    EXPECT_EQ(fs.GetFolderAndFiles(u"D:\\tree\\secret").Count, 0);
    EXPECT_EQ(fs.GetFolderAndFiles(u"D:\\tree\\secret", False, -1, False).Count, 1);
    EXPECT_EQ(fs.FindFolderAndFiles(u"D:\\tree\\secret").Count, 1);
    for (const char16_t* root : {u"D:\\missing", u"", u"D:\\tree\\root.txt"}) {
        const MOX_FS_FINDFF nothing = fs.GetFolderAndFiles(root, True);
        EXPECT_EQ(nothing.Count, 0);
        for (const Long size :
             {nothing.IsDirectory.size(), nothing.PathFileName.size(), nothing.Extension.size(), nothing.Depth.size()}) {
            EXPECT_EQ(size, 1);
        }
        EXPECT_EQ(nothing.PathFileName[0], u"");
    }
    makeFolder("empty");
    EXPECT_EQ(textOf(fs.GetFolderAndFiles(u"D:\\empty", True)), "0 + D:\\empty\\\n");
}

TEST_F(TreeTest, AWalkEndsWhereALinkLeadsBack) {
    std::filesystem::create_directory_symlink(on("tree"), on("tree/a/again"));
    const std::string text = textOf(fs.GetFolderAndFiles(u"D:\\tree", True));
    EXPECT_EQ(text.find("again\\a\\again"), std::string::npos) << text;
    EXPECT_EQ(fs.FindFile(u"nowhere.txt", u"D:\\tree", True), u"");
}

TEST_F(TreeTest, FilesThatVanishMeanwhileDoNotEndTheWalk) {
    // A folder and its files are gone while the folder that they lie in is read.
    const auto next = machine->kernel32.FindNextFileA.replace([&](Handle search, WIN32_FIND_DATAA& found) {
        std::filesystem::remove_all(on("tree/a"));
        const auto opened = machine->handles.get<host::FileSearch>(search);
        return opened && opened->next(found);
    });
    const std::string text = textOf(fs.GetFolderAndFiles(u"D:\\tree", True));
    EXPECT_TRUE(text.ends_with("+ D:\\tree\\b\\\n1   one.txt [txt]\n")) << text;
}

TEST(FileSystemFaultsTest, SearchAndListing) {
    sweepFaults([](FaultRun& run) {
        ASSERT_TRUE(run.machine()->files.facts("C:\\Temp").has_value());
        const std::filesystem::path temp = run.machine()->files.drives().at('C') / "Temp";
        std::filesystem::create_directories(temp / "a");
        std::ofstream(temp / "a/x").flush();
        const moxFS fs{server::create<TRL_OBKR_MOX::_moxFS>()};
        const String found = fs.FindFile(u"x", u"C:\\Temp", True);
        EXPECT_TRUE(found == u"C:\\Temp\\a\\x" || (run.faulted() && found.empty())) << found.utf8();
        Long count = 0;
        const Long error = errorOf([&] { count = fs.GetFolderAndFiles(u"C:\\Temp", True).Count; });
        EXPECT_TRUE(count == 3 || (run.faulted() && count < 3)) << count;
        EXPECT_TRUE(error == 0 || (run.faulted() && error == errOutOfMemory)) << error;
    });
}

TEST_F(FileSystemTest, MergeFilesAppendsTheSecond) {
    struct {
        std::string first, second;
        Long blockSize;
        Boolean result;
    } const cases[] = {
        {"one", "two", 1'048'576, True},
        {"one", "two", 1, True},
        {"one", "two", 2, True},
        {"one", "two", 3, True},
        {"", "two", 4, True},
        {"one", "", 1'048'576, True},
        {"one", "", 0, True},
        {"one", "two", 0, False},
        {"one", "two", -1, False},
    };
    for (const auto& [first, second, blockSize, result] : cases) {
        makeFile("first", first);
        makeFile("second", second);
        EXPECT_EQ(fs.MergeFiles(u"D:\\first", u"D:\\second", blockSize), result);
        EXPECT_EQ(contents("first"), result ? first + second : first);
        EXPECT_EQ(contents("second"), second);
    }
    EXPECT_EQ(fs.MergeFiles(u"D:\\missing", u"D:\\second"), False);
    EXPECT_EQ(fs.MergeFiles(u"D:\\first", u"D:\\missing"), False);
    EXPECT_FALSE(exists("missing"));
    makeFile("first", "twice");
    EXPECT_EQ(fs.MergeFiles(u"D:\\first", u"D:\\first", 2), True);
    EXPECT_EQ(contents("first"), "twicetwice");
}

TEST_F(FileSystemTest, TemporaryFilesHaveTheNameThatIsAskedFor) {
    const String name = fs.GetTempFile();
    EXPECT_TRUE(name.view().starts_with(u"C:\\Temp\\~") && name.view().ends_with(u".tmp")) << name.utf8();
    EXPECT_EQ(file.Exists(name), False);
    const String made = fs.GetTempFile(u"p", u"", u"D:\\", True);
    EXPECT_TRUE(made.view().starts_with(u"D:\\p")) << made.utf8();
    EXPECT_EQ(file.GetAttributes(made) & FA_TEMPORARY, FA_TEMPORARY);
}

} // namespace

} // namespace mox::test
