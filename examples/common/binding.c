// SPDX-License-Identifier: MIT
#include "binding.h"

#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

bool open_binding(const char* program, const char* path, Binding* binding) {
    *binding = (Binding){program, path, dlopen(path, RTLD_NOW | RTLD_LOCAL), true};
    if (binding->handle == NULL) {
        fprintf(stderr, "%s: cannot open the library: %s\n", program, dlerror());
    }
    return binding->handle != NULL;
}

// dlsym returns an object pointer; ISO C has no cast from it to a function, a copy of its bytes is
// what POSIX vouches for.
AnyFunction* bind_name(Binding* binding, const char* name) {
    void* object = dlsym(binding->handle, name);
    AnyFunction* function = NULL;
    if (object == NULL) {
        fprintf(stderr, "%s: %s has no function %s\n", binding->program, binding->path, name);
        binding->complete = false;
        return NULL;
    }
    memcpy(&function, &object, sizeof function);
    return function;
}
