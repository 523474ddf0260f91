// SPDX-License-Identifier: MIT
// The backward equations of regions 1 and 2, term by term in quadruple precision from the published
// tables: T(p,h) and T(p,s) (IAPWS R7-97(2012), Eqs. (11), (13), (22) to (27)) and B2bc (Eq. (20)).
// The condition of a sum also counts what the rounding of its shifted variables, such as
// eta - 2.1, does to the powers of them.
#pragma once

#include "region3_backward.hpp"

namespace reference {

Sum t1_ph(Quad p, Quad h);
Sum t1_ps(Quad p, Quad s);

// Subregion 'a', 'b' or 'c' of region 2, which owns a state by its h or its s.
char subregion2_ph(Quad p, Quad h);
char subregion2_ps(Quad p, Quad s);

Sum t2_ph(char subregion, Quad p, Quad h);
Sum t2_ps(char subregion, Quad p, Quad s);

Quad p_b2bc(Quad h);

}  // namespace reference
