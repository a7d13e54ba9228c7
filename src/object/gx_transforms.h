// gx_transforms.h -- internal: records and parsers of the transformation types (method,
// htmethod, vtmethod, geogtran, verttran) and of the adjusted system (adjhcs), and what the
// transformations share: the routines of a method as its registry row gives them, and the life
// cycle of the constants a transformation loads for its method.
#ifndef GX_TRANSFORMS_H
#define GX_TRANSFORMS_H

#include "object/gx_coordsys.h"

namespace gx {

// A constants routine of a datum-shift or height method: fills the container from the dataset
// (a grid file) and returns non-zero on success.  Plane fits have none.
using constants_rtn = int (*)(gx_constants *constants, const char *dataset);

// The fields of a method object, whatever its kind; Routine is the kind's routine type.
template <class Routine> struct method_fields {
    gx_object_header header;
    gx_authority *auth;
    Routine forward;
    Routine inverse;
    constants_rtn constfunc;    // null: the method reads no data
    unsigned int coordsys_type; // the horizontal system the method needs; 0 = any
};

// The same routines on their own, as a registry row or a constructor's arguments give them.
template <class Routine> struct method_routines {
    Routine forward;
    Routine inverse;
    constants_rtn constfunc;
    unsigned int coordsys_type;
};

inline method_routines<gx_mth_rtn> routines_of(const gx_methlist_entry &row)
{
    return {row.forward, row.inverse, row.constfunc, 0};
}
inline method_routines<gx_htm_rtn> routines_of(const gx_htmethlist_entry &row)
{
    return {row.forward, row.inverse, nullptr, 0};
}
// A height method that needs the points' position takes them as longitude and latitude.
inline method_routines<gx_vtm_rtn> routines_of(const gx_vtmethlist_entry &row)
{
    return {row.forward, row.inverse, row.constfunc, row.horizontal != 0 ? GX_TYPE_GEOGCS : 0u};
}

// ---- constants of a transformation --------------------------------------------------------------

// What a transformation's method loads once (the nodes of a grid file) and hands to its routines
// on every call.  `loaded` records that loading was tried, whatever it gave.
struct transform_constants {
    gx_constants *container; // owned; null until loaded, and when loading gave nothing
    int loaded;
};

inline void unload_constants(transform_constants &constants)
{
    gx_constants_del(constants.container);
    constants.container = nullptr;
    constants.loaded = 0;
}

// The grid a method reads is named by the parameter in the dataset slot; empty when the slot is.
inline const char *dataset_name(const parameter_array &parameters)
{
    const gx_parameter *dataset = parameters[dataset_slot];
    return dataset != nullptr ? dataset->header.name : "";
}

// Unloads, then runs the method's constants routine on a fresh container, which is kept when the
// routine succeeds.  Returns the routine's result; 0 when the method has no routine.
inline int load_constants(transform_constants &constants, constants_rtn routine,
                          const parameter_array &parameters)
{
    unload_constants(constants);
    if (routine == nullptr)
        return 0;
    gx_constants *container = gx_constants_new();
    const int result = container != nullptr ? routine(container, dataset_name(parameters)) : 0;
    if (result != 0)
        constants.container = container;
    else
        gx_constants_del(container);
    constants.loaded = 1;
    return result;
}

} // namespace gx

// ---- records ------------------------------------------------------------------------------------

struct gx_method : gx::method_fields<gx_mth_rtn> {};
struct gx_htmethod : gx::method_fields<gx_htm_rtn> {};
struct gx_vtmethod : gx::method_fields<gx_vtm_rtn> {};

// Longitude and latitude carried from one geographic system to another by a datum shift.
struct gx_geogtran {
    gx_object_header header;
    gx_authority *auth;
    gx_geogcs *geogcs1;                            // owned: from
    gx_geogcs *geogcs2;                            // owned: to
    gx_method *method;                             // owned
    gx_parameter *parameters[gx::parameter_slots]; // owned, null = absent
    gx::transform_constants constants;
};

// Heights carried from one vertical system to another by a height method, at horizontal
// positions given in an optional horizontal system.
struct gx_verttran {
    gx_object_header header;
    gx_authority *auth;
    gx_coordsys *coordsys;                         // owned: a geogcs or a projcs, or null
    gx_vertcs *vertcs1;                            // owned: from
    gx_vertcs *vertcs2;                            // owned: to
    gx_vtmethod *vtmethod;                         // owned
    gx_parameter *parameters[gx::parameter_slots]; // owned, null = absent
    gx::transform_constants constants;
};

// A horizontal system whose plane coordinates are refitted by a plane-fit method.  It carries
// no code and no authority.
struct gx_adjhcs {
    gx_object_header header;
    gx_coordsys *coordsys; // owned: a geogcs or a projcs
    gx_htmethod *htmethod; // owned
    gx_array *array;       // owned: the fit's coefficients
    gx_unit *unit;         // owned
};

namespace gx {

// The method types' descriptors are method_family<kind>::desc (gx_method_family.h).
extern const type_desc geogtran_desc;
extern const type_desc verttran_desc;
extern const type_desc adjhcs_desc;

// The parsers, for the types whose text holds these objects.
gx_object_header *method_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err);
gx_object_header *htmethod_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err);
gx_object_header *vtmethod_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err);
gx_object_header *geogtran_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err);
gx_object_header *verttran_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err);
gx_object_header *adjhcs_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err);

} // namespace gx

#endif // GX_TRANSFORMS_H
