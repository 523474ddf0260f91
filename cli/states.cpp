// SPDX-License-Identifier: MIT
#include "states.hpp"

#include <algorithm>

#include "units.hpp"

namespace vaprix::cli {
namespace {

struct Known {
    std::string_view first, second;
    Resolver of, other;
};
constexpr Known pairs[] = {
    {"p", "T", of_pt, nullptr},    {"p", "h", of_ph, nullptr},    {"p", "s", of_ps, nullptr},
    {"p", "v", of_pv, cold_of_pv}, {"p", "d", of_pd, nullptr},    {"p", "x", of_px, nullptr},
    {"T", "x", of_tx, nullptr},    {"T", "d", of_td, nullptr},    {"T", "v", of_tv, nullptr},
    {"T", "h", of_th, next_of_th}, {"T", "s", of_ts, next_of_ts}, {"h", "s", of_hs, nullptr},
    {"v", "h", of_vh, nullptr},    {"v", "s", of_vs, nullptr},    {"d", "h", of_dh, nullptr},
    {"d", "s", of_ds, nullptr},
};

const Known* find_pair(std::string_view first, std::string_view second) {
    const auto* const found =
        std::find_if(std::begin(pairs), std::end(pairs), [&](const Known& pair) {
            return (pair.first == first && pair.second == second) ||
                   (pair.first == second && pair.second == first);
        });
    return found == std::end(pairs) ? nullptr : found;
}

}  // namespace

Pair pair_of(std::string_view first, std::string_view second) {
    const Known* const found = find_pair(first, second);
    if (found == nullptr)
        throw Error(
            "no state is found by " + std::string(first) + " and " + std::string(second) +
            "; give p or T with one of p, T, v, d, h, s, x, or h or s with one of v, d, h, s");
    return {found->of, found->first != first};
}

Resolver other_of(std::string_view first, std::string_view second) {
    const Known* const found = find_pair(first, second);
    return found == nullptr ? nullptr : found->other;
}

Family family_of(std::string_view letter) { return letter == "B" ? Family::B : Family::O; }

std::string meaning_of(int code) {
    const auto found = std::find_if(codes.begin(), codes.end(),
                                    [&](const Code& known) { return known.code == code; });
    return found == codes.end() ? "" : std::string(found->meaning);
}

std::string phase_of(const State& state) {
    if (state.region() == 4 || state.x() == 0 || state.x() == 1)
        return state.x() == 0   ? "saturated liquid"
               : state.x() == 1 ? "saturated steam"
                                : "wet steam";
    const bool hot = state.T() >= T_crit;
    if (state.p() >= p_crit) return hot ? "supercritical fluid" : "compressed liquid";
    const double superheat = hot ? 1 : state.T() - liquid_of_p(state.p()).T();
    return superheat < 0 ? "subcooled liquid" : "superheated steam";
}

std::string_view region_in_words(const State& state) {
    switch (state.region()) {
        case 1: return "region 1, liquid";
        case 2: return "region 2, steam";
        case 3: return "region 3, near and above the critical point";
        case 4: return "region 4, wet steam";
        case 5: return "region 5, high-temperature steam";
        default: return "outside all regions";
    }
}

}  // namespace vaprix::cli
