// The horizontal datum: a named realisation of a reference frame on its spheroid.
//   DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,298.257223563]]
// The datum owns its spheroid.  Names read from text go through a table of renamed datums, so
// texts written under an older name still compare equal to the current definitions.
#include "object/gx_types.h"

namespace {

using gx::as;

const gx::synonym datum_synonyms[] = {
    {"D_Deutsche_Hauptdreiecksnetz", "D_Deutsches_Hauptdreiecksnetz"},
    {"D_Tahiti", "D_Tahiti_1952"},
    {"D_Tahaa", "D_Tahaa_1954"},
    {"D_K0_1949", "D_Kerguelen_Island_1949"},
    {"D_Reunion", "D_Reunion_1947"},
    {"D_Piton_des_Neiges", "D_Reunion_1947"},
    {"D_Phillipine_Reference_System_1992", "D_Philippine_Reference_System_1992"},
    {"D_North_American_1983_CSRS98", "D_North_American_1983_CSRS"},
    {nullptr, nullptr},
};

void datum_free_parts(gx_object_header *obj) { gx_spheroid_del(as<gx_datum>(obj)->spheroid); }

bool datum_equal(const gx_object_header *a, const gx_object_header *b)
{
    return gx_strcmp_ci(a->name, b->name) == 0 &&
           gx_spheroid_eq(as<gx_datum>(a)->spheroid, as<gx_datum>(b)->spheroid) != 0;
}

gx_object_header *datum_clone(const gx_object_header *obj)
{
    gx_spheroid *sph = gx_spheroid_clone(as<gx_datum>(obj)->spheroid);
    if (sph == nullptr)
        return nullptr;
    gx_datum *copy = gx_datum_new(obj->name, sph);
    if (copy == nullptr)
        gx_spheroid_del(sph);
    return gx::header_of(copy);
}

void datum_write(const gx_object_header *obj, int sub_options, gx::text_buf &out)
{
    const gx::sub_text spheroid(as<gx_datum>(obj)->spheroid, sub_options);
    out.printf("DATUM[\"%s\",%s", obj->name, spheroid.text);
}

enum datum_slot { spheroid_slot, authority_slot };

gx_object_header *datum_build(gx::wkt_parse &parse)
{
    auto *sph = reinterpret_cast<gx_spheroid *>(parse.slots[spheroid_slot]);
    if (sph == nullptr) {
        parse.error(442, "Missing spheroid in WKT string");
        return nullptr;
    }
    const char *name = gx::synonym_lookup(datum_synonyms, parse.name);
    gx_datum *datum = gx_datum_new_errext(name, sph, parse.caller_err);
    if (datum != nullptr)
        parse.take<gx_spheroid>(spheroid_slot); // the datum owns it now
    return gx::header_of(datum);
}

constexpr gx::wkt_sub datum_subs[] = {
    {"SPHEROID", "ELLIPSOID", spheroid_slot, gx::spheroid_from_tokens, 415,
     "Duplicate spheroid in WKT string"},
    gx::authority_sub(authority_slot),
};

constexpr gx::wkt_grammar datum_grammar = {
    "DATUM", nullptr,    "gx_datum_from_string", 2,       nullptr, nullptr,     0, {}, false,
    2,       datum_subs, authority_slot,         nullptr, nullptr, datum_build,
};

} // namespace

namespace gx {

constexpr type_desc datum_desc = {
    GX_TYPE_DATUM,    "datum",     sizeof(gx_datum), true,        wkt_close::authority_and_bracket,
    datum_free_parts, datum_clone, datum_equal,      datum_write, &datum_grammar,
};

gx_object_header *datum_from_tokens(const gx_token_list *list, int start, int *next,
                                    gx_err_rec *err)
{
    return wkt_from_tokens(datum_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_datum, gx::datum_desc)

gx_datum *gx_datum_new(const char *name, gx_spheroid *spheroid)
{
    return gx_datum_new_errext(name, spheroid, nullptr);
}

gx_datum *gx_datum_new_errext(const char *name, gx_spheroid *spheroid, gx_err_rec *err)
{
    const char *function = "gx_datum_new";
    gx::err_scope scope(err);
    if (!gx_spheroid_p(spheroid)) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 327, function,
                   "Null or invalid spheroid object argument");
        return nullptr;
    }
    auto *datum = as<gx_datum>(gx::new_record(gx::datum_desc, name, function, scope.rec()));
    if (datum == nullptr)
        return nullptr; // the caller keeps its spheroid
    datum->spheroid = spheroid;
    return datum;
}

gx_spheroid *gx_datum_spheroid(const gx_datum *datum)
{
    return gx_datum_p(datum) ? datum->spheroid : nullptr;
}
