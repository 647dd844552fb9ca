#include "host/fonts/typeface.h"

#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace mox::host {

namespace {

constexpr int defaultCellHeight = 16;
/// Beyond it nothing of a letter but its inside is visible on any surface.
constexpr double mostPixels = 65536;
/// Larger sizes are scaled from this one.
constexpr int mostLoadedPixels = 1000;
/// Stems of larger letters do not depend on the grid of pixels.
constexpr int mostHintedPixels = 200;
constexpr double slant = 0.2;
constexpr std::uint32_t sourceShift = 24;
constexpr std::size_t mostSubstitutes = 64;
constexpr int mostSearches = 64;
constexpr std::size_t mostImageBytes = std::size_t{1} << 20;

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

TextQuality qualityOf(std::uint8_t quality) {
    switch (quality) {
    case platform::NONANTIALIASED_QUALITY:
        return TextQuality::plain;
    case platform::CLEARTYPE_QUALITY:
        return TextQuality::subpixel;
    default:
        return TextQuality::grey;
    }
}

bool isInvisible(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

/// Marks of writing direction, joining and the like, which fonts need not have.
bool isFormat(char32_t character) {
    return (character >= 0x200B && character <= 0x200F) || (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2060 && character <= 0x206F) || character == 0xFEFF;
}

} // namespace

Typeface::Typeface(FontFace face, FontFile file, const platform::LOGFONTA& font, const TextScale& scale, Substitute substitute)
    : file_(std::move(file)), font_(font), substitute_(std::move(substitute)), metrics_(measureFace(face)),
      coveredSets_(host::coveredSets(face)), quality_(qualityOf(font.lfQuality)), isUnderlined_(font.lfUnderline != 0),
      isStruckOut_(font.lfStrikeOut != 0), isEmboldened_(font.lfWeight > 550 && file_.weight < 550),
      isSlanted_(font.lfItalic != 0 && !file_.isItalic), face_(std::move(face)) {
    angle_ = static_cast<int>((std::int64_t{font.lfEscapement} % 3600 + scale.turn % 3600 + 7200) % 3600);
    const double radians = angle_ * std::numbers::pi / 1800;
    along_ = angle_ == 0 ? PathPoint{1, 0} : PathPoint{std::cos(radians), -std::sin(radians)};
    setHeight(font.lfHeight * scale.height);
    setStretch(std::abs(static_cast<double>(font.lfWidth)) * scale.height * scale.stretch, scale.stretch);
    setTransform();
    selectCharacterMap(font.lfCharSet);
    images_.resize(static_cast<std::size_t>(face_->num_glyphs) / pageSize + 1);
}

Typeface::~Typeface() = default;

void Typeface::setHeight(double height) {
    // Whole pixels that hold every part of a letter.
    constexpr double negligible = 0.01;
    const auto ascentAt = [&](double pixels) {
        return std::max(1, static_cast<int>(std::ceil(pixels * metrics_.ascent - negligible)));
    };
    const auto descentAt = [&](double pixels) { return static_cast<int>(std::ceil(pixels * metrics_.descent - negligible)); };
    const double size = std::clamp(std::abs(height), 0.0, mostPixels);
    if (height < 0) {
        pixelsPerEm_ = std::max(1, rounded(size));
    } else {
        const int cell = height == 0 ? defaultCellHeight : std::max(1, rounded(size));
        // The largest size whose cell is not higher than asked for.
        pixelsPerEm_ = std::clamp(rounded(cell / (metrics_.ascent + metrics_.descent)) + 1, 1, static_cast<int>(mostPixels));
        while (pixelsPerEm_ > 1 && ascentAt(pixelsPerEm_) + descentAt(pixelsPerEm_) > cell) {
            --pixelsPerEm_;
        }
    }
    ascent_ = ascentAt(pixelsPerEm_);
    descent_ = descentAt(pixelsPerEm_);
    externalLeading_ = rounded(pixelsPerEm_ * metrics_.externalLeading);
}

void Typeface::setStretch(double width, double stretch) {
    const double natural = pixelsPerEm_ * metrics_.averageWidth;
    stretch_ = width > 0 ? width / natural : stretch;
    // No letter becomes wider than the highest is high.
    stretch_ = std::clamp(stretch_, 0.01, std::max(0.01, std::min(100.0, 2 * mostPixels / pixelsPerEm_)));
    averageWidth_ = std::max(1, rounded(natural * stretch_)) + (isEmboldened_ ? 1 : 0);
}

void Typeface::setTransform() {
    loadedPixels_ = std::min(pixelsPerEm_, mostLoadedPixels);
    FT_Set_Pixel_Sizes(face_.get(), 0, static_cast<FT_UInt>(loadedPixels_));
    const bool isHinted = !isTurned() && pixelsPerEm_ <= mostHintedPixels && (quality_ != TextQuality::plain || stretch_ == 1);
    loadFlags_ = FT_LOAD_NO_BITMAP | (isHinted ? FT_LOAD_DEFAULT : FT_LOAD_NO_HINTING) |
                 (quality_ == TextQuality::plain ? FT_LOAD_TARGET_MONO : FT_LOAD_TARGET_NORMAL);
    const Transform em = matrix();
    const auto fixed = [&](double value) { return std::lround(value / loadedPixels_ * 0x10000); };
    transform_ = {fixed(em.m11), fixed(em.m21), fixed(-em.m12), fixed(-em.m22)};
    isTransformed_ = isTurned() || isSlanted_ || stretch_ != 1 || loadedPixels_ != pixelsPerEm_;
}

Transform Typeface::matrix() const noexcept {
    const double width = pixelsPerEm_ * stretch_;
    const double height = pixelsPerEm_;
    const double shear = isSlanted_ ? slant * stretch_ * height : 0;
    return {along_.x * width, along_.y * width, along_.x * shear + along_.y * height, along_.y * shear - along_.x * height, 0, 0};
}

void Typeface::selectCharacterMap(std::uint8_t charSet) {
    const bool isWanted = charSet == platform::SYMBOL_CHARSET || !face_->charmap;
    hasSymbolCodes_ = isWanted && FT_Select_Charmap(face_.get(), FT_ENCODING_MS_SYMBOL) == 0;
    if (!face_->charmap && face_->num_charmaps > 0) {
        FT_Set_Charmap(face_.get(), face_->charmaps[0]);
    }
}

Typeface::Rule Typeface::underline() const noexcept {
    const int thickness = std::max(1, rounded(pixelsPerEm_ * metrics_.underlineThickness));
    return {std::max(1, rounded(pixelsPerEm_ * metrics_.underlinePosition - thickness / 2.0)), thickness};
}

Typeface::Rule Typeface::strikeOut() const noexcept {
    const int thickness = std::max(1, rounded(pixelsPerEm_ * metrics_.strikeOutThickness));
    return {rounded(pixelsPerEm_ * metrics_.strikeOutPosition - thickness / 2.0), thickness};
}

platform::TEXTMETRICA Typeface::textMetrics() const {
    constexpr std::uint8_t variablePitch = 1;
    constexpr std::uint8_t vectorFont = 2;
    constexpr std::uint8_t trueType = 4;
    const auto byte = [](std::uint16_t code) { return static_cast<std::uint8_t>(std::min<std::uint16_t>(code, 0xFF)); };
    platform::TEXTMETRICA metrics;
    metrics.tmHeight = height();
    metrics.tmAscent = ascent_;
    metrics.tmDescent = descent_;
    metrics.tmInternalLeading = height() - pixelsPerEm_;
    metrics.tmExternalLeading = externalLeading_;
    metrics.tmAveCharWidth = averageWidth_;
    metrics.tmMaxCharWidth = std::max(averageWidth_, rounded(pixelsPerEm_ * metrics_.maximumWidth * stretch_));
    metrics.tmWeight = isEmboldened_ ? platform::FW_BOLD : file_.weight;
    metrics.tmDigitizedAspectX = 96;
    metrics.tmDigitizedAspectY = 96;
    metrics.tmFirstChar = hasSymbolCodes_ ? byte(metrics_.firstCharacter & 0xFF) : byte(metrics_.firstCharacter);
    metrics.tmLastChar = 0xFF;
    metrics.tmDefaultChar = 0x1F;
    metrics.tmBreakChar = 0x20;
    metrics.tmItalic = font_.lfItalic != 0 || file_.isItalic ? 255 : 0;
    metrics.tmUnderlined = isUnderlined_ ? 255 : 0;
    metrics.tmStruckOut = isStruckOut_ ? 255 : 0;
    metrics.tmPitchAndFamily =
        static_cast<std::uint8_t>(vectorFont | trueType | metrics_.family | (metrics_.isFixed ? 0 : variablePitch));
    metrics.tmCharSet = hasSymbolCodes_                                ? platform::SYMBOL_CHARSET
                        : font_.lfCharSet == platform::DEFAULT_CHARSET ? platform::ANSI_CHARSET
                                                                       : font_.lfCharSet;
    return metrics;
}

std::uint32_t Typeface::glyphIndex(char32_t character) const {
    const std::uint32_t glyph = FT_Get_Char_Index(face_.get(), character);
    return glyph == 0 && hasSymbolCodes_ && character < 0x100 ? FT_Get_Char_Index(face_.get(), 0xF000 + character) : glyph;
}

bool Typeface::hasCharacter(char32_t character) const {
    const std::lock_guard lock(guard_);
    return glyphIndex(character) != 0;
}

float Typeface::advanceOf(std::uint32_t glyph) const {
    if (FT_Load_Glyph(face_.get(), glyph, loadFlags_) != 0) {
        return 0;
    }
    const double scale = stretch_ * pixelsPerEm_ / loadedPixels_;
    const double bold = isEmboldened_ ? 1 : 0;
    if (isTurned()) {
        return static_cast<float>(face_->glyph->linearHoriAdvance / 65536.0 * scale + bold);
    }
    // A line of whole pixels is as long as its characters together.
    return static_cast<float>(std::lround(face_->glyph->advance.x / 64.0 * scale) + std::lround(bold));
}

Typeface::Character Typeface::substituted(char32_t character) const {
    if (isFormat(character)) {
        return {};
    }
    const auto has = [&](const auto& other) { return other->hasCharacter(character); };
    auto found = std::ranges::find_if(substitutes_, has);
    if (found == substitutes_.end() && substitute_ && substitutes_.size() < mostSubstitutes && searches_++ < mostSearches) {
        if (auto other = substitute_(character, pixelsPerEm_); other && has(other)) {
            substitutes_.push_back(std::move(other));
            found = std::prev(substitutes_.end());
        }
    }
    if (found == substitutes_.end()) {
        return {0, advanceOf(0)};
    }
    const auto source = static_cast<std::uint32_t>(found - substitutes_.begin() + 1);
    const std::lock_guard lock((*found)->guard_);
    const std::uint32_t glyph = (*found)->glyphIndex(character);
    return {source << sourceShift | glyph, (*found)->advanceOf(glyph)};
}

Typeface::Character Typeface::find(char32_t character) const {
    if (isInvisible(character)) {
        return {};
    }
    const std::uint32_t glyph = glyphIndex(character);
    return glyph == 0 ? substituted(character) : Character{glyph, advanceOf(glyph)};
}

inline const Typeface::Character& Typeface::character(char16_t unit) const {
    const auto& page = characters_[unit / pageSize];
    return page && (*page)[unit % pageSize].advance >= 0 ? (*page)[unit % pageSize] : newCharacter(unit);
}

const Typeface::Character& Typeface::newCharacter(char16_t unit) const {
    auto& page = characters_[unit / pageSize];
    if (!page) {
        page = std::make_unique<Page>();
        page->fill({noGlyph, -1});
    }
    Character& entry = (*page)[unit % pageSize];
    entry = find(unit);
    entry.advance = std::max(entry.advance, 0.0F);
    return entry;
}

/// Hands over each unit's place and character.
template <class Take> void Typeface::walk(std::u16string_view text, Take take) const {
    const std::lock_guard lock(guard_);
    for (std::size_t place = 0; place < text.size(); ++place) {
        const char16_t unit = text[place];
        if ((unit & 0xFC00) == 0xD800 && place + 1 < text.size() && (text[place + 1] & 0xFC00) == 0xDC00) {
            take(place, find(0x10000U + ((unit & 0x3FFU) << 10) + (text[place + 1] & 0x3FFU)));
            take(++place, Character());
        } else {
            take(place, character(unit));
        }
    }
}

void Typeface::shape(std::u16string_view text, std::span<Character> characters) const {
    walk(text, [&](std::size_t place, const Character& character) { characters[place] = character; });
}

void Typeface::measure(std::u16string_view text, double unit, std::span<double> advances) const {
    walk(text,
         [&](std::size_t place, const Character& character) { advances[place] = static_cast<double>(character.advance) * unit; });
}

double Typeface::width(std::u16string_view text) const {
    // Several sums, so that one addition need not wait for the one before.
    std::array<double, 4> sums{};
    walk(text, [&](std::size_t place, const Character& character) { sums[place % 4] += static_cast<double>(character.advance); });
    return sums[0] + sums[1] + sums[2] + sums[3];
}

const Typeface& Typeface::sourceOf(std::uint32_t glyph) const {
    const std::size_t source = glyph >> sourceShift;
    if (glyph == noGlyph || source == 0) {
        return *this;
    }
    const std::lock_guard lock(guard_);
    return source <= substitutes_.size() ? *substitutes_[source - 1] : *this;
}

bool Typeface::loadOutline(std::uint32_t glyph) const {
    if (FT_Load_Glyph(face_.get(), glyph, loadFlags_) != 0 || face_->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
        return false;
    }
    FT_Outline& outline = face_->glyph->outline;
    if (isEmboldened_) {
        // At least the pixel by which the advance grows.
        const double pixels = std::max(1.0, pixelsPerEm_ / 32.0) * loadedPixels_ / pixelsPerEm_;
        FT_Outline_EmboldenXY(&outline, std::lround(pixels * 64 / std::max(stretch_, 0.1)), 0);
    }
    if (isTransformed_) {
        FT_Outline_Transform(&outline, &transform_);
    }
    return true;
}

void Typeface::trimImages() const {
    if (imageBytes_ > mostImageBytes) {
        placedImages_.clear();
        for (auto& page : images_) {
            page.reset();
        }
        imageBytes_ = 0;
    }
}

} // namespace mox::host
