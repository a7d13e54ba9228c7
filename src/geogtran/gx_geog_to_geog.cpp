// The datum-shift driver: applies a geographic transformation to an array of points.
//
// Points come in the angular unit of the system they are converted from and counted from its
// prime meridian.  Method routines work in radians about Greenwich on their two ellipsoids, so
// the driver converts the points on the way in and back on the way out.  Three families of
// methods take their inputs differently:
//   - longitude rotation joins two systems on one datum that differ only in the prime meridian:
//     the rotation is the difference of the prime meridians, and the points are not moved to
//     Greenwich around it;
//   - grid methods read their grid (loaded once into the transformation's constants) with
//     Greenwich longitudes as they come: a grid is bound to its own datum's meridian;
//   - the formula methods take the transformation's parameters, rotations converted from
//     arc-seconds and the scale difference from parts per million.
#include "object/gx_registry.h"
#include "projection/gx_math.h"

namespace {

using gx::math::kRadiansPerArcSecond;
using gx::math::kRadiansPerDegree;
namespace shift_slot = gx::shift_slot;

constexpr double per_million = 1e-6;

constexpr int longitude_rotation = 9601;
constexpr int rotation_slot = shift_slot::z_rotation; // where a longitude rotation takes its angle

// One of the transformation's geographic systems, as the points and the routines see it.
struct geographic_side {
    double ellipsoid[2];   // a, e2
    double prime_meridian; // radians east of Greenwich
    double unit;           // radians per angular unit
    bool shift;            // longitudes go to and from Greenwich around the method
};

geographic_side side_of(const gx_geogcs *cs)
{
    const gx_spheroid *spheroid = gx_datum_spheroid(gx_geogcs_datum(cs));
    const double f = gx_spheroid_flattening(spheroid);
    return {{gx_spheroid_axis(spheroid), (2.0 - f) * f},
            gx_primem_longitude(gx_geogcs_primem(cs)) * kRadiansPerDegree,
            gx_unit_factor(gx_geogcs_unit(cs)),
            false};
}

// Everything the method routine receives besides the ellipsoids and the points.
struct method_input {
    double parms[gx::parameter_slots] = {};
    char dataset[GX_NAME_LEN] = {}; // the grid methods' dataset name
    const int *ivals = nullptr;
    const float *fvals = nullptr;
    const double *dvals = nullptr;
};

bool is_grid_method(int code)
{
    return gx::is_grid_method(gx::properties_of(gx_methlist_from_code(code)));
}

// The rotation from the first meridian to the second, or back.  False when the two systems are
// not on one datum: a rotation cannot shift a datum.
bool prepare_rotation(const gx_geogtran *gt, const geographic_side &side1,
                      const geographic_side &side2, int direction, method_input &input)
{
    if (!gx_datum_eq(gx_geogcs_datum(gx_geogtran_geogcs1(gt)),
                     gx_geogcs_datum(gx_geogtran_geogcs2(gt))))
        return false;
    const double rotation = side1.prime_meridian - side2.prime_meridian;
    input.parms[rotation_slot] = direction == 0 ? rotation : -rotation;
    return true;
}

// The grid's loaded nodes and its dataset name.  False when the grid cannot be loaded or no
// dataset is named.
bool prepare_grid(gx_geogtran *gt, method_input &input)
{
    if (!gx_geogtran_isconstloaded(gt))
        gx_geogtran_load_constants(gt);
    const gx_constants *constants = gx_geogtran_constants(gt);
    gx_parameter_name(gx_geogtran_parameters(gt)[shift_slot::dataset], input.dataset);
    if (constants == nullptr || input.dataset[0] == '\0')
        return false;
    input.ivals = gx_constants_ivals(constants);
    input.fvals = gx_constants_fvals(constants);
    input.dvals = gx_constants_dvals(constants);
    return true;
}

// The transformation's parameters by slot, rotations in radians and the scale as a ratio; the
// points are taken to Greenwich on every side whose prime meridian is elsewhere.
void prepare_formula(gx_geogtran *gt, geographic_side &side1, geographic_side &side2,
                     method_input &input)
{
    gx_parameter **parameters = gx_geogtran_parameters(gt);
    for (int slot = 0; slot < gx::parameter_slots; ++slot)
        input.parms[slot] = gx_parameter_value(parameters[slot]);
    for (int slot : {shift_slot::x_rotation, shift_slot::y_rotation, shift_slot::z_rotation})
        input.parms[slot] *= kRadiansPerArcSecond;
    input.parms[shift_slot::scale_difference] *= per_million;
    side1.shift = side1.prime_meridian != 0.0;
    side2.shift = side2.prime_meridian != 0.0;
}

void to_greenwich_radians(const geographic_side &side, int n, double *points)
{
    for (int i = 0; i < n; ++i) {
        double &longitude = points[2 * i];
        longitude *= side.unit;
        points[2 * i + 1] *= side.unit;
        if (side.shift)
            longitude = gx_delta(side.prime_meridian + longitude);
    }
}

void from_greenwich_radians(const geographic_side &side, int n, double *points)
{
    for (int i = 0; i < n; ++i) {
        double &longitude = points[2 * i];
        if (side.shift)
            longitude = gx_delta(longitude - side.prime_meridian);
        longitude /= side.unit;
        points[2 * i + 1] /= side.unit;
    }
}

} // namespace

int gx_geog_to_geog(gx_geogtran *gt, int n, double *points, double *heights, int direction)
{
    const gx_method *method = gx_geogtran_method(gt);
    const gx_mth_rtn forward = gx_method_forward(method);
    const gx_mth_rtn inverse = gx_method_inverse(method);
    if (forward == nullptr || inverse == nullptr || n < 0)
        return 0;

    geographic_side side1 = side_of(gx_geogtran_geogcs1(gt));
    geographic_side side2 = side_of(gx_geogtran_geogcs2(gt));
    method_input input;
    const int code = gx_method_code(method);
    if (code == longitude_rotation) {
        if (!prepare_rotation(gt, side1, side2, direction, input))
            return 0;
    } else if (is_grid_method(code)) {
        if (!prepare_grid(gt, input))
            return 0;
    } else {
        prepare_formula(gt, side1, side2, input);
    }
    const char *dataset = is_grid_method(code) ? input.dataset : nullptr;

    // The ellipsoids keep their order both ways: an inverse routine knows it goes from 2 to 1.
    const geographic_side &from = direction == 0 ? side1 : side2;
    const geographic_side &to = direction == 0 ? side2 : side1;
    const gx_mth_rtn routine = direction == 0 ? forward : inverse;
    to_greenwich_radians(from, n, points);
    const int converted = routine(side1.ellipsoid, side2.ellipsoid, input.parms, dataset, n, points,
                                  heights, input.ivals, input.fvals, input.dvals);
    from_greenwich_radians(to, n, points);
    return converted;
}

int gx_geog1_to_geog2(gx_geogtran *gt, int n, double *points, double *heights)
{
    return gx_geog_to_geog(gt, n, points, heights, 0);
}

int gx_geog2_to_geog1(gx_geogtran *gt, int n, double *points, double *heights)
{
    return gx_geog_to_geog(gt, n, points, heights, 1);
}
