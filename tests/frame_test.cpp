// SPDX-License-Identifier: MIT
// The guarded functions at and beyond their limits, where no property of the range takes them.
#include <gtest/gtest.h>

#include <cmath>

#include "frame/guarded_math.hpp"
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

}  // namespace
