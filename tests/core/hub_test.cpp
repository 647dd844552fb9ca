// The frame: the tree of objects, its lifetime, the exports.
#include "support/invoke.h"
#include "support/testmachine.h"

#include "core/classes.h"

#include "platform/psapi.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>
#include <unistd.h>

namespace mox::test {

namespace {

class Hub : public testing::Test {
protected:
    TestMachine machine;
    moxHub hub{server::create<TRL_OBKR_MOX::_moxHub>()};

    Variant fact(MOX_EXTENSION_INFO info) { return hub.ExtensionInfo(info); }
};

TEST_F(Hub, ChildrenAreMadeOnceAndKept) {
    EXPECT_EQ(hub.Vars(), hub.Vars());
    EXPECT_EQ(hub.Controls(), hub.Controls());
    EXPECT_EQ(hub.Vars().vLong(), hub.Vars().vLong());
    EXPECT_EQ(invoke(hub.get(), u"vars").as<Ref<IDispatch>>().get(), hub.Vars().get());
    const moxHub other{server::create<TRL_OBKR_MOX::_moxHub>()};
    EXPECT_NE(hub.Vars(), other.Vars()) << "every hub has its own tree";
    EXPECT_NE(hub.Controls().CreateTimerObject(), hub.Controls().CreateTimerObject()) << "new at each call";
}

TEST_F(Hub, AChildOutlivesItsHub) {
    const moxVarLong child = hub.Vars().vLong();
    hub = nullptr;
    EXPECT_EQ(child.GetLoWord(65535), -1);
}

TEST_F(Hub, TheGlobalObjectHandsOutOneHub) {
    const moxHubGlobal global{server::create<TRL_OBKR_MOX::_moxHubGlobal>()};
    EXPECT_EQ(global.mox(), global.mox());
    EXPECT_EQ(global.mox().Vars(), global.mox().Vars());
    // The default member may be left out: identifier 0.
    DISPPARAMS nothing{};
    Variant result;
    ASSERT_EQ(global.get()->Invoke(DISPID_VALUE, GUID_NULL, 0, DISPATCH_PROPERTYGET, &nothing, result.out(), nullptr, nullptr),
              S_OK);
    EXPECT_EQ(result.pdispVal, global.mox().get());
}

TEST_F(Hub, ClassesWithoutCodeSayError445) {
    Failure failure;
    tryInvoke(hub.get(), u"Form", DISPATCH_PROPERTYGET, {}, failure);
    EXPECT_EQ(failure.status, DISP_E_EXCEPTION);
    EXPECT_EQ(failure.code, statusOfRuntimeError(445));
    EXPECT_EQ(failure.description, u"Object doesn't support this action");
    EXPECT_EQ(failure.source, u"TRL_OBKR_MOX.moxHub");
    EXPECT_EQ(errorOf([&] { hub.Form(); }), 445);
}

TEST_F(Hub, TellsFactsAboutItself) {
    EXPECT_EQ(fact(moxext_ProcessID).as<Long>(), getpid());
    EXPECT_EQ(fact(moxext_ThreadID).as<Long>(), gettid());
    for (const auto& [info, value] :
         {std::pair{moxext_VersionMajor, 8}, {moxext_VersionMinor, 10}, {moxext_VersionRevision, 100}}) {
        EXPECT_EQ(fact(info).vt, VT_I4);
        EXPECT_EQ(fact(info).as<Long>(), value);
    }
    EXPECT_EQ(fact(moxext_VersionString).as<String>(), u"8.10.0100");
    for (const int unknown : {5, -1, 26, 2147483647}) {
        const Variant result = fact(static_cast<MOX_EXTENSION_INFO>(unknown));
        EXPECT_EQ(result.vt, VT_BSTR) << unknown;
        EXPECT_EQ(result.as<String>(), u"") << unknown;
    }
    EXPECT_EQ(invoke(hub.get(), u"ExtensionInfo", Long{25}).as<String>(), u"8.10.0100");
}

TEST_F(Hub, NamesTheProgramThatUsesIt) {
    const std::string path = fact(moxext_UsedByApp).as<String>().utf8();
    EXPECT_TRUE(path.ends_with("\\core_test")) << path;
    EXPECT_EQ(path.substr(1, 2), ":\\") << path;

    struct Row {
        platform::OperationBase& failing;
        const char* name;
    };
    for (const Row& row : {Row{platform::kernel32().OpenProcess, "core_test"},
                           {platform::psapi().EnumProcessModules, "core_test"},
                           {platform::psapi().GetModuleFileNameExA, "core_test"},
                           {platform::kernel32().CreateToolhelp32Snapshot, ""},
                           {platform::kernel32().Process32First, ""}}) {
        row.failing.fail();
        EXPECT_EQ(fact(moxext_UsedByApp).as<String>().utf8(), row.name) << row.failing.fullName();
        row.failing.restore();
    }
    const auto unterminated = platform::kernel32().Process32First.replace([](auto, platform::PROCESSENTRY32& entry) {
        entry.th32ProcessID = platform::kernel32().GetCurrentProcessId();
        entry.szExeFile.assign(260, 'x');
        return true;
    });
    EXPECT_EQ(fact(moxext_UsedByApp).as<String>(), u"") << "a field without a final NUL counts as no name";
}

TEST_F(Hub, ShowsAnAboutBox) {
    std::string shown;
    const auto box = platform::user32().MessageBoxA.replace([&](auto, std::string_view text, auto, auto) {
        shown = text;
        return platform::IDOK;
    });
    hub.ShowAbout();
    EXPECT_NE(shown.find("8.10.0100"), std::string::npos) << shown;
    shown.clear();
    DISPPARAMS nothing{};
    EXPECT_EQ(hub.get()->Invoke(DISPID_ABOUTBOX, GUID_NULL, 0, DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr), S_OK);
    EXPECT_NE(shown, "");
}

TEST_F(Hub, WithNobodyToSeeTheAboutBoxReturnsAtOnce) {
    hub.ShowAbout();
    EXPECT_EQ(platform::user32().MessageBoxA.calls(), 1u);
}

TEST_F(Hub, IsBoundToItsThread) {
    const moxVarLong object = hub.Vars().vLong();
    Long result = 77;
    std::thread([&] {
        EXPECT_EQ(object.get()->raw_SwapEndian(1, &result), RPC_E_WRONG_THREAD);
        EXPECT_EQ(result, 0) << "the place is cleared even so";
        DISPPARAMS nothing{};
        EXPECT_EQ(hub.get()->Invoke(3, GUID_NULL, 0, DISPATCH_PROPERTYGET, &nothing, nullptr, nullptr, nullptr),
                  RPC_E_WRONG_THREAD);
        void* other = &result;
        EXPECT_EQ(object.get()->QueryInterface(IID_IDispatch, &other), RPC_E_WRONG_THREAD);
        EXPECT_EQ(other, nullptr);
        // References may come and go on any thread.
        Ref<IDispatch> copy = object.get();
        copy = nullptr;
    }).join();
    EXPECT_EQ(object.GetLoWord(65535), -1);
}

TEST_F(Hub, ThreadsHaveTreesOfTheirOwn) {
    Ref<TRL_OBKR_MOX::_moxVarLong> orphan;
    std::thread([&] {
        const moxHub own{server::create<TRL_OBKR_MOX::_moxHub>()};
        EXPECT_EQ(own.Vars().ConvertUnit(1.0, suINCH, suTWIP), 1440);
        orphan = own.Vars().vLong().get();
    }).join();
    Long result = 5;
    EXPECT_EQ(orphan->raw_SwapEndian(1, &result), RPC_E_WRONG_THREAD) << "its apartment is no more";
    orphan = nullptr; // and yet it ends here
}

TEST(HubDeathTest, TheEndOfTheProgramMayMakeObjects) {
    // What ends with the program comes after the end of its threads' variables, and makes an apartment again.
    EXPECT_EXIT(
        {
            std::atexit([] { static_cast<void>(server::create<TRL_OBKR_MOX::_moxHub>()); });
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace mox::test
