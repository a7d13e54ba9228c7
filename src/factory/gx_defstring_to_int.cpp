// gx_defstring_to_int.cpp -- macro names to codes and back.
//
// Each object type has a constant table of macro names (generated from macros.txt; the names
// of discontinued codes are in gx_factory_discontinued.cpp), sorted by the macro comparison so that a name is found
// by binary search.  The prefix of a name ("GX_GCS_", "GX_PCS_" ...) chooses the table.
#include "factory/gx_defstring_compare.h"
#include "gridex.h"

#include <ctype.h>
#include <limits.h>
#include <stdlib.h>

namespace {

struct TypeTable {
    int type;
    const gx_deftbl *table;
    const char *prefix;
};

// The registry of macro tables.  Order matters: a name takes the first table whose prefix
// matches, so "GX_VTMTH_" stands before "GX_VT_"; and a code takes the first type whose code
// ranges hold it, so the unit rows go linear, angular, then either.
constexpr TypeTable gx_deftbl_list[] = {
    {GX_TYPE_GEOGCS, &gx_geogcs_deftbl, "GX_GCS_"},
    {GX_TYPE_PROJCS, &gx_projcs_deftbl, "GX_PCS_"},
    {GX_TYPE_VERTCS, &gx_vertcs_deftbl, "GX_VCS_"},
    {GX_TYPE_HVCOORDSYS, &gx_hvcoordsys_deftbl, "GX_HVC_"},
    {GX_TYPE_DATUM, &gx_datum_deftbl, "GX_D_"},
    {GX_TYPE_VDATUM, &gx_vdatum_deftbl, "GX_VERTD_"},
    {GX_TYPE_GEOGTRAN, &gx_geogtran_deftbl, "GX_GT_"},
    {GX_TYPE_LINUNIT, &gx_unit_deftbl, "GX_U_"},
    {GX_TYPE_ANGUNIT, &gx_unit_deftbl, "GX_U_"},
    {GX_TYPE_UNIT, &gx_unit_deftbl, "GX_U_"},
    {GX_TYPE_PRIMEM, &gx_primem_deftbl, "GX_PM_"},
    {GX_TYPE_SPHEROID, &gx_spheroid_deftbl, "GX_S_"},
    {GX_TYPE_METHOD, &gx_method_deftbl, "GX_MTH_"},
    {GX_TYPE_HTMETHOD, &gx_htmethod_deftbl, "GX_HTMTH_"},
    {GX_TYPE_PROJECTION, &gx_projection_deftbl, "GX_PRJ_"},
    {GX_TYPE_PARAMETER, &gx_parameter_deftbl, "GX_PAR_"},
    {GX_TYPE_VTMETHOD, &gx_vtmethod_deftbl, "GX_VTMTH_"},
    {GX_TYPE_VERTTRAN, &gx_verttran_deftbl, "GX_VT_"},
};

bool is_space(char c) { return isspace(static_cast<unsigned char>(c)) != 0; }

// Characters a prefix match steps over: white space, '-' and '_'.
bool is_separator(char c) { return is_space(c) || c == '-' || c == '_'; }

// Whether the letters and digits of prefix begin text, case-insensitively, separators in
// either skipped: gx_gcs_wgs_1984, GX-GCS-WGS_1984 and GXGCS WGS_1984 all match "GX_GCS_".
bool prefix_matches(const char *prefix, const char *text)
{
    for (;;) {
        while (is_separator(*prefix))
            prefix++;
        if (*prefix == '\0')
            return true;
        while (is_separator(*text))
            text++;
        if (toupper(static_cast<unsigned char>(*prefix)) !=
            toupper(static_cast<unsigned char>(*text)))
            return false;
        prefix++;
        text++;
    }
}

// The code of a macro in a table, by binary search; 0 when absent.
int search_table(const gx_deftbl *table, const char *macro)
{
    int low = 0;
    int high = table->count - 1;
    while (low <= high) {
        int mid = low + (high - low) / 2;
        int order = gx_defstring_compare(macro, table->rows[mid].macro);
        if (order == 0)
            return table->rows[mid].code;
        if (order < 0)
            high = mid - 1;
        else
            low = mid + 1;
    }
    return 0;
}

// The first macro of a code in a table, by linear scan; null when absent.
const char *scan_table(const gx_deftbl *table, int code)
{
    for (int i = 0; i < table->count; i++)
        if (table->rows[i].code == code)
            return table->rows[i].macro;
    return nullptr;
}

// Decimal text as an int (trailing characters ignored), saturated at the int limits.
int decimal_code(const char *text)
{
    long value = strtol(text, nullptr, 10);
    if (value > INT_MAX)
        return INT_MAX;
    if (value < INT_MIN)
        return INT_MIN;
    return static_cast<int>(value);
}

} // namespace

int gx_factory_defstring_to_int(const char *s)
{
    if (s == nullptr)
        return 0;
    while (is_space(*s))
        s++;
    if (*s == '\0')
        return 0;
    if (isdigit(static_cast<unsigned char>(*s)))
        return decimal_code(s);

    for (const TypeTable &row : gx_deftbl_list) {
        if (prefix_matches(row.prefix, s)) {
            int code = search_table(row.table, s);
            if (code != 0)
                return code;
            break;
        }
    }
    return search_table(&gx_discontinued_deftbl, s);
}

const char *gx_factory_int_to_defstring(int code)
{
    if (code == 0)
        return nullptr;
    for (const TypeTable &row : gx_deftbl_list) {
        if (gx_factory_coderanges_check_type(row.type, code)) {
            if (const char *macro = scan_table(row.table, code))
                return macro;
            break;
        }
    }
    return scan_table(&gx_discontinued_deftbl, code);
}

const gx_deftbl *gx_factory_defstring_get_tbl(int type)
{
    for (const TypeTable &row : gx_deftbl_list)
        if (row.type == type)
            return row.table;
    return nullptr;
}
