// gx_core.h -- internal: object records, the per-type descriptor and the helpers shared by every
// object type.
//
// Every object is a heap record that begins with gx_object_header.  Most types follow the header
// with an owned pointer to an authority object; the type's own fields come after that.  What a
// type does differently from the others (its fields, how they are freed, cloned, compared and
// written, and its WKT grammar) is described by one gx_type_desc; everything else -- the family
// of gx_<type>_* operations, error records, the WKT walk and writer -- is written once here and
// in gx_object.cpp, gx_wkt.cpp and gx_error.cpp.
#ifndef GX_CORE_H
#define GX_CORE_H

#include "gridex.h"
#include "util/gx_tolerance.h"

#include <cstddef>

// ---- records ------------------------------------------------------------------------------------

struct gx_authority {
    gx_object_header header; // the name field holds the authority name ("EPSG")
    int authcode;            // code within the authority, at least 1
    char authversion[GX_VERSION_LEN];
};

// The common beginning of every type that carries an authority object.
struct gx_coded_object {
    gx_object_header header;
    gx_authority *auth; // owned, may be null
};

struct gx_unit {
    gx_object_header header;
    gx_authority *auth;
    double factor; // metres (linear) or radians (angular) per unit
};

namespace gx {

struct wkt_grammar;
struct text_buf;

// ---- the per-type descriptor --------------------------------------------------------------------

// How a type ends its WKT text after its own body.
enum class wkt_close {
    authority_and_bracket, // ",AUTHORITY[...]" when asked for, then "]"
    bracket_only,          // "]" alone: the type never writes an AUTHORITY clause
    none                   // the body writes its own closing bracket
};

struct type_desc {
    unsigned int type;  // the type code objects of this type carry (units: 0x300)
    const char *name;   // "unit": the <type> of gx_<type>_*
    std::size_t size;   // bytes of the record
    bool has_authority; // the record is a gx_coded_object
    wkt_close close;

    // Releases what the record owns besides its authority object (sub-objects, arrays).
    void (*free_parts)(gx_object_header *obj);
    // Builds a deep copy of the type's own parts and fields through the type's constructor;
    // null when memory runs out (nothing leaked).  The common fields are copied by the caller.
    gx_object_header *(*clone)(const gx_object_header *obj);
    // The type's comparison rule (names included); both arguments are valid objects.
    bool (*equal)(const gx_object_header *a, const gx_object_header *b);
    // Writes the type's WKT body (keyword, name, values, sub-objects) without the closing
    // bracket; sub-objects are written with sub_options.
    void (*write)(const gx_object_header *obj, int sub_options, text_buf &out);
    // The grammar of the type's WKT.
    const wkt_grammar *grammar;
    // A type whose text may take a form other than its grammar's (a compound system written as
    // its two parts one after the other) reads it here; null: the grammar's walk from the type's
    // keyword.
    gx_object_header *(*from_string)(const char *text, gx_err_rec *err) = nullptr;
};

// ---- records and validity -----------------------------------------------------------------------

inline const gx_object_header *header_of(const void *obj)
{
    return static_cast<const gx_object_header *>(obj);
}
inline gx_object_header *header_of(void *obj) { return static_cast<gx_object_header *>(obj); }

inline bool is_object(const void *obj)
{
    return obj != nullptr && header_of(obj)->signature == GX_OBJECT_SIGNATURE;
}
inline bool is_type(const void *obj, unsigned int mask)
{
    return is_object(obj) && (header_of(obj)->type & mask) != 0;
}
template <class T> inline T *as(void *obj) { return static_cast<T *>(obj); }
template <class T> inline const T *as(const void *obj) { return static_cast<const T *>(obj); }

// Allocates a zeroed record of the type and fills its header (signature, type, status 1, code -1,
// name).  On failure reports "No memory" under `function` into err and returns null.
gx_object_header *new_record(const type_desc &desc, const char *name, const char *function,
                             gx_err_rec *err);

// Releases a record built by new_record and all it owns (the type's del).
void delete_record(const type_desc &desc, void *obj);

// ---- owned arrays -------------------------------------------------------------------------------

// The setter of an owned array in a constants record: releases the array held in `slot` (unless
// it is the same) and takes `array` in its place.  Returns `array`.
template <class Record, class T> T *replace_array(Record *rec, T *Record::*slot, T *array)
{
    if (rec->*slot != array)
        gx_deallocate_rtn(rec->*slot);
    rec->*slot = array;
    return array;
}

// ---- error records ------------------------------------------------------------------------------

// The record an _errext operation works with: the caller's, or one local to the call.  Cleared on
// construction.
class err_scope {
public:
    explicit err_scope(gx_err_rec *caller);
    gx_err_rec *rec() { return rec_; }
    bool caller_has_record() const { return caller_; }

private:
    gx_err_rec local_;
    gx_err_rec *rec_;
    bool caller_;
};

// Reports an error through `rec`, which must not be null.
void report(gx_err_rec *rec, unsigned int level, unsigned int category, unsigned int number,
            const char *function, const char *format, ...) GX_PRINTF(6, 7);
inline void report_no_memory(gx_err_rec *rec, const char *function)
{
    gx_err_str(rec, GX_ERRLVL_ERROR, GX_ERRCAT_MEMORY, 1, function, "No memory");
}

// A number as the library writes it in texts and messages (16 digits).
struct number_text {
    char text[64];
    explicit number_text(double value) { gx_dtoa(value, text, 16); }
};

// ---- bounded text -------------------------------------------------------------------------------

// A WKT output buffer of GX_TEXT_LEN bytes: formatting is cut as gx_snprintf cuts, so the text
// never exceeds GX_TEXT_LEN - 2 characters and a closing bracket always fits.
struct text_buf {
    char *text;
    int length;
    explicit text_buf(char *buf) : text(buf), length(0) { buf[0] = '\0'; }
    void printf(const char *format, ...) GX_PRINTF(2, 3);
    // Appends `piece` only when the result stays below `limit` characters.
    bool append_if_below(const char *piece, int limit);
};

// Writes `obj` with its type's to_string_ext into a fresh GX_TEXT_LEN buffer.
struct sub_text {
    char text[GX_TEXT_LEN];
    sub_text(const void *obj, int options);
};

// ---- the generic family -------------------------------------------------------------------------

void *object_clone(const type_desc &desc, const void *obj);
void object_del(const type_desc &desc, void *obj);
int object_eq(const type_desc &desc, const void *a, const void *b);
char *object_name(const void *obj, char *buf);
char *object_to_string_ext(const type_desc &desc, const void *obj, int options, char *buf);
gx_authority *object_authority(const type_desc &desc, void *obj);
void object_authority_set(const type_desc &desc, void *obj, gx_authority *auth);
void object_code_set(void *obj, int code, const char *authname, const char *version);
void *object_from_string(const type_desc &desc, const char *text, gx_err_rec *err);

// The function name a type reports from: "gx_<type>_<operation>".
struct function_name {
    char text[64];
    function_name(const type_desc &desc, const char *operation);
};

} // namespace gx

// Defines the exported family of a type T (gx_unit, ...) over its descriptor and the type's row
// of the operation-vector table, named T##_vector.  A type without a code adds nothing more; a
// coded type also uses GX_DEFINE_CODED_FAMILY.
#define GX_DEFINE_OBJECT_FAMILY(T, DESC)                                                           \
    T *T##_from_string(const char *text) { return T##_from_string_errext(text, nullptr); }         \
    T *T##_from_string_errext(const char *text, gx_err_rec *err)                                   \
    {                                                                                              \
        return static_cast<T *>(gx::object_from_string(DESC, text, err));                          \
    }                                                                                              \
    T *T##_clone(const T *obj) { return static_cast<T *>(gx::object_clone(DESC, obj)); }           \
    void T##_del(T *obj) { gx::object_del(DESC, obj); }                                            \
    int T##_p(const void *obj) { return gx::is_type(obj, (DESC).type) ? 1 : 0; }                   \
    int T##_eq(const T *a, const T *b) { return gx::object_eq(DESC, a, b); }                       \
    char *T##_name(const T *obj, char *buf)                                                        \
    {                                                                                              \
        return T##_p(obj) ? gx::object_name(obj, buf) : gx::object_name(nullptr, buf);             \
    }                                                                                              \
    char *T##_to_string(const T *obj, char *buf) { return T##_to_string_ext(obj, 0, buf); }        \
    char *T##_to_string_ext(const T *obj, int options, char *buf)                                  \
    {                                                                                              \
        return gx::object_to_string_ext(DESC, obj, options, buf);                                  \
    }                                                                                              \
    unsigned int T##_type(const T *obj) { return T##_p(obj) ? gx::header_of(obj)->type : 0u; }     \
    unsigned int T##_status(const T *obj) { return T##_p(obj) ? gx::header_of(obj)->status : 0u; } \
    void T##_status_set(T *obj, unsigned int status)                                               \
    {                                                                                              \
        if (T##_p(obj))                                                                            \
            gx::header_of(obj)->status = status;                                                   \
    }                                                                                              \
    namespace {                                                                                    \
    void *T##_vec_from_string(const char *t) { return T##_from_string(t); }                        \
    void *T##_vec_from_string_errext(const char *t, gx_err_rec *e)                                 \
    {                                                                                              \
        return T##_from_string_errext(t, e);                                                       \
    }                                                                                              \
    void *T##_vec_clone(const void *o) { return T##_clone(static_cast<const T *>(o)); }            \
    void T##_vec_del(void *o) { T##_del(static_cast<T *>(o)); }                                    \
    int T##_vec_eq(const void *a, const void *b)                                                   \
    {                                                                                              \
        return T##_eq(static_cast<const T *>(a), static_cast<const T *>(b));                       \
    }                                                                                              \
    char *T##_vec_name(const void *o, char *b) { return T##_name(static_cast<const T *>(o), b); }  \
    char *T##_vec_to_string(const void *o, char *b)                                                \
    {                                                                                              \
        return T##_to_string(static_cast<const T *>(o), b);                                        \
    }                                                                                              \
    char *T##_vec_to_string_ext(const void *o, int opt, char *b)                                   \
    {                                                                                              \
        return T##_to_string_ext(static_cast<const T *>(o), opt, b);                               \
    }                                                                                              \
    unsigned int T##_vec_type(const void *o) { return T##_type(static_cast<const T *>(o)); }       \
    unsigned int T##_vec_status(const void *o) { return T##_status(static_cast<const T *>(o)); }   \
    void T##_vec_status_set(void *o, unsigned int s) { T##_status_set(static_cast<T *>(o), s); }   \
    }

#define GX_DEFINE_CODED_FAMILY(T, DESC)                                                            \
    GX_DEFINE_OBJECT_FAMILY(T, DESC)                                                               \
    int T##_code(const T *obj) { return T##_p(obj) ? gx::header_of(obj)->code : -1; }              \
    gx_authority *T##_authority(T *obj) { return gx::object_authority(DESC, obj); }                \
    void T##_authority_set(T *obj, gx_authority *auth)                                             \
    {                                                                                              \
        gx::object_authority_set(DESC, obj, auth);                                                 \
    }                                                                                              \
    void T##_code_set(T *obj, int code, const char *authname, const char *version)                 \
    {                                                                                              \
        if (T##_p(obj))                                                                            \
            gx::object_code_set(obj, code, authname, version);                                     \
    }                                                                                              \
    namespace {                                                                                    \
    int T##_vec_code(const void *o) { return T##_code(static_cast<const T *>(o)); }                \
    gx_authority *T##_vec_authority(void *o) { return T##_authority(static_cast<T *>(o)); }        \
    void T##_vec_authority_set(void *o, gx_authority *a)                                           \
    {                                                                                              \
        T##_authority_set(static_cast<T *>(o), a);                                                 \
    }                                                                                              \
    void T##_vec_code_set(void *o, int c, const char *n, const char *v)                            \
    {                                                                                              \
        T##_code_set(static_cast<T *>(o), c, n, v);                                                \
    }                                                                                              \
    }                                                                                              \
    extern const gx_object_vec T##_vector;                                                         \
    const gx_object_vec T##_vector = {(DESC).type,                                                 \
                                      T##_vec_from_string,                                         \
                                      T##_vec_from_string_errext,                                  \
                                      T##_vec_clone,                                               \
                                      T##_vec_del,                                                 \
                                      T##_p,                                                       \
                                      T##_vec_eq,                                                  \
                                      T##_vec_name,                                                \
                                      T##_vec_to_string,                                           \
                                      T##_vec_to_string_ext,                                       \
                                      T##_vec_type,                                                \
                                      T##_vec_status,                                              \
                                      T##_vec_code,                                                \
                                      T##_vec_authority,                                           \
                                      T##_vec_authority_set,                                       \
                                      T##_vec_status_set,                                          \
                                      T##_vec_code_set};

// The vector row of a type without code or authority operations.
#define GX_DEFINE_UNCODED_VECTOR(T, DESC)                                                          \
    extern const gx_object_vec T##_vector;                                                         \
    const gx_object_vec T##_vector = {(DESC).type,                                                 \
                                      T##_vec_from_string,                                         \
                                      T##_vec_from_string_errext,                                  \
                                      T##_vec_clone,                                               \
                                      T##_vec_del,                                                 \
                                      T##_p,                                                       \
                                      T##_vec_eq,                                                  \
                                      T##_vec_name,                                                \
                                      T##_vec_to_string,                                           \
                                      T##_vec_to_string_ext,                                       \
                                      T##_vec_type,                                                \
                                      T##_vec_status,                                              \
                                      nullptr,                                                     \
                                      nullptr,                                                     \
                                      nullptr,                                                     \
                                      T##_vec_status_set,                                          \
                                      nullptr};

#endif // GX_CORE_H
