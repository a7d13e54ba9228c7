// The geographic coordinate system: longitude and latitude on a datum's ellipsoid, longitudes
// counted from a prime meridian, both in an angular unit.
//   GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,298.257223563]],
//          PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]]
#include "object/gx_types.h"

namespace {

using gx::as;

// Old names of systems whose datum was renamed.
const gx::synonym geogcs_synonyms[] = {
    {"GCS_Deutsche_Hauptdreiecksnetz", "GCS_Deutsches_Hauptdreiecksnetz"},
    {"GCS_Tahiti", "GCS_Tahiti_1952"},
    {"GCS_Tahaa", "GCS_Tahaa_1954"},
    {"GCS_K0_1949", "GCS_Kerguelen_Island_1949"},
    {"GCS_Reunion", "GCS_Reunion_1947"},
    {"GCS_Piton_des_Neiges", "GCS_Reunion_1947"},
    {"GCS_North_American_1983_CSRS98", "GCS_North_American_1983_CSRS"},
    {nullptr, nullptr},
};

void geogcs_free_parts(gx_object_header *obj)
{
    auto *cs = as<gx_geogcs>(obj);
    gx_datum_del(cs->datum);
    gx_primem_del(cs->primem);
    gx_unit_del(cs->unit);
}

gx_object_header *geogcs_clone(const gx_object_header *obj)
{
    const auto *cs = as<gx_geogcs>(obj);
    gx::part_copy datum(cs->datum), primem(cs->primem), unit(cs->unit);
    if (!datum.ok() || !primem.ok() || !unit.ok())
        return nullptr;
    gx_geogcs *copy = gx_geogcs_new(obj->name, datum.get<gx_datum>(), primem.get<gx_primem>(),
                                    unit.get<gx_unit>());
    if (copy != nullptr) {
        datum.release();
        primem.release();
        unit.release();
    }
    return gx::header_of(copy);
}

bool geogcs_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *x = as<gx_geogcs>(a);
    const auto *y = as<gx_geogcs>(b);
    return gx_strcmp_ci(a->name, b->name) == 0 && gx_datum_eq(x->datum, y->datum) &&
           gx_primem_eq(x->primem, y->primem) && gx_unit_eq(x->unit, y->unit);
}

void geogcs_write(const gx_object_header *obj, int options, gx::text_buf &out)
{
    const auto *cs = as<gx_geogcs>(obj);
    out.printf("GEOGCS[\"%s\",%s,%s,%s", obj->name, gx::sub_text(cs->datum, options).text,
               gx::sub_text(cs->primem, options).text, gx::sub_text(cs->unit, options).text);
}

enum geogcs_slot { authority_slot, datum_slot, primem_slot, unit_slot };

gx_object_header *geogcs_build(gx::wkt_parse &parse)
{
    if (!gx::require_parts(parse, {
                                      {datum_slot, 431, "Missing datum in WKT string"},
                                      {primem_slot, 440, "Missing prime meridian in WKT string"},
                                      {unit_slot, 427, "Missing angular unit in WKT string"},
                                  }))
        return nullptr;
    const char *name = gx::synonym_lookup(geogcs_synonyms, parse.name);
    return gx::built(parse,
                     gx_geogcs_new_errext(name, as<gx_datum>(parse.slots[datum_slot]),
                                          as<gx_primem>(parse.slots[primem_slot]),
                                          as<gx_unit>(parse.slots[unit_slot]), parse.caller_err));
}

constexpr gx::wkt_sub geogcs_subs[] = {
    gx::authority_sub(authority_slot),
    {"DATUM", nullptr, datum_slot, gx::datum_from_tokens, 405, "Duplicate datum in WKT string"},
    {"PRIMEM", nullptr, primem_slot, gx::primem_from_tokens, 412, "Duplicate primem in WKT string"},
    {"UNIT", nullptr, unit_slot, gx::unit_from_tokens, 401, "Duplicate unit in WKT string"},
};

constexpr gx::wkt_grammar geogcs_grammar = {
    "GEOGCS", nullptr,     "gx_geogcs_from_string", 2,       nullptr, nullptr,      0, {}, false,
    4,        geogcs_subs, authority_slot,          nullptr, nullptr, geogcs_build,
};

} // namespace

namespace gx {

constexpr type_desc geogcs_desc = {
    GX_TYPE_GEOGCS,
    "geogcs",
    sizeof(gx_geogcs),
    true,
    wkt_close::authority_and_bracket,
    geogcs_free_parts,
    geogcs_clone,
    geogcs_equal,
    geogcs_write,
    &geogcs_grammar,
};

gx_object_header *geogcs_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err)
{
    return wkt_from_tokens(geogcs_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_geogcs, gx::geogcs_desc)

gx_geogcs *gx_geogcs_new(const char *name, gx_datum *datum, gx_primem *primem, gx_unit *unit)
{
    return gx_geogcs_new_errext(name, datum, primem, unit, nullptr);
}

gx_geogcs *gx_geogcs_new_errext(const char *name, gx_datum *datum, gx_primem *primem, gx_unit *unit,
                                gx_err_rec *err)
{
    const char *function = "gx_geogcs_new";
    gx::err_scope scope(err);
    if (!gx::check_parts(
            scope.rec(), function,
            {
                {datum, GX_TYPE_DATUM, 334, "Null or invalid datum object argument"},
                {primem, GX_TYPE_PRIMEM, 329, "Null or invalid primem object argument"},
                {unit, GX_TYPE_UNIT, 322, "Null or invalid angular unit object argument"},
            }))
        return nullptr;
    auto *cs = gx::as<gx_geogcs>(gx::new_record(gx::geogcs_desc, name, function, scope.rec()));
    if (cs == nullptr)
        return nullptr;
    cs->datum = datum;
    cs->primem = primem;
    cs->unit = unit;
    return cs;
}

gx_datum *gx_geogcs_datum(const gx_geogcs *cs) { return gx_geogcs_p(cs) ? cs->datum : nullptr; }
gx_primem *gx_geogcs_primem(const gx_geogcs *cs) { return gx_geogcs_p(cs) ? cs->primem : nullptr; }
gx_unit *gx_geogcs_unit(const gx_geogcs *cs) { return gx_geogcs_p(cs) ? cs->unit : nullptr; }
