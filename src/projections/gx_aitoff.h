// gx_aitoff.h -- Aitoff's projection of the unit sphere and the inverse shared by the
// projections built on it (Aitoff, Winkel Tripel).
//
// Aitoff's projection is the equatorial azimuthal equidistant projection of the hemisphere,
// stretched twice along the equator over the whole sphere (Snyder & Voxland 1989, "An Album of
// Map Projections", p. 130): with cos D = cos phi cos(lambda/2) and g = D / sin D,
//   x = 2 g cos phi sin(lambda/2),   y = g sin phi.
// Winkel's Tripel is the mean of this and the equirectangular projection (x = lambda cos phi1,
// y = phi).  The Tripel has no closed inverse: it is found by Newton's method in two dimensions on
// the analytic Jacobian (the general method of Ipbuker & Bildirici 2002, "A general algorithm
// for the inverse transformation of map projections using Jacobian matrices"), from the
// equirectangular guess, each step kept inside the map's (lambda, phi) rectangle.  A plane point
// is accepted when the iteration converges to a step below kIterationTol and the forward of the
// result lands on it; a point outside the outline has no such solution and fails.
#ifndef GX_PROJECTIONS_GX_AITOFF_H
#define GX_PROJECTIONS_GX_AITOFF_H

#include "projections/gx_world.h"

#include <cmath>

namespace gx::projections {

// A forward map of the unit sphere with its Jacobian.
struct PlanePoint {
    double x, y;
    double x_lam, x_phi, y_lam, y_phi; // partial derivatives
};

// Aitoff's projection of (lambda, phi) and its derivatives.
inline PlanePoint aitoff_point(double lam, double phi)
{
    const double cos_phi = std::cos(phi), sin_phi = std::sin(phi);
    const double cos_half = std::cos(0.5 * lam), sin_half = std::sin(0.5 * lam);
    const double c = cos_phi * cos_half; // cos D
    const double s2 = (1.0 - c) * (1.0 + c);
    // g = D / sin D and dg/dc = (c g - 1) / sin^2 D, by series where sin D is small
    double g = 0.0, dg = 0.0;
    if (s2 < 1e-6) {
        g = 1.0 + s2 * (1.0 / 6.0 + s2 * 3.0 / 40.0);
        dg = -1.0 / 3.0 - s2 * 0.3;
    } else {
        const double s = std::sqrt(s2);
        g = std::acos(std::fmax(-1.0, std::fmin(1.0, c))) / s;
        dg = (c * g - 1.0) / s2;
    }
    const double c_lam = -0.5 * cos_phi * sin_half, c_phi = -sin_phi * cos_half;
    PlanePoint p{};
    p.x = 2.0 * g * cos_phi * sin_half;
    p.y = g * sin_phi;
    p.x_lam = 2.0 * dg * c_lam * cos_phi * sin_half + g * cos_phi * cos_half;
    p.x_phi = 2.0 * (dg * c_phi * cos_phi - g * sin_phi) * sin_half;
    p.y_lam = dg * c_lam * sin_phi;
    p.y_phi = dg * c_phi * sin_phi + g * cos_phi;
    return p;
}

// The inverse of a forward map point_of(lam, phi) -> PlanePoint of the whole sphere that keeps
// the central meridian (x = 0 there, y = phi) and is odd in lambda and phi.
template <class Forward>
bool invert_by_newton(Forward point_of, double x, double y, double *lam, double *phi)
{
    if (std::fabs(x) <= kOutlineTol) { // the central meridian
        double p = y;
        if (!within_outline(&p, kHalfPi))
            return false;
        *lam = 0.0;
        *phi = p;
        return true;
    }
    double l = std::fmax(-kPi, std::fmin(kPi, x));
    double p = std::fmax(-kHalfPi, std::fmin(kHalfPi, y));
    for (int i = 0; i < kMaxIterations; ++i) {
        const PlanePoint f = point_of(l, p);
        const double dx = f.x - x, dy = f.y - y;
        const double det = f.x_lam * f.y_phi - f.x_phi * f.y_lam;
        if (!(std::fabs(det) > 0.0))
            return false;
        double step_lam = (dx * f.y_phi - dy * f.x_phi) / det;
        double step_phi = (dy * f.x_lam - dx * f.y_lam) / det;
        // keep the step within the map's rectangle, halving it if need be
        const double next_lam = std::fmax(-kPi, std::fmin(kPi, l - step_lam));
        const double next_phi = std::fmax(-kHalfPi, std::fmin(kHalfPi, p - step_phi));
        step_lam = next_lam - l;
        step_phi = next_phi - p;
        l = next_lam;
        p = next_phi;
        if (std::fabs(step_lam) <= kIterationTol && std::fabs(step_phi) <= kIterationTol) {
            const PlanePoint check = point_of(l, p);
            if (std::hypot(check.x - x, check.y - y) > 1e3 * kOutlineTol)
                return false;
            *lam = l;
            *phi = p;
            return true;
        }
    }
    return false;
}

} // namespace gx::projections

#endif // GX_PROJECTIONS_GX_AITOFF_H
