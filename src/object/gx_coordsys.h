// gx_coordsys.h -- internal: records and parsers of the coordinate-system types (geogcs,
// projection, projcs, geoxyzcs, vdatum, vertcs, hvcoordsys, adjhcs).
#ifndef GX_COORDSYS_H
#define GX_COORDSYS_H

#include "object/gx_components.h"

#endif // GX_COORDSYS_H
