#include "host/icons/readpng.h"

#include <png.h>

namespace mox::host {

std::shared_ptr<Bitmap> readPng(const std::filesystem::path& file) {
    constexpr png_uint_32 mostPixels = 1024;
    struct Image : png_image {
        Image() : png_image() { version = PNG_IMAGE_VERSION; }
        Image(const Image&) = delete;
        Image& operator=(const Image&) = delete;
        ~Image() { png_image_free(this); }
    } image;
    if (png_image_begin_read_from_file(&image, file.c_str()) == 0 || image.width > mostPixels || image.height > mostPixels) {
        return nullptr;
    }
    image.format = PNG_FORMAT_BGRA;
    auto bitmap = Bitmap::create(static_cast<int>(image.width), static_cast<int>(image.height));
    const bool isRead = bitmap && png_image_finish_read(&image, nullptr, bitmap->bytes().data(),
                                                        static_cast<png_int_32>(bitmap->rowBytes()), nullptr) != 0;
    return isRead ? bitmap : nullptr;
}

} // namespace mox::host
