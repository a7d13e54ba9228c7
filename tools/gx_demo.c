/* A small demonstration of the library: a projected coordinate system read from well-known
   text (UTM zone 33 north on WGS 84), a few places converted from longitude and latitude to
   easting and northing and back. */
#include "gridex.h"

#include <stdio.h>

static const char *utm33 =
    "PROJCS[\"WGS_1984_UTM_Zone_33N\","
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],"
    "PROJECTION[\"Transverse_Mercator\"],"
    "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
    "PARAMETER[\"Central_Meridian\",15.0],PARAMETER[\"Scale_Factor\",0.9996],"
    "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0],AUTHORITY[\"EPSG\",32633]]";

int main(void)
{
    static const char *names[] = {"Berlin", "Vienna", "Rome", "Oslo"};
    static const double places[] = {13.4050, 52.5200, 16.3738, 48.2082,
                                    12.4964, 41.9028, 10.7522, 59.9139};
    double points[8];
    const int n = 4;
    char text[GX_TEXT_LEN];
    gx_err_rec err;
    gx_projcs *cs;
    int i;

    printf("%s\n\n", gx_version_string());
    cs = gx_projcs_from_string_errext(utm33, &err);
    if (cs == NULL) {
        fprintf(stderr, "error %u: %s\n", err.number, err.message);
        return 1;
    }
    printf("%s\n\n", gx_projcs_to_string_ext(cs, 1, text));

    printf("%-8s %12s %12s   %14s %14s\n", "place", "longitude", "latitude", "easting", "northing");
    for (i = 0; i < 2 * n; ++i)
        points[i] = places[i];
    if (gx_geog_to_proj(cs, n, points) != n)
        return 1;
    for (i = 0; i < n; ++i)
        printf("%-8s %12.6f %12.6f   %14.3f %14.3f\n", names[i], places[2 * i], places[2 * i + 1],
               points[2 * i], points[2 * i + 1]);
    if (gx_proj_to_geog(cs, n, points) != n)
        return 1;
    printf("\nand back:\n");
    for (i = 0; i < n; ++i)
        printf("%-8s %12.9f %12.9f\n", names[i], points[2 * i], points[2 * i + 1]);
    gx_projcs_del(cs);
    return 0;
}
