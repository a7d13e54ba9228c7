// The vertical transformation: heights carried from one vertical system to another by a height
// method and its parameters, at horizontal positions given in an optional horizontal system.
//   VERTTRAN["WGS_1984_To_EGM96",GEOGCS[...],VERTCS[...],VERTCS[...],VTMETHOD["EGM96"],
//            PARAMETER["Dataset_egm96",0.0]]
// As in a geographic transformation, a grid method's nodes are loaded once into the object's
// constants and never copied.
#include "object/gx_types.h"

namespace {

using gx::as;

const gx::synonym verttran_synonyms[] = {
    {nullptr, nullptr},
};

constexpr int piece_limit = 1022;

void verttran_free_parts(gx_object_header *obj)
{
    auto *vt = as<gx_verttran>(obj);
    gx_coordsys_del(vt->coordsys);
    gx_vertcs_del(vt->vertcs1);
    gx_vertcs_del(vt->vertcs2);
    gx_vtmethod_del(vt->vtmethod);
    gx::delete_parameters(vt->parameters);
    gx::unload_constants(vt->constants);
}

gx_object_header *verttran_clone(const gx_object_header *obj)
{
    const auto *vt = as<gx_verttran>(obj);
    gx::part_copy coordsys(vt->coordsys), vertcs1(vt->vertcs1), vertcs2(vt->vertcs2),
        vtmethod(vt->vtmethod);
    gx_parameter *parameters[gx::parameter_slots];
    if (!coordsys.ok() || !vertcs1.ok() || !vertcs2.ok() || !vtmethod.ok() ||
        !gx::clone_parameters(vt->parameters, parameters))
        return nullptr;
    gx_verttran *copy =
        gx_verttran_new(obj->name, coordsys.get<gx_coordsys>(), vertcs1.get<gx_vertcs>(),
                        vertcs2.get<gx_vertcs>(), vtmethod.get<gx_vtmethod>(), parameters);
    if (copy == nullptr) {
        gx::delete_parameters(parameters);
        return nullptr;
    }
    coordsys.release();
    vertcs1.release();
    vertcs2.release();
    vtmethod.release();
    return gx::header_of(copy);
}

// An absent horizontal system equals only an absent one.
bool same_coordsys(const gx_coordsys *a, const gx_coordsys *b)
{
    return (a == nullptr && b == nullptr) || gx_coordsys_eq(a, b);
}

bool verttran_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *x = as<gx_verttran>(a);
    const auto *y = as<gx_verttran>(b);
    return gx::parameters_equal(x->parameters, y->parameters) &&
           gx_strcmp_ci(a->name, b->name) == 0 && same_coordsys(x->coordsys, y->coordsys) &&
           gx_vertcs_eq(x->vertcs1, y->vertcs1) && gx_vertcs_eq(x->vertcs2, y->vertcs2) &&
           gx_vtmethod_eq(x->vtmethod, y->vtmethod);
}

void verttran_write(const gx_object_header *obj, int options, gx::text_buf &out)
{
    const auto *vt = as<gx_verttran>(obj);
    out.printf("VERTTRAN[\"%s\"", obj->name);
    if (vt->coordsys != nullptr)
        out.printf(",%s", gx::sub_text(vt->coordsys, options).text);
    out.printf(",%s,%s,%s", gx::sub_text(vt->vertcs1, options).text,
               gx::sub_text(vt->vertcs2, options).text, gx::sub_text(vt->vtmethod, options).text);
    gx::append_parameters(out, vt->parameters, options, piece_limit);
}

enum verttran_slot { authority_slot, coordsys_slot, vertcs1_slot, vertcs2_slot, vtmethod_slot };

constexpr gx::parameter_rule verttran_parameters = {
    GX_TYPE_VERTTRAN, "Parameter \"%s\" in WKT string is not valid for a verttran"};

bool verttran_accept(gx::wkt_parse &parse, const gx::wkt_sub &, gx_object_header *obj)
{
    return gx::accept_parameter(parse, obj, verttran_parameters);
}

gx_object_header *verttran_build(gx::wkt_parse &parse)
{
    if (!gx::require_parts(parse, {
                                      {vertcs1_slot, 443, "Missing vertcs1 in WKT string"},
                                      {vertcs2_slot, 444, "Missing vertcs2 in WKT string"},
                                      {vtmethod_slot, 445, "Missing vtmethod in WKT string"},
                                  }))
        return nullptr;
    gx_parameter *parameters[gx::parameter_slots];
    gx::collected_parameters(parse, parameters);
    const char *name = gx::synonym_lookup(verttran_synonyms, parse.name);
    return gx::built(parse, gx_verttran_new_errext(name, parse.slots[coordsys_slot],
                                                   as<gx_vertcs>(parse.slots[vertcs1_slot]),
                                                   as<gx_vertcs>(parse.slots[vertcs2_slot]),
                                                   as<gx_vtmethod>(parse.slots[vtmethod_slot]),
                                                   parameters, parse.caller_err));
}

constexpr gx::wkt_sub verttran_subs[] = {
    gx::authority_sub(authority_slot),
    {"GEOGCS", "PROJCS", coordsys_slot, gx::coordsys_from_tokens, 404,
     "Duplicate coordsys in WKT string"},
    {"VERTCS", nullptr, vertcs1_slot, gx::vertcs_from_tokens, 418,
     "Duplicate vertical CS in WKT string", 2},
    {"VTMETHOD", nullptr, vtmethod_slot, gx::vtmethod_from_tokens, 417,
     "Duplicate vtmethod in WKT string"},
    {"PARAMETER", nullptr, -1, gx::parameter_from_tokens, 411, nullptr},
};

constexpr gx::wkt_grammar verttran_grammar = {
    "VERTTRAN",
    nullptr,
    "gx_verttran_from_string",
    2,
    nullptr,
    nullptr,
    0,
    {},
    false,
    5,
    verttran_subs,
    authority_slot,
    nullptr,
    verttran_accept,
    verttran_build,
};

} // namespace

namespace gx {

constexpr type_desc verttran_desc = {
    GX_TYPE_VERTTRAN,
    "verttran",
    sizeof(gx_verttran),
    true,
    wkt_close::authority_and_bracket,
    verttran_free_parts,
    verttran_clone,
    verttran_equal,
    verttran_write,
    &verttran_grammar,
};

gx_object_header *verttran_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err)
{
    return wkt_from_tokens(verttran_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_verttran, gx::verttran_desc)

gx_verttran *gx_verttran_new(const char *name, gx_coordsys *coordsys, gx_vertcs *vertcs1,
                             gx_vertcs *vertcs2, gx_vtmethod *vtmethod,
                             gx_parameter *parameters[16])
{
    return gx_verttran_new_errext(name, coordsys, vertcs1, vertcs2, vtmethod, parameters, nullptr);
}

namespace {

// A method that needs the points' positions in a kind of horizontal system needs one of that
// kind: an absent system does not do.
bool coordsys_fits(const gx_coordsys *coordsys, const gx_vtmethod *vtmethod)
{
    const unsigned int needed = gx_vtmethod_coordsys_type(vtmethod);
    return needed == 0 || gx_object_type(coordsys) == needed;
}

} // namespace

gx_verttran *gx_verttran_new_errext(const char *name, gx_coordsys *coordsys, gx_vertcs *vertcs1,
                                    gx_vertcs *vertcs2, gx_vtmethod *vtmethod,
                                    gx_parameter *parameters[16], gx_err_rec *err)
{
    const char *function = "gx_verttran_new";
    gx::err_scope scope(err);
    if (coordsys != nullptr && !gx_coordsys_p(coordsys)) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 338, function,
                   "Invalid coordsys object argument");
        return nullptr;
    }
    if (!gx::check_parts(
            scope.rec(), function,
            {
                {vertcs1, GX_TYPE_VERTCS, 341, "Null or invalid vertcs1 object argument"},
                {vertcs2, GX_TYPE_VERTCS, 342, "Null or invalid vertcs2 object argument"},
                {vtmethod, GX_TYPE_VTMETHOD, 343, "Null or invalid vtmethod object argument"},
            }))
        return nullptr;
    if (!coordsys_fits(coordsys, vtmethod)) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 312, function,
                   "Invalid coordsys type for vtmethod");
        return nullptr;
    }
    if (parameters == nullptr) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 330, function,
                   "Null parameters array argument");
        return nullptr;
    }
    auto *vt = gx::as<gx_verttran>(gx::new_record(gx::verttran_desc, name, function, scope.rec()));
    if (vt == nullptr)
        return nullptr;
    vt->coordsys = coordsys;
    vt->vertcs1 = vertcs1;
    vt->vertcs2 = vertcs2;
    vt->vtmethod = vtmethod;
    for (int slot = 0; slot < gx::parameter_slots; ++slot)
        vt->parameters[slot] = parameters[slot];
    return vt;
}

gx_coordsys *gx_verttran_coordsys(const gx_verttran *vt)
{
    return gx_verttran_p(vt) ? vt->coordsys : nullptr;
}

gx_vertcs *gx_verttran_vertcs1(const gx_verttran *vt)
{
    return gx_verttran_p(vt) ? vt->vertcs1 : nullptr;
}

gx_vertcs *gx_verttran_vertcs2(const gx_verttran *vt)
{
    return gx_verttran_p(vt) ? vt->vertcs2 : nullptr;
}

gx_vtmethod *gx_verttran_vtmethod(const gx_verttran *vt)
{
    return gx_verttran_p(vt) ? vt->vtmethod : nullptr;
}

gx_parameter **gx_verttran_parameters(gx_verttran *vt)
{
    return gx_verttran_p(vt) ? vt->parameters : nullptr;
}

// ---- constants ----------------------------------------------------------------------------------

gx_constants *gx_verttran_constants(const gx_verttran *vt)
{
    return gx_verttran_p(vt) ? vt->constants.container : nullptr;
}

int gx_verttran_isconstloaded(const gx_verttran *vt)
{
    return gx_verttran_p(vt) ? vt->constants.loaded : 0;
}

int gx_verttran_load_constants(gx_verttran *vt)
{
    if (!gx_verttran_p(vt))
        return 0;
    return gx::load_constants(vt->constants, vt->vtmethod->constfunc, vt->parameters);
}

void gx_verttran_unload_constants(gx_verttran *vt)
{
    if (gx_verttran_p(vt))
        gx::unload_constants(vt->constants);
}
