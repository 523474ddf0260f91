// SPDX-License-Identifier: MIT
// The error code as a host sees it: CODE is the initial thread's storage, ECODETUL the calling
// thread's code; a thread starts at 0, and a code stays until that thread stores another.
//
//   code_thread LIBRARY initial|other|reload|fork
//
// says which thread loads the library and fails first: the initial one, another one, or the initial
// one after it has loaded and unloaded the library many times; fork: and that a child has the code
// of the thread that forked, which is 0 if that had never called the library.
#define _POSIX_C_SOURCE 200809L
#include "host.h"

#include <math.h>
#include <pthread.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

enum { outside = -10055, no_such_t_sat = -10019, no_such_p_sat = -10020 };
static const double failed = -99999.0;

static const char* library_path;
static Exports lib;

// One call for each code there is: outside the range of (p, T), off either end of the saturation
// line, and on the line, where success stores 0.
enum { kind_count = 4 };
static const int stored[kind_count] = {outside, no_such_t_sat, no_such_p_sat, 0};
static double expected[kind_count];
static double p_boiling;  // at the temperature of `store`

static double store(int kind) {
    const double t = 373.15, too_cold = 100.0, too_high = 200.0;
    switch (kind) {
        case 0: return lib.hopt(&too_high, &t);
        case 1: return lib.pot(&too_cold);
        case 2: return lib.top(&too_high);
        default: return lib.hopt(&p_boiling, &t);
    }
}

static void check_code(int code, const char* when) {
    CHECK(lib.ecodetul() == code, "expected %d, got %d %s", code, lib.ecodetul(), when);
}

static void run(void* (*body)(void*), void* argument) {
    pthread_t thread;
    if (pthread_create(&thread, NULL, body, argument) != 0 || pthread_join(thread, NULL) != 0) {
        fputs("cannot run a thread\n", stderr);
        exit(2);
    }
}

static void* load_and_fail(void* unused) {
    (void)unused;
    open_exports(library_path, &lib);
    CHECK(store(0) == failed, "HOPT at 200 MPa");
    check_code(outside, "in the thread that loaded the library and failed first");
    CHECK(*lib.code == 0, "CODE is %d after a failure on another thread", *lib.code);
    return NULL;
}

static void load(const char* how) {
    if (strcmp(how, "other") == 0) {
        run(load_and_fail, NULL);
        return;
    }
    for (int i = 0; strcmp(how, "reload") == 0 && i < 300; ++i) {
        open_exports(library_path, &lib);
        store(i % kind_count);
        dlclose(lib.handle);
    }
    open_exports(library_path, &lib);
}

// On the initial thread, whose code stands in CODE.
static void check_initial_thread(void) {
    CHECK(*lib.code == 0, "CODE starts at %d", *lib.code);
    check_code(0, "before any call of this thread");
    for (int kind = 0; kind < kind_count; ++kind) {
        store(kind);
        check_code(stored[kind], "in the initial thread");
        CHECK(*lib.code == stored[kind], "CODE is %d after %d", *lib.code, stored[kind]);
    }
}

static void check_code_sticks(void) {
    const double p = 3.0, liquid = 300.0, vapour = 700.0, hot = 1500.0, too_high = 200.0;
    const double near_critical_p = 25.0, near_critical_t = 650.0;
    store(0);
    lib.hopt(&p, &liquid);
    lib.sopt(&p, &vapour);
    lib.hopt(&near_critical_p, &near_critical_t);
    lib.dotp(&hot, &p);
    lib.pot(&liquid);
    lib.top(&p);
    check_code(outside, "after calls that succeed: they leave the code alone");
    store(1);
    CHECK(lib.hbpt(&too_high, &liquid) == failed, "HBPT at 200 MPa");
    CHECK(lib.pbt(&hot) == failed, "PBT at 1500 K");
    check_code(no_such_t_sat, "after failures in the B-family, which has no code");
    const double t = 373.15;
    CHECK(lib.sopt(&p_boiling, &t) > 1.0, "SOPT on the saturation line is the liquid's");
    check_code(0, "after SOPT on the saturation line, which stores success");
}

static void* start_at_zero(void* kind) {
    check_code(0, "at the start of a thread");
    store(*(const int*)kind);
    check_code(stored[*(const int*)kind], "in a short-lived thread");
    return NULL;
}

// Each thread walks through the kinds from a place of its own.
static void* keep_apart(void* first) {
    int kind = *(const int*)first;
    for (int i = 0; i < 4000; ++i, kind = (kind + 1) % kind_count) {
        const double value = store(kind);
        if (i % 64 == 0) {
            sched_yield();
        }
        CHECK(memcmp(&value, &expected[kind], sizeof value) == 0, "%.17g, alone %.17g", value,
              expected[kind]);
        check_code(stored[kind], "under load");
    }
    return NULL;
}

static void* fork_child(void* calls) {
    if (calls != NULL) store(1);
    const int expected_code = calls != NULL ? no_such_t_sat : 0;
    const pid_t child = fork();
    if (child == 0) {
        int right = lib.ecodetul() == expected_code;
        store(0);
        right &= lib.ecodetul() == outside;
        _exit(right ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    CHECK(child > 0 && status == 0, "a child forked from a thread that %s the library",
          calls != NULL ? "called" : "never called");
    return NULL;
}

static void check_threads(void) {
    enum { thread_count = 16 };
    static pthread_t threads[thread_count];
    static int kinds[thread_count];
    for (int i = 0; i < thread_count; ++i) {
        kinds[i] = i % kind_count;
        run(start_at_zero, &kinds[i]);
    }
    for (int kind = 0; kind < kind_count; ++kind) {
        expected[kind] = store(kind);
    }
    store(2);
    for (int i = 0; i < thread_count; ++i) {
        if (pthread_create(&threads[i], NULL, keep_apart, &kinds[i]) != 0) {
            fputs("cannot start a thread\n", stderr);
            exit(2);
        }
    }
    for (int i = 0; i < thread_count; ++i) {
        pthread_join(threads[i], NULL);
    }
    check_code(no_such_p_sat, "in the initial thread after other threads' failures");
    CHECK(*lib.code == no_such_p_sat, "CODE is %d after other threads' failures", *lib.code);
}

int main(int argc, char* argv[]) {
    if (argc != 3) {
        fputs("usage: code_thread LIBRARY initial|other|reload|fork\n", stderr);
        return 2;
    }
    library_path = argv[1];
    load(argv[2]);
    const double t = 373.15;
    p_boiling = lib.pbt(&t);
    CHECK(isfinite(p_boiling) && p_boiling > 0.1, "PBT of 373.15 K is %.17g", p_boiling);
    check_initial_thread();
    check_code_sticks();
    check_threads();
    if (strcmp(argv[2], "fork") == 0) {
        run(fork_child, NULL);
        run(fork_child, argv);
    }
    return atomic_load(&failures) == 0 ? 0 : 1;
}
