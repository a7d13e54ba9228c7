// gx_affine_parametric.cpp -- the six-parameter affine fit of plane coordinates (the general
// polynomial of degree one; IOGP Guidance Note 7-2):
//
//   x' = A x + B y + C,   y' = D x + E y + F,
//
// and its inverse by Cramer's rule, with det = A E - B D:
//
//   x = (E x' - B y' + (B F - E C)) / det,   y = (-D x' + A y' + (D C - A F)) / det.
#include "gridex.h"
#include "geogtran/gx_plane_fit.h"

using namespace gx::geogtran;

namespace {

struct Affine {
    double a, b, c, d, e, f;

    explicit Affine(const double *p) : a(p[0]), b(p[1]), c(p[2]), d(p[3]), e(p[4]), f(p[5]) {}
    double det() const { return a * e - b * d; }
};

} // namespace

extern "C" {

GX_API int gx_affine_parametric_fwd(const void *, const double *parms, int n, double *points)
{
    const Affine t(parms);
    return map_plane_points(n, points, [&t](PlanePoint p) {
        return PlanePoint{t.a * p.x + t.b * p.y + t.c, t.d * p.x + t.e * p.y + t.f};
    });
}

GX_API int gx_affine_parametric_inv(const void *, const double *parms, int n, double *points)
{
    const Affine t(parms);
    const double det = t.det();
    if (singular(det))
        return 0;
    const double x0 = t.b * t.f - t.e * t.c, y0 = t.d * t.c - t.a * t.f;
    return map_plane_points(n, points, [&](PlanePoint p) {
        return PlanePoint{(t.e * p.x - t.b * p.y + x0) / det, (-t.d * p.x + t.a * p.y + y0) / det};
    });
}

} // extern "C"
