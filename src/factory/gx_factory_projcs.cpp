// gx_factory_projcs.cpp -- projected coordinate systems from codes.
#include "factory/gx_factory.h"

namespace {

using gx::factory::adopt;
using gx::factory::owned;
using gx::factory::parameter_slots;

// comp[0]: the geographic system; comp[1]: the projection; comp[2]: the linear unit; the
// parameters in the projection's slots.
void *assemble_projcs(const gx_defrec &rec, gx_err_rec *err)
{
    parameter_slots parameters;
    if (!parameters.fill(rec, err))
        return nullptr;
    owned<gx_projection> projection(gx_factory_projection_errext(rec.comp[1], err));
    if (!projection)
        return nullptr;
    owned<gx_geogcs> geogcs(gx_factory_geogcs_errext(rec.comp[0], err));
    if (!geogcs)
        return nullptr;
    owned<gx_unit> unit(gx_factory_linunit_errext(rec.comp[2], err));
    if (!unit)
        return nullptr;
    return adopt(gx_projcs_new_errext(rec.name, geogcs.get(), projection.get(), parameters.get(),
                                      unit.get(), err),
                 geogcs, projection, parameters, unit);
}

constexpr int transverse_mercator = 43006;
constexpr int metre = 9001;

constexpr int false_easting = 100001;
constexpr int false_northing = 100002;
constexpr int scale_factor = 100003;
constexpr int central_meridian = 100010;
constexpr int latitude_of_origin = 100021;

constexpr gx_defparm ouvea_utm_58s[] = {
    {central_meridian, 165.0, nullptr},    {latitude_of_origin, 0.0, nullptr},
    {scale_factor, 0.9996, nullptr},       {false_easting, 500000.0, nullptr},
    {false_northing, 10000000.0, nullptr},
};
constexpr gx_defparm reunion_tm[] = {
    {central_meridian, 55.53333333333333, nullptr},
    {latitude_of_origin, -21.116666666666667, nullptr},
    {scale_factor, 1.0, nullptr},
    {false_easting, 50000.0, nullptr},
    {false_northing, 160000.0, nullptr},
};
constexpr gx_defparm kudams_ktm[] = {
    {central_meridian, 48.0, nullptr}, {latitude_of_origin, 0.0, nullptr},
    {scale_factor, 0.9996, nullptr},   {false_easting, 500000.0, nullptr},
    {false_northing, 0.0, nullptr},
};

constexpr gx_defrec retired_projcs[] = {
    {2983, "ST87_Ouvea_UTM_58S", {4635, transverse_mercator, metre}, {}, 5, ouvea_utm_58s},
    {2990,
     "Reunion_1947_TM_Reunion_wrong_FE_and_FN",
     {4626, transverse_mercator, metre},
     {},
     5,
     reunion_tm},
    {31900, "KUDAMS_KTM", {4319, transverse_mercator, metre}, {}, 5, kudams_ktm},
};

constexpr gx::factory::type_factory projcs_factory = {
    .type = GX_TYPE_PROJCS,
    .function = "gx_factory_projcs",
    .unknown_number = 204,
    .unknown_format = "Invalid projected CS factory code (%d)",
    .discontinued = gx_factory_projcs_discontinued_codes,
    .changes = gx_factory_projcs_codechange_codes,
    .authority = gx_factory_authority_projcs,
    .retired = gx::factory::retired_of(retired_projcs),
    .assemble = assemble_projcs,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(projcs, projcs_factory)
