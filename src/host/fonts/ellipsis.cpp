#include "host/fonts/ellipsis.h"

#include <algorithm>

namespace mox::host {

namespace {

bool isSecondHalf(const MeasuredText& text, std::size_t place) {
    return place < text.text.size() && (text.text[place] & 0xFC00) == 0xDC00;
}

/// The end of the longest beginning that is not wider than `width`.
std::size_t fittingEnd(const MeasuredText& text, std::size_t begin, std::size_t end, double width) {
    double x = 0;
    std::size_t place = begin;
    while (place < end) {
        x += text.width(place, place + 1, x);
        if (x > width) {
            break;
        }
        ++place;
    }
    // Pairs stay together.
    return place > begin && isSecondHalf(text, place) ? place - 1 : place;
}

/// The beginning of the longest end that is not wider than `width`.
std::size_t fittingBegin(const MeasuredText& text, std::size_t begin, std::size_t end, double width) {
    double x = 0;
    std::size_t place = end;
    while (place > begin) {
        x += text.isTab(place - 1) ? text.tabWidth : text.advances[place - 1];
        if (x > width) {
            break;
        }
        --place;
    }
    return isSecondHalf(text, place) ? place + 1 : place;
}

Shortened shortenPath(const MeasuredText& text, const TextLine& line, double room) {
    const std::u16string_view shown = text.text.substr(line.begin, line.end - line.begin);
    const std::size_t backslash = shown.rfind(u'\\');
    if (backslash == std::u16string_view::npos) {
        // Nothing is worth more than the rest, so the middle goes.
        const std::size_t headEnd = fittingEnd(text, line.begin, line.end, room / 2);
        const double left = room - text.width(line.begin, headEnd);
        return {headEnd, fittingBegin(text, headEnd, line.end, left)};
    }
    const std::size_t tail = line.begin + backslash;
    const double tailWidth = text.width(tail, line.end);
    if (tailWidth <= room) {
        return {fittingEnd(text, line.begin, tail, room - tailWidth), tail};
    }
    return {line.begin, fittingBegin(text, tail, line.end, room)};
}

} // namespace

Shortened shorten(const MeasuredText& text, const TextLine& line, EllipsisPlace place, double dots, double width) {
    const double room = std::max(0.0, width - dots);
    return place == EllipsisPlace::path ? shortenPath(text, line, room)
                                        : Shortened{fittingEnd(text, line.begin, line.end, room), line.end};
}

} // namespace mox::host
