// gx_vtm_vertical_offset_slope.cpp -- the vertical offset and slope method (EPSG method 1046;
// IOGP Guidance Note 7-2): the two height surfaces differ by a constant p0 and a plane
// inclined by i_phi towards the north and i_lam towards the east about the origin
// (phi0, lam0).  With M and N the meridian and prime-vertical radii of curvature at phi0, and
// the slope term
//
//   s = i_phi M (phi - phi0) + i_lam N cos(phi) (lam - lam0),
//
//   forward  h' = (h + s) d + p0,     inverse  h = d (h' - p0) - s,
//
// d the product of the two systems' direction signs.  Angles in radians; points are in the
// geographic system's angular unit and are turned to radians with unit_factor.
#include "gridex.h"

#include <cmath>

namespace {

constexpr int kOffset = 0;
constexpr int kOriginLongitude = 2;
constexpr int kOriginLatitude = 6;
constexpr int kInclinationLatitude = 13;
constexpr int kInclinationLongitude = 14;

// The inclined plane, fixed for one call.
struct SlopePlane {
    double lam0, phi0;
    double north_rate; // i_phi M, metres per radian of latitude
    double east_rate;  // i_lam N, metres per radian of longitude on the equator

    SlopePlane(const double ellipsoid[2], const double parms[16])
        : lam0(parms[kOriginLongitude]), phi0(parms[kOriginLatitude]),
          north_rate(parms[kInclinationLatitude] * gx_m(ellipsoid[0], ellipsoid[1], phi0)),
          east_rate(parms[kInclinationLongitude] * gx_n(ellipsoid[0], ellipsoid[1], phi0))
    {}

    // The plane's height at (lam, phi), radians.
    double height(double lam, double phi) const
    {
        return north_rate * gx_delta(phi - phi0) + east_rate * std::cos(phi) * gx_delta(lam - lam0);
    }
};

int offset_slope_transform(const double ellipsoid[2], double unit_factor, double direction_product,
                           const double parms[16], int n, const double *points, double *heights,
                           int direction)
{
    if (points == nullptr || heights == nullptr)
        return 0;
    const SlopePlane plane(ellipsoid, parms);
    const double d = direction_product, offset = parms[kOffset];
    for (int i = 0; i < n; ++i) {
        const double s = plane.height(points[2 * i] * unit_factor, points[2 * i + 1] * unit_factor);
        heights[i] = direction == 0 ? (heights[i] + s) * d + offset : d * (heights[i] - offset) - s;
    }
    return n;
}

} // namespace

extern "C" {

GX_API int gx_vtm_vertical_offset_slope_fwd(const double ellipsoid[2], double unit_factor, double,
                                            double direction_product, const double parms[16],
                                            const char *, const int *, const float *,
                                            const double *, int n, const double *points,
                                            double *heights)
{
    return offset_slope_transform(ellipsoid, unit_factor, direction_product, parms, n, points,
                                  heights, 0);
}

GX_API int gx_vtm_vertical_offset_slope_inv(const double ellipsoid[2], double unit_factor, double,
                                            double direction_product, const double parms[16],
                                            const char *, const int *, const float *,
                                            const double *, int n, const double *points,
                                            double *heights)
{
    return offset_slope_transform(ellipsoid, unit_factor, direction_product, parms, n, points,
                                  heights, 1);
}

} // extern "C"
