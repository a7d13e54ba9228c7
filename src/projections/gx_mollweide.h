// gx_mollweide.h -- the Mollweide (homolographic) projection of the unit sphere, shared by
// Mollweide's own source, the Winkel II projection and Goode's homolosine.
//
// Snyder 1987, "Map Projections -- A Working Manual", eqs. 31-4 to 31-6 and 31-12 to 31-14:
// the auxiliary angle theta solves 2 theta + sin 2 theta = pi sin phi, and
//   x = (2 sqrt 2 / pi) lambda cos theta,   y = sqrt 2 sin theta.
// Back: theta = asin(y / sqrt 2), phi = asin((2 theta + sin 2 theta) / pi),
// lambda = pi x / (2 sqrt 2 cos theta), all three through the complements of the angles.  The map is the ellipse of semi-axes 2 sqrt 2 and sqrt 2.
#ifndef GX_PROJECTIONS_GX_MOLLWEIDE_H
#define GX_PROJECTIONS_GX_MOLLWEIDE_H

#include "projections/gx_world.h"

#include <cmath>

namespace gx::projections {

inline constexpr double kSqrt2 = 1.4142135623730951;

// Mollweide's auxiliary angle theta of the latitude phi, as its cosine and sine.  The equation
// is solved for the complement delta = pi/2 - |theta|, 2 delta - sin 2 delta = pi (1 - sin|phi|),
// whose two sides keep their full precision at the poles, where theta itself is determined only
// to the cube root of the rounding (the equation meets pi with vanishing first and second
// derivatives there).
struct MollweideAngle {
    double cos_theta;
    double sin_theta;
};

inline bool mollweide_angle(double phi, MollweideAngle *angle)
{
    double delta = 0.0;
    if (!solve_increasing([](double d) { return u_minus_sin(2.0 * d); },
                          [](double d) { return 4.0 * std::sin(d) * std::sin(d); },
                          kPi * one_minus_sin(phi), 0.0, kHalfPi, kHalfPi - std::fabs(phi), &delta))
        return false;
    angle->cos_theta = std::sin(delta);
    angle->sin_theta = std::copysign(std::cos(delta), phi);
    return true;
}

struct MollweideFormulas {
    explicit MollweideFormulas(const double * /*parms*/ = nullptr) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        MollweideAngle theta{};
        if (!mollweide_angle(phi, &theta))
            return false;
        *x = 2.0 * kSqrt2 / kPi * lam * theta.cos_theta;
        *y = kSqrt2 * theta.sin_theta;
        return true;
    }

    // Near the poles theta and phi are found through their complements, from
    // 1 - |y| / sqrt 2 = 2 sin^2(delta / 2) and 1 - sin|phi| = (2 delta - sin 2 delta) / pi, which
    // keep the precision the plane coordinates hold.
    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double sin_theta = y / kSqrt2;
        if (!within_outline(&sin_theta, 1.0))
            return false;
        const double delta = 2.0 * std::asin(std::sqrt(0.5 * (1.0 - std::fabs(sin_theta))));
        const double half_width = 2.0 * kSqrt2 / kPi * std::sin(delta);
        double l = 0.0;
        if (std::fabs(x) > kOutlineTol) {
            l = x / half_width;
            if (!within_outline(&l, kPi))
                return false;
        }
        double one_minus_sin_phi = u_minus_sin(2.0 * delta) / kPi;
        within_outline(&one_minus_sin_phi, 1.0);
        *lam = l;
        *phi = std::copysign(kHalfPi - 2.0 * std::asin(std::sqrt(0.5 * one_minus_sin_phi)), y);
        return true;
    }
};

} // namespace gx::projections

#endif // GX_PROJECTIONS_GX_MOLLWEIDE_H
