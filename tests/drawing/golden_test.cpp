// A few pictures that were looked at and found good, against what is drawn now. With MOX_GOLDEN set to a folder the pictures
// drawn are written there, to be looked at.
#include "drawing/drawing_support.h"

#include "host/pictures/pngfile.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace mox::test {

namespace {

using host::Bitmap;
using host::Pixel;

std::vector<std::byte> contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(stream), {});
    const auto bytes = std::as_bytes(std::span(content));
    return {bytes.begin(), bytes.end()};
}

/// The mean difference of the channels, 0 to 255, over the pixels that are no ground in either picture.
double differenceOf(const Bitmap& a, const Bitmap& b) {
    double sum = 0;
    double count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const Pixel one = a.pixels(y)[x] & 0xFFFFFF;
            const Pixel two = b.pixels(y)[x] & 0xFFFFFF;
            if (one == 0xFFFFFF && two == 0xFFFFFF) {
                continue;
            }
            for (int shift = 0; shift < 24; shift += 8) {
                sum += std::abs(static_cast<int>(one >> shift & 0xFF) - static_cast<int>(two >> shift & 0xFF));
            }
            count += 3;
        }
    }
    return count == 0 ? 0 : sum / count;
}

class GoldenTest : public DrawingTest {
protected:
    /// Fails if what the buffer holds differs from the picture of that name by more than `most`.
    void expectPicture(const moxOffscreenBuffer& drawn, const std::string& name, double most) {
        const auto bitmap = machine->graphics.bitmap(drawn.hBmp());
        ASSERT_NE(bitmap, nullptr);
        if (const char* const folder = std::getenv("MOX_GOLDEN")) {
            const auto bytes = host::writePng(*bitmap);
            std::ofstream(std::filesystem::path(folder) / name, std::ios::binary)
                .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        }
        const auto golden = host::readPng(contentOf(std::filesystem::path(MOX_TEST_DATA) / name));
        ASSERT_EQ(golden->width(), bitmap->width());
        ASSERT_EQ(golden->height(), bitmap->height());
        EXPECT_LE(differenceOf(*golden, *bitmap), most) << name;
    }
};

TEST_F(GoldenTest, textLooksAsItDid) {
    const auto sheet = buffer(340, 250);
    const Long hdc = sheet.hDC();
    Long right = 330;
    Long bottom = 240;
    const auto draw = [&](Long x, Long y, const char16_t* text, const char16_t* face, Single size, Boolean bold, Boolean italic,
                          Integer degree, Boolean clearType, Boolean shadow) {
        EXPECT_TRUE(static_cast<bool>(drawing.DrawText(hdc, x, y, right, bottom, text, 0x602000, dtf_NOCLIP, face, size, suPOINTS,
                                                       bold, italic, False, False, degree, clearType, shadow)));
    };
    draw(10, 5, u"The quick brown fox, grey", u"Liberation Sans", 12, False, False, 0, False, False);
    draw(10, 30, u"The quick brown fox, in thirds", u"Liberation Sans", 12, False, False, 0, True, False);
    draw(10, 55, u"Bold and italic \u00C4\u00E9\u20AC", u"Liberation Serif", 16, True, True, 0, False, False);
    draw(10, 90, u"Equally wide", u"Liberation Mono", 11, False, False, 0, False, False);
    draw(10, 115, u"Shadow", u"Liberation Sans", 28, True, False, 0, False, True);
    for (Integer degree = 0; degree < 360; degree = static_cast<Integer>(degree + 45)) {
        draw(265, 165, u"   turned", u"Liberation Sans", 10, False, False, degree, False, False);
    }
    // Versions of FreeType may differ a little; the same one pixel beside gives 73.
    expectPicture(sheet, "text.png", 25);
}

TEST_F(GoldenTest, iconsLookAsTheyDid) {
    const auto sheet = buffer(250, 100);
    Long x = 4;
    for (const moX_DRAW_SYSICON icon : {dsi_Error, dsi_Question, dsi_Warning, dsi_Information, dsi_WinLogo, dsi_Shield}) {
        EXPECT_TRUE(static_cast<bool>(drawing.DrawSystemIcon(icon, sheet.hDC(), x, 4)));
        EXPECT_TRUE(static_cast<bool>(drawing.DrawSystemIcon(icon, sheet.hDC(), x, 40, 16, 16)));
        EXPECT_TRUE(static_cast<bool>(drawing.DrawSystemIcon(icon, sheet.hDC(), x, 60, 36, 36, 120)));
        x += 41;
    }
    // All ours; the same one pixel beside gives 19.
    expectPicture(sheet, "icons.png", 1);
}

} // namespace

} // namespace mox::test
