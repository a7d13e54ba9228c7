// The plane-fit method of an adjusted system: the name and routines of a row of the htmethod
// registry, which refit projected or geographic plane coordinates (affine, 2D projective).
//   HTMETHOD["Affine_Parametric",AUTHORITY["TAVU",119624]]
#include "object/gx_method_family.h"

namespace {

struct htmethod_kind {
    using record = gx_htmethod;
    static constexpr unsigned int type = GX_TYPE_HTMETHOD;
    static constexpr const char *type_name = "htmethod";
    static constexpr const char *keyword = "HTMETHOD";
    static constexpr const char *from_string_function = "gx_htmethod_from_string";
    static constexpr const char *missing_routines =
        "Null forward or inverse function arument"; // sic: this constructor's own wording
    static const gx_htmethlist_entry *row_named(const char *name)
    {
        return gx_htmethlist_from_name(name);
    }
    static void set_code(gx_htmethod *m) { gx_htmethlist_set_code(m); }
    static gx_htmethod *from_name(const char *name, gx_err_rec *err)
    {
        return gx_htmethlist_htmethod_from_name(name, err);
    }
};

using family = gx::method_family<htmethod_kind>;

} // namespace

namespace gx {

gx_object_header *htmethod_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err)
{
    return family::from_tokens(list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_htmethod, family::desc)

gx_htmethod *gx_htmethod_new(const char *name, gx_htm_rtn forward, gx_htm_rtn inverse)
{
    return gx_htmethod_new_errext(name, forward, inverse, nullptr);
}

gx_htmethod *gx_htmethod_new_errext(const char *name, gx_htm_rtn forward, gx_htm_rtn inverse,
                                    gx_err_rec *err)
{
    return family::make(name, {forward, inverse, nullptr, 0}, "gx_htmethod_new", err);
}

gx_htm_rtn gx_htmethod_forward(const gx_htmethod *m)
{
    return gx_htmethod_p(m) ? m->forward : nullptr;
}

gx_htm_rtn gx_htmethod_inverse(const gx_htmethod *m)
{
    return gx_htmethod_p(m) ? m->inverse : nullptr;
}
