// The type factories: which source builds a code and how the object is stamped, the retired
// definitions, the type-testing and generic factories, and every error of a code that builds
// nothing.
#include "gridex.h"
#include "object/gx_test_support.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

// Deletes an object at the end of a scope.
struct object_guard {
    void *object;
    ~object_guard() { gx_object_del(object); }
};

void expect_stamp(const void *object, int code, unsigned int status, const char *authority,
                  const char *version)
{
    ASSERT_NE(object, nullptr);
    const auto *header = static_cast<const gx_object_header *>(object);
    EXPECT_EQ(header->code, code);
    EXPECT_EQ(header->status, status);
    EXPECT_STREQ(header->authname, authority);
    EXPECT_STREQ(header->version, version);
}

void expect_error(const gx_err_rec &err, unsigned int number, const char *function,
                  const std::string &message)
{
    EXPECT_EQ(err.level, GX_ERRLVL_ERROR);
    EXPECT_EQ(err.category, GX_ERRCAT_FACTORY);
    EXPECT_EQ(err.number, number);
    EXPECT_STREQ(err.function, function);
    EXPECT_EQ(err.message, message);
}

std::string name_of(const void *object)
{
    char name[GX_NAME_LEN];
    return gx_object_name(object, name);
}

double parameter_value(gx_parameter **slots, int code)
{
    const gx_parameter *parm = slots[gx_parmlist_index_from_code(code)];
    return parm != nullptr ? gx_parameter_value(parm) : -1e300;
}

// A factory with the generic signature.
using factory_fn = void *(*)(int, gx_err_rec *);
template <auto Factory> void *generic(int code, gx_err_rec *err) { return Factory(code, err); }

} // namespace

TEST(Factory, BuiltInObjectsCarryTheirCodeAuthorityAndComponents)
{
    object_guard utm{gx_factory_projcs(32633)};
    expect_stamp(utm.object, 32633, GX_STATUS_CODE, "EPSG", "6.13");
    auto *pcs = static_cast<gx_projcs *>(utm.object);
    EXPECT_EQ(gx_projection_code(gx_projcs_projection(pcs)), 43006);
    EXPECT_EQ(gx_unit_code(gx_projcs_unit(pcs)), 9001);
    gx_parameter **slots = gx_projcs_parameters(pcs);
    EXPECT_EQ(parameter_value(slots, 100010), 15.0);
    EXPECT_EQ(parameter_value(slots, 100001), 500000.0);
    // Components carry their own stamps; a sphere's inverse flattening 0 is flattening 0.
    gx_geogcs *gcs = gx_projcs_geogcs(pcs);
    expect_stamp(gcs, 4326, GX_STATUS_CODE, "EPSG", "6.13");
    expect_stamp(gx_datum_spheroid(gx_geogcs_datum(gcs)), 7030, GX_STATUS_CODE, "EPSG", "6.13");
    expect_stamp(gx_geogcs_unit(gcs), 9102, GX_STATUS_CODE, "EPSG", "6.13");
    object_guard sphere{gx_factory_spheroid(7035)};
    EXPECT_EQ(gx_spheroid_flattening(static_cast<gx_spheroid *>(sphere.object)), 0.0);

    object_guard albers{gx_factory_projcs(102001)};
    expect_stamp(albers.object, 102001, GX_STATUS_CODE, "TAVU", "9.3.0");

    // A grid transformation's dataset parameter is named by its grid.
    object_guard conus{gx_factory_geogtran(1241)};
    ASSERT_NE(conus.object, nullptr);
    slots = gx_geogtran_parameters(static_cast<gx_geogtran *>(conus.object));
    EXPECT_EQ(name_of(slots[gx_parmlist_index_from_code(100047)]), "Dataset_conus");
}

TEST(Factory, ChangedDiscontinuedAndRetiredCodes)
{
    // A TAVU code that EPSG has since issued: the EPSG authority is stamped.
    object_guard web{gx_factory_projcs(102100)};
    expect_stamp(web.object, 3857, GX_STATUS_CODECHANGE, "EPSG", "6.13");

    object_guard changed{gx_factory_datum(106001)};
    expect_stamp(changed.object, 6760, GX_STATUS_CODECHANGE, "EPSG", "6.13");
    object_guard replacement{gx_factory_datum(6760)};
    EXPECT_TRUE(gx_object_eq(changed.object, replacement.object));

    object_guard discontinued{gx_factory_datum(6233)};
    expect_stamp(discontinued.object, 6233, GX_STATUS_DISCONTINUED, "EPSG", "6.13");
    // Discontinued and gone from the tables: its replacement is built.
    object_guard k0{gx_factory_datum(6631)};
    expect_stamp(k0.object, 6698, GX_STATUS_CODECHANGE, "EPSG", "6.13");

    object_guard ouvea{gx_factory_datum(6635)};
    expect_stamp(ouvea.object, 6635, GX_STATUS_DEAD, "EPSG", "6.13");
    EXPECT_EQ(name_of(ouvea.object), "D_ST87_Ouvea");
    expect_stamp(gx_datum_spheroid(static_cast<gx_datum *>(ouvea.object)), 7022, GX_STATUS_CODE,
                 "EPSG", "6.13");
}

TEST(Factory, RetiredSystemsAndTransformationsAreBuiltAsListed)
{
    object_guard gcs{gx_factory_geogcs(4635)};
    expect_stamp(gcs.object, 4635, GX_STATUS_DEAD, "EPSG", "6.13");
    EXPECT_EQ(gx_datum_code(gx_geogcs_datum(static_cast<gx_geogcs *>(gcs.object))), 6635);

    struct retired_pcs {
        int code;
        const char *name;
        int geogcs;
        double central_meridian, latitude_of_origin, scale, false_easting, false_northing;
    };
    const retired_pcs systems[] = {
        {2983, "ST87_Ouvea_UTM_58S", 4635, 165, 0, 0.9996, 500000, 10000000},
        {2990, "Reunion_1947_TM_Reunion_wrong_FE_and_FN", 4626, 55.53333333333333,
         -21.116666666666667, 1, 50000, 160000},
        {31900, "KUDAMS_KTM", 4319, 48, 0, 0.9996, 500000, 0},
    };
    for (const retired_pcs &expected : systems) {
        SCOPED_TRACE(expected.code);
        object_guard pcs{gx_factory_projcs(expected.code)};
        expect_stamp(pcs.object, expected.code, GX_STATUS_DEAD, "EPSG", "6.13");
        auto *cs = static_cast<gx_projcs *>(pcs.object);
        EXPECT_EQ(name_of(cs), expected.name);
        EXPECT_EQ(gx_geogcs_code(gx_projcs_geogcs(cs)), expected.geogcs);
        EXPECT_EQ(gx_projection_code(gx_projcs_projection(cs)), 43006);
        EXPECT_EQ(gx_unit_code(gx_projcs_unit(cs)), 9001);
        gx_parameter **slots = gx_projcs_parameters(cs);
        EXPECT_EQ(parameter_value(slots, 100010), expected.central_meridian);
        EXPECT_EQ(parameter_value(slots, 100021), expected.latitude_of_origin);
        EXPECT_EQ(parameter_value(slots, 100003), expected.scale);
        EXPECT_EQ(parameter_value(slots, 100001), expected.false_easting);
        EXPECT_EQ(parameter_value(slots, 100002), expected.false_northing);
    }

    struct retired_gt {
        int code;
        const char *name;
        int from, method, parameters;
        double first, last;
    };
    const retired_gt transformations[] = {
        {1086, "Jamaica_1969_To_WGS_1984_3", 4242, 9607, 7, -33.722, -8.95},
        {1585, "Deir_ez_Zor_To_WGS_1984_2", 4227, 9603, 3, -177.5, 237.6},
        {1919, "ST87_Ouvea_To_WGS_1984_1", 4635, 9606, 7, -122.383, 4.4798},
    };
    for (const retired_gt &expected : transformations) {
        SCOPED_TRACE(expected.code);
        object_guard made{gx_factory_geogtran(expected.code)};
        expect_stamp(made.object, expected.code, GX_STATUS_DEAD, "EPSG", "6.13");
        auto *gt = static_cast<gx_geogtran *>(made.object);
        EXPECT_EQ(name_of(gt), expected.name);
        EXPECT_EQ(gx_geogcs_code(gx_geogtran_geogcs1(gt)), expected.from);
        EXPECT_EQ(gx_geogcs_code(gx_geogtran_geogcs2(gt)), 4326);
        EXPECT_EQ(gx_method_code(gx_geogtran_method(gt)), expected.method);
        gx_parameter **slots = gx_geogtran_parameters(gt);
        int count = 0;
        for (int slot = 0; slot < 16; slot++)
            count += slots[slot] != nullptr;
        EXPECT_EQ(count, expected.parameters);
        EXPECT_EQ(parameter_value(slots, 100040), expected.first);
        EXPECT_EQ(parameter_value(slots, 100039 + expected.parameters), expected.last);
    }
}

TEST(Factory, UnknownCodesReportTheirTypesError)
{
    struct unknown_case {
        factory_fn make;
        int code;
        unsigned int number;
        const char *function;
        const char *text;
    };
    const unknown_case cases[] = {
        {generic<gx_factory_datum_errext>, 6999, 206, "gx_factory_datum",
         "Invalid datum factory code (6999)"},
        {generic<gx_factory_geogcs_errext>, 4998, 203, "gx_factory_geogcs",
         "Invalid geographic CS factory code (4998)"},
        {generic<gx_factory_projcs_errext>, 20000, 204, "gx_factory_projcs",
         "Invalid projected CS factory code (20000)"},
        {generic<gx_factory_vertcs_errext>, 5799, 205, "gx_factory_vertcs",
         "Invalid vertical CS factory code (5799)"},
        {generic<gx_factory_vdatum_errext>, 5299, 207, "gx_factory_vdatum",
         "Invalid vertical datum factory code (5299)"},
        {generic<gx_factory_geogtran_errext>, 1000, 209, "gx_factory_geogtran",
         "Invalid geographic transformation factory code (1000)"},
        {generic<gx_factory_hvcoordsys_errext>, 4326, 209, "gx_factory_hvcoordsys",
         "Invalid geographic transformation factory code (4326)"},
        {generic<gx_factory_verttran_errext>, 5401, 209, "gx_factory_verttran",
         "Invalid geographic transformation factory code (5401)"},
        {generic<gx_factory_unit_errext>, 9090, 210, "gx_factory_unit",
         "Invalid unit factory code (9090)"},
        {generic<gx_factory_primem_errext>, 8999, 213, "gx_factory_primem",
         "Invalid prime meridian factory code (8999)"},
        {generic<gx_factory_spheroid_errext>, 7999, 214, "gx_factory_spheroid",
         "Invalid spheroid factory code (7999)"},
        // A code of another type, and codes in no range at all.
        {generic<gx_factory_datum_errext>, 4326, 206, "gx_factory_datum",
         "Invalid datum factory code (4326)"},
        {generic<gx_factory_spheroid_errext>, -1, 214, "gx_factory_spheroid",
         "Invalid spheroid factory code (-1)"},
        {generic<gx_factory_geogcs_errext>, 0, 203, "gx_factory_geogcs",
         "Invalid geographic CS factory code (0)"},
    };
    for (const unknown_case &c : cases) {
        SCOPED_TRACE(c.text);
        gx_err_rec err;
        EXPECT_EQ(c.make(c.code, &err), nullptr);
        expect_error(err, c.number, c.function, c.text);
    }
}

TEST(Factory, UnknownCodeGoesToTheMessageRoutineWithoutARecordToo)
{
    message_recorder recorder;
    EXPECT_EQ(gx_factory_datum(6999), nullptr);
    EXPECT_EQ(gx_factory(999), nullptr);
    ASSERT_EQ(recorder.received.size(), 2u);
    EXPECT_EQ(recorder.received[0].number, 206u);
    EXPECT_EQ(recorder.received[0].category, GX_ERRCAT_FACTORY);
    EXPECT_EQ(recorder.received[1].number, 201u);
}

TEST(Factory, UnitFactoriesInsistOnTheirKind)
{
    gx_err_rec err;
    EXPECT_EQ(gx_factory_linunit_errext(9102, &err), nullptr);
    expect_error(err, 224, "gx_factory_angunit", "Wrong unit type");
    EXPECT_EQ(gx_factory_angunit_errext(9001, &err), nullptr);
    expect_error(err, 224, "gx_factory_angunit", "Wrong unit type");
    EXPECT_EQ(gx_factory_angunit_errext(109006, &err), nullptr); // a TAVU linear unit
    expect_error(err, 224, "gx_factory_angunit", "Wrong unit type");

    EXPECT_EQ(gx_factory_linunit_errext(4326, &err), nullptr);
    expect_error(err, 212, "gx_factory_linunit", "Invalid linear unit factory code 4326");
    EXPECT_EQ(gx_factory_angunit_errext(999, &err), nullptr);
    expect_error(err, 211, "gx_factory_angunit", "Invalid angular unit factory code (999)");
    // In its range but not defined: the unit factory's own error.
    EXPECT_EQ(gx_factory_angunit_errext(9199, &err), nullptr);
    expect_error(err, 210, "gx_factory_unit", "Invalid unit factory code (9199)");

    object_guard foot{gx_factory_linunit(9002)};
    expect_stamp(foot.object, 9002, GX_STATUS_CODE, "EPSG", "6.13");
    object_guard grad{gx_factory_angunit(9105)};
    expect_stamp(grad.object, 9105, GX_STATUS_CODE, "EPSG", "6.13");
    // The unit factory itself takes either kind.
    object_guard degree{gx_factory_unit(9102)};
    EXPECT_NE(degree.object, nullptr);
}

TEST(Factory, TypeTestingFactories)
{
    gx_err_rec err;
    EXPECT_EQ(gx_factory_coordsys_errext(6326, &err), nullptr);
    expect_error(err, 219, "gx_factory_coordsys", "Invalid coordinate system factory code (6326)");
    EXPECT_EQ(gx_factory_hvdatum_errext(4326, &err), nullptr);
    expect_error(err, 208, "gx_factory_hvdatum",
                 "Invalid datum or vertical datum factory code (4326)");
    // An accepted type whose factory does not know the code reports that factory's error.
    EXPECT_EQ(gx_factory_coordsys_errext(4998, &err), nullptr);
    expect_error(err, 203, "gx_factory_geogcs", "Invalid geographic CS factory code (4998)");

    object_guard gcs{gx_factory_coordsys(4326)};
    EXPECT_EQ(gx_object_type(gcs.object), GX_TYPE_GEOGCS);
    object_guard pcs{gx_factory_coordsys(32633)};
    EXPECT_EQ(gx_object_type(pcs.object), GX_TYPE_PROJCS);
    object_guard datum{gx_factory_hvdatum(6326)};
    EXPECT_EQ(gx_object_type(datum.object), GX_TYPE_DATUM);
    object_guard vdatum{gx_factory_hvdatum(5103)};
    EXPECT_EQ(gx_object_type(vdatum.object), GX_TYPE_VDATUM);
}

TEST(Factory, GenericFactories)
{
    gx_err_rec err;
    EXPECT_EQ(gx_factory_errext(999, &err), nullptr);
    expect_error(err, 201, "gx_factory_by_type",
                 "Factory code (999) is not in the range of any object");
    EXPECT_EQ(gx_factory_errext(210100, &err), nullptr);
    expect_error(err, 201, "gx_factory_by_type",
                 "Factory code (210100) is not in the range of any object");
    EXPECT_EQ(gx_factory_by_type_errext(4, 4326, &err), nullptr);
    expect_error(err, 223, "gx_factory_by_type", "Invalid object type (000004) for code (4326)");
    // The type is not checked against the code: the type's factory judges it.
    EXPECT_EQ(gx_factory_by_type_errext(GX_TYPE_DATUM, 4326, &err), nullptr);
    expect_error(err, 206, "gx_factory_datum", "Invalid datum factory code (4326)");

    // The registries' codes too (the database types are dispatched in the database test).
    for (int code : {9603, 119624, 129616, 43006, 100001}) {
        object_guard made{gx_factory_errext(code, &err)};
        EXPECT_EQ(gx_object_code(made.object), code) << err.message;
    }
}

TEST(Factory, RegistryFactoriesHandTheRegistryObjectOn)
{
    object_guard method{gx_factory_method(9603)};
    EXPECT_EQ(name_of(method.object), "Geocentric_Translation");
    object_guard parameter{gx_factory_parameter(100001)};
    EXPECT_EQ(name_of(parameter.object), "False_Easting");
    gx_err_rec err;
    EXPECT_EQ(gx_factory_projection_errext(43499, &err), nullptr);
    EXPECT_EQ(err.number, 217u);
}

TEST(Factory, TypeOfAnObjectTellsUnitKinds)
{
    object_guard metre{gx_factory_unit(9001)};
    EXPECT_EQ(gx_factory_type(metre.object), static_cast<int>(GX_TYPE_LINUNIT));
    object_guard degree{gx_factory_unit(9102)};
    EXPECT_EQ(gx_factory_type(degree.object), static_cast<int>(GX_TYPE_ANGUNIT));
    object_guard gcs{gx_factory_geogcs(4326)};
    EXPECT_EQ(gx_factory_type(gcs.object), static_cast<int>(GX_TYPE_GEOGCS));
    EXPECT_EQ(gx_factory_type(nullptr), 0);

    // A unit without a code is looked up; one the database does not hold stays a unit.
    object_guard grad{gx_unit_new("Grad", 0.01570796326794897)};
    EXPECT_EQ(gx_factory_type(grad.object), static_cast<int>(GX_TYPE_ANGUNIT));
    EXPECT_EQ(gx_unit_code(static_cast<gx_unit *>(grad.object)), 9105);
    object_guard odd{gx_unit_new("Odd_Unit", 0.123)};
    EXPECT_EQ(gx_factory_type(odd.object), static_cast<int>(GX_TYPE_UNIT));
}

// A user definition directory made for one test and dropped after it.
class FactoryUser : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "gx_factory_XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        dir_ = pattern;
    }
    void TearDown() override
    {
        gx_factory_uninit();
        std::filesystem::remove_all(dir_);
    }
    void write(const char *file, const char *text) { std::ofstream(dir_ + "/" + file) << text; }
    int load() { return gx_objedithome_setdir(dir_.c_str()); }

private:
    std::string dir_;
};

TEST_F(FactoryUser, UserDefinitionHidesTheBuiltInObject)
{
    write("geogcs", "geogcs, 4326, \"GCS_My_WGS_1984\", 6326, 8901, 9105\n"
                    "geogcs, 204001, \"GCS_Mine\", GX_D_WGS_1984, GX_PM_PARIS, GX_U_DEGREE\n");
    ASSERT_EQ(load(), int(GX_TYPE_GEOGCS));

    object_guard mine{gx_factory_geogcs(4326)};
    expect_stamp(mine.object, 4326, GX_STATUS_USER, "CUSTOM", "");
    auto *cs = static_cast<gx_geogcs *>(mine.object);
    EXPECT_EQ(name_of(cs), "GCS_My_WGS_1984");
    EXPECT_EQ(gx_unit_code(gx_geogcs_unit(cs)), 9105);
    // Its components come from their own factories, built-in here.
    expect_stamp(gx_geogcs_datum(cs), 6326, GX_STATUS_CODE, "EPSG", "6.13");

    object_guard custom{gx_factory(204001)};
    expect_stamp(custom.object, 204001, GX_STATUS_USER, "CUSTOM", "");
    EXPECT_EQ(gx_primem_code(gx_geogcs_primem(static_cast<gx_geogcs *>(custom.object))), 8903);

    // The user's system is listed, under its own name.
    int count = 0;
    gx_table_entry *table = gx_predefined_geogcs(&count);
    int listed = 0;
    for (int i = 0; i < count; i++)
        listed +=
            (table[i].code == 4326 && name_of(cs) == table[i].name) || table[i].code == 204001;
    EXPECT_EQ(listed, 2);
    gx_table_del(table);
}

TEST_F(FactoryUser, ABadUserDefinitionReportsItsOwnError)
{
    // A datum that does not exist and an angular unit where a linear one belongs.
    write("geogcs", "geogcs, 204002, \"GCS_Broken\", 206999, 8901, 9102\n");
    write("projcs", "projcs, 202001, \"Broken_UTM\", 4326, 43006, 9102, 100001, 500000.0\n");
    ASSERT_NE(load(), 0);
    gx_err_rec err;
    EXPECT_EQ(gx_factory_geogcs_errext(204002, &err), nullptr);
    EXPECT_EQ(err.number, 206u) << err.message;
    EXPECT_EQ(gx_factory_projcs_errext(202001, &err), nullptr);
    EXPECT_NE(err.number, 0u);
    EXPECT_NE(err.number, 204u) << "the entry's error, not an unknown code: " << err.message;
}
