// The vertical datum: the surface heights are counted from (a geoid or a mean sea level), known
// only by its name.
//   VDATUM["Mean_Sea_Level"]
#include "object/gx_types.h"

namespace {

const gx::synonym vdatum_synonyms[] = {
    {nullptr, nullptr},
};

bool vdatum_equal(const gx_object_header *a, const gx_object_header *b)
{
    return gx_strcmp_ci(a->name, b->name) == 0;
}

gx_object_header *vdatum_clone(const gx_object_header *obj)
{
    return gx::header_of(gx_vdatum_new(obj->name));
}

void vdatum_write(const gx_object_header *obj, int, gx::text_buf &out)
{
    out.printf("VDATUM[\"%s\"", obj->name);
}

gx_object_header *vdatum_build(gx::wkt_parse &parse)
{
    const char *name = gx::synonym_lookup(vdatum_synonyms, parse.name);
    return gx::header_of(gx_vdatum_new_errext(name, parse.caller_err));
}

constexpr gx::wkt_sub vdatum_subs[] = {gx::authority_sub(0)};

constexpr gx::wkt_grammar vdatum_grammar = {
    "VDATUM", nullptr,     "gx_vdatum_from_string",
    2,        nullptr,     nullptr,
    0,        {},          false,
    1,        vdatum_subs, 0,
    nullptr,  nullptr,     vdatum_build,
};

} // namespace

namespace gx {

constexpr type_desc vdatum_desc = {
    GX_TYPE_VDATUM, "vdatum",     sizeof(gx_vdatum), true,         wkt_close::authority_and_bracket,
    nullptr,        vdatum_clone, vdatum_equal,      vdatum_write, &vdatum_grammar,
};

gx_object_header *vdatum_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err)
{
    return wkt_from_tokens(vdatum_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_vdatum, gx::vdatum_desc)

gx_vdatum *gx_vdatum_new(const char *name) { return gx_vdatum_new_errext(name, nullptr); }

gx_vdatum *gx_vdatum_new_errext(const char *name, gx_err_rec *err)
{
    const char *function = "gx_vdatum_new";
    gx::err_scope scope(err);
    if (name == nullptr || name[0] == '\0') {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 321, function,
                   "Null or invalid vdatum name argument");
        return nullptr;
    }
    return gx::as<gx_vdatum>(gx::new_record(gx::vdatum_desc, name, function, scope.rec()));
}
