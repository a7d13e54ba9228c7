// The datum-shift method: the name and routines of a row of the method registry, which a
// geographic transformation calls to move points from one datum to another.
//   METHOD["Coordinate_Frame",AUTHORITY["EPSG",9607]]
#include "object/gx_method_family.h"

namespace {

struct method_kind {
    using record = gx_method;
    static constexpr unsigned int type = GX_TYPE_METHOD;
    static constexpr const char *type_name = "method";
    static constexpr const char *keyword = "METHOD";
    static constexpr const char *from_string_function = "gx_method_from_string";
    static constexpr const char *missing_routines = "Null forward or inverse function argument";
    static const gx_methlist_entry *row_named(const char *name)
    {
        return gx_methlist_from_name(name);
    }
    static void set_code(gx_method *m) { gx_methlist_set_code(m); }
    static gx_method *from_name(const char *name, gx_err_rec *err)
    {
        return gx_methlist_method_from_name(name, err);
    }
};

using family = gx::method_family<method_kind>;

} // namespace

namespace gx {

gx_object_header *method_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err)
{
    return family::from_tokens(list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_method, family::desc)

gx_method *gx_method_new(const char *name, gx_mth_rtn forward, gx_mth_rtn inverse)
{
    return gx_method_new_errext(name, forward, inverse, nullptr);
}

gx_method *gx_method_new_errext(const char *name, gx_mth_rtn forward, gx_mth_rtn inverse,
                                gx_err_rec *err)
{
    return family::make(name, {forward, inverse, nullptr, 0}, "gx_method_new", err);
}

gx_method *gx_method_new_extended(const char *name, gx_mth_rtn forward, gx_mth_rtn inverse,
                                  gx_mth_const_rtn constfunc, gx_err_rec *err)
{
    return family::make(name, {forward, inverse, constfunc, 0}, "gx_method_new_extended", err);
}

gx_mth_rtn gx_method_forward(const gx_method *m) { return gx_method_p(m) ? m->forward : nullptr; }

gx_mth_rtn gx_method_inverse(const gx_method *m) { return gx_method_p(m) ? m->inverse : nullptr; }

gx_mth_const_rtn gx_method_constfunc(const gx_method *m)
{
    return gx_method_p(m) ? m->constfunc : nullptr;
}
