// gx_mollweide.cpp -- the Mollweide projection and its auxiliary-sphere form.
//
// Parameters: central meridian lambda0 (slot 2).  The equal-area pseudocylindrical projection
// with elliptical meridians (Snyder 1987, eqs. 31-1 to 31-14, formulas in gx_mollweide.h), on
// the sphere of radius a (see gx_world.h for an ellipsoidal datum).
//
// Constants record:  1: [0] radius
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_mollweide.h"

namespace {
using namespace gx::projections;
using Mollweide = WorldProjection<MollweideFormulas>;
} // namespace

GX_DEFINE_PROJECTION_ROUTINES(mollweide, Mollweide)

GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(mollweide, Mollweide)
