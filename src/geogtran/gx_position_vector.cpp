// gx_position_vector.cpp -- the seven-parameter datum shift in the position-vector rotation
// convention (EPSG method 9606; IOGP Guidance Note 7-2).  It rotates the
// point where the coordinate-frame convention rotates the axes, so the same shift is the
// coordinate-frame one with the three rotations negated; translations and scale keep their
// signs.
#include "geogtran/gx_datum_shift.h"

using namespace gx::geogtran;

namespace {

// The parameters with the rotations turned into their coordinate-frame form.
struct FrameParameters {
    double v[parameter_slots];

    explicit FrameParameters(const double parms[16])
    {
        for (int i = 0; i < parameter_slots; ++i)
            v[i] = parms[i];
        v[shift_slot::x_rotation] = -v[shift_slot::x_rotation];
        v[shift_slot::y_rotation] = -v[shift_slot::y_rotation];
        v[shift_slot::z_rotation] = -v[shift_slot::z_rotation];
    }
};

} // namespace

extern "C" {

GX_API int gx_position_vector_fwd(const double ellipsoid1[2], const double ellipsoid2[2],
                                  const double parms[16], const char *dataset, int n,
                                  double *points, double *heights, const int *ivals,
                                  const float *fvals, const double *dvals)
{
    const FrameParameters frame(parms);
    return gx_coordinate_frame_fwd(ellipsoid1, ellipsoid2, frame.v, dataset, n, points, heights,
                                   ivals, fvals, dvals);
}

GX_API int gx_position_vector_inv(const double ellipsoid1[2], const double ellipsoid2[2],
                                  const double parms[16], const char *dataset, int n,
                                  double *points, double *heights, const int *ivals,
                                  const float *fvals, const double *dvals)
{
    const FrameParameters frame(parms);
    return gx_coordinate_frame_inv(ellipsoid1, ellipsoid2, frame.v, dataset, n, points, heights,
                                   ivals, fvals, dvals);
}

} // extern "C"
