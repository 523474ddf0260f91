// SPDX-License-Identifier: MIT
// Every pair of variables that a state can be found by: what the exports of the pair answer gives
// back both variables, agrees among all of them, with their region and between the families.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "reference/published.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace bound;
using namespace strata;
using reference::Deviations;

// A row: the exports of a pair, none where the variable is given or has none. The pair is that of
// the arguments of the first of them.
struct Row {
    const char* region;
    const char *p_o, *T_o, *v_o;
    const char *p_b, *T_b, *d_b;
    const char* others;  // reproduce other properties of the state found; both families alike
    enum { exact, backward } b;
    const char* z = "";  // letter of the export of the second solution
};
const Row rows[] = {
    {"REGIONPH", "", "TOPH", "VOPH", "", "TBPH", "DBPH", "DOPH SOPH XOPH CPOPH WOPH",
     Row::backward},
    {"REGIONPS", "", "TOPS", "VOPS", "", "TBPS", "DBPS", "DOPS HOPS XOPS CPOPS WOPS",
     Row::backward},
    {"REGIONPV", "", "TOPV", "", "", "TBPV", "", "HOPV SOPV XOPV CPOPV WOPV HBPV SBPV CPBPV WBPV",
     Row::exact},
    {"REGIONPVZ", "", "TOPVZ", "", "", "TBPVZ", "", "", Row::exact, "Z"},
    {"REGIONPV", "", "TODP", "", "", "", "", "", Row::exact},
    {"REGIONPVZ", "", "TODPZ", "", "", "", "", "", Row::exact, "Z"},
    {"REGIONHS", "POHS", "TOHS", "VOHS", "PBHS", "TBHS", "DBHS", "DOHS", Row::backward},
    {"REGIONTH", "POTH", "", "VOTH", "PBTH", "", "", "DOTH", Row::exact},
    {"REGIONTHZ", "POTHZ", "", "VOTHZ", "PBTHZ", "", "", "DOTHZ", Row::exact, "Z"},
    {"REGIONTS", "POTS", "", "VOTS", "PBTS", "", "", "DOTS", Row::exact},
    {"REGIONTSZ", "POTSZ", "", "VOTSZ", "PBTSZ", "", "", "DOTSZ", Row::exact, "Z"},
    {"REGIONTV", "POTV", "", "", "PBTV", "", "", "", Row::exact},
    {"REGIONTV", "POTD", "", "", "", "", "", "HOTD SOTD XOTD CPOTD WOTD", Row::exact},
    {"REGIONHV", "POVH", "TBVH", "", "PBVH", "TBVH", "", "", Row::exact},
    {"REGIONSV", "POVS", "TBVS", "", "PBVS", "TBVS", "", "", Row::exact},
    {"REGIONHV", "POVH", "TODH", "", "", "", "", "", Row::exact},
    {"REGIONSV", "POVS", "TODS", "", "", "", "", "", Row::exact},
};

double ask_for(const char* name, const Values& at, double given) {
    return *name == '\0' ? given : find(name)(at);
}

// A variable of the state found, by the equation of its region.
double property(Name of, int region, const Values& at) {
    const std::string letter = of == h ? "H" : of == s ? "S" : "V";
    if (region == 3)
        return of == p   ? published::State<double>(3, 1 / at[v], at[T]).p()
               : of == v ? at[v]
                         : find(letter + "VT3N")(at);
    if (region != 4)
        return of == p ? at[p] : find(letter + "PT" + std::to_string(region) + "N")(at);
    if (of == p || of == v) return of == p ? call<PBT>(at[T]) : at[v];
    const double liquid = find(letter + "1BT")(at), vapour = find(letter + "2BT")(at);
    return liquid + at[x] * (vapour - liquid);
}

// What double arithmetic leaves: 1e-12 of the variable, h against R T and s against R where these
// are more; p of region 3 to what its sum keeps; next to the critical point coexisting densities are
// known to 1e-10 only.
double allowed(Name of, int region, const Values& at) {
    const double floor = of == h ? R * at[T] : of == s ? R : 0;
    const double near = region >= 3 ? 1e-13 / std::fabs(at[T] / T_crit - 1) : 0;
    const double relative = of == p && region == 3 ? 1e-11 : 1e-12;
    return std::max(relative, std::min(near, 1e-8)) * std::max(std::fabs(at[of]), floor);
}

// One state by one pair.
class Finding {
public:
    Finding(const Row& row_, const Stratum& stratum_, const State& at_, Deviations& deviations_)
        : row(row_),
          stratum(stratum_),
          at(at_),
          deviations(deviations_),
          function(find(*row.T_o != '\0' ? row.T_o : row.p_o)),
          f(at) {
        f[p] = ask_for(row.p_o, at, at[p]);
        f[T] = ask_for(row.T_o, at, at[T]);
        f[v] = ask_for(row.v_o, at, at[v]);
        f[d] = 1 / f[v];
        region = reported = static_cast<int>(find(row.region)(at));
        if (region == 0) return;
        const double v1 = call<V1BT>(f[T]), v2 = call<V2BT>(f[T]);
        f[x] = v1 == v2 ? 0.5 : (f[v] - v1) / (v2 - v1);
        // Above p(623.15 K) the families of (p, h) tell wet steam in two ways.
        if (!given(p) || (region != 3 && region != 4) || !(at[p] > p_13 && at[p] < p_crit)) return;
        const double from_line = std::fabs(f[T] - call<TOP>(at[p]));
        region = from_line == 0 ? 4 : 3;
        stopped = region == 3 && from_line < 2e-12;
    }

    void check() {
        if (region == 0) return at[p] < p_low ? void() : check_refusal();
        ASSERT_TRUE(f[p] > 0 && f[T] > 0 && f[v] > 0 && std::isfinite(f[p] + f[T] + f[v]))
            << tell();
        check_residuals();
        check_limits();
        for (const std::string& name : split(row.others, ' '))
            check_other(name, name.substr(0, name.find_first_of("OB")));
        check_b();
        if (*row.z == '\0' && (inside() || owned())) check_state();
    }
    // Whether the pressure is that of the state asked for.
    bool found() const {
        return region != 0 && std::fabs(f[p] / at[p] - 1) < std::max(1e-4, 1e-7 / at[p]);
    }
    bool of_isotherm() const { return given(T) && (given(h) || given(s)); }

private:
    bool inside() const { return stratum.place == Place::inside; }
    bool given(Name name) const {
        const auto& inputs = function.inputs;
        return std::count(inputs.begin(), inputs.end(), name) != 0 || (name == v && given(d));
    }
    std::string tell() const {
        return digits(function, at) + " (" + stratum.name + digits(find("HOTX"), at).substr(4) +
               "): region " + std::to_string(region) + digits(find("VISCVT"), f).substr(6);
    }
    void close(const std::string& name, double got, double want, double most) const {
        deviations.check(name, got, want, most, 1, [this] { return tell(); });
    }
    void check_refusal() const {
        EXPECT_NE(*row.z, '\0') << "outside: " << tell();
        for (const char* name : {row.p_o, row.T_o, row.v_o, row.p_b, row.T_b, row.d_b})
            EXPECT_EQ(ask_for(name, at, failed), failed) << name << " of " << tell();
    }
    // Both variables come back, and v is that of the state: from a single phase, or from the mixture
    // beside the line; of (h, s) near a boundary the O-family decides by its own equations.
    void check_residuals() const {
        int of = stopped && !reproduced(3) ? 4 : region;
        for (const int other : {1, 2, 3, 4, 5})
            if (given(h) && given(s) && !reproduced(of) && reproduced(other)) of = other;
        for (const Name name : {p, v, h, s}) {
            if (!given(name) && name != v) continue;
            close(function.name + " " + std::to_string(of) + spelling[name], property(name, of, f),
                  wanted(name), (given(h) && given(s) ? 3 : 1) * allowed(name, of, f));
        }
    }
    double wanted(Name name) const { return name == v ? f[v] : at[name]; }
    bool reproduced(int of) const {
        for (const Name name : {p, v, h, s})
            if ((given(name) || name == v) &&
                !(std::fabs(property(name, of, f) - wanted(name)) <= allowed(name, of, f)))
                return false;
        return true;
    }
    // The forward functions take the state: it lies within the limits and apart from the line.
    void check_limits() const {
        constexpr double slack = 1 + 1e-6;
        EXPECT_TRUE(f[T] * slack >= T_low && f[T] <= T_high * slack && f[p] * slack >= p_low &&
                    f[p] <= p_high * slack)
            << tell();
        const bool strict = (given(p) && !given(v)) || (given(T) && given(v));
        // vapour on the line at 273.15 K has its pressure a little below the range
        const bool coldest_vapour = region == 2 && f[p] < p_low;
        EXPECT_TRUE(!strict || region == 4 || coldest_vapour || call<REGIONPT>(f[p], f[T]) != 0)
            << tell();
        if (given(h) && given(s) && (region == 2 || region == 3) && f[T] > T_13 && f[T] < T_23) {
            const double beyond =
                f[p] / call<FB23>(f[T]) - 1;  // some state has h and s, so that its region does
            EXPECT_TRUE(std::fabs(beyond) < 1e-9 || (beyond > 0) == (region == 3)) << tell();
        }
        if (region != 3 || f[T] > T_crit - 1e-9 || f[p] > p_crit) return;
        const bool dense = f[d] > 322;
        if (given(p)) {
            EXPECT_GT(std::fabs(f[T] - call<TOP>(f[p])), 0.85e-12) << tell();
            EXPECT_TRUE(stopped || f[p] > 22.06 || dense == (f[T] < call<TOP>(f[p]))) << tell();
        } else if (of_isotherm()) {
            EXPECT_GT(std::fabs(f[p] / call<PBT>(f[T]) - 1), 0.85e-12) << tell();
            EXPECT_TRUE(f[T] > 647 || dense == (f[p] > call<PBT>(f[T]))) << tell();
        }
    }
    // Other properties are those of the state found; cp and w have no wet steam, the quality nothing else.
    void check_other(const std::string& name, const std::string& letters) const {
        const double got = find(name)(at);
        const bool wet = region == 4;
        const Name of = letters == "H" ? h : letters == "S" ? s : v;
        if (letters == "D") return close(name, got, f[d], 1e-15 * f[d]);
        if (of != v)
            return stopped ? void()
                           : close(name, got, property(of, region, f), 2 * allowed(of, region, f));
        if (!inside() && reported == region) return;
        const bool answers = (letters == "X") == wet && reported == region;  // else disputed
        const double want = !answers ? failed : wet ? at[x] : find(letters + "OTD")(f);
        close(name, got, want, wet ? 1e-9 : 1e-6 * std::fabs(want));
    }
    // Without published backward equations both families answer the same; else B is within what the
    // releases permit, told inside the regions.
    void check_b() const {
        if (row.b == Row::exact) {
            EXPECT_EQ(ask_for(row.p_b, at, f[p]), f[p]) << tell();
            EXPECT_EQ(ask_for(row.T_b, at, f[T]), f[T]) << tell();
            return;
        }
        if (!inside() || region != at.region) return;
        const double p_error = region == 1 ? std::max(0.006, 0.015 / f[p]) : 1.01e-4;
        const double T_error = region == 5 ? 2.5e-3 : region == 4 && given(p) ? 1e-9 : 0.0255;
        const std::string name = function.name + " B " + std::to_string(region);
        close(name + "p", ask_for(row.p_b, at, at[p]), at[p], p_error * at[p]);
        close(name + "T", ask_for(row.T_b, at, f[T]), f[T], T_error);
        close(name + "d", ask_for(row.d_b, at, f[d]), f[d], (region == 3 ? 2e-3 : 5e-4) * f[d]);
    }
    // On a limit of two regions that (p, T) gives to one: that one reproduces the pair and answers.
    bool owned() const {
        const bool on_b23 = at.region == 2 && at[p] == call<FB23>(at[T]) && at[T] < T_23;
        return !given(T) && (given(v) || !given(p)) && at[p] > 0.01 && at.region != 4 &&
               (at[T] == T_13 || at[T] == T_25 || on_b23);
    }
    void check_state() const {
        if (of_isotherm()) return;  // of liquid and its wet twin, the latter
        EXPECT_EQ(region, at.region) << tell();
        close(function.name + " T", f[T], at[T], 1e-5 * at[T]);
    }

    const Row& row;
    const Stratum& stratum;
    const State& at;
    Deviations& deviations;
    const Export& function;
    Values f;                      // what was found
    int region = 0, reported = 0;  // of the state found; by its export
    bool stopped = false;          // beside the saturation line
};

TEST(Pairs, GiveBackBothVariables) {
    Deviations deviations;  // as multiples of what is allowed
    sweep(0.02, 100, [&](const Stratum& stratum, const State& at) {
        // (p, T) is open by 1e-12 K at two ends, the pairs are not.
        if (at[T] < T_low || (at[T] > T_25 && at.region == 2)) return;
        bool found = false;
        for (const Row& row : rows) {
            Finding finding(row, stratum, at, deviations);
            finding.check();
            // A state of (T, h) or (T, s) is one of the two that the exports answer.
            if (!finding.of_isotherm() || stratum.place != Place::inside) continue;
            found = (*row.z != '\0' && found) || finding.found();
            EXPECT_TRUE(found || *row.z == '\0')
                << row.region << digits(find("HOPT"), at) << stratum.name;
        }
    });
}

}  // namespace
