/* SPDX-License-Identifier: MIT */
/* The library as programs open it elsewhere: where nothing can be opened, names of what is linked. */
#include <dlfcn.h>
#include <stdlib.h>
#include <string.h>

#include "vaprix.h"

struct Export {
    const char* name;
    void* symbol;
};

/* in the order of their names */
static const struct Export exports[] = {
#define EXPORT(name) {#name, (void*)&name},
#include "exports.inc"
};

static int by_name(const void* name, const void* of) {
    return strcmp(name, ((const struct Export*)of)->name);
}

void* dlopen(const char* path, int mode) {
    (void)path, (void)mode;
    return (void*)exports;
}

void* dlsym(void* library, const char* name) {
    const struct Export* found =
        bsearch(name, library, sizeof exports / sizeof *exports, sizeof *exports, by_name);
    return found ? found->symbol : NULL;
}
