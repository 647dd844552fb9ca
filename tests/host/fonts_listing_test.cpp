// Which fonts there are, and which one is taken.
#include "fonts_support.h"

#include "host/fonts/drawglyphs.h"
#include "host/fonts/fonts.h"
#include "host/fonts/typeface.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <thread>

namespace mox::test {

namespace {

using namespace platform;
namespace fs = std::filesystem;

const fs::path liberation = "/usr/share/fonts/truetype/liberation";

LOGFONTA wish(std::string_view face, int height = -16) {
    LOGFONTA font{.lfHeight = height, .lfCharSet = DEFAULT_CHARSET};
    std::ranges::copy(face, font.lfFaceName.begin());
    return font;
}

/// A machine's fonts in a folder of the test.
struct FontFolder {
    FontFolder() {
        fs::create_directories(folder);
        std::ofstream(machine.folder() / "fonts.conf")
            << "<?xml version=\"1.0\"?><fontconfig><dir>" << folder.string() << "</dir><cachedir>"
            << (machine.folder() / "cache").string() << "</cachedir></fontconfig>";
    }
    void add(const std::string& name) const {
        fs::copy_file(liberation / name, folder / name, fs::copy_options::overwrite_existing);
    }

    mutable TestMachine machine;
    const fs::path folder = machine.folder() / "fonts";
};

TEST(FontChoiceTest, takesTheNamedFontOrOneThatStandsForIt) {
    const FontFolder folder;
    for (const char* name : {"LiberationSans-Regular.ttf", "LiberationSans-Bold.ttf", "LiberationSerif-Italic.ttf",
                             "LiberationSerif-Regular.ttf", "LiberationMono-Regular.ttf"}) {
        folder.add(name);
    }
    host::Fonts fonts(host::CodePage(1252), folder.machine.folder() / "fonts.conf");
    struct Case {
        std::string_view face;
        std::uint8_t pitchAndFamily;
        std::int32_t weight;
        bool isItalic;
        std::string_view file;
    };
    const Case cases[] = {
        {"Liberation Serif", 0, 400, false, "LiberationSerif-Regular.ttf"},
        {"liberation sans", 0, 400, false, "LiberationSans-Regular.ttf"},
        {"Arial", 0, 0, false, "LiberationSans-Regular.ttf"},
        {"ARIAL", 0, 700, false, "LiberationSans-Bold.ttf"},
        {"Times New Roman", 0, 400, true, "LiberationSerif-Italic.ttf"},
        {"Courier New", 0, 900, true, "LiberationMono-Regular.ttf"},
        {"MS Sans Serif", 0, 400, false, "LiberationSans-Regular.ttf"},
        {"Segoe UI", 0, 400, false, "LiberationSans-Regular.ttf"},
        {"Fixedsys", 0, 400, false, "LiberationMono-Regular.ttf"},
        {"@Arial", 0, 400, false, "LiberationSans-Regular.ttf"},
        {"Nobody Knows It", 0, 400, false, "LiberationSans-Regular.ttf"},
        {"Nobody Knows It", FF_ROMAN, 400, false, "LiberationSerif-Regular.ttf"},
        {"Nobody Knows It", FF_MODERN | FIXED_PITCH, 400, false, "LiberationMono-Regular.ttf"},
        {"Nobody Knows It", FIXED_PITCH, 400, false, "LiberationMono-Regular.ttf"},
        {"", FF_ROMAN, 400, true, "LiberationSerif-Italic.ttf"},
        {"Wingdings", 0, 400, false, "LiberationSans-Regular.ttf"},
    };
    for (const Case& expected : cases) {
        LOGFONTA font = wish(expected.face);
        font.lfPitchAndFamily = expected.pitchAndFamily;
        font.lfWeight = expected.weight;
        font.lfItalic = expected.isItalic;
        const auto typeface = fonts.typeface(font);
        ASSERT_NE(typeface, nullptr);
        EXPECT_EQ(fs::path(typeface->file().path).filename(), expected.file) << expected.face;
        EXPECT_EQ(fonts.typeface(font), typeface) << "made again";
    }
}

TEST(FontChoiceTest, makesBoldAndItalicOnesItself) {
    const FontFolder folder;
    folder.add("LiberationSans-Regular.ttf");
    host::Fonts fonts(host::CodePage(1252), folder.machine.folder() / "fonts.conf");
    LOGFONTA font = wish("Arial", -20);
    const auto plain = fonts.typeface(font);
    font.lfWeight = FW_BOLD;
    font.lfItalic = 1;
    const auto made = fonts.typeface(font);
    ASSERT_TRUE(plain && made);
    EXPECT_EQ(made->width(u"HHHH"), plain->width(u"HHHH") + 4);
    EXPECT_EQ(made->textMetrics().tmWeight, FW_BOLD);
    EXPECT_EQ(made->textMetrics().tmItalic, 255);
    EXPECT_EQ(made->textMetrics().tmAveCharWidth, plain->textMetrics().tmAveCharWidth + 1);
    EXPECT_NE(made->matrix().m21, 0);
    EXPECT_EQ(plain->matrix().m21, 0);
}

TEST(FontChoiceTest, goesOnWithoutDamagedFiles) {
    const FontFolder folder;
    for (const char* name : {"LiberationSans-Regular.ttf", "LiberationSerif-Regular.ttf"}) {
        folder.add(name);
    }
    const fs::path file = folder.folder / "LiberationSans-Regular.ttf";
    const auto configuration = folder.machine.folder() / "fonts.conf";
    {
        // Damaged after it was listed.
        host::Fonts fonts(host::CodePage(1252), configuration);
        ASSERT_NE(fonts.typeface(wish("Arial", -30)), nullptr);
        fs::resize_file(file, 100);
        const auto other = fonts.typeface(wish("Arial"));
        ASSERT_NE(other, nullptr);
        EXPECT_EQ(fs::path(other->file().path).filename(), "LiberationSerif-Regular.ttf");
    }
    // Wherever a byte is wrong, there is a font, and using it ends well.
    std::ifstream in(liberation / "LiberationSans-Regular.ttf", std::ios::binary);
    const std::string good((std::istreambuf_iterator<char>(in)), {});
    for (std::size_t step = 0; step < 60; ++step) {
        std::string bad = good;
        for (std::size_t place = step * 7 % 13; place < bad.size(); place += step < 30 ? 97 + step : 5000 + step * 31) {
            bad[place] = static_cast<char>(bad[place] ^ static_cast<char>(1 + step * 37));
        }
        bad.resize(step % 4 == 3 ? bad.size() * step / 60 : bad.size());
        // The tables' places stay right in every second one, so that the damage gets further.
        std::copy_n(good.begin(), step % 2 == 0 ? std::min<std::size_t>(300, bad.size()) : 0, bad.begin());
        const fs::path path = folder.folder / ("bad" + std::to_string(step) + ".ttf");
        std::ofstream(path, std::ios::binary) << bad;
        host::Fonts fonts(host::CodePage(1252), configuration);
        for (const std::uint8_t quality : {ANTIALIASED_QUALITY, NONANTIALIASED_QUALITY, CLEARTYPE_QUALITY}) {
            LOGFONTA font = wish("Liberation Sans", -20);
            font.lfQuality = quality;
            for (const auto& typeface : {fonts.typeface(font), fonts.openTypeface({.path = path.string()}, font)}) {
                if (typeface) {
                    EXPECT_GE(typeface->width(u"The quick brown fox \u0416 \u4E00"), 0);
                    EXPECT_GT(typeface->height(), 0);
                    const auto bitmap = host::Bitmap::create(100, 40);
                    host::TextRun run;
                    run.typeface = typeface;
                    for (std::uint32_t glyph = 0; glyph < 200; ++glyph) {
                        run.glyphs.push_back({glyph, {static_cast<double>(glyph % 100), 30}});
                    }
                    EXPECT_TRUE(host::drawGlyphs(*bitmap, run, host::Region(bitmap->bounds())));
                }
            }
        }
        EXPECT_NE(fonts.typeface(wish("Liberation Serif")), nullptr);
        fs::remove(path);
    }
}

TEST(FontChoiceTest, hasNoTextWithoutFonts) {
    const FontFolder folder;
    host::Fonts fonts(host::CodePage(1252), folder.machine.folder() / "fonts.conf");
    EXPECT_EQ(fonts.typeface(wish("Arial")), nullptr);
    EXPECT_TRUE(fonts.list("").empty());
    EXPECT_EQ(fonts.openTypeface({.path = "/nowhere/font.ttf"}, wish("")), nullptr);
}

TEST(FontChoiceTest, borrowsMissingCharacters) {
    const FontFolder folder;
    folder.add("LiberationSans-Regular.ttf");
    host::Fonts fonts(host::CodePage(1252), folder.machine.folder() / "fonts.conf");
    const auto typeface = fonts.typeface(wish("Arial"));
    std::array<host::Typeface::Character, 2> characters;
    typeface->shape(u"A\u4E00", characters);
    EXPECT_EQ(&typeface->sourceOf(characters[0].glyph), typeface.get());
    EXPECT_EQ(characters[1].glyph, 0U); // the box of the font itself, for want of another font
    EXPECT_GT(characters[1].advance, 0);
    TestMachine machine;
    const auto common = machine->fonts.typeface(wish("Liberation Sans"));
    common->shape(u"A\u2603", characters); // a snowman, which the DejaVu fonts have
    if (characters[1].glyph != 0) {
        const host::Typeface& source = common->sourceOf(characters[1].glyph);
        EXPECT_NE(&source, common.get());
        EXPECT_EQ(source.pixelsPerEm(), common->pixelsPerEm());
        EXPECT_TRUE(source.hasCharacter(0x2603));
    }
}

TEST(FontChoiceTest, servesSeveralThreads) {
    TestMachine machine;
    std::vector<std::thread> threads;
    std::array<double, 4> widths{};
    for (double& width : widths) {
        threads.emplace_back([&] {
            const auto bitmap = host::Bitmap::create(200, 40);
            for (int round = 0; round < 200; ++round) {
                const auto typeface = machine->fonts.typeface(wish("Arial", -8 - round % 90));
                width += typeface->width(u"Threads and \u2603");
                host::TextRun run;
                run.typeface = typeface;
                run.glyphs = {{40, {5, 30}}, {50, {25, 30}}};
                host::drawGlyphs(*bitmap, run, host::Region(bitmap->bounds()));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_GT(widths[0], 0);
    EXPECT_EQ(std::set<double>(widths.begin(), widths.end()).size(), 1U);
}

struct FontListingTest : testing::Test {
    struct Entry {
        LOGFONTA font;
        TEXTMETRICA metrics;
        std::uint32_t type;
    };
    std::vector<Entry> list(std::string_view face, std::uint8_t charSet) {
        std::vector<Entry> entries;
        LOGFONTA wanted = wish(face);
        wanted.lfCharSet = charSet;
        const std::int32_t answer = machine->gdi32.EnumFontFamiliesExA(
            hdc, wanted, [&](const LOGFONTA& font, const TEXTMETRICA& metrics, std::uint32_t type) {
                entries.push_back({font, metrics, type});
                return 7;
            });
        EXPECT_EQ(answer, entries.empty() ? 1 : 7);
        return entries;
    }
    ~FontListingTest() override { machine->gdi32.DeleteDC(hdc); }

    TestMachine machine;
    const Handle hdc = machine->gdi32.CreateCompatibleDC(0);
};

TEST_F(FontListingTest, listsEachFamilyWithItsCharacterSets) {
    std::map<std::string, std::set<int>> sets;
    std::vector<std::string> names;
    for (const Entry& entry : list("", DEFAULT_CHARSET)) {
        const std::string name = entry.font.lfFaceName.data();
        EXPECT_TRUE(sets[name].insert(entry.font.lfCharSet).second) << name << " twice";
        EXPECT_EQ(entry.metrics.tmCharSet, entry.font.lfCharSet);
        EXPECT_EQ(entry.type, 4U);
        EXPECT_EQ(entry.font.lfHeight, entry.metrics.tmHeight);
        if (names.empty() || names.back() != name) {
            names.push_back(name);
        }
    }
    EXPECT_TRUE(std::ranges::is_sorted(names));
    EXPECT_EQ(names.size(), sets.size()) << "a family is not in one place";
    const std::set<int> western{0, 161, 162, 186, 204, 238};
    EXPECT_TRUE(std::ranges::includes(sets["Liberation Sans"], western));
    EXPECT_FALSE(sets["Liberation Sans"].contains(128));
    EXPECT_FALSE(sets.contains("Arial")) << "stand-ins are not listed";
}

TEST_F(FontListingTest, restrictsByNameAndCharacterSet) {
    std::set<std::pair<int, bool>> styles;
    for (const Entry& entry : list("liberation sans", ANSI_CHARSET)) {
        EXPECT_STREQ(entry.font.lfFaceName.data(), "Liberation Sans");
        EXPECT_EQ(entry.font.lfCharSet, ANSI_CHARSET);
        styles.insert({entry.font.lfWeight, entry.font.lfItalic != 0});
    }
    EXPECT_EQ(styles, (std::set<std::pair<int, bool>>{{400, false}, {700, false}, {400, true}, {700, true}}));
    EXPECT_TRUE(list("Nobody Knows It", DEFAULT_CHARSET).empty());
    EXPECT_TRUE(list("Liberation Sans", 128).empty());
    struct Case {
        std::string_view face;
        int pitchAndFamily;
    };
    for (const Case& expected :
         {Case{"Liberation Sans", FF_SWISS | VARIABLE_PITCH}, Case{"Liberation Serif", FF_ROMAN | VARIABLE_PITCH},
          Case{"Liberation Mono", FF_MODERN | FIXED_PITCH}}) {
        const auto entries = list(expected.face, ANSI_CHARSET);
        ASSERT_FALSE(entries.empty());
        EXPECT_EQ(entries[0].font.lfPitchAndFamily, expected.pitchAndFamily) << expected.face;
        EXPECT_EQ(entries[0].metrics.tmPitchAndFamily & 1, expected.pitchAndFamily & 2 ? 1 : 0) << expected.face;
    }
}

TEST_F(FontListingTest, endsWhenTheProcedureSaysSo) {
    int calls = 0;
    EXPECT_EQ(machine->gdi32.EnumFontFamiliesExA(hdc, wish(""), [&](auto&&...) { return ++calls == 3 ? 0 : 1; }), 0);
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(machine->gdi32.EnumFontFamiliesExA(4711, wish(""), [&](auto&&...) { return ++calls; }), 0);
    EXPECT_EQ(machine->gdi32.EnumFontFamiliesExA(hdc, wish(""), nullptr), 0);
    EXPECT_EQ(calls, 3);
}

TEST(SystemFontsTest, followTheVersion) {
    struct Case {
        std::uint32_t major;
        std::string_view face;
        int height;
    };
    for (const Case& expected : {Case{5, "Tahoma", -11}, Case{6, "Segoe UI", -12}, Case{10, "Segoe UI", -12}}) {
        host::MachineConfig config;
        config.windows.major = expected.major;
        TestMachine machine(config);
        User32& user = machine->user32;
        LOGFONTA font;
        EXPECT_TRUE(user.SystemParametersInfoA(SPI_GETICONTITLELOGFONT, 60, bytesOf(font), 0));
        EXPECT_EQ(font.lfFaceName.data(), expected.face);
        EXPECT_EQ(font.lfHeight, expected.height);
        NONCLIENTMETRICSA metrics;
        EXPECT_TRUE(user.SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 340, bytesOf(metrics), 0));
        EXPECT_EQ(metrics.cbSize, 340U);
        EXPECT_EQ(metrics.lfMenuFont.lfFaceName.data(), expected.face);
        EXPECT_EQ(metrics.lfMessageFont.lfHeight, expected.height);
        metrics.cbSize = 344;
        EXPECT_FALSE(user.SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 340, bytesOf(metrics), 0));
        EXPECT_FALSE(user.SystemParametersInfoA(SPI_GETICONTITLELOGFONT, 60, bytesOf(font).first(59), 0));
        EXPECT_FALSE(user.SystemParametersInfoA(SPI_GETICONTITLELOGFONT, 0, bytesOf(font), 0));
        EXPECT_FALSE(user.SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 340, {}, 0));
        EXPECT_FALSE(user.SystemParametersInfoA(4711, 60, bytesOf(font), 0));
    }
}

} // namespace

} // namespace mox::test
