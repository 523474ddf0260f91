// SPDX-License-Identifier: MIT
// The C++ interface against the exports: each row of the catalogue, which names a resolver and a property, gives the
// digits of the State that the resolver's namesake makes.
#include "vaprix.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <string>

#include "reference/sampling.hpp"
#include "split.hpp"

namespace {

using bound::Values;
using vaprix::Family;
using vaprix::State;

static_assert(std::is_trivially_copyable_v<State> && sizeof(State) == 64);

#define FROM(call) [](const Values& at [[maybe_unused]]) -> State { return vaprix::call; }
#define AT(name) at[bound::name]
const std::map<std::string, State (*)(const Values&)> resolvers = {
    {"of_pt_b", FROM(of_pt(AT(p), AT(T), Family::B))},
    {"of_pt_o", FROM(of_pt(AT(p), AT(T)))},
    {"fugacity_of_pt", FROM(of_pt(AT(p), AT(T)))},
    {"of_ph_b", FROM(of_ph(AT(p), AT(h), Family::B))},
    {"of_ph_o", FROM(of_ph(AT(p), AT(h)))},
    {"agreed_of_ph_o", FROM(of_ph(AT(p), AT(h)))},
    {"of_ps_b", FROM(of_ps(AT(p), AT(s), Family::B))},
    {"of_ps_o", FROM(of_ps(AT(p), AT(s)))},
    {"agreed_of_ps_o", FROM(of_ps(AT(p), AT(s)))},
    {"of_pv", FROM(of_pv(AT(p), AT(v)))},
    {"cold_of_pv", FROM(cold_of_pv(AT(p), AT(v)))},
    {"of_dp", FROM(of_pd(AT(p), AT(d)))},
    {"lowest_of_th", FROM(of_th(AT(T), AT(h)))},
    {"lowest_of_ts", FROM(of_ts(AT(T), AT(s)))},
    {"next_of_th", FROM(next_of_th(AT(T), AT(h)))},
    {"next_of_ts", FROM(next_of_ts(AT(T), AT(s)))},
    {"of_hs_b", FROM(of_hs(AT(h), AT(s), Family::B))},
    {"of_hs_o", FROM(of_hs(AT(h), AT(s)))},
    {"of_td", FROM(of_td(AT(T), AT(d)))},
    {"wet_of_td", FROM(of_td(AT(T), AT(d)))},
    {"fugacity_of_td", FROM(of_td(AT(T), AT(d)))},
    {"of_tv", FROM(of_tv(AT(T), AT(v)))},
    {"of_vh", FROM(of_vh(AT(v), AT(h)))},
    {"of_vs", FROM(of_vs(AT(v), AT(s)))},
    {"of_dh", FROM(of_dh(AT(d), AT(h)))},
    {"of_ds", FROM(of_ds(AT(d), AT(s)))},
    {"wet_of_tx", FROM(of_tx(AT(T), AT(x)))},
    {"liquid_of_tx", FROM(of_tx(AT(T), AT(x)))},
    {"wet_of_px_b", FROM(of_px(AT(p), AT(x), Family::B))},
    {"wet_of_px_o", FROM(of_px(AT(p), AT(x)))},
    {"wet_of_px_widened", FROM(of_px(AT(p), AT(x)))},
    {"line_of_t", FROM(liquid_of_t(AT(T), Family::B))},
    {"liquid_of_t", FROM(liquid_of_t(AT(T), Family::B))},
    {"vapour_of_t", FROM(vapour_of_t(AT(T), Family::B))},
    {"liquid_of_t_o", FROM(liquid_of_t(AT(T)))},
    {"vapour_of_t_o", FROM(vapour_of_t(AT(T)))},
    {"liquid_of_p_b", FROM(liquid_of_p(AT(p), Family::B))},
    {"vapour_of_p_b", FROM(vapour_of_p(AT(p), Family::B))},
    {"liquid_of_p_o", FROM(liquid_of_p(AT(p)))},
    {"vapour_of_p_o", FROM(vapour_of_p(AT(p)))},
    {"liquid_of_p_widened", FROM(liquid_of_p(AT(p)))},
    {"vapour_of_p_widened", FROM(vapour_of_p(AT(p)))}};

#define IS(expression) [](const State& x) -> double { return expression; }
#define D(z, x_, y) IS((x.derivative<vaprix::z, vaprix::x_, vaprix::y>()))
const std::map<std::string, double (*)(const State&)> readings = {
    {"region", IS(x.region())},
    {"p", IS(x.p())},
    {"T", IS(x.T())},
    {"x", IS(x.x())},
    {"v", IS(x.v())},
    {"v_of_d", IS(x.v())},
    {"v_of_d_of_v", IS(x.v())},
    {"v_or_infinite", IS(x.v())},
    {"d", IS(x.d())},
    {"d_of_v", IS(x.d())},
    {"h", IS(x.h())},
    {"s", IS(x.s())},
    {"u", IS(x.u())},
    {"f", IS(x.f())},
    {"g", IS(x.g())},
    {"cp", IS(x.cp())},
    {"cv", IS(x.cv())},
    {"w", IS(x.w())},
    {"z", IS(x.z())},
    {"z_of_v", IS(x.z())},
    {"z_of_d", IS(x.z())},
    {"kappa", IS(x.kappa())},
    {"cp_per_cv", IS(x.cp_per_cv())},
    {"mu", IS(x.mu())},
    {"alpha_v", IS(x.alpha_v())},
    {"alpha_p", IS(x.alpha_p())},
    {"beta_p", IS(x.beta_p())},
    {"kappa_T", IS(x.kappa_T())},
    {"fugacity", IS(x.fugacity())},
    {"g_ideal", IS(x.g_ideal())},
    {"eta", IS(x.eta())},
    {"vnu", IS(x.nu())},
    {"tco", IS(x.lambda())},
    {"pr", IS(x.Pr())},
    {"a", IS(x.a())},
    {"eps", IS(x.epsilon())},
    {"n", IS(x.n(0.5))},
    {"d_p", D(d, p, T)},
    {"h_p", D(h, p, T)},
    {"v_h", D(v, h, p)},
    {"d_h", D(d, h, p)},
    {"v_T", D(v, T, p)},
    {"v_p", D(v, p, T)},
    {"Ts_p", IS((x.along_line<vaprix::T, vaprix::p>()))},
    {"h_vaporisation", IS(x.vapour().h() - x.liquid().h())},
    {"s_vaporisation", IS(x.vapour().s() - x.liquid().s())}};

// What differs from an export, and by how much relative to its size.
double tolerance_of(const std::string& resolver, const std::string& property) {
    const bool derivative =
        property.find("_p") == 1 || property.find("_h") == 1 || property == "v_T";
    if (derivative) return 1e-13;  // from sums that share their powers
    if (resolver.starts_with("agreed_"))
        return 1e-11;                       // beside the saturation line, by another density
    if (property == "z_of_d") return 1e-7;  // as p
    if (property == "p" && (resolver == "of_td" || resolver == "of_tv"))
        return 1e-7;  // put on a limit of pressure
    return 0;
}

bool failed(double value) {
    const double factor = value / bound::failed;
    return !std::isfinite(value) || factor == 1 || factor == 1e3 || factor == 1e6 || factor == 1e12;
}

TEST(Interface, HasTheDigitsOfTheExports) {
    std::ifstream catalogue(VAPRIX_CATALOGUE);
    reference::Deviations worst;
    int rows = 0;
    for (std::string line; std::getline(catalogue, line);) {
        const Texts cells = split(line, ',');
        const std::string &name = cells[0], &of = cells[2], &property = cells[3];
        const auto resolver = resolvers.find(of);
        const auto reading = readings.find(property);
        if (resolver == resolvers.end() || reading == readings.end()) continue;
        ++rows;
        strata::sweep(0.0005, 1, [&](const strata::Stratum&, const strata::State& at) {
            // A pressure beyond the critical one by a rounding has no saturated state. On the line of (p, T), where the
            // B-family answers 0, State is the liquid.
            if (of.ends_with("_widened") && AT(p) > strata::p_crit) return;
            if (name == "REGIONPT" && at.region == 4) return;
            const double want = bound::find(name)(at), got = reading->second(resolver->second(at));
            const bool marks = want == 0 && (of == "of_pt_b" || std::isnan(got));
            if (failed(want) || marks || (std::isnan(got) && of.starts_with("agreed_"))) return;
            worst.check(property + " of " + of, got, want, want == 0 ? 1 : want,
                        tolerance_of(of, property), {AT(p), AT(T), AT(x)});
        });
    }
    EXPECT_GT(rows, 330);
}

TEST(Interface, FailsAsTheExportsDo) {
    strata::Random random(1);
    const std::map<const char*, const char*> coded = {
        {"HOPT", "of_pt_o"},      {"TOPH", "of_ph_o"},      {"TOPS", "of_ps_o"},
        {"TOPV", "of_pv"},        {"POTH", "lowest_of_th"}, {"POTS", "lowest_of_ts"},
        {"POTHZ", "next_of_th"},  {"POHS", "of_hs_o"},      {"POTD", "of_td"},
        {"POTV", "of_tv"},        {"POVH", "of_vh"},        {"POVS", "of_vs"},
        {"HOTX", "wet_of_tx"},    {"HOPX", "wet_of_px_o"},  {"H1OT", "liquid_of_t_o"},
        {"H2OP", "vapour_of_p_o"}};
    for (const auto& [name, of] : coded) {
        for (int k = 0; k < 2000; ++k) {
            const Values at = strata::no_state(random);
            const bound::Answer answer = bound::ask(bound::find(name), at);
            const State state = resolvers.at(of)(at);
            ASSERT_EQ(static_cast<bool>(state), !failed(answer.value))
                << name << " " << bound::digits(bound::find(name), at);
            if (state) continue;
            EXPECT_EQ(state.code(), answer.code)
                << name << " " << bound::digits(bound::find(name), at);
            for (const auto& [property, reading] : readings) {
                EXPECT_EQ(std::isnan(reading(state)), property != "region") << property;
            }
        }
    }
    bound::code() = bound::untouched;
    EXPECT_FALSE(vaprix::of_pt(-1, 300));
    EXPECT_EQ(bound::code(), bound::untouched);
    EXPECT_FALSE(State());
}

// Basics are the single properties; cp, cv and w are derivatives; phases mix to what they came from.
TEST(Interface, AgreesWithItself) {
    using namespace vaprix;
    reference::Deviations worst;
    strata::sweep(0.01, 2, [&](const strata::Stratum&, const strata::State& at) {
        const bool is_wet = at.region == 4;
        const State x = is_wet ? of_tx(AT(T), AT(x)) : of_pt(AT(p), AT(T));
        const auto check = [&](const char* name, double got, double want, double zero,
                               double tolerance) {
            worst.check(name, got, want, std::fabs(want) + zero, tolerance, {AT(p), AT(T), AT(x)});
        };
        const auto basics = x.basics();
        check("v of basics", basics.v, x.v(), 0, 1e-12);
        check("s of basics", basics.s, x.s(), strata::R, 1e-12);
        if (is_wet) {
            const State liquid = x.liquid(), vapour = x.vapour();
            check("h of phases", liquid.h() + x.x() * (vapour.h() - liquid.h()), x.h(), 1, 1e-12);
            check("dh'/dp", liquid.along_line<vaprix::h, vaprix::p>(),
                  of_tx(x.T(), 0).along_line<vaprix::h, vaprix::p>(), 1, 1e-9);
            if (x.p() < 22)
                check("Clausius-Clapeyron", x.along_line(vaprix::p, vaprix::T),
                      (vapour.h() - liquid.h()) / (vapour.v() - liquid.v()) / x.T() / 1000, 0,
                      2e-3);
            EXPECT_TRUE(std::isnan(x.derivative(vaprix::h, vaprix::T, vaprix::p)));
            return;
        }
        const vaprix::Slopes slopes = x.slopes();
        check("cp", slopes.derivative<vaprix::h, vaprix::T, vaprix::p>(), x.cp(), 0, 1e-9);
        check("cp of basics", basics.cp, x.cp(), 0, 1e-9);
        check("cv", slopes.derivative<vaprix::u, vaprix::T, vaprix::v>(), x.cv(), 0, 1e-9);
        check("w", 1000 * std::sqrt(slopes.derivative<vaprix::p, vaprix::d, vaprix::s>()), x.w(), 0,
              1e-9);
        check("w of basics", basics.w, x.w(), 0, 1e-9);
        EXPECT_TRUE(std::isnan(x.derivative(vaprix::h, vaprix::p, vaprix::p)));
    });
}

}  // namespace
