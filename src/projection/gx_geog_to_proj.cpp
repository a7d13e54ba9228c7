// The conversion driver: geographic <-> projected coordinates of a projected CS.
//
// Projection routines work in one canonical frame -- radians, metres, the ellipsoid as (a, e2),
// the 16 parameter slots -- and never see units, false offsets or objects.  The driver builds
// that frame from the CS at every call (cheap: a few multiplications), makes the projection's
// constants once and caches them in the CS, converts the caller's points in place and applies
// the false offsets and the linear unit around the routine.
#include "object/gx_types.h"
#include "projection/gx_math.h"

#include <cmath>
#include <cstring>

namespace {

using gx::math::kHalfPi;
namespace slot = gx::slot;
using gx::parameter_slots;

// The canonical frame of one projected CS.
struct frame {
    double sphere[2]; // a, e2
    double parms
        [parameter_slots]; // slot values in radians and metres, with the defaults of absent slots
    double angular;        // radians per unit of the geographic CS
    double linear;         // metres per unit of the projected CS
};

// Builds the frame; false when the CS lacks a part it needs.
bool build_frame(const gx_projcs *cs, frame &f)
{
    const gx_geogcs *geogcs = cs->geogcs;
    if (!gx_geogcs_p(geogcs) || !gx_unit_p(cs->unit))
        return false;
    const gx_spheroid *spheroid = gx_datum_spheroid(geogcs->datum);
    const double flattening = gx_spheroid_flattening(spheroid);
    f.sphere[0] = gx_spheroid_axis(spheroid);
    f.sphere[1] = (2.0 - flattening) * flattening;
    f.angular = gx_unit_factor(geogcs->unit);
    f.linear = gx_unit_factor(cs->unit);

    gx_parameter *const *slots = cs->parameters;
    for (int i = 0; i < parameter_slots; ++i)
        f.parms[i] = slots[i] != nullptr ? gx_parameter_value(slots[i]) : 0.0;
    for (int angle : gx::projection_angle_slots)
        f.parms[angle] *= f.angular;
    for (int offset : gx::projection_offset_slots)
        f.parms[offset] *= f.linear;
    if (slots[slot::height] != nullptr &&
        gx_strcmp_i(slots[slot::height]->header.name, "Height") == 0)
        f.parms[slot::height] *= f.linear;

    if (slots[slot::scale_factor] == nullptr)
        f.parms[slot::scale_factor] = 1.0;
    if (slots[slot::standard_parallel_2] == nullptr)
        f.parms[slot::standard_parallel_2] = f.parms[slot::standard_parallel_1];
    if (slots[slot::x_scale] == nullptr)
        f.parms[slot::x_scale] = 1.0;
    if (slots[slot::y_scale] == nullptr)
        f.parms[slot::y_scale] = 1.0;
    return true;
}

// A routine of the CS's projection, or null when it has none.  The accessors answer the identity
// pair for a projection without routines (a row whose formulas are not written), but converting
// with it would hand back unprojected coordinates as if they were projected: nothing converts.
gx_prj_rtn routine_of(const gx_projcs *cs, gx_prj_rtn gx_projection::*slot)
{
    return gx_projection_p(cs->projection) ? cs->projection->*slot : nullptr;
}

// The constants arrays to hand to the routines, loading them on first use.
void constants_of(gx_projcs *cs, const int *&ivals, const double *&dvals)
{
    if (cs->constants == nullptr)
        gx_projcs_load_constants(cs);
    ivals = gx_constants_ivals(cs->constants);
    dvals = gx_constants_dvals(cs->constants);
}

} // namespace

int gx_geog_to_proj(gx_projcs *projcs, int n, double *coords)
{
    frame f;
    if (!gx_projcs_p(projcs) || !build_frame(projcs, f))
        return 0;
    const gx_prj_rtn forward = routine_of(projcs, &gx_projection::forward);
    if (forward == nullptr)
        return 0;
    const int *ivals;
    const double *dvals;
    constants_of(projcs, ivals, dvals);

    for (int i = 0; i < n; ++i) {
        double *p = coords + 2 * i;
        p[0] *= f.angular;
        p[1] *= f.angular;
        if (p[1] > kHalfPi)
            p[1] = kHalfPi;
        else if (p[1] < -kHalfPi)
            p[1] = -kHalfPi;
    }
    const int converted = forward(f.sphere, f.parms, n, coords, ivals, dvals);
    if (converted < 1) {
        // Nothing converted: the points go back to the caller's units.
        for (int i = 0; i < 2 * n; ++i)
            coords[i] /= f.angular;
        return converted;
    }
    for (int i = 0; i < n; ++i) {
        double *p = coords + 2 * i;
        p[0] = (p[0] + f.parms[slot::false_easting]) / f.linear;
        p[1] = (p[1] + f.parms[slot::false_northing]) / f.linear;
    }
    return converted;
}

int gx_proj_to_geog(gx_projcs *projcs, int n, double *coords)
{
    return gx_proj_to_geog_center(projcs, n, coords, 0.0);
}

int gx_proj_to_geog_center(gx_projcs *projcs, int n, double *coords, double center)
{
    frame f;
    if (!gx_projcs_p(projcs) || !build_frame(projcs, f))
        return 0;
    const gx_prj_rtn inverse = routine_of(projcs, &gx_projection::inverse);
    if (inverse == nullptr)
        return 0;
    const int *ivals;
    const double *dvals;
    constants_of(projcs, ivals, dvals);
    const double center_radians = center * f.angular;

    for (int i = 0; i < n; ++i) {
        double *p = coords + 2 * i;
        p[0] = p[0] * f.linear - f.parms[slot::false_easting];
        p[1] = p[1] * f.linear - f.parms[slot::false_northing];
    }
    const int converted = inverse(f.sphere, f.parms, n, coords, ivals, dvals);
    if (converted < 1) {
        // Nothing converted: give the caller's input back.
        for (int i = 0; i < n; ++i) {
            double *p = coords + 2 * i;
            p[0] = (p[0] + f.parms[slot::false_easting]) / f.linear;
            p[1] = (p[1] + f.parms[slot::false_northing]) / f.linear;
        }
        return converted;
    }
    const bool centred = std::fabs(center_radians) > gx::kTol;
    for (int i = 0; i < n; ++i) {
        double *p = coords + 2 * i;
        if (centred)
            p[0] = gx_delta_center(p[0], center_radians);
        p[0] /= f.angular;
        p[1] /= f.angular;
    }
    return converted;
}

int gx_proj_geog(gx_projcs *projcs, int n, double *coords, int direction)
{
    if (direction == 0)
        return gx_proj_to_geog(projcs, n, coords);
    if (direction == 1)
        return gx_geog_to_proj(projcs, n, coords);
    return 0;
}

// ---- constants ----------------------------------------------------------------------------------

int gx_projcs_load_constants(gx_projcs *projcs)
{
    if (!gx_projcs_p(projcs))
        return 0;
    gx_projcs_unload_constants(projcs);
    const gx_pcsconst_rtn setup = gx_projection_pcsconstfunc(projcs->projection);
    if (setup == nullptr)
        return 0;
    frame f;
    if (!build_frame(projcs, f))
        return 0;
    gx_constants *constants = gx_constants_new();
    if (constants == nullptr)
        return 0;
    const int stored = setup(constants, f.sphere, f.parms);
    if (stored != 0)
        projcs->constants = constants;
    else
        gx_constants_del(constants);
    return stored;
}

void gx_projcs_unload_constants(gx_projcs *projcs)
{
    if (!gx_projcs_p(projcs))
        return;
    gx_constants_del(projcs->constants);
    projcs->constants = nullptr;
}

int gx_projcs_isconstloaded(const gx_projcs *projcs)
{
    return gx_projcs_p(projcs) && projcs->constants != nullptr ? 1 : 0;
}

gx_constants *gx_projcs_constants(const gx_projcs *projcs)
{
    return gx_projcs_p(projcs) ? projcs->constants : nullptr;
}

// ---- the same CS in other units -----------------------------------------------------------------

namespace {

// old / new when the two unit factors differ beyond the tolerance, else 0.
double unit_ratio(const gx_unit *old_unit, const gx_unit *new_unit)
{
    if (!gx_unit_p(new_unit))
        return 0.0;
    const double old_factor = gx_unit_factor(old_unit), new_factor = gx_unit_factor(new_unit);
    if (gx::eq(old_factor, new_factor))
        return 0.0;
    return old_factor / new_factor;
}

template <std::size_t N> void scale_slots(gx_parameter **parms, const int (&slots)[N], double ratio)
{
    for (int slot : slots)
        if (parms[slot] != nullptr)
            gx_parameter_value_set(parms[slot], gx_parameter_value(parms[slot]) * ratio);
}

// The geographic CS with its angular unit replaced by a copy of `unit`; null when memory runs out.
gx_geogcs *geogcs_in_unit(const gx_geogcs *geogcs, const gx_unit *unit)
{
    gx_datum *datum = gx_datum_clone(geogcs->datum);
    gx_primem *primem = gx_primem_clone(geogcs->primem);
    gx_unit *unit_copy = gx_unit_clone(unit);
    gx_geogcs *copy = datum != nullptr && primem != nullptr && unit_copy != nullptr
                          ? gx_geogcs_new(geogcs->header.name, datum, primem, unit_copy)
                          : nullptr;
    if (copy == nullptr) {
        gx_datum_del(datum);
        gx_primem_del(primem);
        gx_unit_del(unit_copy);
    }
    return copy;
}

} // namespace

// A copy of the CS whose linear parameters are in `linear_unit` and angular ones in
// `angular_unit`.  Unlike the conversion frame, a Height in slot 15 keeps its value.
gx_projcs *gx_projcs_clone_alterunits(const gx_projcs *projcs, const gx_unit *linear_unit,
                                      const gx_unit *angular_unit)
{
    if (!gx_projcs_p(projcs))
        return nullptr;
    const gx_geogcs *old_geogcs = projcs->geogcs;
    const double linear_ratio = unit_ratio(projcs->unit, linear_unit);
    const double angular_ratio = unit_ratio(old_geogcs->unit, angular_unit);
    if (linear_ratio == 0.0 && angular_ratio == 0.0)
        return gx_projcs_clone(projcs);

    gx_parameter *parms[parameter_slots] = {};
    bool complete = true;
    for (int i = 0; i < parameter_slots; ++i)
        if (projcs->parameters[i] != nullptr) {
            parms[i] = gx_parameter_clone(projcs->parameters[i]);
            complete = complete && parms[i] != nullptr;
        }
    if (angular_ratio != 0.0)
        scale_slots(parms, gx::projection_angle_slots, angular_ratio);
    if (linear_ratio != 0.0)
        scale_slots(parms, gx::projection_offset_slots, linear_ratio);

    gx_projection *projection = gx_projection_clone(projcs->projection);
    gx_geogcs *geogcs = angular_ratio != 0.0 ? geogcs_in_unit(old_geogcs, angular_unit)
                                             : gx_geogcs_clone(old_geogcs);
    gx_unit *unit = gx_unit_clone(linear_ratio != 0.0 ? linear_unit : projcs->unit);
    complete = complete && projection != nullptr && geogcs != nullptr && unit != nullptr;

    gx_projcs *copy =
        complete ? gx_projcs_new(projcs->header.name, geogcs, projection, parms, unit) : nullptr;
    if (copy == nullptr) {
        for (gx_parameter *parameter : parms)
            gx_parameter_del(parameter);
        gx_projection_del(projection);
        gx_geogcs_del(geogcs);
        gx_unit_del(unit);
    }
    return copy;
}
