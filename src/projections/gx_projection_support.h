// gx_projection_support.h -- what every projection shares: the three exported routines written
// once over a projection's core, and the small pieces of its formulas (pole pull-in, failed
// points, the authalic q at the pole).
//
// Every projection works on the same canonical call frame: the ellipsoid pair {a, e2}, sixteen
// parameter slots in radians and metres (gx::slot names them), n (x, y) points converted in
// place, and the arrays of a constants container computed once by the projection's setup
// routine: {2, count} in ivals and the values in dvals.
//
// A projection's source holds only its mathematics, as a core class P:
//
//   struct P : ConstantsLayout<SphereCount, EllipsoidCount> {      (or NoConstants)
//       static int constants(const double sphere[2], const double parms[16], double *values);
//       P(const double sphere[2], const double parms[16], const double *values);
//       void forward(double *point) const;       (or bool: false fails the point, it becomes NaN)
//       void inverse(double *point) const;       (likewise)
//   };
//
// constants() fills at most kMaxConstants values and returns their count (0: the parameters give
// no projection, and nothing converts); a core whose per-call constants depend on the direction
// may instead define constants(sphere, parms, values, Pass).  The constructor receives the record
// from the container when one was loaded and has the expected count, else one computed for the
// call (null for NoConstants).  A core may hide ConstantsLayout's count() when its record's
// length depends on more than the sphere, and valid() when some parameters give no projection.
// Then one line exports gx_<stem>_const, gx_<stem>_fwd and gx_<stem>_inv:
//
//   GX_DEFINE_PROJECTION_ROUTINES(stem, P)            (GX_DEFINE_PER_CALL_PROJECTION_ROUTINES for
//                                                      a projection without a constants setup)
#ifndef GX_PROJECTIONS_GX_PROJECTION_SUPPORT_H
#define GX_PROJECTIONS_GX_PROJECTION_SUPPORT_H

#include "gridex.h"
#include "object/gx_slots.h"
#include "projection/gx_math.h"
#include "util/gx_tolerance.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <type_traits>

namespace gx::projections {

namespace slot = gx::slot;
using gx::eq;
using gx::is_sphere;
using gx::kTol;
using math::kHalfPi;
using math::kPi;
using math::kQuarterPi;

// pi/2 less 25 units in the last place: a pole is moved here so that tan(phi) and the isometric
// latitude stay finite and a pole maps to a large but finite coordinate.
inline constexpr double kPoleLatitude = 1.570796326794891;
static_assert(std::bit_cast<std::uint64_t>(kPoleLatitude) == 0x3FF921FB54442CFFu);

// A latitude at a pole within the tolerance, or beyond it.
inline bool at_pole(double phi) { return std::fabs(phi) >= kHalfPi || eq(std::fabs(phi), kHalfPi); }

// A latitude at or beyond a pole becomes +-kPoleLatitude; any other is returned unchanged.
inline double pull_in_pole(double phi)
{
    return at_pole(phi) ? std::copysign(kPoleLatitude, phi) : phi;
}

// q_p = 1 - (1 - e2)/(2e) ln((1 - e)/(1 + e)) = 1 + (1 - e2) atanh(e)/e: the authalic function
// q of Snyder 1987 (eq. 3-12) at the pole, 2 on the sphere.  Equal-area projections scale
// sin(beta) by it: q(phi) = q_p sin(beta).
inline double authalic_q_pole(double e2)
{
    if (is_sphere(e2))
        return 2.0;
    const double e = std::sqrt(e2);
    return 1.0 + (1.0 - e2) * std::atanh(e) / e;
}

// Marks the point (x, y) as failed: both coordinates become the library's quiet NaN.
inline void mark_failed(double *point)
{
    gx_double_nan(&point[0]);
    gx_double_nan(&point[1]);
}

inline bool failed(const double *point) { return std::isnan(point[0]) || std::isnan(point[1]); }

// Converts n points in place with convert(point).  A convert that returns bool reports a
// failure by false: the point then becomes NaN and is not counted.  One that returns nothing
// always succeeds.  Returns the number of points converted, 0 when n <= 0.
template <class Convert> int convert_points(int n, double *coords, Convert convert)
{
    int converted = 0;
    for (int i = 0; i < n; ++i) {
        double *point = &coords[2 * i];
        if constexpr (std::is_void_v<std::invoke_result_t<Convert, double *>>) {
            convert(point);
            ++converted;
        } else if (convert(point)) {
            ++converted;
        } else {
            mark_failed(point);
        }
    }
    return converted;
}

// The constants a routine was handed, or null when it must compute them itself: dvals is null,
// or the count in ivals does not match the layout the routine expects for its parameters.
inline const double *given_constants(const int *ivals, const double *dvals, int expected_count)
{
    if (dvals == nullptr)
        return nullptr;
    if (ivals != nullptr && (ivals[0] < 2 || ivals[1] != expected_count))
        return nullptr;
    return dvals;
}

// Stores count values in the container as a projection constants record: ivals = {2, count}
// and dvals = a copy of values, both allocated with gx_allocate_rtn and owned by the container.
// Returns count, or 0 (the container left unchanged) when count < 1, the container is not valid
// or memory runs out.
int store_constants(gx_constants *constants, const double *values, int count);

// ---- the routines of a projection core -------------------------------------------------------

// The direction a call converts in.
enum class Pass { Forward, Inverse };

// The length of a core's constants record: SphereCount values on a sphere, EllipsoidCount on an
// ellipsoid.  Every parameter set gives a projection.
template <int SphereCount, int EllipsoidCount = SphereCount> struct ConstantsLayout {
    static constexpr int kSphereCount = SphereCount;
    static constexpr int kEllipsoidCount = EllipsoidCount;
    static constexpr int kMaxConstants = std::max(SphereCount, EllipsoidCount);
    static int count(const double sphere[2], const double * /*parms*/)
    {
        return is_sphere(sphere[1]) ? SphereCount : EllipsoidCount;
    }
    bool valid() const { return true; }
};

// A core that computes everything per call: no constants record.
struct NoConstants {
    static constexpr int kMaxConstants = 0;
    bool valid() const { return true; }
};

// The constants of a core, for both directions or for one.
template <class P>
int core_constants(const double sphere[2], const double parms[16], double *values, Pass pass)
{
    if constexpr (requires { P::constants(sphere, parms, values, pass); })
        return P::constants(sphere, parms, values, pass);
    else
        return P::constants(sphere, parms, values);
}

// gx_<stem>_const: the core's constants stored in the container; 0 when they cannot be made.
template <class P>
int projection_setup(gx_constants *constants, const double sphere[2], const double parms[16])
{
    double values[P::kMaxConstants];
    return store_constants(constants, values, P::constants(sphere, parms, values));
}

// gx_<stem>_fwd and gx_<stem>_inv: n points converted in place by one core built for the call,
// from the given constants when they fit its layout, else from constants computed here.
template <class P>
int projection_run(Pass pass, const double sphere[2], const double parms[16], int n, double *coords,
                   const int *ivals, const double *dvals)
{
    const double *values = nullptr;
    double local[std::max(P::kMaxConstants, 1)];
    if constexpr (P::kMaxConstants > 0) {
        values = given_constants(ivals, dvals, P::count(sphere, parms));
        if (values == nullptr) {
            if (core_constants<P>(sphere, parms, local, pass) < 1)
                return 0;
            values = local;
        }
    }
    const P projection(sphere, parms, values);
    if (!projection.valid())
        return 0;
    if (pass == Pass::Forward)
        return convert_points(n, coords, [&](double *p) { return projection.forward(p); });
    return convert_points(n, coords, [&](double *p) { return projection.inverse(p); });
}

} // namespace gx::projections

// The exported routines of a projection over its core P (inside the source's anonymous
// namespace or at file scope).
#define GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(stem, P)                                            \
    extern "C" GX_API int gx_##stem##_fwd(const double sphere[2], const double parms[16], int n,   \
                                          double *coords, const int *ivals, const double *dvals)   \
    {                                                                                              \
        return gx::projections::projection_run<P>(gx::projections::Pass::Forward, sphere, parms,   \
                                                  n, coords, ivals, dvals);                        \
    }                                                                                              \
    extern "C" GX_API int gx_##stem##_inv(const double sphere[2], const double parms[16], int n,   \
                                          double *coords, const int *ivals, const double *dvals)   \
    {                                                                                              \
        return gx::projections::projection_run<P>(gx::projections::Pass::Inverse, sphere, parms,   \
                                                  n, coords, ivals, dvals);                        \
    }

#define GX_DEFINE_PROJECTION_ROUTINES(stem, P)                                                     \
    extern "C" GX_API int gx_##stem##_const(gx_constants *constants, const double sphere[2],       \
                                            const double parms[16])                                \
    {                                                                                              \
        return gx::projections::projection_setup<P>(constants, sphere, parms);                     \
    }                                                                                              \
    GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(stem, P)

#endif // GX_PROJECTIONS_GX_PROJECTION_SUPPORT_H
