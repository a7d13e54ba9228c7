// The parameter registry: every named parameter of projections, datum-shift methods, height
// methods and vertical systems, with its default value, its slot and the objects that take it,
// and the factories that make parameter objects from it.
//
// Formulas read their parameters by slot, never by name, so the slot is what a parameter means:
// several names share a slot on purpose (Central_Meridian and Longitude_Of_Origin are both the
// longitude of the projection's origin).  The projection slots are 0 false easting, 1 false
// northing, 2 central meridian, 3 and 4 the standard parallels, 5 scale factor, 6 latitude of
// origin, 7 azimuth, 8 and 9 the longitudes of the two points, 10 and 11 the centre, 12 x scale
// or auxiliary sphere type, 13 y scale, 14 XY-plane rotation, 15 height or option.
#include "object/gx_registry.h"

#include <cctype>
#include <cstring>

namespace {

constexpr unsigned int projcs = GX_TYPE_PROJCS;
constexpr unsigned int vertcs = GX_TYPE_VERTCS;
constexpr unsigned int method = GX_TYPE_GEOGTRAN;
constexpr unsigned int vtmethod = GX_TYPE_VERTTRAN;

using namespace gx::parm;
namespace slot = gx::slot;
namespace shift_slot = gx::shift_slot;
namespace height_slot = gx::height_slot;
namespace vertcs_parameter = gx::vertcs_parameter;

constexpr gx::parameter_row_t row(int code, const char *name, double default_value, int index,
                                  unsigned int usage)
{
    return {{code, "TAVU", "9.3.0", name, default_value, index, usage}, {}};
}

const gx::parameter_row_t parameters[] = {
    row(false_easting, "False_Easting", 0, slot::false_easting, projcs),
    row(false_northing, "False_Northing", 0, slot::false_northing, projcs),
    row(central_meridian, "Central_Meridian", 0, slot::central_meridian, projcs),
    row(longitude_of_origin, "Longitude_Of_Origin", 0, slot::central_meridian, projcs),
    row(standard_parallel_1, "Standard_Parallel_1", 60, slot::standard_parallel_1, projcs),
    row(standard_parallel_2, "Standard_Parallel_2", 60, slot::standard_parallel_2, projcs),
    row(scale_factor, "Scale_Factor", 1, slot::scale_factor, projcs),
    row(central_parallel, "Central_Parallel", 0, slot::latitude_of_origin, projcs),
    row(latitude_of_origin, "Latitude_Of_Origin", 0, slot::latitude_of_origin, projcs),
    row(azimuth, "Azimuth", 45, slot::azimuth, projcs),
    row(height, "Height", 0, slot::height, projcs),
    row(option, "Option", 0, slot::option, projcs),
    row(latitude_of_1st_point, "Latitude_Of_1st_Point", 0, slot::standard_parallel_1, projcs),
    row(latitude_of_2nd_point, "Latitude_Of_2nd_Point", 60, slot::standard_parallel_2, projcs),
    row(longitude_of_1st_point, "Longitude_Of_1st_Point", 0, slot::longitude_of_1st_point, projcs),
    row(longitude_of_2nd_point, "Longitude_Of_2nd_Point", 60, slot::longitude_of_2nd_point, projcs),
    row(longitude_of_center, "Longitude_Of_Center", -75, slot::longitude_of_center, projcs),
    row(latitude_of_center, "Latitude_Of_Center", 40, slot::latitude_of_center, projcs),
    row(pseudo_standard_parallel_1, "Pseudo_Standard_Parallel_1", 60, slot::standard_parallel_1,
        projcs),
    row(xy_plane_rotation, "XY_Plane_Rotation", 0, slot::xy_plane_rotation, projcs),
    row(x_scale, "X_Scale", 1, slot::x_scale, projcs),
    row(y_scale, "Y_Scale", 1, slot::y_scale, projcs),
    row(auxiliary_sphere_type, "Auxiliary_Sphere_Type", 0, slot::auxiliary_sphere_type, projcs),
    row(x_axis_translation, "X_Axis_Translation", 0, shift_slot::x_translation, method),
    row(y_axis_translation, "Y_Axis_Translation", 0, shift_slot::y_translation, method),
    row(z_axis_translation, "Z_Axis_Translation", 0, shift_slot::z_translation, method),
    row(x_axis_rotation, "X_Axis_Rotation", 0, shift_slot::x_rotation, method),
    row(y_axis_rotation, "Y_Axis_Rotation", 0, shift_slot::y_rotation, method),
    row(z_axis_rotation, "Z_Axis_Rotation", 0, shift_slot::z_rotation, method),
    row(scale_difference, "Scale_Difference", 0, shift_slot::scale_difference, method),
    row(x_coordinate_of_rotation_origin, "X_Coordinate_of_Rotation_Origin", 0,
        shift_slot::x_rotation_origin, method),
    row(y_coordinate_of_rotation_origin, "Y_Coordinate_of_Rotation_Origin", 0,
        shift_slot::y_rotation_origin, method),
    row(z_coordinate_of_rotation_origin, "Z_Coordinate_of_Rotation_Origin", 0,
        shift_slot::z_rotation_origin, method),
    row(dataset, "Dataset_", 0, shift_slot::dataset, method | vtmethod),
    row(vertical_offset, "Vertical_Offset", 0, height_slot::vertical_offset, vtmethod),
    row(latitude_of_evaluation, "Latitude_Of_Evaluation", 0, height_slot::latitude_of_evaluation,
        vtmethod),
    row(longitude_of_evaluation, "Longitude_Of_Evaluation", 0, height_slot::longitude_of_evaluation,
        vtmethod),
    row(inclination_north, "Inclination_North", 0, height_slot::inclination_north, vtmethod),
    row(inclination_east, "Inclination_East", 0, height_slot::inclination_east, vtmethod),
    row(vertical_shift, "Vertical_Shift", 0, vertcs_parameter::vertical_shift, vertcs),
    row(direction, "Direction", 1, vertcs_parameter::direction, vertcs),
    {}, // code 0 ends the table
};

// Old parameter names and their current ones: none so far.
const gx::synonym parameter_synonyms[] = {
    {nullptr, nullptr},
};

// A grid-based method names its grid file in a parameter "Dataset_<file>": any name with more
// characters after the "Dataset_" prefix (compared without case) is the dataset parameter.
bool names_dataset(const char *name)
{
    constexpr char prefix[] = "DATASET_";
    constexpr std::size_t prefix_length = sizeof prefix - 1;
    if (std::strlen(name) <= prefix_length)
        return false;
    for (std::size_t i = 0; i < prefix_length; ++i)
        if (std::toupper(static_cast<unsigned char>(name[i])) != prefix[i])
            return false;
    return true;
}

const gx_parmlist_entry *dataset_row() { return gx_parmlist_from_code(gx::parm::dataset); }

gx_parameter *parameter_from_row(const gx_parmlist_entry *entry, const char *name, double value,
                                 unsigned int status, gx_err_rec *err)
{
    gx_parameter *parameter = gx_parameter_new_errext(name, value, err);
    if (parameter == nullptr)
        return nullptr;
    gx_object_status_set(parameter, status);
    gx_object_code_set(parameter, entry->code, entry->authority, entry->version);
    return parameter;
}

void report_bad_code(gx_err_rec *err, const char *function, int code)
{
    gx::report(err, GX_ERRLVL_ERROR, GX_ERRCAT_FACTORY, 218, function,
               "Invalid parameter factory code (%d)", code);
}

} // namespace

const gx_parmlist_entry *gx_parmlist_from_code(int code)
{
    return gx::entry_of(gx::row_with_code(parameters, code));
}

const gx_parmlist_entry *gx_parmlist_from_name(const char *name)
{
    if (name == nullptr)
        return nullptr;
    name = gx::synonym_lookup(parameter_synonyms, name);
    const gx_parmlist_entry *entry = gx::entry_of(gx::row_with_name(parameters, name));
    if (entry == nullptr && names_dataset(name))
        entry = dataset_row();
    return entry;
}

int gx_parmlist_index_from_code(int code)
{
    const gx_parmlist_entry *entry = gx_parmlist_from_code(code);
    return entry != nullptr ? entry->index : -1;
}

int gx_parmlist_index_from_name(const char *name)
{
    const gx_parmlist_entry *entry = gx_parmlist_from_name(name);
    return entry != nullptr ? entry->index : -1;
}

gx_parameter *gx_parmlist_parameter_from_code(int code, gx_err_rec *err)
{
    const char *function = "gx_parmlist_parameter_from_code";
    gx::err_scope scope(err);
    const gx_parmlist_entry *entry = gx_parmlist_from_code(code);
    if (entry == nullptr) {
        report_bad_code(scope.rec(), function, code);
        return nullptr;
    }
    return parameter_from_row(entry, entry->name, entry->default_value, GX_STATUS_CODE, err);
}

gx_parameter *gx_parmlist_parameter_from_code_value(int code, double value, gx_err_rec *err)
{
    const char *function = "gx_parmlist_parameter_from_code_value";
    gx::err_scope scope(err);
    const gx_parmlist_entry *entry = gx_parmlist_from_code(code);
    if (entry == nullptr) {
        report_bad_code(scope.rec(), function, code);
        return nullptr;
    }
    return parameter_from_row(entry, entry->name, value, GX_STATUS_STRING, err);
}

gx_parameter *gx_parmlist_parameter_from_name(const char *name, gx_err_rec *err)
{
    gx::err_scope scope(err);
    const gx_parmlist_entry *entry = gx_parmlist_from_name(name);
    if (entry == nullptr) {
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 308,
                   "gx_parmlist_parameter_from_name", "Invalid parameter name \"%s\"",
                   name != nullptr ? name : "");
        return nullptr;
    }
    // The name is kept as written: a dataset parameter's name carries its grid file.
    return parameter_from_row(entry, name, entry->default_value, GX_STATUS_STRING, err);
}

void gx_parmlist_set_code(gx_parameter *parameter)
{
    if (gx_object_type(parameter) != GX_TYPE_PARAMETER)
        return;
    const gx_parmlist_entry *entry = gx_parmlist_from_name(gx::header_of(parameter)->name);
    if (entry != nullptr)
        gx_object_code_set(parameter, entry->code, entry->authority, entry->version);
}
