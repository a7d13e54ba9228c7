// gx_auxiliary_sphere.h -- the auxiliary-sphere mechanism shared by every _Auxiliary_Sphere
// projection.
//
// An auxiliary-sphere projection applies the spherical formulas of its base projection to the
// ellipsoid's geographic coordinates as if they lay on a sphere, chosen by the parameter
// Auxiliary_Sphere_Type (slot 12, read as the integer round(value + 0.001)):
//
//   type  radius R                        latitude used
//   0     a, the semi-major axis          geodetic      (the "web Mercator" convention)
//   1     b = a sqrt(1 - e2)              geodetic
//   2     authalic radius                 geodetic
//   3     authalic radius                 authalic      (areas of the ellipsoid preserved)
//   any other value is read as type 0, and on a spherical datum every type is type 0.
//
// The base projection's own routines do the work: they are called with the sphere {R, 0} and, for
// type 3, with every latitude turned into authalic latitude first -- the points' and the
// parameters' in slots 3, 4, 6 and 11 -- and turned back after the inverse.
//
// Constants record: the base projection's constants for {R, 0} and those parameters, followed
// for type 3 on an ellipsoid by the authalic-latitude block (GX_BETA_BLOCK_LEN doubles).
#ifndef GX_PROJECTIONS_GX_AUXILIARY_SPHERE_H
#define GX_PROJECTIONS_GX_AUXILIARY_SPHERE_H

#include "gridex.h"

namespace gx::projections {

// Fills values with a projection's constants for a sphere and parameters; returns their count.
using ConstantsFn = int (*)(const double sphere[2], const double parms[16], double *values);

// The base projection of an auxiliary-sphere projection.
struct AuxiliarySphereBase {
    gx_prj_rtn forward;
    gx_prj_rtn inverse;
    ConstantsFn constants; // null for a projection without constants
    int sphere_count;      // the number of constants it gives on a sphere, at most 8
};

// Auxiliary_Sphere_Type of the parameters, 0 to 3.
int auxiliary_sphere_type(const double parms[16]);

int auxiliary_sphere_constants(const AuxiliarySphereBase &base, gx_constants *constants,
                               const double sphere[2], const double parms[16]);
int auxiliary_sphere_forward(const AuxiliarySphereBase &base, const double sphere[2],
                             const double parms[16], int n, double *coords, const int *ivals,
                             const double *dvals);
int auxiliary_sphere_inverse(const AuxiliarySphereBase &base, const double sphere[2],
                             const double parms[16], int n, double *coords, const int *ivals,
                             const double *dvals);

// The base projection of a core P (gx_projection_support.h) whose routines are Forward and
// Inverse.
template <class P>
constexpr AuxiliarySphereBase auxiliary_base_of(gx_prj_rtn forward, gx_prj_rtn inverse)
{
    if constexpr (P::kMaxConstants > 0) {
        static_assert(P::kSphereCount <= 8, "an auxiliary sphere keeps at most 8 base constants");
        return {forward, inverse, static_cast<ConstantsFn>(P::constants), P::kSphereCount};
    } else {
        return {forward, inverse, nullptr, 0};
    }
}

} // namespace gx::projections

// The three exported routines of an _Auxiliary_Sphere projection over the core P of its base
// projection, whose own routines gx_<stem>_fwd and gx_<stem>_inv do the work on the sphere.
#define GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(stem, P)                                               \
    namespace {                                                                                    \
    constexpr gx::projections::AuxiliarySphereBase stem##_auxiliary_base =                         \
        gx::projections::auxiliary_base_of<P>(gx_##stem##_fwd, gx_##stem##_inv);                   \
    }                                                                                              \
    extern "C" GX_API int gx_##stem##_auxs_const(gx_constants *constants, const double sphere[2],  \
                                                 const double parms[16])                           \
    {                                                                                              \
        return gx::projections::auxiliary_sphere_constants(stem##_auxiliary_base, constants,       \
                                                           sphere, parms);                         \
    }                                                                                              \
    extern "C" GX_API int gx_##stem##_auxs_fwd(const double sphere[2], const double parms[16],     \
                                               int n, double *coords, const int *ivals,            \
                                               const double *dvals)                                \
    {                                                                                              \
        return gx::projections::auxiliary_sphere_forward(stem##_auxiliary_base, sphere, parms, n,  \
                                                         coords, ivals, dvals);                    \
    }                                                                                              \
    extern "C" GX_API int gx_##stem##_auxs_inv(const double sphere[2], const double parms[16],     \
                                               int n, double *coords, const int *ivals,            \
                                               const double *dvals)                                \
    {                                                                                              \
        return gx::projections::auxiliary_sphere_inverse(stem##_auxiliary_base, sphere, parms, n,  \
                                                         coords, ivals, dvals);                    \
    }

#endif // GX_PROJECTIONS_GX_AUXILIARY_SPHERE_H
