// gx_projection_support.h -- small pieces shared by the projection routines.
//
// Every projection works on the same canonical call frame: the ellipsoid pair {a, e2}, sixteen
// parameter slots in radians and metres, n (x, y) points converted in place, and the arrays of a
// constants container computed once by the projection's setup routine.  This header names the
// slots, holds the pole pull-in and the marking of failed points, and stores a projection's
// constants record ({2, count} in ivals, the values in dvals) in its container.
#ifndef GX_PROJECTIONS_GX_PROJECTION_SUPPORT_H
#define GX_PROJECTIONS_GX_PROJECTION_SUPPORT_H

#include "gridex.h"
#include "projection/gx_math.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <type_traits>

namespace gx::projections {

using math::kHalfPi;
using math::kPi;
using math::kQuarterPi;
using math::kTol;

// The meaning of each slot of the parameter array.
enum Slot : int {
    kFalseEasting = 0,
    kFalseNorthing = 1,
    kCentralMeridian = 2,
    kStandardParallel1 = 3,
    kStandardParallel2 = 4,
    kScaleFactor = 5,
    kLatitudeOfOrigin = 6,
    kAzimuth = 7,
    kLongitudeOfCenter = 10,
    kLatitudeOfCenter = 11,
    kAuxiliarySphereType = 12,
};
inline constexpr int kSlotCount = 16;

// pi/2 less 25 units in the last place: a pole is moved here so that tan(phi) and the isometric
// latitude stay finite and a pole maps to a large but finite coordinate.
inline constexpr double kPoleLatitude = 1.570796326794891;
static_assert(std::bit_cast<std::uint64_t>(kPoleLatitude) == 0x3FF921FB54442CFFu);

// e2 this small is a sphere.
inline bool is_sphere(double e2) { return e2 <= kTol; }

// x equals y within the library's relative tolerance.
inline bool eq(double x, double y) { return math::eq(x, y); }

// A latitude at a pole within the tolerance, or beyond it.
inline bool at_pole(double phi) { return std::fabs(phi) >= kHalfPi || eq(std::fabs(phi), kHalfPi); }

// A latitude at or beyond a pole becomes +-kPoleLatitude; any other is returned unchanged.
inline double pull_in_pole(double phi)
{
    return at_pole(phi) ? std::copysign(kPoleLatitude, phi) : phi;
}

// q_p = 1 - (1 - e2)/(2e) ln((1 - e)/(1 + e)) = 1 + (1 - e2) atanh(e)/e: the authalic function
// q of Snyder 1987 (eq. 3-12) at the pole, 2 on the sphere.  Equal-area projections scale
// sin(beta) by it: q(phi) = q_p sin(beta).
inline double authalic_q_pole(double e2)
{
    if (is_sphere(e2))
        return 2.0;
    const double e = std::sqrt(e2);
    return 1.0 + (1.0 - e2) * std::atanh(e) / e;
}

// Marks the point (x, y) as failed: both coordinates become the library's quiet NaN.
inline void mark_failed(double *point)
{
    gx_double_nan(&point[0]);
    gx_double_nan(&point[1]);
}

inline bool failed(const double *point) { return std::isnan(point[0]) || std::isnan(point[1]); }

// Converts n points in place with convert(point).  A convert that returns bool reports a
// failure by false: the point then becomes NaN and is not counted.  One that returns nothing
// always succeeds.  Returns the number of points converted, 0 when n <= 0.
template <class Convert> int convert_points(int n, double *coords, Convert convert)
{
    int converted = 0;
    for (int i = 0; i < n; ++i) {
        double *point = &coords[2 * i];
        if constexpr (std::is_void_v<std::invoke_result_t<Convert, double *>>) {
            convert(point);
            ++converted;
        } else if (convert(point)) {
            ++converted;
        } else {
            mark_failed(point);
        }
    }
    return converted;
}

// The constants a routine was handed, or null when it must compute them itself: dvals is null,
// or the count in ivals does not match the layout the routine expects for its parameters.
inline const double *given_constants(const int *ivals, const double *dvals, int expected_count)
{
    if (dvals == nullptr)
        return nullptr;
    if (ivals != nullptr && (ivals[0] < 2 || ivals[1] != expected_count))
        return nullptr;
    return dvals;
}

// Stores count values in the container as a projection constants record: ivals = {2, count}
// and dvals = a copy of values, both allocated with gx_allocate_rtn and owned by the container.
// Returns count, or 0 (the container left unchanged) when count < 1, the container is not valid
// or memory runs out.
int store_constants(gx_constants *constants, const double *values, int count);

} // namespace gx::projections

#endif // GX_PROJECTIONS_GX_PROJECTION_SUPPORT_H
