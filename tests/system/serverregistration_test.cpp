// Servers of others that register themselves.
#include "support/faultsweep.h"
#include "support/testservers.h"
#include "system/system_support.h"

#include <chrono>
#include <cstdlib>
#include <fstream>

namespace mox::test {

namespace {

class Servers : public RegistryTest {
protected:
    Servers() { unsetenv("MOX_TEST_MARK"); }

    String drivePath(const std::filesystem::path& path) { return String::fromUtf8(machine->files.toDrivePath(path)); }
    static std::string mark() {
        const char* const value = std::getenv("MOX_TEST_MARK");
        return value ? value : "";
    }
};

TEST_F(Servers, RegisterThemselves) {
    const String server = drivePath(registeringServer);
    expectBoth<&moxRegistry::RegisterOCX>(registry, u"RegisterOCX", True, server, Long{5000});
    EXPECT_EQ(mark(), "registered");
    expectBoth<&moxRegistry::UnRegisterOCX>(registry, u"UnRegisterOCX", True, server, Long{5000});
    EXPECT_EQ(mark(), "unregistered");
    EXPECT_EQ(registry.RegisterOCX(server), True);
    EXPECT_EQ(invoke(registry.get(), u"UnRegisterOCX", server).as<Boolean>(), True);
    EXPECT_EQ(mark(), "unregistered");
}

TEST_F(Servers, ThatCannotRegisterSayFalse) {
    std::ofstream(machine.folder() / "text.dll") << "no library";
    for (const String& file : {drivePath(plainServer), drivePath(machine.folder() / "text.dll"), String(u"C:\\missing.dll"),
                               String(), drivePath(machine.folder())}) {
        expectBoth<&moxRegistry::RegisterOCX>(registry, u"RegisterOCX", False, file, Long{5000});
        expectBoth<&moxRegistry::UnRegisterOCX>(registry, u"UnRegisterOCX", False, file, Long{5000});
    }
    EXPECT_EQ(registry.UnRegisterOCX(drivePath(hangingServer)), False) << "it has the other routine only";
}

TEST_F(Servers, ThatHangDoNotHoldTheCaller) {
    using namespace std::chrono;
    for (const Long timeout : {50, 150}) {
        HangingServer server;
        const auto begin = steady_clock::now();
        EXPECT_EQ(registry.RegisterOCX(drivePath(hangingServer), timeout), False);
        const auto taken = duration_cast<milliseconds>(steady_clock::now() - begin).count();
        EXPECT_GE(taken, std::max<Long>(timeout, 100));
        EXPECT_LT(taken, 5000);
        EXPECT_TRUE(server.isLoaded()) << "its routine still runs";
        server.letGo();
        EXPECT_FALSE(server.isLoaded());
    }
}

TEST_F(Servers, AreWaitedForWithinBounds) {
    struct Row {
        Long timeout;
        std::uint32_t waited;
    };
    const Row rows[] = {{-1, 100},  {0, 100},       {50, 100},      {100, 100},
                        {101, 101}, {30000, 30000}, {30001, 30000}, {0x7FFFFFFF, 30000}};
    std::uint32_t waited = 0;
    const auto replacement = machine->kernel32.WaitForSingleObject.replace([&](platform::Handle, std::uint32_t milliseconds) {
        waited = milliseconds;
        return platform::WAIT_OBJECT_0;
    });
    for (const auto& [timeout, expected] : rows) {
        EXPECT_EQ(registry.RegisterOCX(drivePath(registeringServer), timeout), True);
        EXPECT_EQ(waited, expected);
    }
}

TEST(ServersUnderFaults, EveryFaultMeansFalse) {
    sweepFaults([](FaultRun& run) {
        const moxRegistry object{server::create<TRL_OBKR_MOX::_moxRegistry>()};
        const String server = String::fromUtf8(run.machine()->files.toDrivePath(registeringServer));
        const Boolean result = object.RegisterOCX(server, 5000);
        EXPECT_TRUE(bool(result) || run.faulted());
    });
}

TEST_F(Servers, ThatAreProgramsAreStarted) {
    Report report(machine.folder());
    const String program = drivePath(reporterProgram);
    EXPECT_EQ(registry.RegisterOleServer(program), True);
    EXPECT_TRUE(report.read().starts_with("/regserver\nprocess "));
    EXPECT_EQ(invoke(registry.get(), u"RegisterOleServer", program).as<Boolean>(), True);
    EXPECT_TRUE(report.read().starts_with("/regserver\nprocess "));
    EXPECT_EQ(registry.UnRegisterOleServer(program), True);
    EXPECT_TRUE(report.read().starts_with("/unregserver\nprocess "));
    EXPECT_EQ(invoke(registry.get(), u"UnRegisterOleServer", program).as<Boolean>(), True);
    EXPECT_TRUE(report.read().starts_with("/unregserver\nprocess "));
}

TEST_F(Servers, ThatAreProgramsMayNotStart) {
    expectBoth<&moxRegistry::RegisterOleServer>(registry, u"RegisterOleServer", False, String(u"C:\\missing.exe"));
    expectBoth<&moxRegistry::UnRegisterOleServer>(registry, u"UnRegisterOleServer", False, String());
    std::ofstream(machine.folder() / "text.exe") << "no program";
    const String text = drivePath(machine.folder() / "text.exe");
    EXPECT_EQ(errorOf([&] { registry.RegisterOleServer(text); }), 5);
    EXPECT_EQ(errorOf([&] { invoke(registry.get(), u"UnRegisterOleServer", text); }), 5);
    EXPECT_EQ(errorOf([&] { registry.RegisterOleServer(drivePath(machine.folder())); }), 53) << "a folder counts as a file";
    const auto replacement = machine->runtime.Shell.replace([](std::string_view commandLine, std::int32_t style, double& task) {
        EXPECT_TRUE(commandLine.starts_with('"') && commandLine.ends_with("text.exe\" /regserver")) << commandLine;
        EXPECT_EQ(style, 2);
        task = 0;
        return 0;
    });
    EXPECT_EQ(registry.RegisterOleServer(text), False) << "no task";
}

} // namespace

} // namespace mox::test
