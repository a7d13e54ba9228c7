// gx_registry.h -- internal: the projection and parameter registries and the projection record.
//
// A projection object is a name and the seven routines of its registry row; the projected CS
// holds one and calls its routines through the conversion driver.  The parameter registry fixes
// the slot of every named parameter in the 16-slot arrays of projected and vertical systems and
// transformations; the WKT parsers of those types check each PARAMETER against it.
#ifndef GX_REGISTRY_H
#define GX_REGISTRY_H

#include "object/gx_core.h"

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

namespace gx {

extern const type_desc projection_desc;

gx_object_header *projection_from_tokens(const gx_token_list *list, int start, int *next,
                                         gx_err_rec *err);

// The number of parameter slots of a projected CS, vertical CS or transformation.
constexpr int parameter_slots = 16;

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

// The setter of an owned array in a constants record: releases the array held in `slot` (unless
// it is the same) and takes `array` in its place.  Returns `array`.
template <class Record, class T> T *replace_array(Record *rec, T *Record::*slot, T *array)
{
    if (rec->*slot != array)
        gx_deallocate_rtn(rec->*slot);
    rec->*slot = array;
    return array;
}

} // namespace gx

#endif // GX_REGISTRY_H
