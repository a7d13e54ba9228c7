// gx_components.h -- internal: records and parsers of the geodetic component types (spheroid,
// prime meridian, datum, parameter, array).
#ifndef GX_COMPONENTS_H
#define GX_COMPONENTS_H

#include "object/gx_core.h"
#include "object/gx_wkt.h"

#endif // GX_COMPONENTS_H
