#!/usr/bin/env python3
"""Derive the series coefficients used by src/projection/gx_ellipsoid.cpp and gx_auxlat.cpp.

Exact rational arithmetic (fractions), no guessing:

* meridian arc: (1+n)/a * M(phi) = (1-n^2)^2 * integral_0^phi (1 + 2n cos 2t + n^2)^(-3/2) dt.
  With z = exp(2it), 1 + 2n cos 2t + n^2 = (1 + nz)(1 + n/z), so the integrand is the product of
  two binomial series; its z^0 term integrates to A*phi, its z^l + z^-l terms to (C_l/l) sin 2l phi.
* rectifying latitude: mu = phi + sum (c_l/A) sin 2l phi (mu = pi/2 * M / M90), and its inverse by
  series reversion (fixed-point iteration on Laurent polynomials in z, truncated at n^7).
* the Horner form used by gx_auxlat.cpp: sin 2x * (p0 + p1 t + ... + p6 t^6), t = cos 2x.

Prints the coefficients as exact fractions and as C++ double literals.  Run: python3 derive_series.py
"""
from fractions import Fraction as F

ORDER = 7  # highest power of n kept


def binom(alpha, k):
    r = F(1)
    for j in range(k):
        r = r * (alpha - j) / (j + 1)
    return r


# A series is a dict {(power of n, power of z): Fraction}, truncated at n^ORDER.
def mul(a, b):
    r = {}
    for (pa, za), ca in a.items():
        for (pb, zb), cb in b.items():
            p = pa + pb
            if p > ORDER:
                continue
            k = (p, za + zb)
            r[k] = r.get(k, F(0)) + ca * cb
    return {k: v for k, v in r.items() if v != 0}


def add(a, b, s=1):
    r = dict(a)
    for k, v in b.items():
        r[k] = r.get(k, F(0)) + s * v
    return {k: v for k, v in r.items() if v != 0}


def scal(a, s):
    return {k: v * s for k, v in a.items() if v * s != 0}


def exp_series(a):
    """exp(a) for a series a with no n^0 term."""
    r = {(0, 0): F(1)}
    term = {(0, 0): F(1)}
    for k in range(1, ORDER + 1):
        term = scal(mul(term, a), F(1, k))
        r = add(r, term)
    return r


def poly_n(d):
    """{power of n: Fraction} -> readable string."""
    return " + ".join(f"({v})*n^{p}" for p, v in sorted(d.items())) or "0"


# ---- meridian arc -------------------------------------------------------------------------------
half = F(-3, 2)
integrand = {}
for j in range(ORDER + 1):
    for k in range(ORDER + 1 - j):
        key = (j + k, j - k)
        integrand[key] = integrand.get(key, F(0)) + binom(half, j) * binom(half, k)
one_minus_n2_sq = {(0, 0): F(1), (2, 0): F(-2), (4, 0): F(1)}
integrand = mul(integrand, one_minus_n2_sq)
A = {p: v for (p, z), v in integrand.items() if z == 0}
C = {}  # C[l] = {power: coeff} of sin(2 l phi) in (1+n)/a * M
for (p, z), v in integrand.items():
    if z > 0:
        C.setdefault(z, {})
        C[z][p] = C[z].get(p, F(0)) + v / z

# ---- rectifying latitude ------------------------------------------------------------------------
# 1/A as a power series in n (A has only even powers)
invA = {0: F(1)}
for p in range(1, ORDER + 1):
    s = F(0)
    for q in range(1, p + 1):
        s += A.get(q, F(0)) * invA.get(p - q, F(0))
    invA[p] = -s
mu_fwd = {}
for l, cl in C.items():
    d = {}
    for p1, v1 in cl.items():
        for p2, v2 in invA.items():
            if p1 + p2 <= ORDER:
                d[p1 + p2] = d.get(p1 + p2, F(0)) + v1 * v2
    mu_fwd[l] = {p: v for p, v in d.items() if v != 0}


def revert(fwd):
    """fwd: l -> {p: c}, with y = x + sum c_l sin 2lx.  Returns the series of x - y in sin 2ly.

    A sine series sum d_l sin 2l y is kept as S = sum d_l (z^l - z^-l) (the series times 2i)."""
    S = {}
    for _ in range(ORDER + 1):
        newS = {}
        for l, cl in fwd.items():
            cser = {(p, 0): v for p, v in cl.items()}
            ep = exp_series(scal(S, l))   # exp(2il delta) = exp(l S)
            em = exp_series(scal(S, -l))
            term = add(mul({(0, l): F(1)}, ep), mul({(0, -l): F(1)}, em), -1)
            newS = add(newS, mul(cser, term), -1)
        S = newS
    out = {}
    for (p, z), v in S.items():
        if z > 0:
            out.setdefault(z, {})
            out[z][p] = out[z].get(p, F(0)) + v
    return out


mu_inv = revert(mu_fwd)


def horner(c):
    """c: l -> value (l = 1..7) -> [p0..p6] in that Horner form."""
    g = lambda l: c.get(l, 0)
    return [g(1) - g(3) + g(5) - g(7), 2 * g(2) - 4 * g(4) + 6 * g(6),
            4 * g(3) - 12 * g(5) + 24 * g(7), 8 * g(4) - 32 * g(6), 16 * g(5) - 80 * g(7),
            32 * g(6), 64 * g(7)]


def horner_poly(series):
    """series: l -> {p: c}; returns [p0..p6] each as {p: c}."""
    res = []
    for i in range(7):
        d = {}
        for p in range(ORDER + 1):
            v = horner({l: series.get(l, {}).get(p, F(0)) for l in range(1, 8)})[i]
            if v != 0:
                d[p] = v
        res.append(d)
    return res


def show(title, series):
    print(f"== {title}")
    for l in sorted(series):
        print(f"  sin {2*l}x: {poly_n(series[l])}")


if __name__ == "__main__":
    print("== meridian arc, coefficient of phi:", poly_n(A))
    show("meridian arc (1+n)/a*M, sine coefficients", C)
    show("rectifying latitude phi -> mu", mu_fwd)
    show("rectifying latitude mu -> phi", mu_inv)
    for title, series in (("meridian arc", C), ("phi -> mu", mu_fwd), ("mu -> phi", mu_inv)):
        print(f"== Horner form ({title}): p_i as polynomials in n")
        for i, d in enumerate(horner_poly(series)):
            print(f"  p{i}: " + ", ".join(f"{p}: {v}" for p, v in sorted(d.items())))


def cpp_table(name, series):
    """C++ initializer: row l-1 holds the coefficients of n^0..n^7 of sin 2l x, as exact
    fractions that the compiler rounds once."""
    lines = [f"static constexpr double {name}[7][8] = {{"]
    for l in range(1, 8):
        row = []
        for p in range(ORDER + 1):
            v = series.get(l, {}).get(p, F(0))
            row.append("0" if v == 0 else f"{v.numerator}.0 / {v.denominator}")
        lines.append("    {" + ", ".join(row) + "},")
    lines.append("};")
    return "\n".join(lines)


if __name__ == "__main__" and "--cpp" in __import__("sys").argv:
    print(cpp_table("kMeridianArc", C))
    print(cpp_table("kRectifyingFwd", mu_fwd))
    print(cpp_table("kRectifyingInv", mu_inv))
