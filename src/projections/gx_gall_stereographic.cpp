// gx_gall_stereographic.cpp -- Gall's stereographic projection: the cylindrical projection from
// the point opposite each meridian onto a cylinder secant at 45 degrees.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 33:
//   x = lambda / sqrt 2,   y = (1 + sqrt 2 / 2) tan(phi / 2);
// back phi = 2 atan(y / (1 + sqrt 2 / 2)), lambda = x sqrt 2.  Sphere of radius a on any datum.
//
// Constants record:  1: [0] radius
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kSqrt2 = 1.4142135623730951;
constexpr double kY = 1.7071067811865475; // 1 + sqrt 2 / 2

struct GallFormulas {
    explicit GallFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        *x = lam / kSqrt2;
        *y = kY * std::tan(0.5 * phi);
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double t = y / kY;
        double l = x * kSqrt2;
        if (!within_outline(&t, 1.0) || !within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = 2.0 * std::atan(t);
        return true;
    }
};

using GallStereographic = WorldProjection<GallFormulas>;

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(gall_stereographic, GallStereographic)
