// SPDX-License-Identifier: MIT
// Exact densities of region 3 from the basic equation in quadruple precision.
#pragma once

#include "number.hpp"

namespace reference {

using published::Quad;

enum class Phase { liquid, vapour, only };

// Density with p3(d, t) = p: the largest root (liquid) or the smallest (vapour) below the critical
// temperature, where Newton's method converges from outside because the isotherm bends one way
// there; the single root by safeguarded Newton otherwise. 0 when that phase has no root.
Quad density3(Quad p, Quad t, Phase phase);

// The root that Newton's method finds from d, meant for polishing a density that is nearly right; 0
// when the isotherm does not rise on the way.
Quad polished_density3(Quad p, Quad t, Quad d);

// The two densities of equal pressure and equal Gibbs energy at t, started at the given pair.
struct Coexistence {
    Quad vapour, liquid;
};
Coexistence coexistence3(Quad t, Quad vapour, Quad liquid);

}  // namespace reference
