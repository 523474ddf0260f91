// SPDX-License-Identifier: MIT
//
// Least squares by Householder triangularization, and the choice of the terms that serve best.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace start_fits {

using Real = long double;
using Column = std::vector<Real>;
using Matrix = std::vector<Column>;      // by columns; the last one is the right-hand side
using Order = std::vector<std::size_t>;  // all candidate terms, the chosen ones first

// First k steps of the Householder triangularization, applied to all columns.
inline void triangularize(Matrix& A, std::size_t k) {
    const std::size_t m = A[0].size();
    for (std::size_t q = 0; q < k; ++q) {
        Real square = 0;
        for (std::size_t i = q; i < m; ++i) square += A[q][i] * A[q][i];
        const Real diagonal = std::copysign(std::sqrt(square), -A[q][q]);
        const Real half = square - diagonal * A[q][q];
        A[q][q] -= diagonal;
        for (std::size_t j = q + 1; j < A.size(); ++j) {
            const Real* a = A[q].data();
            Real* b = A[j].data();
            Real dot = 0;
            for (std::size_t i = q; i < m; ++i) dot += a[i] * b[i];
            dot /= half;
            for (std::size_t i = q; i < m; ++i) b[i] -= dot * a[i];
        }
        std::fill(A[q].begin() + static_cast<std::ptrdiff_t>(q), A[q].end(), Real(0));
        A[q][q] = diagonal;
    }
}

// Coefficients of the first k columns of a triangular matrix.
inline Column solution(const Matrix& A, std::size_t k) {
    Column n(k);
    for (std::size_t q = k; q-- > 0;) {
        Real s = A.back()[q];
        for (std::size_t j = q + 1; j < k; ++j) s -= A[j][q] * n[j];
        n[q] = s / A[q][q];
    }
    return n;
}

inline Matrix reordered(const Matrix& A, const Order& order, std::size_t k) {
    Matrix B;
    for (const std::size_t j : order) B.push_back(A[j]);
    B.push_back(A.back());
    triangularize(B, k);
    return B;
}

// The one of the first k columns whose loss raises the residual least.
inline std::size_t weakest(const Matrix& A, std::size_t k) {
    const Column n = solution(A, k);
    Column variance(k), unit(k);  // of the coefficients: squared rows of the inverse of A
    for (std::size_t j = 0; j < k; ++j) {
        for (std::size_t i = j + 1; i-- > 0;) {
            Real s = i == j ? 1 : 0;
            for (std::size_t l = i + 1; l <= j; ++l) s -= A[l][i] * unit[l];
            unit[i] = s / A[i][i];
            variance[i] += unit[i] * unit[i];
        }
    }
    std::size_t weak = 0;
    for (std::size_t i = 1; i < k; ++i) {
        if (n[i] * n[i] * variance[weak] < n[weak] * n[weak] * variance[i]) weak = i;
    }
    return weak;
}

// Backward elimination from all candidates.
inline void eliminate(const Matrix& A, Order& order, std::size_t terms) {
    for (std::size_t k = order.size(); k > terms; --k) {
        const auto weak =
            order.begin() + static_cast<std::ptrdiff_t>(weakest(reordered(A, order, k), k));
        std::rotate(weak, weak + 1, order.end());
    }
}

// Takes in the best candidate and drops the weakest term until that is the same one.
inline bool exchange(const Matrix& A, Order& order, std::size_t terms) {
    for (int swaps = 0; swaps < 60; ++swaps) {
        const Matrix B = reordered(A, order, terms);
        std::size_t best = terms;
        Real best_gain = 0;
        for (std::size_t j = terms; j < order.size(); ++j) {
            Real dot = 0, square = 0;
            for (std::size_t i = terms; i < B[j].size(); ++i) {
                dot += B[j][i] * B.back()[i];
                square += B[j][i] * B[j][i];
            }
            if (square > 1e-24L && dot * dot > best_gain * square) {
                best_gain = dot * dot / square;
                best = j;
            }
        }
        if (best == terms) return swaps > 0;
        std::swap(order[terms], order[best]);
        const std::size_t weak = weakest(reordered(A, order, terms + 1), terms + 1);
        if (weak == terms) return swaps > 0;
        std::swap(order[terms], order[weak]);
    }
    return true;
}

}  // namespace start_fits
