// gx_projective_parametric.cpp -- the eight-parameter 2D projective fit of plane coordinates
// (a plane homography with its last coefficient fixed at 1):
//
//   w = G x + H y + 1,   x' = (A x + B y + C) / w,   y' = (D x + E y + F) / w.
//
// The inverse is the homography of the adjugate of [[A, B, C], [D, E, F], [G, H, 1]]; with
// k1 = B F - C E, k2 = C D - F A, k3 = E A - D B its determinant is H k2 + G k1 + k3, and
//
//   w = (D H - E G) x' + (B G - A H) y' + k3,
//   x = ((E - F H) x' + (C H - B) y' + k1) / w,   y = ((F G - D) x' + (A - C G) y' + k2) / w.
#include "gridex.h"
#include "geogtran/gx_plane_fit.h"

using namespace gx::geogtran;

namespace {

struct Projective {
    double a, b, c, d, e, f, g, h;

    explicit Projective(const double *p)
        : a(p[0]), b(p[1]), c(p[2]), d(p[3]), e(p[4]), f(p[5]), g(p[6]), h(p[7])
    {}
    double k1() const { return b * f - c * e; }
    double k2() const { return c * d - f * a; }
    double k3() const { return e * a - d * b; }
    double det() const { return h * k2() + g * k1() + k3(); }
};

} // namespace

extern "C" {

GX_API int gx_projective_parametric_fwd(const void *, const double *parms, int n, double *points)
{
    const Projective t(parms);
    return map_plane_points(n, points, [&t](PlanePoint p) {
        const double w = t.g * p.x + t.h * p.y + 1.0;
        return PlanePoint{(t.a * p.x + t.b * p.y + t.c) / w, (t.d * p.x + t.e * p.y + t.f) / w};
    });
}

GX_API int gx_projective_parametric_inv(const void *, const double *parms, int n, double *points)
{
    const Projective t(parms);
    if (singular(t.det()))
        return 0;
    const double k1 = t.k1(), k2 = t.k2(), k3 = t.k3();
    return map_plane_points(n, points, [&](PlanePoint p) {
        const double w = (t.d * t.h - t.e * t.g) * p.x + (t.b * t.g - t.a * t.h) * p.y + k3;
        return PlanePoint{((t.e - t.f * t.h) * p.x + (t.c * t.h - t.b) * p.y + k1) / w,
                          ((t.f * t.g - t.d) * p.x + (t.a - t.c * t.g) * p.y + k2) / w};
    });
}

} // extern "C"
