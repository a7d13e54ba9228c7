// The adjusted horizontal system: a geographic or projected system whose plane coordinates are
// refitted by a plane-fit method (affine, 2D projective) with the coefficients of an array, in a
// unit.  It carries no code and no authority, and its text never holds an AUTHORITY clause.
//   ADJHCS["Site_Grid",PROJCS[...],HTMETHOD["Affine_Parametric"],
//          ARRAY["Coefficients",6,1.0,0.0,100.0,0.0,1.0,200.0],UNIT["Meter",1.0]]
#include "object/gx_types.h"

namespace {

using gx::as;

void adjhcs_free_parts(gx_object_header *obj)
{
    auto *cs = as<gx_adjhcs>(obj);
    gx_coordsys_del(cs->coordsys);
    gx_htmethod_del(cs->htmethod);
    gx_array_del(cs->array);
    gx_unit_del(cs->unit);
}

gx_object_header *adjhcs_clone(const gx_object_header *obj)
{
    const auto *cs = as<gx_adjhcs>(obj);
    gx::part_copy coordsys(cs->coordsys), htmethod(cs->htmethod), array(cs->array), unit(cs->unit);
    if (!coordsys.ok() || !htmethod.ok() || !array.ok() || !unit.ok())
        return nullptr;
    gx_adjhcs *copy =
        gx_adjhcs_new(obj->name, coordsys.get<gx_coordsys>(), htmethod.get<gx_htmethod>(),
                      array.get<gx_array>(), unit.get<gx_unit>());
    if (copy != nullptr) {
        coordsys.release();
        htmethod.release();
        array.release();
        unit.release();
    }
    return gx::header_of(copy);
}

bool adjhcs_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *x = as<gx_adjhcs>(a);
    const auto *y = as<gx_adjhcs>(b);
    return gx_strcmp_ci(a->name, b->name) == 0 && gx_coordsys_eq(x->coordsys, y->coordsys) &&
           gx_htmethod_eq(x->htmethod, y->htmethod) && gx_array_eq(x->array, y->array) &&
           gx_unit_eq(x->unit, y->unit);
}

void adjhcs_write(const gx_object_header *obj, int options, gx::text_buf &out)
{
    const auto *cs = as<gx_adjhcs>(obj);
    out.printf("ADJHCS[\"%s\",%s,%s,%s,%s", obj->name, gx::sub_text(cs->coordsys, options).text,
               gx::sub_text(cs->htmethod, options).text, gx::sub_text(cs->array, options).text,
               gx::sub_text(cs->unit, options).text);
}

enum adjhcs_slot { coordsys_slot, htmethod_slot, array_slot, unit_slot };

gx_object_header *adjhcs_build(gx::wkt_parse &parse)
{
    if (!gx::require_parts(parse, {
                                      {coordsys_slot, 429, "Missing coordsys in WKT string"},
                                      {htmethod_slot, 436, "Missing htmethod in WKT string"},
                                      {array_slot, 428, "Missing array in WKT string"},
                                      {unit_slot, 446, "Missing unit in WKT string"},
                                  }))
        return nullptr;
    return gx::built(parse,
                     gx_adjhcs_new_errext(parse.name, parse.slots[coordsys_slot],
                                          as<gx_htmethod>(parse.slots[htmethod_slot]),
                                          as<gx_array>(parse.slots[array_slot]),
                                          as<gx_unit>(parse.slots[unit_slot]), parse.caller_err));
}

constexpr gx::wkt_sub adjhcs_subs[] = {
    {"PROJCS", "GEOGCS", coordsys_slot, gx::coordsys_from_tokens, 404,
     "Duplicate coordsys in WKT string"},
    {"HTMETHOD", nullptr, htmethod_slot, gx::htmethod_from_tokens, 407,
     "Duplicate htmethod in WKT string"},
    {"ARRAY", nullptr, array_slot, gx::array_from_tokens, 402, "Duplicate array in WKT string"},
    {"UNIT", nullptr, unit_slot, gx::unit_from_tokens, 416, "Duplicate unit in WKT string"},
};

constexpr gx::wkt_grammar adjhcs_grammar = {
    "ADJHCS", nullptr,     "gx_adjhcs_from_string",
    2,        nullptr,     nullptr,
    0,        {},          false,
    4,        adjhcs_subs, -1,
    nullptr,  nullptr,     adjhcs_build,
};

} // namespace

namespace gx {

constexpr type_desc adjhcs_desc = {
    GX_TYPE_ADJHCS,    "adjhcs",     sizeof(gx_adjhcs), false,        wkt_close::bracket_only,
    adjhcs_free_parts, adjhcs_clone, adjhcs_equal,      adjhcs_write, &adjhcs_grammar,
};

gx_object_header *adjhcs_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err)
{
    return wkt_from_tokens(adjhcs_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_OBJECT_FAMILY(gx_adjhcs, gx::adjhcs_desc)
GX_DEFINE_UNCODED_VECTOR(gx_adjhcs, gx::adjhcs_desc)

gx_adjhcs *gx_adjhcs_new(const char *name, gx_coordsys *coordsys, gx_htmethod *htmethod,
                         gx_array *array, gx_unit *unit)
{
    return gx_adjhcs_new_errext(name, coordsys, htmethod, array, unit, nullptr);
}

gx_adjhcs *gx_adjhcs_new_errext(const char *name, gx_coordsys *coordsys, gx_htmethod *htmethod,
                                gx_array *array, gx_unit *unit, gx_err_rec *err)
{
    const char *function = "gx_adjhcs_new";
    gx::err_scope scope(err);
    if (!gx::check_parts(
            scope.rec(), function,
            {
                {coordsys, gx::coordsys_types, 338, "Null or invalid coordsys object argument"},
                {htmethod, GX_TYPE_HTMETHOD, 336, "Null or invalid htmethod object argument"},
                {array, GX_TYPE_ARRAY, 325, "Null or invalid array object argument"},
                {unit, GX_TYPE_UNIT, 324, "Null or invalid unit object argument"},
            }))
        return nullptr;
    auto *cs = as<gx_adjhcs>(gx::new_record(gx::adjhcs_desc, name, function, scope.rec()));
    if (cs == nullptr)
        return nullptr;
    cs->coordsys = coordsys;
    cs->htmethod = htmethod;
    cs->array = array;
    cs->unit = unit;
    return cs;
}

gx_coordsys *gx_adjhcs_coordsys(const gx_adjhcs *cs)
{
    return gx_adjhcs_p(cs) ? cs->coordsys : nullptr;
}

gx_htmethod *gx_adjhcs_htmethod(const gx_adjhcs *cs)
{
    return gx_adjhcs_p(cs) ? cs->htmethod : nullptr;
}

gx_array *gx_adjhcs_array(const gx_adjhcs *cs) { return gx_adjhcs_p(cs) ? cs->array : nullptr; }

gx_unit *gx_adjhcs_unit(const gx_adjhcs *cs) { return gx_adjhcs_p(cs) ? cs->unit : nullptr; }
