#include "support/testclock.h"

#include "automation/objects/objectcore.h"
#include "host/desktop/messageloops.h"

#include <mox/abi/functions.h>

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace mox::test {

namespace {

using host::MessageLoops;
using std::chrono::milliseconds;

struct MessageLoopsTest : testing::Test {
    std::shared_ptr<TestClock> clock = std::make_shared<TestClock>();
    MessageLoops loops{clock};
    /// What ran, by name and time since the start of the clock.
    std::vector<std::string> log;

    platform::TimerProcedure note(std::string name) {
        return [this, name = std::move(name)](std::uint32_t, std::uint32_t time) {
            log.push_back(name + std::to_string(since(time)));
        };
    }
    std::uint32_t since(std::uint32_t time) const { return time - static_cast<std::uint32_t>(TestClock::start); }
    std::uint32_t elapsed() const { return static_cast<std::uint32_t>(clock->now() - TestClock::start); }
    using Log = std::vector<std::string>;
};

TEST_F(MessageLoopsTest, runsTimersWhenTheyAreDue) {
    loops.setTimer(30, note("a"));
    loops.setTimer(20, note("b"));
    loops.pump(milliseconds(19));
    EXPECT_EQ(log, Log{});
    loops.pump(milliseconds(41));
    EXPECT_EQ(log, (Log{"b20", "a30", "b40", "a60", "b60"}));
    EXPECT_EQ(elapsed(), 60u);
}

TEST_F(MessageLoopsTest, runsNothingOutsideOfALoop) {
    loops.setTimer(10, note("a"));
    clock->advance(100);
    EXPECT_EQ(log, Log{});
    loops.pump(milliseconds(0));
    EXPECT_EQ(log, (Log{"a100"}));
}

TEST_F(MessageLoopsTest, doesNotPileUpLateTimers) {
    loops.setTimer(10, note("a"));
    loops.setTimer(40, note("b"));
    clock->advance(95);
    loops.pump(milliseconds(0));
    EXPECT_EQ(log, (Log{"a95", "b95"}));
    loops.pump(milliseconds(30)); // and each keeps its beat
    EXPECT_EQ(log, (Log{"a95", "b95", "a100", "a110", "a120", "b120"}));
}

TEST_F(MessageLoopsTest, stampsMessagesWithTheTimeAtWhichTheyRun) {
    // The stamps wrap with the 32 bits of the tick count.
    std::vector<std::uint32_t> stamps;
    loops.setTimer(200, [&](std::uint32_t, std::uint32_t time) { stamps.push_back(time); });
    loops.pump(milliseconds(400));
    EXPECT_EQ(stamps, (std::vector<std::uint32_t>{0xFFFFFFC8, 0x90}));
}

TEST_F(MessageLoopsTest, limitsPeriods) {
    loops.setTimer(0, note("short"));
    loops.pump(milliseconds(25));
    EXPECT_EQ(log, (Log{"short10", "short20"}));
    loops.setTimer(0xFFFFFFFF, note("long"));
    clock->advance(0x7FFFFFFE);
    EXPECT_TRUE(loops.killTimer(1));
    loops.pump(milliseconds(0));
    EXPECT_EQ(log.size(), 2u);
    loops.pump(milliseconds(1));
    EXPECT_EQ(log.size(), 3u);
}

TEST_F(MessageLoopsTest, numbersRunningTimersApart) {
    std::set<std::uint32_t> numbers;
    for (int i = 0; i < 50; ++i) {
        numbers.insert(loops.setTimer(10, note("x")));
    }
    EXPECT_EQ(numbers.size(), 50u);
    EXPECT_FALSE(numbers.contains(0));
    for (const std::uint32_t number : numbers) {
        EXPECT_TRUE(loops.killTimer(number));
        EXPECT_FALSE(loops.killTimer(number));
    }
    EXPECT_FALSE(loops.killTimer(0));
    EXPECT_EQ(loops.setTimer(10, {}), 0u);
    loops.pump(milliseconds(50));
    EXPECT_EQ(log, Log{});
}

TEST_F(MessageLoopsTest, startsARunningTimerAnewUnderItsNumber) {
    const std::uint32_t timer = loops.setTimer(10, note("old"));
    clock->advance(9);
    EXPECT_EQ(loops.setTimer(20, note("new"), timer), timer);
    EXPECT_NE(loops.setTimer(15, note("other"), timer + 100), timer); // none of that number runs
    loops.pump(milliseconds(20));
    EXPECT_EQ(log, (Log{"other24", "new29"}));
}

TEST_F(MessageLoopsTest, endsATimerThatIsDue) {
    const std::uint32_t second = loops.setTimer(20, note("second"));
    loops.setTimer(10, [&](std::uint32_t, std::uint32_t) { loops.killTimer(second); });
    clock->advance(50);
    loops.pump(milliseconds(0));
    EXPECT_EQ(log, Log{});
}

TEST_F(MessageLoopsTest, letsAProcedureEndItsOwnTimer) {
    // What the procedure holds has to last until it returns.
    const auto held = std::make_shared<std::string>("held");
    loops.setTimer(10, [this, held](std::uint32_t timer, std::uint32_t) {
        EXPECT_TRUE(loops.killTimer(timer));
        EXPECT_FALSE(loops.killTimer(timer));
        log.push_back(*held);
    });
    loops.pump(milliseconds(50));
    EXPECT_EQ(log, (Log{"held"}));
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(MessageLoopsTest, letsAProcedureStartItsOwnTimerAnew) {
    loops.setTimer(10, [this](std::uint32_t timer, std::uint32_t) {
        EXPECT_EQ(loops.setTimer(25, note("again"), timer), timer);
        log.push_back("first");
    });
    loops.pump(milliseconds(60));
    EXPECT_EQ(log, (Log{"first", "again35", "again60"}));
}

TEST_F(MessageLoopsTest, keepsAllTimersOfAProcedureThatSetsMany) {
    loops.setTimer(10, [this](std::uint32_t timer, std::uint32_t) {
        loops.killTimer(timer);
        for (int i = 0; i < 20; ++i) {
            loops.setTimer(10, note("n"));
        }
    });
    loops.pump(milliseconds(20));
    EXPECT_EQ(log.size(), 20u);
}

TEST_F(MessageLoopsTest, pumpsInsideOfAProcedure) {
    loops.setTimer(20, note("b"));
    int depth = 0;
    const std::uint32_t outer = loops.setTimer(10, [&](std::uint32_t, std::uint32_t time) {
        log.push_back("in" + std::to_string(since(time)));
        if (++depth == 1) {
            loops.pump(milliseconds(15));
        }
        log.push_back("out");
    });
    loops.pump(milliseconds(10));
    EXPECT_EQ(log, (Log{"in10", "b20", "in20", "out", "out"}));
    EXPECT_EQ(elapsed(), 25u);
    loops.killTimer(outer);
}

TEST_F(MessageLoopsTest, endsThoughAProcedureTakesLongerThanItsPeriod) {
    loops.setTimer(10, [this](std::uint32_t, std::uint32_t) {
        log.push_back("slow");
        clock->advance(30);
    });
    loops.pump(milliseconds(100));
    EXPECT_EQ(log.size(), 4u); // at 10, 40, 70 and 100
    EXPECT_EQ(elapsed(), 130u);
    loops.pump(milliseconds(0));
    EXPECT_EQ(log.size(), 5u);
}

TEST_F(MessageLoopsTest, takesANegativeDurationForNone) {
    loops.pump(milliseconds(-5));
    EXPECT_EQ(elapsed(), 0u);
}

TEST_F(MessageLoopsTest, givesEachThreadItsOwnTimers) {
    const std::uint32_t mine = loops.setTimer(10, note("mine"));
    Log others;
    std::thread([&] {
        loops.setTimer(10, [&](std::uint32_t, std::uint32_t) { others.push_back("other"); });
        while (loops.setTimer(500, [](std::uint32_t, std::uint32_t) {}) < mine) {
        }
        loops.pump(milliseconds(10));
        EXPECT_FALSE(loops.killTimer(mine + 1000));
    }).join();
    EXPECT_EQ(others, (Log{"other"}));
    EXPECT_EQ(log, Log{});
    loops.pump(milliseconds(0));
    EXPECT_EQ(log, (Log{"mine10"}));
}

TEST_F(MessageLoopsTest, dropsTimersWithTheirThread) {
    const auto held = std::make_shared<int>(1);
    std::thread([&] {
        loops.setTimer(10, [held](std::uint32_t, std::uint32_t) {});
        EXPECT_EQ(held.use_count(), 2);
    }).join();
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(MessageLoopsTest, dropsTimersWithTheApartment) {
    const auto held = std::make_shared<int>(1);
    std::thread([&] {
        CoInitialize(nullptr);
        loops.setTimer(10, [held](std::uint32_t, std::uint32_t) { CoUninitialize(); });
        loops.setTimer(10, note("gone"));
        loops.pump(milliseconds(50)); // the first procedure ends the apartment under the loop
        EXPECT_EQ(held.use_count(), 1);
    }).join();
    EXPECT_EQ(log, Log{});
}

TEST_F(MessageLoopsTest, dropsAllTimersAtItsEnd) {
    const auto held = std::make_shared<int>(1);
    {
        MessageLoops others(clock);
        others.setTimer(10, [held](std::uint32_t, std::uint32_t) {});
        loops.pump(milliseconds(50)); // each has its own
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(MessageLoopsTest, maySetAndEndTimersWhileOneGoes) {
    struct Guard {
        explicit Guard(MessageLoopsTest& present) : test(present) {}
        ~Guard() {
            EXPECT_FALSE(test.loops.killTimer(timer)); // its own is gone by now
            test.loops.setTimer(10, test.note("set by the end"));
        }
        MessageLoopsTest& test;
        std::uint32_t timer = 0;
    };
    auto guard = std::make_shared<Guard>(*this);
    guard->timer = loops.setTimer(10, [guard](std::uint32_t, std::uint32_t) {});
    const std::uint32_t timer = guard->timer;
    guard = nullptr;
    EXPECT_TRUE(loops.killTimer(timer));
    loops.pump(milliseconds(10));
    EXPECT_EQ(log, (Log{"set by the end10"}));
}

/// The smallest object that references are counted on.
class Witness final : public ObjectCore {
public:
    Witness(typelib::LibraryState& library, bool& isAlive) : ObjectCore(library), isAlive_(isAlive) { isAlive_ = true; }
    ~Witness() override { isAlive_ = false; }

private:
    IUnknown* identity() noexcept override { return nullptr; }

    bool& isAlive_;
};

TEST_F(MessageLoopsTest, releasesWhatOtherThreadsHandOver) {
    typelib::LibraryState library;
    bool isAlive = false;
    ObjectCore& object = *std::make_unique<Witness>(library, isAlive).release(); // owned by its references
    std::thread([&] { object.releaseReference(); }).join();
    EXPECT_TRUE(isAlive);
    loops.pump(milliseconds(0));
    EXPECT_FALSE(isAlive);
}

TEST_F(MessageLoopsTest, runsOnThreadsAtTheSameTime) {
    std::vector<std::thread> threads;
    for (int number = 0; number < 3; ++number) {
        threads.emplace_back([this] {
            int runs = 0;
            const std::uint32_t timer = loops.setTimer(10, [&](std::uint32_t, std::uint32_t) { ++runs; });
            while (runs < 20) {
                loops.pump(milliseconds(10));
            }
            EXPECT_TRUE(loops.killTimer(timer));
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace

} // namespace mox::test
