// SPDX-License-Identifier: MIT
//
// The state that reproduces h and s through the basic equations, in whichever region it lies.
//
// Given:    h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K).
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32).
#pragma once

namespace vaprix::hs {

struct State {
    int region;  // 1, 2, 3, 5, two_phase or pt::outside
    double p;    // MPa
    double t;    // K
    double d;    // density, kg/m3, in region 3
};

// The state of (h, s); region outside where there is none in the range of validity.
[[nodiscard]] State solve(double h, double s) noexcept;

// Outcome of the search for wet steam: none if h lies above the saturated liquid of s.
enum class Wet { found, none, too_cold, near_critical };

struct WetSolution {
    double t;        // K
    double quality;  // kg of vapour per kg, before the last step of t; outside 0 to 1 if not wet
    Wet outcome;
};

// Wet steam: the saturation temperature at which the qualities by h and by s agree.
[[nodiscard]] WetSolution solve_wet(double h, double s) noexcept;

// Specific volume, m3/kg, of a state that solve() has found.
[[nodiscard]] double volume(const State& state, double h) noexcept;

}  // namespace vaprix::hs
