// Spheroid, datum, parameter and array as objects: ownership, comparison rules and clones.
#include "gridex.h"

#include <gtest/gtest.h>

namespace {

const double wgs84_f = 1.0 / 298.257223563;

} // namespace

TEST(Components, DatumOwnsItsSpheroidAndClonesItDeeply)
{
    gx_spheroid *sph = gx_spheroid_new("WGS_1984", 6378137.0, wgs84_f);
    gx_datum *datum = gx_datum_new("D_WGS_1984", sph);
    ASSERT_NE(datum, nullptr);
    EXPECT_EQ(gx_datum_spheroid(datum), sph); // not a copy
    gx_datum_code_set(datum, 6326, "EPSG", "6.13");
    gx_datum_status_set(datum, GX_STATUS_CODE);

    gx_datum *copy = gx_datum_clone(datum);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(gx_datum_spheroid(copy), sph);
    EXPECT_EQ(gx_datum_eq(datum, copy), 1);
    EXPECT_EQ(gx_datum_code(copy), 6326);
    EXPECT_EQ(gx_datum_status(copy), unsigned(GX_STATUS_CODE));
    gx_datum_del(datum); // takes the spheroid with it
    EXPECT_EQ(gx_spheroid_axis(gx_datum_spheroid(copy)), 6378137.0);
    gx_datum_del(copy);
}

TEST(Components, SpheroidsCompareByQuarterMeridianWhenFlatteningsDiffer)
{
    // A flattening cut in the twelfth digit moves the quarter meridian by about 0.1 micrometre;
    // one cut in the ninth digit by about 0.1 millimetre.
    gx_spheroid *a = gx_spheroid_new("WGS_1984", 6378137.0, wgs84_f);
    gx_spheroid *twelfth = gx_spheroid_new("wgs 1984", 6378137.0, wgs84_f + 1e-14);
    gx_spheroid *ninth = gx_spheroid_new("WGS_1984", 6378137.0, wgs84_f + 1e-11);
    gx_spheroid *other_axis = gx_spheroid_new("WGS_1984", 6378137.001, wgs84_f);
    gx_spheroid *other_name = gx_spheroid_new("GRS_1980", 6378137.0, wgs84_f);
    EXPECT_EQ(gx_spheroid_eq(a, twelfth), 1);
    EXPECT_EQ(gx_spheroid_eq(a, ninth), 0);
    EXPECT_EQ(gx_spheroid_eq(a, other_axis), 0);
    EXPECT_EQ(gx_spheroid_eq(a, other_name), 0);

    // Datums compare their spheroids by the same rule.
    gx_datum *da = gx_datum_new("D", gx_spheroid_clone(a));
    gx_datum *db = gx_datum_new("D", gx_spheroid_clone(twelfth));
    gx_datum *dc = gx_datum_new("D", gx_spheroid_clone(ninth));
    EXPECT_EQ(gx_datum_eq(da, db), 1);
    EXPECT_EQ(gx_datum_eq(da, dc), 0);
    for (gx_datum *d : {da, db, dc})
        gx_datum_del(d);
    for (gx_spheroid *s : {a, twelfth, ninth, other_axis, other_name})
        gx_spheroid_del(s);
}

// The two spellings of one scale factor are equal only under its code, on both sides; a
// parameter takes its code and slot from the registry by name.
TEST(Components, ScaleFactorSpellingsAreEqualOnlyUnderItsCode)
{
    gx_parameter *a = gx_parameter_new("k", 0.999601272);
    gx_parameter *b = gx_parameter_new("k", 0.9996012717);
    EXPECT_EQ(gx_parameter_eq(a, b), 0); // no code
    gx_parameter_code_set(a, 100003, "TAVU", "9.3.0");
    EXPECT_EQ(gx_parameter_eq(a, b), 0); // one code only
    gx_parameter_code_set(b, 100003, "TAVU", "9.3.0");
    EXPECT_EQ(gx_parameter_eq(a, b), 1);
    EXPECT_EQ(gx_parameter_eq(b, a), 1);
    gx_parameter_value_set(b, 0.9996);
    EXPECT_EQ(gx_parameter_eq(a, b), 0); // not one of the two spellings
    gx_parameter *k = gx_parameter_new("Scale_Factor", 0.999601272);
    EXPECT_EQ(gx_parameter_code(k), 100003);
    EXPECT_EQ(gx_parameter_index(k), 5);
    gx_parameter *bogus = gx_parameter_new("Bogus", 1.0);
    EXPECT_EQ(gx_parameter_code(bogus), -1);
    EXPECT_EQ(gx_parameter_index(bogus), -1);
    for (gx_parameter *p : {a, b, k, bogus})
        gx_parameter_del(p);
}

TEST(Components, ArraysCopyTheirValues)
{
    double values[] = {1.0, 2.0, 3.0};
    gx_array *array = gx_array_new("A", 3, values);
    values[0] = 99.0; // the array holds its own copy
    EXPECT_EQ(gx_array_values_pointer(array)[0], 1.0);

    gx_array *copy = gx_array_clone(array);
    EXPECT_NE(gx_array_values_pointer(copy), gx_array_values_pointer(array));
    EXPECT_EQ(gx_array_eq(array, copy), 1);
    gx_array_values_set(copy, values);
    EXPECT_EQ(gx_array_eq(array, copy), 0);
    double out[3] = {};
    EXPECT_EQ(gx_array_values_copy(copy, out), 3);
    EXPECT_EQ(out[0], 99.0);
    gx_array *shorter = gx_array_new("A", 2, values);
    EXPECT_EQ(gx_array_eq(copy, shorter), 0);
    for (gx_array *a : {array, copy, shorter})
        gx_array_del(a);
    EXPECT_EQ(gx_array_values_copy(nullptr, out), 0);
}
