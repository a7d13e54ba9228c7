/* A small demonstration of the library: WGS 84 (code 4326) and UTM zone 33 north on it (code
   32633) built from the definition database, a few places converted from longitude and latitude
   to easting and northing and back. */
#include "gridex.h"

#include <stdio.h>

enum { wgs84 = 4326, wgs84_utm33n = 32633 };

static int report(const gx_err_rec *err)
{
    fprintf(stderr, "error %u: %s\n", err->number, err->message);
    return 1;
}

int main(void)
{
    static const char *names[] = {"Berlin", "Vienna", "Rome", "Oslo"};
    static const double places[] = {13.4050, 52.5200, 16.3738, 48.2082,
                                    12.4964, 41.9028, 10.7522, 59.9139};
    double points[8];
    const int n = 4;
    char text[GX_TEXT_LEN];
    gx_err_rec err;
    gx_geogcs *gcs;
    gx_projcs *cs;
    int i;

    printf("%s\n\n", gx_version_string());
    gcs = gx_factory_geogcs_errext(wgs84, &err);
    if (gcs == NULL)
        return report(&err);
    cs = gx_factory_projcs_errext(wgs84_utm33n, &err);
    if (cs == NULL) {
        gx_geogcs_del(gcs);
        return report(&err);
    }
    printf("%s\n\n", gx_geogcs_to_string_ext(gcs, 1, text));
    printf("%s\n\n", gx_projcs_to_string_ext(cs, 1, text));
    gx_geogcs_del(gcs);

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
