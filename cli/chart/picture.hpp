// SPDX-License-Identifier: MIT
//
// A chart as a picture: axes, lines with labels, legend, a process.
#pragma once

#include <charts.hpp>

#include "canvas.hpp"

namespace vaprix::cli {

// A point of a process.
struct Station {
    State state;
    std::string name;
    bool begins;  // a path, instead of continuing one
};

struct Style {
    double width, height;
    bool is_dark, is_straight;  // from station to station
};

Colour paper_of(const Style& style);
std::string title_of(const charts::View& view);
void draw(Canvas& canvas, const charts::View& view, const std::vector<Station>& stations,
          const Style& style);

}  // namespace vaprix::cli
