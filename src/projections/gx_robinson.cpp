// gx_robinson.cpp -- Robinson's projection, its table interpolated by the cubic spline
// (gx_robinson.h).
//
// Parameters: central meridian lambda0 (slot 2).  Sphere of radius a on any datum.
//
// Constants record:  1: [0] radius
#include "projections/gx_robinson.h"

namespace {
using namespace gx::projections;
using Robinson = WorldProjection<RobinsonFormulas<RobinsonSpline>>;
} // namespace

GX_DEFINE_PROJECTION_ROUTINES(robinson, Robinson)
