// gx_geocentric_translation.cpp -- the three-parameter datum shift (EPSG method 9603; IOGP
// Guidance Note 7-2): geodetic -> geocentric on the first ellipsoid, add the translation T,
// geocentric -> geodetic on the second.  The inverse subtracts T going the other way; both are
// closed forms.
#include "geogtran/gx_datum_shift.h"

using namespace gx::geogtran;

namespace {

Vec3 translation_of(const double parms[16])
{
    return {parms[shift_slot::x_translation], parms[shift_slot::y_translation],
            parms[shift_slot::z_translation]};
}

} // namespace

extern "C" {

GX_API int gx_geocentric_translation_fwd(const double ellipsoid1[2], const double ellipsoid2[2],
                                         const double parms[16], const char *, int n,
                                         double *points, double *heights, const int *,
                                         const float *, const double *)
{
    const Vec3 t = translation_of(parms);
    return shift_geocentric(ellipsoid_of(ellipsoid1), ellipsoid_of(ellipsoid2), n, points, heights,
                            [&t](const Vec3 &x) { return x + t; });
}

GX_API int gx_geocentric_translation_inv(const double ellipsoid1[2], const double ellipsoid2[2],
                                         const double parms[16], const char *, int n,
                                         double *points, double *heights, const int *,
                                         const float *, const double *)
{
    const Vec3 t = translation_of(parms);
    return shift_geocentric(ellipsoid_of(ellipsoid2), ellipsoid_of(ellipsoid1), n, points, heights,
                            [&t](const Vec3 &x) { return x - t; });
}

} // extern "C"
