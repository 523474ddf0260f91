// SPDX-License-Identifier: MIT
#include "library.h"

#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

typedef void AnyFunction(void);

// dlsym returns an object pointer; ISO C has no cast from it to a function, a copy of its bytes is
// what POSIX vouches for. Each caller casts back to the type the name has.
static AnyFunction* bind_name(void* handle, const char* path, const char* name, bool* complete) {
    void* object = dlsym(handle, name);
    AnyFunction* function = NULL;
    if (object == NULL) {
        fprintf(stderr, "plant: %s has no function %s\n", path, name);
        *complete = false;
        return NULL;
    }
    memcpy(&function, &object, sizeof function);
    return function;
}

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

    void* handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (handle == NULL) {
        fprintf(stderr, "plant: cannot open the library: %s\n", dlerror());
        return false;
    }
    bool complete = true;
    library->region_pt = (OfPair*)bind_name(handle, path, "REGIONPT", &complete);
    library->error_code = (ErrorCode*)bind_name(handle, path, "ECODETUL", &complete);
    library->region_ps = (OfPair*)bind_name(handle, path, "REGIONPS", &complete);
    for (int q = 0; q < wet_quantity_count; ++q) {
        for (int phase = 0; phase < phase_count; ++phase) {
            library->saturated[q][phase] =
                (OfPair*)bind_name(handle, path, saturated[q][phase], &complete);
        }
    }
    for (int f = 0; f < family_count; ++f) {
        library->h_ps[f] = (OfPair*)bind_name(handle, path, h_ps[f], &complete);
        library->t_ps[f] = (OfPair*)bind_name(handle, path, t_ps[f], &complete);
        library->x_ps[f] = (OfPair*)bind_name(handle, path, x_ps[f], &complete);
        library->t_ph[f] = (OfPair*)bind_name(handle, path, t_ph[f], &complete);
        library->t_sat[f] = (OfP*)bind_name(handle, path, t_sat[f], &complete);
        for (int q = 0; q < quantity_count; ++q) {
            library->property[q][f] = (OfPair*)bind_name(handle, path, properties[q][f], &complete);
        }
    }
    return complete;
}

double answer(double value, bool may_be_zero) {
    const bool good = isfinite(value) && (may_be_zero ? value > -99998.0 : value > 0.0);
    return good ? value : NO_VALUE;
}
