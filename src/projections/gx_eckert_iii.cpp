// gx_eckert_iii.cpp -- Eckert III: pseudocylindrical projection with elliptical meridians and a
// flat pole half as long as the equator.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 220: with k = 1 / sqrt(pi (4 + pi)),
//   x = 2 k lambda (1 + sqrt(1 - (2 phi / pi)^2)),   y = 4 k phi;
// back phi = y / (4 k), lambda = x / (2 k (1 + sqrt(1 - (2 phi / pi)^2))).  Sphere of radius a
// on any datum; no constants setup.
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kEckertIII = 0.21111910015788563; // 1 / sqrt(pi (4 + pi))

double meridian_factor(double phi)
{
    const double t = phi / kHalfPi;
    return 1.0 + std::sqrt(std::fmax(0.0, (1.0 - t) * (1.0 + t)));
}

struct EckertIIIFormulas {
    explicit EckertIIIFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        *x = 2.0 * kEckertIII * lam * meridian_factor(phi);
        *y = 4.0 * kEckertIII * phi;
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double p = y / (4.0 * kEckertIII);
        if (!within_outline(&p, kHalfPi))
            return false;
        double l = x / (2.0 * kEckertIII * meridian_factor(p));
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = p;
        return true;
    }
};

using EckertIII = PerCallWorldProjection<EckertIIIFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(eckert_iii, EckertIII)
