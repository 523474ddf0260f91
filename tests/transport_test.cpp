// SPDX-License-Identifier: MIT
// Viscosity, its derivatives and thermal conductivity against quadruple precision; the transport
// and other physical exports against the correlations and against each other, and where they end.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "frame/error_code.hpp"
#include "reference/call.hpp"
#include "reference/csv.hpp"
#include "reference/sampling.hpp"
#include "transport/conductivity.hpp"
#include "transport/dielectric.hpp"
#include "transport/refractive_index.hpp"
#include "transport/viscosity.hpp"

namespace {

using namespace reference;
using namespace literals;
namespace lib = vaprix::transport;

template <auto Export>
double written(double v, double t) {
    double out = 0;
    Export(&v, &t, &out);
    return out;
}

template <auto Export>
double call3(double x, double y, double z) {
    return Export(&x, &y, &z);
}

Quad viscosity(Quad t, Quad d) {
    static const Table dilute = read_table("transport/viscosity_H0.csv");
    static const Table dense = read_table("transport/viscosity_H.csv");
    const Quad y = 647.096_q / t, r = d / 322;
    Quad sum0 = 0, sum1 = 0;
    for (std::size_t i = 0; i < 4; ++i) sum0 += dilute.quad(i, "H") * power(y, static_cast<int>(i));
    for (std::size_t row = 0; row < dense.rows.size(); ++row)
        sum1 += dense.quad(row, "H") * power(y - 1, std::stoi(dense.cell(row, "i"))) *
                power(r - 1, std::stoi(dense.cell(row, "j")));
    return 100 / sqrtq(y) / sum0 * expq(r * sum1) / 1000000;
}

Quad conductivity(Quad t, Quad d) {
    static std::map<std::string, Quad> c = [] {
        const Table table = read_table("transport/conductivity.csv");
        std::map<std::string, Quad> constants;
        for (std::size_t row = 0; row < table.rows.size(); ++row)
            constants[table.cell(row, "name")] = table.quad(row, "value");
        return constants;
    }();
    const Quad tr = t / c["T_star"], r = d / c["rho_star"];
    const Quad dt = magnitude(tr - 1) + c["C4"], q = 2 + c["C5"] / powq(dt, 0.6_q);
    const Quad s = tr >= 1 ? 1 / dt : c["C6"] / powq(dt, 0.6_q);
    return sqrtq(tr) * (c["a0"] + c["a1"] * tr + c["a2"] * power(tr, 2) + c["a3"] * power(tr, 3)) +
           c["b0"] + c["b1"] * r + c["b2"] * expq(c["B1"] * square(r + c["B2"])) +
           (c["d1"] / power(tr, 10) + c["d2"]) * powq(r, 1.8_q) *
               expq(c["C1"] * (1 - powq(r, 2.8_q))) +
           c["d3"] * s * powq(r, q) * expq(q / (1 + q) * (1 - powq(r, 1 + q))) +
           c["d4"] * expq(c["C2"] * powq(tr, 1.5_q) + c["C3"] / power(r, 5));
}

TEST(TransportAccuracy, ViscosityAndConductivity) {
    // The exponent of the viscosity cancels in the cold liquid. Beside 647.26 K an ulp of the
    // temperature is worth 4e-14 of the conductivity.
    constexpr double tolerance = 4e-14, critical = 5e-14, derivative = 1e-13;
    const Quad h = 1e-9_q;  // central differences: off by 1e-18 of the value at most
    Random random(61);
    Deviations deviations;
    for (int k = 0; k < states() / 10; ++k) {
        const double t =
            random.coin() ? random.uniform(273.15, 1173.15) : 647.26 + random.offset(1e-6, 10.0);
        const double d = random.coin() ? random.uniform(1, 1060) : random.log_uniform(1e-3, 400);
        const double v = 1 / d;
        const Quad mu = viscosity(t, d), lambda = conductivity(t, d);
        const Quad by_t = (viscosity(t * (1 + h), d) - viscosity(t * (1 - h), d)) / (2 * t * h);
        const Quad by_v = (viscosity(t, d / (1 + h)) - viscosity(t, d / (1 - h))) * d / (2 * h);
        deviations.check("viscosity", lib::viscosity(t, d), mu, mu, tolerance, {t, d});
        deviations.check("conductivity", lib::conductivity(t, d), lambda, lambda, critical, {t, d});
        deviations.check("DVISCDT", written<DVISCDT>(v, t), by_t, magnitude(by_t) + mu / t,
                         derivative, {t, d});
        deviations.check("DVISCDV", written<DVISCDV>(v, t), by_v, magnitude(by_v) + mu * d,
                         derivative, {t, d});
    }
}

struct Pair {
    const char* name;
    double got, want;
};

void expect_pairs(std::initializer_list<Pair> pairs, double x, double y) {
    // the heat capacity of (T, density) is that of a pressure found by iteration
    constexpr double tolerance = 1e-11;
    for (const Pair& pair : pairs)
        EXPECT_NEAR(pair.got, pair.want, tolerance * std::fabs(pair.want))
            << pair.name << " at " << digits({x, y});
}

TEST(TransportExports, FamiliesOfPtAndTd) {
    const double l = 0.5893;
    for (const auto& [p, t] : {std::pair{3.0, 300.0}, {0.1, 760.0}, {25.0, 650.0}, {30.0, 670.0}}) {
        const double v = call<VBPT>(p, t), d = call<DBPT>(p, t), o = call<DOPT>(p, t);
        const double mu = lib::viscosity(t, d), mu_o = lib::viscosity(t, o);
        const double lambda = lib::conductivity(t, d), lambda_o = lib::conductivity(t, o);
        const double eta = mu_o * 1e6, vnu = mu_o / o * 1e6, tco = lambda_o * 1000;
        const double cp = call<CPOPT>(p, t), pr = mu_o * cp / lambda_o * 1000, a = tco / (o * cp);
        const double eps = lib::dielectric_constant(t, o), n = lib::refractive_index(t, o, l);
        expect_pairs({{"ETABPT", call<ETABPT>(p, t), mu * 1e6},
                      {"VNUBPT", call<VNUBPT>(p, t), mu * v * 1e6},
                      {"VKIBPT", call<VKIBPT>(p, t), mu * v},
                      {"TCOBPT", call<TCOBPT>(p, t), lambda * 1000},
                      {"PRBPT", call<PRBPT>(p, t), mu * call<CPBPT>(p, t) / lambda * 1000},
                      {"EPSBPT", call<EPSBPT>(p, t), lib::dielectric_constant(t, d)},
                      {"REFBPT", call3<REFBPT>(p, t, l), lib::refractive_index(t, d, l)}},
                     p, t);
        expect_pairs({{"ETAOPT", call<ETAOPT>(p, t), eta},
                      {"VNUOPT", call<VNUOPT>(p, t), vnu},
                      {"TCOOPT", call<TCOOPT>(p, t), tco},
                      {"PROPT", call<PROPT>(p, t), pr},
                      {"AOPT", call<AOPT>(p, t), a},
                      {"EPSOPT", call<EPSOPT>(p, t), eps},
                      {"REFOPT", call3<REFOPT>(p, t, l), n}},
                     p, t);
        expect_pairs({{"ETAOTD", call<ETAOTD>(t, o), eta},
                      {"VISOTD", call<VISOTD>(t, o), mu_o},
                      {"VNUOTD", call<VNUOTD>(t, o), vnu},
                      {"VKIOTD", call<VKIOTD>(t, o), mu_o / o},
                      {"TCOOTD", call<TCOOTD>(t, o), tco},
                      {"TCONOTD", call<TCONOTD>(t, o), lambda_o},
                      {"PROTD", call<PROTD>(t, o), pr},
                      {"AOTD", call<AOTD>(t, o), a},
                      {"EPSOTD", call<EPSOTD>(t, o), eps},
                      {"REFOTD", call3<REFOTD>(t, o, l), n}},
                     t, o);
    }
}

// Each phase is the state of (T, density) at its density, below the critical temperature.
TEST(TransportExports, SaturatedStates) {
    using Of1 = double (*)(double);
    using Of2 = double (*)(double, double);
    const struct {
        const char* name;
        Of1 density, value, other;
        Of2 td;
    } rows[] = {
#define ROW(density, value, other, td) \
    {#value, call1<density>, call1<value>, call1<other>, call<td>}
        ROW(DLOT, ETA1BT, ETA1OT, ETAOTD),    ROW(DVOT, ETA2BT, ETA2OT, ETAOTD),
        ROW(DLOT, VNU1BT, VNU1OT, VNUOTD),    ROW(DVOT, VNU2BT, VNU2OT, VNUOTD),
        ROW(DLOT, TCO1BT, TCO1OT, TCOOTD),    ROW(DVOT, TCO2BT, TCO2OT, TCOOTD),
        ROW(DLOT, PR1BT, PR1OT, PROTD),       ROW(DVOT, PR2BT, PR2OT, PROTD),
        ROW(DLOT, EPS1BT, EPS1OT, EPSOTD),    ROW(DVOT, EPS2BT, EPS2OT, EPSOTD),
        ROW(DLOT, A1OT, A1OT, AOTD),          ROW(DVOT, A2OT, A2OT, AOTD),
        ROW(DLOT, VISLOT, VISLOT, VISOTD),    ROW(DVOT, VISVOT, VISVOT, VISOTD),
        ROW(DLOT, VKILOT, VKILOT, VKIOTD),    ROW(DVOT, VKIVOT, VKIVOT, VKIOTD),
        ROW(DLOT, TCONLOT, TCONLOT, TCONOTD), ROW(DVOT, TCONVOT, TCONVOT, TCONOTD),
#undef ROW
    };
    for (const auto& row : rows) {
        for (const double ts : {273.2, 300.0, 623.15, 640.0}) {
            expect_pairs({{row.name, row.value(ts), row.td(ts, row.density(ts))}}, ts, 0);
            EXPECT_EQ(row.value(ts), row.other(ts)) << row.name;
        }
    }
    const double t = 300, l = 0.5893;
    const double n1 = call3<REFOTD>(t, call1<DLOT>(t), l), n2 = call3<REFOTD>(t, call1<DVOT>(t), l);
    expect_pairs({{"REF1BT", call<REF1BT>(t, l), n1},
                  {"REF1OT", call<REF1OT>(t, l), n1},
                  {"REF2BT", call<REF2BT>(t, l), n2},
                  {"REF2OT", call<REF2OT>(t, l), n2}},
                 t, l);
    EXPECT_EQ(call1<ETA1BT>(647.096), call1<ETA2BT>(647.096));
    EXPECT_EQ(call1<TCO1BT>(647.096), call1<TCO2BT>(647.096));
    EXPECT_EQ(call1<VISLOT>(647.0960000005), lib::viscosity(647.0960000005, 322.0));
}

// Where the answers end and what is given beyond; code 0: none is stored.
TEST(TransportExports, LimitsAndOddities) {
    constexpr double failed = -99999.0, micro_failed = -99999e6, milli_failed = -99999e3;
    constexpr double answer = 1;  // stands for any positive number
    constexpr int by_t = -10019, outside = -10055, light = -10056, own = -10057;
    const struct {
        double value;
        int code;
        double got;
        int stored;
    } cases[] = {
#define CASE(value, code, call) \
    {value, code, (vaprix::store(vaprix::ErrorCode::success), call), ECODETUL()}
        CASE(answer, 0, call<ETABPT>(0.1, 1173.15)),
        CASE(0, 0, call<ETABPT>(0.1, up(1173.15))),
        CASE(0, 0, call<VNUOPT>(0.1, 1273.15)),
        CASE(failed, 0, call<ETAOPT>(0.1, up(1273.15))),
        CASE(failed, 0, call<ETABPT>(0.1, up(1273.15))),
        CASE(micro_failed, own, call<VNUOTD>(1100, 0.2)),
        CASE(failed, own, call<VISOTD>(1100, 0.2)),
        CASE(answer, 0, call<TCOOPT>(0.1, 1073.1500000001)),
        CASE(milli_failed, own, call<TCOOPT>(0.1, 1073.2)),
        CASE(failed, own, call<AOPT>(0.1, 1073.2)),
        CASE(HUGE_VAL, 0, call<TCOBPT>(0.1, 1073.2)),
        CASE(NAN, 0, call<PRBPT>(0.1, 1073.2)),
        CASE(milli_failed, own, call<TCOOTD>(1073.2, 0.2)),
        CASE(answer, 0, call<EPSBPT>(0.1, 1200)),
        CASE(failed, 0, call<EPSBPT>(0.1, up(1200))),
        CASE(answer, 0, call<EPSOPT>(0.1, 1073.15)),
        CASE(failed, outside, call<EPSOPT>(0.1, 1200)),
        CASE(failed, own, call<EPSOPT>(0.1, up(1200))),
        CASE(answer, 0, call3<REFBPT>(0.1, 773.15, 0.2)),
        CASE(failed, 0, call3<REFBPT>(0.1, up(773.15), 0.5)),
        CASE(failed, 0, call3<REFBPT>(0.1, 300, NAN)),
        CASE(answer, 0, call3<REFOPT>(0.1, 773.15, 1.1)),
        CASE(failed, own, call3<REFOPT>(0.1, 300, down(0.2))),
        CASE(failed, light, call3<REFOTD>(300, 998, up(1.1))),
        CASE(failed, light, call3<REFOTD>(300, 0, 0.5)),
        CASE(failed, by_t, call<REF1BT>(200, 0.5)),
        CASE(failed, own, call<REF2OT>(300, 1.2)),
#undef CASE
    };
    for (const auto& c : cases) {
        const bool as_meant = c.value == answer     ? c.got > 0
                              : std::isnan(c.value) ? std::isnan(c.got)
                                                    : c.got == c.value;
        EXPECT_TRUE(as_meant && c.stored == c.code)
            << "case " << &c - cases << ": " << c.got << ", " << c.stored;
    }
}

// Region 0 is determined and written back, and no viscosity is written where there is none; any
// other region is taken as it is.
TEST(TransportExports, ViscosityOfGivenRegion) {
    const double t_line = 400, p_line = call1<PBT>(t_line), v = 0.01;
    const struct {
        double p, t;
        int given, determined;
        bool answered;
    } cases[] = {{0.1, 300, 0, 1, true},  {0.1, 1173.15, 0, 5, true},    {0.1, 1173.2, 0, 5, false},
                 {200, 300, 0, 0, false}, {p_line, t_line, 0, 9, false}, {200, 2000, 3, 3, true}};
    for (const auto& c : cases) {
        int region = c.given;
        double eta = -1;
        VISCVT(&c.p, &v, &c.t, &region, &eta);
        EXPECT_EQ(region, c.determined) << digits({c.p, c.t});
        EXPECT_EQ(eta, c.answered ? lib::viscosity(c.t, 1 / v) : -1) << digits({c.p, c.t});
    }
}

}  // namespace
