// gx_behrmann.cpp -- Behrmann's projection: the cylindrical equal-area projection with its
// standard parallels at 30 degrees, on the sphere and on the ellipsoid.
//
// Parameters: central meridian lambda0 (slot 2).  The cylindrical equal-area projection
// (Snyder 1987, eqs. 10-1, 10-2 and 10-13 to 10-15; gx_cylindrical_eqarea.cpp) does the work,
// with the standard parallel of true scale set to 30 degrees whatever slot 3 holds; its inverse
// also fails plane points beyond the bounding meridians.
//
// Constants record: those of the cylindrical equal-area projection with that parallel.
#include "projections/gx_projection_support.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kStandardParallel = 0.5235987755982988; // 30 degrees

// The parameters with the standard parallel of Behrmann's projection.
struct BehrmannParameters {
    explicit BehrmannParameters(const double parms[16])
    {
        std::copy(parms, parms + gx::parameter_slots, values);
        values[gx::slot::standard_parallel_1] = kStandardParallel;
    }
    double values[gx::parameter_slots];
};

} // namespace

extern "C" {

GX_API int gx_behrmann_const(gx_constants *constants, const double sphere[2],
                             const double parms[16])
{
    return gx_cylindrical_eqarea_const(constants, sphere, BehrmannParameters(parms).values);
}

GX_API int gx_behrmann_fwd(const double sphere[2], const double parms[16], int n, double *coords,
                           const int *ivals, const double *dvals)
{
    return gx_cylindrical_eqarea_fwd(sphere, BehrmannParameters(parms).values, n, coords, ivals,
                                     dvals);
}

// A plane point beyond the bounding meridians (|x| > pi a k) is outside the map and fails.
GX_API int gx_behrmann_inv(const double sphere[2], const double parms[16], int n, double *coords,
                           const int *ivals, const double *dvals)
{
    const BehrmannParameters behrmann(parms);
    const double half_width = gx::projections::kPi * sphere[0] * std::cos(kStandardParallel) /
                              gx_w(sphere[1], kStandardParallel);
    int converted = 0;
    for (int i = 0; i < n; ++i) {
        double *point = &coords[2 * i];
        if (std::fabs(point[0]) > half_width * (1.0 + 1e-12)) {
            gx::projections::mark_failed(point);
            continue;
        }
        converted += gx_cylindrical_eqarea_inv(sphere, behrmann.values, 1, point, ivals, dvals);
    }
    return converted;
}

} // extern "C"
