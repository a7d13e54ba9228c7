// The geocentric coordinate system: cartesian X, Y, Z from the earth's centre, on the datum of a
// geographic system, in a unit.
//   GEOXYZCS["WGS_1984_XYZ",GEOGCS[...],UNIT["Meter",1.0]]
#include "object/gx_types.h"

namespace {

using gx::as;

const gx::synonym geoxyzcs_synonyms[] = {
    {nullptr, nullptr},
};

void geoxyzcs_free_parts(gx_object_header *obj)
{
    auto *cs = as<gx_geoxyzcs>(obj);
    gx_geogcs_del(cs->geogcs);
    gx_unit_del(cs->unit);
}

gx_object_header *geoxyzcs_clone(const gx_object_header *obj)
{
    const auto *cs = as<gx_geoxyzcs>(obj);
    gx::part_copy geogcs(cs->geogcs), unit(cs->unit);
    if (!geogcs.ok() || !unit.ok())
        return nullptr;
    gx_geoxyzcs *copy = gx_geoxyzcs_new(obj->name, geogcs.get<gx_geogcs>(), unit.get<gx_unit>());
    if (copy != nullptr) {
        geogcs.release();
        unit.release();
    }
    return gx::header_of(copy);
}

bool geoxyzcs_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *x = as<gx_geoxyzcs>(a);
    const auto *y = as<gx_geoxyzcs>(b);
    return gx_strcmp_ci(a->name, b->name) == 0 && gx_geogcs_eq(x->geogcs, y->geogcs) &&
           gx_unit_eq(x->unit, y->unit);
}

void geoxyzcs_write(const gx_object_header *obj, int options, gx::text_buf &out)
{
    const auto *cs = as<gx_geoxyzcs>(obj);
    out.printf("GEOXYZCS[\"%s\",%s,%s", obj->name, gx::sub_text(cs->geogcs, options).text,
               gx::sub_text(cs->unit, options).text);
}

enum geoxyzcs_slot { authority_slot, geogcs_slot, unit_slot };

gx_object_header *geoxyzcs_build(gx::wkt_parse &parse)
{
    if (!gx::require_parts(parse, {
                                      {geogcs_slot, 433, "Missing geographic CS in WKT string"},
                                      {unit_slot, 427, "Missing angular unit in WKT string"},
                                  }))
        return nullptr;
    const char *name = gx::synonym_lookup(geoxyzcs_synonyms, parse.name);
    return gx::built(parse,
                     gx_geoxyzcs_new_errext(name, as<gx_geogcs>(parse.slots[geogcs_slot]),
                                            as<gx_unit>(parse.slots[unit_slot]), parse.caller_err));
}

constexpr gx::wkt_sub geoxyzcs_subs[] = {
    gx::authority_sub(authority_slot),
    {"GEOGCS", nullptr, geogcs_slot, gx::geogcs_from_tokens, 406,
     "Duplicate geographic CS in WKT string"},
    {"UNIT", nullptr, unit_slot, gx::unit_from_tokens, 401, "Duplicate angular unit in WKT string"},
};

constexpr gx::wkt_grammar geoxyzcs_grammar = {
    "GEOXYZCS",
    nullptr,
    "gx_geoxyzcs_from_string",
    2,
    nullptr,
    nullptr,
    0,
    {},
    false,
    3,
    geoxyzcs_subs,
    authority_slot,
    nullptr,
    nullptr,
    geoxyzcs_build,
};

} // namespace

namespace gx {

constexpr type_desc geoxyzcs_desc = {
    GX_TYPE_GEOXYZCS,
    "geoxyzcs",
    sizeof(gx_geoxyzcs),
    true,
    wkt_close::authority_and_bracket,
    geoxyzcs_free_parts,
    geoxyzcs_clone,
    geoxyzcs_equal,
    geoxyzcs_write,
    &geoxyzcs_grammar,
};

gx_object_header *geoxyzcs_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err)
{
    return wkt_from_tokens(geoxyzcs_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_geoxyzcs, gx::geoxyzcs_desc)

gx_geoxyzcs *gx_geoxyzcs_new(const char *name, gx_geogcs *geogcs, gx_unit *unit)
{
    return gx_geoxyzcs_new_errext(name, geogcs, unit, nullptr);
}

gx_geoxyzcs *gx_geoxyzcs_new_errext(const char *name, gx_geogcs *geogcs, gx_unit *unit,
                                    gx_err_rec *err)
{
    const char *function = "gx_geoxyzcs_new";
    gx::err_scope scope(err);
    if (!gx::check_parts(
            scope.rec(), function,
            {
                {geogcs, GX_TYPE_GEOGCS, 331, "Null or invalid geogcs object argument"},
                {unit, GX_TYPE_UNIT, 322, "Null or invalid angular unit object argument"},
            }))
        return nullptr;
    auto *cs = gx::as<gx_geoxyzcs>(gx::new_record(gx::geoxyzcs_desc, name, function, scope.rec()));
    if (cs == nullptr)
        return nullptr;
    cs->geogcs = geogcs;
    cs->unit = unit;
    return cs;
}

gx_geogcs *gx_geoxyzcs_geogcs(const gx_geoxyzcs *cs)
{
    return gx_geoxyzcs_p(cs) ? cs->geogcs : nullptr;
}

gx_unit *gx_geoxyzcs_unit(const gx_geoxyzcs *cs) { return gx_geoxyzcs_p(cs) ? cs->unit : nullptr; }
