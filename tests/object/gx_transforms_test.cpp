// The transformation types as objects: methods from their registries, constructor checks (a
// failed constructor leaves the caller its parts), comparison, deep clones that start without
// constants, and the constants life cycle.
#include "gridex.h"
#include "object/gx_transforms_samples.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using samples::make_geogcs;
using samples::make_vertcs_in;
using samples::parameter_slots;

TEST(Methods, RoutinesAndCodeComeFromTheRegistryByName)
{
    gx_method *method = gx_method_new("coordinate-frame", nullptr, nullptr);
    EXPECT_EQ(gx_method_inverse(method), &gx_coordinate_frame_inv);
    EXPECT_EQ(gx_method_code(method), 9607);
    // Routines given are kept; the code still comes from the name.
    gx_vtmethod *offset = gx_vtmethod_new("Vertical_Offset", gx_vtm_vertical_offset_slope_fwd,
                                          gx_vtm_vertical_offset_slope_inv);
    EXPECT_EQ(gx_vtmethod_forward(offset), &gx_vtm_vertical_offset_slope_fwd);
    EXPECT_EQ(gx_vtmethod_code(offset), 129616);
    EXPECT_EQ(gx_vtmethod_coordsys_type(offset), 0u);
    gx_vtmethod *slope = gx_vtmethod_new("Vertical_Offset_and_Slope", nullptr, nullptr);
    EXPECT_EQ(gx_vtmethod_coordsys_type(slope), unsigned(GX_TYPE_GEOGCS));

    // Methods compare by name alone; a clone keeps routines and code.
    gx_method *other = gx_method_new("Coordinate_Frame", gx_mth_null_fwd, gx_mth_null_fwd);
    EXPECT_EQ(gx_method_eq(method, other), 1);
    gx_method *copy = gx_method_clone(method);
    EXPECT_EQ(gx_method_forward(copy), &gx_coordinate_frame_fwd);
    EXPECT_EQ(gx_method_code(copy), 9607);
    for (void *obj : {(void *)method, (void *)offset, (void *)slope, (void *)other, (void *)copy})
        gx_object_del(obj);

    // A name no registry row has needs its routines.
    gx_err_rec err;
    EXPECT_EQ(gx_method_new_errext("Nonsense", gx_mth_null_fwd, nullptr, &err), nullptr);
    EXPECT_EQ(err.number, 340u);
    EXPECT_STREQ(err.function, "gx_method_new");
    EXPECT_STREQ(err.message, "Null forward or inverse function argument");
    EXPECT_EQ(gx_htmethod_new_errext("Nonsense", nullptr, nullptr, &err), nullptr);
    EXPECT_STREQ(err.message, "Null forward or inverse function arument");
    EXPECT_EQ(gx_vtmethod_new_extended("Nonsense", nullptr, nullptr, nullptr, 0, &err), nullptr);
    EXPECT_STREQ(err.message, "Null forward or inverse function argument");
}

namespace {

// Valid parts to hand to constructors; whatever no constructor took is deleted at the end.
struct parts {
    gx_geogcs *geogcs = make_geogcs();
    gx_projcs *projcs = samples::make_projcs({{"Central_Meridian", 15.0}});
    gx_method *method = gx_method_new("Geocentric_Translation", nullptr, nullptr);
    gx_vertcs *vertcs = make_vertcs_in("Meter", 1.0, 0.0, 1.0);
    gx_vtmethod *egm96 = gx_vtmethod_new("EGM96", nullptr, nullptr);
    gx_vtmethod *offset = gx_vtmethod_new("Vertical_Offset", nullptr, nullptr);
    gx_vtmethod *needs_projected = gx_vtmethod_new_extended(
        "Local", gx_vtm_vertical_offset_fwd, gx_vtm_vertical_offset_inv, nullptr, GX_TYPE_PROJCS,
        nullptr);
    gx_htmethod *htmethod = gx_htmethod_new("Affine_Parametric", nullptr, nullptr);
    gx_array *array = gx_array_new("A", 1, &one);
    gx_unit *unit = gx_unit_new("Meter", 1.0);
    gx_parameter *parameters[16] = {gx_parameter_new("X_Axis_Translation", 1.0)};
    static constexpr double one = 1.0;
    ~parts()
    {
        for (void *obj : {(void *)geogcs, (void *)projcs, (void *)method, (void *)vertcs,
                          (void *)egm96, (void *)offset, (void *)needs_projected,
                          (void *)htmethod, (void *)array, (void *)unit, (void *)parameters[0]})
            gx_object_del(obj);
    }
};

} // namespace

TEST(Transformations, ConstructorsCheckTheirArguments)
{
    using make = std::function<void *(parts &, gx_err_rec *)>;
    const struct {
        make call;
        const char *function;
        unsigned int number;
        const char *message;
    } cases[] = {
        {[](parts &p, gx_err_rec *e) {
             return gx_geogtran_new_errext("t", nullptr, p.geogcs, p.method, p.parameters, e);
         }, "gx_geogtran_new", 332, "Null or invalid geogcs1 object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_geogtran_new_errext("t", p.geogcs, (gx_geogcs *)p.projcs, p.method,
                                           p.parameters, e);
         }, "gx_geogtran_new", 333, "Null or invalid geogcs2 object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_geogtran_new_errext("t", p.geogcs, p.geogcs, (gx_method *)p.egm96,
                                           p.parameters, e);
         }, "gx_geogtran_new", 335, "Null or invalid method object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_geogtran_new_errext("t", p.geogcs, p.geogcs, p.method, nullptr, e);
         }, "gx_geogtran_new", 330, "Null parameters array argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_verttran_new_errext("v", p.unit, p.vertcs, p.vertcs, p.offset,
                                           p.parameters, e);
         }, "gx_verttran_new", 338, "Invalid coordsys object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_verttran_new_errext("v", nullptr, nullptr, p.vertcs, p.offset,
                                           p.parameters, e);
         }, "gx_verttran_new", 341, "Null or invalid vertcs1 object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_verttran_new_errext("v", nullptr, p.vertcs, nullptr, p.offset,
                                           p.parameters, e);
         }, "gx_verttran_new", 342, "Null or invalid vertcs2 object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_verttran_new_errext("v", nullptr, p.vertcs, p.vertcs, nullptr,
                                           p.parameters, e);
         }, "gx_verttran_new", 343, "Null or invalid vtmethod object argument"},
        // A geoid grid is read at longitude and latitude: it needs a geographic system, and a
        // method of a projected system needs a projected one.
        {[](parts &p, gx_err_rec *e) {
             return gx_verttran_new_errext("v", p.projcs, p.vertcs, p.vertcs, p.egm96,
                                           p.parameters, e);
         }, "gx_verttran_new", 312, "Invalid coordsys type for vtmethod"},
        {[](parts &p, gx_err_rec *e) {
             return gx_verttran_new_errext("v", nullptr, p.vertcs, p.vertcs, p.egm96,
                                           p.parameters, e);
         }, "gx_verttran_new", 312, "Invalid coordsys type for vtmethod"},
        {[](parts &p, gx_err_rec *e) {
             return gx_verttran_new_errext("v", p.geogcs, p.vertcs, p.vertcs, p.needs_projected,
                                           p.parameters, e);
         }, "gx_verttran_new", 312, "Invalid coordsys type for vtmethod"},
        {[](parts &p, gx_err_rec *e) {
             return gx_verttran_new_errext("v", nullptr, p.vertcs, p.vertcs, p.offset, nullptr,
                                           e);
         }, "gx_verttran_new", 330, "Null parameters array argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_adjhcs_new_errext("a", p.vertcs, p.htmethod, p.array, p.unit, e);
         }, "gx_adjhcs_new", 338, "Null or invalid coordsys object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_adjhcs_new_errext("a", p.projcs, (gx_htmethod *)p.method, p.array,
                                         p.unit, e);
         }, "gx_adjhcs_new", 336, "Null or invalid htmethod object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_adjhcs_new_errext("a", p.projcs, p.htmethod, nullptr, p.unit, e);
         }, "gx_adjhcs_new", 325, "Null or invalid array object argument"},
        {[](parts &p, gx_err_rec *e) {
             return gx_adjhcs_new_errext("a", p.projcs, p.htmethod, p.array, nullptr, e);
         }, "gx_adjhcs_new", 324, "Null or invalid unit object argument"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.message);
        parts p; // the failed constructor leaves them to their owner, who deletes them
        gx_err_rec err;
        EXPECT_EQ(c.call(p, &err), nullptr);
        EXPECT_EQ(err.level, unsigned(GX_ERRLVL_ERROR));
        EXPECT_EQ(err.category, unsigned(GX_ERRCAT_ARGUMENT));
        EXPECT_EQ(err.number, c.number);
        EXPECT_STREQ(err.function, c.function);
        EXPECT_STREQ(err.message, c.message);
    }
}

TEST(Transformations, ComparisonAndDeepClones)
{
    gx_geogtran *gt = samples::make_geogtran(
        make_geogcs(), make_geogcs(), gx_method_new("Position_Vector", nullptr, nullptr),
        {{"X_Axis_Translation", 1.0}, {"Z_Axis_Rotation", 0.5}});
    gx_geogtran_code_set(gt, 1234, "EPSG", "6.13");
    gx_geogtran *copy = gx_geogtran_clone(gt);
    EXPECT_EQ(gx_geogtran_eq(gt, copy), 1);
    EXPECT_EQ(gx_geogtran_code(copy), 1234);
    EXPECT_NE(gx_geogtran_parameters(copy)[5], gx_geogtran_parameters(gt)[5]);
    // A parameter present on one side only makes them differ, whatever its value.
    gx_geogtran_parameters(copy)[6] = gx_parameter_new("Scale_Difference", 0.0);
    EXPECT_EQ(gx_geogtran_eq(gt, copy), 0);

    // An absent horizontal system equals only an absent one.
    gx_verttran *vt = gx_verttran_from_string(samples::offset_verttran.c_str());
    gx_verttran *vcopy = gx_verttran_clone(vt);
    EXPECT_EQ(gx_verttran_eq(vt, vcopy), 1);
    gx_verttran *with_coordsys = gx_verttran_new(
        "NAVD_1988_To_Local", make_geogcs(), gx_vertcs_clone(gx_verttran_vertcs1(vt)),
        gx_vertcs_clone(gx_verttran_vertcs2(vt)), gx_vtmethod_clone(gx_verttran_vtmethod(vt)),
        parameter_slots({{"Vertical_Offset", 1.5}}).slots);
    EXPECT_EQ(gx_verttran_eq(vt, with_coordsys), 0);

    gx_adjhcs *cs = gx_adjhcs_from_string(samples::adjhcs.c_str());
    gx_adjhcs *cs_copy = gx_adjhcs_clone(cs);
    EXPECT_EQ(gx_adjhcs_eq(cs, cs_copy), 1);
    gx_array_values_pointer(gx_adjhcs_array(cs_copy))[2] = 101.0;
    EXPECT_EQ(gx_adjhcs_eq(cs, cs_copy), 0);
    for (void *obj : {(void *)gt, (void *)copy, (void *)vt, (void *)vcopy, (void *)with_coordsys,
                      (void *)cs, (void *)cs_copy})
        gx_object_del(obj);
}

namespace {

int load_calls;
std::string loaded_dataset;
int load_result;

// A grid reader that stores one node, or fails, as told.
int load_grid(gx_constants *constants, const char *dataset)
{
    ++load_calls;
    loaded_dataset = dataset;
    if (load_result != 0)
        gx_constants_dvals_set(constants, static_cast<double *>(gx_allocate_rtn(8)));
    return load_result;
}

} // namespace

TEST(Transformations, ConstantsLifeCycle)
{
    load_calls = 0;
    load_result = 1;
    gx_geogtran *gt = samples::make_geogtran(
        make_geogcs(), make_geogcs(),
        gx_method_new_extended("NTv2", gx_mth_null_fwd, gx_mth_null_fwd, load_grid, nullptr),
        {{"Dataset_conus", 0.0}});
    EXPECT_EQ(gx_geogtran_isconstloaded(gt), 0);
    EXPECT_EQ(gx_geogtran_load_constants(gt), 1);
    EXPECT_EQ(loaded_dataset, "Dataset_conus");
    EXPECT_EQ(gx_geogtran_isconstloaded(gt), 1);
    EXPECT_NE(gx_geogtran_constants(gt), nullptr);
    // Loading again releases the first container (the sanitizer would see it leak).
    EXPECT_EQ(gx_geogtran_load_constants(gt), 1);
    EXPECT_EQ(load_calls, 2);

    // A clone starts without constants and compares equal all the same.
    gx_geogtran *copy = gx_geogtran_clone(gt);
    EXPECT_EQ(gx_geogtran_isconstloaded(copy), 0);
    EXPECT_EQ(gx_geogtran_eq(gt, copy), 1);

    // A routine that fails leaves no container, yet the loading counts as done.
    load_result = 0;
    EXPECT_EQ(gx_geogtran_load_constants(gt), 0);
    EXPECT_EQ(gx_geogtran_constants(gt), nullptr);
    EXPECT_EQ(gx_geogtran_isconstloaded(gt), 1);
    gx_geogtran_unload_constants(gt);
    EXPECT_EQ(gx_geogtran_isconstloaded(gt), 0);

    // The vertical transformation shares the life cycle; deletion releases what is loaded.
    load_result = 1;
    gx_verttran *vt = gx_verttran_new(
        "v", make_geogcs(), make_vertcs_in("Meter", 1.0, 0.0, 1.0),
        make_vertcs_in("Meter", 1.0, 0.0, 1.0),
        gx_vtmethod_new_extended("EGM96", gx_vtm_vertical_offset_fwd, gx_vtm_vertical_offset_inv,
                                 load_grid, GX_TYPE_GEOGCS, nullptr),
        parameter_slots({{"Dataset_egm96", 0.0}}).slots);
    EXPECT_EQ(gx_verttran_load_constants(vt), 1);
    EXPECT_EQ(loaded_dataset, "Dataset_egm96");
    EXPECT_NE(gx_verttran_constants(vt), nullptr);

    // Without a constants routine nothing is loaded.
    gx_geogtran *formula = samples::make_geogtran(
        make_geogcs(), make_geogcs(), gx_method_new("Molodensky", nullptr, nullptr), {});
    EXPECT_EQ(gx_geogtran_load_constants(formula), 0);
    EXPECT_EQ(gx_geogtran_isconstloaded(formula), 0);
    EXPECT_EQ(gx_geogtran_load_constants(nullptr), 0);
    for (void *obj : {(void *)gt, (void *)copy, (void *)vt, (void *)formula})
        gx_object_del(obj);
}
