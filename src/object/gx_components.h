// gx_components.h -- internal: records and parsers of the geodetic component types (spheroid,
// prime meridian, datum, parameter, array, projection).
#ifndef GX_COMPONENTS_H
#define GX_COMPONENTS_H

#include "object/gx_core.h"
#include "object/gx_slots.h"
#include "object/gx_wkt.h"

// ---- records ------------------------------------------------------------------------------------

// An ellipsoid of revolution.  Only the flattening is kept; the inverse flattening of the text
// form is derived on output (0 for a sphere).
struct gx_spheroid {
    gx_object_header header;
    gx_authority *auth;
    double axis;       // semi-major axis a, metres, > 0
    double flattening; // f = (a - b) / a, 0 <= f <= 1; 0 is a sphere
};

struct gx_primem {
    gx_object_header header;
    gx_authority *auth;
    double longitude; // degrees east of Greenwich, -180 to 180
};

struct gx_datum {
    gx_object_header header;
    gx_authority *auth;
    gx_spheroid *spheroid; // owned, never null
};

struct gx_parameter {
    gx_object_header header;
    gx_authority *auth;
    double value; // in the units of the system or method that holds the parameter
};

// A map projection: its name and the seven routines of its registry row.  A projected CS holds
// one and calls its routines through the conversion driver.
struct gx_projection {
    gx_object_header header;
    gx_authority *auth;
    gx_prj_rtn forward;
    gx_prj_rtn inverse;
    gx_horizon_rtn horizon;
    gx_horizon_rtn horizon_pcs;
    gx_horizon_rtn horizon_gcs_raster;
    gx_horizon_rtn horizon_pcs_raster;
    gx_pcsconst_rtn pcsconstfunc;
};

// A named run of doubles (the values of a grid-based method, for example).  Arrays carry no code.
struct gx_array {
    gx_object_header header;
    int num_values; // at least 1
    double *values; // owned, num_values long
};

namespace gx {

extern const type_desc spheroid_desc;
extern const type_desc primem_desc;
extern const type_desc datum_desc;
extern const type_desc parameter_desc;
extern const type_desc array_desc;
extern const type_desc projection_desc;

// The parsers, for the types whose text holds these objects (a geogcs holds a datum and a
// prime meridian, a projcs parameters, ...).
gx_object_header *spheroid_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err);
gx_object_header *primem_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err);
gx_object_header *datum_from_tokens(const gx_token_list *list, int start, int *next,
                                    gx_err_rec *err);
gx_object_header *parameter_from_tokens(const gx_token_list *list, int start, int *next,
                                        gx_err_rec *err);
gx_object_header *array_from_tokens(const gx_token_list *list, int start, int *next,
                                    gx_err_rec *err);
gx_object_header *projection_from_tokens(const gx_token_list *list, int start, int *next,
                                         gx_err_rec *err);

// The registry row of a parameter name, as a WKT parser looks it up (without case; any name that
// begins with "Dataset_" is the dataset parameter), or null.
inline const gx_parmlist_entry *parameter_row(const char *name)
{
    return gx_parmlist_from_name(name);
}

// Whether objects of `type` (GX_TYPE_PROJCS, GX_TYPE_VERTCS, GX_TYPE_GEOGTRAN, GX_TYPE_VERTTRAN)
// take the parameter of `row`.
inline bool parameter_usable(const gx_parmlist_entry *row, unsigned int type)
{
    return row != nullptr && (row->usage & type) != 0;
}

} // namespace gx

#endif // GX_COMPONENTS_H
