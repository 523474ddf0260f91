// SPDX-License-Identifier: MIT
//
// Least squares, weighted again and again by the error that was left: close to the smallest greatest
// error that the terms allow.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

using Real = long double;
using Row = std::vector<Real>;

// Solution of the normal equations m, an augmented matrix, by elimination with pivoting.
inline Row solve(std::vector<Row> m) {
    const std::size_t n = m.size();
    for (std::size_t i = 0; i < n; ++i) {
        std::size_t pivot = i;
        for (std::size_t r = i + 1; r < n; ++r) {
            if (std::fabs(m[r][i]) > std::fabs(m[pivot][i])) pivot = r;
        }
        std::swap(m[i], m[pivot]);
        for (std::size_t r = i + 1; r < n; ++r) {
            const Real factor = m[r][i] / m[i][i];
            for (std::size_t c = i; c <= n; ++c) m[r][c] -= factor * m[i][c];
        }
    }
    Row x(n);
    for (std::size_t i = n; i-- > 0;) {
        x[i] = m[i][n];
        for (std::size_t c = i + 1; c < n; ++c) x[i] -= m[i][c] * x[c];
        x[i] /= m[i][i];
    }
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
