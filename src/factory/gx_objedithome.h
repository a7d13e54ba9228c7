/*
 * gx_objedithome.h -- the user definition directory, as the factory reads it.
 *
 * Users keep their own object definitions in text files of the directory named by
 * GXOBJEDITHOME (or set through gx_objedithome_setdir), one file per type, in the syntax of
 * the built-in definition data.  Each valid entry becomes a record of the same shape as the
 * built-in ones, so the factory builds objects from either source the same way.
 */
#ifndef GX_OBJEDITHOME_H
#define GX_OBJEDITHOME_H

#include "gridex.h"
#include "gx_defdata.h"

// The user definition of (type, code) as a record of the same shape as the built-in ones
// (gx_defrec of src/factory/gx_defdata.h: name, component codes resolved from numbers or macro
// names, values, parameter pairs with the dataset name kept as text), or null when the user
// directory has none.  Reads the directory on first use.  type is 1, 2, 8, 32, 64, 128, 768
// (any unit), 1024, 2048 or 524288.  The record stays valid until the definitions are dropped
// (gx_factory_uninit) or re-read (the directory changes).  Errors met while reading the files
// are reported as the reader reports them (category 2) through `err` (may be null).
const gx_defrec *gx_objedit_find(int type, int code, gx_err_rec *err);

#endif /* GX_OBJEDITHOME_H */
