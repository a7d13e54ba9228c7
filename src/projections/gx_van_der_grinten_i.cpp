// gx_van_der_grinten_i.cpp -- Van der Grinten's first projection: the whole sphere in a circle,
// meridians and parallels arcs of circles; and its auxiliary-sphere form.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder 1987, "Map Projections -- A Working
// Manual", eqs. 29-1 to 29-9 (forward), with theta = asin|2 phi / pi|,
// A = |pi/lambda - lambda/pi| / 2, G = cos theta / (sin theta + cos theta - 1),
// P = G (2 / sin theta - 1), Q = A^2 + G:
//   x = +-pi (A (G - P^2) + sqrt(A^2 (G - P^2)^2 - (P^2 + A^2)(G^2 - P^2))) / (P^2 + A^2),
//   y = +-pi (P Q - A sqrt((A^2 + 1)(P^2 + A^2) - Q^2)) / (P^2 + A^2),
// the equator (y = 0, x = lambda), the central meridian and the poles (x = 0,
// y = +-pi tan(theta / 2)) taken apart.  The inverse is the closed solution of a cubic
// (eqs. 29-10 to 29-19): with X = x / pi, Y = y / pi,
//   c1 = -|Y| (1 + X^2 + Y^2),  c2 = c1 - 2 Y^2 + X^2,
//   c3 = -2 c1 + 1 + 2 Y^2 + (X^2 + Y^2)^2,
//   d = Y^2 / c3 + (2 c2^3 / c3^3 - 9 c1 c2 / c3^2) / 27,  a1 = (c1 - c2^2 / (3 c3)) / c3,
//   m1 = 2 sqrt(-a1 / 3),  theta1 = acos(3 d / (a1 m1)) / 3,
//   phi = +-pi (-m1 cos(theta1 + pi/3) - c2 / (3 c3)),
//   lambda = pi (X^2 + Y^2 - 1 + sqrt(1 + 2 (X^2 - Y^2) + (X^2 + Y^2)^2)) / (2 X).
// The map is the disc X^2 + Y^2 <= 1; a point outside fails.  On an ellipsoidal datum the
// sphere has the authalic radius (the definition of the world Van der Grinten systems); no
// constants setup (the auxiliary-sphere form has one).
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

// Below this size (radians) a latitude is the equator and a longitude the central meridian.
constexpr double kAxisTol = 1e-15;

struct VanDerGrintenFormulas {
    explicit VanDerGrintenFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        if (std::fabs(phi) <= kAxisTol) {
            *x = lam;
            *y = 0.0;
            return true;
        }
        double sin_theta = std::fabs(phi) / kHalfPi;
        within_outline(&sin_theta, 1.0);
        const double theta = std::asin(sin_theta);
        if (std::fabs(lam) <= kAxisTol || at_pole(phi)) {
            *x = 0.0;
            *y = std::copysign(kPi * std::tan(0.5 * theta), phi);
            return true;
        }
        const double cos_theta = std::cos(theta);
        const double a = 0.5 * std::fabs(kPi / lam - lam / kPi);
        const double g = cos_theta / (sin_theta + cos_theta - 1.0);
        const double p = g * (2.0 / sin_theta - 1.0);
        const double q = a * a + g;
        const double a2 = a * a, p2 = p * p, g_p2 = g - p2, denominator = p2 + a2;
        // (A^2 + 1)(P^2 + A^2) - Q^2 expanded, so that the A^4 terms cancel exactly (A grows
        // without bound near the central meridian); the root of x is then |P| sqrt(e).
        const double e = std::fmax(0.0, a2 * (p2 + 1.0 - 2.0 * g) + p2 - g * g);
        const double root_e = std::sqrt(e), root_x = std::fabs(p) * root_e;
        // A (G - P^2) + |P| sqrt(e) = (P^2 + A^2)(P^2 - G^2) / (|P| sqrt(e) - A (G - P^2)):
        // the second form where the first would cancel
        const double x_abs = a * g_p2 >= 0.0 ? kPi * (a * g_p2 + root_x) / denominator
                                             : kPi * (p2 - g * g) / (root_x - a * g_p2);
        *x = std::copysign(x_abs, lam);
        *y = std::copysign(kPi * (p * q - a * root_e) / denominator, phi);
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        const double big_x = x / kPi, big_y = y / kPi;
        const double x2 = big_x * big_x, y2 = big_y * big_y, r2 = x2 + y2;
        double outline = r2;
        if (!within_outline(&outline, 1.0))
            return false;
        double p = 0.0;
        if (std::fabs(big_y) > kAxisTol) {
            const double c1 = -std::fabs(big_y) * (1.0 + r2);
            const double c2 = c1 - 2.0 * y2 + x2;
            const double c3 = -2.0 * c1 + 1.0 + 2.0 * y2 + r2 * r2;
            const double d =
                y2 / c3 + (2.0 * c2 * c2 * c2 / (c3 * c3 * c3) - 9.0 * c1 * c2 / (c3 * c3)) / 27.0;
            const double a1 = (c1 - c2 * c2 / (3.0 * c3)) / c3;
            const double m1 = 2.0 * std::sqrt(-a1 / 3.0);
            double cos_3theta1 = 3.0 * d / (a1 * m1);
            within_outline(&cos_3theta1, 1.0);
            const double theta1 = std::acos(cos_3theta1) / 3.0;
            p = kPi * (-m1 * std::cos(theta1 + kPi / 3.0) - c2 / (3.0 * c3));
            if (!within_outline(&p, kHalfPi))
                return false;
            p = std::copysign(p, big_y);
        }
        double l = 0.0;
        if (std::fabs(big_x) > kAxisTol) {
            const double root = std::sqrt(std::fmax(0.0, 1.0 + 2.0 * (x2 - y2) + r2 * r2));
            l = kPi * (r2 - 1.0 + root) / (2.0 * big_x);
            if (!within_outline(&l, kPi))
                return false;
        }
        polish(x, y, &l, &p);
        *lam = l;
        *phi = p;
        return true;
    }

    // The closed inverse loses up to a few 1e-9 of the radius near the bounding circle, where
    // the cubic's roots close in; two Newton steps on the forward (central-difference Jacobian)
    // restore full precision.
    static void polish(double x, double y, double *lam, double *phi)
    {
        if (std::fabs(*lam) <= kAxisTol || std::fabs(*phi) <= kAxisTol || at_pole(*phi))
            return;
        constexpr double h = 1e-7;
        for (int i = 0; i < 2; ++i) {
            double fx = 0.0, fy = 0.0, xl1 = 0.0, yl1 = 0.0, xl0 = 0.0, yl0 = 0.0;
            double xp1 = 0.0, yp1 = 0.0, xp0 = 0.0, yp0 = 0.0;
            const double l = *lam, p = *phi;
            const double pl = std::fmin(kPi, l + h), ml = std::fmax(-kPi, l - h);
            const double pp = std::fmin(kHalfPi, p + h), mp = std::fmax(-kHalfPi, p - h);
            forward(l, p, &fx, &fy);
            forward(pl, p, &xl1, &yl1);
            forward(ml, p, &xl0, &yl0);
            forward(l, pp, &xp1, &yp1);
            forward(l, mp, &xp0, &yp0);
            const double x_lam = (xl1 - xl0) / (pl - ml), y_lam = (yl1 - yl0) / (pl - ml);
            const double x_phi = (xp1 - xp0) / (pp - mp), y_phi = (yp1 - yp0) / (pp - mp);
            const double det = x_lam * y_phi - x_phi * y_lam;
            if (!(std::fabs(det) > 0.0))
                return;
            const double dx = fx - x, dy = fy - y;
            *lam = std::fmax(-kPi, std::fmin(kPi, l - (dx * y_phi - dy * x_phi) / det));
            *phi = std::fmax(-kHalfPi, std::fmin(kHalfPi, p - (dy * x_lam - dx * y_lam) / det));
        }
    }
};

using VanDerGrintenI = PerCallWorldProjection<VanDerGrintenFormulas, WorldSphere::Authalic>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(van_der_grinten_i, VanDerGrintenI)

GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(van_der_grinten_i, VanDerGrintenI)
