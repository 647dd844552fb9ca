#include "host/fonts/textlines.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mox::host {

namespace {

/// Ideographs and syllables between which lines may be broken.
bool breaksAnywhere(char16_t unit) {
    return (unit >= 0x2E80 && unit < 0xA4D0) || (unit >= 0xAC00 && unit < 0xD7A4) || (unit >= 0xF900 && unit < 0xFB00);
}

bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t';
}

/// The place of the next break, else the end.
std::size_t breakFrom(std::u16string_view text, std::size_t begin) {
    const auto isBreak = [](char16_t unit) { return unit == u'\r' || unit == u'\n'; };
    return static_cast<std::size_t>(std::find_if(text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(), isBreak) -
                                    text.begin());
}

/// One line's way through a part of the text without breaks.
class Breaker {
public:
    Breaker(const MeasuredText& text, WordBreak wordBreak, double width) : text_(text), wordBreak_(wordBreak), width_(width) {}

    void breakPart(std::size_t begin, std::size_t end, std::vector<TextLine>& lines) const {
        while (true) {
            const std::size_t next = lineEnd(begin, end);
            if (next == end) {
                lines.push_back({begin, end, text_.width(begin, end)});
                return;
            }
            std::size_t last = next;
            while (last > begin && isBlank(text_.text[last - 1])) {
                --last;
            }
            lines.push_back({begin, last, text_.width(begin, last)});
            begin = next;
        }
    }

private:
    /// Where the next line begins.
    std::size_t lineEnd(std::size_t begin, std::size_t end) const {
        if (wordBreak_ == WordBreak::none) {
            return end;
        }
        double x = 0;
        std::size_t chance = begin;
        for (std::size_t place = begin; place < end; ++place) {
            const char16_t unit = text_.text[place];
            if (place > begin &&
                (isBlank(text_.text[place - 1]) || breaksAnywhere(unit) || breaksAnywhere(text_.text[place - 1])) &&
                !isBlank(unit)) {
                chance = place;
            }
            x += text_.width(place, place + 1, x);
            // Blanks at the end of a line may stand out of it.
            if (x <= width_ || isBlank(unit)) {
                continue;
            }
            if (chance > begin) {
                return chance;
            }
            if (wordBreak_ == WordBreak::inside) {
                return std::max(place, begin + 1);
            }
        }
        return end;
    }

    const MeasuredText& text_;
    const WordBreak wordBreak_;
    const double width_;
};

} // namespace

double MeasuredText::nextStop(double from) const noexcept {
    return (std::floor(from / tabWidth) + 1) * tabWidth;
}

double MeasuredText::width(std::size_t begin, std::size_t end, double from) const noexcept {
    if (tabWidth == 0) {
        // Several sums, so that one addition need not wait for the one before.
        std::array<double, 4> sums{};
        for (std::size_t place = begin; place < end; ++place) {
            sums[place % 4] += advances[place];
        }
        return sums[0] + sums[1] + sums[2] + sums[3];
    }
    double x = from;
    for (std::size_t place = begin; place < end; ++place) {
        x = isTab(place) ? nextStop(x) : x + advances[place];
    }
    return x - from;
}

std::vector<TextLine> breakLines(const MeasuredText& text, bool isSingle, WordBreak wordBreak, double width) {
    std::vector<TextLine> lines;
    const Breaker breaker(text, wordBreak, width);
    std::size_t begin = 0;
    while (true) {
        const std::size_t found = isSingle ? text.text.size() : breakFrom(text.text, begin);
        breaker.breakPart(begin, found, lines);
        if (found == text.text.size()) {
            return lines;
        }
        const bool isPair = text.text[found] == u'\r' && found + 1 < text.text.size() && text.text[found + 1] == u'\n';
        begin = found + (isPair ? 2 : 1);
    }
}

} // namespace mox::host
