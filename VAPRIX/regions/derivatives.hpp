// SPDX-License-Identifier: MIT
//
// The derived properties as formulas on volume, heat capacities and first derivatives.
// Source: IAPWS R7-97(2012), Tables 3, 12, 31 and 41; IAPWS AN3-07(2018) for the derivatives.
#pragma once

namespace vaprix {

// What a region's equation gives for the derived properties of a single-phase state.
struct Derivatives {
    double v;    // specific volume, m3/kg
    double v_p;  // (dv/dp)_T, m3/(kg MPa)
    double v_t;  // (dv/dT)_p, m3/(kg K)
    double h_p;  // (dh/dp)_T, kJ/(kg MPa): v - T v_t without the cancellation
    double cp;   // (dh/dT)_p, isobaric heat capacity, kJ/(kg K)
    double cv;   // isochoric heat capacity, kJ/(kg K)
};

// A property that follows from the derivatives and the pressure. Each region offers
// derived<formula> at a state, compiled beside its equation, so that only those sums are evaluated
// that the formula reads.
using Formula = double (*)(const Derivatives& x, double p) noexcept;

namespace formula {

// Isobaric cubic expansion coefficient (1/v)(dv/dT)_p, 1/K.
inline double alpha_v(const Derivatives& x, double /* p */) noexcept { return x.v_t / x.v; }

// Relative pressure coefficient (1/p)(dp/dT)_v, 1/K.
inline double alpha_p(const Derivatives& x, double p) noexcept { return -x.v_t / (x.v_p * p); }

// Isothermal stress coefficient -(1/p)(dp/dv)_T, kg/m3.
inline double beta_p(const Derivatives& x, double p) noexcept { return -1 / (x.v_p * p); }

// Isothermal compressibility -(1/v)(dv/dp)_T, 1/MPa.
inline double kappa_t(const Derivatives& x, double /* p */) noexcept { return -x.v_p / x.v; }

// Isentropic exponent -(v/p)(dp/dv)_s, which is w^2/(p v).
inline double kappa(const Derivatives& x, double p) noexcept {
    return -x.v * x.cp / (x.v_p * p * x.cv);
}

// Ratio of the heat capacities cp/cv.
inline double cp_per_cv(const Derivatives& x, double /* p */) noexcept { return x.cp / x.cv; }

// Joule-Thomson coefficient (dT/dp)_h, K/MPa.
inline double mu(const Derivatives& x, double /* p */) noexcept { return -x.h_p / x.cp; }

// (dd/dp)_T, kg/(m3 MPa).
inline double d_p(const Derivatives& x, double /* p */) noexcept { return -x.v_p / (x.v * x.v); }

// Isothermal throttling coefficient (dh/dp)_T, kJ/(kg MPa).
inline double h_p(const Derivatives& x, double /* p */) noexcept { return x.h_p; }

// (dv/dh)_p, m3/kJ.
inline double v_h(const Derivatives& x, double /* p */) noexcept { return x.v_t / x.cp; }

// (dd/dh)_p, kg2/(m3 kJ).
inline double d_h(const Derivatives& x, double /* p */) noexcept {
    return -x.v_t / (x.v * x.v * x.cp);
}

// (dv/dT)_p, m3/(kg K).
inline double v_t(const Derivatives& x, double /* p */) noexcept { return x.v_t; }

// (dv/dp)_T, m3/(kg MPa).
inline double v_p(const Derivatives& x, double /* p */) noexcept { return x.v_p; }

}  // namespace formula

// Instantiates a region's derived<formula> of these arguments for every formula.
#define VAPRIX_INSTANTIATE_DERIVED(...)                                \
    template double derived<formula::alpha_v>(__VA_ARGS__) noexcept;   \
    template double derived<formula::alpha_p>(__VA_ARGS__) noexcept;   \
    template double derived<formula::beta_p>(__VA_ARGS__) noexcept;    \
    template double derived<formula::kappa_t>(__VA_ARGS__) noexcept;   \
    template double derived<formula::kappa>(__VA_ARGS__) noexcept;     \
    template double derived<formula::cp_per_cv>(__VA_ARGS__) noexcept; \
    template double derived<formula::mu>(__VA_ARGS__) noexcept;        \
    template double derived<formula::d_p>(__VA_ARGS__) noexcept;       \
    template double derived<formula::h_p>(__VA_ARGS__) noexcept;       \
    template double derived<formula::v_h>(__VA_ARGS__) noexcept;       \
    template double derived<formula::d_h>(__VA_ARGS__) noexcept;       \
    template double derived<formula::v_t>(__VA_ARGS__) noexcept;       \
    template double derived<formula::v_p>(__VA_ARGS__) noexcept

}  // namespace vaprix
