// SPDX-License-Identifier: MIT
//
// The largest error of every export in every region, over all strata and the neighbours of their
// states, in quadruple precision: of its value, against the published equations term by term at the
// state that its resolver finds, and of that state, against the variables given (the residual).
// Usage: statement statement.csv states [--check]
//        states: how many a stratum;  --check: fails where an error is beyond the file's, see below
#include <algorithm>
#include <atomic>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <optional>
#include <thread>
#include <tuple>

#include "reference/elementary.hpp"
#include "reference/properties.hpp"
#include "strata.hpp"

#include "exports/functions.hpp"

namespace {

using bound::Values;
using reference::Known;
using reference::Quad;
using namespace vaprix;
using namespace vaprix::inverse;

// What is asked of a resolver: what the export asks, since a B-family's state depends on it, and what
// judges it.
template <const auto& property>
constexpr Asked measured =
    property.asked | Asked{.p = true, .t = true, .single = !property.asked.density, .wet = true};
using Resolve = vaprix::State (*)(const Values&, int);
struct Row {
    const char *name, *property;  // the letters of the property in the name
    std::size_t resolver;
    bool backward, on_line;  // it may have a published backward equation; it finds saturated states
    std::vector<bound::Name> given;  // what the state found should give back
};
#include "rows.inc"

// What a value should be, and what its error is measured against.
struct Wanted {
    Quad value, scale;
};
Wanted of_size(Quad value) { return {value, reference::magnitude(value)}; }

// The single phases of a sample, whose sums are evaluated once, and the coexisting densities.
thread_local std::map<std::tuple<int, double, double, double>, Known> phases;
thread_local std::map<double, reference::Coexistence> coexisting;
const Known& phase(const vaprix::State& at) {
    const int region = static_cast<int>(at.region);
    const double first = at.region == Region::three ? at.d : at.p;
    return phases.try_emplace({region, first, at.t, at.p}, region, first, at.t, at.p).first->second;
}

std::optional<Wanted> property_of(const std::string& letters, const vaprix::State& at) {
    const bool vaporisation = letters == "HVAP" || letters == "SVAP";
    const auto found = reference::properties.find(vaporisation ? letters.substr(0, 1) : letters);
    if (found == reference::properties.end()) return {};
    const auto of = [&](const Known& x) {
        return Wanted{found->second.of(x), reference::scale_of(found->second, x)};
    };
    if (at.region != Region::wet) return of(phase(at));
    const Known &liquid = phase(liquid_end(at)), &vapour = phase(vapour_end(at));
    if (letters == "D" || letters == "Z") {
        const Quad v = liquid.v() + at.x * (vapour.v() - liquid.v());
        return of_size(letters == "D" ? 1 / v : 1000 * at.p * v / (reference::gas_constant * at.t));
    }
    const Wanted low = of(liquid), high = of(vapour);
    const Quad change = high.value - low.value;
    return Wanted{vaporisation ? change : low.value + at.x * change,
                  std::max(low.scale, high.scale)};
}

// T of p and of h or s by the backward equations of regions 1 to 3.
Quad t_backward(int region, bool of_s, Quad p, Quad y) {
    using namespace published;
    if (region == 1) return of_s ? of<Quad, "t1_ps">()(p, y) : of<Quad, "t1_ph">()(p, y);
    if (region == 2) return of_s ? t2_ps<Quad>(p, y)(p, y) : t2_ph<Quad>(p, y)(p, y);
    return of_s ? t3_ps<Quad>(p, y)(p, y) : t3_ph<Quad>(p, y)(p, y);
}

// A saturated density of region 3; closer to the critical point it is an estimate.
std::optional<Wanted> saturated_density(const vaprix::State& at) {
    if (at.t > T_crit - 4e-5) return {};
    const auto [found, is_new] = coexisting.try_emplace(at.t);
    auto& exact = found->second;
    if (is_new) {
        const auto start = dsat3(at.t, at.p);
        exact = reference::coexistence3(at.t, start.vapour, start.liquid);
    }
    return of_size(at.d > d_crit ? exact.liquid : exact.vapour);
}

// The value of an export: variables of the state itself by an equation of theirs, where one is
// published; none for what a search has found, which the residual judges.
std::optional<Wanted> value_of(const Row& row, const vaprix::State& at) {
    const std::string letters = row.property;
    const bool saturated = row.on_line || at.region == Region::wet;
    if (letters == "DTBPD") return of_size(published::tsat_p<Quad>(at.p));
    if (letters == "P" || letters == "PSAT") {
        if (saturated) return of_size(published::psat<Quad>(at.t));
        return at.region == Region::three ? property_of("P", at) : std::nullopt;
    }
    if (letters == "T" || letters == "TSAT") {
        const bool of_line = row.backward && row.given[0] == bound::p && saturated;
        return of_line ? std::optional(of_size(published::tsat<Quad>(at.p))) : std::nullopt;
    }
    if (at.region == Region::three && (letters == "V" || letters == "D")) {
        const auto d = saturated ? saturated_density(at) : std::nullopt;
        return d && letters == "V" ? of_size(1 / d->value) : d;
    }
    const bool of_end = at.region == Region::wet && (letters == "CP" || letters == "W");
    return property_of(letters, of_end ? (at.x < 0.5 ? liquid_end(at) : vapour_end(at)) : at);
}

// The same of exports that are functions of their arguments, without a state.
std::optional<Wanted> direct(const std::string& name, const Values& at) {
    using namespace published;
    const Quad p = at[bound::p], t = at[bound::T], v = at[bound::v], s = at[bound::s], e = 1e-12;
    const bool of_s = name == "TPS1N" || name == "TPS2N" || name == "TPS3N";
    if (of_s || name == "TPH1N" || name == "TPH2N" || name == "TPH3N")
        return of_size(t_backward(name[3] - '0', of_s, p, of_s ? s : at[bound::h]));
    if (name == "VPS3N") return of_size(v3_ps<Quad>(p, s)(p, s));
    if (name == "FB23") return of_size(published::p_b23(t));
    if (name == "VISCVT") return of_size(viscosity(t, 1 / v));
    if (name == "DVISCDT")
        return of_size((viscosity(t + e * t, 1 / v) - viscosity(t - e * t, 1 / v)) / (2 * e * t));
    if (name == "DVISCDV")
        return of_size((viscosity(t, 1 / (v + e * v)) - viscosity(t, 1 / (v - e * v))) /
                       (2 * e * v));
    if (at[bound::T] > T_crit) return {};
    if (name == "SIGBT" || name == "SIGOT") return of_size(surface_tension(t) / 1000);
    if (name == "DLEST") return of_size(d_liquid_estimate(t));
    return name == "DVEST" ? std::optional(of_size(d_vapour_estimate(t))) : std::nullopt;
}

// --- what is measured ---

constexpr double unknown = -1;
struct Errors {
    double ulp = unknown, relative = unknown, residual = unknown;
    int states = 0;
    std::string at{};

    void add(const std::optional<Wanted>& value, double got, double of_state,
             const bound::Export& function, const Values& given) {
        ++states;
        bool worse = !value && of_state > residual;
        residual = std::max(residual, of_state);
        if (value && !(value->value == got)) {
            const Quad error = reference::magnitude(got - value->value);
            const int last = std::ilogb(static_cast<double>(value->value)) - 52;
            ulp = std::max(ulp, std::ldexp(static_cast<double>(error), -last));
            worse = static_cast<double>(error / value->scale) > relative;
            relative = std::max(relative, static_cast<double>(error / value->scale));
        } else if (value) {
            ulp = std::max(ulp, 0.0), relative = std::max(relative, 0.0);
        }
        if (worse) at = bound::digits(function, given).substr(function.name.size());
    }
    void merge(const Errors& other) {
        states += other.states;
        if (other.relative > relative || (relative < 0 && other.residual > residual)) at = other.at;
        ulp = std::max(ulp, other.ulp), relative = std::max(relative, other.relative);
        residual = std::max(residual, other.residual);
    }
};
using Statement = std::map<std::pair<std::string, std::string>, Errors>;

// The number of the region, 4 of wet steam; beside the critical point, where digits are lost, "c".
std::string label(Region region, double t) {
    const bool dense = region == Region::three || region == Region::wet;
    if (dense && std::fabs(t - T_crit) < 0.01) return "c";
    return region == Region::wet ? "4" : std::to_string(static_cast<int>(region));
}

double residual_of(const Row& row, const vaprix::State& at, const Values& given) {
    double worst = 0;
    for (const bound::Name name : row.given) {
        Wanted found = of_size(at.t);
        if (name == bound::p && (row.on_line || at.region == Region::wet)) {
            found = of_size(published::psat<Quad>(at.t));
        } else if (name != bound::T) {
            found = *property_of(
                std::string(1, static_cast<char>(std::toupper(*bound::spelling[name]))), at);
        }
        const Quad error = reference::magnitude(found.value - given[name]) / found.scale;
        worst = std::max(worst, static_cast<double>(error));
    }
    return worst;
}

double result_of(const bound::Export& function, const Values& at) {
    bound::Pointers in;
    for (unsigned k = 0; k < bound::names; ++k) in[k] = &at[k];
    int region = 0;
    double result = 0;
    const double value = function(in, &region, &result);
    // a refusal, and the zeros and infinities that stand for one
    const bool refused = !std::isfinite(value) || value == 0 || std::fmod(value, failed) == 0;
    return refused ? bound::not_a_number : value;
}

void measure(const strata::State& sampled, strata::Random& random, Statement& statement) {
    Values at = sampled;  // a third of them moved to neighbours
    if (random.integer(0, 2) == 0)
        for (double& value : at)
            value = strata::steps(value, static_cast<int>(random.one_of({-8, -2, -1, 0, 1, 2, 8})));
    for (const bound::Export& function : bound::exports()) {
        const double value =
            function.is_for(sampled.region) ? result_of(function, at) : bound::not_a_number;
        const auto wanted = std::isnan(value) ? std::nullopt : direct(function.name, at);
        const bool of_line = function.inputs.size() == 1 || sampled.region == 4;
        const Region region = of_line ? Region::wet : Region{sampled.region};
        if (wanted)
            statement[{function.name, label(region, at[bound::T])}].add(wanted, value, unknown,
                                                                        function, at);
    }
    phases.clear(), coexisting.clear();
    std::array<std::optional<vaprix::State>, std::size(resolvers)> states;
    for (const Row& row : rows) {
        const bound::Export& function = bound::find(row.name);
        if (!function.is_for(sampled.region)) continue;
        auto& state = states[row.resolver];
        if (!state) state = resolvers[row.resolver](at, 0);
        const double value = result_of(function, at);
        if (state->region == Region::none || std::isnan(value)) continue;
        if (state->t == 0) state->t = bound::find("TBHS")(at);  // what (h, s) gives last
        statement[{row.name, label(state->region, state->t)}].add(
            value_of(row, *state), value, residual_of(row, *state, at), function, at);
    }
}

// Beside those of the tests: shells around the critical point, the density maximum of cold liquid.
std::vector<strata::Stratum> all_strata() {
    using strata::Place, strata::Point, strata::Random;
    auto all = strata::strata;
    all.push_back({"critical point, 1e-9 to 1e-1", Place::boundary, [](Random& r) {
                       return Point{p_crit + r.offset(1e-9, 0.1), T_crit + r.offset(1e-9, 0.1)};
                   }});
    all.push_back({"density maximum", Place::boundary, [](Random& r) {
                       const double p = r.pressure(0.001, 19);
                       const double t = 277.1333942 - 0.2007841919 * p - 0.0005037450669 * p * p;
                       return Point{p, t + r.offset(1e-9, 1)};
                   }});
    return all;
}

// The first states of a stratum are the same however many are asked for.
Statement measure_all(int states_each) {
    const auto all = all_strata();
    std::vector<Statement> of_stratum(all.size());
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t k = next++; k < all.size(); k = next++) {
            strata::Random random(900 + k);
            for (int n = 0; n < states_each; ++n) {
                const strata::State at = strata::state(all[k].sample(random));
                if (at.region != 0) measure(at, random, of_stratum[k]);
            }
        }
    };
    std::vector<std::thread> threads;
    for (unsigned k = std::thread::hardware_concurrency(); k > 0; --k) threads.emplace_back(work);
    for (std::thread& each : threads) each.join();
    Statement whole;
    for (const Statement& part : of_stratum)
        for (const auto& [key, errors] : part) whole[key].merge(errors);
    return whole;
}

// Two digits, small ones of a number of units as they are read.
std::string cell(double number) {
    char text[32] = "";
    const char* const form = number >= 10 && number < 1e4 ? "%.0f" : "%.2g";
    if (number != unknown) std::snprintf(text, sizeof text, form, number);
    return text;
}

void write(const char* path, const Statement& statement) {
    std::ofstream file(path);
    file << "# Made by tools/statement: the largest errors of exports by region of the state: 4 if "
            "wet, c within\n# 10 mK of the critical point.\n"
            "export,region,states,max_ulp,max_relative,residual,at\n";
    for (const auto& [key, errors] : statement)
        file << key.first << ',' << key.second << ',' << errors.states << ',' << cell(errors.ulp)
             << ',' << cell(errors.relative) << ',' << cell(errors.residual) << ',' << errors.at
             << '\n';
}

// Worse than twice what is stated: other arithmetic has worst states of its own, and the statement
// has seen many more states than a test.
int check(const char* path, const Statement& statement) {
    constexpr double margin = 2, rounding = 0x1p-51;
    const published::Table stated = published::read_file(path);
    Statement by_key;
    const auto number = [&](std::size_t row, const char* column) {
        return stated.cell(row, column).empty() ? unknown : stated.number(row, column);
    };
    for (std::size_t row = 0; row < stated.rows.size(); ++row)
        by_key[{stated.cell(row, "export"), stated.cell(row, "region")}] = {
            .relative = number(row, "max_relative"), .residual = number(row, "residual")};
    int worse = 0;
    for (const auto& [key, errors] : statement) {
        const Errors& limit = by_key[key];
        const bool good = errors.relative <= std::max(margin * limit.relative, rounding) &&
                          errors.residual <= std::max(margin * limit.residual, rounding);
        worse += good ? 0 : 1;
        if (!good)
            std::printf("%s region %s: %g, residual %g; stated %g, %g; at%s\n", key.first.c_str(),
                        key.second.c_str(), errors.relative, errors.residual, limit.relative,
                        limit.residual, errors.at.c_str());
    }
    std::printf("%zu exports by region, %d worse than stated\n", statement.size(), worse);
    return worse == 0 && statement.size() > 1000 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const Statement statement = measure_all(std::atoi(argv[2]));
    if (argc > 3) return check(argv[1], statement);
    write(argv[1], statement);
    return 0;
}
