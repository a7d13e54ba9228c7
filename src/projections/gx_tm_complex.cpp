// gx_tm_complex.cpp -- the exact ellipsoidal transverse Mercator, through complex Jacobi elliptic
// functions, valid at any distance from the central meridian.
//
// E. H. Thompson's construction as given by L. P. Lee, "Conformal projections based on elliptic
// functions", Cartographica Monograph 16 (1976), and worked out numerically by C. F. F. Karney,
// "Transverse Mercator with an accuracy of a few nanometers", J. Geodesy 85 (2011), section 3.
// With the parameter m = e2 of the Jacobi functions and zeta = u + iv, Lee's elliptic coordinate,
//
//   w(zeta)     = psi + i lambda = atanh(sn) - e atanh(e sn),   dw/dzeta     = (1 - e2)/(cn dn)
//   sigma(zeta) = E(zeta) - e2 sn cn / dn,                      dsigma/dzeta = (1 - e2)/dn^2
//
// with sn, cn, dn of zeta, psi the isometric latitude and E(zeta) Jacobi's epsilon function.  On
// the central meridian (v = 0) sn zeta = sin phi, and sigma is the meridian arc
// E(phi | e2) - e2 sin phi cos phi / sqrt(1 - e2 sin^2 phi) of the ellipsoid of unit equatorial
// radius, so sigma scaled by a k0 is the transverse Mercator plane: northing = a k0 Re sigma,
// easting = a k0 Im sigma.
//
// The forward solves w(zeta) = psi + i lambda for zeta by Newton's method and evaluates sigma; the
// inverse solves sigma(zeta) = (northing + i easting)/(a k0) and evaluates w.  Both work in the
// quadrant phi >= 0, 0 <= lambda <= 90 degrees, which Lee's coordinate covers with the rectangle
// 0 <= u <= K, 0 <= v <= K' (K = K(e2), K' = K(1 - e2), E and E' likewise); the rectangle also
// holds a strip south of the equator near lambda = 90 degrees, which the inverse rejects.  The
// other quadrants follow by symmetry, and the far hemisphere (more than 90 degrees from the
// central meridian) by reflection in the meridian 90 degrees away, northing y -> 2 a k0 E - y.
//
// The rectangle has a branch point at zeta = iK', the image of the equator at lambda = (1 - e)
// 90 degrees, where both derivatives vanish to second order:
//   w - i (1 - e) pi/2 ~ -(1 - e2) e delta^3 / 3,   sigma - i (K' - E') ~ -(1 - e2) delta^3 / 3,
// delta = zeta - iK'.  The equator beyond it is a cut of the projection (points just north and
// just south of it map apart), which ends 90 degrees from the central meridian.  The branch
// point, and the end of the cut, where the near side's equator (taken with the north) and the far
// side's (taken with the south, as GeographicLib does) meet, are not carried.
//
// Numerics.  psi = asinh(tan chi) = atanh(sin chi) through the conformal latitude chi, and w is
// evaluated as asinh(sn/cn) - e asinh(e sn/dn): the same functions as the atanh form, without the
// loss of 1 - sn near the poles; towards the pole sn, cn, dn come from the quarter-period shift.
// Newton's method starts from the Gauss-Schreiber transverse Mercator of the conformal sphere,
// zeta = asin(tanh w) (forward), or from sigma K/E (inverse), exact at the poles and a factor of
// about 1 - e2/2 off near the origin; near the branch point from the cube root of the expansions
// above.  The forward iterates on exp(-w) rather than w: near the pole w has a logarithmic
// singularity, exp(-w) is linear in zeta - K, and plain steps on w overshoot the pole.  The
// iterate is kept in the rectangle, sqrt(eps) below its upper edge (off the branch point and the
// corner K + iK', where dn = 0 and sigma has a pole).  It has converged when a correction is no
// larger than eps; one more step then leaves an error at the rounding of double precision (the
// convergence is quadratic), and the solution is accepted when that step's residual is within
// 2 eps, which rejects a small correction made small by a vanishing derivative factor rather
// than by a small residual.  eps is the unit roundoff of single precision.
//
// Constants record:  sphere     2: [0] a k0, [1] a k0 / 2 (those of the spherical Gauss-Kruger)
//                    ellipsoid 25: [0] a k0, [1] 1 - e2, [2] e, [3] eps, [4] 2 eps,
//                                  [5] sqrt(eps), [6] y0 = northing of the latitude of origin,
//                                  [7..22] conformal-latitude block, [23..24] zero
#include "projections/gx_projection_support.h"

#include <algorithm>
#include <cmath>
#include <complex>

namespace {

using namespace gx::projections;
using cplx = std::complex<double>;

// Slots of the parameter array that the transverse Mercator reads.
constexpr int central_meridian = slot::central_meridian;
constexpr int scale_factor = slot::scale_factor;
constexpr int latitude_of_origin = slot::latitude_of_origin;

// Layout of the ellipsoidal constants.
constexpr int c_scale = 0;           // a k0
constexpr int c_one_minus_e2 = 1;    // 1 - e2, the complementary parameter
constexpr int c_eccentricity = 2;    // e
constexpr int c_eps = 3;             // unit roundoff of single precision
constexpr int c_two_eps = 4;         // 2 eps
constexpr int c_sqrt_eps = 5;        // sqrt(eps)
constexpr int c_origin_northing = 6; // y0, subtracted from every northing
constexpr int c_block = 7;           // the conformal-latitude block, 16 doubles
constexpr int ellipsoid_count = 25;

// The distance from the branch point, in Lee's coordinate, within which Newton's method starts
// from the cubic expansion about it.  Mapping the convergence over the globe for flattenings from
// 1/10 to 1/10^6: below 2, points near the meridian 90 degrees away fail or converge to the
// wrong point; from 2 to 3 every point converges.
constexpr double branch_start_radius = 2.5;
// A generous bound: where the iterations converge they take at most 8 steps, polish included.
constexpr int max_newton_steps = 20;

// The unit roundoff of single precision: 1.0 halved until adding it to 1.0 no longer changes 1.0.
constexpr float single_precision_epsilon()
{
    float eps = 1.0f;
    while (1.0f + eps != 1.0f)
        eps *= 0.5f;
    return eps;
}
static_assert(single_precision_epsilon() == 0x1p-24f);

// The ellipsoid and the zone of one call: the stored constants, and the complete integrals that
// bound Lee's rectangle.
struct Lee {
    double scale; // a k0
    double m, mc; // e2 and 1 - e2: the parameter of the Jacobi functions and its complement
    double e;     // eccentricity
    double kc;    // sqrt(1 - e2), the complementary modulus
    double K, Kc; // K and K' = K(1 - e2): the rectangle 0 <= u <= K, 0 <= v <= K'
    double E;     // E(e2): the quarter meridian of the unit ellipsoid
    double eps, two_eps, sqrt_eps;
    double y0;           // northing of the latitude of origin
    const double *block; // conformal-latitude block
    cplx w_branch;       // w at the branch point, i (1 - e) pi/2
    cplx sigma_branch;   // sigma at the branch point, i (K' - E')
};

Lee frame(const double *c, double e2)
{
    Lee lee{};
    lee.scale = c[c_scale];
    lee.m = e2;
    lee.mc = c[c_one_minus_e2];
    lee.e = c[c_eccentricity];
    lee.kc = std::sqrt(lee.mc);
    lee.K = gx_ellint1(lee.m);
    lee.Kc = gx_ellint1(lee.mc);
    lee.E = gx_ellint2(lee.m);
    lee.eps = c[c_eps];
    lee.two_eps = c[c_two_eps];
    lee.sqrt_eps = c[c_sqrt_eps];
    lee.y0 = c[c_origin_northing];
    lee.block = c + c_block;
    lee.w_branch = {0.0, (1.0 - lee.e) * kHalfPi};
    lee.sigma_branch = {0.0, lee.Kc - gx_ellint2(lee.mc)};
    return lee;
}

bool finite(cplx z) { return std::isfinite(z.real()) && std::isfinite(z.imag()); }

// exp(z) - 1 without cancellation for small z: (e^x - 1) cos y - 2 sin^2(y/2) + i e^x sin y.
cplx expm1(cplx z)
{
    const double half_sin = std::sin(0.5 * z.imag());
    return {std::expm1(z.real()) * std::cos(z.imag()) - 2.0 * half_sin * half_sin,
            std::exp(z.real()) * std::sin(z.imag())};
}

// ---- the two maps from Lee's coordinate ------------------------------------------------------
// zsncndn and zepsilon are the C++ forms behind gx_dcomp_sn, _cn, _dn and gx_dcomp_iellint2; one
// call gives all three Jacobi functions.

struct Jacobi {
    cplx sn, cn, dn;
};

// sn, cn, dn of zeta.  In the half of the rectangle towards the pole (u > K/2) they come from
// t = K - zeta by the quarter-period shift, sn(K - t) = cd t, cn(K - t) = k' sd t and
// dn(K - t) = k' nd t (k' = sqrt(1 - e2)), which keeps the relative accuracy and the sign of cn,
// small near the pole.
Jacobi jacobi(const Lee &lee, cplx zeta)
{
    Jacobi j;
    if (zeta.real() <= 0.5 * lee.K) {
        gx::math::zsncndn(zeta, lee.m, &j.sn, &j.cn, &j.dn);
        return j;
    }
    cplx sn_t, cn_t, dn_t;
    gx::math::zsncndn(lee.K - zeta, lee.m, &sn_t, &cn_t, &dn_t);
    j.sn = cn_t / dn_t;
    j.cn = lee.kc * sn_t / dn_t;
    j.dn = lee.kc / dn_t;
    return j;
}

// psi + i lambda = atanh(sn) - e atanh(e sn).  sc zeta = sn/cn has a non-negative real part on
// the rectangle, and along the meridian 90 degrees away (u = K) it is imaginary and beyond i, on
// the cut of asinh: its real part is taken as +0 or more, so that asinh takes its value from the
// rectangle's side of the cut whatever the sign of the rounding.
cplx isometric(const Lee &lee, const Jacobi &j)
{
    const cplx sc = j.sn / j.cn;
    return std::asinh(cplx(std::fabs(sc.real()), sc.imag())) -
           lee.e * std::asinh(lee.e * j.sn / j.dn);
}

// sigma = E(zeta) - e2 sn cn / dn.
cplx plane(const Lee &lee, cplx zeta, const Jacobi &j)
{
    return gx::math::zepsilon(zeta, lee.m) - lee.m * j.sn * j.cn / j.dn;
}

// ---- Newton's method on the rectangle --------------------------------------------------------

cplx clamp_to_rectangle(const Lee &lee, cplx zeta)
{
    return {std::clamp(zeta.real(), 0.0, lee.K),
            std::clamp(zeta.imag(), 0.0, lee.Kc - lee.sqrt_eps)};
}

// zeta - correction, kept in the rectangle.  A step that would end on the pole, K, where cn = 0,
// goes half way to it instead: the iterate reaches the pole only as a limit.
cplx newton_update(const Lee &lee, cplx zeta, cplx correction)
{
    const cplx next = clamp_to_rectangle(lee, zeta - correction);
    if (next == cplx(lee.K, 0.0))
        return {0.5 * (zeta.real() + lee.K), 0.0};
    return next;
}

// The distance from the branch point at which f - f_branch ~ -c delta^3 / 3, and the starting
// point there: of the three cube roots, the one in the rectangle, arg delta in [-pi/2, -pi/6]
// (the image of the northern half plane Re(f - f_branch) >= 0).
double branch_distance(cplx offset, double c) { return std::cbrt(3.0 * std::abs(offset) / c); }

cplx branch_start(const Lee &lee, cplx offset, double c)
{
    double arg = std::atan2(-offset.imag(), -offset.real()); // arg(delta^3), folded below
    if (arg > 0.0)
        arg -= 2.0 * kPi;
    return cplx(0.0, lee.Kc) + std::polar(branch_distance(offset, c), arg / 3.0);
}

struct NewtonStep {
    cplx correction; // the Newton correction, subtracted from zeta
    double miss;     // the residual f(zeta) - target as a distance on the unit sphere or plane
};

// Newton's method from zeta for the function whose step step(zeta) computes; zeta receives the
// solution.  False when the iteration does not converge within the rectangle.
template <class Step> bool solve(const Lee &lee, cplx &zeta, Step step)
{
    zeta = clamp_to_rectangle(lee, zeta);
    bool polishing = false;
    for (int k = 0; k < max_newton_steps; ++k) {
        const NewtonStep s = step(zeta);
        if (!finite(s.correction))
            return false;
        zeta = newton_update(lee, zeta, s.correction);
        if (polishing)
            return s.miss <= lee.two_eps;
        polishing = std::abs(s.correction) <= lee.eps;
    }
    return false;
}

// Lee's coordinate of w = psi + i lambda, psi >= 0 and 0 <= lambda <= pi/2.
bool zeta_of_isometric(const Lee &lee, cplx w, cplx &zeta)
{
    const double c = lee.mc * lee.e;
    const cplx offset = w - lee.w_branch;
    zeta = branch_distance(offset, c) < branch_start_radius ? branch_start(lee, offset, c)
                                                            : std::asin(std::tanh(w));
    return solve(lee, zeta, [&](cplx z) {
        const Jacobi j = jacobi(lee, z);
        const cplx r = isometric(lee, j) - w;
        return NewtonStep{expm1(r) * j.cn * j.dn / lee.mc, std::abs(r) / std::cosh(w.real())};
    });
}

// Lee's coordinate of the plane point sigma, 0 <= Re sigma <= E.
bool zeta_of_plane(const Lee &lee, cplx sigma, cplx &zeta)
{
    const cplx offset = sigma - lee.sigma_branch;
    zeta = branch_distance(offset, lee.mc) < branch_start_radius ? branch_start(lee, offset, lee.mc)
                                                                 : sigma * (lee.K / lee.E);
    return solve(lee, zeta, [&](cplx z) {
        const Jacobi j = jacobi(lee, z);
        const cplx r = plane(lee, z, j) - sigma;
        return NewtonStep{r * j.dn * j.dn / lee.mc, std::abs(r)};
    });
}

// ---- points ----------------------------------------------------------------------------------

// Where a point lies relative to the quadrant phi >= 0, 0 <= lambda <= pi/2 that Lee's rectangle
// covers: west and south flip the signs of easting and northing; far_side (more than 90 degrees
// from the central meridian) reflects the northing in the quarter meridian, y -> 2E - y.  The far
// side's equator goes with the south.
struct Side {
    bool west, south, far_side;
};

// The branch point, and the end of the cut 90 degrees from the central meridian, whose two sides
// have different images (the near side's equator goes with the north, the far side's with the
// south), of the quadrant point (lambda, phi).
bool singular(const Lee &lee, double lambda, double phi)
{
    return eq(phi, 0.0) && (eq(lambda, lee.w_branch.imag()) || eq(lambda, kHalfPi));
}

bool forward_point(const Lee &lee, double lambda0, double *point)
{
    double lambda = gx_delta(point[0] - lambda0), phi = point[1];
    if (std::isnan(lambda) || std::isnan(phi))
        return false;
    Side side{lambda < 0.0, phi<0.0, std::fabs(lambda)> kHalfPi};
    lambda = std::fabs(lambda);
    phi = std::fabs(phi);
    if (side.far_side) {
        lambda = kPi - lambda;
        side.south = side.south || phi == 0.0;
    }
    cplx sigma = lee.E; // a pole
    if (!at_pole(phi)) {
        if (singular(lee, lambda, phi))
            return false;
        const double chi = gx_phi_to_chi_wconst(lee.m, phi, lee.block);
        cplx zeta;
        if (!zeta_of_isometric(lee, cplx(std::asinh(std::tan(chi)), lambda), zeta))
            return false;
        sigma = plane(lee, zeta, jacobi(lee, zeta));
    }
    const double y = side.far_side ? 2.0 * lee.E - sigma.real() : sigma.real();
    point[0] = lee.scale * (side.west ? -sigma.imag() : sigma.imag());
    point[1] = lee.scale * (side.south ? -y : y) - lee.y0;
    return true;
}

bool inverse_point(const Lee &lee, double lambda0, double *point)
{
    const double x = point[0] / lee.scale, y = (point[1] + lee.y0) / lee.scale;
    if (std::isnan(x) || std::isnan(y))
        return false;
    Side side{x < 0.0, y<0.0, std::fabs(y)> lee.E};
    cplx sigma(std::fabs(y), std::fabs(x));
    if (sigma.imag() == 0.0 && eq(sigma.real(), lee.E)) { // a pole
        point[0] = lambda0;
        point[1] = side.south ? -kHalfPi : kHalfPi;
        return true;
    }
    if (side.far_side) {
        sigma.real(2.0 * lee.E - sigma.real());
        if (sigma.real() < -lee.two_eps) // beyond the equator of the far side
            return false;
        sigma.real(std::max(sigma.real(), 0.0));
    }
    cplx zeta;
    if (!zeta_of_plane(lee, sigma, zeta))
        return false;
    const cplx w = isometric(lee, jacobi(lee, zeta));
    // A plane point beyond the image of the cut solves to psi < 0, in the rectangle's continuation
    // south of the equator, whose own image lies in the other half plane: no point maps there.
    if (w.real() < -lee.two_eps)
        return false;
    const double chi = std::atan(std::sinh(std::max(w.real(), 0.0)));
    const double phi = gx_chi_to_phi_wconst(lee.m, chi, lee.block);
    const double lambda = side.far_side ? kPi - w.imag() : w.imag();
    point[0] = gx_delta((side.west ? -lambda : lambda) + lambda0);
    point[1] = side.south ? -phi : phi;
    return true;
}

// The ellipsoidal constants, in their stored layout.
void ellipsoid_constants(double a, double e2, const double parms[16], double *c)
{
    std::fill(c, c + ellipsoid_count, 0.0);
    const double eps = single_precision_epsilon();
    c[c_scale] = a * parms[scale_factor];
    c[c_one_minus_e2] = 1.0 - e2;
    c[c_eccentricity] = std::sqrt(e2);
    c[c_eps] = eps;
    c[c_two_eps] = 2.0 * eps;
    c[c_sqrt_eps] = std::sqrt(eps);
    gx_chi_conformal_constants(e2, c + c_block, 0);
    // The latitude of origin maps to northing 0: y0 is the northing, so far unshifted, of the point
    // on the central meridian at that latitude.
    const double phi0 = parms[latitude_of_origin];
    if (std::fabs(phi0) > kTol) {
        double origin[2] = {parms[central_meridian], phi0};
        if (forward_point(frame(c, e2), parms[central_meridian], origin))
            c[c_origin_northing] = origin[1];
    }
}

// Runs convert(lee, lambda0, point) on every point with the constants given or, when there are
// none, computed for this call.
template <class Convert>
int convert_ellipsoid(const double sphere[2], const double parms[16], int n, double *coords,
                      const int *ivals, const double *dvals, Convert convert)
{
    double own[ellipsoid_count];
    const double *c = given_constants(ivals, dvals, ellipsoid_count);
    if (c == nullptr) {
        ellipsoid_constants(sphere[0], sphere[1], parms, own);
        c = own;
    }
    const Lee lee = frame(c, sphere[1]);
    const double lambda0 = parms[central_meridian];
    return convert_points(n, coords, [&](double *point) { return convert(lee, lambda0, point); });
}

} // namespace

int gx_tm_complex_const(gx_constants *constants, const double sphere[2], const double parms[16])
{
    const double a = sphere[0], e2 = sphere[1];
    if (is_sphere(e2)) {
        const double k0 = parms[scale_factor];
        const double values[2] = {a * k0, a * k0 / 2.0};
        return store_constants(constants, values, 2);
    }
    double values[ellipsoid_count];
    ellipsoid_constants(a, e2, parms, values);
    return store_constants(constants, values, ellipsoid_count);
}

// On the sphere both directions are the closed forms of the spherical Gauss-Kruger.
int gx_tm_complex_fwd(const double sphere[2], const double parms[16], int n, double *coords,
                      const int *ivals, const double *dvals)
{
    if (n <= 0)
        return 0;
    if (is_sphere(sphere[1]))
        return gx_gauss_kruger_fwd(sphere, parms, n, coords, ivals, dvals);
    return convert_ellipsoid(sphere, parms, n, coords, ivals, dvals, forward_point);
}

int gx_tm_complex_inv(const double sphere[2], const double parms[16], int n, double *coords,
                      const int *ivals, const double *dvals)
{
    if (n <= 0)
        return 0;
    if (is_sphere(sphere[1]))
        return gx_gauss_kruger_inv(sphere, parms, n, coords, ivals, dvals);
    return convert_ellipsoid(sphere, parms, n, coords, ivals, dvals, inverse_point);
}
