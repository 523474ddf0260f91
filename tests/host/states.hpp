// SPDX-License-Identifier: MIT
// A state of each kind, and none.
#pragma once

#include "bound.hpp"

namespace bound {

constexpr Values state(double p, double T, double v, double h, double s, double x) {
    return {p, T, v, 1 / v, h, s, x, 0.5, 1 / v, 1e-6};
}

// liquid, vapour, cold liquid, region 3, wet steam, cold saturated liquid, saturated vapour
inline const Values states[] = {
    state(3, 300, 0.001002151679686694, 115.33127302143957, 0.39229479240262555, 0.5),
    state(3, 600, 0.08630500910008175, 3060.8506383795316, 6.654624019451805, 0.5),
    state(0.5, 275, 0.0009998610582974293, 8.263579998427824, 0.028325997535256955, 0.5),
    state(25.5837018, 650, 0.002, 1863.43019, 4.05427273, 0.5),
    state(0.9320410791359337, 450, 0.10447907269729391, 1761.8517643696553, 4.359084316143513, 0.5),
    state(0.0006984535147182353, 275, 0.0010001116152796113, 7.759557575693098,
          0.028308805843360218, 0),
    state(0.04168180040931202, 350, 3.842011713188776, 2637.7261023618125, 7.654916037647461, 1),
    state(not_a_number, not_a_number, not_a_number, not_a_number, not_a_number, not_a_number)};

// The call alone, no code looked at.
inline double call_at(const Export& function, const Values& at) {
    Pointers in;
    for (unsigned k = 0; k < names; ++k) in[k] = &at[k];
    int region = 0;
    double result = 0;
    return function(in, &region, &result);
}

}  // namespace bound
