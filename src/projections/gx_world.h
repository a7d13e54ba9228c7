// gx_world.h -- what the world (small-scale) projections share: the sphere they are drawn on,
// the wrapper that turns a projection of the unit sphere into a core of the library, and the
// root finder of their parametric latitudes.
//
// Most world projections exist only on the sphere (Snyder 1987, "Map Projections -- A Working
// Manual"; Snyder & Voxland 1989, "An Album of Map Projections").  On an ellipsoidal datum they
// are drawn, as in the widely used definitions of the world systems, on the sphere of radius a
// with the geodetic latitude unchanged -- except Miller's and Van der Grinten's, which take the
// authalic radius.  A projection that needs the ellipsoid's areas exactly uses the
// auxiliary-sphere variant (Auxiliary_Sphere_Type 3: authalic radius and authalic latitude).
//
// A world projection's source supplies the formulas on the unit sphere, as a class M:
//
//   struct M {
//       explicit M(const double parms[16]);                   its parameters, if any
//       bool forward(double lam, double phi, double *x, double *y) const;
//       bool inverse(double x, double y, double *lam, double *phi) const;
//       bool valid() const;                                   optional: false refuses the parms
//   };
//
// forward receives the longitude from the central meridian reduced to [-pi, pi]; inverse gives
// it back the same way and fails (false) for a point outside the map's outline.  The wrapper
// scales by the radius and adds the central meridian.
#ifndef GX_PROJECTIONS_GX_WORLD_H
#define GX_PROJECTIONS_GX_WORLD_H

#include "projections/gx_projection_support.h"

#include <cmath>

namespace gx::projections {

// The sphere a spherical world projection is drawn on when its datum is an ellipsoid.
enum class WorldSphere {
    SemiMajor, // radius a, geodetic latitude
    Authalic,  // authalic radius, geodetic latitude
};

inline double world_radius(const double sphere[2], WorldSphere which)
{
    if (which == WorldSphere::Authalic && !is_sphere(sphere[1]))
        return gx_auth_r(sphere[0], sphere[1]);
    return sphere[0];
}

// How far (on the unit sphere) an inverse may go past the map's outline and still be taken as
// on it: the rounding of a forward and inverse of a point on the outline, and no more.
inline constexpr double kOutlineTol = 1e-12;

// |value| <= limit within kOutlineTol; *value is then clamped to [-limit, limit].
inline bool within_outline(double *value, double limit)
{
    if (!(std::fabs(*value) <= limit * (1.0 + kOutlineTol) + kOutlineTol))
        return false;
    *value = std::fmax(-limit, std::fmin(limit, *value));
    return true;
}

// The iterations of the parametric latitudes and of the two-dimensional inverses stop once a
// step is below kIterationTol radians (the error is then below 1e-12), and fail the point when
// that takes more than kMaxIterations steps.
inline constexpr double kIterationTol = 1e-13;
inline constexpr int kMaxIterations = 100;

// Solves f(t) = target for t in [lo, hi], where f increases and f(lo) <= target <= f(hi):
// Newton's method (derivative df) from start, kept inside the shrinking bracket by bisection,
// so that it converges even where df vanishes (the poles of Mollweide's and Eckert's
// auxiliary angles).  False only for a target outside [f(lo), f(hi)] or a NaN.
template <class F, class DF>
bool solve_increasing(F f, DF df, double target, double lo, double hi, double start, double *root)
{
    double t = std::fmax(lo, std::fmin(hi, start));
    for (int i = 0; i < kMaxIterations; ++i) {
        const double residual = f(t) - target;
        if (residual == 0.0) {
            *root = t;
            return true;
        }
        (residual < 0.0 ? lo : hi) = t;
        double next = t - residual / df(t);
        if (!(next > lo && next < hi))
            next = 0.5 * (lo + hi);
        const double step = std::fabs(next - t);
        t = next;
        if (step <= kIterationTol || hi - lo <= kIterationTol) {
            *root = t;
            return true;
        }
    }
    return false;
}

// 1 - sin|phi|, without the cancellation of the difference near the poles: 2 sin^2(colat / 2).
inline double one_minus_sin(double phi)
{
    const double half_colatitude = 0.5 * (kHalfPi - std::fabs(phi));
    return 2.0 * std::sin(half_colatitude) * std::sin(half_colatitude);
}

// u - sin u, by its series where the difference would cancel (|u| < 1/4, the next term then
// below 1e-15 of the sum).
inline double u_minus_sin(double u)
{
    if (std::fabs(u) >= 0.25)
        return u - std::sin(u);
    const double u2 = u * u;
    return u * u2 *
           (1.0 / 6.0 -
            u2 * (1.0 / 120.0 - u2 * (1.0 / 5040.0 - u2 * (1.0 / 362880.0 - u2 / 39916800.0))));
}

// The layout Option of the parameters (slot 15) as a whole number 0 to last, or -1 when it is
// not one of them.
inline int layout_option(const double parms[16], int last)
{
    const double value = std::round(parms[slot::option]);
    if (!(std::fabs(parms[slot::option] - value) <= 1e-9) || value < 0.0 || value > last)
        return -1;
    return static_cast<int>(value);
}

// A spherical world projection M as a core with a constants record: [0] the radius.
template <class M, WorldSphere S = WorldSphere::SemiMajor>
class WorldProjection : public ConstantsLayout<1> {
public:
    static int constants(const double sphere[2], const double * /*parms*/, double *values)
    {
        values[0] = world_radius(sphere, S);
        return kSphereCount;
    }

    WorldProjection(const double * /*sphere*/, const double parms[16], const double *values)
        : radius_(values[0]), lam0_(parms[slot::central_meridian]), formulas_(parms)
    {}

    bool forward(double *point) const
    {
        double x = 0.0, y = 0.0;
        if (!formulas_.forward(gx_delta(point[0] - lam0_), point[1], &x, &y))
            return false;
        point[0] = radius_ * x;
        point[1] = radius_ * y;
        return true;
    }

    bool inverse(double *point) const
    {
        double lam = 0.0, phi = 0.0;
        if (!formulas_.inverse(point[0] / radius_, point[1] / radius_, &lam, &phi))
            return false;
        point[0] = gx_delta(lam + lam0_);
        point[1] = phi;
        return true;
    }

    // false when the formulas refuse their parameters (an unknown layout Option)
    bool valid() const
    {
        if constexpr (requires { formulas_.valid(); })
            return formulas_.valid();
        else
            return true;
    }

private:
    double radius_;
    double lam0_;
    M formulas_;
};

// The same for a projection without a constants setup: the radius is found per call.
template <class M, WorldSphere S = WorldSphere::SemiMajor>
class PerCallWorldProjection : public NoConstants {
public:
    PerCallWorldProjection(const double sphere[2], const double parms[16],
                           const double * /*values*/)
        : radius_(world_radius(sphere, S)), projection_(sphere, parms, &radius_)
    {}
    bool valid() const { return projection_.valid(); }
    bool forward(double *point) const { return projection_.forward(point); }
    bool inverse(double *point) const { return projection_.inverse(point); }

private:
    double radius_;
    WorldProjection<M, S> projection_;
};

} // namespace gx::projections

#endif // GX_PROJECTIONS_GX_WORLD_H
