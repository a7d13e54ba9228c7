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

#define GX_TYPE_NONE       0x000000u
#define GX_TYPE_GEOGCS     0x000001u
#define GX_TYPE_PROJCS     0x000002u
#define GX_TYPE_GEOXYZCS   0x000004u
#define GX_TYPE_VERTCS     0x000008u
#define GX_TYPE_HVCOORDSYS 0x000010u
#define GX_TYPE_DATUM      0x000020u
#define GX_TYPE_VDATUM     0x000040u
#define GX_TYPE_GEOGTRAN   0x000080u
#define GX_TYPE_LINUNIT    0x000100u
#define GX_TYPE_ANGUNIT    0x000200u
#define GX_TYPE_UNIT       0x000300u
#define GX_TYPE_PRIMEM     0x000400u
#define GX_TYPE_SPHEROID   0x000800u
#define GX_TYPE_METHOD     0x001000u
#define GX_TYPE_HTMETHOD   0x002000u
#define GX_TYPE_PROJECTION 0x004000u
#define GX_TYPE_PARAMETER  0x008000u
#define GX_TYPE_AUTHORITY  0x010000u
#define GX_TYPE_ADJHCS     0x020000u
#define GX_TYPE_ARRAY      0x040000u
#define GX_TYPE_VERTTRAN   0x080000u
#define GX_TYPE_VTMETHOD   0x100000u

#define GX_STATUS_NEW          1
#define GX_STATUS_STRING       2
#define GX_STATUS_CODE         4
#define GX_STATUS_USER         8
#define GX_STATUS_CODECHANGE   16
#define GX_STATUS_DISCONTINUED 32
#define GX_STATUS_DEAD         64

#define GX_NAME_LEN      64
#define GX_AUTHNAME_LEN  64
#define GX_VERSION_LEN   16
#define GX_TEXT_LEN      1024 /* every WKT text buffer, including the NUL */

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

#define GX_ERRLVL_ERROR   2u
#define GX_ERRLVL_WARNING 4u

#define GX_ERRCAT_MEMORY   1u
#define GX_ERRCAT_OBJEDIT  2u
#define GX_ERRCAT_FACTORY  4u
#define GX_ERRCAT_ARGUMENT 8u
#define GX_ERRCAT_WKT      16u

#define GX_ERR_FUNCTION_LEN 256
#define GX_ERR_MESSAGE_LEN  1280

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
                       unsigned int number, const char *function, const char *format,
                       va_list args);
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

#define GX_MAX_TOKENS   256
#define GX_TOKEN_MSG_LEN 128

typedef struct gx_token {
    char *text; /* NUL-terminated, inside gx_token_list.text */
    int level;  /* bracket depth: the outermost keyword is 0 */
} gx_token;

typedef struct gx_token_list {
    char text[GX_TEXT_LEN];           /* normalized copy of the WKT */
    gx_token tokens[GX_MAX_TOKENS];
    int count;
    unsigned int error_level;         /* 0, GX_ERRLVL_ERROR or GX_ERRLVL_WARNING */
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
#define GX_DECLARE_OBJECT_FAMILY(T)                                                           \
    GX_API T *T##_from_string(const char *text);                                               \
    GX_API T *T##_from_string_errext(const char *text, gx_err_rec *err);                       \
    GX_API T *T##_clone(const T *obj);                                                         \
    GX_API void T##_del(T *obj);                                                               \
    GX_API int T##_p(const void *obj);                                                         \
    GX_API int T##_eq(const T *a, const T *b);                                                 \
    GX_API char *T##_name(const T *obj, char *buf);                                            \
    GX_API char *T##_to_string(const T *obj, char *buf);                                       \
    GX_API char *T##_to_string_ext(const T *obj, int options, char *buf);                      \
    GX_API unsigned int T##_type(const T *obj);                                                \
    GX_API unsigned int T##_status(const T *obj);                                              \
    GX_API void T##_status_set(T *obj, unsigned int status)

/* Types that carry a code and an authority object. */
#define GX_DECLARE_CODED_FAMILY(T)                                                            \
    GX_DECLARE_OBJECT_FAMILY(T);                                                              \
    GX_API int T##_code(const T *obj);                                                         \
    GX_API gx_authority *T##_authority(T *obj);                                                \
    GX_API void T##_authority_set(T *obj, gx_authority *auth);                                 \
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

/* @@gridex-section:objects@@ (geodetic and coordinate-system objects) */

/* Prime meridian: longitude east of Greenwich in degrees, -180 to 180. */
GX_DECLARE_CODED_FAMILY(gx_primem);
GX_API gx_primem *gx_primem_new(const char *name, double longitude);
GX_API gx_primem *gx_primem_new_errext(const char *name, double longitude, gx_err_rec *err);
GX_API double gx_primem_longitude(const gx_primem *pm); /* 0 for an invalid object */

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

/* @@gridex-section:math@@ (ellipsoid and complex mathematics) */

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
#define GX_DECLARE_CODE_FAMILY(T)                                                             \
    GX_API const gx_coderanges *gx_factory_coderanges_##T(void);                               \
    GX_API void gx_factory_authority_##T(int code, const char **authority,                     \
                                         const char **version);                                \
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

#ifdef __cplusplus
}
#endif

#endif /* GRIDEX_H */
