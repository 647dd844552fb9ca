#include "support/testmachine.h"

#include "automation/objects/apartment.h"
#include "host/machine/control.h"

#include <mox/values.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <string>

namespace mox::test {

namespace {

using namespace platform;
using nlohmann::json;

struct Answer {
    HRESULT status;
    /// The reply, or the text of the error object.
    std::string text;
};

Answer control(const std::string& request) {
    const String text = String::fromUtf8(request);
    String reply;
    const HRESULT status = MoxControl(text.get(), reply.out());
    Ref<IErrorInfo> error;
    String description;
    if (GetErrorInfo(0, error.out()) == S_OK) {
        error->GetDescription(description.out());
        EXPECT_TRUE(FAILED(status));
        EXPECT_TRUE(reply.empty());
        return {status, description.utf8()};
    }
    return {status, reply.utf8()};
}

/// The reply of a request that has to succeed.
json reply(const std::string& request) {
    const Answer answer = control(request);
    EXPECT_EQ(answer.status, S_OK) << answer.text;
    return json::parse(answer.text);
}

TEST(ControlTest, countsAndFailsOperations) {
    TestMachine machine;
    const auto operation = [](const std::string& rest) {
        return reply(R"({"do": "operation", "name": "runtime.ThreadID", )" + rest + "}");
    };
    runtime().ThreadID();
    EXPECT_EQ(operation(R"("action": "calls")"), (json{{"calls", 1}}));
    EXPECT_EQ(operation(R"("action": "reset")"), json::object());
    EXPECT_EQ(operation(R"("action": "calls")"), (json{{"calls", 0}}));
    EXPECT_EQ(operation(R"("action": "fail", "times": 1)"), json::object());
    EXPECT_EQ(runtime().ThreadID(), 0u);
    EXPECT_NE(runtime().ThreadID(), 0u);
    for (const char* forever : {"", R"(, "times": null)"}) {
        operation(std::string(R"("action": "fail")") + forever);
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(runtime().ThreadID(), 0u);
        }
        operation(R"("action": "restore")");
        EXPECT_NE(runtime().ThreadID(), 0u);
    }
    EXPECT_EQ(operation(R"("action": "calls")"), (json{{"calls", 14}}));
}

TEST(ControlTest, listsOperationsAndHandles) {
    TestMachine machine;
    runtime().Rnd();
    const json operations = reply(R"({"do": "operations"})").at("operations");
    EXPECT_EQ(operations.at("runtime.Rnd"), 1);
    EXPECT_EQ(operations.at("kernel32.CloseHandle"), 0);
    EXPECT_TRUE(operations.contains("psapi.EnumProcessModules") && operations.contains("user32.SetTimer") &&
                operations.contains("shell32.FindExecutableA"));

    EXPECT_EQ(reply(R"({"do": "handles"})"), (json{{"handles", json::object()}}));
    const Handle first = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    const Handle second = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    EXPECT_EQ(reply(R"({"do": "handles"})"), (json{{"handles", {{"snapshot", 2}}}}));
    EXPECT_TRUE(kernel32().CloseHandle(first) && kernel32().CloseHandle(second));
}

TEST(ControlTest, tellsWhatStandsBehindEachService) {
    host::MachineConfig config;
    config.codePage = 1253;
    TestMachine machine(config);
    const json answer = reply(R"({"do": "doctor"})");
    std::map<std::string, std::string> texts;
    for (const json& line : answer.at("services")) {
        texts[line.at("service")] = line.at("text");
    }
    for (const char* service : {"files", "text", "processes", "runtime", "desktop", "graphics", "fonts", "dialogs", "shell"}) {
        EXPECT_TRUE(texts.contains(service)) << service;
        EXPECT_EQ(texts[service].find('\n'), std::string::npos);
    }
    EXPECT_NE(texts["files"].find(machine.home().string()), std::string::npos);
    EXPECT_NE(texts["text"].find("1253"), std::string::npos);
    EXPECT_NE(texts["runtime"].find("6.1.7601 Service Pack 1"), std::string::npos);
}

TEST(ControlTest, saysWhatIsWrongWithARequest) {
    TestMachine machine;
    const std::pair<const char*, const char*> cases[] = {
        {"", "the request is no JSON object"},
        {"{", "the request is no JSON object"},
        {"[]", "the request is no JSON object"},
        {"{}", "the request has no member \"do\" that names it"},
        {R"({"do": 1})", "the request has no member \"do\" that names it"},
        {R"({"do": "dance"})", "unknown request: dance"},
        {R"({"do": "handles", "all": true})", "unknown member: all"},
        {R"({"do": "operation"})", "the request has no string \"name\""},
        {R"({"do": "operation", "name": "runtime.Rnd"})", "the request has no string \"action\""},
        {R"({"do": "operation", "name": "runtime.Rand", "action": "calls"})", "unknown operation: runtime.Rand"},
        {R"({"do": "operation", "name": "runtime.Rnd", "action": "Calls"})", "unknown action: Calls"},
        {R"({"do": "operation", "name": "runtime.Rnd", "action": "fail", "times": -1})", "times: not a whole number"},
        {R"({"do": "operation", "name": "runtime.Rnd", "action": "fail", "times": "1"})", "times: not a whole number"},
        {R"({"do": "operation", "name": "runtime.Rnd", "action": "fail", "time": 1})", "unknown member: time"},
        {R"({"do": "machine", "fact": {}})", "unknown member: fact"},
        {R"({"do": "machine", "facts": {"home": 7}})", "fact home: not a string"},
    };
    for (const auto& [request, expected] : cases) {
        const Answer answer = control(request);
        EXPECT_EQ(answer.status, E_INVALIDARG) << request;
        EXPECT_EQ(answer.text, expected);
    }
    EXPECT_EQ(machine->runtime.Rnd.calls(), 0u);
    runtime().Rnd();
    EXPECT_EQ(MoxControl(nullptr, nullptr), E_POINTER);
    String answer;
    EXPECT_EQ(MoxControl(nullptr, answer.out()), E_INVALIDARG);
    SetErrorInfo(0, nullptr);
}

TEST(ControlTest, leavesNoErrorObjectOfAnEarlierCall) {
    TestMachine machine;
    String text(u"[]");
    String answer;
    EXPECT_EQ(MoxControl(text.get(), answer.out()), E_INVALIDARG);
    text = String(u"{\"do\": \"handles\"}");
    EXPECT_EQ(MoxControl(text.get(), answer.out()), S_OK);
    Ref<IErrorInfo> error;
    EXPECT_EQ(GetErrorInfo(0, error.out()), S_FALSE);
}

TEST(ControlTest, refusesToConfigureAMachineThatIsInUse) {
    TestMachine machine;
    const Answer answer = control(R"({"do": "machine", "facts": {"codepage": 1251}})");
    EXPECT_EQ(answer.status, E_FAIL);
    EXPECT_EQ(answer.text, "the machine is in use already; it has to be configured before");
}

/// Each runs in a process of its own, which has no machine yet.
struct FirstUseTest : testing::Test {
    FirstUseTest() {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        setenv("TMPDIR", folder.path().c_str(), 1);
        setenv("MOX_HOME", (folder.path() / "home").c_str(), 1);
    }
    ~FirstUseTest() override {
        unsetenv("TMPDIR");
        unsetenv("MOX_HOME");
    }
    /// Prints an answer where the death test looks for it.
    static void print(const std::string& request) {
        const Answer answer = control(request);
        std::fprintf(stderr, "%d %s\n", static_cast<int>(answer.status), answer.text.c_str());
    }
    static constexpr const char* prefix = "mox-first-use-";
    host::TemporaryFolder folder{prefix}; // the process of the test has another one inside of it
};
using FirstUseDeathTest = FirstUseTest;

TEST_F(FirstUseDeathTest, makesTheMachineOfTheFacts) {
    EXPECT_EXIT(
        {
            print(R"({"do": "machine", "facts": {"codepage": 1250}})");
            print(R"({"do": "machine", "facts": {"memory": true, "codepage": 1251, "windows": [5]}})");
            const host::Machine& machine = host::Machine::current();
            std::fprintf(stderr, "%u %u %d\n", machine.codePage.number(), machine.config().windows.major, machine.isTemporary());
            print(R"({"do": "machine", "facts": {"codepage": 1253}})");
            std::exit(0);
        },
        testing::ExitedWithCode(0), "0 \\{\\}\n0 \\{\\}\n1251 5 1\n-2147467259 the machine is in use already");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
        EXPECT_TRUE(entry.path().filename().string().starts_with(prefix)) << "left over: " << entry.path();
    }
}

TEST_F(FirstUseDeathTest, makesTheMachineOfTheEnvironment) {
    EXPECT_EXIT(
        {
            std::fprintf(stderr, "%s\n", host::Machine::current().config().home.c_str());
            std::exit(0);
        },
        testing::ExitedWithCode(0), "/mox-first-use-.*/home");
}

TEST_F(FirstUseDeathTest, staysForObjectsThatEndAfterAllElse) {
    struct Late {
        ~Late() { std::fprintf(stderr, "late %d\n", kernel32().GetTickCount() != 0); }
    };
    EXPECT_EXIT(
        {
            static const Late late; // before the machine, so it ends after what the machine's file has at the end
            kernel32().GetTickCount();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "late 1");
}

TEST(PumpTest, runsTheLoopOfTheThreadForItsTime) {
    TestMachine machine;
    const std::uint32_t start = kernel32().GetTickCount();
    int runs = 0;
    const std::uint32_t timer = user32().SetTimer(0, 0, 10, [&](std::uint32_t, std::uint32_t) { ++runs; });
    EXPECT_EQ(MoxPump(35), S_OK);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(kernel32().GetTickCount() - start, 35u);
    EXPECT_TRUE(user32().KillTimer(0, timer));
}

TEST(PumpTest, reportsWhatAProcedureThrows) {
    TestMachine machine;
    user32().SetTimer(0, 0, 10, [](std::uint32_t, std::uint32_t) { throw std::runtime_error("from the procedure"); });
    EXPECT_EQ(MoxPump(10), E_FAIL);
    Ref<IErrorInfo> error;
    String description;
    ASSERT_EQ(GetErrorInfo(0, error.out()), S_OK);
    error->GetDescription(description.out());
    EXPECT_EQ(description, u"from the procedure");
}

} // namespace

} // namespace mox::test
