// SPDX-License-Identifier: MIT
// The elementary functions against MPFR, in units of the last place, over every exponent of their
// arguments; no call may raise a flag of invalid, division by zero or overflow.
// Usage: elementary [arguments a function]   (default: 100000)
#include <algorithm>
#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>
#include <vector>

#include <mpfr.h>

#include "frame/elementary.hpp"

namespace {

using Random = std::mt19937_64;
using Uniform = std::uniform_real_distribution<double>;

// Of any exponent in [2^low, 2^high).
double any_exponent(Random& random, double low, double high) {
    return Uniform(1, 2)(random) * std::exp2(std::floor(Uniform(low, high)(random)));
}
double with_sign(Random& random, double x) { return random() % 2 == 0 ? x : -x; }

struct Arguments {
    double x, y;
};

struct Function {
    const char* name;
    double bound;  // ulp
    double (*ours)(Arguments);
    void (*exact)(mpfr_t result, Arguments);  // result holds x
    Arguments (*draw)(Random&);
};

// y of RealPowers, half of them those of the formulation.
double exponent_of(Random& random) {
    constexpr double used[] = {1.256, -1.2};
    return random() % 2 == 0 ? used[random() % 2] : Uniform(-5, 5)(random);
}

const Function functions[] = {
    {"exp", 0.55, [](Arguments at) { return vaprix::exp(at.x); },
     [](mpfr_t x, Arguments) { mpfr_exp(x, x, MPFR_RNDN); },
     [](Random& random) {
         return Arguments{random() % 2 == 0 ? Uniform(-700, 700)(random)
                                            : with_sign(random, any_exponent(random, -60, 9)),
                          0};
     }},
    {"log", 0.55, [](Arguments at) { return vaprix::log(at.x); },
     [](mpfr_t x, Arguments) { mpfr_log(x, x, MPFR_RNDN); },
     [](Random& random) {
         return Arguments{random() % 2 == 0
                              ? Uniform(0.5, 2)(random)
                              : std::bit_cast<double>(random() % 0x7ff0'0000'0000'0000),
                          0};
     }},
    {"cbrt", 0.55, [](Arguments at) { return vaprix::cbrt(at.x); },
     [](mpfr_t x, Arguments) { mpfr_cbrt(x, x, MPFR_RNDN); },
     [](Random& random) {
         return Arguments{with_sign(random, any_exponent(random, -1022, 1022)), 0};
     }},
    {"pow", 0.56, [](Arguments at) { return vaprix::pow(at.x, at.y); },
     [](mpfr_t x, Arguments at) {
         mpfr_t y;
         mpfr_init2(y, 53);
         mpfr_set_d(y, at.y, MPFR_RNDN);
         mpfr_pow(x, x, y, MPFR_RNDN);
         mpfr_clear(y);
     },
     [](Random& random) {
         return Arguments{
             random() % 2 == 0 ? Uniform(0, 4)(random) : any_exponent(random, -200, 200),
             exponent_of(random)};
     }},
    {"x^-3/5", 2.6, [](Arguments at) { return vaprix::inverse_three_fifths(at.x); },
     [](mpfr_t x, Arguments) {
         mpfr_pow_si(x, x, -3, MPFR_RNDN);
         mpfr_rootn_ui(x, x, 5, MPFR_RNDN);
     },
     [](Random& random) {
         return Arguments{any_exponent(random, -1022, 1022), 0};
     }},
};

struct Worst {
    double error = 0;
    Arguments at{};
};

Worst worst_of(const Function& function, std::uint64_t seed, std::uint64_t count) {
    Random random(seed);
    Worst worst;
    mpfr_t exact;
    mpfr_init2(exact, 113);
    for (std::uint64_t k = 0; k < count; ++k) {
        const Arguments at = function.draw(random);
        mpfr_set_d(exact, at.x, MPFR_RNDN);
        function.exact(exact, at);
        const double nearest = mpfr_get_d(exact, MPFR_RNDN);
        const double ulp = std::exp2(std::max(std::ilogb(nearest), -1022) - 52);
        std::feclearexcept(FE_ALL_EXCEPT);
        const double ours = function.ours(at);
        const bool flagged = std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW) != 0;
        mpfr_d_sub(exact, ours, exact, MPFR_RNDN);
        const double error = flagged ? HUGE_VAL : std::fabs(mpfr_get_d(exact, MPFR_RNDN)) / ulp;
        if (!(error <= worst.error)) worst = {error, at};
    }
    mpfr_clear(exact);
    mpfr_free_cache();  // the thread's own
    return worst;
}

}  // namespace

int main(int argc, char** argv) {
    const std::uint64_t count = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 100000;
    const unsigned threads = std::max(1U, std::thread::hardware_concurrency());
    int failures = 0;
    for (const Function& function : functions) {
        std::vector<Worst> worst(threads);
        std::vector<std::thread> workers;
        for (unsigned k = 0; k < threads; ++k)
            workers.emplace_back([&, k] { worst[k] = worst_of(function, k + 1, count / threads); });
        for (std::thread& worker : workers) worker.join();
        const Worst& most =
            *std::max_element(worst.begin(), worst.end(),
                              [](const Worst& a, const Worst& b) { return a.error < b.error; });
        const bool good = most.error <= function.bound;
        std::printf("%-6s %.4f ulp at %.17g %.17g%s\n", function.name, most.error, most.at.x,
                    most.at.y, good ? "" : "  FAILED");
        failures += good ? 0 : 1;
    }
    return failures == 0 ? 0 : 1;
}
