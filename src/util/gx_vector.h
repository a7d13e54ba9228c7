// Internal view of the fixed vector, for containers built on it.
#ifndef GX_UTIL_VECTOR_H
#define GX_UTIL_VECTOR_H

#include "gridex.h"

// The address of element i; i must lie within 0 to length-1.  Elements are stored
// contiguously, so a run of them can be copied at once from this address.
unsigned char *gx_vector_slot(const gx_vector *v, int i);

#endif
