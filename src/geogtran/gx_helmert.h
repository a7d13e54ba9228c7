// gx_helmert.h -- the seven-parameter (Helmert) similarity transformation of geocentric
// coordinates, in the coordinate-frame sign convention, with the rotation taken exactly rather
// than linearised (IOGP Guidance Note 7-2).
//
// The rotation is R = R3(rz) R2(ry) R1(rx), Ri(t) the rotation of the frame by t about axis i:
//
//   | cy cz    sx sy cz + cx sz    sx sz - cx sy cz |
//   | -cy sz   cx cz - sx sy sz    cx sy sz + sx cz |      (sx = sin rx, cy = cos ry, ...)
//   | sy       -sx cy              cx cy            |
//
// which for small angles is [[1, rz, -ry], [-rz, 1, rx], [ry, -rx, 1]].  With the scale
// difference ds and the rotation origin P (zero but for Molodensky-Badekas):
//
//   X' = M X + c,   M = (1 + ds) R,   c = T + P - M P,
//   X  = M^-1 (X' - c),   M^-1 = adj(R) / det(R) / (1 + ds),
//
// so the inverse undoes the forward to rounding whatever the size of the angles.
#ifndef GX_GEOGTRAN_GX_HELMERT_H
#define GX_GEOGTRAN_GX_HELMERT_H

#include "geogtran/gx_datum_shift.h"

namespace gx::geogtran {

// The matrix arithmetic runs in long double and rounds once per coordinate, as the geocentric
// conversions do: a double evaluation of M X + c adds a few units in the last place of X
// (1e-9 m each at the Earth's radius), which a forward and inverse pair would double.
using Real = long double;
using RVec3 = std::array<Real, 3>;
using Mat3 = std::array<RVec3, 3>;

// The rotation R above and its exact inverse (defined in gx_coordinate_frame.cpp).
Mat3 frame_rotation(Real rx, Real ry, Real rz);
Mat3 exact_inverse(const Mat3 &m);

inline RVec3 operator*(const Mat3 &m, const RVec3 &v)
{
    return {m[0][0] * v[0] + m[0][1] * v[1] + m[0][2] * v[2],
            m[1][0] * v[0] + m[1][1] * v[1] + m[1][2] * v[2],
            m[2][0] * v[0] + m[2][1] * v[1] + m[2][2] * v[2]};
}

inline Mat3 operator*(Real k, const Mat3 &m)
{
    Mat3 r;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            r[i][j] = k * m[i][j];
    return r;
}

inline RVec3 widened(const Vec3 &x) { return {x[0], x[1], x[2]}; }
inline Vec3 rounded(const RVec3 &x)
{
    return {static_cast<double>(x[0]), static_cast<double>(x[1]), static_cast<double>(x[2])};
}

// One Helmert transformation, ready for both directions.
struct Helmert {
    Mat3 forward; // M
    Mat3 inverse; // M^-1
    RVec3 shift;  // c

    Vec3 apply(const Vec3 &x) const { return rounded(forward * widened(x) + shift); }
    Vec3 undo(const Vec3 &x) const { return rounded(inverse * (widened(x) - shift)); }
};

// The transformation of the parameter vector about `origin` (defined in
// gx_coordinate_frame.cpp).
Helmert make_helmert(const double parms[16], const Vec3 &origin);

// Helmert from ellipsoid 1 to ellipsoid 2 (forward) or back (inverse), point by point.
inline int helmert_forward(const Helmert &t, const double ellipsoid1[2], const double ellipsoid2[2],
                           int n, double *points, double *heights)
{
    return shift_geocentric(ellipsoid_of(ellipsoid1), ellipsoid_of(ellipsoid2), n, points, heights,
                            [&t](const Vec3 &x) { return t.apply(x); });
}

inline int helmert_inverse(const Helmert &t, const double ellipsoid1[2], const double ellipsoid2[2],
                           int n, double *points, double *heights)
{
    return shift_geocentric(ellipsoid_of(ellipsoid2), ellipsoid_of(ellipsoid1), n, points, heights,
                            [&t](const Vec3 &x) { return t.undo(x); });
}

} // namespace gx::geogtran

#endif
