// Copying, moving, renaming and deleting files.
#include "filesystem_support.h"

#include "support/faultsweep.h"

#include "platform/shell32.h"

namespace mox::test {

namespace {

using namespace platform;

TEST_F(FileSystemTest, CopyAndMoveFindTheirTarget) {
    struct {
        String source;
        String target;
        Boolean overwrite;
        /// Where the contents are afterwards; empty for a failure, after which all is as it was.
        const char* found;
    } const cases[] = {
        {u"D:\\a.txt", u"D:\\new.txt", False, "new.txt"},
        {u"d:\\A.TXT", u"D:\\dir", False, "dir/A.TXT"},
        {u"D:\\a.txt", u"D:\\dir\\", False, "dir/a.txt"},
        {u"D:\\a.txt", u"D:/dir/x", False, "dir/x"},
        {u"D:\\a.txt", u"D:\\b.txt", False, ""},
        {u"D:\\a.txt", u"D:\\b.txt", True, "b.txt"},
        {u"D:\\a.txt", u"D:\\locked.txt", True, "locked.txt"},
        {u"D:\\a.txt", u"D:\\locked.txt", False, ""},
        {u"D:\\a.txt", u"D:\\a.txt", True, ""},
        {u"D:\\a.txt", u"D:\\A.txt", True, ""},
        {u"D:\\a.txt", u"D:\\missing\\x", False, ""},
        {u"D:\\a.txt", u"x.txt", False, ""}, // no folder
        {u"D:\\a.txt", u"", False, ""},
        {u"D:\\missing", u"D:\\x", False, ""},
        {u"", u"D:\\x", False, ""},
        {u"D:\\a.txt", String(u"D:\\" + std::u16string(300, u'n')), False, ""},
    };
    for (const auto& [source, target, overwrite, found] : cases) {
        for (const bool moves : {false, true}) {
            SCOPED_TRACE((moves ? "move " : "copy ") + source.utf8() + " -> " + target.utf8());
            std::filesystem::remove_all(on("dir"));
            for (const auto& entry : std::filesystem::directory_iterator(on(""))) {
                std::filesystem::remove_all(entry);
            }
            makeFolder("dir");
            makeFile("a.txt", "contents");
            makeFile("b.txt", "other");
            makeFile("locked.txt", "kept");
            ASSERT_EQ(file.SetAttributes(u"D:\\locked.txt", FA_READONLY), True);
            const Boolean result = moves ? file.Move(source, target, overwrite) : file.Copy(source, target, overwrite);
            const bool isDone = *found != '\0';
            EXPECT_EQ(result, Boolean(isDone));
            EXPECT_EQ(contents("a.txt"), moves && isDone ? "" : "contents");
            if (isDone) {
                EXPECT_EQ(contents(found), "contents");
            } else {
                EXPECT_EQ(contents("b.txt"), "other");
                EXPECT_EQ(contents("locked.txt"), "kept");
            }
        }
    }
}

TEST_F(FileSystemTest, RenameStaysInTheFolder) {
    struct {
        String newName;
        Boolean overwrite;
        const char* found;
    } const cases[] = {
        {u"y.txt", False, "a/y.txt"},
        {u"  y.txt ", False, "a/y.txt"},
        {u"D:\\a\\y.txt", False, "a/y.txt"},
        {u"D:\\b\\y.txt", False, ""},
        {u"d:\\A\\y.txt", False, ""}, // case counts
        {u"X.TXT", True, ""},         // the same name
        {u"taken.txt", False, ""},
        {u"taken.txt", True, "a/taken.txt"},
        {u"D:\\a\\", False, ""},
        {u"", False, ""},
        {u"bad|name", False, ""},
    };
    for (const auto& [newName, overwrite, found] : cases) {
        SCOPED_TRACE(newName.utf8());
        std::filesystem::remove_all(on("a"));
        makeFile("a/x.txt", "contents");
        makeFile("a/taken.txt", "other");
        makeFolder("b");
        const bool isDone = *found != '\0';
        EXPECT_EQ(file.Rename(u"D:\\a\\x.txt", newName, overwrite), Boolean(isDone));
        EXPECT_EQ(contents(isDone ? found : "a/x.txt"), "contents");
        EXPECT_EQ(exists("a/x.txt"), !isDone);
    }
    EXPECT_EQ(file.Rename(u"D:\\missing", u"y"), False);
}

TEST_F(FileSystemTest, DeleteRespectsWriteProtection) {
    makeFile("locked", "x");
    EXPECT_EQ(file.SetAttributes(u"D:\\locked", static_cast<MOX_FS_FILEATTRIBUTES>(FA_READONLY | FA_HIDDEN)), True);
    EXPECT_EQ(file.Delete(u"D:\\locked"), False);
    EXPECT_EQ(file.GetAttributes(u"D:\\locked"), FA_READONLY | FA_HIDDEN);
    EXPECT_EQ(file.Delete(u"D:\\locked", False, True), True);
    EXPECT_FALSE(exists("locked"));
    EXPECT_EQ(file.Delete(u"D:\\locked"), False) << "nothing there";
    // Nobody answers the question.
    makeFile("asked");
    EXPECT_EQ(file.Delete(u"D:\\asked", False, False, True), False);
    EXPECT_TRUE(exists("asked"));
}

TEST_F(FileSystemTest, DeleteTellsTheShellWhatIsWanted) {
    makeFile("x");
    SHFILEOPSTRUCTA asked;
    const auto swap = machine->shell32.SHFileOperationA.replace([&](SHFILEOPSTRUCTA& operation) {
        asked = operation;
        return 0;
    });
    struct {
        Boolean undo;
        Boolean confirm;
        std::uint16_t flags;
    } const cases[] = {{True, False, 0x454}, {False, False, 0x414}, {True, True, 0x446}, {False, True, 0x406}};
    for (const auto& [undo, confirm, flags] : cases) {
        EXPECT_EQ(file.Delete(u"D:\\x", undo, False, confirm), False) << "the file decides, not the answer";
        EXPECT_EQ(asked.wFunc, 3u);
        EXPECT_EQ(asked.fFlags, flags);
        EXPECT_EQ(asked.pFrom, std::string("D:\\x\0\0", 6));
    }
}

/// Runs a change of `C:\Temp\a` (and `b`, which may be in its way) under faults.
void sweepChange(const std::function<Boolean(const moxFSFile& file)>& change, bool leavesSource) {
    sweepFaults([&](FaultRun& run) {
        const std::filesystem::path temp = run.machine()->files.drives().at('C') / "Temp";
        if (!run.machine()->files.facts("C:\\Temp")) {
            ADD_FAILURE() << "no folder for temporary files";
            return;
        }
        std::ofstream(temp / "a") << "contents";
        std::ofstream(temp / "b") << "other";
        const moxFSFile file = moxFS{server::create<TRL_OBKR_MOX::_moxFS>()}.File();
        const Boolean result = change(file);
        const auto textOf = [&](const char* name) {
            std::ifstream stream(temp / name);
            return std::string(std::istreambuf_iterator<char>(stream), {});
        };
        if (result == True) {
            EXPECT_EQ(textOf("b"), "contents");
            EXPECT_EQ(textOf("a"), leavesSource ? "contents" : "");
        } else {
            EXPECT_TRUE(run.faulted());
            EXPECT_EQ(textOf("a"), "contents");
            EXPECT_TRUE(textOf("b") == "other" || !std::filesystem::exists(temp / "b")) << "half done";
        }
    });
}

TEST(FileSystemFaultsTest, CopyMoveAndRename) {
    sweepChange([](const moxFSFile& file) { return file.Copy(u"C:\\Temp\\a", u"C:\\Temp\\b", True); }, true);
    sweepChange([](const moxFSFile& file) { return file.Move(u"C:\\Temp\\a", u"C:\\Temp\\b", True); }, false);
    sweepChange([](const moxFSFile& file) { return file.Rename(u"C:\\Temp\\a", u"b", True); }, false);
}

TEST(FileSystemFaultsTest, DeleteOfAWriteProtectedFile) {
    sweepFaults([](FaultRun& run) {
        ASSERT_TRUE(run.machine()->files.facts("C:\\Temp").has_value());
        const std::filesystem::path place = run.machine()->files.drives().at('C') / "Temp/a";
        std::ofstream(place) << "contents";
        std::filesystem::permissions(place, std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);
        const moxFSFile file = moxFS{server::create<TRL_OBKR_MOX::_moxFS>()}.File();
        const Boolean result = file.Delete(u"C:\\Temp\\a", False, True);
        // A search that fails afterwards makes a file that is still there look gone.
        EXPECT_TRUE(result == True ? !std::filesystem::exists(place) || run.faulted() : run.faulted());
    });
}

} // namespace

} // namespace mox::test
