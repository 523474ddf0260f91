// SPDX-License-Identifier: MIT
//
// Derived properties of a single-phase state.
// Source: IAPWS R7-97(2012) for the equations and the symbols; IAPWS AN3-07(2018) for the
//         derivatives.
#pragma once

#include <limits>

#include "frame/elementary.hpp"
#include "frame/guarded_math.hpp"
#include "regions/derivatives.hpp"
#include "regions/saturation_line.hpp"
#include "state/properties.hpp"

namespace vaprix::property {

inline constexpr Asked single_phase{.p = true, .single = true};

// A property by its formula on the derivatives; FormulaOf names the formula for a kind of number.
template <class N, Formula<N> formula>
N derived3(const StateOf<N>& at) noexcept {
    return Region3<N>::template derived<formula>(at.p, at.d, at.t);
}
// clang-format 14 takes such lambdas for namespaces.
// clang-format off
template <class FormulaOf>
constexpr auto derived(FormulaOf /* formula */) {
    return Property{[]<class N>(Kind<N>) constexpr noexcept {
        constexpr Formula<N> formula = FormulaOf{}(Kind<N>{});
        return Equations<N>{Region1<N>::template derived<formula>,
                            Region2<N>::template derived<formula>, derived3<N, formula>,
                            Region5<N>::template derived<formula>};
    }, single_phase};
}
// clang-format on

inline constexpr Property alpha_v = derived([]<class N>(Kind<N>) { return formula::alpha_v<N>; });
inline constexpr Property alpha_p = derived([]<class N>(Kind<N>) { return formula::alpha_p<N>; });
inline constexpr Property beta_p = derived([]<class N>(Kind<N>) { return formula::beta_p<N>; });
inline constexpr Property kappa_T = derived([]<class N>(Kind<N>) { return formula::kappa_t<N>; });
inline constexpr Property kappa = derived([]<class N>(Kind<N>) { return formula::kappa<N>; });
inline constexpr Property cp_per_cv =
    derived([]<class N>(Kind<N>) { return formula::cp_per_cv<N>; });
inline constexpr Property mu = derived([]<class N>(Kind<N>) { return formula::mu<N>; });
inline constexpr Property d_p = derived([]<class N>(Kind<N>) { return formula::d_p<N>; });
inline constexpr Property h_p = derived([]<class N>(Kind<N>) { return formula::h_p<N>; });
inline constexpr Property v_h = derived([]<class N>(Kind<N>) { return formula::v_h<N>; });
inline constexpr Property d_h = derived([]<class N>(Kind<N>) { return formula::d_h<N>; });
inline constexpr Property v_T = derived([]<class N>(Kind<N>) { return formula::v_t<N>; });
inline constexpr Property v_p = derived([]<class N>(Kind<N>) { return formula::v_p<N>; });

// Slope of the saturation temperature, K/MPa, by Eq. (31).
inline constexpr Reading Ts_p{[](const auto& at) noexcept { return tsat_p(at.p); },
                              Asked{.p = true}};

// Compressibility factor p v/(R T), p in MPa.
template <class N, N (*v_of)(N, N) noexcept>
N compressibility(N pressure, N t) noexcept {
    return 1000 * pressure * v_of(pressure, t) / (R * t);
}
template <class N>
N compressibility3(const StateOf<N>& at) noexcept {
    return 1000 * at.p / (at.d * R * at.t);
}
// clang-format off
inline constexpr Property z{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{compressibility<N, Region1<N>::v>, compressibility<N, Region2<N>::v>,
                        compressibility3<N>, compressibility<N, Region5<N>::v>};
}, single_phase};
// clang-format on

// The same of the density given, and of wet steam of quality x.
inline constexpr Reading z_of_d{[](const auto& at) noexcept { return compressibility3(at); },
                                Asked{.p = true}};
inline constexpr Reading z_of_v{
    [](const auto& at) noexcept { return 1000 * at.p * mixed<v>(at) / (R * at.t); },
    Asked{.p = true, .single = true, .wet = true}};

// Specific volume of wet steam, m3/kg: infinite at no pressure but for pure liquid, which is stored,
// not divided for.
inline constexpr Reading v_or_infinite{
    [](const auto& at) noexcept {
        if constexpr (requires { at.p == 0 && at.x > 0; }) {  // no pack is at no pressure
            if (at.p == 0 && at.x > 0) return std::numeric_limits<double>::infinity();
        }
        return mixed<v>(at);
    },
    v.asked};

// Gibbs energy of the ideal gas at (p, T), kJ/kg: R T gamma0, of region 2 up to 1073.15 K and of
// region 5 above, whatever the region of the state. Its zero is that of the real fluid.
template <class N>
N ideal_gibbs(N pressure, N t) noexcept {
    const auto hot = t > T_25;
    const N at_1_mpa = machine::none(hot) ? Region2<N>::ideal_part(t)
                                          : machine::select(hot, Region5<N>::ideal_part(t),
                                                            Region2<N>::ideal_part(t));
    return R * t * (at_1_mpa + guarded_log(pressure));
}
template <class N>
N ideal_gibbs3(const StateOf<N>& at) noexcept {
    return ideal_gibbs(at.p, at.t);
}
// clang-format off
inline constexpr Property g_ideal{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{ideal_gibbs<N>, ideal_gibbs<N>, ideal_gibbs3<N>, ideal_gibbs<N>};
}, single_phase};
// clang-format on

// Fugacity p exp((g - g_ideal)/(R T)), MPa. Where region 2 itself has the ideal gas, g - g_ideal is
// its residual part; elsewhere the p before the exponential and the ln p of the ideal gas cancel.
template <class N>
N fugacity_of(N gibbs, N t) noexcept {
    return exp(gibbs / (R * t) - Region2<N>::ideal_part(t));
}
template <class N>
N fugacity1(N pressure, N t) noexcept {
    return fugacity_of(Region1<N>::g(pressure, t), t);
}
template <class N, N (*residual_part)(N, N) noexcept>
N fugacity_vapour(N pressure, N t) noexcept {
    return pressure * exp(residual_part(pressure, t));
}
template <class N>
N fugacity3(const StateOf<N>& at) noexcept {
    return fugacity_of(Region3<N>::g(at.d, at.t), at.t);
}
// clang-format off
inline constexpr Property fugacity{[]<class N>(Kind<N>) constexpr noexcept {
    return Equations<N>{fugacity1<N>, fugacity_vapour<N, Region2<N>::residual_part>, fugacity3<N>,
                        fugacity_vapour<N, Region5<N>::residual_part>};
}, single_phase};
// clang-format on

// Change by vaporisation, vapour less liquid.
template <const auto& property>
constexpr auto vaporisation() {
    return Reading{[](const auto& at) noexcept {
                       return single<property>(vapour_end(at)) - single<property>(liquid_end(at));
                   },
                   Asked{.wet = true}};
}
inline constexpr Reading h_vaporisation = vaporisation<h>();
inline constexpr Reading s_vaporisation = vaporisation<s>();

}  // namespace vaprix::property
