// SPDX-License-Identifier: MIT
//
// Every export by its arguments and its way to fail, for the tests that treat all of them alike.
// bad_input_test.cpp holds these tables against the library's export list.
#pragma once

#include <limits>

#include "vaprix.h"

namespace host {

inline constexpr double failed = -99999.0;
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr int outside = -10055, off_line_by_t = -10019, off_line_by_p = -10020;
inline constexpr int no_density = -10003, own_range = -10057;

using OfOne = double (*)(const double*);
using OfTwo = double (*)(const double*, const double*);
using OfRegion = double (*)(const double*, const double*, int*);
using OfThree = double (*)(const double*, const double*, const double*);
using Constant = double (*)();

#define ROW(name) #name, name

struct ConstantRow {
    const char* name;
    Constant call;
    double value;
};
inline constexpr ConstantRow constants[] = {
    {ROW(PTRIPLE), 0.000611657}, {ROW(TTRIPLE), 273.16}, {ROW(PCRIT), 22.064},
    {ROW(TCRIT), 647.096},       {ROW(DCRIT), 322.0},    {ROW(RCONST), 0.461526},
    {ROW(MOLM), 18.015268},
};

// (p, T) with range check, the sentinel alone on failure. Each has its own answer on the saturation
// line: most fall through to 0, the density is the reciprocal of that, four refuse.
struct BFamilyRow {
    const char* name;
    OfTwo call;
    double on_saturation_line;
};
inline constexpr BFamilyRow b_family[] = {
    {ROW(VBPT), 0.0},
    {ROW(DBPT), infinity},
    {ROW(HBPT), 0.0},
    {ROW(SBPT), 0.0},
    {ROW(CPBPT), 0.0},
    {ROW(CVBPT), failed},
    {ROW(WBPT), 0.0},
    {ROW(UBPT), failed},
    {ROW(FBPT), failed},
    {ROW(GBPT), failed},
    {ROW(ETABPT), 0.0},
    {ROW(VNUBPT), 0.0},
    {ROW(VKIBPT), 0.0},
    {ROW(TCOBPT), infinity},
    {ROW(PRBPT), std::numeric_limits<double>::quiet_NaN()},
    {ROW(EPSBPT), failed},
};

// (p, T) with range check, sentinel and code on failure; DOTP takes (T, p).
struct PairRow {
    const char* name;
    OfTwo call;
};
inline constexpr PairRow o_family[] = {
    {ROW(DOPT)},  {ROW(VOPT)}, {ROW(HOPT)}, {ROW(SOPT)}, {ROW(CPOPT)},
    {ROW(CVOPT)}, {ROW(WOPT)}, {ROW(UOPT)}, {ROW(FOPT)}, {ROW(GOPT)},
};
inline constexpr PairRow density_of_tp[] = {{ROW(DOTP)}};
inline constexpr PairRow region_of_pt[] = {{ROW(REGIONPT)}};

// Physical and derived properties of (p, T): what they answer outside and on the saturation line;
// code 0: the sentinel alone. FUGOPT and FUGOTD have codes of their own.
struct PhysicalRow {
    const char* name;
    OfTwo call;
    double failure;
    int code;
};
inline constexpr PhysicalRow physical_o[] = {
    {ROW(ETAOPT), failed, 0},
    {ROW(VNUOPT), failed, 0},
    {ROW(TCOOPT), -99999e3, no_density},
    {ROW(PROPT), failed, no_density},
    {ROW(AOPT), failed, no_density},
    {ROW(EPSOPT), failed, no_density},
    {ROW(ALPBPT), failed, 0},
    {ROW(ALVBPT), failed, 0},
    {ROW(BETBPT), failed, own_range},
    {ROW(CAPBPT), failed, 0},
    {ROW(CAPTBPT), failed, 0},
    {ROW(GAMBPT), failed, 0},
    {ROW(FUGBPT), failed, 0},
    {ROW(DDDHBPT), failed, 0},
    {ROW(DDDPBPT), failed, 0},
    {ROW(DHDPBPT), failed, 0},
    {ROW(DVDHBPT), failed, 0},
    {ROW(DVDPBPT), failed, 0},
    {ROW(ZOPT), failed, no_density},
    {ROW(ALPOPT), failed, no_density},
    {ROW(ALVOPT), failed, no_density},
    {ROW(BETOPT), failed, no_density},
    {ROW(CAPOPT), failed, no_density},
    {ROW(CAPTOPT), failed, no_density},
    {ROW(GAMOPT), failed, no_density},
    {ROW(RJTOPT), failed, no_density},
    {ROW(DDDPOPT), failed, no_density},
    {ROW(DHDPOPT), failed, no_density},
    {ROW(DDDHOPT), failed, outside},
    {ROW(DVDHOPT), failed, outside},
    {ROW(DVDPOPT), failed, outside},
};
// Of (T, density): a negative density or another state outside; failure and code are for wet steam.
inline constexpr PhysicalRow physical_td[] = {
    {ROW(ETAOTD), -99999e6, own_range},
    {ROW(VISOTD), failed, own_range},
    {ROW(VNUOTD), -99999e6, own_range},
    {ROW(VKIOTD), failed, own_range},
    {ROW(TCOOTD), failed, 0},
    {ROW(TCONOTD), failed, 0},
    {ROW(PROTD), failed, 0},
    {ROW(AOTD), failed, own_range},
    {ROW(EPSOTD), failed, own_range},
};
// With the wavelength: of (p, T), of (T, density) and of the saturated phases.
struct RefractiveRow {
    const char* name;
    OfThree call;
    int code;
};
inline constexpr RefractiveRow refractive_pt[] = {{ROW(REFBPT), 0}, {ROW(REFOPT), no_density}};
inline constexpr RefractiveRow refractive_td[] = {{ROW(REFOTD), own_range}};
inline constexpr PairRow refractive_saturated[] = {
    {ROW(REF1BT)},
    {ROW(REF1OT)},
    {ROW(REF2BT)},
    {ROW(REF2OT)},
};

struct RegionGivenRow {
    const char* name;
    OfRegion call;
};
inline constexpr RegionGivenRow region_given[] = {
    {ROW(HPT)},  {ROW(VPT)},    {ROW(SPT)},    {ROW(CPPT)},
    {ROW(CVPT)}, {ROW(DVDPPT)}, {ROW(DVDTPT)}, {ROW(G0PT)},
};

// Region-native functions: no check, no code, any argument. The pair is that of the name.
enum class Pair { pt, tp, vt, ph, ps };
struct NativeRow {
    const char* name;
    OfTwo call;
    int region;
    Pair pair;
};
inline constexpr NativeRow natives[] = {
    {ROW(VPT1N), 1, Pair::pt},  {ROW(HPT1N), 1, Pair::pt},  {ROW(SPT1N), 1, Pair::pt},
    {ROW(CPPT1N), 1, Pair::pt}, {ROW(CVPT1N), 1, Pair::pt}, {ROW(GPT1N), 1, Pair::pt},
    {ROW(VPT2N), 2, Pair::pt},  {ROW(HPT2N), 2, Pair::pt},  {ROW(SPT2N), 2, Pair::pt},
    {ROW(CPPT2N), 2, Pair::pt}, {ROW(CVPT2N), 2, Pair::pt}, {ROW(GPT2N), 2, Pair::pt},
    {ROW(VPT5N), 5, Pair::pt},  {ROW(HPT5N), 5, Pair::pt},  {ROW(SPT5N), 5, Pair::pt},
    {ROW(CPPT5N), 5, Pair::pt}, {ROW(CVPT5N), 5, Pair::pt}, {ROW(GPT5N), 5, Pair::pt},
    {ROW(HVT3N), 3, Pair::vt},  {ROW(SVT3N), 3, Pair::vt},  {ROW(GVT3N), 3, Pair::vt},
    {ROW(CPVT3N), 3, Pair::vt}, {ROW(CVVT3N), 3, Pair::vt}, {ROW(VTP3N), 3, Pair::tp},
    {ROW(TPH3N), 3, Pair::ph},  {ROW(TPS3N), 3, Pair::ps},  {ROW(VPS3N), 3, Pair::ps},
    {ROW(TPH5N), 5, Pair::ph},  {ROW(TPS5N), 5, Pair::ps},  {ROW(TPH1N), 1, Pair::ph},
    {ROW(TPS1N), 1, Pair::ps},  {ROW(TPH2N), 2, Pair::ph},  {ROW(TPS2N), 2, Pair::ps},
};

// (p, h) and (p, s) with range check. The B-family has the sentinel alone on failure, the O-family
// a code as well. Some have no answer for wet steam, or for one phase: the sentinel, no code.
enum class Answers { always, single_phase, wet, second };  // second: if there is a second state
struct InverseRow {
    const char* name;
    OfTwo call;
    Pair pair;
    Answers answers;
};
inline constexpr InverseRow inverse_b[] = {
    {ROW(TBPH), Pair::ph, Answers::always},        {ROW(VBPH), Pair::ph, Answers::always},
    {ROW(DBPH), Pair::ph, Answers::always},        {ROW(SBPH), Pair::ph, Answers::always},
    {ROW(CPBPH), Pair::ph, Answers::single_phase}, {ROW(WBPH), Pair::ph, Answers::single_phase},
    {ROW(XBPH), Pair::ph, Answers::wet},           {ROW(TBPS), Pair::ps, Answers::always},
    {ROW(VBPS), Pair::ps, Answers::always},        {ROW(DBPS), Pair::ps, Answers::always},
    {ROW(HBPS), Pair::ps, Answers::always},        {ROW(CPBPS), Pair::ps, Answers::single_phase},
    {ROW(WBPS), Pair::ps, Answers::single_phase},  {ROW(XBPS), Pair::ps, Answers::wet},
};
inline constexpr InverseRow inverse_o[] = {
    {ROW(TOPH), Pair::ph, Answers::always},        {ROW(VOPH), Pair::ph, Answers::always},
    {ROW(DOPH), Pair::ph, Answers::always},        {ROW(SOPH), Pair::ph, Answers::always},
    {ROW(CPOPH), Pair::ph, Answers::single_phase}, {ROW(WOPH), Pair::ph, Answers::single_phase},
    {ROW(XOPH), Pair::ph, Answers::wet},           {ROW(TOPS), Pair::ps, Answers::always},
    {ROW(VOPS), Pair::ps, Answers::always},        {ROW(DOPS), Pair::ps, Answers::always},
    {ROW(HOPS), Pair::ps, Answers::always},        {ROW(CPOPS), Pair::ps, Answers::single_phase},
    {ROW(WOPS), Pair::ps, Answers::single_phase},  {ROW(XOPS), Pair::ps, Answers::wet},
};
inline constexpr InverseRow inverse_region[] = {
    {ROW(REGIONPH), Pair::ph, Answers::always},
    {ROW(REGIONPS), Pair::ps, Answers::always},
};
struct InverseGivenRow {
    const char* name;
    OfRegion call;
    Pair pair;
};
inline constexpr InverseGivenRow inverse_given[] = {
    {ROW(TPH), Pair::ph},
    {ROW(TPS), Pair::ps},
};

// (h, s) with range check: an answer for one phase and for two; sentinel alone, or code as well.
inline constexpr PairRow hs_b[] = {{ROW(PBHS)}, {ROW(TBHS)}, {ROW(DBHS)}};
inline constexpr PairRow hs_o[] = {{ROW(POHS)}, {ROW(TOHS)}, {ROW(VOHS)}, {ROW(DOHS)}};
inline constexpr PairRow region_of_hs[] = {{ROW(REGIONHS)}};

// One argument on the saturation line, from `lowest` to `highest`; code 0: the sentinel alone. The
// codeless range starts lower than the line on purpose; the range that is open at 0 has answers
// from the line's lower end.
struct SaturationRow {
    const char* name;
    OfOne call;
    double lowest, highest;
    int code;
    int code_of_nan = code;
    int on_success = code_untouched;
    static constexpr int code_untouched = 1;
};
inline constexpr double above_zero = std::numeric_limits<double>::denorm_min();
// The last double within 1e-9 MPa of the critical pressure, where densities are 322 kg/m3.
inline constexpr double p_top = 22.064, near_p_top = 22.064000000999997;
inline constexpr double t_low = 273.15, t_top = 647.096, near_t_top = 647.096000001;
// One phase by its number, both phases of a property, of T or of p.
#define OF_T(name, code) \
    { ROW(name), t_low, t_top, code }
#define OF_P(name) \
    { ROW(name), 0.0005, p_top, 0 }
#define OF_P_O(name, highest) \
    { ROW(name), above_zero, highest, off_line_by_p }
#define BOTH_T(y, family, code) OF_T(y##1##family##T, code), OF_T(y##2##family##T, code)
#define BOTH_P(y, highest) \
    OF_P(y##1BP), OF_P(y##2BP), OF_P_O(y##1OP, highest), OF_P_O(y##2OP, highest)
#define LETTERS_T(y) OF_T(y##LOT, off_line_by_t), OF_T(y##VOT, off_line_by_t)
#define B_AND_O_T(y) BOTH_T(y, B, 0), BOTH_T(y, O, off_line_by_t)
#define PHYSICAL_ONE(name) \
    { ROW(name), t_low, t_top, off_line_by_t, own_range }
#define PHYSICAL(y) \
    PHYSICAL_ONE(y##1BT), PHYSICAL_ONE(y##2BT), PHYSICAL_ONE(y##1OT), PHYSICAL_ONE(y##2OT)
#define COINCIDING_T(y) BOTH_T(y, B, off_line_by_t), BOTH_T(y, O, off_line_by_t)
// clang-format off
inline constexpr SaturationRow saturation_line[] = {
    OF_T(PBT, 0), OF_T(POT, off_line_by_t), OF_T(PSATOT, off_line_by_t),
    OF_P(TBP), OF_P(DTBPDP), OF_P_O(TOP, p_top), OF_P_O(TSATOP, p_top),
    B_AND_O_T(H), B_AND_O_T(S), B_AND_O_T(V), B_AND_O_T(CP), B_AND_O_T(W),
    LETTERS_T(H), LETTERS_T(S), LETTERS_T(W), LETTERS_T(CP), LETTERS_T(CV), LETTERS_T(U),
    COINCIDING_T(U), COINCIDING_T(CV), COINCIDING_T(F), COINCIDING_T(G),
    BOTH_T(D, O, off_line_by_t),
    COINCIDING_T(ALP), COINCIDING_T(ALV), COINCIDING_T(BET), COINCIDING_T(CAP),
    COINCIDING_T(CAPT), COINCIDING_T(FUG), COINCIDING_T(DDDH), COINCIDING_T(DDDP),
    COINCIDING_T(DHDP), COINCIDING_T(DVDH), COINCIDING_T(DVDP),
    {ROW(DLOT), t_low, near_t_top, 0}, {ROW(DVOT), t_low, near_t_top, 0},
    {ROW(HVAPOT), t_low, t_top, off_line_by_t, off_line_by_t, 0},
    {ROW(SVAPOT), t_low, t_top, off_line_by_t, off_line_by_t, 0},
    BOTH_P(H, p_top), BOTH_P(S, p_top), BOTH_P(V, near_p_top), BOTH_P(CP, p_top), BOTH_P(W, p_top),
    OF_P_O(D1OP, near_p_top), OF_P_O(D2OP, near_p_top),
    OF_P_O(DLOP, near_p_top), OF_P_O(DVOP, near_p_top),
    PHYSICAL(ETA), PHYSICAL(VNU), PHYSICAL(TCO), PHYSICAL(PR), PHYSICAL(EPS),
    {ROW(A1OT), t_low, t_top, off_line_by_t, own_range},
    {ROW(A2OT), t_low, t_top, off_line_by_t, own_range},
    {ROW(VISLOT), t_low, near_t_top, no_density},
    {ROW(VISVOT), t_low, near_t_top, no_density},
    {ROW(VKILOT), t_low, near_t_top, no_density},
    {ROW(VKIVOT), t_low, near_t_top, no_density},
    {ROW(TCONLOT), t_low, near_t_top, 0},
    {ROW(TCONVOT), t_low, near_t_top, 0},
    {ROW(SIGBT), t_low, t_top, 0},
    {ROW(SIGOT), t_low, t_top, 0},
};
// clang-format on
#undef OF_T
#undef OF_P
#undef OF_P_O
#undef BOTH_T
#undef BOTH_P
#undef LETTERS_T
#undef B_AND_O_T
#undef COINCIDING_T
#undef PHYSICAL
#undef PHYSICAL_ONE

// Formulas of T that check nothing: they have a value wherever the arithmetic has one.
struct UncheckedRow {
    const char* name;
    OfOne call;
    double lowest, highest;  // where it is meant
};
inline constexpr UncheckedRow unchecked[] = {
    {ROW(FB23), 623.15, 863.15}, {ROW(DLEST), t_low, t_top}, {ROW(DVEST), t_low, t_top}};

// Wet steam of (T, x) or (p, x), from `lowest` to `highest` of the first, 0 to 1 of x. The first
// argument is tested first; code 0: the sentinel alone.
struct WetSteamRow {
    const char* name;
    OfTwo call;
    double lowest, highest;
    int code, code_of_x;
};
inline constexpr int bad_quality = -10036;
#define OF_TX(name) \
    { ROW(name), t_low, t_top, off_line_by_t, bad_quality }
#define OF_PX(name, highest) \
    { ROW(name), above_zero, highest, off_line_by_p, bad_quality }
// clang-format off
inline constexpr WetSteamRow wet_steam[] = {
    {ROW(VBPX), -p_top, p_top, 0, 0}, {ROW(HBPX), -p_top, p_top, 0, 0},
    {ROW(SBPX), -p_top, p_top, 0, 0},
    {ROW(VBTX), t_low, t_top, 0, 0}, {ROW(HBTX), t_low, t_top, 0, 0},
    {ROW(SBTX), t_low, t_top, 0, 0},
    OF_PX(VOPX, near_p_top), OF_PX(DOPX, near_p_top), OF_PX(HOPX, p_top), OF_PX(SOPX, p_top),
    OF_TX(POTX), OF_TX(DOTX), OF_TX(VOTX), OF_TX(HOTX), OF_TX(SOTX), OF_TX(UOTX), OF_TX(FOTX),
    OF_TX(GOTX), OF_TX(ZOTX),
    {ROW(FUGOTX), t_low, t_top, off_line_by_t, own_range},
};
// clang-format on
#undef OF_TX
#undef OF_PX

// (T, density), and the region of (T, v), which answers 0 without a code.
struct DensityRow {
    const char* name;
    OfTwo call;
    int outside, code_of_wet;  // 0: wet steam is answered
};
inline constexpr int negative_density = -10003, unusable_density = -10057;
inline constexpr DensityRow of_td[] = {
    {ROW(POTD), unusable_density, 0},
    {ROW(HOTD), unusable_density, 0},
    {ROW(SOTD), unusable_density, 0},
    {ROW(UOTD), unusable_density, 0},
    {ROW(FOTD), unusable_density, 0},
    {ROW(GOTD), unusable_density, 0},
    {ROW(ZOTD), unusable_density, 0},
    {ROW(CPOTD), unusable_density, -10007},
    {ROW(CVOTD), unusable_density, -10007},
    {ROW(WOTD), unusable_density, -10007},
    {ROW(ALPOTD), unusable_density, own_range},
    {ROW(ALVOTD), unusable_density, own_range},
    {ROW(BETOTD), unusable_density, own_range},
    {ROW(CAPOTD), unusable_density, own_range},
    {ROW(CAPTOTD), unusable_density, own_range},
    {ROW(RJTOTD), unusable_density, own_range},
    {ROW(XOTD), -10058, 0},
};
inline constexpr PairRow region_of_tv[] = {{ROW(REGIONTV)}};

// Pairs that are solved, in the order of their arguments, with what they answer and store where
// there is no state.
enum class Of { p, t, v, d, h, s };
struct SolvedRow {
    const char* name;
    OfTwo call;
    Of first, second;
    double failure;
    int code;  // 0: none
    Answers answers = Answers::always;
};
// clang-format off
#define PAIR(name, first, second, ...) {ROW(name), Of::first, Of::second, __VA_ARGS__}
#define WITH_Z(name, ...) PAIR(name, __VA_ARGS__), PAIR(name##Z, __VA_ARGS__, Answers::second)
#define BOTH_PV(y, answers) PAIR(y##BPV, p, v, failed, 0, answers), PAIR(y##OPV, p, v, failed, outside, answers)
#define ALL_TY(name, y) \
    WITH_Z(PB##name, t, y, failed, 0), WITH_Z(PO##name, t, y, failed, outside), \
    WITH_Z(DO##name, t, y, failed, outside), WITH_Z(VO##name, t, y, failed, outside)
inline constexpr SolvedRow solved[] = {
    WITH_Z(REGIONPV, p, v, 0.0, 0), WITH_Z(REGIONTH, t, h, 0.0, 0), WITH_Z(REGIONTS, t, s, 0.0, 0),
    BOTH_PV(T, Answers::always), BOTH_PV(H, Answers::always), BOTH_PV(S, Answers::always),
    BOTH_PV(CP, Answers::single_phase), BOTH_PV(W, Answers::single_phase), BOTH_PV(X, Answers::wet),
    PAIR(TBPVZ, p, v, failed, 0, Answers::second), PAIR(TOPVZ, p, v, failed, own_range, Answers::second),
    PAIR(TODP, d, p, failed, outside), PAIR(TODPZ, d, p, failed, own_range, Answers::second),
    ALL_TY(TH, h), ALL_TY(TS, s),
    PAIR(PBTV, t, v, failed, 0), PAIR(POTV, t, v, failed, unusable_density),
    PAIR(REGIONHV, h, v, 0.0, 0), PAIR(REGIONSV, s, v, 0.0, 0),
    PAIR(PBVH, v, h, failed, 0), PAIR(POVH, v, h, failed, outside), PAIR(TBVH, v, h, failed, 0),
    PAIR(PBVS, v, s, failed, 0), PAIR(POVS, v, s, failed, outside), PAIR(TBVS, v, s, failed, 0),
    PAIR(TODH, d, h, failed, outside), PAIR(TODS, d, s, failed, outside),
};
// clang-format on
#undef PAIR
#undef WITH_Z
#undef BOTH_PV
#undef ALL_TY

// Saturated states by another property, from `lowest` to `highest`, and the code of a value
// outside.
struct SaturatedByRow {
    const char* name;
    OfOne call;
    double lowest, highest;
    int (*code)(double);
};
template <int code>
constexpr int always(double) {
    return code;
}
constexpr int code_of_density(double d) { return d < 0 ? negative_density : unusable_density; }
inline constexpr double h_low = -0.041587825987455494, h_crit = 2087.5468451171591,
                        h_max = 2803.2852558905415, h_cold = 2500.8926178171614;
inline constexpr double s_low = -0.00015454959194306374, s_crit = 4.412021482236347,
                        s_max = 9.155759395224401;
constexpr int code_of_cold_vapour(double h) { return h >= h_low ? -10035 : -10037; }
// clang-format off
inline constexpr SaturatedByRow saturated_by[] = {
    {ROW(PSATOD), 0.0048510787632090394, 999.92567124347158, code_of_density},
    {ROW(PSATODZ), 999.79306550632941, 999.92567124347158, code_of_density},
    {ROW(TSATOD), 0.0048510787632090394, 999.92567124347158, always<0>},
    {ROW(PSATOH), h_low, h_max, always<-10037>}, {ROW(TSATOH), h_low, h_max, always<0>},
    {ROW(PSATOHZ), h_cold, h_max, code_of_cold_vapour},
    {ROW(TSATOHZ), h_cold, h_max, code_of_cold_vapour},
    {ROW(DVOHZ), h_cold, h_max, code_of_cold_vapour},
    {ROW(V2OHZ), h_cold, h_max, code_of_cold_vapour},
    {ROW(DLOH), h_low, h_crit, always<-10034>}, {ROW(V1OH), h_low, h_crit, always<-10034>},
    {ROW(DVOH), h_crit, h_max, always<-10035>}, {ROW(V2OH), h_crit, h_max, always<-10035>},
    {ROW(PSATOS), s_low, s_max, always<0>}, {ROW(TSATOS), s_low, s_max, always<-10038>},
    {ROW(DLOS), s_low, s_crit, always<-10033>}, {ROW(V1OS), s_low, s_crit, always<-10033>},
    {ROW(DVOS), s_crit, s_max, always<-10033>}, {ROW(V2OS), s_crit, s_max, always<0>},
};
// clang-format on

#undef ROW

// Arguments no state has, alone or together.
inline constexpr double bad_values[] = {
    std::numeric_limits<double>::quiet_NaN(),
    infinity,
    -infinity,
    0.0,
    -0.0,
    -1.0,
    std::numeric_limits<double>::denorm_min(),
    -std::numeric_limits<double>::denorm_min(),
    1e308,
    -1e308,
    std::numeric_limits<double>::max(),
};

struct State {
    double p, t;  // MPa, K
};
// One state of each region: 1, 2, 3, 5.
inline constexpr State inside[] = {{3.0, 300.0}, {3.0, 700.0}, {25.0, 650.0}, {3.0, 1500.0}};

// One state of (p, h) and (p, s) in each region, and one of wet steam.
struct InverseState {
    double p, h, s;  // MPa, kJ/kg, kJ/(kg K)
    int region;      // 9: wet steam
};
inline constexpr InverseState inverse_inside[] = {
    {3.0, 500.0, 1.5, 1},  {3.0, 3000.0, 6.5, 2}, {30.0, 2200.0, 4.5, 3},
    {3.0, 5500.0, 9.0, 5}, {1.0, 1500.0, 4.0, 9},
};

// The same state by any variable.
inline double variable(Of of, const InverseState& at) {
    switch (of) {
        case Of::p: return at.p;
        case Of::t: return TOPH(&at.p, &at.h);
        case Of::v: return VOPH(&at.p, &at.h);
        case Of::d: return DOPH(&at.p, &at.h);
        case Of::h: return at.h;
        default: return SOPH(&at.p, &at.h);
    }
}

// Gives the calling thread a code that none of the functions under test stores: the one of the
// saturation line for the functions of (p, T), the one of (p, T) for those of the saturation line.
enum LeftCode : int { of_line = off_line_by_t, of_pt = outside };
inline void leave(LeftCode code) {
    const double nowhere = 0.0;
    code == of_line ? POT(&nowhere) : HOPT(&nowhere, &nowhere);
}

}  // namespace host
