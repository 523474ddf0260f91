// SPDX-License-Identifier: MIT
//
// Constants of IAPWS R7-97(2012), Eqs. (1) to (4) and (9), the molar mass of IAPWS R6-95, and where
// the regions meet.
#pragma once

namespace vaprix {

inline constexpr double R = 0.461526;            // specific gas constant, kJ/(kg K)
inline constexpr double M = 18.015268;           // molar mass, kg/kmol
inline constexpr double T_crit = 647.096;        // K
inline constexpr double p_crit = 22.064;         // MPa
inline constexpr double d_crit = 322.0;          // kg/m3
inline constexpr double T_triple = 273.16;       // K
inline constexpr double p_triple = 0.000611657;  // MPa

inline constexpr double T_min = 273.15;  // lower end, also of the saturation line, K
inline constexpr double T_13 = 623.15;   // boundary of regions 1 and 3, K
inline constexpr double T_13_dense = 623.1500000000001;  // the next number: first of region 3, K
inline constexpr double T_23_max = 863.15;     // upper end of the boundary of regions 2 and 3, K
inline constexpr double T_25 = 1073.15;        // boundary of regions 2 and 5, K
inline constexpr double T_max = 2273.15;       // K
inline constexpr double p_min = 0.0006112127;  // saturation pressure at T_min, MPa
inline constexpr double psat_13 = 16.52916425260452;  // saturation pressure at T_13, MPa
inline constexpr double p_max = 100.0;                // MPa
inline constexpr double p_max_5 = 50.0;               // highest pressure of region 5, MPa

// The result of an evaluation that failed.
inline constexpr double failed = -99999.0;

}  // namespace vaprix
