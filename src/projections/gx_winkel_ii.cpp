// gx_winkel_ii.cpp -- Winkel II: the mean of the equirectangular projection and a Mollweide-like
// projection of elliptical meridians.
//
// Parameters: central meridian lambda0 (slot 2) and the standard parallel phi1 of the
// equirectangular part (slot 3).  Snyder & Voxland 1989, "An Album of Map Projections",
// p. 154: with Mollweide's auxiliary angle theta (2 theta + sin 2 theta = pi sin phi),
//   x = lambda (cos theta + cos phi1) / 2,   y = (pi / 4) sin theta + phi / 2.
// Back: y increases with phi, so phi is found by Newton's method on that equation
// (dy/dphi = 1/2 + pi^2 cos phi / (16 cos theta), which tends to 1/2 at the poles), then
// lambda = 2 x / (cos theta + cos phi1).  Sphere of radius a on any datum; no constants setup.
#include "projections/gx_mollweide.h"

#include <cmath>

namespace {

using namespace gx::projections;

// y of the latitude phi, with the cosine of its auxiliary angle; false if that cannot be found
bool winkel_ii_northing(double phi, double *cos_theta, double *y)
{
    MollweideAngle theta{};
    if (!mollweide_angle(phi, &theta))
        return false;
    *cos_theta = theta.cos_theta;
    *y = kQuarterPi * theta.sin_theta + 0.5 * phi;
    return true;
}

class WinkelIIFormulas {
public:
    explicit WinkelIIFormulas(const double parms[16])
        : cos_phi1_(std::cos(parms[slot::standard_parallel_1]))
    {}

    bool forward(double lam, double phi, double *x, double *y) const
    {
        double cos_theta = 0.0;
        if (!winkel_ii_northing(phi, &cos_theta, y))
            return false;
        *x = 0.5 * lam * (cos_theta + cos_phi1_);
        return true;
    }

    bool inverse(double x, double y, double *lam, double *phi) const
    {
        const double pole_y = kQuarterPi + 0.5 * kHalfPi;
        double abs_y = std::fabs(y);
        if (!within_outline(&abs_y, pole_y))
            return false;
        const auto northing = [](double p) {
            double cos_theta = 0.0, v = 0.0;
            return winkel_ii_northing(p, &cos_theta, &v) ? v : std::nan("");
        };
        const auto slope = [](double p) {
            double cos_theta = 0.0, v = 0.0;
            winkel_ii_northing(p, &cos_theta, &v);
            return cos_theta > 0.0 ? 0.5 + kPi * kPi * std::cos(p) / (16.0 * cos_theta) : 0.5;
        };
        double p = 0.0;
        if (!solve_increasing(northing, slope, abs_y, 0.0, kHalfPi, abs_y / pole_y * kHalfPi, &p))
            return false;
        p = std::copysign(p, y);
        double cos_theta = 0.0, northing_of_p = 0.0;
        winkel_ii_northing(p, &cos_theta, &northing_of_p);
        double l = 0.0;
        if (std::fabs(x) > kOutlineTol) {
            l = 2.0 * x / (cos_theta + cos_phi1_);
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

using WinkelII = PerCallWorldProjection<WinkelIIFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(winkel_ii, WinkelII)
