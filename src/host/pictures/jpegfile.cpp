#include "host/pictures/jpegfile.h"

#include "host/pictures/imagelimits.h"

#include <csetjmp>
#include <cstdio>

#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>

namespace mox::host {

namespace {

// A block of 64 pixels takes at least one bit a colour.
constexpr std::size_t mostRatio = 4096;
/// Files of more scans are made to take time.
constexpr int mostScans = 500;

/// The library's reader. It leaves a failing call by `longjmp`, so calls stand in members that own nothing.
class JpegReader {
public:
    explicit JpegReader(std::span<const std::byte> file) : file_(file) {
        jpeg_.err = jpeg_std_error(&errors_);
        errors_.error_exit = [](j_common_ptr jpeg) { fail(jpeg); };
        errors_.emit_message = [](j_common_ptr jpeg, int level) {
            if (level < 0 && jpeg->err->msg_code == JWRN_JPEG_EOF) {
                fail(jpeg);
            }
        };
        progress_.progress_monitor = [](j_common_ptr jpeg) {
            if (reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > mostScans) {
                fail(jpeg);
            }
        };
        jpeg_.client_data = this;
    }
    ~JpegReader() { jpeg_destroy_decompress(&jpeg_); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    bool readHeader() {
        if (setjmp(failure_) != 0) {
            return false;
        }
        jpeg_create_decompress(&jpeg_);
        jpeg_.progress = &progress_;
        jpeg_mem_src(&jpeg_, reinterpret_cast<const unsigned char*>(file_.data()), file_.size());
        if (jpeg_read_header(&jpeg_, TRUE) != JPEG_HEADER_OK) {
            return false;
        }
        isInk_ = jpeg_.num_components == 4;
        jpeg_.out_color_space = isInk_ ? JCS_CMYK : JCS_EXT_BGRX;
        return true;
    }
    bool readRows(Bitmap& bitmap) {
        if (setjmp(failure_) != 0) {
            return false;
        }
        jpeg_start_decompress(&jpeg_);
        while (jpeg_.output_scanline < jpeg_.output_height) {
            auto* row = reinterpret_cast<JSAMPLE*>(bitmap.row(static_cast<int>(jpeg_.output_scanline)));
            jpeg_read_scanlines(&jpeg_, &row, 1);
        }
        jpeg_finish_decompress(&jpeg_);
        return true;
    }

    std::int64_t width() const noexcept { return jpeg_.image_width; }
    std::int64_t height() const noexcept { return jpeg_.image_height; }
    /// True if the rows hold cyan, magenta, yellow and black.
    bool isInk() const noexcept { return isInk_; }
    /// True if the inks are stored as what they leave.
    bool isInverted() const noexcept { return jpeg_.saw_Adobe_marker != 0; }

private:
    [[noreturn]] static void fail(j_common_ptr jpeg) { std::longjmp(static_cast<JpegReader*>(jpeg->client_data)->failure_, 1); }

    std::span<const std::byte> file_;
    jpeg_decompress_struct jpeg_{};
    jpeg_error_mgr errors_{};
    jpeg_progress_mgr progress_{};
    std::jmp_buf failure_{};
    bool isInk_ = false;
};

Pixel pixelOfInks(Pixel inks, bool isInverted) {
    if (!isInverted) {
        inks = ~inks;
    }
    const Pixel black = inks >> 24;
    const auto channel = [&](int shift) { return ((inks >> shift & 0xFF) * black + 127) / 255; };
    return channel(0) << 16 | channel(8) << 8 | channel(16);
}

void finishPixels(Bitmap& bitmap, const JpegReader& reader) {
    for (int y = 0; y < bitmap.height(); ++y) {
        const std::span row(bitmap.pixels(y), static_cast<std::size_t>(bitmap.width()));
        if (reader.isInk()) {
            std::ranges::transform(row, row.begin(), [&](Pixel inks) { return pixelOfInks(inks, reader.isInverted()); });
        } else {
            std::ranges::transform(row, row.begin(), [](Pixel pixel) { return pixel & 0xFFFFFF; });
        }
    }
}

} // namespace

bool isJpeg(std::span<const std::byte> file) noexcept {
    return file.size() >= 3 && file[0] == std::byte{0xFF} && file[1] == std::byte{0xD8} && file[2] == std::byte{0xFF};
}

std::shared_ptr<Bitmap> readJpeg(std::span<const std::byte> file) {
    requireImage(isJpeg(file));
    JpegReader reader(file);
    requireImage(reader.readHeader());
    checkRatio(checkedImageBytes(reader.width(), reader.height(), 32), file.size(), mostRatio);
    auto bitmap = createImage({.width = static_cast<int>(reader.width()), .height = static_cast<int>(reader.height())});
    requireImage(reader.readRows(*bitmap));
    finishPixels(*bitmap, reader);
    return bitmap;
}

} // namespace mox::host
