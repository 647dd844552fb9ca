#include "host/metafiles/runlengths.h"

#include <algorithm>

namespace mox::host {

namespace {

class Unpacking {
public:
    Unpacking(std::span<const std::byte> packed, Bitmap& bitmap) : packed_(packed), bitmap_(bitmap) {}

    void run() {
        while (packed_.size() - place_ >= 2 && y_ < bitmap_.height()) {
            const unsigned count = next();
            const unsigned value = next();
            if (count != 0) {
                repeat(count, value);
            } else if (!escape(value)) {
                return;
            }
        }
    }

private:
    unsigned next() { return place_ < packed_.size() ? std::to_integer<unsigned>(packed_[place_++]) : 0; }
    bool isNarrow() const { return bitmap_.bitsPerPixel() == 4; }

    void set(unsigned index) {
        if (x_ < bitmap_.width() && y_ < bitmap_.height()) {
            std::byte* const row = bitmap_.row(bitmap_.height() - 1 - y_);
            if (!isNarrow()) {
                row[x_] = static_cast<std::byte>(index);
            } else {
                const int shift = x_ % 2 == 0 ? 4 : 0;
                row[x_ / 2] = (row[x_ / 2] & static_cast<std::byte>(0xF0 >> shift)) | static_cast<std::byte>(index << shift);
            }
            ++x_;
        }
    }

    /// A byte of 4-bit pixels holds two that alternate.
    unsigned half(unsigned value, unsigned number) const {
        return !isNarrow() ? value : number % 2 == 0 ? value >> 4 : value & 0xF;
    }

    void repeat(unsigned count, unsigned value) {
        for (unsigned number = 0; number < count; ++number) {
            set(half(value, number));
        }
    }

    void copy(unsigned count) {
        unsigned value = 0;
        const std::size_t start = place_;
        for (unsigned number = 0; number < count; ++number) {
            if (!isNarrow() || number % 2 == 0) {
                value = next();
            }
            set(half(value, number));
        }
        // They fill up to 16 bits.
        place_ = std::min(packed_.size(), place_ + (place_ - start) % 2);
    }

    /// False at the end.
    bool escape(unsigned value) {
        switch (value) {
        case 0:
            x_ = 0;
            ++y_;
            return true;
        case 1:
            return false;
        case 2:
            x_ = std::min(bitmap_.width(), x_ + static_cast<int>(next()));
            y_ += static_cast<int>(next());
            return true;
        default:
            copy(value);
            return true;
        }
    }

    std::span<const std::byte> packed_;
    Bitmap& bitmap_;
    std::size_t place_ = 0;
    int x_ = 0;
    int y_ = 0;
};

} // namespace

void unpackRunLengths(std::span<const std::byte> packed, Bitmap& bitmap) {
    Unpacking(packed, bitmap).run();
}

} // namespace mox::host
