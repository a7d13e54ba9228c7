/* wkt_datum_shift: a datum shift read from a WKT file, applied to points.

   The file holds one GEOGTRAN (ed50_to_wgs84.wkt beside this source is an example: the
   three-parameter shift from ED 1950 to WGS 84 over western Europe).  Each point is shifted
   from the first geographic system to the second and back.

     wkt_datum_shift ed50_to_wgs84.wkt 2.35 48.85 */
#include "gridex.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int read_text(const char *path, char *text, size_t size)
{
    FILE *f = fopen(path, "r");
    size_t length;
    if (f == NULL)
        return 0;
    length = fread(text, 1, size - 1, f);
    fclose(f);
    text[length] = '\0';
    return length > 0;
}

int main(int argc, char **argv)
{
    char text[4 * GX_TEXT_LEN];
    char name[GX_NAME_LEN];
    double point[2];
    gx_err_rec err;
    gx_geogtran *shift;

    if (argc < 4) {
        fprintf(stderr, "usage: %s FILE.wkt LONGITUDE LATITUDE\n", argv[0]);
        return 2;
    }
    if (!read_text(argv[1], text, sizeof text)) {
        fprintf(stderr, "%s: cannot read the file\n", argv[1]);
        return 1;
    }
    shift = gx_geogtran_from_string_errext(text, &err);
    if (shift == NULL) {
        fprintf(stderr, "%s: %s (error %u)\n", argv[1], err.message, err.number);
        return 1;
    }
    point[0] = atof(argv[2]);
    point[1] = atof(argv[3]);
    if (gx_geog_to_geog(shift, 1, point, NULL, 0) != 1) {
        fprintf(stderr, "the point does not shift\n");
        gx_geogtran_del(shift);
        return 1;
    }
    printf("%s: %.9f %.9f\n", gx_geogtran_name(shift, name), point[0], point[1]);
    gx_geog_to_geog(shift, 1, point, NULL, 1);
    printf("back: %.9f %.9f\n", point[0], point[1]);
    gx_geogtran_del(shift);
    return 0;
}
