// SPDX-License-Identifier: MIT
//
// What libvaprix_cpp exports: plain storage and functions, which the classes of vaprix.hpp are written on. Nothing here
// is meant to be called directly. A change of what stands here is a new namespace beside v0, and a new number in the
// SONAME: RELEASE.md.
#pragma once

#if defined(__GNUC__)
#define VAPRIX_CPP_API __attribute__((visibility("default")))
#else
#define VAPRIX_CPP_API
#endif

namespace vaprix {
inline namespace v0 {
namespace bridge {

enum class Family : int { O, B };

// Rows of what follows.
enum class Property : int { p, T, v, d, h, s, u, f, g };
constexpr int properties = 9;

// A state as its resolver has left it.
struct Resolved {
    signed char region;     // 0 none, 1, 2, 3, 5, 4 wet steam
    signed char saturated;  // of a saturated phase: 1 liquid, 2 vapour
    signed char unformed;   // v and d are not formed yet: 1 d from v, 2 the same and v from d
    int code;               // of no state: why
    double p, t, v, d, x;
    double dense
        [2];  // densities in the equation of region 3: that of the state, those of vapour and liquid
};

// Properties that share most of their sums.
struct Basics {
    double v, s, cp, cv, w;
};

// Slopes of each property by two coordinates of the state, whichever suit it.
struct Slopes {
    double of[properties][2];
};

// (d2z/dp2)_y, d2z/dpdy, (d2z/dy2)_p of T, v, h and s.
struct Curvatures {
    double of[4][3];
};

#define VAPRIX_CPP_PAIR(name) VAPRIX_CPP_API Resolved name(double, double, Family) noexcept
VAPRIX_CPP_PAIR(of_pt);
VAPRIX_CPP_PAIR(of_ph);
VAPRIX_CPP_PAIR(of_ps);
VAPRIX_CPP_PAIR(of_pv);
VAPRIX_CPP_PAIR(of_pd);
VAPRIX_CPP_PAIR(cold_of_pv);
VAPRIX_CPP_PAIR(of_px);
VAPRIX_CPP_PAIR(of_tx);
VAPRIX_CPP_PAIR(of_td);
VAPRIX_CPP_PAIR(of_tv);
VAPRIX_CPP_PAIR(of_th);
VAPRIX_CPP_PAIR(of_ts);
VAPRIX_CPP_PAIR(next_of_th);
VAPRIX_CPP_PAIR(next_of_ts);
VAPRIX_CPP_PAIR(of_hs);
VAPRIX_CPP_PAIR(of_vh);
VAPRIX_CPP_PAIR(of_vs);
VAPRIX_CPP_PAIR(of_dh);
VAPRIX_CPP_PAIR(of_ds);
#undef VAPRIX_CPP_PAIR

#define VAPRIX_CPP_POINT(name) VAPRIX_CPP_API Resolved name(double, Family) noexcept
VAPRIX_CPP_POINT(liquid_of_t);
VAPRIX_CPP_POINT(vapour_of_t);
VAPRIX_CPP_POINT(liquid_of_p);
VAPRIX_CPP_POINT(vapour_of_p);
#undef VAPRIX_CPP_POINT

// The phases of wet steam.
VAPRIX_CPP_API Resolved liquid_of(const Resolved&) noexcept;
VAPRIX_CPP_API Resolved vapour_of(const Resolved&) noexcept;

// By the state's region, not a number where the state has no such property.
#define VAPRIX_CPP_PROPERTY(name) VAPRIX_CPP_API double name(const Resolved&) noexcept
VAPRIX_CPP_PROPERTY(v);
VAPRIX_CPP_PROPERTY(d);
VAPRIX_CPP_PROPERTY(h);
VAPRIX_CPP_PROPERTY(s);
VAPRIX_CPP_PROPERTY(u);
VAPRIX_CPP_PROPERTY(f);
VAPRIX_CPP_PROPERTY(g);
VAPRIX_CPP_PROPERTY(cp);
VAPRIX_CPP_PROPERTY(cv);
VAPRIX_CPP_PROPERTY(w);
VAPRIX_CPP_PROPERTY(z);
VAPRIX_CPP_PROPERTY(kappa);
VAPRIX_CPP_PROPERTY(cp_per_cv);
VAPRIX_CPP_PROPERTY(mu);
VAPRIX_CPP_PROPERTY(alpha_v);
VAPRIX_CPP_PROPERTY(alpha_p);
VAPRIX_CPP_PROPERTY(beta_p);
VAPRIX_CPP_PROPERTY(kappa_T);
VAPRIX_CPP_PROPERTY(fugacity);
VAPRIX_CPP_PROPERTY(g_ideal);
VAPRIX_CPP_PROPERTY(eta);
VAPRIX_CPP_PROPERTY(nu);
VAPRIX_CPP_PROPERTY(lambda);
VAPRIX_CPP_PROPERTY(Pr);
VAPRIX_CPP_PROPERTY(a);
VAPRIX_CPP_PROPERTY(epsilon);
VAPRIX_CPP_PROPERTY(sigma);
#undef VAPRIX_CPP_PROPERTY
VAPRIX_CPP_API double n(const Resolved&, double wavelength) noexcept;

VAPRIX_CPP_API Basics basics(const Resolved&) noexcept;
VAPRIX_CPP_API Slopes slopes(const Resolved&) noexcept;
VAPRIX_CPP_API Slopes slopes_along_line(const Resolved&) noexcept;
VAPRIX_CPP_API Curvatures curvatures(const Resolved&, Property y) noexcept;

}  // namespace bridge
}  // namespace v0
}  // namespace vaprix
