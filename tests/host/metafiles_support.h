// Metafiles for tests: made by hand or recorded, played onto small bitmaps.
#pragma once

#include "support/testmachine.h"

#include "host/graphics/rastercanvas.h"
#include "host/metafiles/enhancedheader.h"
#include "host/metafiles/enhancedrecords.h"
#include "host/metafiles/oldrecords.h"
#include "host/metafiles/recordwriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace mox::test {

using Bytes = std::vector<std::byte>;
using host::DeviceContext;
using host::EnhancedRecord;
using host::OldRecord;
using host::RecordWriter;

/// An enhanced metafile, record by record. Its picture is `width` by `height` pixels of the screen.
class EnhancedBuilder {
public:
    explicit EnhancedBuilder(std::int32_t width = 40, std::int32_t height = 30, std::uint16_t handles = 8) {
        header_.device = {1000, 1000};
        header_.micrometers = {200000, 200000};
        header_.frame = {0, 0, width * 20, height * 20};
        header_.handles = handles;
    }

    static RecordWriter begin(EnhancedRecord type) { return RecordWriter(static_cast<std::uint32_t>(type)); }
    EnhancedBuilder& add(RecordWriter record) {
        const auto bytes = record.finish();
        records_.insert(records_.end(), bytes.begin(), bytes.end());
        ++header_.records;
        return *this;
    }
    EnhancedBuilder& add(EnhancedRecord type, std::initializer_list<std::int32_t> numbers) {
        RecordWriter record = begin(type);
        for (const std::int32_t number : numbers) {
            record.i32(number);
        }
        return add(std::move(record));
    }
    EnhancedBuilder& raw(const Bytes& bytes) {
        records_.insert(records_.end(), bytes.begin(), bytes.end());
        return *this;
    }
    host::EnhancedHeader& header() { return header_; }
    Bytes finish() {
        add(EnhancedRecord::endOfFile, {0, 16, 20});
        header_.bytes = static_cast<std::uint32_t>(header_.write().size() + records_.size());
        Bytes all = header_.write();
        all.insert(all.end(), records_.begin(), records_.end());
        return all;
    }

private:
    host::EnhancedHeader header_;
    Bytes records_;
};

/// An old-style metafile, record by record.
class OldBuilder {
public:
    /// Words in the order in which they are stored.
    OldBuilder& add(OldRecord function, std::initializer_list<std::int32_t> words) {
        std::vector<std::uint16_t> all;
        for (const std::int32_t word : words) {
            all.push_back(static_cast<std::uint16_t>(word));
        }
        return addBytes(function, std::as_bytes(std::span(all)));
    }
    OldBuilder& addBytes(OldRecord function, std::span<const std::byte> bytes) {
        const std::uint32_t words = static_cast<std::uint32_t>(3 + (bytes.size() + 1) / 2);
        put(words);
        put(static_cast<std::uint16_t>(function));
        records_.insert(records_.end(), bytes.begin(), bytes.end());
        records_.resize(records_.size() + bytes.size() % 2);
        return *this;
    }
    Bytes finish() {
        add(OldRecord::endOfFile, {});
        const Bytes body = std::exchange(records_, {});
        for (const std::uint16_t word : {1, 9, 0x300}) {
            put(word);
        }
        put(static_cast<std::uint32_t>((18 + body.size()) / 2));
        put(std::uint16_t{8});
        put(std::uint32_t{0});
        put(std::uint16_t{0});
        records_.insert(records_.end(), body.begin(), body.end());
        return records_;
    }

private:
    template <class Value> void put(Value value) {
        const auto bytes = std::as_bytes(std::span(&value, 1));
        records_.insert(records_.end(), bytes.begin(), bytes.end());
    }

    Bytes records_;
};

/// A machine, and a bitmap to play onto.
struct MetafilesTest : testing::Test {
    static constexpr std::int32_t width = 40;
    static constexpr std::int32_t height = 30;

    TestMachine machine;
    platform::Gdi32& gdi = machine->gdi32;

    std::shared_ptr<host::Bitmap> white(std::int32_t cx = width, std::int32_t cy = height) const {
        auto bitmap = host::Bitmap::create(cx, cy);
        std::ranges::fill(bitmap->bytes(), std::byte{0xFF});
        return bitmap;
    }
    /// Opens a context of a bitmap.
    platform::Handle contextOf(const std::shared_ptr<host::Bitmap>& bitmap) {
        return machine->graphics.open(std::make_shared<DeviceContext>(machine->graphics, DeviceContext::Kind::memory,
                                                                      machine->desktop.device(),
                                                                      std::make_shared<host::RasterCanvas>(bitmap)));
    }
    DeviceContext& context(platform::Handle hdc) { return *machine->graphics.context(hdc); }

    /// What drawing makes of a white bitmap.
    std::shared_ptr<host::Bitmap> drawn(const std::function<void(DeviceContext&)>& draw) {
        const auto bitmap = white();
        const platform::Handle hdc = contextOf(bitmap);
        draw(context(hdc));
        EXPECT_TRUE(gdi.DeleteDC(hdc));
        return bitmap;
    }
    /// A metafile of drawing, whose frame is as large as the bitmap.
    platform::Handle recorded(const std::function<void(DeviceContext&)>& draw) {
        host::EnhancedHeader header;
        header.setDevice(*machine->desktop.device());
        header.bounds = {0, 0, width - 1, height - 1};
        const platform::Handle hdc = gdi.CreateEnhMetaFileA(0, "", header.frameOfBounds(), "");
        draw(context(hdc));
        return gdi.CloseEnhMetaFile(hdc);
    }
    /// Plays a metafile of bytes onto a white bitmap; `isWhole` gets the answer.
    std::shared_ptr<host::Bitmap> played(const Bytes& bytes, bool& isWhole, platform::RECT area = {0, 0, width, height}) {
        const auto bitmap = white();
        const platform::Handle hdc = contextOf(bitmap);
        const platform::Handle metafile = gdi.SetEnhMetaFileBits(bytes);
        EXPECT_NE(metafile, 0);
        isWhole = gdi.PlayEnhMetaFile(hdc, metafile, area);
        EXPECT_TRUE(gdi.DeleteEnhMetaFile(metafile));
        EXPECT_TRUE(gdi.DeleteDC(hdc));
        return bitmap;
    }
    std::shared_ptr<host::Bitmap> played(const Bytes& bytes, platform::RECT area = {0, 0, width, height}) {
        bool isWhole = false;
        auto bitmap = played(bytes, isWhole, area);
        EXPECT_TRUE(isWhole);
        return bitmap;
    }
    Bytes bitsOf(platform::Handle metafile) {
        Bytes bytes(gdi.GetEnhMetaFileBits(metafile, {}));
        EXPECT_EQ(gdi.GetEnhMetaFileBits(metafile, bytes), bytes.size());
        return bytes;
    }

    /// The pixels that differ, for people: the first of them, or nothing.
    static std::string difference(const host::Bitmap& a, const host::Bitmap& b) {
        int count = 0;
        std::string first;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x) {
                const auto mine = a.pixels(y)[x] & 0xFFFFFF;
                const auto other = b.pixels(y)[x] & 0xFFFFFF;
                if (mine != other && ++count == 1) {
                    first = std::to_string(x) + "," + std::to_string(y) + ": " + std::to_string(mine) + " and " +
                            std::to_string(other);
                }
            }
        }
        return count == 0 ? "" : std::to_string(count) + " pixels, first " + first;
    }
    static int inked(const host::Bitmap& bitmap) {
        int count = 0;
        for (int y = 0; y < bitmap.height(); ++y) {
            for (int x = 0; x < bitmap.width(); ++x) {
                count += (bitmap.pixels(y)[x] & 0xFFFFFF) != 0xFFFFFF ? 1 : 0;
            }
        }
        return count;
    }
};

} // namespace mox::test
