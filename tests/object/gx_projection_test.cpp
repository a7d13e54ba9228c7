// The projection object: construction from routines or from the registry, the null routines of
// an invalid object, comparison, cloning and its WKT.
#include "gridex.h"
#include "gx_test_support.h"

#include <gtest/gtest.h>

namespace {

// Routines of the test's own, to tell routines apart.
int test_horizon(const double *, const double *, int, double *) { return 0; }
int test_setup(gx_constants *, const double *, const double *) { return 1; }

} // namespace

TEST(Projection, NewTakesItsRoutinesOrThoseOfTheRegistryRow)
{
    gx_projection *p =
        gx_projection_new_extended("Fuller", gx_prj_null_fwd, gx_prj_null_inv, nullptr,
                                   test_horizon, nullptr, test_horizon, test_setup);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(gx_projection_forward(p), gx_prj_null_fwd);
    EXPECT_EQ(gx_projection_horizon(p), gx_horizon_null); // a null horizon becomes the null one
    EXPECT_EQ(gx_projection_horizon_pcs(p), test_horizon);
    EXPECT_EQ(gx_projection_horizon_gcs_raster(p), nullptr);
    EXPECT_EQ(gx_projection_horizon_pcs_raster(p), test_horizon);
    EXPECT_EQ(gx_projection_pcsconstfunc(p), test_setup);
    EXPECT_EQ(gx_projection_status(p), unsigned{GX_STATUS_NEW});
    EXPECT_EQ(gx_projection_code(p), 43052); // from the registry by name
    gx_projection_del(p);

    // Without a forward routine the whole row of the name is taken, horizon included.
    p = gx_projection_new("Albers_Conical_Equal_Area", nullptr, gx_prj_null_inv, test_horizon);
    ASSERT_NE(p, nullptr);
    const gx_projlist_entry *albers = gx_projlist_from_code(43007);
    EXPECT_EQ(gx_projection_forward(p), albers->forward);
    EXPECT_EQ(gx_projection_horizon(p), albers->horizon);
    EXPECT_EQ(gx_projection_pcsconstfunc(p), albers->pcsconstfunc);
    EXPECT_EQ(gx_projection_code(p), -1); // the code follows the name as written
    gx_projection_del(p);

    // Callers run the routines unchecked: an invalid object gives the null ones.
    gx_unit *unit = gx_unit_new("Meter", 1.0);
    for (const void *obj : {static_cast<const void *>(nullptr), static_cast<const void *>(unit)}) {
        const auto *q = static_cast<const gx_projection *>(obj);
        EXPECT_EQ(gx_projection_forward(q), gx_prj_null_fwd);
        EXPECT_EQ(gx_projection_inverse(q), gx_prj_null_inv);
        EXPECT_EQ(gx_projection_horizon(q), gx_horizon_null);
        EXPECT_EQ(gx_projection_pcsconstfunc(q), nullptr);
    }
    gx_unit_del(unit);
}

TEST(Projection, EqualityAndClone)
{
    gx_projection *a = gx_projlist_projection_from_code(43004, nullptr);
    gx_prj_rtn fwd = gx_projection_forward(a), inv = gx_projection_inverse(a);
    gx_projection *same = gx_projection_new("mercator", nullptr, nullptr, nullptr);
    gx_projection *other_horizon = gx_projection_new("Mercator", fwd, inv, test_horizon);
    gx_projection *other_setup = gx_projection_new_extended("Mercator", fwd, inv, nullptr, nullptr,
                                                            nullptr, nullptr, test_setup);
    gx_projection *other_name = gx_projection_new("Mercator_2", fwd, inv, nullptr);
    EXPECT_EQ(gx_projection_eq(a, same), 1);
    EXPECT_EQ(gx_projection_eq(a, other_setup), 1); // the setup is not compared
    EXPECT_EQ(gx_projection_eq(a, other_horizon), 0);
    EXPECT_EQ(gx_projection_eq(a, other_name), 0);
    EXPECT_EQ(gx_projection_eq(a, nullptr), 0);

    gx_projection_code_set(other_setup, 77, "CUSTOM", "");
    gx_authority *auth = gx_projection_authority(other_setup);
    auto *copy = static_cast<gx_projection *>(gx_object_clone(other_setup));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(gx_projection_eq(copy, other_setup), 1);
    EXPECT_EQ(gx_projection_pcsconstfunc(copy), test_setup);
    EXPECT_EQ(gx_projection_code(copy), 77);
    EXPECT_NE(gx_projection_authority(copy), auth);
    EXPECT_EQ(gx_authority_authcode(gx_projection_authority(copy)), 77);
    for (gx_projection *p : {a, same, other_horizon, other_setup, other_name, copy})
        gx_projection_del(p);
}

TEST(Projection, WktRoundTripsAndErrors)
{
    // The registry gives the code; an authority in the text is kept as written.
    expect_round_trips("PROJECTION[\"Transverse_Mercator\",AUTHORITY[\"TAVU\",43006]]");
    void *generic = gx_object_from_string("projection[\"gauss_kruger\",AUTHORITY[\"X\",5]]");
    ASSERT_NE(generic, nullptr);
    EXPECT_EQ(gx_object_code(generic), 43005);
    char buf[GX_TEXT_LEN];
    EXPECT_STREQ(gx_object_to_string_ext(generic, 1, buf),
                 "PROJECTION[\"gauss_kruger\",AUTHORITY[\"X\",5]]");
    gx_object_del(generic);

    gx_err_rec err;
    EXPECT_EQ(gx_projection_from_string_errext("PROJECTION[\"No_Such\"]", &err), nullptr);
    EXPECT_EQ(err.number, 340u); // no routines for an unknown name
    EXPECT_EQ(gx_projection_from_string_errext("PROJECTION[]", &err), nullptr);
    EXPECT_EQ(err.number, 459u);
    EXPECT_EQ(gx_projection_from_string(nullptr), nullptr);
}
