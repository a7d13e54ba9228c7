// gx_azimuthal.h -- the spherical geometry shared by the azimuthal projections (orthographic,
// gnomonic, stereographic).
//
// An azimuthal projection sees each point from its center (lambda_c, phi_c) as an angular
// distance c and an azimuth Az, and differs from the others only in the radius it gives to c.
// With L = lambda - lambda_c (Snyder 1987, "Map Projections -- A Working Manual", eqs. 5-3, 20-2
// and 20-3):
//   cos c        = sin phi_c sin phi + cos phi_c cos phi cos L
//   sin c sin Az = cos phi sin L
//   sin c cos Az = cos phi_c sin phi - sin phi_c cos phi cos L
// so that x = r(c) sin Az and y = r(c) cos Az.  Going back (eqs. 20-14, 20-15) the point at
// distance c in the direction of (x, y) is found by turning the unit vector of that direction
// about the center; both of its angles come out of atan2, which keeps full precision near the
// poles.
#ifndef GX_PROJECTIONS_GX_AZIMUTHAL_H
#define GX_PROJECTIONS_GX_AZIMUTHAL_H

#include "projections/gx_projection_support.h"

#include <cmath>

namespace gx::projections {

// The center of an azimuthal projection: its longitude and the cosine and sine of its latitude
// (on whatever sphere the projection works: geodetic, conformal or authalic latitude).
struct AzimuthalCenter {
    double lam;
    double cos_phi;
    double sin_phi;
};

// A point as seen from the center.
struct AzimuthalView {
    double cos_c; // cosine of the angular distance from the center
    double east;  // sin c sin Az
    double north; // sin c cos Az
};

inline AzimuthalView view_from_center(const AzimuthalCenter &center, double lam, double phi)
{
    const double dlam = gx_delta(lam - center.lam);
    const double cos_phi = std::cos(phi), sin_phi = std::sin(phi), cos_dlam = std::cos(dlam);
    return {center.sin_phi * sin_phi + center.cos_phi * cos_phi * cos_dlam,
            cos_phi * std::sin(dlam),
            center.cos_phi * sin_phi - center.sin_phi * cos_phi * cos_dlam};
}

// The point at angular distance c (given as sin c >= 0 and cos c) from the center, in the
// direction of the plane point (x, y) at distance rho = hypot(x, y); at rho = 0 the center
// itself.  The longitude is reduced to [-pi, pi].
inline void point_from_center(const AzimuthalCenter &center, double x, double y, double rho,
                              double sin_c, double cos_c, double *lam, double *phi)
{
    if (rho == 0.0) {
        *lam = gx_delta(center.lam);
        *phi = std::atan2(center.sin_phi, center.cos_phi);
        return;
    }
    const double sin_az = x / rho, cos_az = y / rho;
    // the point as a unit vector in the frame turned by lambda_c about the polar axis
    const double px = cos_c * center.cos_phi - sin_c * cos_az * center.sin_phi;
    const double py = sin_c * sin_az;
    const double pz = cos_c * center.sin_phi + sin_c * cos_az * center.cos_phi;
    *phi = std::atan2(pz, std::hypot(px, py));
    *lam = gx_delta(center.lam + std::atan2(py, px));
}

// The constants of a spherical azimuthal projection about the center of slots 10 and 11
// (orthographic, gnomonic): [0] cos phi_c, [1] sin phi_c.
struct SphericalCenterLayout : ConstantsLayout<2> {
    static int constants(const double * /*sphere*/, const double parms[16], double *values)
    {
        values[0] = std::cos(parms[slot::latitude_of_center]);
        values[1] = std::sin(parms[slot::latitude_of_center]);
        return kSphereCount;
    }
    static AzimuthalCenter center_of(const double parms[16], const double *values)
    {
        return {parms[slot::longitude_of_center], values[0], values[1]};
    }
};

} // namespace gx::projections

#endif // GX_PROJECTIONS_GX_AZIMUTHAL_H
