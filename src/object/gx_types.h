// gx_types.h -- internal: the record layouts and WKT parsers of the object types, for the types
// that build on one another (a datum holds a spheroid, a geogcs a datum, ...).
#ifndef GX_TYPES_H
#define GX_TYPES_H

#include "object/gx_core.h"
#include "object/gx_wkt.h"
#include "object/gx_components.h"
#include "object/gx_coordsys.h"
#include "object/gx_transforms.h"

namespace gx {

extern const type_desc authority_desc;
extern const type_desc unit_desc;

gx_object_header *unit_from_tokens(const gx_token_list *list, int start, int *next,
                                   gx_err_rec *err);

} // namespace gx

#endif // GX_TYPES_H
