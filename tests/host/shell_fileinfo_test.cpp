#include "shell_support.h"

#include "host/shell/fileinfo.h"

#include <cstdlib>
#include <sys/stat.h>

namespace mox::test {

namespace {

using namespace platform;

class ShellFileInfoTest : public ShellTest {
protected:
    struct Info {
        std::uint32_t result;
        std::string name, type;
    };
    Info info(std::string_view path, std::uint32_t flags = SHGFI_DISPLAYNAME | SHGFI_TYPENAME) {
        SHFILEINFOA found{"-", "-"};
        const std::uint32_t result = machine_->shell32.SHGetFileInfoA(path, 0, found, flags);
        return {result, found.szDisplayName, found.szTypeName};
    }
};

TEST_F(ShellFileInfoTest, namesFilesAndTheirTypes) {
    fill({"Some File.XYZ", "no extension", "ends.", ".profile", "Folder.d/", "umlaut.\xC3\xA4z"});
    std::filesystem::create_directory_symlink("Folder.d", disk() / "link");
    struct {
        const char* path;
        const char* name;
        const char* type;
    } const cases[] = {
        {"D:\\some file.xyz", "Some File.XYZ", "XYZ File"},
        {"D:\\no extension", "no extension", "File"},
        {"D:\\.profile", ".profile", "PROFILE File"},
        {"D:\\umlaut.\xE4z", "umlaut.\xE4z", "\xC4Z File"},
        {"D:\\folder.d", "Folder.d", "File folder"},
        {"D:\\folder.d\\", "Folder.d", "File folder"},
        {"D:\\folder.d\\.", "Folder.d", "File folder"},
        {"D:\\link\\", "link", "File folder"},
        {"D:\\", "Local Disk (D:)", "Local Disk"},
        {"d:/", "Local Disk (D:)", "Local Disk"},
        {"D:\\folder.d\\..\\..", "Local Disk (D:)", "Local Disk"},
        {"C:\\", "Local Disk (C:)", "Local Disk"},
    };
    for (const auto& [path, name, type] : cases) {
        const Info found = info(path);
        EXPECT_NE(found.result, 0u) << path;
        EXPECT_EQ(found.name, name) << path;
        EXPECT_EQ(found.type, type) << path;
    }
    for (const char* path : {"D:\\none", "D:\\none\\x", "D:\\no extension\\", "D:\\*", "Q:\\", "", "\\\\server\\share"}) {
        const Info found = info(path);
        EXPECT_EQ(found.result, 0u) << path;
        EXPECT_EQ(found.name + found.type, "--") << path;
    }
    EXPECT_EQ(info("D:\\", SHGFI_DISPLAYNAME).type, "-");
    EXPECT_EQ(info("D:\\", SHGFI_TYPENAME).name, "-");
}

TEST_F(ShellFileInfoTest, takesDescriptionsFromTheMimeDatabaseInTheUsersLanguage) {
    const host::TemporaryFolder data(std::filesystem::temp_directory_path(), "mox-mime-");
    std::filesystem::create_directories(data.path() / "mime/text");
    std::ofstream(data.path() / "mime/globs2") << "50:text/x-mox-note:*.note\n";
    std::ofstream(data.path() / "mime/text/x-mox-note.xml")
        << "<?xml version=\"1.0\"?>\n<mime-type xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\" "
           "type=\"text/x-mox-note\"><comment>short note</comment><comment xml:lang=\"de\">kurze Notiz \xE2\x82\xAC"
        << std::string(90, 'x') << "</comment></mime-type>\n";
    const std::pair<const char*, std::string> cases[] = {
        {"en", "short note"}, {"de", "kurze Notiz \x80" + std::string(66, 'x')}, // cut to the length of the field
    };
    for (const auto& [language, expected] : cases) {
        EXPECT_EQ(
            answerInOwnProcess(
                "ShellFileInfoTest.DISABLED_typeOfANote",
                {{"XDG_DATA_HOME", data.path()}, {"XDG_DATA_DIRS", "/nowhere"}, {"LANGUAGE", language}, {"LC_ALL", "C.UTF-8"}}),
            expected);
    }
}

TEST_F(ShellFileInfoTest, DISABLED_typeOfANote) {
    fill({"a.NOTE"});
    answerFromOwnProcess(info("D:\\a.note").type);
}

TEST_F(ShellFileInfoTest, knowsTheKindsOfDrives) {
    host::MachineConfig config;
    config.drives = {{'M', "/dev/shm"}, {'N', "/nowhere"}};
    if (!std::filesystem::is_directory("/dev/shm") || machine_->files.driveType("D:\\") == DRIVE_RAMDISK) {
        GTEST_SKIP() << "there is no disk in memory";
    }
    TestMachine machine(config);
    EXPECT_EQ(info("M:\\").result, 0u) << "of the other machine";
    SHFILEINFOA found;
    EXPECT_EQ(machine->shell32.SHGetFileInfoA("M:\\", 0, found, SHGFI_DISPLAYNAME | SHGFI_TYPENAME), 1u);
    EXPECT_EQ(found.szDisplayName, "RAM Disk (M:)");
    EXPECT_EQ(found.szTypeName, "RAM Disk");
    EXPECT_EQ(machine->shell32.SHGetFileInfoA("N:\\", 0, found, SHGFI_TYPENAME), 0u);
}

TEST_F(ShellFileInfoTest, readsTheLabelsOfVolumes) {
    struct stat root {};
    ASSERT_EQ(stat("/", &root), 0);
    makeFile("labels/Not a device");
    EXPECT_EQ(host::volumeLabel("/", disk() / "labels"), "");
    EXPECT_EQ(host::volumeLabel("/", disk() / "none"), "");
    if (mknod((disk() / "labels/My\\x20\\xc3\\xa4\\x2").c_str(), S_IFBLK | 0600, root.st_dev) != 0) {
        GTEST_SKIP() << "no device can be made here";
    }
    EXPECT_EQ(host::volumeLabel("/", disk() / "labels"), "My \xC3\xA4\\x2");
    EXPECT_EQ(host::volumeLabel(disk(), disk() / "labels"), "") << "a folder is no volume";
}

} // namespace

} // namespace mox::test
