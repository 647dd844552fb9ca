#include "drawing/drawing_support.h"

#include "core/modMoxHub.h"

#include <algorithm>

namespace mox::test {

namespace {

class FontsTest : public DrawingTest {
protected:
    moxFont fonts = drawing.Font();
};

Currency points(Double value) {
    return {static_cast<std::int64_t>(value * 10000)};
}

TEST_F(FontsTest, AreMadeAndCompared) {
    const StdFont plain = fonts.CreateFont(u"Arial");
    EXPECT_EQ(plain.Name(), u"Arial");
    EXPECT_EQ(plain.Size(), points(10));
    EXPECT_EQ(plain.Bold(), False);
    EXPECT_EQ(plain.Italic(), False);
    EXPECT_EQ(plain.Underline(), False);
    EXPECT_EQ(plain.Strikethrough(), False);
    const StdFont rich = fonts.CreateFont(u"Arial", 12.5F, True, True, True, True);
    EXPECT_EQ(rich.Size(), points(12.5));
    EXPECT_EQ(rich.Bold(), True);
    EXPECT_EQ(rich.Strikethrough(), True);

    const auto equal = [&](const StdFont& a, const StdFont& b) { return static_cast<bool>(fonts.IsEqual(a, b)); };
    EXPECT_TRUE(equal(StdFont(), StdFont()));
    EXPECT_FALSE(equal(plain, StdFont()));
    EXPECT_FALSE(equal(StdFont(), plain));
    EXPECT_TRUE(equal(plain, fonts.CreateFont(u"Arial")));
    EXPECT_FALSE(equal(plain, fonts.CreateFont(u"arial")));
    EXPECT_FALSE(equal(plain, fonts.CreateFont(u"Arial", 10.25F)));
    EXPECT_FALSE(equal(plain, fonts.CreateFont(u"Arial", 10, True)));
    EXPECT_FALSE(equal(plain, fonts.CreateFont(u"Arial", 10, False, True)));
    EXPECT_FALSE(equal(plain, fonts.CreateFont(u"Arial", 10, False, False, True)));
    EXPECT_FALSE(equal(plain, fonts.CreateFont(u"Arial", 10, False, False, False, True)));

    rich.put_Charset(2);
    const StdFont copy = fonts.Clone(rich);
    EXPECT_TRUE(equal(copy, rich));
    EXPECT_NE(copy.get(), rich.get());
    EXPECT_EQ(copy.Charset(), plain.Charset());
    EXPECT_TRUE(equal(rich, copy)) << "the character set does not count";
    fonts.CopyProperties(plain, copy);
    EXPECT_TRUE(equal(copy, plain));
    EXPECT_EQ(errorOf([&] { fonts.Clone(StdFont()); }), 91);
    EXPECT_EQ(errorOf([&] { fonts.CopyProperties(plain, StdFont()); }), 91);

    const StdFont odd = fonts.CreateFont(u"", -3, True);
    EXPECT_EQ(odd.Bold(), True) << "what is refused does not keep the rest from being set";
    EXPECT_FALSE(odd.Name().empty());
    EXPECT_GT(odd.Size().tenThousandths, 0);
}

TEST_F(FontsTest, OfTheSystemAreTold) {
    auto& user32 = machine->user32;
    auto parameters = user32.SystemParametersInfoA.replace(
        [](std::uint32_t action, std::uint32_t size, std::span<std::byte> record, std::uint32_t) {
            const auto named = [](std::string_view name, std::int32_t height, std::int32_t weight) {
                platform::LOGFONTA font;
                std::ranges::copy(name, font.lfFaceName.begin());
                font.lfHeight = height;
                font.lfWeight = weight;
                font.lfItalic = 3;
                font.lfCharSet = 238;
                return font;
            };
            if (action == 31 && size == 60) {
                const auto font = named("Icons", -12, 400);
                std::memcpy(record.data(), &font, sizeof font);
                return true;
            }
            platform::NONCLIENTMETRICSA metrics;
            if (action != 41 || size != 340 || record.size() != 340) {
                return false;
            }
            metrics.lfCaptionFont = named("Caption", 9, 401);
            metrics.lfSmCaptionFont = named("Small", -13, 400);
            metrics.lfMenuFont = named("Menu", -16, 700);
            metrics.lfStatusFont = named("Status", 0, 0);
            metrics.lfMessageFont = named("Message with a name of 32 chars.", -20, 0);
            std::memcpy(record.data(), &metrics, sizeof metrics);
            return true;
        });
    struct Row {
        FONT_DEFAULT_TYPE place;
        const char16_t* name;
        Double size;
        bool isBold;
    };
    const Currency untouched = StdFont::create().Size();
    for (const auto& [place, name, size, isBold] :
         {Row{FDT_ICONTITLE, u"Icons", 9, false}, Row{FDT_CAPTION, u"Caption", 9, true},
          Row{FDT_SMALLCAPTION, u"Small", 9.75, false}, Row{FDT_MENU, u"Menu", 12, true},
          Row{FDT_DIALOG, u"Message with a name of 32 chars.", 15, false}}) {
        const StdFont font = fonts.CreateDefaultFont(place);
        EXPECT_EQ(font.Name(), name);
        EXPECT_EQ(font.Size(), points(size)) << place;
        EXPECT_EQ(static_cast<bool>(font.Bold()), isBold) << place;
        EXPECT_EQ(font.Italic(), True);
        EXPECT_EQ(font.Charset(), 238);
    }
    EXPECT_EQ(fonts.CreateDefaultFont(FDT_STATUS).Size(), untouched) << "a height of 0 is no size";
    EXPECT_EQ(fonts.CreateDefaultFont(FDT_SYSTEMDEFAULT).Name(), u"System");
    EXPECT_TRUE(static_cast<bool>(fonts.CreateDefaultFont(static_cast<FONT_DEFAULT_TYPE>(77))));
    user32.SystemParametersInfoA.fail();
    EXPECT_TRUE(static_cast<bool>(fonts.IsEqual(fonts.CreateDefaultFont(FDT_MENU), StdFont::create())));
    user32.SystemParametersInfoA.restore();
}

TEST_F(FontsTest, MeasureText) {
    const StdFont font = fonts.CreateFont(u"Arial", 12);
    const Size text = fonts.GetTextExtent(u"Measure", font);
    EXPECT_GT(text.CX, 40);
    EXPECT_LT(text.CX, 80);
    EXPECT_GE(text.CY, 16);
    EXPECT_EQ(fonts.GetTextExtent(u"", font), (Size{0, text.CY}));
    EXPECT_EQ(fonts.GetTextExtent(u"Measure\r\nMeasure", font), (Size{text.CX, 2 * text.CY}));
    EXPECT_GT(fonts.GetTextExtent(u"a\tb", font).CX, fonts.GetTextExtent(u"a\tb", font, False, False).CX);
    EXPECT_EQ(fonts.GetTextExtent(u"A&B", font).CX - fonts.GetTextExtent(u"A&B", font, True).CX,
              fonts.GetTextExtent(u"&", font).CX);
    const Size twice = fonts.GetTextExtent(u"Measure", font, False, True, True, 2);
    EXPECT_NEAR(twice.CX, 2 * text.CX, 6);
    EXPECT_GT(fonts.GetTextExtent(u"x", StdFont()).CX, 3) << "the font of the context";
    EXPECT_EQ(errorOf([&] { fonts.GetTextExtent(u"x", font, False, True, True, 1e300); }), 0);
    // The height that is asked for is rounded once, a tie to the even one.
    std::int32_t height = 0;
    auto watch = machine->gdi32.CreateFontA.replace([&](auto asked, auto...) {
        height = asked;
        return 0;
    });
    for (const auto& [size, zoom, expected] : {std::tuple{9.0F, 1.0, 12}, std::tuple{9.0F, 2.0, 24},
                                               std::tuple{8.25F, 1.5, 16} /* 16.5 */, std::tuple{10.0F, 0.1, 1}}) {
        fonts.GetTextExtent(u"x", fonts.CreateFont(u"Arial", size), False, True, True, zoom);
        EXPECT_EQ(height, -expected) << size;
    }
}

/// Lists these names with their character sets, pitch and family.
struct Listed {
    const char* name;
    std::uint8_t charSet;
    std::uint8_t pitchAndFamily;
};

TEST_F(FontsTest, AreListedOnceAContext) {
    std::vector<platform::Handle> contexts;
    auto enumerate = machine->gdi32.EnumFontFamiliesExA.replace(
        [&](platform::Handle hdc, const platform::LOGFONTA& wanted, platform::FontFamilyProcedure procedure) {
            EXPECT_EQ(wanted.lfCharSet, 1);
            EXPECT_EQ(wanted.lfFaceName[0], '\0');
            contexts.push_back(hdc);
            for (const auto& [name, charSet, pitchAndFamily] :
                 {Listed{"beta", 0, 0x21}, Listed{"beta", 161, 0x21}, Listed{"Alpha", 0, 0x12}, Listed{"beta", 204, 0x22},
                  Listed{"Zeta", 2, 0x50}, Listed{"Eta", 0, 0x40}, Listed{"Theta", 0, 0x30}, Listed{"Iota", 0, 0x00}}) {
                platform::LOGFONTA font;
                std::ranges::copy(std::string_view(name), font.lfFaceName.begin());
                font.lfCharSet = charSet;
                font.lfPitchAndFamily = pitchAndFamily;
                EXPECT_EQ(procedure(font, {}, 4), 1);
            }
            return 1;
        });
    const moxFontEnumeration list = fonts.ScreenFonts();
    EXPECT_EQ(fonts.ScreenFonts().get(), list.get());
    EXPECT_EQ(contexts.size(), 1U);
    std::string all;
    for (Long index = -1; index <= list.Count(); ++index) {
        all += list.Name(index).utf8() + " " + std::to_string(list.Pitch(index)) + std::to_string(list.Family(index)) +
               (list.Symbol(index) ? "s" : "") + ";";
    }
    EXPECT_EQ(all.substr(0, 5), " 00;A");
    EXPECT_TRUE(all.starts_with(" 00;Alpha 21;Eta 04;Iota 00;Theta 03;Zeta 05s;beta ")) << all;
    EXPECT_EQ(list.Count(), 7) << "the direct repetition of a name is dropped, the later one stays";

    const platform::Handle printer = machine->gdi32.CreateCompatibleDC(0);
    const moxFontEnumeration printerList = fonts.PrinterFonts(0);
    EXPECT_EQ(contexts.size(), 2U);
    EXPECT_EQ(fonts.PrinterFonts(0).get(), printerList.get());
    EXPECT_EQ(contexts.size(), 2U);
    EXPECT_EQ(fonts.PrinterFonts(printer).get(), printerList.get());
    ASSERT_EQ(contexts.size(), 3U);
    EXPECT_EQ(contexts[2], printer);
    machine->gdi32.DeleteDC(printer);

    auto nothing = machine->gdi32.EnumFontFamiliesExA.replace([](auto&&...) { return 0; });
    EXPECT_EQ(fonts.PrinterFonts(0).Count(), 0);
    std::vector<server::modMoxHub::FontEntry> entries;
    EXPECT_EQ(server::modMoxHub::EnumerateFonts(entries, 0, u""), 0);
    EXPECT_EQ(entries.size(), 1U);
}

TEST_F(FontsTest, OfTheMachineAreListed) {
    const moxFontEnumeration list = fonts.ScreenFonts();
    std::vector<std::string> names;
    for (Long index = 0; index < list.Count(); ++index) {
        names.push_back(list.Name(index).utf8());
    }
    EXPECT_TRUE(std::ranges::is_sorted(names));
    const auto place = std::ranges::find(names, "Liberation Mono");
    ASSERT_NE(place, names.end());
    EXPECT_EQ(list.Pitch(static_cast<Long>(place - names.begin())), fntP_Fixed);
    const auto sans = std::ranges::find(names, "Liberation Sans");
    ASSERT_NE(sans, names.end());
    EXPECT_EQ(list.Pitch(static_cast<Long>(sans - names.begin())), fntP_Variable);
    EXPECT_EQ(list.Family(static_cast<Long>(sans - names.begin())), fntF_Swiss);
}

TEST(FontsFaultsTest, leaveNothingOpen) {
    sweepFaults([](FaultRun& run) {
        const moxFont fonts{server::create<TRL_OBKR_MOX::_moxFont>()};
        const StdFont font = fonts.CreateFont(u"Arial", 12);
        Size size;
        EXPECT_TRUE(errorOf([&] { size = fonts.GetTextExtent(u"text", font); }) == 0 || run.faulted());
        EXPECT_TRUE(size.CX > 10 || run.faulted());
        EXPECT_EQ(errorOf([&] { fonts.CreateDefaultFont(FDT_MENU); }), 0);
        EXPECT_EQ(errorOf([&] { fonts.CreateDefaultFont(FDT_SYSTEMDEFAULT); }), 0);
    });
    sweepFaults([](FaultRun& run) {
        const moxFont fonts{server::create<TRL_OBKR_MOX::_moxFont>()};
        Long count = 0;
        EXPECT_TRUE(errorOf([&] { count = fonts.ScreenFonts().Count(); }) == 0 || run.faulted());
        EXPECT_TRUE(count > 0 || run.faulted());
    });
}

} // namespace

} // namespace mox::test
