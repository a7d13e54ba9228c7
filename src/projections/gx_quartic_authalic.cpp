// gx_quartic_authalic.cpp -- the quartic authalic projection: equal-area pseudocylindrical with
// quartic meridians and pointed poles.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 204:
//   x = lambda cos(phi) / cos(phi / 2),   y = 2 sin(phi / 2);
// back phi = 2 asin(y / 2), lambda = x cos(phi / 2) / cos(phi).  Sphere of radius a on any
// datum; no constants setup.
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kSinQuarterPi = 0.7071067811865476;

struct QuarticAuthalicFormulas {
    explicit QuarticAuthalicFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        *x = lam * std::cos(phi) / std::cos(0.5 * phi);
        *y = 2.0 * std::sin(0.5 * phi);
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double sin_half = 0.5 * y;
        if (!within_outline(&sin_half, kSinQuarterPi))
            return false;
        const double p = 2.0 * std::asin(sin_half);
        double l = 0.0;
        if (std::fabs(x) > kOutlineTol) {
            l = x * std::cos(0.5 * p) / std::cos(p);
            if (!within_outline(&l, kPi))
                return false;
        }
        *lam = l;
        *phi = p;
        return true;
    }
};

using QuarticAuthalic = PerCallWorldProjection<QuarticAuthalicFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(quartic_authalic, QuarticAuthalic)
