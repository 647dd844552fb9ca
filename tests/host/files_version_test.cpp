#include "files_support.h"
#include "programfile.h"

#include "host/files/versionblock.h"

namespace mox::test {

namespace {

using namespace platform;
using namespace std::string_view_literals;

class VersionTest : public FilesTest {
protected:
    Version& version() { return machine_->version; }
    void makeProgram(std::string_view name, const ProgramFile& program) { makeFile(name, program.bytes()); }
    std::string block(std::string_view path) {
        std::string bytes(version().GetFileVersionInfoSizeA(path), '\0');
        EXPECT_EQ(version().GetFileVersionInfoA(path, bytes), !bytes.empty()) << path;
        return bytes;
    }
    /// A value in the block, "-" if there is none.
    std::string value(const std::string& block, std::string_view path) {
        std::string_view found;
        return version().VerQueryValueA(block, path, found) ? std::string(found) : "-";
    }
};

TEST_F(VersionTest, isReadFromProgramsOfBothKinds) {
    for (const bool isLarge : {false, true}) {
        ProgramFile program;
        program.isLarge = isLarge;
        program.versionMs = 0x0005'0001;
        program.versionLs = 0x001A'0003;
        makeProgram("program.exe", program);
        const std::string bytes = block("D:\\PROGRAM.EXE");
        const std::string fixed = value(bytes, "\\");
        ASSERT_EQ(fixed.size(), 52u);
        EXPECT_EQ(fixed.substr(0, 4), "\xBD\x04\xEF\xFE");
        EXPECT_EQ(fixed.substr(8, 8), "\x01\x00\x05\x00\x03\x00\x1A\x00"sv);
        struct {
            std::string_view path;
            std::string_view value;
        } const cases[] = {
            {"\\VarFileInfo\\Translation", "\x09\x04\xE4\x04"},
            {"\\StringFileInfo\\040904E4\\CompanyName", "Caf\xE9 & Sons"},
            {"\\STRINGFILEINFO\\040904e4\\companyname", "Caf\xE9 & Sons"},
            {"\\StringFileInfo\\040904E4\\Comments", ""},
            {"\\StringFileInfo\\040904E4\\Foreign", "?x"},
            {"StringFileInfo\\\\040904E4\\Foreign\\", "?x"},
            {"\\StringFileInfo\\040904E4\\ProductName", "-"},
            {"\\StringFileInfo\\040904E4\\Company", "-"},
            {"\\StringFileInfo\\040704E4\\CompanyName", "-"},
            {"\\CompanyName", "-"},
            {"\\StringFileInfo\\040904E4\\CompanyName\\more", "-"},
        };
        for (const auto& [path, expected] : cases) {
            EXPECT_EQ(value(bytes, path), expected) << path << isLarge;
        }
    }
}

TEST_F(VersionTest, isMissingElsewhere) {
    makeFile("text.txt", "MZ is how programs begin");
    makeFile("empty");
    makeFolder("folder");
    ProgramFile without;
    without.hasVersion = false;
    makeProgram("without.exe", without);
    for (const char* path :
         {"D:\\text.txt", "D:\\empty", "D:\\folder", "D:\\none", "D:\\without.exe", "", "D:\\*", "Z:\\dev\\zero"}) {
        std::string buffer(100, '.');
        EXPECT_EQ(version().GetFileVersionInfoSizeA(path), 0u) << path;
        EXPECT_FALSE(version().GetFileVersionInfoA(path, buffer)) << path;
        EXPECT_EQ(buffer, std::string(100, '.')) << path;
    }
}

TEST_F(VersionTest, isNotReadFromACutFile) {
    const std::string whole = ProgramFile().bytes();
    makeFile("whole.exe", whole);
    ASSERT_NE(version().GetFileVersionInfoSizeA("D:\\whole.exe"), 0u);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        std::filesystem::resize_file(disk() / "whole.exe", whole.size() - 1 - length);
        ASSERT_EQ(version().GetFileVersionInfoSizeA("D:\\whole.exe"), 0u) << whole.size() - 1 - length;
    }
}

TEST_F(VersionTest, staysInsideADamagedFile) {
    // Every byte once with all bits set and once with none: the answer may be anything, but is the same for size and block, and
    // every value lies in the block.
    const std::string whole = ProgramFile().bytes();
    makeFile("damaged.exe", whole);
    std::fstream file(disk() / "damaged.exe", std::ios::in | std::ios::out | std::ios::binary);
    const auto put = [&](std::size_t position, char byte) {
        ASSERT_TRUE(file.seekp(static_cast<std::streamoff>(position)).put(byte).flush());
    };
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const char byte : {'\xFF', '\x00', whole[i]}) {
            put(i, byte);
            const std::string bytes = block("D:\\damaged.exe");
            for (const char* path : {"\\", "\\VarFileInfo\\Translation", "\\StringFileInfo\\040904E4\\CompanyName"}) {
                std::string_view found;
                if (version().VerQueryValueA(bytes, path, found)) {
                    ASSERT_GE(found.data(), bytes.data()) << i;
                    ASSERT_LE(found.data() + found.size(), bytes.data() + bytes.size()) << i;
                }
            }
        }
    }
}

TEST_F(VersionTest, isFoundInACutBlockAsFarAsItGoes) {
    makeProgram("program.exe", ProgramFile());
    const std::string whole = block("D:\\program.exe");
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        std::string bytes(length, '\0');
        ASSERT_TRUE(version().GetFileVersionInfoA("D:\\program.exe", bytes));
        ASSERT_EQ(bytes, whole.substr(0, length));
        const std::string text = value(bytes, "\\StringFileInfo\\040904E4\\CompanyName");
        ASSERT_TRUE(text == "-" || text == "Caf\xE9 & Sons") << length;
        ASSERT_EQ(value(bytes, "\\").size() == 52, length >= whole.size() / 2) << length;
    }
}

TEST_F(VersionTest, checksumsGoOn) {
    const auto checksum = [&](std::uint32_t crc, std::string_view bytes) {
        EXPECT_TRUE(machine_->ntdll.RtlComputeCrc32(crc, bytes));
        return crc;
    };
    EXPECT_EQ(checksum(0, {}), 0u);
    EXPECT_EQ(checksum(0, "123456789"), 0xCBF43926u);
    EXPECT_EQ(checksum(0, "a"), 0xE8B7BE43u);
    const std::string text(1000, 'x');
    const std::string_view whole = text;
    for (std::size_t i = 0; i <= text.size(); i += 37) {
        EXPECT_EQ(checksum(checksum(0, whole.substr(0, i)), whole.substr(i)), checksum(0, whole)) << i;
    }
    // A register that starts at 0 instead of all ones.
    EXPECT_EQ(checksum(~0u, "123456789"), 0xD202D277u);
}

} // namespace

} // namespace mox::test
