// The WKT walk shared by every type's parser, the from_string entry points and the choice of a
// type from text or from a type code.
#include "object/gx_wkt.h"
#include "object/gx_types.h"
#include "util/gx_ctype.h"

#include <cctype>
#include <cstdarg>
#include <cstring>

namespace gx {

void wkt_parse::error(unsigned int number, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    gx_err_var(rec, GX_ERRLVL_ERROR, GX_ERRCAT_WKT, number, grammar->function, format, args);
    va_end(args);
}

void wkt_parse::error_as(const char *function, unsigned int number, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    gx_err_var(rec, GX_ERRLVL_ERROR, GX_ERRCAT_WKT, number, function, format, args);
    va_end(args);
}

int wkt_object_end(const gx_token_list *list, int start)
{
    const int level = list->tokens[start].level;
    int end = start + 1;
    while (end < list->count && list->tokens[end].level > level)
        ++end;
    return end;
}

namespace {

// Keywords are compared as gx_strcmp_ci compares them; the classes remember the locale's answers
// over the walk of one object.
const wkt_sub *find_sub(const wkt_grammar &grammar, const char *keyword,
                        remembered_classes &classes)
{
    loose_name token(keyword, classes);
    for (int i = 0; i < grammar.sub_count; ++i) {
        const wkt_sub &sub = grammar.subs[i];
        if (token.matches(sub.keyword) || (sub.keyword2 != nullptr && token.matches(sub.keyword2)))
            return &sub;
    }
    return nullptr;
}

bool keyword_matches(const wkt_grammar &grammar, const char *keyword, remembered_classes &classes)
{
    loose_name token(keyword, classes);
    return token.matches(grammar.keyword) ||
           (grammar.keyword2 != nullptr && token.matches(grammar.keyword2));
}

void delete_pieces(wkt_parse &parse)
{
    for (gx_object_header *&obj : parse.slots) {
        if (obj != nullptr)
            gx_object_del(obj);
        obj = nullptr;
    }
    if (parse.grammar->accept == nullptr) // only a grammar's accept routine keeps parameters
        return;
    for (gx_object_header *&obj : parse.params) {
        if (obj != nullptr)
            gx_object_del(obj);
        obj = nullptr;
    }
}

// Checks the keyword, the name and the positional values (the fixed head of the object).
bool read_head(wkt_parse &parse, remembered_classes &classes)
{
    const wkt_grammar &grammar = *parse.grammar;
    const gx_token *tokens = parse.list->tokens;
    if (parse.end - parse.start < grammar.min_tokens) {
        parse.error(459, "%s",
                    grammar.insufficient_message != nullptr ? grammar.insufficient_message
                                                            : "Insufficient tokens in WKT string");
        return false;
    }
    if (!keyword_matches(grammar, tokens[parse.start].text, classes)) {
        parse.error(466, "Object type keyword \"%s\" not found in WKT string", grammar.keyword);
        return false;
    }
    int index = parse.start + 1;
    if (index >= parse.end || tokens[index].level != parse.level + 1) {
        parse.error(465, "Name not found in WKT string");
        return false;
    }
    parse.name = tokens[index++].text;
    for (int i = 0; i < grammar.value_count; ++i, ++index) {
        if (index >= parse.end || tokens[index].level != parse.level + 1 ||
            find_sub(grammar, tokens[index].text, classes) != nullptr) {
            parse.error(grammar.values[i].missing_number, "%s", grammar.values[i].missing_message);
            return false;
        }
        parse.values[i] = tokens[index].text;
    }
    return grammar.check_values == nullptr || grammar.check_values(parse);
}

// The first empty slot of a sub-object kind, or null when the kind has all it takes.
gx_object_header **free_slot(wkt_parse &parse, const wkt_sub &sub)
{
    for (int slot = sub.slot; slot < sub.slot + sub.slot_count; ++slot)
        if (parse.slots[slot] == nullptr)
            return &parse.slots[slot];
    return nullptr;
}

// Visits the tokens after the head: sub-objects are parsed, anything else is skipped with what
// is nested under it.  Returns false when something failed.
bool read_body(wkt_parse &parse, int index, remembered_classes &classes)
{
    const wkt_grammar &grammar = *parse.grammar;
    const gx_token *tokens = parse.list->tokens;
    bool ok = true;
    while (index < parse.end) {
        const gx_token &token = tokens[index];
        if (token.level < parse.level + 1) {
            parse.error(460, "Invalid object level in WKT string");
            return false;
        }
        const wkt_sub *sub = find_sub(grammar, token.text, classes);
        if (sub == nullptr) {
            const int after = wkt_object_end(parse.list, index);
            if (grammar.collect_rest && after == index + 1)
                parse.rest[parse.rest_count++] = token.text;
            index = after;
            continue;
        }
        int next = index; // the sub-type's parser finds the end of its object
        gx_object_header *obj = sub->parse(parse.list, index, &next, parse.caller_err);
        index = next > index ? next : wkt_object_end(parse.list, index);
        bool taken = false;
        if (obj == nullptr) {
            // the sub-type's parser has reported
        } else if (sub->slot < 0) {
            taken = grammar.accept != nullptr && grammar.accept(parse, *sub, obj);
        } else if (gx_object_header **slot = free_slot(parse, *sub); slot == nullptr) {
            parse.error(sub->duplicate_number, "%s", sub->duplicate_message);
        } else {
            *slot = obj;
            taken = true;
        }
        if (!taken) {
            gx_object_del(obj);
            ok = false;
            // With the caller's record the first error is the answer; without one, the walk goes
            // on so that every problem reaches the message routine.
            if (parse.caller_err != nullptr)
                return false;
        }
    }
    return ok;
}

} // namespace

gx_object_header *wkt_from_tokens(const wkt_grammar &grammar, const gx_token_list *list, int start,
                                  int *next, gx_err_rec *err)
{
    err_scope scope(err);
    wkt_parse parse;
    parse.grammar = &grammar;
    parse.list = list;
    parse.rec = scope.rec();
    parse.caller_err = err;
    parse.start = start;

    if (list == nullptr || start < 0 || start >= list->count) {
        parse.error(462,
                    grammar.range_message != nullptr
                        ? grammar.range_message
                        : "Token start (%d) in WKT string is out of range",
                    start);
        return nullptr;
    }
    parse.level = list->tokens[start].level;
    parse.end = wkt_object_end(list, start);
    if (next != nullptr)
        *next = parse.end;

    remembered_classes classes; // the locale's answers for the keywords of this object
    if (!read_head(parse, classes))
        return nullptr;
    const int body = parse.start + 2 + grammar.value_count;
    gx_object_header *obj = nullptr;
    if (read_body(parse, body, classes))
        obj = grammar.build(parse);
    if (obj != nullptr) {
        obj->status = GX_STATUS_STRING;
        if (grammar.authority_slot >= 0 && parse.slots[grammar.authority_slot] != nullptr)
            reinterpret_cast<gx_coded_object *>(obj)->auth =
                parse.take<gx_authority>(grammar.authority_slot);
    }
    delete_pieces(parse);
    return obj;
}

// Tokenizes from the first occurrence of the type's keyword and reports the tokenizer's problem
// under the type's function name.  A type with two keywords (SPHEROID, ELLIPSOID) looks for the
// second when the first is not in the text; only the last attempt is reported, so a text that
// uses the second keyword reads without a message.  Returns false when no parse can follow.
static bool tokenize(gx_token_list &list, const char *text, const wkt_grammar &grammar,
                     gx_err_rec *rec)
{
    int rc = gx_objstring_to_tokens(&list, text, grammar.keyword);
    if (rc != 0 && list.error_number == 466 && grammar.keyword2 != nullptr)
        rc = gx_objstring_to_tokens(&list, text, grammar.keyword2);
    if (list.error_level != 0)
        gx_err_str(rec, list.error_level, GX_ERRCAT_WKT, list.error_number, grammar.function,
                   list.message);
    return rc == 0;
}

gx_object_header *wkt_from_string(const wkt_grammar &grammar, const char *text, gx_err_rec *err)
{
    err_scope scope(err);
    if (text == nullptr) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 456, grammar.function,
                   "Null WKT string");
        return nullptr;
    }
    auto *list = static_cast<gx_token_list *>(gx_allocate_rtn(sizeof(gx_token_list)));
    if (list == nullptr) {
        report_no_memory(scope.rec(), grammar.function);
        return nullptr;
    }
    gx_object_header *obj = nullptr;
    if (tokenize(*list, text, grammar, scope.rec()))
        obj = wkt_from_tokens(grammar, list, 0, nullptr, err);
    gx_deallocate_rtn(list);
    return obj;
}

void *object_from_string(const type_desc &desc, const char *text, gx_err_rec *err)
{
    if (desc.from_string != nullptr)
        return desc.from_string(text, err);
    return wkt_from_string(*desc.grammar, text, err);
}

const char *synonym_lookup(const synonym *table, const char *name)
{
    if (table->old_name == nullptr)
        return name;
    remembered_classes classes;
    loose_name wanted(name, classes);
    for (const synonym *row = table; row->old_name != nullptr; ++row)
        if (wanted.matches_by_comparison(row->old_name))
            return row->current_name;
    return name;
}

} // namespace gx

// ---- choosing the type --------------------------------------------------------------------------

namespace {

struct keyword_type {
    const char *keyword;
    unsigned int type;
};

// Tested in this order as loose prefixes of the text.  Longer keywords that begin with a
// shorter one (VERTTRAN, VERTCS) stand before it where it matters.
const keyword_type leading_keywords[] = {
    {"ADJHCS", GX_TYPE_ADJHCS},
    {"VERTTRAN", GX_TYPE_VERTTRAN},
};
const keyword_type other_keywords[] = {
    {"HVCOORDSYS", GX_TYPE_HVCOORDSYS},
    {"GEOGTRAN", GX_TYPE_GEOGTRAN},
    {"PROJCS", GX_TYPE_PROJCS},
    {"GEOGCS", GX_TYPE_GEOGCS},
    {"VERTCS", GX_TYPE_VERTCS},
    {"GEOXYZCS", GX_TYPE_GEOXYZCS},
    {"DATUM", GX_TYPE_DATUM},
    {"VDATUM", GX_TYPE_VDATUM},
    {"LINUNIT", GX_TYPE_UNIT},
    {"ANGUNIT", GX_TYPE_UNIT},
    {"UNIT", GX_TYPE_UNIT},
    {"PRIMEM", GX_TYPE_PRIMEM},
    {"SPHEROID", GX_TYPE_SPHEROID},
    {"ELLIPSOID", GX_TYPE_SPHEROID},
    {"METHOD", GX_TYPE_METHOD},
    {"HTMETHOD", GX_TYPE_HTMETHOD},
    {"PROJECTION", GX_TYPE_PROJECTION},
    {"PARAMETER", GX_TYPE_PARAMETER},
    {"AUTHORITY", GX_TYPE_AUTHORITY},
    {"ARRAY", GX_TYPE_ARRAY},
    {"VTMETHOD", GX_TYPE_VTMETHOD},
};

template <std::size_t N> unsigned int match_prefix(const keyword_type (&table)[N], const char *text)
{
    for (const keyword_type &row : table)
        if (gx_strncmp_ci2(text, row.keyword) == 0)
            return row.type;
    return 0;
}

// A horizontal and a vertical system anywhere in one text form a compound system.
bool is_compound(const char *text)
{
    return (gx_strstr_ci(text, "GEOGCS") != nullptr || gx_strstr_ci(text, "PROJCS") != nullptr) &&
           gx_strstr_ci(text, "VERTCS") != nullptr;
}

} // namespace

void *gx_object_from_string(const char *text)
{
    return gx_object_from_string_errext(text, nullptr);
}

void *gx_object_from_string_errext(const char *text, gx_err_rec *err)
{
    gx::err_scope scope(err);
    if (text == nullptr) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 456, "gx_object_from_string",
                   "Null WKT string");
        return nullptr;
    }
    const char *start = text;
    while (*start != '\0' && !std::isalpha(static_cast<unsigned char>(*start)))
        ++start;
    if (*start == '\0')
        return nullptr;

    unsigned int type = match_prefix(leading_keywords, start);
    if (type == 0 && is_compound(start))
        type = GX_TYPE_HVCOORDSYS;
    if (type == 0)
        type = match_prefix(other_keywords, start);
    if (type == 0) {
        char keyword[GX_TEXT_LEN];
        int length = 0;
        while (start[length] != '\0' && start[length] != ']' && length < GX_TEXT_LEN - 1)
            ++length;
        std::memcpy(keyword, start, static_cast<std::size_t>(length));
        keyword[length] = '\0';
        gx_err_fmt(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 461, "gx_object_from_string",
                   "Unrecognized object keyword \"%s\" in WKT string", keyword);
        return nullptr;
    }
    return gx_object_from_string_by_type_errext(type, text, err);
}

void *gx_object_from_string_by_type(unsigned int type, const char *text)
{
    return gx_object_from_string_by_type_errext(type, text, nullptr);
}

void *gx_object_from_string_by_type_errext(unsigned int type, const char *text, gx_err_rec *err)
{
    if (text == nullptr) {
        gx::err_scope scope(err);
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 456,
                   "gx_object_from_string_by_type", "Null WKT string");
        return nullptr;
    }
    if (type == 0)
        return gx_object_from_string_errext(text, err);
    if (type == GX_TYPE_LINUNIT || type == GX_TYPE_ANGUNIT)
        type = GX_TYPE_UNIT;
    const gx_object_vec *vec = gx_object_vector(type);
    if (vec == nullptr || vec->from_string_errext == nullptr) {
        gx::err_scope scope(err);
        gx_err_fmt(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_WKT, 426,
                   "gx_object_from_string_by_type", "Invalid object type (%06x)", type);
        return nullptr;
    }
    return vec->from_string_errext(text, err);
}
