// The projection registry: every map projection the library knows, with its code, its WKT name
// and the routines that compute it, and the factories that make projection objects from it.
//
// A row binds a projection to two groups of routines: its formulas (forward, inverse and the
// constants setup) and its horizons (the valid area in geographic and projected coordinates, and
// the raster variants).  Formulas live in src/projections/, one source per projection defining
// gx_<stem>_fwd, gx_<stem>_inv and gx_<stem>_const; hooking one in is a matter of replacing
// `pending` in its row by FORMULAS_OF(stem) (or PER_CALL_FORMULAS_OF(stem) for a projection that
// computes everything per call, or an explicit formulas{...} for a setup shared between rows).
// Until then a row converts with the identity pair.  Horizons likewise: every row has the null
// horizon until the horizon routines are written; the normal cylindrical projections already
// have their final geographic horizon.
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
#include "projection/gx_registry.h"
#include "object/gx_wkt.h"
#include "util/gx_ctype.h"

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

// A projection whose formulas are not written yet: the identity, without constants.
constexpr formulas pending = {gx_prj_null_fwd, gx_prj_null_inv, nullptr};

// The whole globe around the central meridian, the geographic horizon of the normal cylindrical
// projections (projected horizon still to come).
constexpr horizons cylindrical = {gx_horizon_normal_cylindrical, nullptr, nullptr, nullptr};
// A projection with a horizon of its own, not written yet: the null horizon stands in.
constexpr horizons own_horizon = {gx_horizon_null, nullptr, nullptr, nullptr};

constexpr gx_projlist_entry row(int code, const char *name, formulas f, horizons h)
{
    return {code,  "TAVU", "9.3.0",      name,         f.forward, f.inverse,
            h.gcs, h.pcs,  h.gcs_raster, h.pcs_raster, f.setup};
}

// Codes of an auxiliary-sphere variant are the base projection's plus 100.
constexpr gx_projlist_entry projections[] = {
    row(43001, "Plate_Carree", pending, cylindrical),
    row(43002, "Equidistant_Cylindrical", pending, cylindrical),
    row(43102, "Equidistant_Cylindrical_Auxiliary_Sphere", pending, cylindrical),
    row(43003, "Miller_Cylindrical", pending, cylindrical),
    row(43103, "Miller_Cylindrical_Auxiliary_Sphere", pending, cylindrical),
    row(43004, "Mercator", FORMULAS_OF(mercator), own_horizon),
    row(43104, "Mercator_Auxiliary_Sphere", FORMULAS_OF(mercator_auxs), own_horizon),
    row(43005, "Gauss_Kruger", FORMULAS_OF(gauss_kruger), own_horizon),
    row(43006, "Transverse_Mercator", FORMULAS_OF(gauss_kruger), own_horizon),
    row(43056, "Transverse_Mercator_Complex", FORMULAS_OF(tm_complex), own_horizon),
    row(43007, "Albers", FORMULAS_OF(albers), own_horizon),
    row(43008, "Sinusoidal", pending, cylindrical),
    row(43009, "Mollweide", pending, cylindrical),
    row(43109, "Mollweide_Auxiliary_Sphere", pending, cylindrical),
    row(43010, "Eckert_VI", pending, cylindrical),
    row(43110, "Eckert_VI_Auxiliary_Sphere", pending, cylindrical),
    row(43011, "Eckert_V", pending, cylindrical),
    row(43012, "Eckert_IV", pending, cylindrical),
    row(43112, "Eckert_IV_Auxiliary_Sphere", pending, cylindrical),
    row(43013, "Eckert_III", pending, cylindrical),
    row(43014, "Eckert_II", pending, cylindrical),
    row(43015, "Eckert_I", pending, cylindrical),
    row(43016, "Gall_Stereographic", pending, cylindrical),
    row(43017, "Behrmann", pending, cylindrical),
    row(43018, "Winkel_I", pending, cylindrical),
    row(43019, "Winkel_II", pending, cylindrical),
    row(43020, "Lambert_Conformal_Conic", FORMULAS_OF(lambert_conformal_conic), own_horizon),
    row(43021, "Polyconic", pending, cylindrical),
    row(43022, "Quartic_Authalic", pending, cylindrical),
    row(43023, "Loximuthal", pending, cylindrical),
    row(43024, "Bonne", pending, cylindrical),
    row(43036, "Hotine_Oblique_Mercator_Azimuth_Natural_Origin", pending, own_horizon),
    row(43037, "Hotine_Oblique_Mercator_Azimuth_Center", pending, own_horizon),
    row(43025, "Hotine_Oblique_Mercator_Two_Point_Natural_Origin", pending, own_horizon),
    row(43035, "Hotine_Oblique_Mercator_Two_Point_Center", pending, own_horizon),
    row(43026, "Stereographic", FORMULAS_OF(stereographic), own_horizon),
    row(43126, "Stereographic_Auxiliary_Sphere", FORMULAS_OF(stereographic_auxs), own_horizon),
    row(43050, "Stereographic_North_Pole", pending, own_horizon),
    row(43051, "Stereographic_South_Pole", pending, own_horizon),
    row(43027, "Equidistant_Conic", FORMULAS_OF(equidistant_conic), own_horizon),
    row(43028, "Cassini", pending, own_horizon),
    row(43029, "Van_der_Grinten_I", pending, cylindrical),
    row(43129, "Van_der_Grinten_I_Auxiliary_Sphere", pending, cylindrical),
    row(43030, "Robinson", pending, cylindrical),
    row(43057, "Robinson_KESTREL", pending, cylindrical),
    row(43031, "Two_Point_Equidistant", pending, own_horizon),
    row(43032, "Azimuthal_Equidistant", pending, own_horizon),
    row(43132, "Azimuthal_Equidistant_Auxiliary_Sphere", pending, own_horizon),
    row(43033, "Lambert_Azimuthal_Equal_Area", pending, own_horizon),
    row(43133, "Lambert_Azimuthal_Equal_Area_Auxiliary_Sphere", pending, own_horizon),
    row(43034, "Cylindrical_Equal_Area", FORMULAS_OF(cylindrical_eqarea), cylindrical),
    row(43038, "Double_Stereographic", pending, own_horizon),
    row(43039, "Krovak", pending, own_horizon),
    row(43040, "New_Zealand_Map_Grid", pending, own_horizon),
    row(43041, "Orthographic", FORMULAS_OF(orthographic), own_horizon),
    row(43141, "Orthographic_Auxiliary_Sphere", FORMULAS_OF(orthographic_auxs), own_horizon),
    row(43042, "Winkel_Tripel", pending, cylindrical),
    row(43043, "Aitoff", pending, cylindrical),
    row(43044, "Hammer_Aitoff", pending, cylindrical),
    row(43045, "Flat_Polar_Quartic", pending, cylindrical),
    row(43046, "Craster_Parabolic", pending, cylindrical),
    row(43047, "Gnomonic", FORMULAS_OF(gnomonic), own_horizon),
    row(43147, "Gnomonic_Auxiliary_Sphere", FORMULAS_OF(gnomonic_auxs), own_horizon),
    row(43048, "Times", pending, cylindrical),
    row(43049, "Vertical_Near_Side_Perspective", pending, own_horizon),
    row(43052, "Fuller", pending, own_horizon),
    row(43053, "Rectified_Skew_Orthomorphic_Natural_Origin", pending, own_horizon),
    row(43054, "Rectified_Skew_Orthomorphic_Center", pending, own_horizon),
    row(43055, "Cube", pending, own_horizon),
    row(43058, "Local", pending, own_horizon),
    row(43059, "Goode_Homolosine", pending, own_horizon),
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

// The first row whose name equals `name` without case ('-' counts as '_'), as gx_strcmp_i
// compares them.
const gx_projlist_entry *row_named(const char *name)
{
    gx::remembered_classes classes;
    gx::caseless_name wanted(name, classes);
    for (const gx_projlist_entry *entry = projections; entry->code != 0; ++entry)
        if (wanted.matches(entry->name))
            return entry;
    return nullptr;
}

gx_projection *projection_from_row(const gx_projlist_entry *entry, unsigned int status,
                                   gx_err_rec *err)
{
    gx_projection *projection = gx_projection_new_extended_errext(
        entry->name, entry->forward, entry->inverse, entry->horizon, entry->horizon_pcs,
        entry->horizon_gcs_raster, entry->horizon_pcs_raster, entry->pcsconstfunc, err);
    if (projection == nullptr)
        return nullptr;
    gx_projection_status_set(projection, status);
    gx_projection_code_set(projection, entry->code, entry->authority, entry->version);
    return projection;
}

} // namespace

const gx_projlist_entry *gx_projlist_from_code(int code)
{
    for (const gx_projlist_entry *entry = projections; entry->code != 0; ++entry)
        if (entry->code == code)
            return entry;
    return nullptr;
}

const gx_projlist_entry *gx_projlist_from_name(const char *name)
{
    if (name == nullptr)
        return nullptr;
    return row_named(gx::synonym_lookup(projection_synonyms, name));
}

gx_projection *gx_projlist_projection_from_code(int code, gx_err_rec *err)
{
    gx::err_scope scope(err);
    const gx_projlist_entry *entry = gx_projlist_from_code(code);
    if (entry == nullptr) {
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_FACTORY, 217,
                   "gx_projlist_projection_from_code", "Invalid projection factory code (%d)",
                   code);
        return nullptr;
    }
    return projection_from_row(entry, GX_STATUS_CODE, err);
}

gx_projection *gx_projlist_projection_from_name(const char *name, gx_err_rec *err)
{
    gx::err_scope scope(err);
    const gx_projlist_entry *entry = gx_projlist_from_name(name);
    if (entry == nullptr) {
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 309,
                   "gx_projlist_projection_from_name", "Invalid projection name \"%s\"",
                   name != nullptr ? name : "");
        return nullptr;
    }
    return projection_from_row(entry, GX_STATUS_STRING, err);
}

void gx_projlist_set_code(gx_projection *projection)
{
    if (!gx_projection_p(projection))
        return;
    const gx_projlist_entry *entry = row_named(projection->header.name);
    if (entry != nullptr)
        gx_projection_code_set(projection, entry->code, entry->authority, entry->version);
}
