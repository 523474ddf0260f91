// SPDX-License-Identifier: MIT
// Exact densities of region 3 from the basic equation in quadruple precision.
#pragma once

#include "number.hpp"

namespace reference {

using published::Quad;

// The root that Newton's method finds from d, meant for polishing a density that is nearly right; 0
// when the isotherm does not rise on the way.
Quad polished_density3(Quad p, Quad t, Quad d);

// The two densities of equal pressure and equal Gibbs energy at t, started at the given pair.
struct Coexistence {
    Quad vapour, liquid;
};
Coexistence coexistence3(Quad t, Quad vapour, Quad liquid);

}  // namespace reference
