// gx_factory_spheroid.cpp -- spheroids from codes.
#include "factory/gx_factory.h"

namespace {

// value[0]: semi-major axis in metres; value[1]: inverse flattening, 0 for a sphere.
void *assemble_spheroid(const gx_defrec &rec, gx_err_rec *err)
{
    const double inverse_flattening = rec.value[1];
    const double flattening = inverse_flattening != 0.0 ? 1.0 / inverse_flattening : 0.0;
    return gx_spheroid_new_errext(rec.name, rec.value[0], flattening, err);
}

constexpr gx::factory::type_factory spheroid_factory = {
    .type = GX_TYPE_SPHEROID,
    .function = "gx_factory_spheroid",
    .unknown_number = 214,
    .unknown_format = "Invalid spheroid factory code (%d)",
    .discontinued = gx_factory_spheroid_discontinued_codes,
    .changes = gx_factory_spheroid_codechange_codes,
    .authority = gx_factory_authority_spheroid,
    .retired = {},
    .assemble = assemble_spheroid,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(spheroid, spheroid_factory)
