// SPDX-License-Identifier: MIT
//
// Least squares, weighted again and again by the error that was left: close to the smallest greatest
// error that the terms allow.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <vector>

using Real = long double;
using Row = std::vector<Real>;

// Solution of the normal equations m, an augmented matrix, by Gauss-Jordan elimination with pivoting.
inline Row solve(std::vector<Row> m) {
    const std::size_t n = m.size();
    Row x(n);
    for (std::size_t i = 0; i < n; ++i) {
        const auto at = m.begin() + static_cast<std::ptrdiff_t>(i);
        const auto size = [i](const Row& row) { return std::fabs(row[i]); };
        std::iter_swap(at, std::ranges::max_element(at, m.end(), {}, size));
        for (std::size_t r = 0; r < n; ++r) {
            const Real factor = r == i ? Real(0) : m[r][i] / m[i][i];
            for (std::size_t c = i; c <= n; ++c) m[r][c] -= factor * m[i][c];
        }
    }
    for (std::size_t i = 0; i < n; ++i) x[i] = m[i][n] / m[i][i];
    return x;
}

struct Fit {
    Row x;       // coefficients of the terms
    Real worst;  // greatest error left
};

// Fit of rows that hold the terms at a sample and, last, the value there.
inline Fit fit(const std::vector<Row>& rows) {
    constexpr int weightings = 25;
    const std::size_t terms = rows.front().size() - 1;
    Row weight(rows.size(), 1), error(rows.size());
    Fit found{};
    for (int k = 0; k < weightings; ++k) {
        std::vector<Row> m(terms, Row(terms + 1));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            for (std::size_t r = 0; r < terms; ++r) {
                for (std::size_t c = 0; c <= terms; ++c) {
                    m[r][c] += weight[i] * rows[i][r] * rows[i][c];
                }
            }
        }
        found.x = solve(m);
        found.worst = 0;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            error[i] = -rows[i].back();
            for (std::size_t c = 0; c < terms; ++c) error[i] += found.x[c] * rows[i][c];
            found.worst = std::max(found.worst, std::fabs(error[i]));
        }
        for (std::size_t i = 0; i < rows.size(); ++i) {
            weight[i] *= Real(0.1) + std::fabs(error[i]) / found.worst;
        }
    }
    return found;
}

struct Exponents {
    int I, J;
};

// Prints the terms n x^I q^J of a fit.
inline void print_terms(const char* name, const std::vector<Exponents>& terms, const Row& n) {
    std::printf("inline constexpr Term %s[] = {\n", name);
    for (std::size_t k = 0; k < terms.size(); ++k)
        std::printf("    {%d, %d, %.9Le},\n", terms[k].I, terms[k].J, n[k]);
    std::printf("};\n");
}
