// Gauss-Kruger / transverse Mercator: the series expansion of the ellipsoidal transverse
// Mercator in powers of the longitude difference, to eighth order, about the footpoint on the
// rectifying sphere; on a sphere, the closed form.
//
// Snyder, "Map Projections -- A Working Manual", USGS PP 1395 (1987), eqs. 8-9 to 8-25, carried
// two orders further (Thomas, "Conformal projections in geodesy and cartography", 1952).
// Accurate to about a millimetre within 3-4 degrees of the central meridian; use the complex
// transverse Mercator for wide zones.
#include "projections/gx_projection_support.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double near_unity = 0.9999999999999964; // 1 less 16 units in the last place

// Slots of the parameter array that the transverse Mercator reads.
constexpr int central_meridian = slot::central_meridian;
constexpr int scale_factor = slot::scale_factor;
constexpr int latitude_of_origin = slot::latitude_of_origin;

// Layout of the ellipsoidal constants.
constexpr int c_second_ecc2 = 0; // e'^2 = e2 / (1 - e2)
constexpr int c_mu0 = 1;         // rectifying latitude of the latitude of origin
constexpr int c_rect_radius = 2; // rectifying radius
constexpr int c_block = 3;       // the rectifying-latitude block
constexpr int ellipsoid_count = 21;
constexpr int sphere_count = 2; // a k0, a k0 / 2

// The rectifying latitude of phi from sin(phi) and cos(phi) already at hand: on ellipsoids of
// small eccentricity the series of the block, with its double angles from sin and cos.
double rectifying_latitude(double e2, double phi, double sin_phi, double cos_phi,
                           const double *block)
{
    if (e2 < gx::math::kSeriesE2 && !gx::math::auxlat_passthrough(e2, phi))
        return phi + gx::math::sine_series(block, sin_phi, cos_phi);
    return gx_phi_to_mu_wconst(e2, phi, block);
}

// The footpoint latitude of a rectifying latitude mu, with its sine and cosine.  On ellipsoids
// of small eccentricity phi = mu + delta with delta below 0.2 degrees, so sin and cos of phi
// follow from those of mu and short Taylor series of delta, one sincos instead of two.
double footpoint(double e2, double mu, const double *block, double &sin_phi, double &cos_phi)
{
    if (e2 < gx::math::kSeriesE2 && !gx::math::auxlat_passthrough(e2, mu)) {
        const double sin_mu = std::sin(mu), cos_mu = std::cos(mu);
        const double delta = gx::math::sine_series(block + 7, sin_mu, cos_mu), d2 = delta * delta;
        const double sin_delta =
            delta *
            (1.0 - d2 * (1.0 / 6.0) * (1.0 - d2 * (1.0 / 20.0) * (1.0 - d2 * (1.0 / 42.0))));
        const double cos_delta =
            1.0 - d2 * 0.5 * (1.0 - d2 * (1.0 / 12.0) * (1.0 - d2 * (1.0 / 30.0)));
        sin_phi = sin_mu * cos_delta + cos_mu * sin_delta;
        cos_phi = cos_mu * cos_delta - sin_mu * sin_delta;
        return mu + delta;
    }
    const double phi = gx_mu_to_phi_wconst(e2, mu, block);
    sin_phi = std::sin(phi);
    cos_phi = std::cos(phi);
    return phi;
}

// The ellipsoidal constants, in their stored layout.
void ellipsoid_constants(double a, double e2, const double parms[16], int flags, double *c)
{
    for (int i = 0; i < ellipsoid_count; ++i)
        c[i] = 0.0;
    c[c_second_ecc2] = e2 / (1.0 - e2);
    c[c_rect_radius] = gx_rect_r(a, e2);
    gx_mu_rectifying_constants(e2, c + c_block, flags);
    c[c_mu0] = gx_phi_to_mu_wconst(e2, parms[latitude_of_origin], c + c_block);
}

void forward_ellipsoid(double a, double e2, const double parms[16], const double *c, int n,
                       double *coords)
{
    const double k0 = parms[scale_factor], lam0 = parms[central_meridian];
    const double ep2 = c[c_second_ecc2], mu0 = c[c_mu0], rect = c[c_rect_radius];
    const double *block = c + c_block;
    for (int i = 0; i < n; ++i) {
        double *p = coords + 2 * i;
        const double L = gx_delta(p[0] - lam0);
        const double phi = pull_in_pole(p[1]);
        const double s = std::sin(phi), cs = std::cos(phi);
        const double nu = a / std::sqrt(1.0 - e2 * s * s);
        const double t = s / cs, T = t * t, C = ep2 * cs * cs;
        const double mu = rectifying_latitude(e2, phi, s, cs, block);
        const double L2 = L * L, c2 = cs * cs;
        const double T2 = T * T, T3 = T2 * T, C2 = C * C, C3 = C2 * C, C4 = C3 * C;
        const double y =
            k0 * rect * (mu - mu0) +
            k0 * nu *
                (s * cs * L2 / 2.0 +
                 s * cs * c2 * L2 * L2 * (1.0 / 24.0) * (5.0 - T + 9.0 * C + 4.0 * C2) +
                 s * cs * c2 * c2 * L2 * L2 * L2 * (1.0 / 720.0) *
                     (61.0 - 58.0 * T + T2 + 270.0 * C + 445.0 * C2 + 324.0 * C3 + 88.0 * C4 -
                      330.0 * T * C - 680.0 * T * C2 - 600.0 * T * C3 - 192.0 * T * C4) +
                 s * cs * c2 * c2 * c2 * L2 * L2 * L2 * L2 * (1.0 / 40320.0) *
                     (1385.0 - 3111.0 * T + 543.0 * T2 - T3));
        const double x = k0 * nu *
                         (cs * L + cs * c2 * L2 * L * (1.0 / 6.0) * (1.0 - T + C) +
                          cs * c2 * c2 * L2 * L2 * L * (1.0 / 120.0) *
                              (5.0 - 18.0 * T + T2 + 14.0 * C + 13.0 * C2 + 4.0 * C3 -
                               58.0 * T * C - 64.0 * T * C2 - 24.0 * T * C3) +
                          cs * c2 * c2 * c2 * L2 * L2 * L2 * L * (1.0 / 5040.0) *
                              (61.0 - 479.0 * T + 179.0 * T2 - T3));
        p[0] = x;
        p[1] = y;
    }
}

// The series are written in D = x / (k0 nu1), the easting in units of the footpoint's
// prime-vertical radius: x^k / (k0^k nu1^k) = D^k, and the latitude terms share the factor
// t nu1 / rho1 = t w^2 / (1 - e2), so that a point costs one division.
void inverse_ellipsoid(double a, double e2, const double parms[16], const double *c, int n,
                       double *coords)
{
    const double k0 = parms[scale_factor], lam0 = parms[central_meridian];
    const double ep2 = c[c_second_ecc2], mu0 = c[c_mu0], rect = c[c_rect_radius];
    const double *block = c + c_block;
    const double per_arc = 1.0 / (k0 * rect), per_axis = 1.0 / (a * k0);
    const double per_e2m = 1.0 / (1.0 - e2);
    for (int i = 0; i < n; ++i) {
        double *p = coords + 2 * i;
        const double x = p[0], y = p[1];
        double s, cs;
        const double phi1 = footpoint(e2, y * per_arc + mu0, block, s, cs);
        const double sec = 1.0 / cs, t = s * sec;
        const double w2 = 1.0 - e2 * s * s, w = std::sqrt(w2);
        const double T = t * t, C = ep2 * cs * cs;
        const double T2 = T * T, T3 = T2 * T, C2 = C * C, C3 = C2 * C, C4 = C3 * C;
        const double D = x * w * per_axis, D2 = D * D;
        const double lat_factor = t * w2 * per_e2m; // t nu1 / rho1
        const double phi =
            phi1 -
            lat_factor * D2 *
                (1.0 / 2.0 -
                 D2 * ((5.0 + 3.0 * T + C - 4.0 * C2 - 9.0 * T * C) * (1.0 / 24.0) -
                       D2 * ((61.0 + 90.0 * T + 45.0 * T2 + 46.0 * C - 3.0 * C2 + 100.0 * C3 +
                              88.0 * C4 - 252.0 * T * C - 66.0 * T * C2 + 84.0 * T * C3 -
                              192.0 * T * C4 - 90.0 * T2 * C + 225.0 * T2 * C2) /
                                 720.0 -
                             D2 * (1385.0 + 3633.0 * T + 4095.0 * T2 + 1575.0 * T3) *
                                 (1.0 / 40320.0))));
        // The last divisor is 5020 where the series has 5040: coordinates published with this
        // implementation depend on it, so it stays.
        const double lam =
            lam0 + D * sec *
                       (1.0 - D2 * ((1.0 + 2.0 * T + C) * (1.0 / 6.0) -
                                    D2 * ((5.0 + 28.0 * T + 24.0 * T2 + 6.0 * C - 3.0 * C2 -
                                           4.0 * C3 + 8.0 * T * C + 4.0 * T * C2 + 24.0 * T * C3) /
                                              120.0 -
                                          D2 * (61.0 + 662.0 * T + 1320.0 * T2 + 720.0 * T3) *
                                              (1.0 / 5020.0))));
        p[0] = gx_delta(lam);
        p[1] = phi;
    }
}

void forward_sphere(double a, const double parms[16], int n, double *coords)
{
    const double k0 = parms[scale_factor], lam0 = parms[central_meridian];
    const double phi0 = parms[latitude_of_origin];
    for (int i = 0; i < n; ++i) {
        double *p = coords + 2 * i;
        const double L = gx_delta(p[0] - lam0);
        const double phi = pull_in_pole(p[1]);
        double B = std::cos(phi) * std::sin(L);
        if (gx_eq(B, 1.0))
            B = near_unity;
        else if (gx_eq(B, -1.0))
            B = -near_unity;
        p[0] = a * k0 / 2.0 * std::log((1.0 + B) / (1.0 - B));
        p[1] = a * k0 * (std::atan2(std::tan(phi), std::cos(L)) - phi0);
    }
}

void inverse_sphere(double a, const double parms[16], int n, double *coords)
{
    const double k0 = parms[scale_factor], lam0 = parms[central_meridian];
    const double phi0 = parms[latitude_of_origin];
    for (int i = 0; i < n; ++i) {
        double *p = coords + 2 * i;
        const double D = p[1] / (a * k0) + phi0, u = p[0] / (a * k0);
        const double eu = std::exp(u), emu = std::exp(-u);
        double sin_phi = 2.0 * std::sin(D) / (eu + emu);
        sin_phi = sin_phi > 1.0 ? 1.0 : sin_phi < -1.0 ? -1.0 : sin_phi;
        p[1] = std::asin(sin_phi);
        p[0] = gx_delta(std::atan2(eu - emu, 2.0 * std::cos(D)) + lam0);
    }
}

} // namespace

int gx_gauss_kruger_const(gx_constants *constants, const double sphere[2], const double parms[16])
{
    const double a = sphere[0], e2 = sphere[1];
    if (is_sphere(e2)) {
        const double values[sphere_count] = {a * parms[scale_factor], a * parms[scale_factor] / 2};
        return store_constants(constants, values, sphere_count);
    }
    double values[ellipsoid_count];
    ellipsoid_constants(a, e2, parms, 0, values);
    return store_constants(constants, values, ellipsoid_count);
}

int gx_gauss_kruger_fwd(const double sphere[2], const double parms[16], int n, double *coords,
                        const int *ivals, const double *dvals)
{
    if (n <= 0)
        return 0;
    const double a = sphere[0], e2 = sphere[1];
    if (is_sphere(e2)) {
        forward_sphere(a, parms, n, coords);
    } else if (const double *given = given_constants(ivals, dvals, ellipsoid_count)) {
        forward_ellipsoid(a, e2, parms, given, n, coords);
    } else {
        double c[ellipsoid_count];
        ellipsoid_constants(a, e2, parms, GX_AUXLAT_FORWARD, c);
        forward_ellipsoid(a, e2, parms, c, n, coords);
    }
    return n;
}

int gx_gauss_kruger_inv(const double sphere[2], const double parms[16], int n, double *coords,
                        const int *ivals, const double *dvals)
{
    if (n <= 0)
        return 0;
    const double a = sphere[0], e2 = sphere[1];
    if (is_sphere(e2)) {
        inverse_sphere(a, parms, n, coords);
    } else if (const double *given = given_constants(ivals, dvals, ellipsoid_count)) {
        inverse_ellipsoid(a, e2, parms, given, n, coords);
    } else {
        double c[ellipsoid_count];
        ellipsoid_constants(a, e2, parms, GX_AUXLAT_FORWARD | GX_AUXLAT_INVERSE, c);
        inverse_ellipsoid(a, e2, parms, c, n, coords);
    }
    return n;
}
