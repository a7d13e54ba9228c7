// gx_orthographic.cpp -- the orthographic projection and its auxiliary-sphere form.
//
// The view of the globe from infinitely far above the center (lambda_c, phi_c) (slots 10 and
// 11): Snyder 1987, "Map Projections -- A Working Manual", eqs. 20-3, 20-4 and, inverse, 20-14 to
// 20-16.  The radius of the angular distance c is R sin c, so that
//   x = R cos phi sin L,   y = R (cos phi_c sin phi - sin phi_c cos phi cos L).
// The projection is spherical on every datum, with R = a (the first element of the ellipsoid
// pair); its auxiliary-sphere form chooses the sphere.  Only the near hemisphere is seen: a point
// with cos c < 0 fails forward, and a plane point farther than R from the center fails back.
//
// Constants record: 2 doubles, [0] cos phi_c, [1] sin phi_c (SphericalCenterLayout).
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_azimuthal.h"
#include "projections/gx_projection_support.h"

#include <cmath>

namespace {

using namespace gx::projections;

class Orthographic : public SphericalCenterLayout {
public:
    Orthographic(const double sphere[2], const double parms[16], const double *values)
        : radius_(sphere[0]), center_(center_of(parms, values))
    {}

    bool forward(double *point) const
    {
        const AzimuthalView view = view_from_center(center_, point[0], point[1]);
        if (view.cos_c < 0.0)
            return false;
        point[0] = radius_ * view.east;
        point[1] = radius_ * view.north;
        return true;
    }

    bool inverse(double *point) const
    {
        const double x = point[0], y = point[1];
        const double rho = std::hypot(x, y);
        double sin_c = rho / radius_;
        if (sin_c > 1.0) {
            if (sin_c > 1.0 + kTol)
                return false; // beyond the rim of the hemisphere
            sin_c = 1.0;
        }
        const double cos_c = std::sqrt((1.0 - sin_c) * (1.0 + sin_c));
        point_from_center(center_, x, y, rho, sin_c, cos_c, &point[0], &point[1]);
        return true;
    }

private:
    double radius_;
    AzimuthalCenter center_;
};

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(orthographic, Orthographic)
GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(orthographic, Orthographic)
