// gx_winkel_i.cpp -- Winkel I: the mean of the equirectangular and sinusoidal projections.
//
// Parameters: central meridian lambda0 (slot 2) and the standard parallel phi1 of the
// equirectangular part (slot 3).  Snyder & Voxland 1989, "An Album of Map Projections", p. 152:
//   x = lambda (cos phi1 + cos phi) / 2,   y = phi;
// back phi = y, lambda = 2 x / (cos phi1 + cos phi).  Sphere of radius a on any datum; no
// constants setup.
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

class WinkelIFormulas {
public:
    explicit WinkelIFormulas(const double parms[16])
        : cos_phi1_(std::cos(parms[slot::standard_parallel_1]))
    {}

    bool forward(double lam, double phi, double *x, double *y) const
    {
        *x = 0.5 * lam * (cos_phi1_ + std::cos(phi));
        *y = phi;
        return true;
    }

    bool inverse(double x, double y, double *lam, double *phi) const
    {
        double p = y;
        if (!within_outline(&p, kHalfPi))
            return false;
        double l = 0.0;
        if (std::fabs(x) > kOutlineTol) {
            l = 2.0 * x / (cos_phi1_ + std::cos(p));
            if (!within_outline(&l, kPi))
                return false;
        }
        *lam = l;
        *phi = p;
        return true;
    }

private:
    double cos_phi1_;
};

using WinkelI = PerCallWorldProjection<WinkelIFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(winkel_i, WinkelI)
