// Which pixels are inside an outline, row by row.
#pragma once

#include "host/graphics/canvas.h"

#include <vector>

namespace mox::host {

/// Goes through the rows of an area from the top down.
class PathSpans {
public:
    /// Pixels from `from` up to, but without, `to`.
    struct Span {
        int from = 0;
        int to = 0;
    };

    PathSpans(const Path& path, FillRule rule, const RECT& area);

    /// The next row that has pixels inside; false when there are no more.
    bool next();
    int row() const noexcept { return row_; }
    /// Of the present row, from left to right, without overlaps.
    std::span<const Span> spans() const noexcept { return spans_; }

private:
    /// A side of the outline that crosses the centres of rows `first` to `last`.
    struct Edge {
        int first = 0;
        int last = 0;
        /// Where it crosses the centre of the row `first`, and how far it moves from row to row.
        double x = 0;
        double slope = 0;
        int winding = 0;
    };
    struct Crossing {
        double x = 0;
        int winding = 0;
    };

    void addEdges(const Path& path);
    void addEdge(PathPoint from, PathPoint to);
    bool isInside(int winding) const noexcept { return rule_ == FillRule::winding ? winding != 0 : (winding & 1) != 0; }
    void collectSpans();

    const FillRule rule_;
    const RECT area_;
    /// By their first row.
    std::vector<Edge> edges_;
    std::size_t nextEdge_ = 0;
    std::vector<Edge> active_;
    std::vector<Crossing> crossings_;
    std::vector<Span> spans_;
    int row_;
};

} // namespace mox::host
