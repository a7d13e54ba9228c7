// gx_complex.cpp -- complex arithmetic in split form, the gx_z family: real and
// imaginary parts in as separate doubles, the result out through two pointers.  The elementary
// functions are those of std::complex (C99 Annex G semantics: principal values, branch cuts
// chosen by the sign of a zero part); the elliptic ones are in gx_zelliptic.cpp.
#include "gridex.h"
#include "projection/gx_math.h"

#include <cmath>
#include <complex>

using namespace gx::math;
using cplx = std::complex<double>;

namespace {

inline void put(cplx z, double *cr, double *ci)
{
    *cr = z.real();
    *ci = z.imag();
}

} // namespace

extern "C" {

GX_API double gx_zabs(double ar, double ai) { return std::hypot(ar, ai); }

GX_API double gx_zarg(double ar, double ai) { return std::atan2(ai, ar); }

GX_API void gx_zmul(double ar, double ai, double br, double bi, double *cr, double *ci)
{
    put(cplx(ar, ai) * cplx(br, bi), cr, ci);
}

GX_API void gx_zdiv(double ar, double ai, double br, double bi, double *cr, double *ci)
{
    put(cplx(ar, ai) / cplx(br, bi), cr, ci);
}

GX_API void gx_zinv(double ar, double ai, double *cr, double *ci)
{
    put(1.0 / cplx(ar, ai), cr, ci);
}

GX_API void gx_zexp(double ar, double ai, double *cr, double *ci)
{
    put(std::exp(cplx(ar, ai)), cr, ci);
}

GX_API void gx_zlog(double ar, double ai, double *cr, double *ci)
{
    put(std::log(cplx(ar, ai)), cr, ci);
}

GX_API void gx_zsqrt(double ar, double ai, double *cr, double *ci)
{
    put(std::sqrt(cplx(ar, ai)), cr, ci);
}

GX_API void gx_zasin(double ar, double ai, double *cr, double *ci)
{
    put(std::asin(cplx(ar, ai)), cr, ci);
}

GX_API void gx_zatan(double ar, double ai, double *cr, double *ci)
{
    put(std::atan(cplx(ar, ai)), cr, ci);
}

GX_API void gx_ztanh(double ar, double ai, double *cr, double *ci)
{
    put(std::tanh(cplx(ar, ai)), cr, ci);
}

GX_API void gx_zatanh(double ar, double ai, double *cr, double *ci)
{
    put(std::atanh(cplx(ar, ai)), cr, ci);
}

GX_API void gx_zsn(double ur, double ui, double m, double *cr, double *ci)
{
    cplx r;
    zsncndn(cplx(ur, ui), m, &r, nullptr, nullptr);
    put(r, cr, ci);
}

GX_API void gx_zcn(double ur, double ui, double m, double *cr, double *ci)
{
    cplx r;
    zsncndn(cplx(ur, ui), m, nullptr, &r, nullptr);
    put(r, cr, ci);
}

GX_API void gx_zdn(double ur, double ui, double m, double *cr, double *ci)
{
    cplx r;
    zsncndn(cplx(ur, ui), m, nullptr, nullptr, &r);
    put(r, cr, ci);
}

GX_API void gx_ziellint2(double ur, double ui, double m, double *cr, double *ci)
{
    put(zepsilon(cplx(ur, ui), m), cr, ci);
}

} // extern "C"
