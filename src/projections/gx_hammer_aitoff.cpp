// gx_hammer_aitoff.cpp -- Hammer's (Hammer-Aitoff) projection: the equatorial Lambert azimuthal
// equal-area projection of the hemisphere, stretched twice along the equator over the whole
// sphere.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 130: with d = sqrt(1 + cos phi cos(lambda/2)),
//   x = 2 sqrt 2 cos phi sin(lambda/2) / d,   y = sqrt 2 sin phi / d;
// back, the Lambert azimuthal equal-area inverse with the stretch undone: with
// z^2 = 1 - (x/4)^2 - (y/2)^2, lambda = 2 atan2(z x, 2 (2 z^2 - 1)) and phi = asin(z y).  The map is
// the ellipse (x / 2 sqrt 2)^2 + (y / sqrt 2)^2 <= 1; a point outside fails.  Sphere of radius a
// on any datum; no constants setup.
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kSqrt2 = 1.4142135623730951;

struct HammerFormulas {
    explicit HammerFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        const double d = std::sqrt(1.0 + std::cos(phi) * std::cos(0.5 * lam));
        if (!(d > 0.0)) // the two ends of the antimeridian's pole line: the poles
            return false;
        *x = 2.0 * kSqrt2 * std::cos(phi) * std::sin(0.5 * lam) / d;
        *y = kSqrt2 * std::sin(phi) / d;
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        const double u = x / (2.0 * kSqrt2), v = y / kSqrt2;
        double r2 = u * u + v * v;
        if (!within_outline(&r2, 1.0))
            return false;
        const double z = std::sqrt(1.0 - 0.5 * r2); // z^2 = 1 - (x/4)^2 - (y/2)^2
        double sin_phi = z * y;
        within_outline(&sin_phi, 1.0);
        *lam = 2.0 * std::atan2(z * x, 2.0 * (2.0 * z * z - 1.0));
        *phi = std::asin(sin_phi);
        return true;
    }
};

using HammerAitoff = PerCallWorldProjection<HammerFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(hammer_aitoff, HammerAitoff)
