// SPDX-License-Identifier: MIT
// The record of deviations that the accuracy tests share.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "number.hpp"
#include "strata.hpp"

namespace reference {

using published::magnitude;
using published::Quad;
using strata::down;
using strata::Random;
using strata::up;

// Numbers with 17 digits, separated by blanks.
std::string digits(std::initializer_list<double> numbers);

// Worst deviation per function over a sweep. check() fails the test (the first few times per
// function) when |got - want| > tolerance * scale; report() prints and records the worst figures.
class Deviations {
public:
    Deviations() = default;
    Deviations(const Deviations&) = delete;
    Deviations& operator=(const Deviations&) = delete;
    ~Deviations() { report(); }

    void check(const std::string& name, double got, Quad want, Quad scale, double tolerance,
               const std::function<std::string()>& where);
    void check(const std::string& name, double got, Quad want, Quad scale, double tolerance,
               std::initializer_list<double> at) {
        check(name, got, want, scale, tolerance, [at] { return digits(at); });
    }

private:
    struct Entry {
        double worst = 0;
        std::string where;
        int count = 0;
        int failures = 0;
    };
    void report() const;

    std::map<std::string, Entry> entries_;
};

}  // namespace reference
