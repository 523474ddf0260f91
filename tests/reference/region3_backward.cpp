// SPDX-License-Identifier: MIT
#include "region3_backward.hpp"

#include <map>
#include <stdexcept>

#include "basic_equations.hpp"
#include "csv.hpp"

namespace reference {

using namespace literals;

namespace {

Sum sum_terms(const std::vector<Term>& terms, Quad x, Quad y) {
    Quad value = 0, total = 0;
    for (const Term& term : terms) {
        const Quad add = term.n * power(x, term.i) * power(y, term.j);
        value += add;
        total += magnitude(add);
    }
    return {value, static_cast<double>(total / magnitude(value))};
}

// Equations (4) and (5) of the v(p,T) release; c = 0 marks the exponential form of 3n.
struct VolumeEquation {
    std::vector<Term> terms;
    Quad v_star, p_star, t_star, a, b, c, d;
    int e;
};

VolumeEquation read_volume_equation(char subregion) {
    const std::string name = {'3', subregion};
    const Table reducing = read_table("region3_vpt/reducing.csv");
    for (std::size_t row = 0; row < reducing.rows.size(); ++row) {
        if (reducing.cell(row, "subregion") != name) continue;
        const auto value = [&](const char* column) { return reducing.quad(row, column); };
        return {read_terms("region3_vpt/v" + name + ".csv"),
                value("v_star"),
                value("p_star"),
                value("T_star"),
                value("a"),
                value("b"),
                value("c"),
                value("d"),
                static_cast<int>(value("e"))};
    }
    throw std::out_of_range("no subregion " + name);
}

// T/T* (or v/v*, p/p*) = sum n (p/p* + a)^I (y/y* - b)^J.
struct TwoVariableEquation {
    std::vector<Term> terms;
    Quad x_star, y_star, a, b;

    Sum operator()(Quad p, Quad y) const {
        Sum sum = sum_terms(terms, p / 100 + a, y / y_star - b);
        sum.value *= x_star;
        return sum;
    }
};

Quad entropy_3ab() {
    static const Quad s = 4.41202148223476_q;  // critical isentrope, kJ/(kg K)
    return s;
}

}  // namespace

Sum v_subregion(char subregion, Quad p, Quad t) {
    static const auto equations = [] {
        std::map<char, VolumeEquation> all;
        for (char letter = 'a'; letter <= 'z'; ++letter)
            all.emplace(letter, read_volume_equation(letter));
        return all;
    }();
    const VolumeEquation& eq = equations.at(subregion);
    Quad x = p / eq.p_star - eq.a, y = t / eq.t_star - eq.b;
    if (eq.c == 0) {
        const Sum sum = sum_terms(eq.terms, x, y);
        const double size = static_cast<double>(magnitude(sum.value));
        return {eq.v_star * expq(sum.value), size * sum.condition};
    }
    if (eq.c != 1) x = powq(x, eq.c);
    if (eq.d != 1) y = powq(y, eq.d);
    const Sum sum = sum_terms(eq.terms, x, y);
    return {eq.v_star * power(sum.value, eq.e), eq.e * sum.condition};
}

Quad boundary(const std::string& name, Quad p) {
    static const auto tables = [] {
        std::map<std::string, std::vector<Term>> all;
        const Table table = read_table("region3_vpt/boundaries.csv");
        for (std::size_t row = 0; row < table.rows.size(); ++row)
            all[table.cell(row, "equation")].push_back(
                {std::stoi(table.cell(row, "I")), 0, table.quad(row, "n")});
        return all;
    }();
    static const Quad slope = 3.727888004_q;
    if (name == "T3ef") return slope * (p - p_crit) + t_crit;
    const bool logarithmic = name == "T3ab" || name == "T3op" || name == "T3wx";
    return sum_terms(tables.at(name), logarithmic ? logq(p) : p, 1).value;
}

char subregion(Quad p, Quad t) {
    static const Table rows = read_table("region3_vpt/subregion_selection.csv");
    static const std::map<std::string, Quad> named = {{"p3cd", 19.00881189173929_q},
                                                      {"psat643", psat(643.15_q)},
                                                      {"psat623", psat(623.15_q)},
                                                      {"psat_v264", 21.93161551_q},
                                                      {"psat_v385", 21.90096265_q}};
    const auto pressure = [](const std::string& cell) {
        const auto found = named.find(cell);
        return found == named.end() ? strtoflt128(cell.c_str(), nullptr) : found->second;
    };
    const auto temperature = [p](const std::string& cell) {
        return cell == "Tsat" ? tsat(p) : boundary(cell, p);
    };
    for (std::size_t row = 0; row < rows.rows.size(); ++row) {
        if (!(pressure(rows.cell(row, "p_low")) < p && p <= pressure(rows.cell(row, "p_high"))))
            continue;
        const std::string &low = rows.cell(row, "T_low"), &high = rows.cell(row, "T_high");
        const std::string& phase = rows.cell(row, "phase");
        if (!low.empty() && !(temperature(low) < t)) continue;
        if (!high.empty() && !(t <= temperature(high))) continue;
        if (!phase.empty() && (phase == "T<=Tsat") != (t <= tsat(p))) continue;
        return rows.cell(row, "subregion")[1];
    }
    throw std::out_of_range("no subregion");
}

Quad h3ab(Quad p) {
    static const auto n = read_terms("region3_phps/h3ab_p.csv");
    return n[0].n + p * (n[1].n + p * (n[2].n + p * n[3].n));
}

Sum t_ph(Quad p, Quad h) {
    static const TwoVariableEquation a{read_terms("region3_phps/T3a_ph.csv"), 760, 2300, 0.240_q,
                                       0.615_q},
        b{read_terms("region3_phps/T3b_ph.csv"), 860, 2800, 0.298_q, 0.720_q};
    return h <= h3ab(p) ? a(p, h) : b(p, h);
}

Sum v_ph(Quad p, Quad h) {
    static const TwoVariableEquation a{read_terms("region3_phps/v3a_ph.csv"), 0.0028_q, 2100,
                                       0.128_q, 0.727_q},
        b{read_terms("region3_phps/v3b_ph.csv"), 0.0088_q, 2800, 0.0661_q, 0.720_q};
    return h <= h3ab(p) ? a(p, h) : b(p, h);
}

Sum t_ps(Quad p, Quad s) {
    static const TwoVariableEquation a{read_terms("region3_phps/T3a_ps.csv"), 760, 4.4_q, 0.240_q,
                                       0.703_q},
        b{read_terms("region3_phps/T3b_ps.csv"), 860, 5.3_q, 0.760_q, 0.818_q};
    return s <= entropy_3ab() ? a(p, s) : b(p, s);
}

Sum v_ps(Quad p, Quad s) {
    static const TwoVariableEquation a{read_terms("region3_phps/v3a_ps.csv"), 0.0028_q, 4.4_q,
                                       0.187_q, 0.755_q},
        b{read_terms("region3_phps/v3b_ps.csv"), 0.0088_q, 5.3_q, 0.298_q, 0.816_q};
    return s <= entropy_3ab() ? a(p, s) : b(p, s);
}

Sum p3sat_h(Quad h) {
    static const auto terms = read_terms("region3_phps/p3sat_h.csv");
    static const Quad a = 1.02_q, b = 0.608_q;
    Sum sum = sum_terms(terms, h / 2600 - a, h / 2600 - b);
    sum.value *= 22;
    return sum;
}

Sum p3sat_s(Quad s) {
    static const auto terms = read_terms("region3_phps/p3sat_s.csv");
    static const Quad star = 5.2_q, a = 1.03_q, b = 0.699_q;
    Sum sum = sum_terms(terms, s / star - a, s / star - b);
    sum.value *= 22;
    return sum;
}

}  // namespace reference
