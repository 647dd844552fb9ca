#include "drawing/drawing_support.h"

namespace mox::test {

namespace {

constexpr auto formatOf = [](Long flags) { return static_cast<moX_DRAW_TXT_FMT>(flags); };

/// A call of an operation that text goes through.
struct TextCall {
    std::string text;
    std::int32_t length = 0;
    platform::RECT area;
    std::uint32_t format = 0;
    platform::COLORREF color = 0;
    std::int32_t bkMode = 0;
};

class TextTest : public DrawingTest {
protected:
    /// What `draw` asked of DrawTextA; the answers are those of the machine.
    template <class Draw> std::vector<TextCall> calls(Draw&& draw) {
        std::vector<TextCall> result;
        auto& user32 = machine->user32;
        auto watch = user32.DrawTextA.replace([&](platform::Handle context, std::span<char> buffer, std::int32_t length,
                                                  platform::RECT& area, std::uint32_t format) {
            result.push_back({std::string(buffer.data(), buffer.size()), length, area, format,
                              machine->gdi32.GetTextColor(context), machine->gdi32.GetBkMode(context)});
            if ((format & platform::DT_MODIFYSTRING) != 0 && buffer.size() >= 6) {
                std::ranges::copy(std::string_view("ab...\0", 6), buffer.begin());
            }
            if ((format & platform::DT_CALCRECT) != 0) {
                area.right = area.left + 33;
                area.bottom = area.top + 11;
            }
            return 11;
        });
        draw();
        return result;
    }

    moxOffscreenBuffer target = buffer(200, 60);
    Long hdc = target.hDC();
    Long x2 = 150;
    Long y2 = 40;
};

TEST_F(TextTest, passesTextAndFormatOn) {
    const auto made = calls([&] {
        EXPECT_TRUE(
            static_cast<bool>(drawing.DrawText(hdc, 10, 5, x2, y2, u"A&B", 0x0000FF, formatOf(dtf_CENTER | dtf_SINGLELINE))));
    });
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(made[0].text, std::string("A&B\0\0\0\0", 7)) << "room for an ellipsis";
    EXPECT_EQ(made[0].length, 3);
    EXPECT_EQ(made[0].area, (platform::RECT{10, 5, 150, 40}));
    EXPECT_EQ(made[0].format, 0x21U);
    EXPECT_EQ(made[0].color, 0x0000FFU);
    EXPECT_EQ(made[0].bkMode, platform::TRANSPARENT);
    EXPECT_EQ(x2, 150);
    EXPECT_EQ(machine->gdi32.GetTextColor(hdc), 0U);
    EXPECT_EQ(machine->gdi32.GetBkMode(hdc), platform::OPAQUE);
}

TEST_F(TextTest, drawsAShadowFirstAndMeasuresLast) {
    const auto made = calls([&] {
        drawing.DrawText(hdc, 10, 5, x2, y2, u"text", 0x0000FF, dtf_LEFT, u"", 0, suPOINTS, False, False, False, False, 0, True,
                         True, std::numeric_limits<Long>::min() + 8, True);
    });
    ASSERT_EQ(made.size(), 3U);
    EXPECT_EQ(made[0].area, (platform::RECT{11, 6, 151, 41}));
    EXPECT_EQ(made[0].color, machine->user32.GetSysColor(8));
    EXPECT_EQ(made[1].area, (platform::RECT{10, 5, 150, 40}));
    EXPECT_EQ(made[1].color, 0x0000FFU);
    EXPECT_EQ(made[2].format, platform::DT_CALCRECT);
    EXPECT_EQ(x2, 43);
    EXPECT_EQ(y2, 16);
}

TEST_F(TextTest, shortensOutOfSight) {
    const auto shortened =
        calls([&] { drawing.DrawText(hdc, 10, 5, x2, y2, u"abcdefghijk", 0, formatOf(dtf_END_ELLIPSIS | dtf_VCENTER)); });
    ASSERT_EQ(shortened.size(), 2U);
    EXPECT_EQ(shortened[0].area, (platform::RECT{5010, 5, 5150, 40}));
    EXPECT_EQ(shortened[0].format, 0xFFFF8004U);
    EXPECT_EQ(shortened[0].length, 11);
    EXPECT_EQ(shortened[1].area, (platform::RECT{10, 5, 150, 40}));
    EXPECT_EQ(shortened[1].format, 4U) << "all flags from the ellipsis on are gone";
    EXPECT_EQ(shortened[1].text, std::string("ab...\0\0\0\0", 9));
    EXPECT_EQ(shortened[1].length, 5);
    const auto bare = calls([&] { drawing.DrawText(hdc, 10, 5, x2, y2, u"abcdefghijk", 0, formatOf(32768)); });
    ASSERT_EQ(bare.size(), 1U);
    EXPECT_EQ(bare[0].format, 0x8000U);
}

TEST_F(TextTest, makesItsFontForTheCall) {
    struct Row {
        Single size;
        MOX_SCALEUNIT unit;
        Integer degree;
        Long height;
    };
    std::int32_t horizontal = 96;
    auto caps = machine->gdi32.GetDeviceCaps.replace(
        [&](platform::Handle, std::int32_t index) { return index == platform::LOGPIXELSX ? horizontal : 121; });
    const auto request = [&](const char16_t* name, Single size, MOX_SCALEUNIT unit, Integer degree, Boolean clearType) {
        platform::LOGFONTA font;
        auto watch = machine->gdi32.CreateFontA.replace([&](auto height, auto, auto escapement, auto orientation, auto weight,
                                                            auto italic, auto underline, auto strikeOut, auto charSet, auto, auto,
                                                            auto quality, auto, auto) {
            font = {height,
                    0,
                    escapement,
                    orientation,
                    weight,
                    static_cast<std::uint8_t>(italic),
                    static_cast<std::uint8_t>(underline),
                    static_cast<std::uint8_t>(strikeOut),
                    static_cast<std::uint8_t>(charSet),
                    0,
                    0,
                    static_cast<std::uint8_t>(quality),
                    0,
                    {}};
            return 0;
        });
        drawing.DrawText(hdc, 0, 0, x2, y2, u"x", 0, dtf_LEFT, name, size, unit, True, False, True, False, degree, clearType);
        return font;
    };
    for (const auto& [size, unit, degree, height] :
         {Row{12, suPOINTS, 0, 16}, Row{12, suPOINTS, 90, 20}, Row{12, suPOINTS, 45, 18} /* 108 or 109 of 108.5: the even one */,
          Row{720, suTWIP, 180, 48}, Row{17.5F, suPIXEL, 0, 18}, Row{0.5F, suINCH, 270, 60}, Row{25.4F, suMM, 0, 96},
          Row{2.54F, suCM, 0, 96}, Row{12, static_cast<MOX_SCALEUNIT>(4), 0, 0}, Row{3e38F, suINCH, 0, 0}}) {
        const platform::LOGFONTA font = request(u"Arial", size, unit, degree, True);
        EXPECT_EQ(font.lfHeight, -height) << size << " of unit " << unit;
        EXPECT_EQ(font.lfEscapement, degree * 10);
        EXPECT_EQ(font.lfWeight, 700);
        EXPECT_EQ(font.lfUnderline, 1);
        EXPECT_EQ(font.lfItalic + font.lfStrikeOut, 0);
        EXPECT_EQ(font.lfCharSet, 1);
        EXPECT_EQ(font.lfQuality, 5);
    }
    EXPECT_EQ(request(u"Arial", 12, suPOINTS, 0, False).lfQuality, 0);
    EXPECT_EQ(request(u"", 12, suPOINTS, 0, True).lfHeight, 0) << "no name, no font";
    EXPECT_EQ(request(u"Arial", 0, suPOINTS, 0, True).lfHeight, 0);
    EXPECT_EQ(request(u"Arial", -3, suPOINTS, 0, True).lfHeight, 0);
}

TEST_F(TextTest, takesFontObjects) {
    const StdFont font = drawing.Font().CreateFont(u"Arial", 24, True);
    EXPECT_EQ(drawing.DrawTextF(hdc, 0, 0, x2, y2, u"Text", 0, dtf_LEFT, font), -1);
    EXPECT_EQ(drawing.DrawTextF(hdc, 0, 0, x2, y2, u"Text", 0, dtf_LEFT, StdFont()), -1);
    EXPECT_EQ(drawing.DrawTextF(0, 0, 0, x2, y2, u"Text", 0, dtf_LEFT, font), 0);
    const platform::Handle before = machine->gdi32.GetStockObject(platform::SYSTEM_FONT);
    EXPECT_EQ(machine->gdi32.SelectObject(hdc, before), before);
}

TEST_F(TextTest, showsOnTheSurface) {
    const auto inked = [&](Long left, Long top, Long right, Long bottom) {
        Long count = 0;
        for (Long y = top; y < bottom; ++y) {
            for (Long x = left; x < right; ++x) {
                count += pixel(hdc, x, y) != 0xFFFFFF;
            }
        }
        return count;
    };
    EXPECT_TRUE(static_cast<bool>(drawing.DrawText(hdc, 100, 10, x2, y2, u"Hmx", 0x800000, dtf_LEFT, u"Arial", 14)));
    EXPECT_GT(inked(100, 10, 150, 40), 60);
    EXPECT_EQ(inked(0, 0, 100, 60), 0);
    EXPECT_EQ(inked(150, 0, 200, 60), 0) << "clipped to the rectangle";
    target.Cls();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawText(hdc, 10, 10, x2, y2, u"Hmx", 0, dtf_CALCRECT, u"Arial", 14)));
    EXPECT_EQ(inked(0, 0, 200, 60), 0);
    // Upwards from the corner of the rectangle.
    x2 = 200;
    EXPECT_TRUE(static_cast<bool>(
        drawing.DrawText(hdc, 100, 50, x2, y2, u"Hmx", 0, dtf_NOCLIP, u"Arial", 14, suPOINTS, False, False, False, False, 90)));
    EXPECT_GT(inked(100, 0, 130, 50), 60);
    EXPECT_EQ(inked(0, 0, 99, 60), 0);
}

TEST(TextFaultsTest, leaveNothingOpen) {
    sweepFaults([](FaultRun& run) {
        const moxDrawing drawing{server::create<TRL_OBKR_MOX::_moxDrawing>()};
        const auto target = drawing.CreateOffscreenBuffer(80, 20);
        Long right = 80;
        Long bottom = 20;
        bool isDrawn = false;
        const Long error = errorOf([&] {
            isDrawn = static_cast<bool>(drawing.DrawText(target.hDC(), 0, 0, right, bottom, u"a text that is too long", 0,
                                                         formatOf(dtf_END_ELLIPSIS), u"Arial", 12, suPOINTS, False, False, False,
                                                         False, 30, True, True, 0, True));
        });
        EXPECT_TRUE(error == 0 || (error == 7 && run.faulted())) << "texts that are not converted raise error 7";
        EXPECT_TRUE(isDrawn || run.faulted());
    });
}

} // namespace

} // namespace mox::test
