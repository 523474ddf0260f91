// SPDX-License-Identifier: MIT
// Seeded random states and the record of deviations that the accuracy tests share.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <random>
#include <string>

#include "quad.hpp"

namespace reference {

// States per random sweep: 100000, or the environment variable VAPRIX_TEST_STATES (sanitizer and
// coverage runs set fewer; each sweep prints how many it took).
int states();

class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    double uniform(double low, double high) {
        return low + (high - low) * std::ldexp(static_cast<double>(engine_() >> 11), -53);
    }
    double log_uniform(double low, double high) {
        return std::exp(uniform(std::log(low), std::log(high)));
    }
    // Either sign, size log-uniform: a distance from a boundary.
    double offset(double smallest, double largest) {
        const double size = log_uniform(smallest, largest);
        return (engine_() >> 63) != 0 ? size : -size;
    }
    bool coin() { return (engine_() >> 63) != 0; }

private:
    std::mt19937_64 engine_;
};

inline double up(double x) { return std::nextafter(x, std::numeric_limits<double>::infinity()); }
inline double down(double x) { return std::nextafter(x, -std::numeric_limits<double>::infinity()); }

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
               std::initializer_list<double> at);

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
