// gx_factory.cpp -- objects from codes.
//
// Every type factory runs the same procedure (make): the user's definition of the code comes
// first, so that a user can replace a predefined object; then the built-in definitions; a code
// they do not know may have been changed, and its replacement is built instead; the retired
// definitions are the last resort.  The object is stamped with the status telling which source
// built it, with the code it was built under and with the authority and version of that code's
// range.  The types differ only in the row of gx::factory::type_factory they pass.
//
// Also here: the factories that find a code's type for themselves (gx_factory, coordsys,
// hvdatum), the generic dispatch by type, and the factories of the registries (methods,
// projections, parameters), which hand the code on unchanged.
#include "factory/gx_factory.h"

#include "factory/gx_objedithome.h"

#include <iterator>

namespace gx::factory {

namespace {

constexpr const char *user_authority = "CUSTOM";
constexpr const char *user_version = "";

// An object as one of the sources built it, with the status and code to stamp on it.
struct built {
    void *object;
    unsigned int status;
    int code;
};

const gx_defrec *find_retired(const retired_set &retired, int code)
{
    for (int i = 0; i < retired.count; i++)
        if (retired.rows[i].code == code)
            return &retired.rows[i];
    return nullptr;
}

void *assemble_if(const type_factory &factory, const gx_defrec *rec, gx_err_rec *err)
{
    return rec != nullptr ? factory.assemble(*rec, err) : nullptr;
}

// The built-in object of a code: its own definition, else its replacement's, else a retired
// one.  A discontinued code still builds; only its status says so.
built from_database(const type_factory &factory, int code, gx_err_rec *err)
{
    if (const gx_defrec *rec = gx_defdata_find(factory.type, code)) {
        const unsigned int status = gx_factory_discontinued_lookup(factory.discontinued, code)
                                        ? GX_STATUS_DISCONTINUED
                                        : GX_STATUS_CODE;
        return {factory.assemble(*rec, err), status, code};
    }
    if (int replacement = gx_factory_codechange_lookup(factory.changes, code)) {
        const gx_defrec *rec = gx_defdata_find(factory.type, replacement);
        return {assemble_if(factory, rec, err), GX_STATUS_CODECHANGE, replacement};
    }
    return {assemble_if(factory, find_retired(factory.retired, code), err), GX_STATUS_DEAD, code};
}

// The object from the first source that builds it: a user definition hides the built-in one.
built from_sources(const type_factory &factory, int code, gx_err_rec *err)
{
    const gx_defrec *user = gx_objedit_find(factory.type, code, err);
    if (void *object = assemble_if(factory, user, err))
        return {object, GX_STATUS_USER, code};
    return from_database(factory, code, err);
}

// Stamps the status, the code, and the authority and version: those of user definitions, or
// of the range that holds the code.
void stamp(const type_factory &factory, const built &b)
{
    const char *authority = "";
    const char *version = "";
    if (b.status == GX_STATUS_USER) {
        authority = user_authority;
        version = user_version;
    } else {
        factory.authority(b.code, &authority, &version);
    }
    gx_object_status_set(b.object, b.status);
    gx_object_code_set(b.object, b.code, authority, version);
}

// An error recorded by a component factory stands; warnings do not count.
bool has_error(const gx_err_rec *err) { return err->level == GX_ERRLVL_ERROR; }

} // namespace

void report_code(gx_err_rec *err, unsigned int number, const char *function, const char *format,
                 int code)
{
    gx_err_rec local;
    gx_err_fmt(err != nullptr ? err : &local, GX_ERRLVL_ERROR, GX_ERRCAT_FACTORY, number, function,
               format, code);
}

void report_text(gx_err_rec *err, unsigned int number, const char *function, const char *text)
{
    gx_err_rec local;
    gx_err_str(err != nullptr ? err : &local, GX_ERRLVL_ERROR, GX_ERRCAT_FACTORY, number, function,
               text);
}

void *make(const type_factory &factory, int code, gx_err_rec *err)
{
    gx_err_rec local;
    gx_err_rec *rec = err != nullptr ? err : &local;
    gx_err_clear(rec);

    const built b =
        factory.assemble != nullptr ? from_sources(factory, code, rec) : built{nullptr, 0, code};
    if (b.object != nullptr) {
        stamp(factory, b);
        return b.object;
    }
    if (!has_error(rec))
        report_code(rec, factory.unknown_number, factory.function, factory.unknown_format, b.code);
    return nullptr;
}

// ---- parameters of a record -------------------------------------------------------------

parameter_slots::~parameter_slots()
{
    for (gx_parameter *&parm : slots_) {
        gx_parameter_del(parm);
        parm = nullptr;
    }
}

void parameter_slots::release()
{
    for (gx_parameter *&parm : slots_)
        parm = nullptr;
}

bool parameter_slots::fill(const gx_defrec &rec, gx_err_rec *err)
{
    for (int i = 0; i < rec.parm_count; i++) {
        const gx_defparm &item = rec.parms[i];
        gx_parameter *parm = gx_factory_parameter_errext(item.code, err);
        if (parm == nullptr)
            return false;
        gx_parameter_value_set(parm, item.value);
        if (item.text != nullptr)
            gx_parameter_name_set(parm, item.text);
        const int slot = gx_parmlist_index_from_code(item.code);
        if (slot < 0 || slot >= static_cast<int>(std::size(slots_))) {
            gx_parameter_del(parm);
            continue;
        }
        gx_parameter_del(slots_[slot]); // a repeated parameter: the later value holds
        slots_[slot] = parm;
    }
    return true;
}

} // namespace gx::factory

namespace {

using gx::factory::report_code;

// The factory of a type, with the generic signature.
using code_factory = void *(*)(int code, gx_err_rec *err);

template <auto Factory> void *generic(int code, gx_err_rec *err) { return Factory(code, err); }

struct type_row {
    int type;
    code_factory make;
};

// Any kind of unit code goes to the unit factory: the type is not checked against the code.
constexpr type_row factories_by_type[] = {
    {GX_TYPE_GEOGCS, generic<gx_factory_geogcs_errext>},
    {GX_TYPE_PROJCS, generic<gx_factory_projcs_errext>},
    {GX_TYPE_VERTCS, generic<gx_factory_vertcs_errext>},
    {GX_TYPE_HVCOORDSYS, generic<gx_factory_hvcoordsys_errext>},
    {GX_TYPE_DATUM, generic<gx_factory_datum_errext>},
    {GX_TYPE_VDATUM, generic<gx_factory_vdatum_errext>},
    {GX_TYPE_GEOGTRAN, generic<gx_factory_geogtran_errext>},
    {GX_TYPE_LINUNIT, generic<gx_factory_unit_errext>},
    {GX_TYPE_ANGUNIT, generic<gx_factory_unit_errext>},
    {GX_TYPE_UNIT, generic<gx_factory_unit_errext>},
    {GX_TYPE_PRIMEM, generic<gx_factory_primem_errext>},
    {GX_TYPE_SPHEROID, generic<gx_factory_spheroid_errext>},
    {GX_TYPE_METHOD, generic<gx_factory_method_errext>},
    {GX_TYPE_HTMETHOD, generic<gx_factory_htmethod_errext>},
    {GX_TYPE_PROJECTION, generic<gx_factory_projection_errext>},
    {GX_TYPE_PARAMETER, generic<gx_factory_parameter_errext>},
    {GX_TYPE_VERTTRAN, generic<gx_factory_verttran_errext>},
    {GX_TYPE_VTMETHOD, generic<gx_factory_vtmethod_errext>},
};

code_factory factory_of_type(int type)
{
    for (const type_row &row : factories_by_type)
        if (row.type == type)
            return row.make;
    return nullptr;
}

} // namespace

void *gx_factory(int code) { return gx_factory_errext(code, nullptr); }

void *gx_factory_errext(int code, gx_err_rec *err)
{
    const int type = gx_factory_coderanges_type(code);
    if (type == 0) {
        report_code(err, 201, "gx_factory_by_type",
                    "Factory code (%d) is not in the range of any object", code);
        return nullptr;
    }
    return gx_factory_by_type_errext(type, code, err);
}

void *gx_factory_by_type(int type, int code)
{
    return gx_factory_by_type_errext(type, code, nullptr);
}

void *gx_factory_by_type_errext(int type, int code, gx_err_rec *err)
{
    if (code_factory make = factory_of_type(type))
        return make(code, err);
    gx_err_rec local;
    gx_err_fmt(err != nullptr ? err : &local, GX_ERRLVL_ERROR, GX_ERRCAT_FACTORY, 223,
               "gx_factory_by_type", "Invalid object type (%06x) for code (%d)",
               static_cast<unsigned int>(type), code);
    return nullptr;
}

int gx_factory_type(void *object)
{
    if (!gx_object_p(object))
        return 0;
    const int type = static_cast<int>(gx_object_type(object));
    if (type != GX_TYPE_UNIT)
        return type;
    const int unit_type = gx_factory_coderanges_type(gx_factory_code(object));
    return unit_type == GX_TYPE_LINUNIT || unit_type == GX_TYPE_ANGUNIT ? unit_type : type;
}

// ---- factories that test the code's type ------------------------------------------------

gx_coordsys *gx_factory_coordsys(int code) { return gx_factory_coordsys_errext(code, nullptr); }

gx_coordsys *gx_factory_coordsys_errext(int code, gx_err_rec *err)
{
    switch (gx_factory_coderanges_type(code)) {
    case GX_TYPE_GEOGCS:
        return gx_factory_geogcs_errext(code, err);
    case GX_TYPE_PROJCS:
        return gx_factory_projcs_errext(code, err);
    default:
        report_code(err, 219, "gx_factory_coordsys", "Invalid coordinate system factory code (%d)",
                    code);
        return nullptr;
    }
}

gx_hvdatum *gx_factory_hvdatum(int code) { return gx_factory_hvdatum_errext(code, nullptr); }

gx_hvdatum *gx_factory_hvdatum_errext(int code, gx_err_rec *err)
{
    switch (gx_factory_coderanges_type(code)) {
    case GX_TYPE_DATUM:
        return gx_factory_datum_errext(code, err);
    case GX_TYPE_VDATUM:
        return gx_factory_vdatum_errext(code, err);
    default:
        report_code(err, 208, "gx_factory_hvdatum",
                    "Invalid datum or vertical datum factory code (%d)", code);
        return nullptr;
    }
}

// ---- factories of the registries: the registry's object, unchanged ----------------------

#define GX_DEFINE_REGISTRY_FACTORY(T, from_code)                                                   \
    gx_##T *gx_factory_##T(int code) { return from_code(code, nullptr); }                          \
    gx_##T *gx_factory_##T##_errext(int code, gx_err_rec *err) { return from_code(code, err); }

GX_DEFINE_REGISTRY_FACTORY(method, gx_methlist_method_from_code)
GX_DEFINE_REGISTRY_FACTORY(htmethod, gx_htmethlist_htmethod_from_code)
GX_DEFINE_REGISTRY_FACTORY(vtmethod, gx_vtmethlist_vtmethod_from_code)
GX_DEFINE_REGISTRY_FACTORY(projection, gx_projlist_projection_from_code)
GX_DEFINE_REGISTRY_FACTORY(parameter, gx_parmlist_parameter_from_code)
