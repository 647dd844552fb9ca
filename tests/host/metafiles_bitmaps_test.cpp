#include "metafiles_support.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

namespace mox::test {

namespace {

using namespace platform;
using Type = EnhancedRecord;
using host::Pixel;

struct MetafilesBitmapsTest : MetafilesTest {};

/// Pixels as a description and rows from the bottom up.
struct Picture {
    Bytes info;
    Bytes bits;
};

Picture pictureOf(std::int32_t cx, std::int32_t cy, std::uint16_t bitsPerPixel, std::vector<Pixel> colors,
                  std::vector<int> bits) {
    const BITMAPINFOHEADER header{.biWidth = cx, .biHeight = cy, .biBitCount = bitsPerPixel};
    Picture picture;
    picture.info.resize(sizeof header + colors.size() * 4);
    std::memcpy(picture.info.data(), &header, sizeof header);
    std::ranges::copy(std::as_bytes(std::span(colors)), picture.info.begin() + sizeof header);
    for (const int byte : bits) {
        picture.bits.push_back(static_cast<std::byte>(byte));
    }
    return picture;
}

/// Two by two pixels: red and white above blue and green.
Picture fourColors() {
    return pictureOf(2, 2, 32, {}, {255, 0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 0, 255, 255, 255, 0});
}

/// Offsets and sizes of a picture that begins at a place in its record.
void addPlace(RecordWriter& record, const Picture& picture, std::size_t place) {
    record.u32(place).u32(picture.info.size()).u32(place + picture.info.size()).u32(picture.bits.size());
}

TEST_F(MetafilesBitmapsTest, copiesOfEveryRecordComeOutTheRightWayRound) {
    const Picture picture = fourColors();
    struct Case {
        const char* name;
        RecordWriter record;
        /// Of the four pixels at 5, 6.
        std::array<Pixel, 4> expected;
    };
    std::vector<Case> cases;
    {
        RecordWriter record = EnhancedBuilder::begin(Type::plgBlt);
        record.rect({}).point({5, 6}).point({7, 6}).point({5, 8}).point({0, 0}).size({2, 2}).transform({}).u32(0U).u32(0U);
        addPlace(record, picture, 140);
        cases.push_back(
            {"plgBlt", record.point({}).zeros(20).bytes(picture.info).bytes(picture.bits), {0xFF0000, 0xFFFFFF, 0xFF, 0xFF00}});
    }
    {
        RecordWriter record = EnhancedBuilder::begin(Type::setDibitsToDevice);
        record.rect({}).point({5, 6}).point({0, 0}).size({2, 2});
        addPlace(record, picture, 76);
        cases.push_back({"setDibitsToDevice",
                         record.u32(0U).u32(0U).u32(2U).bytes(picture.info).bytes(picture.bits),
                         {0xFF0000, 0xFFFFFF, 0xFF, 0xFF00}});
    }
    {
        // One row alone, which is the lower one.
        RecordWriter record = EnhancedBuilder::begin(Type::setDibitsToDevice);
        record.rect({}).point({5, 6}).point({0, 0}).size({2, 2});
        addPlace(record, picture, 76);
        cases.push_back({"one scan line",
                         record.u32(0U).u32(0U).u32(1U).bytes(picture.info).bytes(picture.bits),
                         {0xFFFFFF, 0xFFFFFF, 0xFF, 0xFF00}});
    }
    {
        // The lower row, counted from the bottom, in both rows.
        RecordWriter record = EnhancedBuilder::begin(Type::stretchDibits);
        record.rect({}).point({5, 6}).point({0, 0}).size({2, 1});
        addPlace(record, picture, 80);
        cases.push_back({"stretchDibits",
                         record.u32(0U).u32(SRCCOPY).size({2, 2}).bytes(picture.info).bytes(picture.bits),
                         {0xFF, 0xFF00, 0xFF, 0xFF00}});
    }
    {
        RecordWriter record = EnhancedBuilder::begin(Type::stretchBlt);
        record.rect({}).point({5, 6}).size({2, 2}).u32(SRCCOPY).point({0, 0}).transform({}).u32(0U).u32(0U);
        addPlace(record, picture, 108);
        cases.push_back({"stretchBlt",
                         record.size({2, 1}).bytes(picture.info).bytes(picture.bits),
                         {0xFF0000, 0xFFFFFF, 0xFF0000, 0xFFFFFF}});
    }
    {
        // A source that is moved has its own coordinates.
        RecordWriter record = EnhancedBuilder::begin(Type::bitBlt);
        record.rect({}).point({5, 6}).size({2, 2}).u32(NOTSRCCOPY).point({2, 2}).transform({.dx = -2, .dy = -2}).u32(0U).u32(0U);
        addPlace(record, picture, 100);
        cases.push_back(
            {"bitBlt with a moved source", record.bytes(picture.info).bytes(picture.bits), {0xFFFF, 0, 0xFFFF00, 0xFF00FF}});
    }
    {
        const Picture mask = pictureOf(2, 2, 1, {0, 0xFFFFFF}, {0x80, 0, 0, 0, 0x40, 0, 0, 0});
        RecordWriter record = EnhancedBuilder::begin(Type::maskBlt);
        // Copied where the mask is 1, black where it is 0.
        record.rect({}).point({5, 6}).size({2, 2}).u32(SRCCOPY).point({0, 0}).transform({}).u32(0U).u32(0U);
        addPlace(record, picture, 128);
        record.point({}).u32(0U);
        addPlace(record, mask, 128 + picture.info.size() + picture.bits.size());
        cases.push_back({"maskBlt",
                         record.bytes(picture.info).bytes(picture.bits).bytes(mask.info).bytes(mask.bits),
                         {0, 0xFFFFFF, 0xFF, 0}});
    }
    for (Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        const auto bitmap = played(EnhancedBuilder().add(std::move(entry.record)).finish());
        std::array<Pixel, 4> pixels{};
        for (std::size_t index = 0; index < pixels.size(); ++index) {
            pixels[index] = bitmap->pixels(static_cast<int>(6 + index / 2))[5 + index % 2] & 0xFFFFFF;
        }
        EXPECT_EQ(pixels, entry.expected);
        EXPECT_LE(inked(*bitmap), 4);
    }
}

TEST_F(MetafilesBitmapsTest, drawsTextOfEveryRecord) {
    const auto direct = drawn([](DeviceContext& context) {
        context.state().textColor = 0xFF;
        context.textOut({3, 4}, u"Ink");
    });
    ASSERT_GT(inked(*direct), 10);
    const auto text = [](Type type, std::size_t offset, const auto& characters) {
        RecordWriter record = EnhancedBuilder::begin(type);
        record.rect({}).u32(1U).real(1).real(1).point({3, 4}).u32(3U).u32(offset).u32(0U).rect({}).u32(0U);
        return record.bytes(std::as_bytes(std::span(characters)));
    };
    RecordWriter small = EnhancedBuilder::begin(Type::smallTextOut);
    small.point({3, 4}).u32(3U).u32(host::ETO_NO_RECT | host::ETO_SMALL_CHARS).u32(1U).real(1).real(1).u8('I').u8('n').u8('k');
    RecordWriter smallWide = EnhancedBuilder::begin(Type::smallTextOut);
    smallWide.point({3, 4}).u32(3U).u32(0U).u32(1U).real(1).real(1).rect({}).text(u"Ink");
    for (RecordWriter record : {text(Type::extTextOutA, 76, std::string("Ink")),
                                text(Type::extTextOutW, 76, std::u16string(u"Ink")), small, smallWide}) {
        EXPECT_EQ(difference(*played(EnhancedBuilder().add(Type::setTextColor, {0xFF}).add(std::move(record)).finish()), *direct),
                  "");
    }
}

TEST_F(MetafilesBitmapsTest, choosesFontsAndPensOfRecords) {
    RecordWriter font = EnhancedBuilder::begin(Type::createFont);
    font.u32(1U).i32(-20).zeros(12).i32(FW_BOLD).zeros(8).text(u"DejaVu Sans");
    font.zeros(64 - 22);
    RecordWriter pen = EnhancedBuilder::begin(Type::extCreatePen);
    pen.u32(2U).zeros(16).u32(0x10200U).u32(5U).u32(0U).u32(0xFF0000U).zeros(8);
    EnhancedBuilder file;
    file.add(std::move(font)).add(std::move(pen)).add(Type::selectObject, {1}).add(Type::selectObject, {2});
    RecordWriter text = EnhancedBuilder::begin(Type::smallTextOut);
    text.point({1, 1}).u32(1U).u32(host::ETO_NO_RECT | host::ETO_SMALL_CHARS).u32(1U).real(1).real(1).u8('M');
    file.add(std::move(text)).add(Type::moveTo, {5, 26}).add(Type::lineTo, {30, 26});
    const auto expected = drawn([](DeviceContext& context) {
        host::Font wide{{.lfHeight = -20, .lfWeight = FW_BOLD}};
        std::ranges::copy(std::string_view("DejaVu Sans"), wide.description.lfFaceName.begin());
        context.state().font = {0, std::make_shared<const host::Font>(wide)};
        context.textOut({1, 1}, u"M");
        context.state().pen = {0, std::make_shared<const host::Pen>(host::Pen{.width = 5, .color = 0xFF0000, .endCap = 0x200})};
        POINT before;
        context.moveTo({5, 26}, before);
        context.lineTo({30, 26});
    });
    EXPECT_EQ(difference(*played(file.finish()), *expected), "");
    EXPECT_GT(inked(*expected), 100);
}

} // namespace

} // namespace mox::test
