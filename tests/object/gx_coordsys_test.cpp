// The coordinate-system types as objects: comparison rules, deep clones and the coordsys and
// hvdatum operations that dispatch on the object's type.  (Constructors own their parts: every
// test deletes only the outer object, so a copied or a dropped part shows as a sanitizer leak.)
#include "gridex.h"
#include "gx_samples.h"
#include "object/gx_coordsys.h"

#include <gtest/gtest.h>

#include <string>

using samples::make_geogcs;
using samples::make_projcs;
using samples::make_vertcs;

TEST(Coordsys, ComparisonRules)
{
    // Projected systems compare parameter by parameter, a parameter present on one side only
    // making them differ; names compare loosely; the scale factor's two spellings are equal.
    gx_projcs *a = make_projcs({{"False_Easting", 500000.0}, {"Scale_Factor", 0.999601272}});
    gx_projcs *b = make_projcs({{"False_Easting", 500000.0}, {"Scale_Factor", 0.9996012717}});
    gx_projcs *c = make_projcs(
        {{"False_Easting", 500000.0}, {"Scale_Factor", 0.999601272}, {"False_Northing", 0.0}});
    EXPECT_EQ(gx_projcs_eq(a, b), 1);
    EXPECT_EQ(gx_projcs_eq(a, c), 0);
    EXPECT_EQ(gx_projcs_eq(c, a), 0);
    gx_projcs_code_set(b, 32633, "EPSG", "6.13"); // codes and statuses are not compared
    gx_projcs_status_set(b, GX_STATUS_USER);
    EXPECT_EQ(gx_projcs_eq(a, b), 1);
    gx_geogcs *geo = make_geogcs("gcs wgs-1984");
    gx_geogcs *other_unit =
        gx_geogcs_new("GCS_WGS_1984", gx_datum_clone(gx_geogcs_datum(geo)),
                      gx_primem_new("Greenwich", 0.0), gx_unit_new("Grad", 0.015707963267948967));
    EXPECT_EQ(gx_geogcs_eq(gx_projcs_geogcs(a), geo), 1);
    EXPECT_EQ(gx_geogcs_eq(geo, other_unit), 0);
    EXPECT_EQ(gx_projcs_eq(a, nullptr), 0);
    EXPECT_EQ(gx_geogcs_eq(geo, (gx_geogcs *)a), 0);

    // Compound systems compare their parts only: the same type on both sides, absent on both.
    gx_hvcoordsys *geo_only = gx_hvcoordsys_new_extended("one", geo, nullptr);
    gx_hvcoordsys *geo_only2 = gx_hvcoordsys_new_extended("two", gx_geogcs_clone(geo), nullptr);
    gx_hvcoordsys *proj_only = gx_hvcoordsys_new(a, nullptr);
    gx_hvcoordsys *both = gx_hvcoordsys_new(gx_geogcs_clone(geo), make_vertcs(gx_vdatum_new("v")));
    EXPECT_EQ(gx_hvcoordsys_eq(geo_only, geo_only2), 1);
    EXPECT_EQ(gx_hvcoordsys_eq(geo_only, proj_only), 0);
    EXPECT_EQ(gx_hvcoordsys_eq(geo_only, both), 0);
    EXPECT_EQ(gx_hvcoordsys_eq(both, geo_only), 0);

    // A vertical system on a horizontal datum differs from one on a vertical datum.
    gx_vertcs *on_vdatum = make_vertcs(gx_vdatum_new("D_WGS_1984"));
    gx_vertcs *on_datum = make_vertcs(gx_datum_clone(gx_geogcs_datum(geo)));
    EXPECT_EQ(gx_vertcs_eq(on_vdatum, on_datum), 0);
    EXPECT_EQ(gx_vertcs_eq(on_datum, on_datum), 1);

    for (void *obj : {(void *)b, (void *)c, (void *)other_unit, (void *)geo_only, (void *)geo_only2,
                      (void *)proj_only, (void *)both, (void *)on_vdatum, (void *)on_datum})
        gx_object_del(obj);
}

TEST(Coordsys, ClonesAreDeep)
{
    gx_projcs *cs = make_projcs({{"False_Easting", 500000.0}, {"Central_Meridian", 15.0}});
    gx_projcs_code_set(cs, 32633, "EPSG", "6.13");
    gx_authority *auth = gx_projcs_authority(cs);
    gx_projcs_status_set(cs, GX_STATUS_CODE);
    cs->constants = gx_constants_new(); // as the conversion driver caches them: owned, not copied
    gx_projcs *copy = gx_projcs_clone(cs);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->constants, nullptr);
    EXPECT_EQ(gx_projcs_eq(cs, copy), 1);
    EXPECT_EQ(gx_projcs_code(copy), 32633);
    EXPECT_EQ(gx_projcs_status(copy), unsigned(GX_STATUS_CODE));
    EXPECT_NE(gx_projcs_authority(copy), auth);
    EXPECT_NE(gx_projcs_geogcs(copy), gx_projcs_geogcs(cs));
    EXPECT_NE(gx_projcs_parameters(copy)[2], gx_projcs_parameters(cs)[2]);
    EXPECT_EQ(gx_parameter_value(gx_projcs_parameters(copy)[2]), 15.0);
    gx_projcs_del(cs);
    char text[GX_TEXT_LEN];
    EXPECT_NE(std::string(gx_projcs_to_string(copy, text)).find("500000.0"), std::string::npos);

    gx_hvcoordsys *hv = gx_hvcoordsys_new_extended("h", copy, make_vertcs(gx_vdatum_new("v")));
    gx_hvcoordsys *hv_copy = gx_hvcoordsys_clone(hv);
    EXPECT_EQ(gx_hvcoordsys_eq(hv, hv_copy), 1);
    EXPECT_NE(gx_hvcoordsys_vertcs(hv_copy), gx_hvcoordsys_vertcs(hv));
    gx_hvcoordsys_del(hv);
    gx_hvcoordsys_del(hv_copy);
    EXPECT_EQ(gx_vertcs_clone(nullptr), nullptr);
}

TEST(Coordsys, CoordsysAndHvdatumDispatchOnTheObjectsType)
{
    gx_geogcs *geo = make_geogcs();
    gx_projcs *proj = make_projcs({{"False_Easting", 500000.0}});
    gx_vertcs *vert = make_vertcs(gx_vdatum_new("v"));
    char a[GX_TEXT_LEN], b[GX_TEXT_LEN];
    for (gx_coordsys *cs : {(void *)geo, (void *)proj}) {
        EXPECT_STREQ(gx_coordsys_to_string_ext(cs, 2, a), gx_object_to_string_ext(cs, 2, b));
        gx_coordsys *copy = gx_coordsys_clone(cs);
        gx_coordsys *parsed = gx_coordsys_from_string(a);
        EXPECT_EQ(gx_coordsys_type(parsed), gx_object_type(cs)) << a;
        EXPECT_EQ(gx_coordsys_eq(copy, parsed), 1);
        gx_coordsys_code_set(copy, 1234, "CUSTOM", nullptr);
        EXPECT_EQ(gx_authority_authcode(gx_coordsys_authority(copy)), 1234);
        gx_coordsys_del(copy);
        gx_coordsys_del(parsed);
    }
    EXPECT_EQ(gx_coordsys_eq(geo, proj), 0);
    // Anything else is refused with neutral results.
    EXPECT_EQ(gx_coordsys_p(vert), 0);
    EXPECT_STREQ(gx_coordsys_to_string(vert, a), "");
    EXPECT_EQ(gx_coordsys_clone(vert), nullptr);
    EXPECT_EQ(gx_coordsys_code(vert), -1);
    gx_coordsys_del(vert); // not deleted: not a coordsys

    gx_hvdatum *vd = gx_vertcs_hvdatum(vert);
    EXPECT_EQ(gx_hvdatum_p(geo), 0);
    for (gx_hvdatum *datum : {vd, (gx_hvdatum *)gx_geogcs_datum(geo)}) {
        gx_hvdatum *parsed = gx_hvdatum_from_string(gx_hvdatum_to_string(datum, a));
        EXPECT_EQ(gx_hvdatum_type(parsed), gx_hvdatum_type(datum)) << a;
        EXPECT_EQ(gx_hvdatum_eq(parsed, datum), 1) << a;
        gx_hvdatum_del(parsed);
    }
    gx_err_rec err;
    EXPECT_EQ(gx_hvdatum_from_string_errext(nullptr, &err), nullptr);
    EXPECT_EQ(err.number, 456u);
    EXPECT_STREQ(err.function, "gx_hvdatum_from_string");
    EXPECT_EQ(gx_coordsys_from_string_errext(nullptr, &err), nullptr);
    EXPECT_STREQ(err.function, "gx_coordsys_from_string");

    gx_geogcs_del(geo);
    gx_projcs_del(proj);
    gx_vertcs_del(vert);
}
