// Icon, cursor and metafile files.
#include "pictures_files.h"
#include "pictures_support.h"

#include "host/pictures/bmpfile.h"
#include "host/pictures/iconfile.h"
#include "host/pictures/imagefile.h"
#include "host/pictures/pngfile.h"

namespace mox::test {

namespace {

using host::Icon;
using host::ImageError;
using host::Pixel;

Pixel imageAt(const Icon& icon, int x, int y) {
    if (icon.hasAlpha) {
        return icon.image->pixels(y)[x];
    }
    Pixel pixel = 0;
    icon.image->read(x, y, {&pixel, 1});
    return pixel & 0xFFFFFF;
}
bool isHole(const Icon& icon, int x, int y) {
    Pixel pixel = 0;
    icon.mask->read(x, y, {&pixel, 1});
    return pixel != 0;
}

/// 2 by 1 pixels: red, and a hole; the mask in 4 bytes behind the image.
const Bytes mask = bytesOf({0b01000000, 0, 0, 0});
struct IconCase {
    const char* name;
    Bytes dib;
    Pixel first;
};
std::vector<IconCase> iconImages() {
    const auto with = [](const Bytes& rows) { return FileMaker().add(rows).add(mask).bytes(); };
    return {
        {"1 bit", iconDib(2, 1, 1, {0, 0xFF0000}, with(bytesOf({0b10000000, 0, 0, 0}))), 0xFF0000},
        {"4 bits", iconDib(2, 1, 4, {0, 0xFF0000, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, with(bytesOf({0x10, 0, 0, 0}))),
         0xFF0000},
        {"16 bits", iconDib(2, 1, 16, {}, with(bytesOf({0x00, 0x7C, 0, 0}))), 0xFF0000},
        {"24 bits", iconDib(2, 1, 24, {}, with(bytesOf({0, 0, 0xFF, 0, 0, 0, 0, 0}))), 0xFF0000},
        {"32 bits without alpha", iconDib(2, 1, 32, {}, with(bytesOf({0, 0, 0xFF, 0, 0, 0, 0, 0}))), 0xFF0000},
        {"32 bits", iconDib(2, 1, 32, {}, with(bytesOf({0, 0, 0xFF, 0x80, 0, 0, 0, 0}))), 0x80FF0000},
    };
}

TEST(IconFiles, areReadInAllDepthsAndWrittenBack) {
    for (const auto& [name, dib, first] : iconImages()) {
        SCOPED_TRACE(name);
        Icon icon = host::readIconFile(icoOf(1, {{2, 1, 0, dib}}));
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(icon.image->width(), 2);
            EXPECT_EQ(icon.image->height(), 1);
            EXPECT_EQ(icon.hasAlpha, std::string_view(name) == "32 bits");
            EXPECT_EQ(imageAt(icon, 0, 0), first);
            EXPECT_FALSE(isHole(icon, 0, 0));
            EXPECT_TRUE(isHole(icon, 1, 0));
            EXPECT_FALSE(icon.isCursor);
            icon = host::readIconFile(host::writeIconFile(icon));
        }
    }
}

TEST(IconFiles, keepTheirRowsInOrder) {
    const Icon icon = host::readIconFile(
        icoOf(1, {{1, 2, 1, iconDib(1, 2, 1, {0, 0xFFFFFF}, bytesOf({0, 0, 0, 0, 0x80, 0, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 0}))}}));
    EXPECT_TRUE(icon.image->isMonochrome());
    EXPECT_EQ(imageAt(icon, 0, 0), 0xFFFFFFu); // the rows run from the bottom up
    EXPECT_EQ(imageAt(icon, 0, 1), 0u);
    EXPECT_FALSE(isHole(icon, 0, 0));
    EXPECT_TRUE(isHole(icon, 0, 1));
    const auto shown = host::flattened(icon);
    EXPECT_EQ(shown->pixels(0)[0], 0xFFFFFFu);
    EXPECT_EQ(shown->pixels(1)[0], 0xFFFFFFu);
}

/// A square image of a depth; its size and depth tell it from the others.
IconImage square(unsigned size, unsigned bits) {
    const std::size_t rowBytes = (size * bits + 31) / 32 * 4 + (size + 31) / 32 * 4;
    FileMaker dib;
    dib.add(iconDib(size, size, bits, {}, {}));
    if (bits <= 8) {
        dib.add(Bytes(std::size_t{4} << bits));
    }
    Bytes rows(rowBytes * size);
    rows[0] = static_cast<std::byte>(bits == 32 ? 0xFF : 0);
    rows[3] = static_cast<std::byte>(bits == 32 ? 0xFF : 0);
    return {size, size, bits, dib.add(rows).bytes()};
}

TEST(IconFiles, giveTheImageThatFitsBest) {
    const Bytes png = host::writePng(*host::Bitmap::create(64, 64));
    const Bytes file =
        icoOf(1, {square(16, 32), square(32, 4), square(32, 32), square(32, 8), square(48, 32), {64, 64, 32, png}});
    const struct {
        platform::SIZE wanted;
        int size;
    } cases[] = {{{32, 32}, 32}, {{16, 16}, 16}, {{1, 1}, 16}, {{40, 40}, 48}, {{48, 48}, 48}, {{256, 256}, 64}, {{24, 24}, 32}};
    for (const auto& [wanted, size] : cases) {
        EXPECT_EQ(host::readIconFile(file, wanted).image->width(), size) << wanted.cx;
    }
    EXPECT_TRUE(host::readIconFile(file).hasAlpha) << "the one with most colours";
    EXPECT_TRUE(host::readIconFile(file, {64, 64}).hasAlpha);
}

TEST(IconFiles, ofCursorsKnowTheirHotSpot) {
    const Bytes dib = iconImages()[3].dib;
    const Icon cursor = host::readIconFile(icoOf(2, {{2, 1, 0, dib, 1, 7}}));
    EXPECT_TRUE(cursor.isCursor);
    EXPECT_EQ(cursor.hotspot, (platform::POINT{1, 7}));
    EXPECT_EQ(host::readIconFile(host::writeIconFile(cursor)).hotspot, (platform::POINT{1, 7}));
}

TEST(IconFiles, cutAnywhereAreRefused) {
    for (const auto& [name, dib, first] : iconImages()) {
        const Bytes file = icoOf(1, {{2, 1, 0, dib}});
        for (std::size_t size = 0; size < file.size(); ++size) {
            EXPECT_TRUE(isRefused(std::span(file).first(size))) << name << " cut to " << size;
        }
    }
    EXPECT_TRUE(isRefused(icoOf(1, {})));
    EXPECT_TRUE(isRefused(icoOf(1, {{32, 32, 32, {}}})));
    EXPECT_TRUE(isRefused(icoOf(1, {{0, 0, 32, iconDib(0x7FFFFFFF, 0x3FFFFFFF, 32, {}, mask)}})));
}

TEST(MetafileFiles, knowTheirSize) {
    const struct {
        Bytes file;
        platform::SIZE size;
    } cases[] = {
        {placeableWmfOf(1000, 500, 1000), {2540, 1270}},
        {placeableWmfOf(0xFFFF, 1, 2540), {1, 1}}, // -1 to 0
        {wmfOf(), {2540, 1270}},
    };
    for (const auto& [file, size] : cases) {
        const auto metafile = host::readOldMetafile(file);
        EXPECT_EQ(metafile.size, size);
        EXPECT_EQ(metafile.metafile.bits, wmfOf());
        const auto again = host::readOldMetafile(host::writeOldMetafile(metafile));
        EXPECT_EQ(again.size, size);
        EXPECT_EQ(again.metafile.bits, wmfOf());
    }
    const auto large = host::readOldMetafile(host::writeOldMetafile({{wmfOf()}, {100000, 50000}}));
    EXPECT_NEAR(large.size.cx, 100000, 5);
    EXPECT_NEAR(large.size.cy, 50000, 5);
}

TEST(MetafileFiles, cutAnywhereAreRefused) {
    const Bytes enhanced = emptyMetafile({0, 0, 100, 100});
    EXPECT_EQ(host::readEnhancedMetafile(enhanced).bits, enhanced);
    for (const Bytes& file : {wmfOf(), placeableWmfOf(10, 10, 96), enhanced}) {
        for (std::size_t size = 0; size < file.size(); ++size) {
            EXPECT_TRUE(isRefused(std::span(file).first(size))) << size;
        }
    }
    EXPECT_TRUE(isRefused(placeableWmfOf(10, 10, 0)));
    for (const std::size_t place : {std::size_t{48}, std::size_t{104}}) { // the size of all, and of the last record
        for (const unsigned value : {0u, 7u, 121u, 0xFFFFFFFFu}) {
            Bytes damaged = enhanced;
            std::memcpy(damaged.data() + place, &value, sizeof value);
            EXPECT_TRUE(isRefused(damaged)) << place << " " << value;
        }
    }
}

} // namespace

} // namespace mox::test
