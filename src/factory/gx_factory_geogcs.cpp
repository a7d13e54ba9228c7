// gx_factory_geogcs.cpp -- geographic coordinate systems from codes.
#include "factory/gx_factory.h"

namespace {

using gx::factory::adopt;
using gx::factory::owned;

// comp[0]: the datum; comp[1]: the prime meridian; comp[2]: the angular unit.
void *assemble_geogcs(const gx_defrec &rec, gx_err_rec *err)
{
    owned<gx_datum> datum(gx_factory_datum_errext(rec.comp[0], err));
    if (!datum)
        return nullptr;
    owned<gx_primem> primem(gx_factory_primem_errext(rec.comp[1], err));
    if (!primem)
        return nullptr;
    owned<gx_unit> unit(gx_factory_angunit_errext(rec.comp[2], err));
    if (!unit)
        return nullptr;
    return adopt(gx_geogcs_new_errext(rec.name, datum.get(), primem.get(), unit.get(), err), datum,
                 primem, unit);
}

constexpr int greenwich = 8901;
constexpr int degree = 9102;

constexpr gx_defrec retired_geogcs[] = {
    {4635, "GCS_ST87_Ouvea", {6635, greenwich, degree}, {}, 0, nullptr},
};

constexpr gx::factory::type_factory geogcs_factory = {
    .type = GX_TYPE_GEOGCS,
    .function = "gx_factory_geogcs",
    .unknown_number = 203,
    .unknown_format = "Invalid geographic CS factory code (%d)",
    .discontinued = gx_factory_geogcs_discontinued_codes,
    .changes = gx_factory_geogcs_codechange_codes,
    .authority = gx_factory_authority_geogcs,
    .retired = gx::factory::retired_of(retired_geogcs),
    .assemble = assemble_geogcs,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(geogcs, geogcs_factory)
