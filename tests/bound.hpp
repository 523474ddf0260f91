// SPDX-License-Identifier: MIT
// Every export of the library by its name and the names of its arguments, as the catalogue lists
// them: bound at run time, called alike whatever its signature.
#pragma once

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "vaprix.h"

namespace bound {

inline constexpr double failed = -99999.0;
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

// What an export may be given by reference, without region and result.
enum Name : unsigned { p, T, v, d, h, s, x, wavelength, d_start, tolerance, names };
inline constexpr const char* spelling[names] = {"p", "T", "v",          "d",       "h",
                                                "s", "x", "wavelength", "d_start", "tolerance"};

using Values = std::array<double, names>;
using Pointers = std::array<const double*, names>;

struct Export {
    std::string name;
    std::vector<Name> inputs;
    bool region = false, out = false;  // takes a region; writes its result through an argument
    void* symbol = nullptr;

    // Whether it is meant for a state of the region, 0 of no state: an equation of one region is for
    // its own, and what checks nothing is not for no state.
    bool is_for(int region_of_state) const;
    double operator()(const Pointers& at, int* region_given, double* result) const;
    double operator()(const Values& at, int region_given = 0) const;
};

const std::vector<Export>& exports();
const Export& find(const std::string& name);

// The initial thread's code, to be read and set.
int& code();
// The value an export answers, `unwritten` if it was to write one and did not, and the code it
// leaves: `untouched` if it stored none.
inline constexpr double unwritten = -1;
inline constexpr int untouched = 1;
struct Answer {
    double value;
    int code, region;
};
Answer ask(const Export& function, const Values& at, int region = 0);

// An export called by value.
template <auto Function, class... Doubles>
double call(Doubles... of) {
    return Function(&of...);
}

// The numbers of the named arguments, with 17 digits.
std::string digits(const Export& function, const Values& at);

}  // namespace bound
