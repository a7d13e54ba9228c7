// The htmethod registry: the plane fits an adjusted system can apply to its coordinates, and
// the factories that make htmethod objects from it.
#include "object/gx_registry.h"

namespace {

constexpr gx::htmethod_row htmethods[] = {
    {{119624, "TAVU", "9.3.0", "Affine_Parametric", gx_affine_parametric_fwd,
      gx_affine_parametric_inv},
     {}},
    {{119625, "TAVU", "9.3.0", "2D_Projective_Parametric", gx_projective_parametric_fwd,
      gx_projective_parametric_inv},
     {}},
    {}, // code 0 ends the table
};

const gx::synonym htmethod_synonyms[] = {
    {nullptr, nullptr},
};

gx_htmethod *htmethod_from_row(const gx::htmethod_row &row, gx_err_rec *err)
{
    return gx_htmethod_new_errext(row.entry.name, row.entry.forward, row.entry.inverse, err);
}

constexpr gx::registry<gx::htmethod_row, gx_htmethod> registry = {
    htmethods,
    htmethod_synonyms,
    htmethod_from_row,
    "gx_htmethlist_htmethod_from_code",
    216,
    "Invalid htmethod factory code (%d)",
    "gx_htmethlist_htmethod_from_name",
    306,
    "Invalid htmethod name \"%s\"",
};

} // namespace

const gx_htmethlist_entry *gx_htmethlist_from_code(int code)
{
    return gx::entry_of(gx::row_with_code(registry.rows, code));
}

const gx_htmethlist_entry *gx_htmethlist_from_name(const char *name)
{
    return gx::entry_of(gx::registry_row_named(registry, name));
}

void gx_htmethlist_set_code(gx_htmethod *htmethod) { gx::registry_set_code(registry, htmethod); }

gx_htmethod *gx_htmethlist_htmethod_from_code(int code, gx_err_rec *err)
{
    return gx::registry_object_from_code(registry, code, err);
}

gx_htmethod *gx_htmethlist_htmethod_from_name(const char *name, gx_err_rec *err)
{
    return gx::registry_object_from_name(registry, name, err);
}
