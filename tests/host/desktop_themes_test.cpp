#include "graphics_support.h"

namespace mox::test {

namespace {

using namespace platform;

host::MachineConfig styled() {
    host::MachineConfig config;
    config.visualStyle = true;
    return config;
}

TEST(DesktopThemesTest, haveNoneUnlessTheMachineIsSetUpWithAStyle) {
    TestMachine machine;
    Uxtheme& themes = machine->uxtheme;
    EXPECT_FALSE(themes.IsThemeActive());
    EXPECT_FALSE(themes.IsAppThemed());
    EXPECT_EQ(themes.OpenThemeData(0, u"GLOBALS"), 0);
    EXPECT_EQ(themes.GetThemeSysColor(0, 5), 0xFFFFFFU);
    SIZE size;
    EXPECT_LT(themes.GetThemePartSize(0, 0, 4, 1, {}, TS_TRUE, size), 0);
    EXPECT_LT(themes.DrawThemeBackground(0, 0, 4, 1, {}, {}), 0);
    EXPECT_LT(themes.CloseThemeData(0), 0);
}

TEST(DesktopThemesTest, opensTheFirstClassThatIsKnown) {
    TestMachine machine(styled());
    Uxtheme& themes = machine->uxtheme;
    EXPECT_TRUE(themes.IsThemeActive());
    EXPECT_TRUE(themes.IsAppThemed());
    const std::pair<std::u16string_view, bool> cases[] = {
        {u"GLOBALS", true}, {u"ExplorerBar", true}, {u"Unknown;explorerbar;Globals", true}, {u"EXPLORERBAR;", true},
        {u"", false},       {u";", false},          {u"EXPLORERBARS;GLO", false},           {u"Window;Edit", false},
    };
    for (const auto& [list, isKnown] : cases) {
        const Handle theme = themes.OpenThemeData(machine->user32.GetDesktopWindow(), list);
        EXPECT_EQ(theme != 0, isKnown);
        EXPECT_EQ(themes.CloseThemeData(theme) == 0, isKnown);
        EXPECT_LT(themes.CloseThemeData(theme), 0);
    }
    const Handle globals = themes.OpenThemeData(0, u"GLOBALS");
    EXPECT_NE(themes.GetThemeSysColor(globals, 15), machine->user32.GetSysColor(15));
    EXPECT_EQ(themes.GetThemeSysColor(globals, 5), machine->user32.GetSysColor(5));
    EXPECT_EQ(themes.GetThemeSysColor(globals, 31), 0U);
    SIZE size{7, 7};
    EXPECT_LT(themes.GetThemePartSize(globals, 0, 4, 1, {}, TS_TRUE, size), 0);
    EXPECT_EQ(themes.CloseThemeData(globals), 0);
}

TEST(DesktopThemesTest, drawsThePartsOfATaskPane) {
    TestMachine machine(styled());
    Uxtheme& themes = machine->uxtheme;
    const Handle theme = themes.OpenThemeData(0, u"EXPLORERBAR");
    Surface surface(machine.machine(), 160, 160);
    for (const std::int32_t part : {1, 4, 5, 9, 10}) {
        surface.clear(0x123456);
        EXPECT_EQ(themes.DrawThemeBackground(theme, surface.hdc(), part, 0, {0, 0, 160, 160}, {0, 0, 160, 160}), 0);
        EXPECT_EQ(surface.picture().find('r'), std::string::npos);
        const auto at = [&](int x, int y) { return machine->gdi32.GetPixel(surface.hdc(), x, y); };
        for (const POINT place : {POINT{0, 0}, POINT{159, 0}, POINT{0, 159}, POINT{159, 159}, POINT{80, 80}}) {
            EXPECT_NE(at(place.x, place.y), 0x123456U) << part;
        }
        const bool isBody = part == 5 || part == 9;
        EXPECT_EQ(at(0, 80) == at(80, 80), part == 1) << part;
        EXPECT_EQ(at(80, 0) == at(80, 80), part == 4 || part == 10) << part;
        EXPECT_EQ(at(80, 0) == at(0, 80), isBody) << part;
    }
    SIZE size;
    EXPECT_EQ(themes.GetThemePartSize(theme, 0, 4, 1, {}, TS_TRUE, size), 0);
    EXPECT_EQ(size, (SIZE{120, 25}));
    EXPECT_LT(themes.GetThemePartSize(theme, 0, 77, 1, {}, TS_TRUE, size), 0);
    EXPECT_EQ(size, SIZE());
    constexpr std::int32_t far = 2000000000;
    EXPECT_EQ(themes.DrawThemeBackground(theme, surface.hdc(), 1, 0, {-far, -far, far, far}, {-far, -far, far, far}), 0);
    EXPECT_LT(themes.DrawThemeBackground(theme, surface.hdc(), 77, 0, {0, 0, 9, 9}, {0, 0, 9, 9}), 0);
    EXPECT_LT(themes.DrawThemeBackground(theme, 0, 5, 0, {0, 0, 9, 9}, {0, 0, 9, 9}), 0);
    EXPECT_EQ(themes.CloseThemeData(theme), 0);
}

TEST(DesktopThemesTest, drawsWithinTheClippingRectangle) {
    TestMachine machine(styled());
    const Handle theme = machine->uxtheme.OpenThemeData(0, u"EXPLORERBAR");
    for (const std::int32_t part : {1, 4, 5}) {
        Surface whole(machine.machine(), 8, 6);
        whole.clear(0);
        EXPECT_EQ(machine->uxtheme.DrawThemeBackground(theme, whole.hdc(), part, 0, {1, 1, 7, 5}, {0, 0, 8, 6}), 0);
        Surface clipped(machine.machine(), 8, 6);
        clipped.clear(0);
        const RECT clip{0, 2, 4, 9};
        EXPECT_EQ(machine->uxtheme.DrawThemeBackground(theme, clipped.hdc(), part, 0, {1, 1, 7, 5}, clip), 0);
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 8; ++x) {
                const bool isInside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
                EXPECT_EQ(clipped.context().pixel({x, y}), isInside ? whole.context().pixel({x, y}) : 0) << x << "," << y;
            }
        }
        EXPECT_EQ(whole.context().pixel({0, 0}), 0U);
        EXPECT_NE(whole.context().pixel({1, 1}), 0U);
        EXPECT_NE(whole.context().pixel({6, 4}), 0U);
    }
    EXPECT_EQ(machine->uxtheme.CloseThemeData(theme), 0);
}

} // namespace

} // namespace mox::test
