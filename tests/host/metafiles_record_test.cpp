#include "metafiles_support.h"

#include "host/metafiles/enhancedplayer.h"

#include <array>
#include <filesystem>
#include <fstream>

namespace mox::test {

namespace {

using namespace platform;
using host::Brush;
using host::Pen;
using host::Pixel;

struct MetafilesRecordTest : MetafilesTest {};

void usePen(DeviceContext& context, Pen pen) {
    context.state().pen = {0, std::make_shared<const Pen>(pen)};
}

void useBrush(DeviceContext& context, Brush brush) {
    context.state().brush = {0, std::make_shared<const Brush>(std::move(brush))};
}

std::shared_ptr<host::Bitmap> picture(host::BitmapFormat format) {
    for (Pixel color = 0; format.bitsPerPixel <= 8 && color < 1U << format.bitsPerPixel; ++color) {
        format.colors.push_back(color * 0x1F3D57 & 0xFFFFFF);
    }
    auto bitmap = host::Bitmap::create(std::move(format));
    std::uint32_t random = 7;
    for (std::byte& byte : bitmap->bytes()) {
        random = random * 1664525 + 1013904223;
        byte = static_cast<std::byte>(random >> 24);
    }
    return bitmap;
}

/// A memory context to copy from.
DeviceContext sourceOf(DeviceContext& like, std::shared_ptr<host::Bitmap> bitmap) {
    return DeviceContext(like.graphics(), DeviceContext::Kind::memory, like.sharedDevice(),
                         std::make_shared<host::RasterCanvas>(std::move(bitmap)));
}

struct Case {
    const char* name;
    std::function<void(DeviceContext&)> draw;
};

const std::vector<Case>& cases() {
    static const std::vector<Case> all{
        {"lines go on from the position",
         [](DeviceContext& context) {
             POINT before;
             usePen(context, {PS_SOLID, 0, 0xFF});
             context.moveTo({2, 2}, before);
             context.lineTo({30, 2});
             context.lineTo({30, 20});
             context.moveTo({5, 25}, before);
             context.lineTo({35, 7});
         }},
        {"a wide dashed pen and one with flat ends",
         [](DeviceContext& context) {
             POINT before;
             usePen(context, {.width = 5, .color = 0x8000, .endCap = 0x200, .join = 0x2000});
             context.moveTo({8, 8}, before);
             context.lineTo({30, 8});
             usePen(context, {PS_DASH, 1, 0x800000});
             context.state().bkColor = 0xC0FFC0;
             context.lineTo({30, 28});
         }},
        {"rectangles with several pens and brushes",
         [](DeviceContext& context) {
             useBrush(context, {.color = 0x30A0F0});
             context.rectangle({2, 2, 20, 12});
             usePen(context, {PS_NULL, 0, 0});
             context.rectangle({22, 2, 38, 12});
             useBrush(context, {BS_HATCHED, 0xFF0000, 5});
             usePen(context, {PS_INSIDEFRAME, 3, 0x123456});
             context.state().bkMode = TRANSPARENT;
             context.state().brushOrigin = {3, 1};
             context.rectangle({2, 14, 38, 28});
         }},
        {"round shapes",
         [](DeviceContext& context) {
             useBrush(context, {.color = 0xC0C000});
             context.ellipse({1, 1, 20, 18});
             context.roundRect({21, 3, 39, 28}, {7, 9});
         }},
        {"polygons by both rules, curves and lines",
         [](DeviceContext& context) {
             useBrush(context, {.color = 0x4080C0});
             const std::array<POINT, 5> star{POINT{10, 1}, {16, 18}, {1, 7}, {19, 7}, {4, 18}};
             context.polygon(star);
             context.state().fillRule = host::FillRule::winding;
             std::array<POINT, 5> right = star;
             for (POINT& point : right) {
                 point.x += 19;
             }
             context.polygon(right);
             const std::array<POINT, 4> curve{POINT{1, 20}, {12, 40}, {25, 5}, {38, 27}};
             context.polyBezier(curve);
             const std::array<POINT, 3> line{POINT{0, 29}, {39, 20}, {20, 29}};
             context.polyline(line);
             const std::array<POINT, 7> two{POINT{3, 22}, {9, 22}, {6, 28}, {12, 22}, {18, 22}, {18, 28}, {12, 28}};
             const std::array<std::uint32_t, 2> counts{3, 4};
             context.polyPolygon(two, counts);
         }},
        {"a path with fractions, open and closed",
         [](DeviceContext& context) {
             useBrush(context, {.color = 0x80FF});
             usePen(context, {PS_SOLID, 3, 0x4000});
             host::Path path;
             path.moveTo({3.25, 4.5});
             path.curveTo({10.125, 0}, {20, 20.0625}, {30.5, 6});
             path.lineTo({31, 25});
             path.lineTo({4, 22});
             context.drawPath(path, true, true);
             path.close();
             context.drawPath(path, false, true);
             context.drawPath(path, true, true);
         }},
        {"filled rectangles and single pixels",
         [](DeviceContext& context) {
             context.fillRect({3, 4, 17, 9}, {.color = 0x10FF10});
             context.fillRect({20, 4, 37, 25}, {BS_HATCHED, 0xFF, 4});
             context.setPixel({1, 1}, 0x445566);
             context.setPixel({1, 2}, 0xFF);
             context.rectangle({3, 11, 17, 22});
         }},
        {"pattern brushes with and without colours",
         [](DeviceContext& context) {
             context.state().textColor = 0xFF0000;
             context.state().bkColor = 0xFFFF;
             useBrush(context, {.style = BS_PATTERN, .pattern = picture({.width = 8, .height = 8, .bitsPerPixel = 1})});
             context.rectangle({1, 1, 20, 29});
             useBrush(context, {.style = BS_PATTERN, .pattern = picture({.width = 8, .height = 8})});
             context.rectangle({20, 1, 39, 29});
         }},
        {"mixing with what is there",
         [](DeviceContext& context) {
             context.fillRect({0, 0, 20, 30}, {.color = 0x80C0});
             context.state().rop2 = R2_XORPEN;
             useBrush(context, {.color = 0xFFFFFF});
             context.rectangle({10, 5, 30, 25});
             context.bitBlt({5, 5, 10, 10}, nullptr, {}, DSTINVERT);
             context.bitBlt({15, 15, 20, 5}, nullptr, {}, PATINVERT);
         }},
        {"copies of pixels of every depth",
         [](DeviceContext& context) {
             int x = 0;
             for (const int bits : {1, 4, 8, 16, 24, 32}) {
                 host::BitmapFormat format{.width = 13, .height = 9, .bitsPerPixel = bits, .isSection = true};
                 format.isTopDown = bits % 3 != 0;
                 format.masks = bits == 16 ? host::masks565 : host::ChannelMasks();
                 const DeviceContext source = sourceOf(context, picture(format));
                 context.bitBlt({x, 1, 6, 7}, &source, {3, 2}, SRCCOPY);
                 context.stretchBlt({x, 10, 6, 14}, &source, {12, 1, -6, 7}, SRCCOPY);
                 context.drawBitmap({x, 25, 6, 5}, picture(format), {2, 8, 6, -5}, NOTSRCCOPY);
                 x += 6;
             }
         }},
        {"copies of monochrome pixels and from beyond the edge",
         [](DeviceContext& context) {
             const DeviceContext source = sourceOf(context, picture({.width = 20, .height = 20, .bitsPerPixel = 1}));
             context.state().textColor = 0xFF;
             context.state().bkColor = 0xFF00;
             context.bitBlt({1, 1, 18, 18}, &source, {-3, 9}, SRCCOPY);
             context.bitBlt({20, 1, 15, 18}, &source, {3, 1}, SRCAND);
         }},
        {"transparent and mixed copies",
         [](DeviceContext& context) {
             auto bitmap = host::Bitmap::create(10, 10);
             for (Pixel y = 0; y < 10; ++y) {
                 for (Pixel x = 0; x < 10; ++x) {
                     const Pixel alpha = 25 * x;
                     bitmap->pixels(static_cast<int>(y))[x] = x == y ? 0 : alpha << 24 | alpha / 2 << 8 | (alpha * y / 10);
                 }
             }
             const DeviceContext source = sourceOf(context, bitmap);
             context.transparentBlt({1, 1, 18, 25}, source, {0, 0, 10, 10}, 0);
             context.alphaBlend({20, 1, 10, 10}, source, {0, 0, 10, 10}, {.AlphaFormat = AC_SRC_ALPHA});
             context.alphaBlend({20, 12, 19, 15}, source, {2, 2, 7, 8}, {.SourceConstantAlpha = 100});
         }},
        {"clipping, and its end",
         [](DeviceContext& context) {
             host::Region clip(RECT{2, 2, 12, 12});
             clip.unite(host::Region(RECT{20, 8, 36, 26}));
             context.state().clip = clip;
             useBrush(context, {.color = 0x2020FF});
             context.rectangle({0, 0, 40, 30});
             context.state().clip.reset();
             context.fillRect({14, 14, 18, 18}, {.color = 0});
         }},
        {"windows, viewports and worlds, saved and restored",
         [](DeviceContext& context) {
             useBrush(context, {.color = 0xA0A0});
             context.save();
             context.state().windowExtent = {10, 10};
             context.state().viewportExtent = {20, 15};
             context.state().viewportOrigin = {4, 3};
             context.rectangle({0, 0, 10, 10});
             context.state().world = {0.5, 0, 0, 2, 3, -1};
             context.ellipse({2, 2, 18, 8});
             context.restore(-1);
             context.rectangle({30, 20, 39, 29});
         }},
        {"text at a point and in an area",
         [](DeviceContext& context) {
             context.state().bkMode = TRANSPARENT;
             context.state().textColor = 0x800000;
             context.textOut({2, 1}, u"Ag");
             host::Font font{{.lfHeight = -12, .lfItalic = 1}};
             std::ranges::copy(std::string_view("DejaVu Sans"), font.description.lfFaceName.begin());
             context.state().font = {0, std::make_shared<const host::Font>(font)};
             context.state().bkColor = 0xC0E0FF;
             const std::array<std::int32_t, 3> distances{9, 4, 11};
             context.extTextOut({4, 14}, host::ETO_OPAQUE | host::ETO_CLIPPED, {2, 13, 30, 26}, u"Wil", distances);
             context.state().textAlign = host::TA_UPDATECP;
             context.state().position = {20, 1};
             context.textOut({}, u"i");
             context.lineTo({39, 29});
         }},
    };
    return all;
}

TEST_F(MetafilesRecordTest, playsWhatWasDrawnPixelByPixel) {
    for (const Case& entry : cases()) {
        SCOPED_TRACE(entry.name);
        const auto direct = drawn(entry.draw);
        EXPECT_GT(inked(*direct), 5);
        const Handle metafile = recorded(entry.draw);
        const auto once = drawn([&](DeviceContext& context) {
            EXPECT_TRUE(playEnhanced(bitsOf(metafile), context, {0, 0, width, height}, machine->codePage));
        });
        EXPECT_EQ(difference(*direct, *once), "");
        // What was played into another recording is the same.
        const Handle again = recorded([&](DeviceContext& context) {
            EXPECT_TRUE(playEnhanced(bitsOf(metafile), context, {0, 0, width, height}, machine->codePage));
        });
        EXPECT_EQ(difference(*direct, *played(bitsOf(again))), "");
        EXPECT_TRUE(gdi.DeleteEnhMetaFile(metafile));
        EXPECT_TRUE(gdi.DeleteEnhMetaFile(again));
    }
}

} // namespace

} // namespace mox::test
