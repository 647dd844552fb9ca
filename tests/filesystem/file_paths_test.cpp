// Paths of files as texts, and names that are free.
#include "filesystem_support.h"

namespace mox::test {

namespace {

TEST_F(FileSystemTest, FilePathsAreSplitAtTheirSeparators) {
    makeFile("Temp/file.txt");
    makeFolder("some.folder");
    struct {
        String path;
        String name;
        String nameAlone;
        String extension;
        String folder;
        String bareFolder;
    } const cases[] = {
        {u"", u"", u"", u"", u"", u""},
        {u"   ", u"", u"", u"", u"", u""},
        {u"file.txt", u"file.txt", u"file", u"txt", u"", u""},
        {u"a.b.c", u"a.b.c", u"a.b", u"c", u"", u""},
        {u"name.", u"name.", u"name", u"", u"", u""},
        {u".txt", u".txt", u"", u"txt", u"", u""},
        {u"C:\\a\\b.tar.gz", u"b.tar.gz", u"b.tar", u"gz", u"C:\\a\\", u"C:\\a"},
        {u"C:\\no such.folder\\x", u"x", u"x", u"", u"C:\\no such.folder\\", u"C:\\no such.folder"},
        {u"  D:\\Temp\\file.txt ", u"file.txt", u"file", u"txt", u"D:\\Temp\\", u"D:\\Temp"},
        // A separator in last place, and a folder that exists: no name is left.
        {u"C:\\x\\", u"", u"", u"", u"C:\\x\\", u"C:\\x"},
        {u"D:\\Temp", u"", u"", u"", u"D:\\Temp\\", u"D:\\Temp"},
        {u"d:\\SOME.FOLDER", u"", u"", u"", u"d:\\SOME.FOLDER\\", u"d:\\SOME.FOLDER"},
        {u"D:\\missing", u"missing", u"missing", u"", u"D:\\", u"D:"},
        // A slash anywhere wins, and is what is added.
        {u"a/b/c.txt", u"c.txt", u"c", u"txt", u"a/b/", u"a/b"},
        {u"a/b\\c.txt", u"b\\c.txt", u"b\\c", u"txt", u"a/", u"a"},
        {u"D:/Temp", u"", u"", u"", u"D:/Temp/", u"D:/Temp"},
    };
    for (const auto& [path, name, nameAlone, extension, folderPart, bareFolder] : cases) {
        SCOPED_TRACE(path.utf8());
        EXPECT_EQ(file.StripFileName(path), name);
        EXPECT_EQ(file.StripFileName(path, False), nameAlone);
        EXPECT_EQ(file.StripExtension(path), extension);
        EXPECT_EQ(file.StripPath(path), folderPart);
        EXPECT_EQ(file.StripPath(path, False), bareFolder);
        EXPECT_EQ(invoke(file.get(), u"StripPath", path).as<String>(), folderPart);
    }
}

TEST_F(FileSystemTest, UniqueFileNamesTakeTheFirstFreeCounter) {
    for (const char* name : {"Report.txt", "Report (7).txt", "Report (3).txt", "Q.txt", "Q (2).txt", "Q (3).txt", "plain",
                             "a b 9.x", "(5).txt", "x ().txt", "x (1a).txt", "v_8", "v__9", "sub.dir/file", "folder/x.txt"}) {
        makeFile(name);
    }
    struct {
        String name;
        String separator;
        Boolean bracket;
        String result;
    } const cases[] = {
        {u"D:\\new (4).txt", u" ", True, u"D:\\new (4).txt"}, // free, with its counter
        {u"D:\\Report.txt", u" ", True, u"D:\\Report (2).txt"},
        {u"D:\\Report (7).txt", u" ", True, u"D:\\Report (2).txt"},
        {u"D:\\Report.txt", u"_", False, u"D:\\Report_2.txt"},
        {u"D:\\Report.txt", u"", True, u"D:\\Report(2).txt"},
        {u"D:\\Q.txt", u" ", True, u"D:\\Q (4).txt"},
        {u"D:\\plain", u" ", True, u"D:\\plain (2)"},
        {u"D:\\a b 9.x", u" ", True, u"D:\\a b (2).x"},
        {u"D:\\a b 9.x", u" ", False, u"D:\\a b 2.x"},
        // No counters: at the start of the name, without digits, with other characters.
        {u"D:\\(5).txt", u" ", True, u"D:\\(5) (2).txt"},
        {u"D:\\x ().txt", u" ", True, u"D:\\x () (2).txt"},
        {u"D:\\x (1a).txt", u" ", True, u"D:\\x (1a) (2).txt"},
        // Of a longer separator only the first character is passed over.
        {u"D:\\v__9", u"__", False, u"D:\\v__9__2"},
        {u"D:\\v_8", u"_", False, u"D:\\v_2"},
        // Points in folders are none of the name's.
        {u"D:\\sub.dir\\file", u" ", True, u"D:\\sub.dir\\file (2)"},
        // What no name can have is taken out first.
        {u"..D:\\fol\"der\\x*?<>|.txt", u" ", True, u"D:\\folder\\x (2).txt"},
        {u"", u" ", True, u"_"},
        {u"...", u" ", True, u"_"},
        {u"?*", u" ", True, u"_"},
    };
    for (const auto& [name, separator, bracket, result] : cases) {
        EXPECT_EQ(file.CreateUniqueFileName(name, separator, bracket), result) << name.utf8();
    }
    EXPECT_EQ(invoke(file.get(), u"CreateUniqueFileName", String(u"D:\\Q.txt")).as<String>(), u"D:\\Q (4).txt");
}

TEST_F(FileSystemTest, UniqueFolderNamesKeepTheCountersThatTheyCarry) {
    for (const char* name : {"Backup (3)", "site.web", "a.b/c", "x", "x (2)"}) {
        makeFolder(name);
    }
    struct {
        String name;
        String separator;
        Boolean bracket;
        String result;
    } const cases[] = {
        {u"D:\\Backup (3)", u" ", True, u"D:\\Backup (3) (2)"},
        {u"D:\\new\\\\", u" ", True, u"D:\\new"},
        {u"D:\\x\\", u" ", True, u"D:\\x (3)"},
        {u"D:\\site.web", u"-", False, u"D:\\site-2.web"},
        {u"D:\\a.b\\c", u" ", True, u"D:\\a.b\\c (2)"},
        {u"D:/a.b/c", u" ", True, u"D:/a.b/c (2)"},
        {u"..*D:\\x\"", u" ", True, u"D:\\x (3)"},
        {u"..\\\\", u" ", True, u"_"},
        {u"", u" ", True, u"_"},
    };
    for (const auto& [name, separator, bracket, result] : cases) {
        EXPECT_EQ(folder.CreateUniquePathName(name, separator, bracket), result) << name.utf8();
    }
}

TEST_F(FileSystemTest, FolderPathsAreTexts) {
    struct {
        String path;
        String parent;
        String extension;
    } const cases[] = {
        {u"", u"", u""},
        {u"C", u"", u""},
        {u"C:", u"", u""},
        {u"C:\\", u"", u""},
        {u"C:\\a", u"C:\\", u""},
        {u" C:\\a\\b ", u"C:\\a\\", u""},
        {u"C:\\a\\b\\", u"C:\\a\\", u""},
        {u"C:\\a.b\\c", u"C:\\a.b\\", u"b\\c"},
        {u"C:\\a.b\\c\\", u"C:\\a.b\\", u"b\\c"},
        {u"C:\\name.x\\", u"C:\\", u"x"},
        {u"C:\\name.", u"C:\\", u""},
        {u"abc", u"", u""},
    };
    for (const auto& [path, parent, extension] : cases) {
        SCOPED_TRACE(path.utf8());
        EXPECT_EQ(folder.GetParentFolder(path), parent);
        EXPECT_EQ(folder.IsRootFolder(path), Boolean(parent.empty()));
        EXPECT_EQ(folder.StripExtension(path), extension);
        EXPECT_EQ(invoke(folder.get(), u"IsRootFolder", path).as<Boolean>(), Boolean(parent.empty()));
    }
}

} // namespace

} // namespace mox::test
