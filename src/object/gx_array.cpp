// The array: a named run of doubles that a transformation method may carry with it.
//   ARRAY["Offsets",3,0.5,-1.25,2.0]
// The count is written before the values and must agree with them when read.  Arrays carry no
// code and never write an AUTHORITY clause.
#include "object/gx_types.h"

#include <cstdlib>
#include <cstring>

namespace {

using gx::as;

// The text of an array is cut after the last value that keeps it within this many characters,
// so the closing bracket always fits in a text buffer; the values after it are left out.
constexpr int max_body_length = 1021;

std::size_t values_size(int num_values)
{
    return static_cast<std::size_t>(num_values) * sizeof(double);
}

void array_free_parts(gx_object_header *obj) { gx_deallocate_rtn(as<gx_array>(obj)->values); }

bool array_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *aa = as<gx_array>(a);
    const auto *ab = as<gx_array>(b);
    if (gx_strcmp_ci(a->name, b->name) != 0 || aa->num_values != ab->num_values)
        return false;
    for (int i = 0; i < aa->num_values; ++i)
        if (!gx::eq(aa->values[i], ab->values[i]))
            return false;
    return true;
}

gx_object_header *array_clone(const gx_object_header *obj)
{
    const auto *array = as<gx_array>(obj);
    return gx::header_of(gx_array_new(obj->name, array->num_values, array->values));
}

void array_write(const gx_object_header *obj, int, gx::text_buf &out)
{
    const auto *array = as<gx_array>(obj);
    out.printf("ARRAY[\"%s\",%d", obj->name, array->num_values);
    for (int i = 0; i < array->num_values; ++i) {
        char piece[80];
        gx_snprintf(piece, sizeof piece, ",%s", gx::number_text(array->values[i]).text);
        if (!out.append_if_below(piece, max_body_length + 1))
            break;
    }
}

// The count and the values that follow it must agree.
gx_object_header *array_build(gx::wkt_parse &parse)
{
    const int count = static_cast<int>(std::strtol(parse.values[0], nullptr, 10));
    if (count != parse.rest_count) {
        parse.error(425, "Num_values (%d) in WKT string is != number of values (%d)", count,
                    parse.rest_count);
        return nullptr;
    }
    double values[GX_MAX_TOKENS];
    for (int i = 0; i < parse.rest_count; ++i)
        values[i] = gx_atod(parse.rest[i]);
    return gx::header_of(gx_array_new_errext(parse.name, count, values, parse.caller_err));
}

constexpr gx::wkt_grammar array_grammar = {
    "ARRAY",
    nullptr,
    "gx_array_from_string",
    3,
    nullptr,
    "Token start (%d) int WKT string is out of range", // sic: this parser's own wording
    1,
    {{448, "Missing num_values in WKT string"}},
    true,
    0,
    nullptr,
    -1,
    nullptr,
    nullptr,
    array_build,
};

} // namespace

namespace gx {

constexpr type_desc array_desc = {
    GX_TYPE_ARRAY,    "array",     sizeof(gx_array), false,       wkt_close::bracket_only,
    array_free_parts, array_clone, array_equal,      array_write, &array_grammar,
};

gx_object_header *array_from_tokens(const gx_token_list *list, int start, int *next,
                                    gx_err_rec *err)
{
    return wkt_from_tokens(array_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_OBJECT_FAMILY(gx_array, gx::array_desc)
GX_DEFINE_UNCODED_VECTOR(gx_array, gx::array_desc)

gx_array *gx_array_new(const char *name, int num_values, const double *values)
{
    return gx_array_new_errext(name, num_values, values, nullptr);
}

gx_array *gx_array_new_errext(const char *name, int num_values, const double *values,
                              gx_err_rec *err)
{
    const char *function = "gx_array_new";
    gx::err_scope scope(err);
    if (num_values <= 0) {
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 310, function,
                   "Invalid num_values argument (%d) for array", num_values);
        return nullptr;
    }
    if (values == nullptr) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 326, function,
                   "Null values array argument");
        return nullptr;
    }
    auto *array = as<gx_array>(gx::new_record(gx::array_desc, name, function, scope.rec()));
    if (array == nullptr)
        return nullptr;
    array->values = static_cast<double *>(gx_allocate_rtn(values_size(num_values)));
    if (array->values == nullptr) {
        gx::delete_record(gx::array_desc, array);
        gx::report_no_memory(scope.rec(), function);
        return nullptr;
    }
    array->num_values = num_values;
    std::memcpy(array->values, values, values_size(num_values));
    return array;
}

int gx_array_num_values(const gx_array *array) { return gx_array_p(array) ? array->num_values : 0; }

double *gx_array_values_pointer(const gx_array *array)
{
    return gx_array_p(array) ? array->values : nullptr;
}

int gx_array_values_copy(const gx_array *array, double *dst)
{
    if (!gx_array_p(array) || dst == nullptr)
        return 0;
    std::memcpy(dst, array->values, values_size(array->num_values));
    return array->num_values;
}

void gx_array_values_set(gx_array *array, const double *values)
{
    if (gx_array_p(array) && values != nullptr)
        std::memcpy(array->values, values, values_size(array->num_values));
}

void gx_array_name_set(gx_array *array, const char *name)
{
    if (gx_array_p(array))
        gx_strncpy(array->header.name, name != nullptr ? name : "", GX_NAME_LEN);
}
