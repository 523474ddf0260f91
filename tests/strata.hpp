// SPDX-License-Identifier: MIT
// The one list of states that every sweep goes through: the bulk of each region, both sides of each
// boundary down to the last digit, the critical point, cold liquid, wet steam and its ends.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <random>
#include <vector>

#include "bound.hpp"

namespace strata {

// Limits of the formulation, MPa and K.
inline constexpr double p_low = 0.0006112127, p_13 = 16.52916425260452, p_crit = 22.064,
                        p_high_5 = 50, p_high = 100;
inline constexpr double T_low = 273.15, T_13 = 623.15, T_crit = 647.096, T_23 = 863.15,
                        T_25 = 1073.15, T_high = 2273.15;
inline constexpr double R = 0.461526;  // kJ/(kg K)

inline double up(double number) { return std::nextafter(number, bound::infinity); }
inline double down(double number) { return std::nextafter(number, -bound::infinity); }
inline double steps(double number, int ulps) {
    for (; ulps > 0; --ulps) number = up(number);
    for (; ulps < 0; ++ulps) number = down(number);
    return number;
}

class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    double uniform(double low, double high) {
        return low + (high - low) * std::ldexp(static_cast<double>(engine_() >> 11), -53);
    }
    double log_uniform(double low, double high) {
        return std::exp(uniform(std::log(low), std::log(high)));
    }
    bool coin() { return (engine_() >> 63) != 0; }
    // Either sign, size log-uniform: a distance from a boundary.
    double offset(double smallest, double largest) {
        return (coin() ? 1 : -1) * log_uniform(smallest, largest);
    }
    int integer(int low, int high) {
        return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1));
    }
    double one_of(std::initializer_list<double> numbers) {
        return numbers.begin()[integer(0, static_cast<int>(numbers.size()) - 1)];
    }
    double pressure(double low = p_low, double high = p_high) {
        return coin() ? uniform(low, high) : log_uniform(low, high);
    }
    // A third each: on the number, within three units in its last place, up to 1e-3 away.
    double beside(double number) {
        const int kind = integer(0, 2);
        return kind == 0   ? number
               : kind == 1 ? steps(number, integer(-3, 3))
                           : number * (1 + offset(1e-15, 1e-3));
    }

private:
    std::mt19937_64 engine_;
};

struct Point {
    double p, T;
    double x = -1;  // quality of wet steam, at ps(T); below 0: a state of (p, T)
};
enum class Place { inside, boundary };  // far from every other region and from the density maximum
struct Stratum {
    const char* name;
    Place place;
    std::function<Point(Random&)> sample;
};
extern const std::vector<Stratum> strata;

// The state of a point with all its variables, by the O-family; region 0 where it has none: outside
// the range, and on the saturation line. T(v) of a single phase and the quality 0.5 stand in where
// an export asks for what the state has not.
struct State : bound::Values {
    int region = 0;
};
State state(const Point& point);

// Values that belong to no state together, some of them to none at all.
bound::Values no_state(Random& random);

// States per stratum, of which `share` are asked for: 100000, or the environment variable
// VAPRIX_TEST_STATES.
int states(double share);

// Visits `share` of the states of every stratum of a list.
template <class Visit>
void sweep(double share, std::uint64_t seed, const Visit& visit,
           const std::vector<Stratum>& list = strata) {
    for (const Stratum& stratum : list) {
        Random random(seed++);
        for (int k = states(share); k > 0; --k) {
            const State at = state(stratum.sample(random));
            if (at.region != 0) visit(stratum, at);
        }
    }
}

}  // namespace strata
