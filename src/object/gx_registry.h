// gx_registry.h -- internal: the machinery every registry shares (projections, parameters,
// datum-shift methods, plane fits, height methods), and the properties a row carries besides its
// public fields.
//
// A registry is a constant table of rows in search order, ended by a row of code 0; a table of
// old names; and the constructor that makes an object from a row.  Each registry's source
// describes itself in a `registry` and defines its public operations as calls of the functions
// below.
//
// A row is the public entry (gx_projlist_entry, gx_methlist_entry ...) followed by what the
// library knows of the projection or method besides it: the parameters it takes (its default
// set), the parameters a datum-shift method does not take, and, for a grid method, the folder of
// the data directory its files are in.  The lookups hand out the public entry; properties_of()
// finds the rest of the row from it.
#ifndef GX_OBJECT_GX_REGISTRY_H
#define GX_OBJECT_GX_REGISTRY_H

#include "object/gx_types.h"
#include "util/gx_ctype.h"

#include <type_traits>

namespace gx {

// ---- parameter codes ----------------------------------------------------------------------------

// The code of every row of the parameter registry, by name.
namespace parm {
enum code : int {
    false_easting = 100001,
    false_northing = 100002,
    scale_factor = 100003,
    azimuth = 100004,
    height = 100005,
    vertical_shift = 100006,
    direction = 100007,
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
} // namespace parm

// ---- rows ---------------------------------------------------------------------------------------

// The parameters a projection or method takes: their codes in the order its default set makes
// them, ended by 0.  A row without parameters (a rotation of the prime meridian) has none.
using parameter_set = const int *;
inline constexpr int no_parameters[] = {0};

// Slot bits: bit i set for slot i.
constexpr unsigned int slot_bit(int slot) { return 1u << slot; }
constexpr unsigned int slot_bits(int first, int last)
{
    unsigned int bits = 0;
    for (int slot = first; slot <= last; ++slot)
        bits |= slot_bit(slot);
    return bits;
}

struct projection_properties {
    parameter_set parameters;
};

struct method_properties {
    parameter_set parameters; // null: the text of a transformation is not checked against it
    unsigned int surplus;     // slots whose parameter the method does not take (a text warns)
    const char *grid_folder;  // the data directory's folder of its grid files; null: no grid
};

struct no_properties {};

// A registry row: the public entry, then the properties.
template <class Entry, class Properties> struct registry_row {
    Entry entry;
    Properties properties;
};

using projection_row = registry_row<gx_projlist_entry, projection_properties>;
using parameter_row_t = registry_row<gx_parmlist_entry, no_properties>;
using method_row = registry_row<gx_methlist_entry, method_properties>;
using htmethod_row = registry_row<gx_htmethlist_entry, no_properties>;
using vtmethod_row = registry_row<gx_vtmethlist_entry, method_properties>;

// The properties of the row a public entry belongs to (the entry is the row's first member), or
// null for a null entry.
template <class Properties, class Entry> const Properties *properties_of(const Entry *entry)
{
    using row = registry_row<Entry, Properties>;
    static_assert(std::is_standard_layout_v<row>);
    return entry != nullptr ? &reinterpret_cast<const row *>(entry)->properties : nullptr;
}

inline const projection_properties *properties_of(const gx_projlist_entry *entry)
{
    return properties_of<projection_properties>(entry);
}
inline const method_properties *properties_of(const gx_methlist_entry *entry)
{
    return properties_of<method_properties>(entry);
}
inline const method_properties *properties_of(const gx_vtmethlist_entry *entry)
{
    return properties_of<method_properties>(entry);
}

// Whether the method of a code reads a grid.
inline bool is_grid_method(const method_properties *properties)
{
    return properties != nullptr && properties->grid_folder != nullptr;
}

// ---- lookups ------------------------------------------------------------------------------------

template <class Row> const Row *row_with_code(const Row *rows, int code)
{
    for (const Row *row = rows; row->entry.code != 0; ++row)
        if (row->entry.code == code)
            return row;
    return nullptr;
}

// The first row whose name equals `name` without case ('-' counts as '_'), as gx_strcmp_i
// compares them.
template <class Row> const Row *row_with_name(const Row *rows, const char *name)
{
    if (name == nullptr)
        return nullptr;
    remembered_classes classes;
    caseless_name wanted(name, classes);
    for (const Row *row = rows; row->entry.code != 0; ++row)
        if (wanted.matches(row->entry.name))
            return row;
    return nullptr;
}

template <class Row> const auto *entry_of(const Row *row)
{
    return row != nullptr ? &row->entry : nullptr;
}

// ---- factories ----------------------------------------------------------------------------------

template <class Row, class Object> struct registry {
    const Row *rows;
    const synonym *synonyms;
    // An object with the name and routines of a row; null (reported into err) on failure.
    Object *(*make)(const Row &row, gx_err_rec *err);
    // The factories' errors: an unknown code (category 4) and an unknown name (category 8).
    const char *from_code_function;
    unsigned int code_number;
    const char *code_message; // with the code
    const char *from_name_function;
    unsigned int name_number;
    const char *name_message; // with the name
};

// By name, old names first mapped to current ones.
template <class Row, class Object>
const Row *registry_row_named(const registry<Row, Object> &reg, const char *name)
{
    if (name == nullptr)
        return nullptr;
    return row_with_name(reg.rows, synonym_lookup(reg.synonyms, name));
}

// Stamps an object with the code, authority and version of the row of its own name (old names
// are not mapped here).
template <class Row, class Object>
void registry_set_code(const registry<Row, Object> &reg, Object *obj)
{
    if (!gx_object_p(obj))
        return;
    const Row *row = row_with_name(reg.rows, header_of(obj)->name);
    if (row != nullptr)
        gx_object_code_set(obj, row->entry.code, row->entry.authority, row->entry.version);
}

template <class Row, class Object>
Object *registry_object(const registry<Row, Object> &reg, const Row &row, unsigned int status,
                        gx_err_rec *err)
{
    Object *obj = reg.make(row, err);
    if (obj == nullptr)
        return nullptr;
    gx_object_code_set(obj, row.entry.code, row.entry.authority, row.entry.version);
    gx_object_status_set(obj, status);
    return obj;
}

template <class Row, class Object>
Object *registry_object_from_code(const registry<Row, Object> &reg, int code, gx_err_rec *err)
{
    err_scope scope(err);
    const Row *row = row_with_code(reg.rows, code);
    if (row == nullptr) {
        report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_FACTORY, reg.code_number,
               reg.from_code_function, reg.code_message, code);
        return nullptr;
    }
    return registry_object(reg, *row, GX_STATUS_CODE, err);
}

template <class Row, class Object>
Object *registry_object_from_name(const registry<Row, Object> &reg, const char *name,
                                  gx_err_rec *err)
{
    err_scope scope(err);
    const Row *row = registry_row_named(reg, name);
    if (row == nullptr) {
        report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, reg.name_number,
               reg.from_name_function, reg.name_message, name != nullptr ? name : "");
        return nullptr;
    }
    return registry_object(reg, *row, GX_STATUS_STRING, err);
}

// ---- default parameter sets ---------------------------------------------------------------------

// Empties the 16 slots of `parms` (when not null), then fills them with the parameters of `set`
// (null: none) made with their registry defaults, each in its registry slot.  Returns the number
// made, or 0 with every slot empty again when memory runs out.
int make_default_set(parameter_set set, gx_parameter **parms);

// The slot bits of a set's parameters.
unsigned int slots_of(parameter_set set);

} // namespace gx

#endif // GX_OBJECT_GX_REGISTRY_H
