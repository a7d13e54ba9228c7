// The spheroid: an ellipsoid of revolution given by its semi-major axis and flattening.
//   SPHEROID["WGS_1984",6378137.0,298.257223563]
// The text carries the inverse flattening 1/f, written 0.0 for a sphere; the record keeps f,
// which stays finite for a sphere.  ELLIPSOID is read as a synonym of SPHEROID; SPHEROID is what
// is written.
#include "object/gx_types.h"

#include <cmath>

namespace {

using gx::as;

// Where two definitions of the same ellipsoid differ only in how many digits of the flattening
// were published, their quarter meridians agree to well below this (metres for a in metres).
constexpr double quarter_meridian_tolerance = 1e-6;

const gx::synonym spheroid_synonyms[] = {
    {nullptr, nullptr},
};

double squared_eccentricity(double flattening) { return (2.0 - flattening) * flattening; }

double quarter_meridian(const gx_spheroid *sph)
{
    return gx_q90(sph->axis, squared_eccentricity(sph->flattening), 0.0);
}

bool valid_axis(double axis) { return axis > 0.0 && std::isfinite(axis); }
bool valid_flattening(double flattening) { return flattening >= 0.0 && flattening <= 1.0; }

// 0 stands for a sphere; otherwise an inverse flattening below 1 would be a flattening above 1.
bool valid_inverse_flattening(double inverse) { return inverse == 0.0 || inverse >= 1.0; }

bool spheroid_equal(const gx_object_header *a, const gx_object_header *b)
{
    const auto *sa = as<gx_spheroid>(a);
    const auto *sb = as<gx_spheroid>(b);
    if (gx_strcmp_ci(a->name, b->name) != 0 || !gx::eq(sa->axis, sb->axis))
        return false;
    if (gx::eq(sa->flattening, sb->flattening))
        return true;
    // The same ellipsoid published with a flattening cut at different digits: equal when the
    // difference does not show in the size of the figure.
    return std::fabs(quarter_meridian(sa) - quarter_meridian(sb)) <= quarter_meridian_tolerance;
}

gx_object_header *spheroid_clone(const gx_object_header *obj)
{
    const auto *sph = as<gx_spheroid>(obj);
    return gx::header_of(gx_spheroid_new(obj->name, sph->axis, sph->flattening));
}

// A sphere's inverse flattening is infinite; the text form writes it as 0 (0.0).
double inverse_flattening(double flattening)
{
    // a flattening within the tolerance of zero is a sphere, written with inverse flattening 0
    return gx::is_sphere(std::fabs(flattening)) ? 0.0 : 1.0 / flattening;
}

void spheroid_write(const gx_object_header *obj, int, gx::text_buf &out)
{
    const auto *sph = as<gx_spheroid>(obj);
    out.printf("SPHEROID[\"%s\",%s,%s", obj->name, gx::number_text(sph->axis).text,
               gx::number_text(inverse_flattening(sph->flattening)).text);
}

// These two messages have always been reported under this spelling of the function name.
constexpr const char *value_error_function = "gx_spheroid from string";

bool spheroid_check_values(gx::wkt_parse &parse)
{
    if (!valid_axis(gx_atod(parse.values[0]))) {
        parse.error_as(value_error_function, 420, "Semimajor axis (%s) in WKT string is <= 0",
                       parse.values[0]);
        return false;
    }
    if (!valid_inverse_flattening(gx_atod(parse.values[1]))) {
        parse.error_as(value_error_function, 421,
                       "Flattening inverse (%s) in WKT string is not 0 and is < 1",
                       parse.values[1]);
        return false;
    }
    return true;
}

gx_object_header *spheroid_build(gx::wkt_parse &parse)
{
    const double inverse = gx_atod(parse.values[1]);
    const double flattening = inverse == 0.0 ? 0.0 : 1.0 / inverse; // 0 reads as a sphere
    const char *name = gx::synonym_lookup(spheroid_synonyms, parse.name);
    return gx::header_of(
        gx_spheroid_new_errext(name, gx_atod(parse.values[0]), flattening, parse.caller_err));
}

constexpr gx::wkt_sub spheroid_subs[] = {gx::authority_sub(0)};

constexpr gx::wkt_grammar spheroid_grammar = {
    "SPHEROID",
    "ELLIPSOID",
    "gx_spheroid_from_string",
    4,
    nullptr,
    nullptr,
    2,
    {{451, "Missing semimajor axis in WKT string"}, {452, "Missing flattening in WKT string"}},
    false,
    1,
    spheroid_subs,
    0,
    spheroid_check_values,
    nullptr,
    spheroid_build,
};

} // namespace

namespace gx {

constexpr type_desc spheroid_desc = {
    GX_TYPE_SPHEROID,
    "spheroid",
    sizeof(gx_spheroid),
    true,
    wkt_close::authority_and_bracket,
    nullptr,
    spheroid_clone,
    spheroid_equal,
    spheroid_write,
    &spheroid_grammar,
};

gx_object_header *spheroid_from_tokens(const gx_token_list *list, int start, int *next,
                                       gx_err_rec *err)
{
    return wkt_from_tokens(spheroid_grammar, list, start, next, err);
}

} // namespace gx

GX_DEFINE_CODED_FAMILY(gx_spheroid, gx::spheroid_desc)

gx_spheroid *gx_spheroid_new(const char *name, double axis, double flattening)
{
    return gx_spheroid_new_errext(name, axis, flattening, nullptr);
}

gx_spheroid *gx_spheroid_new_errext(const char *name, double axis, double flattening,
                                    gx_err_rec *err)
{
    const char *function = "gx_spheroid_new";
    gx::err_scope scope(err);
    if (!valid_axis(axis)) {
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 302, function,
                   "Semimajor axis argument (%s) is <= 0", gx::number_text(axis).text);
        return nullptr;
    }
    if (!valid_flattening(flattening)) {
        gx::report(scope.rec(), GX_ERRLVL_ERROR, GX_ERRCAT_ARGUMENT, 303, function,
                   "Flattening argument (%s) is < 0 or > 1", gx::number_text(flattening).text);
        return nullptr;
    }
    auto *sph = as<gx_spheroid>(gx::new_record(gx::spheroid_desc, name, function, scope.rec()));
    if (sph == nullptr)
        return nullptr;
    sph->axis = axis;
    sph->flattening = flattening;
    return sph;
}

double gx_spheroid_axis(const gx_spheroid *sph) { return gx_spheroid_p(sph) ? sph->axis : 0.0; }

double gx_spheroid_flattening(const gx_spheroid *sph)
{
    return gx_spheroid_p(sph) ? sph->flattening : 0.0;
}
