// gx_predefined.cpp -- tables of the predefined objects of a type: code and name, sorted by
// name.
//
// A table is made by building every code of the type's ranges and keeping the objects that
// come from the current definitions or from user definitions; changed, discontinued and
// retired codes are left out.  Like the reverse code lookup this builds thousands of objects
// for the wide types and is meant for occasional use.
#include "gridex.h"

#include <algorithm>
#include <cstring>

namespace {

// The worst status an object may have to be listed.
constexpr unsigned int last_listed_status = GX_STATUS_USER;
constexpr int initial_room = 256;

// Appends {code, name} when code builds an object that is listed; false when the append
// fails.
bool collect_code(int type, int code, gx_seq *entries)
{
    gx_err_rec err;
    void *object = gx_factory_by_type_errext(type, code, &err);
    if (object == nullptr)
        return true;
    bool appended = true;
    if ((gx_object_status(object) & 0xffu) <= last_listed_status) {
        gx_table_entry entry = {code, {}};
        gx_object_name(object, entry.name);
        appended = gx_seq_apptail(entries, &entry) != 0;
    }
    gx_object_del(object);
    return appended;
}

bool collect_ranges(int type, const gx_coderanges &ranges, gx_seq *entries)
{
    for (int r = 0; r < ranges.count; r++)
        for (int code = ranges.rows[r].low; code <= ranges.rows[r].high; code++)
            if (!collect_code(type, code, entries))
                return false;
    return true;
}

bool by_name(const gx_table_entry &a, const gx_table_entry &b)
{
    return gx_strcmp_ci(a.name, b.name) < 0;
}

// The entries as one allocated array, sorted by name and ended by {0, ""}; null when there
// are none or memory runs out.
gx_table_entry *table_create(const gx_seq *entries, int *count)
{
    const int n = gx_seq_length(entries);
    if (n == 0)
        return nullptr;
    auto *table = static_cast<gx_table_entry *>(
        gx_allocate_rtn(sizeof(gx_table_entry) * (static_cast<size_t>(n) + 1)));
    if (table == nullptr)
        return nullptr;
    for (int i = 0; i < n; i++) {
        if (!gx_seq_get(entries, i, &table[i])) {
            gx_deallocate_rtn(table);
            return nullptr;
        }
    }
    std::stable_sort(table, table + n, by_name);
    table[n] = {0, {}};
    *count = n;
    return table;
}

} // namespace

gx_table_entry *gx_predefined_object(int type, int *count)
{
    int ignored;
    if (count == nullptr)
        count = &ignored;
    *count = 0;
    const gx_coderanges *ranges = gx_factory_coderanges_tbl(type);
    if (ranges == nullptr)
        return nullptr;
    gx_seq *entries = gx_create_seq(initial_room, static_cast<int>(sizeof(gx_table_entry)));
    if (entries == nullptr)
        return nullptr;
    gx_table_entry *table =
        collect_ranges(type, *ranges, entries) ? table_create(entries, count) : nullptr;
    gx_destroy_seq(entries);
    return table;
}

void gx_table_del(gx_table_entry *table)
{
    if (table != nullptr)
        gx_deallocate_rtn(table);
}

#define GX_DEFINE_PREDEFINED(name, type)                                                           \
    gx_table_entry *gx_predefined_##name(int *count) { return gx_predefined_object(type, count); }

GX_DEFINE_PREDEFINED(geogcs, GX_TYPE_GEOGCS)
GX_DEFINE_PREDEFINED(projcs, GX_TYPE_PROJCS)
GX_DEFINE_PREDEFINED(vertcs, GX_TYPE_VERTCS)
GX_DEFINE_PREDEFINED(hvcoordsys, GX_TYPE_HVCOORDSYS)
GX_DEFINE_PREDEFINED(datum, GX_TYPE_DATUM)
GX_DEFINE_PREDEFINED(vdatum, GX_TYPE_VDATUM)
GX_DEFINE_PREDEFINED(geogtran, GX_TYPE_GEOGTRAN)
GX_DEFINE_PREDEFINED(verttran, GX_TYPE_VERTTRAN)
GX_DEFINE_PREDEFINED(angunit, GX_TYPE_ANGUNIT)
GX_DEFINE_PREDEFINED(linunit, GX_TYPE_LINUNIT)
GX_DEFINE_PREDEFINED(unit, GX_TYPE_UNIT)
GX_DEFINE_PREDEFINED(primem, GX_TYPE_PRIMEM)
GX_DEFINE_PREDEFINED(spheroid, GX_TYPE_SPHEROID)
GX_DEFINE_PREDEFINED(method, GX_TYPE_METHOD)
GX_DEFINE_PREDEFINED(htmethod, GX_TYPE_HTMETHOD)
GX_DEFINE_PREDEFINED(vtmethod, GX_TYPE_VTMETHOD)
GX_DEFINE_PREDEFINED(projection, GX_TYPE_PROJECTION)
GX_DEFINE_PREDEFINED(parameter, GX_TYPE_PARAMETER)
GX_DEFINE_PREDEFINED(angular_unit, GX_TYPE_ANGUNIT)
GX_DEFINE_PREDEFINED(linear_unit, GX_TYPE_LINUNIT)
