#include "support/testmachine.h"

#include "host/runtime/randomnumbers.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

namespace mox::test {

namespace {

using namespace platform;
using host::Machine;
using host::MachineConfig;

TEST(MachineTest, servesEveryOperation) {
    TestMachine machine;
    for (const SystemLibrary* library : machine->libraries()) {
        EXPECT_FALSE(library->operations().empty()) << library->name();
        for (const OperationBase* operation : library->operations()) {
            EXPECT_TRUE(operation->isServed()) << operation->fullName();
        }
    }
}

TEST(MachineTest, findsOperationsByName) {
    TestMachine machine;
    EXPECT_EQ(machine->findOperation("kernel32.FindFirstFileA"), &machine->kernel32.FindFirstFileA);
    EXPECT_EQ(machine->findOperation("RUNTIME.rnd"), &machine->runtime.Rnd);
    for (const char* name :
         {"", "FindFirstFileA", "kernel32.", "kernel32.FindFirstFile", "user32.Rnd", "kernel32.FindFirstFileAB"}) {
        EXPECT_EQ(machine->findOperation(name), nullptr) << name;
    }
}

TEST(MachineTest, isPresentForAScope) {
    TestMachine outer;
    EXPECT_EQ(&Machine::current(), &outer.machine());
    EXPECT_EQ(&kernel32(), &outer->kernel32);
    {
        TestMachine inner;
        EXPECT_EQ(&Machine::current(), &inner.machine());
        EXPECT_EQ(&user32(), &inner->user32);
        EXPECT_NE(inner.home(), outer.home());
    }
    EXPECT_EQ(&Machine::current(), &outer.machine());
    EXPECT_EQ(&runtime(), &outer->runtime);
}

TEST(MachineTest, takesItsFolderWithIt) {
    std::filesystem::path folder;
    {
        TestMachine machine;
        folder = machine.folder();
        EXPECT_TRUE(std::filesystem::is_empty(folder)); // the home is made when it is needed
        std::filesystem::create_directories(machine.home() / "deep" / "er");
    }
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST(MachineTest, hasATemporaryHomeIfItHasNoOther) {
    std::filesystem::path home;
    {
        const Machine machine{MachineConfig{}};
        home = machine.config().home;
        EXPECT_TRUE(machine.isTemporary());
        EXPECT_TRUE(std::filesystem::is_directory(home));
        EXPECT_EQ(std::filesystem::status(home).permissions(), std::filesystem::perms::owner_all);
    }
    EXPECT_FALSE(std::filesystem::exists(home));
    EXPECT_FALSE(TestMachine()->isTemporary());
}

TEST(MachineTest, refusesAnUnknownCodePage) {
    MachineConfig config;
    config.codePage = 1;
    EXPECT_THROW(Machine{config}, std::invalid_argument);
}

TEST(MachineTest, reportsLeakedHandles) {
    EXPECT_NONFATAL_FAILURE(
        {
            TestMachine machine;
            kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        },
        "1 open handle(s) of kind \"snapshot\"");
}

TEST(MachineTest, closesEachHandleByItsOwnOperation) {
    TestMachine machine;
    const Handle other = machine->handles.open("other", std::make_shared<int>(1));
    EXPECT_FALSE(kernel32().CloseHandle(other));
    EXPECT_TRUE(machine->handles.close<int>(other));
}

TEST(MachineTest, tellsTheTimeOfItsClock) {
    TestMachine machine;
    const std::uint32_t start = kernel32().GetTickCount();
    machine.advance(std::chrono::milliseconds(300));
    EXPECT_EQ(kernel32().GetTickCount() - start, 300u); // across the end of the 32 bits
    EXPECT_LT(kernel32().GetTickCount(), start);

    host::Clock clock;
    const std::uint64_t before = clock.now();
    clock.waitUntil(before + 2);
    EXPECT_GE(clock.now(), before + 2);
}

TEST(MachineTest, runsTimersOfTheThread) {
    TestMachine machine;
    std::vector<std::uint32_t> stamps;
    const std::uint32_t start = kernel32().GetTickCount();
    const std::uint32_t timer =
        user32().SetTimer(0, 0, 50, [&](std::uint32_t, std::uint32_t time) { stamps.push_back(time - start); });
    EXPECT_NE(timer, 0u);
    EXPECT_EQ(user32().SetTimer(4, 0, 50, [](std::uint32_t, std::uint32_t) {}), 0u); // there is no such window
    EXPECT_FALSE(user32().KillTimer(4, timer));
    machine->messageLoops.pump(std::chrono::milliseconds(100));
    EXPECT_EQ(stamps, (std::vector<std::uint32_t>{50, 100}));
    EXPECT_TRUE(user32().KillTimer(0, timer));
    EXPECT_FALSE(user32().KillTimer(0, timer));
}

TEST(MachineTest, convertsText) {
    MachineConfig config;
    config.codePage = 1251;
    TestMachine machine(config);
    std::array<char, 4> bytes{'#', '#', '#', '#'};
    std::array<char16_t, 4> text{};
    EXPECT_EQ(kernel32().WideCharToMultiByte(CP_ACP, u"Ж€", bytes), 2);
    EXPECT_EQ(std::string_view(bytes.data(), 4), "\xC6\x88##");
    EXPECT_EQ(kernel32().WideCharToMultiByte(932, u"日本x", {}), 5);
    EXPECT_EQ(kernel32().WideCharToMultiByte(932, u"日本x", bytes), 0); // no room
    EXPECT_EQ(std::string_view(bytes.data(), 4), "\xC6\x88##");
    EXPECT_EQ(kernel32().WideCharToMultiByte(932, u"日本", bytes), 4);
    EXPECT_EQ(kernel32().MultiByteToWideChar(932, {bytes.data(), 4}, text), 2);
    EXPECT_EQ(std::u16string_view(text.data(), 2), u"日本");
    EXPECT_EQ(kernel32().MultiByteToWideChar(CP_ACP, "\xC6\x88", {}), 2);
    EXPECT_EQ(kernel32().MultiByteToWideChar(1, "a", text), 0);
    EXPECT_EQ(kernel32().WideCharToMultiByte(65001, u"a", bytes), 0);
}

TEST(MachineTest, givesTheRandomNumbersOfTheLanguage) {
    TestMachine machine;
    const std::vector<float> first = {0.7055475F, 0.533424F, 0.5795186F, 0.2895625F, 0.301948F};
    const auto sequence = [&] {
        std::vector<float> numbers;
        std::ranges::generate_n(std::back_inserter(numbers), 5, [] { return runtime().Rnd(); });
        return numbers;
    };
    const std::vector<float> mine = sequence();
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_FLOAT_EQ(mine[i], first[i]);
    }
    std::vector<float> others;
    std::thread([&] { others = sequence(); }).join();
    EXPECT_EQ(others, mine); // each thread has its own

    std::set<float> seeded;
    for (int i = 0; i < 100; ++i) {
        EXPECT_TRUE(runtime().Randomize());
        seeded.insert(runtime().Rnd());
        machine.advance(std::chrono::milliseconds(1));
    }
    EXPECT_GT(seeded.size(), 95u);
    EXPECT_LT(*seeded.begin(), 0.2F);
    EXPECT_GT(*seeded.rbegin(), 0.8F);
}

TEST(MachineTest, keepsNothingOfAMachineBeforeIt) {
    for (int round = 0; round < 3; ++round) { // each likely in the same place in memory
        TestMachine machine;
        EXPECT_FLOAT_EQ(runtime().Rnd(), 0.7055475F);
        EXPECT_EQ(user32().SetTimer(0, 0, 10, [](std::uint32_t, std::uint32_t) {}), 1u);
    }
}

TEST(MachineTest, givesRandomNumbersBelowOne) {
    // The generator visits every one of its states once before it repeats itself.
    host::RandomNumbers numbers;
    std::vector<bool> seen(std::size_t{1} << 24);
    float largest = 0;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        const float number = numbers.next();
        largest = std::max(largest, number);
        seen[static_cast<std::size_t>(number * 0x1p24F)] = true;
    }
    EXPECT_LT(largest, 1.0F);
    EXPECT_EQ(std::ranges::count(seen, true), static_cast<std::ptrdiff_t>(seen.size()));
}

TEST(MachineTest, tellsThreadsApart) {
    TestMachine machine;
    const std::uint32_t mine = runtime().ThreadID();
    std::uint32_t other = mine;
    std::thread([&] { other = runtime().ThreadID(); }).join();
    EXPECT_NE(mine, other);
    EXPECT_EQ(mine, static_cast<std::uint32_t>(gettid()));
}

TEST(MachineTest, hasAScreenOf96DotsPerInch) {
    TestMachine machine;
    EXPECT_EQ(runtime().ScreenTwipsPerPixelX(), 15.0F);
    EXPECT_EQ(runtime().ScreenTwipsPerPixelY(), 15.0F);
}

} // namespace

} // namespace mox::test
