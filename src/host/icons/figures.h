// Outlines from words.
#pragma once

#include "host/graphics/path.h"

#include <string_view>
#include <vector>

namespace mox::host {

/// A closed outline of lines.
using Polygon = std::vector<PathPoint>;

/// The outlines of figures as `DrawnArea` describes them, with both directions of the grid multiplied. Lines of some width come
/// in pieces that overlap and go round the same way. Throws `std::invalid_argument`.
std::vector<Polygon> readFigures(std::string_view figures, double scaleX, double scaleY);

} // namespace mox::host
