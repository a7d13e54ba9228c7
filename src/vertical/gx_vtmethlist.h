// gx_vtmethlist.h -- internal: the properties of a height method by its code.
#ifndef GX_VERTICAL_GX_VTMETHLIST_H
#define GX_VERTICAL_GX_VTMETHLIST_H

#include "object/gx_registry.h"

namespace gx {

// The properties of the height method with `code`: its registry row's, or those of a grid kind
// that has routines of its own but no registry row; null for any other code.
const method_properties *vtmethod_properties(int code);

} // namespace gx

#endif // GX_VERTICAL_GX_VTMETHLIST_H
