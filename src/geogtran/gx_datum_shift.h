// gx_datum_shift.h -- what the formula-based datum shifts share: the finishing rule of every
// shifted point, the per-point geocentric round trip of the Helmert family and the loop of the two
// Molodensky formulas.  The parameter vector is read by the slots of gx::shift_slot.
//
// Points are (longitude, latitude) pairs in radians about Greenwich; heights, when given, are
// ellipsoidal heights in metres, otherwise 0 and the new height is dropped.
#ifndef GX_GEOGTRAN_GX_DATUM_SHIFT_H
#define GX_GEOGTRAN_GX_DATUM_SHIFT_H

#include "gridex.h"
#include "object/gx_slots.h"
#include "projection/gx_math.h"

#include <array>
#include <cmath>

namespace gx::geogtran {

namespace shift_slot = gx::shift_slot;
using gx::parameter_slots;
using gx::math::kHalfPi;

struct Ellipsoid {
    double a;  // semi-major axis, metres
    double e2; // squared first eccentricity
};

inline Ellipsoid ellipsoid_of(const double pair[2]) { return {pair[0], pair[1]}; }

// f = 1 - sqrt(1 - e2), written without the cancellation of the difference.
inline double flattening(double e2) { return e2 / (1.0 + std::sqrt(1.0 - e2)); }

// The finishing rule of every geodetic method: a latitude pushed beyond a pole is held at the
// pole (not folded back), and the longitude is reduced to [-pi, pi].
inline void store_point(double *point, double lat, double lon)
{
    if (lat > kHalfPi)
        lat = kHalfPi;
    if (lat < -kHalfPi)
        lat = -kHalfPi;
    point[0] = gx_delta(lon);
    point[1] = lat;
}

using Vec3 = std::array<double, 3>; // geocentric X, Y, Z in metres

template <class T> std::array<T, 3> operator+(const std::array<T, 3> &u, const std::array<T, 3> &v)
{
    return {u[0] + v[0], u[1] + v[1], u[2] + v[2]};
}
template <class T> std::array<T, 3> operator-(const std::array<T, 3> &u, const std::array<T, 3> &v)
{
    return {u[0] - v[0], u[1] - v[1], u[2] - v[2]};
}

// The geocentric round trip: each point goes to cartesian coordinates on `from`, through
// `map` (a Vec3 -> Vec3 callable) and back to geodetic coordinates on `to`.
template <class Map>
int shift_geocentric(Ellipsoid from, Ellipsoid to, int n, double *points, double *heights,
                     const Map &map)
{
    for (int i = 0; i < n; ++i) {
        double *point = points + 2 * i;
        Vec3 x;
        gx_curv_to_cart(from.a, from.e2, point[1], point[0], heights ? heights[i] : 0.0, &x[0],
                        &x[1], &x[2]);
        const Vec3 y = map(x);
        double lat, lon, h;
        gx_cart_to_curv(to.a, to.e2, y[0], y[1], y[2], &lat, &lon, &h);
        store_point(point, lat, lon);
        if (heights)
            heights[i] = h;
    }
    return n;
}

// ---- Molodensky -------------------------------------------------------------------------

// What one Molodensky call holds fixed: the source ellipsoid, the differences of the target
// from it and the translations.
struct MolodenskyShift {
    double a, e2, f;   // source ellipsoid
    double da, df;     // a2 - a1, f2 - f1
    double tx, ty, tz; // geocentric translations, metres
};

inline MolodenskyShift molodensky_shift(Ellipsoid from, Ellipsoid to, const double parms[16])
{
    const double f1 = flattening(from.e2), f2 = flattening(to.e2);
    return {from.a,
            from.e2,
            f1,
            to.a - from.a,
            f2 - f1,
            parms[shift_slot::x_translation],
            parms[shift_slot::y_translation],
            parms[shift_slot::z_translation]};
}

// A point with the translation resolved along its local north, east and up directions, and
// the radii of curvature of the source ellipsoid there.
struct LocalPoint {
    double sphi, cphi;
    double north, east, up; // metres
    double m, n, w;         // meridian and prime-vertical radii, w = sqrt(1 - e2 sin^2 phi)
    double h;
};

inline LocalPoint local_point(const MolodenskyShift &s, double phi, double lam, double h)
{
    const double sphi = std::sin(phi), cphi = std::cos(phi);
    const double slam = std::sin(lam), clam = std::cos(lam);
    LocalPoint p;
    p.sphi = sphi;
    p.cphi = cphi;
    p.north = -s.tx * sphi * clam - s.ty * sphi * slam + s.tz * cphi;
    p.east = -s.tx * slam + s.ty * clam;
    p.up = s.tx * cphi * clam + s.ty * cphi * slam + s.tz * sphi;
    p.m = gx_m(s.a, s.e2, phi);
    p.n = gx_n(s.a, s.e2, phi);
    p.w = gx_w(s.e2, phi);
    p.h = h;
    return p;
}

// The change of longitude for an eastward shift `east` on a parallel of radius
// radius * cos(phi); none at a pole, where every longitude names the same point.
inline double longitude_change(double east, double radius, double cphi)
{
    const bool at_pole = std::fabs(cphi) <= (1.0 + std::fabs(cphi) / 2.0) * kTol;
    return at_pole ? 0.0 : east / (radius * cphi);
}

struct GeodeticChange {
    double phi, lam, h;
};

// The loop of both Molodensky forms: `change` (a callable of the shift and a local point
// giving a GeodeticChange) is added to each point, which is then finished as usual.
template <class Change>
int shift_molodensky(const double ellipsoid1[2], const double ellipsoid2[2], const double parms[16],
                     int n, double *points, double *heights, const Change &change)
{
    const MolodenskyShift s =
        molodensky_shift(ellipsoid_of(ellipsoid1), ellipsoid_of(ellipsoid2), parms);
    for (int i = 0; i < n; ++i) {
        double *point = points + 2 * i;
        const double lam = point[0], phi = point[1], h = heights ? heights[i] : 0.0;
        const GeodeticChange d = change(s, local_point(s, phi, lam, h));
        store_point(point, phi + d.phi, lam + d.lam);
        if (heights)
            heights[i] = h + d.h;
    }
    return n;
}

// The Molodensky inverses are not iterated: the forward formula is applied once from the
// second ellipsoid to the first with the translations negated.
inline int molodensky_reverse(gx_mth_rtn forward, const double ellipsoid1[2],
                              const double ellipsoid2[2], const double parms[16], int n,
                              double *points, double *heights)
{
    double back[parameter_slots] = {};
    back[shift_slot::x_translation] = -parms[shift_slot::x_translation];
    back[shift_slot::y_translation] = -parms[shift_slot::y_translation];
    back[shift_slot::z_translation] = -parms[shift_slot::z_translation];
    return forward(ellipsoid2, ellipsoid1, back, nullptr, n, points, heights, nullptr, nullptr,
                   nullptr);
}

} // namespace gx::geogtran

#endif
