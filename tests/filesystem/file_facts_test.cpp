// Times, sizes, attributes, versions, checksums and names of files.
#include "filesystem_support.h"

#include "support/faultsweep.h"

#include "platform/kernel32.h"

#include <chrono>

#include <fcntl.h>
#include <sys/stat.h>

namespace mox::test {

namespace {

using namespace platform;

/// Days of dates since 1899-12-30, in whole seconds of UTC where the test runs.
Double dateOf(std::chrono::sys_seconds time) {
    constexpr Double secondsPerDay = 86'400;
    constexpr Double unixEpoch = 25'569;
    return unixEpoch + static_cast<Double>(time.time_since_epoch().count()) / secondsPerDay;
}

class FileTimesTest : public FileSystemTest {
protected:
    /// Local time is that of the machine that the test runs on; here it is told.
    void SetUp() override {
        machine->kernel32.FileTimeToLocalFileTime = [](std::uint64_t time, std::uint64_t& local) {
            local = time + hour;
            return true;
        };
        machine->kernel32.LocalFileTimeToFileTime = [](std::uint64_t local, std::uint64_t& time) {
            time = local - hour;
            return true;
        };
    }

    static constexpr std::uint64_t hour = 36'000'000'000;
    static constexpr Double hourOfDay = 1.0 / 24;
    static constexpr Double second = 1.0 / 86'400;
    const std::chrono::sys_seconds noon =
        std::chrono::sys_days(std::chrono::year{2011} / 5 / 17) + std::chrono::hours(12) + std::chrono::seconds(1);
};

TEST_F(FileTimesTest, GetDateTimeIsInLocalTime) {
    makeFile("x");
    std::filesystem::last_write_time(on("x"), std::chrono::file_clock::from_sys(noon));
    EXPECT_NEAR(file.GetDateTime(u"D:\\x").Modified.days, dateOf(noon) + hourOfDay, second / 1000);
    EXPECT_EQ(file.GetDateTime(u"D:\\missing"), MOX_FILEDATETIME{});
    EXPECT_EQ(file.GetDateTime(u""), MOX_FILEDATETIME{});
    // A folder's, with and without its separator.
    makeFolder("dir");
    std::filesystem::last_write_time(on("dir"), std::chrono::file_clock::from_sys(noon));
    EXPECT_NEAR(folder.GetDateTime(u"D:\\dir\\").Modified.days, dateOf(noon) + hourOfDay, second / 1000);
    EXPECT_EQ(folder.GetDateTime(u"D:\\dir").Modified, folder.GetDateTime(u"D:\\dir\\").Modified);
    // A time that cannot be converted stays 0, the others are told.
    machine->kernel32.FileTimeToLocalFileTime.fail(1);
    const MOX_FILEDATETIME times = file.GetDateTime(u"D:\\x");
    EXPECT_EQ(times.Created.days, 0);
    EXPECT_NE(times.Modified.days, 0);
}

TEST_F(FileTimesTest, SetDateTimeSetsWhatIsAskedFor) {
    makeFile("x");
    const Date created{dateOf(noon) + hourOfDay};
    const Date accessed{created.days + 1};
    const Date modified{created.days + 2 + 0.9 * second};
    MOX_FILEDATETIME wanted{created, accessed, modified};
    EXPECT_EQ(file.SetDateTime(u"D:\\x", wanted), True);
    struct stat facts {};
    ASSERT_EQ(stat(on("x").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mtim.tv_sec, (noon + std::chrono::days(2)).time_since_epoch().count());
    EXPECT_EQ(facts.st_mtim.tv_nsec, 0) << "the parts of a second are dropped";
    EXPECT_EQ(facts.st_atim.tv_sec, (noon + std::chrono::days(1)).time_since_epoch().count());
    EXPECT_NEAR(file.GetDateTime(u"D:\\x").Created.days, created.days, second / 1000);

    // What is not asked for is written back without its parts of a second.
    const timespec times[] = {{.tv_sec = 1'000'000'000, .tv_nsec = 999'000'000},
                              {.tv_sec = 1'100'000'000, .tv_nsec = 999'900'000}};
    ASSERT_EQ(utimensat(AT_FDCWD, on("x").c_str(), times, 0), 0);
    MOX_FILEDATETIME unused{Date{1e300}, Date{1e300}, Date{1e300}};
    EXPECT_EQ(file.SetDateTime(u"D:\\x", unused, False, False, False), True);
    ASSERT_EQ(stat(on("x").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_atim.tv_sec, 1'000'000'000);
    EXPECT_EQ(facts.st_atim.tv_nsec, 0);
    EXPECT_EQ(facts.st_mtim.tv_sec, 1'100'000'000);
    EXPECT_EQ(facts.st_mtim.tv_nsec, 0);
    EXPECT_NEAR(file.GetDateTime(u"D:\\x").Created.days, created.days, second / 1000);

    // Nothing is written when one of them is no date.
    EXPECT_EQ(file.SetDateTime(u"D:\\x", unused, True, False, False), False);
    MOX_FILEDATETIME partly{created, Date{-1e9}, created};
    EXPECT_EQ(file.SetDateTime(u"D:\\x", partly), False);
    ASSERT_EQ(stat(on("x").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mtim.tv_sec, 1'100'000'000);
    EXPECT_EQ(file.SetDateTime(u"D:\\missing", wanted), False);
}

TEST(FileSystemFaultsTest, SetDateTime) {
    sweepFaults([](FaultRun& run) {
        ASSERT_TRUE(run.machine()->files.facts("C:\\Temp").has_value());
        const std::filesystem::path place = run.machine()->files.drives().at('C') / "Temp/a";
        std::ofstream(place) << "contents";
        const timespec old[] = {{.tv_sec = 1000, .tv_nsec = 0}, {.tv_sec = 1000, .tv_nsec = 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, place.c_str(), old, 0), 0);
        const moxFSFile file = moxFS{server::create<TRL_OBKR_MOX::_moxFS>()}.File();
        MOX_FILEDATETIME times{Date{40'000}, Date{40'000}, Date{40'000}};
        const Boolean result = file.SetDateTime(u"C:\\Temp\\a", times, True, True, True);
        struct stat facts {};
        ASSERT_EQ(stat(place.c_str(), &facts), 0);
        EXPECT_TRUE(result == True ? facts.st_mtim.tv_sec > 1000 : run.faulted() && facts.st_mtim.tv_sec == 1000);
    });
}

TEST_F(FileSystemTest, GetSizeGivesTheLow32Bits) {
    makeFile("small", "12345");
    const auto makeSparse = [&](const char* name, std::uint64_t size) {
        makeFile(name);
        std::filesystem::resize_file(on(name), size);
    };
    makeSparse("3g", 3ull << 30);
    makeSparse("4g", 4ull << 30);
    EXPECT_EQ(file.GetSize(u"D:\\small"), 5);
    EXPECT_EQ(file.GetSize(u"D:\\3g"), -1'073'741'824);
    EXPECT_EQ(file.GetSize(u"D:\\4g"), 0);
    EXPECT_EQ(file.GetSize(u"D:\\missing"), 0);
    EXPECT_EQ(file.GetSize(u"D:\\"), 0);
    EXPECT_EQ(invoke(file.get(), u"GetSize", String(u"D:\\small")).as<Long>(), 5);
}

TEST_F(FileSystemTest, OnlySixAttributesCanBeSet) {
    makeFile("x");
    makeFolder("dir");
    const auto attributes = [](int bits) { return static_cast<MOX_FS_FILEATTRIBUTES>(bits); };
    std::uint32_t asked = 0;
    {
        const auto swap = machine->kernel32.SetFileAttributesA.replace([&](std::string_view, std::uint32_t bits) {
            asked = bits;
            return true;
        });
        EXPECT_EQ(file.SetAttributes(u"D:\\x", attributes(-1)), True);
        EXPECT_EQ(asked, 0x1A7u);
        EXPECT_EQ(folder.SetAttributes(u"D:\\dir", attributes(-1)), True);
        EXPECT_EQ(asked, 0x1A7u);
    }
    EXPECT_EQ(file.SetAttributes(u"D:\\x", attributes(FA_HIDDEN | FA_DIRECTORY | FA_ARCHIVE)), True);
    EXPECT_EQ(file.GetAttributes(u"D:\\x"), FA_HIDDEN | FA_ARCHIVE);
    EXPECT_EQ(folder.GetAttributes(u"D:\\dir\\"), FA_DIRECTORY);
    EXPECT_EQ(folder.GetAttributes(u"D:\\x"), 0) << "no folder";
    EXPECT_EQ(file.GetAttributes(u"D:\\missing"), 0);
    EXPECT_EQ(file.SetAttributes(u"D:\\missing", FA_HIDDEN), False);
    EXPECT_EQ(folder.SetAttributes(u"D:\\missing", FA_HIDDEN), False);
}

TEST_F(FileSystemTest, ChecksumsBeginWithARegisterOf0) {
    makeFile("digits", "123456789");
    makeFile("a", "a");
    makeFile("empty");
    const std::string megabyte(1'048'576, 'm');
    makeFile("long", megabyte + "tail");
    makeFile("head", megabyte);
    EXPECT_EQ(file.GetChecksum(u"D:\\digits"), -771566985);
    EXPECT_EQ(file.GetChecksum(u"D:\\a"), -984961487);
    EXPECT_EQ(file.GetChecksum(u"D:\\long", 1), file.GetChecksum(u"D:\\head"));
    EXPECT_NE(file.GetChecksum(u"D:\\long", 2), file.GetChecksum(u"D:\\head"));
    EXPECT_EQ(file.GetChecksum(u"D:\\long", 2'000'000'000), file.GetChecksum(u"D:\\long"));
    for (const char16_t* path : {u"D:\\empty", u"D:\\missing", u"D:\\", u""}) {
        EXPECT_EQ(file.GetChecksum(path), 0) << String(path).utf8();
    }
    for (const Long megabytes : {0, -1, std::numeric_limits<Long>::min()}) {
        EXPECT_EQ(file.GetChecksum(u"D:\\a", megabytes), 0) << megabytes;
    }
}

TEST(FileSystemFaultsTest, Checksum) {
    sweepFaults([](FaultRun& run) {
        ASSERT_TRUE(run.machine()->files.facts("C:\\Temp").has_value());
        std::ofstream(run.machine()->files.drives().at('C') / "Temp/a") << std::string(600'000, 'x');
        const moxFSFile file = moxFS{server::create<TRL_OBKR_MOX::_moxFS>()}.File();
        static Long right = 0;
        const Long checksum = file.GetChecksum(u"C:\\Temp\\a");
        right = run.faulted() ? right : checksum;
        EXPECT_NE(right, 0);
        EXPECT_TRUE(checksum == right || (run.faulted() && checksum == 0)) << checksum;
    });
}

TEST_F(FileSystemTest, VersionsAreTakenFromTheFixedPart) {
    makeFile("program.exe", "not really");
    std::string fixed("\xBD\x04\xEF\xFE\0\0\1\0"
                      "\1\0\5\0" // 5.1
                      "\3\0\x1A\0"
                      "remaining",
                      25);
    bool isFound = true;
    machine->version.GetFileVersionInfoSizeA = [](std::string_view) { return 100u; };
    machine->version.GetFileVersionInfoA = [](std::string_view, std::span<char> block) { return block.size() == 100; };
    machine->version.VerQueryValueA = [&](std::span<const char>, std::string_view path, std::string_view& value) {
        value = fixed;
        return isFound && path == "\\";
    };
    EXPECT_EQ(file.GetVersion(u"D:\\program.exe"), (MOX_FILEVERSIONINFO{True, 5, 1, 2603}));
    fixed.replace(12, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(file.GetVersion(u"D:\\program.exe"), (MOX_FILEVERSIONINFO{True, 5, 1, -101})) << "16 bits, wrapped";
    EXPECT_EQ(file.GetVersion(u"D:\\missing.exe"), MOX_FILEVERSIONINFO{});
    isFound = false;
    EXPECT_EQ(file.GetVersion(u"D:\\program.exe"), (MOX_FILEVERSIONINFO{True, 0, 0, 0})) << "a block without its fixed part";
    machine->version.GetFileVersionInfoSizeA.fail();
    EXPECT_EQ(file.GetVersion(u"D:\\program.exe"), MOX_FILEVERSIONINFO{});
}

TEST_F(FileSystemTest, ProgramsAreAskedForWithARealFile) {
    makeFile("program.exe");
    makeFile("x.txt");
    std::vector<std::string> asked;
    const auto swap =
        machine->shell32.FindExecutableA.replace([&](std::string_view path, std::string_view, std::span<char> result) {
            asked.emplace_back(path);
            *std::ranges::copy(std::string_view("D:\\program.exe"), result.begin()).out = '\0';
            return 42;
        });
    for (const char16_t* extension : {u"txt", u".txt", u"x.txt", u"no folder\\a.b.txt"}) {
        asked.clear();
        EXPECT_EQ(file.GetExeFromFileExtension(extension), u"D:\\program.exe") << String(extension).utf8();
        ASSERT_EQ(asked.size(), 1u);
        EXPECT_TRUE(asked[0].starts_with("C:\\Temp\\~") && asked[0].ends_with(".txt")) << asked[0];
        EXPECT_EQ(file.Exists(String::fromUtf8(asked[0])), False) << "the temporary file is left";
    }
    asked.clear();
    for (const char16_t* none : {u"", u"name.", u"."}) {
        EXPECT_EQ(file.GetExeFromFileExtension(none), u"") << String(none).utf8();
    }
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(file.GetExeFromFileName(u"D:\\x.txt"), u"D:\\program.exe");
    EXPECT_EQ(asked, std::vector<std::string>{"D:\\x.txt"});
    EXPECT_EQ(file.GetExeFromFileName(u"D:\\missing.txt", True), u"D:\\program.exe") << "taken as an extension";
}

TEST_F(FileSystemTest, TheShellNamesFilesAndFolders) {
    makeFile("Some File.txt");
    makeFolder("dir");
    EXPECT_EQ(file.GetDisplayName(u"d:\\some file.TXT"), u"Some File.txt");
    EXPECT_EQ(folder.GetDisplayName(u"D:\\dir"), u"dir");
    EXPECT_FALSE(file.GetTypeName(u"D:\\Some File.txt").empty());
    EXPECT_NE(folder.GetTypeName(u"D:\\dir"), file.GetTypeName(u"D:\\Some File.txt"));
    EXPECT_EQ(file.GetDisplayName(u"D:\\missing"), u"");
    EXPECT_EQ(file.GetTypeName(u"D:\\missing"), u"");
    EXPECT_EQ(file.Exists(u"D:\\dir"), True);
    EXPECT_EQ(file.Exists(u"D:\\*.txt"), True);
    EXPECT_EQ(file.GetShortPathFileName(u"D:\\missing"), u"");
    EXPECT_TRUE(file.GetShortPathFileName(u"D:\\Some File.txt").view().starts_with(u"D:\\S"));
}

} // namespace

} // namespace mox::test
