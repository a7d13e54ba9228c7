// The conversion driver: units, false offsets, defaults of absent parameters, latitude clamping,
// longitude centring, the input restored when nothing converts, cached constants, and other
// units by cloning.
#include "gridex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

// A projected CS on GRS80 in grads and US survey feet, with the given projection and parameter
// clauses.
gx_projcs *make_cs(const char *projection, const std::string &parameters,
                   const char *angular = "UNIT[\"Degree\",0.0174532925199433]",
                   const char *linear = "UNIT[\"Meter\",1.0]")
{
    const std::string text =
        std::string("PROJCS[\"test\",GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"GRS_1980\",6378137.0,"
                    "298.257222101]],PRIMEM[\"Greenwich\",0.0],") +
        angular + "],PROJECTION[\"" + projection + "\"]," + parameters + linear + "]";
    gx_err_rec err;
    gx_projcs *cs = gx_projcs_from_string_errext(text.c_str(), &err);
    EXPECT_NE(cs, nullptr) << err.message << "\n" << text;
    return cs;
}

const std::string mercator_parms = "PARAMETER[\"False_Easting\",1000.0],"
                                   "PARAMETER[\"False_Northing\",2000.0],"
                                   "PARAMETER[\"Central_Meridian\",10.0],";

} // namespace

TEST(ConversionDriver, UnitsAndFalseOffsets)
{
    // The same projection in degrees/metres and in grads/feet gives the same point.
    gx_projcs *metric = make_cs("Mercator", mercator_parms);
    gx_projcs *other =
        make_cs("Mercator",
                "PARAMETER[\"False_Easting\",3280.833333333333],"
                "PARAMETER[\"False_Northing\",6561.666666666667],"
                "PARAMETER[\"Central_Meridian\",11.11111111111111],",
                "UNIT[\"Grad\",0.01570796326794897]", "UNIT[\"Foot_US\",0.3048006096012192]");
    double a[2] = {12.0, 45.0};
    double b[2] = {12.0 / 0.9, 50.0};
    ASSERT_EQ(gx_geog_to_proj(metric, 1, a), 1);
    ASSERT_EQ(gx_geog_to_proj(other, 1, b), 1);
    EXPECT_NEAR(b[0] * 0.3048006096012192, a[0], 1e-6);
    EXPECT_NEAR(b[1] * 0.3048006096012192, a[1], 1e-6);
    // Without false offsets the routine's own result: x = a (lon - lon0) on Mercator.
    EXPECT_NEAR(a[0] - 1000.0, 6378137.0 * 2.0 * M_PI / 180.0, 1e-6);

    ASSERT_EQ(gx_proj_to_geog(other, 1, b), 1);
    EXPECT_NEAR(b[0], 12.0 / 0.9, 1e-12);
    EXPECT_NEAR(b[1], 50.0, 1e-12);
    gx_projcs_del(metric);
    gx_projcs_del(other);
}

TEST(ConversionDriver, ClampingCentringAndDirections)
{
    gx_projcs *cs = make_cs("Mercator", mercator_parms);
    double beyond[2] = {10.0, 95.0}, pole[2] = {10.0, 90.0};
    gx_geog_to_proj(cs, 1, beyond);
    gx_geog_to_proj(cs, 1, pole);
    EXPECT_EQ(beyond[1], pole[1]); // 95 degrees projects as 90
    EXPECT_TRUE(std::isfinite(pole[1]));

    // Longitudes come back around the center: 350 degrees east rather than -10.
    double p[2] = {-10.0, 30.0};
    gx_geog_to_proj(cs, 1, p);
    double q[2] = {p[0], p[1]};
    ASSERT_EQ(gx_proj_to_geog_center(cs, 1, p, 180.0), 1);
    EXPECT_NEAR(p[0], 350.0, 1e-9);
    ASSERT_EQ(gx_proj_to_geog_center(cs, 1, q, 1e-20), 1); // a negligible center is none
    EXPECT_NEAR(q[0], -10.0, 1e-9);

    double r[2] = {1.0, 2.0};
    EXPECT_EQ(gx_proj_geog(cs, 1, r, 2), 0);
    EXPECT_EQ(r[0], 1.0);
    EXPECT_EQ(r[1], 2.0);
    EXPECT_EQ(gx_proj_geog(cs, 1, r, 1), 1);
    EXPECT_EQ(gx_proj_geog(cs, 1, r, 0), 1);
    EXPECT_NEAR(r[0], 1.0, 1e-12);
    EXPECT_EQ(gx_geog_to_proj(nullptr, 1, r), 0);
    gx_projcs_del(cs);
}

TEST(ConversionDriver, NothingConvertedGivesTheInputBack)
{
    // A Lambert cone with one standard parallel at a pole has no constants and converts nothing.
    gx_projcs *cs =
        make_cs("Lambert_Conformal_Conic",
                "PARAMETER[\"False_Easting\",100.0],PARAMETER[\"Standard_Parallel_1\",90.0],"
                "PARAMETER[\"Standard_Parallel_2\",40.0],");
    double p[4] = {10.0, 95.0, 20.0, 30.0};
    EXPECT_EQ(gx_geog_to_proj(cs, 2, p), 0);
    EXPECT_EQ(p[0], 10.0);
    EXPECT_DOUBLE_EQ(p[1], 90.0); // clamped, then given back
    EXPECT_EQ(p[2], 20.0);
    EXPECT_DOUBLE_EQ(p[3], 30.0);
    EXPECT_EQ(gx_projcs_isconstloaded(cs), 0);
    double q[2] = {500.0, 600.0};
    EXPECT_EQ(gx_proj_to_geog(cs, 1, q), 0);
    EXPECT_DOUBLE_EQ(q[0], 500.0);
    EXPECT_DOUBLE_EQ(q[1], 600.0);
    gx_projcs_del(cs);

    // Failed points are NaN and not counted; the others convert.
    gx_projcs *ortho = make_cs("Orthographic", "PARAMETER[\"Longitude_Of_Center\",0.0],"
                                               "PARAMETER[\"Latitude_Of_Center\",0.0],");
    double two[4] = {10.0, 10.0, 180.0, 0.0};
    EXPECT_EQ(gx_geog_to_proj(ortho, 2, two), 1);
    EXPECT_TRUE(std::isnan(two[2]) && std::isnan(two[3]));
    gx_projcs_del(ortho);
}

TEST(ConversionDriver, DefaultsOfAbsentParameters)
{
    // No scale factor means 1; no second standard parallel means the first one.
    gx_projcs *implicit =
        make_cs("Lambert_Conformal_Conic", "PARAMETER[\"Central_Meridian\",-100.0],"
                                           "PARAMETER[\"Standard_Parallel_1\",40.0],");
    gx_projcs *explicit_ =
        make_cs("Lambert_Conformal_Conic", "PARAMETER[\"Central_Meridian\",-100.0],"
                                           "PARAMETER[\"Standard_Parallel_1\",40.0],"
                                           "PARAMETER[\"Standard_Parallel_2\",40.0],"
                                           "PARAMETER[\"Scale_Factor\",1.0],");
    double a[2] = {-95.0, 35.0}, b[2] = {-95.0, 35.0};
    gx_geog_to_proj(implicit, 1, a);
    gx_geog_to_proj(explicit_, 1, b);
    EXPECT_EQ(a[0], b[0]);
    EXPECT_EQ(a[1], b[1]);
    gx_projcs_del(implicit);
    gx_projcs_del(explicit_);
}

TEST(ConversionDriver, ConstantsAreCachedAndCloneStartsWithout)
{
    gx_projcs *cs = make_cs("Transverse_Mercator", "PARAMETER[\"Scale_Factor\",0.9996],");
    EXPECT_EQ(gx_projcs_isconstloaded(cs), 0);
    double p[2] = {1.0, 50.0};
    gx_geog_to_proj(cs, 1, p);
    EXPECT_EQ(gx_projcs_isconstloaded(cs), 1);
    gx_constants *first = gx_projcs_constants(cs);
    gx_geog_to_proj(cs, 1, p);
    EXPECT_EQ(gx_projcs_constants(cs), first);
    gx_projcs *copy = gx_projcs_clone(cs);
    EXPECT_EQ(gx_projcs_isconstloaded(copy), 0);
    EXPECT_EQ(gx_projcs_load_constants(cs), 21);
    gx_projcs_unload_constants(cs);
    EXPECT_EQ(gx_projcs_constants(cs), nullptr);
    gx_projcs_del(copy);
    gx_projcs_del(cs);
}

TEST(ConversionDriver, CloneInOtherUnits)
{
    gx_projcs *cs = make_cs("Mercator", mercator_parms);
    gx_unit *feet = gx_unit_new("Foot_US", 0.3048006096012192);
    gx_unit *grads = gx_unit_new("Grad", 0.01570796326794897);
    gx_projcs *other = gx_projcs_clone_alterunits(cs, feet, grads);
    ASSERT_NE(other, nullptr);
    gx_parameter **slots = gx_projcs_parameters(other);
    EXPECT_NEAR(gx_parameter_value(slots[0]), 1000.0 / 0.3048006096012192, 1e-9);
    EXPECT_NEAR(gx_parameter_value(slots[2]), 10.0 / 0.9, 1e-12);
    double a[2] = {12.0, 45.0}, b[2] = {12.0 / 0.9, 50.0};
    gx_geog_to_proj(cs, 1, a);
    gx_geog_to_proj(other, 1, b);
    EXPECT_NEAR(b[0] * 0.3048006096012192, a[0], 1e-6);
    EXPECT_NEAR(b[1] * 0.3048006096012192, a[1], 1e-6);

    // Units that differ by less than the tolerance: a plain clone.
    gx_unit *metre = gx_unit_new("Meter", 1.0 + 1e-16);
    gx_projcs *same = gx_projcs_clone_alterunits(cs, metre, nullptr);
    EXPECT_EQ(gx_projcs_eq(same, cs), 1);
    EXPECT_EQ(gx_projcs_clone_alterunits(nullptr, feet, grads), nullptr);
    gx_projcs_del(same);
    gx_unit_del(metre);
    gx_unit_del(feet);
    gx_unit_del(grads);
    gx_projcs_del(other);
    gx_projcs_del(cs);
}
