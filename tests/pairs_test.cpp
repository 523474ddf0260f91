// SPDX-License-Identifier: MIT
// Every pair of variables that a state can be found by: what the exports of the pair answer gives
// back both variables, agrees among all of them, with their region and between the families.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "bound.hpp"
#include "strata.hpp"

namespace {

using namespace bound;
using namespace strata;

// What is promised and not yet built is asked for with VAPRIX_MENDED.
constexpr bool mended = VAPRIX_MENDED;

// Pressure of region 3 from its published equation: wet steam and metastable states have one too.
double p3(double of_d, double of_T) {
    struct Term {
        int I, J;
        long double n;
    };
    static const std::vector<Term> terms = [] {
        std::vector<Term> all;
        std::ifstream table(VAPRIX_PUBLISHED "/if97/t30_region3.csv");
        for (std::string line; std::getline(table, line);) {
            int I = 0, J = 0;
            double row = 0;
            char n[40] = "";
            if (std::sscanf(line.c_str(), "%lf,%d,%d,%39s", &row, &I, &J, n) == 4)
                all.push_back({I, J, std::strtold(n, nullptr)});
            else if (std::sscanf(line.c_str(), "1,,,%39s", n) == 1)
                all.push_back({0, 0, std::strtold(n, nullptr)});
        }
        return all;
    }();
    EXPECT_EQ(terms.size(), 40U);
    const long double delta = of_d / 322.0L, tau = 647.096L / of_T;
    long double sum = terms[0].n;  // delta phi_delta
    for (const Term& term : terms)
        if (term.I != 0) sum += term.I * term.n * std::pow(delta, term.I) * std::pow(tau, term.J);
    return static_cast<double>(of_d * static_cast<long double>(R) * of_T * sum / 1000);
}

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

// Worst residual per name, as multiples of what is allowed; said at the end, failed on the way.
class Worst {
public:
    ~Worst() {
        for (const auto& [name, one] : worst_)
            std::printf("%-32s %8.1e of what is allowed, at %s\n", name.c_str(), one.first,
                        one.second.c_str());
    }
    template <class Where>
    void check(const std::string& name, double got, double want, double allowed,
               const Where& where) {
        const double size = got == want ? 0 : std::fabs(got - want) / allowed;
        auto& [most, at] = worst_.try_emplace(name, -1.0, "").first->second;
        if (!(size <= most)) most = size, at = where();
        if (!(size <= 1) && ++failures_[name] <= 3)
            ADD_FAILURE() << name << " of " << where() << ": " << testing::PrintToString(got)
                          << ", not " << testing::PrintToString(want) << ", off by " << size
                          << " of what is allowed";
    }

private:
    std::map<std::string, std::pair<double, std::string>> worst_;
    std::map<std::string, int> failures_;
};

// A variable of the state found, by the equation of its region.
double property(Name of, int region, const Values& at) {
    const std::string letter = of == h ? "H" : of == s ? "S" : "V";
    if (region == 3)
        return of == p ? p3(1 / at[v], at[T]) : of == v ? at[v] : find(letter + "VT3N")(at);
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
    Finding(const Row& row_, const Stratum& stratum_, const State& at_, Worst& worst_)
        : row(row_),
          at(at_),
          worst(worst_),
          inside(stratum_.place == Place::inside),
          function(find(*row.T_o != '\0' ? row.T_o : row.p_o)),
          stratum(stratum_),
          f(at) {
        f[p] = ask_for(row.p_o, at, at[p]);
        f[T] = ask_for(row.T_o, at, at[T]);
        f[v] = ask_for(row.v_o, at, at[v]);
        f[d] = 1 / f[v];
        region = static_cast<int>(find(row.region)(at));
        if (region == 0) return;
        // Above p(623.15 K) the families of (p, h) tell wet steam in two ways.
        const bool isobaric = given(p), in_3 = region == 3 || region == 4;
        if (isobaric && in_3 && at[p] > p_13 && at[p] < p_crit)
            region = f[T] == call<TOP>(at[p]) ? 4 : 3;
        const double v1 = call<V1BT>(f[T]), v2 = call<V2BT>(f[T]);
        f[x] = v1 == v2 ? 0.5 : (f[v] - v1) / (v2 - v1);
        stopped =
            region == 3 && isobaric && at[p] < p_crit && std::fabs(f[T] - call<TOP>(at[p])) < 2e-12;
    }

    bool given(Name name) const {
        return std::count(function.inputs.begin(), function.inputs.end(), name) != 0;
    }
    void check() {
        if (region == 0) return at[p] < p_low ? void() : check_refusal();
        ASSERT_TRUE(f[p] > 0 && f[T] > 0 && f[v] > 0 && std::isfinite(f[p] + f[T] + f[v]))
            << tell();
        check_residuals();
        check_limits();
        check_others();
        check_b();
        if (*row.z == '\0' && (inside || (mended && owned()))) check_state();
    }
    // Whether the pressure is that of the state asked for.
    bool found() const {
        return region != 0 && std::fabs(f[p] / at[p] - 1) < std::max(1e-4, 1e-7 / at[p]);
    }

private:
    std::string tell() const {
        return digits(function, at) + " (" + stratum.name + digits(find("HOPT"), at).substr(4) +
               ", " + testing::PrintToString(at[x]) + "): region " + std::to_string(region) +
               ", p " + testing::PrintToString(f[p]) + ", T " + testing::PrintToString(f[T]) +
               ", v " + testing::PrintToString(f[v]);
    }
    void check_refusal() const {
        EXPECT_NE(*row.z, '\0') << "outside: " << tell();
        for (const char* name : {row.p_o, row.T_o, row.v_o, row.p_b, row.T_b, row.d_b})
            EXPECT_TRUE(*name == '\0' || ask_for(name, at, 0) == failed)
                << name << " answers " << tell();
    }
    // Both variables come back: from a single phase, or from the mixture beside the line.
    void check_residuals() {
        if (stopped && !mended) return;
        // (h, s) near a boundary: the O-family decides by its own equations.
        int of = region;
        if (stopped && !reproduced(3)) of = 4;
        for (const int other : {1, 2, 3, 4, 5})
            if (given(h) && given(s) && !reproduced(of) && reproduced(other)) of = other;
        for (const Name name : {p, v, h, s}) {
            if (!given(name) && !(name == v && given(d)) && !(name == v && of != 3 && of != 4))
                continue;
            const double want = name == v ? f[v] : at[name];
            worst.check(row.region + std::string(" ") + function.name + " " + std::to_string(of) +
                            spelling[name],
                        property(name, of, f), want,
                        (given(h) && given(s) ? 3 : 1) * allowed(name, of, f),
                        [this] { return tell(); });
        }
    }
    bool reproduced(int as_region) const {
        for (const Name name : {p, v, h, s})
            if ((given(name) || name == v) &&
                !(std::fabs(property(name, as_region, f) - (name == v ? f : at)[name]) <=
                  allowed(name, as_region, f)))
                return false;
        return true;
    }
    // The forward functions take the state: it lies within the limits and apart from the line.
    void check_limits() const {
        constexpr double slack = 1e-6;
        EXPECT_TRUE(f[T] >= T_low * (1 - slack) && f[T] <= T_high * (1 + slack) &&
                    f[p] >= p_low * (1 - slack) && f[p] <= p_high * (1 + slack))
            << tell();
        const bool strict =
            (given(p) && (given(h) || given(s))) || (given(T) && (given(v) || given(d)));
        EXPECT_TRUE(!mended || !strict || region == 4 || call<REGIONPT>(f[p], f[T]) != 0) << tell();
        if (region != 3 || f[T] > T_crit - 1e-9 || f[p] > p_crit) return;
        const double ts = call<TOP>(f[p]), ps = call<PBT>(f[T]);
        if (given(p)) {
            EXPECT_GT(std::fabs(f[T] - ts), 0.85e-12) << tell();
            EXPECT_TRUE(stopped || f[p] > 22.06 || (f[d] > 322) == (f[T] < ts)) << tell();
        } else if (given(T) && !given(v) && !given(d)) {
            EXPECT_GT(std::fabs(f[p] / ps - 1), 0.85e-12) << tell();
            EXPECT_TRUE(f[T] > 647 || (f[d] > 322) == (f[p] > ps)) << tell();
        }
    }
    void check_others() const {
        std::istringstream names_of(row.others);
        for (std::string name; names_of >> name;) {
            const double got = find(name)(at);
            const std::string property_name = name.substr(0, name.find_first_of("OB"));
            const bool wet = region == 4;
            if (property_name == "D")
                worst.check(name, got, f[d], 1e-15 * f[d], [this] { return tell(); });
            if (property_name == "H" || property_name == "S") {
                const Name of = property_name == "H" ? h : s;
                if (!stopped)
                    worst.check(name, got, property(of, region, f), 2 * allowed(of, region, f),
                                [this] { return tell(); });
            }
            if (!inside || property_name.find_first_of("XCW") != 0) continue;
            if ((property_name == "X") != wet) {
                EXPECT_EQ(got, failed) << name << ' ' << tell();
            } else if (wet) {
                worst.check(name, got, at[x], 1e-9, [this] { return tell(); });
            } else {
                worst.check(name, got, find(property_name + "OTD")(f), 1e-6 * got,
                            [this] { return tell(); });
            }
        }
    }
    // Without published backward equations both families answer the same; else B is within what the
    // releases permit, told inside the regions.
    void check_b() const {
        if (row.b == Row::exact) {
            EXPECT_EQ(ask_for(row.p_b, at, f[p]), f[p]) << tell();
            EXPECT_EQ(ask_for(row.T_b, at, f[T]), f[T]) << tell();
            return;
        }
        if (!inside || region != at.region) return;
        const bool wet = region == 4, of_hs = given(h) && given(s);
        const double p_error = region == 1          ? std::max(0.006, 0.015 / f[p])
                               : region == 5 || wet ? 1e-4
                                                    : 1.01e-4;
        const double T_error = region == 5 ? 2.5e-3 : wet && !of_hs ? 0 : 0.0255;
        const double d_error = region == 3 ? 2e-3 : 5e-4;
        const std::string name = function.name + std::string(" B ") + std::to_string(region);
        if (*row.p_b != '\0')
            worst.check(name + "p", ask_for(row.p_b, at, 0), at[p], p_error * at[p],
                        [this] { return tell(); });
        worst.check(name + "T", ask_for(row.T_b, at, 0), f[T], T_error + 1e-4 * wet,
                    [this] { return tell(); });
        worst.check(name + "d", ask_for(row.d_b, at, 0), f[d], d_error * f[d],
                    [this] { return tell(); });
    }
    // On a limit of two regions that (p, T) gives to one: that one reproduces the pair and answers.
    bool owned() const {
        const bool wide = given(h) && given(s), at_v = (given(v) || given(d)) && !given(T);
        return (wide || at_v) && at[p] > 0.01 && at.region != 4 &&
               (at[T] == T_13 || at[T] == T_25 ||
                (at.region == 2 && at[p] == call<FB23>(at[T]) && at[T] < T_23));
    }
    void check_state() const {
        // Of liquid and its wet twins the plain export answers that of lowest pressure.
        if (std::string(row.region).substr(0, 7) == "REGIONT" && !given(v) && !given(d)) return;
        EXPECT_EQ(region, at.region) << tell();
        worst.check(function.name + " T", f[T], at[T], 1e-5 * at[T], [this] { return tell(); });
    }

    const Row& row;
    const State& at;
    Worst& worst;
    const bool inside;
    const Export& function;
    const Stratum& stratum;
    Values f;  // what was found
    int region = 0;
    bool stopped = false;  // beside the saturation line
};

TEST(Pairs, GiveBackBothVariables) {
    Worst worst;
    sweep(0.02, 100, [&](const Stratum& stratum, const State& at) {
        // (p, T) is open by 1e-12 K at two ends, the pairs are not.
        if (at[T] < T_low || (at[T] > T_25 && at.region == 2)) return;
        bool found = false;
        for (const Row& row : rows) {
            Finding finding(row, stratum, at, worst);
            finding.check();
            // A state of (T, h) or (T, s) is one of the two that the exports answer.
            const bool isotherm = std::string(row.region).substr(0, 8) == "REGIONTH" ||
                                  std::string(row.region).substr(0, 8) == "REGIONTS";
            if (!isotherm || stratum.place != Place::inside) continue;
            found = (*row.z != '\0' && found) || finding.found();
            EXPECT_TRUE(found || *row.z == '\0')
                << row.region << digits(find("HOPT"), at) << stratum.name;
        }
    });
}

}  // namespace
