// SPDX-License-Identifier: MIT
//
// States of region 3 beside the saturation line, which are kept on their side of it.
// Source: IAPWS R7-97(2012), Eqs. (28) and (30): the line of the one and the phase equilibrium of
//         the other differ by up to 0.003 % of p.
#pragma once

#include "frame/constants.hpp"

namespace vaprix::inverse {

inline constexpr double apart = 1e-12;  // distance that is kept from the line, K

// So close to the critical pressure the two lines differ by more than the phases: what reproduces
// the given pair is left where it is.
[[nodiscard]] constexpr bool side_is_free(double p) noexcept {
    constexpr double near_critical = 5e-5;  // MPa
    return p > p_crit - near_critical;
}

}  // namespace vaprix::inverse
