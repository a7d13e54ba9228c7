// The projection registry: every map projection the library knows, with its code, its WKT name
// and the routines that compute it, and the factories that make projection objects from it.
//
// A row binds a projection to two groups of routines: its formulas (forward, inverse and the
// constants setup) and its horizons (the valid area in geographic and projected coordinates, and
// the raster variants).  Formulas live in src/projections/, one source per projection defining
// gx_<stem>_fwd, gx_<stem>_inv and gx_<stem>_const; hooking one in is a matter of replacing
// `pending` in its row by FORMULAS_OF(stem) (or PER_CALL_FORMULAS_OF(stem) for a projection that
// computes everything per call, or an explicit formulas{...} for a setup shared between rows).
// Until then a row has no routines: its projection objects answer the identity pair through
// their accessors, but the conversion driver refuses to convert with them.  Horizons likewise:
// every row has the null horizon until the horizon routines are written; the normal cylindrical
// projections already have their final geographic horizon.
//
// A row also carries the parameters its projection takes, in the order its default set makes
// them (gx_parameter_projection_defaults).
//
// The stem of a row is its lower-case name, with "_auxs" for an auxiliary-sphere variant
// (mercator_auxs), except: Gauss_Kruger and Transverse_Mercator share gauss_kruger;
// Transverse_Mercator_Complex is tm_complex; the four Hotine rows are hotine_azimuth_natorigin,
// hotine_azimuth_center, hotine_two_point_natorigin and hotine_two_point_center, each pair
// sharing one setup (hotine_azimuth_const, hotine_two_point_const), which the two rectified
// skew orthomorphic rows (rso_natorigin, rso_center) share too; the polar stereographics are
// stereographic_np and stereographic_sp; Robinson_KESTREL is robinson_ks;
// Lambert_Azimuthal_Equal_Area is lambert_azimuthal_eqarea; Cylindrical_Equal_Area is
// cylindrical_eqarea; Vertical_Near_Side_Perspective is vertical_ns_perspective.
#include "object/gx_registry.h"

namespace {

struct formulas {
    gx_prj_rtn forward;
    gx_prj_rtn inverse;
    gx_pcsconst_rtn setup; // null: the routines compute everything per call
};

struct horizons {
    gx_horizon_rtn gcs;
    gx_horizon_rtn pcs;
    gx_horizon_rtn gcs_raster;
    gx_horizon_rtn pcs_raster;
};

#define FORMULAS_OF(stem)                                                                          \
    formulas { gx_##stem##_fwd, gx_##stem##_inv, gx_##stem##_const }
#define PER_CALL_FORMULAS_OF(stem)                                                                 \
    formulas { gx_##stem##_fwd, gx_##stem##_inv, nullptr }

// A projection whose formulas are not written yet: no routines, so nothing converts.
constexpr formulas pending = {nullptr, nullptr, nullptr};

// The whole globe around the central meridian, the geographic horizon of the normal cylindrical
// projections (projected horizon still to come).
constexpr horizons cylindrical = {gx_horizon_normal_cylindrical, nullptr, nullptr, nullptr};
// A projection with a horizon of its own, not written yet: the null horizon stands in.
constexpr horizons own_horizon = {gx_horizon_null, nullptr, nullptr, nullptr};

// ---- the parameters each projection takes, in the order of its default set --------------------

using namespace gx::parm;

// clang-format off
constexpr int origin_only[] = {central_meridian, false_easting, false_northing, 0};
constexpr int true_scale_parallel[] = {central_meridian, standard_parallel_1, false_easting,
                                       false_northing, 0};
constexpr int scaled_origin[] = {central_meridian, latitude_of_origin, scale_factor, false_easting,
                                 false_northing, 0};
constexpr int two_parallels[] = {central_meridian, latitude_of_origin, standard_parallel_1,
                                 standard_parallel_2, false_easting, false_northing, 0};
constexpr int two_parallels_scaled[] = {central_meridian, latitude_of_origin, standard_parallel_1,
                                        standard_parallel_2, scale_factor, false_easting,
                                        false_northing, 0};
constexpr int origin[] = {central_meridian, latitude_of_origin, false_easting, false_northing, 0};
constexpr int central_parallel_origin[] = {central_meridian, central_parallel, false_easting,
                                           false_northing, 0};
constexpr int hotine_two_point[] = {longitude_of_1st_point, latitude_of_1st_point,
                                    longitude_of_2nd_point, latitude_of_2nd_point,
                                    latitude_of_center, scale_factor, false_easting,
                                    false_northing, 0};
constexpr int two_points[] = {longitude_of_1st_point, longitude_of_2nd_point,
                              latitude_of_1st_point, latitude_of_2nd_point, false_easting,
                              false_northing, 0};
constexpr int hotine_azimuth[] = {longitude_of_center, latitude_of_center, azimuth, scale_factor,
                                  false_easting, false_northing, 0};
constexpr int krovak[] = {longitude_of_center, latitude_of_center, pseudo_standard_parallel_1,
                          azimuth, scale_factor, false_easting, false_northing, x_scale, y_scale,
                          xy_plane_rotation, 0};
constexpr int nzmg_origin[] = {longitude_of_origin, latitude_of_origin, false_easting,
                               false_northing, 0};
constexpr int center[] = {longitude_of_center, latitude_of_center, false_easting, false_northing,
                          0};
constexpr int perspective[] = {longitude_of_center, latitude_of_center, height, false_easting,
                               false_northing, 0};
constexpr int option_only[] = {false_easting, false_northing, option, 0};
constexpr int rectified_skew[] = {longitude_of_center, latitude_of_center, azimuth,
                                  xy_plane_rotation, scale_factor, false_easting, false_northing,
                                  0};
constexpr int origin_option[] = {central_meridian, option, false_easting, false_northing, 0};
constexpr int aux_true_scale_parallel[] = {central_meridian, standard_parallel_1, false_easting,
                                           false_northing, auxiliary_sphere_type, 0};
constexpr int aux_origin_only[] = {central_meridian, false_easting, false_northing,
                                   auxiliary_sphere_type, 0};
constexpr int aux_scaled_origin[] = {central_meridian, latitude_of_origin, scale_factor,
                                     false_easting, false_northing, auxiliary_sphere_type, 0};
constexpr int aux_origin[] = {central_meridian, latitude_of_origin, false_easting, false_northing,
                              auxiliary_sphere_type, 0};
constexpr int aux_center[] = {longitude_of_center, latitude_of_center, false_easting,
                              false_northing, auxiliary_sphere_type, 0};
// clang-format on

constexpr gx::projection_row row(int code, const char *name, formulas f, horizons h,
                                 gx::parameter_set parameters)
{
    return {{code, "TAVU", "9.3.0", name, f.forward, f.inverse, h.gcs, h.pcs, h.gcs_raster,
             h.pcs_raster, f.setup},
            {parameters}};
}

// Codes of an auxiliary-sphere variant are the base projection's plus 100.
constexpr gx::projection_row projections[] = {
    row(43001, "Plate_Carree", pending, cylindrical, origin_only),
    row(43002, "Equidistant_Cylindrical", pending, cylindrical, true_scale_parallel),
    row(43102, "Equidistant_Cylindrical_Auxiliary_Sphere", pending, cylindrical,
        aux_true_scale_parallel),
    row(43003, "Miller_Cylindrical", PER_CALL_FORMULAS_OF(miller_cylindrical), cylindrical,
        origin_only),
    row(43103, "Miller_Cylindrical_Auxiliary_Sphere", FORMULAS_OF(miller_cylindrical_auxs),
        cylindrical, aux_origin_only),
    row(43004, "Mercator", FORMULAS_OF(mercator), own_horizon, true_scale_parallel),
    row(43104, "Mercator_Auxiliary_Sphere", FORMULAS_OF(mercator_auxs), own_horizon,
        aux_true_scale_parallel),
    row(43005, "Gauss_Kruger", FORMULAS_OF(gauss_kruger), own_horizon, scaled_origin),
    row(43006, "Transverse_Mercator", FORMULAS_OF(gauss_kruger), own_horizon, scaled_origin),
    row(43056, "Transverse_Mercator_Complex", FORMULAS_OF(tm_complex), own_horizon, scaled_origin),
    row(43007, "Albers", FORMULAS_OF(albers), own_horizon, two_parallels),
    row(43008, "Sinusoidal", FORMULAS_OF(sinusoidal), cylindrical, origin_only),
    row(43009, "Mollweide", FORMULAS_OF(mollweide), cylindrical, origin_only),
    row(43109, "Mollweide_Auxiliary_Sphere", FORMULAS_OF(mollweide_auxs), cylindrical,
        aux_origin_only),
    row(43010, "Eckert_VI", PER_CALL_FORMULAS_OF(eckert_vi), cylindrical, origin_only),
    row(43110, "Eckert_VI_Auxiliary_Sphere", FORMULAS_OF(eckert_vi_auxs), cylindrical,
        aux_origin_only),
    row(43011, "Eckert_V", PER_CALL_FORMULAS_OF(eckert_v), cylindrical, origin_only),
    row(43012, "Eckert_IV", PER_CALL_FORMULAS_OF(eckert_iv), cylindrical, origin_only),
    row(43112, "Eckert_IV_Auxiliary_Sphere", FORMULAS_OF(eckert_iv_auxs), cylindrical,
        aux_origin_only),
    row(43013, "Eckert_III", PER_CALL_FORMULAS_OF(eckert_iii), cylindrical, origin_only),
    row(43014, "Eckert_II", PER_CALL_FORMULAS_OF(eckert_ii), cylindrical, origin_only),
    row(43015, "Eckert_I", PER_CALL_FORMULAS_OF(eckert_i), cylindrical, origin_only),
    row(43016, "Gall_Stereographic", FORMULAS_OF(gall_stereographic), cylindrical, origin_only),
    row(43017, "Behrmann", FORMULAS_OF(behrmann), cylindrical, origin_only),
    row(43018, "Winkel_I", PER_CALL_FORMULAS_OF(winkel_i), cylindrical, true_scale_parallel),
    row(43019, "Winkel_II", PER_CALL_FORMULAS_OF(winkel_ii), cylindrical, true_scale_parallel),
    row(43020, "Lambert_Conformal_Conic", FORMULAS_OF(lambert_conformal_conic), own_horizon,
        two_parallels_scaled),
    row(43021, "Polyconic", pending, cylindrical, origin),
    row(43022, "Quartic_Authalic", PER_CALL_FORMULAS_OF(quartic_authalic), cylindrical,
        origin_only),
    row(43023, "Loximuthal", PER_CALL_FORMULAS_OF(loximuthal), cylindrical,
        central_parallel_origin),
    row(43024, "Bonne", pending, cylindrical, true_scale_parallel),
    row(43036, "Hotine_Oblique_Mercator_Azimuth_Natural_Origin", pending, own_horizon,
        hotine_azimuth),
    row(43037, "Hotine_Oblique_Mercator_Azimuth_Center", pending, own_horizon, hotine_azimuth),
    row(43025, "Hotine_Oblique_Mercator_Two_Point_Natural_Origin", pending, own_horizon,
        hotine_two_point),
    row(43035, "Hotine_Oblique_Mercator_Two_Point_Center", pending, own_horizon, hotine_two_point),
    row(43026, "Stereographic", FORMULAS_OF(stereographic), own_horizon, scaled_origin),
    row(43126, "Stereographic_Auxiliary_Sphere", FORMULAS_OF(stereographic_auxs), own_horizon,
        aux_scaled_origin),
    row(43050, "Stereographic_North_Pole", pending, own_horizon, true_scale_parallel),
    row(43051, "Stereographic_South_Pole", pending, own_horizon, true_scale_parallel),
    row(43027, "Equidistant_Conic", FORMULAS_OF(equidistant_conic), own_horizon, two_parallels),
    row(43028, "Cassini", pending, own_horizon, scaled_origin),
    row(43029, "Van_der_Grinten_I", PER_CALL_FORMULAS_OF(van_der_grinten_i), cylindrical,
        origin_only),
    row(43129, "Van_der_Grinten_I_Auxiliary_Sphere", FORMULAS_OF(van_der_grinten_i_auxs),
        cylindrical, aux_origin_only),
    row(43030, "Robinson", FORMULAS_OF(robinson), cylindrical, origin_only),
    row(43057, "Robinson_KESTREL", PER_CALL_FORMULAS_OF(robinson_ks), cylindrical, origin_only),
    row(43031, "Two_Point_Equidistant", pending, own_horizon, two_points),
    row(43032, "Azimuthal_Equidistant", pending, own_horizon, origin),
    row(43132, "Azimuthal_Equidistant_Auxiliary_Sphere", pending, own_horizon, aux_origin),
    row(43033, "Lambert_Azimuthal_Equal_Area", pending, own_horizon, origin),
    row(43133, "Lambert_Azimuthal_Equal_Area_Auxiliary_Sphere", pending, own_horizon, aux_origin),
    row(43034, "Cylindrical_Equal_Area", FORMULAS_OF(cylindrical_eqarea), cylindrical,
        true_scale_parallel),
    row(43038, "Double_Stereographic", pending, own_horizon, scaled_origin),
    row(43039, "Krovak", pending, own_horizon, krovak),
    row(43040, "New_Zealand_Map_Grid", pending, own_horizon, nzmg_origin),
    row(43041, "Orthographic", FORMULAS_OF(orthographic), own_horizon, center),
    row(43141, "Orthographic_Auxiliary_Sphere", FORMULAS_OF(orthographic_auxs), own_horizon,
        aux_center),
    row(43042, "Winkel_Tripel", FORMULAS_OF(winkel_tripel), cylindrical, true_scale_parallel),
    row(43043, "Aitoff", PER_CALL_FORMULAS_OF(aitoff), cylindrical, origin_only),
    row(43044, "Hammer_Aitoff", PER_CALL_FORMULAS_OF(hammer_aitoff), cylindrical, origin_only),
    row(43045, "Flat_Polar_Quartic", FORMULAS_OF(flat_polar_quartic), cylindrical, origin_only),
    row(43046, "Craster_Parabolic", FORMULAS_OF(craster_parabolic), cylindrical, origin_only),
    row(43047, "Gnomonic", FORMULAS_OF(gnomonic), own_horizon, center),
    row(43147, "Gnomonic_Auxiliary_Sphere", FORMULAS_OF(gnomonic_auxs), own_horizon, aux_center),
    row(43048, "Times", FORMULAS_OF(times), cylindrical, origin_only),
    row(43049, "Vertical_Near_Side_Perspective", pending, own_horizon, perspective),
    row(43052, "Fuller", PER_CALL_FORMULAS_OF(fuller), own_horizon, option_only),
    row(43053, "Rectified_Skew_Orthomorphic_Natural_Origin", pending, own_horizon, rectified_skew),
    row(43054, "Rectified_Skew_Orthomorphic_Center", pending, own_horizon, rectified_skew),
    row(43055, "Cube", PER_CALL_FORMULAS_OF(cube), own_horizon, origin_option),
    row(43058, "Local", pending, own_horizon, hotine_azimuth),
    row(43059, "Goode_Homolosine", FORMULAS_OF(goode_homolosine), own_horizon, origin_option),
    {}, // code 0 ends the table
};

// Old projection names and the names that replaced them; consulted by lookups by name only.
const gx::synonym projection_synonyms[] = {
    {"Albers_Equal_Area_Conic", "Albers"},
    {"Albers_Conical_Equal_Area", "Albers"},
    {"Gall", "Gall_Stereographic"},
    {"Hotine_Oblique_Mercator", "Hotine_Oblique_Mercator_Azimuth_Natural_Origin"},
    {"Lambert_Conformal_Conic_1SP", "Lambert_Conformal_Conic"},
    {"Lambert_Conformal_Conic_2SP", "Lambert_Conformal_Conic"},
    {nullptr, nullptr},
};

gx_projection *projection_from_row(const gx::projection_row &row, gx_err_rec *err)
{
    const gx_projlist_entry &e = row.entry;
    return gx_projection_new_extended_errext(e.name, e.forward, e.inverse, e.horizon, e.horizon_pcs,
                                             e.horizon_gcs_raster, e.horizon_pcs_raster,
                                             e.pcsconstfunc, err);
}

constexpr gx::registry<gx::projection_row, gx_projection> registry = {
    projections,
    projection_synonyms,
    projection_from_row,
    "gx_projlist_projection_from_code",
    217,
    "Invalid projection factory code (%d)",
    "gx_projlist_projection_from_name",
    309,
    "Invalid projection name \"%s\"",
};

} // namespace

const gx_projlist_entry *gx_projlist_from_code(int code)
{
    return gx::entry_of(gx::row_with_code(registry.rows, code));
}

const gx_projlist_entry *gx_projlist_from_name(const char *name)
{
    return gx::entry_of(gx::registry_row_named(registry, name));
}

gx_projection *gx_projlist_projection_from_code(int code, gx_err_rec *err)
{
    return gx::registry_object_from_code(registry, code, err);
}

gx_projection *gx_projlist_projection_from_name(const char *name, gx_err_rec *err)
{
    return gx::registry_object_from_name(registry, name, err);
}

void gx_projlist_set_code(gx_projection *projection)
{
    gx::registry_set_code(registry, projection);
}

int gx_parameter_projection_defaults(const gx_projection *projection, gx_parameter *parms[16])
{
    const gx_projlist_entry *entry = gx_projection_p(projection)
                                         ? gx_projlist_from_code(gx_projection_code(projection))
                                         : nullptr;
    return gx::make_default_set(entry != nullptr ? gx::properties_of(entry)->parameters : nullptr,
                                parms);
}
