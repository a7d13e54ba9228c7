// gx_molodensky_abridged.cpp -- the abridged Molodensky datum shift (EPSG method 9605; DMA
// TR 8350.2; IOGP Guidance Note 7-2): the standard formulas with the height dropped from the
// radii and the ellipsoid terms reduced to first order in the flattening.  With
// K = f da + a df and M, N of the first ellipsoid at phi:
//
//   dphi M         = north + 2 K sin(phi) cos(phi)
//   dlam N cos phi = east
//   dh             = up + K sin^2(phi) - da
//
// The inverse is the same step from the second ellipsoid with the translations negated.
#include "geogtran/gx_datum_shift.h"

using namespace gx::geogtran;

namespace {

GeodeticChange abridged_change(const MolodenskyShift &s, const LocalPoint &p)
{
    const double k = s.f * s.da + s.a * s.df;
    return {(p.north + 2.0 * k * p.sphi * p.cphi) / p.m, longitude_change(p.east, p.n, p.cphi),
            p.up + k * p.sphi * p.sphi - s.da};
}

} // namespace

extern "C" {

GX_API int gx_molodensky_abridged_fwd(const double ellipsoid1[2], const double ellipsoid2[2],
                                      const double parms[16], const char *, int n, double *points,
                                      double *heights, const int *, const float *, const double *)
{
    return shift_molodensky(ellipsoid1, ellipsoid2, parms, n, points, heights, abridged_change);
}

GX_API int gx_molodensky_abridged_inv(const double ellipsoid1[2], const double ellipsoid2[2],
                                      const double parms[16], const char *, int n, double *points,
                                      double *heights, const int *, const float *, const double *)
{
    return molodensky_reverse(gx_molodensky_abridged_fwd, ellipsoid1, ellipsoid2, parms, n, points,
                              heights);
}

} // extern "C"
