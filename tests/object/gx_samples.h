// Sample texts and objects shared by the object, datum-shift and height tests.
#ifndef GX_TEST_SAMPLES_H
#define GX_TEST_SAMPLES_H

#include "gridex.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace samples {

inline const std::string datum =
    "DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]]";
inline const std::string geogcs = "GEOGCS[\"GCS_WGS_1984\"," + datum +
                                  ",PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
inline const std::string projection = "PROJECTION[\"Transverse_Mercator\"]";
inline const std::string utm_parameters =
    "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
    "PARAMETER[\"Central_Meridian\",15.0],PARAMETER[\"Scale_Factor\",0.9996],"
    "PARAMETER[\"Latitude_Of_Origin\",0.0]";
inline const std::string projcs = "PROJCS[\"WGS_1984_UTM_Zone_33N\"," + geogcs + "," + projection +
                                  "," + utm_parameters + ",UNIT[\"Meter\",1.0]]";
inline const std::string vertcs =
    "VERTCS[\"NAVD_1988\",VDATUM[\"North_American_Vertical_Datum_1988\"],"
    "PARAMETER[\"Vertical_Shift\",0.0],PARAMETER[\"Direction\",1.0],UNIT[\"Meter\",1.0]]";
inline const std::string nad27 =
    "GEOGCS[\"GCS_North_American_1927\",DATUM[\"D_North_American_1927\","
    "SPHEROID[\"Clarke_1866\",6378206.4,294.9786982]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]]";
inline const std::string geogtran =
    "GEOGTRAN[\"NAD_1927_To_WGS_1984_1\"," + nad27 + "," + geogcs +
    ",METHOD[\"Geocentric_Translation\"],PARAMETER[\"X_Axis_Translation\",-3.0],"
    "PARAMETER[\"Y_Axis_Translation\",142.0],PARAMETER[\"Z_Axis_Translation\",183.0]]";
inline const std::string egm96_vertcs =
    "VERTCS[\"EGM96_Geoid\",VDATUM[\"EGM96_Geoid\"],PARAMETER[\"Vertical_Shift\",0.0],"
    "PARAMETER[\"Direction\",1.0],UNIT[\"Meter\",1.0]]";
inline const std::string verttran =
    "VERTTRAN[\"WGS_1984_To_EGM96_Geoid\"," + geogcs + ",VERTCS[\"WGS_1984\"," + datum +
    ",PARAMETER[\"Vertical_Shift\",0.0],PARAMETER[\"Direction\",1.0],UNIT[\"Meter\",1.0]]," +
    egm96_vertcs + ",VTMETHOD[\"EGM96\"],PARAMETER[\"Dataset_egm96\",0.0]]";
inline const std::string offset_verttran = "VERTTRAN[\"NAVD_1988_To_Local\"," + vertcs + "," +
                                           egm96_vertcs +
                                           ",VTMETHOD[\"Vertical_Offset\"],"
                                           "PARAMETER[\"Vertical_Offset\",1.5]]";
inline const std::string adjhcs = "ADJHCS[\"Site_Grid\"," + projcs +
                                  ",HTMETHOD[\"Affine_Parametric\"],ARRAY[\"Coefficients\",6,"
                                  "1.0,0.0,100.0,0.0,1.0,200.0],UNIT[\"Meter\",1.0]]";

// The text with its first quoted name replaced.
inline std::string renamed(const std::string &text, const std::string &name)
{
    const std::size_t open = text.find('"');
    const std::size_t close = text.find('"', open + 1);
    return text.substr(0, open + 1) + name + text.substr(close);
}

// The 16 slots of a system or transformation with the given parameters in their registry slots.
struct parameter_slots {
    gx_parameter *slots[16] = {};
    parameter_slots(std::initializer_list<std::pair<const char *, double>> parameters)
    {
        for (const auto &[name, value] : parameters)
            slots[gx_parmlist_index_from_name(name)] = gx_parameter_new(name, value);
    }
};

// A geographic system with the given angular unit and prime meridian on a named datum.
inline gx_geogcs *make_geogcs_on(const char *datum, double axis, double flattening,
                                 const char *primem, double primem_longitude, const char *unit,
                                 double unit_factor)
{
    return gx_geogcs_new("GCS", gx_datum_new(datum, gx_spheroid_new("S", axis, flattening)),
                         gx_primem_new(primem, primem_longitude), gx_unit_new(unit, unit_factor));
}

inline gx_geogcs *make_geogcs(const char *name = "GCS_WGS_1984")
{
    return gx_geogcs_new(
        name, gx_datum_new("D_WGS_1984", gx_spheroid_new("WGS_1984", 6378137.0, 1 / 298.257223563)),
        gx_primem_new("Greenwich", 0.0), gx_unit_new("Degree", 0.017453292519943295));
}

// A Transverse Mercator system in metres with the given parameters.
inline gx_projcs *make_projcs(parameter_slots parameters)
{
    return gx_projcs_new("UTM", make_geogcs(),
                         gx_projection_new("Transverse_Mercator", nullptr, nullptr, nullptr),
                         parameters.slots, gx_unit_new("Meter", 1.0));
}

// A vertical system on the datum, in a unit, with a vertical shift and a direction.
inline gx_vertcs *make_vertcs(gx_hvdatum *hvdatum, const char *unit = "Meter",
                              double unit_factor = 1.0, double shift = 0.0, double direction = 1.0)
{
    parameter_slots slots = {{"Vertical_Shift", shift}, {"Direction", direction}};
    return gx_vertcs_new("V", hvdatum, slots.slots, gx_unit_new(unit, unit_factor));
}

inline gx_vertcs *make_vertcs_in(const char *unit, double unit_factor, double shift,
                                 double direction)
{
    return make_vertcs(gx_vdatum_new("VD"), unit, unit_factor, shift, direction);
}

inline gx_geogtran *make_geogtran(gx_geogcs *from, gx_geogcs *to, gx_method *method,
                                  parameter_slots parameters)
{
    return gx_geogtran_new("T", from, to, method, parameters.slots);
}

} // namespace samples

#endif
