#!/usr/bin/env python3
"""Check Carlson's closing series for R_F and R_D (Carlson 1995, eqs. 2.2-2.3 and 4.5-4.8).

With the deviations X, Y, Z of size d from the mean A, the truncated series must differ from the
exact integral (mpmath, 60 digits) by O(d^6): halving d divides the error by about 64.  A wrong
coefficient would leave an error of order d^2 .. d^5.  Run: python3 check_carlson.py
"""
import mpmath as mp

mp.mp.dps = 60


def rf_series(x, y, z):
    A = (x + y + z) / 3
    X, Y = 1 - x / A, 1 - y / A
    Z = -(X + Y)
    E2, E3 = X * Y - Z * Z, X * Y * Z
    return (1 - E2 / 10 + E3 / 14 + E2 * E2 / 24 - 3 * E2 * E3 / 44) / mp.sqrt(A)


def rd_series(x, y, z):
    A = (x + y + 3 * z) / 5
    X, Y = 1 - x / A, 1 - y / A
    Z = -(X + Y) / 3
    E2 = X * Y - 6 * Z * Z
    E3 = (3 * X * Y - 8 * Z * Z) * Z
    E4 = 3 * (X * Y - Z * Z) * Z * Z
    E5 = X * Y * Z ** 3
    s = 1 - 3 * E2 / 14 + E3 / 6 + 9 * E2 * E2 / 88 - 3 * E4 / 22 - 9 * E2 * E3 / 52 + 3 * E5 / 26
    return s / (A * mp.sqrt(A))


for name, series, exact in (("R_F", rf_series, mp.elliprf), ("R_D", rd_series, mp.elliprd)):
    for (u, v) in ((0.7, -0.3), (-0.2, 0.9), (0.5, 0.5)):
        errs = []
        for k in range(4):
            d = mp.mpf(2) ** (-6 - k)
            x, y, z = 1 + u * d, 1 + v * d, 1 - (u + v) * d / (3 if name == "R_D" else 1)
            errs.append(abs(series(x, y, z) / exact(x, y, z) - 1))
        ratios = [errs[i] / errs[i + 1] for i in range(3)]
        print(f"{name} direction ({u}, {v}): errors " + " ".join(mp.nstr(e, 3) for e in errs)
              + "  ratios " + " ".join(mp.nstr(r, 4) for r in ratios))
        assert all(55 < r < 75 for r in ratios), "closing series is not of fifth order"
print("closing series of fifth order: OK")
