// The prime meridian: the meridian from which a geographic system counts longitude, given by its
// own longitude east of Greenwich in degrees.
//   PRIMEM["Paris",2.337229166666667]
#include "object/gx_types.h"

namespace {

using gx::as;

const gx::synonym primem_synonyms[] = {
    {nullptr, nullptr},
};

// Both ends are meridians in their own right (180 and -180 are the same line).
bool valid_longitude(double longitude) { return longitude >= -180.0 && longitude <= 180.0; }

bool primem_equal(const gx_object_header *a, const gx_object_header *b)
{
    return gx_strcmp_ci(a->name, b->name) == 0 &&
           gx::eq(as<gx_primem>(a)->longitude, as<gx_primem>(b)->longitude);
}

gx_object_header *primem_clone(const gx_object_header *obj)
{
    return gx::header_of(gx_primem_new(obj->name, as<gx_primem>(obj)->longitude));
}

void primem_write(const gx_object_header *obj, int, gx::text_buf &out)
{
    out.printf("PRIMEM[\"%s\",%s", obj->name, gx::number_text(as<gx_primem>(obj)->longitude).text);
}

bool primem_check_values(gx::wkt_parse &parse)
{
    if (!valid_longitude(gx_atod(parse.values[0]))) {
        parse.error(419, "Longitude (%s) in WKT string is < -180 or > 180", parse.values[0]);
        return false;
    }
    return true;
}

gx_object_header *primem_build(gx::wkt_parse &parse)
{
    const char *name = gx::synonym_lookup(primem_synonyms, parse.name);
    return gx::header_of(gx_primem_new_errext(name, gx_atod(parse.values[0]), parse.caller_err));
}

constexpr gx::wkt_sub primem_subs[] = {gx::authority_sub(0)};

constexpr gx::wkt_grammar primem_grammar = {
    "PRIMEM",
    nullptr,
    "gx_primem_from_string",
    3,
    nullptr,
    nullptr,
    1,
    {{449, "Missing longitude in WKT string"}},
    false,
    1,
    primem_subs,
    0,
    primem_check_values,
    nullptr,
    primem_build,
};

} // namespace

namespace gx {

constexpr type_desc primem_desc = {
    GX_TYPE_PRIMEM, "primem",     sizeof(gx_primem), true,         wkt_close::authority_and_bracket,
    nullptr,        primem_clone, primem_equal,      primem_write, &primem_grammar,
};

gx_object_header *primem_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err)
{
    return wkt_from_tokens(primem_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_primem, gx::primem_desc)

gx_primem *gx_primem_new(const char *name, double longitude)
{
    return gx_primem_new_errext(name, longitude, nullptr);
}

gx_primem *gx_primem_new_errext(const char *name, double longitude, gx_err_rec *err)
{
    const char *function = "gx_primem_new";
    gx::err_scope scope(err);
    if (!valid_longitude(longitude)) {
        // The text says "< 180" where "> 180" is meant; callers match on it as it stands.
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 301, function,
                   "Longitude argument (%s) is < -180 or < 180", gx::number_text(longitude).text);
        return nullptr;
    }
    auto *pm = as<gx_primem>(gx::new_record(gx::primem_desc, name, function, scope.rec()));
    if (pm == nullptr)
        return nullptr;
    pm->longitude = longitude;
    return pm;
}

double gx_primem_longitude(const gx_primem *pm) { return gx_primem_p(pm) ? pm->longitude : 0.0; }
