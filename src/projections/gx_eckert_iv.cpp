// gx_eckert_iv.cpp -- Eckert IV: equal-area pseudocylindrical projection with elliptical
// meridians and a flat pole half as long as the equator, and its auxiliary-sphere form.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder 1987, "Map Projections -- A Working
// Manual", eqs. 32-7 to 32-9 (inverse 32-10 to 32-12): theta solves
// theta + sin theta cos theta + 2 sin theta = (2 + pi/2) sin phi, and
//   x = 2 lambda (1 + cos theta) / sqrt(pi (4 + pi)),   y = 2 sqrt(pi / (4 + pi)) sin theta;
// back sin theta = y / (2 sqrt(pi / (4 + pi))), sin phi from the same equation, and
// lambda = x sqrt(pi (4 + pi)) / (2 (1 + cos theta)).  Sphere of radius a on any datum; no constants setup (the
// auxiliary-sphere form has one).
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kSqrtPi4PlusPi = 4.736662856426297;    // sqrt(pi (4 + pi))
constexpr double kSqrtPiBy4PlusPi = 0.6632502140885012; // sqrt(pi / (4 + pi))

struct EckertIVFormulas {
    explicit EckertIVFormulas(const double * /*parms*/) {}

    // The equation is solved for the complement delta = pi/2 - |theta|:
    //   (2 delta - sin 2 delta) / 2 + 4 sin^2(delta / 2) = (2 + pi/2)(1 - sin|phi|),
    // whose sides keep their precision at the poles.
    static bool forward(double lam, double phi, double *x, double *y)
    {
        double delta = 0.0;
        if (!solve_increasing(
                [](double d) {
                    const double s = std::sin(0.5 * d);
                    return 0.5 * u_minus_sin(2.0 * d) + 4.0 * s * s;
                },
                [](double d) { return 2.0 * std::sin(d) * (std::sin(d) + 1.0); },
                (2.0 + kHalfPi) * one_minus_sin(phi), 0.0, kHalfPi, kHalfPi - std::fabs(phi),
                &delta))
            return false;
        *x = 2.0 * lam * (1.0 + std::sin(delta)) / kSqrtPi4PlusPi;
        *y = std::copysign(2.0 * kSqrtPiBy4PlusPi * std::cos(delta), phi);
        return true;
    }
    // Back through the complements too: 1 - |sin theta| = 2 sin^2(delta / 2) gives delta, and
    // the equation above gives 1 - sin|phi|.
    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double sin_theta = y / (2.0 * kSqrtPiBy4PlusPi);
        if (!within_outline(&sin_theta, 1.0))
            return false;
        const double delta = 2.0 * std::asin(std::sqrt(0.5 * (1.0 - std::fabs(sin_theta))));
        const double s = std::sin(0.5 * delta);
        double one_minus_sin_phi = (0.5 * u_minus_sin(2.0 * delta) + 4.0 * s * s) / (2.0 + kHalfPi);
        within_outline(&one_minus_sin_phi, 1.0);
        double l = x * kSqrtPi4PlusPi / (2.0 * (1.0 + std::sin(delta)));
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = std::copysign(kHalfPi - 2.0 * std::asin(std::sqrt(0.5 * one_minus_sin_phi)), y);
        return true;
    }
};

using EckertIV = PerCallWorldProjection<EckertIVFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(eckert_iv, EckertIV)

GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(eckert_iv, EckertIV)
