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
// Constants record: 2 doubles, [0] cos phi_c, [1] sin phi_c.
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_azimuthal.h"
#include "projections/gx_projection_support.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr int kCount = 2;

int gnomonic_constants(const double * /*sphere*/, const double parms[16], double *values)
{
    values[0] = std::cos(parms[slot::latitude_of_center]);
    values[1] = std::sin(parms[slot::latitude_of_center]);
    return kCount;
}

class Gnomonic {
public:
    Gnomonic(const double sphere[2], const double parms[16], const int *ivals, const double *dvals)
        : radius_(sphere[0])
    {
        double local[kCount];
        const double *values = given_constants(ivals, dvals, kCount);
        if (values == nullptr) {
            gnomonic_constants(sphere, parms, local);
            values = local;
        }
        center_ = {parms[slot::longitude_of_center], values[0], values[1]};
    }

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
    AzimuthalCenter center_{};
};

const AuxiliarySphereBase kGnomonicBase = {gx_gnomonic_fwd, gx_gnomonic_inv, gnomonic_constants,
                                           kCount};

} // namespace

extern "C" {

GX_API int gx_gnomonic_const(gx_constants *constants, const double sphere[2],
                             const double parms[16])
{
    double values[kCount];
    return store_constants(constants, values, gnomonic_constants(sphere, parms, values));
}

GX_API int gx_gnomonic_fwd(const double sphere[2], const double parms[16], int n, double *coords,
                           const int *ivals, const double *dvals)
{
    const Gnomonic projection(sphere, parms, ivals, dvals);
    return convert_points(n, coords, [&](double *p) { return projection.forward(p); });
}

GX_API int gx_gnomonic_inv(const double sphere[2], const double parms[16], int n, double *coords,
                           const int *ivals, const double *dvals)
{
    const Gnomonic projection(sphere, parms, ivals, dvals);
    return convert_points(n, coords, [&](double *p) { projection.inverse(p); });
}

GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(gnomonic, kGnomonicBase)

} // extern "C"
