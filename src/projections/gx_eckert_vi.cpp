// gx_eckert_vi.cpp -- Eckert VI: equal-area pseudocylindrical projection with sinusoidal
// meridians and a flat pole half as long as the equator, and its auxiliary-sphere form.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder 1987, "Map Projections -- A Working
// Manual", eqs. 32-1 to 32-3 (inverse 32-4 to 32-6): theta solves
// theta + sin theta = (1 + pi/2) sin phi, and
//   x = lambda (1 + cos theta) / sqrt(2 + pi),   y = 2 theta / sqrt(2 + pi);
// back theta = y sqrt(2 + pi) / 2, sin phi = (theta + sin theta) / (1 + pi/2),
// lambda = x sqrt(2 + pi) / (1 + cos theta).  Sphere of radius a on any datum; no constants
// setup (the auxiliary-sphere form has one).
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kSqrt2PlusPi = 2.267508027238226; // sqrt(2 + pi)

struct EckertVIFormulas {
    explicit EckertVIFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        double theta = 0.0;
        if (!solve_increasing([](double t) { return t + std::sin(t); },
                              [](double t) { return 1.0 + std::cos(t); },
                              (1.0 + kHalfPi) * std::sin(std::fabs(phi)), 0.0, kHalfPi,
                              std::fabs(phi), &theta))
            return false;
        theta = std::copysign(theta, phi);
        *x = lam * (1.0 + std::cos(theta)) / kSqrt2PlusPi;
        *y = 2.0 * theta / kSqrt2PlusPi;
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double theta = 0.5 * y * kSqrt2PlusPi;
        if (!within_outline(&theta, kHalfPi))
            return false;
        double sin_phi = (theta + std::sin(theta)) / (1.0 + kHalfPi);
        within_outline(&sin_phi, 1.0);
        double l = x * kSqrt2PlusPi / (1.0 + std::cos(theta));
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = std::asin(sin_phi);
        return true;
    }
};

using EckertVI = PerCallWorldProjection<EckertVIFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(eckert_vi, EckertVI)

GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(eckert_vi, EckertVI)
