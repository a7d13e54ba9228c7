// The operation-vector table: one row per object type, through which the generic gx_object_*
// operations reach a type's own.  A type defines its row next to its code (GX_DEFINE_*_FAMILY)
// and is listed here once, in the table's fixed order.
#include "object/gx_core.h"

extern const gx_object_vec gx_adjhcs_vector;
extern const gx_object_vec gx_array_vector;
extern const gx_object_vec gx_authority_vector;
extern const gx_object_vec gx_datum_vector;
extern const gx_object_vec gx_geogcs_vector;
extern const gx_object_vec gx_geogtran_vector;
extern const gx_object_vec gx_geoxyzcs_vector;
extern const gx_object_vec gx_htmethod_vector;
extern const gx_object_vec gx_hvcoordsys_vector;
extern const gx_object_vec gx_method_vector;
extern const gx_object_vec gx_parameter_vector;
extern const gx_object_vec gx_primem_vector;
extern const gx_object_vec gx_projcs_vector;
extern const gx_object_vec gx_projection_vector;
extern const gx_object_vec gx_spheroid_vector;
extern const gx_object_vec gx_unit_vector;
extern const gx_object_vec gx_vdatum_vector;
extern const gx_object_vec gx_vertcs_vector;
extern const gx_object_vec gx_verttran_vector;
extern const gx_object_vec gx_vtmethod_vector;

namespace {

// In the table's order: adjhcs, array, authority, datum, geogcs, geogtran, geoxyzcs, htmethod,
// hvcoordsys, method, parameter, primem, projcs, projection, spheroid, unit, vdatum, vertcs,
// verttran, vtmethod.
const gx_object_vec *const vector_table[] = {
    &gx_adjhcs_vector,     &gx_array_vector,      &gx_authority_vector, &gx_datum_vector,
    &gx_geogcs_vector,     &gx_geogtran_vector,   &gx_geoxyzcs_vector,  &gx_htmethod_vector,
    &gx_hvcoordsys_vector, &gx_method_vector,     &gx_parameter_vector, &gx_primem_vector,
    &gx_projcs_vector,     &gx_projection_vector, &gx_spheroid_vector,  &gx_unit_vector,
    &gx_vdatum_vector,     &gx_vertcs_vector,     &gx_verttran_vector,  &gx_vtmethod_vector,
};

} // namespace

const gx_object_vec *gx_object_vector(unsigned int type)
{
    for (const gx_object_vec *row : vector_table)
        if (row->type == type)
            return row;
    return nullptr;
}
