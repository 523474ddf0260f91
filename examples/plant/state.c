// SPDX-License-Identifier: MIT
#include "state.h"

#include "csv.h"

static const double lowest_p = 0.0006112127, highest_p = 100.0;  // MPa

// The library answers a failure with -99999, an undetermined state with 0 or infinity. Enthalpy and
// entropy may well be 0 or a little less: both are counted from the triple point.
static double usable(double value, bool may_be_zero) {
    const bool good = isfinite(value) && (may_be_zero ? value > -99998.0 : value > 0.0);
    return good ? value : NO_VALUE;
}

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
    if (isnan(usable(failed, true))) {
        snprintf(fault + length, sizeof fault - (size_t)length, "; error code %d",
                 library->error_code());
    }
    length = snprintf(text, sizeof text, "%.10g MPa", *p);
    if (station->has_t) {
        snprintf(text + length, sizeof text - (size_t)length, ", %.10g K", *t);
    }
    report_line(file, station->line, fault, text);
    return STATE_OUTSIDE;
}

StateKind evaluate(const Library* library, const char* file, const Station* station, State* state) {
    static const char* const symbols[quantity_count] = {"v", "h", "s", "cp", "w"};
    const double *p = &station->p, *t = &station->t;
    state->region = station->has_t ? (int)library->region(p, t) : 0;
    if (station->has_t ? state->region == 0 : !(*p >= lowest_p && *p <= highest_p)) {
        return report_outside(library, file, station);
    }
    for (int f = 0; f < family_count; ++f) {
        state->t_sat[f] = usable(library->t_sat[f](p), false);
    }
    const bool single_phase = station->has_t && state->region != 4;
    state->remark = single_phase     ? ""
                    : station->has_t ? "on the saturation line: p and T leave the quality open"
                    : isnan(state->t_sat[family_o])
                        ? "no temperature measured, and none of saturation above the critical point"
                        : "no temperature measured: the pressure alone fixes Ts only";
    StateKind kind = STATE_WHOLE;
    for (int q = 0; q < quantity_count; ++q) {
        for (int f = 0; f < family_count; ++f) {
            double* value = &state->value[q][f];
            *value = NO_VALUE;
            if (!single_phase) {
                continue;
            }
            *value = usable(library->property[q][f](p, t), q == quantity_h || q == quantity_s);
            if (isnan(*value)) {
                char text[40];
                snprintf(text, sizeof text, "%s by the %c-family", symbols[q], "BO"[f]);
                report_line(file, station->line, "the library gives no value", text);
                kind = STATE_HAS_GAPS;
            }
        }
    }
    return kind;
}
