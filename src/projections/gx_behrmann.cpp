// gx_behrmann.cpp -- Behrmann's projection: the cylindrical equal-area projection with its
// standard parallels at 30 degrees, on the sphere and on the ellipsoid.
//
// Parameters: central meridian lambda0 (slot 2).  The cylindrical equal-area projection
// (Snyder 1987, eqs. 10-1, 10-2 and 10-13 to 10-15; gx_cylindrical_eqarea.cpp) does the work,
// with the standard parallel of true scale set to 30 degrees whatever slot 3 holds.
//
// Constants record: those of the cylindrical equal-area projection with that parallel.
#include "projections/gx_projection_support.h"

#include <algorithm>

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

GX_API int gx_behrmann_inv(const double sphere[2], const double parms[16], int n, double *coords,
                           const int *ivals, const double *dvals)
{
    return gx_cylindrical_eqarea_inv(sphere, BehrmannParameters(parms).values, n, coords, ivals,
                                     dvals);
}

} // extern "C"
