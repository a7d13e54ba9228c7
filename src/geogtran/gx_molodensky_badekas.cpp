// gx_molodensky_badekas.cpp -- the Molodensky-Badekas datum shift (EPSG method 9636; IOGP
// Guidance Note 7-2): the coordinate-frame Helmert transformation with its rotation and scale
// taken about an origin P near the network's centroid instead of about the geocentre, which
// decorrelates the translations from the rotations:
//
//   X' = M (X - P) + P + T = M X + (T + P - M P).
#include "geogtran/gx_helmert.h"

using namespace gx::geogtran;

namespace {

Helmert badekas_helmert(const double parms[16])
{
    return make_helmert(parms,
                        {parms[shift_slot::x_rotation_origin], parms[shift_slot::y_rotation_origin],
                         parms[shift_slot::z_rotation_origin]});
}

} // namespace

extern "C" {

GX_API int gx_molodensky_badekas_fwd(const double ellipsoid1[2], const double ellipsoid2[2],
                                     const double parms[16], const char *, int n, double *points,
                                     double *heights, const int *, const float *, const double *)
{
    return helmert_forward(badekas_helmert(parms), ellipsoid1, ellipsoid2, n, points, heights);
}

GX_API int gx_molodensky_badekas_inv(const double ellipsoid1[2], const double ellipsoid2[2],
                                     const double parms[16], const char *, int n, double *points,
                                     double *heights, const int *, const float *, const double *)
{
    return helmert_inverse(badekas_helmert(parms), ellipsoid1, ellipsoid2, n, points, heights);
}

} // extern "C"
