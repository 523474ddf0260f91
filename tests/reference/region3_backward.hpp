// SPDX-License-Identifier: MIT
// The backward equations of region 3, term by term in quadruple precision from the published
// tables: v(p,T) (IAPWS SR5-05(2016)), T and v of (p,h) and (p,s) (IAPWS SR3-03(2014)).
#pragma once

#include <string>

#include "quad.hpp"

namespace reference {

// A value from a sum and how much that sum amplifies the rounding of its terms: sum |terms| /
// |sum|, times the power or the exponent that follows.
struct Sum {
    Quad value;
    double condition;
};

// v of subregion 'a' ... 'z'.
Sum v_subregion(char subregion, Quad p, Quad t);

// Subregion of the published decision table, 'a' ... 'z'. The saturation line divides liquid and
// vapour at the temperature of Eq. (31); a state on it counts as liquid.
char subregion(Quad p, Quad t);

// Boundary temperature by its published name, "T3ab" ... "T3wx"; T3ef included.
Quad boundary(const std::string& name, Quad p);

Sum t_ph(Quad p, Quad h);
Sum v_ph(Quad p, Quad h);
Sum t_ps(Quad p, Quad s);
Sum v_ps(Quad p, Quad s);
Quad h3ab(Quad p);
Sum p3sat_h(Quad h);
Sum p3sat_s(Quad s);

}  // namespace reference
