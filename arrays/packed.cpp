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

Elements others(const Elements& all, Elements elements) noexcept {
    for (std::size_t word = 0; word < all.size(); ++word)
        elements[word] = all[word] & ~elements[word];
    return elements;
}
bool are_at_most(const Elements& elements, std::size_t count) noexcept {
    for (std::uint64_t bits : elements) {
        for (; bits != 0; bits &= bits - 1) {
            if (count-- == 0) return false;
        }
    }
    return true;
}

// What a part is evaluated from.
struct Gathered {
    std::size_t size;
    std::uint16_t element[block_size];
    alignas(64) double x[block_size], y[block_size], out[block_size];

    // Its elements, one after the other.
    void gather(const Elements& elements, const double* xs, const double* ys) noexcept {
        std::size_t n = 0;
        for_each(elements, [&](std::size_t k) { element[n++] = static_cast<std::uint16_t>(k); });
        for (std::size_t k = 0; k < n; ++k) x[k] = xs[element[k]], y[k] = ys[element[k]];
        for (std::size_t k = n; k % padding != 0; ++k) x[k] = x[n - 1], y[k] = y[n - 1];
        size = n;
    }
    // Its elements in their places, one of them in those of the others.
    void replace(const Elements& other, std::size_t count, const double* xs,
                 const double* ys) noexcept {
        std::size_t one = 0;
        while ((other[one / 64] >> (one % 64) & 1) != 0) ++one;
        std::copy_n(xs, count, x);
        std::copy_n(ys, count, y);
        for_each(other, [&](std::size_t k) { x[k] = xs[one], y[k] = ys[one]; });
        for (std::size_t k = count; k % padding != 0; ++k) x[k] = xs[one], y[k] = ys[one];
        size = count;
    }
};

// How a part is evaluated: it is the whole block, its elements are gathered, or where it is nearly all of
// the block, in their places, before the others, whose results it overwrites.
enum class Extent { whole, nearly, some };

// Evaluates a part and takes its elements from those left, but for any that is not found or that the
// answer rule has a word about.
void answer_part(std::span<Wanted> wanted, Part part, const Elements& elements, Extent extent,
                 const Elements& all, std::size_t count, const double* x,
                 const double* y) noexcept {
    Gathered some;
    if (extent == Extent::some) some.gather(elements, x, y);
    if (extent == Extent::nearly) some.replace(others(all, elements), count, x, y);
    if (extent != Extent::whole) x = some.x, y = some.y;
    const bool in_place = extent != Extent::some;
    const std::size_t size = in_place ? count : some.size;

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
        double* const results = in_place ? each.out : some.out;
        plan.evaluate[part](p, t, dense, results, size);
        if (!in_place) {
            for (std::size_t k = 0; k < size; ++k) each.out[some.element[k]] = results[k];
        }
        if ((plan.solve[part] == nullptr && !plan.has_limits) || plan.all_found(plan, p, t, size)) {
            without(each.left, elements);
            continue;
        }
        // found, at a temperature that the answer rule has no word about or a constant above
        const auto remove_found = [&](std::size_t element, std::size_t k) noexcept {
            if (!((p[k] > 0) & (t[k] >= plan.t_low))) return;
            remove(each.left, element);
            if (t[k] <= plan.t_high) return;
            const Constant& answer = plan.above[t[k] > plan.above[0].t ? 0 : 1].answer;
            each.out[element] = answer.value;
            each.code[element] = answer.code;
        };
        if (in_place) {
            for_each(elements, [&](std::size_t k) { remove_found(k, k); });
        } else {
            for (std::size_t k = 0; k < size; ++k) remove_found(some.element[k], k);
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
    const auto answer = [&](std::size_t part, Extent extent) noexcept {
        const Elements& elements = divided[part];
        bool to_evaluate = false;
        for (Wanted& each : wanted) {
            const Constant& constant = each.plan->constant[part];
            if (constant.is_given)
                answer_constant(each, constant, elements, extent == Extent::whole, count);
            to_evaluate = to_evaluate || each.plan->evaluate[part] != nullptr;
        }
        if (to_evaluate)
            answer_part(wanted, static_cast<Part>(part), elements, extent, all, count, x, y);
    };
    std::size_t answered = parts;
    for (std::size_t part = 0; part < parts; ++part) {
        Elements& elements = divided[part];
        for (std::size_t word = 0; word < all.size(); ++word) elements[word] &= all[word];
        if (elements == Elements{}) continue;
        if (elements == all) return answer(part, Extent::whole);
        if (answered == parts && are_at_most(others(all, elements), count / 16)) {
            answer(part, Extent::nearly);
            answered = part;
        }
    }
    for (std::size_t part = 0; part < parts; ++part) {
        if (part != answered && divided[part] != Elements{}) answer(part, Extent::some);
    }
}

}  // namespace vaprix::arrays
