// SPDX-License-Identifier: MIT
#include "library.h"

#include "binding.h"

bool open_library(const char* path, Library* library) {
    static const char* const properties[quantity_count][family_count] = {
        [quantity_v] = {"VBPT", "VOPT"}, [quantity_h] = {"HBPT", "HOPT"},
        [quantity_s] = {"SBPT", "SOPT"}, [quantity_cp] = {"CPBPT", "CPOPT"},
        [quantity_w] = {"WBPT", "WOPT"},
    };
    // On the saturation line up to 623.15 K the liquid is of region 1 and the vapour of region 2.
    static const char* const saturated[wet_quantity_count][phase_count] = {
        [quantity_v] = {"VPT1N", "VPT2N"},
        [quantity_h] = {"HPT1N", "HPT2N"},
        [quantity_s] = {"SPT1N", "SPT2N"},
    };
    static const char* const t_sat[family_count] = {"TBP", "TOP"};
    static const char* const h_ps[family_count] = {"HBPS", "HOPS"};
    static const char* const t_ps[family_count] = {"TBPS", "TOPS"};
    static const char* const x_ps[family_count] = {"XBPS", "XOPS"};
    static const char* const t_ph[family_count] = {"TBPH", "TOPH"};

    Binding binding;
    if (!open_binding("plant", path, &binding)) {
        return false;
    }
    library->region_pt = (OfPair*)bind_name(&binding, "REGIONPT");
    library->error_code = (ErrorCode*)bind_name(&binding, "ECODETUL");
    library->region_ps = (OfPair*)bind_name(&binding, "REGIONPS");
    for (int q = 0; q < wet_quantity_count; ++q) {
        for (int phase = 0; phase < phase_count; ++phase) {
            library->saturated[q][phase] = (OfPair*)bind_name(&binding, saturated[q][phase]);
        }
    }
    for (int f = 0; f < family_count; ++f) {
        library->h_ps[f] = (OfPair*)bind_name(&binding, h_ps[f]);
        library->t_ps[f] = (OfPair*)bind_name(&binding, t_ps[f]);
        library->x_ps[f] = (OfPair*)bind_name(&binding, x_ps[f]);
        library->t_ph[f] = (OfPair*)bind_name(&binding, t_ph[f]);
        library->t_sat[f] = (OfP*)bind_name(&binding, t_sat[f]);
        for (int q = 0; q < quantity_count; ++q) {
            library->property[q][f] = (OfPair*)bind_name(&binding, properties[q][f]);
        }
    }
    return binding.complete;
}

double answer(double value, bool may_be_zero) {
    const bool good = isfinite(value) && (may_be_zero ? value > -99998.0 : value > 0.0);
    return good ? value : NO_VALUE;
}
