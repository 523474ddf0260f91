// SPDX-License-Identifier: MIT
#include "pairs.hpp"

#include <algorithm>
#include <iterator>
#include <limits>

#include "tables.hpp"
#include "wet.hpp"

namespace vaprix::cli {
namespace {

template <Getter of, std::size_t which>
State wet_by(double x, double value, Family family) {
    return wet_of_x(x, value, of, family, which);
}

constexpr Known pairs[] = {
    {"p", "T", of_pt, nullptr},
    {"p", "h", of_ph, nullptr},
    {"p", "s", of_ps, nullptr},
    {"p", "v", of_pv, cold_of_pv},
    {"p", "d", of_pd, nullptr},
    {"p", "x", of_px, nullptr},
    {"T", "x", of_tx, nullptr},
    {"T", "d", of_td, nullptr},
    {"T", "v", of_tv, nullptr},
    {"T", "h", of_th, next_of_th},
    {"T", "s", of_ts, next_of_ts},
    {"h", "s", of_hs, nullptr},
    {"v", "h", of_vh, nullptr},
    {"v", "s", of_vs, nullptr},
    {"d", "h", of_dh, nullptr},
    {"d", "s", of_ds, nullptr},
    {"x", "h", wet_by<&State::h, 0>, wet_by<&State::h, 1>},
    {"x", "s", wet_by<&State::s, 0>, wet_by<&State::s, 1>},
    {"x", "v", wet_by<&State::v, 0>, wet_by<&State::v, 1>},
    {"x", "d", wet_by<&State::d, 0>, wet_by<&State::d, 1>},
};

bool is_saturated(const State& state) noexcept {
    return state.region() == 4 || state.x() == 0 || state.x() == 1;
}

}  // namespace

const Known* find_pair(std::string_view first, std::string_view second) noexcept {
    const auto* const found =
        std::find_if(std::begin(pairs), std::end(pairs), [&](const Known& pair) {
            return (pair.first == first && pair.second == second) ||
                   (pair.first == second && pair.second == first);
        });
    return found == std::end(pairs) ? nullptr : found;
}

double superheat_of(const State& state) noexcept {
    if (state.p() >= p_crit || is_saturated(state)) return std::numeric_limits<double>::quiet_NaN();
    return state.T() - liquid_of_p(state.p()).T();
}

std::string_view phase_of(const State& state) noexcept {
    if (is_saturated(state))
        return state.x() == 0   ? "saturated liquid"
               : state.x() == 1 ? "saturated steam"
                                : "wet steam";
    const bool hot = state.T() >= T_crit;
    if (state.p() >= p_crit) return hot ? "supercritical fluid" : "compressed liquid";
    return !hot && superheat_of(state) < 0 ? "subcooled liquid" : "superheated steam";
}

std::string_view region_in_words(const State& state) noexcept {
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
