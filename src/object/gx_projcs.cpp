// The projected coordinate system: a geographic system mapped to the plane by a projection,
// with the projection's parameters in the slots the parameter registry gives them and a linear
// unit for eastings and northings.
//   PROJCS["WGS_1984_UTM_Zone_33N",GEOGCS[...],PROJECTION["Transverse_Mercator"],
//          PARAMETER["False_Easting",500000.0],...,UNIT["Meter",1.0]]
// The conversion driver computes the projection's constants once per system and keeps them in
// the record; they go with the object and are never copied (a clone computes its own).
#include "object/gx_types.h"

namespace {

using gx::as;

// Old names of systems, mostly of datums that were renamed (NAD_1983_CSRS98 became
// NAD_1983_CSRS).  "CRS98_MTM" is how those names were once written, and is matched as such.
const gx::synonym projcs_synonyms[] = {
    {"Tahiti_UTM_6S", "Tahiti_1952_UTM_6S"},
    {"Tahaa_UTM_5S", "Tahaa_1954_UTM_5S"},
    {"K0_1949_UTM_42S", "Kerguelen_1949_UTM_42S"},
    {"Piton_des_Neiges_TM_Reunion", "Reunion_1947_TM_Reunion"},
    {"Irish_National_Grid", "TM65_Irish_Grid"},
    {"Douala_1948_AOF_West", "Douala_1948_AEF_West"},
    {"NAD_1983_CSRS98_New_Brunswick_Stereographic", "NAD_1983_CSRS_New_Brunswick_Stereographic"},
    {"NAD_1983_CSRS98_UTM_Zone_19N", "NAD_1983_CSRS_UTM_Zone_19N"},
    {"NAD_1983_CSRS98_UTM_Zone_20N", "NAD_1983_CSRS_UTM_Zone_20N"},
    {"NAD_1983_CSRS98_UTM_Zone_21N", "NAD_1983_CSRS_UTM_Zone_21N"},
    {"NAD_1983_CSRS98_UTM_Zone_18N", "NAD_1983_CSRS_UTM_Zone_18N"},
    {"NAD_1983_CSRS98_UTM_Zone_17N", "NAD_1983_CSRS_UTM_Zone_17N"},
    {"NAD_1983_CSRS98_UTM_Zone_13N", "NAD_1983_CSRS_UTM_Zone_13N"},
    {"NAD_1983_CSRS98_UTM_Zone_12N", "NAD_1983_CSRS_UTM_Zone_12N"},
    {"NAD_1983_CSRS98_UTM_Zone_11N", "NAD_1983_CSRS_UTM_Zone_11N"},
    {"NAD_1983_CSRS98_UTM_Zone_14N", "NAD_1983_CSRS_UTM_Zone_14N"},
    {"NAD_1983_CSRS98_UTM_Zone_15N", "NAD_1983_CSRS_UTM_Zone_15N"},
    {"NAD_1983_CSRS98_UTM_Zone_16N", "NAD_1983_CSRS_UTM_Zone_16N"},
    {"NAD_1983_CSRS98_MTM_2_SCoPQ", "NAD_1983_CSRS_MTM_2_SCoPQ"},
    {"NAD_1983_CRS98_MTM_3", "NAD_1983_CRS_MTM_3"},
    {"NAD_1983_CRS98_MTM_4", "NAD_1983_CRS_MTM_4"},
    {"NAD_1983_CRS98_MTM_5", "NAD_1983_CRS_MTM_5"},
    {"NAD_1983_CRS98_MTM_6", "NAD_1983_CRS_MTM_6"},
    {"NAD_1983_CRS98_MTM_7", "NAD_1983_CRS_MTM_7"},
    {"NAD_1983_CRS98_MTM_8", "NAD_1983_CRS_MTM_8"},
    {"NAD_1983_CRS98_MTM_9", "NAD_1983_CRS_MTM_9"},
    {"NAD_1983_CRS98_MTM_10", "NAD_1983_CRS_MTM_10"},
    {"NAD_1983_CSRS98_Prince_Edward_Island", "NAD_1983_CSRS_Prince_Edward_Island"},
    {"Alaska_Albers_Equal_Area_Conic", "NAD_1983_Alaska_Albers"},
    {"Dabola_UTM_Zone_28N", "Dabola_1981_UTM_Zone_28N"},
    {"Dabola_UTM_Zone_29N", "Dabola_1981_UTM_Zone_29N"},
    {"NAD_1927_StatePlane_Vermont_FIPS_3400", "NAD_1927_StatePlane_Vermont_FIPS_4400"},
    {nullptr, nullptr},
};

// Pieces after the projection (parameters, unit) are appended only while the text stays below
// this many characters, which leaves room for the AUTHORITY clause and the closing bracket.
constexpr int piece_limit = 1022;

void projcs_free_parts(gx_object_header *obj)
{
    auto *cs = as<gx_projcs>(obj);
    gx_geogcs_del(cs->geogcs);
    gx_projection_del(cs->projection);
    gx::delete_parameters(cs->parameters);
    gx_unit_del(cs->unit);
    gx_constants_del(cs->constants);
}

gx_object_header *projcs_clone(const gx_object_header *obj)
{
    const auto *cs = as<gx_projcs>(obj);
    gx::part_copy geogcs(cs->geogcs), projection(cs->projection), unit(cs->unit);
    gx_parameter *parameters[gx::parameter_slots];
    if (!geogcs.ok() || !projection.ok() || !unit.ok() ||
        !gx::clone_parameters(cs->parameters, parameters))
        return nullptr;
    gx_projcs *copy =
        gx_projcs_new(obj->name, geogcs.get<gx_geogcs>(), projection.get<gx_projection>(),
                      parameters, unit.get<gx_unit>());
    if (copy == nullptr) {
        gx::delete_parameters(parameters);
        return nullptr;
    }
    geogcs.release();
    projection.release();
    unit.release();
    return gx::header_of(copy);
}

bool projcs_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *x = as<gx_projcs>(a);
    const auto *y = as<gx_projcs>(b);
    return gx::parameters_equal(x->parameters, y->parameters) &&
           gx_strcmp_ci(a->name, b->name) == 0 && gx_geogcs_eq(x->geogcs, y->geogcs) &&
           gx_projection_eq(x->projection, y->projection) && gx_unit_eq(x->unit, y->unit);
}

void projcs_write(const gx_object_header *obj, int options, gx::text_buf &out)
{
    const auto *cs = as<gx_projcs>(obj);
    out.printf("PROJCS[\"%s\",%s,%s", obj->name, gx::sub_text(cs->geogcs, options).text,
               gx::sub_text(cs->projection, options).text);
    gx::append_parameters(out, cs->parameters, options, piece_limit);
    gx::append_piece(out, cs->unit, options, piece_limit);
}

enum projcs_slot { authority_slot, geogcs_slot, projection_slot, unit_slot };

constexpr gx::parameter_rule projcs_parameters = {
    GX_TYPE_PROJCS, "Parameter \"%s\" in WKT string is not valid for a projcs"};

bool projcs_accept(gx::wkt_parse &parse, const gx::wkt_sub &, gx_object_header *obj)
{
    return gx::accept_parameter(parse, obj, projcs_parameters);
}

gx_object_header *projcs_build(gx::wkt_parse &parse)
{
    if (!gx::require_parts(parse, {
                                      {geogcs_slot, 433, "Missing geographic CS in WKT string"},
                                      {projection_slot, 441, "Missing projection in WKT string"},
                                      {unit_slot, 438, "Missing linear unit in WKT string"},
                                  }))
        return nullptr;
    gx_parameter *parameters[gx::parameter_slots];
    gx::collected_parameters(parse, parameters);
    const char *name = gx::synonym_lookup(projcs_synonyms, parse.name);
    return gx::built(parse, gx_projcs_new_errext(name, as<gx_geogcs>(parse.slots[geogcs_slot]),
                                                 as<gx_projection>(parse.slots[projection_slot]),
                                                 parameters, as<gx_unit>(parse.slots[unit_slot]),
                                                 parse.caller_err));
}

constexpr gx::wkt_sub projcs_subs[] = {
    gx::authority_sub(authority_slot),
    {"GEOGCS", nullptr, geogcs_slot, gx::geogcs_from_tokens, 406,
     "Duplicate geographic CS in WKT string"},
    {"PROJECTION", nullptr, projection_slot, gx::projection_from_tokens, 414,
     "Duplicate projection in WKT string"},
    {"PARAMETER", nullptr, -1, gx::parameter_from_tokens, 411, nullptr},
    {"UNIT", nullptr, unit_slot, gx::unit_from_tokens, 409, "Duplicate linear unit in WKT string"},
};

constexpr gx::wkt_grammar projcs_grammar = {
    "PROJCS",
    nullptr,
    "gx_projcs_from_string",
    2,
    "insufficient tokens",
    nullptr,
    0,
    {},
    false,
    5,
    projcs_subs,
    authority_slot,
    nullptr,
    projcs_accept,
    projcs_build,
};

} // namespace

namespace gx {

constexpr type_desc projcs_desc = {
    GX_TYPE_PROJCS,
    "projcs",
    sizeof(gx_projcs),
    true,
    wkt_close::authority_and_bracket,
    projcs_free_parts,
    projcs_clone,
    projcs_equal,
    projcs_write,
    &projcs_grammar,
};

gx_object_header *projcs_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err)
{
    return wkt_from_tokens(projcs_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_projcs, gx::projcs_desc)

gx_projcs *gx_projcs_new(const char *name, gx_geogcs *geogcs, gx_projection *projection,
                         gx_parameter *parameters[16], gx_unit *unit)
{
    return gx_projcs_new_errext(name, geogcs, projection, parameters, unit, nullptr);
}

gx_projcs *gx_projcs_new_errext(const char *name, gx_geogcs *geogcs, gx_projection *projection,
                                gx_parameter *parameters[16], gx_unit *unit, gx_err_rec *err)
{
    const char *function = "gx_projcs_new";
    gx::err_scope scope(err);
    if (!gx::check_parts(
            scope.rec(), function,
            {
                {geogcs, GX_TYPE_GEOGCS, 331, "Null or invalid geographic CS object argument"},
                {projection, GX_TYPE_PROJECTION, 328, "Null or invalid projection object argument"},
                {unit, GX_TYPE_UNIT, 323, "Null or invalid linear unit object argument"},
            }))
        return nullptr;
    if (parameters == nullptr) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 330, function,
                   "Null parameters array argument");
        return nullptr;
    }
    auto *cs = gx::as<gx_projcs>(gx::new_record(gx::projcs_desc, name, function, scope.rec()));
    if (cs == nullptr)
        return nullptr;
    cs->geogcs = geogcs;
    cs->projection = projection;
    for (int slot = 0; slot < gx::parameter_slots; ++slot)
        cs->parameters[slot] = parameters[slot];
    cs->unit = unit;
    return cs;
}

gx_geogcs *gx_projcs_geogcs(const gx_projcs *cs) { return gx_projcs_p(cs) ? cs->geogcs : nullptr; }

gx_projection *gx_projcs_projection(const gx_projcs *cs)
{
    return gx_projcs_p(cs) ? cs->projection : nullptr;
}

gx_unit *gx_projcs_unit(const gx_projcs *cs) { return gx_projcs_p(cs) ? cs->unit : nullptr; }

gx_parameter **gx_projcs_parameters(gx_projcs *cs)
{
    return gx_projcs_p(cs) ? cs->parameters : nullptr;
}
