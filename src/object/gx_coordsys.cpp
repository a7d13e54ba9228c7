// The coordsys: a geographic or a projected system, wherever either will do (the horizontal part
// of a compound system, of an adjusted system or of a vertical transformation).  It is not a type
// of its own; its operations check the object and dispatch on its type.
//
// Also the mechanisms shared by the coordinate-system types: constructor checks of sub-objects,
// the 16 parameter slots (copied, compared, written and filled from WKT) and the end of a build.
#include "object/gx_types.h"

#include <cstring>

// ---- the coordsys union -------------------------------------------------------------------------

GX_DEFINE_UNION_FAMILY(gx_coordsys, gx::coordsys_types)

// A projected system's text holds a geographic one, so the text is projected when PROJCS occurs
// in it at all, and geographic otherwise.
gx_coordsys *gx_coordsys_from_string_errext(const char *text, gx_err_rec *err)
{
    if (text == nullptr) {
        gx::err_scope scope(err);
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 456, "gx_coordsys_from_string",
                   "Null WKT string");
        return nullptr;
    }
    if (gx_strstr_ci(text, "PROJCS") != nullptr)
        return gx_projcs_from_string_errext(text, err);
    return gx_geogcs_from_string_errext(text, err);
}

namespace gx {

gx_object_header *coordsys_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err)
{
    const bool projected = list != nullptr && start >= 0 && start < list->count &&
                           gx_strcmp_ci(list->tokens[start].text, "PROJCS") == 0;
    return projected ? projcs_from_tokens(list, start, next, err)
                     : geogcs_from_tokens(list, start, next, err);
}

// ---- constructor checks -------------------------------------------------------------------------

bool check_parts(gx_err_rec *rec, const char *function, std::initializer_list<part_check> checks)
{
    for (const part_check &check : checks)
        if (!is_type(check.part, check.types)) {
            gx_err_str(rec, GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, check.number, function,
                       check.message);
            return false;
        }
    return true;
}

// ---- the 16 parameter slots ---------------------------------------------------------------------

bool clone_parameters(const parameter_array &source, parameter_array &copy)
{
    for (int slot = 0; slot < parameter_slots; ++slot) {
        copy[slot] = nullptr;
        if (source[slot] == nullptr)
            continue;
        copy[slot] = gx_parameter_clone(source[slot]);
        if (copy[slot] == nullptr) {
            delete_parameters(copy);
            return false;
        }
    }
    return true;
}

void delete_parameters(parameter_array &slots)
{
    for (gx_parameter *&parameter : slots) {
        gx_parameter_del(parameter);
        parameter = nullptr;
    }
}

bool parameters_equal(const parameter_array &a, const parameter_array &b)
{
    for (int slot = 0; slot < parameter_slots; ++slot) {
        if (a[slot] == nullptr && b[slot] == nullptr)
            continue;
        if (a[slot] == nullptr || b[slot] == nullptr || !gx_parameter_eq(a[slot], b[slot]))
            return false;
    }
    return true;
}

void append_piece(text_buf &out, const void *part, int options, int limit)
{
    char piece[GX_TEXT_LEN + 1];
    piece[0] = ',';
    gx_object_to_string_ext(part, options, piece + 1);
    out.append_if_below(piece, limit);
}

void append_parameters(text_buf &out, const parameter_array &slots, int options, int limit)
{
    for (const gx_parameter *parameter : slots)
        if (parameter != nullptr)
            append_piece(out, parameter, options, limit);
}

bool accept_parameter(wkt_parse &parse, gx_object_header *obj, const parameter_rule &rule)
{
    const char *name = obj->name;
    const gx_parmlist_entry *row = parameter_row(name);
    if (row == nullptr) {
        parse.error(423, "Invalid parameter name \"%s\" in WKT string", name);
        return false;
    }
    if (!parameter_usable(row, rule.usage)) {
        parse.error(424, rule.invalid_message, name);
        return false;
    }
    gx_object_header *&slot = parse.params[row->index];
    if (slot != nullptr) {
        parse.error(411, "Duplicate parameter \"%s\" in WKT string", name);
        return false;
    }
    slot = obj;
    return true;
}

void collected_parameters(const wkt_parse &parse, parameter_array &slots)
{
    for (int slot = 0; slot < parameter_slots; ++slot)
        slots[slot] = as<gx_parameter>(parse.params[slot]);
}

// ---- building from a parse ----------------------------------------------------------------------

bool require_parts(wkt_parse &parse, std::initializer_list<required_part> parts)
{
    for (const required_part &part : parts)
        if (parse.slots[part.slot] == nullptr) {
            parse.error(part.number, "%s", part.message);
            return false;
        }
    return true;
}

gx_object_header *built(wkt_parse &parse, void *obj)
{
    if (obj == nullptr)
        return nullptr;
    for (int slot = 0; slot < wkt_max_slots; ++slot)
        if (slot != parse.grammar->authority_slot)
            parse.slots[slot] = nullptr;
    for (gx_object_header *&parameter : parse.params)
        parameter = nullptr;
    return header_of(obj);
}

} // namespace gx
