// SPDX-License-Identifier: MIT
//
// From a curve to a polyline.
#pragma once

#include <functional>

#include "charts.hpp"

namespace vaprix::charts {

// The states of a line by a parameter, failed where there is no line.
using Path = std::function<State(double)>;

// The path from the first node to the last as polylines, refined until no chord is farther from it than the view's
// tolerance. The nodes, and both sides of each change of region, are points of it. Broken where states fail.
[[nodiscard]] std::vector<std::vector<Point>> traced(const View& view, const Path& path,
                                                     const std::vector<double>& nodes, bool is_cut);

}  // namespace vaprix::charts
