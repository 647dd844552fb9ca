#include "host/pictures/picturebytes.h"

#include "host/graphics/graphics.h"
#include "host/pictures/contentimage.h"
#include "host/pictures/imagelimits.h"

#include <algorithm>

namespace mox::host {

namespace {

constexpr std::uint32_t signature = 0x4349504D; // MPIC
constexpr std::uint8_t version = 1;
constexpr std::uint16_t isOfDevice = 1;
constexpr std::size_t headerBytes = 16;

/// A bitmap of the device with the pixels of a section.
std::shared_ptr<Bitmap> toDevice(const Bitmap& section) {
    auto bitmap = createImage({.width = section.width(),
                               .height = section.height(),
                               .bitsPerPixel = section.bitsPerPixel(),
                               .masks = section.masks(),
                               .colors = {section.colors().begin(), section.colors().end()}});
    const std::size_t rowBytes = std::min(section.rowBytes(), bitmap->rowBytes());
    for (int y = 0; y < section.height(); ++y) {
        std::copy_n(section.row(y), rowBytes, bitmap->row(y));
    }
    return bitmap;
}

std::int16_t typeOf(const Image& image) {
    constexpr std::int16_t types[] = {pictureBitmap, pictureIcon, pictureMetafile, pictureEnhancedMetafile};
    return types[image.index()];
}

bool isBitmapOfDevice(const Image& image) {
    const auto* const bitmap = std::get_if<std::shared_ptr<Bitmap>>(&image);
    return bitmap && !(*bitmap)->isSection();
}

} // namespace

bool isPictureBytes(std::span<const std::byte> bytes) noexcept {
    const ImageBytes header(bytes);
    return bytes.size() >= headerBytes && header.u32(0) == signature && header.u8(4) == version &&
           header.u8(5) <= pictureEnhancedMetafile;
}

std::vector<std::byte> savePictureBytes(const Graphics& graphics, const PictureContent& content) {
    const bool isEmpty = content.type <= pictureNone;
    std::optional<Image> image;
    if (!isEmpty) {
        image = imageOf(graphics, content);
    }
    ImageWriter writer;
    writer.u32(signature);
    writer.u8(version);
    writer.u8(static_cast<std::uint8_t>(isEmpty ? pictureNone : content.type));
    writer.u16(image && isBitmapOfDevice(*image) ? isOfDevice : 0);
    writer.i32(content.size.cx);
    writer.i32(content.size.cy);
    if (image) {
        writer.bytes(writeImage(*image));
    }
    return writer.take();
}

PictureContent loadPictureBytes(Graphics& graphics, std::span<const std::byte> bytes) {
    requireImage(isPictureBytes(bytes));
    const ImageBytes header(bytes);
    if (header.u8(5) == pictureNone) {
        requireImage(bytes.size() == headerBytes);
        return {};
    }
    Image image = readImage(header.from(headerBytes));
    requireImage(typeOf(image) == header.u8(5));
    if (auto* const bitmap = std::get_if<std::shared_ptr<Bitmap>>(&image); bitmap && (header.u16(6) & isOfDevice) != 0) {
        *bitmap = toDevice(**bitmap);
    }
    if (auto* const placed = std::get_if<PlacedMetafile>(&image)) {
        placed->size = {header.i32(8), header.i32(12)};
        requireImage(placed->size.cx >= 0 && placed->size.cy >= 0);
    }
    return addImage(graphics, std::move(image));
}

} // namespace mox::host
