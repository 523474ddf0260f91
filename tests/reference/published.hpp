// SPDX-License-Identifier: MIT
// The published equations term by term, for double and for quadruple precision. The tables of
// published/ and the forms of equations.csv are read at run time; nothing is shared with the
// library. Units: p MPa, t K, v m3/kg, d kg/m3, energies kJ/kg, s cp cv kJ/(kg K), w m/s.
#pragma once

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "table.hpp"

namespace published {

// An exponent of a term, mostly a whole number.
template <class N>
struct Exponent {
    N exact;
    int whole = static_cast<int>(exact);
    bool fractional = N(whole) != exact;
    Exponent(N e) : exact(e) {}
};
template <class N>
struct Term {
    Exponent<N> i, j;
    N n;
};

// The powers of a number: whole ones of one multiplication each, when they are first needed.
template <class N>
class Powers {
public:
    explicit Powers(N base) : x_(base) {}
    N operator()(const Exponent<N>& e, int less) {
        const int n = e.whole - less;
        if (e.fractional) return power(x_, e.exact - less);
        return n < 0 ? inverse_.to(static_cast<std::size_t>(-n), [this] { return 1 / x_; })
                     : positive_.to(static_cast<std::size_t>(n), [this] { return x_; });
    }

private:
    struct Sequence {
        std::array<N, 64> known{1};
        std::size_t last = 0;
        template <class Base>
        N to(std::size_t n, const Base& base) {
            if (last == 0 && n > 0) known[++last] = base();
            for (; last < n; ++last) known.at(last + 1) = known[last] * known[1];
            return known[n];
        }
    };
    N x_;
    Sequence positive_, inverse_;
};
// What the formulas cost as they are printed is measured with those of the host.
template <>
class Powers<double> {
public:
    explicit Powers(double base) : x_(base) {}
    double operator()(const Exponent<double>& e, int less) const {
        return power(x_, e.exact - less);
    }

private:
    double x_;
};

template <class N>
struct Sum {
    N value = 0, size = 0;  // size: of the absolute terms
};

// d^(di+dj)/dx^di dy^dj of sum n x^i y^j.
template <class N>
Sum<N> sum(const std::vector<Term<N>>& terms, Powers<N>& x, Powers<N>& y, int di = 0, int dj = 0) {
    Sum<N> total;
    for (const Term<N>& term : terms) {
        N n = term.n;
        for (int k = 0; k < di; ++k) n *= term.i.exact - k;
        for (int k = 0; k < dj; ++k) n *= term.j.exact - k;
        if (n == 0) continue;
        const N add = n * x(term.i, di) * y(term.j, dj);
        total.value += add;
        total.size += magnitude(add);
    }
    return total;
}
template <class N>
Sum<N> sum(const std::vector<Term<N>>& terms, N x, N y, int di = 0, int dj = 0) {
    Powers<N> of_x(x), of_y(y);
    return sum(terms, of_x, of_y, di, dj);
}

// The terms of a table: with exponents I and J, or with neither, which means powers 0, 1, 2 ... of
// x. Rows without the exponents of their columns do not belong to the sum.
template <class N>
std::vector<Term<N>> read_terms(const std::string& path, const std::string& set = "",
                                const char* n = "n", const char* i = "I", const char* j = "J") {
    const Table table = read_table(path);
    const bool by_row = !table.has(i) && !table.has(j), named = table.has("equation");
    const std::size_t limit = set.empty() || named ? table.rows.size() : std::stoul(set);
    std::vector<Term<N>> terms;
    for (std::size_t row = 0; row < limit; ++row) {
        if (named && table.cell(row, "equation") != set) continue;
        const auto exponent = [&](const char* column) {
            return table.has(column) ? table.cell(row, column) : std::string("0");
        };
        const std::string of_x = by_row ? std::to_string(row) : exponent(i), of_y = exponent(j);
        if (of_x.empty() || of_y.empty()) continue;
        terms.push_back({number<N>(of_x), number<N>(of_y), number<N>(table.cell(row, n))});
    }
    return terms;
}

// Column `value` of a table by its column `name`.
template <class N>
std::map<std::string, N> read_constants(const std::string& path) {
    const Table table = read_table(path);
    std::map<std::string, N> constants;
    for (std::size_t row = 0; row < table.rows.size(); ++row)
        constants[table.cell(row, "name")] = number<N>(table.cell(row, "value"));
    return constants;
}

// Coefficients n[1] ... of a one-column table.
template <class N>
std::vector<N> read_list(const std::string& path) {
    std::vector<N> n(1);
    for (const Term<N>& term : read_terms<N>(path)) n.push_back(term.n);
    return n;
}

// A variable of a polynomial: (sign u + shift)^exponent, u = a/a*, a*/a or ln a.
template <class N>
struct Variable {
    std::size_t argument = 0;
    bool inverse = false, logarithmic = false;
    N sign = 1, star = 1, shift = 0, exponent = 1;

    N reduced(const std::array<N, 2>& a) const {
        const N given = a[argument];
        return logarithmic ? logarithm(given) : inverse ? star / given : given / star;
    }
    N operator()(const std::array<N, 2>& a) const {
        const N x = sign * reduced(a) + shift;
        return exponent == 1 ? x : power(x, exponent);
    }
    // what the rounding of the reduced and shifted variable is proportional to
    N spread(const std::array<N, 2>& a) const {
        const N u = reduced(a), x = sign * u + shift;
        return (magnitude(u) + magnitude(shift)) * magnitude(exponent * (*this)(a) / x);
    }
};

// Reads "7.1-p/16.53", "1386/T-1.222" or "ln p" with the letters of the arguments.
template <class N>
Variable<N> variable(const std::string& text, const std::string& arguments) {
    static const std::regex form(
        "(?:([0-9.]+)-)?(?:([0-9.]+)/)?(ln )?([a-zA-Z])(?:/([0-9.]+))?([+-][0-9.e-]+)?");
    std::smatch part;
    if (!std::regex_match(text, part, form)) throw std::runtime_error("odd variable " + text);
    Variable<N> x;
    if (part[1].matched) x.sign = -1, x.shift = number<N>(part[1]);
    if (part[2].matched) x.inverse = true, x.star = number<N>(part[2]);
    x.logarithmic = part[3].matched;
    x.argument = arguments.find(part[4]);
    if (part[5].matched) x.star = number<N>(part[5]);
    if (part[6].matched) x.shift = number<N>(part[6]);
    return x;
}

// scale * outer(sum n x^I y^J), outer being a power or the exponential function.
template <class N>
struct Equation {
    std::string name, arguments, low, high, permitted;
    std::vector<Term<N>> terms{};
    Variable<N> x{}, y{};
    N scale = 1, exponent = 1;
    bool exponential_form = false;

    N operator()(N a, N b = 0) const {
        const N total = sum(terms, x({a, b}), y({a, b})).value;
        if (exponential_form) return scale * exponential(total);
        return scale * (exponent == 1 ? total : power(total, exponent));
    }
    // How much the equation amplifies the rounding of its terms and of its variables.
    N condition(N a, N b = 0) const {
        const std::array<N, 2> at = {a, b};
        const N at_x = x(at), at_y = y(at);
        const Sum<N> total = sum(terms, at_x, at_y);
        const N spread = total.size + magnitude(sum(terms, at_x, at_y, 1, 0).value) * x.spread(at) +
                         magnitude(sum(terms, at_x, at_y, 0, 1).value) * y.spread(at);
        return exponential_form ? spread : magnitude(exponent) * spread / magnitude(total.value);
    }
};

template <class N>
std::map<std::string, Equation<N>> read_equations() {
    std::map<std::string, Equation<N>> all;
    const Table forms = read_file(VAPRIX_EQUATIONS);
    for (std::size_t row = 0; row < forms.rows.size(); ++row) {
        const auto cell = [&](const char* column) { return forms.cell(row, column); };
        const std::string of = cell("arguments"), outer = cell("outer");
        const bool exp = outer == "exp";
        Equation<N>& one = all[cell("name")];
        one = {cell("name"), of, cell("low"), cell("high"), cell("permitted")};
        one.terms = read_terms<N>(cell("file"), cell("set"));
        one.x = variable<N>(cell("x"), of), one.y = variable<N>(cell("y"), of);
        one.scale = number<N>(cell("scale")), one.exponent = number<N>(exp ? "1" : outer);
        one.exponential_form = exp;
    }
    // IAPWS SR5-05(2016), Eq. (4), and Eq. (5), which is exponential and has no c, d, e
    const Table volumes = read_table("region3_vpt/reducing.csv");
    for (std::size_t row = 0; row < volumes.rows.size(); ++row) {
        const std::string name = "v" + volumes.cell(row, "subregion");
        const bool exp = volumes.cell(row, "e").empty();
        const auto value = [&](const char* column) {
            const std::string& text = volumes.cell(row, column);
            return number<N>(text.empty() ? "1" : text);
        };
        Equation<N>& one = all[name];
        one = {name, "pT", "", "", ""};
        one.terms = read_terms<N>("region3_vpt/" + name + ".csv");
        one.x = {0, false, false, 1, value("p_star"), -value("a"), value("c")};
        one.y = {1, false, false, 1, value("T_star"), -value("b"), value("d")};
        one.scale = value("v_star"), one.exponent = value("e"), one.exponential_form = exp;
    }
    return all;
}

template <class N>
const std::map<std::string, Equation<N>>& equations() {
    static const auto all = read_equations<N>();
    return all;
}
template <class N>
const Equation<N>& equation(const std::string& name) {
    return equations<N>().at(name);
}

// An equation or a constant by its text, looked up once.
template <std::size_t size>
struct Text {
    char characters[size];
    constexpr Text(const char (&text)[size]) { std::copy_n(text, size, characters); }
};
template <class N, Text name>
const Equation<N>& of() {
    static const auto& found = equation<N>(name.characters);
    return found;
}
template <class N, Text digits>
const N& constant() {
    static const N value = number<N>(digits.characters);
    return value;
}

// IAPWS R7-97(2012), Eqs. (30) and (31), and dTs/dp of the implicit form, Eq. (29).
template <class N>
const std::vector<N>& saturation() {
    static const auto n = read_list<N>("if97/t34_saturation.csv");
    return n;
}
template <class N>
N psat(N t) {
    const auto& n = saturation<N>();
    const N theta = t + n[9] / (t - n[10]);
    const N A = theta * theta + n[1] * theta + n[2];
    const N B = n[3] * theta * theta + n[4] * theta + n[5];
    const N C = n[6] * theta * theta + n[7] * theta + n[8];
    return power(2 * C / (root(B * B - 4 * A * C) - B), N(4));
}
template <class N>
N tsat(N p) {
    const auto& n = saturation<N>();
    const N beta = root(root(p));
    const N E = beta * beta + n[3] * beta + n[6];
    const N F = n[1] * beta * beta + n[4] * beta + n[7];
    const N G = n[2] * beta * beta + n[5] * beta + n[8];
    const N D = -2 * G / (F + root(F * F - 4 * E * G));
    return (n[10] + D - root((n[10] + D) * (n[10] + D) - 4 * (n[9] + n[10] * D))) / 2;
}
template <class N>
N tsat_p(N p) {
    const auto& n = saturation<N>();
    const N beta = root(root(p)), t = tsat(p), theta = t + n[9] / (t - n[10]);
    const N by_beta = 2 * beta * (theta * theta + n[1] * theta + n[2]) + n[3] * theta * theta +
                      n[4] * theta + n[5];
    const N by_theta =
        2 * theta * (beta * beta + n[3] * beta + n[6]) + n[1] * beta * beta + n[4] * beta + n[7];
    return -by_beta / by_theta * beta / (4 * p) / (1 - n[9] / ((t - n[10]) * (t - n[10])));
}

// The boundary of regions 2 and 3, Eqs. (5) and (6).
template <class N>
N p_b23(N t) {
    return of<N, "p_b23">()(t);
}
template <class N>
N t_b23(N p) {
    static const auto n = read_list<N>("if97/t01_b23.csv");
    return n[4] + root((p - n[5]) / n[3]);
}

// Region of (p, T) away from the ends of the range; a state on a boundary counts as the denser one.
template <class N>
int region(N p, N t) {
    if (t > constant<N, "863.15">()) return t > constant<N, "1073.15">() ? 5 : 2;
    if (t <= constant<N, "623.15">()) return p < psat(t) ? 2 : 1;
    return p > p_b23(t) ? 3 : 2;
}

// Which of its equations a backward function takes. Limits: IAPWS R7-97(2012), section 6.3,
// SR2-01(2014), SR3-03(2014) and SR4-04(2014).
template <class N>
using Choice = const Equation<N>& (*)(N, N);
template <class N, Text name>
const Equation<N>& only(N, N) {
    return of<N, name>();
}
template <class N>
const Equation<N>& t2_ph(N p, N h) {
    return p <= 4                     ? of<N, "t2a_ph">()
           : p > of<N, "p_b2bc">()(h) ? of<N, "t2c_ph">()
                                      : of<N, "t2b_ph">();
}
template <class N>
bool in_2c(N s) {
    return s < constant<N, "5.85">();
}
template <class N>
const Equation<N>& t2_ps(N p, N s) {
    return p <= 4 ? of<N, "t2a_ps">() : in_2c(s) ? of<N, "t2c_ps">() : of<N, "t2b_ps">();
}
template <class N>
const Equation<N>& p2_hs(N h, N s) {
    return in_2c(s)                   ? of<N, "p2c_hs">()
           : h <= of<N, "h_2ab">()(s) ? of<N, "p2a_hs">()
                                      : of<N, "p2b_hs">();
}
template <class N, Text a, Text b>
const Equation<N>& by_h3ab(N p, N h) {
    return h <= of<N, "h3ab">()(p) ? of<N, a>() : of<N, b>();
}
template <class N, Text a, Text b>
const Equation<N>& by_critical_s(N /* p or h */, N s) {
    return s <= constant<N, "4.41202148223476">() ? of<N, a>() : of<N, b>();
}
template <class N>
inline constexpr Choice<N> t3_ph = by_h3ab<N, "t3a_ph", "t3b_ph">;
template <class N>
inline constexpr Choice<N> v3_ph = by_h3ab<N, "v3a_ph", "v3b_ph">;
template <class N>
inline constexpr Choice<N> t3_ps = by_critical_s<N, "t3a_ps", "t3b_ps">;
template <class N>
inline constexpr Choice<N> v3_ps = by_critical_s<N, "v3a_ps", "v3b_ps">;
template <class N>
inline constexpr Choice<N> p3_hs = by_critical_s<N, "p3a_hs", "p3b_hs">;

// Boundary temperature of the subregions of region 3 by its published name.
template <class N>
N boundary3(const std::string& name, N p) {
    if (name != "T3ef") return equation<N>(name)(p);
    return constant<N, "3.727888004">() * (p - constant<N, "22.064">()) + constant<N, "647.096">();
}

// Volume of region 3 by (p, T): the decision tables of IAPWS SR5-05(2016). The saturation line
// divides liquid and vapour at the temperature of Eq. (31); a state on it counts as liquid.
template <class N>
const Equation<N>& v3_pt(N p, N t) {
    static const Table rows = read_table("region3_vpt/subregion_selection.csv");
    static const std::map<std::string, N> named = {{"p3cd", number<N>("19.00881189173929")},
                                                   {"psat643", psat(number<N>("643.15"))},
                                                   {"psat623", psat(number<N>("623.15"))},
                                                   {"psat_v264", number<N>("21.93161551")},
                                                   {"psat_v385", number<N>("21.90096265")}};
    const auto pressure = [](const std::string& cell) {
        const auto found = named.find(cell);
        return found == named.end() ? number<N>(cell) : found->second;
    };
    const auto temperature = [p](const std::string& cell) {
        return cell == "Tsat" ? tsat(p) : boundary3(cell, p);
    };
    for (std::size_t row = 0; row < rows.rows.size(); ++row) {
        if (!(pressure(rows.cell(row, "p_low")) < p && p <= pressure(rows.cell(row, "p_high"))))
            continue;
        const std::string &low = rows.cell(row, "T_low"), &high = rows.cell(row, "T_high");
        const std::string& phase = rows.cell(row, "phase");
        if (!low.empty() && !(temperature(low) < t)) continue;
        if (!high.empty() && !(t <= temperature(high))) continue;
        if (!phase.empty() && (phase == "T<=Tsat") != (t <= tsat(p))) continue;
        return equation<N>("v" + rows.cell(row, "subregion"));
    }
    throw std::out_of_range("no subregion");
}

// A state of one of the basic equations, IAPWS R7-97(2012), Eqs. (7), (15), (28) and (32). Each sum
// is evaluated once, when it is first needed. 1000 is the ratio of MPa m3/kg to kJ/kg.
template <class N>
class State {
public:
    State(int region, N p_or_d, N temperature)
        : t(temperature), dense_(region == 3), given_(p_or_d), of_(basic(region)) {
        a_ = of_.residual->x.reduced({given_, t});
        tau_ = of_.residual->y.reduced({given_, t});
    }
    N t;

    N p() const { return dense_ ? given_ * R() * t * a_ * f_(1, 0) / 1000 : given_; }
    N v() const { return dense_ ? 1 / given_ : R() * t * f_(1, 0) / star() / 1000; }
    N d() const { return dense_ ? given_ : 1 / v(); }
    N p_d() const {
        if (!dense_) return -v() * v() / v_p();
        return R() * t * a_ * (2 * f_(1, 0) + a_ * f_(2, 0)) / 1000;
    }
    N p_t() const {
        if (!dense_) return -v_t() / v_p();
        return given_ * R() * a_ * (f_(1, 0) - tau_ * f_(1, 1)) / 1000;
    }
    N v_p() const {
        if (dense_) return -v() * v() / p_d();
        return R() * t * f_(2, 0) / (star() * star()) / 1000;
    }
    N v_t() const {
        if (dense_) return -v_p() * p_t();
        return R() * (f_(1, 0) - tau_ * f_(1, 1)) / star() / 1000;
    }
    N s() const { return R() * (tau_ * f_(0, 1) - f_(0, 0)); }
    N h() const { return R() * t * tau_ * f_(0, 1) + (dense_ ? 1000 * p() * v() : N(0)); }
    N u() const { return R() * t * tau_ * f_(0, 1) - (dense_ ? N(0) : 1000 * p() * v()); }
    N g() const { return R() * t * f_(0, 0) + (dense_ ? 1000 * p() * v() : N(0)); }
    N f() const { return R() * t * f_(0, 0) - (dense_ ? N(0) : 1000 * p() * v()); }
    N cp() const { return c() + (dense_ ? 1000 * t * p_t() * p_t() * v() * v() / p_d() : N(0)); }
    N cv() const { return c() + (dense_ ? N(0) : 1000 * t * v_t() * v_t() / v_p()); }
    N w() const { return root(1000000 * p_d() * cp() / cv()); }

    // What cancellation makes of a rounding of the terms: the worst of the potential and its first
    // derivatives, in units of R T, and of the second derivatives.
    N first_condition() const {
        return std::max({size_(0, 0) / (magnitude(f_(0, 0)) + 1),
                         tau_ * size_(0, 1) / (magnitude(tau_ * f_(0, 1)) + 1),
                         size_(1, 0) / magnitude(f_(1, 0))});
    }
    N second_condition() const {
        const auto ratio = [this](int i, int j) { return size_(i, j) / magnitude(f_(i, j)); };
        if (!dense_) return std::max({ratio(2, 0), ratio(0, 2), ratio(1, 1)});
        const N size = 2 * size_(1, 0) + a_ * size_(2, 0);
        return std::max(size / magnitude(2 * f_(1, 0) + a_ * f_(2, 0)), ratio(0, 2));
    }

    static N R() { return constant<N, "0.461526">(); }

private:
    struct Basic {
        const Equation<N>*residual, *ideal;
        N logarithm;  // coefficient of ln pi or ln delta
    };
    static const Basic& basic(int region) {
        static const auto of = [](const char* residual, const char* ideal, N n) {
            return Basic{&equation<N>(residual), ideal ? &equation<N>(ideal) : nullptr, n};
        };
        static const std::map<int, Basic> all = {
            {1, of("region1", nullptr, 0)},
            {2, of("region2", "region2_ideal", 1)},
            {3, of("region3", nullptr, number<N>(read_table("if97/t30_region3.csv").cell(0, "n")))},
            {5, of("region5", "region5_ideal", 1)}};
        return all.at(region);
    }
    N star() const { return of_.residual->x.star; }
    N c() const { return -R() * tau_ * tau_ * f_(0, 2); }  // cp or cv, which follows from tau alone

    // derivatives by pi or delta and by tau
    N f_(int i, int j) const { return reduced(i, j).value; }
    N size_(int i, int j) const { return reduced(i, j).size; }
    const Sum<N>& reduced(int i, int j) const {
        const auto index = static_cast<std::size_t>(3 * i + j);
        Sum<N>& total = sums_[index];
        if (known_[index]) return total;
        known_[index] = true;
        const auto add = [&](const Equation<N>& equation, const Sum<N>& part) {
            total.value += (i == 1 ? equation.x.sign : N(1)) * part.value;
            total.size += part.size;
        };
        const auto at = [this](const Variable<N>& of) { return of({given_, t}); };
        if (!powers_) powers_.emplace(at(of_.residual->x), at(of_.residual->y));
        add(*of_.residual, sum(of_.residual->terms, powers_->first, powers_->second, i, j));
        if (const auto* ideal = of_.ideal)
            add(*ideal, sum(ideal->terms, at(ideal->x), at(ideal->y), i, j));
        if (of_.logarithm != 0 && j == 0)
            total.value += of_.logarithm * (i == 0   ? logarithm(a_)
                                            : i == 1 ? 1 / a_
                                                     : -1 / (a_ * a_));
        return total;
    }

    bool dense_;
    N given_;  // p, in region 3 d
    const Basic& of_;
    N a_, tau_;
    mutable std::optional<std::pair<Powers<N>, Powers<N>>> powers_{};
    mutable std::array<Sum<N>, 9> sums_{};
    mutable std::array<bool, 9> known_{};
};

// Saturated densities: IAPWS SR1-86(1992), Eqs. (2), set b, and (3), set c: sum n tau^i.
template <class N>
std::vector<Term<N>> saturated_density_terms(const std::string& set) {
    const Table table = read_table("transport/saturation_1992.csv");
    std::vector<Term<N>> terms;
    for (std::size_t row = 0; row < table.rows.size(); ++row)
        if (table.cell(row, "set") == set)
            terms.push_back(
                {number<N>(table.cell(row, "exp_num")) / number<N>(table.cell(row, "exp_den")), 0,
                 number<N>(table.cell(row, "value"))});
    return terms;
}

// Viscosity, Pa s: IAPWS R12-08, Eqs. (10) to (12) without the critical enhancement.
template <class N>
N viscosity(N t, N d) {
    static const auto dilute = read_terms<N>("transport/viscosity_H0.csv", "", "H", "i", "none");
    static const auto dense = read_terms<N>("transport/viscosity_H.csv", "", "H", "i", "j");
    const N y = constant<N, "647.096">() / t, r = d / 322;
    return constant<N, "1e-6">() * 100 / root(y) / sum(dilute, y, N(1)).value *
           exponential(r * sum(dense, y - 1, r - 1).value);
}

// Thermal conductivity, W/(m K): release of 1998, in its form for industrial use.
template <class N>
N conductivity(N t, N d) {
    static const auto constants = read_constants<N>("transport/conductivity.csv");
    const auto c = [](const char* name) { return constants.at(name); };
    const N tr = t / c("T_star"), r = d / c("rho_star"), shifted = r + c("B2");
    const N dt = magnitude(tr - 1) + c("C4"), root_dt = power(dt, constant<N, "0.6">());
    const N q = 2 + c("C5") / root_dt, s = tr >= 1 ? 1 / dt : c("C6") / root_dt;
    return root(tr) * (c("a0") + c("a1") * tr + c("a2") * tr * tr + c("a3") * tr * tr * tr) +
           c("b0") + c("b1") * r + c("b2") * exponential(c("B1") * shifted * shifted) +
           (c("d1") / power(tr, N(10)) + c("d2")) * power(r, constant<N, "1.8">()) *
               exponential(c("C1") * (1 - power(r, constant<N, "2.8">()))) +
           c("d3") * s * power(r, q) * exponential(q / (1 + q) * (1 - power(r, 1 + q))) +
           c("d4") * exponential(c("C2") * power(tr, N(1.5)) + c("C3") / power(r, N(5)));
}

// Static dielectric constant: IAPWS R8-97, Eqs. (3) to (5) and (7).
template <class N>
N dielectric_constant(N t, N d) {
    static const auto terms = read_terms<N>("transport/dielectric.csv", "", "N", "i", "j");
    static const N last = number<N>(read_table("transport/dielectric.csv").cell(11, "N"));
    static const N pi = number<N>("3.14159265358979323846264338327950288"), c = 299792458;
    static const N eps0 = 1 / (number<N>("4e-7") * pi * c * c);
    static const Table named = read_table("transport/dielectric_constants.csv");
    const auto value = [](std::size_t row) { return number<N>(named.cell(row, "value")); };
    static const N alpha = value(1), mu = value(2), k = value(3), NA = value(4), Mw = value(5),
                   Tc = value(6), exponent = number<N>("-1.2");
    const N molar = d / Mw, r = d / 322;
    const N g = 1 + sum(terms, r, Tc / t).value + last * r * power(t / 228 - 1, exponent);
    const N A = NA * mu * mu * molar * g / (eps0 * k * t), B = NA * alpha * molar / (3 * eps0);
    return (1 + A + 5 * B + root(9 + 2 * A + 18 * B + A * A + 10 * A * B + 9 * B * B)) /
           (4 - 4 * B);
}

// Refractive index at a wavelength in micrometres: IAPWS R9-97, Eq. (1).
template <class N>
N refractive_index(N t, N d, N wavelength) {
    static const auto constants = read_constants<N>("transport/refractive_index.csv");
    const auto c = [](const char* name) { return constants.at(name); };
    const N tr = t / c("T_star"), r = d / c("rho_star"), l = wavelength / c("lambda_star");
    const N uv = c("lambda_UV"), ir = c("lambda_IR"), l2 = l * l;
    const N L = r * (c("a0") + c("a1") * r + c("a2") * tr + c("a3") * l2 * tr + c("a4") / l2 +
                     c("a5") / (l2 - uv * uv) + c("a6") / (l2 - ir * ir) + c("a7") * r * r);
    return root((1 + 2 * L) / (1 - L));
}

// Surface tension, mN/m: IAPWS R1-76(2014).
template <class N>
N surface_tension(N t) {
    static const auto constants = read_constants<N>("transport/surface_tension.csv");
    const auto c = [](const char* name) { return constants.at(name); };
    const N tau = 1 - t / c("Tc");
    return c("B") * power(tau, c("mu")) * (1 + c("b") * tau);
}

}  // namespace published
