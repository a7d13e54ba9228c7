// The geographic transformation: a datum shift from one geographic system to another by a
// method and its parameters, in the slots the parameter registry gives them.
//   GEOGTRAN["NAD_1927_To_WGS_1984_1",GEOGCS[...],GEOGCS[...],METHOD["Geocentric_Translation"],
//            PARAMETER["X_Axis_Translation",-3.0],PARAMETER["Y_Axis_Translation",142.0],
//            PARAMETER["Z_Axis_Translation",183.0]]
// A grid method's nodes are loaded once into the object's constants and kept until unloaded;
// they go with the object and are never copied (a clone loads its own).
#include "object/gx_registry.h"

namespace {

using gx::as;

// Old names of transformations, mostly of datums that were renamed (NAD_1983_CSRS98 became
// NAD_1983_CSRS).  The two KKJ names are current-looking names mapped to the "_Old" definitions
// on purpose: a text that carries the plain name means the old one.
const gx::synonym geogtran_synonyms[] = {
    {"Tahiti_To_WGS_1984_1", "Tahiti_1952_To_WGS_1984_1"},
    {"Tahaa_To_WGS_1984_1", "Tahaa_1954_To_WGS_1984_1"},
    {"K0_1949_To_WGS_1984_1", "Kerguelen_Island_1949_To_WGS_1984_1"},
    {"Piton_des_Neiges_To_WGS_1984_1", "Reunion_1947_To_WGS_1984_1"},
    {"Piton_des_Neiges_To_RGR_1992_1", "Reunion_1947_To_RGR_1992_1"},
    {"RGR_1992_To_Piton_des_Neiges_1", "RGR_1992_To_Reunion_1947_1"},
    {"Amersfoort_To_WGS_1984_3X", "Amersfoort_To_WGS_1984_3"},
    {"NAD_1983_CSRS98_To_WGS_1984", "NAD_1983_CSRS_To_WGS_1984"},
    {"ATS_1977_To_NAD_1983_CSRS98_NTv2_New_Brunswick",
     "ATS_1977_To_NAD_1983_CSRS_NTv2_New_Brunswick"},
    {"NAD_1983_CSRS98_To_WGS_1984_1", "NAD_1983_CSRS_To_WGS_1984_1"},
    {"NAD_1983_To_NAD_1983_CSRS98_1", "NAD_1983_To_NAD_1983_CSRS_1"},
    {"NAD_1927_To_NAD_1983_CSRS98_1", "NAD_1927_To_NAD_1983_CSRS_1"},
    {"NAD_1927_CGQ77_To_NAD_1983_CSRS98", "NAD_1927_CGQ77_To_NAD_1983_CSRS"},
    {"ATS_1977_To_NAD_1983_CSRS98_2_NTv2_Prince_Edward_Is",
     "ATS_1977_To_NAD_1983_CSRS_2_NTv2_Prince_Edward_Is"},
    {"NAD_1927_To_NAD_1983_CSRS98_2", "NAD_1927_To_NAD_1983_CSRS_2"},
    {"NAD_1983_To_NAD_1983_CSRS98_2", "NAD_1983_To_NAD_1983_CSRS_2"},
    {"NAD_1983_To_NAD_1983_CSRS98_3", "NAD_1983_To_NAD_1983_CSRS_3"},
    {"ATS_1977_To_NAD_1983_CSRS98_NTv2_Nova_Scotia", "ATS_1977_To_NAD_1983_CSRS_NTv2_Nova_Scotia"},
    {"NAD_1983_CSRS98_To_WGS_1984_2", "NAD_1983_CSRS_To_WGS_1984_2"},
    {"NAD_1983_To_NAD_1983_CSRS98_4", "NAD_1983_To_NAD_1983_CSRS_4"},
    {"ATS_1977_To_NAD_1983_CSRS98_NTv2_Maritimes", "ATS_1977_To_NAD_1983_CSRS_NTv2_Maritimes"},
    {"KKJ_To_ETRS_1989_1", "KKJ_To_ETRS_1989_1_Old"},
    {"KKJ_To_WGS_1984_1", "KKJ_To_WGS_1984_1_Old"},
    {nullptr, nullptr},
};

// As in a projected system, parameters are appended only while the text stays below this many
// characters, which leaves room for the AUTHORITY clause and the closing bracket.
constexpr int piece_limit = 1022;

void geogtran_free_parts(gx_object_header *obj)
{
    auto *gt = as<gx_geogtran>(obj);
    gx_geogcs_del(gt->geogcs1);
    gx_geogcs_del(gt->geogcs2);
    gx_method_del(gt->method);
    gx::delete_parameters(gt->parameters);
    gx::unload_constants(gt->constants);
}

gx_object_header *geogtran_clone(const gx_object_header *obj)
{
    const auto *gt = as<gx_geogtran>(obj);
    gx::part_copy geogcs1(gt->geogcs1), geogcs2(gt->geogcs2), method(gt->method);
    gx_parameter *parameters[gx::parameter_slots];
    if (!geogcs1.ok() || !geogcs2.ok() || !method.ok() ||
        !gx::clone_parameters(gt->parameters, parameters))
        return nullptr;
    gx_geogtran *copy =
        gx_geogtran_new(obj->name, geogcs1.get<gx_geogcs>(), geogcs2.get<gx_geogcs>(),
                        method.get<gx_method>(), parameters);
    if (copy == nullptr) {
        gx::delete_parameters(parameters);
        return nullptr;
    }
    geogcs1.release();
    geogcs2.release();
    method.release();
    return gx::header_of(copy);
}

bool geogtran_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *x = as<gx_geogtran>(a);
    const auto *y = as<gx_geogtran>(b);
    return gx::parameters_equal(x->parameters, y->parameters) &&
           gx_strcmp_ci(a->name, b->name) == 0 && gx_geogcs_eq(x->geogcs1, y->geogcs1) &&
           gx_geogcs_eq(x->geogcs2, y->geogcs2) && gx_method_eq(x->method, y->method);
}

void geogtran_write(const gx_object_header *obj, int options, gx::text_buf &out)
{
    const auto *gt = as<gx_geogtran>(obj);
    out.printf("GEOGTRAN[\"%s\",%s,%s,%s", obj->name, gx::sub_text(gt->geogcs1, options).text,
               gx::sub_text(gt->geogcs2, options).text, gx::sub_text(gt->method, options).text);
    gx::append_parameters(out, gt->parameters, options, piece_limit);
}

// ---- the parameters a method takes ----------------------------------------------------------

unsigned int present_slots(const gx::parameter_array &parameters)
{
    unsigned int bits = 0;
    for (int slot = 0; slot < gx::parameter_slots; ++slot)
        if (parameters[slot] != nullptr)
            bits |= gx::slot_bit(slot);
    return bits;
}

// How the parsed parameters fit the method's registry row: a missing one (of the row's
// parameters) is reported as an error for a grid method, which cannot run without its grid, and
// as a warning for a formula method, which still runs with a zero; a surplus one (in a slot the
// row does not take) only ever warns.
struct parameter_check {
    bool missing;
    bool surplus;
    unsigned int missing_level;
    bool fatal() const { return missing && missing_level == GX_ERRLVL_ERROR; }
};

parameter_check check_parameters(const gx_method *method, const gx::parameter_array &parameters)
{
    const gx::method_properties *row =
        gx::properties_of(gx_methlist_from_code(gx_method_code(method)));
    if (row == nullptr || row->parameters == nullptr)
        return {false, false, 0}; // the method's parameters are not checked
    const unsigned int present = present_slots(parameters);
    return {(gx::slots_of(row->parameters) & ~present) != 0, (row->surplus & present) != 0,
            gx::is_grid_method(row) ? GX_ERRLVL_ERROR : GX_ERRLVL_WARNING};
}

// These go to the user-definition category: a parameter set that does not fit its method is a
// problem of the definition, not of the text's syntax.
void report_parameter(gx::wkt_parse &parse, unsigned int level, unsigned int number,
                      const char *format, const gx_method *method)
{
    gx_err_fmt(parse.rec, level, GX_ERRCAT_OBJEDIT, number, parse.grammar->function, format,
               method->header.name);
}

void report_missing(gx::wkt_parse &parse, const parameter_check &check, const gx_method *method)
{
    report_parameter(parse, check.missing_level, 453,
                     "Missing parameter for method \"%s\" in WKT string", method);
}

void report_surplus(gx::wkt_parse &parse, const gx_method *method)
{
    report_parameter(parse, GX_ERRLVL_WARNING, 454,
                     "Extra parameter for method \"%s\" in WKT string", method);
}

// ---- reading ------------------------------------------------------------------------------------

enum geogtran_slot { authority_slot, geogcs1_slot, geogcs2_slot, method_slot };

constexpr gx::parameter_rule geogtran_parameters = {
    GX_TYPE_GEOGTRAN, "Parameter \"%s\" in WKT string is not valid for a geogtran"};

bool geogtran_accept(gx::wkt_parse &parse, const gx::wkt_sub &, gx_object_header *obj)
{
    return gx::accept_parameter(parse, obj, geogtran_parameters);
}

// A missing grid stops the build; the warnings of a transformation that is built go out after
// the constructor, which clears the caller's record.
gx_object_header *geogtran_build(gx::wkt_parse &parse)
{
    if (!gx::require_parts(parse, {
                                      {geogcs1_slot, 434, "Missing geogcs1 in WKT string"},
                                      {geogcs2_slot, 435, "Missing geogcs2 in WKT string"},
                                      {method_slot, 439, "Missing method in WKT string"},
                                  }))
        return nullptr;
    gx_parameter *parameters[gx::parameter_slots];
    gx::collected_parameters(parse, parameters);
    const auto *method = as<gx_method>(parse.slots[method_slot]);
    const parameter_check check = check_parameters(method, parameters);
    if (check.fatal()) {
        report_missing(parse, check, method);
        return nullptr;
    }
    const char *name = gx::synonym_lookup(geogtran_synonyms, parse.name);
    gx_geogtran *gt = gx_geogtran_new_errext(
        name, as<gx_geogcs>(parse.slots[geogcs1_slot]), as<gx_geogcs>(parse.slots[geogcs2_slot]),
        as<gx_method>(parse.slots[method_slot]), parameters, parse.caller_err);
    if (gt != nullptr && check.missing)
        report_missing(parse, check, method);
    if (gt != nullptr && check.surplus)
        report_surplus(parse, method);
    return gx::built(parse, gt);
}

constexpr gx::wkt_sub geogtran_subs[] = {
    gx::authority_sub(authority_slot),
    {"GEOGCS", nullptr, geogcs1_slot, gx::geogcs_from_tokens, 406,
     "Duplicate geographic CS in WKT string", 2},
    {"METHOD", nullptr, method_slot, gx::method_from_tokens, 410, "Duplicate method in WKT string"},
    {"PARAMETER", nullptr, -1, gx::parameter_from_tokens, 411, nullptr},
};

constexpr gx::wkt_grammar geogtran_grammar = {
    "GEOGTRAN",
    nullptr,
    "gx_geogtran_from_string",
    2,
    nullptr,
    nullptr,
    0,
    {},
    false,
    4,
    geogtran_subs,
    authority_slot,
    nullptr,
    geogtran_accept,
    geogtran_build,
};

} // namespace

namespace gx {

constexpr type_desc geogtran_desc = {
    GX_TYPE_GEOGTRAN,
    "geogtran",
    sizeof(gx_geogtran),
    true,
    wkt_close::authority_and_bracket,
    geogtran_free_parts,
    geogtran_clone,
    geogtran_equal,
    geogtran_write,
    &geogtran_grammar,
};

gx_object_header *geogtran_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err)
{
    return wkt_from_tokens(geogtran_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_geogtran, gx::geogtran_desc)

gx_geogtran *gx_geogtran_new(const char *name, gx_geogcs *geogcs1, gx_geogcs *geogcs2,
                             gx_method *method, gx_parameter *parameters[16])
{
    return gx_geogtran_new_errext(name, geogcs1, geogcs2, method, parameters, nullptr);
}

gx_geogtran *gx_geogtran_new_errext(const char *name, gx_geogcs *geogcs1, gx_geogcs *geogcs2,
                                    gx_method *method, gx_parameter *parameters[16],
                                    gx_err_rec *err)
{
    const char *function = "gx_geogtran_new";
    gx::err_scope scope(err);
    if (!gx::check_parts(
            scope.rec(), function,
            {
                {geogcs1, GX_TYPE_GEOGCS, 332, "Null or invalid geogcs1 object argument"},
                {geogcs2, GX_TYPE_GEOGCS, 333, "Null or invalid geogcs2 object argument"},
                {method, GX_TYPE_METHOD, 335, "Null or invalid method object argument"},
            }))
        return nullptr;
    if (parameters == nullptr) {
        gx_err_str(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 330, function,
                   "Null parameters array argument");
        return nullptr;
    }
    auto *gt = as<gx_geogtran>(gx::new_record(gx::geogtran_desc, name, function, scope.rec()));
    if (gt == nullptr)
        return nullptr;
    gt->geogcs1 = geogcs1;
    gt->geogcs2 = geogcs2;
    gt->method = method;
    for (int slot = 0; slot < gx::parameter_slots; ++slot)
        gt->parameters[slot] = parameters[slot];
    return gt;
}

gx_geogcs *gx_geogtran_geogcs1(const gx_geogtran *gt)
{
    return gx_geogtran_p(gt) ? gt->geogcs1 : nullptr;
}

gx_geogcs *gx_geogtran_geogcs2(const gx_geogtran *gt)
{
    return gx_geogtran_p(gt) ? gt->geogcs2 : nullptr;
}

gx_method *gx_geogtran_method(const gx_geogtran *gt)
{
    return gx_geogtran_p(gt) ? gt->method : nullptr;
}

gx_parameter **gx_geogtran_parameters(gx_geogtran *gt)
{
    return gx_geogtran_p(gt) ? gt->parameters : nullptr;
}

// ---- constants ----------------------------------------------------------------------------------

gx_constants *gx_geogtran_constants(const gx_geogtran *gt)
{
    return gx_geogtran_p(gt) ? gt->constants.container : nullptr;
}

int gx_geogtran_isconstloaded(const gx_geogtran *gt)
{
    return gx_geogtran_p(gt) ? gt->constants.loaded : 0;
}

int gx_geogtran_load_constants(gx_geogtran *gt)
{
    if (!gx_geogtran_p(gt))
        return 0;
    return gx::load_constants(gt->constants, gt->method->constfunc, gt->parameters);
}

void gx_geogtran_unload_constants(gx_geogtran *gt)
{
    if (gx_geogtran_p(gt))
        gx::unload_constants(gt->constants);
}
