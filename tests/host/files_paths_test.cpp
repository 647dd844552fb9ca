#include "files_support.h"

#include <algorithm>

namespace mox::test {

namespace {

class PathsTest : public FilesTest {};

TEST_F(PathsTest, findEachNameWithoutRegardToCase) {
    makeFile("Folder/Sub Folder/File.Txt");
    makeFile("\xC3\x9C"
             "bung/\xC3\xA9t\xC3\xA9.txt");
    struct {
        const char* path;
        const char* place;
    } const cases[] = {
        {"D:\\Folder\\Sub Folder\\File.Txt", "Folder/Sub Folder/File.Txt"},
        {"d:\\FOLDER\\sub folder\\FILE.TXT", "Folder/Sub Folder/File.Txt"},
        {"D:/folder/sub folder/file.txt", "Folder/Sub Folder/File.Txt"},
        {"D:\\folder/sub folder\\\\file.txt", "Folder/Sub Folder/File.Txt"},
        {"D:\\folder", "Folder"},
        {"D:\\folder\\", "Folder"},
        {"D:\\folder\\\\", "Folder"},
        {"D:\\", "."},
        {"D:", "."},
        {"D:folder", "Folder"},
        // The code page is 1252.
        {"D:\\\xDC"
         "bung\\\xE9t\xE9.txt",
         "\xC3\x9C"
         "bung/\xC3\xA9t\xC3\xA9.txt"},
        {"D:\\\xFC"
         "BUNG\\\xC9T\xC9.TXT",
         "\xC3\x9C"
         "bung/\xC3\xA9t\xC3\xA9.txt"},
        // "." and ".." stay on the drive.
        {"D:\\.\\folder\\.", "Folder"},
        {"D:\\folder\\..", "."},
        {"D:\\..\\..\\folder\\sub folder\\..\\..\\..\\..\\folder", "Folder"},
        {"D:\\missing\\..\\folder", "Folder"},
        // The last name may be missing, and then stays as written.
        {"D:\\New File", "New File"},
        {"D:\\folder\\New File", "Folder/New File"},
        {"D:\\new folder\\", "new folder"},
        {"D:\\New File. .", "New File"},
        {"D:\\New File\xE9", "New File\xC3\xA9"},
        {"D:\\missing\\file", "-"},
        {"D:\\folder\\missing\\file", "-"},
        // Dots and blanks at the end do not count.
        {"D:\\folder. \\sub folder", "Folder/Sub Folder"},
        {"D:\\folder\\sub folder.\\file.txt...", "Folder/Sub Folder/File.Txt"},
        {"D:\\...", "-"},
        // A file is no folder.
        {"D:\\folder\\sub folder\\file.txt\\", "-"},
        {"D:\\folder\\sub folder\\file.txt\\x", "-"},
        // No drive of this machine, or no path at all.
        {"E:\\folder", "-"},
        {"\\\\server\\share", "-"},
        {"//server/share", "-"},
        {"\\\\?\\D:\\folder", "-"},
        {"1:\\folder", "-"},
        {"", "-"},
        // What no name can have.
        {"D:\\fol*", "-"},
        {"D:\\folde?", "-"},
        {"D:\\a:b", "-"},
        {"D:\\a|b", "-"},
        {"D:\\a<b", "-"},
        {"D:\\a\"b", "-"},
        {"D:\\a\tb", "-"},
    };
    for (const auto& [path, place] : cases) {
        EXPECT_EQ(resolved(path), place) << path;
    }
}

TEST_F(PathsTest, endAtTheirFirstNul) {
    makeFile("file");
    using namespace std::string_view_literals;
    EXPECT_EQ(resolved("D:\\file\0.txt"sv), "file");
    EXPECT_EQ(resolved("D:\\other\0\\..\\file"sv), "other");
    EXPECT_EQ(resolved("\0D:\\file"sv), "-");
    EXPECT_EQ(list("D:\\f*\0x"sv), (Names{"file"}));
}

TEST_F(PathsTest, ofNetworksDoNotMeanTheCurrentDrive) {
    EXPECT_TRUE(files().resolve("\\Windows\\System32"));
    EXPECT_FALSE(files().resolve("\\\\Windows\\System32"));
    EXPECT_FALSE(files().resolve("//Windows/System32"));
    EXPECT_EQ(list("\\\\Windows\\*"), Names());
}

TEST_F(PathsTest, preferTheVerySameName) {
    makeFile("readme", "small");
    makeFile("README", "large");
    makeFile("Readme", "mixed");
    EXPECT_EQ(resolved("D:\\readme"), "readme");
    EXPECT_EQ(resolved("D:\\README"), "README");
    EXPECT_EQ(resolved("D:\\Readme"), "Readme");
    EXPECT_EQ(resolved("D:\\ReadMe"), "README") << "the first in the order of bytes";
    makeFolder("A/only here");
    makeFolder("a");
    EXPECT_EQ(resolved("D:\\a\\only here"), "a/only here") << "the very same folder counts, not the one that would have the file";
}

TEST_F(PathsTest, reachNamesWithDotsAndBlanksAtTheEnd) {
    makeFile("dots..");
    makeFile("dots");
    makeFile("blank ");
    EXPECT_EQ(resolved("D:\\dots.."), "dots..");
    EXPECT_EQ(resolved("D:\\dots."), "dots");
    EXPECT_EQ(resolved("D:\\DOTS.."), "dots..");
    EXPECT_EQ(resolved("D:\\blank "), "blank ");
}

TEST_F(PathsTest, withNamesThatNoDiskHoldsLeadNowhere) {
    const std::string longName(300, 'x');
    EXPECT_EQ(resolved("D:\\" + longName + "\\file"), "-");
    EXPECT_EQ(attributes("D:\\" + longName), platform::INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(machine_->runtime.MkDir("D:\\" + longName), 52);
    EXPECT_EQ(list("D:\\" + longName + "*"), Names());
    std::string deep = "D:";
    for (int i = 0; i < 3000; ++i) {
        deep += "\\ab";
    }
    EXPECT_EQ(resolved(deep), "-");
}

TEST_F(PathsTest, continueTheCurrentFolder) {
    makeFile("Folder/Sub/file");
    const auto ofSystem = [&](std::string_view path) {
        const auto place = files().resolve(path);
        return place ? place->lexically_relative(files().drives().at('C')).string() : "-";
    };
    EXPECT_EQ(ofSystem("windows\\SYSTEM32"), "Windows/System32");
    EXPECT_EQ(ofSystem("\\windows"), "Windows");
    EXPECT_EQ(ofSystem("..\\windows"), "Windows");
    ASSERT_TRUE(files().setCurrentFolder("D:\\folder"));
    EXPECT_EQ(resolved("sub\\file"), "Folder/Sub/file");
    EXPECT_EQ(resolved("."), "Folder");
    EXPECT_EQ(resolved("..\\folder\\sub"), "Folder/Sub");
    EXPECT_EQ(resolved("..\\..\\..\\folder"), "Folder");
    EXPECT_EQ(resolved("D:sub"), "Folder/Sub");
    EXPECT_EQ(resolved("D:"), "Folder");
    EXPECT_EQ(resolved("\\folder"), "Folder");
    EXPECT_EQ(ofSystem("C:windows"), "Windows");
    EXPECT_EQ(list("*"), (Names{".", "..", "Sub"}));
    EXPECT_FALSE(files().setCurrentFolder("D:\\missing"));
    EXPECT_FALSE(files().setCurrentFolder("sub\\file"));
    EXPECT_EQ(resolved("."), "Folder");
}

TEST_F(PathsTest, leadBackFromDisk) {
    makeFile("Folder/file.txt");
    makeFile("\xC3\xA9t\xC3\xA9/x");
    makeFile("\xE6\x97\xA5\xE6\x9C\xAC/x");
    EXPECT_EQ(files().toDrivePath(disk()), "D:\\");
    EXPECT_EQ(files().toDrivePath(disk() / ""), "D:\\");
    EXPECT_EQ(files().toDrivePath(disk() / "Folder/file.txt"), "D:\\Folder\\file.txt");
    EXPECT_EQ(files().toDrivePath(disk() / "Folder/../Folder/./file.txt"), "D:\\Folder\\file.txt");
    EXPECT_EQ(files().toDrivePath(disk() / "\xC3\xA9t\xC3\xA9/x"), "D:\\\xE9t\xE9\\x");
    EXPECT_EQ(files().toDrivePath("/"), "Z:\\");
    EXPECT_EQ(files().toDrivePath("/usr/bin/env"), "Z:\\usr\\bin\\env");
    EXPECT_EQ(
        files().toDrivePath(disk().string() + "x"), "Z:" +
                                                        [&] {
                                                            std::string path = disk().string() + "x";
                                                            std::ranges::replace(path, '/', '\\');
                                                            return path;
                                                        }())
        << "only begins like the folder of a drive";
    EXPECT_EQ(files().toDrivePath(""), "");
    const std::string japanese = files().toDrivePath(disk() / "\xE6\x97\xA5\xE6\x9C\xAC/x");
    EXPECT_EQ(files().resolve(japanese), disk() / "\xE6\x97\xA5\xE6\x9C\xAC/x") << japanese;
}

class JapanesePathsTest : public FilesTest {
protected:
    JapanesePathsTest() : FilesTest(932) {}
};

TEST_F(JapanesePathsTest, keepABackslashInsideACharacter) {
    // U+8868 has the bytes 0x95 0x5C, the second one a backslash.
    makeFile("\xE8\xA1\xA8/file");
    EXPECT_EQ(resolved("D:\\\x95\x5C\\file"), "\xE8\xA1\xA8/file");
    EXPECT_EQ(list("D:\\*"), (Names{"\x95\x5C"}));
    EXPECT_EQ(list("D:\\\x95\x5C\\*.*"), (Names{".", "..", "file"}));
    EXPECT_EQ(shortPath("D:\\\x95\x5C\\file"), "D:\\\x95\x5C\\file");
}

} // namespace

} // namespace mox::test
