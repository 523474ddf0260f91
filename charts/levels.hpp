// SPDX-License-Identifier: MIT
//
// Round numbers.
#pragma once

#include "charts.hpp"

namespace vaprix::charts {

// The levels of a quantity from low to high that lines are drawn for, in the unit of these.
[[nodiscard]] std::vector<double> levels(double low, double high, bool logarithmic,
                                         const Unit& unit, std::size_t count);

}  // namespace vaprix::charts
