// SPDX-License-Identifier: MIT
//
// Random states for the benchmarks, in random order so that no branch predictor learns them.
#pragma once

#include <vector>

struct State {
    double p, t;     // MPa, K
    double v, h, s;  // m3/kg, kJ/kg, kJ/(kg K), by the library
};

// States of one region (1, 2, 3, 5), uniform in p and T over it; region 0 is regions 1 and 2
// together.
const std::vector<State>& states(int region);
