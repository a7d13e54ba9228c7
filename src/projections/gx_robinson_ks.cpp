// gx_robinson_ks.cpp -- Robinson_KESTREL: Robinson's projection with its table interpolated
// piecewise by Bessel's central-difference formula, the cubic through the four nearest
// tabulated latitudes (gx_robinson.h).  It agrees with the spline of Robinson (43030) at every
// tabulated latitude and differs from it between them by up to 2e-4 of the equator's length
// (3 km on the Earth, between 70 and 75 degrees, where the table is least smooth).
//
// Parameters: central meridian lambda0 (slot 2).  Sphere of radius a on any datum; no constants
// setup.
#include "projections/gx_robinson.h"

namespace {
using namespace gx::projections;
using RobinsonKestrel = PerCallWorldProjection<RobinsonFormulas<RobinsonBessel>>;
} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(robinson_ks, RobinsonKestrel)
