// The vtmethod registry: the height methods the library knows, with their codes, whether they
// need the points' horizontal position, and the routines that compute them; and the factories
// that make vtmethod objects from it.
//
// The geoid grids (EGM84, EGM96, GEOID, VERTCON) read their grid file through a constants
// routine.  Their readers hook in by filling the row's three routines; until then the row carries
// none, and a transformation through it converts nothing.
#include "geogtran/gx_method_registry.h"

namespace {

// A grid method whose reader is not written yet.
constexpr gx_vtm_rtn pending = nullptr;
constexpr gx_vtm_const_rtn no_constants = nullptr;

// Whether the method reads the points' longitude and latitude.
constexpr int heights_only = 0;
constexpr int at_position = 1;

constexpr gx_vtmethlist_entry row(int code, int horizontal, const char *name, gx_vtm_rtn forward,
                                  gx_vtm_rtn inverse, gx_vtm_const_rtn constfunc)
{
    return {code, horizontal, "TAVU", "9.3.0", name, forward, inverse, constfunc};
}

// Search order.
constexpr gx_vtmethlist_entry vtmethods[] = {
    row(129861, at_position, "EGM84", pending, pending, no_constants),
    row(129961, at_position, "EGM84_Natural_Spline", pending, pending, no_constants),
    row(129661, at_position, "EGM96", pending, pending, no_constants),
    row(129761, at_position, "EGM96_Natural_Spline", pending, pending, no_constants),
    row(129665, at_position, "GEOID", pending, pending, no_constants),
    row(129658, at_position, "VERTCON", pending, pending, no_constants),
    row(129616, heights_only, "Vertical_Offset", gx_vtm_vertical_offset_fwd,
        gx_vtm_vertical_offset_inv, no_constants),
    row(129657, at_position, "Vertical_Offset_and_Slope", gx_vtm_vertical_offset_slope_fwd,
        gx_vtm_vertical_offset_slope_inv, no_constants),
    {}, // code 0 ends the table
};

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

gx_vtmethod *vtmethod_from_row(const gx_vtmethlist_entry &entry, gx_err_rec *err)
{
    const auto routines = gx::routines_of(entry);
    return gx_vtmethod_new_extended(entry.name, routines.forward, routines.inverse,
                                    routines.constfunc, routines.coordsys_type, err);
}

constexpr gx::method_registry<gx_vtmethlist_entry, gx_vtmethod> registry = {
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

const gx_vtmethlist_entry *gx_vtmethlist_from_code(int code)
{
    return gx::row_with_code(registry.rows, code);
}

const gx_vtmethlist_entry *gx_vtmethlist_from_name(const char *name)
{
    return gx::registry_row_named(registry, name);
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
