#include "platform/operation.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace mox::test {

namespace {

using namespace platform;

// The variable is read when the first library is made.
const int variableSet = setenv("MOX_TRACE", "other,traced library,", 1);

struct Sample : SystemLibrary {
    explicit Sample(std::string_view name = "sample") : SystemLibrary(name) {
        Length = [](std::string_view text) { return static_cast<std::int32_t>(text.size()); };
        Fill = [](std::span<char> buffer, std::uint32_t& filled) {
            filled = static_cast<std::uint32_t>(buffer.size());
            return true;
        };
        Close = [this](std::int32_t) { return ++closed, true; };
    }
    int closed = 0;
    Operation<std::int32_t(std::string_view text)> Length{*this, "Length", -1};
    Operation<bool(std::span<char> buffer, std::uint32_t& filled)> Fill{*this, "Fill", false};
    Operation<bool(std::int32_t handle)> Close{*this, "Close", false, givesBack};
    Operation<std::string(std::u16string_view text, double number)> Missing{*this, "Missing", "none"};
};

TEST(OperationTest, callsItsBodyAndCounts) {
    Sample sample;
    EXPECT_EQ(sample.Length("four"), 4);
    std::uint32_t filled = 0;
    std::array<char, 3> buffer{};
    EXPECT_TRUE(sample.Fill(buffer, filled));
    EXPECT_EQ(filled, 3u);
    sample.Length("");
    EXPECT_EQ(sample.Length.calls(), 2u);
    EXPECT_EQ(sample.Fill.calls(), 1u);
    sample.Length.reset();
    EXPECT_EQ(sample.Length.calls(), 0u);
    EXPECT_EQ(sample.Fill.calls(), 1u);
}

TEST(OperationTest, failsWithoutABody) {
    Sample sample;
    EXPECT_EQ(sample.Missing(u"x", 1), "none");
    EXPECT_FALSE(sample.Missing.isServed());
    EXPECT_TRUE(sample.Length.isServed());
    EXPECT_EQ(sample.Missing.calls(), 1u);
}

TEST(OperationTest, isListedByItsLibrary) {
    Sample sample;
    ASSERT_EQ(sample.operations().size(), 4u);
    EXPECT_EQ(sample.operations()[0], &sample.Length);
    EXPECT_EQ(sample.operations()[3]->fullName(), "sample.Missing");
    EXPECT_EQ(sample.operations()[3]->name(), "Missing");
}

TEST(OperationTest, failsAsOftenAsAsked) {
    Sample sample;
    const auto answers = [&] {
        std::vector<std::int32_t> list;
        for (int i = 0; i < 4; ++i) {
            list.push_back(sample.Length("ab"));
        }
        return list;
    };
    using List = std::vector<std::int32_t>;
    sample.Length.fail(2);
    EXPECT_EQ(answers(), (List{-1, -1, 2, 2}));
    sample.Length.fail();
    EXPECT_EQ(answers(), (List{-1, -1, -1, -1}));
    sample.Length.restore();
    EXPECT_EQ(answers(), (List{2, 2, 2, 2}));
    sample.Length.fail(1);
    sample.Length.restore();
    EXPECT_EQ(answers(), (List{2, 2, 2, 2}));
    EXPECT_EQ(sample.Length.calls(), 16u); // the failing ones count
    std::uint32_t filled = 7;
    sample.Length.fail();
    EXPECT_TRUE(sample.Fill({}, filled)); // no other one fails
}

TEST(OperationTest, leavesOutPlacesAloneWhenItFails) {
    Sample sample;
    sample.Fill.fail();
    std::uint32_t filled = 7;
    EXPECT_FALSE(sample.Fill({}, filled));
    EXPECT_EQ(filled, 7u);
}

TEST(OperationTest, givesBackEvenWhenItFails) {
    Sample sample;
    sample.Close.fail(1);
    EXPECT_FALSE(sample.Close(1));
    EXPECT_EQ(sample.closed, 1);
    EXPECT_TRUE(sample.Close(2));
}

TEST(OperationTest, replacesItsBodyForAScope) {
    Sample sample;
    {
        const auto outer = sample.Length.replace([](std::string_view) { return 100; });
        EXPECT_EQ(sample.Length("ab"), 100);
        {
            const auto inner =
                sample.Length.replace([](std::string_view text) { return 200 + static_cast<std::int32_t>(text.size()); });
            EXPECT_EQ(sample.Length("ab"), 202);
        }
        EXPECT_EQ(sample.Length("ab"), 100);
        sample.Length.fail(1);
        EXPECT_EQ(sample.Length("ab"), -1);
    }
    EXPECT_EQ(sample.Length("ab"), 2);
    EXPECT_EQ(sample.Length.calls(), 5u);
}

TEST(OperationTest, printsCallsOfTracedLibraries) {
    Sample traced("traced library");
    Sample silent;
    EXPECT_TRUE(traced.traced());
    EXPECT_FALSE(silent.traced());
    EXPECT_FALSE(Sample("traced").traced());
    EXPECT_FALSE(Sample("").traced());

    testing::internal::CaptureStderr();
    std::array<char, 260> buffer{};
    std::uint32_t filled = 0;
    traced.Length("C:\\a \"b\"\n\x80");
    traced.Fill(buffer, filled);
    traced.Missing(u"€", 1.5);
    traced.Length.fail(1);
    traced.Length("");
    traced.Close(-1);
    silent.Length("x");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "traced library.Length(\"C:\\\\a \\\"b\\\"\\n\\x80\") -> 10\n"
                                                      "traced library.Fill([260], 260) -> 1\n"
                                                      "traced library.Missing(\"\\u20AC\", 1.500000) -> \"none\"\n"
                                                      "traced library.Length(\"\") -> -1\n"
                                                      "traced library.Close(-1) -> 1\n");
}

TEST(FaultPlanTest, failsOneCallOfAllOperationsOrAllFromThere) {
    using Answers = std::vector<bool>;
    const struct {
        std::uint64_t first;
        bool onwards;
        Answers answers;
        const char* operation;
    } plans[] = {
        {0, false, {false, true, true, true}, "sample.Length"}, {0, true, {false, false, false, false}, "sample.Length"},
        {1, false, {true, false, true, true}, "sample.Fill"},   {2, true, {true, true, false, false}, "sample.Length"},
        {3, false, {true, true, true, false}, "sample.Fill"},   {4, false, {true, true, true, true}, nullptr},
        {4, true, {true, true, true, true}, nullptr},
    };
    for (const auto& expected : plans) {
        Sample sample;
        std::uint32_t filled = 0;
        sample.Length("a call before the plan");
        const FaultPlan plan(expected.first, expected.onwards);
        Answers answers;
        for (int i = 0; i < 2; ++i) {
            answers.push_back(sample.Length("") == 0);
            answers.push_back(sample.Fill({}, filled));
        }
        EXPECT_EQ(answers, expected.answers);
        EXPECT_EQ(plan.hit(), expected.operation != nullptr);
        EXPECT_EQ(plan.hit() ? plan.operation()->fullName() : "", expected.operation ? expected.operation : "");
    }
    EXPECT_EQ(Sample().Length(""), 0);
}

TEST(FaultPlanTest, isAloneAtWork) {
    const FaultPlan plan(0, false);
    EXPECT_THROW(FaultPlan(0, false), std::logic_error);
    Sample sample;
    EXPECT_EQ(sample.Length(""), -1); // the first one is still at work
}

TEST(FaultPlanTest, countsTheCallsOfAllThreads) {
    constexpr std::size_t callsOfThread = 1000;
    Sample sample;
    const FaultPlan plan(2 * callsOfThread - 1, false);
    std::array<int, 2> failures{};
    std::vector<std::thread> threads;
    for (int& count : failures) {
        threads.emplace_back([&] {
            for (std::size_t i = 0; i < callsOfThread; ++i) {
                count += sample.Length("") < 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures[0] + failures[1], 1);
    EXPECT_EQ(sample.Length.calls(), 2 * callsOfThread);
}

} // namespace

} // namespace mox::test
