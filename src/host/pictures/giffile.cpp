#include "host/pictures/giffile.h"

#include "host/pictures/imagelimits.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>

namespace mox::host {

namespace {

constexpr Pixel white = 0xFFFFFF;
// A code of 12 bits stands for at most 4096 pixels, those on the way there for fewer.
constexpr std::size_t mostRatio = 4096;

class GifReader {
public:
    explicit GifReader(std::span<const std::byte> file) : rest_(file) {
        int error = 0;
        gif_ = DGifOpen(this, &GifReader::read, &error);
        requireImage(gif_ != nullptr);
    }
    ~GifReader() {
        int error = 0;
        DGifCloseFile(gif_, &error);
    }
    GifReader(const GifReader&) = delete;
    GifReader& operator=(const GifReader&) = delete;

    /// Goes to the first picture, noting what is said about it before.
    void findPicture() {
        for (GifRecordType type = UNDEFINED_RECORD_TYPE;;) {
            requireImage(DGifGetRecordType(gif_, &type) == GIF_OK);
            if (type == IMAGE_DESC_RECORD_TYPE) {
                requireImage(DGifGetImageDesc(gif_) == GIF_OK);
                return;
            }
            requireImage(type == EXTENSION_RECORD_TYPE);
            readExtension();
        }
    }
    const GifImageDesc& place() const noexcept { return gif_->Image; }
    int screenWidth() const noexcept { return gif_->SWidth; }
    int screenHeight() const noexcept { return gif_->SHeight; }
    void readRow(std::span<GifPixelType> row) {
        requireImage(DGifGetLine(gif_, row.data(), static_cast<int>(row.size())) == GIF_OK);
    }
    /// What each number of a pixel stands for.
    std::array<Pixel, 256> colors() const {
        std::array<Pixel, 256> result{};
        const ColorMapObject* const map = gif_->Image.ColorMap ? gif_->Image.ColorMap : gif_->SColorMap;
        requireImage(map != nullptr);
        for (int i = 0; i < std::min(map->ColorCount, 256); ++i) {
            const GifColorType& color = map->Colors[i];
            result[static_cast<std::size_t>(i)] = Pixel{color.Red} << 16 | Pixel{color.Green} << 8 | color.Blue;
        }
        if (transparent_ >= 0 && transparent_ < 256) {
            result[static_cast<std::size_t>(transparent_)] = white;
        }
        return result;
    }

private:
    static int read(GifFileType* gif, GifByteType* place, int size) {
        auto& rest = static_cast<GifReader*>(gif->UserData)->rest_;
        const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(size));
        std::memcpy(place, rest.data(), count);
        rest = rest.subspan(count);
        return static_cast<int>(count);
    }

    void readExtension() {
        int code = 0;
        GifByteType* block = nullptr;
        requireImage(DGifGetExtension(gif_, &code, &block) == GIF_OK);
        while (block) {
            GraphicsControlBlock control;
            if (code == GRAPHICS_EXT_FUNC_CODE && DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK) {
                transparent_ = control.TransparentColor;
            }
            requireImage(DGifGetExtensionNext(gif_, &block) == GIF_OK);
        }
    }

    std::span<const std::byte> rest_;
    GifFileType* gif_ = nullptr;
    int transparent_ = NO_TRANSPARENT_COLOR;
};

/// The order in which rows of a picture come.
std::vector<int> rowOrder(int height, bool isInterlaced) {
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(height));
    struct Pass {
        int first, step;
    };
    constexpr Pass plain[] = {{0, 1}};
    constexpr Pass interlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    for (const auto& [first, step] : isInterlaced ? std::span<const Pass>(interlaced) : std::span<const Pass>(plain)) {
        for (int y = first; y < height; y += step) {
            rows.push_back(y);
        }
    }
    return rows;
}

} // namespace

bool isGif(std::span<const std::byte> file) noexcept {
    return file.size() >= 6 && (std::memcmp(file.data(), "GIF87a", 6) == 0 || std::memcmp(file.data(), "GIF89a", 6) == 0);
}

std::shared_ptr<Bitmap> readGif(std::span<const std::byte> file) {
    requireImage(isGif(file));
    GifReader reader(file);
    reader.findPicture();
    const GifImageDesc& place = reader.place();
    requireImage(place.Width > 0 && place.Height > 0);
    const int width = std::max(reader.screenWidth(), place.Left + place.Width);
    const int height = std::max(reader.screenHeight(), place.Top + place.Height);
    checkRatio(checkedImageBytes(width, height, 32), file.size(), mostRatio);
    auto bitmap = createImage({.width = width, .height = height});
    if (place.Width < width || place.Height < height) {
        std::fill_n(bitmap->pixels(0), bitmap->bytes().size() / sizeof(Pixel), white);
    }
    const std::array<Pixel, 256> colors = reader.colors();
    std::vector<GifPixelType> row(static_cast<std::size_t>(place.Width));
    for (const int y : rowOrder(place.Height, place.Interlace)) {
        reader.readRow(row);
        std::ranges::transform(row, bitmap->pixels(place.Top + y) + place.Left,
                               [&](GifPixelType index) { return colors[index]; });
    }
    return bitmap;
}

} // namespace mox::host
