// The vtmethod registry: the height methods the library knows, with their codes, whether they
// need the points' horizontal position, and the routines that compute them; and the factories
// that make vtmethod objects from it.
//
// Each row also says which parameters its method takes and, for a geoid grid (EGM84, EGM96,
// GEOID, VERTCON), the folder of the data directory's "vertical" folder its files are in.  The
// grids read their file through a constants routine; their readers hook in by filling the row's
// three routines; until then the row carries none, and a transformation through it converts
// nothing.
#include "vertical/gx_vtmethlist.h"

namespace {

// A grid method whose reader is not written yet.
constexpr gx_vtm_rtn pending = nullptr;
constexpr gx_vtm_const_rtn no_constants = nullptr;

// Whether the method reads the points' longitude and latitude.
constexpr int heights_only = 0;
constexpr int at_position = 1;

using namespace gx::parm;
constexpr int offset[] = {vertical_offset, 0};
constexpr int offset_and_slope[] = {vertical_offset,        longitude_of_evaluation,
                                    latitude_of_evaluation, inclination_north,
                                    inclination_east,       0};
constexpr int grid_file[] = {dataset, 0};

constexpr gx::method_properties formula(gx::parameter_set parameters)
{
    return {parameters, 0, nullptr};
}
constexpr gx::method_properties grid_in(const char *folder) { return {grid_file, 0, folder}; }

constexpr gx::vtmethod_row row(int code, int horizontal, const char *name, gx_vtm_rtn forward,
                               gx_vtm_rtn inverse, gx_vtm_const_rtn constfunc,
                               gx::method_properties properties)
{
    return {{code, horizontal, "TAVU", "9.3.0", name, forward, inverse, constfunc}, properties};
}

// Search order.
constexpr gx::vtmethod_row vtmethods[] = {
    row(129861, at_position, "EGM84", pending, pending, no_constants, grid_in("egm")),
    row(129961, at_position, "EGM84_Natural_Spline", pending, pending, no_constants,
        grid_in("egm")),
    row(129661, at_position, "EGM96", pending, pending, no_constants, grid_in("egm")),
    row(129761, at_position, "EGM96_Natural_Spline", pending, pending, no_constants,
        grid_in("egm")),
    row(129665, at_position, "GEOID", pending, pending, no_constants, grid_in("geoid")),
    row(129658, at_position, "VERTCON", pending, pending, no_constants, grid_in("vertcon")),
    row(129616, heights_only, "Vertical_Offset", gx_vtm_vertical_offset_fwd,
        gx_vtm_vertical_offset_inv, no_constants, formula(offset)),
    row(129657, at_position, "Vertical_Offset_and_Slope", gx_vtm_vertical_offset_slope_fwd,
        gx_vtm_vertical_offset_slope_inv, no_constants, formula(offset_and_slope)),
    {}, // code 0 ends the table
};

// Codes between the registry's grid rows that have no row of their own (the grid kinds with
// routines of their own but no registry row): a method stamped with one of them still runs as a
// grid method, reading its dataset directly.
constexpr int unlisted_grid_codes[] = {129662, 129663, 129664};
constexpr gx::method_properties unlisted_grid = grid_in("");

// Short and descriptive names of the EGM interpolations: "bl" and "Bilinear" are the plain
// model, "ns" its natural-spline form.
const gx::synonym vtmethod_synonyms[] = {
    {"EGM84_ns", "EGM84_Natural_Spline"},
    {"EGM84_bl", "EGM84"},
    {"EGM84_Bilinear", "EGM84"},
    {"EGM96_ns", "EGM96_Natural_Spline"},
    {"EGM96_bl", "EGM96"},
    {"EGM96_Bilinear", "EGM96"},
    {nullptr, nullptr},
};

gx_vtmethod *vtmethod_from_row(const gx::vtmethod_row &row, gx_err_rec *err)
{
    const auto routines = gx::routines_of(row.entry);
    return gx_vtmethod_new_extended(row.entry.name, routines.forward, routines.inverse,
                                    routines.constfunc, routines.coordsys_type, err);
}

constexpr gx::registry<gx::vtmethod_row, gx_vtmethod> registry = {
    vtmethods,
    vtmethod_synonyms,
    vtmethod_from_row,
    "gx_vtmethlist_vtmethod_from_code",
    222,
    "Invalid vtmethod factory code (%d)",
    "gx_vtmethlist_vtmethod_from_name",
    307,
    "Invalid vtmethod name \"%s\"",
};

} // namespace

const gx::method_properties *gx::vtmethod_properties(int code)
{
    if (const gx::vtmethod_row *row = gx::row_with_code(vtmethods, code))
        return &row->properties;
    for (int unlisted : unlisted_grid_codes)
        if (code == unlisted)
            return &unlisted_grid;
    return nullptr;
}

const gx_vtmethlist_entry *gx_vtmethlist_from_code(int code)
{
    return gx::entry_of(gx::row_with_code(registry.rows, code));
}

const gx_vtmethlist_entry *gx_vtmethlist_from_name(const char *name)
{
    return gx::entry_of(gx::registry_row_named(registry, name));
}

void gx_vtmethlist_set_code(gx_vtmethod *vtmethod) { gx::registry_set_code(registry, vtmethod); }

gx_vtmethod *gx_vtmethlist_vtmethod_from_code(int code, gx_err_rec *err)
{
    return gx::registry_object_from_code(registry, code, err);
}

gx_vtmethod *gx_vtmethlist_vtmethod_from_name(const char *name, gx_err_rec *err)
{
    return gx::registry_object_from_name(registry, name, err);
}

int gx_parameter_vtmethod_defaults(const gx_vtmethod *vtmethod, gx_parameter *parms[16])
{
    const gx::method_properties *properties =
        gx_vtmethod_p(vtmethod) ? gx::vtmethod_properties(gx_vtmethod_code(vtmethod)) : nullptr;
    return gx::make_default_set(properties != nullptr ? properties->parameters : nullptr, parms);
}
