// SPDX-License-Identifier: MIT
// No call allocates: neither a result, nor the first failure of a thread, whose error code must not
// be set up lazily. The thread is older than the library: the hardest case for thread-local
// storage.
#define _GNU_SOURCE
#include "host.h"

#include <pthread.h>

static atomic_long allocations;

// This program's allocator takes the place of the C library's, for the loader too.
extern void* __libc_malloc(size_t size);
extern void* __libc_calloc(size_t count, size_t size);
extern void* __libc_realloc(void* block, size_t size);
extern void* __libc_memalign(size_t alignment, size_t size);
void* malloc(size_t size);
void* calloc(size_t count, size_t size);
void* realloc(void* block, size_t size);
void* memalign(size_t alignment, size_t size);

void* malloc(size_t size) {
    atomic_fetch_add(&allocations, 1);
    return __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
    atomic_fetch_add(&allocations, 1);
    return __libc_calloc(count, size);
}

void* realloc(void* block, size_t size) {
    atomic_fetch_add(&allocations, 1);
    return __libc_realloc(block, size);
}

void* memalign(size_t alignment, size_t size) {
    atomic_fetch_add(&allocations, 1);
    return __libc_memalign(alignment, size);
}

static Exports lib;
static pthread_barrier_t loaded;

static void check_calls(const char* thread) {
    static const double states[][2] = {
        // MPa, K: regions 1, 2, 3, 5, and outside
        {3.0, 300.0}, {3.0, 700.0}, {25.0, 650.0}, {22.1, 647.3}, {3.0, 1500.0}, {200.0, 300.0},
    };
    const long before = atomic_load(&allocations);
    const int first_code = lib.ecodetul();
    double sum = 0.0;
    for (size_t i = sizeof states / sizeof *states; i-- > 0;) {  // the failure first
        const double *p = &states[i][0], *t = &states[i][1];
        sum += lib.hopt(p, t) + lib.sopt(p, t) + lib.dotp(t, p) + lib.hbpt(p, t);
        sum += lib.pot(t) + lib.pbt(t) + lib.top(p);
    }
    const long after = atomic_load(&allocations);
    CHECK(after == before, "%ld allocations in %s", after - before, thread);
    CHECK(first_code == 0 && lib.ecodetul() == -10019, "code %d, then %d in %s", first_code,
          lib.ecodetul(), thread);
    CHECK(sum == sum, "a result is no number in %s", thread);
}

static void* wait_and_call(void* unused) {
    (void)unused;
    pthread_barrier_wait(&loaded);
    check_calls("a thread older than the library");
    return NULL;
}

int main(int argc, char* argv[]) {
    if (argc != 2) {
        fputs("usage: allocation LIBRARY\n", stderr);
        return 2;
    }
    pthread_t thread;
    if (pthread_barrier_init(&loaded, NULL, 2) != 0 ||
        pthread_create(&thread, NULL, wait_and_call, NULL) != 0) {
        fputs("cannot start a thread\n", stderr);
        return 2;
    }
    const long before = atomic_load(&allocations);
    open_exports(argv[1], &lib);
    CHECK(atomic_load(&allocations) > before, "loading allocates, yet nothing was counted");
    pthread_barrier_wait(&loaded);
    pthread_join(thread, NULL);
    check_calls("the initial thread");
    return atomic_load(&failures) == 0 ? 0 : 1;
}
