// gx_vtm_vertical_offset.cpp -- the vertical offset method (cf. EPSG method 9616): the heights
// of the second vertical system are those of the first, counted in its direction, plus a
// constant offset p0 in metres:
//
//   forward  h' = d h + p0,     inverse  h = (h' - p0) d,
//
// d the product of the two systems' direction signs (so d = 1/d).  The horizontal position of
// the points does not enter, and the point array may be null.
#include "gridex.h"

namespace {

constexpr int kOffset = 0;

int gx_vtm_vertical_offset_transform(double direction_product, const double parms[16], int n,
                                     double *heights, int direction)
{
    if (heights == nullptr)
        return 0;
    const double d = direction_product, offset = parms[kOffset];
    for (int i = 0; i < n; ++i)
        heights[i] = direction == 0 ? d * heights[i] + offset : (heights[i] - offset) * d;
    return n;
}

} // namespace

extern "C" {

GX_API int gx_vtm_vertical_offset_fwd(const double *, double, double, double direction_product,
                                      const double parms[16], const char *, const int *,
                                      const float *, const double *, int n, const double *,
                                      double *heights)
{
    return gx_vtm_vertical_offset_transform(direction_product, parms, n, heights, 0);
}

GX_API int gx_vtm_vertical_offset_inv(const double *, double, double, double direction_product,
                                      const double parms[16], const char *, const int *,
                                      const float *, const double *, int n, const double *,
                                      double *heights)
{
    return gx_vtm_vertical_offset_transform(direction_product, parms, n, heights, 1);
}

} // extern "C"
