// gx_molodensky.cpp -- the standard Molodensky datum shift (EPSG method 9604; DMA TR 8350.2;
// IOGP Guidance Note 7-2).  It changes geodetic coordinates directly by the first-order effect
// of a geocentric translation (tx, ty, tz) and a change of ellipsoid (da, df), with M, N, W
// those of the first ellipsoid at phi:
//
//   dphi (M + h)        = north + e2 sin(phi) cos(phi) da / W
//                               + sin(phi) cos(phi) (M / (1 - f) + (1 - f) N) df
//   dlam (N + h) cos phi = east
//   dh                  = up - W da + (1 - f) a sin^2(phi) df / W
//
// where north, east and up are the translation resolved along the point's local axes.  The
// inverse is the same step from the second ellipsoid with the translations negated.
#include "geogtran/gx_datum_shift.h"

using namespace gx::geogtran;

namespace {

GeodeticChange standard_change(const MolodenskyShift &s, const LocalPoint &p)
{
    const double sc = p.sphi * p.cphi;
    const double ellipsoid_term =
        s.e2 * sc * s.da / p.w + sc * (p.m / (1.0 - s.f) + (1.0 - s.f) * p.n) * s.df;
    return {(p.north + ellipsoid_term) / (p.m + p.h), longitude_change(p.east, p.n + p.h, p.cphi),
            p.up - p.w * s.da + (1.0 - s.f) * s.a * p.sphi * p.sphi * s.df / p.w};
}

} // namespace

extern "C" {

GX_API int gx_molodensky_fwd(const double ellipsoid1[2], const double ellipsoid2[2],
                             const double parms[16], const char *, int n, double *points,
                             double *heights, const int *, const float *, const double *)
{
    return shift_molodensky(ellipsoid1, ellipsoid2, parms, n, points, heights, standard_change);
}

GX_API int gx_molodensky_inv(const double ellipsoid1[2], const double ellipsoid2[2],
                             const double parms[16], const char *, int n, double *points,
                             double *heights, const int *, const float *, const double *)
{
    return molodensky_reverse(gx_molodensky_fwd, ellipsoid1, ellipsoid2, parms, n, points, heights);
}

} // extern "C"
