// Every argument error of the object constructors, with the caller's record and without one
// (the message routine still hears of it).  A failed constructor leaves the caller its parts:
// they are deleted by their owner here, so a constructor that took one would double-free under
// AddressSanitizer.
#include "gridex.h"
#include "gx_test_support.h"
#include "gx_samples.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// Valid parts to hand to constructors; whatever no constructor took is deleted at the end.
struct parts {
    static constexpr double one = 1.0;
    gx_geogcs *geogcs = samples::make_geogcs();
    gx_projcs *projcs = samples::make_projcs({{"Central_Meridian", 15.0}});
    gx_datum *datum = gx_datum_new("D", gx_spheroid_new("S", 6378137.0, 0.0));
    gx_primem *primem = gx_primem_new("Greenwich", 0.0);
    gx_unit *unit = gx_unit_new("Meter", 1.0);
    gx_projection *projection = gx_projection_new("Mercator", nullptr, nullptr, nullptr);
    gx_vdatum *vdatum = gx_vdatum_new("NAVD_1988");
    gx_vertcs *vertcs = samples::make_vertcs_in("Meter", 1.0, 0.0, 1.0);
    gx_method *method = gx_method_new("Geocentric_Translation", nullptr, nullptr);
    gx_vtmethod *egm96 = gx_vtmethod_new("EGM96", nullptr, nullptr);
    gx_vtmethod *offset = gx_vtmethod_new("Vertical_Offset", nullptr, nullptr);
    gx_vtmethod *needs_projected =
        gx_vtmethod_new_extended("Local", gx_vtm_vertical_offset_fwd, gx_vtm_vertical_offset_inv,
                                 nullptr, GX_TYPE_PROJCS, nullptr);
    gx_htmethod *htmethod = gx_htmethod_new("Affine_Parametric", nullptr, nullptr);
    gx_array *array = gx_array_new("A", 1, &one);
    gx_parameter *parameters[16] = {gx_parameter_new("X_Axis_Translation", 1.0)};
    ~parts()
    {
        for (void *obj : {(void *)geogcs, (void *)projcs, (void *)datum, (void *)primem,
                          (void *)unit, (void *)projection, (void *)vdatum, (void *)vertcs,
                          (void *)method, (void *)egm96, (void *)offset, (void *)needs_projected,
                          (void *)htmethod, (void *)array, (void *)parameters[0]})
            gx_object_del(obj);
    }
};

#define MAKE(call)                                                                                 \
    [](parts &p, gx_err_rec *e) -> void * {                                                        \
        (void)p;                                                                                   \
        return (void *)(call);                                                                     \
    }

} // namespace

TEST(Constructors, EveryArgumentError)
{
    const struct {
        void *(*make)(parts &, gx_err_rec *);
        unsigned int number;
        const char *function, *message; // a null function is not compared
    } cases[] = {
        {MAKE(gx_primem_new_errext("P", 180.0001, e)), 301, "gx_primem_new",
         "Longitude argument (180.0001) is < -180 or < 180"},
        {MAKE(gx_primem_new_errext("P", std::nan(""), e)), 301, "gx_primem_new",
         "Longitude argument (nan) is < -180 or < 180"},
        {MAKE(gx_spheroid_new_errext("S", 0.0, 0.0, e)), 302, "gx_spheroid_new",
         "Semimajor axis argument (0.0) is <= 0"},
        {MAKE(gx_spheroid_new_errext("S", 1.0, -0.0001, e)), 303, "gx_spheroid_new",
         "Flattening argument (-0.0001) is < 0 or > 1"},
        {MAKE(gx_unit_new_errext("m", 0.0, e)), 304, "gx_unit_new",
         "Unit factor argument (0.0) is <= 0"},
        {MAKE(gx_array_new_errext("A", 0, &parts::one, e)), 310, "gx_array_new",
         "Invalid num_values argument (0) for array"},
        {MAKE(gx_authority_new_errext("EPSG", 0, nullptr, e)), 311, "gx_authority_new",
         "Invalid authority code argument (0)"},
        {MAKE(gx_authority_new_errext("", 5, nullptr, e)), 320, "gx_authority_new",
         "Null or invalid authority name argument"},
        {MAKE(gx_array_new_errext("A", 2, nullptr, e)), 326, "gx_array_new",
         "Null values array argument"},
        {MAKE(gx_datum_new_errext("D", (gx_spheroid *)p.unit, e)), 327, "gx_datum_new",
         "Null or invalid spheroid object argument"},
        {MAKE(gx_geogcs_new_errext("g", (gx_datum *)p.primem, p.primem, p.unit, e)), 334,
         "gx_geogcs_new", "Null or invalid datum object argument"},
        {MAKE(gx_geogcs_new_errext("g", p.datum, nullptr, p.unit, e)), 329, "gx_geogcs_new",
         "Null or invalid primem object argument"},
        {MAKE(gx_geogcs_new_errext("g", p.datum, p.primem, nullptr, e)), 322, "gx_geogcs_new",
         "Null or invalid angular unit object argument"},
        {MAKE(gx_projcs_new_errext("p", nullptr, p.projection, p.parameters, p.unit, e)), 331,
         "gx_projcs_new", "Null or invalid geographic CS object argument"},
        {MAKE(gx_projcs_new_errext("p", p.geogcs, nullptr, p.parameters, p.unit, e)), 328,
         "gx_projcs_new", "Null or invalid projection object argument"},
        {MAKE(gx_projcs_new_errext("p", p.geogcs, p.projection, p.parameters, nullptr, e)), 323,
         "gx_projcs_new", "Null or invalid linear unit object argument"},
        {MAKE(gx_projcs_new_errext("p", p.geogcs, p.projection, nullptr, p.unit, e)), 330,
         "gx_projcs_new", "Null parameters array argument"},
        {MAKE(gx_geoxyzcs_new_errext("x", nullptr, p.unit, e)), 331, "gx_geoxyzcs_new",
         "Null or invalid geogcs object argument"},
        {MAKE(gx_geoxyzcs_new_errext("x", p.geogcs, nullptr, e)), 322, "gx_geoxyzcs_new",
         "Null or invalid angular unit object argument"},
        {MAKE(gx_vdatum_new_errext(nullptr, e)), 321, "gx_vdatum_new",
         "Null or invalid vdatum name argument"},
        {MAKE(gx_vertcs_new_errext("v", p.geogcs, p.parameters, p.unit, e)), 337, "gx_vertcs_new",
         "Null or invalid hvdatum object argument"},
        {MAKE(gx_vertcs_new_errext("v", p.datum, p.parameters, nullptr, e)), 323, "gx_vertcs_new",
         "Null or invalid linear unit object argument"},
        {MAKE(gx_hvcoordsys_new_errext(p.vertcs, nullptr, e)), 339, "gx_hvcoordsys_new",
         "Null or invalid coordsys and vertcs object arguments"},
        {MAKE(gx_hvcoordsys_new_extended_errext("h", p.geogcs, (gx_vertcs *)p.geogcs, e)), 339,
         "gx_hvcoordsys_new", "Null or invalid coordsys and vertcs object arguments"},
        {MAKE(gx_geogtran_new_errext("t", nullptr, p.geogcs, p.method, p.parameters, e)), 332,
         "gx_geogtran_new", "Null or invalid geogcs1 object argument"},
        {MAKE(gx_geogtran_new_errext("t", p.geogcs, (gx_geogcs *)p.projcs, p.method, p.parameters,
                                     e)),
         333, "gx_geogtran_new", "Null or invalid geogcs2 object argument"},
        {MAKE(gx_geogtran_new_errext("t", p.geogcs, p.geogcs, (gx_method *)p.egm96, p.parameters,
                                     e)),
         335, "gx_geogtran_new", "Null or invalid method object argument"},
        {MAKE(gx_verttran_new_errext("v", p.unit, p.vertcs, p.vertcs, p.offset, p.parameters, e)),
         338, "gx_verttran_new", "Invalid coordsys object argument"},
        {MAKE(gx_verttran_new_errext("v", nullptr, nullptr, p.vertcs, p.offset, p.parameters, e)),
         341, "gx_verttran_new", "Null or invalid vertcs1 object argument"},
        {MAKE(gx_verttran_new_errext("v", nullptr, p.vertcs, nullptr, p.offset, p.parameters, e)),
         342, "gx_verttran_new", "Null or invalid vertcs2 object argument"},
        {MAKE(gx_verttran_new_errext("v", nullptr, p.vertcs, p.vertcs, nullptr, p.parameters, e)),
         343, "gx_verttran_new", "Null or invalid vtmethod object argument"},
        {MAKE(gx_verttran_new_errext("v", nullptr, p.vertcs, p.vertcs, p.offset, nullptr, e)), 330,
         "gx_verttran_new", "Null parameters array argument"},
        // A geoid grid is read at longitude and latitude: it needs a geographic system, and a
        // method of a projected system needs a projected one.
        {MAKE(gx_verttran_new_errext("v", p.projcs, p.vertcs, p.vertcs, p.egm96, p.parameters, e)),
         312, "gx_verttran_new", "Invalid coordsys type for vtmethod"},
        {MAKE(gx_verttran_new_errext("v", nullptr, p.vertcs, p.vertcs, p.egm96, p.parameters, e)),
         312, "gx_verttran_new", "Invalid coordsys type for vtmethod"},
        {MAKE(gx_verttran_new_errext("v", p.geogcs, p.vertcs, p.vertcs, p.needs_projected,
                                     p.parameters, e)),
         312, "gx_verttran_new", "Invalid coordsys type for vtmethod"},
        {MAKE(gx_adjhcs_new_errext("a", p.vertcs, p.htmethod, p.array, p.unit, e)), 338,
         "gx_adjhcs_new", "Null or invalid coordsys object argument"},
        {MAKE(gx_adjhcs_new_errext("a", p.projcs, (gx_htmethod *)p.method, p.array, p.unit, e)),
         336, "gx_adjhcs_new", "Null or invalid htmethod object argument"},
        {MAKE(gx_adjhcs_new_errext("a", p.projcs, p.htmethod, nullptr, p.unit, e)), 325,
         "gx_adjhcs_new", "Null or invalid array object argument"},
        {MAKE(gx_adjhcs_new_errext("a", p.projcs, p.htmethod, p.array, nullptr, e)), 324,
         "gx_adjhcs_new", "Null or invalid unit object argument"},
        // A name no registry row has needs its routines.
        {MAKE(gx_projection_new_errext("Unknown", gx_prj_null_fwd, nullptr, nullptr, e)), 340,
         "gx_projection_new", "Null forward or inverse function argument"},
        {MAKE(gx_method_new_errext("Nonsense", gx_mth_null_fwd, nullptr, e)), 340, "gx_method_new",
         "Null forward or inverse function argument"},
        {MAKE(gx_htmethod_new_errext("Nonsense", nullptr, nullptr, e)), 340, nullptr,
         "Null forward or inverse function arument"},
        {MAKE(gx_vtmethod_new_extended("Nonsense", nullptr, nullptr, nullptr, 0, e)), 340, nullptr,
         "Null forward or inverse function argument"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.message);
        parts p;
        gx_err_rec err;
        EXPECT_EQ(c.make(p, &err), nullptr);
        expect_error(err, GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, c.number, c.function, c.message);
        message_recorder recorder; // the plain form reports too
        EXPECT_EQ(c.make(p, nullptr), nullptr);
        ASSERT_EQ(recorder.received.size(), 1u);
        EXPECT_EQ(recorder.received[0].number, c.number);
    }

    // A successful call clears the caller's record.
    gx_err_rec err;
    gx_err_str(&err, 2, 8, 301, "f", "m");
    gx_unit *unit = gx_unit_new_errext("m", 1.0, &err);
    EXPECT_EQ(err.number, 0u);
    EXPECT_STREQ(err.message, "");
    gx_unit_del(unit);
}
