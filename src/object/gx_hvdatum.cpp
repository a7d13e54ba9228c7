// The hvdatum: the datum of a vertical system, either a horizontal datum (heights above its
// ellipsoid) or a vertical datum (heights above a geoid or a sea level).  It is not a type of
// its own; its operations check the object and dispatch on its type.
#include "object/gx_types.h"

#include <cctype>

namespace {

// Whether the first DATUM keyword of the text is the tail of VDATUM.
bool first_datum_is_vertical(const char *text)
{
    const char *keyword = gx_strstr_ci(text, "DATUM");
    return keyword != nullptr && keyword > text &&
           std::toupper(static_cast<unsigned char>(keyword[-1])) == 'V';
}

} // namespace

GX_DEFINE_UNION_FAMILY(gx_hvdatum, gx::hvdatum_types)

gx_hvdatum *gx_hvdatum_from_string_errext(const char *text, gx_err_rec *err)
{
    if (text == nullptr) {
        gx::err_scope scope(err);
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 456, "gx_hvdatum_from_string",
                   "Null WKT string");
        return nullptr;
    }
    if (first_datum_is_vertical(text))
        return gx_vdatum_from_string_errext(text, err);
    return gx_datum_from_string_errext(text, err);
}

namespace gx {

gx_object_header *hvdatum_from_tokens(const gx_token_list *list, int start, int *next,
                                      gx_err_rec *err)
{
    const bool vertical = list != nullptr && start >= 0 && start < list->count &&
                          gx_strcmp_ci(list->tokens[start].text, "VDATUM") == 0;
    return vertical ? vdatum_from_tokens(list, start, next, err)
                    : datum_from_tokens(list, start, next, err);
}

} // namespace gx
