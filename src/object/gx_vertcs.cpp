// The vertical coordinate system: heights above a datum -- a vertical datum (a geoid, a sea
// level) or a horizontal one (heights above its ellipsoid) -- in a linear unit, with a vertical
// shift and a direction (1 up, -1 down) in the parameter slots.
//   VERTCS["NAVD_1988",VDATUM["North_American_Vertical_Datum_1988"],
//          PARAMETER["Vertical_Shift",0.0],PARAMETER["Direction",1.0],UNIT["Meter",1.0]]
#include "object/gx_types.h"

namespace {

using gx::as;

const gx::synonym vertcs_synonyms[] = {
    {nullptr, nullptr},
};

// Slots of the two parameters of a vertical system in the parameter registry.
constexpr int vertical_shift_slot = 0;
constexpr int direction_slot = 1;

// As in a projected system, pieces after the datum are appended only while the text stays
// below this many characters.
constexpr int piece_limit = 1022;

void vertcs_free_parts(gx_object_header *obj)
{
    auto *cs = as<gx_vertcs>(obj);
    gx_hvdatum_del(cs->hvdatum);
    gx::delete_parameters(cs->parameters);
    gx_unit_del(cs->unit);
}

gx_object_header *vertcs_clone(const gx_object_header *obj)
{
    const auto *cs = as<gx_vertcs>(obj);
    gx::part_copy hvdatum(cs->hvdatum), unit(cs->unit);
    gx_parameter *parameters[gx::parameter_slots];
    if (!hvdatum.ok() || !unit.ok() || !gx::clone_parameters(cs->parameters, parameters))
        return nullptr;
    gx_vertcs *copy =
        gx_vertcs_new(obj->name, hvdatum.get<gx_hvdatum>(), parameters, unit.get<gx_unit>());
    if (copy == nullptr) {
        gx::delete_parameters(parameters);
        return nullptr;
    }
    hvdatum.release();
    unit.release();
    return gx::header_of(copy);
}

bool vertcs_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *x = as<gx_vertcs>(a);
    const auto *y = as<gx_vertcs>(b);
    return gx_strcmp_ci(a->name, b->name) == 0 && gx_hvdatum_eq(x->hvdatum, y->hvdatum) &&
           gx::parameters_equal(x->parameters, y->parameters) && gx_unit_eq(x->unit, y->unit);
}

void vertcs_write(const gx_object_header *obj, int options, gx::text_buf &out)
{
    const auto *cs = as<gx_vertcs>(obj);
    out.printf("VERTCS[\"%s\",%s", obj->name, gx::sub_text(cs->hvdatum, options).text);
    gx::append_parameters(out, cs->parameters, options, piece_limit);
    gx::append_piece(out, cs->unit, options, piece_limit);
}

enum vertcs_slot { authority_slot, hvdatum_slot, unit_slot };

constexpr gx::parameter_rule vertcs_parameters = {
    GX_TYPE_VERTCS, "Parameter \"%s\" in WKT string is not valid for a vertcs"};

bool vertcs_accept(gx::wkt_parse &parse, const gx::wkt_sub &, gx_object_header *obj)
{
    return gx::accept_parameter(parse, obj, vertcs_parameters);
}

// A vertical system without its shift or direction is still built: the conversion takes them
// as 0 and up.  The warnings go out after the constructor, which clears the caller's record.
void warn_missing_parameters(gx::wkt_parse &parse, const gx_vertcs *cs)
{
    const char *function = parse.grammar->function;
    if (cs->parameters[vertical_shift_slot] == nullptr)
        gx_err_str(parse.rec, GX_ERRLVL_WARNING, GX_ERRCAT_WKT, 447, function,
                   "Missing vertical shift parameter in WKT string");
    if (cs->parameters[direction_slot] == nullptr)
        gx_err_str(parse.rec, GX_ERRLVL_WARNING, GX_ERRCAT_WKT, 432, function,
                   "Missing direction parameter in WKT string");
}

gx_object_header *vertcs_build(gx::wkt_parse &parse)
{
    if (!gx::require_parts(parse, {
                                      {hvdatum_slot, 437, "Missing hvdatum in WKT string"},
                                      {unit_slot, 438, "Missing linear unit in WKT string"},
                                  }))
        return nullptr;
    gx_parameter *parameters[gx::parameter_slots];
    gx::collected_parameters(parse, parameters);
    const char *name = gx::synonym_lookup(vertcs_synonyms, parse.name);
    gx_vertcs *cs = gx_vertcs_new_errext(name, parse.slots[hvdatum_slot], parameters,
                                         as<gx_unit>(parse.slots[unit_slot]), parse.caller_err);
    if (cs != nullptr)
        warn_missing_parameters(parse, cs);
    return gx::built(parse, cs);
}

constexpr gx::wkt_sub vertcs_subs[] = {
    gx::authority_sub(authority_slot),
    {"DATUM", "VDATUM", hvdatum_slot, gx::hvdatum_from_tokens, 408,
     "Duplicate hvdatum in WKT string"},
    {"PARAMETER", nullptr, -1, gx::parameter_from_tokens, 411, nullptr},
    {"UNIT", nullptr, unit_slot, gx::unit_from_tokens, 409, "Duplicate linear unit in WKT string"},
};

constexpr gx::wkt_grammar vertcs_grammar = {
    "VERTCS",
    nullptr,
    "gx_vertcs_from_string",
    2,
    nullptr,
    nullptr,
    0,
    {},
    false,
    4,
    vertcs_subs,
    authority_slot,
    nullptr,
    vertcs_accept,
    vertcs_build,
};

} // namespace

namespace gx {

constexpr type_desc vertcs_desc = {
    GX_TYPE_VERTCS,
    "vertcs",
    sizeof(gx_vertcs),
    true,
    wkt_close::authority_and_bracket,
    vertcs_free_parts,
    vertcs_clone,
    vertcs_equal,
    vertcs_write,
    &vertcs_grammar,
};

gx_object_header *vertcs_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err)
{
    return wkt_from_tokens(vertcs_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_vertcs, gx::vertcs_desc)

gx_vertcs *gx_vertcs_new(const char *name, gx_hvdatum *hvdatum, gx_parameter *parameters[16],
                         gx_unit *unit)
{
    return gx_vertcs_new_errext(name, hvdatum, parameters, unit, nullptr);
}

gx_vertcs *gx_vertcs_new_errext(const char *name, gx_hvdatum *hvdatum, gx_parameter *parameters[16],
                                gx_unit *unit, gx_err_rec *err)
{
    const char *function = "gx_vertcs_new";
    gx::err_scope scope(err);
    if (!gx::check_parts(
            scope.rec(), function,
            {
                {hvdatum, gx::hvdatum_types, 337, "Null or invalid hvdatum object argument"},
            }))
        return nullptr;
    if (parameters == nullptr) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 330, function,
                   "Null parameters array argument");
        return nullptr;
    }
    if (!gx::check_parts(
            scope.rec(), function,
            {
                {unit, GX_TYPE_UNIT, 323, "Null or invalid linear unit object argument"},
            }))
        return nullptr;
    auto *cs = gx::as<gx_vertcs>(gx::new_record(gx::vertcs_desc, name, function, scope.rec()));
    if (cs == nullptr)
        return nullptr;
    cs->hvdatum = hvdatum;
    for (int slot = 0; slot < gx::parameter_slots; ++slot)
        cs->parameters[slot] = parameters[slot];
    cs->unit = unit;
    return cs;
}

gx_hvdatum *gx_vertcs_hvdatum(const gx_vertcs *cs)
{
    return gx_vertcs_p(cs) ? cs->hvdatum : nullptr;
}

gx_unit *gx_vertcs_unit(const gx_vertcs *cs) { return gx_vertcs_p(cs) ? cs->unit : nullptr; }

gx_parameter **gx_vertcs_parameters(gx_vertcs *cs)
{
    return gx_vertcs_p(cs) ? cs->parameters : nullptr;
}
