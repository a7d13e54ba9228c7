// gx_craster_parabolic.cpp -- Craster's parabolic projection (Putnins P4): equal-area
// pseudocylindrical with parabolic meridians and pointed poles.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder & Voxland 1989, "An Album of Map
// Projections", p. 78:
//   x = sqrt(3 / pi) lambda (2 cos(2 phi / 3) - 1),   y = sqrt(3 pi) sin(phi / 3);
// back phi = 3 asin(y / sqrt(3 pi)), lambda = x / (sqrt(3 / pi) (2 cos(2 phi / 3) - 1)).
// Sphere of radius a on any datum.
//
// Constants record:  1: [0] radius
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kSqrt3ByPi = 0.9772050238058398; // sqrt(3 / pi)
constexpr double kSqrt3Pi = 3.0699801238394655;   // sqrt(3 pi)

struct CrasterFormulas {
    explicit CrasterFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        *x = kSqrt3ByPi * lam * (2.0 * std::cos(2.0 * phi / 3.0) - 1.0);
        *y = kSqrt3Pi * std::sin(phi / 3.0);
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double sin_third = y / kSqrt3Pi;
        if (!within_outline(&sin_third, 0.5))
            return false;
        const double p = 3.0 * std::asin(sin_third);
        double l = 0.0;
        if (std::fabs(x) > kOutlineTol) {
            l = x / (kSqrt3ByPi * (2.0 * std::cos(2.0 * p / 3.0) - 1.0));
            if (!within_outline(&l, kPi))
                return false;
        }
        *lam = l;
        *phi = p;
        return true;
    }
};

using CrasterParabolic = WorldProjection<CrasterFormulas>;

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(craster_parabolic, CrasterParabolic)
