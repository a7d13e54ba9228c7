// gx_factory_primem.cpp -- prime meridians from codes.
#include "factory/gx_factory.h"

namespace {

// value[0]: longitude in degrees east of Greenwich.
void *assemble_primem(const gx_defrec &rec, gx_err_rec *err)
{
    return gx_primem_new_errext(rec.name, rec.value[0], err);
}

constexpr gx::factory::type_factory primem_factory = {
    .type = GX_TYPE_PRIMEM,
    .function = "gx_factory_primem",
    .unknown_number = 213,
    .unknown_format = "Invalid prime meridian factory code (%d)",
    .discontinued = gx_factory_primem_discontinued_codes,
    .changes = gx_factory_primem_codechange_codes,
    .authority = gx_factory_authority_primem,
    .retired = {},
    .assemble = assemble_primem,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(primem, primem_factory)
