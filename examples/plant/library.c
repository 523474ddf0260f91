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
    static const char* const t_sat[family_count] = {"TBP", "TOP"};

    void* handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (handle == NULL) {
        fprintf(stderr, "plant: cannot open the library: %s\n", dlerror());
        return false;
    }
    bool complete = true;
    library->region = (OfPT*)bind_name(handle, path, "REGIONPT", &complete);
    library->error_code = (ErrorCode*)bind_name(handle, path, "ECODETUL", &complete);
    for (int f = 0; f < family_count; ++f) {
        library->t_sat[f] = (OfP*)bind_name(handle, path, t_sat[f], &complete);
        for (int q = 0; q < quantity_count; ++q) {
            library->property[q][f] = (OfPT*)bind_name(handle, path, properties[q][f], &complete);
        }
    }
    return complete;
}
