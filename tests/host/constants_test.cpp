// SPDX-License-Identifier: MIT
#include <bit>
#include <cstdint>

#include <gtest/gtest.h>

#include "export_table.hpp"

namespace {

TEST(Constants, AreTheDoublesOfTheirDecimals) {
    for (const auto& row : host::constants) {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(row.call()), std::bit_cast<std::uint64_t>(row.value))
            << row.name << " is " << testing::PrintToString(row.call());
    }
}

}  // namespace
