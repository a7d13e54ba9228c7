// gx_method_registry.h -- internal: the lookups and factories shared by the three method
// registries (datum shifts, plane fits, height methods).
//
// A registry is a constant table of rows in search order, ended by a row of code 0, each with a
// code, an authority, a version, a name and the method's routines; a table of old names; and the
// constructor that makes a method object from a row.  Each registry's source describes itself
// in a method_registry and defines its five public operations as calls of the functions below.
#ifndef GX_METHOD_REGISTRY_H
#define GX_METHOD_REGISTRY_H

#include "object/gx_types.h"

namespace gx {

template <class Row, class Object> struct method_registry {
    const Row *rows;
    const synonym *synonyms;
    // A method object with the routines of a row; null (reported into err) on failure.
    Object *(*make)(const Row &row, gx_err_rec *err);
    // The factories' errors: an unknown code (category 4) and an unknown name (category 8).
    const char *from_code_function;
    unsigned int code_number;
    const char *code_message; // with the code
    const char *from_name_function;
    unsigned int name_number;
    const char *name_message; // with the name
};

template <class Row> const Row *row_with_code(const Row *rows, int code)
{
    for (const Row *row = rows; row->code != 0; ++row)
        if (row->code == code)
            return row;
    return nullptr;
}

// The first row whose name equals `name` without case ('-' counts as '_').
template <class Row> const Row *row_with_name(const Row *rows, const char *name)
{
    if (name == nullptr)
        return nullptr;
    for (const Row *row = rows; row->code != 0; ++row)
        if (gx_strcmp_i(row->name, name) == 0)
            return row;
    return nullptr;
}

// By name, old names first mapped to current ones.
template <class Row, class Object>
const Row *registry_row_named(const method_registry<Row, Object> &registry, const char *name)
{
    if (name == nullptr)
        return nullptr;
    return row_with_name(registry.rows, synonym_lookup(registry.synonyms, name));
}

// Stamps a method object with the code, authority and version of the row of its own name.
template <class Row, class Object>
void registry_set_code(const method_registry<Row, Object> &registry, Object *method)
{
    if (!gx_object_p(method))
        return;
    const Row *row = row_with_name(registry.rows, header_of(method)->name);
    if (row != nullptr)
        gx_object_code_set(method, row->code, row->authority, row->version);
}

template <class Row, class Object>
Object *registry_object(const method_registry<Row, Object> &registry, const Row &row,
                        unsigned int status, gx_err_rec *err)
{
    Object *method = registry.make(row, err);
    if (method == nullptr)
        return nullptr;
    gx_object_code_set(method, row.code, row.authority, row.version);
    gx_object_status_set(method, status);
    return method;
}

template <class Row, class Object>
Object *registry_object_from_code(const method_registry<Row, Object> &registry, int code,
                                  gx_err_rec *err)
{
    err_scope scope(err);
    const Row *row = row_with_code(registry.rows, code);
    if (row == nullptr) {
        report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_FACTORY, registry.code_number,
               registry.from_code_function, registry.code_message, code);
        return nullptr;
    }
    return registry_object(registry, *row, GX_STATUS_CODE, err);
}

template <class Row, class Object>
Object *registry_object_from_name(const method_registry<Row, Object> &registry, const char *name,
                                  gx_err_rec *err)
{
    err_scope scope(err);
    const Row *row = registry_row_named(registry, name);
    if (row == nullptr) {
        report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, registry.name_number,
               registry.from_name_function, registry.name_message, name != nullptr ? name : "");
        return nullptr;
    }
    return registry_object(registry, *row, GX_STATUS_STRING, err);
}

} // namespace gx

#endif // GX_METHOD_REGISTRY_H
