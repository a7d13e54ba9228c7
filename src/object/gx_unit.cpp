// The unit of measure: a name and its size in metres (linear units) or radians (angular units).
//   UNIT["Degree",0.0174532925199433]
#include "object/gx_types.h"

#include <cmath>

namespace {

using gx::as;

const gx::synonym unit_synonyms[] = {
    {"Meters", "Meter"},
    {"Metres", "Meter"},
    {"Metre", "Meter"},
    {nullptr, nullptr},
};

bool unit_equal(const gx_object_header *a, const gx_object_header *b)
{
    return gx_strcmp_ci(a->name, b->name) == 0 &&
           gx::eq(as<gx_unit>(a)->factor, as<gx_unit>(b)->factor);
}

gx_object_header *unit_clone(const gx_object_header *obj)
{
    return gx::header_of(gx_unit_new(obj->name, as<gx_unit>(obj)->factor));
}

void unit_write(const gx_object_header *obj, int, gx::text_buf &out)
{
    out.printf("UNIT[\"%s\",%s", obj->name, gx::number_text(as<gx_unit>(obj)->factor).text);
}

bool unit_check_values(gx::wkt_parse &parse)
{
    const double factor = gx_atod(parse.values[0]);
    if (!(factor > 0.0 && std::isfinite(factor))) {
        parse.error(422, "Unit factor (%s) in WKT string is <= 0", parse.values[0]);
        return false;
    }
    return true;
}

gx_object_header *unit_build(gx::wkt_parse &parse)
{
    return gx::header_of(
        gx_unit_new_errext(parse.name, gx_atod(parse.values[0]), parse.caller_err));
}

constexpr gx::wkt_sub unit_subs[] = {gx::authority_sub(0)};

constexpr gx::wkt_grammar unit_grammar = {
    "UNIT",
    nullptr,
    "gx_unit_from_string",
    3,
    nullptr,
    nullptr,
    1,
    {{455, "Missing unit conversion factor in WKT string"}},
    false,
    1,
    unit_subs,
    0,
    unit_check_values,
    nullptr,
    unit_build,
};

} // namespace

namespace gx {

constexpr type_desc unit_desc = {
    GX_TYPE_UNIT, "unit",     sizeof(gx_unit), true,       wkt_close::authority_and_bracket,
    nullptr,      unit_clone, unit_equal,      unit_write, &unit_grammar,
};

gx_object_header *unit_from_tokens(const gx_token_list *list, int start, int *next, gx_err_rec *err)
{
    return wkt_from_tokens(unit_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_unit, gx::unit_desc)

gx_unit *gx_unit_new(const char *name, double factor)
{
    return gx_unit_new_errext(name, factor, nullptr);
}

gx_unit *gx_unit_new_errext(const char *name, double factor, gx_err_rec *err)
{
    const char *function = "gx_unit_new";
    gx::err_scope scope(err);
    if (!(factor > 0.0 && std::isfinite(factor))) {
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 304, function,
                   "Unit factor argument (%s) is <= 0", gx::number_text(factor).text);
        return nullptr;
    }
    const char *current = gx::synonym_lookup(unit_synonyms, name != nullptr ? name : "");
    auto *unit = as<gx_unit>(gx::new_record(gx::unit_desc, current, function, scope.rec()));
    if (unit == nullptr)
        return nullptr;
    unit->factor = factor;
    return unit;
}

double gx_unit_factor(const gx_unit *unit) { return gx_unit_p(unit) ? unit->factor : 1.0; }
