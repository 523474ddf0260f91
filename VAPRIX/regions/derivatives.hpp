// SPDX-License-Identifier: MIT
//
// The derived properties as formulas on volume, heat capacities and first derivatives.
// Source: IAPWS R7-97(2012), Tables 3, 12, 31 and 41; IAPWS AN3-07(2018) for the derivatives.
#pragma once

namespace vaprix {

// What a region's equation gives for the derived properties of a single-phase state.
template <class Number>
struct Derivatives {
    Number v;    // specific volume, m3/kg
    Number v_p;  // (dv/dp)_T, m3/(kg MPa)
    Number v_t;  // (dv/dT)_p, m3/(kg K)
    Number h_p;  // (dh/dp)_T, kJ/(kg MPa): v - T v_t without the cancellation
    Number cp;   // (dh/dT)_p, isobaric heat capacity, kJ/(kg K)
    Number cv;   // isochoric heat capacity, kJ/(kg K)
};

// The same with the entropy, from shared powers: by a few roundings not the digits of each alone.
template <class Number>
struct DerivativesAndEntropy {
    Derivatives<Number> of;
    Number s;  // kJ/(kg K)
};

// What second derivatives follow from.
template <class Number>
struct Curvatures {
    Number v_pp;  // (d2v/dp2)_T, m3/(kg MPa2)
    Number v_pt;  // d2v/dpdT, m3/(kg MPa K)
    Number v_tt;  // (d2v/dT2)_p, m3/(kg K2)
    Number h_pp;  // (d2h/dp2)_T, kJ/(kg MPa2): v_p - T v_pt without the cancellation
    Number cp_t;  // (dcp/dT)_p, kJ/(kg K2)
};

// A property that follows from the derivatives and the pressure. Each region offers
// derived<formula> at a state, compiled beside its equation, so that only those sums are evaluated
// that the formula reads.
template <class Number>
using Formula = Number (*)(const Derivatives<Number>& x, Number p) noexcept;

namespace formula {

// Isobaric cubic expansion coefficient (1/v)(dv/dT)_p, 1/K.
template <class Number>
inline Number alpha_v(const Derivatives<Number>& x, Number /* p */) noexcept {
    return x.v_t / x.v;
}

// Relative pressure coefficient (1/p)(dp/dT)_v, 1/K.
template <class Number>
inline Number alpha_p(const Derivatives<Number>& x, Number p) noexcept {
    return -x.v_t / (x.v_p * p);
}

// Isothermal stress coefficient -(1/p)(dp/dv)_T, kg/m3.
template <class Number>
inline Number beta_p(const Derivatives<Number>& x, Number p) noexcept {
    return -1 / (x.v_p * p);
}

// Isothermal compressibility -(1/v)(dv/dp)_T, 1/MPa.
template <class Number>
inline Number kappa_t(const Derivatives<Number>& x, Number /* p */) noexcept {
    return -x.v_p / x.v;
}

// Isentropic exponent -(v/p)(dp/dv)_s, which is w^2/(p v).
template <class Number>
inline Number kappa(const Derivatives<Number>& x, Number p) noexcept {
    return -x.v * x.cp / (x.v_p * p * x.cv);
}

// Ratio of the heat capacities cp/cv.
template <class Number>
inline Number cp_per_cv(const Derivatives<Number>& x, Number /* p */) noexcept {
    return x.cp / x.cv;
}

// Joule-Thomson coefficient (dT/dp)_h, K/MPa.
template <class Number>
inline Number mu(const Derivatives<Number>& x, Number /* p */) noexcept {
    return -x.h_p / x.cp;
}

// (dd/dp)_T, kg/(m3 MPa).
template <class Number>
inline Number d_p(const Derivatives<Number>& x, Number /* p */) noexcept {
    return -x.v_p / (x.v * x.v);
}

// Isothermal throttling coefficient (dh/dp)_T, kJ/(kg MPa).
template <class Number>
inline Number h_p(const Derivatives<Number>& x, Number /* p */) noexcept {
    return x.h_p;
}

// (dv/dh)_p, m3/kJ.
template <class Number>
inline Number v_h(const Derivatives<Number>& x, Number /* p */) noexcept {
    return x.v_t / x.cp;
}

// (dd/dh)_p, kg2/(m3 kJ).
template <class Number>
inline Number d_h(const Derivatives<Number>& x, Number /* p */) noexcept {
    return -x.v_t / (x.v * x.v * x.cp);
}

// (dv/dT)_p, m3/(kg K).
template <class Number>
inline Number v_t(const Derivatives<Number>& x, Number /* p */) noexcept {
    return x.v_t;
}

// (dv/dp)_T, m3/(kg MPa).
template <class Number>
inline Number v_p(const Derivatives<Number>& x, Number /* p */) noexcept {
    return x.v_p;
}

}  // namespace formula

// A region's derived<formula> for double, for every formula: with `extern template` where they are
// declared, with `template` where they are compiled. The region comes last, after the arguments in
// parentheses.
#define VAPRIX_DERIVED(template_, arguments, ...)                                 \
    template_ double __VA_ARGS__::derived<formula::alpha_v> arguments noexcept;   \
    template_ double __VA_ARGS__::derived<formula::alpha_p> arguments noexcept;   \
    template_ double __VA_ARGS__::derived<formula::beta_p> arguments noexcept;    \
    template_ double __VA_ARGS__::derived<formula::kappa_t> arguments noexcept;   \
    template_ double __VA_ARGS__::derived<formula::kappa> arguments noexcept;     \
    template_ double __VA_ARGS__::derived<formula::cp_per_cv> arguments noexcept; \
    template_ double __VA_ARGS__::derived<formula::mu> arguments noexcept;        \
    template_ double __VA_ARGS__::derived<formula::d_p> arguments noexcept;       \
    template_ double __VA_ARGS__::derived<formula::h_p> arguments noexcept;       \
    template_ double __VA_ARGS__::derived<formula::v_h> arguments noexcept;       \
    template_ double __VA_ARGS__::derived<formula::d_h> arguments noexcept;       \
    template_ double __VA_ARGS__::derived<formula::v_t> arguments noexcept;       \
    template_ double __VA_ARGS__::derived<formula::v_p> arguments noexcept

}  // namespace vaprix
