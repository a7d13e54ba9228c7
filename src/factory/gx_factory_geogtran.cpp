// gx_factory_geogtran.cpp -- geographic (datum) transformations from codes.
#include "factory/gx_factory.h"

namespace {

using gx::factory::adopt;
using gx::factory::owned;
using gx::factory::parameter_slots;

// comp[0], comp[1]: the source and target geographic systems; comp[2]: the method; the
// method's parameters (a grid method's dataset parameter named by its grid).
void *assemble_geogtran(const gx_defrec &rec, gx_err_rec *err)
{
    parameter_slots parameters;
    if (!parameters.fill(rec, err))
        return nullptr;
    owned<gx_geogcs> source(gx_factory_geogcs_errext(rec.comp[0], err));
    if (!source)
        return nullptr;
    owned<gx_geogcs> target(gx_factory_geogcs_errext(rec.comp[1], err));
    if (!target)
        return nullptr;
    owned<gx_method> method(gx_factory_method_errext(rec.comp[2], err));
    if (!method)
        return nullptr;
    return adopt(gx_geogtran_new_errext(rec.name, source.get(), target.get(), method.get(),
                                        parameters.get(), err),
                 source, target, method, parameters);
}

constexpr int wgs_1984 = 4326;
constexpr int geocentric_translation = 9603;
constexpr int position_vector = 9606;
constexpr int coordinate_frame = 9607;

// Parameters of the datum shifts: translations (metres), rotations (arc-seconds) and the
// scale difference (ppm); a three-parameter method takes the translations only.
constexpr int dx = 100040, dy = 100041, dz = 100042;
constexpr int rx = 100043, ry = 100044, rz = 100045, ds = 100046;

constexpr gx_defparm jamaica_3[] = {
    {dx, -33.722, nullptr}, {dy, 153.789, nullptr}, {dz, 94.959, nullptr}, {rx, 8.581, nullptr},
    {ry, 4.478, nullptr},   {rz, -4.54, nullptr},   {ds, -8.95, nullptr},
};
constexpr gx_defparm deir_ez_zor_2[] = {
    {dx, -177.5, nullptr},
    {dy, 14.1, nullptr},
    {dz, 237.6, nullptr},
};
constexpr gx_defparm ouvea_1[] = {
    {dx, -122.383, nullptr}, {dy, -188.696, nullptr}, {dz, 103.344, nullptr}, {rx, 3.5107, nullptr},
    {ry, -4.9668, nullptr},  {rz, -5.7047, nullptr},  {ds, 4.4798, nullptr},
};

constexpr gx_defrec retired_geogtrans[] = {
    {1086, "Jamaica_1969_To_WGS_1984_3", {4242, wgs_1984, coordinate_frame}, {}, 7, jamaica_3},
    {1585,
     "Deir_ez_Zor_To_WGS_1984_2",
     {4227, wgs_1984, geocentric_translation},
     {},
     3,
     deir_ez_zor_2},
    {1919, "ST87_Ouvea_To_WGS_1984_1", {4635, wgs_1984, position_vector}, {}, 7, ouvea_1},
};

constexpr gx::factory::type_factory geogtran_factory = {
    .type = GX_TYPE_GEOGTRAN,
    .function = "gx_factory_geogtran",
    .unknown_number = 209,
    .unknown_format = "Invalid geographic transformation factory code (%d)",
    .discontinued = gx_factory_geogtran_discontinued_codes,
    .changes = gx_factory_geogtran_codechange_codes,
    .authority = gx_factory_authority_geogtran,
    .retired = gx::factory::retired_of(retired_geogtrans),
    .assemble = assemble_geogtran,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(geogtran, geogtran_factory)
