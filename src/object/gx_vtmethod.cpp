// The height method: the name and routines of a row of the vtmethod registry, which a vertical
// transformation calls to carry heights from one vertical system to another, and the kind of
// horizontal system it needs the points' positions in (geographic for the geoid grids).
//   VTMETHOD["EGM96",AUTHORITY["TAVU",129661]]
#include "object/gx_method_family.h"

namespace {

struct vtmethod_kind {
    using record = gx_vtmethod;
    static constexpr unsigned int type = GX_TYPE_VTMETHOD;
    static constexpr const char *type_name = "vtmethod";
    static constexpr const char *keyword = "VTMETHOD";
    static constexpr const char *from_string_function = "gx_vtmethod_from_string";
    static constexpr const char *missing_routines = "Null forward or inverse function argument";
    static const gx_vtmethlist_entry *row_named(const char *name)
    {
        return gx_vtmethlist_from_name(name);
    }
    static void set_code(gx_vtmethod *m) { gx_vtmethlist_set_code(m); }
    static gx_vtmethod *from_name(const char *name, gx_err_rec *err)
    {
        return gx_vtmethlist_vtmethod_from_name(name, err);
    }
};

using family = gx::method_family<vtmethod_kind>;

} // namespace

namespace gx {

gx_object_header *vtmethod_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err)
{
    return family::from_tokens(list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_vtmethod, family::desc)

gx_vtmethod *gx_vtmethod_new(const char *name, gx_vtm_rtn forward, gx_vtm_rtn inverse)
{
    return gx_vtmethod_new_errext(name, forward, inverse, nullptr);
}

gx_vtmethod *gx_vtmethod_new_errext(const char *name, gx_vtm_rtn forward, gx_vtm_rtn inverse,
                                    gx_err_rec *err)
{
    return family::make(name, {forward, inverse, nullptr, 0}, "gx_vtmethod_new", err);
}

gx_vtmethod *gx_vtmethod_new_extended(const char *name, gx_vtm_rtn forward, gx_vtm_rtn inverse,
                                      gx_vtm_const_rtn constfunc, unsigned int coordsys_type,
                                      gx_err_rec *err)
{
    return family::make(name, {forward, inverse, constfunc, coordsys_type},
                        "gx_vtmethod_new_extended", err);
}

gx_vtm_rtn gx_vtmethod_forward(const gx_vtmethod *m)
{
    return gx_vtmethod_p(m) ? m->forward : nullptr;
}

gx_vtm_rtn gx_vtmethod_inverse(const gx_vtmethod *m)
{
    return gx_vtmethod_p(m) ? m->inverse : nullptr;
}

gx_vtm_const_rtn gx_vtmethod_constfunc(const gx_vtmethod *m)
{
    return gx_vtmethod_p(m) ? m->constfunc : nullptr;
}

unsigned int gx_vtmethod_coordsys_type(const gx_vtmethod *m)
{
    return gx_vtmethod_p(m) ? m->coordsys_type : 0u;
}
