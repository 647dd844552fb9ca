#include "metafiles_support.h"

#include "host/metafiles/enhancedplayer.h"
#include "host/metafiles/metafiles.h"
#include "host/metafiles/oldplayer.h"
#include "host/metafiles/packeddib.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <filesystem>
#include <limits>
#include <span>

namespace mox::test {

namespace {

using namespace platform;
using Type = EnhancedRecord;

struct MetafilesBrokenTest : MetafilesTest {
    /// With records of most groups.
    Bytes sample() {
        const Handle metafile = recorded([](DeviceContext& context) {
            context.save();
            context.state().textColor = 0x123456;
            context.state().clip = host::Region(RECT{1, 1, 35, 25});
            context.fillRect({2, 2, 20, 20}, {BS_HATCHED, 0xFF00, 3});
            context.state().windowExtent = {2, 2};
            context.state().viewportExtent = {1, 1};
            const std::vector<POINT> points{{1, 1}, {50, 9}, {30, 40}, {70, 50}};
            context.polygon(points);
            context.polyBezier(points);
            context.ellipse({2, 2, 60, 40});
            host::Path path;
            path.moveTo({2.5, 3});
            path.curveTo({10, 3}, {20, 20}, {4, 9});
            context.drawPath(path, true, true);
            context.restore(-1);
            context.drawBitmap({20, 2, 18, 12},
                               host::Bitmap::create({.width = 5, .height = 4, .bitsPerPixel = 4, .isSection = true}),
                               {0, 0, 5, 4}, SRCCOPY);
            context.extTextOut({3, 3}, host::ETO_OPAQUE, {2, 2, 9, 9}, u"text", {});
        });
        Bytes bytes = bitsOf(metafile);
        EXPECT_TRUE(gdi.DeleteEnhMetaFile(metafile));
        return bytes;
    }

    /// Plays what is behind a header by hand, as broken bytes do not get a handle. The state of the context has to come back.
    bool playsInto(const Bytes& bytes) {
        const auto bitmap = white();
        DeviceContext target(machine->graphics, DeviceContext::Kind::memory, machine->desktop.device(),
                             std::make_shared<host::RasterCanvas>(bitmap));
        host::DeviceState& state = target.state();
        state.textColor = 0x778899;
        state.windowOrigin = {1, 2};
        state.position = {5, 6};
        state.clip = host::Region(RECT{0, 0, 33, 29});
        const host::DeviceState before = state;
        const bool isWhole = host::playEnhanced(bytes, target, {0, 0, width, height}, machine->codePage);
        EXPECT_EQ(state.pen.object, before.pen.object);
        EXPECT_EQ(state.brush.object, before.brush.object);
        EXPECT_EQ(state.font.object, before.font.object);
        EXPECT_EQ(state.textColor, before.textColor);
        EXPECT_EQ(state.windowOrigin, before.windowOrigin);
        EXPECT_EQ(state.position, before.position);
        EXPECT_TRUE(state.world.isIdentity());
        EXPECT_EQ(state.clip->bounds(), before.clip->bounds());
        EXPECT_EQ(target.save(), 1);
        for (int y = 0; y < height; ++y) {
            for (int x = 33; x < width; ++x) {
                EXPECT_EQ(bitmap->pixels(y)[x], 0xFFFFFFFF);
            }
        }
        return isWhole;
    }
};

TEST_F(MetafilesBrokenTest, endsAtACutWithoutHarm) {
    const Bytes whole = sample();
    playsInto(whole);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(gdi.SetEnhMetaFileBits(part), 0) << size;
        // With a header that says so.
        if (size >= 52) {
            const auto count = static_cast<std::uint32_t>(size / 4 * 4);
            std::memcpy(part.data() + 48, &count, 4);
            EXPECT_FALSE(playsInto(part)) << size;
        }
    }
}

TEST_F(MetafilesBrokenTest, survivesEveryFlippedByte) {
    const Bytes whole = sample();
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (const int flip : {0xFF, 0x80, 0x01}) {
            Bytes broken = whole;
            broken[place] ^= static_cast<std::byte>(flip);
            playsInto(broken);
        }
    }
}

TEST_F(MetafilesBrokenTest, refusesCountsThatARecordCannotHold) {
    constexpr std::int32_t huge = 0x7FFFFFFF;
    struct Case {
        const char* name;
        Type type;
        std::vector<std::int32_t> numbers;
    };
    const Case cases[]{
        {"points", Type::polygon, {0, 0, 0, 0, huge, 1, 1}},
        {"more points than there are", Type::polyline16, {0, 0, 0, 0, 5, 1, 1, 1, 1}},
        {"figures", Type::polyPolygon, {0, 0, 0, 0, huge, 4, 1, 1}},
        {"figures of more points than all", Type::polyPolygon, {0, 0, 0, 0, 2, 2, 2, 2, 1, 1, 2, 2}},
        {"kinds of points", Type::polyDraw, {0, 0, 0, 0, 2, 1, 1, 2, 2}},
        {"text", Type::extTextOutW, {0, 0, 0, 0, 1, 0, 0, 0, 0, huge, 76, 0, 0, 0, 0, 0, 0}},
        {"text behind the end", Type::extTextOutW, {0, 0, 0, 0, 1, 0, 0, 0, 0, 1, -4, 0, 0, 0, 0, 0, 0}},
        {"distances behind the end", Type::extTextOutA, {0, 0, 0, 0, 1, 0, 0, 0, 0, 4, 76, 0, 0, 0, 0, 0, 80, 0x41414141}},
        {"a region", Type::extSelectClipRgn, {48, 5, 32, 1, huge, 16, 0, 0, 0, 0, 1, 1, 2, 2}},
        {"a region of another kind", Type::extSelectClipRgn, {48, 5, 32, 2, 1, 16, 0, 0, 0, 0, 1, 1, 2, 2}},
        {"a bitmap", Type::createDibPatternBrush, {1, 0, 32, 40, 72, 16, 40, huge, 1, 0x200001, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1}},
        {"a bitmap larger than its bits", Type::createDibPatternBrush, {1, 0, 32, 40, 72, 16, 40, 3, 2, 0x200001,
                                                                        0, 0, 0,  0,  0,  0,  1,  1, 1, 1}},
        {"packed pixels of a size beyond memory",
         Type::createDibPatternBrush,
         {1, 0, 32, 40, 72, 16, 40, 1 << 20, 1 << 20, 0x80001, 1, 0, 0, 0, 0, 0, 1, 1, 1, 1}},
        {"bits behind the end", Type::createMonoBrush, {1, 0, 32, 40, huge, 16, 40, 1, 1, 0x200001, 0, 0, 0, 0, 0, 0}},
        {"vertices", Type::gradientFill, {0, 0, 0, 0, huge, 1, 0, 1, 1, 1, 1}},
        {"a vertex that is none", Type::gradientFill, {0, 0, 0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1}},
        {"a record that ends too early", Type::rectangle, {1, 2, 3}},
        {"a world that is no number", Type::setWorldTransform, {0x7FC00000, 0, 0, 0, 0, 0}},
        {"a world beyond all bounds", Type::setWorldTransform, {0x7F000000, 0, 0, 0x7F000000, 0, 0}},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        RecordWriter record = EnhancedBuilder::begin(entry.type);
        for (const std::int32_t number : entry.numbers) {
            record.i32(number);
        }
        EnhancedBuilder file;
        file.add(std::move(record)).add(Type::selectObject, {std::bit_cast<std::int32_t>(0x80000004)});
        file.add(Type::rectangle, {0, 0, 30, 25});
        bool isWhole = true;
        EXPECT_EQ(inked(*played(file.finish(), isWhole)), 0);
        EXPECT_FALSE(isWhole);
    }
}

TEST_F(MetafilesBrokenTest, goesOnBehindWhatItDoesNotKnow) {
    struct Case {
        const char* name;
        EnhancedBuilder file;
        bool isWhole;
    };
    EnhancedBuilder unknown;
    unknown.add(static_cast<Type>(119), {1, 2, 3}).add(static_cast<Type>(0x7FFFFFFF), {}).add(static_cast<Type>(70), {4, 1});
    EnhancedBuilder places;
    places.add(Type::createPen, {8, 0, 1, 1, 0}).add(Type::selectObject, {3}).add(Type::deleteObject, {-1});
    EnhancedBuilder states;
    for (int count = 0; count < 2000; ++count) {
        states.add(Type::saveDc, {});
    }
    states.add(Type::restoreDc, {-5000}).add(Type::setMapMode, {77}).add(Type::setRop2, {99});
    for (Case& entry :
         std::vector<Case>{{"unknown", unknown, true}, {"no such object", places, false}, {"states", states, false}}) {
        SCOPED_TRACE(entry.name);
        entry.file.add(Type::rectangle, {2, 2, 9, 9});
        bool isWhole = false;
        EXPECT_EQ(inked(*played(entry.file.finish(), isWhole)), 28);
        EXPECT_EQ(isWhole, entry.isWhole);
    }
    // The size of a record is a multiple of four, and at least that of its two first fields.
    for (const std::uint32_t size : {0U, 4U, 10U, 0xFFFFFFFCU}) {
        Bytes bytes(8);
        bytes[0] = std::byte{70};
        std::memcpy(bytes.data() + 4, &size, 4);
        bool isWhole = true;
        played(EnhancedBuilder().raw(bytes).finish(), isWhole);
        EXPECT_FALSE(isWhole) << size;
    }
}

TEST_F(MetafilesBrokenTest, unpacksBitmapsOfEveryKind) {
    const auto info = [](std::int32_t cx, std::int32_t cy, std::uint16_t bits, std::uint32_t compression,
                         std::vector<std::uint32_t> colors) {
        const BITMAPINFOHEADER header{.biWidth = cx, .biHeight = cy, .biBitCount = bits, .biCompression = compression};
        Bytes bytes(sizeof header + colors.size() * 4);
        std::memcpy(bytes.data(), &header, sizeof header);
        std::ranges::copy(std::as_bytes(std::span(colors)), bytes.begin() + sizeof header);
        return bytes;
    };
    struct Case {
        const char* name;
        Bytes info;
        std::vector<int> bits;
        /// From the top left, row by row.
        std::vector<host::Pixel> expected;
    };
    const Case cases[]{
        {"1 bit",
         info(2, 2, 1, BI_RGB, {0x111111, 0x222222}),
         {0x80, 0, 0, 0, 0x40, 0, 0, 0},
         {0x111111, 0x222222, 0x222222, 0x111111}},
        {"8 bits from the top, colours missing", info(2, -1, 8, BI_RGB, {0x111111, 0x222222}), {1, 7, 0, 0}, {0x222222, 0}},
        {"16 bits", info(2, 1, 16, BI_RGB, {}), {0, 0x7C, 0x1F, 0}, {0xFF0000, 0xFF}},
        {"16 bits of 5, 6 and 5", info(2, 1, 16, BI_BITFIELDS, {0xF800, 0x7E0, 0x1F}), {0, 0xF8, 0xE0, 7}, {0xFF0000, 0xFF00}},
        {"24 bits", info(1, 2, 24, BI_RGB, {}), {1, 2, 3, 0, 4, 5, 6, 0}, {0x060504, 0x030201}},
        {"32 bits, blue and red exchanged", info(1, 1, 32, BI_BITFIELDS, {0xFF, 0xFF00, 0xFF0000}), {1, 2, 3, 0}, {0x010203}},
        // A run, an absolute part, the end of the row, a run of one, a jump.
        {"packed 8 bits",
         info(4, 2, 8, BI_RLE8, {0, 1, 2, 3}),
         {1, 1, 0, 3, 2, 3, 1, 0, 0, 0, 1, 3, 0, 2, 2, 0, 5, 2, 0, 1},
         {3, 0, 0, 2, 1, 2, 3, 1}},
        {"packed 4 bits", info(5, 1, 4, BI_RLE4, {0, 1, 2, 3}), {3, 0x12, 0, 2, 1, 0, 9, 0x33}, {1, 2, 1, 0, 3}},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        Bytes bits;
        for (const int byte : entry.bits) {
            bits.push_back(static_cast<std::byte>(byte));
        }
        const auto bitmap = host::readDib(entry.info, bits);
        ASSERT_NE(bitmap, nullptr);
        std::vector<host::Pixel> pixels;
        for (int y = 0; y < bitmap->height(); ++y) {
            std::vector<host::Pixel> row(static_cast<std::size_t>(bitmap->width()));
            bitmap->read(0, y, row);
            pixels.insert(pixels.end(), row.begin(), row.end());
        }
        EXPECT_EQ(pixels, entry.expected);
        Bytes packed = entry.info;
        if (bitmap->bitsPerPixel() > 8 || entry.info.size() == 40 + (std::size_t{4} << bitmap->bitsPerPixel())) {
            packed.insert(packed.end(), bits.begin(), bits.end());
            EXPECT_NE(host::readPackedDib(packed), nullptr);
        }
    }
    for (const Bytes& broken :
         {Bytes(), Bytes(40), info(0, 1, 32, BI_RGB, {}), info(1, 1, 7, BI_RGB, {}), info(1, 1, 32, BI_RLE8, {}),
          info(1, 1, 32, 99, {}), info(1, 1, 32, BI_BITFIELDS, {0xFF, 0xFF, 0xFF0000}),
          info(1, std::numeric_limits<std::int32_t>::min(), 32, BI_RGB, {})}) {
        EXPECT_EQ(host::readDib(broken, Bytes(64)), nullptr);
    }
}

TEST_F(MetafilesBrokenTest, keepsMetafilesByTheirHandles) {
    const RECT frame{0, 0, 1000, 500};
    const Handle hdc = gdi.CreateEnhMetaFileA(0, "C:\\picture.emf", frame, std::string_view("mox\0picture\0\0", 13));
    ASSERT_NE(hdc, 0);
    EXPECT_EQ(gdi.GetDeviceCaps(hdc, LOGPIXELSX), 96);
    EXPECT_TRUE(gdi.Rectangle(hdc, 10, 20, 31, 42));
    const auto path = *machine->files.resolveFile("C:\\picture.emf");
    EXPECT_FALSE(std::filesystem::exists(path));
    const Handle metafile = gdi.CloseEnhMetaFile(hdc);
    EXPECT_EQ(gdi.CloseEnhMetaFile(hdc), 0);
    EXPECT_FALSE(gdi.DeleteDC(hdc));
    const Bytes bytes = bitsOf(metafile);
    EXPECT_EQ(std::filesystem::file_size(path), bytes.size());
    const auto header = host::EnhancedHeader::read(bytes);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->bounds, (RECT{10, 20, 30, 41}));
    EXPECT_EQ(header->frame, frame);
    EXPECT_EQ(header->description, std::u16string_view(u"mox\0picture\0\0", 13));
    EXPECT_EQ(header->device, (SIZE{1024, 768}));
    Bytes little(16);
    EXPECT_EQ(gdi.GetEnhMetaFileBits(metafile, little), 16U);
    EXPECT_TRUE(std::equal(little.begin(), little.end(), bytes.begin()));

    // Without a frame it is as large as what was drawn; without drawing it is empty.
    const Handle other = gdi.CreateEnhMetaFileA(0, "", {}, "");
    EXPECT_TRUE(gdi.Rectangle(other, 0, 0, 102, 51));
    const Handle found = gdi.CloseEnhMetaFile(other);
    const auto foundHeader = host::EnhancedHeader::read(bitsOf(found));
    EXPECT_EQ(foundHeader->frame, (RECT{0, 0, 2699, 1348}));
    const Handle nothing = gdi.CloseEnhMetaFile(gdi.CreateEnhMetaFileA(0, "", {}, ""));
    EXPECT_EQ(host::EnhancedHeader::read(bitsOf(nothing))->bounds, (RECT{0, 0, -1, -1}));

    EXPECT_EQ(gdi.CreateEnhMetaFileA(4711, "", {}, ""), 0);
    EXPECT_EQ(gdi.CreateEnhMetaFileA(0, "C:\\no\\folder.emf", {}, ""), 0);
    EXPECT_EQ(gdi.CreateEnhMetaFileA(0, "C:\\Windows", {}, ""), 0);
    const Handle memory = gdi.CreateCompatibleDC(0);
    EXPECT_EQ(gdi.CloseEnhMetaFile(memory), 0);
    EXPECT_FALSE(gdi.PlayEnhMetaFile(memory, 0, {}));
    EXPECT_FALSE(gdi.PlayEnhMetaFile(0, metafile, {}));
    EXPECT_EQ(gdi.GetMetaFileBitsEx(metafile, {}), 0U);
    EXPECT_FALSE(gdi.DeleteMetaFile(metafile));
    EXPECT_TRUE(gdi.DeleteDC(memory));
    for (const Handle each : {metafile, found, nothing}) {
        EXPECT_TRUE(gdi.DeleteEnhMetaFile(each));
        EXPECT_FALSE(gdi.DeleteEnhMetaFile(each));
    }
}

TEST_F(MetafilesBrokenTest, leavesNoFileThatIsNotWhole) {
    const Handle hdc = gdi.CreateEnhMetaFileA(0, "C:\\late.emf", {}, "");
    const auto path = *machine->files.resolveFile("C:\\late.emf");
    std::filesystem::create_directories(path / "in the way");
    EXPECT_EQ(gdi.CloseEnhMetaFile(hdc), 0);
    std::size_t entries = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path.parent_path())) {
        entries += entry.path().filename().string().find("late") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(entries, 1U);
}

TEST_F(MetafilesBrokenTest, reusesThePlacesOfObjects) {
    const Handle metafile = recorded([](DeviceContext& context) {
        for (std::uint32_t color = 0; color < 300; ++color) {
            context.fillRect({0, 0, 5, 5}, {.color = color});
        }
    });
    const Bytes bytes = bitsOf(metafile);
    EXPECT_LE(host::EnhancedHeader::read(bytes)->handles, 66);
    EXPECT_EQ(played(bytes)->pixels(2)[2] & 0xFFFFFF, host::toPixel(299));
    EXPECT_TRUE(gdi.DeleteEnhMetaFile(metafile));
}

} // namespace

} // namespace mox::test
