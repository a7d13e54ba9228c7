// gx_loximuthal.cpp -- Siemon's and Tobler's loximuthal projection: straight rhumb lines of true
// length and azimuth from the central point.
//
// Parameters: central meridian lambda0 (slot 2) and central parallel phi1 (slot 6).  Snyder &
// Voxland 1989, "An Album of Map Projections", p. 212: with the isometric latitude
// psi = ln tan(pi/4 + phi/2) = asinh(tan phi),
//   y = phi - phi1,   x = lambda (phi - phi1) / (psi - psi1),
// which near phi1 tends to lambda cos phi1; there the quotient is taken from its Taylor series
// (d psi / d phi = sec phi, d2 psi / d phi2 = sec phi tan phi) so that it stays exact.  The
// poles are points.  Back phi = y + phi1 and lambda = x (psi - psi1) / (phi - phi1).  Sphere of
// radius a on any datum; no constants setup.
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

// Below this distance from the central parallel the chord (psi - psi1)/(phi - phi1) is taken
// from its series, whose next term is then below 1e-13 of it.
constexpr double kSeriesBand = 1e-5;

class LoximuthalFormulas {
public:
    explicit LoximuthalFormulas(const double parms[16])
        : phi1_(parms[slot::latitude_of_origin]), psi1_(std::asinh(std::tan(phi1_)))
    {}

    bool forward(double lam, double phi, double *x, double *y) const
    {
        *y = phi - phi1_;
        *x = at_pole(phi) ? 0.0 : lam / chord(phi);
        return true;
    }

    bool inverse(double x, double y, double *lam, double *phi) const
    {
        double p = y + phi1_;
        if (!within_outline(&p, kHalfPi))
            return false;
        double l = 0.0;
        if (std::fabs(x) > kOutlineTol) {
            if (at_pole(p))
                return false;
            l = x * chord(p);
            if (!within_outline(&l, kPi))
                return false;
        }
        *lam = l;
        *phi = p;
        return true;
    }

private:
    // (psi - psi1) / (phi - phi1): the mean of sec phi between phi1 and phi
    double chord(double phi) const
    {
        const double d = phi - phi1_;
        if (std::fabs(d) >= kSeriesBand)
            return (std::asinh(std::tan(phi)) - psi1_) / d;
        const double sec = 1.0 / std::cos(phi1_), tan = std::tan(phi1_);
        return sec * (1.0 + d * (0.5 * tan + d * (2.0 * tan * tan + 1.0) / 6.0));
    }

    double phi1_, psi1_;
};

using Loximuthal = PerCallWorldProjection<LoximuthalFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(loximuthal, Loximuthal)
