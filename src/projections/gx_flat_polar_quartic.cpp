// gx_flat_polar_quartic.cpp -- McBryde and Thomas's flat-polar quartic projection: equal-area
// pseudocylindrical with quartic meridians and a flat pole a third as long as the equator.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 211: theta solves sin(theta / 2) + sin theta = (1 + sqrt 2 / 2) sin phi, and
//   x = lambda (1 + 2 cos theta / cos(theta / 2)) / sqrt(3 sqrt 2 + 6),
//   y = 2 sqrt 3 sin(theta / 2) / sqrt(2 + sqrt 2);
// back theta = 2 asin(y sqrt(2 + sqrt 2) / (2 sqrt 3)), sin phi from the same equation, and
// lambda from x.  Sphere of radius a on any datum.
//
// Constants record:  1: [0] radius
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kPhiFactor = 1.7071067811865475;    // 1 + sqrt 2 / 2
constexpr double kXDivisor = 3.2004125807650623;     // sqrt(3 sqrt 2 + 6)
constexpr double kYFactor = 1.874758284622695;       // 2 sqrt 3 / sqrt(2 + sqrt 2)
constexpr double kSinQuarterPi = 0.7071067811865476; // sin(theta / 2) at the pole

double fpq_function(double t) { return std::sin(0.5 * t) + std::sin(t); }

struct FlatPolarQuarticFormulas {
    explicit FlatPolarQuarticFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        double theta = 0.0;
        if (!solve_increasing(
                fpq_function, [](double t) { return 0.5 * std::cos(0.5 * t) + std::cos(t); },
                kPhiFactor * std::sin(std::fabs(phi)), 0.0, kHalfPi, std::fabs(phi), &theta))
            return false;
        theta = std::copysign(theta, phi);
        *x = lam * (1.0 + 2.0 * std::cos(theta) / std::cos(0.5 * theta)) / kXDivisor;
        *y = kYFactor * std::sin(0.5 * theta);
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double sin_half = y / kYFactor;
        if (!within_outline(&sin_half, kSinQuarterPi))
            return false;
        const double theta = 2.0 * std::asin(sin_half);
        double sin_phi = fpq_function(theta) / kPhiFactor;
        within_outline(&sin_phi, 1.0);
        double l = x * kXDivisor / (1.0 + 2.0 * std::cos(theta) / std::cos(0.5 * theta));
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = std::asin(sin_phi);
        return true;
    }
};

using FlatPolarQuartic = WorldProjection<FlatPolarQuarticFormulas>;

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(flat_polar_quartic, FlatPolarQuartic)
