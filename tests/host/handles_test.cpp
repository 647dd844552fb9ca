#include "host/machine/handles.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace mox::test {

namespace {

using host::Handles;
using platform::Handle;
using Counts = std::map<std::string, std::size_t>;

struct Brush {
    int colour = 0;
};
struct Pen {};

TEST(HandlesTest, standForThingsOfTheirType) {
    Handles handles;
    const auto brush = std::make_shared<Brush>(Brush{7});
    const Handle handle = handles.open("brush", brush);
    EXPECT_EQ(handles.get<Brush>(handle), brush);
    EXPECT_EQ(handles.get<Pen>(handle), nullptr);
    EXPECT_FALSE(handles.close<Pen>(handle));
    EXPECT_EQ(handles.get<Brush>(handle), brush);
    EXPECT_TRUE(handles.close<Brush>(handle));
    EXPECT_EQ(brush.use_count(), 1);
}

TEST(HandlesTest, areRefusedOnceClosed) {
    Handles handles;
    const Handle first = handles.open("brush", std::make_shared<Brush>());
    ASSERT_TRUE(handles.close<Brush>(first));
    EXPECT_FALSE(handles.close<Brush>(first));
    EXPECT_EQ(handles.get<Brush>(first), nullptr);
    // No later handle takes its number, though places are used again.
    for (int i = 0; i < 100'000; ++i) {
        const Handle next = handles.open("brush", std::make_shared<Brush>());
        ASSERT_NE(next, first);
        ASSERT_EQ(handles.get<Brush>(first), nullptr);
        ASSERT_TRUE(handles.close<Brush>(next));
    }
}

TEST(HandlesTest, neverWereWhatNobodyGaveOut) {
    Handles handles;
    const Handle handle = handles.open("brush", std::make_shared<Brush>());
    for (const Handle other : {0, -1, 4, handle + 1, handle + 2, handle + 4, -handle, 0x7FFFFFFF}) {
        EXPECT_EQ(handles.get<Brush>(other), nullptr) << other;
        EXPECT_FALSE(handles.close<Brush>(other)) << other;
    }
    EXPECT_EQ(handles.open("brush", std::shared_ptr<Brush>()), 0);
    EXPECT_EQ(handles.count(), (Counts{{"brush", 1}}));
}

TEST(HandlesTest, areCountedByKind) {
    Handles handles;
    EXPECT_TRUE(handles.count().empty());
    const Handle brush = handles.open("brush", std::make_shared<Brush>());
    handles.open("brush", std::make_shared<Brush>());
    handles.open("pen", std::make_shared<Pen>());
    EXPECT_EQ(handles.count(), (Counts{{"brush", 2}, {"pen", 1}}));
    handles.close<Brush>(brush);
    EXPECT_EQ(handles.count(), (Counts{{"brush", 1}, {"pen", 1}}));
}

TEST(HandlesTest, fillTheTableAndNoMore) {
    Handles handles;
    const auto brush = std::make_shared<Brush>();
    std::set<Handle> open;
    for (std::size_t i = 0; i < Handles::most; ++i) {
        const Handle handle = handles.open("brush", brush);
        ASSERT_GT(handle, 0);
        ASSERT_EQ(handle % 4, 0);
        open.insert(handle);
    }
    EXPECT_EQ(open.size(), Handles::most);
    EXPECT_EQ(handles.open("brush", brush), 0);
    EXPECT_TRUE(handles.close<Brush>(*open.begin()));
    const Handle last = handles.open("brush", brush);
    EXPECT_GT(last, 0);
    EXPECT_FALSE(open.contains(last));
    EXPECT_EQ(handles.count(), (Counts{{"brush", Handles::most}}));
}

TEST(HandlesTest, mayCloseOthersAtTheirEnd) {
    struct Owner {
        Owner(Handles& all, Handle brush) : handles(all), owned(brush) {}
        ~Owner() { handles.close<Brush>(owned); }
        Handles& handles;
        Handle owned;
    };
    Handles handles;
    const Handle owned = handles.open("brush", std::make_shared<Brush>());
    const auto owner = [&] { return handles.open("owner", std::make_shared<Owner>(handles, owned)); }();
    EXPECT_TRUE(handles.close<Owner>(owner));
    EXPECT_TRUE(handles.count().empty());
}

TEST(HandlesTest, serveManyThreads) {
    Handles handles;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&handles, number] {
            for (int i = 0; i < 5000; ++i) {
                const Handle handle = handles.open("brush", std::make_shared<Brush>(Brush{number}));
                const auto brush = handles.get<Brush>(handle);
                EXPECT_TRUE(brush && brush->colour == number);
                EXPECT_TRUE(handles.close<Brush>(handle));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_TRUE(handles.count().empty());
}

} // namespace

} // namespace mox::test
