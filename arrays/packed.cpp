// SPDX-License-Identifier: MIT
#include "packed.hpp"

#include <algorithm>

namespace vaprix::arrays {

namespace {

Elements first(std::size_t count) noexcept {
    Elements elements{};
    for (std::size_t word = 0; word < elements.size(); ++word) {
        if (count >= 64 * (word + 1)) {
            elements[word] = ~std::uint64_t{0};
        } else if (count > 64 * word) {
            elements[word] = ~std::uint64_t{0} >> (64 - count % 64);
        }
    }
    return elements;
}

void without(Elements& from, const Elements& elements) noexcept {
    for (std::size_t word = 0; word < from.size(); ++word) from[word] &= ~elements[word];
}
void remove(Elements& from, std::size_t element) noexcept {
    from[element / 64] &= ~(std::uint64_t{1} << (element % 64));
}

// The elements of a part, one after the other.
struct Gathered {
    std::size_t size = 0;
    std::size_t element[block_size];
    alignas(64) double x[block_size], y[block_size], out[block_size];

    void gather(const Elements& elements, const double* xs, const double* ys) noexcept {
        for_each(elements, [&](std::size_t k) {
            element[size] = k;
            x[size] = xs[k];
            y[size] = ys[k];
            ++size;
        });
        for (std::size_t k = size; k % padding != 0; ++k) x[k] = x[size - 1], y[k] = y[size - 1];
    }
};

// Evaluates a part and takes its elements from those left, but for any that is not found or that the
// answer rule has a word about.
void answer_part(const Plan& plan, Part part, const Elements& elements, bool whole,
                 std::size_t count, const double* x, const double* y, double* out,
                 Elements& left) noexcept {
    Gathered some;
    if (!whole) {
        some.gather(elements, x, y);
        x = some.x, y = some.y;
    }
    const std::size_t size = whole ? count : some.size;
    double* const results = whole ? out : some.out;

    alignas(64) double solved[block_size], dense[block_size];
    const double *p = x, *t = y;
    if (plan.solve[part] != nullptr) {
        plan.solve[part](x, y, solved, dense, size);
        t = solved;
        if (plan.solves_pressure) p = solved, t = x;
    }
    plan.evaluate[part](p, t, dense, results, size);

    // where a state was solved for and found, at a temperature that the answer rule has no word about
    const auto is_answered = [&](std::size_t k) noexcept {
        return (p[k] > 0) & (t[k] > 0) & (t[k] >= plan.t_low) & (t[k] <= plan.t_high);
    };
    const bool all =
        (plan.solve[part] == nullptr && !plan.has_limits) || plan.all_found(plan, p, t, size);
    if (!whole) {
        for (std::size_t k = 0; k < size; ++k) out[some.element[k]] = results[k];
    }
    if (all) {
        without(left, elements);
        return;
    }
    for (std::size_t k = 0; k < size; ++k) {
        if (is_answered(k)) remove(left, whole ? k : some.element[k]);
    }
}

void answer_outside(const Plan& plan, const Elements& elements, bool whole, std::size_t count,
                    std::int32_t* code, double* out) noexcept {
    if (whole) {
        std::fill_n(out, count, plan.outside_value);
        std::fill_n(code, count, plan.outside_code);
        return;
    }
    for_each(elements, [&](std::size_t k) {
        out[k] = plan.outside_value;
        code[k] = plan.outside_code;
    });
}

}  // namespace

Elements answer_packed(const Plan& plan, std::size_t count, std::int32_t* code, const double* x,
                       const double* y, double* out) noexcept {
    const Elements all = first(count);
    Divided divided{};
    plan.divide(x, y, count, divided);

    Elements left = all;
    std::fill_n(code, count, 0);
    for (std::size_t part = 0; part < parts; ++part) {
        Elements& elements = divided[part];
        for (std::size_t word = 0; word < all.size(); ++word) elements[word] &= all[word];
        if (elements == Elements{}) continue;
        const bool whole = elements == all;
        if (part == outside) {
            answer_outside(plan, elements, whole, count, code, out);
            without(left, elements);
        } else if (plan.evaluate[part] != nullptr) {
            answer_part(plan, static_cast<Part>(part), elements, whole, count, x, y, out, left);
        }
        if (whole) break;
    }
    return left;
}

}  // namespace vaprix::arrays
