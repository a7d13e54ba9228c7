// gx_gnomonic.cpp -- the gnomonic projection and its auxiliary-sphere form.
//
// The central projection from the globe's center onto the plane touching it at (lambda_c,
// phi_c) (slots 10 and 11), which maps every great circle to a straight line: Snyder 1987,
// "Map Projections -- A Working Manual", eqs. 22-3 to 22-5 and, inverse, 20-14, 20-15, 22-16.
// The radius of the angular distance c is R tan c, so that
//   x = R cos phi sin L / cos c,   y = R (cos phi_c sin phi - sin phi_c cos phi cos L) / cos c.
// The projection is spherical on every datum, with R = a; its auxiliary-sphere form chooses the
// sphere.  A point whose cos c is not above 2^-48 (the far hemisphere and the horizon) fails
// forward; every plane point has an inverse.
//
// Constants record: 2 doubles, [0] cos phi_c, [1] sin phi_c (SphericalCenterLayout).
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_azimuthal.h"
#include "projections/gx_projection_support.h"

#include <cmath>

namespace {

using namespace gx::projections;

class Gnomonic : public SphericalCenterLayout {
public:
    Gnomonic(const double sphere[2], const double parms[16], const double *values)
        : radius_(sphere[0]), center_(center_of(parms, values))
    {}

    bool forward(double *point) const
    {
        const AzimuthalView view = view_from_center(center_, point[0], point[1]);
        if (!(view.cos_c > kTol))
            return false;
        const double scale = radius_ / view.cos_c;
        point[0] = scale * view.east;
        point[1] = scale * view.north;
        return true;
    }

    void inverse(double *point) const
    {
        const double x = point[0], y = point[1];
        const double rho = std::hypot(x, y);
        // c = atan(rho / R), as its sine and cosine
        const double hyp = std::hypot(rho, radius_);
        point_from_center(center_, x, y, rho, rho / hyp, radius_ / hyp, &point[0], &point[1]);
    }

private:
    double radius_;
    AzimuthalCenter center_;
};

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(gnomonic, Gnomonic)
GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(gnomonic, Gnomonic)
