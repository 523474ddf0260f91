// SPDX-License-Identifier: MIT
//
// The resolvers of the C++ interface: states of the catalogue's resolvers, with the volume and the density as the
// exports of the same pair and family round them.
#include "storage.hpp"

#include "inverse/of_hs.hpp"
#include "inverse/of_pv.hpp"
#include "inverse/of_py.hpp"
#include "inverse/of_tv.hpp"
#include "inverse/of_ty.hpp"
#include "inverse/of_vy.hpp"
#include "pt/of_pt.hpp"
#include "saturation/of_line.hpp"

namespace vaprix {
inline namespace v0 {
namespace bridge {

namespace {

using namespace inverse;

constexpr Asked everything{.p = true, .t = true, .single = true, .wet = true};

// Of a volume that was given.
Resolved of_volume(const State& state, double v, double d) noexcept {
    if (state.region == Region::none) return none(state.refusal);
    Resolved at = stored(state);
    at.v = v;
    at.d = d;
    return at;
}

// A saturated phase of wet steam.
template <Phase phase>
Resolved phase_of(const State& line, Unformed unformed) noexcept {
    if (line.region == Region::none) return none(line.refusal);
    const State single = phase == Phase::liquid ? liquid_end(line) : vapour_end(line);
    Resolved at = stored(line);
    at.region = number(single.region);
    at.saturated = phase == Phase::liquid ? liquid : vapour;
    at.x = phase == Phase::liquid ? 0 : 1;
    return with(at, single, unformed, Density3::found);
}

template <Phase phase>
Resolved phase_of_t(double t, Family family) noexcept {
    return family == Family::B ? phase_of<phase>(line_of_t<everything>(t), by_volume)
                               : phase_of<phase>(line_of_t_o<everything>(t), by_density);
}
template <Phase phase>
Resolved phase_of_p(double p, Family family) noexcept {
    return family == Family::B ? phase_of<phase>(line_of_p_b<everything>(p), by_volume)
                               : phase_of<phase>(line_of_p_o<everything>(p), by_density);
}
template <Phase phase>
Resolved phase_of(const Resolved& at) noexcept {
    const bool has_phases = at.region == wet || at.saturated != 0;
    return has_phases ? phase_of<phase>(wet_state_of(at), by_density)
                      : none(ErrorCode::not_wet_steam);
}

// (p, h) and (p, s). In region 3 the B-family's density is the backward equation's, its other properties are at the
// volume of (p, T).
template <class Y>
Resolved of_py(double p, double y, Family family) noexcept {
    if (family == Family::O) return resolved(of_py_o<Y, everything>(p, y), by_density);
    Resolved at = resolved(of_py_b<Y, everything>(p, y), by_volume);
    if (at.region == number(Region::three)) at.d = 1 / Y::v3(p, y);
    return at;
}

}  // namespace

// On the saturation line the exports of the O-family answer for the liquid, those of the B-family not at all.
Resolved of_pt(double p, double t, Family family) noexcept {
    const State state = family == Family::O ? of_pt_o<everything>(p, t) : of_pt_b<everything>(p, t);
    if (state.region == Region::wet) {
        return phase_of<Phase::liquid>(wet_state<everything>(p, t), by_density);
    }
    return resolved(state, family == Family::O ? by_density : by_volume, Density3::found);
}

Resolved of_ph(double p, double h, Family family) noexcept { return of_py<Enthalpy>(p, h, family); }
Resolved of_ps(double p, double s, Family family) noexcept { return of_py<Entropy>(p, s, family); }

Resolved of_pv(double p, double v, Family /* family */) noexcept {
    return of_volume(inverse::of_pv<everything>(p, v), v, 1 / v);
}
Resolved of_pd(double p, double d, Family /* family */) noexcept {
    return of_volume(of_dp<everything>(d, p), 1 / d, d);
}
Resolved cold_of_pv(double p, double v, Family /* family */) noexcept {
    return of_volume(inverse::cold_of_pv<everything>(p, v), v, 1 / v);
}

// The B-family takes the pressures of iterations that pass through 0, of which there is no state.
Resolved of_px(double p, double x, Family family) noexcept {
    if (family == Family::O) return resolved(wet_of_px_o<everything>(p, x), by_density);
    if (!(p > 0)) return none(ErrorCode::saturation_pressure_range);
    return resolved(wet_of_px_b<everything>(p, x), by_volume);
}
Resolved of_tx(double t, double x, Family /* family */) noexcept {
    return resolved(wet_of_tx<everything>(t, x), by_volume);
}

Resolved of_td(double t, double d, Family /* family */) noexcept {
    return of_volume(inverse::of_td<everything>(t, d), 1 / d, d);
}
Resolved of_tv(double t, double v, Family /* family */) noexcept {
    return of_volume(inverse::of_tv<everything>(t, v), v, 1 / v);
}

Resolved of_th(double t, double h, Family /* family */) noexcept {
    return resolved(lowest_of_ty<Enthalpy, everything>(t, h), by_volume);
}
Resolved of_ts(double t, double s, Family /* family */) noexcept {
    return resolved(lowest_of_ty<Entropy, everything>(t, s), by_volume);
}
Resolved next_of_th(double t, double h, Family /* family */) noexcept {
    return resolved(next_of_ty<Enthalpy, everything>(t, h), by_volume);
}
Resolved next_of_ts(double t, double s, Family /* family */) noexcept {
    return resolved(next_of_ty<Entropy, everything>(t, s), by_volume);
}

Resolved of_hs(double h, double s, Family family) noexcept {
    if (family == Family::O) return resolved(of_hs_o<everything>(h, s), by_volume, Density3::found);
    Resolved at = resolved(of_hs_b<everything>(h, s), by_volume);
    if (at.region == number(Region::three)) at.d = of_hs_b<Asked{.density = true}>(h, s).d;
    return at;
}

Resolved of_vh(double v, double h, Family /* family */) noexcept {
    return of_volume(of_vy<Enthalpy, everything>(v, h), v, 1 / v);
}
Resolved of_vs(double v, double s, Family /* family */) noexcept {
    return of_volume(of_vy<Entropy, everything>(v, s), v, 1 / v);
}
Resolved of_dh(double d, double h, Family /* family */) noexcept {
    return of_volume(of_dy<Enthalpy, everything>(d, h), 1 / d, d);
}
Resolved of_ds(double d, double s, Family /* family */) noexcept {
    return of_volume(of_dy<Entropy, everything>(d, s), 1 / d, d);
}

Resolved liquid_of_t(double t, Family family) noexcept {
    return phase_of_t<Phase::liquid>(t, family);
}
Resolved vapour_of_t(double t, Family family) noexcept {
    return phase_of_t<Phase::vapour>(t, family);
}
Resolved liquid_of_p(double p, Family family) noexcept {
    return phase_of_p<Phase::liquid>(p, family);
}
Resolved vapour_of_p(double p, Family family) noexcept {
    return phase_of_p<Phase::vapour>(p, family);
}

Resolved liquid_of(const Resolved& at) noexcept { return phase_of<Phase::liquid>(at); }
Resolved vapour_of(const Resolved& at) noexcept { return phase_of<Phase::vapour>(at); }

}  // namespace bridge
}  // namespace v0
}  // namespace vaprix
