#include "files_support.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mox::test {

namespace {

using platform::Handle;
using platform::invalidHandle;
using platform::WIN32_FIND_DATAA;

class SearchTest : public FilesTest {};

TEST_F(SearchTest, goesThroughAFolderInTheOrderOfNames) {
    for (const char* name : {"b.txt", "A.txt", "a.txt", "_.txt", "Z", "10", "9", "\xC3\xA4.txt", "sub/.hidden", "sub/x"}) {
        makeFile(name);
    }
    struct {
        const char* pattern;
        Names names;
    } const cases[] = {
        // In the order of upper-case letters: "_" stands behind them. No "." and ".." in the root of a drive.
        {"D:\\*.*", {"10", "9", "A.txt", "a.txt", "b.txt", "sub", "Z", "_.txt", "\xE4.txt"}},
        {"D:\\*", {"10", "9", "A.txt", "a.txt", "b.txt", "sub", "Z", "_.txt", "\xE4.txt"}},
        {"D:*", {"10", "9", "A.txt", "a.txt", "b.txt", "sub", "Z", "_.txt", "\xE4.txt"}},
        {"D:\\*.TXT", {"A.txt", "a.txt", "b.txt", "_.txt", "\xE4.txt"}},
        {"D:\\*.", {"10", "9", "sub", "Z"}},
        {"D:\\?.txt", {"A.txt", "a.txt", "b.txt", "_.txt", "\xE4.txt"}},
        {"D:\\??", {"10", "9", "Z"}},
        {"D:\\sub\\*.*", {".", "..", ".hidden", "x"}},
        {"D:\\SUB\\*", {".", "..", ".hidden", "x"}},
        {"D:\\sub\\..\\s*", {"sub"}},
        {"D:\\sub\\?", {"x"}},
        // A plain name finds itself, as it is on disk.
        {"D:\\SUB", {"sub"}},
        {"D:\\B.TXT", {"b.txt"}},
        {"D:\\a.txt", {"a.txt"}},
        {"D:\\A.TXT", {"A.txt"}},
        {"D:\\\xC4.TXT", {"\xE4.txt"}},
        {"D:\\sub\\.", {"sub"}},
        // Nothing has such a name.
        {"D:\\*.doc", {}},
        {"D:\\c", {}},
        {"D:\\sub\\c", {}},
        {"D:\\sub\\c*", {}},
        // No last part, or no folder to look into.
        {"D:\\", {}},
        {"D:", {}},
        {"D:\\sub\\", {}},
        {"D:\\sub\\..", {}},
        {"D:\\b.txt\\", {}},
        {"D:\\b.txt\\*", {}},
        {"D:\\missing\\*.*", {}},
        {"D:\\*\\x", {}},
        {"D:\\s?b\\*", {}},
        {"E:\\*", {}},
        {"\\\\server\\share\\*", {}},
        {"", {}},
    };
    for (const auto& [pattern, names] : cases) {
        EXPECT_EQ(list(pattern), names) << pattern;
    }
}

TEST_F(SearchTest, findsNothingInAnEmptyRootButInAnEmptyFolder) {
    EXPECT_EQ(list("D:\\*.*"), Names());
    makeFolder("empty");
    EXPECT_EQ(list("D:\\empty\\*.*"), (Names{".", ".."}));
}

TEST_F(SearchTest, describesFiles) {
    makeFile("file.txt", "12345");
    makeFolder("folder");
    WIN32_FIND_DATAA found;
    ASSERT_TRUE(kernel32().FindClose(kernel32().FindFirstFileA("D:\\FILE.TXT", found)));
    EXPECT_EQ(found.cFileName, "file.txt");
    EXPECT_EQ(found.dwFileAttributes, platform::FILE_ATTRIBUTE_ARCHIVE);
    EXPECT_EQ(found.nFileSize, 5u);

    // Read at 2001-02-03 04:05:06.7 UTC, written at the same time in 1969, before the system's own time begins.
    const timespec times[] = {{981173106, 700'000'099}, {-28670094, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, (disk() / "file.txt").c_str(), times, 0), 0);
    ASSERT_TRUE(kernel32().FindClose(kernel32().FindFirstFileA("D:\\file.txt", found)));
    EXPECT_EQ(found.ftLastAccessTime, 126256467067000000u);
    EXPECT_EQ(found.ftLastWriteTime, 116158035060000000u);

    ASSERT_TRUE(kernel32().FindClose(kernel32().FindFirstFileA("D:\\folder", found)));
    EXPECT_EQ(found.dwFileAttributes, platform::FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(found.nFileSize, 0u);
}

TEST_F(SearchTest, refusesHandlesThatAreNone) {
    makeFile("a");
    WIN32_FIND_DATAA found;
    EXPECT_FALSE(kernel32().FindNextFileA(0, found));
    EXPECT_FALSE(kernel32().FindNextFileA(invalidHandle, found));
    EXPECT_FALSE(kernel32().FindClose(invalidHandle));
    const Handle search = kernel32().FindFirstFileA("D:\\a", found);
    EXPECT_FALSE(kernel32().CloseHandle(search)) << "a search has its own way to close";
    EXPECT_TRUE(kernel32().FindClose(search));
    EXPECT_FALSE(kernel32().FindNextFileA(search, found));
    EXPECT_FALSE(kernel32().FindClose(search));
}

TEST_F(SearchTest, doesNotReadAFolderForAPlainQuestion) {
    makeFile("big/file");
    WIN32_FIND_DATAA found;
    const Handle search = kernel32().FindFirstFileA("D:\\big\\*.*", found);
    EXPECT_EQ(found.cFileName, ".");
    makeFile("big/later");
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    EXPECT_EQ(found.cFileName, "file");
    ASSERT_TRUE(kernel32().FindNextFileA(search, found));
    EXPECT_EQ(found.cFileName, "later") << "the names are read when the first of them is asked for";
    EXPECT_TRUE(kernel32().FindClose(search));
}

/// The rights of an ordinary user for a while, if the test has those of the administrator.
class AsOrdinaryUser {
public:
    AsOrdinaryUser() : wasAdministrator_(geteuid() == 0) {
        if (wasAdministrator_) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    ~AsOrdinaryUser() {
        if (wasAdministrator_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }

private:
    bool wasAdministrator_;
};

TEST_F(SearchTest, failsInAFolderThatMayNotBeRead) {
    using std::filesystem::perms;
    makeFile("secret/file", "1234");
    std::filesystem::permissions(disk(), perms{0755});
    std::filesystem::permissions(disk() / "secret", perms{0711});
    const auto isOwner = geteuid() != 0;
    if (isOwner) {
        std::filesystem::permissions(disk() / "secret", perms{0311});
    }
    {
        const AsOrdinaryUser user;
        EXPECT_EQ(list("D:\\secret\\*.*"), Names()) << "not as if it were empty";
        EXPECT_EQ(list("D:\\secret\\file"), (Names{"file"})) << "who knows the name may enter";
        EXPECT_EQ(list("D:\\secret\\FILE"), Names());
        EXPECT_EQ(list("D:\\sec*"), (Names{"secret"}));
    }
    std::filesystem::permissions(disk() / "secret", perms{0755});
}

} // namespace

} // namespace mox::test
