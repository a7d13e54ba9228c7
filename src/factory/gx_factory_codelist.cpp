// gx_factory_codelist.cpp -- the codes of all predefined objects of a type.
//
// A list is taken from the type's macro table: its codes, ascending, aliases dropped, with a
// 0 after the last.  Linear and angular units share the unit table and are told apart by
// their code ranges.
#include "gridex.h"

#include <algorithm>

namespace {

bool keeps_code(int type, int code)
{
    if (type == GX_TYPE_LINUNIT || type == GX_TYPE_ANGUNIT)
        return gx_factory_coderanges_check_type(type, code) != 0;
    return true;
}

// Sorts codes and drops repeats; returns how many are left.  A list of fewer than two codes
// counts as one (so an empty table reports one code, the 0 in front of its terminator).
int sort_unique(int *codes, int n)
{
    if (n < 2)
        return 1;
    std::sort(codes, codes + n);
    return static_cast<int>(std::unique(codes, codes + n) - codes);
}

} // namespace

int *gx_factory_object_codelist(int type, int *count)
{
    int ignored;
    if (count == nullptr)
        count = &ignored;
    *count = 0;

    const gx_deftbl *table = gx_factory_defstring_get_tbl(type);
    if (table == nullptr)
        return nullptr;
    int room = std::max(table->count + 1, 2);
    int *codes = static_cast<int *>(gx_allocate_rtn(sizeof(int) * static_cast<size_t>(room)));
    if (codes == nullptr)
        return nullptr;

    int n = 0;
    for (int i = 0; i < table->count; i++)
        if (keeps_code(type, table->rows[i].code))
            codes[n++] = table->rows[i].code;
    if (n == 0)
        codes[0] = 0;
    n = sort_unique(codes, n);
    codes[n] = 0;
    *count = n;
    return codes;
}

void gx_factory_codelist_del(int *list)
{
    if (list != nullptr)
        gx_deallocate_rtn(list);
}

#define GX_DEFINE_CODELIST(name, type)                                                             \
    int *gx_factory_##name##_codelist(int *count)                                                  \
    {                                                                                              \
        return gx_factory_object_codelist(type, count);                                            \
    }

GX_DEFINE_CODELIST(geogcs, GX_TYPE_GEOGCS)
GX_DEFINE_CODELIST(projcs, GX_TYPE_PROJCS)
GX_DEFINE_CODELIST(vertcs, GX_TYPE_VERTCS)
GX_DEFINE_CODELIST(hvcoordsys, GX_TYPE_HVCOORDSYS)
GX_DEFINE_CODELIST(datum, GX_TYPE_DATUM)
GX_DEFINE_CODELIST(vdatum, GX_TYPE_VDATUM)
GX_DEFINE_CODELIST(geogtran, GX_TYPE_GEOGTRAN)
GX_DEFINE_CODELIST(verttran, GX_TYPE_VERTTRAN)
GX_DEFINE_CODELIST(angunit, GX_TYPE_ANGUNIT)
GX_DEFINE_CODELIST(linunit, GX_TYPE_LINUNIT)
GX_DEFINE_CODELIST(unit, GX_TYPE_UNIT)
GX_DEFINE_CODELIST(primem, GX_TYPE_PRIMEM)
GX_DEFINE_CODELIST(spheroid, GX_TYPE_SPHEROID)
GX_DEFINE_CODELIST(method, GX_TYPE_METHOD)
GX_DEFINE_CODELIST(htmethod, GX_TYPE_HTMETHOD)
GX_DEFINE_CODELIST(vtmethod, GX_TYPE_VTMETHOD)
GX_DEFINE_CODELIST(projection, GX_TYPE_PROJECTION)
GX_DEFINE_CODELIST(parameter, GX_TYPE_PARAMETER)
GX_DEFINE_CODELIST(angular_unit, GX_TYPE_ANGUNIT)
GX_DEFINE_CODELIST(linear_unit, GX_TYPE_LINUNIT)
