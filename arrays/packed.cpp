// SPDX-License-Identifier: MIT
#include "packed.hpp"

#include <algorithm>

namespace vaprix::arrays {

Elements first_elements(std::size_t count) noexcept {
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

namespace {

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
void answer_part(std::span<Wanted> wanted, Part part, const Elements& elements, bool whole,
                 std::size_t count, const double* x, const double* y) noexcept {
    Gathered some;
    if (!whole) {
        some.gather(elements, x, y);
        x = some.x, y = some.y;
    }
    const std::size_t size = whole ? count : some.size;

    alignas(64) double solved[block_size], dense[block_size];
    Plan::Solve solved_by = nullptr;
    for (Wanted& each : wanted) {
        const Plan& plan = *each.plan;
        if (plan.evaluate[part] == nullptr) continue;
        const double *p = x, *t = y;
        if (plan.solve[part] != nullptr) {
            if (plan.solve[part] != solved_by) plan.solve[part](x, y, solved, dense, size);
            solved_by = plan.solve[part];
            t = solved;
            if (plan.solves == Solved::p) p = solved, t = x;
            if (plan.solves == Solved::both) p = solved, t = dense;
        }
        double* const results = whole ? each.out : some.out;
        plan.evaluate[part](p, t, dense, results, size);
        if (!whole) {
            for (std::size_t k = 0; k < size; ++k) each.out[some.element[k]] = results[k];
        }
        if ((plan.solve[part] == nullptr && !plan.has_limits) || plan.all_found(plan, p, t, size)) {
            without(each.left, elements);
            continue;
        }
        for (std::size_t k = 0; k < size; ++k) {
            // solved for and found, at a temperature that the answer rule has no word about
            if ((p[k] > 0) & (t[k] > 0) & (t[k] >= plan.t_low) & (t[k] <= plan.t_high))
                remove(each.left, whole ? k : some.element[k]);
        }
    }
}

void answer_constant(Wanted& wanted, const Constant& constant, const Elements& elements, bool whole,
                     std::size_t count) noexcept {
    without(wanted.left, elements);
    if (whole) {
        std::fill_n(wanted.out, count, constant.value);
        std::fill_n(wanted.code, count, constant.code);
        return;
    }
    for_each(elements, [&](std::size_t k) {
        wanted.out[k] = constant.value;
        wanted.code[k] = constant.code;
    });
}

}  // namespace

void answer_packed(std::span<Wanted> wanted, std::size_t count, const double* x,
                   const double* y) noexcept {
    const Elements all = first_elements(count);
    Divided divided{};
    wanted.front().plan->divide(x, y, count, divided);

    for (Wanted& each : wanted) {
        each.left = all;
        std::fill_n(each.code, count, 0);
    }
    for (std::size_t part = 0; part < parts; ++part) {
        Elements& elements = divided[part];
        for (std::size_t word = 0; word < all.size(); ++word) elements[word] &= all[word];
        if (elements == Elements{}) continue;
        const bool whole = elements == all;
        bool to_evaluate = false;
        for (Wanted& each : wanted) {
            const Constant& constant = each.plan->constant[part];
            if (constant.is_given) answer_constant(each, constant, elements, whole, count);
            to_evaluate = to_evaluate || each.plan->evaluate[part] != nullptr;
        }
        if (to_evaluate) {
            answer_part(wanted, static_cast<Part>(part), elements, whole, count, x, y);
        }
        if (whole) break;
    }
}

}  // namespace vaprix::arrays
