// A font as it is drawn: of one size, in one direction.
#pragma once

#include "automation/objects/export.h"
#include "host/fonts/charsets.h"
#include "host/fonts/facemetrics.h"
#include "host/fonts/fontfile.h"
#include "host/fonts/glyphraster.h"
#include "host/fonts/textscale.h"
#include "host/graphics/path.h"
#include "host/graphics/transform.h"

#include "platform/gditypes.h"

#include <array>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mox::host {

/// Lengths are in device pixels, along the line of text and across it, whatever the angle is. Any number of threads may use one.
class MOX_API Typeface {
public:
    /// Finds another font that has a character; null if none has.
    using Substitute = std::function<std::shared_ptr<const Typeface>(char32_t character, int pixelsPerEm)>;

    struct Character {
        std::uint32_t glyph = noGlyph;
        float advance = 0;
    };
    /// Of characters that draw nothing.
    static constexpr std::uint32_t noGlyph = 0xFFFFFFFF;

    /// An empty `face` is not allowed.
    Typeface(FontFace face, FontFile file, const platform::LOGFONTA& font, const TextScale& scale, Substitute substitute);
    Typeface(const Typeface&) = delete;
    Typeface& operator=(const Typeface&) = delete;
    ~Typeface();

    const FontFile& file() const noexcept { return file_; }
    TextQuality quality() const noexcept { return quality_; }
    int pixelsPerEm() const noexcept { return pixelsPerEm_; }
    /// From parts of the em, y up, to device pixels, y down.
    Transform matrix() const noexcept;
    /// True for text that is not along the x axis; its characters lie at fractions of pixels.
    bool isTurned() const noexcept { return angle_ != 0; }
    /// Tenths of a degree, 0 to 3599.
    int angle() const noexcept { return angle_; }
    /// The direction of the text, of length 1.
    PathPoint along() const noexcept { return along_; }
    /// The direction from the top of the text to its bottom.
    PathPoint down() const noexcept { return {-along_.y, along_.x}; }

    int ascent() const noexcept { return ascent_; }
    int descent() const noexcept { return descent_; }
    int height() const noexcept { return ascent_ + descent_; }
    int externalLeading() const noexcept { return externalLeading_; }
    int averageWidth() const noexcept { return averageWidth_; }
    /// A line below or through the text.
    struct Rule {
        /// From the baseline downwards.
        int top = 0;
        int thickness = 1;
    };
    Rule underline() const noexcept;
    Rule strikeOut() const noexcept;
    bool isUnderlined() const noexcept { return isUnderlined_; }
    bool isStruckOut() const noexcept { return isStruckOut_; }
    const FaceMetrics& proportions() const noexcept { return metrics_; }
    /// In device pixels; what the character set and the weight are depends on what was asked for.
    platform::TEXTMETRICA textMetrics() const;
    CharacterSetMask coveredSets() const noexcept { return coveredSets_; }
    /// True if it is addressed by the codes U+F000 to U+F0FF.
    bool hasSymbolCodes() const noexcept { return hasSymbolCodes_; }
    bool hasCharacter(char32_t character) const;

    /// One entry a unit of `text`; `characters` has to be as long.
    void shape(std::u16string_view text, std::span<Character> characters) const;
    double width(std::u16string_view text) const;
    /// The advances of the units, times `unit`; `advances` has to be as long.
    void measure(std::u16string_view text, double unit, std::span<double> advances) const;

    /// The typeface that a glyph is really taken from, as characters that are missing here come from other fonts.
    const Typeface& sourceOf(std::uint32_t glyph) const;
    /// The number of a glyph in the file of its source.
    static std::uint32_t numberInSource(std::uint32_t glyph) noexcept { return glyph & 0xFFFFFF; }

private:
    friend class GlyphReader;
    static constexpr std::size_t pageSize = 256;
    using Page = std::array<Character, pageSize>;
    using ImagePage = std::array<std::unique_ptr<GlyphImage>, pageSize>;

    void setHeight(double height);
    void setStretch(double width, double stretch);
    void setTransform();
    void selectCharacterMap(std::uint8_t charSet);
    std::uint32_t glyphIndex(char32_t character) const;
    const Character& character(char16_t unit) const;
    const Character& newCharacter(char16_t unit) const;
    template <class Take> void walk(std::u16string_view text, Take take) const;
    Character find(char32_t character) const;
    Character substituted(char32_t character) const;
    float advanceOf(std::uint32_t glyph) const;
    bool loadOutline(std::uint32_t glyph) const;
    void trimImages() const;

    const FontFile file_;
    const platform::LOGFONTA font_;
    const Substitute substitute_;
    FaceMetrics metrics_;
    CharacterSetMask coveredSets_ = 0;
    TextQuality quality_ = TextQuality::grey;
    bool isUnderlined_ = false;
    bool isStruckOut_ = false;
    bool isEmboldened_ = false;
    bool isSlanted_ = false;
    bool hasSymbolCodes_ = false;
    int angle_ = 0;
    PathPoint along_{1, 0};
    int pixelsPerEm_ = 1;
    /// The size that FreeType loads; larger ones are scaled from it.
    int loadedPixels_ = 1;
    double stretch_ = 1;
    FT_Matrix transform_{0x10000, 0, 0, 0x10000};
    bool isTransformed_ = false;
    FT_Int32 loadFlags_ = FT_LOAD_DEFAULT;
    int ascent_ = 0;
    int descent_ = 0;
    int externalLeading_ = 0;
    int averageWidth_ = 0;

    mutable std::mutex guard_;
    const FontFace face_;
    mutable std::array<std::unique_ptr<Page>, pageSize> characters_;
    mutable std::vector<std::unique_ptr<ImagePage>> images_;
    /// Of turned text, by glyph and quarters of a pixel.
    mutable std::unordered_map<std::uint64_t, GlyphImage> placedImages_;
    mutable std::size_t imageBytes_ = 0;
    mutable std::vector<std::shared_ptr<const Typeface>> substitutes_;
    mutable int searches_ = 0;
};

} // namespace mox::host
