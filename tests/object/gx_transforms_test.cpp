// The transformation types as objects: methods from their registries, comparison, deep clones
// that start without constants, and the constants life cycle.
#include "gridex.h"
#include "gx_samples.h"

#include <gtest/gtest.h>

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
    gx_verttran *vt = gx_verttran_new("v", make_geogcs(), make_vertcs_in("Meter", 1.0, 0.0, 1.0),
                                      make_vertcs_in("Meter", 1.0, 0.0, 1.0),
                                      gx_vtmethod_new_extended("EGM96", gx_vtm_vertical_offset_fwd,
                                                               gx_vtm_vertical_offset_inv,
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
