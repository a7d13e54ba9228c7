// gx_eckert_i.cpp -- Eckert I: rectilinear pseudocylindrical projection, meridians broken at the
// equator.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 218: with k = 2 sqrt(2 / (3 pi)),
//   x = k lambda (1 - |phi| / pi),   y = k phi;
// back phi = y / k, lambda = x / (k (1 - |phi| / pi)).  Sphere of radius a on any datum; no
// constants setup.
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kEckertI = 0.9213177319235613; // 2 sqrt(2 / (3 pi))

struct EckertIFormulas {
    explicit EckertIFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        *x = kEckertI * lam * (1.0 - std::fabs(phi) / kPi);
        *y = kEckertI * phi;
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double p = y / kEckertI;
        if (!within_outline(&p, kHalfPi))
            return false;
        double l = x / (kEckertI * (1.0 - std::fabs(p) / kPi));
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = p;
        return true;
    }
};

using EckertI = PerCallWorldProjection<EckertIFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(eckert_i, EckertI)
