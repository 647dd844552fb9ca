#include "icons_support.h"

namespace mox::test {

namespace {

using namespace platform;

constexpr host::Pixel white = 0xFFFFFF;

struct IconObjectsTest : testing::Test {
    TestMachine machine;
    User32& user = machine->user32;

    /// The pixels of a bitmap that is deleted with that.
    Pixels take(Handle bitmap) {
        const auto found = machine->graphics.bitmap(bitmap);
        EXPECT_TRUE(machine->gdi32.DeleteObject(bitmap));
        return found ? pixelsOf(*found) : Pixels();
    }
};

TEST_F(IconObjectsTest, keepsCopiesOfItsBitmapsAndGivesNewOnes) {
    const Pixels mask{0, white, white, 0, 0, white};
    struct {
        const char* name;
        Pixels mask, color;
        int bitsPerPixel;
        Pixels kept;
        bool hasAlpha;
    } const cases[] = {
        {"alpha", mask, {0x01020304, 0x80FF0000, 0, 0xFF00FF00, 0, 0}, 32, {0x01020304, 0x80FF0000, 0, 0xFF00FF00, 0, 0}, true},
        {"no alpha", mask, {0x020304, 0xFF0000, 0, 0x00FF00, 0, 7}, 32, {0x020304, 0xFF0000, 0, 0x00FF00, 0, 7}, false},
        {"24 bits", mask, {0xFF020304, 0xFF0000, 0, 0xFF00, 0, 7}, 24, {0x020304, 0xFF0000, 0, 0x00FF00, 0, 7}, false},
        {"16 bits", mask, {0xFF0000, 0x00FF00, 0x0000FF, 0, white, 0}, 16, {0xFF0000, 0x00FF00, 0x0000FF, 0, white, 0}, false},
        {"smaller", mask, {0x111111, 0x222222, 0x333333}, 32, {0x111111, 0x222222, 0x333333, 0, 0, 0}, false},
        {"black and white", {0, white, white, white, 0, 0}, {}, 0, {}, false},
    };
    for (const auto& [name, given, color, bitsPerPixel, kept, hasAlpha] : cases) {
        SCOPED_TRACE(name);
        const Handle icon = makeIcon(machine, 3, given, color, bitsPerPixel);
        ASSERT_NE(icon, 0);
        EXPECT_EQ(machine->icons.icon(icon)->hasAlpha, hasAlpha);
        EXPECT_EQ(machine->icons.icon(icon)->image->height(), color.empty() ? 1 : 2);
        for (int time = 0; time < 2; ++time) {
            ICONINFO info;
            ASSERT_TRUE(user.GetIconInfo(icon, info));
            EXPECT_TRUE(info.fIcon);
            EXPECT_EQ(info.xHotspot, 1);
            EXPECT_EQ(info.yHotspot, color.empty() ? 0 : 1);
            EXPECT_EQ(take(info.hbmMask), given);
            EXPECT_EQ(info.hbmColor != 0, !color.empty());
            if (info.hbmColor != 0) {
                EXPECT_EQ(take(info.hbmColor), kept);
            }
        }
        EXPECT_TRUE(user.DestroyIcon(icon));
        EXPECT_FALSE(user.DestroyIcon(icon));
    }
}

TEST_F(IconObjectsTest, keepsTheHotSpotOfACursor) {
    ICONINFO info{false, 2, 1, addBitmap(machine, {.width = 4, .height = 4, .bitsPerPixel = 1}, Pixels(16)), 0};
    const Handle cursor = user.CreateIconIndirect(info);
    EXPECT_TRUE(machine->gdi32.DeleteObject(info.hbmMask));
    ICONINFO found;
    ASSERT_TRUE(user.GetIconInfo(cursor, found));
    EXPECT_FALSE(found.fIcon);
    EXPECT_EQ(found.xHotspot, 2);
    EXPECT_EQ(found.yHotspot, 1);
    EXPECT_TRUE(machine->gdi32.DeleteObject(found.hbmMask));
    EXPECT_TRUE(user.DestroyIcon(cursor));
}

TEST_F(IconObjectsTest, refusesWhatIsNoIcon) {
    const Handle line = addBitmap(machine, {.width = 4, .height = 1, .bitsPerPixel = 1}, Pixels(4));
    for (const ICONINFO& info :
         {ICONINFO{true, 0, 0, 0, 0}, ICONINFO{true, 0, 0, 0, line}, ICONINFO{true, 0, 0, line, 0},
          ICONINFO{true, 0, 0, line, 4711}, ICONINFO{true, 0, 0, machine->gdi32.GetStockObject(0), line}}) {
        EXPECT_EQ(user.CreateIconIndirect(info), 0) << info.hbmMask << " " << info.hbmColor;
    }
    ICONINFO untouched{false, 7, 8, 9, 10};
    for (const Handle none : {0, -1, 4711, line}) {
        EXPECT_FALSE(user.GetIconInfo(none, untouched));
        EXPECT_FALSE(user.DestroyIcon(none));
        EXPECT_FALSE(user.DrawIconEx(line, 0, 0, none, 0, 0, 0, 0, DI_NORMAL));
    }
    EXPECT_EQ(untouched.hbmColor, 10);
    EXPECT_TRUE(machine->gdi32.DeleteObject(line));
}

TEST_F(IconObjectsTest, sharesTheIconsOfTheSystem) {
    std::vector<Pixels> seen;
    for (std::uint32_t resource = IDI_APPLICATION; resource <= IDI_SHIELD; ++resource) {
        SCOPED_TRACE(resource);
        const Handle icon = user.LoadIconA(0, resource);
        ASSERT_NE(icon, 0);
        EXPECT_TRUE(user.DestroyIcon(icon));
        EXPECT_EQ(user.LoadIconA(0, resource), icon);
        ICONINFO info;
        ASSERT_TRUE(user.GetIconInfo(icon, info));
        EXPECT_EQ(info.xHotspot, 16);
        const Pixels mask = take(info.hbmMask);
        const Pixels color = take(info.hbmColor);
        ASSERT_EQ(color.size(), 32U * 32);
        EXPECT_EQ(std::ranges::count(seen, color), 0);
        seen.push_back(color);
        std::size_t opaque = 0;
        for (std::size_t i = 0; i < color.size(); ++i) {
            EXPECT_EQ(mask[i] == 0, color[i] >> 24 != 0) << i;
            opaque += color[i] >> 24 == 0xFF ? 1 : 0;
        }
        EXPECT_GT(opaque, 300U);
        for (const std::size_t corner : {0, 31, 31 * 32, 32 * 32 - 1}) {
            EXPECT_EQ(color[corner], 0U) << corner;
        }
    }
    EXPECT_EQ(user.LoadIconA(1, IDI_HAND), 0);
    for (const std::uint32_t none : {0U, 1U, IDI_APPLICATION - 1, IDI_SHIELD + 1, 0xFFFFFFFFU}) {
        EXPECT_EQ(user.LoadIconA(0, none), 0) << none;
    }
}

TEST(SystemIconsTest, followTheFactsOfTheMachine) {
    host::MachineConfig old;
    old.windows.major = 5;
    old.metrics = {{SM_CXICON, 48}, {SM_CYICON, 40}};
    TestMachine machine(old);
    EXPECT_EQ(machine->user32.LoadIconA(0, IDI_SHIELD), 0);
    const auto icon = machine->icons.icon(machine->user32.LoadIconA(0, IDI_HAND));
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->image->width(), 48);
    EXPECT_EQ(icon->image->height(), 40);
}

} // namespace

} // namespace mox::test
