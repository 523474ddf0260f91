// SPDX-License-Identifier: MIT
// Functions of one or two numbers by name: exports, and those equations of the library that no
// export evaluates alone, under the names of reference/equations.csv.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "bound.hpp"
#include "regions/b23.hpp"
#include "regions/boundaries_hs.hpp"
#include "regions/region1_backward.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3_backward.hpp"
#include "regions/region3_boundaries.hpp"
#include "regions/region3_volume.hpp"
#include "regions/saturation_line.hpp"
#include "transport/viscosity.hpp"

using Function = std::function<double(double, double)>;

inline Function function(const std::string& name) {
    namespace lines = vaprix::boundaries_hs;
    using dense = vaprix::region3;
    const auto one = [](double (*f)(double)) { return [f](double x, double) { return f(x); }; };
    static const std::map<std::string, Function> internal = {
        {"p_b2bc", one(vaprix::region2::p_b2bc)},
        {"t_b23", one(vaprix::t_b23<double>)},
        {"h_2ab", one(vaprix::region2::h_2ab)},
        {"p1_hs", vaprix::region1::p_hs},
        {"p2_hs", vaprix::region2::p_hs},
        {"p3_hs", vaprix::region3::p_hs},
        {"h1_liq", one(lines::h_liquid_1<double>)},
        {"h3a_liq", one(lines::h_liquid_3a<double>)},
        {"h2ab_vap", one(lines::h_vapour_2ab<double>)},
        {"h2c3b_vap", one(lines::h_vapour_2c3b<double>)},
        {"h_13", one(lines::h_13<double>)},
        {"t_23", lines::t_23<double>},
        {"tsat_hs", vaprix::tsat_hs<double>},
        {"h3ab", one(vaprix::region3::h3ab)},
        {"v3_ph", vaprix::region3::v_ph},
        {"v3_ps", vaprix::region3::v_ps},
        {"t3_ph", vaprix::region3::t_ph},
        {"t3_ps", vaprix::region3::t_ps},
        {"p3sat_h", one(vaprix::region3::p3sat_h)},
        {"p3sat_s", one(vaprix::region3::p3sat_s)},
        {"T3ab", one(dense::t3ab)},
        {"T3cd", one(dense::t3cd)},
        {"T3ef", one(dense::t3ef)},
        {"T3gh", one(dense::t3gh)},
        {"T3ij", one(dense::t3ij)},
        {"T3jk", one(dense::t3jk)},
        {"T3mn", one(dense::t3mn)},
        {"T3op", one(dense::t3op)},
        {"T3qu", one(dense::t3qu)},
        {"T3rx", one(dense::t3rx)},
        {"T3uv", one(dense::t3uv)},
        {"T3wx", one(dense::t3wx)},
        {"viscosity", vaprix::transport::viscosity<double>}};
    if (const auto found = internal.find(name); found != internal.end()) return found->second;
    if (name.size() == 3 && name.rfind("v3", 0) == 0) {
        const auto subregion = static_cast<vaprix::Subregion>(name[2] - 'a');
        return [subregion](double p, double t) { return dense::v_subregion(subregion, p, t); };
    }
    const bound::Export& given = bound::find(name);
    return [&given](double x, double y) {
        bound::Values at{};
        at[given.inputs.at(0)] = x;
        if (given.inputs.size() > 1) at[given.inputs[1]] = y;
        return given(at);
    };
}
