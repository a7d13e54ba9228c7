// gx_wkt.h -- internal: the one WKT walk that every type's parser is configured from.
//
// A type's text is its keyword, a name, a fixed number of positional values, then sub-objects
// in any order:  UNIT["Degree",0.0174532925199433,AUTHORITY["EPSG",9102]].  The walk checks the
// keyword, the name and the positional values, hands each recognised sub-object keyword to that
// sub-type's parser, reports duplicates, skips anything it does not know, and finally lets the
// type build its object from what was collected.  A type's parser is therefore a grammar (what
// it expects) and a build routine (how the pieces become an object).
#ifndef GX_WKT_H
#define GX_WKT_H

#include "object/gx_core.h"
#include "object/gx_slots.h"

namespace gx {

struct wkt_parse;

// Parses the object whose keyword stands at `start`; writes the index after it through `next`.
using from_tokens_fn = gx_object_header *(*)(const gx_token_list *list, int start, int *next,
                                             gx_err_rec *err);

// A positional value after the name, with the error when it is missing.
struct wkt_value {
    unsigned int missing_number;
    const char *missing_message;
};

// A kind of sub-object the type accepts.
struct wkt_sub {
    const char *keyword;  // recognised loosely, without case
    const char *keyword2; // a second keyword for the same kind, or null
    int slot;             // where the parsed object is kept; -1: handed to the grammar's accept
    from_tokens_fn parse;
    unsigned int duplicate_number; // reported for an object of the kind when its slots are full
    const char *duplicate_message;
    // The kind fills this many slots from `slot` on, in the order its objects come (a
    // transformation's two systems); one more is a duplicate.
    int slot_count = 1;
};

constexpr int wkt_max_values = 3;
constexpr int wkt_max_slots = 8;

struct wkt_grammar {
    const char *keyword;
    const char *keyword2;             // a second keyword the type also answers to, or null
    const char *function;             // reported function name, "gx_unit_from_string"
    int min_tokens;                   // keyword, name and positional values
    const char *insufficient_message; // null: "Insufficient tokens in WKT string"
    const char *range_message;        // null: "Token start (%d) in WKT string is out of range"
    int value_count;
    wkt_value values[wkt_max_values];
    bool collect_rest; // the remaining plain values are the type's (array, authority)
    int sub_count;
    const wkt_sub *subs;
    int authority_slot; // slot of the AUTHORITY sub-object, or -1
    // Validates the positional values (reports and returns false on a bad one); may be null.
    bool (*check_values)(wkt_parse &parse);
    // Takes a sub-object of a slot -1 kind (parameters); reports and returns false when it is
    // refused, in which case the walk deletes it.  May be null.
    bool (*accept)(wkt_parse &parse, const wkt_sub &sub, gx_object_header *obj);
    // Builds the object from the collected pieces.  Reports through parse.caller_err (the
    // caller's record or null, as the constructors expect) and returns null on failure.  A piece
    // the object takes over must be set to null in `parse`; whatever is left is deleted.
    gx_object_header *(*build)(wkt_parse &parse);
};

// What the walk collected for one object.
struct wkt_parse {
    const wkt_grammar *grammar = nullptr;
    const gx_token_list *list = nullptr;
    int start = 0;                    // index of the keyword
    int end = 0;                      // index after the object's last token
    int level = 0;                    // level of the keyword
    gx_err_rec *rec = nullptr;        // the record in use (caller's or local)
    gx_err_rec *caller_err = nullptr; // the caller's record, or null
    const char *name = nullptr;
    const char *values[wkt_max_values] = {};
    int rest_count = 0;
    const char *rest[GX_MAX_TOKENS]; // the first rest_count are set (not cleared: 2 KiB)
    gx_object_header *slots[wkt_max_slots] = {};
    gx_object_header *params[parameter_slots] = {};

    // Reports a WKT error (category 16) under the grammar's function name.
    void error(unsigned int number, const char *format, ...) GX_PRINTF(3, 4);
    // The same under another function name, for the few messages a type reports as another.
    void error_as(const char *function, unsigned int number, const char *format, ...)
        GX_PRINTF(4, 5);
    // Takes a collected piece out of the parse (the object now owns it).
    template <class T> T *take(int slot)
    {
        auto *obj = reinterpret_cast<T *>(slots[slot]);
        slots[slot] = nullptr;
        return obj;
    }
};

// The shared walk: a type's from_tokens is a call of this with its grammar.
gx_object_header *wkt_from_tokens(const wkt_grammar &grammar, const gx_token_list *list, int start,
                                  int *next, gx_err_rec *err);

// from_string of a type with a grammar: tokenizes from the type's keyword and runs the walk.
gx_object_header *wkt_from_string(const wkt_grammar &grammar, const char *text, gx_err_rec *err);

// Index of the first token after the object that starts at `start`.
int wkt_object_end(const gx_token_list *list, int start);

// The AUTHORITY sub-object, kept in `slot`; every type that carries an authority lists it.
gx_object_header *authority_from_tokens(const gx_token_list *list, int start, int *next,
                                        gx_err_rec *err);
constexpr wkt_sub authority_sub(int slot)
{
    return {"AUTHORITY",           nullptr, slot,
            authority_from_tokens, 403,     "Duplicate authority in WKT string"};
}

// The name-synonym tables: pairs of (old name, current name) ended by a null pair.
struct synonym {
    const char *old_name;
    const char *current_name;
};
const char *synonym_lookup(const synonym *table, const char *name);

} // namespace gx

#endif // GX_WKT_H
