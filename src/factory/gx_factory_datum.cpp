// gx_factory_datum.cpp -- datums from codes.
#include "factory/gx_factory.h"

namespace {

using gx::factory::adopt;
using gx::factory::owned;

// comp[0]: the spheroid.
void *assemble_datum(const gx_defrec &rec, gx_err_rec *err)
{
    owned<gx_spheroid> spheroid(gx_factory_spheroid_errext(rec.comp[0], err));
    if (!spheroid)
        return nullptr;
    return adopt(gx_datum_new_errext(rec.name, spheroid.get(), err), spheroid);
}

constexpr gx_defrec retired_datums[] = {
    {6635, "D_ST87_Ouvea", {7022}, {}, 0, nullptr},
};

constexpr gx::factory::type_factory datum_factory = {
    .type = GX_TYPE_DATUM,
    .function = "gx_factory_datum",
    .unknown_number = 206,
    .unknown_format = "Invalid datum factory code (%d)",
    .discontinued = gx_factory_datum_discontinued_codes,
    .changes = gx_factory_datum_codechange_codes,
    .authority = gx_factory_authority_datum,
    .retired = gx::factory::retired_of(retired_datums),
    .assemble = assemble_datum,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(datum, datum_factory)
