// gx_objedithome.h -- the user definition directory, as the factory reads it.
//
// Users keep their own object definitions in text files of the directory named by
// GXOBJEDITHOME (or set through gx_objedithome_setdir), one file per type, in the syntax of
// the built-in definition data.  Each valid entry becomes a record of the same shape as the
// built-in ones, so the factory builds objects from either source the same way.
#ifndef GX_OBJEDITHOME_H
#define GX_OBJEDITHOME_H

#include "factory/gx_defdata.h"
#include "factory/gx_deftokens.h"
#include "gridex.h"

// The user definition of (type, code) as a record of the same shape as the built-in ones
// (gx_defrec of src/factory/gx_defdata.h: name, component codes resolved from numbers or macro
// names, values, parameter pairs with the dataset name kept as text), or null when the user
// directory has none.  Reads the directory on first use.  type is 1, 2, 8, 32, 64, 128, 768
// (any unit), 1024, 2048 or 524288.  The record stays valid until the definitions are dropped
// (gx_factory_uninit) or re-read (the directory changes).  Errors met while reading the files
// are reported as the reader reports them (category 2) through `err` (may be null).
//
// An entry that makes no record (a value out of range, a parameter given twice or not taken
// by the object ...) gives null as well, with its error in err: given a record, the first
// error ends the entry; without one, every error of the entry goes to the message routine.
// Warnings (a missing vertical parameter, a parameter the height method does not use) leave
// the record made.  The directory's file errors (bad lines, duplicate codes) are reported to
// the message routine when the files are read.
const gx_defrec *gx_objedit_find(int type, int code, gx_err_rec *err);

// Room for the text that names where an entry comes from ("objedit file \"datum\" line 3
// code 206001"), the function name of the messages about it.
#define GX_OBJEDIT_CONTEXT_LEN 320

// The entry of (type, code) as the user wrote it, tokenized, or null; the first of several
// with the same code.  Reads the directory on first use.  context (GX_OBJEDIT_CONTEXT_LEN
// bytes, may be null) receives where the entry comes from, or "" when there is none.  The
// entry stays owned by the definitions.
const gx_deftokens *gx_objedithome_find(int type, int code, char *context);

#endif // GX_OBJEDITHOME_H
