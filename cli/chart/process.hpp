// SPDX-License-Identifier: MIT
//
// The points of a process, from a table.
#pragma once

#include "picture.hpp"

namespace vaprix::cli {

struct Process {
    std::vector<Station> stations;
    std::size_t rows = 0, bad_rows = 0;  // the bad ones are named on stderr
};
Process read_process(const std::string& file);

}  // namespace vaprix::cli
