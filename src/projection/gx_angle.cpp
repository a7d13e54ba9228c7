// gx_angle.cpp -- angle wrapping and the tolerant equality test.
#include "gridex.h"
#include "projection/gx_math.h"

#include <cmath>

using namespace gx::math;

extern "C" {

GX_API double gx_delta(double x)
{
    if (x >= -kPi && x <= kPi)
        return x; // the common case, without the division of fmod
    double r = std::fmod(x, kTwoPi);
    if (r > kPi)
        r -= kTwoPi;
    else if (r < -kPi)
        r += kTwoPi;
    return r;
}

GX_API double gx_delta_center(double x, double c) { return c + gx_delta(x - c); }

GX_API int gx_eq(double x, double y) { return eq(x, y) ? 1 : 0; }

} // extern "C"
