// SPDX-License-Identifier: MIT
// The guarded functions at and beyond their limits, where no property of the range takes them; the
// root finders away from the equations, where a fault would only cost time.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <span>
#include <utility>

#include "frame/bracketed_newton.hpp"
#include "frame/bracketed_secant.hpp"
#include "frame/chandrupatla.hpp"
#include "frame/guarded_math.hpp"
#include "frame/pegasus.hpp"
#include "frame/steered_search.hpp"
#include "strata.hpp"

namespace {

using strata::down, strata::up;

TEST(GuardedMath, ExponentialIsHeldBetweenItsLimits) {
    for (const double x : {230., -230., 0., 1., -5.5})
        EXPECT_EQ(vaprix::clamped_exp(x), vaprix::exp(x));
    for (const double x : {up(230), 1000., bound::infinity})
        EXPECT_EQ(vaprix::clamped_exp(x), 1e100) << x;
    for (const double x : {down(-230), -1000., -bound::infinity})
        EXPECT_EQ(vaprix::clamped_exp(x), 1e-100) << x;
}

TEST(Elementary, InfinityIsHandedOn) {
    EXPECT_EQ(vaprix::log(bound::infinity), bound::infinity);
    EXPECT_EQ(vaprix::cbrt(bound::infinity), bound::infinity);
    EXPECT_EQ(vaprix::cbrt(-bound::infinity), -bound::infinity);
}

TEST(GuardedMath, LogarithmAndRootTakeEveryNumber) {
    EXPECT_EQ(vaprix::guarded_log(0.), -230);
    EXPECT_EQ(vaprix::guarded_log(-0.), -230);
    for (const double x : {1e-300, 0.5, 7.}) {
        EXPECT_EQ(vaprix::guarded_log(x), vaprix::log(x));
        EXPECT_EQ(vaprix::guarded_log(-x), vaprix::log(x));
        EXPECT_EQ(vaprix::signed_sqrt(x), std::sqrt(x));
        EXPECT_EQ(vaprix::signed_sqrt(-x), -std::sqrt(x));
    }
    EXPECT_EQ(vaprix::signed_sqrt(0.), 0);
}

// Roots between a and b: straight, bent, steep at an end, flat far out, steep at the root, of functions that
// are the same to the last digit everywhere. The last is not for every root finder.
struct Curve {
    double (*f)(double);
    double (*f_x)(double);
    double a, b, root;
};
const Curve curves[] = {
    {[](double x) { return 2 * x - 1; }, [](double) { return 2.; }, 0, 4, 0.5},
    {[](double x) { return x * x * x - 2; }, [](double x) { return 3 * x * x; }, 1, 2,
     1.2599210498948732},
    {[](double x) { return 1 - 1 / x; }, [](double x) { return 1 / (x * x); }, 1e-2, 4, 1},
    {[](double x) { return std::sqrt(x) - 0.2; }, [](double x) { return 0.5 / std::sqrt(x); }, 1e-3,
     9, 0.04},
    {[](double x) { return x * x * x * x * x - 0.5; }, [](double x) { return 5 * x * x * x * x; },
     0.1, 1.5, 0.87055056329612413},
    {[](double x) { return x / (1 + std::fabs(x)) - 0.3; },
     [](double x) { return 1 / ((1 + std::fabs(x)) * (1 + std::fabs(x))); }, -20, 40,
     0.42857142857142855},
    {[](double x) { return std::copysign(std::sqrt(std::fabs(x - 3)), x - 3); },
     [](double x) { return 0.5 / std::sqrt(std::fabs(x - 3)); }, 1, 4, 3},
};

// Each root finder on the first so many curves, and the evaluations that it needs for them.
using Counted = std::function<double(double)>;
struct Finder {
    double (*find)(const Counted& f, const Curve& of);
    std::size_t curves;
    int evaluations;
};
constexpr double tolerance = 1e-13;
std::pair<vaprix::Residual<double>, vaprix::Residual<double>> ends(const Counted& f,
                                                                   const Curve& of) {
    return {{of.a, f(of.a)}, {of.b, f(of.b)}};
}
const Finder finders[] = {
    {[](const Counted& f, const Curve& of) { return vaprix::pegasus(f, of.a, of.b, tolerance); }, 5,
     50},
    {[](const Counted& f, const Curve& of) {
         return vaprix::steered_search(f, of.a, of.b, tolerance);
     },
     6, 75},
    {[](const Counted& f, const Curve& of) {
         const auto [a, b] = ends(f, of);
         return vaprix::bracketed_secant(f, a, b, tolerance).x;
     },
     7, 109},
    {[](const Counted& f, const Curve& of) {
         const auto [a, b] = ends(f, of);
         return vaprix::chandrupatla(f, a, b, tolerance).x;
     },
     7, 91},
    {[](const Counted& f, const Curve& of) {
         const auto tangent = [&](double x) { return vaprix::Tangent{f(x), of.f_x(x)}; };
         return vaprix::bracketed_newton(tangent, 0., of.a, of.b, of.b, 1e-7).x;
     },
     6, 46}};

TEST(RootFinders, FindTheRootInSoManyEvaluations) {
    for (const Finder& finder : finders) {
        int evaluations = 0;
        for (const Curve& of : std::span(curves).first(finder.curves)) {
            const Counted counted = [&](double x) { return ++evaluations, of.f(x); };
            EXPECT_NEAR(finder.find(counted, of), of.root, 1e-12 * of.root);
        }
        EXPECT_EQ(evaluations, finder.evaluations) << &finder - finders;
    }
}

}  // namespace
