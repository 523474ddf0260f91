// SPDX-License-Identifier: MIT
#include "states.hpp"

#include <array>
#include <cstddef>
#include <random>

#include "frame/constants.hpp"
#include "vaprix.h"

namespace {

constexpr std::size_t count = 1 << 16;

bool belongs(double found, int region) {
    return region == 0 ? found == 1 || found == 2 : found == region;
}

// Points of the saturation line: t uniform in temperature, p on its own uniform in pressure.
std::vector<State> sample_line() {
    using namespace vaprix;
    std::mt19937_64 random(20260004U);
    std::uniform_real_distribution<double> t_of(T_min, T_crit);
    std::uniform_real_distribution<double> p_of(p_min, psat_13);
    std::vector<State> found(count);
    for (State& state : found) state = {p_of(random), t_of(random), 0, 0, 0};
    return found;
}

std::vector<State> sample(int region) {
    using namespace vaprix;
    const std::array<double, 6> t_low{T_min, T_min, T_min, T_13, 0, T_25};
    const std::array<double, 6> t_high{T_25, T_13, T_25, T_23_max, 0, T_max};
    const auto k = static_cast<std::size_t>(region);
    std::mt19937_64 random(20260000U + k);
    std::uniform_real_distribution<double> t_of(t_low[k], t_high[k]);
    std::uniform_real_distribution<double> p_of(p_min, region == 5 ? p_max_5 : p_max);

    std::vector<State> found;
    while (found.size() < count) {
        State state{p_of(random), t_of(random), 0, 0, 0};
        if (!belongs(REGIONPT(&state.p, &state.t), region)) continue;
        state.v = VOPT(&state.p, &state.t);
        state.h = HOPT(&state.p, &state.t);
        state.s = SOPT(&state.p, &state.t);
        found.push_back(state);
    }
    return found;
}

}  // namespace

const std::vector<State>& states(int region) {
    static const std::array<std::vector<State>, 6> all{sample(0), sample(1),     sample(2),
                                                       sample(3), sample_line(), sample(5)};
    return all[static_cast<std::size_t>(region)];
}
