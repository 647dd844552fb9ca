#include "files_support.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace mox::test {

namespace {

using namespace platform;

class BinaryTest : public FilesTest {
protected:
    Runtime& runtime() { return machine_->runtime; }
    Handle open(std::string_view path, FileAccess access = FileAccess::readWrite) {
        Handle number = 0;
        EXPECT_EQ(runtime().OpenBinary(path, access, number), 0) << path;
        return number;
    }
    std::string contents(const char* name) {
        std::ifstream file(disk() / name);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(BinaryTest, opensAsTheLanguageDoes) {
    using namespace std::string_view_literals;
    makeFile("full", "contents");
    makeFile("protected", "1");
    makeFolder("Folder");
    ASSERT_TRUE(kernel32().SetFileAttributesA("D:\\protected", FILE_ATTRIBUTE_READONLY));
    const std::string longName = "D:\\" + std::string(300, 'n');
    struct {
        std::string_view path;
        FileAccess access;
        std::int32_t error;
    } const cases[] = {
        {"D:\\FULL", FileAccess::readWrite, 0},   {"D:\\full\0x"sv, FileAccess::read, 0},
        {"D:\\read", FileAccess::read, 0}, // made, not "file not found"
        {"D:\\written", FileAccess::write, 0},    {"D:\\protected", FileAccess::read, 0},
        {"D:\\protected", FileAccess::write, 75}, {"D:\\protected", FileAccess::readWrite, 75},
        {"D:\\folder", FileAccess::read, 75},     {"D:\\folder\\", FileAccess::read, 75},
        {"D:\\none\\new", FileAccess::write, 76}, {"D:\\full\\new", FileAccess::write, 76},
        {"Q:\\new", FileAccess::write, 76},       {"D:\\a?", FileAccess::read, 52},
        {longName, FileAccess::write, 52},        {"", FileAccess::read, 76},
    };
    for (const auto& [path, access, error] : cases) {
        Handle number = 0;
        EXPECT_EQ(runtime().OpenBinary(path, access, number), error) << path;
        EXPECT_EQ(number != 0, error == 0) << path;
        EXPECT_EQ(runtime().CloseFile(number), error == 0 ? 0 : 52) << path;
    }
    EXPECT_EQ(list("D:\\*"), (Names{"Folder", "full", "protected", "read", "written"}));
}

TEST_F(BinaryTest, readsAndWritesAtPositions) {
    makeFile("file", "0123456789");
    const Handle number = open("D:\\file");
    EXPECT_EQ(machine_->handles.count().at("open file"), 1u);
    std::int64_t length = 0;
    EXPECT_EQ(runtime().LengthOfFile(number, length), 0);
    EXPECT_EQ(length, 10);
    struct {
        std::int64_t position;
        std::size_t count;
        std::int32_t error;
        std::string_view bytes; // as far as they were read
    } const reads[] = {
        {0, 4, 0, "0123"}, {6, 4, 0, "6789"}, {7, 4, 62, "789"}, {10, 1, 62, ""},
        {10, 0, 0, ""},    {99, 3, 62, ""},   {-1, 1, 63, ""},
    };
    for (const auto& [position, count, error, bytes] : reads) {
        std::string buffer(count, '.');
        EXPECT_EQ(runtime().GetBytes(number, position, buffer), error) << position << ' ' << count;
        EXPECT_EQ(buffer.substr(0, bytes.size()), bytes) << position << ' ' << count;
    }
    EXPECT_EQ(runtime().PutBytes(number, 8, std::string_view("abcd")), 0);
    EXPECT_EQ(runtime().PutBytes(number, 14, std::string_view("z")), 0);
    EXPECT_EQ(runtime().PutBytes(number, -1, std::string_view("z")), 63);
    EXPECT_EQ(contents("file"), std::string("01234567abcd\0\0z", 15));
    EXPECT_EQ(runtime().LengthOfFile(number, length), 0);
    EXPECT_EQ(length, 15);
    EXPECT_FALSE(kernel32().CloseHandle(number)) << "a file number is no handle of the system";
    EXPECT_EQ(runtime().CloseFile(number), 0);
}

TEST_F(BinaryTest, keepsToTheAccess) {
    makeFile("file", "123");
    const Handle reader = open("D:\\file", FileAccess::read);
    const Handle writer = open("D:\\file", FileAccess::write);
    std::string buffer(1, '.');
    EXPECT_EQ(runtime().PutBytes(reader, 0, buffer), 54);
    EXPECT_EQ(runtime().GetBytes(writer, 0, buffer), 54);
    EXPECT_EQ(runtime().PutBytes(writer, 0, std::string_view("x")), 0);
    EXPECT_EQ(runtime().GetBytes(reader, 0, buffer), 0);
    EXPECT_EQ(buffer, "x");
    EXPECT_EQ(runtime().Kill("D:\\file"), 55);
    EXPECT_EQ(runtime().CloseFile(reader), 0);
    EXPECT_EQ(runtime().CloseFile(writer), 0);
    EXPECT_EQ(runtime().Kill("D:\\file"), 0);
}

TEST_F(BinaryTest, refusesNumbersThatAreNone) {
    makeFile("file");
    const Handle closed = open("D:\\file");
    EXPECT_EQ(runtime().CloseFile(closed), 0);
    const Handle other = kernel32().CreateFileA("D:\\file", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    for (const Handle number : {0, -1, closed, other}) {
        std::int64_t length = 0;
        std::string buffer(1, '.');
        EXPECT_EQ(runtime().LengthOfFile(number, length), 52);
        EXPECT_EQ(runtime().GetBytes(number, 0, buffer), 52);
        EXPECT_EQ(runtime().PutBytes(number, 0, buffer), 52);
        EXPECT_EQ(runtime().CloseFile(number), 52);
    }
    EXPECT_TRUE(kernel32().CloseHandle(other));
}

/// Runs `child` in a process that may not make files longer than `limit`; true if it gives true.
template <class Child> bool runWithLimit(rlim_t limit, Child child) {
    const pid_t id = fork();
    if (id == 0) {
        const rlimit limits{limit, limit};
        std::signal(SIGXFSZ, SIG_IGN);
        _exit(setrlimit(RLIMIT_FSIZE, &limits) == 0 && child() ? 0 : 1);
    }
    int status = 0;
    return waitpid(id, &status, 0) == id && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(BinaryTest, tellsOfAFullDisk) {
    makeFile("file", "123");
    Handle full = open("Z:\\dev\\full", FileAccess::write);
    EXPECT_EQ(runtime().PutBytes(full, 0, std::string_view("x")), 61);
    EXPECT_EQ(runtime().CloseFile(full), 0);
    EXPECT_TRUE(runWithLimit(8, [&] {
        const Handle number = open("D:\\file", FileAccess::write);
        return runtime().PutBytes(number, 3, std::string(100, 'x')) == 61 && runtime().CloseFile(number) == 0;
    }));
    EXPECT_EQ(contents("file"), "123xxxxx") << "what fits is there";
}

TEST_F(BinaryTest, copiesToAFullDiskLeaveNothing) {
    makeFile("large", std::string(100'000, 'l'));
    makeFile("target", "precious");
    EXPECT_TRUE(runWithLimit(1000, [&] {
        return !kernel32().CopyFileA("D:\\large", "D:\\target", false) && !kernel32().CopyFileA("D:\\large", "D:\\new", true);
    }));
    EXPECT_EQ(contents("target"), "precious");
    EXPECT_EQ(list("D:\\*"), (Names{"large", "target"}));
}

} // namespace

} // namespace mox::test
