// SPDX-License-Identifier: MIT
// Every function of the catalogue, bound by name from C by a thread older than the library: a good
// state gives it an answer, a state of NaN none, and no call allocates, the first failure of the
// thread included.
//
//   every_export LIBRARY SIGNATURES [sanitized]     sanitized: allocations are not counted
#define _GNU_SOURCE
#include <dlfcn.h>
#include <math.h>
#include <pthread.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { most_arguments = 5, word = 24, states = 6, functions = 439 };

// This program's allocator takes the place of the C library's, for the loader too.
static atomic_long allocations;
#ifdef COUNT_ALLOCATIONS
#define COUNTED(name, parameters, arguments) \
    extern void* __libc_##name parameters;   \
    void* name parameters;                   \
    void* name parameters {                  \
        atomic_fetch_add(&allocations, 1);   \
        return __libc_##name arguments;      \
    }
COUNTED(malloc, (size_t size), (size))
COUNTED(calloc, (size_t count, size_t size), (count, size))
COUNTED(realloc, (void* block, size_t size), (block, size))
COUNTED(memalign, (size_t alignment, size_t size), (alignment, size))
#endif

// The bytes of an export as a function of its own type.
typedef union {
    void* object;
    double (*constant)(void);
    int (*of_none)(void);
    double (*of_one)(const double*);
    double (*of_two)(const double*, const double*);
    double (*of_three)(const double*, const double*, const double*);
    double (*of_four)(const double*, const double*, const double*, const double*);
    double (*of_region)(const double*, const double*, int*);
    void (*writing)(const double*, const double*, double*);
    void (*writing_of_region)(const double*, const double*, const double*, int*, double*);
} Function;

typedef struct {
    Function function;
    char name[word], arguments[most_arguments][word];
    int count;
} Signature;

// p T v h s x: liquid, vapour, cold liquid, wet steam, cold saturated liquid, saturated vapour
static const double good[states][6] = {
    {3, 300, 0.001002151679686694, 115.33127302143957, 0.39229479240262555, 0.5},
    {3, 600, 0.08630500910008175, 3060.8506383795316, 6.654624019451805, 0.5},
    {0.5, 275, 0.0009998610582974293, 8.263579998427824, 0.028325997535256955, 0.5},
    {0.9320410791359337, 450, 0.10447907269729391, 1761.8517643696553, 4.359084316143513, 0.5},
    {0.0006984535147182353, 275, 0.0010001116152796113, 7.759557575693098, 0.028308805843360218, 0},
    {0.04168180040931202, 350, 3.842011713188776, 2637.7261023618125, 7.654916037647461, 1}};
static const char variables[] = "pTvhsx";

static double argument(const char* name, const double* state) {
    if (name[0] == 'd') return 1 / state[2];  // d, d_start
    const char* place = strchr(variables, name[0]);
    if (name[1] == '\0' && place != NULL) return state[place - variables];
    return isnan(state[0]) ? state[0] : name[0] == 'w' ? 0.5 : 1e-6;  // wavelength, tolerance
}

static double call(const Signature* signature, const double* state) {
    const Function f = signature->function;
    double a[most_arguments];
    int region = 0, has_region = 0, writes = 0;
    double out = -99999.0;
    for (int k = 0; k < signature->count; ++k) {
        const char* name = signature->arguments[k];
        has_region |= strcmp(name, "region") == 0;
        writes |= strcmp(name, "out") == 0 || strcmp(name, "eta") == 0;
        a[k] = argument(name, state);
    }
    if (writes && has_region) return f.writing_of_region(&a[0], &a[1], &a[2], &region, &out), out;
    if (writes) return f.writing(&a[0], &a[1], &out), out;
    if (has_region) return f.of_region(&a[0], &a[1], &region);
    switch (signature->count) {
        case 0: return strcmp(signature->name, "ECODETUL") == 0 ? f.of_none() : f.constant();
        case 1: return f.of_one(&a[0]);
        case 2: return f.of_two(&a[0], &a[1]);
        case 3: return f.of_three(&a[0], &a[1], &a[2]);
        default: return f.of_four(&a[0], &a[1], &a[2], &a[3]);
    }
}

static Signature signatures[functions + 1];
static int failures;

#define CHECK(condition, ...)                                                                   \
    do {                                                                                        \
        if (!(condition) && ++failures < 20) fprintf(stderr, __VA_ARGS__), fputc('\n', stderr); \
    } while (0)
static pthread_barrier_t loaded;
static const double no_state[6] = {(double)NAN, (double)NAN, (double)NAN,
                                   (double)NAN, (double)NAN, (double)NAN};

static void* call_all(void* unused) {
    (void)unused;
    pthread_barrier_wait(&loaded);
    const long before = atomic_load(&allocations);
    for (const Signature* each = signatures; each < signatures + functions; ++each) {
        const double refused = call(each, no_state);
        CHECK(each->count == 0 || !isfinite(refused) || refused < -99998.0 || refused == 0.0,
              "%s answers NaN with %.17g", each->name, refused);
        int answered = strcmp(each->name, "ECODETUL") == 0;
        for (int k = 0; k < states; ++k) {
            const double got = call(each, good[k]);
            answered |= isfinite(got) && got > -99998.0 && got != 0.0;
        }
        CHECK(answered, "%s answers no good state", each->name);
    }
    const long after = atomic_load(&allocations);
    CHECK(after == before, "%ld allocations", after - before);
    return NULL;
}

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    pthread_t thread;
    if (pthread_barrier_init(&loaded, NULL, 2) != 0 ||
        pthread_create(&thread, NULL, call_all, NULL) != 0)
        return 2;
    void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    FILE* list = fopen(argv[2], "r");
    if (list == NULL || library == NULL) return 2;
    int count = 0;
    for (char line[200]; count <= functions && fgets(line, sizeof line, list) != NULL; ++count) {
        Signature* s = &signatures[count];
        s->count = sscanf(line, "%23s %23s %23s %23s %23s %23s", s->name, s->arguments[0],
                          s->arguments[1], s->arguments[2], s->arguments[3], s->arguments[4]) -
                   1;
        s->function.object = dlsym(library, s->name);
        if (s->function.object == NULL) return 2;
    }
    fclose(list);
    CHECK(count == functions, "%d functions", count);
    pthread_barrier_wait(&loaded);
    pthread_join(thread, NULL);
    return failures == 0 ? 0 : 1;
}
