/* A small demonstration of the library: reads well-known text, reports what it found and writes
   the object back in the library's own form, with and without its authority. */
#include "gridex.h"

#include <stdio.h>

static void show(const char *wkt)
{
    gx_err_rec err;
    char text[GX_TEXT_LEN];
    char name[GX_NAME_LEN];
    void *obj = gx_object_from_string_errext(wkt, &err);

    printf("in:   %s\n", wkt);
    if (obj == NULL) {
        printf("      error %u: %s\n\n", err.number, err.message);
        return;
    }
    printf("      a %s named %s\n", gx_type_to_name(gx_object_type(obj)), gx_object_name(obj, name));
    printf("out:  %s\n", gx_object_to_string(obj, text));
    printf("      %s\n\n", gx_object_to_string_ext(obj, 2, text));
    gx_object_del(obj);
}

int main(void)
{
    printf("%s\n\n", gx_version_string());
    show("UNIT [ \"Degree\" , 0.017453292519943295 , AUTHORITY [\"EPSG\", 9102] ]");
    show("unit(\"Foot_US\", 0.3048006096012192)");
    show("UNIT[\"Meter\", -1]");
    return 0;
}
