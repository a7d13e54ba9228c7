// gx_dcomp.cpp -- complex arithmetic on the gx_dcomp record (real, imaginary), the gx_dcomp_
// family.  Same mathematics as the gx_z family: std::complex for the elementary
// functions, gx_zelliptic.cpp for the elliptic ones.
#include "gridex.h"
#include "projection/gx_math.h"

#include <cmath>
#include <complex>

using namespace gx::math;
using cplx = std::complex<double>;

namespace {

inline cplx in(gx_dcomp z) { return {z.re, z.im}; }
inline gx_dcomp out(cplx z) { return gx_dcomp{z.real(), z.imag()}; }

} // namespace

extern "C" {

GX_API double gx_dcomp_abs(gx_dcomp z) { return std::hypot(z.re, z.im); }
GX_API double gx_dcomp_arg(gx_dcomp z) { return std::atan2(z.im, z.re); }
GX_API gx_dcomp gx_dcomp_add(gx_dcomp a, gx_dcomp b) { return gx_dcomp{a.re + b.re, a.im + b.im}; }
GX_API gx_dcomp gx_dcomp_sub(gx_dcomp a, gx_dcomp b) { return gx_dcomp{a.re - b.re, a.im - b.im}; }
GX_API gx_dcomp gx_dcomp_mult(gx_dcomp a, gx_dcomp b) { return out(in(a)*in(b)); }
GX_API gx_dcomp gx_dcomp_div(gx_dcomp a, gx_dcomp b) { return out(in(a) / in(b)); }
GX_API gx_dcomp gx_dcomp_conjg(gx_dcomp z) { return gx_dcomp{z.re, -z.im}; }
GX_API gx_dcomp gx_dcomp_exp(gx_dcomp z) { return out(std::exp(in(z))); }
GX_API gx_dcomp gx_dcomp_inv(gx_dcomp z) { return out(1.0 / in(z)); }
GX_API gx_dcomp gx_dcomp_log(gx_dcomp z) { return out(std::log(in(z))); }
GX_API gx_dcomp gx_dcomp_sqrt(gx_dcomp z) { return out(std::sqrt(in(z))); }
GX_API gx_dcomp gx_dcomp_sin(gx_dcomp z) { return out(std::sin(in(z))); }
GX_API gx_dcomp gx_dcomp_asin(gx_dcomp z) { return out(std::asin(in(z))); }
GX_API gx_dcomp gx_dcomp_cos(gx_dcomp z) { return out(std::cos(in(z))); }
GX_API gx_dcomp gx_dcomp_tan(gx_dcomp z) { return out(std::tan(in(z))); }
GX_API gx_dcomp gx_dcomp_atan(gx_dcomp z) { return out(std::atan(in(z))); }
GX_API gx_dcomp gx_dcomp_cosh(gx_dcomp z) { return out(std::cosh(in(z))); }
GX_API gx_dcomp gx_dcomp_sinh(gx_dcomp z) { return out(std::sinh(in(z))); }
GX_API gx_dcomp gx_dcomp_tanh(gx_dcomp z) { return out(std::tanh(in(z))); }
GX_API gx_dcomp gx_dcomp_atanh(gx_dcomp z) { return out(std::atanh(in(z))); }

GX_API gx_dcomp gx_dcomp_sn(gx_dcomp z, double m)
{
    cplx r;
    zsncndn(in(z), m, &r, nullptr, nullptr);
    return out(r);
}

GX_API gx_dcomp gx_dcomp_cn(gx_dcomp z, double m)
{
    cplx r;
    zsncndn(in(z), m, nullptr, &r, nullptr);
    return out(r);
}

GX_API gx_dcomp gx_dcomp_dn(gx_dcomp z, double m)
{
    cplx r;
    zsncndn(in(z), m, nullptr, nullptr, &r);
    return out(r);
}

GX_API gx_dcomp gx_dcomp_iellint2(gx_dcomp z, double m) { return out(zepsilon(in(z), m)); }

} // extern "C"
