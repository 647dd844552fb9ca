// Every operation under the members that use the system fails in turn.
#include "support/faultsweep.h"
#include "support/invoke.h"

#include "automation/objects/runtimeerror.h"
#include "core/classes.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

#include <unistd.h>

namespace mox::test {

namespace {

moxHub newHub() {
    return moxHub{server::create<TRL_OBKR_MOX::_moxHub>()};
}

TEST(Faults, UsedByAppSaysWhatItHas) {
    sweepFaults([](FaultRun& run) {
        const String name = newHub().ExtensionInfo(moxext_UsedByApp).as<String>();
        const std::string text = name.utf8();
        if (run.faulted()) {
            EXPECT_TRUE(text.empty() || text.ends_with("core_test")) << text;
        } else {
            EXPECT_TRUE(text.ends_with("\\core_test")) << text;
        }
    });
}

TEST(Faults, OtherFactsAndTheAboutBox) {
    sweepFaults([](FaultRun& run) {
        const moxHub hub = newHub();
        const Long process = hub.ExtensionInfo(moxext_ProcessID).as<Long>();
        EXPECT_TRUE(process == getpid() || (run.faulted() && process == 0));
        const Long thread = hub.ExtensionInfo(moxext_ThreadID).as<Long>();
        EXPECT_TRUE(thread == gettid() || (run.faulted() && thread == 0));
        EXPECT_EQ(hub.ExtensionInfo(moxext_VersionString).as<String>(), u"8.10.0100");
        const Long error = errorOf([&] { hub.ShowAbout(); });
        EXPECT_TRUE(error == 0 || (run.faulted() && error == errOutOfMemory)) << error;
    });
}

TEST(Faults, UnitsOfTheScreen) {
    sweepFaults([](FaultRun& run) {
        const moxVars vars = newHub().Vars();
        const Double twips = vars.ConvertUnit(4, suPIXEL, suTWIP);
        EXPECT_TRUE(twips == 60 || (run.faulted() && (twips == 30 || twips == 0))) << twips;
        Double pixels = 0;
        const Long error = errorOf([&] { pixels = vars.ConvertUnit(60, suTWIP, suPIXEL); });
        EXPECT_TRUE(pixels == 4 || (run.faulted() && (pixels == 8 || error == 11))) << pixels << ", error " << error;
    });
}

TEST(Faults, TextsOfTheCodePage) {
    sweepFaults([](FaultRun& run) {
        const moxVars vars = newHub().Vars();
        const moxVarString text = vars.vString();
        // `failed`: the result of a member that traps the error; others raise it.
        const auto either = [&](const auto& right, const auto& failed, auto call) {
            const Long error = errorOf([&] {
                const auto result = call();
                EXPECT_TRUE(result == right || (run.faulted() && result == failed)) << testing::PrintToString(result);
            });
            EXPECT_TRUE(error == 0 || (run.faulted() && error == errOutOfMemory)) << error;
        };
        const String plain(u"\u00E4 b");
        either(String(u"%E4%20b"), plain, [&] { return text.URLEncode(plain); });
        either(plain, String(u"%E4+b"), [&] { return text.URLDecode(u"%E4+b"); });
        either(String(u"E42062"), String(), [&] { return text.Conv2HexString(plain); });
        either(plain, String(), [&] { return text.Conv2HexString(u"E42062", True); });
        either(Long{1716636003}, Long{0}, [&] { return text.StringChecksum(u"\u00E4b"); });
        Array<Byte> bytes{0xE4, 0x20, 0x62};
        either(plain, String(), [&] { return vars.vByte().ConvByteArr2String(bytes); });
    });
}

TEST(Faults, Timers) {
    sweepFaults([](FaultRun& run) {
        int events = 0;
        const moxTimer timer = newHub().Controls().CreateTimerObject();
        const Connection connection = timer.connect({.Timer = [&](Long, Long) { ++events; }});
        const bool started = static_cast<bool>(timer.StartTimer(20));
        EXPECT_TRUE(started || run.faulted());
        EXPECT_EQ(static_cast<bool>(timer.Running()), started);
        run.machine().advance(std::chrono::milliseconds(20));
        run.machine()->messageLoops.pump(std::chrono::milliseconds(0));
        EXPECT_EQ(events, started ? 1 : 0);
        EXPECT_EQ(static_cast<bool>(timer.StopTimer()), started);
        EXPECT_FALSE(timer.Running());
    });
}

} // namespace
} // namespace mox::test
