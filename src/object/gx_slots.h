// gx_slots.h -- internal: what each of the 16 parameter slots means.
//
// Projected systems, transformations and vertical systems hold their parameters in 16 fixed
// slots, and every formula reads a parameter by its slot, never by its name: the slot is the
// parameter's meaning.  The parameter registry binds each parameter name to one of these slots
// (several names share one on purpose: Central_Meridian and Longitude_Of_Origin are both the
// longitude of the origin); everything else -- the driver's unit conversions and defaults, the
// projection formulas, the datum-shift and height methods, the WKT checks -- names slots through
// these enumerations.
#ifndef GX_OBJECT_GX_SLOTS_H
#define GX_OBJECT_GX_SLOTS_H

namespace gx {

// The number of parameter slots of a projected CS, vertical CS or transformation.
inline constexpr int parameter_slots = 16;

// A transformation whose method reads a grid names the grid's dataset by the name of the parameter
// in this slot ("Dataset_<file>").
inline constexpr int dataset_slot = 15;

// The slots of a projection's parameters.
namespace slot {
enum : int {
    false_easting = 0,
    false_northing = 1,
    central_meridian = 2,    // also Longitude_Of_Origin
    standard_parallel_1 = 3, // also Latitude_Of_1st_Point, Pseudo_Standard_Parallel_1
    standard_parallel_2 = 4, // also Latitude_Of_2nd_Point
    scale_factor = 5,
    latitude_of_origin = 6, // also Central_Parallel
    azimuth = 7,
    longitude_of_1st_point = 8,
    longitude_of_2nd_point = 9,
    longitude_of_center = 10,
    latitude_of_center = 11,
    x_scale = 12, // also Auxiliary_Sphere_Type
    auxiliary_sphere_type = 12,
    y_scale = 13,
    xy_plane_rotation = 14,
    height = 15, // also Option
    option = 15,
};
} // namespace slot

// The projection slots that hold angles (converted to radians by the driver) and the false
// offsets (converted to metres), in the order the driver converts them.
inline constexpr int projection_angle_slots[] = {
    slot::latitude_of_origin,     slot::central_meridian,    slot::standard_parallel_1,
    slot::longitude_of_1st_point, slot::standard_parallel_2, slot::longitude_of_2nd_point,
    slot::longitude_of_center,    slot::latitude_of_center,  slot::azimuth,
    slot::xy_plane_rotation,
};
inline constexpr int projection_offset_slots[] = {slot::false_easting, slot::false_northing};

// The slots of a datum-shift method's parameters: translations in metres, rotations (stored in
// arc-seconds), the scale difference (stored in parts per million) and the rotation origin of
// Molodensky-Badekas; a grid method's dataset is named by the parameter in the last slot.
namespace shift_slot {
enum : int {
    x_translation = 0,
    y_translation = 1,
    z_translation = 2,
    x_rotation = 3,
    y_rotation = 4,
    z_rotation = 5,
    scale_difference = 6,
    x_rotation_origin = 7,
    y_rotation_origin = 8,
    z_rotation_origin = 9,
    dataset = dataset_slot,
};
} // namespace shift_slot

// The slots of a height method's parameters.
namespace height_slot {
enum : int {
    vertical_offset = 0,
    longitude_of_evaluation = 2,
    latitude_of_evaluation = 6,
    inclination_north = 13,
    inclination_east = 14,
    dataset = dataset_slot,
};
} // namespace height_slot

// The slots of a vertical coordinate system's parameters.
namespace vertcs_parameter {
enum : int {
    vertical_shift = 0,
    direction = 1,
};
} // namespace vertcs_parameter

} // namespace gx

#endif // GX_OBJECT_GX_SLOTS_H
