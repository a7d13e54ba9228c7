/* utm_from_code: a longitude and latitude on WGS 84 to its UTM zone, by code.

   The projected systems "WGS 84 / UTM zone N" have the codes 32601 to 32660 (north) and 32701 to
   32760 (south); the zone is the 6-degree band of the longitude.  The system is built from the
   library's definition database, the point converted, and converted back.

     utm_from_code 13.405 52.52        ->  WGS_1984_UTM_Zone_33N 391779.26 5820072.16 */
#include "gridex.h"

#include <stdio.h>
#include <stdlib.h>

int main(int argc, char **argv)
{
    double lon = argc > 2 ? atof(argv[1]) : 13.405;
    double lat = argc > 2 ? atof(argv[2]) : 52.52;
    int zone = (int)((lon + 180.0) / 6.0) % 60 + 1; /* lon + 180 >= 0: truncation is floor */
    int code = (lat >= 0.0 ? 32600 : 32700) + zone;
    double point[2] = {lon, lat};
    char name[GX_NAME_LEN];
    gx_err_rec err;

    gx_projcs *utm = gx_factory_projcs_errext(code, &err);
    if (utm == NULL) {
        fprintf(stderr, "%s: %s\n", err.function, err.message);
        return 1;
    }
    if (gx_geog_to_proj(utm, 1, point) != 1) {
        fprintf(stderr, "the point does not convert\n");
        gx_projcs_del(utm);
        return 1;
    }
    printf("%s %.2f %.2f\n", gx_projcs_name(utm, name), point[0], point[1]);
    gx_proj_to_geog(utm, 1, point);
    printf("back: %.9f %.9f\n", point[0], point[1]);
    gx_projcs_del(utm);
    return 0;
}
