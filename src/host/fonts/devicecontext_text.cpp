#include "host/graphics/devicecontext.h"

#include "host/fonts/textalign.h"
#include "host/fonts/textrules.h"
#include "host/fonts/textsetting.h"

#include <algorithm>
#include <cmath>

namespace mox::host {

namespace {

/// Glyphs in a line, from its beginning.
struct Line {
    TextRun run;
    /// In pixels.
    double width = 0;
};

/// `distances` are in logical units.
Line layOut(const TextSetting& setting, std::u16string_view text, std::span<const std::int32_t> distances) {
    std::vector<Typeface::Character> characters(text.size());
    setting.typeface->shape(text, characters);
    Line line;
    line.run.typeface = setting.typeface;
    line.run.glyphs.reserve(text.size());
    double units = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        line.run.glyphs.push_back({characters[place].glyph, {line.width, 0}});
        if (place < distances.size()) {
            units += distances[place];
            line.width = units / setting.unitsAlong;
        } else {
            line.width += static_cast<double>(characters[place].advance);
            units = line.width * setting.unitsAlong;
        }
    }
    return line;
}

/// The beginning of the baseline, from the point of the text.
PathPoint startOf(const Typeface& typeface, double width, std::uint32_t align) {
    const std::uint32_t horizontal = align & TA_CENTER;
    const std::uint32_t vertical = align & TA_BASELINE;
    const double along = horizontal == TA_CENTER ? -std::floor(width / 2) : horizontal == TA_RIGHT ? -width : 0;
    const double down = vertical == TA_BASELINE ? 0 : vertical == TA_BOTTOM ? -typeface.descent() : typeface.ascent();
    const PathPoint x = typeface.along();
    const PathPoint y = typeface.down();
    return {x.x * along + y.x * down, x.y * along + y.y * down};
}

void moveGlyphs(TextRun& run, PathPoint baseline) {
    const PathPoint along = run.typeface->along();
    for (TextRun::Glyph& glyph : run.glyphs) {
        const double x = glyph.position.x;
        glyph.position = {baseline.x + along.x * x, baseline.y + along.y * x};
    }
}

/// The ground, the glyphs and the lines of a text.
bool drawLine(Canvas& canvas, Line& line, PathPoint baseline, const DeviceState& state, const Region& clip) {
    const Typeface& typeface = *line.run.typeface;
    bool isDone = true;
    const auto fill = [&](double top, double bottom, platform::COLORREF color) {
        isDone = fillTextArea(canvas, typeface, baseline, {0, line.width, top, bottom}, color, clip) && isDone;
    };
    if (state.bkMode == platform::OPAQUE) {
        fill(-typeface.ascent(), typeface.descent(), state.bkColor);
    }
    moveGlyphs(line.run, baseline);
    line.run.color = state.textColor;
    isDone = canvas.text(line.run, clip) && isDone;
    if (typeface.isUnderlined()) {
        const Typeface::Rule rule = typeface.underline();
        fill(rule.top, rule.top + rule.thickness, state.textColor);
    }
    if (typeface.isStruckOut()) {
        const Typeface::Rule rule = typeface.strikeOut();
        fill(rule.top, rule.top + rule.thickness, state.textColor);
    }
    return isDone;
}

Region deviceArea(const DeviceContext& context, const RECT& area) {
    const POINT one = context.toDevice(POINT{area.left, area.top});
    const POINT other = context.toDevice(POINT{area.right, area.bottom});
    return Region(RECT{std::min(one.x, other.x), std::min(one.y, other.y), std::max(one.x, other.x), std::max(one.y, other.y)});
}

/// The end of a text that begins at the current position, where the next one begins.
POINT movedPosition(POINT position, const TextSetting& setting, double width, std::uint32_t align) {
    const std::uint32_t horizontal = align & TA_CENTER;
    const double distance = horizontal == TA_CENTER ? 0 : horizontal == TA_RIGHT ? -width : width;
    const PathPoint along = setting.typeface->along();
    return {wholeUnits(position.x + along.x * distance * setting.unitsAlong),
            wholeUnits(position.y + along.y * distance * setting.unitsAcross)};
}

} // namespace

bool DeviceContext::textOut(POINT point, std::u16string_view text) {
    return extTextOut(point, 0, {}, text, {});
}

bool DeviceContext::extTextOut(POINT point, std::uint32_t options, const RECT& area, std::u16string_view text,
                               std::span<const std::int32_t> distances) {
    Region clip = this->clip();
    bool isDone = true;
    if ((options & (ETO_OPAQUE | ETO_CLIPPED)) != 0) {
        const Region inside = deviceArea(*this, area);
        if ((options & ETO_OPAQUE) != 0) {
            isDone = canvas().fill(inside, solidPaint(state_.bkColor), clip);
        }
        if ((options & ETO_CLIPPED) != 0) {
            clip.intersect(inside);
        }
    }
    if (text.empty()) {
        return isDone;
    }
    const TextSetting setting = textSetting(*this);
    if (!setting) {
        return false;
    }
    const bool isMoving = (state_.textAlign & TA_UPDATECP) != 0;
    const POINT origin = toDevice(isMoving ? state_.position : point);
    Line line = layOut(setting, text, distances);
    line.run.text = text;
    if (!clip.isEmpty()) {
        const PathPoint start = startOf(*setting.typeface, line.width, state_.textAlign);
        isDone = drawLine(canvas(), line, {origin.x + start.x, origin.y + start.y}, state_, clip) && isDone;
    }
    if (isMoving) {
        state_.position = movedPosition(state_.position, setting, line.width, state_.textAlign);
    }
    return isDone;
}

} // namespace mox::host
