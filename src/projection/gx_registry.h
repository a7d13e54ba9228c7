// gx_registry.h -- internal: the projection and parameter registries.
#ifndef GX_REGISTRY_H
#define GX_REGISTRY_H

#include "object/gx_core.h"

#endif // GX_REGISTRY_H
