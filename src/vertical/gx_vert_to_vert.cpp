// The height driver: applies a vertical transformation to an array of heights.
//
// Each vertical system counts heights in its own unit from its own vertical shift, upwards or
// (direction parameter negative) downwards.  Height methods work in metres from the systems'
// datums, so the driver takes the heights out of the system they come from and back into the
// one they go to, and tells the method whether exactly one of the two counts downwards (the
// direction product).  Methods that read the points' position get them as longitude and
// latitude in the transformation's geographic system, with its unit and prime meridian.
#include "projection/gx_math.h"
#include "vertical/gx_vtmethlist.h"

namespace {

using gx::math::kRadiansPerArcSecond;

constexpr int vertical_offset = 129616;
constexpr int vertical_offset_and_slope = 129657;

namespace height_slot = gx::height_slot;
namespace vertcs_parameter = gx::vertcs_parameter;

// A vertical system as the heights see it.
struct vertical_side {
    double unit;      // metres per unit
    double shift;     // vertical shift, in the system's unit
    double direction; // +1 heights up, -1 depths
};

vertical_side side_of(gx_vertcs *cs)
{
    gx_parameter **parameters = gx_vertcs_parameters(cs);
    return {gx_unit_factor(gx_vertcs_unit(cs)),
            gx_parameter_value(parameters[vertcs_parameter::vertical_shift]),
            gx_parameter_value(parameters[vertcs_parameter::direction]) < 0.0 ? -1.0 : 1.0};
}

bool is_neutral(const vertical_side &side) { return side.unit == 1.0 && side.shift == 0.0; }

// Heights of the system into metres from its datum, and back.
void to_metres(const vertical_side &side, int n, double *heights)
{
    if (is_neutral(side))
        return;
    for (int i = 0; i < n; ++i)
        heights[i] = (heights[i] - side.shift) * side.unit;
}

void from_metres(const vertical_side &side, int n, double *heights)
{
    if (is_neutral(side))
        return;
    for (int i = 0; i < n; ++i)
        heights[i] = heights[i] / side.unit + side.shift;
}

// The geographic system the points are given in: the transformation's horizontal system, or
// the geographic system of a projected one.  Without one the frame is empty (no ellipsoid,
// radians, Greenwich), which is all a method that reads heights alone needs.
struct horizontal_frame {
    double ellipsoid[2];   // a, e2
    double unit;           // radians per angular unit
    double prime_meridian; // degrees
};

horizontal_frame frame_of(const gx_coordsys *coordsys)
{
    const gx_geogcs *geogcs = gx_object_type(coordsys) == GX_TYPE_PROJCS
                                  ? gx_projcs_geogcs(static_cast<const gx_projcs *>(coordsys))
                                  : static_cast<const gx_geogcs *>(coordsys);
    if (!gx_geogcs_p(geogcs))
        return {{0.0, 0.0}, 1.0, 0.0};
    const gx_spheroid *spheroid = gx_datum_spheroid(gx_geogcs_datum(geogcs));
    const double f = gx_spheroid_flattening(spheroid);
    return {{gx_spheroid_axis(spheroid), (2.0 - f) * f},
            gx_unit_factor(gx_geogcs_unit(geogcs)),
            gx_primem_longitude(gx_geogcs_primem(geogcs))};
}

// Everything the method routine receives besides the frame, the points and the heights.
struct method_input {
    double parms[gx::parameter_slots] = {};
    char dataset[GX_NAME_LEN] = {};
    const int *ivals = nullptr;
    const float *fvals = nullptr;
    const double *dvals = nullptr;
};

// The transformation's parameters by slot: the offset in metres (it is given in the unit of the
// system converted to), the origin in radians and the inclinations from arc-seconds to radians.
void fill_parameters(gx_verttran *vt, const vertical_side &to_system, const horizontal_frame &frame,
                     method_input &input)
{
    gx_parameter **parameters = gx_verttran_parameters(vt);
    double *p = input.parms;
    for (int slot = 0; slot < gx::parameter_slots; ++slot)
        p[slot] = gx_parameter_value(parameters[slot]);
    p[height_slot::vertical_offset] *= to_system.unit;
    p[height_slot::longitude_of_evaluation] *= frame.unit;
    p[height_slot::latitude_of_evaluation] *= frame.unit;
    p[height_slot::inclination_north] *= kRadiansPerArcSecond;
    p[height_slot::inclination_east] *= kRadiansPerArcSecond;
}

// A grid method needs positions and a dataset.  A dataset parameter of value 0 asks for the
// grid to be kept loaded in the transformation; any other value has the method read its file on
// every call.
bool prepare_grid(gx_verttran *vt, const double *points, method_input &input)
{
    const gx_parameter *dataset = gx_verttran_parameters(vt)[height_slot::dataset];
    gx_parameter_name(dataset, input.dataset);
    if (points == nullptr || input.dataset[0] == '\0')
        return false;
    if (gx_parameter_value(dataset) == 0.0) {
        if (!gx_verttran_isconstloaded(vt))
            gx_verttran_load_constants(vt);
        const gx_constants *constants = gx_verttran_constants(vt);
        input.ivals = gx_constants_ivals(constants);
        input.fvals = gx_constants_fvals(constants);
        input.dvals = gx_constants_dvals(constants);
    }
    return true;
}

// What the method needs besides the heights; false when it cannot run.
bool prepare_method(gx_verttran *vt, int code, const double *points, method_input &input)
{
    if (code == vertical_offset)
        return true;
    if (code == vertical_offset_and_slope)
        return points != nullptr;
    if (gx::is_grid_method(gx::vtmethod_properties(code)))
        return prepare_grid(vt, points, input);
    return false;
}

} // namespace

int gx_vert_to_vert(gx_verttran *vt, int n, const double *points, double *heights, int direction)
{
    if ((direction != 0 && direction != 1) || !gx_verttran_p(vt) || heights == nullptr || n < 1)
        return 0;
    const vertical_side side1 = side_of(gx_verttran_vertcs1(vt));
    const vertical_side side2 = side_of(gx_verttran_vertcs2(vt));
    const horizontal_frame frame = frame_of(gx_verttran_coordsys(vt));

    const gx_vtmethod *method = gx_verttran_vtmethod(vt);
    const gx_vtm_rtn routine =
        direction == 0 ? gx_vtmethod_forward(method) : gx_vtmethod_inverse(method);
    if (routine == nullptr)
        return 0;
    method_input input;
    fill_parameters(vt, side2, frame, input);
    if (!prepare_method(vt, gx_vtmethod_code(method), points, input))
        return 0;

    const vertical_side &from = direction == 0 ? side1 : side2;
    const vertical_side &to = direction == 0 ? side2 : side1;
    to_metres(from, n, heights);
    const int converted = routine(frame.ellipsoid, frame.unit, frame.prime_meridian,
                                  side1.direction * side2.direction, input.parms, input.dataset,
                                  input.ivals, input.fvals, input.dvals, n, points, heights);
    from_metres(to, n, heights);
    return converted;
}

int gx_vert1_to_vert2(gx_verttran *vt, int n, const double *points, double *heights)
{
    return gx_vert_to_vert(vt, n, points, heights, 0);
}

int gx_vert2_to_vert1(gx_verttran *vt, int n, const double *points, double *heights)
{
    return gx_vert_to_vert(vt, n, points, heights, 1);
}
