#include "modmoxhub_support.h"

#include "core/classes.h"

#include "platform/kernel32.h"
#include "platform/runtime.h"
#include "platform/shell32.h"

#include <mox/mox.h>

#include <deque>
#include <vector>

namespace mox::test {

namespace {

using namespace platform;
using namespace server::modMoxHub;

TEST_F(ModMoxHubTest, GetShortPathGivesShortNames) {
    makeFile("long folder/file.txt");
    const std::string shortPath = GetShortPath(u"D:\\Long Folder\\FILE.TXT").utf8();
    EXPECT_TRUE(shortPath.starts_with("D:\\L") && shortPath.ends_with("\\file.txt")) << shortPath;
    EXPECT_EQ(shortPath.size(), std::string_view("D:\\L12345~1\\file.txt").size()) << shortPath;
    EXPECT_EQ(GetShortPath(String::fromUtf8(shortPath)), String::fromUtf8(shortPath));
    EXPECT_EQ(GetShortPath(u"D:\\missing"), u"");
    EXPECT_EQ(GetShortPath(String()), u"");
}

TEST_F(ModMoxHubTest, GetShortPathTakesWhatFits) {
    // The path became longer between the two calls.
    bool isFirst = true;
    const auto swap = kernel32().GetShortPathNameA.replace([&](std::string_view, std::span<char> buffer) -> std::uint32_t {
        std::ranges::fill(buffer, 'x');
        return std::exchange(isFirst, false) ? 5 : 9;
    });
    EXPECT_EQ(GetShortPath(u"D:\\x"), u"xxxxx");
}

TEST_F(ModMoxHubTest, FileExistsIsWhatASearchFinds) {
    makeFile("folder/file.txt");
    struct {
        String path;
        Boolean result;
    } const cases[] = {
        {u"D:\\folder\\file.txt", True},  {u"d:/FOLDER/FILE.TXT", True}, {u"D:\\folder", True},    {u"D:\\*.*", True},
        {u"D:\\folder\\*.txt", True},     {u"D:\\folder\\*.doc", False}, {u"D:\\folder\\", False}, {u"D:\\", False},
        {u"D:\\missing", False},          {u"D:\\missing\\*.*", False},  {u"N:\\x", False},        {u"", False},
        {u"\\\\server\\share\\x", False}, {u"D:\\\u65E5\u672C", False},
    };
    for (const auto& [path, result] : cases) {
        EXPECT_EQ(FileExists(path), result) << path.utf8();
    }
    kernel32().FindFirstFileA.reset();
    FileExists(String());
    EXPECT_EQ(kernel32().FindFirstFileA.calls(), 0u) << "an empty text asks nobody";
}

TEST_F(ModMoxHubTest, FolderExistsTakesFoldersAndDrives) {
    makeFile("folder/file.txt");
    struct {
        String path;
        Boolean result;
    } const cases[] = {
        // One or two characters mean a drive.
        {u"c", True},
        {u"c:", True},
        {u"c:\\", True},
        {u"C", True},
        {u"D", True},
        {u"Dx", True},
        {u"N", False},
        {u"N:\\", False},
        {u"Q", False},
        {u"1", False},
        {u"\u212A", False}, // a sign whose lower case is "k"
        {u"D:\\folder", True},
        {u"D:\\folder\\", True},
        {u"  D:\\FOLDER ", True},
        {u" D ", True},
        {u"\tD:\\folder", False},
        {u"D:\\folder\\file.txt", False},
        {u"D:\\missing", False},
        {u"D:\\folder\\missing\\", False},
        {u"", False},
        {u"   ", False},
        {u"ab\\", False},
    };
    for (const auto& [path, result] : cases) {
        EXPECT_EQ(FolderExists(path), result) << path.utf8();
    }
}

TEST_F(ModMoxHubTest, FolderExistsTakesAnEmptyDriveIfItIsFormatted) {
    std::uint32_t type = 0;
    bool isFormatted = false;
    std::string asked;
    const auto noFile = kernel32().FindFirstFileA.replace([](std::string_view, WIN32_FIND_DATAA&) { return invalidHandle; });
    const auto typeOf = kernel32().GetDriveTypeA.replace([&](std::string_view root) {
        asked += root;
        return type;
    });
    const auto space = kernel32().GetDiskFreeSpaceA.replace(
        [&](std::string_view root, std::uint32_t&, std::uint32_t&, std::uint32_t&, std::uint32_t&) {
            asked += root;
            return isFormatted;
        });
    struct {
        std::uint32_t type;
        bool isFormatted;
        Boolean result;
    } const cases[] = {
        {DRIVE_UNKNOWN, true, False},
        {DRIVE_NO_ROOT_DIR, true, False},
        {DRIVE_REMOVABLE, true, True},
        {DRIVE_REMOVABLE, false, False},
        {DRIVE_CDROM, true, True},
        {DRIVE_RAMDISK, true, True},
        {7, true, False},
    };
    for (const auto& row : cases) {
        type = row.type;
        isFormatted = row.isFormatted;
        EXPECT_EQ(FolderExists(u"a:"), row.result) << row.type << ' ' << row.isFormatted;
    }
    type = DRIVE_FIXED;
    isFormatted = true;
    asked.clear();
    EXPECT_EQ(FolderExists(u"Xy"), True);
    EXPECT_EQ(asked, "X:\\X:\\");
    EXPECT_EQ(FolderExists(u"a:\\b"), False) << "only the root of a drive";
}

TEST_F(ModMoxHubTest, CreateFolderTreeMakesAllLevels) {
    makeFile("file");
    struct {
        String path;
        Boolean result;
        const char* folder;
    } const cases[] = {
        {u"D:\\a\\\\b\\", True, "a/b"},
        {u"D:\\A\\B", True, "a/b"},
        {u"D:\\a\\c d\\e", True, "a/c d/e"},
        {u"D:\\", True, "."},
        {u"D", True, "."},
        {u"D:", True, "."},
        // A level that cannot be made ends it; those before it stay.
        {u"D:\\x\\y?\\z", False, "x"},
        {u"D:\\k\\\u65E5\u672C", False, "k"},
        {u"D:\\file\\sub", False, "."},
        {u"N:\\a", False, "."},
        // No root.
        {u"relative\\folder", False, "."},
        {u"\\folder", False, "."},
        {u"D:folder", False, "."},
        {u"D:/folder", False, "."},
        {u"", False, "."},
        {u"\\\\", False, "."},
        {u"\\\\server", False, "."},
        {u"\\\\server\\share\\folder", False, "."},
    };
    for (const auto& [path, result, folder] : cases) {
        runtime().MkDir.reset();
        EXPECT_EQ(CreateFolderTree(path), result) << path.utf8();
        EXPECT_TRUE(std::filesystem::is_directory(disk() / folder)) << path.utf8();
    }
    EXPECT_FALSE(exists("relative"));
    EXPECT_FALSE(exists("folder"));
    EXPECT_FALSE(machine_->files.resolve("relative\\folder"));
    EXPECT_FALSE(machine_->files.resolve("folder\\x"));
}

TEST_F(ModMoxHubTest, CreateFolderTreeCountsTheShareAsALevel) {
    std::vector<std::string> made;
    const auto mkDir = runtime().MkDir.replace([&](std::string_view folder) {
        made.emplace_back(folder);
        return 0;
    });
    EXPECT_EQ(CreateFolderTree(u"\\\\server\\share\\folder"), False);
    EXPECT_EQ(made, (std::vector<std::string>{"\\\\server\\share", "\\\\server\\share\\folder"}));
}

/// The random numbers that the next names are made of, as the numbers that they are rounded to.
class GivenNumbers {
public:
    explicit GivenNumbers(std::deque<float> numbers) : numbers_(std::move(numbers)) {}

    std::size_t left() const { return numbers_.size(); }

private:
    float take() {
        const float number = numbers_.front();
        if (numbers_.size() > 1) {
            numbers_.pop_front();
        }
        return number / 65536;
    }

    std::deque<float> numbers_;
    decltype(runtime().Rnd.replace(nullptr)) swap_ = runtime().Rnd.replace([this] { return take(); });
};

TEST_F(ModMoxHubTest, CreateTempNameFormatsTheNumber) {
    struct {
        float number;
        const char16_t* text; // empty: too long, the next number is taken
    } const cases[] = {
        {0, u"0000"},
        {9, u"0009"},
        {0x10, u"0010"},
        {0x1234, u"1234"},
        {0xA, u"A"},
        {0xA1, u"A1"},
        {0x12A, u"12A"},
        {0xFFFF, u"FFFF"},
        // D and E as exponents.
        {0x1E0, u"0001"},
        {0x1E1, u"0010"},
        {0x5D2, u"0500"},
        {0x1E3, u"1000"},
        {0x1E4, u""},
        {0x12E4, u""},
        {0x12E2, u"1200"},
        {0x9E99, u""},
        {0x1E00, u"0001"},
        {0xE5, u"E5"},
        {0x1E, u"1E"},
        {0x1D, u"1D"},
        {0x1DE1, u"1DE1"},
        {0x1E1A, u"1E1A"},
        // To the nearest number, a tie to the even one.
        {0.5, u"0000"},
        {1.5, u"0002"},
        {2.5, u"0002"},
        {65535.5, u""},
    };
    for (const auto& [number, text] : cases) {
        const std::u16string expected = *text ? text : u"FACE";
        const GivenNumbers numbers({number, 0xFACE, 1});
        EXPECT_EQ(CreateTempName(u"p", u"s", u"D:\\", False), String(u"D:\\p" + expected + u".s")) << number;
        EXPECT_EQ(numbers.left(), *text ? 2u : 1u) << number;
    }
}

TEST_F(ModMoxHubTest, CreateTempNameTakesTheFolder) {
    makeFolder("folder");
    struct {
        String prefix;
        String suffix;
        String path;
        const char16_t* result;
    } const cases[] = {
        {u"~", u"tmp", u"D:\\folder", u"D:\\folder\\~CAFE.tmp"},
        {u"~", u"tmp", u"D:\\folder\\", u"D:\\folder\\~CAFE.tmp"},
        {u"", u"", u"D:\\folder", u"D:\\folder\\CAFE"},
        {u"pre fix", u"a.b", u"D", u"D:\\pre fixCAFE.a.b"},
        {u"~", u"tmp", u"D:", u"D:\\~CAFE.tmp"},
        {u"~", u"tmp", u"", u"C:\\Temp\\~CAFE.tmp"},
        {u"~", u"tmp", u"D:\\missing", u"C:\\Temp\\~CAFE.tmp"},
        {u"~", u"", u"  ", u"C:\\Temp\\~CAFE"},
    };
    for (const auto& [prefix, suffix, path, result] : cases) {
        const GivenNumbers numbers({0xCAFE});
        EXPECT_EQ(CreateTempName(prefix, suffix, path, False), result) << path.utf8();
    }
    EXPECT_TRUE(std::filesystem::is_empty(disk() / "folder"));
    EXPECT_TRUE(std::filesystem::is_empty(machine_->files.drives().at('C') / "Temp"));

    const GivenNumbers numbers({0xCAFE});
    kernel32().GetTempPathA.fail();
    EXPECT_EQ(CreateTempName(u"~", u"tmp", u"", False), u"c:\\~CAFE.tmp");
}

TEST_F(ModMoxHubTest, CreateTempNameLooksForAFreeName) {
    makeFile("~0001.tmp");
    makeFile("~ab.TMP");
    const GivenNumbers numbers({1, 0xAB, 0x12E4, 2, 3});
    EXPECT_EQ(CreateTempName(u"~", u"tmp", u"D", True), u"D:\\~0002.tmp");
    EXPECT_EQ(numbers.left(), 1u);
    EXPECT_EQ(CreateTempName(u"~", u"tmp", u"D", True), u"D:\\~0003.tmp");
    EXPECT_EQ(CreateTempName(u"~", u"tmp", u"D", True), String()) << "ends also when no name is free";
}

/// A path in the temporary folder with one to four characters between "~" and the end.
bool isTemporaryName(std::string_view path, std::string_view end) {
    constexpr std::string_view start = "C:\\Temp\\~";
    const std::size_t length = path.size() - start.size() - end.size();
    return path.starts_with(start) && path.ends_with(end) && length >= 1 && length <= 4;
}

TEST_F(ModMoxHubTest, CreateTempNameMakesTheFile) {
    const String name = CreateTempName(u"~", u"tmp", String(), True);
    EXPECT_TRUE(isTemporaryName(name.utf8(), ".tmp")) << name.utf8();
    const auto place = machine_->files.resolve(name.utf8());
    ASSERT_TRUE(place);
    EXPECT_EQ(std::filesystem::file_size(*place), 0u);
    EXPECT_EQ(kernel32().GetFileAttributesA(name.utf8()), FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_TEMPORARY);
    EXPECT_NE(CreateTempName(u"~", u"tmp", String(), True), name);
    EXPECT_EQ(CreateTempName(u"missing\\", u"", u"D", True), String()) << "the file cannot be made";
    EXPECT_TRUE(std::filesystem::is_empty(disk()));
}

TEST_F(ModMoxHubTest, GetExeOfFileReadsTheBuffer) {
    makeFile("long folder/program.exe");
    using namespace std::string_view_literals;
    struct {
        std::string_view buffer;
        Boolean isShort;
        String result;
    } const cases[] = {
        {"D:\\long folder\\program.exe\0 rest"sv, False, u"D:\\long folder\\program.exe"},
        {"D:\\long folder\\program.exe\0"sv, True, GetShortPath(u"D:\\long folder\\program.exe")},
        {"D:\\missing.exe\0"sv, False, u""},
        {"\0D:\\long folder\\program.exe\0"sv, False, u""},
        {"D:\\long folder\\program.exe"sv, False, u""},
        {""sv, False, u""},
    };
    for (const auto& [buffer, isShort, result] : cases) {
        const auto swap =
            shell32().FindExecutableA.replace([&](std::string_view file, std::string_view folder, std::span<char> place) {
                EXPECT_EQ(file, "D:\\doc\xE9.txt");
                EXPECT_EQ(folder, "");
                EXPECT_EQ(std::string(place.begin(), place.end()), std::string(256, ' '));
                std::ranges::copy(buffer, place.begin());
                return 0; // the answer does not count
            });
        EXPECT_EQ(GetExeOfFile(u"D:\\doc\u00E9.txt", isShort), result) << buffer;
    }
}

TEST_F(ModMoxHubTest, GetExeOfExtensionAsksWithATemporaryFile) {
    makeFile("program.exe");
    std::string asked;
    const auto swap = shell32().FindExecutableA.replace([&](std::string_view file, std::string_view, std::span<char> place) {
        asked = file;
        EXPECT_EQ(FileExists(String::fromUtf8(asked)), True);
        std::ranges::copy(std::string_view("D:\\program.exe\0", 15), place.begin());
        return 42;
    });
    EXPECT_EQ(GetExeOfExtension(u"html"), u"D:\\program.exe");
    EXPECT_TRUE(isTemporaryName(asked, ".html")) << asked;
    EXPECT_EQ(FileExists(String::fromUtf8(asked)), False) << "no file remains";

    runtime().Kill.fail();
    EXPECT_EQ(GetExeOfExtension(u"html"), u"D:\\program.exe") << "whatever becomes of the file";
    asked.clear();
    EXPECT_EQ(GetExeOfExtension(String()), String());
    EXPECT_EQ(asked, "");
}

TEST_F(ModMoxHubTest, GetDiskSpaceAsksTheShellFirst) {
    Double total = 1;
    Double used = 2;
    Double free = 3;
    Double available = 4;
    const auto counts = [&] { return std::vector<Double>{total, used, free, available}; };

    EXPECT_EQ(GetDiskSpace(u"D:\\missing", total, used, free, available), False);
    EXPECT_EQ(counts(), (std::vector<Double>{1, 2, 3, 4}));
    EXPECT_EQ(GetDiskSpace(u"D", total, used, free, available), True);
    EXPECT_GT(total, 1e6);

    std::string asked;
    {
        const auto shell = shell32().SHGetDiskFreeSpaceA.replace(
            [&](std::string_view folder, std::uint64_t& availableBytes, std::uint64_t& totalBytes, std::uint64_t& freeBytes) {
                asked = folder;
                availableBytes = 5'000'000'000'000;
                totalBytes = 9'000'000'000'000;
                freeBytes = 6'000'000'000'000;
                return true;
            });
        EXPECT_EQ(GetDiskSpace(u"D", total, used, free, available), True);
        EXPECT_EQ(asked, "D:");
        EXPECT_EQ(counts(), (std::vector<Double>{9e12, 4e12, 6e12, 5e12}));
    }
    shell32().SHGetDiskFreeSpaceA.fail();
    const auto kernel =
        kernel32().GetDiskFreeSpaceA.replace([&](std::string_view root, std::uint32_t& sectors, std::uint32_t& bytes,
                                                 std::uint32_t& freeClusters, std::uint32_t& clusters) {
            asked = root;
            sectors = 0x1'0000;
            bytes = 0x8000;
            freeClusters = 0xC000'0000;
            clusters = 0xFFFF'FFFF;
            return true;
        });
    available = 4;
    EXPECT_EQ(GetDiskSpace(u"D:\\folder", total, used, free, available), True);
    EXPECT_EQ(asked, "D:\\folder");
    const Double cluster = 0x1'0000 * Double{0x8000};
    EXPECT_EQ(counts(), (std::vector<Double>{0xFFFF'FFFF * cluster, 0x3FFF'FFFF * cluster, 0xC000'0000 * cluster, 4}))
        << "the available bytes stay as they were";
}

TEST_F(ModMoxHubTest, ObjectNumbersNameLivingObjects) {
    Ref<IDispatch> object = server::create<TRL_OBKR_MOX::_moxHub>();
    const Ref<IDispatch> other = server::create<TRL_OBKR_MOX::_moxHub>();
    const Long number = PtrFromObject(object);
    EXPECT_NE(number, 0);
    EXPECT_EQ(PtrFromObject(object), number);
    EXPECT_NE(PtrFromObject(other), number);
    EXPECT_EQ(ObjectFromPtr(number), object);
    EXPECT_EQ(ObjectFromPtr(PtrFromObject(other)), other);
    EXPECT_EQ(PtrFromObject(nullptr), 0);
    EXPECT_FALSE(ObjectFromPtr(0));
    EXPECT_FALSE(ObjectFromPtr(number + 1));
    object = nullptr;
    EXPECT_FALSE(ObjectFromPtr(number)) << "the number holds no reference";
}

} // namespace

} // namespace mox::test
