#include "host/fonts/fontlibrary.h"

namespace mox::host {

FontFace::~FontFace() {
    if (face_) {
        const std::lock_guard lock(library_->guard_);
        FT_Done_Face(face_);
    }
}

FontLibrary::FontLibrary() {
    if (FT_Init_FreeType(&library_) != 0) {
        library_ = nullptr;
    }
}

FontLibrary::~FontLibrary() {
    if (library_) {
        FT_Done_FreeType(library_);
    }
}

FontFace FontLibrary::open(const std::string& path, int index) {
    const std::lock_guard lock(guard_);
    FT_Face face = nullptr;
    if (!library_ || FT_New_Face(library_, path.c_str(), index, &face) != 0) {
        return {nullptr, nullptr};
    }
    if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0 || face->num_glyphs == 0) {
        FT_Done_Face(face);
        return {nullptr, nullptr};
    }
    return {shared_from_this(), face};
}

} // namespace mox::host
