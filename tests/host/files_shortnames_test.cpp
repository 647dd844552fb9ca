#include "files_support.h"

#include "host/files/shortnames.h"

#include <algorithm>
#include <cctype>
#include <set>

namespace mox::test {

namespace {

class ShortNamesTest : public FilesTest {
protected:
    /// The short name of a file in the root of the drive.
    std::string shortName(const std::string& path) { return shortPath("D:\\" + path).substr(3); }
};

TEST_F(ShortNamesTest, haveEightAndThreeCharacters) {
    struct {
        const char* name;
        const char* form;
    } const cases[] = {
        // Short themselves: as they are on disk.
        {"readme.txt", "readme.txt"},
        {"README", "README"},
        {"12345678.123", "12345678.123"},
        {"a", "a"},
        {"a-b_c~1!.x", "a-b_c~1!.x"},
        {"\xC3\xA4", "\xE4"},
        {"\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F.\xC3\xA4\xC3\xB6\xC3\xBC",
         "\xE4\xF6\xFC\xDF\xE4\xF6\xFC\xDF.\xE4\xF6\xFC"},
        // The others: a character of the name, a hash, the extension.
        {"123456789", "1#####~#"},
        {"12345678.1234", "1#####~#.123"},
        {"long file name.html", "L#####~#.HTM"},
        {"a b", "A#####~#"},
        {"a.b.c", "A#####~#.C"},
        {"a+b.txt", "A#####~#.TXT"},
        {".profile", "P#####~#"},
        {"name.", "N#####~#"},
        {"name. t x", "N#####~#.TX"},
        {"\xC3\xA4rger \xC3\xBC"
         "ber.\xC3\xA4xt",
         "R#####~#.XT"},
    };
    for (const auto& [name, form] : cases) {
        makeFile(name);
        const std::string made = shortName(machine_->codePage.fromUtf8(name));
        EXPECT_TRUE(hasForm(made, form)) << name << ": " << made;
        EXPECT_EQ(resolved("D:\\" + made), name);
    }
}

TEST_F(ShortNamesTest, reachNamesThatNoPathCanHave) {
    const char* const names[] = {
        "\xE6\x97\xA5\xE6\x9C\xAC.txt", // Japanese, and the code page is 1252
        "e\xCC\x81t\xC3\xA9",           // an accent as a character of its own
        "\xF0\x9F\x98\x80.txt",         // outside the first plane
        "caf\xE9.txt",                  // no UTF-8
        "\xED\xA0\x80.txt",             // half a pair as UTF-8
        "a\\b",
        "a:b",
        "what?",
        "all*",
        "a|b",
        "\"quoted\"",
        "<a>",
        "tab\there",
        "line\nbreak",
    };
    std::set<std::string> listed;
    for (const char* name : names) {
        makeFile(name, name);
    }
    for (const std::string& name : list("D:\\*")) {
        EXPECT_TRUE(hasForm(name.substr(1), "#####~#") || hasForm(name.substr(1), "#####~#.TXT")) << name;
        const auto place = files().resolve("D:\\" + name);
        ASSERT_TRUE(place) << name;
        listed.insert(place->filename());
        EXPECT_EQ(list("D:\\" + name), (Names{name})) << "a search finds what a search gives";
        EXPECT_EQ(shortName(name), name);
        EXPECT_EQ(files().toDrivePath(*place), "D:\\" + name);
    }
    EXPECT_EQ(listed, std::set<std::string>(std::begin(names), std::end(names)));
}

TEST_F(ShortNamesTest, workWhereverANameDoes) {
    makeFile("Long Folder Name/Long File Name.html", "12345");
    const std::string path = shortPath("D:\\long folder name\\long file name.html");
    ASSERT_TRUE(hasForm(path, "D:\\L#####~#\\L#####~#.HTM")) << path;
    EXPECT_EQ(resolved(path), "Long Folder Name/Long File Name.html");
    std::string lower = path;
    std::ranges::transform(lower, lower.begin(), [](char c) { return static_cast<char>(std::tolower(c)); });
    EXPECT_EQ(resolved(lower), "Long Folder Name/Long File Name.html");
    EXPECT_EQ(list(path), (Names{"Long File Name.html"})) << "a search gives the long name";
    const std::string folder = path.substr(0, path.rfind('\\'));
    EXPECT_EQ(list(folder + "\\*.htm"), (Names{"Long File Name.html"})) << "a pattern may match the short name";
    EXPECT_EQ(list(folder + "\\L?????~?.*"), (Names{"Long File Name.html"}));
    EXPECT_EQ(resolved(folder + "\\New File"), "Long Folder Name/New File");
    EXPECT_EQ(machine_->runtime.Kill(path), 0);
    EXPECT_EQ(list("D:\\long folder name\\*"), (Names{".", ".."}));
}

TEST_F(ShortNamesTest, stayWhateverElseComesAndGoes) {
    makeFile("long name b.txt");
    const std::string before = shortName("long name b.txt");
    for (const char* name : {"long name a.txt", "long name c.txt", "Long Name B.txt", "LONGNA~1.TXT"}) {
        makeFile(name);
        EXPECT_EQ(shortName("long name b.txt"), before);
    }
    std::filesystem::remove(disk() / "long name a.txt");
    EXPECT_EQ(shortName("long name b.txt"), before);
    // Written down once: a short name that a user noted must still work with every later version.
    EXPECT_EQ(before, "LQUJYR~E.TXT");
}

TEST_F(ShortNamesTest, areUniqueInTheirFolder) {
    std::vector<std::string> names;
    for (int i = 0; i < 20'000; ++i) {
        names.push_back("photograph number " + std::to_string(i) + ".jpeg");
    }
    const host::ShortNames shortNames(names, machine_->codePage);
    std::set<std::string> made;
    for (const std::string& name : names) {
        const std::string& shortName = shortNames.of(name);
        EXPECT_TRUE(made.insert(shortName).second) << name << ": " << shortName;
    }
    EXPECT_EQ(shortNames.find(shortNames.of(names.front())), names.front());
    EXPECT_EQ(shortNames.find(shortNames.of(names.back())), names.back());
}

TEST_F(ShortNamesTest, giveWayToRealNames) {
    makeFile("long name.txt");
    const std::string before = shortName("long name.txt");
    makeFile(before);
    const std::string after = shortName("long name.txt");
    EXPECT_NE(after, before);
    EXPECT_EQ(resolved("D:\\" + before), before);
    EXPECT_EQ(resolved("D:\\" + after), "long name.txt");
}

TEST_F(ShortNamesTest, keepTheFormOfThePath) {
    makeFile("long folder/long file");
    const std::string folder = shortName("long folder");
    const std::string file = shortPath("D:\\long folder\\long file").substr(3 + folder.size() + 1);
    struct {
        std::string path;
        std::string shortPath;
    } const cases[] = {
        {"d:/long folder/long file", "D:\\" + folder + "\\" + file},
        {"D:\\long folder\\", "D:\\" + folder + "\\"},
        {"D:\\", "D:\\"},
        {"D:\\missing", ""},
        {"D:\\long folder\\missing", ""},
        {"D:\\long*", ""},
        {"", ""},
        {"long folder\\long file", folder + "\\" + file},
        {".\\long folder", folder},
        {"\\long folder", "D:\\" + folder},
        {"..", "D:\\"},
    };
    ASSERT_TRUE(files().setCurrentFolder("D:\\"));
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(shortPath(path), expected) << path;
    }
    ASSERT_TRUE(files().setCurrentFolder("D:\\long folder"));
    EXPECT_EQ(shortPath("long file"), file);
    EXPECT_EQ(shortPath("..\\long folder\\long file"), file);
    EXPECT_EQ(shortPath("."), "D:\\" + folder);
}

TEST_F(ShortNamesTest, tellTheLengthThatIsNeeded) {
    makeFile("file.txt");
    const std::string_view path = "D:\\file.txt";
    std::string buffer(path.size(), 'x');
    EXPECT_EQ(kernel32().GetShortPathNameA(path, {}), path.size() + 1);
    EXPECT_EQ(kernel32().GetShortPathNameA(path, buffer), path.size() + 1) << "no room for the final NUL";
    EXPECT_EQ(buffer, std::string(path.size(), 'x'));
    buffer += "xx";
    EXPECT_EQ(kernel32().GetShortPathNameA(path, buffer), path.size());
    EXPECT_EQ(buffer, std::string(path) + '\0' + 'x');
}

} // namespace

} // namespace mox::test
