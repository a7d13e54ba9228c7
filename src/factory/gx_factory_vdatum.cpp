// gx_factory_vdatum.cpp -- vertical datums from codes.
#include "factory/gx_factory.h"

namespace {

void *assemble_vdatum(const gx_defrec &rec, gx_err_rec *err)
{
    return gx_vdatum_new_errext(rec.name, err);
}

constexpr gx::factory::type_factory vdatum_factory = {
    .type = GX_TYPE_VDATUM,
    .function = "gx_factory_vdatum",
    .unknown_number = 207,
    .unknown_format = "Invalid vertical datum factory code (%d)",
    .discontinued = gx_factory_vdatum_discontinued_codes,
    .changes = gx_factory_vdatum_codechange_codes,
    .authority = gx_factory_authority_vdatum,
    .retired = {},
    .assemble = assemble_vdatum,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(vdatum, vdatum_factory)
