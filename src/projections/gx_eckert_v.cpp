// gx_eckert_v.cpp -- Eckert V: pseudocylindrical projection with sinusoidal meridians and a flat
// pole half as long as the equator.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 222:
//   x = lambda (1 + cos phi) / sqrt(2 + pi),   y = 2 phi / sqrt(2 + pi);
// back phi = y sqrt(2 + pi) / 2, lambda = x sqrt(2 + pi) / (1 + cos phi).  Sphere of radius a on
// any datum; no constants setup.
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kSqrt2PlusPi = 2.267508027238226; // sqrt(2 + pi)

struct EckertVFormulas {
    explicit EckertVFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        *x = lam * (1.0 + std::cos(phi)) / kSqrt2PlusPi;
        *y = 2.0 * phi / kSqrt2PlusPi;
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double p = 0.5 * y * kSqrt2PlusPi;
        if (!within_outline(&p, kHalfPi))
            return false;
        double l = x * kSqrt2PlusPi / (1.0 + std::cos(p));
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = p;
        return true;
    }
};

using EckertV = PerCallWorldProjection<EckertVFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(eckert_v, EckertV)
