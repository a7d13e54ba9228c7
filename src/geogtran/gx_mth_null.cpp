// The identity routines of the datum-shift and plane-fit method families.  A method object or
// a transformation step that must hold a callable but has nothing to do holds one of these.
#include "gridex.h"

extern "C" {

GX_API int gx_mth_null_fwd(const double *, const double *, const double *, const char *, int n,
                           double *, double *, const int *, const float *, const double *)
{
    return n;
}

GX_API int gx_htm_null_inv(const void *, const double *, int n, double *) { return n; }

} // extern "C"
