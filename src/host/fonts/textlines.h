// Text broken into lines.
#pragma once

#include "automation/objects/export.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace mox::host {

/// A text with the widths of its characters, in any unit.
struct MOX_API MeasuredText {
    std::u16string_view text;
    std::span<const double> advances;
    /// From one tab stop to the next, counted from the beginning of a line; 0 if tabs are characters like others.
    double tabWidth = 0;

    /// Of characters `begin` to `end`, of which the first one is `from` behind the beginning of the line.
    double width(std::size_t begin, std::size_t end, double from = 0) const noexcept;
    bool isTab(std::size_t place) const noexcept { return tabWidth > 0 && text[place] == u'\t'; }
    double nextStop(double from) const noexcept;
};

struct TextLine {
    std::size_t begin = 0;
    /// Behind the last character that is shown: without the break and the spaces before it, if it was broken between words.
    std::size_t end = 0;
    double width = 0;
    bool operator==(const TextLine&) const = default;
};

enum class WordBreak {
    none,
    /// Words that are too long stand out.
    between,
    /// Words that are too long are broken where they have to be.
    inside,
};

/// `isSingle`: breaks in the text are characters that draw nothing. A text has a line more than breaks.
MOX_API std::vector<TextLine> breakLines(const MeasuredText& text, bool isSingle, WordBreak wordBreak, double width);

} // namespace mox::host
