// SPDX-License-Identifier: MIT
// What the C host tests share: the library opened by file name, its exports bound by name.
#ifndef TESTS_HOST_H
#define TESTS_HOST_H

#include <dlfcn.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

typedef double OfTwo(const double* first, const double* second);
typedef double OfOne(const double* first);
typedef int OfNone(void);

typedef struct {
    void* handle;
    OfTwo *hbpt, *hopt, *sopt, *dotp;
    OfOne *pbt, *pot, *top;
    OfNone* ecodetul;
    const int* code;  // the data symbol: the initial thread's code
} Exports;

static inline void* find(void* handle, const char* name) {
    void* object = dlsym(handle, name);
    if (object == NULL) {
        fprintf(stderr, "no %s in the library: %s\n", name, dlerror());
        exit(2);
    }
    return object;
}

// ISO C has no cast from an object pointer to a function pointer; the bytes are the same.
#define BIND(exports, member, name)                         \
    do {                                                    \
        void* object = find((exports)->handle, name);       \
        memcpy(&(exports)->member, &object, sizeof object); \
    } while (0)

static inline void open_exports(const char* path, Exports* exports) {
    exports->handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (exports->handle == NULL) {
        fprintf(stderr, "cannot open the library: %s\n", dlerror());
        exit(2);
    }
    BIND(exports, hbpt, "HBPT");
    BIND(exports, hopt, "HOPT");
    BIND(exports, sopt, "SOPT");
    BIND(exports, dotp, "DOTP");
    BIND(exports, pbt, "PBT");
    BIND(exports, pot, "POT");
    BIND(exports, top, "TOP");
    BIND(exports, ecodetul, "ECODETUL");
    BIND(exports, code, "CODE");
}

static atomic_int failures;

#define CHECK(condition, ...)                                               \
    do {                                                                    \
        if (!(condition) && atomic_fetch_add(&failures, 1) < 20) {          \
            fprintf(stderr, "%s:%d: %s: ", __FILE__, __LINE__, #condition); \
            fprintf(stderr, __VA_ARGS__);                                   \
            fputc('\n', stderr);                                            \
        }                                                                   \
    } while (0)

#endif
