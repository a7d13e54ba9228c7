// The projection object: a projection's name and the routines of its registry row (forward,
// inverse, the four horizons and the constants setup).  A projected CS owns one.
//   PROJECTION["Transverse_Mercator",AUTHORITY["TAVU",43006]]
#include "object/gx_types.h"

namespace {

using gx::as;

// The seven routines of a projection, in registry order.
struct routines {
    gx_prj_rtn forward;
    gx_prj_rtn inverse;
    gx_horizon_rtn horizon;
    gx_horizon_rtn horizon_pcs;
    gx_horizon_rtn horizon_gcs_raster;
    gx_horizon_rtn horizon_pcs_raster;
    gx_pcsconst_rtn pcsconstfunc;
};

routines routines_of(const gx_projlist_entry *entry)
{
    return {entry->forward,
            entry->inverse,
            entry->horizon,
            entry->horizon_pcs,
            entry->horizon_gcs_raster,
            entry->horizon_pcs_raster,
            entry->pcsconstfunc};
}

routines routines_of(const gx_projection *p)
{
    return {p->forward,
            p->inverse,
            p->horizon,
            p->horizon_pcs,
            p->horizon_gcs_raster,
            p->horizon_pcs_raster,
            p->pcsconstfunc};
}

// The constructor behind gx_projection_new and gx_projection_new_extended.  Without a forward or
// an inverse routine, the registry row of the name supplies all seven.
gx_projection *make_projection(const char *name, routines r, const char *function, gx_err_rec *err)
{
    gx::err_scope scope(err);
    if (r.forward == nullptr || r.inverse == nullptr) {
        const gx_projlist_entry *entry = gx_projlist_from_name(name);
        if (entry == nullptr) {
            gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 340, function,
                       "Null forward or inverse function argument");
            return nullptr;
        }
        r = routines_of(entry);
    }
    if (r.horizon == nullptr)
        r.horizon = gx_horizon_null;

    auto *p = as<gx_projection>(gx::new_record(gx::projection_desc, name, function, scope.rec()));
    if (p == nullptr)
        return nullptr;
    p->forward = r.forward;
    p->inverse = r.inverse;
    p->horizon = r.horizon;
    p->horizon_pcs = r.horizon_pcs;
    p->horizon_gcs_raster = r.horizon_gcs_raster;
    p->horizon_pcs_raster = r.horizon_pcs_raster;
    p->pcsconstfunc = r.pcsconstfunc;
    gx_projlist_set_code(p);
    return p;
}

bool projection_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *pa = as<gx_projection>(a);
    const auto *pb = as<gx_projection>(b);
    return gx_strcmp_ci(a->name, b->name) == 0 && pa->forward == pb->forward &&
           pa->inverse == pb->inverse && pa->horizon == pb->horizon;
}

gx_object_header *projection_clone(const gx_object_header *obj)
{
    const routines r = routines_of(as<gx_projection>(obj));
    return gx::header_of(make_projection(obj->name, r, "gx_projection_clone", nullptr));
}

void projection_write(const gx_object_header *obj, int, gx::text_buf &out)
{
    out.printf("PROJECTION[\"%s\"", obj->name);
}

// A projection read from text computes with the registry routines of its name.
gx_object_header *projection_build(gx::wkt_parse &parse)
{
    return gx::header_of(
        make_projection(parse.name, routines{}, "gx_projection_new", parse.caller_err));
}

constexpr gx::wkt_sub projection_subs[] = {gx::authority_sub(0)};

constexpr gx::wkt_grammar projection_grammar = {
    "PROJECTION",
    nullptr,
    "gx_projection_from_string",
    2,
    nullptr,
    nullptr,
    0,
    {},
    false,
    1,
    projection_subs,
    0,
    nullptr,
    nullptr,
    projection_build,
};

} // namespace

namespace gx {

constexpr type_desc projection_desc = {
    GX_TYPE_PROJECTION,
    "projection",
    sizeof(gx_projection),
    true,
    wkt_close::authority_and_bracket,
    nullptr,
    projection_clone,
    projection_equal,
    projection_write,
    &projection_grammar,
};

gx_object_header *projection_from_tokens(const gx_token_list *list, int start, int *next,
                                         gx_err_rec *err)
{
    return wkt_from_tokens(projection_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_projection, gx::projection_desc)

gx_projection *gx_projection_new(const char *name, gx_prj_rtn forward, gx_prj_rtn inverse,
                                 gx_horizon_rtn horizon)
{
    return gx_projection_new_errext(name, forward, inverse, horizon, nullptr);
}

gx_projection *gx_projection_new_errext(const char *name, gx_prj_rtn forward, gx_prj_rtn inverse,
                                        gx_horizon_rtn horizon, gx_err_rec *err)
{
    const routines r = {forward, inverse, horizon, nullptr, nullptr, nullptr, nullptr};
    return make_projection(name, r, "gx_projection_new", err);
}

gx_projection *gx_projection_new_extended(const char *name, gx_prj_rtn forward, gx_prj_rtn inverse,
                                          gx_horizon_rtn horizon, gx_horizon_rtn horizon_pcs,
                                          gx_horizon_rtn horizon_gcs_raster,
                                          gx_horizon_rtn horizon_pcs_raster,
                                          gx_pcsconst_rtn pcsconstfunc)
{
    return gx_projection_new_extended_errext(name, forward, inverse, horizon, horizon_pcs,
                                             horizon_gcs_raster, horizon_pcs_raster, pcsconstfunc,
                                             nullptr);
}

gx_projection *gx_projection_new_extended_errext(const char *name, gx_prj_rtn forward,
                                                 gx_prj_rtn inverse, gx_horizon_rtn horizon,
                                                 gx_horizon_rtn horizon_pcs,
                                                 gx_horizon_rtn horizon_gcs_raster,
                                                 gx_horizon_rtn horizon_pcs_raster,
                                                 gx_pcsconst_rtn pcsconstfunc, gx_err_rec *err)
{
    const routines r = {
        forward,     inverse, horizon, horizon_pcs, horizon_gcs_raster, horizon_pcs_raster,
        pcsconstfunc};
    return make_projection(name, r, "gx_projection_new_extended", err);
}

// ---- routines, with the neutral value of an invalid object or an empty slot -----------------

namespace {

template <class Rtn> Rtn routine_or(const gx_projection *p, Rtn gx_projection::*slot, Rtn neutral)
{
    return gx_projection_p(p) && p->*slot != nullptr ? p->*slot : neutral;
}

} // namespace

gx_prj_rtn gx_projection_forward(const gx_projection *p)
{
    return routine_or(p, &gx_projection::forward, gx_prj_rtn{gx_prj_null_fwd});
}

gx_prj_rtn gx_projection_inverse(const gx_projection *p)
{
    return routine_or(p, &gx_projection::inverse, gx_prj_rtn{gx_prj_null_inv});
}

gx_horizon_rtn gx_projection_horizon(const gx_projection *p)
{
    return routine_or(p, &gx_projection::horizon, gx_horizon_rtn{gx_horizon_null});
}

gx_horizon_rtn gx_projection_horizon_pcs(const gx_projection *p)
{
    return routine_or(p, &gx_projection::horizon_pcs, gx_horizon_rtn{});
}

gx_horizon_rtn gx_projection_horizon_gcs_raster(const gx_projection *p)
{
    return routine_or(p, &gx_projection::horizon_gcs_raster, gx_horizon_rtn{});
}

gx_horizon_rtn gx_projection_horizon_pcs_raster(const gx_projection *p)
{
    return routine_or(p, &gx_projection::horizon_pcs_raster, gx_horizon_rtn{});
}

gx_pcsconst_rtn gx_projection_pcsconstfunc(const gx_projection *p)
{
    return routine_or(p, &gx_projection::pcsconstfunc, gx_pcsconst_rtn{});
}
