// gx_winkel_tripel.cpp -- Winkel's Tripel projection: the mean of Aitoff's and the
// equirectangular projection.
//
// Parameters: central meridian lambda0 (slot 2) and the standard parallel phi1 of the
// equirectangular part (slot 3; Winkel's choice is acos(2 / pi), 50.4598 degrees).  Snyder &
// Voxland 1989, "An Album of Map Projections", p. 134:
//   x = (x_Aitoff + lambda cos phi1) / 2,   y = (y_Aitoff + phi) / 2,
// inverse by Newton's method in two dimensions (gx_aitoff.h).  Sphere of radius a on any datum.
//
// Constants record:  1: [0] radius
#include "projections/gx_aitoff.h"

#include <cmath>

namespace {

using namespace gx::projections;

class WinkelTripelFormulas {
public:
    explicit WinkelTripelFormulas(const double parms[16])
        : cos_phi1_(std::cos(parms[slot::standard_parallel_1]))
    {}

    bool forward(double lam, double phi, double *x, double *y) const
    {
        const PlanePoint p = point(lam, phi);
        *x = p.x;
        *y = p.y;
        return true;
    }

    bool inverse(double x, double y, double *lam, double *phi) const
    {
        return invert_by_newton([this](double l, double p) { return point(l, p); }, x, y, lam, phi);
    }

private:
    PlanePoint point(double lam, double phi) const
    {
        PlanePoint p = aitoff_point(lam, phi);
        p.x = 0.5 * (p.x + lam * cos_phi1_);
        p.y = 0.5 * (p.y + phi);
        p.x_lam = 0.5 * (p.x_lam + cos_phi1_);
        p.x_phi *= 0.5;
        p.y_lam *= 0.5;
        p.y_phi = 0.5 * (p.y_phi + 1.0);
        return p;
    }

    double cos_phi1_;
};

using WinkelTripel = WorldProjection<WinkelTripelFormulas>;

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(winkel_tripel, WinkelTripel)
