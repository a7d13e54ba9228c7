// gx_factory_coderanges.cpp -- which codes belong to which object type, and who issued them.
//
// Each type owns a few inclusive ranges of codes; each range belongs to one authority: "EPSG"
// (the geodetic parameter registry, version 6.13), "TAVU" (this library's own codes, version
// 9.3.0) or "CUSTOM" (left free for user definitions).  The whole code space lies within
// 1000..210099.
#include "gridex.h"

#include <iterator>

namespace {

constexpr int lowest_code = 1000;
constexpr int highest_code = 210099;

constexpr gx_coderange epsg(int low, int high) { return {low, high, "EPSG", "6.13"}; }

constexpr gx_coderange tavu(int low, int high) { return {low, high, "TAVU", "9.3.0"}; }

constexpr gx_coderange custom(int low, int high) { return {low, high, "CUSTOM", ""}; }

template <int N> constexpr gx_coderanges ranges_of(const gx_coderange (&rows)[N])
{
    return {N, rows};
}

constexpr gx_coderange geogcs_rows[] = {epsg(4000, 4999), tavu(37000, 37999), tavu(104000, 104999),
                                        custom(204000, 204999)};
constexpr gx_coderange projcs_rows[] = {epsg(2000, 3999),     epsg(20000, 32799),
                                        tavu(53000, 54999),   tavu(65000, 65199),
                                        tavu(102000, 103999), custom(202000, 203999)};
constexpr gx_coderange vertcs_rows[] = {epsg(5600, 5799), tavu(105600, 105799),
                                        tavu(115600, 115799), custom(205600, 205799)};
constexpr gx_coderange datum_rows[] = {epsg(6000, 6999), tavu(106000, 106999),
                                       custom(206000, 206999)};
constexpr gx_coderange vdatum_rows[] = {epsg(5100, 5299), tavu(105100, 105299),
                                        custom(205100, 205299)};
// EPSG's 10000-10099 block is shared with vertical transformations (10000-10084), and 15781
// inside 15698-15999 is a vertical transformation too.
constexpr gx_coderange geogtran_rows[] = {
    epsg(1000, 1999),   epsg(8000, 8899),     epsg(10085, 10099),    epsg(15698, 15780),
    epsg(15782, 15999), tavu(108000, 108899), custom(208000, 208899)};
constexpr gx_coderange linunit_rows[] = {epsg(9000, 9099), tavu(109000, 109099),
                                         custom(209000, 209099)};
constexpr gx_coderange angunit_rows[] = {epsg(9100, 9199), custom(209100, 209199)};
constexpr gx_coderange unit_rows[] = {epsg(9000, 9099), epsg(9100, 9199), tavu(109000, 109099),
                                      custom(209000, 209099), custom(209100, 209199)};
constexpr gx_coderange primem_rows[] = {epsg(8900, 8999), tavu(108900, 108999),
                                        custom(208900, 208999)};
constexpr gx_coderange spheroid_rows[] = {epsg(7000, 7999), tavu(107000, 107999),
                                          custom(207000, 207999)};
constexpr gx_coderange method_rows[] = {epsg(9600, 9699), tavu(109600, 109699)};
constexpr gx_coderange htmethod_rows[] = {tavu(119600, 119699)};
constexpr gx_coderange projection_rows[] = {tavu(43000, 43499)};
constexpr gx_coderange parameter_rows[] = {tavu(100000, 100099)};
constexpr gx_coderange vtmethod_rows[] = {tavu(129600, 129999)};
constexpr gx_coderange verttran_rows[] = {epsg(5400, 5438), epsg(10000, 10084), epsg(15781, 15781),
                                          tavu(110000, 110099), custom(210000, 210099)};

constexpr gx_coderanges geogcs_ranges = ranges_of(geogcs_rows);
constexpr gx_coderanges projcs_ranges = ranges_of(projcs_rows);
constexpr gx_coderanges vertcs_ranges = ranges_of(vertcs_rows);
constexpr gx_coderanges hvcoordsys_ranges = {0, nullptr};
constexpr gx_coderanges datum_ranges = ranges_of(datum_rows);
constexpr gx_coderanges vdatum_ranges = ranges_of(vdatum_rows);
constexpr gx_coderanges geogtran_ranges = ranges_of(geogtran_rows);
constexpr gx_coderanges linunit_ranges = ranges_of(linunit_rows);
constexpr gx_coderanges angunit_ranges = ranges_of(angunit_rows);
constexpr gx_coderanges unit_ranges = ranges_of(unit_rows);
constexpr gx_coderanges primem_ranges = ranges_of(primem_rows);
constexpr gx_coderanges spheroid_ranges = ranges_of(spheroid_rows);
constexpr gx_coderanges method_ranges = ranges_of(method_rows);
constexpr gx_coderanges htmethod_ranges = ranges_of(htmethod_rows);
constexpr gx_coderanges projection_ranges = ranges_of(projection_rows);
constexpr gx_coderanges parameter_ranges = ranges_of(parameter_rows);
constexpr gx_coderanges vtmethod_ranges = ranges_of(vtmethod_rows);
constexpr gx_coderanges verttran_ranges = ranges_of(verttran_rows);

struct TypeRanges {
    int type;
    const gx_coderanges *ranges;
};

// The registry, in the order a code's type is looked for: linear and angular units stand
// before units, so that a unit code is told as one or the other.
constexpr TypeRanges gx_coderanges_tbl[] = {
    {GX_TYPE_GEOGCS, &geogcs_ranges},         {GX_TYPE_PROJCS, &projcs_ranges},
    {GX_TYPE_VERTCS, &vertcs_ranges},         {GX_TYPE_HVCOORDSYS, &hvcoordsys_ranges},
    {GX_TYPE_DATUM, &datum_ranges},           {GX_TYPE_VDATUM, &vdatum_ranges},
    {GX_TYPE_GEOGTRAN, &geogtran_ranges},     {GX_TYPE_LINUNIT, &linunit_ranges},
    {GX_TYPE_ANGUNIT, &angunit_ranges},       {GX_TYPE_UNIT, &unit_ranges},
    {GX_TYPE_PRIMEM, &primem_ranges},         {GX_TYPE_SPHEROID, &spheroid_ranges},
    {GX_TYPE_METHOD, &method_ranges},         {GX_TYPE_HTMETHOD, &htmethod_ranges},
    {GX_TYPE_PROJECTION, &projection_ranges}, {GX_TYPE_PARAMETER, &parameter_ranges},
    {GX_TYPE_VTMETHOD, &vtmethod_ranges},     {GX_TYPE_VERTTRAN, &verttran_ranges},
};

// The range of the descriptor that holds code, or null.
const gx_coderange *range_of(const gx_coderanges *ranges, int code)
{
    if (ranges == nullptr || code < lowest_code || code > highest_code)
        return nullptr;
    for (int i = 0; i < ranges->count; i++)
        if (ranges->rows[i].low <= code && code <= ranges->rows[i].high)
            return &ranges->rows[i];
    return nullptr;
}

void authority_of(const gx_coderanges *ranges, int code, const char **authority,
                  const char **version)
{
    const gx_coderange *range = range_of(ranges, code);
    if (range == nullptr)
        return;
    if (authority != nullptr)
        *authority = range->authority;
    if (version != nullptr)
        *version = range->version;
}

} // namespace

const gx_coderanges *gx_factory_coderanges_tbl(int type)
{
    for (const TypeRanges &row : gx_coderanges_tbl)
        if (row.type == type)
            return row.ranges;
    return nullptr;
}

int gx_factory_coderanges_check(const gx_coderanges *ranges, int code)
{
    return range_of(ranges, code) != nullptr;
}

int gx_factory_coderanges_check_type(int type, int code)
{
    return gx_factory_coderanges_check(gx_factory_coderanges_tbl(type), code);
}

int gx_factory_coderanges_type(int code)
{
    for (const TypeRanges &row : gx_coderanges_tbl)
        if (gx_factory_coderanges_check(row.ranges, code))
            return row.type;
    return 0;
}

// Per type: its descriptor and the authority lookup over it.
#define GX_DEFINE_CODE_RANGES(T)                                                                   \
    const gx_coderanges *gx_factory_coderanges_##T(void) { return &T##_ranges; }                   \
    void gx_factory_authority_##T(int code, const char **authority, const char **version)          \
    {                                                                                              \
        authority_of(&T##_ranges, code, authority, version);                                       \
    }

GX_DEFINE_CODE_RANGES(geogcs)
GX_DEFINE_CODE_RANGES(projcs)
GX_DEFINE_CODE_RANGES(vertcs)
GX_DEFINE_CODE_RANGES(hvcoordsys)
GX_DEFINE_CODE_RANGES(datum)
GX_DEFINE_CODE_RANGES(vdatum)
GX_DEFINE_CODE_RANGES(geogtran)
GX_DEFINE_CODE_RANGES(verttran)
GX_DEFINE_CODE_RANGES(angunit)
GX_DEFINE_CODE_RANGES(linunit)
GX_DEFINE_CODE_RANGES(unit)
GX_DEFINE_CODE_RANGES(primem)
GX_DEFINE_CODE_RANGES(spheroid)
GX_DEFINE_CODE_RANGES(method)
GX_DEFINE_CODE_RANGES(htmethod)
GX_DEFINE_CODE_RANGES(vtmethod)
GX_DEFINE_CODE_RANGES(projection)
GX_DEFINE_CODE_RANGES(parameter)
