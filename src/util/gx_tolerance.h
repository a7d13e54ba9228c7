// gx_tolerance.h -- internal: the library's one relative tolerance.
//
// Two numbers are equal when they differ by no more than 2^-48 of their mean magnitude, plus
// 2^-48 absolute near zero: |x - y| <= ((|x| + |y|)/2 + 1) 2^-48.  The unit 2^-48 is about 16
// units in the last place of a double near 1, so values that went through a text form or a unit
// conversion compare equal while any difference a user could mean stays a difference.  Every
// comparison of objects, of parameters and of special latitudes uses it, and e2 <= 2^-48 is a
// sphere.
#ifndef GX_UTIL_GX_TOLERANCE_H
#define GX_UTIL_GX_TOLERANCE_H

#include <cmath>

namespace gx {

// The tolerance unit 2^-48 = 3.552713678800501e-15.
inline constexpr double kTol = 0x1p-48;

// x equals y within the relative tolerance; never true for a NaN.
inline bool eq(double x, double y)
{
    return std::fabs(x - y) <= ((std::fabs(x) + std::fabs(y)) * 0.5 + 1.0) * kTol;
}

// A squared eccentricity (or a flattening) this small is a sphere.
inline bool is_sphere(double e2) { return e2 <= kTol; }

} // namespace gx

#endif // GX_UTIL_GX_TOLERANCE_H
