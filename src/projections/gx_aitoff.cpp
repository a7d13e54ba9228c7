// gx_aitoff.cpp -- Aitoff's projection: modified equatorial azimuthal equidistant projection of
// the whole sphere inside an ellipse of axes 2 pi and pi.
//
// Parameters: central meridian lambda0 (slot 2).  Forward formulas in gx_aitoff.h.  Being the
// equatorial azimuthal equidistant projection of (lambda/2, phi) stretched twice along x, it has
// a closed inverse: the point at angular distance rho = hypot(x/2, y) from (0, 0) in the
// direction of (x/2, y), then lambda doubled (Snyder 1987, chapter 25 with eqs. 20-14, 20-15).  The
// map is the ellipse rho <= pi/2; a point outside fails.  Sphere of radius a on any datum; no
// constants setup.
#include "projections/gx_aitoff.h"
#include "projections/gx_azimuthal.h"

#include <cmath>

namespace {

using namespace gx::projections;

struct AitoffFormulas {
    explicit AitoffFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        const PlanePoint p = aitoff_point(lam, phi);
        *x = p.x;
        *y = p.y;
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        const double half_x = 0.5 * x;
        double rho = std::hypot(half_x, y);
        if (!within_outline(&rho, kHalfPi))
            return false;
        double half_lam = 0.0;
        point_from_center(AzimuthalCenter{0.0, 1.0, 0.0}, half_x, y, rho, std::sin(rho),
                          std::cos(rho), &half_lam, phi);
        *lam = 2.0 * half_lam;
        return true;
    }
};

using Aitoff = PerCallWorldProjection<AitoffFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(aitoff, Aitoff)
