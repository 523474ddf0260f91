// SPDX-License-Identifier: MIT
//
// What the exports answer for states: exports FAMILY FIRST SECOND A B, in the units of the catalogue, prints each
// property that has a function of these two variables.
#include <vaprix.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

struct Reading {
    const char* symbol;
    char family;
    std::string_view arguments;
    double (*of)(const double*, const double*);
};
constexpr Reading readings[] = {
#define READING(symbol, family, arguments, name) {symbol, family, arguments, name},
#include "readings.inc"
};

}  // namespace

int main(int count, char** words) {
    for (int k = 1; k + 4 < count; k += 5) {
        const char first = words[k + 1][0], second = words[k + 2][0];
        const double a = std::atof(words[k + 3]), b = std::atof(words[k + 4]);
        for (const Reading& reading : readings) {
            const char x = reading.arguments[0], y = reading.arguments[2];
            if (reading.family != words[k][0]) continue;
            if (x == first && y == second)
                std::printf("%d %s %.17g\n", k / 5, reading.symbol, reading.of(&a, &b));
            if (x == second && y == first)
                std::printf("%d %s %.17g\n", k / 5, reading.symbol, reading.of(&b, &a));
        }
    }
}
