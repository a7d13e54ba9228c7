// Sample texts and objects shared by the transformation tests.
#ifndef GX_TRANSFORMS_SAMPLES_H
#define GX_TRANSFORMS_SAMPLES_H

#include "gridex.h"
#include "object/gx_coordsys_samples.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace samples {

inline const std::string nad27 =
    "GEOGCS[\"GCS_North_American_1927\",DATUM[\"D_North_American_1927\","
    "SPHEROID[\"Clarke_1866\",6378206.4,294.9786982]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]]";

inline const std::string translation_parameters =
    "PARAMETER[\"X_Axis_Translation\",-3.0],PARAMETER[\"Y_Axis_Translation\",142.0],"
    "PARAMETER[\"Z_Axis_Translation\",183.0]";

inline const std::string geogtran = "GEOGTRAN[\"NAD_1927_To_WGS_1984_1\"," + nad27 + "," +
                                    geogcs + ",METHOD[\"Geocentric_Translation\"]," +
                                    translation_parameters + "]";

inline const std::string ellipsoidal_vertcs =
    "VERTCS[\"WGS_1984\"," + datum +
    ",PARAMETER[\"Vertical_Shift\",0.0],PARAMETER[\"Direction\",1.0],UNIT[\"Meter\",1.0]]";

inline const std::string egm96_vertcs =
    "VERTCS[\"EGM96_Geoid\",VDATUM[\"EGM96_Geoid\"],PARAMETER[\"Vertical_Shift\",0.0],"
    "PARAMETER[\"Direction\",1.0],UNIT[\"Meter\",1.0]]";

inline const std::string verttran = "VERTTRAN[\"WGS_1984_To_EGM96_Geoid\"," + geogcs + "," +
                                    ellipsoidal_vertcs + "," + egm96_vertcs +
                                    ",VTMETHOD[\"EGM96\"],PARAMETER[\"Dataset_egm96\",0.0]]";

inline const std::string offset_verttran = "VERTTRAN[\"NAVD_1988_To_Local\"," + vertcs + "," +
                                           egm96_vertcs + ",VTMETHOD[\"Vertical_Offset\"],"
                                           "PARAMETER[\"Vertical_Offset\",1.5]]";

inline const std::string adjhcs = "ADJHCS[\"Site_Grid\"," + projcs +
                                  ",HTMETHOD[\"Affine_Parametric\"],ARRAY[\"Coefficients\",6,"
                                  "1.0,0.0,100.0,0.0,1.0,200.0],UNIT[\"Meter\",1.0]]";

// A geographic system with the given angular unit and prime meridian on a named datum.
inline gx_geogcs *make_geogcs_on(const char *datum, double axis, double flattening,
                                 const char *primem, double primem_longitude, const char *unit,
                                 double unit_factor)
{
    return gx_geogcs_new("GCS", gx_datum_new(datum, gx_spheroid_new("S", axis, flattening)),
                         gx_primem_new(primem, primem_longitude), gx_unit_new(unit, unit_factor));
}

// The 16 slots of a transformation with the given parameters in their registry slots.
struct parameter_slots {
    gx_parameter *slots[16] = {};
    parameter_slots(std::initializer_list<std::pair<const char *, double>> parameters)
    {
        for (const auto &[name, value] : parameters)
            slots[gx_parmlist_index_from_name(name)] = gx_parameter_new(name, value);
    }
};

inline gx_geogtran *make_geogtran(gx_geogcs *from, gx_geogcs *to, gx_method *method,
                                  parameter_slots parameters)
{
    return gx_geogtran_new("T", from, to, method, parameters.slots);
}

// A vertical system in a unit, with a vertical shift and a direction.
inline gx_vertcs *make_vertcs_in(const char *unit, double unit_factor, double shift,
                                  double direction)
{
    gx_parameter *slots[16] = {gx_parameter_new("Vertical_Shift", shift),
                               gx_parameter_new("Direction", direction)};
    return gx_vertcs_new("V", gx_vdatum_new("VD"), slots, gx_unit_new(unit, unit_factor));
}

} // namespace samples

#endif
