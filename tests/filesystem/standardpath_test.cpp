// The standard folders and their stand-ins.
#include "filesystem_support.h"

#include "support/faultsweep.h"

#include "platform/kernel32.h"
#include "platform/psapi.h"

namespace mox::test {

namespace {

constexpr MOX_FS_STDPATH allPaths[] = {Application,     Windows,         WinSystem,      Temp,        Fonts,       CommonAppData,
                                       CommonTemplates, CommonDocuments, CommonPictures, CommonMusic, CommonVideo, UserAppData,
                                       UserTemplates,   UserDocuments,   UserPictures,   UserMusic,   UserVideo};

constexpr char16_t shellFoldersKey[] = u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

class StandardPathTest : public FileSystemTest {
protected:
    void setShellFolder(REG_ROOTKEY root, const char16_t* name, const String& path) const {
        const moxRegistry registry{server::create<TRL_OBKR_MOX::_moxRegistry>()};
        ASSERT_EQ(registry.extSetKeyValueString(root, shellFoldersKey, name, path), True);
    }
};

TEST_F(StandardPathTest, EveryStandardFolderExists) {
    for (const MOX_FS_STDPATH id : allPaths) {
        const String path = fs.GetStandardPath(id);
        EXPECT_TRUE(path.view().ends_with(u'\\') && !path.view().ends_with(u"\\\\")) << id << " " << path.utf8();
        EXPECT_EQ(folder.Exists(path), True) << id << " " << path.utf8();
        EXPECT_EQ(std::u16string(fs.GetStandardPath(id, False)) + u"\\", std::u16string(path)) << id;
    }
    EXPECT_EQ(fs.GetStandardPath(Windows, False), u"C:\\Windows");
    EXPECT_EQ(fs.GetStandardPath(Temp), u"C:\\Temp\\");
    for (const int none : {-1, 5, 13, 20, 30, 1000}) {
        EXPECT_EQ(fs.GetStandardPath(static_cast<MOX_FS_STDPATH>(none)), u"") << none;
    }
}

TEST_F(StandardPathTest, TheRegistryNamesThem) {
    makeFolder("my docs");
    makeFolder("all");
    setShellFolder(HKEY_CURRENT_USER, u"Personal", u"D:\\my docs");
    setShellFolder(HKEY_LOCAL_MACHINE, u"Common Documents", u"D:\\all\\");
    EXPECT_EQ(fs.GetStandardPath(UserDocuments), u"D:\\my docs\\");
    EXPECT_EQ(fs.GetStandardPath(CommonDocuments), u"D:\\all\\");
    // A folder that does not exist, or no text: the next one serves.
    setShellFolder(HKEY_CURRENT_USER, u"My Music", u"D:\\missing");
    setShellFolder(HKEY_LOCAL_MACHINE, u"CommonVideo", u"");
    EXPECT_EQ(fs.GetStandardPath(UserMusic), u"D:\\my docs\\");
    EXPECT_EQ(fs.GetStandardPath(CommonVideo), u"D:\\all\\");
    setShellFolder(HKEY_CURRENT_USER, u"Personal", u"D:\\missing");
    setShellFolder(HKEY_LOCAL_MACHINE, u"Common Documents", u"");
    EXPECT_EQ(fs.GetStandardPath(UserDocuments), u"C:\\");
    EXPECT_EQ(fs.GetStandardPath(UserMusic, False), u"C:");
    EXPECT_EQ(fs.GetStandardPath(CommonVideo), u"C:\\");
    setShellFolder(HKEY_CURRENT_USER, u"Fonts", u"");
    EXPECT_EQ(fs.GetStandardPath(Fonts), u"C:\\Windows\\");
}

TEST_F(StandardPathTest, TheFolderOfTheProgramIsKept) {
    const auto named = [&](const char* path) {
        return machine->psapi.GetModuleFileNameExA.replace([path](platform::Handle, platform::Handle, std::span<char> buffer) {
            const std::string_view text = path;
            *std::ranges::copy(text, buffer.begin()).out = '\0';
            return static_cast<std::uint32_t>(text.size());
        });
    };
    {
        const auto swap = named("D:\\programs\\app.exe");
        EXPECT_EQ(fs.GetStandardPath(Application, False), u"D:\\programs");
    }
    EXPECT_EQ(fs.GetStandardPath(Application), u"D:\\programs\\");
    {
        const moxFS another{server::create<TRL_OBKR_MOX::_moxFS>()};
        const auto swap = named("app.exe");
        EXPECT_EQ(another.GetStandardPath(Application), u"app.exe") << "no folder in the answer";
    }
    // Nothing is known of the program: the folder of the library.
    machine->kernel32.CreateToolhelp32Snapshot.fail();
    const moxFS unknown{server::create<TRL_OBKR_MOX::_moxFS>()};
    const String path = unknown.GetStandardPath(Application);
    EXPECT_TRUE(path.view().ends_with(u"\\") && folder.Exists(path)) << path.utf8();
}

TEST(FileSystemFaultsTest, StandardPaths) {
    sweepFaults([](FaultRun& run) {
        const moxFS fs{server::create<TRL_OBKR_MOX::_moxFS>()};
        for (const MOX_FS_STDPATH id : {Windows, Temp, UserMusic, CommonVideo}) {
            const String path = fs.GetStandardPath(id);
            EXPECT_TRUE(path.view().ends_with(u"\\") || (run.faulted() && path.empty())) << id << path.utf8();
        }
    });
}

} // namespace

} // namespace mox::test
