// FreeType, and the font files opened with it.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace mox::host {

class FontLibrary;

/// An opened font. It is used by one thread at a time; several of them may be used at once.
class FontFace {
public:
    FontFace(std::shared_ptr<FontLibrary> library, FT_Face face) noexcept : library_(std::move(library)), face_(face) {}
    FontFace(FontFace&& other) noexcept : library_(std::move(other.library_)), face_(std::exchange(other.face_, nullptr)) {}
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;
    ~FontFace();

    explicit operator bool() const noexcept { return face_ != nullptr; }
    FT_Face get() const noexcept { return face_; }
    FT_Face operator->() const noexcept { return face_; }

private:
    std::shared_ptr<FontLibrary> library_;
    FT_Face face_;
};

/// Opening and closing go one after the other, as FreeType asks for.
class FontLibrary : public std::enable_shared_from_this<FontLibrary> {
public:
    FontLibrary();
    FontLibrary(const FontLibrary&) = delete;
    FontLibrary& operator=(const FontLibrary&) = delete;
    ~FontLibrary();

    /// Without a face if the file is not there, is damaged, or has no outlines.
    FontFace open(const std::string& path, int index);

private:
    friend class FontFace;

    std::mutex guard_;
    FT_Library library_ = nullptr;
};

} // namespace mox::host
