// Image files of all formats through the loader: an image or a clear refusal, no more memory than the file can stand for, and
// what was read can be written and read again.
#include "host/pictures/imagefile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace mox::host;
    try {
        const Image image = readImage(std::as_bytes(std::span(bytes, size)));
        try {
            if (readImage(writeImage(image)).index() != image.index()) {
                std::abort();
            }
        } catch (const ImageError& error) {
            if (error.kind() != ImageError::Kind::tooLarge) {
                std::abort();
            }
        }
    } catch (const ImageError&) {
    }
    return 0;
}
