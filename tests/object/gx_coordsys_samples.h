// Sample texts and objects shared by the coordinate-system tests.
#ifndef GX_COORDSYS_SAMPLES_H
#define GX_COORDSYS_SAMPLES_H

#include "gridex.h"

#include <string>

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

inline const std::string projcs = "PROJCS[\"WGS_1984_UTM_Zone_33N\"," + geogcs + "," +
                                  projection + "," + utm_parameters + ",UNIT[\"Meter\",1.0]]";

inline const std::string vertcs =
    "VERTCS[\"NAVD_1988\",VDATUM[\"North_American_Vertical_Datum_1988\"],"
    "PARAMETER[\"Vertical_Shift\",0.0],PARAMETER[\"Direction\",1.0],UNIT[\"Meter\",1.0]]";

// The text with its first quoted name replaced.
inline std::string renamed(const std::string &text, const std::string &name)
{
    const std::size_t open = text.find('"');
    const std::size_t close = text.find('"', open + 1);
    return text.substr(0, open + 1) + name + text.substr(close);
}

inline gx_geogcs *make_geogcs(const char *name = "GCS_WGS_1984")
{
    return gx_geogcs_new(name,
                         gx_datum_new("D_WGS_1984",
                                      gx_spheroid_new("WGS_1984", 6378137.0, 1 / 298.257223563)),
                         gx_primem_new("Greenwich", 0.0),
                         gx_unit_new("Degree", 0.017453292519943295));
}

// A Transverse Mercator system with the given parameters in their registry slots.
inline gx_projcs *make_projcs(std::initializer_list<std::pair<const char *, double>> parameters)
{
    gx_parameter *slots[16] = {};
    for (const auto &[name, value] : parameters)
        slots[gx_parmlist_index_from_name(name)] = gx_parameter_new(name, value);
    return gx_projcs_new("UTM", make_geogcs(), gx_projection_new("Transverse_Mercator", nullptr,
                                                                 nullptr, nullptr),
                         slots, gx_unit_new("Meter", 1.0));
}

inline gx_vertcs *make_vertcs(gx_hvdatum *hvdatum)
{
    gx_parameter *slots[16] = {gx_parameter_new("Vertical_Shift", 0.0),
                               gx_parameter_new("Direction", 1.0)};
    return gx_vertcs_new("NAVD_1988", hvdatum, slots, gx_unit_new("Meter", 1.0));
}

} // namespace samples

#endif
