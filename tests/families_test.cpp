// SPDX-License-Identifier: MIT
// Exports against each other, found by their names: both families, (p, T) and (T, density), the
// saturated states of T and of p, wet steam by the lever rule, and saturated states by another property.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "bound.hpp"
#include "strata.hpp"

namespace {

using namespace bound;
using namespace strata;

bool exists(const std::string& name) {
    return std::any_of(exports().begin(), exports().end(),
                       [&](const Export& each) { return each.name == name; });
}

// Energies and entropy pass through zero: they are judged against R T and R as well.
double scale(const std::string& property, double want, double of_T) {
    const bool energy = std::string("H U F G").find(property) != std::string::npos;
    return std::fabs(want) + (energy ? R * of_T : property == "S" ? R : 0);
}

// Where (p, T) or the temperature is worth no more: p, given or of the saturation line, and that of
// the region-3 equation differ along the line by 0.0026 %.
bool contains_p(const std::string& property) {
    const std::vector<std::string> all = {"ALP", "BET", "CAP", "Z", "FUG"};
    return std::count(all.begin(), all.end(), property) != 0;
}

void expect_near(const std::string& property, double got, double want, double tolerance,
                 const Export& of, const Values& at) {
    EXPECT_LE(std::fabs(got - want), tolerance * scale(property, want, at[T]))
        << digits(of, at) << ": " << testing::PrintToString(got) << ", not "
        << testing::PrintToString(want) << ", relative " << got / want - 1;
}

struct Relation {
    std::string property;
    const Export *one, *other;
};
// Exports whose names differ in the letters of family and arguments only.
std::vector<Relation> relations(const std::string& ending, const std::string& other) {
    std::vector<Relation> all;
    for (const Export& each : exports()) {
        if (each.name.size() <= ending.size() ||
            each.name.compare(each.name.size() - ending.size(), ending.size(), ending) != 0)
            continue;
        const std::string property = each.name.substr(0, each.name.size() - ending.size());
        if (property != "REGION" && exists(property + other))
            all.push_back({property, &each, &find(property + other)});
    }
    return all;
}

TEST(Families, OfPressureAndTemperature) {
    const auto families = relations("BPT", "OPT"), of_density = relations("OTD", "OPT");
    ASSERT_GT(families.size(), 20U);
    ASSERT_GT(of_density.size(), 20U);
    sweep(0.01, 400, [&](const Stratum& stratum, const State& at) {
        if (stratum.place != Place::inside || at.region == 4) return;
        const bool dense = at.region == 3, cool = at[T] < 773;  // refractive index
        for (const auto& [property, b, o] : families) {
            if ((dense && at[p] < 40) || (property == "REF" && !cool) || at.region == 5) continue;
            // the backward volume is good to 1e-5
            expect_near(property, (*b)(at), (*o)(at), dense ? 2e-3 : 1e-12, *b, at);
        }
        for (const auto& [property, td, pt] : of_density) {
            const double value = (*pt)(at);
            // the property's own range; viscosity of (T, density) knows no region 5
            if (value < -99998 || value == 0 || (at.region == 5 && (*td)(at) == -99999e6)) continue;
            expect_near(property, (*td)(at), value, contains_p(property) ? 1e-7 : 1e-9, *td, at);
        }
    });
}

TEST(Families, SaturatedStates) {
    struct Saturated {
        Relation of;
        bool liquid, of_p, b, o_of_T;
    };
    std::vector<Saturated> all;
    const std::regex pattern("([A-Z]+?)([12LV])([BO])([TP])");
    std::smatch match;
    for (const Export& each : exports()) {
        if (!std::regex_match(each.name, match, pattern) || each.name[0] == 'X') continue;
        const std::string property = match[1],
                          of = property == "V" || property == "D" ? "POTD" : property + "OTD";
        if (!exists(of) || each.inputs.empty()) continue;
        const bool b = match[3] == "B",
                   twofold = std::regex_match(property, std::regex("H|S|V|CP|W|D"));
        all.push_back({{property, &each, &find(of)},
                       match[2] == "1" || match[2] == "L",
                       match[4] == "P",
                       b,
                       !b && twofold && (match[2] == "1" || match[2] == "2") && match[4] == "T"});
    }
    ASSERT_GT(all.size(), 100U);
    Random random(410);
    for (int k = states(0.02); k > 0; --k) {
        Values at{};
        at[wavelength] = 0.5;
        const double of_T =
            random.coin() ? random.uniform(T_low, T_13) : random.uniform(623.16, 646);
        const double ps = call<PBT>(of_T);
        for (const auto& [of, liquid, of_p, b, o_of_T] : all) {
            at[T] = of_T, at[p] = ps;
            const double got = (*of.one)(at);
            if (of_p || o_of_T) at[T] = b ? call<TBP>(ps) : call<TOP>(ps);
            at[d] = liquid ? call<DLOT>(at[T]) : call<DVOT>(at[T]);
            if (of.property == "REF" && at[T] > 773) continue;
            const double want = of.property == "D"   ? at[d]
                                : of.property == "V" ? 1 / at[d]
                                                     : (*of.other)(at);
            const bool dense = of_T > T_13;
            expect_near(of.property, got, want,
                        dense && contains_p(of.property) ? 1e-4
                        : dense                          ? 1e-8
                                                         : 1e-9,
                        *of.one, at);
        }
        expect_near("H", call<HVAPOT>(of_T), call<H2BT>(of_T) - call<H1BT>(of_T), 1e-12,
                    find("HVAPOT"), at);
        expect_near("S", call<SVAPOT>(of_T), call<S2BT>(of_T) - call<S1BT>(of_T), 1e-12,
                    find("SVAPOT"), at);
    }
}

TEST(Families, WetSteamByTheLeverRule) {
    sweep(0.01, 420, [&](const Stratum&, const State& at) {
        if (at.region != 4 || at[T] > 646.9) return;
        for (const Export& each : exports()) {
            const std::string &name = each.name,
                              ending = name.size() < 4 ? "" : name.substr(name.size() - 3);
            if (ending != "BTX" && ending != "OTX" && ending != "BPX" && ending != "OPX") continue;
            const std::string property = name.substr(0, name.size() - 3),
                              of = ending[1] == 'T' ? "BT" : ending.substr(0, 2);
            const auto mixture = [&](const std::string& y) {
                const double liquid = find(y + "1" + of)(at), vapour = find(y + "2" + of)(at);
                return liquid + at[x] * (vapour - liquid);
            };
            const double want = property == "P"     ? call<PBT>(at[T])
                                : property == "FUG" ? call<FUG1BT>(at[T])
                                : property == "D"   ? 1 / mixture("V")
                                : property == "Z"
                                    ? 1000 * call<PBT>(at[T]) * mixture("V") / (R * at[T])
                                    : mixture(property);
            expect_near(property, each(at), want, 1e-11, each, at);
        }
    });
}

// A branch of the saturation line: its property, and the exports of that property's value.
struct Branch {
    double from, to;  // K
    const char *y, *of_T, *T_of, *p_of, *d_of, *v_of, *d_of_T;
};
constexpr double T_densest = 277.13505, T_h_max = 508.44296;
const Branch branches[] = {
    {T_densest, T_crit, "d", "DLOT", "TSATOD", "PSATOD", "", "", "DLOT"},
    {T_low, T_densest, "d", "DLOT", "", "PSATODZ", "", "", "DLOT"},
    {T_low, T_crit, "d", "DVOT", "TSATOD", "PSATOD", "", "", "DVOT"},
    {T_low, T_crit, "h", "HLOT", "TSATOH", "PSATOH", "DLOH", "V1OH", "DLOT"},
    {T_h_max, T_crit, "h", "HVOT", "TSATOH", "PSATOH", "DVOH", "V2OH", "DVOT"},
    {T_low, T_h_max, "h", "HVOT", "TSATOHZ", "PSATOHZ", "DVOHZ", "V2OHZ", "DVOT"},
    {T_low, T_crit, "s", "SLOT", "TSATOS", "PSATOS", "DLOS", "V1OS", "DLOT"},
    {T_low, T_crit, "s", "SVOT", "TSATOS", "PSATOS", "DVOS", "V2OS", "DVOT"}};

TEST(Families, SaturatedStatesByAnotherProperty) {
    Random random(430);
    for (const Branch& branch : branches) {
        const Name y = *branch.y == 'd' ? d : *branch.y == 'h' ? h : s;
        for (int k = states(0.1); k > 0; --k) {
            double of_T = random.uniform(branch.from, branch.to);
            if (k % 3 == 0)
                of_T = random.one_of({branch.from, branch.to, T_13}) + random.offset(1e-12, 1e-2);
            // beyond, the coexisting densities are estimates that overlap with those solved
            if (!(of_T > branch.from && of_T < std::min(branch.to, T_crit - 4e-5))) continue;
            Values at{}, found{};
            at[T] = of_T;
            at[y] = find(branch.of_T)(at);
            const double ps = find(branch.p_of)(at);
            found[T] = *branch.T_of == '\0' ? call<TSATOP>(ps) : find(branch.T_of)(at);
            ASSERT_TRUE(found[T] > 0 && ps > 0) << digits(find(branch.p_of), at);
            const auto value_at = [&](double of) { return at[T] = of, find(branch.of_T)(at); };
            const double spacing = std::fabs(value_at(up(found[T])) - value_at(down(found[T])));
            const double noise = of_T > T_13 ? std::max(2e-11, 5e-11 / (T_crit - of_T)) : 1e-12;
            EXPECT_NEAR(find(branch.of_T)(found), at[y],
                        noise * (std::fabs(at[y]) + (y == h ? 126 : 0.46)) + spacing)
                << branch.of_T << digits(find(branch.p_of), at);
            EXPECT_NEAR(found[T], of_T, 0.06)
                << digits(find(branch.p_of), at);  // the branch, where flat too
            EXPECT_NEAR(ps / call<PBT>(found[T]), 1, 1e-13) << digits(find(branch.p_of), at);
            if (*branch.d_of == '\0') continue;
            EXPECT_NEAR(find(branch.d_of)(at) / find(branch.d_of_T)(found), 1, noise)
                << digits(find(branch.p_of), at);
            EXPECT_NEAR(find(branch.v_of)(at) * find(branch.d_of)(at), 1, 1e-15)
                << digits(find(branch.p_of), at);
        }
    }
}

}  // namespace
