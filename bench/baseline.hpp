// SPDX-License-Identifier: MIT
//
// The yardstick: the published equations evaluated term by term with std::pow, as one would write
// them down from the release. Same equations, same results to rounding, no thought given to speed.
#pragma once

namespace baseline {

// Regions 1, 2 and 5: properties of (p, T), IAPWS R7-97(2012), Eqs. (7), (15) and (32).
struct Region1;
struct Region2;
struct Region5;
template <class Region>
struct Gibbs {
    static double v(double p, double t);
    static double h(double p, double t);
    static double s(double p, double t);
    static double u(double p, double t);
    static double g(double p, double t);
    static double f(double p, double t);
    static double cp(double p, double t);
    static double cv(double p, double t);
    static double w(double p, double t);
};

// Region 3: properties of (density, T), Eq. (28).
struct Region3 {
    static double p(double d, double t);
    static double h(double d, double t);
    static double s(double d, double t);
    static double u(double d, double t);
    static double g(double d, double t);
    static double f(double d, double t);
    static double cp(double d, double t);
    static double cv(double d, double t);
    static double w(double d, double t);
};

// Regions 1 and 2: backward equations of (p, h) and (p, s), Eqs. (11), (13) and (20) to (27).
double t1_ph(double p, double h);
double t1_ps(double p, double s);
double t2_ph(double p, double h);
double t2_ps(double p, double s);

// Region 3 backward equations, IAPWS SR3-03(2014), Eqs. (2) to (9).
double t_ph(double p, double h);
double t_ps(double p, double s);
double v_ph(double p, double h);
double v_ps(double p, double s);

// Saturation line, Eqs. (30) and (31), and boundary of regions 2 and 3, Eq. (5).
double psat(double t);
double tsat(double p);
double tsat_p(double p);  // by central difference
double p_b23(double t);

// Region of (p, T) by these.
double region(double p, double t);

}  // namespace baseline
