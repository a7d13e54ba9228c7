// The compound coordinate system: a horizontal system (geographic or projected) and a vertical
// one, either of which may be absent.
//   HVCOORDSYS["",GEOGCS[...],VERTCS[...]]
// Its text is also read without the wrapper, as a horizontal and a vertical system written one
// after the other: GEOGCS[...],VERTCS[...].  The text never carries an AUTHORITY clause.
#include "object/gx_types.h"

namespace {

using gx::as;

constexpr const char *from_string_function = "gx_hvcoordsys_from_string";

void hvcoordsys_free_parts(gx_object_header *obj)
{
    auto *cs = as<gx_hvcoordsys>(obj);
    gx_coordsys_del(cs->coordsys);
    gx_vertcs_del(cs->vertcs);
}

gx_object_header *hvcoordsys_clone(const gx_object_header *obj)
{
    const auto *cs = as<gx_hvcoordsys>(obj);
    gx::part_copy coordsys(cs->coordsys), vertcs(cs->vertcs);
    if (!coordsys.ok() || !vertcs.ok())
        return nullptr;
    gx_hvcoordsys *copy =
        gx_hvcoordsys_new_extended(obj->name, coordsys.get<gx_coordsys>(), vertcs.get<gx_vertcs>());
    if (copy != nullptr) {
        coordsys.release();
        vertcs.release();
    }
    return gx::header_of(copy);
}

// Two parts are alike when both are absent, or both present, of one type and equal.
bool same_part(const void *a, const void *b)
{
    return (a == nullptr && b == nullptr) || gx_object_eq(a, b);
}

// The name is not compared: a compound system is what its parts are.
bool hvcoordsys_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *x = as<gx_hvcoordsys>(a);
    const auto *y = as<gx_hvcoordsys>(b);
    return same_part(x->coordsys, y->coordsys) && same_part(x->vertcs, y->vertcs);
}

// Each part, and the closing bracket, is appended only while the whole fits the text buffer.
void hvcoordsys_write(const gx_object_header *obj, int options, gx::text_buf &out)
{
    const auto *cs = as<gx_hvcoordsys>(obj);
    out.printf("HVCOORDSYS[\"%s\",", obj->name);
    bool horizontal_written = false;
    if (cs->coordsys != nullptr)
        horizontal_written =
            out.append_if_below(gx::sub_text(cs->coordsys, options).text, GX_TEXT_LEN);
    if (cs->vertcs != nullptr) {
        char piece[GX_TEXT_LEN + 1];
        piece[0] = ',';
        gx_vertcs_to_string_ext(cs->vertcs, options, piece + 1);
        out.append_if_below(horizontal_written ? piece : piece + 1, GX_TEXT_LEN);
    }
    out.append_if_below("]", GX_TEXT_LEN);
}

enum hvcoordsys_slot { coordsys_slot, vertcs_slot };

gx_object_header *hvcoordsys_build(gx::wkt_parse &parse)
{
    if (parse.slots[coordsys_slot] == nullptr && parse.slots[vertcs_slot] == nullptr) {
        parse.error(430, "Missing both coordsys and vertcs in WKT string");
        return nullptr;
    }
    return gx::built(parse, gx_hvcoordsys_new_extended_errext(
                                parse.name, parse.slots[coordsys_slot],
                                as<gx_vertcs>(parse.slots[vertcs_slot]), parse.caller_err));
}

constexpr gx::wkt_sub hvcoordsys_subs[] = {
    {"GEOGCS", "PROJCS", coordsys_slot, gx::coordsys_from_tokens, 404,
     "Duplicate coordsys in WKT string"},
    {"VERTCS", nullptr, vertcs_slot, gx::vertcs_from_tokens, 418, "Duplicate vertcs in WKT string"},
};

constexpr gx::wkt_grammar hvcoordsys_grammar = {
    "HVCOORDSYS",
    nullptr,
    from_string_function,
    2,
    nullptr,
    nullptr,
    0,
    {},
    false,
    2,
    hvcoordsys_subs,
    -1,
    nullptr,
    nullptr,
    hvcoordsys_build,
};

// A horizontal and a vertical system one after the other: each part is read from the first
// occurrence of its keyword with its own parser (the horizontal one preferring PROJCS, whose
// text holds a GEOGCS).  A part whose keyword occurs must read, or nothing is built.
gx_object_header *hvcoordsys_from_parts(const char *text, gx_err_rec *err)
{
    const bool has_horizontal =
        gx_strstr_ci(text, "PROJCS") != nullptr || gx_strstr_ci(text, "GEOGCS") != nullptr;
    const bool has_vertical = gx_strstr_ci(text, "VERTCS") != nullptr;
    if (!has_horizontal && !has_vertical) {
        gx::err_scope scope(err);
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 430, from_string_function,
                   "Missing both coordsys and vertcs in WKT string");
        return nullptr;
    }
    gx_coordsys *coordsys = nullptr;
    if (has_horizontal && (coordsys = gx_coordsys_from_string_errext(text, err)) == nullptr)
        return nullptr;
    gx_vertcs *vertcs = nullptr;
    if (has_vertical && (vertcs = gx_vertcs_from_string_errext(text, err)) == nullptr) {
        gx_coordsys_del(coordsys);
        return nullptr;
    }
    gx_hvcoordsys *cs = gx_hvcoordsys_new_errext(coordsys, vertcs, err);
    if (cs == nullptr) {
        gx_coordsys_del(coordsys);
        gx_vertcs_del(vertcs);
        return nullptr;
    }
    cs->header.status = GX_STATUS_STRING;
    return gx::header_of(cs);
}

gx_object_header *hvcoordsys_from_string(const char *text, gx_err_rec *err)
{
    if (text == nullptr) {
        gx::err_scope scope(err);
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 456, from_string_function,
                   "Null WKT string");
        return nullptr;
    }
    if (gx_strstr_ci(text, "HVCOORDSYS") != nullptr)
        return gx::wkt_from_string(hvcoordsys_grammar, text, err);
    return hvcoordsys_from_parts(text, err);
}

} // namespace

namespace gx {

constexpr type_desc hvcoordsys_desc = {
    GX_TYPE_HVCOORDSYS, "hvcoordsys",          sizeof(gx_hvcoordsys),  true,
    wkt_close::none,    hvcoordsys_free_parts, hvcoordsys_clone,       hvcoordsys_equal,
    hvcoordsys_write,   &hvcoordsys_grammar,   hvcoordsys_from_string,
};

gx_object_header *hvcoordsys_from_tokens(const gx_token_list *list, int start, int *next,
                                         gx_err_rec *err)
{
    return wkt_from_tokens(hvcoordsys_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_hvcoordsys, gx::hvcoordsys_desc)

gx_hvcoordsys *gx_hvcoordsys_new(gx_coordsys *coordsys, gx_vertcs *vertcs)
{
    return gx_hvcoordsys_new_extended_errext(nullptr, coordsys, vertcs, nullptr);
}

gx_hvcoordsys *gx_hvcoordsys_new_errext(gx_coordsys *coordsys, gx_vertcs *vertcs, gx_err_rec *err)
{
    return gx_hvcoordsys_new_extended_errext(nullptr, coordsys, vertcs, err);
}

gx_hvcoordsys *gx_hvcoordsys_new_extended(const char *name, gx_coordsys *coordsys,
                                          gx_vertcs *vertcs)
{
    return gx_hvcoordsys_new_extended_errext(name, coordsys, vertcs, nullptr);
}

gx_hvcoordsys *gx_hvcoordsys_new_extended_errext(const char *name, gx_coordsys *coordsys,
                                                 gx_vertcs *vertcs, gx_err_rec *err)
{
    const char *function = "gx_hvcoordsys_new";
    gx::err_scope scope(err);
    const bool parts_valid = (coordsys != nullptr || vertcs != nullptr) &&
                             (coordsys == nullptr || gx_coordsys_p(coordsys)) &&
                             (vertcs == nullptr || gx_vertcs_p(vertcs));
    if (!parts_valid) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 339, function,
                   "Null or invalid coordsys and vertcs object arguments");
        return nullptr;
    }
    auto *cs =
        gx::as<gx_hvcoordsys>(gx::new_record(gx::hvcoordsys_desc, name, function, scope.rec()));
    if (cs == nullptr)
        return nullptr;
    cs->coordsys = coordsys;
    cs->vertcs = vertcs;
    return cs;
}

gx_coordsys *gx_hvcoordsys_coordsys(const gx_hvcoordsys *cs)
{
    return gx_hvcoordsys_p(cs) ? cs->coordsys : nullptr;
}

gx_vertcs *gx_hvcoordsys_vertcs(const gx_hvcoordsys *cs)
{
    return gx_hvcoordsys_p(cs) ? cs->vertcs : nullptr;
}
