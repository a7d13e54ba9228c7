// gx_method_family.h -- internal: the one implementation of the three method types.
//
// A method object -- a datum shift (METHOD), a plane fit (HTMETHOD) or a height method
// (VTMETHOD) -- is a name and the routines of its registry row.  The kinds differ only in their
// routine type, their registry and their texts.  Each kind's source describes those in a small
// table, a struct with these members, and instantiates method_family with it:
//
//   record                 the object record (gx_method ...)
//   type, type_name        GX_TYPE_METHOD, "method"
//   keyword                "METHOD"
//   from_string_function   "gx_method_from_string"
//   missing_routines       the text of 340 when neither the arguments nor the registry give
//                          routines
//   row_named(name)        the kind's registry row of a name, or null
//   set_code(obj)          stamps code, authority and version from the registry
//   from_name(name, err)   the registry's factory, which reads a method from its WKT name
#ifndef GX_METHOD_FAMILY_H
#define GX_METHOD_FAMILY_H

#include "object/gx_types.h"

namespace gx {

template <class Kind> struct method_family {
    using record = typename Kind::record;
    using routines = method_routines<decltype(record::forward)>;

    static routines routines_of_record(const record *m)
    {
        return {m->forward, m->inverse, m->constfunc, m->coordsys_type};
    }

    // The constructor behind every public one.  Without a forward or an inverse routine, the
    // registry row of the name supplies all of them.
    static record *make(const char *name, routines r, const char *function, gx_err_rec *err)
    {
        err_scope scope(err);
        if (r.forward == nullptr || r.inverse == nullptr) {
            const auto *row = Kind::row_named(name);
            if (row == nullptr) {
                gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 340, function,
                           Kind::missing_routines);
                return nullptr;
            }
            r = routines_of(*row);
        }
        auto *m = as<record>(new_record(desc, name, function, scope.rec()));
        if (m == nullptr)
            return nullptr;
        m->forward = r.forward;
        m->inverse = r.inverse;
        m->constfunc = r.constfunc;
        m->coordsys_type = r.coordsys_type;
        Kind::set_code(m);
        return m;
    }

    static gx_object_header *clone(const gx_object_header *obj)
    {
        return header_of(make(obj->name, routines_of_record(as<record>(obj)),
                              function_name(desc, "clone").text, nullptr));
    }

    static bool equal(const gx_object_header *a, const gx_object_header *b)
    {
        return gx_strcmp_ci(a->name, b->name) == 0;
    }

    static void write(const gx_object_header *obj, int, text_buf &out)
    {
        out.printf("%s[\"%s\"", Kind::keyword, obj->name);
    }

    // A method read from text computes with the registry routines of its name.
    static gx_object_header *build(wkt_parse &parse)
    {
        return header_of(Kind::from_name(parse.name, parse.caller_err));
    }

    static constexpr wkt_sub subs[] = {authority_sub(0)};

    static constexpr wkt_grammar grammar = {
        Kind::keyword,
        nullptr,
        Kind::from_string_function,
        2,
        nullptr,
        nullptr,
        0,
        {},
        false,
        1,
        subs,
        0,
        nullptr,
        nullptr,
        build,
    };

    static constexpr type_desc desc = {
        Kind::type, Kind::type_name, sizeof(record), true,  wkt_close::authority_and_bracket,
        nullptr,    clone,           equal,          write, &grammar,
    };

    static gx_object_header *from_tokens(const gx_token_list *list, int start, int *next,
                                         gx_err_rec *err)
    {
        return wkt_from_tokens(grammar, list, start, next, err);
    }
};

} // namespace gx

#endif // GX_METHOD_FAMILY_H
