// gx_defdata.h -- the built-in definition records, as the factory reads them.
//
// The build turns data/definitions/<type>.txt into one constant table per type (generated
// sources gx_defdata_<type>.cpp), rows sorted by code.  A record keeps what the data file
// gives: the code, the name, the component codes, the numbers and the parameter pairs; the
// factory builds objects from them.  The meaning of the slots by type:
//
//   type      comp[0]               comp[1]        comp[2]        comp[3]   value[0..1]
//   unit      -                     -              -              -         factor
//   spheroid  -                     -              -              -         axis (m), 1/f
//   primem    -                     -              -              -         longitude (deg)
//   datum     spheroid              -              -              -         -
//   vdatum    -                     -              -              -         -
//   geogcs    datum                 prime meridian angular unit   -         -
//   projcs    geogcs                projection     linear unit    -         -
//   vertcs    datum or vdatum       linear unit    -              -         -
//   geogtran  source geogcs         target geogcs  method         -         -
//   verttran  horizontal CS (0: none) vertcs 1     vertcs 2       vtmethod  -
//
// Units are factors to metres (linear) or radians (angular); an inverse flattening of 0 is a
// sphere.  projcs, vertcs, geogtran and verttran records carry their parameters in file order;
// the dataset parameter (GX_DEFDATA_DATASET_PARM) carries a name in text and the value 0.
//
// Also here: the per-type lists of changed and discontinued codes and the accuracy figures
// of datum transformations.  All of it is constant data, initialized at compile time.
#ifndef GX_DEFDATA_H
#define GX_DEFDATA_H

#include "gridex.h"

#define GX_DEFDATA_DATASET_PARM 100047 // grid-file name of a datum transformation

struct gx_defparm {
    int code;
    double value;
    const char *text; // dataset name of GX_DEFDATA_DATASET_PARM, else null
};

struct gx_defrec {
    int code;
    const char *name;
    int comp[4];
    double value[2];
    int parm_count;
    const gx_defparm *parms;
};

struct gx_deftable {
    const gx_defrec *rows; // ascending by code
    int count;
};

// The generated tables, one per type that has definition files.
extern const gx_deftable gx_defdata_unit;
extern const gx_deftable gx_defdata_spheroid;
extern const gx_deftable gx_defdata_primem;
extern const gx_deftable gx_defdata_datum;
extern const gx_deftable gx_defdata_vdatum;
extern const gx_deftable gx_defdata_geogcs;
extern const gx_deftable gx_defdata_projcs;
extern const gx_deftable gx_defdata_vertcs;
extern const gx_deftable gx_defdata_geogtran;
extern const gx_deftable gx_defdata_verttran;

// The table of a type (units: 256, 512 or 768), or null for a type without definitions.
const gx_deftable *gx_defdata_table(int type);

// The built-in record of a type and code, or null.
const gx_defrec *gx_defdata_find(int type, int code);

// Codes once issued and since replaced: {requested, replacement} pairs, flattened, ended by a
// pair whose requested code is 0.  See gx_factory_codechange_lookup.
extern const int gx_factory_datum_codechange_codes[];
extern const int gx_factory_geogcs_codechange_codes[];
extern const int gx_factory_geogtran_codechange_codes[];
extern const int gx_factory_hvcoordsys_codechange_codes[];
extern const int gx_factory_primem_codechange_codes[];
extern const int gx_factory_projcs_codechange_codes[];
extern const int gx_factory_spheroid_codechange_codes[];
extern const int gx_factory_unit_codechange_codes[];
extern const int gx_factory_vdatum_codechange_codes[];
extern const int gx_factory_vertcs_codechange_codes[];
extern const int gx_factory_verttran_codechange_codes[];

// Codes the database still builds but no longer recommends, 0-terminated.  See
// gx_factory_discontinued_lookup.
extern const int gx_factory_datum_discontinued_codes[];
extern const int gx_factory_geogcs_discontinued_codes[];
extern const int gx_factory_geogtran_discontinued_codes[];
extern const int gx_factory_hvcoordsys_discontinued_codes[];
extern const int gx_factory_primem_discontinued_codes[];
extern const int gx_factory_projcs_discontinued_codes[];
extern const int gx_factory_spheroid_discontinued_codes[];
extern const int gx_factory_unit_discontinued_codes[];
extern const int gx_factory_vdatum_discontinued_codes[];
extern const int gx_factory_vertcs_discontinued_codes[];
extern const int gx_factory_verttran_discontinued_codes[];

// Standard errors (metres, -1 unknown) that a mapping agency publishes for datum
// transformations under its own codes; ascending by agency code, ended by an all-zero row.
struct gx_nga_error {
    const char *agency; // e.g. "ADI-A"
    int code;           // the geographic transformation's code
    double ex, ey, ez;
};

extern const gx_nga_error gx_nga_geogtran_errors[];
extern const int gx_nga_geogtran_error_count; // rows before the terminator

#endif // GX_DEFDATA_H
