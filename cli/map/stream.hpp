// SPDX-License-Identifier: MIT
//
// The whole of map: blocks answered by all processors and written in order, with constant memory.
#pragma once

#include <string>

#include "plan.hpp"

namespace vaprix::cli {

struct MapOptions {
    std::string in = "-", out = "-", family = "O";
    std::vector<std::string> formulas, units;
    std::string separator, decimal, header;  // empty: as the file shows
    int jobs = 0, digits = 0;
    std::size_t most_messages = 100;
};

int map(const MapOptions& options);  // the exit status

}  // namespace vaprix::cli
