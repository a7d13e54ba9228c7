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
#include "projection/gx_registry.h"
#include "object/gx_wkt.h"
#include "util/gx_ctype.h"

#include <cctype>
#include <cstring>

namespace {

constexpr unsigned int projcs = GX_TYPE_PROJCS;
constexpr unsigned int vertcs = GX_TYPE_VERTCS;
constexpr unsigned int method = GX_TYPE_GEOGTRAN;
constexpr unsigned int vtmethod = GX_TYPE_VERTTRAN;

constexpr gx_parmlist_entry row(int code, const char *name, double default_value, int index,
                                unsigned int usage)
{
    return {code, "TAVU", "9.3.0", name, default_value, index, usage};
}

const gx_parmlist_entry parameters[] = {
    row(100001, "False_Easting", 0, 0, projcs),
    row(100002, "False_Northing", 0, 1, projcs),
    row(100010, "Central_Meridian", 0, 2, projcs),
    row(100011, "Longitude_Of_Origin", 0, 2, projcs),
    row(100025, "Standard_Parallel_1", 60, 3, projcs),
    row(100026, "Standard_Parallel_2", 60, 4, projcs),
    row(100003, "Scale_Factor", 1, 5, projcs),
    row(100020, "Central_Parallel", 0, 6, projcs),
    row(100021, "Latitude_Of_Origin", 0, 6, projcs),
    row(100004, "Azimuth", 45, 7, projcs),
    row(100005, "Height", 0, 15, projcs),
    row(100036, "Option", 0, 15, projcs),
    row(100023, "Latitude_Of_1st_Point", 0, 3, projcs),
    row(100024, "Latitude_Of_2nd_Point", 60, 4, projcs),
    row(100013, "Longitude_Of_1st_Point", 0, 8, projcs),
    row(100014, "Longitude_Of_2nd_Point", 60, 9, projcs),
    row(100012, "Longitude_Of_Center", -75, 10, projcs),
    row(100022, "Latitude_Of_Center", 40, 11, projcs),
    row(100027, "Pseudo_Standard_Parallel_1", 60, 3, projcs),
    row(100039, "XY_Plane_Rotation", 0, 14, projcs),
    row(100037, "X_Scale", 1, 12, projcs),
    row(100038, "Y_Scale", 1, 13, projcs),
    row(100035, "Auxiliary_Sphere_Type", 0, 12, projcs),
    row(100040, "X_Axis_Translation", 0, 0, method),
    row(100041, "Y_Axis_Translation", 0, 1, method),
    row(100042, "Z_Axis_Translation", 0, 2, method),
    row(100043, "X_Axis_Rotation", 0, 3, method),
    row(100044, "Y_Axis_Rotation", 0, 4, method),
    row(100045, "Z_Axis_Rotation", 0, 5, method),
    row(100046, "Scale_Difference", 0, 6, method),
    row(100048, "X_Coordinate_of_Rotation_Origin", 0, 7, method),
    row(100049, "Y_Coordinate_of_Rotation_Origin", 0, 8, method),
    row(100050, "Z_Coordinate_of_Rotation_Origin", 0, 9, method),
    row(100047, "Dataset_", 0, 15, method | vtmethod),
    row(100060, "Vertical_Offset", 0, 0, vtmethod),
    row(100061, "Latitude_Of_Evaluation", 0, 6, vtmethod),
    row(100062, "Longitude_Of_Evaluation", 0, 2, vtmethod),
    row(100063, "Inclination_North", 0, 13, vtmethod),
    row(100064, "Inclination_East", 0, 14, vtmethod),
    row(100006, "Vertical_Shift", 0, 0, vertcs),
    row(100007, "Direction", 1, 1, vertcs),
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

const gx_parmlist_entry *dataset_row() { return gx_parmlist_from_code(100047); }

// The first row whose name equals `name` without case ('-' counts as '_'), as gx_strcmp_i
// compares them.
const gx_parmlist_entry *row_named(const char *name)
{
    gx::remembered_classes classes;
    gx::caseless_name wanted(name, classes);
    for (const gx_parmlist_entry *entry = parameters; entry->code != 0; ++entry)
        if (wanted.matches(entry->name))
            return entry;
    return nullptr;
}

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
    for (const gx_parmlist_entry *entry = parameters; entry->code != 0; ++entry)
        if (entry->code == code)
            return entry;
    return nullptr;
}

const gx_parmlist_entry *gx_parmlist_from_name(const char *name)
{
    if (name == nullptr)
        return nullptr;
    name = gx::synonym_lookup(parameter_synonyms, name);
    const gx_parmlist_entry *entry = row_named(name);
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
