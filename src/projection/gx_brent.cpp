// gx_brent.cpp -- Brent's root finder on [0, pi/2].
//
// Bisection, secant and inverse quadratic interpolation (R. P. Brent, "Algorithms for
// Minimization without Derivatives", 1973, ch. 4).  The tolerance on x, and the smallest step,
// is (pi/2) * 2^-48; the search stops when half the bracket is within it or |f| <= 2^-48.
#include "gridex.h"
#include "projection/gx_math.h"

#include <cmath>

using namespace gx::math;

extern "C" {

GX_API double gx_zeroin(void *context, double (*f)(double x, void *context))
{
    const double tol = kZeroinTol;
    double a = 0.0, b = kHalfPi;
    double fa = f(a, context), fb = f(b, context);
    double c = a, fc = fa, d = b - a, e = d;
    for (;;) {
        if ((fb > 0.0 && fc > 0.0) || (fb < 0.0 && fc < 0.0)) {
            c = a; // keep the root between b and c
            fc = fa;
            d = e = b - a;
        }
        if (std::fabs(fc) < std::fabs(fb)) { // b is the best estimate
            a = b;
            b = c;
            c = a;
            fa = fb;
            fb = fc;
            fc = fa;
        }
        const double xm = 0.5 * (c - b);
        if (std::fabs(xm) <= tol || std::fabs(fb) <= kTol)
            return b;
        if (std::fabs(e) >= tol && std::fabs(fa) > std::fabs(fb)) {
            double p, q;
            const double s = fb / fa;
            if (a == c) { // secant
                p = 2.0 * xm * s;
                q = 1.0 - s;
            } else { // inverse quadratic interpolation
                const double qa = fa / fc, r = fb / fc;
                p = s * (2.0 * xm * qa * (qa - r) - (b - a) * (r - 1.0));
                q = (qa - 1.0) * (r - 1.0) * (s - 1.0);
            }
            if (p > 0.0)
                q = -q;
            else
                p = -p;
            if (2.0 * p < std::fmin(3.0 * xm * q - std::fabs(tol * q), std::fabs(e * q))) {
                e = d;
                d = p / q;
            } else { // interpolation failed: bisect
                d = xm;
                e = d;
            }
        } else {
            d = xm;
            e = d;
        }
        a = b;
        fa = fb;
        b += std::fabs(d) > tol ? d : std::copysign(tol, xm);
        fb = f(b, context);
    }
}

} // extern "C"
