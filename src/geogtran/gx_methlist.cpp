// The method registry: the datum-shift methods the library knows, with their codes and the
// routines that compute them, and the factories that make method objects from it.
//
// A grid method also has a constants routine, which reads its grid file into the
// transformation's constants.  The grid readers (NADCON, HARN, NTv2) hook in by filling their
// row's three routines; until then the row carries none, and a transformation through it
// converts nothing.
#include "geogtran/gx_method_registry.h"

namespace {

// A grid method whose reader is not written yet.
constexpr gx_mth_rtn pending = nullptr;
constexpr gx_mth_const_rtn no_constants = nullptr;

constexpr gx_methlist_entry epsg(int code, const char *name, gx_mth_rtn forward, gx_mth_rtn inverse,
                                 gx_mth_const_rtn constfunc)
{
    return {code, "EPSG", "6.13", name, forward, inverse, constfunc};
}

constexpr gx_methlist_entry tavu(int code, const char *name, gx_mth_rtn forward, gx_mth_rtn inverse,
                                 gx_mth_const_rtn constfunc)
{
    return {code, "TAVU", "9.3.0", name, forward, inverse, constfunc};
}

// Search order.  Bursa_Wolf is the coordinate-frame rotation under its older name.
constexpr gx_methlist_entry methods[] = {
    epsg(9601, "Longitude_Rotation", gx_longitude_rotation_ccw, gx_longitude_rotation_ccw,
         no_constants),
    tavu(109607, "Bursa_Wolf", gx_bursa_wolf_fwd, gx_bursa_wolf_inv, no_constants),
    epsg(9606, "Position_Vector", gx_position_vector_fwd, gx_position_vector_inv, no_constants),
    epsg(9607, "Coordinate_Frame", gx_coordinate_frame_fwd, gx_coordinate_frame_inv, no_constants),
    epsg(9603, "Geocentric_Translation", gx_geocentric_translation_fwd,
         gx_geocentric_translation_inv, no_constants),
    epsg(9604, "Molodensky", gx_molodensky_fwd, gx_molodensky_inv, no_constants),
    epsg(9605, "Molodensky_Abridged", gx_molodensky_abridged_fwd, gx_molodensky_abridged_inv,
         no_constants),
    epsg(9636, "Molodensky_Badekas", gx_molodensky_badekas_fwd, gx_molodensky_badekas_inv,
         no_constants),
    epsg(9613, "NADCON", pending, pending, no_constants),
    tavu(109613, "HARN", pending, pending, no_constants),
    epsg(9615, "NTv2", pending, pending, no_constants),
    {}, // code 0 ends the table
};

const gx::synonym method_synonyms[] = {
    {nullptr, nullptr},
};

gx_method *method_from_row(const gx_methlist_entry &row, gx_err_rec *err)
{
    return gx_method_new_extended(row.name, row.forward, row.inverse, row.constfunc, err);
}

constexpr gx::method_registry<gx_methlist_entry, gx_method> registry = {
    methods,
    method_synonyms,
    method_from_row,
    "gx_methlist_method_from_code",
    215,
    "Invalid method factory code (%d)",
    "gx_methlist_method_from_name",
    305,
    "Invalid method name \"%s\"",
};

} // namespace

const gx_methlist_entry *gx_methlist_from_code(int code)
{
    return gx::row_with_code(registry.rows, code);
}

const gx_methlist_entry *gx_methlist_from_name(const char *name)
{
    return gx::registry_row_named(registry, name);
}

void gx_methlist_set_code(gx_method *method) { gx::registry_set_code(registry, method); }

gx_method *gx_methlist_method_from_code(int code, gx_err_rec *err)
{
    return gx::registry_object_from_code(registry, code, err);
}

gx_method *gx_methlist_method_from_name(const char *name, gx_err_rec *err)
{
    return gx::registry_object_from_name(registry, name, err);
}
