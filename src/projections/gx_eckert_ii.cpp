// gx_eckert_ii.cpp -- Eckert II: equal-area rectilinear pseudocylindrical projection.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 219: with r = sqrt(4 - 3 sin|phi|),
//   x = 2 lambda r / sqrt(6 pi),   y = sign(phi) sqrt(2 pi / 3) (2 - r);
// back r = 2 - |y| / sqrt(2 pi / 3), sin|phi| = (4 - r^2) / 3, lambda = x sqrt(6 pi) / (2 r).
// Sphere of radius a on any datum; no constants setup.
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kSqrt6Pi = 4.3416075273496055;    // sqrt(6 pi)
constexpr double kSqrt2PiBy3 = 1.4472025091165353; // sqrt(2 pi / 3)

struct EckertIIFormulas {
    explicit EckertIIFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        const double r = std::sqrt(4.0 - 3.0 * std::sin(std::fabs(phi)));
        *x = 2.0 * lam * r / kSqrt6Pi;
        *y = std::copysign(kSqrt2PiBy3 * (2.0 - r), phi);
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double abs_y = std::fabs(y);
        if (!within_outline(&abs_y, kSqrt2PiBy3))
            return false;
        const double r = 2.0 - abs_y / kSqrt2PiBy3;
        double sin_phi = (4.0 - r * r) / 3.0;
        if (!within_outline(&sin_phi, 1.0))
            return false;
        double l = x * kSqrt6Pi / (2.0 * r);
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = std::copysign(std::asin(std::fabs(sin_phi)), y);
        return true;
    }
};

using EckertII = PerCallWorldProjection<EckertIIFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(eckert_ii, EckertII)
