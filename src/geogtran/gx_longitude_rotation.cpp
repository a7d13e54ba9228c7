// gx_longitude_rotation.cpp -- longitude rotation (EPSG method 9601): a change of prime
// meridian on one datum.  The longitude turns by parms[5] radians and is reduced to
// [-pi, pi]; latitude and height do not change.  The caller puts the prime-meridian difference
// into the slot with the sign of the direction, so one routine serves both ways.
#include "gridex.h"

namespace {

constexpr int kAngle = 5;

} // namespace

extern "C" {

GX_API int gx_longitude_rotation_ccw(const double *, const double *, const double parms[16],
                                     const char *, int n, double *points, double *, const int *,
                                     const float *, const double *)
{
    for (int i = 0; i < n; ++i)
        points[2 * i] = gx_delta(points[2 * i] + parms[kAngle]);
    return n;
}

} // extern "C"
