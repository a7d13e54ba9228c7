// gx_geocentric.cpp -- geodetic <-> geocentric cartesian coordinates.
//
// The inverse is Bowring's method with two steps: the reduced latitude of the point's own
// ellipse gives the first estimate, the reduced latitude of that estimate the second, and the
// height follows from the final latitude.
//
// Both directions evaluate the closed-form formulas in long double and round once at the end.
// At 40,000 km from the surface one unit in the last place of a double coordinate is 7.5e-9 m,
// so the several roundings of a plain double evaluation (each trigonometric value, each product)
// would add up to 2-3 units, beyond the 1e-8 m a round trip is held to; with the extended
// intermediate precision of x86-64 the round trip stays within about one unit.  Where long
// double is no wider than double the same code simply runs in double.
#include "gridex.h"
#include "projection/gx_math.h"

#include <cmath>

using namespace gx::math;

namespace {

using ld = long double;

constexpr ld kHalfPiL = 1.570796326794896619231321691639751442L;
constexpr ld kPiL = 3.141592653589793238462643383279502884L;

// Fold a latitude that atan2 put beyond a pole back into [-pi/2, pi/2].
ld fold(ld phi)
{
    if (phi > kHalfPiL)
        return kPiL - phi;
    if (phi < -kHalfPiL)
        return -kPiL - phi;
    return phi;
}

} // namespace

extern "C" {

GX_API void gx_curv_to_cart(double a, double e2, double phi, double lam, double h, double *x,
                            double *y, double *z)
{
    const ld sp = std::sin(static_cast<ld>(phi)), cp = std::cos(static_cast<ld>(phi));
    const ld n = a / std::sqrt(1.0L - e2 * sp * sp); // gx_n
    *x = static_cast<double>((n + h) * cp * std::cos(static_cast<ld>(lam)));
    *y = static_cast<double>((n + h) * cp * std::sin(static_cast<ld>(lam)));
    *z = static_cast<double>(((1.0L - e2) * n + h) * sp);
}

GX_API void gx_cart_to_curv(double a, double e2, double x, double y, double z, double *phi,
                            double *lam, double *h)
{
    const ld p = std::sqrt(static_cast<ld>(x) * x + static_cast<ld>(y) * y);
    const ld b = a * std::sqrt(1.0L - e2);
    if (p <= (p * 0.5L + 1.0L) * kTol) {
        *lam = 0.0;
        *phi = z < 0.0 ? -kHalfPi : kHalfPi;
        *h = static_cast<double>(std::fabs(static_cast<ld>(z)) - b);
        return;
    }
    *lam = std::atan2(y, x);
    const ld k = b * e2 / (1.0L - e2);
    const ld ae2 = a * static_cast<ld>(e2), ba = b / a;
    ld theta = std::atan2(a * static_cast<ld>(z), b * p);
    ld lat = 0.0L;
    for (int step = 0; step < 2; ++step) {
        const ld st = std::sin(theta), ct = std::cos(theta);
        lat = fold(std::atan2(z + k * st * st * st, p - ae2 * ct * ct * ct));
        theta = std::atan(ba * std::tan(lat));
    }
    *phi = static_cast<double>(lat);
    *h = static_cast<double>(std::cos(lat) * (p - a * std::cos(theta)) +
                             std::sin(lat) * (z - b * std::sin(theta)));
}

} // extern "C"
