// gx_times.cpp -- the Times projection (Moir 1965): a pseudocylindrical modification of Gall's
// stereographic projection, used by the Times Atlas.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 40, with its published coefficients: with T = tan(phi / 2) and
// S = sin(pi T / 4),
//   x = lambda (0.74482 - 0.34588 S^2),   y = 1.70711 T;
// back T = y / 1.70711, phi = 2 atan T, lambda = x / (0.74482 - 0.34588 S^2).  Sphere of
// radius a on any datum.
//
// Constants record:  1: [0] radius
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kX0 = 0.74482, kX2 = 0.34588, kY = 1.70711;

double parallel_length(double t)
{
    const double s = std::sin(kQuarterPi * t);
    return kX0 - kX2 * s * s;
}

struct TimesFormulas {
    explicit TimesFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        const double t = std::tan(0.5 * phi);
        *x = lam * parallel_length(t);
        *y = kY * t;
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double t = y / kY;
        if (!within_outline(&t, 1.0))
            return false;
        double l = x / parallel_length(t);
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = 2.0 * std::atan(t);
        return true;
    }
};

using Times = WorldProjection<TimesFormulas>;

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(times, Times)
