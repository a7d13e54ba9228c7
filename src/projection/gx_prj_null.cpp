// The null projection pair: the identity in both directions.  A projection object whose slot is
// empty hands these out, so that the conversion driver always has a routine to call.
#include "gridex.h"

namespace {

// Every point converts under the identity, and stays as it is.
int identity(int n, const double *coords) { return n > 0 && coords != nullptr ? n : 0; }

} // namespace

int gx_prj_null_fwd(const double *, const double *, int n, double *coords, const int *,
                    const double *)
{
    return identity(n, coords);
}

int gx_prj_null_inv(const double *, const double *, int n, double *coords, const int *,
                    const double *)
{
    return identity(n, coords);
}
