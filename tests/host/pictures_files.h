// Image files put together by hand.
#pragma once

#include "host/pictures/imagefile.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

namespace mox::test {

using Bytes = std::vector<std::byte>;

/// Bytes from words: each number with its width in bytes, low byte first.
class FileMaker {
public:
    FileMaker& u8(std::initializer_list<unsigned> values) { return put(values, 1); }
    FileMaker& u16(std::initializer_list<unsigned> values) { return put(values, 2); }
    FileMaker& u32(std::initializer_list<unsigned> values) { return put(values, 4); }
    FileMaker& text(std::string_view text) {
        for (const char c : text) {
            bytes_.push_back(static_cast<std::byte>(c));
        }
        return *this;
    }
    FileMaker& add(const Bytes& bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }
    Bytes bytes() const { return bytes_; }

private:
    FileMaker& put(std::initializer_list<unsigned> values, int width) {
        for (const unsigned value : values) {
            for (int i = 0; i < width; ++i) {
                bytes_.push_back(static_cast<std::byte>(value >> (8 * i)));
            }
        }
        return *this;
    }

    Bytes bytes_;
};

/// A bitmap file: the usual header, colours, rows as they stand in the file.
inline Bytes bmpOf(int width, int height, int bits, unsigned compression, std::initializer_list<unsigned> colors,
                   const Bytes& rows) {
    const unsigned offset = 54 + 4 * static_cast<unsigned>(colors.size());
    return FileMaker()
        .text("BM")
        .u32({offset + static_cast<unsigned>(rows.size()), 0, offset})
        .u32({40, static_cast<unsigned>(width), static_cast<unsigned>(height)})
        .u16({1, static_cast<unsigned>(bits)})
        .u32({compression, 0, 0, 0, bits <= 8 ? static_cast<unsigned>(colors.size()) : 0, 0})
        .u32(colors)
        .add(rows)
        .bytes();
}
inline Bytes bytesOf(std::initializer_list<unsigned> values) {
    return FileMaker().u8(values).bytes();
}

/// An icon file of several images, each by width, height, bits, hot spot and its bytes.
struct IconImage {
    unsigned width, height, bits;
    Bytes data;
    unsigned hotX = 1, hotY = 0;
};
inline Bytes icoOf(unsigned type, const std::vector<IconImage>& images) {
    FileMaker file;
    file.u16({0, type, static_cast<unsigned>(images.size())});
    unsigned place = 6 + 16 * static_cast<unsigned>(images.size());
    for (const IconImage& image : images) {
        file.u8({image.width, image.height, 0, 0}).u16({image.hotX, image.hotY});
        file.u32({static_cast<unsigned>(image.data.size()), place});
        place += static_cast<unsigned>(image.data.size());
    }
    for (const IconImage& image : images) {
        file.add(image.data);
    }
    return file.bytes();
}
inline Bytes iconDib(unsigned width, unsigned height, unsigned bits, std::initializer_list<unsigned> colors, const Bytes& rows) {
    return FileMaker().u32({40, width, height * 2}).u16({1, bits}).u32({0, 0, 0, 0, 0, 0}).u32(colors).add(rows).bytes();
}

/// An old-style metafile: header, a window of 96 by 48 units, its end.
inline Bytes wmfOf() {
    return FileMaker()
        .u16({1, 9, 0x300})
        .u32({9 + 5 + 3})
        .u16({0})
        .u32({5})
        .u16({0})
        .u32({5})
        .u16({0x20C, 48, 96})
        .u32({3})
        .u16({0})
        .bytes();
}
inline Bytes placeableWmfOf(unsigned right, unsigned bottom, unsigned perInch) {
    return FileMaker().u32({0x9AC6CDD7}).u16({0, 0, 0, right, bottom, perInch, 0, 0, 0}).add(wmfOf()).bytes();
}

/// True if a file is told to be no image.
inline bool isRefused(std::span<const std::byte> file) {
    try {
        host::readImage(file);
        return false;
    } catch (const host::ImageError&) {
        return true;
    }
}

} // namespace mox::test
