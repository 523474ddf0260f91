// SPDX-License-Identifier: MIT
// The error code as a host sees it: CODE is the initial thread's storage, ECODETUL the calling
// thread's code; a thread starts at 0, and a code stays until that thread stores another.
//
//   code_thread LIBRARY initial|other|reload|fork
//
// says which thread loads the library and fails first: the initial one, another one, or the initial
// one after it has loaded and unloaded the library many times; fork: and that a child has the code
// of the thread that forked, which is 0 if that had never called the library.
#include <dlfcn.h>
#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <array>
#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace {

using OfTwo = double (*)(const double*, const double*);
using OfOne = double (*)(const double*);

struct Library {
    void* handle = nullptr;
    OfTwo hopt = nullptr, hbpt = nullptr;
    OfOne pbt = nullptr, pot = nullptr, top = nullptr;
    int (*ecodetul)() = nullptr;
    const int* code = nullptr;

    void open(const char* path) {
        handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
        const auto bind = [this](auto& member, const char* name) {
            member =
                reinterpret_cast<std::remove_reference_t<decltype(member)>>(dlsym(handle, name));
        };
        bind(hopt, "HOPT"), bind(hbpt, "HBPT"), bind(pbt, "PBT"), bind(pot, "POT"),
            bind(top, "TOP");
        bind(ecodetul, "ECODETUL"), bind(code, "CODE");
    }
};
Library lib;
std::atomic<int> failures;

void check(bool right, const std::string& what) {
    if (!right && failures++ < 20)
        std::fprintf(stderr, "%s: code %d\n", what.c_str(), lib.ecodetul());
}

// One call for each code there is: outside the range of (p, T), off either end of the saturation
// line, and on the line, where success stores 0.
constexpr std::array stored = {-10055, -10019, -10020, 0};
constexpr int kinds = stored.size();
double store(int kind) {
    const double t = 373.15, cold = 100, dense = 200, p_boiling = lib.pbt(&t);
    switch (kind) {
        case 0: return lib.hopt(&dense, &t);
        case 1: return lib.pot(&cold);
        case 2: return lib.top(&dense);
        default: return lib.hopt(&p_boiling, &t);
    }
}
void check_stores(int kind, const std::string& where) {
    store(kind);
    check(lib.ecodetul() == stored[static_cast<std::size_t>(kind)], where);
}

void load(const char* path, const std::string& how) {
    for (int k = 0; how == "reload" && k < 300; ++k) {
        lib.open(path);
        store(k % kinds);
        dlclose(lib.handle);
    }
    if (how != "other") return lib.open(path);
    std::thread([path] {
        lib.open(path);
        check_stores(0, "the thread that loaded the library");
        check(*lib.code == 0, "CODE after a failure on another thread");
    }).join();
}

void check_initial_thread() {
    check(*lib.code == 0 && lib.ecodetul() == 0, "before any call of this thread");
    for (int kind = 0; kind < kinds; ++kind) {
        check_stores(kind, "the initial thread");
        check(*lib.code == lib.ecodetul(), "CODE");
    }
    store(1);
    const double p = 3, t = 300, dense = 200;
    lib.hopt(&p, &t), lib.top(&p), lib.hbpt(&dense, &t);
    check_stores(1, "after a success and a failure of the B-family");
}

// Threads that start at 0 and walk through the kinds, each from a place of its own.
void check_threads() {
    std::array<double, kinds> alone{};
    for (int kind = 0; kind < kinds; ++kind) alone[static_cast<std::size_t>(kind)] = store(kind);
    store(2);
    std::vector<std::thread> threads;
    for (int first = 0; first < 16; ++first) {
        threads.emplace_back([first, &alone] {
            check(lib.ecodetul() == 0, "at the start of a thread");
            for (int k = 0; k < 4000; ++k) {
                const int kind = (first + k) % kinds;
                check(store(kind) == alone[static_cast<std::size_t>(kind)], "a value under load");
                check(lib.ecodetul() == stored[static_cast<std::size_t>(kind)], "under load");
                if (k % 64 == 0) std::this_thread::yield();
            }
        });
    }
    for (std::thread& each : threads) each.join();
    check(lib.ecodetul() == stored[2] && *lib.code == stored[2], "the initial thread after others");
}

#ifndef _WIN32
void check_fork(bool called) {
    std::thread([called] {
        if (called) store(1);
        const pid_t child = fork();
        if (child == 0) {
            const bool inherits = lib.ecodetul() == (called ? stored[1] : 0);
            store(0);
            _exit(inherits && lib.ecodetul() == stored[0] ? 0 : 1);
        }
        int status = -1;
        waitpid(child, &status, 0);
        check(child > 0 && status == 0,
              called ? "a child of a thread that failed" : "a child of a new thread");
    }).join();
}
#endif

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    load(argv[1], argv[2]);
    check_initial_thread();
    check_threads();
#ifndef _WIN32
    if (argv[2] == std::string("fork")) check_fork(true), check_fork(false);
#endif
    return failures == 0 ? 0 : 1;
}
