// gx_projection_support.cpp -- storing a projection's constants record in its container.
#include "projections/gx_projection_support.h"

#include <cstring>

namespace gx::projections {

int store_constants(gx_constants *constants, const double *values, int count)
{
    if (count < 1 || values == nullptr || !gx_constants_p(constants))
        return 0;
    auto *ivals = static_cast<int *>(gx_allocate_rtn(2 * sizeof(int)));
    auto *dvals =
        static_cast<double *>(gx_allocate_rtn(static_cast<size_t>(count) * sizeof(double)));
    if (ivals == nullptr || dvals == nullptr) {
        gx_deallocate_rtn(ivals);
        gx_deallocate_rtn(dvals);
        return 0;
    }
    ivals[0] = 2;
    ivals[1] = count;
    std::memcpy(dvals, values, static_cast<size_t>(count) * sizeof(double));
    gx_constants_ivals_set(constants, ivals);
    gx_constants_dvals_set(constants, dvals);
    return count;
}

} // namespace gx::projections
