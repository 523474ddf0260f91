// SPDX-License-Identifier: MIT
//
// What is measured: the table of exports.
#pragma once

#include <benchmark/benchmark.h>

#include <vector>

#include "states.hpp"

// Times one call on one state after the other.
using Loop = void (*)(benchmark::State&, const std::vector<State>&);

struct Row {
    const char* name;
    Set set;
    Loop library;             // through the exported symbol, by reference
    Loop baseline = nullptr;  // term by term with std::pow
    Loop floor = nullptr;     // the library's equation alone, inlined, no region decision
};

[[nodiscard]] const std::vector<Row>& rows();

// A function of the mix: its frequency of use in percent, IAPWS R7-97(2012), Tables 45 and 46.
struct Share {
    const char* name;
    Set set;
    double percent;
};
inline constexpr Share mix[] = {
    {"VBPT", Set::region1, 2.9}, {"HBPT", Set::region1, 9.7}, {"TBPH", Set::region1, 3.5},
    {"HBPS", Set::region1, 1.2}, {"VBPT", Set::region2, 6.1}, {"HBPT", Set::region2, 12.1},
    {"SBPT", Set::region2, 1.4}, {"TBPH", Set::region2, 8.5}, {"VBPH", Set::region2, 3.1},
    {"SBPH", Set::region2, 1.7}, {"TBPS", Set::region2, 1.7}, {"HBPS", Set::region2, 4.9},
    {"PBT", Set::line, 8.0},     {"TBP", Set::line, 30.7},    {"H1BP", Set::line, 2.25},
    {"H2BP", Set::line, 2.25},
};
