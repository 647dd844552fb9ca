#include "host/fonts/drawtext.h"

#include "host/fonts/ellipsis.h"
#include "host/fonts/mnemonics.h"
#include "host/fonts/textalign.h"
#include "host/fonts/textlines.h"
#include "host/fonts/textrules.h"
#include "host/fonts/textsetting.h"
#include "host/graphics/graphics.h"

#include "platform/user32.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace mox::host {

namespace {

using namespace platform;

constexpr std::u16string_view dots = u"...";
constexpr std::uint32_t usualTabCharacters = 8;

/// Flags, where some may stand for a number instead.
struct Format {
    std::uint32_t flags = 0;
    std::uint32_t tabCharacters = usualTabCharacters;

    explicit Format(std::uint32_t format) : flags(format) {
        if ((format & DT_TABSTOP) != 0) {
            const std::uint32_t given = format >> 8 & 0xFF;
            tabCharacters = given == 0 ? usualTabCharacters : given;
            flags &= ~0xFF00U;
        }
    }
    bool has(std::uint32_t flag) const noexcept { return (flags & flag) != 0; }
    WordBreak wordBreak() const noexcept {
        if (has(DT_SINGLELINE) || !has(DT_WORDBREAK)) {
            return WordBreak::none;
        }
        return has(DT_EDITCONTROL) ? WordBreak::inside : WordBreak::between;
    }
};

/// The layout of one text in one rectangle, in logical units.
class TextBox {
public:
    TextBox(DeviceContext& context, const TextSetting& setting, std::u16string text, const RECT& area, std::uint32_t format);

    void measureInto(RECT& area) const;
    void draw();
    /// As the operation answers it.
    std::int32_t answer() const;
    void addCuts(std::vector<TextCut>& cuts) const;

private:
    struct Line {
        TextLine text;
        std::optional<Shortened> cut{};
        double width = 0;
    };

    double width() const noexcept { return static_cast<double>(area_.right) - area_.left; }
    std::int64_t height() const noexcept { return std::int64_t{lineHeight_} * static_cast<std::int64_t>(lines_.size()); }
    void measureCharacters();
    void measureLineHeight();
    std::size_t visibleLines(std::size_t count) const;
    void breakText();
    void shortenLine(Line& line, bool isLast, bool isMoreBehind);
    std::int32_t left(const Line& line) const;
    std::int32_t top() const;
    void drawLine(const Line& line, POINT point);
    /// Draws a part from `x` behind the beginning of the line on, and gives its end.
    double drawPart(POINT point, double x, std::size_t begin, std::size_t end);
    void drawPiece(POINT point, double x, std::u16string_view piece);
    void underline(POINT point, double from, double to);
    POINT placeOn(POINT point, double x) const;

    DeviceContext& context_;
    const TextSetting& setting_;
    const RECT area_;
    const Format format_;
    ShownText shown_;
    std::vector<double> advances_;
    MeasuredText measured_;
    double dotsWidth_ = 0;
    std::int32_t lineHeight_ = 0;
    std::vector<Line> lines_;
};

TextBox::TextBox(DeviceContext& context, const TextSetting& setting, std::u16string text, const RECT& area, std::uint32_t format)
    : context_(context), setting_(setting), area_(area), format_(format),
      shown_(format_.has(DT_NOPREFIX) ? ShownText{std::move(text)} : readMnemonics(std::move(text))) {
    measureCharacters();
    measureLineHeight();
    breakText();
}

void TextBox::measureCharacters() {
    advances_.resize(shown_.text.size());
    setting_.typeface->measure(shown_.text, setting_.unitsAlong, advances_);
    const double average = setting_.typeface->averageWidth() * setting_.unitsAlong;
    measured_ = {shown_.text, advances_, format_.has(DT_EXPANDTABS) ? average * format_.tabCharacters : 0};
}

void TextBox::measureLineHeight() {
    TextSetting metrics = setting_;
    if (format_.has(DT_INTERNAL)) {
        const Graphics& graphics = context_.graphics();
        const auto font = graphics.object<Font>(graphics.stockObject(SYSTEM_FONT));
        metrics = font ? textSetting(context_, font->description) : metrics;
    }
    const Typeface& typeface = metrics ? *metrics.typeface : *setting_.typeface;
    lineHeight_ = metrics.toUnitsAcross(typeface.height() + (format_.has(DT_EXTERNALLEADING) ? typeface.externalLeading() : 0));
    lineHeight_ = std::max(lineHeight_, 1);
}

/// How many lines the rectangle holds wholly, at least one.
std::size_t TextBox::visibleLines(std::size_t count) const {
    const std::int64_t room = (std::int64_t{area_.bottom} - area_.top) / lineHeight_;
    return std::min(count, static_cast<std::size_t>(std::max<std::int64_t>(room, 1)));
}

void TextBox::breakText() {
    auto broken = breakLines(measured_, format_.has(DT_SINGLELINE), format_.wordBreak(), width());
    // A break at the end of the text begins no line.
    if (broken.size() > 1 && broken.back().begin == shown_.text.size()) {
        broken.pop_back();
    }
    const bool isBounded = format_.has(DT_END_ELLIPSIS) && !format_.has(DT_CALCRECT | DT_SINGLELINE);
    const std::size_t count = isBounded ? visibleLines(broken.size()) : broken.size();
    if (format_.has(DT_END_ELLIPSIS | DT_PATH_ELLIPSIS | DT_WORD_ELLIPSIS)) {
        dotsWidth_ = setting_.typeface->width(dots) * setting_.unitsAlong;
    }
    lines_.reserve(count);
    for (const TextLine& text : std::span(broken).first(count)) {
        Line& line = lines_.emplace_back(Line{.text = text, .width = text.width});
        const bool isLast = lines_.size() == count;
        shortenLine(line, isLast, isLast && count < broken.size());
    }
}

void TextBox::shortenLine(Line& line, bool isLast, bool isMoreBehind) {
    const bool isTooWide = line.width > width();
    if (format_.has(DT_PATH_ELLIPSIS) && isTooWide) {
        line.cut = shorten(measured_, line.text, EllipsisPlace::path, dotsWidth_, width());
    } else if ((format_.has(DT_WORD_ELLIPSIS) && isTooWide) ||
               (format_.has(DT_END_ELLIPSIS) && isLast && (isTooWide || isMoreBehind))) {
        line.cut = shorten(measured_, line.text, EllipsisPlace::end, dotsWidth_, width());
        line.cut->cutEnd = isMoreBehind ? shown_.text.size() : line.cut->cutEnd;
    }
    if (line.cut) {
        const std::size_t tailBegin = std::min(line.cut->cutEnd, line.text.end);
        line.width = measured_.width(line.text.begin, line.cut->cutBegin) + dotsWidth_;
        line.width += measured_.width(tailBegin, line.text.end, line.width);
    }
}

void TextBox::addCuts(std::vector<TextCut>& cuts) const {
    if (!format_.has(DT_END_ELLIPSIS | DT_PATH_ELLIPSIS)) {
        return;
    }
    for (const Line& line : lines_) {
        if (line.cut) {
            cuts.push_back({shown_.placeOf(line.cut->cutBegin), shown_.placeOf(line.cut->cutEnd)});
        }
    }
}

void TextBox::measureInto(RECT& area) const {
    double widest = 0;
    for (const Line& line : lines_) {
        widest = std::max(widest, line.width);
    }
    // Lengths in other units than pixels are sums of fractions.
    constexpr double negligible = 1e-4;
    area.right = wholeUnits(area.left + std::ceil(widest - negligible));
    area.bottom = wholeUnits(static_cast<double>(area.top) + static_cast<double>(height()));
}

std::int32_t TextBox::top() const {
    const bool isSingle = format_.has(DT_SINGLELINE);
    const std::int64_t room = std::int64_t{area_.bottom} - area_.top - lineHeight_;
    if (isSingle && format_.has(DT_VCENTER)) {
        return static_cast<std::int32_t>(area_.top + room / 2);
    }
    return isSingle && format_.has(DT_BOTTOM) ? static_cast<std::int32_t>(area_.top + room) : area_.top;
}

std::int32_t TextBox::left(const Line& line) const {
    const double room = width() - line.width;
    const double offset = format_.has(DT_CENTER) ? std::floor(room / 2) : format_.has(DT_RIGHT) ? room : 0;
    return wholeUnits(area_.left + offset);
}

std::int32_t TextBox::answer() const {
    const std::int64_t offset = format_.has(DT_CALCRECT) ? 0 : top() - std::int64_t{area_.top};
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(offset + height(), -(1 << 30), 1 << 30));
}

void TextBox::draw() {
    DeviceState& state = context_.state();
    const std::uint32_t align = std::exchange(state.textAlign, 0);
    const std::size_t count = format_.has(DT_EDITCONTROL) ? visibleLines(lines_.size()) : lines_.size();
    std::int64_t y = top();
    for (const Line& line : std::span(lines_).first(count)) {
        // What lies below the rectangle is clipped, and there may be much of it.
        if (y > area_.bottom && !format_.has(DT_NOCLIP) && !setting_.typeface->isTurned()) {
            break;
        }
        drawLine(line, {left(line), static_cast<std::int32_t>(std::min<std::int64_t>(y, 1 << 30))});
        y += lineHeight_;
    }
    state.textAlign = align;
}

void TextBox::drawLine(const Line& line, POINT point) {
    const TextLine& text = line.text;
    if (!line.cut) {
        drawPart(point, 0, text.begin, text.end);
        return;
    }
    double x = drawPart(point, 0, text.begin, line.cut->cutBegin);
    if (!format_.has(DT_PREFIXONLY)) {
        drawPiece(point, x, dots);
    }
    x += dotsWidth_;
    if (line.cut->cutEnd < text.end) {
        drawPart(point, x, line.cut->cutEnd, text.end);
    }
}

double TextBox::drawPart(POINT point, double x, std::size_t begin, std::size_t end) {
    double from = x;
    std::size_t first = begin;
    for (std::size_t place = begin; place <= end; ++place) {
        if (place == end || measured_.isTab(place)) {
            if (place > first && !format_.has(DT_PREFIXONLY)) {
                drawPiece(point, from, std::u16string_view(shown_.text).substr(first, place - first));
            }
            first = place + 1;
        }
        if (place < end) {
            const double next = x + measured_.width(place, place + 1, x);
            if (std::ranges::binary_search(shown_.mnemonics, place) && !format_.has(DT_HIDEPREFIX)) {
                underline(point, x, next);
            }
            from = measured_.isTab(place) ? next : from;
            x = next;
        }
    }
    return x;
}

POINT TextBox::placeOn(POINT point, double x) const {
    const PathPoint along = setting_.typeface->along();
    return {wholeUnits(point.x + along.x * x), wholeUnits(point.y + along.y * x / setting_.unitsAlong * setting_.unitsAcross)};
}

void TextBox::drawPiece(POINT point, double x, std::u16string_view piece) {
    const bool isClipped = !format_.has(DT_NOCLIP);
    context_.extTextOut(placeOn(point, x), isClipped ? ETO_CLIPPED : 0, area_, piece, {});
}

void TextBox::underline(POINT point, double from, double to) {
    const Typeface& typeface = *setting_.typeface;
    const Typeface::Rule rule = typeface.underline();
    const COLORREF color = context_.state().textColor;
    if (!typeface.isTurned()) {
        const std::int32_t y = wholeUnits(static_cast<double>(point.y) + setting_.toUnitsAcross(typeface.ascent() + rule.top));
        const RECT bar{wholeUnits(point.x + from), y, wholeUnits(point.x + to),
                       y + std::max(1, setting_.toUnitsAcross(rule.thickness))};
        context_.fillRect(format_.has(DT_NOCLIP) ? bar : intersection(bar, area_), Brush{.color = color});
        return;
    }
    const POINT pixel = context_.toDevice(point);
    const PathPoint down = typeface.down();
    const PathPoint baseline{pixel.x + down.x * typeface.ascent(), pixel.y + down.y * typeface.ascent()};
    const TextArea bar{from / setting_.unitsAlong, to / setting_.unitsAlong, static_cast<double>(rule.top),
                       static_cast<double>(rule.top) + rule.thickness};
    fillTextArea(context_.canvas(), typeface, baseline, bar, color, context_.clip());
}

} // namespace

std::int32_t drawText(DeviceContext& context, const TextSetting& setting, std::u16string text, RECT& area, std::uint32_t format,
                      std::vector<TextCut>& cuts) {
    const bool isMeasured = Format(format).has(DT_CALCRECT);
    if (text.empty()) {
        if (isMeasured) {
            area.right = area.left;
            area.bottom = area.top;
        }
        return 0;
    }
    if (!setting) {
        return 0;
    }
    TextBox box(context, setting, std::move(text), area, format);
    box.addCuts(cuts);
    if (isMeasured) {
        box.measureInto(area);
    } else {
        box.draw();
    }
    return box.answer();
}

} // namespace mox::host
