// gx_factory.h -- internal: the one procedure behind every type factory, and the pieces the
// types use to assemble their objects from definition records.
//
// A type factory is a row of what differs between types (its table of definitions, its lists
// of changed and discontinued codes, its retired definitions, how an object is assembled from
// a record and how an unknown code is reported); gx::factory::make runs the common procedure
// over such a row.
#ifndef GX_FACTORY_H
#define GX_FACTORY_H

#include "factory/gx_defdata.h"
#include "gridex.h"

#include <memory>

namespace gx::factory {

// Assembles an object from a definition record, making its components through their own
// factories with the same error record.  Null on failure, with nothing left allocated.
using assemble_fn = void *(*)(const gx_defrec &rec, gx_err_rec *err);

// Retired definitions: a few codes kept outside the current tables, sorted by code.
struct retired_set {
    const gx_defrec *rows;
    int count;
};

// The authority and version of a code's range (gx_factory_authority_<type>).
using authority_fn = void (*)(int code, const char **authority, const char **version);

struct type_factory {
    int type;                    // of its definitions and code ranges (units: GX_TYPE_UNIT)
    const char *function;        // reported with an unknown code
    unsigned int unknown_number; // error number of an unknown code
    const char *unknown_format;  // its message, formatted with the code
    const int *discontinued;     // 0-terminated
    const int *changes;          // {requested, replacement} pairs ended by a 0 request
    authority_fn authority;
    retired_set retired;
    assemble_fn assemble; // null: the type has no definitions of any kind
};

// The object of a code, from the first source that knows it: a user definition, the built-in
// definitions, the replacement of a changed code, the retired definitions.  Stamped with its
// status, code, authority and version; null with one error in err when no source can build it
// (err may be null).
void *make(const type_factory &factory, int code, gx_err_rec *err);

// Reports a factory error (level error, category factory) formatted with a code; a null err
// stands for a record local to the call, so the message routine still hears of it.
void report_code(gx_err_rec *err, unsigned int number, const char *function, const char *format,
                 int code);

// Reports a factory error whose text takes no argument.
void report_text(gx_err_rec *err, unsigned int number, const char *function, const char *text);

// The retired definitions of a type as a set.
template <int N> constexpr retired_set retired_of(const gx_defrec (&rows)[N]) { return {rows, N}; }

// A type's two entry points over its row.
#define GX_DEFINE_TYPE_FACTORY(T, row)                                                             \
    gx_##T *gx_factory_##T(int code) { return gx_factory_##T##_errext(code, nullptr); }            \
    gx_##T *gx_factory_##T##_errext(int code, gx_err_rec *err)                                     \
    {                                                                                              \
        return static_cast<gx_##T *>(gx::factory::make(row, code, err));                           \
    }

// ---- assembling -------------------------------------------------------------------------

struct object_deleter {
    void operator()(void *obj) const { gx_object_del(obj); }
};

// A component owned until the object that takes it is built.
template <class T> using owned = std::unique_ptr<T, object_deleter>;

// The 16 parameter slots of a record, owned until the object that takes them is built.
class parameter_slots {
public:
    parameter_slots() = default;
    parameter_slots(const parameter_slots &) = delete;
    parameter_slots &operator=(const parameter_slots &) = delete;
    ~parameter_slots();

    // Makes the record's parameters (a dataset parameter named by its text) in the slots the
    // parameter registry assigns; false with the error of the first that fails.
    bool fill(const gx_defrec &rec, gx_err_rec *err);
    gx_parameter **get() { return slots_; }
    void release();

private:
    gx_parameter *slots_[16] = {};
};

// Hands the parts over to a newly built object: released when it was built, else kept (and
// freed by their owners).
template <class T, class... Parts> T *adopt(T *whole, Parts &...parts)
{
    if (whole != nullptr)
        ((void)parts.release(), ...);
    return whole;
}

} // namespace gx::factory

#endif // GX_FACTORY_H
