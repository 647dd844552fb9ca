#include "files_support.h"

#include "host/files/foldercache.h"
#include "host/files/folderlisting.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <chrono>

namespace mox::test {

namespace {

using namespace platform;

class ListingTest : public FilesTest {
protected:
    bool store(const char* name, std::string_view text) {
        return setxattr((disk() / name).c_str(), "user.DOSATTRIB", text.data(), text.size(), 0) == 0;
    }
    /// The names of the files of a folder that show themselves as hidden in a listing.
    Names hiddenIn(const std::string& folder) {
        Names names;
        WIN32_FIND_DATAA found;
        const Handle search = kernel32().FindFirstFileA(folder + "\\*.*", found);
        do {
            if (found.cFileName != "." && found.cFileName != ".." && (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0) {
                names.push_back(found.cFileName);
            }
        } while (kernel32().FindNextFileA(search, found));
        EXPECT_TRUE(kernel32().FindClose(search));
        return names;
    }
};

TEST_F(ListingTest, showsWhatIsHidden) {
    for (int i = 0; i < 30; ++i) {
        makeFile("many/file " + std::to_string(i));
        makeFile("other/file " + std::to_string(i));
    }
    makeFile("many/.dot");
    makeFolder("many/folder");
    if (!store("many/file 0", "0x20")) {
        GTEST_SKIP() << "the temporary folder has no extended attributes";
    }
    ASSERT_EQ(removexattr((disk() / "many/file 0").c_str(), "user.DOSATTRIB"), 0);
    EXPECT_EQ(hiddenIn("D:\\many"), (Names{".dot"}));
    ASSERT_TRUE(kernel32().SetFileAttributesA("D:\\many\\FILE 9", FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(hiddenIn("D:\\many"), (Names{".dot", "file 9"}));
    ASSERT_TRUE(store("many/folder", "0x2"));
    EXPECT_EQ(hiddenIn("D:\\many"), (Names{".dot", "file 9", "folder"}));

    // A hidden file takes its attribute with it, and the folder learns of it.
    EXPECT_TRUE(kernel32().CopyFileA("D:\\many\\file 9", "D:\\other\\file 8 copy", true));
    EXPECT_EQ(hiddenIn("D:\\other"), (Names{"file 8 copy"}));
    makeFolder("third");
    for (int i = 0; i < 30; ++i) {
        makeFile("third/file " + std::to_string(i));
    }
    EXPECT_TRUE(kernel32().MoveFileA("D:\\many\\file 9", "D:\\third\\file 8 moved"));
    EXPECT_EQ(hiddenIn("D:\\third"), (Names{"file 8 moved"}));

    // Stored by a file server: all files have it, or the folder does.
    makeFolder("served");
    for (int i = 0; i < 30; ++i) {
        makeFile("served/file " + std::to_string(i));
        ASSERT_TRUE(store(("served/file " + std::to_string(i)).c_str(), i == 8 ? "0x22" : "0x20"));
    }
    EXPECT_EQ(hiddenIn("D:\\served"), (Names{"file 8"}));
    for (int i = 0; i < 8; ++i) {
        ASSERT_EQ(removexattr((disk() / "served" / ("file " + std::to_string(i))).c_str(), "user.DOSATTRIB"), 0);
    }
    ASSERT_TRUE(store("served", "0x10"));
    EXPECT_EQ(hiddenIn("D:\\served"), (Names{"file 8"}));
}

TEST_F(ListingTest, readsFactsWhenTheyAreLookedAt) {
    makeFile("folder/a", "12345");
    makeFile("folder/b", "123");
    makeFolder("folder/c");
    std::filesystem::create_symlink("a", disk() / "folder/link");
    ASSERT_TRUE(kernel32().SetFileAttributesA("D:\\folder\\b", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
    WIN32_FIND_DATAA found;
    const Handle search = kernel32().FindFirstFileA("D:\\folder\\*", found);
    EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    EXPECT_EQ(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_EQ(found.nFileSize, 5u);
    EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_ARCHIVE);
    EXPECT_GT(found.ftLastWriteTime, 130'000'000'000'000'000u);
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    EXPECT_EQ(found.dwFileAttributes & FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    EXPECT_EQ(found.nFileSize, 0u);
    EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    EXPECT_EQ(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_EQ(found.nFileSize, 5u);
    EXPECT_TRUE(kernel32().FindClose(search));
    EXPECT_EQ(found.ftCreationTime, found.ftCreationTime) << "a record outlives its search";
}

TEST_F(ListingTest, endsWellWhenItsFolderGoes) {
    makeFile("folder/a");
    makeFile("folder/b");
    WIN32_FIND_DATAA found;
    const Handle search = kernel32().FindFirstFileA("D:\\folder\\*", found);
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    }
    std::filesystem::remove_all(disk() / "folder");
    EXPECT_EQ(found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN, 0u);
    EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(found.nFileSize, 0u);
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    EXPECT_EQ(found.cFileName, "b") << "as it was when the folder was read";
    EXPECT_FALSE(kernel32().FindNextFileA(search, found));
    EXPECT_TRUE(kernel32().FindClose(search));
}

TEST_F(ListingTest, ordersNamesByTheirUpperCaseCharacters) {
    const std::vector<std::string> ordered = {
        "10",
        "9",
        "common prefix 1",
        "Common Prefix 10",
        "common prefix 2",
        "COMMON PREFIX ABCDEFGH1",
        "common prefix abcdefgh2",
        "Z",
        "_",
        "\xC3\xA4",
        "\xC3\x96",
        "\xEA\xB0\x80",
        "\xFF byte",
        "\xEF\xBC\xA1",
        "\xF0\x9F\x98\x80",
    };
    for (const std::string& name : ordered) {
        makeFile("folder/" + name);
    }
    const auto listing = host::FolderListing::read(disk() / "folder");
    ASSERT_TRUE(listing);
    // Upper-case forms: "\xC3\x84" stands in front of "\xC3\x96".
    EXPECT_EQ(listing->names(), ordered);
    EXPECT_FALSE(host::FolderListing::read(disk() / "none"));
    EXPECT_FALSE(host::FolderListing::read(disk() / "folder/10"));
}

TEST_F(ListingTest, isReadAgainWhenTheFolderChanges) {
    using namespace std::chrono_literals;
    makeFile("folder/a");
    const std::string folder = disk() / "folder";
    const auto namesOf = [](const std::shared_ptr<const host::FolderListing>& listing) { return listing->names(); };
    host::FolderCache patient(1h);
    EXPECT_NE(patient.listing(folder), patient.listing(folder)) << "the folder has just changed";
    host::FolderCache cache(0s);
    const auto first = cache.listing(folder);
    if (!first->isStamped()) {
        GTEST_SKIP() << "the disk stamps no folders";
    }
    EXPECT_EQ(cache.listing(folder), first);
    const timespec times[] = {{981173106, 0}, {981173106, 0}};
    makeFile("folder/b");
    ASSERT_EQ(utimensat(AT_FDCWD, folder.c_str(), times, 0), 0); // whatever the clock of the disk shows
    EXPECT_EQ(namesOf(cache.listing(folder)), (Names{"a", "b"}));
    std::filesystem::rename(folder, folder + " old");
    makeFile("folder/c");
    EXPECT_EQ(namesOf(cache.listing(folder)), (Names{"c"})) << "another folder of that name";
    std::filesystem::remove_all(folder);
    EXPECT_FALSE(cache.listing(folder));
}

} // namespace

} // namespace mox::test
