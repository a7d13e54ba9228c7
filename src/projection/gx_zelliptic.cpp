// gx_zelliptic.cpp -- Jacobi elliptic functions and Jacobi's epsilon function (the incomplete
// elliptic integral of the second kind in terms of u) for a complex argument w = u + iv and a
// real parameter 0 <= m <= 1; the exact transverse Mercator (Lee 1976) maps through them.
// With s, c, d = sn, cn, dn(u | m), s1, c1, d1 = sn, cn, dn(v | 1 - m) and
// D = c1^2 + m s^2 s1^2:
//
//   sn(w) = (s d1 + i c d s1 c1) / D           (Abramowitz and Stegun 16.21.1-4)
//   cn(w) = (c c1 - i s d s1 d1) / D
//   dn(w) = (d c1 d1 - i m s c s1) / D
//   E(w)  = E(u) + m s c d s1^2 / D + i (v - E(v | 1 - m) + s1 c1 d1 d^2 / D)
//
// The last line is the addition theorem E(u + iv) = E(u) + E(iv) - m sn(u) sn(iv) sn(u + iv)
// with Jacobi's imaginary transformation E(iv | m) = i (v - E(v | 1-m) + sn dn / cn (v | 1-m)),
// combined so that the pole of sc(v | 1 - m) at v = K' cancels; D vanishes only at the poles of
// sn, u = 2jK, v = (2k+1)K'.
#include "projection/gx_math.h"

#include <cmath>

namespace gx::math {

void zsncndn(std::complex<double> w, double m, std::complex<double> *sn, std::complex<double> *cn,
             std::complex<double> *dn)
{
    const double mc = 1.0 - m;
    double s, c, d, s1, c1, d1;
    sncndn(w.real(), m, mc, &s, &c, &d, nullptr);
    sncndn(w.imag(), mc, m, &s1, &c1, &d1, nullptr);
    const double D = c1 * c1 + m * s * s * s1 * s1;
    if (sn)
        *sn = {s * d1 / D, c * d * s1 * c1 / D};
    if (cn)
        *cn = {c * c1 / D, -s * d * s1 * d1 / D};
    if (dn)
        *dn = {d * c1 * d1 / D, -m * s * c * s1 / D};
}

std::complex<double> zepsilon(std::complex<double> w, double m)
{
    const double mc = 1.0 - m;
    const double u = w.real(), v = w.imag();
    double s, c, d, s1, c1, d1;
    sncndn(u, m, mc, &s, &c, &d, nullptr);
    sncndn(v, mc, m, &s1, &c1, &d1, nullptr);
    const double D = c1 * c1 + m * s * s * s1 * s1;
    const double re = epsilon(u, m, mc) + m * s * c * d * s1 * s1 / D;
    const double im = v - epsilon(v, mc, m) + s1 * c1 * d1 * d * d / D;
    return {re, im};
}

} // namespace gx::math
