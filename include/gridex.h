/*
 * gridex.h -- the public interface of the Gridex coordinate-reference-system library.
 *
 * Gridex models units, spheroids, datums and coordinate systems as objects, reads and writes
 * them as well-known text (WKT), builds predefined objects from integer codes, converts
 * coordinates between geographic and projected systems and shifts them between datums.
 *
 * Every exported function carries the prefix gx_.  Objects are heap records handled through
 * opaque pointers; the caller owns what a constructor, parser, clone or factory returns and
 * frees it with the type's gx_<type>_del.  Operations that can fail come in a plain form and an
 * _errext form taking a gx_err_rec* last; the plain form passes no record.
 *
 * This header compiles as C11 and as C++.
 */
#ifndef GRIDEX_H
#define GRIDEX_H

#include <stddef.h>
#include <stdarg.h>
#include <stdio.h>

#if defined(GX_BUILDING_LIBRARY)
#define GX_API __attribute__((visibility("default")))
#else
#define GX_API
#endif

#if defined(__GNUC__)
#define GX_PRINTF(fmt, args) __attribute__((format(printf, fmt, args)))
#else
#define GX_PRINTF(fmt, args)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ============================================================================================
 * Version
 * ========================================================================================== */

GX_API const char *gx_version_string(void);

/* ============================================================================================
 * Type codes, status values and the object header
 * ========================================================================================== */

#define GX_OBJECT_SIGNATURE 0x11235813u

#define GX_TYPE_NONE 0x000000u
#define GX_TYPE_GEOGCS 0x000001u
#define GX_TYPE_PROJCS 0x000002u
#define GX_TYPE_GEOXYZCS 0x000004u
#define GX_TYPE_VERTCS 0x000008u
#define GX_TYPE_HVCOORDSYS 0x000010u
#define GX_TYPE_DATUM 0x000020u
#define GX_TYPE_VDATUM 0x000040u
#define GX_TYPE_GEOGTRAN 0x000080u
#define GX_TYPE_LINUNIT 0x000100u
#define GX_TYPE_ANGUNIT 0x000200u
#define GX_TYPE_UNIT 0x000300u
#define GX_TYPE_PRIMEM 0x000400u
#define GX_TYPE_SPHEROID 0x000800u
#define GX_TYPE_METHOD 0x001000u
#define GX_TYPE_HTMETHOD 0x002000u
#define GX_TYPE_PROJECTION 0x004000u
#define GX_TYPE_PARAMETER 0x008000u
#define GX_TYPE_AUTHORITY 0x010000u
#define GX_TYPE_ADJHCS 0x020000u
#define GX_TYPE_ARRAY 0x040000u
#define GX_TYPE_VERTTRAN 0x080000u
#define GX_TYPE_VTMETHOD 0x100000u

#define GX_STATUS_NEW 1
#define GX_STATUS_STRING 2
#define GX_STATUS_CODE 4
#define GX_STATUS_USER 8
#define GX_STATUS_CODECHANGE 16
#define GX_STATUS_DISCONTINUED 32
#define GX_STATUS_DEAD 64

#define GX_NAME_LEN 64
#define GX_AUTHNAME_LEN 64
#define GX_VERSION_LEN 16
#define GX_TEXT_LEN 1024 /* every WKT text buffer, including the NUL */

/* The header that begins every object record. */
typedef struct gx_object_header {
    unsigned int signature; /* GX_OBJECT_SIGNATURE while alive, 0 once deleted */
    unsigned int type;      /* one type bit (units: 0x300) */
    unsigned int status;    /* how the object came to be (GX_STATUS_*) */
    int code;               /* code within its authority, -1 = none */
    char name[GX_NAME_LEN];
    char authname[GX_AUTHNAME_LEN];
    char version[GX_VERSION_LEN];
} gx_object_header;

/* Opaque object handles. */
typedef struct gx_authority gx_authority;
typedef struct gx_unit gx_unit;
typedef struct gx_spheroid gx_spheroid;
typedef struct gx_primem gx_primem;
typedef struct gx_datum gx_datum;
typedef struct gx_parameter gx_parameter;
typedef struct gx_array gx_array;
typedef struct gx_geogcs gx_geogcs;
typedef struct gx_projection gx_projection;
typedef struct gx_projcs gx_projcs;
typedef struct gx_geoxyzcs gx_geoxyzcs;
typedef struct gx_vdatum gx_vdatum;
typedef struct gx_vertcs gx_vertcs;
typedef struct gx_hvcoordsys gx_hvcoordsys;
typedef struct gx_adjhcs gx_adjhcs;
typedef struct gx_method gx_method;
typedef struct gx_htmethod gx_htmethod;
typedef struct gx_vtmethod gx_vtmethod;
typedef struct gx_geogtran gx_geogtran;
typedef struct gx_verttran gx_verttran;
/* A coordsys is a geogcs or a projcs; an hvdatum is a datum or a vdatum. */
typedef void gx_coordsys;
typedef void gx_hvdatum;

GX_API const char *gx_type_to_name(unsigned int type);
GX_API unsigned int gx_name_to_type(const char *name);
GX_API const char *gx_status_to_string(unsigned int status);

/* ============================================================================================
 * Allocation
 * ========================================================================================== */

GX_API void *gx_allocate_rtn(size_t size);
GX_API void gx_deallocate_rtn(void *p);
GX_API void *gx_memalloc(size_t size);

/* ============================================================================================
 * Error records and the message routine
 * ========================================================================================== */

#define GX_ERRLVL_ERROR 2u
#define GX_ERRLVL_WARNING 4u

#define GX_ERRCAT_MEMORY 1u
#define GX_ERRCAT_OBJEDIT 2u
#define GX_ERRCAT_FACTORY 4u
#define GX_ERRCAT_ARGUMENT 8u
#define GX_ERRCAT_WKT 16u

#define GX_ERR_FUNCTION_LEN 256
#define GX_ERR_MESSAGE_LEN 1280

typedef struct gx_err_rec {
    unsigned int level;    /* GX_ERRLVL_*, 0 = no error */
    unsigned int category; /* GX_ERRCAT_*, 0 = no error */
    unsigned int number;   /* error number, 0 = no error */
    char function[GX_ERR_FUNCTION_LEN];
    char message[GX_ERR_MESSAGE_LEN];
} gx_err_rec;

/* The message routine receives every reported error whose level and category pass the masks.
   The record is valid only during the call. */
typedef void (*gx_msg_rtn)(void *usrdata, const gx_err_rec *err);

GX_API void gx_err_clear(gx_err_rec *err);
GX_API void gx_err_str(gx_err_rec *err, unsigned int level, unsigned int category,
                       unsigned int number, const char *function, const char *message);
GX_API void gx_err_fmt(gx_err_rec *err, unsigned int level, unsigned int category,
                       unsigned int number, const char *function, const char *format, ...)
    GX_PRINTF(6, 7);
GX_API void gx_err_var(gx_err_rec *err, unsigned int level, unsigned int category,
                       unsigned int number, const char *function, const char *format, va_list args);
GX_API void gx_msg_setrtn(void *usrdata, int lvlmask, int catmask, gx_msg_rtn rtn);
GX_API void gx_msg_getrtn(void **usrdata, int *lvlmask, int *catmask, gx_msg_rtn *rtn);

/* ============================================================================================
 * Strings, paths, data directory, byte order and containers
 * ========================================================================================== */

GX_API int gx_strncmp_ci(const char *a, const char *b, int n);
GX_API int gx_strcmp_ci(const char *a, const char *b);
GX_API int gx_strncmp_ci1(const char *a, const char *b);
GX_API int gx_strncmp_ci2(const char *a, const char *b);
GX_API int gx_strcmp_i(const char *a, const char *b);
GX_API const char *gx_strstr_ci(const char *s, const char *t);
GX_API int gx_strncpy(char *dst, const char *src, int n);
GX_API int gx_strcpy(char *dst, const char *src);
GX_API int gx_strupper(char *dst, const char *src);
GX_API int gx_strlower(char *dst, const char *src);
GX_API char *gx_strtok(char *s, const char *delimiters, char **state);
GX_API int gx_str_isnumeric(const char *s);
GX_API char *gx_str_strip(char *s);
GX_API char *gx_str_trim(char *s);
GX_API char *gx_str_trim_buf(char *s);
GX_API int gx_glob_match(const char *name, const char *pattern);
GX_API int gx_snprintf(char *buf, int size, const char *format, ...) GX_PRINTF(3, 4);
GX_API int gx_vsnprintf(char *buf, int size, const char *format, va_list args);
GX_API const char *gx_getenv(const char *name);
GX_API int gx_atexit(void (*routine)(void));

GX_API const char *gx_path_basename(const char *path);
GX_API char *gx_path_dirname(char *dst, const char *path);
GX_API const char *gx_path_ext_get(const char *path);
GX_API char *gx_path_ext_set(char *path, const char *ext);
GX_API char *gx_dircat(char *dst, const char *name);
GX_API char *gx_filecat(char *dst, const char *name);
GX_API int gx_dir_exists(const char *path);
GX_API int gx_file_exists(const char *path);

#define GX_DATAHOME_LEN 256
GX_API void gx_datahome_setdir(const char *dir);
GX_API void gx_datahome_setfunc(const char *(*routine)(void));
GX_API const char *gx_get_datahome(void);
GX_API FILE *gx_datahome_open(char *pathbuf, const char *subdir1, const char *subdir2,
                              const char *filename, const char *ext, int mode);

GX_API int gx_is_big_endian(void);
GX_API int gx_is_little_endian(void);
GX_API void gx_swap4_int(void *words, int n);
GX_API void gx_swap4_flt(void *values, int n);
GX_API void gx_swap8_dbl(void *values, int n);
GX_API void gx_double_nan(double *d);

typedef struct gx_vector gx_vector;
GX_API gx_vector *gx_create_vector(int count, int size);
GX_API void gx_destroy_vector(gx_vector *v);
GX_API int gx_vector_length(const gx_vector *v);
GX_API int gx_vector_elemsize(const gx_vector *v);
GX_API int gx_vector_set(gx_vector *v, int i, const void *src);
GX_API int gx_vector_get(const gx_vector *v, int i, void *dst);

typedef struct gx_seq gx_seq;
GX_API gx_seq *gx_create_seq(int capacity, int size);
GX_API void gx_destroy_seq(gx_seq *s);
GX_API int gx_seq_length(const gx_seq *s);
GX_API int gx_seq_elemsize(const gx_seq *s);
GX_API int gx_seq_set(gx_seq *s, int i, const void *src);
GX_API int gx_seq_get(const gx_seq *s, int i, void *dst);
GX_API int gx_seq_apptail(gx_seq *s, const void *src);
GX_API int gx_seq_apphead(gx_seq *s, const void *src);
GX_API int gx_seq_remtail(gx_seq *s, void *dst);
GX_API int gx_seq_remhead(gx_seq *s, void *dst);

/* ============================================================================================
 * Number text and WKT tokens
 * ========================================================================================== */

GX_API char *gx_dtoa(double value, char *buf, int digits);
GX_API double gx_atod(const char *text);
GX_API char gx_get_decimal_point_char(void);

#define GX_MAX_TOKENS 256
#define GX_TOKEN_MSG_LEN 128

typedef struct gx_token {
    char *text; /* NUL-terminated, inside gx_token_list.text */
    int level;  /* bracket depth: the outermost keyword is 0 */
} gx_token;

typedef struct gx_token_list {
    char text[GX_TEXT_LEN]; /* normalized copy of the WKT */
    gx_token tokens[GX_MAX_TOKENS];
    int count;
    unsigned int error_level; /* 0, GX_ERRLVL_ERROR or GX_ERRLVL_WARNING */
    unsigned int error_number;
    char message[GX_TOKEN_MSG_LEN];
} gx_token_list;

GX_API int gx_objstring_to_tokens(gx_token_list *list, const char *text, const char *keyword);

/* ============================================================================================
 * Generic object operations
 * ========================================================================================== */

/* One row of the operation-vector table: a type's operations with generic signatures. */
typedef struct gx_object_vec {
    unsigned int type;
    void *(*from_string)(const char *text);
    void *(*from_string_errext)(const char *text, gx_err_rec *err);
    void *(*clone)(const void *obj);
    void (*del)(void *obj);
    int (*p)(const void *obj);
    int (*eq)(const void *a, const void *b);
    char *(*name)(const void *obj, char *buf);
    char *(*to_string)(const void *obj, char *buf);
    char *(*to_string_ext)(const void *obj, int options, char *buf);
    unsigned int (*type_of)(const void *obj);
    unsigned int (*status)(const void *obj);
    int (*code)(const void *obj);
    gx_authority *(*authority)(void *obj);
    void (*authority_set)(void *obj, gx_authority *auth);
    void (*status_set)(void *obj, unsigned int status);
    void (*code_set)(void *obj, int code, const char *authname, const char *version);
} gx_object_vec;

GX_API const gx_object_vec *gx_object_vector(unsigned int type);
GX_API int gx_object_p(const void *obj);
GX_API unsigned int gx_object_type(const void *obj);
GX_API unsigned int gx_object_status(const void *obj);
GX_API int gx_object_code(const void *obj);
GX_API char *gx_object_name(const void *obj, char *buf);
GX_API void gx_object_status_set(void *obj, unsigned int status);
GX_API void gx_object_code_set(void *obj, int code, const char *authname, const char *version);
GX_API void *gx_object_clone(const void *obj);
GX_API void gx_object_del(void *obj);
GX_API int gx_object_eq(const void *a, const void *b);
GX_API char *gx_object_to_string(const void *obj, char *buf);
GX_API char *gx_object_to_string_ext(const void *obj, int options, char *buf);
GX_API gx_authority *gx_object_authority(void *obj);
GX_API void gx_object_authority_set(void *obj, gx_authority *auth);
GX_API void *gx_object_from_string(const char *text);
GX_API void *gx_object_from_string_errext(const char *text, gx_err_rec *err);
GX_API void *gx_object_from_string_by_type(unsigned int type, const char *text);
GX_API void *gx_object_from_string_by_type_errext(unsigned int type, const char *text,
                                                  gx_err_rec *err);

/* The family of operations every object type offers, declared once per type. */
#define GX_DECLARE_OBJECT_FAMILY(T)                                                                \
    GX_API T *T##_from_string(const char *text);                                                   \
    GX_API T *T##_from_string_errext(const char *text, gx_err_rec *err);                           \
    GX_API T *T##_clone(const T *obj);                                                             \
    GX_API void T##_del(T *obj);                                                                   \
    GX_API int T##_p(const void *obj);                                                             \
    GX_API int T##_eq(const T *a, const T *b);                                                     \
    GX_API char *T##_name(const T *obj, char *buf);                                                \
    GX_API char *T##_to_string(const T *obj, char *buf);                                           \
    GX_API char *T##_to_string_ext(const T *obj, int options, char *buf);                          \
    GX_API unsigned int T##_type(const T *obj);                                                    \
    GX_API unsigned int T##_status(const T *obj);                                                  \
    GX_API void T##_status_set(T *obj, unsigned int status)

/* Types that carry a code and an authority object. */
#define GX_DECLARE_CODED_FAMILY(T)                                                                 \
    GX_DECLARE_OBJECT_FAMILY(T);                                                                   \
    GX_API int T##_code(const T *obj);                                                             \
    GX_API gx_authority *T##_authority(T *obj);                                                    \
    GX_API void T##_authority_set(T *obj, gx_authority *auth);                                     \
    GX_API void T##_code_set(T *obj, int code, const char *authname, const char *version)

/* ============================================================================================
 * Authority and unit
 * ========================================================================================== */

GX_DECLARE_OBJECT_FAMILY(gx_authority);
GX_API gx_authority *gx_authority_new(const char *name, int code, const char *version);
GX_API gx_authority *gx_authority_new_errext(const char *name, int code, const char *version,
                                             gx_err_rec *err);
GX_API int gx_authority_authcode(const gx_authority *auth);
GX_API const char *gx_authority_version(const gx_authority *auth);

GX_DECLARE_CODED_FAMILY(gx_unit);
GX_API gx_unit *gx_unit_new(const char *name, double factor);
GX_API gx_unit *gx_unit_new_errext(const char *name, double factor, gx_err_rec *err);
GX_API double gx_unit_factor(const gx_unit *unit);

/* ============================================================================================
 * Geodetic component objects: spheroid, prime meridian, datum, parameter, array
 * ========================================================================================== */

/* @@gridex-section:components@@ */

/* Spheroid: semi-major axis a in metres and flattening f (0 <= f <= 1, 0 a sphere).  The WKT
   form SPHEROID["name",a,1/f] writes 0.0 as the inverse flattening of a sphere; ELLIPSOID is
   read as well. */
GX_DECLARE_CODED_FAMILY(gx_spheroid);
GX_API gx_spheroid *gx_spheroid_new(const char *name, double axis, double flattening);
GX_API gx_spheroid *gx_spheroid_new_errext(const char *name, double axis, double flattening,
                                           gx_err_rec *err);
GX_API double gx_spheroid_axis(const gx_spheroid *sph);       /* 0 for an invalid object */
GX_API double gx_spheroid_flattening(const gx_spheroid *sph); /* 0 for an invalid object */

/* Prime meridian: longitude east of Greenwich in degrees, -180 to 180. */
GX_DECLARE_CODED_FAMILY(gx_primem);
GX_API gx_primem *gx_primem_new(const char *name, double longitude);
GX_API gx_primem *gx_primem_new_errext(const char *name, double longitude, gx_err_rec *err);
GX_API double gx_primem_longitude(const gx_primem *pm); /* 0 for an invalid object */

/* Datum: a name and its spheroid.  On success the datum owns the spheroid passed to it; on
   failure the caller keeps it.  gx_datum_spheroid returns the datum's own spheroid. */
GX_DECLARE_CODED_FAMILY(gx_datum);
GX_API gx_datum *gx_datum_new(const char *name, gx_spheroid *spheroid);
GX_API gx_datum *gx_datum_new_errext(const char *name, gx_spheroid *spheroid, gx_err_rec *err);
GX_API gx_spheroid *gx_datum_spheroid(const gx_datum *datum);

/* Parameter of a projection or method: a name and a value.  A new parameter takes its code
   from the parameter registry by name; gx_parameter_index is its registry slot, or -1. */
GX_DECLARE_CODED_FAMILY(gx_parameter);
GX_API gx_parameter *gx_parameter_new(const char *name, double value);
GX_API gx_parameter *gx_parameter_new_errext(const char *name, double value, gx_err_rec *err);
GX_API double gx_parameter_value(const gx_parameter *parm); /* 0 for an invalid object */
GX_API void gx_parameter_value_set(gx_parameter *parm, double value);
GX_API int gx_parameter_index(const gx_parameter *parm);
GX_API void gx_parameter_name_set(gx_parameter *parm, const char *name);

/* Array: a name and num_values (>= 1) doubles, copied in by gx_array_new.  Arrays have no code
   or authority.  gx_array_values_copy writes num_values doubles to dst and returns how many
   (0 for an invalid object or a null dst); gx_array_values_set overwrites them all. */
GX_DECLARE_OBJECT_FAMILY(gx_array);
GX_API gx_array *gx_array_new(const char *name, int num_values, const double *values);
GX_API gx_array *gx_array_new_errext(const char *name, int num_values, const double *values,
                                     gx_err_rec *err);
GX_API int gx_array_num_values(const gx_array *array);
GX_API double *gx_array_values_pointer(const gx_array *array);
GX_API int gx_array_values_copy(const gx_array *array, double *dst);
GX_API void gx_array_values_set(gx_array *array, const double *values);
GX_API void gx_array_name_set(gx_array *array, const char *name);

/* ============================================================================================
 * Coordinate-system objects
 * ========================================================================================== */

/* @@gridex-section:coordsys@@ */

/* Every constructor takes ownership of the sub-objects passed to it when it succeeds; on
   failure the caller keeps them.  Accessors return the object's own sub-objects, not copies. */

/* Geographic CS: a datum, a prime meridian and an angular unit. */
GX_DECLARE_CODED_FAMILY(gx_geogcs);
GX_API gx_geogcs *gx_geogcs_new(const char *name, gx_datum *datum, gx_primem *primem,
                                gx_unit *unit);
GX_API gx_geogcs *gx_geogcs_new_errext(const char *name, gx_datum *datum, gx_primem *primem,
                                       gx_unit *unit, gx_err_rec *err);
GX_API gx_datum *gx_geogcs_datum(const gx_geogcs *cs);
GX_API gx_primem *gx_geogcs_primem(const gx_geogcs *cs);
GX_API gx_unit *gx_geogcs_unit(const gx_geogcs *cs);

/* Projected CS: a geographic CS, a projection, 16 parameter slots (the slot of a parameter is
   its index in the parameter registry; null = absent) and a linear unit.  The 16 pointers of
   parameters are copied into the slots. */
GX_DECLARE_CODED_FAMILY(gx_projcs);
GX_API gx_projcs *gx_projcs_new(const char *name, gx_geogcs *geogcs, gx_projection *projection,
                                gx_parameter *parameters[16], gx_unit *unit);
GX_API gx_projcs *gx_projcs_new_errext(const char *name, gx_geogcs *geogcs,
                                       gx_projection *projection, gx_parameter *parameters[16],
                                       gx_unit *unit, gx_err_rec *err);
GX_API gx_geogcs *gx_projcs_geogcs(const gx_projcs *cs);
GX_API gx_projection *gx_projcs_projection(const gx_projcs *cs);
GX_API gx_unit *gx_projcs_unit(const gx_projcs *cs);
GX_API gx_parameter **gx_projcs_parameters(gx_projcs *cs); /* the 16 slots, or null */

/* Geocentric CS: the datum of a geographic CS and a unit. */
GX_DECLARE_CODED_FAMILY(gx_geoxyzcs);
GX_API gx_geoxyzcs *gx_geoxyzcs_new(const char *name, gx_geogcs *geogcs, gx_unit *unit);
GX_API gx_geoxyzcs *gx_geoxyzcs_new_errext(const char *name, gx_geogcs *geogcs, gx_unit *unit,
                                           gx_err_rec *err);
GX_API gx_geogcs *gx_geoxyzcs_geogcs(const gx_geoxyzcs *cs);
GX_API gx_unit *gx_geoxyzcs_unit(const gx_geoxyzcs *cs);

/* Vertical datum: a name only (null or empty is refused). */
GX_DECLARE_CODED_FAMILY(gx_vdatum);
GX_API gx_vdatum *gx_vdatum_new(const char *name);
GX_API gx_vdatum *gx_vdatum_new_errext(const char *name, gx_err_rec *err);

/* hvdatum: a datum or a vdatum.  The operations accept either and dispatch to its type's own;
   from_string reads a VDATUM when the text's first DATUM keyword is one, else a DATUM. */
GX_DECLARE_CODED_FAMILY(gx_hvdatum);

/* Vertical CS: an hvdatum, 16 parameter slots (Vertical_Shift, Direction) and a linear unit. */
GX_DECLARE_CODED_FAMILY(gx_vertcs);
GX_API gx_vertcs *gx_vertcs_new(const char *name, gx_hvdatum *hvdatum, gx_parameter *parameters[16],
                                gx_unit *unit);
GX_API gx_vertcs *gx_vertcs_new_errext(const char *name, gx_hvdatum *hvdatum,
                                       gx_parameter *parameters[16], gx_unit *unit,
                                       gx_err_rec *err);
GX_API gx_hvdatum *gx_vertcs_hvdatum(const gx_vertcs *cs);
GX_API gx_unit *gx_vertcs_unit(const gx_vertcs *cs);
GX_API gx_parameter **gx_vertcs_parameters(gx_vertcs *cs); /* the 16 slots, or null */

/* coordsys: a geogcs or a projcs.  The operations accept either and dispatch to its type's own;
   from_string reads a PROJCS when the text holds one, else a GEOGCS. */
GX_DECLARE_CODED_FAMILY(gx_coordsys);

/* Compound CS: a coordsys and a vertcs, either of which may be null (not both).  The name is
   empty unless given.  from_string reads an HVCOORDSYS text, or else a coordsys (the first
   PROJCS, or the first GEOGCS) and a VERTCS written one after the other. */
GX_DECLARE_CODED_FAMILY(gx_hvcoordsys);
GX_API gx_hvcoordsys *gx_hvcoordsys_new(gx_coordsys *coordsys, gx_vertcs *vertcs);
GX_API gx_hvcoordsys *gx_hvcoordsys_new_errext(gx_coordsys *coordsys, gx_vertcs *vertcs,
                                               gx_err_rec *err);
GX_API gx_hvcoordsys *gx_hvcoordsys_new_extended(const char *name, gx_coordsys *coordsys,
                                                 gx_vertcs *vertcs);
GX_API gx_hvcoordsys *gx_hvcoordsys_new_extended_errext(const char *name, gx_coordsys *coordsys,
                                                        gx_vertcs *vertcs, gx_err_rec *err);
GX_API gx_coordsys *gx_hvcoordsys_coordsys(const gx_hvcoordsys *cs);
GX_API gx_vertcs *gx_hvcoordsys_vertcs(const gx_hvcoordsys *cs);

/* ============================================================================================
 * Projection and parameter registries
 * ========================================================================================== */

/* @@gridex-section:registry@@ */

/* Constants containers: arrays that a projection's or method's setup computes once per object
   and hands to its forward and inverse routines on every call.  A container owns its arrays
   (allocated with gx_allocate_rtn); setting an array releases the one held before.  The
   gx_gtconstants_* names work on the same record, so either family takes the other's
   containers. */
typedef struct gx_constants gx_constants;
typedef struct gx_constants gx_gtconstants;

#define GX_DECLARE_CONSTANTS_FAMILY(F)                                                             \
    GX_API gx_constants *F##_new(void);                                                            \
    GX_API void F##_del(gx_constants *c);                                                          \
    GX_API int F##_p(const gx_constants *c);                                                       \
    GX_API int *F##_ivals(const gx_constants *c);                                                  \
    GX_API float *F##_fvals(const gx_constants *c);                                                \
    GX_API double *F##_dvals(const gx_constants *c);                                               \
    GX_API int *F##_ivals_set(gx_constants *c, int *ivals);                                        \
    GX_API float *F##_fvals_set(gx_constants *c, float *fvals);                                    \
    GX_API double *F##_dvals_set(gx_constants *c, double *dvals)

GX_DECLARE_CONSTANTS_FAMILY(gx_constants);
GX_DECLARE_CONSTANTS_FAMILY(gx_gtconstants);

/* The per-projected-CS constants record: an integer and a double array, owned. */
typedef struct gx_pcsconstants gx_pcsconstants;
GX_API gx_pcsconstants *gx_pcsconstants_new(void);
GX_API void gx_pcsconstants_del(gx_pcsconstants *rec);
GX_API int gx_pcsconstants_p(const gx_pcsconstants *rec);
GX_API int *gx_pcsconstants_ivals(const gx_pcsconstants *rec);
GX_API double *gx_pcsconstants_dvals(const gx_pcsconstants *rec);
GX_API int *gx_pcsconstants_ivals_set(gx_pcsconstants *rec, int *ivals);
GX_API double *gx_pcsconstants_dvals_set(gx_pcsconstants *rec, double *dvals);

/* The routines of a projection.
   - Forward and inverse: convert n points in place, geographic (longitude x, latitude y, in
     radians) to projected (easting x, northing y, in metres, without the false offsets) or
     back.  sphere is (a, e2); parms the 16 parameter slots in radians and metres; ivals and
     dvals the arrays of the constants container (null when there is none).  They return the
     number of points converted and set the coordinates of a point that fails to NaN.
   - Constants setup: computes the projection's constants for one projected CS into the
     container; returns the number of doubles stored, 0 on failure.
   - Horizons: the polygon of the valid area, in geographic coordinates (radians) or projected
     ones (metres), as x, y pairs.  A horizon routine writes at most max_points vertices into
     points and returns the number of vertices of the polygon (the ring is not closed: the first
     vertex is not repeated), 0 when it cannot tell. */
typedef int (*gx_prj_rtn)(const double sphere[2], const double parms[16], int n, double *coords,
                          const int *ivals, const double *dvals);
typedef int (*gx_pcsconst_rtn)(gx_constants *constants, const double sphere[2],
                               const double parms[16]);
typedef int (*gx_horizon_rtn)(const double sphere[2], const double parms[16], int max_points,
                              double *points);

/* The identity pair, used where a projection has no routine of its own; each returns n. */
GX_API int gx_prj_null_fwd(const double sphere[2], const double parms[16], int n, double *coords,
                           const int *ivals, const double *dvals);
GX_API int gx_prj_null_inv(const double sphere[2], const double parms[16], int n, double *coords,
                           const int *ivals, const double *dvals);

/* The geographic horizon of the normal cylindrical projections: the whole globe, 360 degrees
   of longitude around the central meridian (slot 2).  It is also the null horizon, given to a
   projection that has no horizon of its own. */
GX_API int gx_horizon_normal_cylindrical(const double sphere[2], const double parms[16],
                                         int max_points, double *points);
#define gx_horizon_null gx_horizon_normal_cylindrical

/* The projection object: a name and the routines of its registry row. */
GX_DECLARE_CODED_FAMILY(gx_projection);
/* A null forward or inverse routine takes every routine from the registry row of that name;
   a null horizon becomes gx_horizon_null.  The code is set from the registry by name. */
GX_API gx_projection *gx_projection_new(const char *name, gx_prj_rtn forward, gx_prj_rtn inverse,
                                        gx_horizon_rtn horizon);
GX_API gx_projection *gx_projection_new_errext(const char *name, gx_prj_rtn forward,
                                               gx_prj_rtn inverse, gx_horizon_rtn horizon,
                                               gx_err_rec *err);
GX_API gx_projection *gx_projection_new_extended(const char *name, gx_prj_rtn forward,
                                                 gx_prj_rtn inverse, gx_horizon_rtn horizon,
                                                 gx_horizon_rtn horizon_pcs,
                                                 gx_horizon_rtn horizon_gcs_raster,
                                                 gx_horizon_rtn horizon_pcs_raster,
                                                 gx_pcsconst_rtn pcsconstfunc);
GX_API gx_projection *gx_projection_new_extended_errext(
    const char *name, gx_prj_rtn forward, gx_prj_rtn inverse, gx_horizon_rtn horizon,
    gx_horizon_rtn horizon_pcs, gx_horizon_rtn horizon_gcs_raster,
    gx_horizon_rtn horizon_pcs_raster, gx_pcsconst_rtn pcsconstfunc, gx_err_rec *err);
/* Forward and inverse give the null pair, horizon gx_horizon_null, the others null, for an
   invalid object or an empty slot. */
GX_API gx_prj_rtn gx_projection_forward(const gx_projection *projection);
GX_API gx_prj_rtn gx_projection_inverse(const gx_projection *projection);
GX_API gx_horizon_rtn gx_projection_horizon(const gx_projection *projection);
GX_API gx_horizon_rtn gx_projection_horizon_pcs(const gx_projection *projection);
GX_API gx_horizon_rtn gx_projection_horizon_gcs_raster(const gx_projection *projection);
GX_API gx_horizon_rtn gx_projection_horizon_pcs_raster(const gx_projection *projection);
GX_API gx_pcsconst_rtn gx_projection_pcsconstfunc(const gx_projection *projection);

/* The projection registry: one row per projection the library knows (codes 43001 to 43147). */
typedef struct gx_projlist_entry {
    int code;
    const char *authority; /* "TAVU" */
    const char *version;   /* "9.3.0" */
    const char *name;      /* WKT name */
    gx_prj_rtn forward;    /* both null for a projection whose formulas the library lacks */
    gx_prj_rtn inverse;
    gx_horizon_rtn horizon;
    gx_horizon_rtn horizon_pcs;
    gx_horizon_rtn horizon_gcs_raster; /* or null */
    gx_horizon_rtn horizon_pcs_raster; /* or null */
    gx_pcsconst_rtn pcsconstfunc;      /* or null: everything is computed per call */
} gx_projlist_entry;

GX_API const gx_projlist_entry *gx_projlist_from_code(int code);
/* By name without case, after mapping old names (Lambert_Conformal_Conic_2SP ...). */
GX_API const gx_projlist_entry *gx_projlist_from_name(const char *name);
/* A projection object from a row: status GX_STATUS_CODE from a code, GX_STATUS_STRING from a
   name; err may be null. */
GX_API gx_projection *gx_projlist_projection_from_code(int code, gx_err_rec *err);
GX_API gx_projection *gx_projlist_projection_from_name(const char *name, gx_err_rec *err);
/* Sets code, authority and version from the row of the projection's own name (no old names);
   leaves the object alone when there is none. */
GX_API void gx_projlist_set_code(gx_projection *projection);

/* The parameter registry: one row per named parameter (codes 100001 and up).  The index is the
   slot the parameter takes in the 16-slot array of a projected CS, vertical CS or
   transformation; the usage mask holds the type bits of the objects that take it:
   GX_TYPE_PROJCS, GX_TYPE_VERTCS, GX_TYPE_GEOGTRAN (datum-shift methods) and GX_TYPE_VERTTRAN
   (height methods). */
typedef struct gx_parmlist_entry {
    int code;
    const char *authority; /* "TAVU" */
    const char *version;   /* "9.3.0" */
    const char *name;      /* WKT name */
    double default_value;
    int index;
    unsigned int usage;
} gx_parmlist_entry;

GX_API const gx_parmlist_entry *gx_parmlist_from_code(int code);
/* By name without case; a name that only begins with "Dataset_" is the dataset parameter. */
GX_API const gx_parmlist_entry *gx_parmlist_from_name(const char *name);
GX_API int gx_parmlist_index_from_code(int code);         /* -1 when unknown */
GX_API int gx_parmlist_index_from_name(const char *name); /* -1 when unknown */
/* A parameter object from a row: the row's name and default value with status GX_STATUS_CODE;
   the given value with status GX_STATUS_STRING; by name (kept as given) with the default value
   and status GX_STATUS_STRING.  err may be null. */
GX_API gx_parameter *gx_parmlist_parameter_from_code(int code, gx_err_rec *err);
GX_API gx_parameter *gx_parmlist_parameter_from_code_value(int code, double value, gx_err_rec *err);
GX_API gx_parameter *gx_parmlist_parameter_from_name(const char *name, gx_err_rec *err);
GX_API void gx_parmlist_set_code(gx_parameter *parameter);

/* Default parameter sets: clear the 16 slots, make the parameters the projection or method
   takes (registry defaults) in their slots and return how many were made (0 for an unknown
   projection or method). */
GX_API int gx_parameter_projection_defaults(const gx_projection *projection,
                                            gx_parameter *parms[16]);
GX_API int gx_parameter_method_defaults(const gx_method *method, gx_parameter *parms[16]);
GX_API int gx_parameter_vtmethod_defaults(const gx_vtmethod *vtmethod, gx_parameter *parms[16]);

/* ============================================================================================
 * Converting coordinates of a projected CS
 *
 * n points as 2n doubles (x then y), converted in place.  Geographic coordinates are longitude
 * and latitude in the angular unit of the CS's geographic system, counted from its own prime
 * meridian; projected ones easting and northing in the CS's linear unit, false offsets
 * included.  The result is the number of points converted; a point that fails has both
 * coordinates set to NaN.  When no point converts, the input is given back unchanged (a
 * latitude beyond a pole stays clamped to the pole).  A projection without routines (one whose
 * formulas the library lacks) converts nothing: 0, the points untouched.  The projection's
 * constants are computed on first use and cached in the CS; conversions then allocate nothing.
 * ========================================================================================== */

GX_API int gx_geog_to_proj(gx_projcs *projcs, int n, double *coords);
GX_API int gx_proj_to_geog(gx_projcs *projcs, int n, double *coords);
/* Longitudes come back within 180 degrees of center (in the angular unit); 0 leaves them as
   the projection gives them. */
GX_API int gx_proj_to_geog_center(gx_projcs *projcs, int n, double *coords, double center);
/* direction 1: geographic to projected; 0: projected to geographic; others convert nothing. */
GX_API int gx_proj_geog(gx_projcs *projcs, int n, double *coords, int direction);

GX_API int gx_projcs_load_constants(gx_projcs *projcs);
GX_API void gx_projcs_unload_constants(gx_projcs *projcs);
GX_API int gx_projcs_isconstloaded(const gx_projcs *projcs);
GX_API gx_constants *gx_projcs_constants(const gx_projcs *projcs);
/* A copy of the CS with its linear and/or angular unit replaced (null keeps a unit) and the
   parameters converted to match. */
GX_API gx_projcs *gx_projcs_clone_alterunits(const gx_projcs *projcs, const gx_unit *linear_unit,
                                             const gx_unit *angular_unit);

/* @@gridex-section:projections@@ */

/* ============================================================================================
 * Projection routines.  Every projection <stem> of the registry has three routines, of the
 * gx_prj_rtn and gx_pcsconst_rtn forms:
 *   gx_<stem>_fwd    n (longitude, latitude) pairs in radians -> (easting, northing) in metres
 *   gx_<stem>_inv    and back; both in place, without false easting and northing, returning the
 *                    number of points converted (a point that fails becomes NaN, uncounted)
 *   gx_<stem>_const  the projection's constants for one projected CS into the container;
 *                    returns the number of doubles stored, 0 when there are none
 * sphere is {a, e2} (e2 <= 2^-48 is a sphere); parms the 16 parameter slots.  Forward and
 * inverse take ivals and dvals from the container, or null to compute everything per call.
 * ========================================================================================== */

#define GX_DECLARE_PROJECTION_ROUTINES(stem)                                                       \
    GX_API int gx_##stem##_fwd(const double sphere[2], const double parms[16], int n,              \
                               double *coords, const int *ivals, const double *dvals);             \
    GX_API int gx_##stem##_inv(const double sphere[2], const double parms[16], int n,              \
                               double *coords, const int *ivals, const double *dvals);             \
    GX_API int gx_##stem##_const(gx_constants *constants, const double sphere[2],                  \
                                 const double parms[16])

/* Transverse Mercator: central meridian (slot 2), latitude of origin (6), scale factor (5).
   Gauss_Kruger and Transverse_Mercator share the eighth-order series (a millimetre within
   3-4 degrees of the central meridian); Transverse_Mercator_Complex is exact at any distance
   the projection can carry, by complex elliptic functions. */
GX_DECLARE_PROJECTION_ROUTINES(gauss_kruger);
GX_DECLARE_PROJECTION_ROUTINES(tm_complex);

/* Conics: central meridian (slot 2), standard parallels (3, 4), latitude of origin (6) and,
   for Lambert, the scale factor (5).  Symmetric parallels give the cylindrical limit (Mercator,
   cylindrical equal area, equidistant cylindrical); a Lambert cone with both parallels at one
   pole is the polar stereographic projection, with only one at a pole it is undefined (0). */
GX_DECLARE_PROJECTION_ROUTINES(lambert_conformal_conic);
GX_DECLARE_PROJECTION_ROUTINES(albers);
GX_DECLARE_PROJECTION_ROUTINES(equidistant_conic);

/* Cylindrical: central meridian (slot 2) and standard parallel of true scale (slot 3). */
GX_DECLARE_PROJECTION_ROUTINES(mercator);
GX_DECLARE_PROJECTION_ROUTINES(cylindrical_eqarea);

/* Azimuthal: center longitude and latitude (slots 10, 11) for the orthographic and gnomonic
   projections, which are spherical with radius a on any datum and fail points on the far side;
   central meridian, latitude of origin and scale factor (slots 2, 6, 5) for the stereographic
   projection, conformal on the ellipsoid. */
GX_DECLARE_PROJECTION_ROUTINES(orthographic);
GX_DECLARE_PROJECTION_ROUTINES(gnomonic);
GX_DECLARE_PROJECTION_ROUTINES(stereographic);

/* Auxiliary-sphere forms: the spherical projection on the sphere chosen by slot 12 (0 radius a,
   1 radius b, 2 authalic radius, 3 authalic radius and authalic latitude; others as 0). */
GX_DECLARE_PROJECTION_ROUTINES(mercator_auxs);
GX_DECLARE_PROJECTION_ROUTINES(orthographic_auxs);
GX_DECLARE_PROJECTION_ROUTINES(gnomonic_auxs);
GX_DECLARE_PROJECTION_ROUTINES(stereographic_auxs);

/* World and small-scale projections: central meridian (slot 2); Winkel I, II and Tripel also
   the standard parallel of their equirectangular part (slot 3), the loximuthal its central
   parallel (slot 6), Goode's homolosine and the cube the layout Option (slot 15), Fuller only
   the Option.  Sinusoidal and Behrmann are ellipsoidal; the others are drawn on the sphere of
   radius a (Miller and Van der Grinten I: the authalic radius) with the geodetic latitude, and
   their auxiliary-sphere forms choose another sphere.  Inverses fail points outside the map.
   Projections without a constants setup have no _const routine. */
#define GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(stem)                                              \
    GX_API int gx_##stem##_fwd(const double sphere[2], const double parms[16], int n,              \
                               double *coords, const int *ivals, const double *dvals);             \
    GX_API int gx_##stem##_inv(const double sphere[2], const double parms[16], int n,              \
                               double *coords, const int *ivals, const double *dvals)
GX_DECLARE_PROJECTION_ROUTINES(sinusoidal);
GX_DECLARE_PROJECTION_ROUTINES(mollweide);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(eckert_vi);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(eckert_v);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(eckert_iv);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(eckert_iii);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(eckert_ii);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(eckert_i);
GX_DECLARE_PROJECTION_ROUTINES(gall_stereographic);
GX_DECLARE_PROJECTION_ROUTINES(behrmann);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(miller_cylindrical);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(winkel_i);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(winkel_ii);
GX_DECLARE_PROJECTION_ROUTINES(winkel_tripel);
GX_DECLARE_PROJECTION_ROUTINES(robinson);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(robinson_ks);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(quartic_authalic);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(loximuthal);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(van_der_grinten_i);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(aitoff);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(hammer_aitoff);
GX_DECLARE_PROJECTION_ROUTINES(flat_polar_quartic);
GX_DECLARE_PROJECTION_ROUTINES(craster_parabolic);
GX_DECLARE_PROJECTION_ROUTINES(times);
GX_DECLARE_PROJECTION_ROUTINES(goode_homolosine);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(fuller);
GX_DECLARE_PER_CALL_PROJECTION_ROUTINES(cube);
GX_DECLARE_PROJECTION_ROUTINES(mollweide_auxs);
GX_DECLARE_PROJECTION_ROUTINES(eckert_vi_auxs);
GX_DECLARE_PROJECTION_ROUTINES(eckert_iv_auxs);
GX_DECLARE_PROJECTION_ROUTINES(miller_cylindrical_auxs);
GX_DECLARE_PROJECTION_ROUTINES(van_der_grinten_i_auxs);

/* @@gridex-section:geogtran@@ */

/* ============================================================================================
 * Datum-shift, plane-fit and height method routines.
 *
 * A datum-shift method routine (gx_mth_rtn) converts n (longitude, latitude) pairs in radians
 * about Greenwich, in place, from the first geographic system of a transformation to the second
 * (forward) or back (inverse).  ellipsoid1 and ellipsoid2 are {a, e2} of the first and of the
 * second system in both directions.  parms holds the 16 parameter slots in metres, radians and
 * plain ratios: 0-2 translations, 3-5 rotations, 6 scale difference, 7-9 rotation origin.
 * heights, when not null, holds n ellipsoidal heights in metres that are converted too; when
 * null every height is 0 and the new ones are discarded.  dataset and the three constant arrays
 * serve the grid methods; the formula methods ignore them.  The result is the number of points
 * converted.  A constants routine (gx_mth_const_rtn) fills a container for a dataset and
 * returns non-zero on success.
 *
 * A plane-fit routine (gx_htm_rtn) converts n (x, y) pairs in place with the coefficients in
 * parms; object is not read.
 *
 * A height method routine (gx_vtm_rtn) converts n heights in metres in place.  ellipsoid is
 * {a, e2} of the geographic system in which points (n (longitude, latitude) pairs, may be null
 * for methods that do not need them) are given, unit_factor its radians per angular unit and
 * prime_meridian its prime meridian in degrees; direction_product is -1 when exactly one of the
 * two vertical systems counts heights downwards, else +1.
 * ========================================================================================== */

typedef int (*gx_mth_rtn)(const double ellipsoid1[2], const double ellipsoid2[2],
                          const double parms[16], const char *dataset, int n, double *points,
                          double *heights, const int *ivals, const float *fvals,
                          const double *dvals);
typedef int (*gx_mth_const_rtn)(gx_constants *constants, const char *dataset);
typedef int (*gx_htm_rtn)(const void *object, const double *parms, int n, double *points);
typedef int (*gx_vtm_rtn)(const double ellipsoid[2], double unit_factor, double prime_meridian,
                          double direction_product, const double parms[16], const char *dataset,
                          const int *ivals, const float *fvals, const double *dvals, int n,
                          const double *points, double *heights);
typedef int (*gx_vtm_const_rtn)(gx_constants *constants, const char *dataset);

/* Identity routines: return n and leave everything as it is. */
GX_API int gx_mth_null_fwd(const double ellipsoid1[2], const double ellipsoid2[2],
                           const double parms[16], const char *dataset, int n, double *points,
                           double *heights, const int *ivals, const float *fvals,
                           const double *dvals);
GX_API int gx_htm_null_inv(const void *object, const double *parms, int n, double *points);

#define GX_DECLARE_MTH_ROUTINE(name)                                                               \
    GX_API int name(const double ellipsoid1[2], const double ellipsoid2[2],                        \
                    const double parms[16], const char *dataset, int n, double *points,            \
                    double *heights, const int *ivals, const float *fvals, const double *dvals)

/* Formula-based datum shifts; all return n.  Seven-parameter rotations are exact (not
   linearised) and so are their inverses.  The Molodensky inverses apply the forward formula once
   from the second ellipsoid with the translations negated. */
GX_DECLARE_MTH_ROUTINE(gx_geocentric_translation_fwd);
GX_DECLARE_MTH_ROUTINE(gx_geocentric_translation_inv);
GX_DECLARE_MTH_ROUTINE(gx_coordinate_frame_fwd);
GX_DECLARE_MTH_ROUTINE(gx_coordinate_frame_inv);
GX_DECLARE_MTH_ROUTINE(gx_bursa_wolf_fwd); /* the coordinate-frame routines */
GX_DECLARE_MTH_ROUTINE(gx_bursa_wolf_inv);
GX_DECLARE_MTH_ROUTINE(gx_position_vector_fwd);
GX_DECLARE_MTH_ROUTINE(gx_position_vector_inv);
GX_DECLARE_MTH_ROUTINE(gx_molodensky_badekas_fwd);
GX_DECLARE_MTH_ROUTINE(gx_molodensky_badekas_inv);
GX_DECLARE_MTH_ROUTINE(gx_molodensky_fwd);
GX_DECLARE_MTH_ROUTINE(gx_molodensky_inv);
GX_DECLARE_MTH_ROUTINE(gx_molodensky_abridged_fwd);
GX_DECLARE_MTH_ROUTINE(gx_molodensky_abridged_inv);
/* Longitude rotation by parms[5] radians (counter-clockwise seen from the north); both
   directions, the sign of parms[5] chooses the way. */
GX_DECLARE_MTH_ROUTINE(gx_longitude_rotation_ccw);

/* Plane fits.  Affine, parms A-F: x' = A x + B y + C, y' = D x + E y + F.  Projective, parms
   A-H: the same numerators divided by G x + H y + 1.  The inverses return 0 and leave the points
   when the fit is singular. */
GX_API int gx_affine_parametric_fwd(const void *object, const double *parms, int n, double *points);
GX_API int gx_affine_parametric_inv(const void *object, const double *parms, int n, double *points);
GX_API int gx_projective_parametric_fwd(const void *object, const double *parms, int n,
                                        double *points);
GX_API int gx_projective_parametric_inv(const void *object, const double *parms, int n,
                                        double *points);

#define GX_DECLARE_VTM_ROUTINE(name)                                                               \
    GX_API int name(const double ellipsoid[2], double unit_factor, double prime_meridian,          \
                    double direction_product, const double parms[16], const char *dataset,         \
                    const int *ivals, const float *fvals, const double *dvals, int n,              \
                    const double *points, double *heights)

/* Vertical offset: h' = d h + parms[0]; points may be null. */
GX_DECLARE_VTM_ROUTINE(gx_vtm_vertical_offset_fwd);
GX_DECLARE_VTM_ROUTINE(gx_vtm_vertical_offset_inv);
/* Vertical offset and slope: the offset parms[0] plus a plane inclined by parms[13] (towards
   the north) and parms[14] (towards the east), both in radians, about the origin (parms[2],
   parms[6]) in radians. */
GX_DECLARE_VTM_ROUTINE(gx_vtm_vertical_offset_slope_fwd);
GX_DECLARE_VTM_ROUTINE(gx_vtm_vertical_offset_slope_inv);

/* @@gridex-section:transformations@@ */

/* ============================================================================================
 * Transformation objects: methods, geographic and vertical transformations, adjusted systems
 *
 * Every constructor takes ownership of the sub-objects passed to it when it succeeds; on
 * failure the caller keeps them.  Accessors return the object's own sub-objects, not copies.
 * ========================================================================================== */

/* The three kinds of method: datum shifts (METHOD), plane fits of adjusted systems (HTMETHOD)
   and height methods (VTMETHOD).  A method is a name and the routines of its registry row; a
   null forward or inverse routine takes every routine from the registry row of that name (340
   when there is none), and the code, authority and version are set from the registry by name.
   Methods compare by name.  The routine accessors give null for an invalid object. */
GX_DECLARE_CODED_FAMILY(gx_method);
GX_API gx_method *gx_method_new(const char *name, gx_mth_rtn forward, gx_mth_rtn inverse);
GX_API gx_method *gx_method_new_errext(const char *name, gx_mth_rtn forward, gx_mth_rtn inverse,
                                       gx_err_rec *err);
GX_API gx_method *gx_method_new_extended(const char *name, gx_mth_rtn forward, gx_mth_rtn inverse,
                                         gx_mth_const_rtn constfunc, gx_err_rec *err);
GX_API gx_mth_rtn gx_method_forward(const gx_method *method);
GX_API gx_mth_rtn gx_method_inverse(const gx_method *method);
GX_API gx_mth_const_rtn gx_method_constfunc(const gx_method *method);

GX_DECLARE_CODED_FAMILY(gx_htmethod);
GX_API gx_htmethod *gx_htmethod_new(const char *name, gx_htm_rtn forward, gx_htm_rtn inverse);
GX_API gx_htmethod *gx_htmethod_new_errext(const char *name, gx_htm_rtn forward, gx_htm_rtn inverse,
                                           gx_err_rec *err);
GX_API gx_htm_rtn gx_htmethod_forward(const gx_htmethod *htmethod);
GX_API gx_htm_rtn gx_htmethod_inverse(const gx_htmethod *htmethod);

/* A height method may need the points' horizontal position in a particular kind of system:
   coordsys_type is that type (GX_TYPE_GEOGCS for the registry's grid and slope methods), 0 when
   any horizontal system, or none, will do. */
GX_DECLARE_CODED_FAMILY(gx_vtmethod);
GX_API gx_vtmethod *gx_vtmethod_new(const char *name, gx_vtm_rtn forward, gx_vtm_rtn inverse);
GX_API gx_vtmethod *gx_vtmethod_new_errext(const char *name, gx_vtm_rtn forward, gx_vtm_rtn inverse,
                                           gx_err_rec *err);
GX_API gx_vtmethod *gx_vtmethod_new_extended(const char *name, gx_vtm_rtn forward,
                                             gx_vtm_rtn inverse, gx_vtm_const_rtn constfunc,
                                             unsigned int coordsys_type, gx_err_rec *err);
GX_API gx_vtm_rtn gx_vtmethod_forward(const gx_vtmethod *vtmethod);
GX_API gx_vtm_rtn gx_vtmethod_inverse(const gx_vtmethod *vtmethod);
GX_API gx_vtm_const_rtn gx_vtmethod_constfunc(const gx_vtmethod *vtmethod);
GX_API unsigned int gx_vtmethod_coordsys_type(const gx_vtmethod *vtmethod);

/* Geographic transformation: from geogcs1 to geogcs2 by a method with 16 parameter slots (the
   slot of a parameter is its index in the parameter registry).  Grid methods keep what their
   constants routine loads (the grid named by the parameter in slot 15) in a container:
   load_constants unloads, calls the routine and returns its result (0 when the method has none);
   afterwards isconstloaded is 1 whatever the result, until unload_constants or deletion. */
GX_DECLARE_CODED_FAMILY(gx_geogtran);
GX_API gx_geogtran *gx_geogtran_new(const char *name, gx_geogcs *geogcs1, gx_geogcs *geogcs2,
                                    gx_method *method, gx_parameter *parameters[16]);
GX_API gx_geogtran *gx_geogtran_new_errext(const char *name, gx_geogcs *geogcs1, gx_geogcs *geogcs2,
                                           gx_method *method, gx_parameter *parameters[16],
                                           gx_err_rec *err);
GX_API gx_geogcs *gx_geogtran_geogcs1(const gx_geogtran *gt);
GX_API gx_geogcs *gx_geogtran_geogcs2(const gx_geogtran *gt);
GX_API gx_method *gx_geogtran_method(const gx_geogtran *gt);
GX_API gx_parameter **gx_geogtran_parameters(gx_geogtran *gt); /* the 16 slots, or null */
GX_API gx_constants *gx_geogtran_constants(const gx_geogtran *gt);
GX_API int gx_geogtran_isconstloaded(const gx_geogtran *gt);
GX_API int gx_geogtran_load_constants(gx_geogtran *gt);
GX_API void gx_geogtran_unload_constants(gx_geogtran *gt);

/* Vertical transformation: from vertcs1 to vertcs2 by a height method, with an optional
   horizontal system (geogcs or projcs) in which the points' positions are given.  Constants as
   for the geographic transformation, from the vtmethod's constants routine. */
GX_DECLARE_CODED_FAMILY(gx_verttran);
GX_API gx_verttran *gx_verttran_new(const char *name, gx_coordsys *coordsys, gx_vertcs *vertcs1,
                                    gx_vertcs *vertcs2, gx_vtmethod *vtmethod,
                                    gx_parameter *parameters[16]);
GX_API gx_verttran *gx_verttran_new_errext(const char *name, gx_coordsys *coordsys,
                                           gx_vertcs *vertcs1, gx_vertcs *vertcs2,
                                           gx_vtmethod *vtmethod, gx_parameter *parameters[16],
                                           gx_err_rec *err);
GX_API gx_coordsys *gx_verttran_coordsys(const gx_verttran *vt); /* null when none */
GX_API gx_vertcs *gx_verttran_vertcs1(const gx_verttran *vt);
GX_API gx_vertcs *gx_verttran_vertcs2(const gx_verttran *vt);
GX_API gx_vtmethod *gx_verttran_vtmethod(const gx_verttran *vt);
GX_API gx_parameter **gx_verttran_parameters(gx_verttran *vt); /* the 16 slots, or null */
GX_API gx_constants *gx_verttran_constants(const gx_verttran *vt);
GX_API int gx_verttran_isconstloaded(const gx_verttran *vt);
GX_API int gx_verttran_load_constants(gx_verttran *vt);
GX_API void gx_verttran_unload_constants(gx_verttran *vt);

/* Adjusted horizontal system: a coordsys whose plane coordinates are refitted by an htmethod
   with the coefficients of an array, in a unit.  No code and no authority; the text
   ADJHCS["name",<coordsys>,HTMETHOD[...],ARRAY[...],UNIT[...]] never carries one. */
GX_DECLARE_OBJECT_FAMILY(gx_adjhcs);
GX_API gx_adjhcs *gx_adjhcs_new(const char *name, gx_coordsys *coordsys, gx_htmethod *htmethod,
                                gx_array *array, gx_unit *unit);
GX_API gx_adjhcs *gx_adjhcs_new_errext(const char *name, gx_coordsys *coordsys,
                                       gx_htmethod *htmethod, gx_array *array, gx_unit *unit,
                                       gx_err_rec *err);
GX_API gx_coordsys *gx_adjhcs_coordsys(const gx_adjhcs *cs);
GX_API gx_htmethod *gx_adjhcs_htmethod(const gx_adjhcs *cs);
GX_API gx_array *gx_adjhcs_array(const gx_adjhcs *cs);
GX_API gx_unit *gx_adjhcs_unit(const gx_adjhcs *cs);

/* ============================================================================================
 * Method registries
 *
 * One row per method, in search order, ended by a row of code 0.  Lookups by name map old names
 * first and then compare without case ('-' counts as '_').  set_code stamps a method object with
 * the code, authority and version of the row of its own name (no old names) and leaves it alone
 * when there is none.  The factories make a method object from a row: status GX_STATUS_CODE
 * from a code, GX_STATUS_STRING from a name; err may be null.  Rows of the grid methods whose
 * routines are not available carry null routines: transformations through them convert nothing.
 * ========================================================================================== */

typedef struct gx_methlist_entry {
    int code;
    const char *authority;
    const char *version;
    const char *name;
    gx_mth_rtn forward;
    gx_mth_rtn inverse;
    gx_mth_const_rtn constfunc; /* null: the method reads no data */
} gx_methlist_entry;

GX_API const gx_methlist_entry *gx_methlist_from_code(int code);
GX_API const gx_methlist_entry *gx_methlist_from_name(const char *name);
GX_API void gx_methlist_set_code(gx_method *method);
GX_API gx_method *gx_methlist_method_from_code(int code, gx_err_rec *err);
GX_API gx_method *gx_methlist_method_from_name(const char *name, gx_err_rec *err);

typedef struct gx_htmethlist_entry {
    int code;
    const char *authority;
    const char *version;
    const char *name;
    gx_htm_rtn forward;
    gx_htm_rtn inverse;
} gx_htmethlist_entry;

GX_API const gx_htmethlist_entry *gx_htmethlist_from_code(int code);
GX_API const gx_htmethlist_entry *gx_htmethlist_from_name(const char *name);
GX_API void gx_htmethlist_set_code(gx_htmethod *htmethod);
GX_API gx_htmethod *gx_htmethlist_htmethod_from_code(int code, gx_err_rec *err);
GX_API gx_htmethod *gx_htmethlist_htmethod_from_name(const char *name, gx_err_rec *err);

typedef struct gx_vtmethlist_entry {
    int code;
    int horizontal; /* 1: the method needs the points' longitude and latitude */
    const char *authority;
    const char *version;
    const char *name;
    gx_vtm_rtn forward;
    gx_vtm_rtn inverse;
    gx_vtm_const_rtn constfunc; /* null: the method reads no data */
} gx_vtmethlist_entry;

GX_API const gx_vtmethlist_entry *gx_vtmethlist_from_code(int code);
GX_API const gx_vtmethlist_entry *gx_vtmethlist_from_name(const char *name);
GX_API void gx_vtmethlist_set_code(gx_vtmethod *vtmethod);
GX_API gx_vtmethod *gx_vtmethlist_vtmethod_from_code(int code, gx_err_rec *err);
GX_API gx_vtmethod *gx_vtmethlist_vtmethod_from_name(const char *name, gx_err_rec *err);

/* ============================================================================================
 * Transforming coordinates
 *
 * gx_geog_to_geog shifts n (longitude, latitude) pairs in place from the geogtran's first
 * system to its second (direction 0) or back (any other direction): points arrive in the
 * angular unit of the system converted from, about its prime meridian, and leave in those of
 * the system converted to.  heights (n ellipsoidal heights in metres, may be null) are shifted
 * too.  The result is the method's count; 0 with the points untouched when the method has no
 * routines, a longitude rotation joins two datums, or a grid cannot be loaded.
 *
 * gx_vert_to_vert converts n heights in place from the verttran's first vertical system to its
 * second (direction 0) or back (direction 1), each in its own unit and about its own vertical
 * shift; points (n (longitude, latitude) pairs in the verttran's geographic system) are read by
 * the methods that need them.  0 with the heights untouched on any refusal.
 * ========================================================================================== */

GX_API int gx_geog_to_geog(gx_geogtran *gt, int n, double *points, double *heights, int direction);
GX_API int gx_geog1_to_geog2(gx_geogtran *gt, int n, double *points, double *heights);
GX_API int gx_geog2_to_geog1(gx_geogtran *gt, int n, double *points, double *heights);

GX_API int gx_vert_to_vert(gx_verttran *vt, int n, const double *points, double *heights,
                           int direction);
GX_API int gx_vert1_to_vert2(gx_verttran *vt, int n, const double *points, double *heights);
GX_API int gx_vert2_to_vert1(gx_verttran *vt, int n, const double *points, double *heights);

/* A transformation list: steps run one after another on the same points -- a projected system
   (gx_proj_geog with the step's direction), a geogtran (gx_geog_to_geog) or a verttran
   (gx_vert_to_vert); a step passes the heights on only when its use_heights flag is set.  The
   list does not own the objects.  Adding anything else makes the list invalid for good; an
   invalid or empty list transforms nothing (0).  The chain stops at the first step that does
   not convert all n points, and the result is the last step's count. */
#define GX_TRANSLIST_TAG 0x2000000

typedef struct gx_translist gx_translist;
typedef struct gx_translist_entry {
    struct gx_translist_entry *next;
    void *object; /* a gx_projcs, gx_geogtran or gx_verttran */
    int direction;
    int use_heights;
} gx_translist_entry;

GX_API gx_translist *gx_translist_new(void);
GX_API void gx_translist_del(gx_translist *list);
GX_API int gx_translist_p(const gx_translist *list);
GX_API gx_translist_entry *gx_translist_entrylist(const gx_translist *list);
GX_API int gx_translist_is_valid(const gx_translist *list);
GX_API int gx_translist_validate(const gx_translist *list); /* 1: every chain is accepted */
GX_API int gx_translist_add_transformation(gx_translist *list, void *object, int direction,
                                           int use_heights); /* 0, or -1 refused */
GX_API int gx_translist_transform_coords(gx_translist *list, int n, double *points,
                                         double *heights);

/* @@gridex-section:math@@ (ellipsoid and complex mathematics) */

/* ============================================================================================
 * Ellipsoid and complex mathematics.  An ellipsoid is (a, e2): semi-major axis in
 * metres and squared first eccentricity; e2 < 2^-48 is a sphere.  Angles are in radians.
 * ========================================================================================== */

/* Radii, meridian arc and small functions. */
GX_API double gx_w(double e2, double phi);             /* sqrt(1 - e2 sin^2 phi) */
GX_API double gx_m(double a, double e2, double phi);   /* meridional radius of curvature */
GX_API double gx_n(double a, double e2, double phi);   /* prime-vertical radius of curvature */
GX_API double gx_auth_r(double a, double e2);          /* authalic radius */
GX_API double gx_rect_r(double a, double e2);          /* rectifying radius a E(e2) / (pi/2) */
GX_API double gx_q(double a, double e2, double phi);   /* meridian arc from the equator to phi */
GX_API double gx_q90(double a, double e2, double phi); /* quarter meridian (phi is not used) */
GX_API double gx_delta(double x);                      /* x reduced to [-pi, pi] */
GX_API double gx_delta_center(double x, double c);     /* c + gx_delta(x - c) */
GX_API int gx_eq(double x, double y);                  /* |x - y| <= ((|x| + |y|)/2 + 1) * 2^-48 */

/* Geodetic (phi, lambda, h) <-> geocentric cartesian (X, Y, Z). */
GX_API void gx_curv_to_cart(double a, double e2, double phi, double lam, double h, double *x,
                            double *y, double *z);
GX_API void gx_cart_to_curv(double a, double e2, double x, double y, double z, double *phi,
                            double *lam, double *h);

/* Auxiliary latitudes.  A constants block is filled once by the _constants function and read by
   the _wconst conversions.  flags: 0 computes every slot; GX_AUXLAT_FORWARD and/or
   GX_AUXLAT_INVERSE compute only that series half (below the series threshold) or only the
   closed-form slots (at or above it); slots not computed are left untouched. */
#define GX_AUXLAT_FORWARD 1
#define GX_AUXLAT_INVERSE 2
#define GX_CHI_BLOCK_LEN 16  /* conformal */
#define GX_BETA_BLOCK_LEN 18 /* authalic */
#define GX_MU_BLOCK_LEN 17   /* rectifying */
#define GX_SERIES_E2_THRESHOLD 0.006884661117170036

GX_API void gx_chi_conformal_constants(double e2, double *block, int flags);
GX_API void gx_beta_authalic_constants(double e2, double *block, int flags);
GX_API void gx_mu_rectifying_constants(double e2, double *block, int flags);
GX_API double gx_phi_to_chi_wconst(double e2, double phi, const double *block);
GX_API double gx_chi_to_phi_wconst(double e2, double chi, const double *block);
GX_API double gx_phi_to_beta_wconst(double e2, double phi, const double *block);
GX_API double gx_beta_to_phi_wconst(double e2, double beta, const double *block);
GX_API double gx_phi_to_mu_wconst(double e2, double phi, const double *block);
GX_API double gx_mu_to_phi_wconst(double e2, double mu, const double *block);
GX_API double gx_phi_to_chi(double e2, double phi);
GX_API double gx_chi_to_phi(double e2, double chi);
GX_API double gx_phi_to_beta(double e2, double phi);
GX_API double gx_beta_to_phi(double e2, double beta);
GX_API double gx_phi_to_mu(double e2, double phi);
GX_API double gx_mu_to_phi(double e2, double mu);
/* Isometric latitude eta = asinh(tan phi) - e atanh(e sin phi) (ln of the conic's 1/t) and
   its inverse; geocentric latitude phig = atan((1 - e2) tan phi) and its inverse. */
GX_API double gx_phi_to_eta(double e2, double phi);
GX_API double gx_eta_to_phi(double e2, double eta);
GX_API double gx_phi_to_phig(double e2, double phi);
GX_API double gx_phig_to_phi(double e2, double phig);

/* Brent's root finder: a root of f(x, context) on [0, pi/2]; f must change sign there. */
GX_API double gx_zeroin(void *context, double (*f)(double x, void *context));

/* Elliptic integrals and Jacobi elliptic functions of parameter m (= k^2). */
GX_API double gx_ellint_rf(double x, double y, double z); /* Carlson R_F */
GX_API double gx_ellint_rd(double x, double y, double z); /* Carlson R_D */
GX_API double gx_ellint1(double m);                       /* K(m) */
GX_API double gx_ellint2(double m);                       /* E(m) */
GX_API double gx_iellint2amp(double phi, double m);       /* E(phi | m) */
GX_API double gx_iellint2(double u, double m);            /* E(am(u | m) | m) */
GX_API double gx_sn(double u, double m);
GX_API double gx_cn(double u, double m);
GX_API double gx_dn(double u, double m);
GX_API void gx_sncndn(double u, double m, double *sn, double *cn, double *dn);

/* Complex arithmetic, split form: real and imaginary parts in, results through pointers.
   Branch cuts are those of C99 / std::complex (signed zeros choose the side). */
GX_API double gx_zabs(double ar, double ai);
GX_API double gx_zarg(double ar, double ai);
GX_API void gx_zmul(double ar, double ai, double br, double bi, double *cr, double *ci);
GX_API void gx_zdiv(double ar, double ai, double br, double bi, double *cr, double *ci);
GX_API void gx_zinv(double ar, double ai, double *cr, double *ci);
GX_API void gx_zexp(double ar, double ai, double *cr, double *ci);
GX_API void gx_zlog(double ar, double ai, double *cr, double *ci);
GX_API void gx_zsqrt(double ar, double ai, double *cr, double *ci);
GX_API void gx_zasin(double ar, double ai, double *cr, double *ci);
GX_API void gx_zatan(double ar, double ai, double *cr, double *ci);
GX_API void gx_ztanh(double ar, double ai, double *cr, double *ci);
GX_API void gx_zatanh(double ar, double ai, double *cr, double *ci);
/* Complex argument u + iv, real parameter 0 <= m <= 1. */
GX_API void gx_zsn(double ur, double ui, double m, double *cr, double *ci);
GX_API void gx_zcn(double ur, double ui, double m, double *cr, double *ci);
GX_API void gx_zdn(double ur, double ui, double m, double *cr, double *ci);
GX_API void gx_ziellint2(double ur, double ui, double m, double *cr, double *ci);

/* Complex arithmetic, record form. */
typedef struct gx_dcomp {
    double re;
    double im;
} gx_dcomp;

GX_API double gx_dcomp_abs(gx_dcomp z);
GX_API double gx_dcomp_arg(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_add(gx_dcomp a, gx_dcomp b);
GX_API gx_dcomp gx_dcomp_sub(gx_dcomp a, gx_dcomp b);
GX_API gx_dcomp gx_dcomp_mult(gx_dcomp a, gx_dcomp b);
GX_API gx_dcomp gx_dcomp_div(gx_dcomp a, gx_dcomp b);
GX_API gx_dcomp gx_dcomp_conjg(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_exp(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_inv(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_log(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_sqrt(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_sin(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_asin(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_cos(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_tan(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_atan(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_cosh(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_sinh(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_tanh(gx_dcomp z);
GX_API gx_dcomp gx_dcomp_atanh(gx_dcomp z);
/* Complex argument z, real parameter 0 <= m <= 1. */
GX_API gx_dcomp gx_dcomp_sn(gx_dcomp z, double m);
GX_API gx_dcomp gx_dcomp_cn(gx_dcomp z, double m);
GX_API gx_dcomp gx_dcomp_dn(gx_dcomp z, double m);
GX_API gx_dcomp gx_dcomp_iellint2(gx_dcomp z, double m);

/* @@gridex-section:objedithome@@ */

/* User definitions.  The directory named by GXOBJEDITHOME (or set here) may hold one text file
   per type -- geogcs, projcs, vertcs, datum, vdatum, geogtran, unit, primem, spheroid and
   verttran, each also found with ".txt" appended -- whose entries the factories use before the
   built-in definitions, stamped with status GX_STATUS_USER and authority "CUSTOM".  One entry
   a line in the syntax of the built-in data: type, code, name, then the type's fields.

   gx_objedithome_setdir reads the files when dir differs from the current directory and
   returns the OR of the types (units: 0x300) that have at least one entry; a null or empty
   dir drops the definitions; a dir of 246 characters or more is refused.  Either way the
   result is the current mask.  Lines that do not load are reported (category 2, level
   warning) to the message routine and skipped.  gx_objedithome_setfunc sets the directory
   that routine() names (null routine: none).  gx_objedithome_is_set is 1 once the directory
   has been set, by a call or by the first lookup. */
GX_API int gx_objedithome_setdir(const char *dir);
GX_API int gx_objedithome_setfunc(const char *(*routine)(void));
GX_API int gx_objedithome_is_set(void);

/* Sets the directory from GXOBJEDITHOME unless it is set already (then 1).  Returns the mask;
   or, when it is not 0 and register_exit is, the result of registering gx_factory_uninit to
   run at exit (0 on success).  The first argument is not used.  The first lookup of a user
   definition calls gx_factory_init(0, 1) by itself. */
GX_API int gx_factory_init(int unused, int register_exit);
/* Drops every user definition (the directory becomes ""; it stays set). */
GX_API void gx_factory_uninit(void);

/* @@gridex-section:factory@@ (definition tables, code lists and factory) */

/* Macro names of predefined objects (GX_GCS_WGS_1984 ...).  A table's rows are sorted by
   macro name, compared case-insensitively with '-' counted as '_'; a code may have several
   names (old ones kept as aliases). */
typedef struct gx_deftbl_entry {
    int code;
    const char *macro;
} gx_deftbl_entry;

typedef struct gx_deftbl {
    const gx_deftbl_entry *rows;
    int count;
} gx_deftbl;

GX_API extern const gx_deftbl gx_geogcs_deftbl;
GX_API extern const gx_deftbl gx_projcs_deftbl;
GX_API extern const gx_deftbl gx_vertcs_deftbl;
GX_API extern const gx_deftbl gx_hvcoordsys_deftbl;
GX_API extern const gx_deftbl gx_datum_deftbl;
GX_API extern const gx_deftbl gx_vdatum_deftbl;
GX_API extern const gx_deftbl gx_geogtran_deftbl;
GX_API extern const gx_deftbl gx_unit_deftbl; /* linear and angular units together */
GX_API extern const gx_deftbl gx_primem_deftbl;
GX_API extern const gx_deftbl gx_spheroid_deftbl;
GX_API extern const gx_deftbl gx_method_deftbl;
GX_API extern const gx_deftbl gx_htmethod_deftbl;
GX_API extern const gx_deftbl gx_projection_deftbl;
GX_API extern const gx_deftbl gx_parameter_deftbl;
GX_API extern const gx_deftbl gx_vtmethod_deftbl;
GX_API extern const gx_deftbl gx_verttran_deftbl;
GX_API extern const gx_deftbl gx_discontinued_deftbl; /* names of codes no longer built */

/* The code named by a macro name or a decimal number (leading white space skipped); 0 when
   unknown or null.  Text that starts with a digit is read as a number without checks. */
GX_API int gx_factory_defstring_to_int(const char *s);
/* The first macro name of a code (constant, not to be freed), or null. */
GX_API const char *gx_factory_int_to_defstring(int code);
/* The macro table of a type code (GX_TYPE_*), or null. */
GX_API const gx_deftbl *gx_factory_defstring_get_tbl(int type);

/* Code ranges: which codes belong to a type and which authority issued them ("EPSG" version
   "6.13", "TAVU" version "9.3.0", "CUSTOM" with an empty version for user definitions).
   Bounds are inclusive; no code below 1000 or above 210099 belongs to any type. */
typedef struct gx_coderange {
    int low;
    int high;
    const char *authority;
    const char *version;
} gx_coderange;

typedef struct gx_coderanges {
    int count;
    const gx_coderange *rows;
} gx_coderanges;

/* Range descriptor of a type code, null for an unknown type. */
GX_API const gx_coderanges *gx_factory_coderanges_tbl(int type);
/* 1 when code lies in one of the ranges, else 0 (also for null ranges). */
GX_API int gx_factory_coderanges_check(const gx_coderanges *ranges, int code);
GX_API int gx_factory_coderanges_check_type(int type, int code);
/* The type whose ranges hold the code (linear or angular unit rather than unit), or 0. */
GX_API int gx_factory_coderanges_type(int code);

/* Per object type: its code ranges; the authority and version of a code (outputs untouched
   when no range holds it); the sorted list of its predefined codes, 0-terminated, allocated
   (free with gx_factory_codelist_del; count may be null). */
#define GX_DECLARE_CODE_FAMILY(T)                                                                  \
    GX_API const gx_coderanges *gx_factory_coderanges_##T(void);                                   \
    GX_API void gx_factory_authority_##T(int code, const char **authority, const char **version);  \
    GX_API int *gx_factory_##T##_codelist(int *count)

GX_DECLARE_CODE_FAMILY(geogcs);
GX_DECLARE_CODE_FAMILY(projcs);
GX_DECLARE_CODE_FAMILY(vertcs);
GX_DECLARE_CODE_FAMILY(hvcoordsys);
GX_DECLARE_CODE_FAMILY(datum);
GX_DECLARE_CODE_FAMILY(vdatum);
GX_DECLARE_CODE_FAMILY(geogtran);
GX_DECLARE_CODE_FAMILY(verttran);
GX_DECLARE_CODE_FAMILY(angunit);
GX_DECLARE_CODE_FAMILY(linunit);
GX_DECLARE_CODE_FAMILY(unit);
GX_DECLARE_CODE_FAMILY(primem);
GX_DECLARE_CODE_FAMILY(spheroid);
GX_DECLARE_CODE_FAMILY(method);
GX_DECLARE_CODE_FAMILY(htmethod);
GX_DECLARE_CODE_FAMILY(vtmethod);
GX_DECLARE_CODE_FAMILY(projection);
GX_DECLARE_CODE_FAMILY(parameter);

GX_API int *gx_factory_angular_unit_codelist(int *count);
GX_API int *gx_factory_linear_unit_codelist(int *count);
GX_API int *gx_factory_object_codelist(int type, int *count);
GX_API void gx_factory_codelist_del(int *list);

/* 1 when code is in a 0-terminated list of codes, else 0. */
GX_API int gx_factory_discontinued_lookup(const int *list, int code);
/* The replacement of code in a list of {requested, replacement} pairs ended by a 0 request,
   or 0. */
GX_API int gx_factory_codechange_lookup(const int *pairs, int code);

/* One predefined object in a table of them; a table ends with code 0 and an empty name. */
typedef struct gx_table_entry {
    int code;
    char name[GX_NAME_LEN];
} gx_table_entry;

/* The predefined objects of a type (built from the current definitions or from user
   definitions; changed, discontinued and retired codes left out), sorted by name without case,
   blanks, '-' and '_'; allocated, free with gx_table_del.  Null with *count 0 when there are
   none.  Each builds every code of the type's ranges: for occasional use. */
GX_API gx_table_entry *gx_predefined_object(int type, int *count);
GX_API void gx_table_del(gx_table_entry *table);

#define GX_DECLARE_PREDEFINED(T) GX_API gx_table_entry *gx_predefined_##T(int *count)
GX_DECLARE_PREDEFINED(geogcs);
GX_DECLARE_PREDEFINED(projcs);
GX_DECLARE_PREDEFINED(vertcs);
GX_DECLARE_PREDEFINED(hvcoordsys);
GX_DECLARE_PREDEFINED(datum);
GX_DECLARE_PREDEFINED(vdatum);
GX_DECLARE_PREDEFINED(geogtran);
GX_DECLARE_PREDEFINED(verttran);
GX_DECLARE_PREDEFINED(angunit);
GX_DECLARE_PREDEFINED(linunit);
GX_DECLARE_PREDEFINED(unit);
GX_DECLARE_PREDEFINED(primem);
GX_DECLARE_PREDEFINED(spheroid);
GX_DECLARE_PREDEFINED(method);
GX_DECLARE_PREDEFINED(htmethod);
GX_DECLARE_PREDEFINED(vtmethod);
GX_DECLARE_PREDEFINED(projection);
GX_DECLARE_PREDEFINED(parameter);
GX_DECLARE_PREDEFINED(angular_unit);
GX_DECLARE_PREDEFINED(linear_unit);

/* The code of an object.  One that carries none (-1) is looked for by building every code of
   its type's ranges and comparing; the code found (0 if none) is stored on the object with its
   authority and version.  For occasional use. */
GX_API int gx_factory_code(void *object);

/* ---- the factory ---------------------------------------------------------------------------
 * A new object from its code, owned by the caller; null with the error in err when the code
 * builds nothing (the plain form passes no record).  A type factory tries, in this order, the
 * user definitions (status GX_STATUS_USER, authority "CUSTOM"), the built-in definitions
 * (GX_STATUS_CODE, or GX_STATUS_DISCONTINUED for a code no longer recommended), the replacement
 * of a changed code (GX_STATUS_CODECHANGE, stamped with the replacement code) and the retired
 * definitions (GX_STATUS_DEAD).  Components are built through their own factories, so they
 * carry their own codes, and a component's error is the one reported. */
#define GX_DECLARE_FACTORY(T, R)                                                                   \
    GX_API R *gx_factory_##T(int code);                                                            \
    GX_API R *gx_factory_##T##_errext(int code, gx_err_rec *err)

GX_DECLARE_FACTORY(datum, gx_datum);
GX_DECLARE_FACTORY(geogcs, gx_geogcs);
GX_DECLARE_FACTORY(geogtran, gx_geogtran);
GX_DECLARE_FACTORY(hvcoordsys, gx_hvcoordsys); /* the database holds none */
GX_DECLARE_FACTORY(primem, gx_primem);
GX_DECLARE_FACTORY(projcs, gx_projcs);
GX_DECLARE_FACTORY(spheroid, gx_spheroid);
GX_DECLARE_FACTORY(unit, gx_unit); /* linear or angular */
GX_DECLARE_FACTORY(vdatum, gx_vdatum);
GX_DECLARE_FACTORY(vertcs, gx_vertcs);
GX_DECLARE_FACTORY(verttran, gx_verttran);

/* The registries' objects, unchanged. */
GX_DECLARE_FACTORY(method, gx_method);
GX_DECLARE_FACTORY(htmethod, gx_htmethod);
GX_DECLARE_FACTORY(vtmethod, gx_vtmethod);
GX_DECLARE_FACTORY(projection, gx_projection);
GX_DECLARE_FACTORY(parameter, gx_parameter);

/* Factories that accept codes of some types only: a geogcs or projcs; a datum or vdatum; an
   angular unit; a linear unit (a unit of the other kind: 224 "Wrong unit type"). */
GX_DECLARE_FACTORY(coordsys, gx_coordsys);
GX_DECLARE_FACTORY(hvdatum, gx_hvdatum);
GX_DECLARE_FACTORY(angunit, gx_unit);
GX_DECLARE_FACTORY(linunit, gx_unit);

/* Any object: the type from the code's range (201 when none holds it), or given (223 for a
   type without a factory; the type's factory judges the code). */
GX_API void *gx_factory(int code);
GX_API void *gx_factory_errext(int code, gx_err_rec *err);
GX_API void *gx_factory_by_type(int type, int code);
GX_API void *gx_factory_by_type_errext(int type, int code, gx_err_rec *err);

/* An object's type code, a unit's told as linear or angular by its code (gx_factory_code);
   0 for anything that is not an object. */
GX_API int gx_factory_type(void *object);

#ifdef __cplusplus
}
#endif

#endif /* GRIDEX_H */
