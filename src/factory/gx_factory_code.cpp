// gx_factory_code.cpp -- the code of an object that does not carry one.
//
// An object read from text without an AUTHORITY clause has no code.  Its code is found by
// building every code of its type's ranges and comparing: an object from the current
// definitions (or a user definition) ends the search at once; otherwise the candidate from the
// best source wins (a changed code before a discontinued one before a retired one).  This
// builds thousands of objects for the wide types and is meant for occasional use.
#include "gridex.h"

namespace {

// The status below which a candidate is current and ends the search.
constexpr unsigned int first_noncurrent_status = GX_STATUS_CODECHANGE;

struct match {
    int code = 0;
    unsigned int status = 127; // worse than any status a factory stamps
    const char *authority = "";
    const char *version = "";
};

// The status of the object built for code when it equals object, else 0.
unsigned int status_if_equal(const void *object, int type, int code)
{
    gx_err_rec err;
    void *candidate = gx_factory_by_type_errext(type, code, &err);
    if (candidate == nullptr)
        return 0;
    const bool equal = gx_object_eq(candidate, object) != 0;
    const unsigned int status = gx_object_status(candidate) & 0xffu;
    gx_object_del(candidate);
    return equal ? status : 0;
}

match find_code(const void *object, int type, const gx_coderanges &ranges)
{
    match best;
    for (int r = 0; r < ranges.count; r++) {
        const gx_coderange &range = ranges.rows[r];
        for (int code = range.low; code <= range.high; code++) {
            const unsigned int status = status_if_equal(object, type, code);
            if (status == 0 || status >= best.status)
                continue;
            best = {code, status, range.authority, range.version};
            if (status < first_noncurrent_status)
                return best;
        }
    }
    return best;
}

} // namespace

int gx_factory_code(void *object)
{
    if (!gx_object_p(object))
        return 0;
    const int own_code = gx_object_code(object);
    if (own_code >= 0)
        return own_code;
    const int type = static_cast<int>(gx_object_type(object));
    const gx_coderanges *ranges = gx_factory_coderanges_tbl(type);
    if (ranges == nullptr)
        return 0;
    const match found = find_code(object, type, *ranges);
    gx_object_code_set(object, found.code, found.authority, found.version);
    return found.code;
}
