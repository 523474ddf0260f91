// SPDX-License-Identifier: MIT
#include "backward12.hpp"

#include <cmath>
#include <vector>

#include "csv.hpp"

namespace reference {

using namespace literals;

namespace {

// theta = sum n x^I y^J, with x = p - x_shift and y = a / a_star - y_shift, or its negative.
// Exponents of p in quarters make x the fourth root of p and I four times the printed one.
struct Equation {
    std::vector<Term> terms;
    Quad x_shift, y_star, y_shift;
    bool quarters = false, negative_y = false;

    Sum operator()(Quad p, Quad a) const {
        const Quad x0 = quarters ? sqrtq(sqrtq(p)) : p, y0 = a / y_star;
        const Quad x = x0 - x_shift, y = negative_y ? y_shift - y0 : y0 - y_shift;
        const auto magnification = [](Quad unshifted, Quad shift, Quad difference) {
            return (magnitude(unshifted) + magnitude(shift)) / magnitude(difference);
        };
        const Quad by_x = magnification(x0, x_shift, x), by_y = magnification(y0, y_shift, y);
        Quad value = 0, total = 0;
        for (const Term& term : terms) {
            const Quad add = term.n * power(x, term.i) * power(y, term.j);
            value += add;
            total += magnitude(add) * (1 + magnitude(term.i) * by_x + magnitude(term.j) * by_y);
        }
        return {value, static_cast<double>(total / magnitude(value))};
    }
};

std::vector<Term> read_quarters(const char* path) {
    const Table table = read_table(path);
    std::vector<Term> terms;
    for (std::size_t row = 0; row < table.rows.size(); ++row)
        terms.push_back({static_cast<int>(std::lround(4 * table.number(row, "I"))),
                         std::stoi(table.cell(row, "J")), table.quad(row, "n")});
    return terms;
}

}  // namespace

Sum t1_ph(Quad p, Quad h) {
    static const Equation equation{read_terms("if97/t06_region1_T_ph.csv"), 0, 2500, -1};
    return equation(p, h);
}

Sum t1_ps(Quad p, Quad s) {
    static const Equation equation{read_terms("if97/t08_region1_T_ps.csv"), 0, 1, -2};
    return equation(p, s);
}

char subregion2_ph(Quad p, Quad h) {
    if (p <= 4) return 'a';
    return p > p_b2bc(h) ? 'c' : 'b';
}

char subregion2_ps(Quad p, Quad s) {
    static const Quad s_2bc = 5.85_q;
    if (p <= 4) return 'a';
    return s < s_2bc ? 'c' : 'b';
}

Sum t2_ph(char subregion, Quad p, Quad h) {
    static const Equation a{read_terms("if97/t20_region2a_T_ph.csv"), 0, 2000, 2.1_q},
        b{read_terms("if97/t21_region2b_T_ph.csv"), 2, 2000, 2.6_q},
        c{read_terms("if97/t22_region2c_T_ph.csv"), -25, 2000, 1.8_q};
    return subregion == 'a' ? a(p, h) : subregion == 'b' ? b(p, h) : c(p, h);
}

Sum t2_ps(char subregion, Quad p, Quad s) {
    static const Equation a{read_quarters("if97/t25_region2a_T_ps.csv"), 0, 2, 2, true},
        b{read_terms("if97/t26_region2b_T_ps.csv"), 0, 0.7853_q, 10, false, true},
        c{read_terms("if97/t27_region2c_T_ps.csv"), 0, 2.9251_q, 2, false, true};
    return subregion == 'a' ? a(p, s) : subregion == 'b' ? b(p, s) : c(p, s);
}

Quad p_b2bc(Quad h) {
    static const auto n = read_terms("if97/t19_b2bc.csv");
    return n[0].n + h * (n[1].n + h * n[2].n);
}

}  // namespace reference
