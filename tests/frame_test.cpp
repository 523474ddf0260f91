// SPDX-License-Identifier: MIT
// The guarded functions at and beyond their limits, where no property of the range takes them; the
// root finders away from the equations, where a fault would only cost time.
#include <gtest/gtest.h>

#include <cmath>
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
        EXPECT_EQ(vaprix::clamped_exp(x), std::exp(x));
    for (const double x : {up(230), 1000., bound::infinity})
        EXPECT_EQ(vaprix::clamped_exp(x), 1e100) << x;
    for (const double x : {down(-230), -1000., -bound::infinity})
        EXPECT_EQ(vaprix::clamped_exp(x), 1e-100) << x;
}

TEST(GuardedMath, LogarithmAndRootTakeEveryNumber) {
    EXPECT_EQ(vaprix::guarded_log(0.), -230);
    EXPECT_EQ(vaprix::guarded_log(-0.), -230);
    for (const double x : {1e-300, 0.5, 7.}) {
        EXPECT_EQ(vaprix::guarded_log(x), std::log(x));
        EXPECT_EQ(vaprix::guarded_log(-x), std::log(x));
        EXPECT_EQ(vaprix::signed_sqrt(x), std::sqrt(x));
        EXPECT_EQ(vaprix::signed_sqrt(-x), -std::sqrt(x));
    }
    EXPECT_EQ(vaprix::signed_sqrt(0.), 0);
}

// Roots between a and b: nearly straight, bent, steep at an end, flat at the root.
struct Curve {
    double (*f)(double);
    double (*f_x)(double);
    double a, b, root;
};
const Curve curves[] = {
    {[](double x) { return x * x * x - 2; }, [](double x) { return 3 * x * x; }, 1, 2,
     1.2599210498948732},
    {[](double x) { return std::exp(x) - 5; }, [](double x) { return std::exp(x); }, 0, 4,
     1.6094379124341003},
    {[](double x) { return std::log(x); }, [](double x) { return 1 / x; }, 1e-3, 30, 1},
    {[](double x) { return std::pow(x, 9) - 0.5; }, [](double x) { return 9 * std::pow(x, 8); }, 0,
     1.5, 0.9258747122872905},
    {[](double x) { return std::cbrt(x - 3); },
     [](double x) { return 1 / (3 * std::pow(std::cbrt(x - 3), 2)); }, 1, 4, 3},
};

TEST(RootFinders, FindTheRootInFewEvaluations) {
    using namespace vaprix;
    constexpr double tolerance = 1e-13;
    const auto ends = [](const auto& f, const Curve& of) {
        return std::pair{Residual<double>{of.a, f(of.a)}, Residual<double>{of.b, f(of.b)}};
    };
    const auto total = [&](const auto& solve, std::size_t count) {
        int evaluations = 0;
        for (const Curve& of : std::span(curves).first(count)) {
            const auto counted = [&](double x) { return ++evaluations, of.f(x); };
            EXPECT_NEAR(solve(counted, of), of.root, 1e-12 * of.root);
        }
        return evaluations;
    };
    EXPECT_LE(total([&](auto f, const Curve& of) { return pegasus(f, of.a, of.b, tolerance); }, 4),
              51);
    EXPECT_LE(
        total([&](auto f, const Curve& of) { return steered_search(f, of.a, of.b, tolerance); }, 4),
        65);
    EXPECT_LE(total(
                  [&](auto f, const Curve& of) {
                      const auto [a, b] = ends(f, of);
                      return bracketed_secant(f, a, b, tolerance).x;
                  },
                  5),
              102);
    EXPECT_LE(total(
                  [&](auto f, const Curve& of) {
                      const auto [a, b] = ends(f, of);
                      return chandrupatla(f, a, b, tolerance).x;
                  },
                  5),
              87);
    EXPECT_LE(total(
                  [&](auto f, const Curve& of) {
                      const auto tangent = [&](double x) { return Tangent{f(x), of.f_x(x)}; };
                      return bracketed_newton(tangent, 0., of.a, of.b, of.b, 1e-7).x;
                  },
                  4),
              32);
}

}  // namespace
