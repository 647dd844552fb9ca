// What a metafile is drawn on.
#pragma once

#include "host/graphics/devicecontext.h"
#include "host/metafiles/mapping.h"

#include <optional>
#include <span>
#include <type_traits>
#include <vector>

namespace mox::host {

/// A context as a metafile has it: with the metafile's own coordinates, clipping, path and saved states. The state that the
/// context had comes back at the end.
///
/// While a path is recorded, shapes go into it. Members are false for what could not be drawn.
class Stage {
public:
    /// `base` takes units of the reference device, which is of the sizes given, to the logical coordinates of the context.
    Stage(DeviceContext& target, const Transform& base, SIZE device, SIZE micrometers);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage();

    DeviceContext& target() const noexcept { return target_; }
    DeviceState& state() const noexcept { return target_.state(); }

    // ---- coordinates

    const Mapping& mapping() const noexcept { return mapping_; }
    /// Throws `BrokenRecord` for one that leads out of all bounds.
    void setMapping(const Mapping& mapping);
    /// Lets `change` work on the mapping. Its answer; true if it gives none.
    template <class Change> bool changeMapping(Change&& change) {
        Mapping mapping = mapping_;
        bool isDone = true;
        if constexpr (std::is_void_v<decltype(change(mapping))>) {
            change(mapping);
        } else {
            isDone = change(mapping);
        }
        setMapping(mapping);
        return isDone;
    }
    /// From units of the reference device to pixels of the context.
    const Transform& base() const noexcept { return base_; }

    // ---- modes

    /// False, and nothing is changed, for a number that is no such mode.
    template <auto Field, std::int32_t Least, std::int32_t Most> bool setMode(std::int32_t mode) {
        const bool isKnown = mode >= Least && mode <= Most;
        if (isKnown) {
            state().*Field = mode;
        }
        return isKnown;
    }
    void setFillRule(std::uint32_t mode) noexcept {
        constexpr std::uint32_t winding = 2;
        state().fillRule = mode == winding ? FillRule::winding : FillRule::alternate;
    }

    // ---- saved states

    /// False if there are too many.
    bool save();
    /// By its number from 1, or below 0 by its distance.
    bool restore(std::int32_t saved);

    // ---- clipping; areas in logical coordinates

    void intersectClip(const RECT& area);
    void excludeClip(const RECT& area);
    void offsetClip(POINT distance);
    /// Joins by one of the `RGN_` ways with an area in pixels of the context.
    bool combineClip(const Region& area, std::uint32_t mode);
    /// Nothing is clipped any more but by the context.
    void resetClip();
    /// What is clipped now is for the rest of the metafile.
    void keepClip();
    /// In pixels of the context.
    Region toPixels(const RECT& area) const;

    // ---- paths

    void beginPath();
    bool endPath();
    bool closeFigure();
    void abortPath();
    /// Draws the path and ends it.
    bool drawPath(bool isFilled, bool isStroked);
    bool selectClipPath(std::uint32_t mode);
    bool flattenPath();
    /// The area that the pen covers along the path.
    bool widenPath();

    // ---- shapes in logical coordinates; the right and lower edges of rectangles do not belong to them

    bool moveTo(POINT point);
    bool lineTo(POINT point);
    bool polyline(std::span<const POINT> points);
    bool polylineTo(std::span<const POINT> points);
    bool polygon(std::span<const POINT> points);
    bool polyPolyline(std::span<const POINT> points, std::span<const std::uint32_t> counts);
    bool polyPolygon(std::span<const POINT> points, std::span<const std::uint32_t> counts);
    bool polyBezier(std::span<const POINT> points);
    bool polyBezierTo(std::span<const POINT> points);
    /// Each point with its kind: 2 line, 4 curve, 6 move; 1 beside it closes the figure.
    bool polyDraw(std::span<const POINT> points, std::span<const std::byte> kinds);
    bool rectangle(const RECT& area);
    bool roundRect(const RECT& area, SIZE corner);
    bool ellipse(const RECT& area);

    enum class Arc { open, continued, chord, pie };
    /// The part of the ellipse in `area` between the lines from its centre through two points, in the direction of `isClockwise`
    /// as it is with the y axis down. A continued one begins with a line from the position and moves it.
    bool arc(Arc kind, const RECT& area, POINT from, POINT to, bool isClockwise);
    /// A line from the position to an arc of a circle; angles in degrees counterclockwise.
    bool angleArc(POINT center, std::uint32_t radius, double start, double sweep);

    /// Draws in pixels of the context while it lives.
    class InPixels {
    public:
        explicit InPixels(Stage& stage) : stage_(stage), world_(stage.state().world) { stage.state().world = {}; }
        InPixels(const InPixels&) = delete;
        InPixels& operator=(const InPixels&) = delete;
        ~InPixels() { stage_.state().world = world_; }

    private:
        Stage& stage_;
        const Transform world_;
    };

private:
    struct Saved {
        DeviceState state;
        Mapping mapping;
        std::optional<Region> clip;
        std::optional<Region> limit;
    };

    void applyClip();
    /// In pixels of the context, not further away than paths may go.
    PathPoint toPath(PathPoint point) const;
    PathPoint toPath(POINT point) const;
    /// In the path a figure that goes on from the position begins there.
    void continuePath();
    void appendLines(std::span<const POINT> points);
    void appendCurves(std::span<const POINT> points);
    void appendFigure(std::span<const POINT> points, bool isClosed);
    void appendRoundRect(const RECT& area, SIZE corner);
    void appendWithoutMove(const Path& curve);
    /// A continued curve moves the position to its end.
    bool drawCurve(const Path& curve, bool isArea, bool isContinued, POINT end);

    DeviceContext& target_;
    DeviceState before_;
    Transform base_;
    Mapping mapping_;
    /// The clipping of the metafile in pixels of the context, and that which stays.
    std::optional<Region> clip_;
    std::optional<Region> limit_;
    std::vector<Saved> saved_;
    Path path_;
    bool isPathOpen_ = false;
    /// A point was added since the position was moved.
    bool isFigureOpen_ = false;
};

} // namespace mox::host
