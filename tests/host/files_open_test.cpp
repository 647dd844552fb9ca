#include "files_support.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace mox::test {

namespace {

using namespace platform;

constexpr std::uint32_t R = FILE_SHARE_READ;
constexpr std::uint32_t W = FILE_SHARE_WRITE;
constexpr std::uint32_t D = FILE_SHARE_DELETE;

class OpenTest : public FilesTest {
protected:
    Handle open(std::string_view path, std::uint32_t access = GENERIC_READ, std::uint32_t share = R | W,
                std::uint32_t disposition = OPEN_EXISTING) {
        return kernel32().CreateFileA(path, access, share, disposition);
    }
    /// Opens and closes again.
    bool opens(std::string_view path, std::uint32_t access, std::uint32_t share = R | W,
               std::uint32_t disposition = OPEN_EXISTING) {
        const Handle file = open(path, access, share, disposition);
        return file != invalidHandle && kernel32().CloseHandle(file);
    }
};

TEST_F(OpenTest, makesAndEmptiesAsTheDispositionSays) {
    struct {
        std::uint32_t disposition;
        bool onMissing;
        bool onExisting;
        std::uintmax_t sizeAfter; // of the existing one
    } const cases[] = {
        {CREATE_NEW, true, false, 3}, {CREATE_ALWAYS, true, true, 0}, {OPEN_EXISTING, false, true, 3},
        {OPEN_ALWAYS, true, true, 3}, {0, false, false, 3},           {6, false, false, 3},
    };
    for (const auto& [disposition, onMissing, onExisting, sizeAfter] : cases) {
        std::filesystem::remove(disk() / "new");
        makeFile("old", "123");
        EXPECT_EQ(opens("D:\\new", GENERIC_READ | GENERIC_WRITE, 0, disposition), onMissing) << disposition;
        EXPECT_EQ(std::filesystem::exists(disk() / "new"), onMissing) << disposition;
        EXPECT_EQ(opens("D:\\OLD", GENERIC_READ | GENERIC_WRITE, 0, disposition), onExisting) << disposition;
        EXPECT_EQ(std::filesystem::file_size(disk() / "old"), sizeAfter) << disposition;
    }
}

TEST_F(OpenTest, refusesWhatIsNoFileToOpen) {
    using namespace std::string_view_literals;
    makeFile("file", "1");
    makeFile("protected", "1");
    makeFile("hidden", "1");
    makeFolder("folder");
    ASSERT_TRUE(kernel32().SetFileAttributesA("D:\\protected", FILE_ATTRIBUTE_READONLY));
    ASSERT_TRUE(kernel32().SetFileAttributesA("D:\\hidden", FILE_ATTRIBUTE_HIDDEN));
    const std::string longName = "D:\\" + std::string(300, 'n');
    struct {
        std::string_view path;
        std::uint32_t access;
        std::uint32_t disposition;
        bool opens;
    } const cases[] = {
        {"D:\\file", GENERIC_READ, OPEN_EXISTING, true},
        {"D:\\file\0.txt"sv, GENERIC_READ, OPEN_EXISTING, true},
        {"D:\\file\\", GENERIC_READ, OPEN_EXISTING, false},
        {"D:\\folder", GENERIC_READ, OPEN_EXISTING, false},
        {"D:\\folder", GENERIC_WRITE, OPEN_ALWAYS, false},
        {"D:\\", GENERIC_READ, OPEN_EXISTING, false},
        {"D:\\protected", GENERIC_READ, OPEN_EXISTING, true},
        {"D:\\protected", GENERIC_WRITE, OPEN_EXISTING, false},
        {"D:\\protected", GENERIC_READ, CREATE_ALWAYS, false},
        {"D:\\hidden", GENERIC_WRITE, OPEN_EXISTING, true},
        {"D:\\hidden", GENERIC_WRITE, CREATE_ALWAYS, false},
        {"D:\\f*", GENERIC_READ, OPEN_EXISTING, false},
        {"D:\\a|b", GENERIC_WRITE, CREATE_NEW, false},
        {"D:\\none\\new", GENERIC_WRITE, CREATE_NEW, false},
        {longName, GENERIC_WRITE, CREATE_ALWAYS, false},
        {"Q:\\new", GENERIC_WRITE, CREATE_NEW, false},
        {"", GENERIC_READ, OPEN_ALWAYS, false},
    };
    for (const auto& [path, access, disposition, expected] : cases) {
        EXPECT_EQ(opens(path, access, R, disposition), expected) << path << ' ' << access << ' ' << disposition;
    }
    EXPECT_EQ(list("D:\\*"), (Names{"file", "folder", "hidden", "protected"}));
    EXPECT_EQ(std::filesystem::file_size(disk() / "hidden"), 1u);
}

TEST_F(OpenTest, keepsToWhatOpenersShare) {
    struct {
        std::uint32_t access;
        std::uint32_t share;
        std::uint32_t secondAccess;
        std::uint32_t secondShare;
        bool secondOpens;
    } const cases[] = {
        {GENERIC_READ, R, GENERIC_READ, R, true},
        {GENERIC_READ, R, GENERIC_WRITE, R | W, false},
        {GENERIC_READ, R | W, GENERIC_WRITE, R, true},
        {GENERIC_READ, R | W, GENERIC_WRITE, W, false},
        {GENERIC_WRITE, R, GENERIC_READ, R, false},
        {GENERIC_WRITE, R, GENERIC_READ, R | W, true},
        {GENERIC_READ, 0, GENERIC_READ, R | W, false},
        {GENERIC_READ, R | W, GENERIC_READ, 0, false},
        {GENERIC_READ, 0, 0, 0, true}, // asks only for facts
        {0, 0, GENERIC_WRITE, 0, true},
    };
    makeFile("file", "123");
    std::filesystem::create_hard_link(disk() / "file", disk() / "other name");
    for (const auto& [access, share, secondAccess, secondShare, secondOpens] : cases) {
        const Handle first = open("D:\\file", access, share);
        ASSERT_NE(first, invalidHandle);
        for (const char* path : {"D:\\FILE", "D:\\other name"}) {
            EXPECT_EQ(opens(path, secondAccess, secondShare), secondOpens) << access << share << secondAccess << secondShare;
        }
        EXPECT_TRUE(kernel32().CloseHandle(first));
        EXPECT_TRUE(opens("D:\\file", GENERIC_READ | GENERIC_WRITE, 0)) << "nobody is left";
    }
    const Handle reader = open("D:\\file", GENERIC_READ, R);
    EXPECT_EQ(open("D:\\file", GENERIC_WRITE, R | W, CREATE_ALWAYS), invalidHandle);
    EXPECT_EQ(std::filesystem::file_size(disk() / "file"), 3u) << "a refused opener empties nothing";
    EXPECT_TRUE(kernel32().CloseHandle(reader));
}

TEST_F(OpenTest, keepsOpenFilesFromBeingDeletedMovedAndReplaced) {
    struct {
        std::uint32_t share;
        bool copies;
        bool moves;
        std::int32_t kill;
        std::int32_t binary;
    } const cases[] = {
        {0, false, false, 55, 70},
        {R, true, false, 55, 70},
        {R | W, true, false, 55, 0},
        {R | W | D, true, true, 0, 0},
    };
    for (const auto& [share, copies, moves, kill, binary] : cases) {
        makeFile("file", "123");
        makeFile("other", "4");
        const Handle file = open("D:\\file", GENERIC_READ, share);
        Handle number = 0;
        EXPECT_EQ(machine_->runtime.OpenBinary("D:\\file", FileAccess::readWrite, number), binary) << share;
        if (number != 0) {
            EXPECT_EQ(machine_->runtime.CloseFile(number), 0);
        }
        EXPECT_EQ(kernel32().CopyFileA("D:\\file", "D:\\copy", false), copies) << share;
        EXPECT_FALSE(kernel32().CopyFileA("D:\\other", "D:\\file", false)) << share;
        EXPECT_EQ(kernel32().MoveFileA("D:\\file", "D:\\moved"), moves) << share;
        EXPECT_EQ(machine_->runtime.Kill(moves ? "D:\\moved" : "D:\\file"), kill) << share;
        EXPECT_TRUE(kernel32().CloseHandle(file));
    }
}

TEST_F(OpenTest, tellsSizes) {
    makeFile("file");
    makeFolder("folder");
    for (const std::uint64_t size : {std::uint64_t{0}, std::uint64_t{5}, std::uint64_t{3} << 30, (std::uint64_t{5} << 32) + 7}) {
        std::filesystem::resize_file(disk() / "file", size);
        const Handle file = open("D:\\file");
        std::uint32_t high = 99;
        EXPECT_EQ(kernel32().GetFileSize(file, high), static_cast<std::uint32_t>(size));
        EXPECT_EQ(high, size >> 32);
        EXPECT_TRUE(kernel32().CloseHandle(file));
        EXPECT_EQ(kernel32().GetFileSize(file, high), INVALID_FILE_SIZE) << "closed";
        EXPECT_FALSE(kernel32().CloseHandle(file));
    }
    EXPECT_EQ(machine_->handles.count().count("file"), 0u);
}

TEST_F(OpenTest, setsTimes) {
    constexpr std::uint64_t created = 125'000'000'000'000'007;
    constexpr std::uint64_t accessed = 126'000'000'000'000'008;
    constexpr std::uint64_t written = 127'000'000'000'000'009;
    makeFile("file", "1");
    ASSERT_TRUE(kernel32().SetFileAttributesA("D:\\file", FILE_ATTRIBUTE_HIDDEN));
    const Handle file = open("D:\\file", GENERIC_WRITE);
    const auto expectTimes = [&](std::uint64_t a, std::uint64_t b, std::uint64_t c) {
        WIN32_FIND_DATAA found;
        ASSERT_TRUE(kernel32().FindClose(kernel32().FindFirstFileA("D:\\file", found)));
        EXPECT_EQ(found.ftCreationTime, a);
        EXPECT_EQ(found.ftLastAccessTime, b);
        EXPECT_EQ(found.ftLastWriteTime, c);
        EXPECT_EQ(found.dwFileAttributes, FILE_ATTRIBUTE_HIDDEN);
    };
    EXPECT_TRUE(kernel32().SetFileTime(file, created, accessed, written));
    expectTimes(created, accessed, written);
    EXPECT_TRUE(kernel32().SetFileTime(file, 0, 0, written + 1)) << "0 leaves a time alone";
    expectTimes(created, accessed, written + 1);
    EXPECT_FALSE(kernel32().SetFileTime(file, created, ~std::uint64_t{0}, written));
    expectTimes(created, accessed, written + 1);
    EXPECT_TRUE(kernel32().CloseHandle(file));
    const Handle reader = open("D:\\file", GENERIC_READ);
    EXPECT_FALSE(kernel32().SetFileTime(reader, created, accessed, written)) << "open for reading only";
    EXPECT_TRUE(kernel32().CloseHandle(reader));
    EXPECT_FALSE(kernel32().SetFileTime(reader, created, accessed, written));
}

} // namespace

} // namespace mox::test
