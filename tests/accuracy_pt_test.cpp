// SPDX-License-Identifier: MIT
// The B- and O-families of (p, T) over the whole range against quadruple precision: regions 1, 2
// and 5 at (p, T), region 3 by the basic equation at the density that the family itself found. And
// the temperature of region 5 by iteration.
#include <gtest/gtest.h>

#include <vector>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;

struct Row {
    const char* name;
    double (*function)(double, double);
    Quad State::*quantity;
};

const std::vector<Row> b_family = {
    {"VBPT", call<VBPT>, &State::v},    {"DBPT", call<DBPT>, &State::d},
    {"HBPT", call<HBPT>, &State::h},    {"SBPT", call<SBPT>, &State::s},
    {"CPBPT", call<CPBPT>, &State::cp}, {"CVBPT", call<CVBPT>, &State::cv},
    {"WBPT", call<WBPT>, &State::w},    {"UBPT", call<UBPT>, &State::u},
    {"FBPT", call<FBPT>, &State::f},    {"GBPT", call<GBPT>, &State::g}};

const std::vector<Row> o_family = {
    {"VOPT", call<VOPT>, &State::v},    {"DOPT", call<DOPT>, &State::d},
    {"HOPT", call<HOPT>, &State::h},    {"SOPT", call<SOPT>, &State::s},
    {"CPOPT", call<CPOPT>, &State::cp}, {"CVOPT", call<CVOPT>, &State::cv},
    {"WOPT", call<WOPT>, &State::w},    {"UOPT", call<UOPT>, &State::u},
    {"FOPT", call<FOPT>, &State::f},    {"GOPT", call<GOPT>, &State::g}};

void compare(Deviations& deviations, const std::vector<Row>& rows, const State& x, double p,
             double t, int region) {
    for (const Row& row : rows)
        deviations.check(std::string(row.name) + " region " + std::to_string(region),
                         row.function(p, t), x.*row.quantity, natural_scale(row.quantity, x),
                         rounding_tolerance(row.quantity, x), {p, t});
}

TEST(PtAccuracy, BothFamilies) {
    Random random(8);
    Deviations deviations;
    for (int k = 0; k < states(); ++k) {
        // One state in three in region 5, one in region 3, the rest in regions 1 and 2.
        const double t = k % 3 == 0   ? random.uniform(1073.16, 2273.15)
                         : k % 3 == 1 ? random.uniform(623.15, 863.15)
                                      : random.uniform(273.15, 1073.15);
        const double p = k % 3 == 0      ? random.log_uniform(7e-4, 50)
                         : k % 3 == 1    ? random.uniform(16.53, 100)
                         : random.coin() ? random.log_uniform(7e-4, 100)
                                         : random.uniform(1, 100);
        const int region = static_cast<int>(call<REGIONPT>(p, t));
        switch (region) {
            case 3:
                compare(deviations, b_family, region3(1 / Quad(call<VBPT>(p, t)), t), p, t, region);
                compare(deviations, o_family, region3(call<DOTP>(t, p), t), p, t, region);
                break;
            case 1:
            case 2:
            case 5: {
                const State x = region == 1   ? region1(p, t)
                                : region == 2 ? region2(p, t)
                                              : region5(p, t);
                compare(deviations, b_family, x, p, t, region);
                compare(deviations, o_family, x, p, t, region);
                break;
            }
            default: ADD_FAILURE() << "region " << region << " at " << digits({p, t});
        }
    }
}

// The temperature is solved to a relative step of 1e-6 within the bracket that h, or p and s,
// select.
TEST(PtAccuracy, TemperatureOfRegion5) {
    constexpr double tolerance = 1e-6;
    Random random(9);
    Deviations deviations;
    for (int k = 0; k < states(); ++k) {
        const double p = random.coin() ? random.uniform(0.01, 50) : random.log_uniform(7e-4, 50);
        const double t = random.uniform(1073.15, 2273.15);
        deviations.check("TPH5N", call<TPH5N>(p, call<HPT5N>(p, t)), t, t, tolerance, {p, t});
        deviations.check("TPS5N", call<TPS5N>(p, call<SPT5N>(p, t)), t, t, tolerance, {p, t});
    }
}

}  // namespace
