// gx_coordinate_frame.cpp -- the seven-parameter datum shift in the coordinate-frame rotation
// convention (EPSG method 9607; "Bursa_Wolf" is the same routine), with the exact rotation
// matrix and its exact inverse that the position-vector and Molodensky-Badekas forms share
// (IOGP Guidance Note 7-2).
//
// Per point: geodetic -> geocentric on the first ellipsoid, X' = (1 + ds) R X + T, geocentric
// -> geodetic on the second.  The inverse multiplies by the exact inverse of R instead of
// flipping the signs of the angles, so it undoes the forward even for rotations of degrees.
#include "geogtran/gx_helmert.h"

namespace gx::geogtran {

Mat3 frame_rotation(Real rx, Real ry, Real rz)
{
    const Real sx = std::sin(rx), cx = std::cos(rx);
    const Real sy = std::sin(ry), cy = std::cos(ry);
    const Real sz = std::sin(rz), cz = std::cos(rz);
    return {{{cy * cz, sx * sy * cz + cx * sz, sx * sz - cx * sy * cz},
             {-cy * sz, cx * cz - sx * sy * sz, cx * sy * sz + sx * cz},
             {sy, -sx * cy, cx * cy}}};
}

// The adjugate (transposed cofactors) divided by the determinant.
Mat3 exact_inverse(const Mat3 &m)
{
    const auto cofactor = [&m](int i, int j) {
        const int i1 = (i + 1) % 3, i2 = (i + 2) % 3, j1 = (j + 1) % 3, j2 = (j + 2) % 3;
        return m[i1][j1] * m[i2][j2] - m[i1][j2] * m[i2][j1];
    };
    const Real det = m[0][0] * cofactor(0, 0) + m[0][1] * cofactor(0, 1) + m[0][2] * cofactor(0, 2);
    Mat3 inv;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            inv[i][j] = cofactor(j, i) / det;
    return inv;
}

Helmert make_helmert(const double parms[16], const Vec3 &origin)
{
    const Mat3 rotation =
        frame_rotation(parms[shift_slot::x_rotation], parms[shift_slot::y_rotation],
                       parms[shift_slot::z_rotation]);
    const Real scale = 1.0L + parms[shift_slot::scale_difference];
    const RVec3 translation = {parms[shift_slot::x_translation], parms[shift_slot::y_translation],
                               parms[shift_slot::z_translation]};
    Helmert t;
    t.forward = scale * rotation;
    t.inverse = (1.0L / scale) * exact_inverse(rotation);
    const RVec3 p = widened(origin);
    t.shift = translation + p - t.forward * p;
    return t;
}

} // namespace gx::geogtran

using namespace gx::geogtran;

namespace {

const Vec3 kGeocentre = {0.0, 0.0, 0.0};

} // namespace

extern "C" {

GX_API int gx_coordinate_frame_fwd(const double ellipsoid1[2], const double ellipsoid2[2],
                                   const double parms[16], const char *, int n, double *points,
                                   double *heights, const int *, const float *, const double *)
{
    return helmert_forward(make_helmert(parms, kGeocentre), ellipsoid1, ellipsoid2, n, points,
                           heights);
}

GX_API int gx_coordinate_frame_inv(const double ellipsoid1[2], const double ellipsoid2[2],
                                   const double parms[16], const char *, int n, double *points,
                                   double *heights, const int *, const float *, const double *)
{
    return helmert_inverse(make_helmert(parms, kGeocentre), ellipsoid1, ellipsoid2, n, points,
                           heights);
}

// "Bursa_Wolf" is another name of the coordinate-frame method: the same routines under a second
// name, so that either name gives the same function pointer.
GX_API int gx_bursa_wolf_fwd(const double ellipsoid1[2], const double ellipsoid2[2],
                             const double parms[16], const char *dataset, int n, double *points,
                             double *heights, const int *ivals, const float *fvals,
                             const double *dvals) __attribute__((alias("gx_coordinate_frame_fwd")));

GX_API int gx_bursa_wolf_inv(const double ellipsoid1[2], const double ellipsoid2[2],
                             const double parms[16], const char *dataset, int n, double *points,
                             double *heights, const int *ivals, const float *fvals,
                             const double *dvals) __attribute__((alias("gx_coordinate_frame_inv")));

} // extern "C"
