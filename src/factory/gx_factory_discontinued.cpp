// gx_factory_discontinued.cpp -- codes that the database no longer recommends.
//
// A discontinued code keeps its macro name in gx_discontinued_deftbl, the last table a name
// lookup tries, and stands on its type's list, which the factory consults to stamp objects
// built under such a code.
#include "factory/gx_defdata.h"

#include <iterator>

namespace {

// Sorted by the macro comparison, as name lookup searches it.
constexpr gx_deftbl_entry discontinued_rows[] = {
    {6233, "GX_D_GANDAJIKA_1970"},
    {6631, "GX_D_K0_1949"},
    {6264, "GX_D_MHAST"},
    {4233, "GX_GCS_GANDAJIKA_1970"},
    {4631, "GX_GCS_K0_1949"},
    {4264, "GX_GCS_MHAST"},
    {1894, "GX_GT_GANDAJIKA_1970_TO_WGS_1984_1"},
    {1915, "GX_GT_K0_1949_TO_WGS_1984_1"},
    {1911, "GX_GT_PITON_DES_NEIGES_TO_WGS_1984_1"},
    {2979, "GX_PCS_K0_1949_UTM_42S"},
    {26432, "GX_PCS_MHAST_UTM_32S"},
    {26761, "GX_PCS_NAD_1927_HI_1"},
    {26762, "GX_PCS_NAD_1927_HI_2"},
    {26763, "GX_PCS_NAD_1927_HI_3"},
    {26764, "GX_PCS_NAD_1927_HI_4"},
    {26765, "GX_PCS_NAD_1927_HI_5"},
};

} // namespace

extern "C" constinit const gx_deftbl gx_discontinued_deftbl = {
    discontinued_rows, static_cast<int>(std::size(discontinued_rows))};

// The same codes by type, 0-terminated.
constinit const int gx_factory_datum_discontinued_codes[] = {6233, 6631, 6264, 0};
constinit const int gx_factory_geogcs_discontinued_codes[] = {4233, 4631, 4264, 0};
constinit const int gx_factory_geogtran_discontinued_codes[] = {1894, 1915, 1911, 0};
constinit const int gx_factory_projcs_discontinued_codes[] = {2979,  26432, 26761, 26762,
                                                              26763, 26764, 26765, 0};
constinit const int gx_factory_hvcoordsys_discontinued_codes[] = {0};
constinit const int gx_factory_primem_discontinued_codes[] = {0};
constinit const int gx_factory_spheroid_discontinued_codes[] = {0};
constinit const int gx_factory_unit_discontinued_codes[] = {0};
constinit const int gx_factory_vdatum_discontinued_codes[] = {0};
constinit const int gx_factory_vertcs_discontinued_codes[] = {0};
constinit const int gx_factory_verttran_discontinued_codes[] = {0};

int gx_factory_discontinued_lookup(const int *list, int code)
{
    if (list == nullptr)
        return 0;
    for (; *list != 0; list++)
        if (*list == code)
            return 1;
    return 0;
}
