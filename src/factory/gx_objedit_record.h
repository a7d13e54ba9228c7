// gx_objedit_record.h -- internal: the layouts of user definition entries, and the making of
// definition records from them.
//
// One table describes every type that has a user definition file: the file's name (which is
// also the keyword that begins each of its entries), how many tokens an entry has, and what
// the tokens after the name become in a gx_defrec.  The directory reader checks the shape of
// each entry against it; the lookup turns the entry it finds into a record, checking the
// values on the way.
#ifndef GX_OBJEDIT_RECORD_H
#define GX_OBJEDIT_RECORD_H

#include "factory/gx_defdata.h"
#include "factory/gx_deftokens.h"
#include "gridex.h"

// What a token after the name becomes.
enum gx_objedit_use {
    GX_OBJEDIT_UNUSED,    // no more fixed tokens
    GX_OBJEDIT_COMPONENT, // a code (number or macro name) in comp[slot]
    GX_OBJEDIT_VALUE      // a number in value[slot]
};

// What a fixed token must satisfy beyond being readable.
enum gx_objedit_rule {
    GX_OBJEDIT_ANY,
    GX_OBJEDIT_UNIT_FACTOR,        // > 0
    GX_OBJEDIT_AXIS,               // > 0
    GX_OBJEDIT_INVERSE_FLATTENING, // 0 (a sphere) or >= 1
    GX_OBJEDIT_LONGITUDE,          // -180 to 180
    GX_OBJEDIT_NOT_LINEAR,         // not a linear unit (the unit of a geographic CS)
    GX_OBJEDIT_HORIZONTAL_FITS     // a height method's horizontal CS (comp[0]) is of its kind
};

struct gx_objedit_field {
    gx_objedit_use use;
    int slot;
    gx_objedit_rule rule;
    unsigned int unknown_number; // a component name that names no code: its error
    const char *unknown_format;  // ... and message, formatted with the token
};

// The tokens after the fixed ones.
enum gx_objedit_items {
    GX_OBJEDIT_NO_ITEMS,
    GX_OBJEDIT_UNIT_AND_PARMS, // one linear unit code and parameter pairs, in any order
    GX_OBJEDIT_PARMS           // parameter pairs
};

// Whose parameter set the parameters must belong to.
enum gx_objedit_method {
    GX_OBJEDIT_NO_METHOD,   // the registry's usage mask decides
    GX_OBJEDIT_DATUM_SHIFT, // the datum-shift method's, all of them
    GX_OBJEDIT_HEIGHT       // the height method's, all of them; others are only warned of
};

// A parameter an entry ought to give, and the warning when it does not.
struct gx_objedit_expected {
    int code;
    unsigned int number;
    const char *message;
};

struct gx_objedit_layout {
    int type;         // GX_TYPE_* (units: GX_TYPE_UNIT)
    const char *name; // the file name and the entry keyword
    int min_tokens;
    bool more_allowed;             // more tokens than min_tokens
    gx_objedit_field fields[4];    // tokens 3 onward, up to the first unused one
    gx_objedit_items items;        // after the fields
    int unit_slot;                 // comp slot of the unit item, -1 for none
    unsigned int duplicate_number; // a parameter given twice
    gx_objedit_method method;
    int method_slot; // comp slot of the method code
    gx_objedit_expected expected[2];
};

// The layouts in the order the files are read; ended by a row of type 0.
extern const gx_objedit_layout gx_objedit_layouts[];

// The layout of a type (GX_TYPE_LINUNIT, GX_TYPE_ANGUNIT and GX_TYPE_UNIT give the unit
// layout), or null.
const gx_objedit_layout *gx_objedit_layout_of(int type);

// Makes the record of an entry whose shape the reader has checked (keyword, token count and
// code).  The record is one heap block (free it with gx_deallocate_rtn).  On a bad value the
// error goes into err under the function name `context`, and the result is null; with err
// the first error ends the entry, without it (a local record is used) every error of the entry
// is reported.  Warnings are reported the same way and do not stop it.
gx_defrec *gx_objedit_record_new(const gx_objedit_layout *layout, const gx_deftokens *entry,
                                 const char *context, gx_err_rec *err);

#endif // GX_OBJEDIT_RECORD_H
