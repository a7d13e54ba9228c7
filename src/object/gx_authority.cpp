// The authority: the body that issued an object's code, with the code and its version.
//   AUTHORITY["EPSG",4326]
#include "object/gx_types.h"

#include <cstdlib>

namespace {

using gx::as;

bool authority_equal(const gx_object_header *a, const gx_object_header *b)
{
    return gx_strcmp_ci(a->name, b->name) == 0 &&
           as<gx_authority>(a)->authcode == as<gx_authority>(b)->authcode;
}

gx_object_header *authority_clone(const gx_object_header *obj)
{
    const auto *auth = as<gx_authority>(obj);
    return gx::header_of(gx_authority_new(auth->header.name, auth->authcode, auth->authversion));
}

void authority_write(const gx_object_header *obj, int, gx::text_buf &out)
{
    out.printf("AUTHORITY[\"%s\",%d", obj->name, as<gx_authority>(obj)->authcode);
}

// AUTHORITY[name, code] or AUTHORITY[name, code, version] or AUTHORITY[name, version, code].
gx_object_header *authority_build(gx::wkt_parse &parse)
{
    const char *code_text = parse.rest_count > 0 ? parse.rest[0] : "";
    const char *version = "";
    if (parse.rest_count > 1) {
        const bool code_first = gx_str_isnumeric(parse.rest[0]) != 0;
        code_text = parse.rest[code_first ? 0 : 1];
        version = parse.rest[code_first ? 1 : 0];
    }
    const int code = static_cast<int>(std::strtol(code_text, nullptr, 10));
    return gx::header_of(gx_authority_new_errext(parse.name, code, version, parse.caller_err));
}

constexpr gx::wkt_grammar authority_grammar = {
    "AUTHORITY", nullptr, "gx_authority_from_string",
    3,           nullptr, nullptr,
    0,           {},      true,
    0,           nullptr, -1,
    nullptr,     nullptr, authority_build,
};

} // namespace

namespace gx {

constexpr type_desc authority_desc = {
    GX_TYPE_AUTHORITY,       "authority",
    sizeof(gx_authority),    false,
    wkt_close::bracket_only, nullptr,
    authority_clone,         authority_equal,
    authority_write,         &authority_grammar,
};

gx_object_header *authority_from_tokens(const gx_token_list *list, int start, int *next,
                                        gx_err_rec *err)
{
    return wkt_from_tokens(authority_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_OBJECT_FAMILY(gx_authority, gx::authority_desc)
GX_DEFINE_UNCODED_VECTOR(gx_authority, gx::authority_desc)

gx_authority *gx_authority_new(const char *name, int code, const char *version)
{
    return gx_authority_new_errext(name, code, version, nullptr);
}

gx_authority *gx_authority_new_errext(const char *name, int code, const char *version,
                                      gx_err_rec *err)
{
    const char *function = "gx_authority_new";
    gx::err_scope scope(err);
    if (name == nullptr || name[0] == '\0') {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 320, function,
                   "Null or invalid authority name argument");
        return nullptr;
    }
    if (code < 1) {
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 311, function,
                   "Invalid authority code argument (%d)", code);
        return nullptr;
    }
    auto *auth = as<gx_authority>(gx::new_record(gx::authority_desc, name, function, scope.rec()));
    if (auth == nullptr)
        return nullptr;
    auth->authcode = code;
    gx_strncpy(auth->authversion, version != nullptr ? version : "", GX_VERSION_LEN);
    return auth;
}

int gx_authority_authcode(const gx_authority *auth)
{
    return gx_authority_p(auth) ? auth->authcode : 0;
}

const char *gx_authority_version(const gx_authority *auth)
{
    return gx_authority_p(auth) ? auth->authversion : nullptr;
}
