#include "drawing/drawing_support.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace mox::test {

namespace {

constexpr Long lowest = std::numeric_limits<Long>::min();

class ColorsTest : public DrawingTest {
protected:
    moxColors colors = drawing.Colors();
};

TEST_F(ColorsTest, readsAndWritesHtml) {
    struct Row {
        const char16_t* text;
        Long color;
    };
    for (const auto& [text, color] :
         {Row{u"#FFF", 0xFFFFFF}, Row{u"FFF", 0xFFFFFF}, Row{u"xFFFFFF", 0xFFFFFF}, Row{u"#12", 0x221100}, Row{u"", 0},
          Row{u"#1G0000", 1}, Row{u"0a0B0c", 0x0C0B0A}, Row{u"G00", 0}, Row{u"#gg10-1", 0x001000}, Row{u"12345678", 0},
          Row{u"#123", 0x332211}, Row{u"1G3", 0x330011}}) {
        expectBoth<&moxColors::HTML2RGB>(colors, u"HTML2RGB", color, String(text));
    }
    expectBoth<&moxColors::RGB2HTML>(colors, u"RGB2HTML", String(u"#0A0B0C"), Long{0x0C0B0A});
    expectBoth<&moxColors::RGB2HTML>(colors, u"RGB2HTML", String(u"#FF0001"), Long{0x7F0100FF});
}

TEST_F(ColorsTest, convertsInks) {
    EXPECT_EQ(colors.CMY2RGB(0, 128, 255), 255 + 256 * 127);
    EXPECT_EQ(colors.CMY2RGB(256, -1, 511), 255);
    moX_CMY inks{0, 128, 255};
    EXPECT_EQ(colors.CMY2RGB2(inks), 255 + 256 * 127);
    EXPECT_EQ(colors.RGB2CMY2(0x102030), (moX_CMY{255 - 0x30, 255 - 0x20, 255 - 0x10}));

    struct Row {
        Long color;
        moX_CMYK inks;
    };
    for (const auto& [color, expected] :
         {Row{0, {255, 255, 255, 255}}, Row{0xFFFFFF, {0, 0, 0, 0}}, Row{0x0000FF, {0, 255, 255, 0}},
          Row{0x804020, {191, 128, 0, 127}}, Row{0x010101, {0, 0, 0, 254}}}) {
        EXPECT_EQ(colors.RGB2CMYK2(color), expected) << color;
        Long c = -1;
        Long m = -1;
        Long y = -1;
        Long k = -1;
        colors.RGB2CMYK(color, c, m, y, k);
        EXPECT_EQ((moX_CMYK{c, m, y, k}), expected);
    }
    EXPECT_EQ(colors.CMYK2RGB(255, 255, 255, 255), 0);
    EXPECT_EQ(colors.CMYK2RGB(0, 0, 0, 0), 0xFFFFFF);
    EXPECT_EQ(colors.CMYK2RGB(300, 0, 0, 0), 0xFFFF00); // more ink than there is
    EXPECT_EQ(colors.CMYK2RGB(-300, 0, 0, 0), 0xFFFFFF);
    for (const Long extreme : {lowest, std::numeric_limits<Long>::max()}) {
        EXPECT_EQ(errorOf([&] { colors.CMYK2RGB(extreme, extreme, extreme, extreme); }), 0);
    }
    moX_CMYK black{1, 2, 3, 255};
    EXPECT_EQ(colors.CMYK2RGB2(black), 0);
}

TEST_F(ColorsTest, givesGrey) {
    EXPECT_EQ(colors.GrayScale(0xFFFFFF), 0xFFFFFF);
    EXPECT_EQ(colors.GrayScale(0), 0);
    EXPECT_EQ(colors.GrayScale(0x0000FF), 0x4C4C4C);
    EXPECT_EQ(colors.GrayScale(0x00FF00), 0x979797);
    EXPECT_EQ(colors.GrayScale(0x7FFF0000), 0x1B1B1B);
}

TEST_F(ColorsTest, validatesHues) {
    struct Row {
        moX_HSL given;
        moX_HSL valid;
    };
    for (auto [given, valid] :
         {Row{{-1, 101, -5}, {359, 100, 0}}, Row{{360, 50, 50}, {0, 50, 50}}, Row{{-360, 0, 100}, {0, 0, 100}},
          Row{{-720, -1, 1}, {0, 0, 1}}, Row{{lowest, lowest, lowest}, {232, 0, 0}},
          Row{{2147483647, 2147483647, 2147483647}, {127, 100, 100}}}) {
        moX_HSL changed = given;
        colors.HSLValidate(changed.Hue, changed.Saturation, changed.Luminance);
        EXPECT_EQ(changed, valid);
        colors.HSLValidate2(given);
        EXPECT_EQ(given, valid);
    }
}

/// The model of largest channels, in another shape: sixths of the circle from the order of the channels.
moX_HSL modelHsl(Long color) {
    const int channels[] = {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF};
    const int top = std::max({channels[0], channels[1], channels[2]});
    const int bottom = std::min({channels[0], channels[1], channels[2]});
    moX_HSL result{0, 0, static_cast<Long>(std::nearbyint(top * 100 / 255.0))};
    if (top == bottom) {
        return result;
    }
    result.Saturation = static_cast<Long>(std::nearbyint((top - bottom) * 100.0 / top));
    const int largest = static_cast<int>(std::max_element(channels, channels + 3) - channels);
    const float step = static_cast<float>(60.0 / (top - bottom));
    double hue = 120.0 * largest + static_cast<double>(step) * (channels[(largest + 1) % 3] - channels[(largest + 2) % 3]);
    if (hue < 0) {
        hue += 360;
    }
    result.Hue = static_cast<Long>(std::nearbyint(hue));
    return result;
}

TEST_F(ColorsTest, findsHueSaturationAndLuminance) {
    std::mt19937 random(1);
    for (int times = 0; times < 3000; ++times) {
        const auto color = static_cast<Long>(random() & (times % 2 ? 0xFFFFFF : 0x030F03));
        EXPECT_EQ(colors.RGB2HSL2(color), modelHsl(color)) << color;
    }
    EXPECT_EQ(colors.RGB2HSL2(0x0100FF).Hue, 360) << "a red with a little blue";
    Long hue = 77;
    Long saturation = 88;
    Long luminance = 99;
    colors.RGB2HSL(0x808080, hue, saturation, luminance);
    EXPECT_EQ(hue, 77);
    EXPECT_EQ(saturation, 88);
    EXPECT_EQ(luminance, 50);
    EXPECT_EQ(colors.RGB2HSL2(0x808080), (moX_HSL{0, 0, 50}));
}

TEST_F(ColorsTest, makesColorsOfHues) {
    struct Row {
        moX_HSL hsl;
        bool validated;
        Long color;
    };
    for (auto [hsl, validated, color] : {
             Row{{0, 0, 100}, true, 0xFFFFFF},
             Row{{400, 50, 50}, false, 0},
             Row{{-1, 50, 50}, false, 0},
             Row{{0, 100, 100}, true, 0xFF},
             Row{{60, 100, 100}, true, 0x00FFFF},
             Row{{120, 100, 100}, true, 0x00FF00},
             Row{{180, 100, 100}, true, 0xFFFF00},
             Row{{240, 100, 100}, true, 0xFF0000},
             Row{{300, 100, 100}, true, 0xFF00FF},
             Row{{360, 100, 100}, false, 0xFF},
             Row{{30, 100, 100}, true, 0x0080FF}, // 127.5 is a tie, to the even one
             Row{{210, 40, 60}, true, 0x997A5C},
             Row{{400, -3, 60}, false, 0x999999},
             // out of range: a channel of 510 spills into its neighbour
             Row{{0, 100, 200}, false, 510},
             Row{{0, 0, 200}, false, 510 + 256 * 510 + 65536 * 510},
         }) {
        EXPECT_EQ(colors.HSL2RGB(hsl.Hue, hsl.Saturation, hsl.Luminance, validated), color) << hsl.Hue;
        const moX_HSL before = hsl;
        EXPECT_EQ(colors.HSL2RGB2(hsl, validated), color);
        EXPECT_EQ(hsl, before);
    }
    EXPECT_EQ(colors.HSL2RGB(400, 50, 50), colors.HSL2RGB(40, 50, 50, False));
    EXPECT_EQ(errorOf([&] { colors.HSL2RGB(lowest, lowest, lowest, False); }), 0);
}

TEST_F(ColorsTest, looksUpColorsOfTheSystem) {
    auto swap = machine->user32.GetSysColor.replace([](std::int32_t index) {
        return index == 5 ? 0x123456U : index == 0x105 ? 0xABCDEFU : 0U;
    });
    constexpr Long window = lowest + 5;
    EXPECT_EQ(colors.ConvertOleColor(window), 0x123456);
    EXPECT_EQ(colors.ConvertOleColor(lowest + 0x105), 0xABCDEF) << "all 31 bits are the index";
    EXPECT_EQ(colors.ConvertOleColor(0x7F010203), 0x7F010203);
    EXPECT_EQ(colors.RGB2HTML(window), u"#563412");
    EXPECT_EQ(colors.GrayScale(window), colors.GrayScale(0x123456));
    EXPECT_EQ(colors.RGB2HSL2(window), colors.RGB2HSL2(0x123456));
    EXPECT_EQ(colors.RGB2CMY2(window), colors.RGB2CMY2(0x123456));
    EXPECT_EQ(colors.RGB2CMYK2(window), colors.RGB2CMYK2(0x123456));
    Long red = 0;
    Long green = 0;
    Long blue = 0;
    colors.RGBSplit(window, red, green, blue);
    EXPECT_EQ(red + green * 256 + blue * 65536, 0x123456);
}

/// Each index as its own colour, so that the source of a colour shows.
platform::COLORREF indexAsColor(std::int32_t index) {
    return 0x1000U + static_cast<std::uint32_t>(index);
}

TEST(SystemColorTest, comesFromTheSystem) {
    struct Row {
        host::WindowsVersion windows;
        std::map<Long, Long> indexes;
    };
    const Row rows[] = {
        {{6, 1, 7601}, {{1601, 0}, {1625, 24}, {1626, 25}, {1627, 26}, {1628, 27}, {1629, 28}, {1630, 29}, {1631, 30}}},
        {{5, 0, 2195}, {{1601, 0}, {1625, 24}, {1626, 25}, {1627, 26}, {1628, 27}, {1629, 28}, {1630, 13}, {1631, 4}}},
        {{4, 0, 1381}, {{1601, 0}, {1625, 24}, {1626, 15}, {1627, 13}, {1628, 2}, {1629, 3}, {1630, 13}, {1631, 4}}},
    };
    for (const auto& [windows, indexes] : rows) {
        DrawingOn on(windows);
        auto swap = on.machine->user32.GetSysColor.replace(indexAsColor);
        const moxColors colors = on.drawing.Colors();
        for (const auto& [id, index] : indexes) {
            EXPECT_EQ(colors.SystemColor(static_cast<moX_DRAW_SYSCOLOR>(id)), 0x1000 + index) << id << " on " << windows.major;
        }
        EXPECT_EQ(colors.SystemColor(dsc_ExplBarNormGroup), 214 + 256 * 223 + 65536 * 247);
        EXPECT_EQ(colors.SystemColor(dsc_ExplBarNormGroupCaption), 60 * 256 + 165 * 65536);
        EXPECT_EQ(colors.SystemColor(dsc_ExplBarBG_Left), 51 + 256 * 102 + 65536 * 204);
        for (const Long id : {1600, 1653, 1700, 0, -1}) {
            EXPECT_EQ(colors.SystemColor(static_cast<moX_DRAW_SYSCOLOR>(id)), 0);
        }
        // Older systems are not asked for a style.
        EXPECT_EQ(on.machine->uxtheme.IsThemeActive.calls() > 0, windows.major > 5);
        EXPECT_EQ(on.machine->uxtheme.IsAppThemed.calls(), 0U);
    }
}

TEST(SystemColorTest, isMeasuredWithAVisualStyle) {
    DrawingOn on({}, true);
    const moxColors colors = on.drawing.Colors();
    auto& uxtheme = on.machine->uxtheme;
    EXPECT_EQ(colors.SystemColor(dsc_BtnFace), static_cast<Long>([&] {
                  const platform::Handle theme = uxtheme.OpenThemeData(0, u"GLOBALS");
                  const auto color = uxtheme.GetThemeSysColor(theme, 15);
                  uxtheme.CloseThemeData(theme);
                  return color;
              }()));
    // A style that draws the number of its part and state, and each pixel its place.
    auto draw = uxtheme.DrawThemeBackground.replace([&](platform::Handle, platform::Handle hdc, std::int32_t part, std::int32_t,
                                                        const platform::RECT& area, const platform::RECT&) {
        for (Long y = 0; y < area.bottom; ++y) {
            for (Long x = 0; x < area.right; ++x) {
                on.machine->gdi32.SetPixel(hdc, x, y, static_cast<platform::COLORREF>(part * 65536 + y * 256 + x));
            }
        }
        return 0;
    });
    auto size = uxtheme.GetThemePartSize.replace([](platform::Handle, platform::Handle, std::int32_t part, std::int32_t,
                                                    const platform::RECT&, std::int32_t, platform::SIZE& extent) {
        extent = part == 4 ? platform::SIZE{31, 17} : platform::SIZE{};
        return 0;
    });
    const std::map<Long, Long> expected{{dsc_ExplBarNormGroup, 5 * 65536 + 80 * 256 + 80},
                                        {dsc_ExplBarNormGroupBrdR, 5 * 65536 + 80 * 256 + 159},
                                        {dsc_ExplBarSpecGroupBrdB, 9 * 65536 + 159 * 256 + 80},
                                        {dsc_ExplBarBG_RightBottom, 65536 + 159 * 256 + 159},
                                        // 31 / 2 is a tie to 16, 17 / 2 to 8
                                        {dsc_ExplBarNormGroupCaption, 4 * 65536 + 7 * 256 + 14},
                                        {dsc_ExplBarSpecGroupCaption, 10 * 65536 + 9 * 256 + 15}};
    for (const auto& [id, color] : expected) {
        EXPECT_EQ(colors.SystemColor(static_cast<moX_DRAW_SYSCOLOR>(id)), color) << id;
    }
    auto nothing = uxtheme.DrawThemeBackground.replace([](auto...) { return -1; });
    EXPECT_EQ(colors.SystemColor(dsc_ExplBarNormGroup), 0xFFFFFF) << "nothing was drawn on the white ground";
}

TEST(SystemColorTest, meetsFaultsWithoutErrors) {
    sweepFaults([](FaultRun& run) {
        const moxColors colors{server::create<TRL_OBKR_MOX::_moxColors>()};
        const Long expected = run.machine()->user32.GetSysColor(15) == 0 ? 0 : colors.SystemColor(dsc_BtnFace);
        if (!run.faulted()) {
            EXPECT_NE(expected, 0);
        }
        EXPECT_EQ(errorOf([&] { colors.SystemColor(dsc_ExplBarNormGroup); }), 0);
    });
}

} // namespace

} // namespace mox::test
