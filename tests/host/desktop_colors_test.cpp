#include "support/testmachine.h"

#include <gtest/gtest.h>

#include <limits>

namespace mox::test {

namespace {

using namespace platform;

TEST(DesktopColorsTest, knowsThirtyOneColors) {
    TestMachine machine;
    const std::pair<std::int32_t, COLORREF> cases[] = {
        {0, 0xC8C8C8},
        {2, 0xD1B499},
        {5, 0xFFFFFF},
        {6, 0x646464},
        {13, 0xFF9933},
        {15, 0xF0F0F0},
        {24, 0xE1FFFF},
        {30, 0xF0F0F0},
        {-1, 0},
        {31, 0},
        {std::numeric_limits<std::int32_t>::min(), 0},
    };
    for (const auto& [index, color] : cases) {
        EXPECT_EQ(machine->user32.GetSysColor(index), color) << index;
    }
}

TEST(DesktopColorsTest, movesRectangles) {
    TestMachine machine;
    RECT area{1, 2, 3, 4};
    EXPECT_TRUE(machine->user32.OffsetRect(area, -5, 10));
    EXPECT_EQ(area, (RECT{-4, 12, -2, 14}));
    EXPECT_TRUE(machine->user32.OffsetRect(area, std::numeric_limits<std::int32_t>::min(), 0));
    EXPECT_EQ(area.left, std::numeric_limits<std::int32_t>::max() - 3); // numbers wrap around
}

} // namespace

} // namespace mox::test
