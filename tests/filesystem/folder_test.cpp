// Folders: making, copying, moving, renaming, deleting, contents.
#include "filesystem_support.h"

#include "support/faultsweep.h"

#include "platform/gdi32.h"
#include "platform/kernel32.h"
#include "platform/shell32.h"

#include <functional>

namespace mox::test {

namespace {

using namespace platform;

TEST_F(FileSystemTest, CreateMakesAllLevels) {
    struct {
        String path;
        Boolean result;
        const char* made;
    } const cases[] = {
        {u"D:\\a\\\\b\\", True, "a/b"},
        {u"D:\\a\\b\\c d", True, "a/b/c d"},
        {u"D:\\", True, ""},
        {u"relative\\path", False, ""},
        {u"", False, ""},
        {u"D:\\file\\below", False, ""},
        {u"D:\\ok\\bad|name", False, "ok"},
        {u"\\\\server\\share\\x", False, ""},
    };
    makeFile("file");
    for (const auto& [path, result, made] : cases) {
        EXPECT_EQ(folder.Create(path), result) << path.utf8();
        EXPECT_TRUE(exists(made)) << path.utf8();
    }
    machine->runtime.MkDir.reset();
    EXPECT_EQ(folder.Create(u"D:\\a"), True);
    EXPECT_EQ(machine->runtime.MkDir.calls(), 0u);
}

TEST_F(FileSystemTest, CopyAndMoveTakeWholeFolders) {
    makeFile("tree/sub/file.txt", "contents");
    EXPECT_EQ(folder.Copy(u"D:\\tree\\", u"D:\\deep\\copy"), True);
    EXPECT_EQ(contents("deep/copy/sub/file.txt"), "contents");
    EXPECT_EQ(contents("tree/sub/file.txt"), "contents");
    EXPECT_EQ(folder.Move(u"D:\\tree", u"D:\\moved\\"), True);
    EXPECT_EQ(contents("moved/sub/file.txt"), "contents");
    EXPECT_FALSE(exists("tree"));
    EXPECT_EQ(folder.Copy(u"D:\\missing", u"D:\\x"), False);
    EXPECT_EQ(folder.Copy(u"D:\\moved", u""), False);
    EXPECT_EQ(folder.Move(u"D:\\moved", u"D:\\moved\\sub\\below"), False) << "into itself";
    EXPECT_EQ(contents("moved/sub/file.txt"), "contents");
}

TEST_F(FileSystemTest, RenameTakesAWholePath) {
    makeFile("a/file");
    makeFolder("taken");
    struct {
        String path;
        String newPath;
        Boolean result;
    } const cases[] = {
        {u"D:\\a", u"D:\\taken", False}, {u"D:\\a", u"D:\\a\\", False},     {u"D:\\a", u"", False},
        {u"", u"D:\\x", False},          {u"D:\\missing", u"D:\\x", False}, {u"D:\\a\\", u"D:\\b", True},
    };
    for (const auto& [path, newPath, result] : cases) {
        EXPECT_EQ(folder.Rename(path, newPath), result) << path.utf8() << " " << newPath.utf8();
    }
    EXPECT_TRUE(exists("b/file") && exists("taken") && !exists("a"));
}

TEST_F(FileSystemTest, DeleteTakesTheFolderOrItsContents) {
    makeFile("a/sub/file");
    makeFile("a/.hidden");
    EXPECT_EQ(folder.Delete(u"D:\\a", True, False), True);
    EXPECT_TRUE(exists("a") && std::filesystem::is_empty(on("a")));
    makeFile("a/sub/file");
    EXPECT_EQ(folder.Delete(u"D:\\a", False, False, True), False) << "nobody answers the question";
    EXPECT_TRUE(exists("a/sub/file"));
    EXPECT_EQ(folder.Delete(u"D:\\a\\", False, False), True);
    EXPECT_FALSE(exists("a"));
    EXPECT_EQ(folder.Delete(u"D:\\a"), False);
}

TEST_F(FileSystemTest, FolderOperationsTellTheShellWhatIsWanted) {
    makeFolder("x");
    SHFILEOPSTRUCTA asked;
    std::int32_t answer = 0;
    const auto swap = machine->shell32.SHFileOperationA.replace([&](SHFILEOPSTRUCTA& operation) {
        asked = operation;
        return answer;
    });
    const auto list = [](std::string_view path) { return std::string(path) + std::string(2, '\0'); };
    struct {
        Boolean undo, confirm, progress;
        std::uint16_t flags;
    } const transfers[] = {
        {True, False, False, 0x455}, {False, False, False, 0x415}, {False, True, True, 0x403}, {True, True, False, 0x447}};
    for (const auto& [undo, confirm, progress, flags] : transfers) {
        EXPECT_EQ(folder.Copy(u"D:\\x\\", u"D:\\y", undo, confirm, progress), True);
        EXPECT_EQ(asked.wFunc, FO_COPY);
        EXPECT_EQ(asked.fFlags, flags);
        EXPECT_EQ(folder.Move(u"D:\\x", u"D:\\y\\", undo, confirm, progress), True);
        EXPECT_EQ(asked.wFunc, FO_MOVE);
        EXPECT_EQ(asked.fFlags, flags);
        EXPECT_EQ(asked.pFrom, list("D:\\x"));
        EXPECT_EQ(asked.pTo, list("D:\\y"));
    }
    EXPECT_EQ(folder.Delete(u"D:\\x", True, True, True), True);
    EXPECT_EQ(asked.wFunc, FO_DELETE);
    EXPECT_EQ(asked.fFlags, 0x446);
    EXPECT_EQ(asked.pFrom, list("D:\\x\\*"));
    EXPECT_EQ(folder.Delete(u"D:\\x", False, False, False), True);
    EXPECT_EQ(asked.fFlags, 0x414);
    EXPECT_EQ(folder.Rename(u"D:\\x", u"D:\\y", False), True);
    EXPECT_EQ(asked.wFunc, FO_RENAME);
    EXPECT_EQ(asked.fFlags, 0x614);
    EXPECT_EQ(folder.Rename(u"D:\\x", u"D:\\y"), True);
    EXPECT_EQ(asked.fFlags, 0x654);
    answer = 5;
    EXPECT_EQ(folder.Delete(u"D:\\x"), False) << "the answer decides";
}

TEST_F(FileSystemTest, FoldersHaveFilesAndFolders) {
    makeFolder("empty");
    makeFolder("dotted/.hidden");
    makeFolder("folders/sub");
    makeFile("files/x");
    makeFile("secret/x");
    EXPECT_EQ(file.SetAttributes(u"D:\\secret\\x", FA_HIDDEN), True);
    makeFolder("system/sub");
    EXPECT_EQ(folder.SetAttributes(u"D:\\system\\sub", FA_SYSTEM), True);
    struct {
        String path;
        Boolean ignoreHidden, ignoreSystem;
        Boolean files, folders;
    } const cases[] = {
        {u"D:\\empty", True, True, False, False},     {u"D:\\dotted", False, False, False, False},
        {u"D:\\folders\\", True, True, False, True},  {u"D:\\files", True, True, True, False},
        {u"D:\\secret", True, True, False, False},    {u"D:\\secret", False, True, True, False},
        {u"D:\\system", True, True, False, False},    {u"D:\\system", True, False, False, True},
        {u"D:\\missing", False, False, False, False}, {u"", False, False, False, False},
    };
    for (const auto& [path, ignoreHidden, ignoreSystem, files, folders] : cases) {
        EXPECT_EQ(folder.HasFiles(path, ignoreHidden, ignoreSystem), files) << path.utf8();
        EXPECT_EQ(folder.HasSubFolder(path, ignoreHidden, ignoreSystem), folders) << path.utf8();
    }
}

TEST_F(FileSystemTest, FoldersTellTheirSpace) {
    const MOX_FS_SPACEINFO space = folder.GetSpace(u"D:\\");
    EXPECT_GT(space.TotalBytes, 0);
    EXPECT_EQ(space.UsedBytes, space.TotalBytes - space.AvailableBytes);
    EXPECT_EQ(folder.GetSpace(u"Q:\\"), MOX_FS_SPACEINFO{});
    EXPECT_EQ(folder.Exists(u"D"), True);
    EXPECT_EQ(folder.Exists(u"Q:\\"), False);
}

TEST(FileSystemFaultsTest, GetDiskSpace) {
    sweepFaults([](FaultRun& run) {
        const moxFSFolder folder = moxFS{server::create<TRL_OBKR_MOX::_moxFS>()}.Folder();
        const MOX_FS_SPACEINFO space = folder.GetSpace(u"C:\\");
        EXPECT_TRUE(space.TotalBytes > 0 || run.faulted());
        EXPECT_GE(space.TotalBytes, space.UsedBytes);
    });
}

/// Draws the icon of something into a new buffer. The pixels of the buffer that are not white any more.
Long iconPixels(FaultRun& run, const std::function<Boolean(Long hdc)>& draw, bool& isDrawn) {
    const moxOffscreenBuffer buffer{server::create<TRL_OBKR_MOX::_moxOffscreenBuffer>()};
    buffer.Init(32, 32);
    isDrawn = static_cast<bool>(draw(buffer.hDC()));
    // Not by operations, of which a sweep fails each in turn.
    const auto context = run.machine()->graphics.context(buffer.hDC());
    Long count = 0;
    for (Long place = 0; context && place < 32 * 32; ++place) {
        count += context->canvas().pixel({place % 32, place / 32}) != 0xFFFFFF;
    }
    return count;
}

TEST(FileSystemFaultsTest, DrawIcon) {
    sweepFaults([](FaultRun& run) {
        const moxFS fs{server::create<TRL_OBKR_MOX::_moxFS>()};
        bool isDrawn = false;
        bool isFound = true;
        const Long large = iconPixels(
            run, [&](Long hdc) { return fs.Folder().DrawIcon(u"C", hdc, 0, 0, ICON_32, ICONSTATE_NORMAL); }, isDrawn);
        const Long little = iconPixels(
            run, [&](Long hdc) { return fs.File().DrawIcon(u"C:\\Windows", hdc, 4, 4, ICON_16, ICONSTATE_OPEN_SELECTED); },
            isDrawn);
        const Long none = iconPixels(
            run, [&](Long hdc) { return fs.File().DrawIcon(u"C:\\no such file", hdc, 0, 0, ICON_16, ICONSTATE_FOCUS); }, isFound);
        EXPECT_FALSE(isFound);
        if (!run.faulted()) {
            EXPECT_EQ(none, 0);
            EXPECT_TRUE(isDrawn);
            EXPECT_GT(large, 200);
            EXPECT_GT(little, 60);
            EXPECT_LE(little, 16 * 16);
        }
    });
}

} // namespace

} // namespace mox::test
