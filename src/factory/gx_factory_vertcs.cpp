// gx_factory_vertcs.cpp -- vertical coordinate systems from codes.
#include "factory/gx_factory.h"

namespace {

using gx::factory::adopt;
using gx::factory::owned;
using gx::factory::parameter_slots;

// comp[0]: a vertical datum (gravity-related heights) or a datum (ellipsoidal heights);
// comp[1]: the linear unit; the vertical shift and direction parameters.
void *assemble_vertcs(const gx_defrec &rec, gx_err_rec *err)
{
    parameter_slots parameters;
    if (!parameters.fill(rec, err))
        return nullptr;
    owned<void> hvdatum(gx_factory_hvdatum_errext(rec.comp[0], err));
    if (!hvdatum)
        return nullptr;
    owned<gx_unit> unit(gx_factory_linunit_errext(rec.comp[1], err));
    if (!unit)
        return nullptr;
    return adopt(gx_vertcs_new_errext(rec.name, hvdatum.get(), parameters.get(), unit.get(), err),
                 hvdatum, parameters, unit);
}

constexpr gx::factory::type_factory vertcs_factory = {
    .type = GX_TYPE_VERTCS,
    .function = "gx_factory_vertcs",
    .unknown_number = 205,
    .unknown_format = "Invalid vertical CS factory code (%d)",
    .discontinued = gx_factory_vertcs_discontinued_codes,
    .changes = gx_factory_vertcs_codechange_codes,
    .authority = gx_factory_authority_vertcs,
    .retired = {},
    .assemble = assemble_vertcs,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(vertcs, vertcs_factory)
