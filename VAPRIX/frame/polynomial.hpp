// SPDX-License-Identifier: MIT
//
// Polynomials in two variables, compiled from published coefficient tables.
//
// A table of printed rows n x^I y^J becomes a constexpr Polynomial. Derivatives, factors and sums
// of polynomials are formed at compile time with extended-precision coefficients that are rounded
// once, when the polynomial is evaluated. evaluate<p>(x, y) unrolls to straight-line code: the
// terms are grouped by powers of x and nested in Horner form in both variables, with every power
// that the nesting needs formed once by multiplication. No loop, no table look-up, no call is left.
//
//     inline constexpr auto gamma = polynomial(tables::region1);        // sum n x^I y^J
//     inline constexpr auto enthalpy = (R * T_star) * d_y(gamma);
//     h = evaluate<enthalpy>(7.1 - pi, tau - 1.222);
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <tuple>
#include <utility>

#include "frame/inline.hpp"

namespace vaprix {

// A constant for folding into coefficients, in extended precision.
constexpr long double extended(double x) { return static_cast<long double>(x); }

// One printed row of a coefficient table: n x^I y^J.
struct Term {
    int I;
    int J;
    double n;
};

// Terms sorted by I, then J, no exponent pair twice; terms with a zero coefficient are dropped.
template <std::size_t Capacity>
struct Polynomial {
    struct Monomial {
        int I;
        int J;
        long double n;
    };
    std::array<Monomial, Capacity> terms{};
    std::size_t size = 0;

    // Adds n x^I y^J in its place.
    constexpr void add(int I, int J, long double n) {
        if (n == 0) return;
        std::size_t k = 0;
        while (k < size && (terms[k].I < I || (terms[k].I == I && terms[k].J < J))) ++k;
        if (k < size && terms[k].I == I && terms[k].J == J) {
            terms[k].n += n;
            return;
        }
        for (std::size_t i = size; i > k; --i) terms[i] = terms[i - 1];
        terms[k] = {I, J, n};
        ++size;
    }
};

template <std::size_t N>
constexpr Polynomial<N> polynomial(const Term (&table)[N]) {
    Polynomial<N> p;
    for (const Term& t : table) p.add(t.I, t.J, extended(t.n));
    return p;
}

template <std::size_t N>
constexpr Polynomial<N> d_x(const Polynomial<N>& a) {
    Polynomial<N> p;
    for (std::size_t k = 0; k < a.size; ++k) {
        p.add(a.terms[k].I - 1, a.terms[k].J, a.terms[k].n * a.terms[k].I);
    }
    return p;
}

template <std::size_t N>
constexpr Polynomial<N> d_y(const Polynomial<N>& a) {
    Polynomial<N> p;
    for (std::size_t k = 0; k < a.size; ++k) {
        p.add(a.terms[k].I, a.terms[k].J - 1, a.terms[k].n * a.terms[k].J);
    }
    return p;
}

// sum weight(I, J) n x^I y^J: x d/dx a for weight I, y^2 d2/dy2 a for weight J (J - 1), and so on
template <std::size_t N, class Weight>
constexpr Polynomial<N> weighted(const Polynomial<N>& a, Weight weight) {
    Polynomial<N> p;
    for (std::size_t k = 0; k < a.size; ++k) {
        p.add(a.terms[k].I, a.terms[k].J, a.terms[k].n * weight(a.terms[k].I, a.terms[k].J));
    }
    return p;
}

template <std::size_t N>
constexpr Polynomial<N> operator*(long double factor, const Polynomial<N>& a) {
    Polynomial<N> p;
    for (std::size_t k = 0; k < a.size; ++k) {
        p.add(a.terms[k].I, a.terms[k].J, factor * a.terms[k].n);
    }
    return p;
}

template <std::size_t N, std::size_t M>
constexpr Polynomial<N + M> operator+(const Polynomial<N>& a, const Polynomial<M>& b) {
    Polynomial<N + M> p;
    for (std::size_t k = 0; k < a.size; ++k) p.add(a.terms[k].I, a.terms[k].J, a.terms[k].n);
    for (std::size_t k = 0; k < b.size; ++k) p.add(b.terms[k].I, b.terms[k].J, b.terms[k].n);
    return p;
}

// The same polynomial with its variables exchanged. Evaluated, the sums in the second variable do
// not wait for the first: give it the variable that is known sooner.
template <std::size_t N>
constexpr Polynomial<N> transposed(const Polynomial<N>& a) {
    Polynomial<N> p;
    for (std::size_t k = 0; k < a.size; ++k) p.add(a.terms[k].J, a.terms[k].I, a.terms[k].n);
    return p;
}

// A variable together with its reciprocal, which stands for the negative powers.
template <class Real>
struct WithReciprocal {
    Real value;
    Real reciprocal;
};

namespace detail {

// Exponents that an evaluation needs of one variable, and the multiplications that make them: entry
// i is the power exponent[i] = exponent[left[i]] + exponent[right[i]]; entry 0 is the variable
// itself.
struct PowerChain {
    static constexpr std::size_t capacity = 48;
    std::array<int, capacity> exponent{1};
    std::array<std::size_t, capacity> left{};
    std::array<std::size_t, capacity> right{};
    std::size_t size = 1;

    constexpr std::size_t find(int e) const {
        std::size_t i = 0;
        while (i < size && exponent[i] != e) ++i;
        return i;
    }

    constexpr void push(std::size_t a, std::size_t b) {
        exponent[size] = exponent[a] + exponent[b];
        left[size] = a;
        right[size] = b;
        ++size;
    }

    // Makes the power e available with few multiplications and a short dependency chain.
    constexpr void need(int e) {
        if (e <= 1 || find(e) < size) return;
        for (std::size_t i = size; i-- > 0;) {
            const std::size_t j = find(e - exponent[i]);
            if (j < size) {
                push(i, j);
                return;
            }
        }
        int largest = 1;
        for (std::size_t i = 0; i < size; ++i) {
            if (exponent[i] < e && exponent[i] > largest) largest = exponent[i];
        }
        if (2 * largest < e) {
            need(2 * largest);
            need(e);
        } else {
            need(e - largest);
            need(e);
        }
    }
};

// The groups of equal I of a polynomial. The factor y^carry[g] is taken out of group g and of all
// groups above it: the largest power (in magnitude) that leaves no exponent of the other sign.
template <std::size_t N>
struct Groups {
    std::array<std::size_t, N + 1> first{};
    std::array<int, N + 1> carry{};
    std::size_t size = 0;

    constexpr explicit Groups(const Polynomial<N>& p) {
        for (std::size_t k = 0; k < p.size; ++k) {
            if (k == 0 || p.terms[k].I != p.terms[k - 1].I) first[size++] = k;
        }
        first[size] = p.size;
        int lowest = 0;
        int highest = 0;
        for (std::size_t k = p.size; k-- > 0;) {
            const bool start = k + 1 == p.size;
            lowest = start || p.terms[k].J < lowest ? p.terms[k].J : lowest;
            highest = start || p.terms[k].J > highest ? p.terms[k].J : highest;
            for (std::size_t g = 0; g < size; ++g) {
                if (first[g] == k) carry[g] = lowest > 0 ? lowest : highest < 0 ? highest : 0;
            }
        }
    }
};

template <std::size_t N>
constexpr auto groups_of(const Polynomial<N>& p) {
    return Groups<N>(p);
}

// Where the groups from..to are divided into two parts that the processor evaluates side by side:
// long sums in halves, short ones (up to `serial` groups) one group at a time, which is plain
// Horner nesting. Measured on region 1 enthalpy: 22 ns latency against 35 ns for Horner nesting
// throughout.
inline constexpr std::size_t serial = 4;
constexpr std::size_t joint(std::size_t from, std::size_t to) {
    return to - from > serial ? from + (to - from) / 2 : from + 1;
}

// Exponents of one variable that an evaluation needs.
struct Exponents {
    std::array<bool, 128> positive{}, negative{};

    constexpr void mark(int e) {
        if (e > 0) positive[static_cast<std::size_t>(e)] = true;
        if (e < 0) negative[static_cast<std::size_t>(-e)] = true;
    }
};

constexpr bool any(const std::array<bool, 128>& wanted) {
    return std::find(wanted.begin(), wanted.end(), true) != wanted.end();
}

// The multiplications that make the powers of a variable and of its reciprocal.
struct SignedChain {
    PowerChain positive, negative;

    constexpr explicit SignedChain(const Exponents& wanted) {
        for (std::size_t e = 2; e < wanted.positive.size(); ++e) {
            if (wanted.positive[e]) positive.need(static_cast<int>(e));
            if (wanted.negative[e]) negative.need(static_cast<int>(e));
        }
    }
};

// Powers of both variables that the nested form of polynomials needs.
struct PowerDemand {
    Exponents x, y;

    template <std::size_t N>
    constexpr void add(const Polynomial<N>& p) {
        const Groups<N> groups(p);
        if (groups.size == 0) return;
        x.mark(p.terms[0].I);
        y.mark(groups.carry[0]);
        add_joints(p, groups, 0, groups.size);
        add_groups(p, [&](std::size_t g) { return groups.carry[g]; });
    }

    // the powers of y inside the groups, from each of which y^carry(g) is taken out
    template <std::size_t N, class Carry>
    constexpr void add_groups(const Polynomial<N>& p, Carry carry) {
        const Groups<N> groups(p);
        for (std::size_t g = 0; g < groups.size; ++g) {
            const std::size_t first = groups.first[g];
            const std::size_t last = groups.first[g + 1];
            for (std::size_t k = first; k < last; ++k) {
                const int e = p.terms[k].J - carry(g);
                const int lower = k > first ? p.terms[k - 1].J - carry(g) : -1;
                const int higher = k + 1 < last ? p.terms[k + 1].J - carry(g) : 0;
                if (e > 0) y.mark(lower >= 0 ? e - lower : e);
                if (e < 0) y.mark(higher < 0 ? e - higher : e);
            }
        }
    }

    // the steps x^dI y^dJ between the parts of groups from..to, divided as in nested()
    template <std::size_t N>
    constexpr void add_joints(const Polynomial<N>& p, const Groups<N>& groups, std::size_t from,
                              std::size_t to) {
        if (to - from < 2) return;
        const std::size_t middle = joint(from, to);
        x.mark(p.terms[groups.first[middle]].I - p.terms[groups.first[from]].I);
        y.mark(groups.carry[middle] - groups.carry[from]);
        add_joints(p, groups, from, middle);
        add_joints(p, groups, middle, to);
    }
};

template <auto const&... P>
constexpr PowerDemand demand_of() {
    PowerDemand d;
    (d.add(P), ...);
    return d;
}

// The powers of one variable along a chain, as values.
template <class Real, PowerChain Chain>
struct Powers {
    std::array<Real, Chain.size> value;

    VAPRIX_INLINE constexpr explicit Powers(Real base) : value{base} {
        const auto multiply = [this]<std::size_t... i>(std::index_sequence<i...>) {
            ((value[i + 1] = value[Chain.left[i + 1]] * value[Chain.right[i + 1]]), ...);
        };
        multiply(std::make_index_sequence<Chain.size - 1>{});
    }

    template <int e>
    VAPRIX_INLINE constexpr Real get() const {
        constexpr std::size_t i = Chain.find(e);
        static_assert(i < Chain.size, "this power was not asked for");
        return value[i];
    }
};

// The powers of one variable and of its reciprocal that were asked for.
template <class Real, SignedChain Chain>
struct SignedPowers {
    Powers<Real, Chain.positive> positive;
    Powers<Real, Chain.negative> negative;

    VAPRIX_INLINE constexpr explicit SignedPowers(WithReciprocal<Real> base)
        : positive(base.value), negative(base.reciprocal) {}

    // factor * base^e
    template <int e>
    VAPRIX_INLINE constexpr Real times(Real factor) const {
        if constexpr (e == 0) {
            return factor;
        } else if constexpr (e > 0) {
            return factor * positive.template get<e>();
        } else {
            return factor * negative.template get<-e>();
        }
    }

    template <int e>
    VAPRIX_INLINE constexpr Real get() const {
        if constexpr (e > 0) {
            return positive.template get<e>();
        } else {
            return negative.template get<-e>();
        }
    }
};

// The coefficient of term k as a number of several lanes that is read as it lies in memory: not const,
// or g++ 12 would know it, read one lane and repeat that.
template <auto const& P, std::size_t k, class Real>
inline constinit Real in_memory = static_cast<Real>(P.terms[k].n);

template <auto const& P, std::size_t k, class Real>
VAPRIX_INLINE constexpr Real coefficient() {
    if constexpr (requires { requires Real::constants_in_memory; }) {
        return in_memory<P, k, Real>;
    } else {
        constexpr Real n = static_cast<Real>(P.terms[k].n);
        return n;
    }
}

// sum of the terms k..last of one group with non-negative exponents, over y^(exponent of k)
template <auto const& P, std::size_t k, std::size_t last, class Y, class Real>
VAPRIX_INLINE constexpr Real ascending(const Y& y) {
    const Real n = coefficient<P, k, Real>();
    if constexpr (k + 1 == last) {
        return n;
    } else {
        constexpr int gap = P.terms[k + 1].J - P.terms[k].J;
        return n + y.template times<gap>(ascending<P, k + 1, last, Y, Real>(y));
    }
}

// sum of the terms k, k-1, ... first of one group with negative exponents, over y^(exponent of k)
template <auto const& P, std::size_t k, std::size_t first, class Y, class Real>
VAPRIX_INLINE constexpr Real descending(const Y& y) {
    const Real n = coefficient<P, k, Real>();
    if constexpr (k == first) {
        return n;
    } else {
        constexpr int gap = P.terms[k - 1].J - P.terms[k].J;
        return n + y.template times<gap>(descending<P, k - 1, first, Y, Real>(y));
    }
}

// group first..last of P, over y^carry
template <auto const& P, std::size_t first, std::size_t last, int carry, class Y, class Real>
VAPRIX_INLINE constexpr Real group_sum(const Y& y) {
    constexpr std::size_t split = [] {
        std::size_t k = first;
        while (k < last && P.terms[k].J - carry < 0) ++k;
        return k;
    }();
    if constexpr (split == first) {
        return y.template times<P.terms[first].J - carry>(ascending<P, first, last, Y, Real>(y));
    } else if constexpr (split == last) {
        return y.template times<P.terms[last - 1].J - carry>(
            descending<P, last - 1, first, Y, Real>(y));
    } else {
        return y.template times<P.terms[split].J - carry>(ascending<P, split, last, Y, Real>(y)) +
               y.template times<P.terms[split - 1].J - carry>(
                   descending<P, split - 1, first, Y, Real>(y));
    }
}

template <auto const& P>
inline constexpr auto groups = groups_of(P);

// groups from..to of P, over x^(I of from) y^(carry of from)
template <auto const& P, std::size_t from, std::size_t to, class X, class Y, class Real>
VAPRIX_INLINE constexpr Real nested(const X& x, const Y& y) {
    constexpr auto& G = groups<P>;
    if constexpr (from + 1 == to) {
        return group_sum<P, G.first[from], G.first[to], G.carry[from], Y, Real>(y);
    } else {
        constexpr std::size_t middle = joint(from, to);
        constexpr int dI = P.terms[G.first[middle]].I - P.terms[G.first[from]].I;
        constexpr int dJ = G.carry[middle] - G.carry[from];
        // x^dI y^dJ does not wait for the sums
        return nested<P, from, middle, X, Y, Real>(x, y) +
               y.template times<dJ>(x.template get<dI>()) * nested<P, middle, to, X, Y, Real>(x, y);
    }
}

template <auto const& P, class X, class Y, class Real>
VAPRIX_INLINE constexpr Real whole(const X& x, const Y& y) {
    if constexpr (P.size == 0) {
        return Real(0);
    } else {
        return x.template times<P.terms[0].I>(
            y.template times<groups<P>.carry[0]>(nested<P, 0, groups<P>.size, X, Y, Real>(x, y)));
    }
}

}  // namespace detail

// x^e, e > 0, by repeated multiplication.
template <int e, class Real>
VAPRIX_INLINE constexpr Real power(Real x) noexcept {
    constexpr detail::PowerChain chain = [] {
        detail::PowerChain c;
        c.need(e);
        return c;
    }();
    return detail::Powers<Real, chain>(x).template get<e>();
}

// Values of the polynomials P at (x, y); they share the powers of both variables. One polynomial
// gives a number, several a tuple.
template <auto const&... P, class Real>
VAPRIX_INLINE constexpr auto evaluate(WithReciprocal<Real> x, WithReciprocal<Real> y) noexcept {
    constexpr detail::PowerDemand demand = detail::demand_of<P...>();
    using X = detail::SignedPowers<Real, detail::SignedChain(demand.x)>;
    using Y = detail::SignedPowers<Real, detail::SignedChain(demand.y)>;
    const X xs(x);
    const Y ys(y);
    if constexpr (sizeof...(P) == 1) {
        return (detail::whole<P, X, Y, Real>(xs, ys), ...);
    } else {
        return std::tuple{detail::whole<P, X, Y, Real>(xs, ys)...};
    }
}

// The same with reciprocals formed here, where a polynomial has negative exponents.
template <auto const&... P, class Real>
VAPRIX_INLINE constexpr auto evaluate(Real x, Real y) noexcept {
    constexpr detail::PowerDemand demand = detail::demand_of<P...>();
    constexpr bool x_negative = detail::any(demand.x.negative);
    constexpr bool y_negative = detail::any(demand.y.negative);
    return evaluate<P...>(WithReciprocal<Real>{x, x_negative ? Real(1) / x : Real(0)},
                          WithReciprocal<Real>{y, y_negative ? Real(1) / y : Real(0)});
}

// Value of the polynomial of a printed table at (x, y).
template <auto const& Terms, class Real>
VAPRIX_INLINE Real evaluate_table(Real x, Real y) noexcept {
    static constexpr auto terms = polynomial(Terms);
    return evaluate<terms>(x, y);
}

// Coefficients c of P as a polynomial in x alone, sum c[I] x^I, at a given y: what an iteration on
// x at constant y needs only once. No exponent may be negative; absent powers of x have the
// coefficient 0.
template <auto const& P, class Real>
VAPRIX_INLINE constexpr auto coefficients_in_x(Real y) noexcept {
    constexpr detail::PowerDemand demand = [] {
        detail::PowerDemand d;
        d.add_groups(P, [](std::size_t) { return 0; });
        return d;
    }();
    static_assert(!detail::any(demand.y.negative));
    using Y = detail::SignedPowers<Real, detail::SignedChain(demand.y)>;
    const Y ys(WithReciprocal<Real>{y, {}});

    std::array<Real, static_cast<std::size_t>(P.terms[P.size - 1].I) + 1> c{};
    const auto fill = [&]<std::size_t... g>(std::index_sequence<g...>) {
        constexpr auto first = detail::groups<P>.first;
        ((c[static_cast<std::size_t>(P.terms[first[g]].I)] =
              detail::group_sum<P, first[g], first[g + 1], 0, Y, Real>(ys)),
         ...);
    };
    fill(std::make_index_sequence<detail::groups<P>.size>{});
    return c;
}

}  // namespace vaprix
