#include "host/pictures/runlength.h"

#include "host/pictures/imagebytes.h"

namespace mox::host {

namespace {

class Expansion {
public:
    Expansion(ImageBytes data, Bitmap& bitmap) : data_(data), bitmap_(bitmap), isFour_(bitmap.bitsPerPixel() == 4) {}

    void run() {
        while (!isDone_) {
            const unsigned count = data_.u8(place_);
            const unsigned value = data_.u8(place_ + 1);
            place_ += 2;
            if (count != 0) {
                repeat(count, value);
            } else {
                escape(value);
            }
        }
    }

private:
    static constexpr unsigned endOfLine = 0;
    static constexpr unsigned endOfBitmap = 1;
    static constexpr unsigned delta = 2;

    void repeat(unsigned count, unsigned value) {
        for (unsigned i = 0; i < count; ++i) {
            put(isFour_ ? (i % 2 == 0 ? value >> 4 : value & 0xF) : value);
        }
    }

    void escape(unsigned code) {
        switch (code) {
        case endOfLine:
            x_ = 0;
            ++y_;
            break;
        case endOfBitmap:
            isDone_ = true;
            break;
        case delta:
            x_ += data_.u8(place_);
            y_ += data_.u8(place_ + 1);
            place_ += 2;
            break;
        default:
            literals(code);
        }
    }

    /// Literal pixels are filled up to an even number of bytes.
    void literals(unsigned count) {
        for (unsigned i = 0; i < count; ++i) {
            const unsigned value = data_.u8(place_ + (isFour_ ? i / 2 : i));
            put(isFour_ ? (i % 2 == 0 ? value >> 4 : value & 0xF) : value);
        }
        place_ += ((isFour_ ? (count + 1) / 2 : count) + 1) / 2 * 2;
    }

    void put(unsigned value) {
        if (x_ < bitmap_.width() && y_ < bitmap_.height()) {
            std::byte& place = bitmap_.row(bitmap_.height() - 1 - static_cast<int>(y_))[isFour_ ? x_ / 2 : x_];
            if (!isFour_) {
                place = static_cast<std::byte>(value);
            } else if (x_ % 2 == 0) {
                place = (place & std::byte{0x0F}) | static_cast<std::byte>(value << 4);
            } else {
                place = (place & std::byte{0xF0}) | static_cast<std::byte>(value);
            }
        }
        ++x_;
    }

    ImageBytes data_;
    Bitmap& bitmap_;
    const bool isFour_;
    std::size_t place_ = 0;
    std::int64_t x_ = 0;
    std::int64_t y_ = 0;
    bool isDone_ = false;
};

} // namespace

void expandRunLengths(std::span<const std::byte> data, Bitmap& bitmap) {
    Expansion(data, bitmap).run();
}

} // namespace mox::host
