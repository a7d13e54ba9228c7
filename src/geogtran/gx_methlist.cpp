// The method registry: the datum-shift methods the library knows, with their codes and the
// routines that compute them, and the factories that make method objects from it.
//
// Each row also says which parameters its method takes (its default set, and what a WKT text is
// checked against: a missing one warns, or fails the text for a grid method, which cannot run
// without its grid) and which slots it does not take.  A grid method has a constants routine,
// which reads its grid file into the transformation's constants, and names the folder of the
// data directory its files are in.  The grid readers (NADCON, HARN, NTv2) hook in by filling
// their row's three routines; until then the row carries none, and a transformation through it
// converts nothing.
#include "object/gx_registry.h"

namespace {

using gx::slot_bits;

// A grid method whose reader is not written yet.
constexpr gx_mth_rtn pending = nullptr;
constexpr gx_mth_const_rtn no_constants = nullptr;

using namespace gx::parm;
constexpr int translation[] = {x_axis_translation, y_axis_translation, z_axis_translation, 0};
constexpr int seven_parameters[] = {
    x_axis_translation, y_axis_translation, z_axis_translation, x_axis_rotation,
    y_axis_rotation,    z_axis_rotation,    scale_difference,   0};
constexpr int ten_parameters[] = {x_axis_translation,
                                  y_axis_translation,
                                  z_axis_translation,
                                  x_axis_rotation,
                                  y_axis_rotation,
                                  z_axis_rotation,
                                  scale_difference,
                                  x_coordinate_of_rotation_origin,
                                  y_coordinate_of_rotation_origin,
                                  z_coordinate_of_rotation_origin,
                                  0};
constexpr int grid_file[] = {dataset, 0};

// What each kind of method takes and does not take.  A grid method's central slot 2 is not
// checked.
constexpr gx::method_properties longitude_rotation = {nullptr, 0, nullptr};
constexpr gx::method_properties three_parameter = {translation, slot_bits(3, 9), nullptr};
constexpr gx::method_properties seven_parameter = {seven_parameters, slot_bits(7, 9), nullptr};
constexpr gx::method_properties ten_parameter = {ten_parameters, 0, nullptr};
constexpr gx::method_properties grid_in(const char *folder)
{
    return {grid_file, slot_bits(0, 1) | slot_bits(3, 9), folder};
}

constexpr gx::method_row epsg(int code, const char *name, gx_mth_rtn forward, gx_mth_rtn inverse,
                              gx_mth_const_rtn constfunc, gx::method_properties properties)
{
    return {{code, "EPSG", "6.13", name, forward, inverse, constfunc}, properties};
}

constexpr gx::method_row tavu(int code, const char *name, gx_mth_rtn forward, gx_mth_rtn inverse,
                              gx_mth_const_rtn constfunc, gx::method_properties properties)
{
    return {{code, "TAVU", "9.3.0", name, forward, inverse, constfunc}, properties};
}

// Search order.  Bursa_Wolf is the coordinate-frame rotation under its older name.
constexpr gx::method_row methods[] = {
    epsg(9601, "Longitude_Rotation", gx_longitude_rotation_ccw, gx_longitude_rotation_ccw,
         no_constants, longitude_rotation),
    tavu(109607, "Bursa_Wolf", gx_bursa_wolf_fwd, gx_bursa_wolf_inv, no_constants, seven_parameter),
    epsg(9606, "Position_Vector", gx_position_vector_fwd, gx_position_vector_inv, no_constants,
         seven_parameter),
    epsg(9607, "Coordinate_Frame", gx_coordinate_frame_fwd, gx_coordinate_frame_inv, no_constants,
         seven_parameter),
    epsg(9603, "Geocentric_Translation", gx_geocentric_translation_fwd,
         gx_geocentric_translation_inv, no_constants, three_parameter),
    epsg(9604, "Molodensky", gx_molodensky_fwd, gx_molodensky_inv, no_constants, three_parameter),
    epsg(9605, "Molodensky_Abridged", gx_molodensky_abridged_fwd, gx_molodensky_abridged_inv,
         no_constants, three_parameter),
    epsg(9636, "Molodensky_Badekas", gx_molodensky_badekas_fwd, gx_molodensky_badekas_inv,
         no_constants, ten_parameter),
    epsg(9613, "NADCON", pending, pending, no_constants, grid_in("nadcon")),
    tavu(109613, "HARN", pending, pending, no_constants, grid_in("harn")),
    epsg(9615, "NTv2", pending, pending, no_constants, grid_in("ntv2")),
    {}, // code 0 ends the table
};

const gx::synonym method_synonyms[] = {
    {nullptr, nullptr},
};

gx_method *method_from_row(const gx::method_row &row, gx_err_rec *err)
{
    return gx_method_new_extended(row.entry.name, row.entry.forward, row.entry.inverse,
                                  row.entry.constfunc, err);
}

constexpr gx::registry<gx::method_row, gx_method> registry = {
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
    return gx::entry_of(gx::row_with_code(registry.rows, code));
}

const gx_methlist_entry *gx_methlist_from_name(const char *name)
{
    return gx::entry_of(gx::registry_row_named(registry, name));
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

int gx_parameter_method_defaults(const gx_method *method, gx_parameter *parms[16])
{
    const gx_methlist_entry *entry =
        gx_method_p(method) ? gx_methlist_from_code(gx_method_code(method)) : nullptr;
    return gx::make_default_set(entry != nullptr ? gx::properties_of(entry)->parameters : nullptr,
                                parms);
}
