#include "metafiles_support.h"

#include "host/metafiles/enhancedplayer.h"
#include "host/metafiles/oldplayer.h"

#include <cstring>

namespace mox::test {

namespace {

using namespace platform;
using Type = OldRecord;

struct MetafilesOldTest : MetafilesTest {
    /// Plays straight onto a bitmap whose device is the screen: 1024 by 768 units of the window are as many pixels.
    std::shared_ptr<host::Bitmap> playedOld(OldBuilder& file, bool isWhole = true) {
        const Bytes bytes = file.finish();
        return drawn([&](DeviceContext& context) { EXPECT_EQ(host::playOld(bytes, context, machine->codePage), isWhole); });
    }
};

void chooseBrush(OldBuilder& file) {
    file.add(Type::createBrush, {0, 0xFF, 0, 0}).add(Type::selectObject, {0});
    file.add(Type::createPen, {PS_NULL, 0, 0, 0, 0}).add(Type::selectObject, {1});
}

TEST_F(MetafilesOldTest, playsTheUsualRecords) {
    struct Case {
        const char* name;
        std::function<void(OldBuilder&)> add;
        std::function<void(DeviceContext&)> expected;
    };
    const auto red = [](RECT area) { return [area](DeviceContext& context) { context.fillRect(area, {.color = 0xFF}); }; };
    const std::vector<POINT> points{{3, 3}, {30, 9}, {12, 25}};
    const Case cases[]{
        {"a rectangle",
         [](auto& file) {
             chooseBrush(file);
             file.add(Type::rectangle, {15, 21, 4, 3});
         },
         red({3, 4, 20, 14})},
        {"window and its origin",
         [](auto& file) {
             chooseBrush(file);
             file.add(Type::setWindowOrg, {-2, -1}).add(Type::setWindowExt, {384, 512}).add(Type::rectangle, {5, 6, 1, 2});
         },
         red({6, 6, 13, 13})},
        {"clipping, saved and restored",
         [](auto& file) {
             chooseBrush(file);
             file.add(Type::saveDc, {}).add(Type::intersectClipRect, {9, 9, 2, 2}).add(Type::rectangle, {31, 41, 0, 0});
             file.add(Type::restoreDc, {-1}).add(Type::excludeClipRect, {30, 40, 0, 12}).add(Type::rectangle, {31, 41, 25, 0});
         },
         [](DeviceContext& context) {
             context.fillRect({2, 2, 9, 9}, {.color = 0xFF});
             context.fillRect({0, 25, 12, 30}, {.color = 0xFF});
         }},
        {"lines",
         [](auto& file) {
             file.add(Type::createPen, {0, 0, 0, 0x8000, 0}).add(Type::selectObject, {0});
             file.add(Type::moveTo, {3, 2}).add(Type::lineTo, {3, 30}).add(Type::lineTo, {25, 8});
         },
         [](DeviceContext& context) {
             POINT before;
             context.state().pen = {0, std::make_shared<const host::Pen>(host::Pen{.color = 0x8000})};
             context.moveTo({2, 3}, before);
             context.lineTo({30, 3});
             context.lineTo({8, 25});
         }},
        {"polygons and lines",
         [](auto& file) {
             file.add(Type::polygon, {3, 3, 3, 30, 9, 12, 25}).add(Type::polyline, {2, 0, 0, 39, 29});
             file.add(Type::polyPolygon, {2, 3, 3, 1, 1, 5, 1, 1, 5, 35, 20, 38, 20, 35, 28});
         },
         [&](DeviceContext& context) {
             context.polygon(points);
             context.polyline(std::vector<POINT>{{0, 0}, {39, 29}});
             context.polygon(std::vector<POINT>{{1, 1}, {5, 1}, {1, 5}});
             context.polygon(std::vector<POINT>{{35, 20}, {38, 20}, {35, 28}});
         }},
        {"round shapes, a pixel and a pattern copy",
         [](auto& file) {
             file.add(Type::ellipse, {20, 25, 2, 3}).add(Type::roundRect, {6, 8, 29, 39, 10, 26});
             file.add(Type::setPixel, {0x5566, 0x44, 1, 2}).add(Type::patBlt, {0x42, 0, 4, 6, 24, 2});
         },
         [](DeviceContext& context) {
             context.ellipse({3, 2, 25, 20});
             context.roundRect({26, 10, 39, 29}, {8, 6});
             context.setPixel({2, 1}, 0x445566);
             context.fillRect({2, 24, 8, 28}, {});
         }},
        {"objects take the first free place",
         [](auto& file) {
             file.add(Type::createBrush, {0, 0xFF00, 0, 0}).add(Type::createBrush, {0, 0, 0xFF, 0}).add(Type::deleteObject, {0});
             file.add(Type::createPen, {PS_NULL, 0, 0, 0, 0}).add(Type::createBrush, {0, 0xFF, 0, 0});
             file.add(Type::selectObject, {0}).add(Type::selectObject, {2}).add(Type::rectangle, {11, 11, 1, 1});
         },
         red({1, 1, 10, 10})},
        {"a region clips and is painted",
         [](auto& file) {
             chooseBrush(file);
             file.add(Type::createRegion, {0, 6, 0, 0, 0, 1, 2, 0, 0, 0, 0, 2, 3, 9, 4, 17, 2});
             file.add(Type::paintRegion, {2}).add(Type::selectClipRegion, {2}).add(Type::patBlt, {9, 0x55, 30, 8, 0, 0});
             file.add(Type::invertRegion, {2});
         },
         [](DeviceContext& context) {
             context.fillRect({4, 3, 8, 9}, {.color = 0xFF});
             context.fillRect({8, 3, 17, 9}, {.color = 0xFFFF00});
         }},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        OldBuilder file;
        entry.add(file);
        const auto expected = drawn(entry.expected);
        EXPECT_GT(inked(*expected), 3);
        EXPECT_EQ(difference(*playedOld(file), *expected), "");
    }
}

TEST_F(MetafilesOldTest, copiesBitmapsOfBothKinds) {
    // Two by two pixels, from the bottom up: blue and green below red and white.
    BITMAPINFOHEADER header{.biWidth = 2, .biHeight = 2, .biBitCount = 24};
    Bytes dib(sizeof header);
    std::memcpy(dib.data(), &header, sizeof header);
    for (const int byte : {255, 0, 0, 0, 255, 0, 0, 0, 0, 0, 255, 255, 255, 255, 0, 0}) {
        dib.push_back(static_cast<std::byte>(byte));
    }
    const auto withDib = [&](std::initializer_list<std::int32_t> words) {
        Bytes bytes;
        for (const std::int32_t word : words) {
            bytes.push_back(static_cast<std::byte>(word));
            bytes.push_back(static_cast<std::byte>(word >> 8));
        }
        bytes.insert(bytes.end(), dib.begin(), dib.end());
        return bytes;
    };
    struct Case {
        const char* name;
        Type type;
        Bytes bytes;
        host::Pixel upperLeft;
    };
    for (const Case& entry :
         {Case{"bit by bit", Type::dibBitBlt, withDib({0x20, 0xCC, 0, 0, 2, 2, 6, 5}), 0xFF0000},
          {"stretched", Type::dibStretchBlt, withDib({0x20, 0xCC, 2, 2, 0, 0, 8, 8, 6, 5}), 0xFF0000},
          {"counted from the bottom", Type::stretchDib, withDib({0x20, 0xCC, 0, 1, 2, 0, 0, 8, 8, 6, 5}), 0xFF},
          {"to the device", Type::setDibToDevice, withDib({0, 2, 0, 0, 0, 2, 2, 6, 5}), 0xFF0000}}) {
        SCOPED_TRACE(entry.name);
        OldBuilder file;
        file.addBytes(entry.type, entry.bytes);
        const auto bitmap = playedOld(file);
        EXPECT_EQ(bitmap->pixels(6)[5] & 0xFFFFFF, entry.upperLeft);
        EXPECT_EQ(bitmap->pixels(5)[5] & 0xFFFFFF, 0xFFFFFFU);
    }
    // A bitmap of the device: rows from the top, of whole words.
    OldBuilder file;
    file.add(Type::setTextColor, {0xFF, 0}).add(Type::bitBlt, {0x20, 0xCC, 0, 0, 2, 3, 1, 1, 0, 3, 2, 2, 0x101, 0x40, 0xA0});
    const auto bitmap = playedOld(file);
    EXPECT_EQ(bitmap->pixels(1)[1] & 0xFFFFFF, 0xFF0000U);
    EXPECT_EQ(bitmap->pixels(1)[2] & 0xFFFFFF, 0xFFFFFFU);
    EXPECT_EQ(bitmap->pixels(2)[2] & 0xFFFFFF, 0xFF0000U);
    EXPECT_EQ(inked(*bitmap), 3);
}

TEST_F(MetafilesOldTest, convertsSoThatTheWindowFillsThePicture) {
    OldBuilder file;
    chooseBrush(file);
    file.add(Type::setWindowOrg, {100, 100}).add(Type::setWindowExt, {50, 100});
    // The right half of the window.
    file.add(Type::patBlt, {0x21, 0xF0, 50, 50, 100, 150});
    const Bytes bytes = file.finish();
    const Handle metafile = gdi.SetWinMetaFileBits(bytes, 0);
    ASSERT_NE(metafile, 0);
    const auto bitmap = played(bitsOf(metafile));
    EXPECT_EQ(difference(*bitmap, *drawn([](DeviceContext& context) {
                  context.fillRect({20, 0, 40, 30}, {.color = 0xFF});
              })),
              "");
    EXPECT_TRUE(gdi.DeleteEnhMetaFile(metafile));
    EXPECT_EQ(gdi.SetWinMetaFileBits(bytes, 4711), 0);
    EXPECT_EQ(gdi.SetWinMetaFileBits({}, 0), 0);
}

TEST_F(MetafilesOldTest, keepsTheBytesByHandle) {
    OldBuilder file;
    file.add(Type::rectangle, {15, 21, 4, 3});
    Bytes bytes = file.finish();
    bytes.push_back(std::byte{1}); // beyond its end
    const Handle metafile = gdi.SetMetaFileBitsEx(bytes);
    ASSERT_NE(metafile, 0);
    Bytes copy(gdi.GetMetaFileBitsEx(metafile, {}));
    EXPECT_EQ(gdi.GetMetaFileBitsEx(metafile, copy), copy.size());
    bytes.pop_back();
    EXPECT_EQ(copy, bytes);
    EXPECT_EQ(gdi.GetEnhMetaFileBits(metafile, {}), 0U);
    EXPECT_FALSE(gdi.DeleteEnhMetaFile(metafile));
    EXPECT_TRUE(gdi.DeleteMetaFile(metafile));
    EXPECT_EQ(gdi.SetMetaFileBitsEx(std::span(bytes).first(20)), 0);
    bytes[2] = std::byte{8};
    EXPECT_EQ(gdi.SetMetaFileBitsEx(bytes), 0);
    EXPECT_EQ(gdi.SetMetaFileBitsEx({}), 0);
}

TEST_F(MetafilesOldTest, survivesBrokenRecords) {
    OldBuilder file;
    chooseBrush(file);
    file.add(Type::polyPolygon, {2, 3, 3, 1, 1, 5, 1, 1, 5, 35, 20, 38, 20, 35, 28}).add(Type::setWindowExt, {50, 100});
    file.add(Type::createRegion, {0, 6, 0, 0, 0, 1, 2, 0, 0, 0, 0, 2, 3, 9, 4, 17, 2}).add(Type::paintRegion, {2});
    file.add(Type::textOut, {3, 0x4141, 0x41, 5, 6}).add(Type::extTextOut, {1, 1, 2, 2, 0, 0, 9, 9, 0x4142, 3, 4});
    file.add(Type::createFont, {10, 0, 0, 0, 400, 0, 0, 0, 0, 0x6141}).add(Type::selectObject, {3});
    file.add(Type::pie, {1, 2, 9, 20, 20, 20, 2, 2});
    file.add(Type::bitBlt, {0x20, 0xCC, 0, 0, 2, 3, 1, 1, 0, 3, 2, 2, 0x101, 0x40, 0xA0});
    const Bytes whole = file.finish();
    const auto playsInto = [&](const Bytes& bytes) {
        bool isWhole = false;
        drawn([&](DeviceContext& context) {
            context.state().textColor = 0x778899;
            isWhole = host::playOld(bytes, context, machine->codePage);
            EXPECT_EQ(context.state().textColor, 0x778899U);
            EXPECT_TRUE(context.state().world.isIdentity());
        });
        return isWhole;
    };
    for (std::size_t size = 0; size < whole.size(); ++size) {
        Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        if (size >= 18) {
            const auto words = static_cast<std::uint32_t>(size / 2);
            std::memcpy(part.data() + 6, &words, 4);
        }
        EXPECT_FALSE(playsInto(part)) << size;
        for (const int flip : {0xFF, 0x80, 0x01}) {
            Bytes broken = whole;
            broken[size] ^= static_cast<std::byte>(flip);
            playsInto(broken);
        }
    }
}

} // namespace

} // namespace mox::test
