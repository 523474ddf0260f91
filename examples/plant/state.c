// SPDX-License-Identifier: MIT
#include "state.h"

#include "csv.h"

const double saturation_margin = 2.0;
static const double lowest_p = 0.0006112127, highest_p = 100.0;  // MPa
static const double highest_t_wet = 623.15;  // K, above it region 3 has the saturated states

// Enthalpy and entropy may well be 0 or a little less: both are counted from the triple point.
static bool may_be_zero(int quantity) { return quantity == quantity_h || quantity == quantity_s; }

static StateKind report_outside(const Library* library, const char* file, const Station* station) {
    // The call fails again, so that the code is the one of this state and not of an earlier one.
    const double *p = &station->p, *t = &station->t;
    const double failed = station->has_t ? library->property[quantity_h][family_o](p, t)
                                         : library->t_sat[family_o](p);
    char fault[200], text[120];
    int length = snprintf(fault, sizeof fault,
                          "outside the range of validity, %.10g to %.10g MPa, "
                          "273.15 to 1073.15 K; up to 50 MPa to 2273.15 K",
                          lowest_p, highest_p);
    if (isnan(answer(failed, true))) {
        snprintf(fault + length, sizeof fault - (size_t)length, "; error code %d",
                 library->error_code());
    }
    length = snprintf(text, sizeof text, "%.10g MPa", *p);
    if (station->has_t) {
        snprintf(text + length, sizeof text - (size_t)length, ", %.10g K", *t);
    }
    report_line(file, station->line, fault, text);
    return STATE_NONE;
}

static StateKind report_quality(const char* file, const Station* station, const State* state) {
    char text[80];
    if (!(state->t_sat[family_o] <= highest_t_wet)) {
        snprintf(text, sizeof text, "%.10g MPa", station->p);
        report_line(file, station->line,
                    "a quality is understood where saturation is at 273.15 to 623.15 K", text);
    } else {
        snprintf(text, sizeof text, "%.10g K, saturation at %.2f K", station->t,
                 state->t_sat[family_o]);
        report_line(file, station->line, "temperature and quality contradict each other", text);
    }
    return STATE_NONE;
}

static bool quality_is_possible(const Station* station, const State* state) {
    const double t_sat = state->t_sat[family_o];
    return t_sat <= highest_t_wet &&
           (!station->has_t || fabs(station->t - t_sat) <= saturation_margin);
}

// Without a quality the state is that of p and T.
static double value_of(const Library* library, const Station* station, const State* state,
                       int quantity, int family) {
    const double* p = &station->p;
    if (!station->has_x) {
        return answer(library->property[quantity][family](p, &station->t), may_be_zero(quantity));
    }
    const double* t_sat = &state->t_sat[family];
    OfPair* const* saturated = library->saturated[quantity];
    const double of_liquid = answer(saturated[liquid](p, t_sat), may_be_zero(quantity));
    const double of_vapour = answer(saturated[vapour](p, t_sat), may_be_zero(quantity));
    return of_liquid + station->x * (of_vapour - of_liquid);
}

static void remark_on(State* state, const Station* station) {
    const char* text = "";
    if (station->has_x) {
        snprintf(state->remark, sizeof state->remark, "wet steam of quality %.6g", station->x);
        return;
    }
    if (state->region == two_phase) {
        text = "on the saturation line: p and T leave the quality open";
    } else if (!station->has_t) {
        text = isnan(state->t_sat[family_o])
                   ? "no temperature measured, and none of saturation above the critical point"
                   : "no temperature measured: the pressure alone fixes Ts only";
    }
    snprintf(state->remark, sizeof state->remark, "%s", text);
}

// The first so many quantities are fixed by what was measured.
static int count_known(const Station* station, const State* state) {
    return station->has_x                                 ? wet_quantity_count
           : station->has_t && state->region != two_phase ? quantity_count
                                                          : 0;
}

StateKind evaluate(const Library* library, const char* file, const Station* station, State* state) {
    static const char* const symbols[quantity_count] = {"v", "h", "s", "cp", "w"};
    const double *p = &station->p, *t = &station->t;
    for (int f = 0; f < family_count; ++f) {
        state->t_sat[f] = answer(library->t_sat[f](p), false);
    }
    if (station->has_x && !quality_is_possible(station, state)) {
        return report_quality(file, station, state);
    }
    state->region = station->has_x ? two_phase : station->has_t ? (int)library->region_pt(p, t) : 0;
    if (station->has_t ? state->region == 0 : !(*p >= lowest_p && *p <= highest_p)) {
        return report_outside(library, file, station);
    }
    remark_on(state, station);
    const int known = count_known(station, state);
    StateKind kind = STATE_WHOLE;
    for (int q = 0; q < quantity_count; ++q) {
        for (int f = 0; f < family_count; ++f) {
            state->value[q][f] = q < known ? value_of(library, station, state, q, f) : NO_VALUE;
            if (q < known && isnan(state->value[q][f])) {
                char text[40];
                snprintf(text, sizeof text, "%s by the %c-family", symbols[q], "BO"[f]);
                report_line(file, station->line, "the library gives no value", text);
                kind = STATE_HAS_GAPS;
            }
        }
    }
    return kind;
}
