#include "host/pictures/bmpfile.h"

#include "host/pictures/dib.h"

namespace mox::host {

namespace {

constexpr std::uint16_t signature = 0x4D42; // BM
constexpr std::size_t fileHeaderBytes = 14;

} // namespace

bool isBmp(std::span<const std::byte> file) noexcept {
    return file.size() >= 2 && file[0] == std::byte{'B'} && file[1] == std::byte{'M'};
}

std::shared_ptr<Bitmap> readBmp(std::span<const std::byte> file) {
    const ImageBytes bytes(file);
    requireImage(isBmp(file));
    const std::size_t pixels = bytes.u32(10);
    const bool saysWhere = pixels > fileHeaderBytes;
    const Dib dib = readDibHeader(bytes.from(fileHeaderBytes), saysWhere ? pixels - fileHeaderBytes : ~std::size_t{0});
    return readDibPixels(dib, bytes.from(saysWhere ? pixels : fileHeaderBytes + dib.headerBytes));
}

std::vector<std::byte> writeBmp(const Bitmap& bitmap) {
    const std::size_t pixels = fileHeaderBytes + dibHeaderBytes(bitmap);
    const std::size_t size = pixels + bitmap.bytes().size() + 2 * static_cast<std::size_t>(bitmap.height());
    ImageWriter writer;
    writer.reserve(size);
    writer.u16(signature);
    writer.u32(0); // the size of the file, when it is known
    writer.u32(0);
    writer.u32(pixels);
    writeDib(writer, bitmap);
    std::vector<std::byte> file = writer.take();
    const auto length = static_cast<std::uint32_t>(file.size());
    std::memcpy(file.data() + 2, &length, sizeof length);
    return file;
}

} // namespace mox::host
