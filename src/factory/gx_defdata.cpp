// gx_defdata.cpp -- finding built-in definition records by type and code.
//
// The records themselves are generated (gx_defdata_<type>.cpp in the build tree); each table
// is sorted by code, so a lookup is a binary search.
#include "factory/gx_defdata.h"

#include <algorithm>

namespace {

struct TypeTable {
    int type;
    const gx_deftable *table;
};

// Linear and angular units share one table.
constexpr TypeTable type_tables[] = {
    {GX_TYPE_GEOGCS, &gx_defdata_geogcs},     {GX_TYPE_PROJCS, &gx_defdata_projcs},
    {GX_TYPE_VERTCS, &gx_defdata_vertcs},     {GX_TYPE_DATUM, &gx_defdata_datum},
    {GX_TYPE_VDATUM, &gx_defdata_vdatum},     {GX_TYPE_GEOGTRAN, &gx_defdata_geogtran},
    {GX_TYPE_LINUNIT, &gx_defdata_unit},      {GX_TYPE_ANGUNIT, &gx_defdata_unit},
    {GX_TYPE_UNIT, &gx_defdata_unit},         {GX_TYPE_PRIMEM, &gx_defdata_primem},
    {GX_TYPE_SPHEROID, &gx_defdata_spheroid}, {GX_TYPE_VERTTRAN, &gx_defdata_verttran},
};

} // namespace

const gx_deftable *gx_defdata_table(int type)
{
    for (const TypeTable &row : type_tables)
        if (row.type == type)
            return row.table;
    return nullptr;
}

const gx_defrec *gx_defdata_find(int type, int code)
{
    const gx_deftable *table = gx_defdata_table(type);
    if (table == nullptr)
        return nullptr;
    const gx_defrec *end = table->rows + table->count;
    const gx_defrec *found = std::lower_bound(
        table->rows, end, code, [](const gx_defrec &rec, int key) { return rec.code < key; });
    return found != end && found->code == code ? found : nullptr;
}
