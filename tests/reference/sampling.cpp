// SPDX-License-Identifier: MIT
#include "sampling.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

namespace reference {

namespace {

constexpr int shown_failures = 3;

}  // namespace

std::string digits(std::initializer_list<double> numbers) {
    std::string text;
    for (const double number : numbers) {
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "%s%.17g", text.empty() ? "" : " ", number);
        text += buffer;
    }
    return text;
}

void Deviations::check(const std::string& name, double got, Quad want, Quad scale, double tolerance,
                       const std::function<std::string()>& where) {
    Entry& entry = entries_[name];
    ++entry.count;
    const double deviation =
        got == want ? 0 : static_cast<double>(magnitude(got - want) / magnitude(scale));
    if (!(deviation <= entry.worst || std::isnan(entry.worst))) {  // a NaN stays visible
        entry.worst = deviation;
        entry.where = where();
    }
    if (deviation <= tolerance) return;
    if (++entry.failures <= shown_failures)
        ADD_FAILURE() << name << " at " << where() << ": got " << digits({got}) << ", expected "
                      << digits({static_cast<double>(want)}) << ", deviation " << deviation
                      << ", allowed " << tolerance;
}

void Deviations::report() const {
    for (const auto& [name, entry] : entries_) {
        std::printf("%-40s worst %8.2e of %d at (%s)%s\n", name.c_str(), entry.worst, entry.count,
                    entry.where.c_str(), entry.failures != 0 ? "  FAILS" : "");
        if (entry.failures != 0) std::printf("%-40s fails %d times\n", "", entry.failures);
        testing::Test::RecordProperty(name, digits({entry.worst}));
    }
}

}  // namespace reference
