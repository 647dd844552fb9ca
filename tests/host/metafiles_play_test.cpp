#include "metafiles_support.h"

#include "host/metafiles/packeddib.h"

#include <array>
#include <bit>

namespace mox::test {

namespace {

using namespace platform;
using Type = EnhancedRecord;
using host::Pixel;

struct MetafilesPlayTest : MetafilesTest {
    /// Plays records behind the choice of a blue brush and no pen.
    std::shared_ptr<host::Bitmap> playedWithBrush(const std::function<void(EnhancedBuilder&)>& add,
                                                  RECT area = {0, 0, width, height}) {
        EnhancedBuilder builder;
        builder.add(Type::createBrush, {1, BS_SOLID, 0xFF0000, 0});
        builder.add(Type::selectObject, {1});
        builder.add(Type::selectObject, {std::bit_cast<std::int32_t>(0x80000000 + NULL_PEN)});
        add(builder);
        return played(builder.finish(), area);
    }
    std::shared_ptr<host::Bitmap> box(RECT area, Pixel color = 0xFF) {
        return drawn([&](DeviceContext& context) { context.fillRect(area, {.color = host::toColor(color)}); });
    }
};

void add16(RecordWriter& record, std::initializer_list<std::int32_t> numbers) {
    for (const std::int32_t number : numbers) {
        record.u16(static_cast<std::uint32_t>(number));
    }
}

std::int32_t floatBits(float value) {
    return std::bit_cast<std::int32_t>(value);
}

/// The box that a filled rectangle of records covers without a pen: one pixel less on the right and below.
constexpr RECT usual{4, 5, 14, 15};
constexpr std::initializer_list<std::int32_t> usualRecord{4, 5, 14, 15};

TEST_F(MetafilesPlayTest, mapsByEveryKindOfCoordinates) {
    struct Case {
        const char* name;
        std::function<void(EnhancedBuilder&)> add;
        RECT expected;
    };
    const Case cases[]{
        {"text", [](auto& file) { file.add(Type::rectangle, usualRecord); }, usual},
        {"window origin",
         [](auto& file) {
             file.add(Type::setWindowOrg, {-3, -4}).add(Type::rectangle, usualRecord);
         },
         {7, 9, 17, 19}},
        {"viewport origin",
         [](auto& file) {
             file.add(Type::setViewportOrg, {3, 4}).add(Type::rectangle, usualRecord);
         },
         {7, 9, 17, 19}},
        {"anisotropic",
         [](auto& file) {
             file.add(Type::setMapMode, {8}).add(Type::setWindowExt, {10, 10}).add(Type::setViewportExt, {20, 5});
             file.add(Type::rectangle, {2, 4, 11, 19});
         },
         {4, 2, 24 - 1, 10 - 1}},
        {"isotropic takes the lesser scale",
         [](auto& file) {
             file.add(Type::setMapMode, {7}).add(Type::setWindowExt, {10, 10}).add(Type::setViewportExt, {20, 35});
             file.add(Type::rectangle, {2, 4, 11, 9});
         },
         {4, 8, 24 - 1, 20 - 1}},
        {"extents count only in modes that have some",
         [](auto& file) {
             file.add(Type::setWindowExt, {10, 10}).add(Type::setViewportExt, {20, 5}).add(Type::rectangle, usualRecord);
         },
         usual},
        {"scaled extents",
         [](auto& file) {
             file.add(Type::setMapMode, {8}).add(Type::setWindowExt, {10, 10}).add(Type::setViewportExt, {10, 10});
             file.add(Type::scaleViewportExt, {4, 2, 1, 1}).add(Type::scaleWindowExt, {1, 1, 1, 2});
             file.add(Type::rectangle, {2, 2, 11, 11});
         },
         {4, 4, 24 - 1, 24 - 1}},
        {"tenths of a millimetre upwards",
         [](auto& file) {
             // Ten units are five pixels of the builder's device.
             file.add(Type::setMapMode, {2}).add(Type::setViewportOrg, {0, 25}).add(Type::rectangle, {10, 10, 39, 39});
         },
         {5, 5, 20 - 1, 20 - 1}},
        {"a world",
         [](auto& file) {
             file.add(Type::setWorldTransform, {floatBits(2), 0, 0, floatBits(2), floatBits(1), floatBits(3)});
             file.add(Type::rectangle, {2, 1, 11, 10});
         },
         {5, 5, 25 - 1, 25 - 1}},
        {"worlds in turn",
         [](auto& file) {
             file.add(Type::modifyWorldTransform, {floatBits(2), 0, 0, floatBits(2), 0, 0, 4});
             // This one first: moved by one, then doubled.
             file.add(Type::modifyWorldTransform, {floatBits(1), 0, 0, floatBits(1), floatBits(1), floatBits(1), 2});
             file.add(Type::modifyWorldTransform, {floatBits(1), 0, 0, floatBits(1), floatBits(3), 0, 3});
             file.add(Type::rectangle, {0, 1, 9, 10});
         },
         {5, 4, 25 - 1, 24 - 1}},
        {"saved and restored",
         [](auto& file) {
             file.add(Type::saveDc, {}).add(Type::setViewportOrg, {9, 9}).add(Type::saveDc, {});
             file.add(Type::setViewportOrg, {19, 9}).add(Type::selectObject, {std::bit_cast<std::int32_t>(0x80000004)});
             file.add(Type::restoreDc, {-2}).add(Type::rectangle, usualRecord);
         },
         usual},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        EXPECT_EQ(difference(*playedWithBrush(entry.add), *box(entry.expected)), "");
    }
}

TEST_F(MetafilesPlayTest, fillsAnyAreaWithItsFrame) {
    const auto add = [](EnhancedBuilder& file) { file.add(Type::rectangle, {4, 6, 14, 16}); };
    struct Case {
        RECT area;
        RECT expected;
    };
    for (const Case& entry : {Case{{0, 0, 40, 30}, {4, 6, 14, 16}},
                              {{10, 5, 50, 35}, {14, 11, 24, 21}},
                              {{0, 0, 20, 15}, {2, 3, 7, 8}},
                              {{40, 0, 0, 30}, {25, 6, 36, 16}},
                              {{0, 0, 0, 0}, {}}}) {
        const auto bitmap = playedWithBrush(add, entry.area);
        SCOPED_TRACE(entry.area.left);
        EXPECT_EQ(inked(*bitmap) > 0, !host::isEmpty(entry.expected));
        EXPECT_NEAR(inked(*bitmap), inked(*box(entry.expected)), 24);
    }
}

TEST_F(MetafilesPlayTest, drawsTheShapesThatAreNotRecorded) {
    const auto lines = [&](std::vector<POINT> points) {
        return drawn([&](DeviceContext& context) { context.polyline(points); });
    };
    const auto curve = [&](std::array<POINT, 4> points) {
        return drawn([&](DeviceContext& context) { context.polyBezier(points); });
    };
    struct Case {
        const char* name;
        Type type;
        std::vector<std::int32_t> numbers;
        bool isNarrow;
        std::shared_ptr<host::Bitmap> expected;
    };
    const std::shared_ptr<host::Bitmap> steps = lines({{0, 0}, {9, 3}, {20, 3}});
    const Case cases[]{
        {"polylineTo", Type::polylineTo, {0, 0, 0, 0, 2, 9, 3, 20, 3}, false, steps},
        {"polylineTo16", Type::polylineTo16, {0, 0, 0, 0, 2, 9, 3, 20, 3}, true, steps},
        {"polyBezierTo",
         Type::polyBezierTo,
         {0, 0, 0, 0, 3, 5, 20, 20, 0, 30, 25},
         false,
         curve({POINT{0, 0}, {5, 20}, {20, 0}, {30, 25}})},
        {"polyPolyline16", Type::polyPolyline16, {0, 0, 0, 0, 1, 3, 3, 0, 0, 9, 3, 20, 3}, true, steps},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        RecordWriter record = EnhancedBuilder::begin(entry.type);
        const std::size_t fields = entry.type == Type::polyPolyline16 ? 7 : 5;
        for (std::size_t index = 0; index < entry.numbers.size(); ++index) {
            if (entry.isNarrow && index >= fields) {
                add16(record, {entry.numbers[index]});
            } else {
                record.i32(entry.numbers[index]);
            }
        }
        EXPECT_EQ(difference(*played(EnhancedBuilder().add(std::move(record)).finish()), *entry.expected), "");
    }
}

TEST_F(MetafilesPlayTest, drawsPartsOfEllipses) {
    const auto ellipse = drawn([](DeviceContext& context) { context.ellipse({4, 4, 25, 25}); });
    // From and to the same point: all of it.
    const auto whole = played(EnhancedBuilder().add(Type::chord, {4, 4, 24, 24, 40, 14, 40, 14}).finish());
    EXPECT_LE(std::abs(inked(*whole) - inked(*ellipse)), 4);

    struct Case {
        const char* name;
        Type type;
        std::int32_t direction;
        POINT inside;
        POINT outside;
    };
    // Between the right and the top, counterclockwise a quarter, clockwise three.
    for (const Case& entry : {Case{"arc", Type::arc, 1, {21, 7}, {7, 21}},
                              {"the other way", Type::arc, 2, {7, 21}, {21, 7}},
                              {"chord", Type::chord, 1, {19, 9}, {8, 14}},
                              {"pie", Type::pie, 1, {17, 11}, {10, 17}},
                              {"large pie", Type::pie, 2, {10, 17}, {18, 10}}}) {
        SCOPED_TRACE(entry.name);
        EnhancedBuilder file;
        file.add(Type::setArcDirection, {entry.direction});
        file.add(Type::selectObject, {std::bit_cast<std::int32_t>(0x80000000 + BLACK_BRUSH)});
        file.add(entry.type, {4, 4, 24, 24, 40, 14, 14, 0});
        const auto bitmap = played(file.finish());
        const auto isInked = [&](POINT place) {
            int count = 0;
            for (int dy = -1; dy <= 1; ++dy) {
                for (int dx = -1; dx <= 1; ++dx) {
                    count += (bitmap->pixels(place.y + dy)[place.x + dx] & 0xFFFFFF) == 0 ? 1 : 0;
                }
            }
            return count > 0;
        };
        EXPECT_TRUE(isInked(entry.inside));
        EXPECT_FALSE(isInked(entry.outside));
    }
    // A line to the arc and on from its end.
    const auto turn = played(EnhancedBuilder()
                                 .add(Type::moveTo, {14, 14})
                                 .add(Type::angleArc, {14, 14, 10, floatBits(0), floatBits(-90)})
                                 .add(Type::lineTo, {14, 14})
                                 .finish());
    for (const POINT place : {POINT{20, 14}, {21, 21}, {14, 20}}) {
        EXPECT_EQ(turn->pixels(place.y)[place.x] & 0xFFFFFF, 0U) << place.x;
    }
}

TEST_F(MetafilesPlayTest, collectsPathsBeforeItDrawsThem) {
    const auto square = [](EnhancedBuilder& file) {
        file.add(Type::beginPath, {}).add(Type::moveTo, {5, 5}).add(Type::lineTo, {15, 5}).add(Type::lineTo, {15, 15});
        file.add(Type::lineTo, {5, 15}).add(Type::closeFigure, {}).add(Type::endPath, {});
    };
    const RECT none{0, 0, -1, -1};
    const auto step = [&](EnhancedBuilder& file, Type type) { file.add(EnhancedBuilder::begin(type).rect(none)); };
    EXPECT_EQ(difference(*playedWithBrush([&](auto& file) {
                  square(file);
                  step(file, Type::fillPath);
              }),
                         *box({5, 5, 15, 15})),
              "");
    EXPECT_EQ(inked(*playedWithBrush([&](auto& file) {
                  square(file);
                  file.add(Type::abortPath, {});
                  step(file, Type::fillPath);
              })),
              0);
    EXPECT_EQ(difference(*playedWithBrush([&](auto& file) {
                  square(file);
                  file.add(Type::flattenPath, {}).add(Type::selectClipPath, {5});
                  file.add(Type::rectangle, {0, 0, 38, 28});
              }),
                         *box({5, 5, 15, 15})),
              "");
    // Rectangles and polygons go into a path, too, and are joined by the rule.
    EXPECT_EQ(difference(*playedWithBrush([&](auto& file) {
                  file.add(Type::beginPath, {}).add(Type::rectangle, {2, 2, 20, 20});
                  file.add(Type::rectangle, {2, 10, 20, 20}).add(Type::endPath, {});
                  step(file, Type::fillPath);
              }),
                         *box({2, 2, 20, 10})),
              "");
}

TEST_F(MetafilesPlayTest, clipsAndFillsRegions) {
    const auto region = [](std::initializer_list<RECT> areas) {
        RecordWriter data(32);
        data.i32(static_cast<std::int32_t>(areas.size())).i32(0).rect({});
        for (const RECT& area : areas) {
            data.rect(area);
        }
        Bytes bytes(data.finish().begin(), data.finish().end());
        bytes[4] = std::byte{1};
        bytes[5] = bytes[6] = bytes[7] = std::byte{0};
        return bytes;
    };
    const auto ground = [](EnhancedBuilder& file) { file.add(Type::rectangle, {0, 0, 39, 29}); };
    struct Case {
        const char* name;
        std::function<void(EnhancedBuilder&)> add;
        RECT expected;
    };
    const auto clip = [&](std::uint32_t mode, RECT area) {
        const Bytes bytes = region({area});
        return EnhancedBuilder::begin(Type::extSelectClipRgn).u32(bytes.size()).u32(mode).bytes(bytes);
    };
    const Case cases[]{
        {"intersected",
         [&](auto& file) {
             file.add(Type::intersectClipRect, {2, 3, 20, 25}).add(Type::intersectClipRect, {5, 0, 30, 20});
             ground(file);
         },
         {5, 3, 20, 20}},
        {"excluded and moved",
         [&](auto& file) {
             file.add(Type::intersectClipRect, {2, 3, 20, 25}).add(Type::excludeClipRect, {0, 10, 40, 30});
             file.add(Type::offsetClipRgn, {3, 2});
             ground(file);
         },
         {5, 5, 23, 12}},
        {"a region copied and cut",
         [&](auto& file) {
             file.add(clip(5, {1, 2, 11, 22})).add(clip(1, {0, 0, 40, 12})).add(clip(4, {0, 0, 4, 40}));
             ground(file);
         },
         {4, 2, 11, 12}},
        {"nothing clipped any more",
         [&](auto& file) {
             file.add(clip(5, {1, 2, 11, 22})).add(Type::extSelectClipRgn, {0, 5}).add(Type::intersectClipRect, {8, 8, 9, 9});
             ground(file);
         },
         {8, 8, 9, 9}},
        {"filled",
         [&](auto& file) {
             const Bytes bytes = region({{3, 4, 9, 14}, {9, 4, 12, 14}});
             file.add(EnhancedBuilder::begin(Type::fillRgn).rect({}).u32(bytes.size()).u32(1U).bytes(bytes));
         },
         {3, 4, 12, 14}},
        {"painted",
         [&](auto& file) {
             const Bytes bytes = region({{3, 4, 9, 14}});
             file.add(EnhancedBuilder::begin(Type::paintRgn).rect({}).u32(bytes.size()).bytes(bytes));
         },
         {3, 4, 9, 14}},
        {"inverted twice but for a part",
         [&](auto& file) {
             for (const RECT& area : {RECT{3, 4, 20, 14}, RECT{3, 4, 20, 14}}) {
                 const Bytes bytes = region({area});
                 file.add(EnhancedBuilder::begin(Type::invertRgn).rect({}).u32(bytes.size()).bytes(bytes));
             }
             const Bytes bytes = region({{4, 4, 6, 6}});
             file.add(EnhancedBuilder::begin(Type::paintRgn).rect({}).u32(bytes.size()).bytes(bytes));
         },
         {4, 4, 6, 6}},
    };
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.name);
        EXPECT_EQ(difference(*playedWithBrush(entry.add), *box(entry.expected)), "");
    }
    const auto frame = playedWithBrush([&](auto& file) {
        const Bytes bytes = region({{3, 4, 23, 24}});
        file.add(EnhancedBuilder::begin(Type::frameRgn).rect({}).u32(bytes.size()).u32(1U).size({2, 3}).bytes(bytes));
    });
    EXPECT_EQ(inked(*frame), 20 * 20 - 16 * 14);
    EXPECT_EQ(frame->pixels(6)[10] & 0xFFFFFF, 0xFFU);
    EXPECT_EQ(frame->pixels(7)[10] & 0xFFFFFF, 0xFFFFFFU);
}

TEST_F(MetafilesPlayTest, fillsGradients) {
    EnhancedBuilder file;
    RecordWriter record = EnhancedBuilder::begin(Type::gradientFill);
    record.rect({}).u32(2U).u32(1U).u32(0U);
    record.point({0, 0});
    add16(record, {0, 0, 0, 0});
    record.point({40, 30});
    add16(record, {0xFF00, 0, 0, 0});
    record.u32(0U).u32(1U);
    const auto bitmap = played(file.add(std::move(record)).finish());
    for (int x = 1; x < width; ++x) {
        EXPECT_GT(bitmap->pixels(15)[x] & 0xFFFFFF, bitmap->pixels(15)[x - 1] & 0xFFFFFF) << x;
    }
    RecordWriter triangle = EnhancedBuilder::begin(Type::gradientFill);
    triangle.rect({}).u32(3U).u32(1U).u32(2U);
    for (const POINT corner : {POINT{0, 0}, {40, 0}, {0, 30}}) {
        triangle.point(corner);
        add16(triangle, {0x8000, 0x4000, 0x2000, 0});
    }
    const auto filled = played(EnhancedBuilder().add(triangle.u32(0U).u32(1U).u32(2U)).finish());
    EXPECT_EQ(filled->pixels(5)[5] & 0xFFFFFF, 0x804020U);
    EXPECT_EQ(filled->pixels(25)[35] & 0xFFFFFF, 0xFFFFFFU);
}

} // namespace

} // namespace mox::test
