// gx_coordsys.h -- internal: records and parsers of the coordinate-system types (geogcs,
// projcs, geoxyzcs, vdatum, vertcs, hvcoordsys), the coordsys and hvdatum unions, and the
// mechanisms these types share: argument checks of sub-objects, copies of sub-objects that are
// all made or none, and the 16 parameter slots.
#ifndef GX_COORDSYS_H
#define GX_COORDSYS_H

#include "object/gx_components.h"

#include <initializer_list>

// ---- records ------------------------------------------------------------------------------------

// Longitude and latitude on a datum, counted from a prime meridian, in an angular unit.
struct gx_geogcs {
    gx_object_header header;
    gx_authority *auth;
    gx_datum *datum;   // owned
    gx_primem *primem; // owned
    gx_unit *unit;     // owned, angular
};

// Easting and northing: a geographic system mapped to the plane by a projection whose
// parameters sit in the slots the parameter registry gives them.
struct gx_projcs {
    gx_object_header header;
    gx_authority *auth;
    gx_geogcs *geogcs;                             // owned
    gx_projection *projection;                     // owned
    gx_parameter *parameters[gx::parameter_slots]; // owned, null = absent
    gx_unit *unit;                                 // owned, linear
    gx_constants *constants; // the projection's precomputed constants, made and owned by the
                             // conversion driver; null until loaded
};

// Earth-centred cartesian X, Y, Z on the datum of a geographic system.
struct gx_geoxyzcs {
    gx_object_header header;
    gx_authority *auth;
    gx_geogcs *geogcs; // owned
    gx_unit *unit;     // owned
};

// A vertical datum is only a name.
struct gx_vdatum {
    gx_object_header header;
    gx_authority *auth;
};

// Heights above a datum (horizontal or vertical), with the shift and direction parameters.
struct gx_vertcs {
    gx_object_header header;
    gx_authority *auth;
    gx_hvdatum *hvdatum;                           // owned: a datum or a vdatum
    gx_parameter *parameters[gx::parameter_slots]; // owned, null = absent
    gx_unit *unit;                                 // owned, linear
};

// A horizontal system and a vertical one together; either part may be absent.
struct gx_hvcoordsys {
    gx_object_header header;
    gx_authority *auth;
    gx_coordsys *coordsys; // owned: a geogcs or a projcs, or null
    gx_vertcs *vertcs;     // owned, or null
};

namespace gx {

extern const type_desc geogcs_desc;
extern const type_desc projcs_desc;
extern const type_desc geoxyzcs_desc;
extern const type_desc vdatum_desc;
extern const type_desc vertcs_desc;
extern const type_desc hvcoordsys_desc;

// The parsers, for the types whose text holds these objects.
gx_object_header *geogcs_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err);
gx_object_header *projcs_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err);
gx_object_header *geoxyzcs_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err);
gx_object_header *vdatum_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err);
gx_object_header *vertcs_from_tokens(const gx_token_list *list, int start, int *next,
                                     gx_err_rec *err);
gx_object_header *hvcoordsys_from_tokens(const gx_token_list *list, int start, int *next,
                                         gx_err_rec *err);
// A GEOGCS or a PROJCS, by the keyword at `start`.
gx_object_header *coordsys_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err);
// A DATUM or a VDATUM, by the keyword at `start`.
gx_object_header *hvdatum_from_tokens(const gx_token_list *list, int start, int *next,
                                      gx_err_rec *err);

constexpr unsigned int coordsys_types = GX_TYPE_GEOGCS | GX_TYPE_PROJCS;
constexpr unsigned int hvdatum_types = GX_TYPE_DATUM | GX_TYPE_VDATUM;

// ---- constructor checks -------------------------------------------------------------------------

// One sub-object argument of a constructor: it must be a live object of one of `types`, else
// `number` and `message` are reported (level 2, category 8).
struct part_check {
    const void *part;
    unsigned int types;
    unsigned int number;
    const char *message;
};

// Reports the first part that fails its check and returns false; true when all pass.
bool check_parts(gx_err_rec *rec, const char *function, std::initializer_list<part_check> checks);

// ---- copies of sub-objects ----------------------------------------------------------------------

// A clone of a sub-object that is deleted again unless the new object takes it over: clone
// builds every part this way, then the object, and releases the parts only when that worked.
class part_copy {
public:
    explicit part_copy(const void *source) : copy_(gx_object_clone(source)), wanted_(source) {}
    part_copy(const part_copy &) = delete;
    part_copy &operator=(const part_copy &) = delete;
    ~part_copy() { gx_object_del(copy_); }

    // False when a part that was there could not be copied (memory ran out).
    bool ok() const { return wanted_ == nullptr || copy_ != nullptr; }
    template <class T> T *get() const { return static_cast<T *>(copy_); }
    void release() { copy_ = nullptr; }

private:
    void *copy_;
    const void *wanted_;
};

// ---- the 16 parameter slots ---------------------------------------------------------------------

// The slot array of a projected or vertical system or a transformation.
using parameter_array = gx_parameter *[parameter_slots];

// Copies of all parameters in their slots, or none (false) when memory runs out.
bool clone_parameters(const parameter_array &source, parameter_array &copy);
void delete_parameters(parameter_array &slots);
// Where either side has a parameter, both must, and they must be equal.
bool parameters_equal(const parameter_array &a, const parameter_array &b);

// Appends "," and the text of `part` to `out` when the whole stays below `limit` characters; a
// piece that does not fit is left out.  Projected and vertical systems and transformations
// append their parameters and units this way, so that a long text loses whole pieces.
void append_piece(text_buf &out, const void *part, int options, int limit);
// The parameters in slot order, each as append_piece.
void append_parameters(text_buf &out, const parameter_array &slots, int options, int limit);

// Which objects take a PARAMETER sub-object: the usage bit of the parameter registry (the
// owner's type code) and the text reported when the registry does not mark a parameter for it.
struct parameter_rule {
    unsigned int usage;
    const char *invalid_message; // "Parameter \"%s\" in WKT string is not valid for a projcs"
};

// The accept step of a grammar whose PARAMETER sub-objects go into parse.params: looks the
// parameter up by name in the registry and puts it into its slot.  Reports 423 (unknown name),
// 424 (not for this owner) or 411 (slot already filled) and returns false, in which case the
// walk deletes the parameter.
bool accept_parameter(wkt_parse &parse, gx_object_header *obj, const parameter_rule &rule);
// The parameters accept_parameter collected, as the slot array a constructor takes.
void collected_parameters(const wkt_parse &parse, parameter_array &slots);

// ---- building from a parse ----------------------------------------------------------------------

// A sub-object the finished object cannot do without, with the error when it is absent.
struct required_part {
    int slot;
    unsigned int number;
    const char *message;
};

// Reports the first required part the parse did not find and returns false.
bool require_parts(wkt_parse &parse, std::initializer_list<required_part> parts);

// The end of a grammar's build: when `obj` was made it owns every piece of the parse but the
// authority (which the walk attaches), so they leave the parse; else the walk deletes them.
gx_object_header *built(wkt_parse &parse, void *obj);

} // namespace gx

// Defines the operations of a union of types (coordsys: geogcs or projcs; hvdatum: datum or
// vdatum) over the generic ones, which dispatch on the object's own type.  Each operation first
// checks that the object is one of `TYPES`.  The union's from_string_errext, which has to choose
// a type from the text, is written by hand.
#define GX_DEFINE_UNION_FAMILY(T, TYPES)                                                           \
    int T##_p(const void *obj) { return gx::is_type(obj, TYPES) ? 1 : 0; }                         \
    T *T##_from_string(const char *text) { return T##_from_string_errext(text, nullptr); }         \
    T *T##_clone(const T *obj) { return T##_p(obj) ? gx_object_clone(obj) : nullptr; }             \
    void T##_del(T *obj)                                                                           \
    {                                                                                              \
        if (T##_p(obj))                                                                            \
            gx_object_del(obj);                                                                    \
    }                                                                                              \
    int T##_eq(const T *a, const T *b) { return T##_p(a) && T##_p(b) ? gx_object_eq(a, b) : 0; }   \
    char *T##_name(const T *obj, char *buf)                                                        \
    {                                                                                              \
        return gx::object_name(T##_p(obj) ? obj : nullptr, buf);                                   \
    }                                                                                              \
    char *T##_to_string(const T *obj, char *buf) { return T##_to_string_ext(obj, 0, buf); }        \
    char *T##_to_string_ext(const T *obj, int options, char *buf)                                  \
    {                                                                                              \
        if (T##_p(obj))                                                                            \
            return gx_object_to_string_ext(obj, options, buf);                                     \
        if (buf != nullptr)                                                                        \
            buf[0] = '\0';                                                                         \
        return buf;                                                                                \
    }                                                                                              \
    unsigned int T##_type(const T *obj) { return T##_p(obj) ? gx_object_type(obj) : 0u; }          \
    unsigned int T##_status(const T *obj) { return T##_p(obj) ? gx::header_of(obj)->status : 0u; } \
    void T##_status_set(T *obj, unsigned int status)                                               \
    {                                                                                              \
        if (T##_p(obj))                                                                            \
            gx::header_of(obj)->status = status;                                                   \
    }                                                                                              \
    int T##_code(const T *obj) { return T##_p(obj) ? gx::header_of(obj)->code : -1; }              \
    gx_authority *T##_authority(T *obj)                                                            \
    {                                                                                              \
        return T##_p(obj) ? gx_object_authority(obj) : nullptr;                                    \
    }                                                                                              \
    void T##_authority_set(T *obj, gx_authority *auth)                                             \
    {                                                                                              \
        if (T##_p(obj))                                                                            \
            gx_object_authority_set(obj, auth);                                                    \
    }                                                                                              \
    void T##_code_set(T *obj, int code, const char *authname, const char *version)                 \
    {                                                                                              \
        if (T##_p(obj))                                                                            \
            gx::object_code_set(obj, code, authname, version);                                     \
    }

#endif // GX_COORDSYS_H
