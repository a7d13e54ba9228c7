// gx_miller_cylindrical.cpp -- Miller's cylindrical projection and its auxiliary-sphere form.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder 1987, "Map Projections -- A Working
// Manual", eqs. 11-1, 11-2 (inverse 11-5, 11-6): Mercator's northing of 4/5 of the latitude,
// stretched by 5/4,
//   x = lambda,   y = 1.25 ln tan(pi/4 + 0.4 phi) = 1.25 asinh(tan(0.8 phi));
// back phi = atan(sinh(0.8 y)) / 0.8 (the asinh/atan-sinh forms of the same functions keep full
// precision near the equator).  The poles are finite, at y = +-1.25 asinh(tan(0.4 pi)).
// On an ellipsoidal datum Miller's projection is drawn on the sphere of the authalic radius with
// the geodetic latitude (the definition of the world Miller systems); no constants setup (the
// auxiliary-sphere form has one).
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

struct MillerFormulas {
    explicit MillerFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        *x = lam;
        *y = 1.25 * std::asinh(std::tan(0.8 * phi));
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double p = std::atan(std::sinh(0.8 * y)) / 0.8;
        double l = x;
        if (!within_outline(&p, kHalfPi) || !within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = p;
        return true;
    }
};

using MillerCylindrical = PerCallWorldProjection<MillerFormulas, WorldSphere::Authalic>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(miller_cylindrical, MillerCylindrical)

GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(miller_cylindrical, MillerCylindrical)
