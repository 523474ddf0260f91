// SPDX-License-Identifier: MIT
// Regions 1, 2 and 5: every property and derivative against quadruple precision over random states
// of the region. The two stored reciprocals that the native functions round differently (of
// 16.53 MPa and 540 K) stay within the tolerance.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"
#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region5.hpp"

namespace {

using namespace reference;

struct Row {
    const char* name;
    double (*function)(double, double);
    Quad State::*quantity;
};

template <class Sampler>
void compare(std::uint64_t seed, Sampler sample, State (*region)(Quad, Quad),
             const std::vector<Row>& rows) {
    Random random(seed);
    Deviations deviations;
    for (int k = 0; k < states(); ++k) {
        const auto [p, t] = sample(random);
        const State x = region(p, t);
        for (const Row& row : rows)
            deviations.check(row.name, row.function(p, t), x.*row.quantity,
                             natural_scale(row.quantity, x), rounding_tolerance(row.quantity, x),
                             {p, t});
    }
}

struct Point {
    double p, t;
};

// Half the states spread evenly in p, half in log p.
double pressure(Random& random, double low, double high) {
    return random.coin() ? random.uniform(low, high) : random.log_uniform(low, high);
}

constexpr double t_low = 273.15, t_13 = 623.15, t_23 = 863.15, t_25 = 1073.15, t_high = 2273.15;
constexpr double p_low = 0.0006112127, p_high = 100, p_high_5 = 50;

TEST(GibbsAccuracy, Region1) {
    using lib = vaprix::region1;
    const auto sample = [](Random& random) {
        const double t = random.uniform(t_low, t_13);
        return Point{pressure(random, std::max(p_low, static_cast<double>(psat(t))), p_high), t};
    };
    compare(1, sample, region1,
            {{"VPT1N", call<VPT1N>, &State::v},
             {"HPT1N", call<HPT1N>, &State::h},
             {"SPT1N", call<SPT1N>, &State::s},
             {"CPPT1N", call<CPPT1N>, &State::cp},
             {"CVPT1N", call<CVPT1N>, &State::cv},
             {"GPT1N", call<GPT1N>, &State::g},
             {"region1::v", lib::v, &State::v},
             {"region1::h", lib::h, &State::h},
             {"region1::u", lib::u, &State::u},
             {"region1::s", lib::s, &State::s},
             {"region1::g", lib::g, &State::g},
             {"region1::cp", lib::cp, &State::cp},
             {"region1::cv", lib::cv, &State::cv},
             {"region1::w", lib::w, &State::w},
             {"region1::v_p", lib::derived<vaprix::formula::v_p>, &State::v_p},
             {"region1::v_t", lib::v_t, &State::v_t}});
}

TEST(GibbsAccuracy, Region2) {
    using lib = vaprix::region2;
    const auto sample = [](Random& random) {
        const double t = random.uniform(t_low, t_25);
        const double top = t <= t_13   ? static_cast<double>(psat(t))
                           : t <= t_23 ? static_cast<double>(p_b23(t))
                                       : p_high;
        return Point{pressure(random, std::min(p_low, top), top), t};
    };
    compare(2, sample, region2,
            {{"VPT2N", call<VPT2N>, &State::v},
             {"HPT2N", call<HPT2N>, &State::h},
             {"SPT2N", call<SPT2N>, &State::s},
             {"CPPT2N", call<CPPT2N>, &State::cp},
             {"CVPT2N", call<CVPT2N>, &State::cv},
             {"GPT2N", call<GPT2N>, &State::g},
             {"region2::v", lib::v, &State::v},
             {"region2::h", lib::h, &State::h},
             {"region2::u", lib::u, &State::u},
             {"region2::s", lib::s, &State::s},
             {"region2::g", lib::g, &State::g},
             {"region2::cp", lib::cp, &State::cp},
             {"region2::cv", lib::cv, &State::cv},
             {"region2::w", lib::w, &State::w},
             {"region2::v_p", lib::derived<vaprix::formula::v_p>, &State::v_p},
             {"region2::v_t", lib::v_t, &State::v_t}});
}

TEST(GibbsAccuracy, Region5) {
    using lib = vaprix::region5;
    const auto sample = [](Random& random) {
        return Point{pressure(random, p_low, p_high_5), random.uniform(t_25, t_high)};
    };
    compare(5, sample, region5,
            {{"VPT5N", call<VPT5N>, &State::v},
             {"HPT5N", call<HPT5N>, &State::h},
             {"SPT5N", call<SPT5N>, &State::s},
             {"CPPT5N", call<CPPT5N>, &State::cp},
             {"CVPT5N", call<CVPT5N>, &State::cv},
             {"GPT5N", call<GPT5N>, &State::g},
             {"region5::v", lib::v, &State::v},
             {"region5::h", lib::h, &State::h},
             {"region5::u", lib::u, &State::u},
             {"region5::s", lib::s, &State::s},
             {"region5::g", lib::g, &State::g},
             {"region5::cp", lib::cp, &State::cp},
             {"region5::cv", lib::cv, &State::cv},
             {"region5::w", lib::w, &State::w},
             {"region5::v_p", lib::derived<vaprix::formula::v_p>, &State::v_p},
             {"region5::v_t", lib::v_t, &State::v_t}});
}

}  // namespace
