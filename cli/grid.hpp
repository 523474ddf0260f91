// SPDX-License-Identifier: MIT
//
// Tables of numbers as text, CSV or Markdown.
#pragma once

#include <string>
#include <vector>

#include "units.hpp"

namespace vaprix::cli {

constexpr int as_given = 0;  // as short as it is

struct GridColumn {
    std::string title;
    const Unit* unit;
    int places;  // after the point; below 0: significant digits; or as_given
};

struct Grid {
    std::vector<GridColumn> columns;
    std::vector<std::string> groups;  // titles over the columns after the first, as many over each
    std::vector<std::vector<double>> rows;  // in the catalogue's units, NaN where there is no value
};

// As a table shows it.
std::string text_of(const GridColumn& column, double value);

// Numbers of "csv" have all digits, others those of their column.
void print(const Grid& grid, const std::string& format);

}  // namespace vaprix::cli
