#include "files_support.h"

#include <sys/statvfs.h>

namespace mox::test {

namespace {

using namespace platform;

class DrivesTest : public FilesTest {};

TEST_F(DrivesTest, areFoldersOfTheMachine) {
    const auto& drives = files().drives();
    ASSERT_EQ(drives.size(), 3u);
    EXPECT_EQ(drives.at('C'), machine_.home() / "drives" / "C");
    EXPECT_EQ(drives.at('D'), disk());
    EXPECT_EQ(drives.at('Z'), "/");
}

TEST_F(DrivesTest, ofTheSystemGetItsFoldersWhenTheyAreNeeded) {
    EXPECT_FALSE(std::filesystem::exists(machine_.home()));
    EXPECT_EQ(attributes("D:\\"), FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_FALSE(std::filesystem::exists(machine_.home())) << "another drive does not need them";
    for (const char* folder : {"C:\\Windows", "C:\\WINDOWS\\system32", "C:\\Windows\\Fonts", "C:\\Temp", "C:\\Program Files",
                               "C:\\ProgramData", "C:\\Users\\Public\\Documents", "C:\\Users\\Public\\Pictures"}) {
        EXPECT_EQ(attributes(folder), FILE_ATTRIBUTE_DIRECTORY) << folder;
    }
    Names users = list("C:\\Users\\*");
    std::erase_if(users, [](const std::string& name) { return name == "." || name == ".." || name == "Public"; });
    ASSERT_EQ(users.size(), 1u);
    EXPECT_EQ(attributes("C:\\Users\\" + users[0] + "\\AppData\\Roaming"), FILE_ATTRIBUTE_DIRECTORY);
}

TEST_F(DrivesTest, keepTheTemporaryFolder) {
    std::string buffer(kernel32().GetTempPathA({}), 'x');
    ASSERT_EQ(buffer.size(), 9u);
    EXPECT_EQ(kernel32().GetTempPathA(buffer), 8u);
    EXPECT_EQ(buffer, std::string("C:\\Temp\\") + '\0');
    EXPECT_EQ(attributes("C:\\Temp\\"), FILE_ATTRIBUTE_DIRECTORY);
}

TEST_F(DrivesTest, haveATypeAtTheirRoot) {
    struct {
        const char* root;
        std::uint32_t type;
    } const cases[] = {
        {"C:\\", DRIVE_FIXED},
        {"c:", DRIVE_FIXED},
        {"c:/", DRIVE_FIXED},
        {"Z:\\", DRIVE_FIXED},
        {"\\", DRIVE_FIXED},
        {"Q:\\", DRIVE_NO_ROOT_DIR},
        {"C:\\Windows", DRIVE_NO_ROOT_DIR},
        {"", DRIVE_NO_ROOT_DIR},
        {"C", DRIVE_NO_ROOT_DIR},
        {"\\\\server\\share", DRIVE_NO_ROOT_DIR},
    };
    for (const auto& [root, type] : cases) {
        EXPECT_EQ(kernel32().GetDriveTypeA(root), type) << root;
    }
    ASSERT_TRUE(files().setCurrentFolder("C:\\Windows"));
    EXPECT_EQ(kernel32().GetDriveTypeA("C:"), DRIVE_FIXED) << "the drive, not the current folder on it";
}

TEST(ConfiguredDrivesTest, mayBeAnyFolder) {
    const host::TemporaryFolder disk(testing::TempDir(), "mox-disk-");
    host::MachineConfig config;
    config.drives = {
        {'e', disk.path() / "sub" / ".." / ""}, {'M', "/dev/shm"}, {'N', disk.path() / "missing"}, {'Z', disk.path()}};
    TestMachine machine(config);
    EXPECT_EQ(machine->files.drives().at('E'), disk.path());
    EXPECT_EQ(machine->files.drives().at('Z'), disk.path());
    EXPECT_EQ(machine->kernel32.GetDriveTypeA("N:\\"), DRIVE_NO_ROOT_DIR);
    EXPECT_EQ(machine->kernel32.GetFileAttributesA("N:\\"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(machine->files.toDrivePath("/usr"), "") << "no drive reaches it";
    if (std::filesystem::exists("/dev/shm")) {
        EXPECT_EQ(machine->kernel32.GetDriveTypeA("M:\\"), DRIVE_RAMDISK);
    }
    config.drives = {{'1', disk.path()}};
    EXPECT_THROW(TestMachine{config}, std::invalid_argument);
}

TEST_F(DrivesTest, tellTheirSpace) {
    struct statvfs disk {};
    ASSERT_EQ(statvfs(this->disk().c_str(), &disk), 0);
    const std::uint64_t total = disk.f_blocks * disk.f_frsize;
    makeFile("folder/file");
    for (const char* folder : {"D:", "D:\\", "D:\\FOLDER", "D:\\folder\\"}) {
        std::uint64_t available = 0;
        std::uint64_t all = 0;
        std::uint64_t free = 0;
        ASSERT_TRUE(machine_->shell32.SHGetDiskFreeSpaceA(folder, available, all, free)) << folder;
        EXPECT_EQ(all, total);
        EXPECT_LE(available, free);
        EXPECT_LE(free, all);

        std::uint32_t sectors = 0;
        std::uint32_t bytes = 0;
        std::uint32_t freeClusters = 0;
        std::uint32_t clusters = 0;
        ASSERT_TRUE(kernel32().GetDiskFreeSpaceA(folder, sectors, bytes, freeClusters, clusters)) << folder;
        const std::uint64_t cluster = std::uint64_t{sectors} * bytes;
        EXPECT_GT(cluster, 0u);
        EXPECT_LE(clusters * cluster, total);
        EXPECT_GT((clusters + std::uint64_t{1}) * cluster, total);
        EXPECT_LE(freeClusters, clusters);
    }
    for (const char* folder : {"D:\\missing", "D:\\folder\\file", "Q:\\", ""}) {
        std::uint64_t unused = 1;
        std::uint32_t unusedToo = 1;
        EXPECT_FALSE(machine_->shell32.SHGetDiskFreeSpaceA(folder, unused, unused, unused)) << folder;
        EXPECT_FALSE(kernel32().GetDiskFreeSpaceA(folder, unusedToo, unusedToo, unusedToo, unusedToo)) << folder;
        EXPECT_EQ(unused + unusedToo, 2u);
    }
}

} // namespace

} // namespace mox::test
