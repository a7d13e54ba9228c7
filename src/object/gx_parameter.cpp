// The parameter: a named value of a projection or a transformation method.
//   PARAMETER["Central_Meridian",-123.0]
// A new parameter takes its code from the parameter registry by name, so the code says which
// registry parameter it is; the registry also gives its slot (gx_parameter_index).
#include "object/gx_types.h"

namespace {

using gx::as;

// Pairs of values that are published spellings of the same constant and must compare equal.
// A pair applies only between two parameters that both carry the row's code.
struct same_value_row {
    int code;
    double first;
    double second;
};

const same_value_row same_values[] = {
    {100003, 0.999601272, 0.9996012717}, // Scale_Factor of the British National Grid
    {0, 0.0, 0.0},
};

bool is_spelling_pair(const same_value_row &row, double a, double b)
{
    return (gx::eq(a, row.first) && gx::eq(b, row.second)) ||
           (gx::eq(a, row.second) && gx::eq(b, row.first));
}

bool same_published_value(int code_a, double a, int code_b, double b)
{
    if (code_a != code_b)
        return false;
    for (const same_value_row *row = same_values; row->code != 0; ++row)
        if (row->code == code_a && is_spelling_pair(*row, a, b))
            return true;
    return false;
}

bool parameter_equal(const gx_object_header *a, const gx_object_header *b)
{
    if (gx_strcmp_ci(a->name, b->name) != 0)
        return false;
    const double va = as<gx_parameter>(a)->value;
    const double vb = as<gx_parameter>(b)->value;
    return gx::eq(va, vb) || same_published_value(a->code, va, b->code, vb);
}

gx_object_header *parameter_clone(const gx_object_header *obj)
{
    return gx::header_of(gx_parameter_new(obj->name, as<gx_parameter>(obj)->value));
}

void parameter_write(const gx_object_header *obj, int, gx::text_buf &out)
{
    out.printf("PARAMETER[\"%s\",%s", obj->name,
               gx::number_text(as<gx_parameter>(obj)->value).text);
}

// Whether the name and value suit the holder (projcs, geogtran, ...) is the holder's question.
gx_object_header *parameter_build(gx::wkt_parse &parse)
{
    return gx::header_of(
        gx_parameter_new_errext(parse.name, gx_atod(parse.values[0]), parse.caller_err));
}

constexpr gx::wkt_sub parameter_subs[] = {gx::authority_sub(0)};

constexpr gx::wkt_grammar parameter_grammar = {
    "PARAMETER",
    nullptr,
    "gx_parameter_from_string",
    3,
    nullptr,
    nullptr,
    1,
    {{450, "Missing parameter value in WKT string"}},
    false,
    1,
    parameter_subs,
    0,
    nullptr,
    nullptr,
    parameter_build,
};

} // namespace

namespace gx {

constexpr type_desc parameter_desc = {
    GX_TYPE_PARAMETER,
    "parameter",
    sizeof(gx_parameter),
    true,
    wkt_close::authority_and_bracket,
    nullptr,
    parameter_clone,
    parameter_equal,
    parameter_write,
    &parameter_grammar,
};

gx_object_header *parameter_from_tokens(const gx_token_list *list, int start, int *next,
                                        gx_err_rec *err)
{
    return wkt_from_tokens(parameter_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_parameter, gx::parameter_desc)

gx_parameter *gx_parameter_new(const char *name, double value)
{
    return gx_parameter_new_errext(name, value, nullptr);
}

gx_parameter *gx_parameter_new_errext(const char *name, double value, gx_err_rec *err)
{
    const char *function = "gx_parameter_new";
    gx::err_scope scope(err);
    auto *parm = as<gx_parameter>(gx::new_record(gx::parameter_desc, name, function, scope.rec()));
    if (parm == nullptr)
        return nullptr;
    parm->value = value;
    gx_parmlist_set_code(parm);
    return parm;
}

double gx_parameter_value(const gx_parameter *parm)
{
    return gx_parameter_p(parm) ? parm->value : 0.0;
}

void gx_parameter_value_set(gx_parameter *parm, double value)
{
    if (gx_parameter_p(parm))
        parm->value = value;
}

int gx_parameter_index(const gx_parameter *parm)
{
    return gx_parameter_p(parm) ? gx_parmlist_index_from_name(parm->header.name) : -1;
}

void gx_parameter_name_set(gx_parameter *parm, const char *name)
{
    if (gx_parameter_p(parm))
        gx_strncpy(parm->header.name, name != nullptr ? name : "", GX_NAME_LEN);
}
