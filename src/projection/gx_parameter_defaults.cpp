// Default parameter sets: the parameters a projection, a datum-shift method or a height method
// takes, made with the registry's default values, each in its registry slot.  Used to start a
// new projected CS or transformation that the caller then fills in.
#include "projection/gx_registry.h"

namespace {

// Parameter codes, by name.
enum parameter_code : int {
    false_easting = 100001,
    false_northing = 100002,
    scale_factor = 100003,
    azimuth = 100004,
    height = 100005,
    central_meridian = 100010,
    longitude_of_origin = 100011,
    longitude_of_center = 100012,
    longitude_of_1st_point = 100013,
    longitude_of_2nd_point = 100014,
    central_parallel = 100020,
    latitude_of_origin = 100021,
    latitude_of_center = 100022,
    latitude_of_1st_point = 100023,
    latitude_of_2nd_point = 100024,
    standard_parallel_1 = 100025,
    standard_parallel_2 = 100026,
    pseudo_standard_parallel_1 = 100027,
    auxiliary_sphere_type = 100035,
    option = 100036,
    x_scale = 100037,
    y_scale = 100038,
    xy_plane_rotation = 100039,
    x_axis_translation = 100040,
    y_axis_translation = 100041,
    z_axis_translation = 100042,
    x_axis_rotation = 100043,
    y_axis_rotation = 100044,
    z_axis_rotation = 100045,
    scale_difference = 100046,
    dataset = 100047,
    x_coordinate_of_rotation_origin = 100048,
    y_coordinate_of_rotation_origin = 100049,
    z_coordinate_of_rotation_origin = 100050,
    vertical_offset = 100060,
    latitude_of_evaluation = 100061,
    longitude_of_evaluation = 100062,
    inclination_north = 100063,
    inclination_east = 100064,
};

// One set: the codes of the projections (or methods) that take it and the parameters it makes,
// in the order of making; both lists end with 0.
struct default_set {
    int owners[24];
    int parameters[gx::parameter_slots + 1];
};

const default_set projection_sets[] = {
    {{43001, 43003, 43008, 43009, 43010, 43011, 43012, 43013, 43014, 43015, 43016,
      43017, 43022, 43029, 43030, 43043, 43044, 43045, 43046, 43048, 43057},
     {central_meridian, false_easting, false_northing}},
    {{43002, 43004, 43018, 43019, 43024, 43034, 43042, 43050, 43051},
     {central_meridian, standard_parallel_1, false_easting, false_northing}},
    {{43005, 43006, 43026, 43028, 43038, 43056},
     {central_meridian, latitude_of_origin, scale_factor, false_easting, false_northing}},
    {{43007, 43027},
     {central_meridian, latitude_of_origin, standard_parallel_1, standard_parallel_2, false_easting,
      false_northing}},
    {{43020},
     {central_meridian, latitude_of_origin, standard_parallel_1, standard_parallel_2, scale_factor,
      false_easting, false_northing}},
    {{43021, 43032, 43033}, {central_meridian, latitude_of_origin, false_easting, false_northing}},
    {{43023}, {central_meridian, central_parallel, false_easting, false_northing}},
    {{43025, 43035},
     {longitude_of_1st_point, latitude_of_1st_point, longitude_of_2nd_point, latitude_of_2nd_point,
      latitude_of_center, scale_factor, false_easting, false_northing}},
    {{43031},
     {longitude_of_1st_point, longitude_of_2nd_point, latitude_of_1st_point, latitude_of_2nd_point,
      false_easting, false_northing}},
    {{43036, 43037, 43058},
     {longitude_of_center, latitude_of_center, azimuth, scale_factor, false_easting,
      false_northing}},
    {{43039},
     {longitude_of_center, latitude_of_center, pseudo_standard_parallel_1, azimuth, scale_factor,
      false_easting, false_northing, x_scale, y_scale, xy_plane_rotation}},
    {{43040}, {longitude_of_origin, latitude_of_origin, false_easting, false_northing}},
    {{43041, 43047}, {longitude_of_center, latitude_of_center, false_easting, false_northing}},
    {{43049}, {longitude_of_center, latitude_of_center, height, false_easting, false_northing}},
    {{43052}, {false_easting, false_northing, option}},
    {{43053, 43054},
     {longitude_of_center, latitude_of_center, azimuth, xy_plane_rotation, scale_factor,
      false_easting, false_northing}},
    {{43055, 43059}, {central_meridian, option, false_easting, false_northing}},
    {{43102, 43104},
     {central_meridian, standard_parallel_1, false_easting, false_northing, auxiliary_sphere_type}},
    {{43103, 43109, 43110, 43112, 43129},
     {central_meridian, false_easting, false_northing, auxiliary_sphere_type}},
    {{43126},
     {central_meridian, latitude_of_origin, scale_factor, false_easting, false_northing,
      auxiliary_sphere_type}},
    {{43132, 43133},
     {central_meridian, latitude_of_origin, false_easting, false_northing, auxiliary_sphere_type}},
    {{43141, 43147},
     {longitude_of_center, latitude_of_center, false_easting, false_northing,
      auxiliary_sphere_type}},
};

const default_set method_sets[] = {
    {{9603, 9604, 9605}, {x_axis_translation, y_axis_translation, z_axis_translation}},
    {{9606, 9607, 109607},
     {x_axis_translation, y_axis_translation, z_axis_translation, x_axis_rotation, y_axis_rotation,
      z_axis_rotation, scale_difference}},
    {{9636},
     {x_axis_translation, y_axis_translation, z_axis_translation, x_axis_rotation, y_axis_rotation,
      z_axis_rotation, scale_difference, x_coordinate_of_rotation_origin,
      y_coordinate_of_rotation_origin, z_coordinate_of_rotation_origin}},
    {{9613, 9615, 109613}, {dataset}},
};

const default_set vtmethod_sets[] = {
    {{129616}, {vertical_offset}},
    {{129657},
     {vertical_offset, longitude_of_evaluation, latitude_of_evaluation, inclination_north,
      inclination_east}},
    {{129658, 129661, 129662, 129663, 129664, 129665, 129761, 129861, 129961}, {dataset}},
};

bool owns(const default_set &set, int code)
{
    for (const int *owner = set.owners; *owner != 0; ++owner)
        if (*owner == code)
            return true;
    return false;
}

template <std::size_t N> const default_set *set_of(const default_set (&sets)[N], int code)
{
    for (const default_set &set : sets)
        if (owns(set, code))
            return &set;
    return nullptr;
}

void clear_slots(gx_parameter **parms)
{
    for (int slot = 0; slot < gx::parameter_slots; ++slot) {
        gx_object_del(parms[slot]);
        parms[slot] = nullptr;
    }
}

// Fills the slots from `set` (null: no slot is filled); returns the number made, or 0 with every
// slot empty again when memory runs out.
int make_set(const default_set *set, gx_parameter **parms)
{
    if (set == nullptr)
        return 0;
    int made = 0;
    for (const int *code = set->parameters; *code != 0; ++code) {
        gx_parameter *parameter = gx_parmlist_parameter_from_code(*code, nullptr);
        if (parameter == nullptr) {
            clear_slots(parms);
            return 0;
        }
        parms[gx_parmlist_index_from_code(*code)] = parameter;
        ++made;
    }
    return made;
}

template <std::size_t N>
int defaults_for(const void *owner, unsigned int owner_type, const default_set (&sets)[N],
                 gx_parameter **parms)
{
    if (parms == nullptr)
        return 0;
    for (int slot = 0; slot < gx::parameter_slots; ++slot)
        parms[slot] = nullptr;
    if (gx_object_type(owner) != owner_type)
        return 0;
    return make_set(set_of(sets, gx_object_code(owner)), parms);
}

} // namespace

int gx_parameter_projection_defaults(const gx_projection *projection, gx_parameter *parms[16])
{
    return defaults_for(projection, GX_TYPE_PROJECTION, projection_sets, parms);
}

int gx_parameter_method_defaults(const gx_method *method, gx_parameter *parms[16])
{
    return defaults_for(method, GX_TYPE_METHOD, method_sets, parms);
}

int gx_parameter_vtmethod_defaults(const gx_vtmethod *vtmethod, gx_parameter *parms[16])
{
    return defaults_for(vtmethod, GX_TYPE_VTMETHOD, vtmethod_sets, parms);
}
